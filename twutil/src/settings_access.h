// Store internals shared by the settings store, its value texts and its file
// readers.
#pragma once

#include "settings.h"

#include <cstddef>

// Upper-case hexadecimal digits by value, as the settings texts write them.
inline constexpr char kSettingsHexDigits[] = "0123456789ABCDEF";

// The value of a hexadecimal digit of either case; -1 for any other character.
inline int SettingsHexValue(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

// Lets the exchange readers fill a store with one lookup per record.
class SettingsReaderAccess
{
public:
    // Sizes the hash index for count records.
    static void Reserve(CSettingsBase& store, size_t count);
    // A new record of the type with a zero scalar value pointing at its
    // scalar; NULL when the key is already there.
    static nList* AddNew(CSettingsBase& store, const char* key, int length, int type);
    // Space of size bytes, freed with the store, as the value of rec (a record
    // of the store that AddNew gave with a String, File or Binary type).
    static void* NewValue(CSettingsBase& store, nList* rec, size_t size);
};
