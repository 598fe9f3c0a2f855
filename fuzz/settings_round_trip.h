// The property both settings reader targets check, for one file format.
//
// Property: reading never crashes or leaks; when the bytes are accepted,
// writing the store read and reading that text again is accepted too, gives
// an equal store (keys, order, types, deleted flags, bit-identical values),
// and writing that store gives the same text again.
#pragma once

#include "settings.h"

#include "fuzz_check.h"

#include <cstddef>
#include <cstdint>

inline void CheckSettingsRoundTrip(SettingsFormat format, const uint8_t* data, size_t size)
{
    const char* text = reinterpret_cast<const char*>(data);
    CSettings store;
    if (!ParseSettingsText(format, "S", text, size, store))
        return;
    const CString written = store.ExportSettingsText(format, "S");
    CSettings again;
    Check(again.ImportSettingsText(format, "S", written, written.GetLength()) && again.IsEqual(store));
    const CString rewritten = again.ExportSettingsText(format, "S");
    Check(rewritten == written);
}
