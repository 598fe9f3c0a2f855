#include "frame/registry_switch.h"

#include "frame/truth_words.h"

#include <cstring>

namespace {

constexpr DWORD kValueBufferSize = 260;

}  // namespace

LONG ReadRegistryString(HKEY root, const char* subkey, const char* valueName, CString& value)
{
    value.Empty();
    HKEY key = nullptr;
    const LONG opened = RegOpenKeyExA(root, subkey, 0, KEY_READ, &key);
    if (opened != ERROR_SUCCESS)
        return opened;

    char buffer[kValueBufferSize] = {};
    DWORD size = kValueBufferSize;
    DWORD type = 0;
    const LONG status = RegQueryValueExA(key, valueName, nullptr, &type, reinterpret_cast<BYTE*>(buffer), &size);
    if (status == ERROR_SUCCESS && size > 0 && type == REG_SZ) {
        // A value stored without its terminator ends at the data's size.
        value = CString(buffer, static_cast<int>(strnlen(buffer, size)));
    }
    // Deliberate: closes the root key that was passed in, not the opened
    // subkey, which stays open (one handle per call).
    RegCloseKey(root);
    return status;
}

int IsRegistrySwitchSet(CString valueName)
{
    CString text;
    if (ReadRegistryString(HKEY_CURRENT_USER, kTesselwerkKey, valueName, text) != ERROR_SUCCESS || text.IsEmpty())
        return 0;
    return twswitch::IsTruthWord(text) ? 1 : 0;
}

int IsInternetDisabled()
{
    return IsRegistrySwitchSet("DisableInternet");
}

int IsDumpWriterDisabled()
{
    return IsRegistrySwitchSet("DisableDumpWriter");
}
