// Stand-ins for what a host or a plug-in would implement.
#pragma once

#include <oxa/oxa.h>
#include <oxa/sdk/implements.h>

#include <cstdarg>
#include <cstdio>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace oxa_test {

// A counted object without operations. Its address is an interface pointer.
class Thing final : public OXAReference {
 public:
  Thing() { AddReference(); }
};

// A message sink that keeps what it is told, as "error: ...", "message: ...", "warning: ..." with
// the level, if there is one, after the word.
class RecordingSink final : public oxa::Implements<IOXADebugMessage> {
 public:
  OXA_PRINTF(2, 3) void EmitError(const char* format, ...) override {
    va_list arguments;
    va_start(arguments, format);
    record("error: ", format, arguments);
    va_end(arguments);
  }
  OXA_PRINTF(2, 3) void EmitMessage(const char* format, ...) override {
    va_list arguments;
    va_start(arguments, format);
    record("message: ", format, arguments);
    va_end(arguments);
  }
  OXA_PRINTF(2, 3) void EmitWarning(const char* format, ...) override {
    va_list arguments;
    va_start(arguments, format);
    record("warning: ", format, arguments);
    va_end(arguments);
  }
  void Clear() override { lines.clear(); }
  void SetDefaultWarningLevel(int) override {}
  void SetDefaultMessageLevel(int) override {}
  OXA_PRINTF(3, 4) void EmitMessage(int level, const char* format, ...) override {
    va_list arguments;
    va_start(arguments, format);
    record("message " + std::to_string(level) + ": ", format, arguments);
    va_end(arguments);
  }
  OXA_PRINTF(3, 4) void EmitWarning(int level, const char* format, ...) override {
    va_list arguments;
    va_start(arguments, format);
    record("warning " + std::to_string(level) + ": ", format, arguments);
    va_end(arguments);
  }

  std::vector<std::string> lines;
  std::function<void()> on_message = [] {};  // runs after each line

 private:
  void record(std::string line, const char* format, va_list arguments) {
    char text[1000] = "";
    std::vsnprintf(text, sizeof text, format, arguments);
    lines.push_back(line += text);
    on_message();
  }
};

// A context over a map, which can be told to fail.
class FakeContext final : public oxa::Implements<IOXAContext> {
 public:
  OXAResult GetInterface(const _GUID& iid, void** out) override {
    const auto found = services.find(oxa::to_string(iid));
    if (found == services.end()) {
      *out = nullptr;
      return E_NOTFOUND;
    }
    found->second->AddReference();
    *out = found->second.get();
    return S_OK;
  }

  OXAResult AddToContext(const _GUID& iid, void* object) override {
    added.push_back(iid);
    if (iid == failing_iid) {
      return failure;
    }
    services[oxa::to_string(iid)] =
        oxa::Ref<IOXAReference>::share(static_cast<IOXAReference*>(object));
    return S_FALSE;
  }

  std::map<std::string, oxa::Ref<IOXAReference>> services;
  std::vector<_GUID> added;  // the ids that AddToContext was given, in order
  _GUID failing_iid{};
  OXAResult failure = E_FAIL;
};

}  // namespace oxa_test
