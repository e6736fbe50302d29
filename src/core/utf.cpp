#include "core/utf.h"

#include <boost/locale/encoding_utf.hpp>

namespace oxa {

std::string to_utf8(const wchar_t* wide) { return boost::locale::conv::utf_to_utf<char>(wide); }

std::wstring from_utf8(const char* utf8) { return boost::locale::conv::utf_to_utf<wchar_t>(utf8); }

}  // namespace oxa
