// The library's type manager, in a context of its own.
#pragma once

#include <oxa/IOXAContext.h>
#include <oxa/IOXAUserDefinedDataTypeManager.h>
#include <oxa/sdk/ref.h>

#include <string>

#include "support/fakes.h"

namespace oxa_test::model {

// A new manager with the default services, which tells its messages to a sink that keeps them.
// There must be no other manager in the process.
class LibraryManager {
 public:
  // The documents are the library's, or look like a host's own.
  explicit LibraryManager(bool foreign_documents = false);
  LibraryManager(const LibraryManager&) = delete;
  LibraryManager& operator=(const LibraryManager&) = delete;

  IOXAUserDefinedDataTypeManager* operator->() const { return manager_.get(); }
  IOXAUserDefinedDataTypeManager& operator*() const { return *manager_; }

  // Loads a file with this content.
  OXAResult load(const std::string& content) const;

  // Tells whether the manager is held here alone, and its sink there and in the context.
  bool is_held_once() const;

  oxa::Ref<IOXAContext> context;
  oxa::Ref<RecordingSink> sink = oxa::make<RecordingSink>();

 private:
  oxa::Ref<IOXAUserDefinedDataTypeManager> manager_;  // ends before its context
};

}  // namespace oxa_test::model
