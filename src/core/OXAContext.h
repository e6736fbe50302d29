// The context.
#pragma once

#include <oxa/IOXAContext.h>
#include <oxa/sdk/implements.h>

#include <cstddef>
#include <vector>

#include "core/guid_table.h"

// The table from interface id to service, which holds one reference to each.
class OXAContext final : public oxa::Implements<IOXAContext> {
 public:
  // Builds and files the default services; `result` receives the outcome.
  explicit OXAContext(OXAResult& result);

  OXAResult GetInterface(const _GUID& iid, void** out) override;
  OXAResult AddToContext(const _GUID& iid, void* object) override;

  // Releases the services in the order in which their ids were first added.
  ~OXAContext() override;

 private:
  IOXAReference* find(const _GUID& iid) const;

  guid_table<IOXAReference*> services_;
  std::vector<_GUID> ids_;    // in the order in which they were first added
  std::size_t released_ = 0;  // how many of these the destructor has released
};
