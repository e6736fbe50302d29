#include "file_document.h"

#include <oxa/IOXAXMLParser.h>

#include "entities.h"
#include "plain_xml.h"

namespace graph {

FileDocument::FileDocument(IOXAContext* context, std::string_view text) {
  const auto parser = oxa::service<IOXAXMLParser>(context);
  if (!parser) {
    throw Failure(E_FAIL, "the program has no XML parser; restart it");
  }
  PlainXml plain = plain_xml(text);
  lines_ = std::move(plain.lines);
  check(parser->CreateDocumentFromBuffer(plain.text.c_str(), oxa::adopt_into(document_)));
  if (oxa::failed(document_->Parse()) || oxa::root(*document_) == nullptr) {
    throw std::bad_alloc();  // all else was refused before
  }
}

// The library keeps no lines, so the element is counted off; that is for failures alone.
void FileDocument::malformed(IOXAXMLElement& element, const std::string& what) const {
  std::size_t number = 0;
  if (&element != &root()) {
    for (IOXAXMLElement* descendant : oxa::descendants(root())) {
      ++number;
      if (descendant == &element) {
        break;
      }
    }
  }
  throw Failure(E_INVALIDDATA, "line " + std::to_string(lines_.at(number)) + " " + what);
}

std::optional<std::string> FileDocument::value(IOXAXMLElement& element, const char* key) {
  const char* const value = oxa::attribute(element, key, nullptr);
  return value != nullptr ? std::optional<std::string>(decoded(value)) : std::nullopt;
}

std::string FileDocument::needed_value(IOXAXMLElement& element, const char* key) const {
  auto found = value(element, key);
  if (!found) {
    malformed(element, std::string("has <") + element.Name() + "> without the attribute " + key +
                           "; add it");
  }
  return std::move(*found);
}

std::string FileDocument::text(IOXAXMLElement& element) {
  char* text = nullptr;
  element.GetText(text);
  return text != nullptr ? decoded(text) : std::string();
}

std::string quoted(std::string_view text) {
  constexpr std::size_t longest = 60;
  const bool cut = text.size() > longest;
  std::size_t length = cut ? longest : text.size();
  while (cut && length > 0 && (static_cast<unsigned char>(text[length]) & 0xC0U) == 0x80) {
    --length;  // not within a character
  }
  std::string result = "\"";
  (result += text.substr(0, length)) += cut ? "..." : "";
  return result += '"';
}

}  // namespace graph
