// Helpers of the fuzz targets.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>

// Ends the run, which libFuzzer reports as a crash, when a property fails.
inline void Check(bool ok)
{
    if (!ok)
        std::abort();
}

// Takes the first byte off the input: its low bit chooses the whole-file
// reader (whole JPEG) over the reader of a bare block. False when the input
// is empty.
inline bool TakeReaderChoice(const uint8_t*& data, size_t& size, bool& whole)
{
    if (size == 0)
        return false;
    whole = data[0] & 1;
    ++data;
    --size;
    return true;
}
