#include <oxa/IOXAXMLElementEnum.h>
#include <oxa/sdk/ref.h>

#include "xml/library.h"
#include "xml/oxa_xml_parser.h"

namespace bench {
namespace {

std::wstring widened(const std::string& path) { return {path.begin(), path.end()}; }

class tree final : public xml_tree {
 public:
  tree() : document_(new oxa_xml_parser(nullptr, result_)) {}
  tree(const tree&) = delete;
  tree& operator=(const tree&) = delete;
  ~tree() override { document_->Destroy(); }

  bool parse(const std::string& text) {
    return document_->SetBuffer(text.c_str()) == S_OK && document_->Parse() == S_OK;
  }
  bool parse_file(const std::string& path) {
    return document_->Open(widened(path).c_str()) == S_OK && document_->Parse() == S_OK;
  }

  std::size_t find(const xml_query& query) override {
    oxa::Ref<IOXAXMLElementEnum> found;
    document_->GetElementEnumByNameKeyValue(query.name, query.key, query.value,
                                            oxa::adopt_into(found));
    return found ? found->Count() : 0;
  }

  void serialize(const std::string& path) override { document_->Serialize(widened(path).c_str()); }

 private:
  int result_ = S_OK;
  oxa_xml_parser* document_;
};

}  // namespace

xml_library oxa_library() { return library_of<tree>("oxa"); }

}  // namespace bench
