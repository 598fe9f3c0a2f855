// Feeds bytes to the XML reader of the settings store; the property is in
// settings_round_trip.h.
#include "settings_round_trip.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    CheckSettingsRoundTrip(SETTINGS_FORMAT_XML, data, size);
    return 0;
}
