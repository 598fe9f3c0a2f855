// German and RGB_ colour names.
#include "values/color.h"

#include <array>

namespace {

struct GermanName
{
    COLORREF rgb;
    const char* name;
};

constexpr std::array<GermanName, 25> kGermanNames = {{
    {0x00000000, "schwarz"},
    {0x00FFFFFF, "weiß"},
    {0x00F0F0F0, "hellstes grau"},
    {0x00D8D8D8, "helleres grau"},
    {0x00C0C0C0, "hellgrau"},
    {0x00808080, "grau"},
    {0x0000FFFF, "gelb"},
    {0x000080FF, "orange"},
    {0x000000FF, "rot"},
    {0x00000080, "dunkelrot"},
    {0x00FF00FF, "magenta"},
    {0x0080FF00, "hellgrün"},
    {0x0000FF00, "grün"},
    {0x00008000, "dunkelgrün"},
    {0x00FFFF00, "cyan"},
    {0x00808000, "dunkelcyan"},
    {0x00505000, "dunkelstes cyan"},
    {0x00FF8000, "hellblau"},
    {0x00FF0000, "blau"},
    {0x00800000, "dunkelblau"},
    {0x0080FFFF, "hellgelb"},
    {0x008080FF, "hellrot"},
    {0x002D52A0, "braun"},
    {0x00500050, "purpur"},
    {0x0000D7FF, "gold"},
}};

constexpr const char* kUndefined = "undefiniert";

struct RgbName
{
    const char* name;
    COLORREF rgb;
};

constexpr std::array<RgbName, 34> kRgbNames = {{
    {"RGB_BLACK", 0x00000000},
    {"schwarz", 0x00000000},
    {"RGB_WHITE", 0x00FFFFFF},
    {"weiß", 0x00FFFFFF},
    {"RGB_LIGHTESTGRAY", 0x00F0F0F0},
    {"RGB_LIGHTERGRAY", 0x00D8D8D8},
    {"RGB_LIGHTGRAY", 0x00C0C0C0},
    {"RGB_DARKGRAY", 0x00808080},
    {"grau", 0x00808080},
    {"RGB_YELLOW", 0x0000FFFF},
    {"gelb", 0x0000FFFF},
    {"RGB_ORANGE", 0x000080FF},
    {"orange", 0x000080FF},
    {"RGB_RED", 0x000000FF},
    {"rot", 0x000000FF},
    {"RGB_DARKRED", 0x00000080},
    {"RGB_MAGENTA", 0x00FF00FF},
    {"RGB_LIGHTGREEN", 0x0080FF00},
    {"RGB_GREEN", 0x0000FF00},
    {"RGB_DARKGREEN", 0x00008000},
    // Deliberate: "grün" is dark green here, unlike convertColorRef2Name.
    {"grün", 0x00008000},
    {"RGB_CYAN", 0x00FFFF00},
    {"RGB_DARKCYAN", 0x00808000},
    {"RGB_DARKESTCYAN", 0x00505000},
    {"RGB_LIGHTBLUE", 0x00FF8000},
    {"hellblau", 0x00FF8000},
    {"RGB_BLUE", 0x00FF0000},
    {"RGB_DARKBLUE", 0x00800000},
    {"RGB_LIGHTYELLOW", 0x0080FFFF},
    {"RGB_LIGHTRED", 0x008080FF},
    {"RGB_SIENNA", 0x002D52A0},
    {"RGB_PURPLE", 0x00500050},
    {"RGB_SILVER", 0x00C0C0C0},
    {"RGB_GOLD", 0x0000D7FF},
}};

}  // namespace

CString convertColorRef2Name(COLORREF rgb)
{
    for (const GermanName& g : kGermanNames) {
        if (g.rgb == rgb)
            return CString(g.name);
    }
    return CString(kUndefined);
}

COLORREF convertRGBName2ColorRef(const char* name)
{
    const CString wanted(name);
    for (const RgbName& r : kRgbNames) {
        if (wanted.CompareNoCase(r.name) == 0)
            return r.rgb;
    }
    return TW_UNKNOWN_COLOR_NAME;
}
