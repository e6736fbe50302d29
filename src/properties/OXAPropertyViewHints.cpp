#include "properties/OXAPropertyViewHints.h"

#include "core/set_text.h"

OXAResult OXAPropertyViewHints::SetAlias(const char* text) { return oxa::set_text(alias_, text); }

OXAResult OXAPropertyViewHints::SetTooltip(const char* text) {
  return oxa::set_text(tooltip_, text);
}

OXAResult OXAPropertyViewHints::SetGroup(const char* text) { return oxa::set_text(group_, text); }

void OXAPropertyViewHints::copy(const OXAPropertyViewHints& other) {
  alias_ = oxa::thin_string(other.alias_.c_str());
  tooltip_ = oxa::thin_string(other.tooltip_.c_str());
  group_ = oxa::thin_string(other.group_.c_str());
  editor_ = other.editor_;
  display_ = other.display_;
}
