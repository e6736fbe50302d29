// Accounting for every allocation of the process: library, plug-ins and test alike.
#pragma once

namespace oxa_test {

// Returns how many blocks from operator new are alive, and how many were ever made.
long live_allocations();
unsigned long made_allocations();

// Makes one allocation of this thread fail with std::bad_alloc: the one after `passing` further
// ones. At most one such object at a time.
class FailingAllocation {
 public:
  explicit FailingAllocation(unsigned long passing);
  FailingAllocation(const FailingAllocation&) = delete;
  FailingAllocation& operator=(const FailingAllocation&) = delete;
  ~FailingAllocation();

  // Tells whether the allocation was reached and failed.
  static bool happened();
};

// Runs `operation` once for each allocation it makes, with that one failing, until it runs through;
// returns how many failed.
template <class Operation>
unsigned long fail_each_allocation(Operation operation) {
  for (unsigned long passing = 0;; ++passing) {
    FailingAllocation failing(passing);
    operation();
    if (!FailingAllocation::happened()) {
      return passing;
    }
  }
}

}  // namespace oxa_test
