// What the objects that are made without type information agree on with their test.
#pragma once

#include <oxa/IOXADataElement.h>
#include <oxa/IOXADirectoryScanner.h>
#include <oxa/IOXAPropertyDataTypeTranslator.h>
#include <oxa/IOXAUserDefinedDataTypeManager.h>
#include <oxa/IOXAXMLParser.h>
#include <oxa/export.h>

// Makes what a host may put in place of the library's own. What is returned carries a reference.
struct ForeignObjects {
  // Its documents hold the extension file of a plug-in "foreign", with a type "point" that has the
  // members "x", of the type "a number", and "next", of the type "foreign::point".
  IOXAXMLParser* (*make_parser)();

  // Finds one file, "any.xml".
  IOXADirectoryScanner* (*make_scanner)();

  // Knows one name: "a number" is a Double.
  IOXAPropertyDataTypeTranslator* (*make_translator)();

  IOXADataElement* (*make_element)(const char* name);

  // Asks the factory for the manager of the process; null when there is none.
  IOXAUserDefinedDataTypeManager* (*find_manager)();
};

extern "C" OXA_EXPORT const ForeignObjects* GetForeignObjects();
