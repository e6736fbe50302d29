// A plug-in without classes: tables, functions and structures, as a C compiler would make them.
#include <oxa/IOXAPlugin.h>

#include "abi/raw.h"

using oxa_test::raw_table;

namespace {

char calls[64];
std::size_t call_count = 0;

struct Object {
  const void* table;
  std::int64_t count;
  char letter;
};

std::int64_t noted(const Object* self, char slot, std::int64_t result) {
  if (call_count + 3 < sizeof calls) {
    calls[call_count++] = self->letter;
    calls[call_count++] = slot;
    calls[call_count++] = ' ';
  }
  return result;
}

std::int64_t add(Object* self) { return noted(self, '1', ++self->count); }
std::int64_t release(Object* self) { return noted(self, '2', --self->count); }
std::int64_t check(Object* self) { return noted(self, '3', self->count); }
const char* name(Object* self) { return noted(self, '4', 0) == 0 ? "C style" : nullptr; }
const char* version(Object* self) { return noted(self, '5', 0) == 0 ? "1.0" : nullptr; }

OXAResult get_first(Object* self, _GUID* iid, void** out) {
  *iid = IID_IOXALayout;
  *out = self;
  return static_cast<OXAResult>(noted(self, '4', S_OK));
}

OXAResult get_next(Object* self, _GUID*, void** out) {
  *out = nullptr;
  return static_cast<OXAResult>(noted(self, '5', S_FALSE));
}

const auto enumerator_table =
    raw_table(typeid(IOXAInterfaceEnum), add, release, check, get_first, get_next);
Object enumerator = {enumerator_table.slots.data(), 0, 'e'};

OXAResult get_interface_enum(Object* self, void** out) {
  enumerator.count = 1;
  *out = &enumerator;
  return static_cast<OXAResult>(noted(self, '6', S_OK));
}

const auto plugin_table =
    raw_table(typeid(IOXAPlugin), add, release, check, name, version, get_interface_enum);
Object plugin = {plugin_table.slots.data(), 0, 'p'};

}  // namespace

extern "C" OXA_EXPORT const char* CStyleCalls() { return calls; }

extern "C" OXA_EXPORT OXAResult OXACreatePluginInterface(IOXAContext*, const _GUID&, void** out) {
  plugin.count = 1;
  *out = &plugin;
  return S_OK;
}
