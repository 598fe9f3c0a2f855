// The one table of code page 1252's bytes 0x80..0x9F.
#include "cp1252.h"

namespace twutil_cp1252 {

namespace {

// Code points of the bytes 0x80..0x9F; 0 where the byte is undefined.
constexpr unsigned short kHigh[32] = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178,
};

}  // namespace

bool IsUndefined(unsigned char byte)
{
    return byte >= 0x80 && byte < 0xA0 && kHigh[byte - 0x80] == 0;
}

int FromUnicode(unsigned long codePoint)
{
    if (codePoint < 0x80 || (codePoint >= 0xA0 && codePoint <= 0xFF))
        return static_cast<int>(codePoint);
    if (codePoint < 0xA0)
        return IsUndefined(static_cast<unsigned char>(codePoint)) ? static_cast<int>(codePoint) : -1;
    for (unsigned i = 0; i < 32; ++i) {
        if (kHigh[i] == codePoint)
            return static_cast<int>(0x80 + i);
    }
    return -1;
}

}  // namespace twutil_cp1252
