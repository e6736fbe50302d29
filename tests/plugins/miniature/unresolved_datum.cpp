// Refers to a variable that nobody defines: even lazy binding has to find it at once.
#include <oxa/IOXAPlugin.h>

extern "C" {
extern int datum_that_nobody_defines;
OXA_EXPORT int* unresolved_datum = &datum_that_nobody_defines;
}

extern "C" OXA_EXPORT OXAResult OXACreatePluginInterface(IOXAContext*, const _GUID&, void**) {
  return *unresolved_datum;
}
