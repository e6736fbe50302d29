// Prints the outline of an XML file: a line for each element, with its attributes and its text.
#include <oxa/oxa.h>

#include <algorithm>
#include <cstdio>
#include <utility>
#include <vector>

namespace {

void print_outline(IOXAXMLElement& top) {
  std::vector<std::pair<IOXAXMLElement*, int>> waiting{{&top, 0}};
  while (!waiting.empty()) {
    const auto [element, depth] = waiting.back();
    waiting.pop_back();
    std::printf("%*s%s", 2 * depth, "", element->Name());
    for (const oxa::XMLAttribute& attribute : oxa::attributes(*element)) {
      std::printf(" %s=%s", attribute.key, attribute.value);
    }
    std::printf(element->hasText() ? ": %s\n" : "%s\n", oxa::plain_text(*element).c_str());
    const auto rest = static_cast<std::ptrdiff_t>(waiting.size());
    for (IOXAXMLElement* child : oxa::children(*element)) {
      waiting.emplace_back(child, depth + 1);
    }
    std::reverse(waiting.begin() + rest, waiting.end());
  }
}

int complain(const char* path, const char* problem) {
  std::fprintf(stderr, "%s: %s\n", path, problem);
  return 1;
}

}  // namespace

// [snippet: outline]
int main(int count, char** arguments) {
  oxa::Ref<IOXAContext> context;
  if (count != 2 || oxa::failed(OXACreateContext(IID_IOXAContext, oxa::adopt_into(context)))) {
    return 2;
  }
  const char* path = arguments[1];
  const auto parser = oxa::service<IOXAXMLParser>(context);
  oxa::XMLDocument document;  // ends the document, its source and its tree
  OXAResult result = parser->CreateDocument(oxa::widen(path).c_str(), oxa::adopt_into(document));
  if (oxa::failed(result)) {
    return complain(path, oxa::result_text(result));  // "file cannot be opened for reading"
  }
  if (oxa::failed(document->Parse())) {
    return complain(path, "malformed");  // the message sink has said more
  }
  IOXAXMLElement* root = oxa::root(*document);
  if (root == nullptr) {
    return complain(path, "holds no element");
  }
  print_outline(*root);
  return 0;
}
// [snippet end]
