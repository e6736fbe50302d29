// A shared object that is no plug-in.
#include <oxa/export.h>

extern "C" OXA_EXPORT int answer() { return 42; }
