// Feeds bytes to the INI reader of the settings store.
//
// Property: reading never crashes or leaks; when the bytes are accepted,
// writing the store read and reading that text again is accepted too, gives
// an equal store (keys, order, types, deleted flags, bit-identical values),
// and writing that store gives the same text again.
#include "settings.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const char* text = reinterpret_cast<const char*>(data);
    CSettings store;
    if (!ParseSettingsText(SETTINGS_FORMAT_INI, "S", text, size, store))
        return 0;
    const CString written = store.ExportSettingsText(SETTINGS_FORMAT_INI, "S");
    CSettings again;
    if (!again.ImportSettingsText(SETTINGS_FORMAT_INI, "S", written, written.GetLength()) ||
        !again.IsEqual(store))
        std::abort();
    const CString rewritten = again.ExportSettingsText(SETTINGS_FORMAT_INI, "S");
    if (rewritten != written)
        std::abort();
    return 0;
}
