#include <expat.h>

#include <fstream>
#include <string_view>
#include <utility>

#include "xml/library.h"

namespace bench {
namespace {

// What one would write first: a node that owns standard strings.
struct element {
  std::string name;
  std::string text;
  std::vector<std::pair<std::string, std::string>> attributes;
  std::vector<std::unique_ptr<element>> children;
};

// Makes elements of what the parser reports.
class builder {
 public:
  builder() : parser_(XML_ParserCreate(nullptr)) {
    XML_SetUserData(parser_, this);
    XML_SetElementHandler(parser_, on_start, on_end);
    XML_SetCharacterDataHandler(parser_, on_text);
  }
  builder(const builder&) = delete;
  builder& operator=(const builder&) = delete;
  ~builder() { XML_ParserFree(parser_); }

  bool parse(std::string_view text, bool last) {
    return XML_Parse(parser_, text.data(), static_cast<int>(text.size()), last ? 1 : 0) ==
           XML_STATUS_OK;
  }
  std::unique_ptr<element> finish() { return std::move(root_); }

 private:
  static void on_start(void* self, const char* name, const char** attributes) {
    static_cast<builder*>(self)->start(name, attributes);
  }
  static void on_end(void* self, const char* /*name*/) { static_cast<builder*>(self)->end(); }
  static void on_text(void* self, const char* text, int length) {
    static_cast<builder*>(self)->text_.append(text, static_cast<std::size_t>(length));
  }

  void start(const char* name, const char** attributes) {
    auto made = std::make_unique<element>();
    made->name = name;
    for (; *attributes != nullptr; attributes += 2) {
      made->attributes.emplace_back(attributes[0], attributes[1]);
    }
    element* const added = made.get();
    (open_.empty() ? root_ : open_.back()->children.emplace_back()) = std::move(made);
    open_.push_back(added);
    text_.clear();
  }

  // Text between children, which is whitespace here, is dropped, as the others do.
  void end() {
    if (open_.back()->children.empty()) {
      open_.back()->text = text_;
    }
    open_.pop_back();
    text_.clear();
  }

  XML_Parser parser_;
  std::unique_ptr<element> root_;
  std::vector<element*> open_;
  std::string text_;
};

void write_escaped(std::ostream& out, const std::string& text) {
  for (const char c : text) {
    switch (c) {
      case '<':
        out << "&lt;";
        break;
      case '>':
        out << "&gt;";
        break;
      case '&':
        out << "&amp;";
        break;
      case '"':
        out << "&quot;";
        break;
      default:
        out.put(c);
    }
  }
}

// NOLINTNEXTLINE(misc-no-recursion): what one would write first.
void write(std::ostream& out, const element& top, std::size_t level) {
  const std::string indentation(level * 3, ' ');
  out << indentation << '<' << top.name;
  for (const auto& [key, value] : top.attributes) {
    out << ' ' << key << "=\"";
    write_escaped(out, value);
    out << '"';
  }
  if (top.children.empty() && top.text.empty()) {
    out << "/>\n";
    return;
  }
  out << '>';
  write_escaped(out, top.text);
  if (!top.children.empty()) {
    out << '\n';
    for (const auto& child : top.children) {
      write(out, *child, level + 1);
    }
    out << indentation;
  }
  out << "</" << top.name << ">\n";
}

class tree final : public xml_tree {
 public:
  tree() = default;
  tree(const tree&) = delete;
  tree& operator=(const tree&) = delete;
  ~tree() override {
    if (root_ != nullptr) {
      destroy_descendants();
    }
  }

  bool parse(const std::string& text) {
    builder made;
    const bool parsed = made.parse(text, true);
    root_ = made.finish();
    return parsed;
  }

  bool parse_file(const std::string& path) {
    constexpr std::size_t size = std::size_t{1} << 16U;
    std::ifstream file(path);
    std::vector<char> part(size);
    builder made;
    bool parsed = true;
    while (parsed && file) {
      file.read(part.data(), static_cast<std::streamsize>(size));
      parsed = made.parse({part.data(), static_cast<std::size_t>(file.gcount())}, file.eof());
    }
    root_ = made.finish();
    return parsed;
  }

  std::size_t find(const xml_query& query) override {
    std::vector<const element*> found;
    std::vector<std::pair<const element*, std::size_t>> way{{root_.get(), 0}};
    while (!way.empty()) {
      auto& [parent, position] = way.back();
      if (position == parent->children.size()) {
        way.pop_back();
        continue;
      }
      const element* const at = parent->children[position++].get();
      if (matches(*at, query)) {
        found.push_back(at);
      }
      way.emplace_back(at, 0);
    }
    return found.size();
  }

  void serialize(const std::string& path) override {
    std::ofstream file(path);
    file << "<?xml version=\"1.0\"?>\n";
    write(file, *root_, 0);
  }

 private:
  static bool matches(const element& at, const xml_query& query) {
    if (at.name != query.name) {
      return false;
    }
    for (const auto& [key, value] : at.attributes) {
      if (key == query.key) {
        return value == query.value;
      }
    }
    return false;
  }

  // So that a deep tree does not end by recursion.
  void destroy_descendants() {
    std::vector<std::vector<std::unique_ptr<element>>> lists;
    lists.push_back(std::move(root_->children));
    while (!lists.empty()) {
      if (lists.back().empty()) {
        lists.pop_back();
        continue;
      }
      const std::unique_ptr<element> last = std::move(lists.back().back());
      lists.back().pop_back();
      if (!last->children.empty()) {
        lists.push_back(std::move(last->children));
      }
    }
  }

  std::unique_ptr<element> root_;
};

}  // namespace

xml_library expat_library() { return library_of<tree>("expat tree"); }

}  // namespace bench
