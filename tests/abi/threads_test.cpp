// One context in the hands of many threads.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <sstream>
#include <thread>

#include "support/capture.h"
#include "support/fakes.h"

using namespace oxa_test;

namespace {

constexpr int thread_count = 8;
constexpr int rounds = 200;

void in_many_threads(const std::function<void()>& work) {
  std::vector<std::thread> threads;
  threads.reserve(thread_count);
  for (int index = 0; index < thread_count; ++index) {
    threads.emplace_back([&] {
      for (int round = 0; round < rounds; ++round) {
        work();
      }
    });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
}

oxa::Ref<IOXAContext> make_context() {
  oxa::Ref<IOXAContext> context;
  OXACreateContext(IID_IOXAContext, oxa::adopt_into(context));
  return context;
}

TEST(ThreadsTest, ReferencesAreCountedAcrossThreads) {
  const auto context = make_context();
  in_many_threads([&] {
    context->AddReference();
    context->CheckReference();
    context->ReleaseReference();
  });
  EXPECT_EQ(context->CheckReference(), 1);
}

TEST(ThreadsTest, ExactlyOneThreadDropsTheLastReference) {
  for (int round = 0; round < rounds; ++round) {
    IOXAContext* context = make_context().detach();
    context->AddReference();
    std::int64_t left[2] = {-1, -1};
    std::thread other([&] { left[0] = context->ReleaseReference(); });
    left[1] = context->ReleaseReference();
    other.join();
    EXPECT_EQ(std::min(left[0], left[1]), 0);
    EXPECT_EQ(std::max(left[0], left[1]), 1);
  }
}

TEST(ThreadsTest, ServicesCanBeFetchedByAllThreads) {
  const auto context = make_context();
  const _GUID* const ids[] = {&IID_IOXADebugMessage, &IID_IOXAProgressIndicator,
                              &IID_IOXADirectoryScanner, &IID_IOXAInterfaceManager,
                              &IID_IOXAPluginLoader};
  in_many_threads([&] {
    for (const _GUID* iid : ids) {
      oxa::Ref<IOXAReference> service;
      EXPECT_EQ(context->GetInterface(*iid, oxa::adopt_into(service)), S_OK);
    }
    oxa::Ref<IOXAReference> none;
    EXPECT_EQ(context->GetInterface(IID_IOXAPlugin, oxa::adopt_into(none)), E_NOTFOUND);
  });
  for (const _GUID* iid : ids) {
    oxa::Ref<IOXAReference> service;
    context->GetInterface(*iid, oxa::adopt_into(service));
    EXPECT_EQ(service->CheckReference(),
              iid == &IID_IOXADebugMessage || iid == &IID_IOXAInterfaceManager
                  ? 3  // the loader has one too
                  : 2);
  }
}

TEST(ThreadsTest, LinesOfDifferentThreadsStayWhole) {
  const auto context = make_context();
  const Written written = written_by([&] {
    in_many_threads([&] {
      const auto sink = oxa::service<IOXADebugMessage>(context.get());
      sink->EmitError("%s", "an error");
      sink->EmitMessage(0, "%s", "a message");
      sink->EmitWarning(0, "%s", "a warning");
    });
  });
  const auto count_of = [](const std::string& text, const std::string& expected) {
    std::istringstream lines(text);
    int count = 0;
    for (std::string line; std::getline(lines, line);) {
      count += line == expected ? 1 : 0;
    }
    return count;
  };
  EXPECT_EQ(count_of(written.err, "ERROR: an error"), thread_count * rounds);
  EXPECT_EQ(count_of(written.out, "a message"), thread_count * rounds);
  EXPECT_EQ(count_of(written.out, "WARNING: a warning"), thread_count * rounds);
}

}  // namespace
