#include "collected_errors.h"

#include <cstdarg>
#include <cstdio>

void CollectingSink::EmitError(const char* format, ...) {
  if (format == nullptr) {
    return;
  }
  char text[1000] = "";
  va_list arguments;
  va_start(arguments, format);
  std::vsnprintf(text, sizeof text, format, arguments);
  va_end(arguments);
  oxa::guard([&] {
    errors.emplace_back(text);
    return S_OK;
  });
}

// If the context cannot take the sink, the one before it goes on telling.
CollectedErrors::CollectedErrors(IOXAContext* context)
    : context_(context), previous_(oxa::service<IOXADebugMessage>(context)) {
  IOXADebugMessage* sink = sink_.get();
  context_->AddToContext(IID_IOXADebugMessage, sink);
}

CollectedErrors::~CollectedErrors() {
  context_->AddToContext(IID_IOXADebugMessage, previous_.get());
}
