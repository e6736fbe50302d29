// Input: a line with a program of operations, and the source. The program runs again and again
// until the source has ended; `f` in front of it makes the source a file.
#include <algorithm>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "assertion_stops.h"
#include "check.h"
#include "input.h"
#include "support/fakes.h"
#include "support/memory_file.h"
#include "xml/model/model_tokenizer.h"
#include "xml/oxa_xml_tokenizer.h"

using oxa_fuzz::check;

namespace {

struct Outcome {
  int result = 0;
  std::string stop = {};  // the assertion that failed
  bool refused = false;
};

template <class Operation>
Outcome outcome_of(Operation operation) {
  Outcome outcome;
  try {
    outcome.result = operation();
  } catch (const oxa_fuzz::AssertionStop& stop) {
    outcome.stop = stop.expression;
  } catch (const oxa_test::model::Stop& stop) {
    outcome.stop = stop.expression;
  } catch (const std::invalid_argument&) {
    outcome.refused = true;
  }
  return outcome;
}

bool operator==(const Outcome& left, const Outcome& right) {
  return left.result == right.result && left.stop == right.stop && left.refused == right.refused;
}

// A buffer with nothing behind it, so that a byte too much is found.
class Buffer {
 public:
  explicit Buffer(std::size_t size) : bytes_(std::make_unique<char[]>(size)), size_(size) {
    std::fill_n(bytes_.get(), size, '~');
  }
  char* data() const { return bytes_.get(); }
  std::string_view all() const { return {bytes_.get(), size_}; }

 private:
  std::unique_ptr<char[]> bytes_;
  std::size_t size_;
};

// The same source, read with buffers, read as views, and read by the model.
class Readers {
 public:
  Readers(std::string_view source, bool from_file) : model_(std::string(source), messages_) {
    if (from_file) {
      const oxa_test::MemoryFile file(source);
      tokenizer_.emplace(file.path().c_str(), &sink_, result_);
      viewer_.emplace(file.path().c_str(), &view_sink_, result_);
    } else {
      const std::string buffer(source);
      tokenizer_.emplace(buffer.c_str(), &sink_, result_);
      viewer_.emplace(buffer.c_str(), &view_sink_, result_);
    }
    check(result_ == S_OK, "a source can be read");
  }

  // Runs an operation; tells whether another may follow.
  bool run(char operation, int size) {
    Outcome outcome;
    switch (operation) {
      case 'g':
        outcome = compare([](auto& reader) { return reader.getc(); });
        break;
      case 'c':
        outcome = compare([](auto& reader) { return reader.next_char(); });
        break;
      case 'l':
        outcome = compare([](auto& reader) { return reader.look_ahead(); });
        break;
      case 'n':
        outcome = compare([](auto& reader) { return reader.next_token(nullptr, 0); });
        break;
      case 'a':
        read_attribute(size);
        break;
      case 'x':
        read_text(size);
        break;
      case 's':
        outcome = capture(size);
        break;
      default:
        outcome = read_token(size);
    }
    after_token_ = std::string_view("gclsx").find(operation) == std::string_view::npos &&
                   (operation != 'a' || after_token_);
    check(sink_.lines == view_sink_.lines, "views cause the messages that buffers do");
    check(sink_.lines == messages_.lines, "the messages are those of the model");
    for (std::vector<std::string>* lines : {&sink_.lines, &view_sink_.lines, &messages_.lines}) {
      lines->clear();
    }
    return outcome.stop.empty();
  }

 private:
  template <class Operation>
  Outcome compare(Operation operation) {
    const Outcome outcome = outcome_of([&] { return operation(*tokenizer_); });
    check(outcome == outcome_of([&] { return operation(*viewer_); }), "two readers agree");
    check(outcome == outcome_of([&] { return operation(model_); }), "the model agrees");
    return outcome;
  }

  Outcome read_token(int size) {
    std::string_view view;
    const Outcome viewed = outcome_of([&] { return viewer_->read_token(&view, size); });
    return compare_token(size, viewed, view);
  }

  // Three tokens in one go, for which a token must have been read before.
  void read_attribute(int size) {
    std::string_view key;
    std::string_view value;
    if (after_token_ && viewer_->read_attribute(key, value, size)) {
      compare_token(size, {'n'}, key);
      compare_token(size, {'='}, {});
      compare_token(size, {'"'}, value);
    }
  }

  // A name takes two bytes at least, a string one. Where the source ends in one of them, what is in
  // the buffer is nobody's business.
  Outcome compare_token(int size, const Outcome& viewed, std::string_view view) {
    const Buffer buffer(static_cast<std::size_t>(std::max(size, 2)));
    const Buffer model_buffer(static_cast<std::size_t>(std::max(size, 2)));
    const Outcome outcome = outcome_of([&] { return tokenizer_->next_token(buffer.data(), size); });
    const Outcome expected =
        outcome_of([&] { return model_.next_token(model_buffer.data(), size); });
    check(outcome == viewed, "buffers and views get the same token");
    check(outcome == expected, "the token is that of the model");
    if (outcome.result == 'n' || outcome.result == '"') {
      check(buffer.all() == model_buffer.all(), "the buffer is that of the model");
      check(begins(buffer, view), "buffers and views get the same text");
    }
    return outcome;
  }

  Outcome capture(int size) {
    const Buffer buffer(static_cast<std::size_t>(std::max(size, 1)));
    const Buffer model_buffer(static_cast<std::size_t>(std::max(size, 1)));
    const Buffer other_buffer(static_cast<std::size_t>(std::max(size, 1)));
    const Outcome outcome =
        outcome_of([&] { return tokenizer_->capture_string(buffer.data(), size); });
    check(outcome == outcome_of([&] { return viewer_->capture_string(other_buffer.data(), size); }),
          "two readers capture alike");
    check(outcome == outcome_of([&] { return model_.capture_string(model_buffer.data(), size); }),
          "the model captures alike");
    check(outcome.result == -1 || buffer.all() == model_buffer.all(),
          "the captured string is that of the model");
    return outcome;
  }

  void read_text(int size) {
    const Buffer buffer(static_cast<std::size_t>(std::max(size, 1)));
    const Buffer model_buffer(static_cast<std::size_t>(std::max(size, 1)));
    tokenizer_->get_text("name", buffer.data(), size);
    model_.get_text(model_buffer.data(), size);
    check(buffer.all() == model_buffer.all(), "the content is that of the model");

    std::string_view view;
    const bool ended = viewer_->read_text(view, size);
    check(ended ? begins(buffer, view) : buffer.all().substr(0, view.size()) == view,
          "buffers and views get the same content");
  }

  static bool begins(const Buffer& buffer, std::string_view text) {
    return buffer.all().substr(0, text.size()) == text && buffer.data()[text.size()] == '\0';
  }

  int result_ = 0;
  bool after_token_ = false;
  oxa_test::RecordingSink sink_;
  oxa_test::RecordingSink view_sink_;
  std::optional<oxa_xml_tokenizer> tokenizer_;
  std::optional<oxa_xml_tokenizer> viewer_;
  oxa_test::model::Messages messages_;
  oxa_test::model::Tokenizer model_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  oxa_fuzz::Input input(data, size);
  std::string_view program = input.until('\n');
  const bool from_file = program.substr(0, 1) == "f";
  program.remove_prefix(from_file ? 1 : 0);
  if (program.empty()) {
    program = "t9";
  }
  std::string_view source = input.rest();
  if (!from_file) {
    source = source.substr(0, source.find('\0'));
  }
  // Each operation takes something, or only the end is left.
  std::size_t operations = source.size() + 4;
  Readers readers(source, from_file);
  for (bool running = true; running;) {
    oxa_fuzz::Input steps(program);
    while (running && !steps.empty()) {
      const char operation = steps.next();
      const bool sized = std::string_view("gcln").find(operation) == std::string_view::npos;
      running = readers.run(operation, sized ? static_cast<int>(steps.below(256)) : 0) &&
                --operations > 0;
    }
  }
  return 0;
}
