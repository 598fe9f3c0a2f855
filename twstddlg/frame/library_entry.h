// The library's own version query.
#pragma once
#include "twstddlg_api.h"

#ifdef _WIN32
#include <shlwapi.h>

// Answers a version query for this library from its version resource.
TWSTDDLG_API void DllGetVersion(DLLVERSIONINFO& info);
#endif
