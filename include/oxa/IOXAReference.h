// The root of every interface.
#pragma once

#include <cstdint>

// Counts the references to an object. Everybody who crosses the boundary implements it: library,
// host and plug-ins. References may be added and dropped from any thread.
class IOXAReference {
 public:
  // Adds one reference. Returns the count, which other threads may have changed by then.
  virtual std::int64_t AddReference() = 0;

  // Drops one reference and destroys the object when none is left. Returns the count that this call
  // left; 0 means that the object is gone.
  virtual std::int64_t ReleaseReference() = 0;

  // Returns the count, which other threads may have changed by then.
  virtual std::int64_t CheckReference() = 0;

 protected:
  // Not virtual and not public: an object ends by its own ReleaseReference, never by a delete.
  ~IOXAReference() = default;
};
