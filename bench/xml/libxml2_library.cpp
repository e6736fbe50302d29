#include <libxml/parser.h>
#include <libxml/tree.h>
#include <libxml/xmlsave.h>

#include <cstring>

#include "xml/library.h"

namespace bench {
namespace {

const xmlChar* as_xml(const char* text) { return reinterpret_cast<const xmlChar*>(text); }

class tree final : public xml_tree {
 public:
  tree() = default;
  tree(const tree&) = delete;
  tree& operator=(const tree&) = delete;
  ~tree() override { xmlFreeDoc(document_); }

  bool parse(const std::string& text) {
    document_ =
        xmlReadMemory(text.data(), static_cast<int>(text.size()), nullptr, nullptr, options);
    return document_ != nullptr;
  }
  bool parse_file(const std::string& path) {
    document_ = xmlReadFile(path.c_str(), nullptr, options);
    return document_ != nullptr;
  }

  std::size_t find(const xml_query& query) override {
    std::vector<xmlNode*> found;
    xmlNode* root = xmlDocGetRootElement(document_);
    for (xmlNode* at = root; at != nullptr; at = next(at, root)) {
      if (at->type == XML_ELEMENT_NODE && xmlStrEqual(at->name, as_xml(query.name)) != 0 &&
          has_value(at, query)) {
        found.push_back(at);
      }
    }
    return found.size();
  }

  void serialize(const std::string& path) override {
    xmlSaveFormatFile(path.c_str(), document_, 1);
  }

 private:
  // Whitespace between elements is dropped, as the others do, and no limit on the depth is set.
  static constexpr int options = XML_PARSE_HUGE | XML_PARSE_NOBLANKS;

  // Without the copy that xmlGetProp makes.
  static bool has_value(xmlNode* element, const xml_query& query) {
    const xmlAttr* attribute = xmlHasProp(element, as_xml(query.key));
    return attribute != nullptr && attribute->children != nullptr &&
           xmlStrEqual(attribute->children->content, as_xml(query.value)) != 0;
  }

  static xmlNode* next(xmlNode* at, const xmlNode* root) {
    if (at->children != nullptr) {
      return at->children;
    }
    while (at != root && at->next == nullptr) {
      at = at->parent;
    }
    return at == root ? nullptr : at->next;
  }

  xmlDoc* document_ = nullptr;
};

}  // namespace

xml_library libxml2_library() { return library_of<tree>("libxml2"); }

}  // namespace bench
