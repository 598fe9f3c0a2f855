// Library entry: the module handle and the library's own version query.
#pragma once
#include "twstddlg_api.h"

#ifdef _WIN32
#include <shlwapi.h>

// Answers a version query for this library from its version resource.
TWSTDDLG_API void DllGetVersion(DLLVERSIONINFO& info);

// The library's module instance handle, stored when the library is loaded.
HINSTANCE TwLibraryInstance();
#endif
