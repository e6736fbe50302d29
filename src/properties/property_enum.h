// Handing out enumerators over properties.
#pragma once

#include <oxa/IOXAProperty.h>
#include <oxa/IOXAPropertyEnum.h>

#include <list>
#include <memory>

#include "core/OXAListEnum.h"

using OXAPropertyEnum = OXAListEnum<IOXAPropertyEnum, IOXAProperty>;

// Makes an enumerator of a list of its own, which `fill` fills; the caller owns one reference to
// it. Throws std::bad_alloc.
template <class Fill>
IOXAPropertyEnum* enumerate_properties(Fill fill) {
  auto list = std::make_unique<OXAPropertyEnum::List>();
  fill(*list);
  auto* enumerator = new OXAPropertyEnum(list.get(), true);
  static_cast<void>(list.release());  // the enumerator's now
  return enumerator;
}
