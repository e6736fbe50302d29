// What the rows and properties that are made without type information agree on with their tests.
// Their shared object needs nothing of the library, so that it also serves tests that have the
// library inside.
#pragma once

#include <oxa/IOXADiagnostic.h>
#include <oxa/IOXAPropertyManager.h>
#include <oxa/export.h>

// Makes what others than the library may implement. What is returned carries a reference.
struct ForeignTables {
  // A row of the type 9 whose cells hold the number of cells it was last told to have.
  IOXADiagnostic* (*make_diagnostic)();

  // Has one property, an Int with the id 7, under whatever name it is asked for.
  IOXAPropertyManager* (*make_property_manager)();
};

extern "C" OXA_EXPORT const ForeignTables* GetForeignTables();
