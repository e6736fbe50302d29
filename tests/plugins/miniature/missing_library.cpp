// Linked against, but not found at run time.
#include <oxa/export.h>

extern "C" OXA_EXPORT int from_missing_library();

int from_missing_library() { return 0; }
