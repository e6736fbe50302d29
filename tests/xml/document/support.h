// What the tests of tokenizer, document and container share.
#pragma once

#include <gtest/gtest.h>
#include <oxa/oxa.h>
#include <oxa/sdk/implements.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "support/allocations.h"
#include "support/fakes.h"
#include "support/files.h"
#include "support/small_stack.h"
#include "xml/oxa_xml_parser.h"
#include "xml/oxa_xml_tokenizer.h"

namespace oxa_test {

using Lines = std::vector<std::string>;

// A literal with the zero bytes in it.
template <std::size_t Size>
std::string bytes(const char (&literal)[Size]) {
  return std::string(literal, Size - 1);
}

// A sink that runs a function for whatever it is told.
class CallingSink final : public oxa::Implements<IOXADebugMessage> {
 public:
  explicit CallingSink(std::function<void()> call) : call_(std::move(call)) {}
  void EmitError(const char*, ...) override { call_(); }
  void EmitMessage(const char*, ...) override { call_(); }
  void EmitWarning(const char*, ...) override { call_(); }
  void Clear() override {}
  void SetDefaultWarningLevel(int) override {}
  void SetDefaultMessageLevel(int) override {}
  void EmitMessage(int, const char*, ...) override { call_(); }
  void EmitWarning(int, const char*, ...) override { call_(); }

 private:
  std::function<void()> call_;
};

inline oxa::Ref<CallingSink> throwing_sink() {
  return oxa::make<CallingSink>([] { throw std::runtime_error("the sink fails"); });
}

// A tokenizer over a buffer, with what it told its sink.
struct Tokenizer {
  explicit Tokenizer(const char* input) : tokens(input, sink.get(), result) {}
  explicit Tokenizer(const std::filesystem::path& file)
      : tokens(wide(file).c_str(), sink.get(), result) {}

  // Reads a token and returns it as its code, with the text of a name or string in parentheses:
  // "n(a)", "=", "end".
  std::string next() {
    std::string buffer(4096, '\0');
    const int token = tokens.next_token(buffer.data(), 4096);
    if (token == oxa_xml_tokenizer::end_of_input) {
      return "end";
    }
    std::string shown(1, static_cast<char>(token));
    if (token == oxa_xml_tokenizer::name || token == oxa_xml_tokenizer::string) {
      shown += "(" + std::string(buffer.c_str()) + ")";
    }
    return shown;
  }

  // Reads so many tokens and returns them, a blank between any two.
  std::string next(int count) {
    std::string all;
    for (int token = 0; token < count; ++token) {
      all += (token == 0 ? "" : " ") + next();
    }
    return all;
  }

  // Reads up to the end.
  std::string rest() {
    std::string all = next();
    while (all != "end" && !all.ends_with(" end")) {
      all += " " + next();
    }
    return all;
  }

  oxa::Ref<RecordingSink> sink = oxa::make<RecordingSink>();
  int result = 1;
  oxa_xml_tokenizer tokens;
};

// Shows an element as name[key=value ...]'text'(children): "a[k=1](b 'c'd)".
inline std::string outline(IOXAXMLElement& element) {
  std::string shown = element.Name() != nullptr ? element.Name() : "";
  std::string attributes;
  for (const oxa::XMLAttribute& one : oxa::attributes(element)) {
    attributes += (attributes.empty() ? "" : " ") + std::string(one.key) + "=" + one.value;
  }
  shown += attributes.empty() ? "" : "[" + attributes + "]";
  char* text = nullptr;
  element.GetText(text);
  shown += text == nullptr ? "" : "'" + std::string(text) + "'";
  oxa::Ref<IOXAXMLElementEnum> children;
  if (element.GetImmediateChildren(nullptr, nullptr, nullptr, oxa::adopt_into(children)) != S_OK) {
    return shown;
  }
  std::string inner;
  IOXAXMLElement* child = nullptr;
  for (OXAResult more = children->GetFirst(&child); more == S_OK;
       more = children->GetNext(&child)) {
    inner += (inner.empty() ? "" : " ") + outline(*child);
  }
  return shown + "(" + inner + ")";
}

// A document that is destroyed at the end, with what it told its sink.
class Document {
 public:
  explicit Document(IOXADebugMessage* sink) : document_(new oxa_xml_parser(sink, result)) {}
  Document() : Document(nullptr, oxa::make<RecordingSink>()) {}
  // One that has parsed `input`; the result is in `result`.
  explicit Document(const std::string& input) : Document() {
    document_->SetBuffer(input.c_str());
    result = document_->Parse();
  }
  Document(const Document&) = delete;
  Document& operator=(const Document&) = delete;
  ~Document() { document_->Destroy(); }

  oxa_xml_parser* operator->() const { return document_; }
  oxa_xml_parser* get() const { return document_; }

  IOXAXMLElement* root() const {
    IOXAXMLElement* found = nullptr;
    document_->GetRoot(&found);
    return found;
  }
  // Returns the outline of the root, "none" without one.
  std::string tree() const { return root() == nullptr ? "none" : outline(*root()); }
  const Lines& lines() const { return sink_->lines; }

  OXAResult result = E_FAIL;

 private:
  Document(std::nullptr_t, oxa::Ref<RecordingSink> sink) : Document(sink.get()) {
    sink_ = std::move(sink);
  }

  oxa::Ref<RecordingSink> sink_;
  oxa_xml_parser* document_;
};

inline std::string repeated(const std::string& part, std::size_t times) {
  std::string all;
  for (std::size_t time = 0; time < times; ++time) {
    all += part;
  }
  return all;
}

}  // namespace oxa_test
