// Calls a function that nobody defines.
#include <oxa/IOXAPlugin.h>

extern "C" OXAResult function_that_nobody_defines();

extern "C" OXA_EXPORT OXAResult OXACreatePluginInterface(IOXAContext*, const _GUID&, void**) {
  return function_that_nobody_defines();
}
