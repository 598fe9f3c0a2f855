// The standard palette, its names and the English keyword search.
#include "values/color.h"

#include <array>
#include <string_view>

namespace {

constexpr std::array<COLORREF, TW_PALETTE_COLORS> kPalette = {
    0x00FFFFFF, 0x00C0C0C0, 0x00808080, 0x00000000,  // white, light/dark gray, black
    0x0000FFFF, 0x000080FF, 0x000000FF, 0x00000080,  // yellow, orange, red, dark red
    0x00FF00FF, 0x0080FF00, 0x0000FF00, 0x00008000,  // magenta, light/-/dark green
    0x00FFFF00, 0x00FF8000, 0x00FF0000, 0x00800000,  // cyan, light/-/dark blue
};

constexpr std::array<const char*, TW_PALETTE_NAMES> kPaletteNames = {
    "WHITE",      "LIGHTGRAY", "DARKGRAY",  "BLACK", "YELLOW",    "ORANGE", "RED",      "DARKRED",   "MAGENTA",
    "LIGHTGREEN", "GREEN",     "DARKGREEN", "CYAN",  "LIGHTBLUE", "BLUE",   "DARKBLUE", "pen color", "back color",
};

struct Keyword
{
    std::string_view word;
    int index;
};

// Searched in this order; a word must come before any shorter word it
// contains (DARKGREEN before GREEN).
constexpr std::array<Keyword, 22> kKeywords = {{
    {"WHITE", 0},
    {"YELLOW", 4},
    {"LIGHTMAGENTA", 8},
    {"ORANGE", 5},
    {"LIGHTRED", 5},
    {"LIGHTCYAN", 12},
    {"DARKGREEN", 11},
    {"LIGHTGREEN", 9},
    {"DARKBLUE", 15},
    {"LIGHTBLUE", 13},
    {"DARKGRAY", 2},
    {"LIGHTGRAY", 1},
    {"DARKRED", 7},
    {"BROWN", 7},
    {"MAGENTA", 8},
    {"RED", 6},
    {"CYAN", 12},
    {"GREEN", 10},
    {"BLUE", 14},
    {"BLACK", 3},
    {"PEN COLOR", TW_PEN_COLOR_INDEX},
    // Deliberate: "back color" gives the pen colour's index, as hosts expect.
    {"BACK COLOR", TW_PEN_COLOR_INDEX},
}};

}  // namespace

COLORREF GetColor(int index)
{
    const unsigned int at = static_cast<unsigned int>(index);
    return kPalette[at < kPalette.size() ? at : 0];
}

int GetColorIndex(COLORREF rgb)
{
    for (std::size_t i = 0; i < kPalette.size(); ++i) {
        if (kPalette[i] == rgb)
            return static_cast<int>(i);
    }
    return -1;
}

int GetColorIndex(const char* text)
{
    CString upper(text);
    upper.MakeUpper();
    const std::string_view haystack(upper.GetString(), static_cast<std::size_t>(upper.GetLength()));
    for (const Keyword& k : kKeywords) {
        if (haystack.find(k.word) != std::string_view::npos)
            return k.index;
    }
    return -1;
}

const char* GetColorString(int index)
{
    const unsigned int at = static_cast<unsigned int>(index);
    return kPaletteNames[at < kPaletteNames.size() ? at : TW_BACK_COLOR_INDEX];
}
