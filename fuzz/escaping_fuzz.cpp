// Input: a text. Escapes and unescapes it.
#include <oxa/xml_text.h>

#include <string>

#include "check.h"
#include "xml/model/model_escape.h"
#include "xml/oxa_xml_element.h"

using oxa_fuzz::check;

namespace model = oxa_test::model;

namespace {

bool has_entity(const std::string& text) {
  for (std::size_t at = text.find('&'); at != std::string::npos; at = text.find('&', at + 1)) {
    if (model::is_entity_at(text, at)) {
      return true;
    }
  }
  return false;
}

void check_functions(const std::string& text) {
  const std::string escaped = ConvertToHTMLEscapedText(text.c_str());
  const std::string plain = ConvertFromHTMLEscapedText(text.c_str());
  check(escaped == model::escaped(text), "escaping does what the model does");
  check(plain == model::unescaped(text), "unescaping does what the model does");

  check(escaped.find_first_of("<>") == std::string::npos, "escaped text has no angle brackets");
  check(ConvertToHTMLEscapedText(escaped.c_str()) == escaped, "escaping twice is escaping once");
  const std::string back = ConvertFromHTMLEscapedText(escaped.c_str());
  check(back == plain, "escaping changes nothing of what unescaping gives");
  check(has_entity(text) || back == text, "what has no entities comes back");
  check(plain.find("&amp;") == std::string::npos, "unescaped text has no escaped ampersands");
}

// Both give texts in the same place, so each is looked at before the next.
void check_element(const std::string& text) {
  int result = 0;
  oxa_xml_element element(result);
  element.SetText(text.c_str());
  const auto matches = [&](OXAResult (oxa_xml_element::*get)(char*&), const std::string& expected) {
    char* got = nullptr;
    (element.*get)(got);
    return text.empty() ? got == nullptr : expected == got;
  };
  const std::string escaped = model::escaped(text);
  check(matches(&oxa_xml_element::GetHTMLEscapedText, escaped), "an element escapes its text");
  check(matches(&oxa_xml_element::GetPlainText, model::unescaped(text)),
        "an element unescapes its text");
  check(matches(&oxa_xml_element::GetHTMLEscapedText, escaped), "an element escapes again");
  check(matches(&oxa_xml_element::GetText, text), "an element keeps its text");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string text(reinterpret_cast<const char*>(data), size);
  text.resize(text.find('\0') == std::string::npos ? size : text.find('\0'));
  check_functions(text);
  check_element(text);
  return 0;
}
