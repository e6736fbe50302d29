#include "datatypes/model/library_manager.h"

#include <stdexcept>

#include "datatypes/model/forwarding_parser.h"
#include "support/memory_file.h"

namespace oxa_test::model {

LibraryManager::LibraryManager(bool foreign_documents) {
  OXACreateContext(IID_IOXAContext, oxa::adopt_into(context));
  oxa::add_service<IOXADebugMessage>(context.get(), sink);
  if (foreign_documents) {
    const auto parser = oxa::make<ForwardingParser>(oxa::service<IOXAXMLParser>(context));
    oxa::add_service<IOXAXMLParser>(context.get(), parser);
  }
  const OXAResult result = OXACreateUserDefinedDataTypeManager(
      context.get(), IID_IOXAUserDefinedDataTypeManager, oxa::adopt_into(manager_));
  if (result != S_OK || manager_->CheckReference() != 1) {
    throw std::runtime_error("cannot make a new type manager");
  }
}

OXAResult LibraryManager::load(const std::string& content) const {
  return manager_->Load(MemoryFile(content).path().c_str());
}

bool LibraryManager::is_held_once() const {
  return manager_->CheckReference() == 1 && sink->CheckReference() == 2;
}

}  // namespace oxa_test::model
