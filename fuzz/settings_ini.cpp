// Feeds bytes to the INI reader of the settings store; the property is in
// settings_round_trip.h.
#include "settings_round_trip.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    CheckSettingsRoundTrip(SETTINGS_FORMAT_INI, data, size);
    return 0;
}
