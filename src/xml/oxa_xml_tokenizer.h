// The tokens of an XML source.
#pragma once

#include <oxa/IOXADebugMessage.h>

#include <cstddef>
#include <memory>
#include <string_view>

#include "core/large_memory.h"
#include "xml/input_file.h"

// Reads a copy of a buffer, or a file, with a look-ahead of three characters. Texts that do not fit
// are cut, with a message to the sink for each character dropped. A `/` or `?` that is not followed
// by `>`, and a `<!` that begins no comment, stop the process.
//
// Used by one parse on one thread. Operations throw std::bad_alloc while the file is read, which is
// when the first character is asked for.
class oxa_xml_tokenizer {
 public:
  // What next_token returns besides the characters `"`, `=` and `>`.
  enum token : int {
    end_of_input = -1,
    string = '"',
    equals = '=',
    tag_end = '>',
    empty_tag_end = 'E',
    declaration_end = 'X',
    start_tag = 'b',
    comment = 'c',
    end_tag = 'e',
    name = 'n',
    declaration = 'x',
  };

  // Copies `buffer`. `result` is S_OK, or E_INVALIDARG for null. The sink may be null; it is not
  // referenced. Throws std::bad_alloc.
  oxa_xml_tokenizer(const char* buffer, IOXADebugMessage* sink, int& result);

  // Opens a file. `result` is S_OK, E_INVALIDARG for null, or E_OPENFAILED with a message. Throws
  // std::bad_alloc.
  oxa_xml_tokenizer(const wchar_t* path, IOXADebugMessage* sink, int& result);

  oxa_xml_tokenizer(const oxa_xml_tokenizer&) = delete;
  oxa_xml_tokenizer& operator=(const oxa_xml_tokenizer&) = delete;

  // Takes the character behind the look-ahead: 0 to 255, or -1 when there is none.
  virtual int getc();

  virtual ~oxa_xml_tokenizer();

  // Tells whether a character of the look-ahead, sign-extended, is skipped between tokens: all but
  // the printable ASCII characters and -1.
  static bool is_whitespace(int ch);

  // Goes to the next character that is no whitespace and returns it, sign-extended.
  int next_char();

  // Drops whitespace in front of the next character and returns that, sign-extended.
  int look_ahead();

  // Reads a token; the text of a name or string goes to `buffer`, which holds `size` bytes. Throws
  // std::invalid_argument for a null buffer when it finds one of these.
  int next_token(char* buffer, int size);

  // Reads the content of an element up to the `</` that ends it. `name` is not used. Kept: when a
  // byte 0xFF or the end comes first, `buffer` is left without a terminator, and untouched if that
  // is within the first three characters
  // (TokenizerTextTest.WithoutItsEndTheBufferIsNotTerminated).
  void get_text(const char* name, char* buffer, int size);

  // Reads a string whose opening quote is the current character. Returns its token, -1 when it does
  // not end. Throws std::invalid_argument for a null buffer.
  int capture_string(char* buffer, int size);

  // The same as next_token and get_text for a buffer of `size` bytes, but `text` points into the
  // source, where it lives as long as the tokenizer. A null `text` stands for a null buffer.
  // read_text tells whether the end of the content was found.
  int read_token(std::string_view* text, int size);
  bool read_text(std::string_view& text, int size);

  // Reads a key, `=` and a string within a tag that read_token has begun, if they follow directly
  // on each other and nothing has to be cut. Tells whether it has; otherwise nothing is read.
  bool read_attribute(std::string_view& key, std::string_view& value, int size);

  // Return how much of the source was read, and how much is left, once there was a token.
  std::size_t bytes_read() const { return static_cast<std::size_t>(next_ - source_.get()); }
  std::size_t bytes_left() const { return static_cast<std::size_t>(end_ - next_); }

  // Frees the source once it has been read to its end.
  void drop_source_at_end();

 private:
  using overflow = void (oxa_xml_tokenizer::*)(int size);

  void begin_source(std::size_t length);
  void load_file();
  bool ready();
  void shift();
  int read_closing(int found);
  int read_markup();
  int read_comment();
  int read_name(std::string_view& text, int size);
  int read_string(std::string_view& text, int size, overflow report);
  std::string_view cut(const char* begin, const char* end, std::ptrdiff_t limit, overflow report,
                       int size);

  void report_long_name(int size);
  void report_long_string(int size);
  void report_long_captured_string(int size);
  void report_long_text(int size);

  IOXADebugMessage* sink_;
  // A file that has not been read yet.
  std::unique_ptr<oxa::input_file> file_;
  // The source between two zero bytes, which the look-ahead begins with, and what stands for
  // characters behind its end: 0xFF.
  oxa::large_buffer source_;
  const char* end_ = nullptr;
  // The second character of the look-ahead; the third is behind it. At most end_. Null as long as
  // there is no source.
  const char* next_ = nullptr;
  // The current character.
  char c_ = 0;
};
