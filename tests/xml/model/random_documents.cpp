#include "xml/model/random_documents.h"

#include <algorithm>
#include <cstdio>
#include <string_view>

namespace oxa_test::model {

namespace {

// Tokens that often stop the process stand once, the others several times or in several forms.
constexpr std::string_view tokens[] = {
    "<",
    "<",
    ">",
    ">",
    "/>",
    "/>",
    "</",
    "</",
    "=",
    "=",
    "\"",
    "\"",
    "\\\"",
    "\\",
    " ",
    " ",
    "\n",
    "\t",
    "\r",
    "\x01",
    "\x7F",
    "\x80",
    "\xFE",
    "\xFF",
    "a",
    "a",
    "b",
    "data",
    "text",
    "xml",
    "id",
    "name",
    "1",
    "hello",
    "=\"v\"",
    " id=\"1\"",
    " x=\"\"",
    " b=\"2\"",
    "<a>",
    "<a>",
    "</a>",
    "</a>",
    "<b>",
    "<b>",
    "</b>",
    "</b>",
    "<data>",
    "</data>",
    "<text>",
    "</text>",
    "<xml>",
    "</xml>",
    "<a/>",
    "<b x=\"1\"/>",
    "<?xml version=\"1.0\"?>",
    "<?xml",
    "?>",
    "<!--",
    "-->",
    "<!-- c -->",
    "<!--->-->",
    "<!---- -->",
    "--",
    "-",
    "&lt;",
    "&gt;",
    "&amp;",
    "&",
    "&quot;",
    "&#38;",
    ";",
    "/",
    "?",
    "!",
    "'",
};

constexpr std::string_view names[] = {"a",   "b",  "c",   "node", "data", "text",
                                      "xml", "id", "a!b", "a<\"", "&lt;", "a\\"};
constexpr std::string_view values[] = {"",         "1",   "2",      "v",   "a b",
                                       "<b/>",     "=",   "a\\\\b", "\\n", "&amp;lt;",
                                       "\xC3\xA9", "a>b", "\xFF",   "-->"};
constexpr std::string_view texts[] = {"x",          "  hello ",       "1 &lt; 2", "&amp;amp;",
                                      "a\nb",       "\"q\"",          "=",        "\x80\x81",
                                      "a<b>c</b>d", "a<b x=\"1\"/>d", "-",        "x>y"};
constexpr std::string_view spaces[] = {"", "", "", " ", "\n", "\t ", "\x80", "\x01"};
constexpr std::string_view comments[] = {"<!-- c -->", "<!---->",        "<!-- x -- y -->",
                                         "<!--->-->",  "<!-- - --- -->", "<!-- <a> ---->",
                                         "<!--\xFF-->"};

class Grammar {
 public:
  explicit Grammar(Random& random) : random_(random) {}

  // An element with so many children that they are stored in several places.
  std::string large_document() {
    add("<a>");
    for (int left = 400; left > 0; --left) {
      element(1);
      gap();
    }
    add("</a>");
    return std::move(out_);
  }

  std::string document() {
    if (random_.one_in(3)) {
      add("<?xml");
      attributes(2);
      add(random_.of(spaces));
      add("?>");
    }
    gap();
    element(0);
    gap();
    if (random_.one_in(30)) {
      element(0);
    }
    return std::move(out_);
  }

 private:
  void add(std::string_view text) { out_ += text; }

  void gap() {
    add(random_.of(spaces));
    if (random_.one_in(6)) {
      add(random_.of(comments));
      add(random_.of(spaces));
    }
  }

  void attributes(std::size_t most) {
    for (std::size_t left = random_.below(most + 1); left > 0; --left) {
      add(" ");
      add(random_.of(spaces));
      add(random_.one_in(8) ? run_of("key") : std::string(random_.of(names)));
      add(random_.of(spaces));
      add("=");
      add(random_.of(spaces));
      add("\"");
      add(random_.one_in(6) ? run_of("value \x80<\xFF") : std::string(random_.of(values)));
      add("\"");
    }
  }

  // Up to seventy of these characters.
  std::string run_of(std::string_view characters) {
    std::string run(1 + random_.below(70), characters[0]);
    run[random_.below(run.size())] = random_.of(characters);
    return run;
  }

  void element(int depth) {
    const std::string name =
        random_.one_in(10) ? run_of("name\xFF") : std::string(random_.of(names));
    add("<");
    add(random_.of(spaces));
    add(name);
    attributes(random_.one_in(40) ? 60 : 3);
    add(random_.of(spaces));
    if (random_.one_in(3)) {
      add("/>");
      return;
    }
    add(">");
    content(name, depth);
    add("</");
    add(random_.of(spaces));
    add(name);
    add(random_.of(spaces));
    add(">");
  }

  void content(std::string_view name, int depth) {
    if (name == "data" || name == "text" || random_.one_in(3)) {
      add(random_.of(spaces));
      add(random_.one_in(4) ? run_of("text &<>/\xFF") : std::string(random_.of(texts)));
      add(random_.of(spaces));
      return;
    }
    gap();
    const std::size_t most = depth == 0 && random_.one_in(40) ? 40 : 4;
    for (std::size_t left = depth < 4 ? random_.below(most) : 0; left > 0; --left) {
      element(depth + 1);
      gap();
    }
  }

  Random& random_;
  std::string out_;
};

std::string letters(std::size_t count, Random& random) {
  std::string text(count, 'n');
  text.back() = 'z';
  text[random.below(count)] = '\xFE';
  return text;
}

}  // namespace

void damage(std::string& source, Random& random) {
  const std::size_t at = random.below(source.size() + 1);
  const std::size_t length = random.below(4) + 1;
  switch (random.below(6)) {
    case 0:
      source.resize(at);
      break;
    case 1:
      source.insert(at, random.of(tokens));
      break;
    case 2:
      source.erase(at, length);
      break;
    case 3:
      source.replace(at, std::min(length, source.size() - at), random.of(tokens));
      break;
    case 4:
      source.insert(random.below(source.size() + 1), source.substr(at, random.below(30)));
      break;
    default:
      if (at < source.size()) {
        source[at] = static_cast<char>(random.below(255) + 1);
      }
  }
}

std::string row_of_tokens(Random& random) {
  std::string source = random.one_in(3) ? "" : "<a>";
  for (std::size_t left = random.below(24); left > 0; --left) {
    source += random.of(tokens);
  }
  return source;
}

std::string damaged_document(Random& random) {
  std::string source = Grammar(random).document();
  for (std::size_t left = random.below(5); left > 1; --left) {
    damage(source, random);
  }
  return source;
}

std::string long_document(Random& random) {
  const std::string name(4090 + random.below(12), 'n');
  const std::string tail = random.one_in(3) ? "" : "></a>";
  switch (random.below(7)) {
    case 0:
      return "<" + name + " x=\"1\">t</" + name + (random.one_in(2) ? "m" : "") + ">";
    case 1:
      return "<a " + name + "=\"v\"" + tail;
    case 2:
      return "<a v=\"" + letters(4090 + random.below(12), random) + "\"" + tail;
    case 3:
      return "<a v=\"" + name + "\\\"" + tail;
    case 4:
      return Grammar(random).large_document();
    case 5:
      return "<a><" + name + " v=\"" + name + "\"/>=</a>";
    default:
      return "<data>" + letters(99990 + random.below(16), random) +
             (random.one_in(4) ? "" : "</data>");
  }
}

std::string with_zero_bytes(std::string source, Random& random) {
  for (std::size_t left = random.below(3); left > 0 && !source.empty(); --left) {
    source[random.below(source.size())] = '\0';
  }
  return source;
}

std::string printable(const std::string& source) {
  std::string text;
  for (const char ch : source) {
    if (ch >= ' ' && ch <= '~' && ch != '\\' && ch != '"') {
      text += ch;
    } else {
      char code[8];
      std::snprintf(code, sizeof code, "\\%03o", static_cast<unsigned char>(ch));
      text += code;
    }
  }
  return text;
}

}  // namespace oxa_test::model
