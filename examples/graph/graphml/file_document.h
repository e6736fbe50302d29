// A GraphML file as it is read.
#pragma once

#include <graph_plugin.h>
#include <oxa/IOXAContext.h>
#include <oxa/sdk/xml.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace graph {

// The elements of a file. Values and texts come with their references decoded.
class FileDocument {
 public:
  // Throws a Failure for what is no XML, with the line.
  FileDocument(IOXAContext* context, std::string_view text);

  // Returns the outermost element.
  IOXAXMLElement& root() const { return *oxa::root(*document_); }

  // Ends reading with a sentence about an element, which begins with its line: "has ...".
  [[noreturn]] void malformed(IOXAXMLElement& element, const std::string& what) const;

  // Returns the value of an attribute, nothing when there is none.
  static std::optional<std::string> value(IOXAXMLElement& element, const char* key);

  // Returns the value of an attribute that the element must have.
  std::string needed_value(IOXAXMLElement& element, const char* key) const;

  static std::string text(IOXAXMLElement& element);

 private:
  oxa::XMLDocument document_;
  std::vector<std::uint32_t> lines_;
};

// Returns `text` in double quotes, for messages, cut when it is long.
std::string quoted(std::string_view text);

}  // namespace graph
