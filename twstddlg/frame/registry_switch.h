// Single registry values and the policy switches below
// HKEY_CURRENT_USER\Software\Tesselwerk. Library-internal (not exported).
#pragma once

#ifdef _WIN32
#include "afxstr.h"

// The key below HKEY_CURRENT_USER that holds the switches and "DebugLevel".
inline constexpr const char* kTesselwerkKey = "Software\\Tesselwerk";

// Reads a REG_SZ value of at most 260 bytes into `value` (emptied first);
// any other type or a longer value leaves it empty. Returns the status of
// the open, or of the query when the key opened. Closes `root` and leaves
// the opened subkey open.
LONG ReadRegistryString(HKEY root, const char* subkey, const char* valueName, CString& value);

// 1 when the value under HKCU\Software\Tesselwerk holds a truth word
// ("1", "ok", "yes", "ja", "true", "wahr" after lower-casing), else 0.
int IsRegistrySwitchSet(CString valueName);

// 1 when "DisableInternet" is set: links are not opened.
int IsInternetDisabled();

// 1 when "DisableDumpWriter" is set; nothing in the library consults it.
int IsDumpWriterDisabled();
#endif
