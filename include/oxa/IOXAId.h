// A counter that hands out consecutive numbers.
#pragma once

// Numbers things: interface ids, properties, diagnostic types. Implemented by the library and
// embedded in its objects that number, none of which hands it out; not reference counted. Safe to
// call from any thread.
class IOXAId {
 public:
  // Takes the next number; the first is 0. No two calls return the same one between resets.
  virtual unsigned long CreateID() = 0;

  // Makes 0 the next number.
  virtual void Reset() = 0;

  // Makes `value` the next number.
  virtual void Reset(unsigned int value) = 0;

  // Returns the number that the next CreateID will return.
  virtual unsigned long CurrentValue() = 0;

 protected:
  ~IOXAId() = default;
};
