// Comparing the library with the model, one document at a time.
#pragma once

#include <gtest/gtest.h>

#include <csignal>
#include <cstdio>
#include <optional>
#include <ostream>
#include <string>

#include "xml/model/forked.h"
#include "xml/model/outcome.h"
#include "xml/model/random_documents.h"

namespace oxa_test::model {

class ModelTest : public testing::Test {
 protected:
  ModelTest() : handler_(std::signal(SIGABRT, print_current)) {}
  ~ModelTest() override { std::signal(SIGABRT, handler_); }

  // Names the input that is being compared, in case that it stops the process.
  static void begin(const std::string& source) { current_ = &source; }

  // Compares the outcomes. Where the model stops, so must the library, which is tried for one in
  // `rarity` of these.
  void compare(const std::string& source, Way way, int rarity = 500) {
    begin(source);
    std::optional<Outcome> expected;
    try {
      expected = model_outcome(source, way);
    } catch (const Stop& stop) {
      if (stops_++ % rarity == 0) {
        expect_stop(stop, [&] { library_outcome(source, way); });
      }
      return;
    }
    const Outcome outcome = library_outcome(source, way);
    EXPECT_TRUE(outcome == *expected)
        << printable(source) << "\nlibrary: " << outcome << "\nmodel: " << *expected;
    (outcome.result == S_OK && outcome.root_count > 0 ? accepted_ : rejected_) += 1;
  }

  template <class Operation>
  void expect_stop(const Stop& stop, Operation operation) {
    EXPECT_NE(stopped_with(operation).find("`" + stop.expression + "'"), std::string::npos)
        << stop.expression << ": " << printable(*current_);
  }

  // Inputs that are all of one kind would prove nothing.
  void expect_variety(int least) const {
    EXPECT_GT(accepted_, least);
    EXPECT_GT(rejected_, least);
    EXPECT_GT(stops_, least);
  }

  void TearDown() override {
    if (accepted_ + rejected_ + stops_ > 0) {
      std::printf("%d accepted, %d rejected, %d stopped\n", accepted_, rejected_, stops_);
    }
  }

  int accepted_ = 0;
  int rejected_ = 0;
  int stops_ = 0;

 private:
  static void print_current(int) {
    std::fprintf(stderr, "%s\n", printable(*current_).c_str());
    std::signal(SIGABRT, SIG_DFL);
  }

  static inline const std::string* current_ = nullptr;
  void (*handler_)(int);
};

}  // namespace oxa_test::model
