// The enumerator over pairs of interface id and object.
#pragma once

#include <oxa/IOXAInterfaceEnum.h>
#include <oxa/sdk/implements.h>

#include <cstddef>

// Walks a list of pairs; hands the pointers out as they are, without a reference. With `owns` set
// it deletes the list when it ends.
class OXAInterfaceEnum final : public oxa::Implements<IOXAInterfaceEnum> {
 public:
  OXAInterfaceEnum(OXAInterfaceList* list, bool owns) : list_(list), owns_(owns) {}

  OXAResult GetFirst(_GUID& iid, void** out) override;
  OXAResult GetNext(_GUID& iid, void** out) override;

  ~OXAInterfaceEnum() override;

 private:
  OXAResult take(_GUID& iid, void** out) const;

  OXAInterfaceList* list_;
  std::size_t cursor_ = 0;
  bool owns_;
};
