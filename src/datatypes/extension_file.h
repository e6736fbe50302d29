// What an extension file declares.
#pragma once

#include <oxa/IOXADebugMessage.h>
#include <oxa/IOXAPropertyDataTypeTranslator.h>
#include <oxa/IOXAUserDefinedDataTypeManager.h>
#include <oxa/IOXAXMLParser.h>

class type_builder;

// What reading an extension file needs. Translator and sink may be null.
struct extension_services {
  IOXAUserDefinedDataTypeManager& manager;
  type_builder& builder;
  IOXAXMLParser& parser;
  IOXAPropertyDataTypeTranslator* translator;
  IOXADebugMessage* sink;
};

// Adds the types that a file declares, by the rules and with the results of
// IOXAUserDefinedDataTypeManager::Load. Throws std::bad_alloc.
OXAResult read_extension_file(const wchar_t* path, const extension_services& services);
