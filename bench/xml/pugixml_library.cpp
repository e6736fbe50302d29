#include <cstring>
#include <pugixml.hpp>

#include "xml/library.h"

namespace bench {
namespace {

class tree final : public xml_tree {
 public:
  bool parse(const std::string& text) {
    return static_cast<bool>(document_.load_buffer(text.data(), text.size()));
  }
  bool parse_file(const std::string& path) {
    return static_cast<bool>(document_.load_file(path.c_str()));
  }

  std::size_t find(const xml_query& query) override {
    struct matching final : pugi::xml_tree_walker {
      explicit matching(const xml_query& wanted) : query(wanted) {}
      bool for_each(pugi::xml_node& node) override {
        if (std::strcmp(node.name(), query.name) == 0 &&
            std::strcmp(node.attribute(query.key).value(), query.value) == 0) {
          found.push_back(node);
        }
        return true;
      }
      const xml_query& query;
      std::vector<pugi::xml_node> found;
    };
    matching walker(query);
    document_.traverse(walker);
    return walker.found.size();
  }

  void serialize(const std::string& path) override { document_.save_file(path.c_str(), "   "); }

 private:
  pugi::xml_document document_;
};

}  // namespace

xml_library pugixml_library() { return library_of<tree>("pugixml"); }

}  // namespace bench
