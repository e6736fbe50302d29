#include "datatypes/model/random_extensions.h"

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

namespace oxa_test::model {

namespace {

// What is common stands several times.
constexpr std::string_view roots[] = {"Extension", "extensions", "data_type",
                                      "data",      "text",       "xml"};
constexpr std::string_view plugins[] = {"p", "p", "p", "q", "P", " p", "p::point", "$", "int"};
constexpr std::string_view kinds[] = {"Data", "data ", "", "property", "0"};
constexpr std::string_view type_names[] = {"point", "point", "line", "Point", "p::point",
                                           " ",     "a$b",   "int",  "::",    "%d%s"};
constexpr std::string_view type_strings[] = {"struct",   "record", " struct ",
                                             "p::point", "int",    "%s"};
constexpr std::string_view member_names[] = {"x", "x",  "y",    "z",  "w",
                                             "X", " x", "data", "%s", "::"};
constexpr std::string_view data_types[] = {"bool",
                                           "boolean",
                                           "string",
                                           "char",
                                           "unsigned char",
                                           "short",
                                           "int",
                                           "int",
                                           "unsigned short",
                                           "unsigned int",
                                           "long",
                                           "long long",
                                           "unsigned long",
                                           "float",
                                           "double",
                                           "unsigned long long",
                                           "enum",
                                           "mapped-string",
                                           "code",
                                           "hexadecimal",
                                           "file",
                                           "user-defined",
                                           "p::point",
                                           "p::line",
                                           "q::point",
                                           "x$p::point",
                                           "a$int%",
                                           "$",
                                           "::",
                                           "Int",
                                           "int32",
                                           "long  long",
                                           " ",
                                           "\t \t",
                                           "unsigned",
                                           "p:point",
                                           "p::point::x",
                                           "int\n",
                                           "\xC2\xA0int",
                                           "-1"};
constexpr std::string_view numbers[] = {
    "0",        "1",      "-1.5", "2",        "5",     "100",        "1e10",
    "1e39",     "-1e39",  "nan",  "-nan",     "inf",   "-inf",       "0x1p3",
    "abc",      "",       " 3",   "3x",       "1e-46", "0.1",        "16777217",
    "-0",       "1e400",  "--1",  "1,5",      ".5",    "4294967295", "1.17549435e-38",
    "0.333333", "1e-400", "1 2",  "infinity", "+7",    "0x",         "9223372036854775807"};
constexpr std::string_view texts[] = {"a tooltip", "0",         "1",  "",
                                      " ",         "&lt;b&gt;", "%n", "\xC3\xA9"};
constexpr std::string_view others[] = {"node",       "Member",  "Data_type",
                                       "data_types", "members", "extension"};
constexpr std::string_view odd_keys[] = {"id", "Name", "names", "range", "comment", "key"};
constexpr std::string_view spaces[] = {"", "", "\n  ", " ", "<!-- c -->", "\n<!-- <member/> -->\n"};

class ExtensionGrammar {
 public:
  explicit ExtensionGrammar(Random& random) : random_(random) {}

  std::string file() {
    if (random_.one_in(3)) {
      out_ += "<?xml version=\"1.0\"?>\n";
    }
    const std::string name(random_.one_in(16) ? random_.of(roots) : "extension");
    if (!random_.one_in(40)) {
      attribute("type", random_.one_in(16) ? random_.of(kinds) : "data");
    }
    required("plugin", plugins);
    element(name, 5, [this] { child_of_root(0); });
    return std::move(out_);
  }

 private:
  using Attributes = std::vector<std::pair<std::string, std::string>>;

  void attribute(std::string_view key, std::string_view value) {
    attributes_.emplace_back(key, value);
  }

  // Mostly there, sometimes twice, rarely empty.
  template <class Values>
  void required(std::string_view key, const Values& values) {
    if (random_.one_in(30)) {
      return;
    }
    attribute(key, random_.one_in(40) ? "" : random_.of(values));
    if (random_.one_in(40)) {
      attribute(key, random_.of(values));
    }
  }

  template <class Values>
  void optional(std::string_view key, const Values& values, std::size_t rarity) {
    if (random_.one_in(rarity)) {
      attribute(key, random_.of(values));
    }
  }

  void add_attributes() {
    optional(random_.of(odd_keys), texts, 12);
    for (std::size_t left = attributes_.size(); left > 1; --left) {
      std::swap(attributes_[left - 1], attributes_[random_.below(left)]);
    }
    for (const auto& [key, value] : std::exchange(attributes_, {})) {
      out_ += " " + key + "=\"" + value + "\"";
    }
  }

  // An element with the attributes that have been gathered, and up to `most` children.
  template <class Child>
  void element(const std::string& name, std::size_t most, Child child) {
    out_ += "<" + name;
    add_attributes();
    const std::size_t count = most == 0 || random_.one_in(12) ? 0 : 1 + random_.below(most);
    if (count == 0 && !random_.one_in(4)) {
      out_ += "/>";
      return;
    }
    out_ += random_.one_in(count == 0 ? 4 : 300) ? ">some text" : ">";
    for (std::size_t left = count; left > 0; --left) {
      out_ += random_.of(spaces);
      child();
    }
    out_ += count == 0 ? "" : random_.of(spaces);
    out_ += "</" + name + ">";
  }

  // Around children that are not where they belong.
  template <class Child>
  void other(Child child) {
    optional("name", type_names, 2);
    element(std::string(random_.of(others)), 2, child);
  }

  void child_of_root(int depth) {
    if (depth < 2 && random_.one_in(12)) {
      other([&] { child_of_root(depth + 1); });
    } else if (random_.one_in(20)) {
      member();
    } else {
      data_type(depth);
    }
  }

  void data_type(int depth) {
    required("name", type_names);
    required("type", type_strings);
    element("data_type", 6, [&] { child_of_type(depth); });
  }

  void child_of_type(int depth) {
    if (depth < 2 && random_.one_in(20)) {
      other([&] { child_of_type(depth + 1); });
    } else if (depth < 2 && random_.one_in(30)) {
      data_type(depth + 1);
    } else {
      member();
    }
  }

  void member() {
    required("name", member_names);
    if (random_.one_in(5)) {
      static constexpr std::string_view blanks[] = {" ", "\t", " \t ", "\n", ""};
      attribute("type", std::string(random_.of(blanks)) + std::string(random_.of(data_types)) +
                            std::string(random_.of(blanks)));
    } else {
      required("type", data_types);
    }
    if (random_.one_in(3)) {
      optional("range_min", numbers, 1);
      attribute("range_max", random_.of(numbers));
    } else {
      optional("range_min", numbers, 40);
      optional("range_max", numbers, 20);
    }
    optional("tooltip", texts, 4);
    optional("default", texts, 4);
    element("member", random_.one_in(20) ? 1 : 0, [this] { other([] {}); });
  }

  Random& random_;
  Attributes attributes_;
  std::string out_;
};

}  // namespace

std::string extension_file(Random& random) { return ExtensionGrammar(random).file(); }

std::string damaged_extension_file(Random& random) {
  std::string source = extension_file(random);
  for (std::size_t left = random.below(3) + 1; left > 0; --left) {
    damage(source, random);
  }
  return source;
}

std::string extension_file_with_long_names(Random& random) {
  static constexpr std::size_t lengths[] = {850, 900, 930, 990, 1000, 1100, 4090, 4095, 4100};
  const std::string name(random.of(lengths) + random.below(12), 'n');
  const std::string long_type(random.of(lengths) + random.below(12), 't');
  const std::string member = random.one_in(3) ? "" : " name=\"" + name + "\"";
  const std::string type = random.one_in(2) ? "" : " type=\"" + name + "::" + long_type + "\"";
  return "<extension type=\"data\" plugin=\"" + name + "\"><data_type name=\"" + long_type +
         "\" type=\"" + name + "\"><member" + member + type + " default=\"" + long_type +
         "\"/></data_type></extension>";
}

}  // namespace oxa_test::model
