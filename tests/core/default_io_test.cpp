#include "core/OXADefaultIO.h"

#include <gtest/gtest.h>
#include <oxa/sdk/ref.h>

#include <stdio_ext.h>

#include <clocale>
#include <string>

#include "support/capture.h"

using oxa_test::written_by;

namespace {

class OXADefaultIOMessageTest : public testing::Test {
 protected:
  oxa::Ref<IOXADebugMessage> sink_ = oxa::make<OXADefaultIOMessage>();
  // Always given with an argument, without which a compiler takes it for an unchecked literal.
  const char* null_format_ = nullptr;
};

TEST_F(OXADefaultIOMessageTest, AnErrorAlwaysSpeaks) {
  const auto written = written_by([&] { sink_->EmitError("x"); });
  EXPECT_EQ(written.err, "ERROR: x\n");
  EXPECT_EQ(written.out, "");
}

TEST_F(OXADefaultIOMessageTest, AnErrorIsFormatted) {
  EXPECT_EQ(written_by([&] { sink_->EmitError("%s=%d%%", "k", 7); }).err, "ERROR: k=7%\n");
}

TEST_F(OXADefaultIOMessageTest, AnErrorWithoutFormatWritesNothing) {
  EXPECT_EQ(written_by([&] { sink_->EmitError(null_format_, 0); }).err, "");
}

TEST_F(OXADefaultIOMessageTest, AnErrorFlushesEvenWithoutFormat) {
  oxa_test::StreamCapture capture(stderr);
  char buffer[64];
  std::setvbuf(stderr, buffer, _IOFBF, sizeof buffer);
  std::fputs("pending", stderr);
  sink_->EmitError(null_format_, 0);
  EXPECT_EQ(__fpending(stderr), 0U);
  std::setvbuf(stderr, nullptr, _IONBF, 0);
  EXPECT_EQ(capture.text(), "pending");
}

TEST_F(OXADefaultIOMessageTest, AnErrorIsFlushed) {
  oxa_test::StreamCapture capture(stderr);
  char buffer[64];
  std::setvbuf(stderr, buffer, _IOFBF, sizeof buffer);
  sink_->EmitError("x");
  EXPECT_EQ(__fpending(stderr), 0U);
  std::setvbuf(stderr, nullptr, _IONBF, 0);
}

TEST_F(OXADefaultIOMessageTest, ANegativeThresholdIsNotAboveZero) {
  sink_->SetDefaultWarningLevel(-1);
  sink_->SetDefaultMessageLevel(-1);
  EXPECT_EQ(written_by([&] {
              sink_->EmitMessage("x");
              sink_->EmitWarning("x");
            }).out,
            "");
}

TEST_F(OXADefaultIOMessageTest, AFreshSinkKeepsQuietWithoutALevel) {
  const auto written = written_by([&] {
    sink_->EmitMessage("x");
    sink_->EmitWarning("x");
  });
  EXPECT_EQ(written.out + written.err, "");
}

TEST_F(OXADefaultIOMessageTest, AFreshSinkSpeaksAtLevelZeroAndBelow) {
  EXPECT_EQ(written_by([&] {
              sink_->EmitMessage(0, "m%d", 0);
              sink_->EmitMessage(-1, "m-1");
              sink_->EmitMessage(1, "m1");
              sink_->EmitWarning(0, "w%d", 0);
              sink_->EmitWarning(-1, "w-1");
              sink_->EmitWarning(1, "w1");
            }).out,
            "m0\nm-1\nWARNING: w0\nWARNING: w-1\n");
}

TEST_F(OXADefaultIOMessageTest, TheSettersAreCrossed) {
  sink_->SetDefaultMessageLevel(1);
  EXPECT_EQ(written_by([&] {
              sink_->EmitWarning("x");
              sink_->EmitMessage("x");
            }).out,
            "WARNING: x\n");
  sink_->SetDefaultMessageLevel(0);
  sink_->SetDefaultWarningLevel(1);
  EXPECT_EQ(written_by([&] {
              sink_->EmitWarning("y");
              sink_->EmitMessage("y");
            }).out,
            "y\n");
}

TEST_F(OXADefaultIOMessageTest, AThresholdAdmitsLevelsUpToItself) {
  sink_->SetDefaultWarningLevel(2);
  sink_->SetDefaultMessageLevel(-1);
  EXPECT_EQ(written_by([&] {
              sink_->EmitMessage(2, "m2");
              sink_->EmitMessage(3, "m3");
              sink_->EmitWarning(-1, "w-1");
              sink_->EmitWarning(0, "w0");
            }).out,
            "m2\nWARNING: w-1\n");
}

TEST_F(OXADefaultIOMessageTest, MessagesWithoutALevelAreFormattedTwice) {
  sink_->SetDefaultWarningLevel(1);
  const char* format = "%d";  // a literal would be checked for the second argument
  EXPECT_EQ(written_by([&] { sink_->EmitMessage(format, 1, 2); }).out, "2\n");
  EXPECT_EQ(written_by([&] { sink_->EmitMessage("plain, 100%%"); }).out, "plain, 100%\n");
}

TEST_F(OXADefaultIOMessageTest, AMessageWithALevelIsFormattedOnce) {
  const char* format = "%d";
  EXPECT_EQ(written_by([&] { sink_->EmitMessage(0, format, 1, 2); }).out, "1\n");
}

TEST_F(OXADefaultIOMessageTest, NullFormatsWriteNothing) {
  sink_->SetDefaultWarningLevel(1);
  sink_->SetDefaultMessageLevel(1);
  const auto written = written_by([&] {
    sink_->EmitMessage(null_format_, 0);
    sink_->EmitWarning(null_format_, 0);
    sink_->EmitMessage(0, null_format_, 0);
  });
  EXPECT_EQ(written.out + written.err, "");
}

TEST_F(OXADefaultIOMessageTest, AWarningWithALevelPrintsItsBarePrefix) {
  EXPECT_EQ(written_by([&] { sink_->EmitWarning(0, null_format_, 0); }).out, "WARNING: \n");
  EXPECT_EQ(written_by([&] { sink_->EmitWarning(1, null_format_, 0); }).out, "");
}

TEST_F(OXADefaultIOMessageTest, ALineIsCutAt999Characters) {
  sink_->SetDefaultWarningLevel(1);
  sink_->SetDefaultMessageLevel(1);
  const std::string text(2000, 'x');
  const char* text_format = "%s";
  const auto cut = [](const std::string& prefix) {
    return prefix + std::string(999 - prefix.size(), 'x') + "\n";
  };
  EXPECT_EQ(written_by([&] { sink_->EmitError("%s", text.c_str()); }).err, cut("ERROR: "));
  const auto written = written_by([&] {
    sink_->EmitMessage(text_format, text.c_str(), text.c_str());
    sink_->EmitMessage(0, "%s", text.c_str());
    sink_->EmitWarning("%s", text.c_str());
    sink_->EmitWarning(0, "%s", text.c_str());
  });
  EXPECT_EQ(written.out, cut("") + cut("") + cut("WARNING: ") + cut("WARNING: "));
}

TEST_F(OXADefaultIOMessageTest, A999CharacterLineIsWhole) {
  const std::string text(999, 'x');
  EXPECT_EQ(written_by([&] { sink_->EmitMessage(0, "%s", text.c_str()); }).out, text + "\n");
}

TEST_F(OXADefaultIOMessageTest, WhatTheLocaleCannotShowEndsTheLine) {
  const auto emit = [&] { sink_->EmitError("a %ls b", L"\u00E9"); };
  EXPECT_EQ(written_by(emit).err, "ERROR: a \n");
  ASSERT_NE(std::setlocale(LC_CTYPE, "C.UTF-8"), nullptr);
  EXPECT_EQ(written_by(emit).err, "ERROR: a \u00E9 b\n");
  std::setlocale(LC_CTYPE, "C");
}

TEST_F(OXADefaultIOMessageTest, ClearDoesNothing) {
  const auto written = written_by([&] { sink_->Clear(); });
  EXPECT_EQ(written.out + written.err, "");
}

TEST(OXADefaultIOProgressTest, IgnoresEverythingAndIsActive) {
  const oxa::Ref<IOXAProgressIndicator> progress = oxa::make<OXADefaultIOProgress>();
  const auto written = written_by([&] {
    EXPECT_EQ(progress->Begin(), S_OK);
    EXPECT_EQ(progress->UpdateTitle("title"), S_OK);
    EXPECT_EQ(progress->UpdateMessage(nullptr), S_OK);
    EXPECT_EQ(progress->SetHeartbeatFrequency(-1), S_OK);
    EXPECT_TRUE(progress->IsActive());
    EXPECT_EQ(progress->End(), S_OK);
    EXPECT_TRUE(progress->IsActive());
  });
  EXPECT_EQ(written.out + written.err, "");
}

}  // namespace
