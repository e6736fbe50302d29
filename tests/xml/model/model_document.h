// The parser, one function call per element.
#pragma once

#include <oxa/result.h>

#include <optional>
#include <string>
#include <vector>

#include "xml/model/model_element.h"
#include "xml/model/model_tokenizer.h"

namespace oxa_test::model {

class Document {
 public:
  explicit Document(Element::Registry* registry = nullptr) : registry_(registry) {}
  Document(const Document&) = delete;
  Document& operator=(const Document&) = delete;
  // Destroys the root, whatever its count.
  ~Document() { delete root; }

  void set_source(const std::string& source) { tokenizer_.emplace(source, messages); }
  // Throws Stop.
  OXAResult parse();
  // What is written to a file.
  std::string serialized() const;

  Element* root = nullptr;
  Messages messages;

 private:
  int token() { return tokenizer_->next_token(buffer_, sizeof buffer_); }
  bool parse_xml_tag();
  OXAResult parse_element(Element* parent);
  OXAResult parse_rest(Element& element);
  OXAResult parse_text(Element& element);
  OXAResult parse_children(Element& element);
  OXAResult parse_end_tag(const Element& element);
  void error(const std::string& text);
  void print_element(const Element& element);
  void record(std::string word, const std::string& text);

  Element::Registry* registry_;
  std::optional<Tokenizer> tokenizer_;
  char buffer_[4096] = {};
};

}  // namespace oxa_test::model
