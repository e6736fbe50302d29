#include <algorithm>
#include <array>
#include <stdexcept>
#include <string>
#include <vector>

#include "support/fakes.h"
#include "xml/model/comparison.h"
#include "xml/oxa_xml_tokenizer.h"

namespace oxa_test::model {
namespace {

enum class Operation {
  next_token,
  null_token,
  get_text,
  look_ahead,
  capture_string,
  getc,
  next_char
};

struct Step {
  Operation operation;
  int size;
};

// A buffer of up to 64 bytes, with more behind it that must never change.
using Buffer = std::array<char, 80>;

constexpr int exception = 1000;

void get_text(Tokenizer& tokenizer, char* buffer, int size) { tokenizer.get_text(buffer, size); }
void get_text(oxa_xml_tokenizer& tokenizer, char* buffer, int size) {
  tokenizer.get_text("name", buffer, size);
}

template <class Any>
int perform(Any& tokenizer, Step step, Buffer& buffer) {
  switch (step.operation) {
    case Operation::next_token:
      return tokenizer.next_token(buffer.data(), step.size);
    case Operation::null_token:
      return tokenizer.next_token(nullptr, step.size);
    case Operation::get_text:
      get_text(tokenizer, buffer.data(), step.size);
      return 0;
    case Operation::look_ahead:
      return tokenizer.look_ahead();
    case Operation::capture_string:
      return tokenizer.capture_string(buffer.data(), step.size);
    case Operation::getc:
      return tokenizer.getc();
    default:
      return tokenizer.next_char();
  }
}

template <class Any>
int result_of(Any& tokenizer, Step step, Buffer& buffer) {
  try {
    return perform(tokenizer, step, buffer);
  } catch (const std::invalid_argument& error) {
    EXPECT_STREQ(error.what(), "Received null buffer");
    return exception;
  }
}

Step a_step(Random& random) {
  constexpr Operation usual[] = {
      Operation::get_text,       Operation::get_text, Operation::look_ahead, Operation::look_ahead,
      Operation::capture_string, Operation::getc,     Operation::next_char,  Operation::null_token};
  const int size = static_cast<int>(random.one_in(2) ? 2 + random.below(8) : 2 + random.below(63));
  return {random.below(3) > 0 ? Operation::next_token : random.of(usual), size};
}

// The library and the model over one source.
class Pair {
 public:
  explicit Pair(const std::string& source)
      : source_(source),
        model_(source, expected_messages_),
        tokenizer_(source.c_str(), sink_.get(), made_) {}

  // Performs a step on both and compares what it gives. Throws Stop before the library's turn.
  void perform_both(Step step) {
    steps_.push_back(step);
    buffer_.fill('\xA5');
    expected_buffer_ = buffer_;
    const int expected = result_of(model_, step, expected_buffer_);
    EXPECT_EQ(result_of(tokenizer_, step, buffer_), expected) << told();
    // A name or string without an end leaves open what is in the buffer.
    const int from = expected == -1 ? step.size : 0;
    EXPECT_TRUE(std::equal(buffer_.begin() + from, buffer_.end(), expected_buffer_.begin() + from))
        << told();
    EXPECT_EQ(sink_->lines, expected_messages_.lines) << told();
  }

  void repeat_in_library() { perform(tokenizer_, steps_.back(), buffer_); }

 private:
  std::string told() const {
    std::string text = printable(source_);
    for (const auto& [operation, size] : steps_) {
      text += " " + std::to_string(static_cast<int>(operation)) + ":" + std::to_string(size);
    }
    return text + "\nlibrary: " + printable({buffer_.begin(), buffer_.end()}) +
           "\nmodel:   " + printable({expected_buffer_.begin(), expected_buffer_.end()});
  }

  const std::string& source_;
  std::vector<Step> steps_;
  Buffer buffer_{};
  Buffer expected_buffer_{};
  Messages expected_messages_;
  Tokenizer model_;
  oxa::Ref<RecordingSink> sink_ = oxa::make<RecordingSink>();
  OXAResult made_ = S_OK;
  oxa_xml_tokenizer tokenizer_;
};

class TokenizerModelTest : public ModelTest {
 protected:
  // Performs random steps, until one of them stops the process.
  void compare_steps(const std::string& source, Random& random) {
    begin(source);
    Pair pair(source);
    try {
      for (std::size_t left = 4 + random.below(30); left > 0 && !HasFailure(); --left) {
        pair.perform_both(a_step(random));
      }
      ++accepted_;
    } catch (const Stop& stop) {
      if (stops_++ % 100 == 0) {
        expect_stop(stop, [&] { pair.repeat_in_library(); });
      }
    }
  }
};

TEST_F(TokenizerModelTest, TheSameCharactersAreWhitespace) {
  for (int ch = -300; ch <= 300; ++ch) {
    EXPECT_EQ(oxa_xml_tokenizer::is_whitespace(ch), Tokenizer::is_whitespace(ch)) << ch;
  }
}

TEST_F(TokenizerModelTest, RandomStepsOverTokensGiveWhatTheModelGives) {
  Random random(8);
  for (int run = 0; run < runs(30000) && !HasFailure(); ++run) {
    compare_steps(row_of_tokens(random), random);
  }
}

TEST_F(TokenizerModelTest, RandomStepsOverDocumentsGiveWhatTheModelGives) {
  Random random(9);
  for (int run = 0; run < runs(30000) && !HasFailure(); ++run) {
    compare_steps(damaged_document(random), random);
  }
}

}  // namespace
}  // namespace oxa_test::model
