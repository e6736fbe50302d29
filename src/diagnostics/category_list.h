// The categories of a manager, or of a category.
#pragma once

#include <oxa/IOXADiagnosticCategory.h>
#include <oxa/IOXADiagnosticCategoryEnum.h>
#include <oxa/result.h>

#include <list>

#include "core/text_map.h"

class IOXADiagnosticsManager;

// Categories in the order of their creation, and by the names that they were created with. Each has
// one reference, which belongs to the list until release_all; the destructor leaves it.
class category_list {
 public:
  // Makes a category for a manager and stores it, borrowed, with the results of CreateCategory.
  OXAResult create(IOXADiagnosticsManager* manager, const char* name,
                   IOXADiagnosticCategory** category);

  // Makes an enumerator over the list itself, with the results of GetDiagnosticCategoryEnum.
  OXAResult enumerate(IOXADiagnosticCategoryEnum** categories);

  // Empties the list, then releases what was in it, in order.
  void release_all();

  const std::list<IOXADiagnosticCategory*>& all() const { return in_order_; }

  // Returns how often release_all was called: after a call, places in the list are gone.
  unsigned long times_cleared() const { return times_cleared_; }

 private:
  std::list<IOXADiagnosticCategory*> in_order_;
  oxa::text_map<IOXADiagnosticCategory*> by_name_;
  unsigned long times_cleared_ = 0;
};
