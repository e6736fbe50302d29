#include "xml/oxa_xml_tokenizer.h"

#include <oxa/result.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <stdexcept>
#include <string>

#include "core/thin_string.h"
#include "core/utf.h"
#include "xml/xml_characters.h"

// The assertions below stop the process in every build.
#undef NDEBUG
#include <cassert>

using oxa::end_mark;
using oxa::has_class;

namespace {

constexpr std::size_t zeros = 2;
constexpr int message_level = 5;

oxa::large_buffer make_source(std::size_t length) {
  auto source = oxa::make_large_buffer(zeros + length + oxa::vector_bytes);
  std::memset(source.get(), 0, zeros);
  return source;
}

}  // namespace

oxa_xml_tokenizer::oxa_xml_tokenizer(const char* buffer, IOXADebugMessage* sink, int& result)
    : sink_(sink) {
  if (buffer == nullptr) {
    result = E_INVALIDARG;
    return;
  }
  const std::size_t length = std::strlen(buffer);
  source_ = make_source(length);
  std::memcpy(source_.get() + zeros, buffer, length);
  begin_source(length);
  result = S_OK;
}

oxa_xml_tokenizer::oxa_xml_tokenizer(const wchar_t* path, IOXADebugMessage* sink, int& result)
    : sink_(sink) {
  if (path == nullptr) {
    result = E_INVALIDARG;
    return;
  }
  const std::string utf8 = oxa::to_utf8(path);
  file_ = std::make_unique<oxa::input_file>(utf8);
  if (!file_->is_open()) {
    result = E_OPENFAILED;
    file_.reset();
    if (sink_ != nullptr) {
      sink_->EmitMessage(message_level, "Could not open file %s", utf8.c_str());
    }
    return;
  }
  result = S_OK;
}

oxa_xml_tokenizer::~oxa_xml_tokenizer() = default;

void oxa_xml_tokenizer::begin_source(std::size_t length) {
  char* const end = source_.get() + zeros + length;
  std::memset(end, end_mark, oxa::vector_bytes);
  end_ = end;
  next_ = source_.get();
}

void oxa_xml_tokenizer::load_file() {
  constexpr std::size_t least_room = std::size_t{1} << 12U;
  // One byte more shows the end in the same go.
  std::size_t room = std::max(least_room, file_->size() + 1);
  auto source = make_source(room);
  // What was read from a pipe cannot be read again, so from here on the file is used up.
  const auto file = std::move(file_);
  std::size_t length = file->read(source.get() + zeros, room);
  while (length == room) {
    auto larger = make_source(room * 2);
    std::memcpy(larger.get() + zeros, source.get() + zeros, length);
    source = std::move(larger);
    length += file->read(source.get() + zeros + length, room);
    room *= 2;
  }
  source_ = std::move(source);
  begin_source(length);
}

// Tells whether there is a source, which is read now if it is a file.
bool oxa_xml_tokenizer::ready() {
  if (next_ == nullptr && file_ != nullptr) {
    load_file();
  }
  return next_ != nullptr;
}

// What is behind the look-ahead is taken out of the source: the look-ahead moves up over it.
int oxa_xml_tokenizer::getc() {
  if (!ready() || end_ - next_ <= 2) {
    return end_of_input;
  }
  char* const look_ahead = source_.get() + (next_ - source_.get());
  const auto taken = static_cast<unsigned char>(look_ahead[2]);
  look_ahead[2] = look_ahead[1];
  look_ahead[1] = look_ahead[0];
  ++next_;
  return taken;
}

bool oxa_xml_tokenizer::is_whitespace(int ch) { return (ch < 33 || ch > 126) && ch != -1; }

void oxa_xml_tokenizer::shift() {
  c_ = *next_;
  if (next_ != end_) {
    ++next_;
  }
}

int oxa_xml_tokenizer::next_char() {
  if (!ready()) {
    return end_of_input;
  }
  do {
    shift();
  } while (has_class(c_, oxa::whitespace));
  return c_;
}

int oxa_xml_tokenizer::look_ahead() {
  if (!ready()) {
    return end_of_input;
  }
  while (has_class(*next_, oxa::whitespace)) {
    ++next_;
  }
  return *next_;
}

int oxa_xml_tokenizer::next_token(char* buffer, int size) {
  std::string_view text;
  const int found = read_token(buffer == nullptr ? nullptr : &text, size);
  if (found == name || found == string) {
    oxa::copy_terminated(text, buffer);
  }
  return found;
}

int oxa_xml_tokenizer::read_token(std::string_view* text, int size) {
  if (!ready()) {
    return end_of_input;
  }
  // The look-ahead is empty before the first token.
  if (c_ == 0 && *next_ == 0) {
    next_ += std::min<std::ptrdiff_t>(2, end_ - next_);
  }
  switch (next_char()) {
    case end_of_input:
      return end_of_input;
    case '=':
      return equals;
    case '>':
      return tag_end;
    case '/':
      return read_closing(empty_tag_end);
    case '?':
      return read_closing(declaration_end);
    case '<':
      return read_markup();
    default:
      break;
  }
  if (text == nullptr) {
    throw std::invalid_argument("Received null buffer");
  }
  return c_ == '"' ? read_string(*text, size, &oxa_xml_tokenizer::report_long_string)
                   : read_name(*text, size);
}

int oxa_xml_tokenizer::read_closing(int found) {
  const char next_c = *next_;
  assert(next_c == '>');
  shift();
  return found;
}

int oxa_xml_tokenizer::read_markup() {
  switch (*next_) {
    case '?':
      shift();
      return declaration;
    case '/':
      shift();
      return end_tag;
    case '!':
      return read_comment();
    default:
      return start_tag;
  }
}

int oxa_xml_tokenizer::read_comment() {
  const char next_next_c = next_[1];
  assert(next_next_c == '-');
  const char chk = next_[2];
  assert(chk == '-');
  const char* const body = next_ + 3;
  const std::string_view rest(body, static_cast<std::size_t>(end_ - body));
  const std::size_t closing = rest.find("-->");
  if (closing == std::string_view::npos) {
    next_ = end_;
    return end_of_input;
  }
  next_ += 3 + closing + 2;
  shift();
  return comment;
}

int oxa_xml_tokenizer::read_name(std::string_view& text, int size) {
  const char* const begin = next_ - 1;
  const char* stop = oxa::find_name_end(next_);
  while (*stop == end_mark && stop != end_) {
    stop = oxa::find_name_end(stop + 1);
  }
  text = cut(begin, stop, std::max(size - 1, 1), &oxa_xml_tokenizer::report_long_name, size);
  c_ = stop[-1];
  next_ = stop;
  return stop == end_ ? end_of_input : name;
}

// Kept: a backslash stays in the value, with the character behind it; a quote there is kept too,
// but ends the value all the same (TokenizerStringTest.AnEscapedQuoteEndsTheString).
int oxa_xml_tokenizer::read_string(std::string_view& text, int size, overflow report) {
  const char* const begin = next_;
  const char* stop = next_;
  bool escaped = c_ == '\\';
  for (; stop != end_; ++stop) {
    if (!escaped) {
      stop = oxa::find_string_end(stop);
    }
    if (stop == end_ || *stop == '"') {
      break;
    }
    escaped = *stop == '\\';
  }
  const bool ended = stop != end_;
  text = cut(begin, ended && escaped ? stop + 1 : stop, size - 1, report, size);
  next_ = stop;
  shift();
  return ended ? string : end_of_input;
}

// An attribute as nearly all are written, `key="value"`, taken in one go: what the three tokens
// would give. Anything else is left to them.
bool oxa_xml_tokenizer::read_attribute(std::string_view& key, std::string_view& value, int size) {
  const char* begin = next_;
  while (has_class(*begin, oxa::whitespace)) {
    ++begin;
  }
  if (has_class(*begin, oxa::special)) {
    return false;
  }
  const char* const key_end = oxa::find_name_end(begin);
  if (key_end[0] != '=' || key_end[1] != '"') {
    return false;
  }
  const char* const value_begin = key_end + 2;
  const char* const value_end = oxa::find_string_end(value_begin);
  if (*value_end != '"' || value_end - value_begin >= size || key_end - begin >= size) {
    return false;
  }
  key = {begin, key_end};
  value = {value_begin, value_end};
  next_ = value_end;
  shift();
  return true;
}

int oxa_xml_tokenizer::capture_string(char* buffer, int size) {
  if (buffer == nullptr) {
    throw std::invalid_argument("Received null buffer");
  }
  if (!ready()) {
    return end_of_input;
  }
  std::string_view text;
  const int found = read_string(text, size, &oxa_xml_tokenizer::report_long_captured_string);
  if (found == string) {
    oxa::copy_terminated(text, buffer);
  }
  return found;
}

void oxa_xml_tokenizer::get_text(const char* /*name*/, char* buffer, int size) {
  std::string_view text;
  const bool ended = read_text(text, size);
  text.copy(buffer, text.size());
  if (ended) {
    buffer[text.size()] = '\0';
  }
}

bool oxa_xml_tokenizer::read_text(std::string_view& text, int size) {
  text = {};
  if (!ready()) {
    return false;
  }
  shift();
  if (next_[0] == end_mark || next_[1] == end_mark) {
    return false;
  }
  const char* const begin = next_ - 1;
  std::ptrdiff_t depth = c_ == '<' ? 1 : 0;
  bool ended = false;
  const char* stop = next_;
  for (;; ++stop) {
    stop = oxa::find_text_stop(stop);
    if (*stop == end_mark) {
      // The last two characters in front of it are the look-ahead that shows it.
      stop -= 2;
      break;
    }
    const bool closes = *stop == '<' ? stop[1] == '/' : stop[1] == '>';
    if (*stop == '<' && closes && depth <= 0) {
      ended = true;
      break;
    }
    if (closes) {
      --depth;
    } else if (*stop == '<') {
      ++depth;
    }
  }
  text = cut(begin, stop, size - 2, &oxa_xml_tokenizer::report_long_text, size);
  next_ = ended ? stop : stop + 1;
  c_ = next_[-1];
  return ended;
}

// Returns as much of a text as fits, and reports each character that does not when it becomes the
// current one.
std::string_view oxa_xml_tokenizer::cut(const char* begin, const char* end, std::ptrdiff_t limit,
                                        overflow report, int size) {
  const char* const kept = begin + std::clamp<std::ptrdiff_t>(limit, 0, end - begin);
  for (const char* dropped = kept; dropped != end && sink_ != nullptr; ++dropped) {
    c_ = *dropped;
    next_ = dropped + 1;
    (this->*report)(size);
  }
  return {begin, static_cast<std::size_t>(kept - begin)};
}

void oxa_xml_tokenizer::report_long_name(int /*size*/) {
  sink_->EmitMessage(message_level, "Buffer too small for name, truncating");
}

void oxa_xml_tokenizer::report_long_string(int size) {
  sink_->EmitWarning(message_level, "buffer of sixe(%d) is too small for string, truncating", size);
}

void oxa_xml_tokenizer::report_long_captured_string(int size) {
  sink_->EmitWarning(1, "Buffer (size=%d) is too small for string, truncating", size);
}

void oxa_xml_tokenizer::report_long_text(int /*size*/) {
  sink_->EmitMessage(message_level, "Buffer too small for data, truncating");
}

void oxa_xml_tokenizer::drop_source_at_end() {
  if (file_ == nullptr && next_ == end_) {
    static constexpr auto nothing = [] {
      std::array<char, oxa::vector_bytes> marks{};
      marks.fill(end_mark);
      return marks;
    }();
    source_.reset();
    next_ = end_ = nothing.data();
  }
}
