// Store internals shared by the settings store and its file readers.
#pragma once

#include "settings.h"

#include <cstddef>

// Lets the exchange readers fill a store with one lookup per record.
class SettingsReaderAccess
{
public:
    // Sizes the hash index for count records.
    static void Reserve(CSettingsBase& store, size_t count);
    // A new record of the type with a zero scalar value pointing at its
    // scalar; NULL when the key is already there.
    static nList* AddNew(CSettingsBase& store, const char* key, int length, int type);
};
