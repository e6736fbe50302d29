#include <tinyxml2.h>

#include <cstring>

#include "xml/library.h"

namespace bench {
namespace {

class tree final : public xml_tree {
 public:
  bool parse(const std::string& text) {
    return document_.Parse(text.data(), text.size()) == tinyxml2::XML_SUCCESS;
  }
  bool parse_file(const std::string& path) {
    return document_.LoadFile(path.c_str()) == tinyxml2::XML_SUCCESS;
  }

  std::size_t find(const xml_query& query) override {
    struct matching final : tinyxml2::XMLVisitor {
      explicit matching(const xml_query& wanted) : query(wanted) {}
      bool VisitEnter(const tinyxml2::XMLElement& element,
                      const tinyxml2::XMLAttribute* /*first*/) override {
        if (std::strcmp(element.Name(), query.name) == 0 &&
            element.Attribute(query.key, query.value) != nullptr) {
          found.push_back(&element);
        }
        return true;
      }
      const xml_query& query;
      std::vector<const tinyxml2::XMLElement*> found;
    };
    matching visitor(query);
    document_.Accept(&visitor);
    return visitor.found.size();
  }

  void serialize(const std::string& path) override { document_.SaveFile(path.c_str()); }

 private:
  tinyxml2::XMLDocument document_;
};

}  // namespace

xml_library tinyxml2_library() {
  constexpr std::size_t deepest = TINYXML2_MAX_ELEMENT_DEPTH - 1;
  return library_of<tree>("tinyxml2", deepest);
}

}  // namespace bench
