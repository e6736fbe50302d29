// Escaping of text for XML.
#pragma once

#include <oxa/export.h>

#include <string>

// Returns `text` with `<` and `>` as "&lt;" and "&gt;", and `&` as "&amp;" unless it begins one of
// these three already. Nothing else is escaped, not even double quotes. For values that
// other programs read; texts are escaped as they are written. Throws std::logic_error for null,
// std::bad_alloc.
OXA_EXPORT std::string ConvertToHTMLEscapedText(const char* text);

// Returns `text` with "&lt;" and "&gt;" decoded, and then "&amp;" for as long as there is one:
// "&amp;amp;" becomes `&`, and "&amp;lt;" becomes "&lt;". Nothing else is decoded. For values,
// which are read as they stand; IOXAXMLElement::GetPlainText does it for texts. Throws
// std::logic_error for null, std::bad_alloc.
OXA_EXPORT std::string ConvertFromHTMLEscapedText(const char* text);
