#include <cstring>
#include <fstream>
#include <iterator>
#include <rapidxml.hpp>
#include <rapidxml_print.hpp>
#include <rapidxml_utils.hpp>

#include "xml/library.h"

namespace bench {
namespace {

using node = rapidxml::xml_node<char>;

// The parser writes into its source and the tree points there, so each tree keeps a copy.
class tree final : public xml_tree {
 public:
  bool parse(const std::string& text) {
    source_.assign(text.c_str(), text.c_str() + text.size() + 1);
    return parse_source(source_.data());
  }
  bool parse_file(const std::string& path) {
    file_ = std::make_unique<rapidxml::file<char>>(path.c_str());
    return parse_source(file_->data());
  }

  std::size_t find(const xml_query& query) override {
    std::vector<const node*> found;
    const node* root = document_.first_node();
    for (const node* at = root; at != nullptr; at = next(at, root)) {
      if (std::strcmp(at->name(), query.name) != 0) {
        continue;
      }
      const auto* attribute = at->first_attribute(query.key);
      if (attribute != nullptr && std::strcmp(attribute->value(), query.value) == 0) {
        found.push_back(at);
      }
    }
    return found.size();
  }

  void serialize(const std::string& path) override {
    std::ofstream file(path);
    rapidxml::print(std::ostreambuf_iterator<char>(file), document_);
  }

 private:
  bool parse_source(char* source) {
    try {
      document_.parse<0>(source);
      return true;
    } catch (const rapidxml::parse_error&) {
      return false;
    }
  }

  static const node* next(const node* at, const node* root) {
    if (at->first_node() != nullptr) {
      return at->first_node();
    }
    while (at != root && at->next_sibling() == nullptr) {
      at = at->parent();
    }
    return at == root ? nullptr : at->next_sibling();
  }

  std::vector<char> source_;
  std::unique_ptr<rapidxml::file<char>> file_;
  rapidxml::xml_document<char> document_;
};

}  // namespace

xml_library rapidxml_library() {
  constexpr std::size_t deepest = 20'000;
  return library_of<tree>("RapidXML", deepest);
}

}  // namespace bench
