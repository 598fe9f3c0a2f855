// A module's version as one number. Library-internal (not exported).
#pragma once

// A module's DllGetVersion answer as major * 100 + minor (6.10 gives 610),
// 0 when the module or its export is missing or the call fails.
int TwModuleVersionNumber(const char* moduleName);
