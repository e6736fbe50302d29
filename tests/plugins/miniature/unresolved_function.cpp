// Calls a function that nobody defines; with lazy binding that is found out only by calling it.
#include <oxa/IOXAPlugin.h>

extern "C" int function_that_nobody_defines();

extern "C" OXA_EXPORT int call_it() { return function_that_nobody_defines(); }

extern "C" OXA_EXPORT OXAResult OXACreatePluginInterface(IOXAContext*, const _GUID&, void**) {
  return E_FAIL;
}
