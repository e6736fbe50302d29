#include "xml/model/model_escape.h"

namespace oxa_test::model {

namespace {

// Searches from the start again after each replacement.
void replace_all(std::string& text, const std::string& from, const std::string& to) {
  for (auto at = text.find(from, 0); at != std::string::npos; at = text.find(from, 0)) {
    text = text.substr(0, at) + to + text.substr(at + from.size());
  }
}

}  // namespace

bool is_entity_at(const std::string& text, std::size_t at) {
  return text.substr(at, 5) == "&amp;" || text.substr(at, 4) == "&lt;" ||
         text.substr(at, 4) == "&gt;";
}

std::string escaped(std::string text) {
  for (auto at = text.find('&', 0); at != std::string::npos; at = text.find('&', at + 1)) {
    if (!is_entity_at(text, at)) {
      text = text.substr(0, at) + "&amp;" + text.substr(at + 1);
    }
  }
  replace_all(text, "<", "&lt;");
  replace_all(text, ">", "&gt;");
  return text;
}

std::string unescaped(std::string text) {
  replace_all(text, "&lt;", "<");
  replace_all(text, "&gt;", ">");
  replace_all(text, "&amp;", "&");
  return text;
}

}  // namespace oxa_test::model
