// Version queries against the version resources of loaded modules.
#pragma once
#include "twutil_api.h"

#ifdef _WIN32
#include <shlwapi.h>

// Fills the four version fields of `info` from the fixed file version of the
// loaded module `moduleName` (a null name means the executable); the size
// field is left as the caller set it. Returns FALSE, with the fields cleared,
// when the module is not loaded or has no version resource.
TWUTIL_API BOOL twDllGetVersion(const char* moduleName, DLLVERSIONINFO& info);
#endif
