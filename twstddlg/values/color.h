// Colours: the named colour, its array, the standard palette and the German
// and RGB_ colour names.
//
// Colours are COLORREF values 0x00BBGGRR. Where the interface speaks of an
// unsigned long colour it is declared as COLORREF, which on Windows is that
// very type (DWORD); in the native build it stays a 32-bit value.
#pragma once

#include "twstddlg_api.h"
#include "afxstr.h"
#include "afxtempl.h"
#include "values/array_export.h"

// A colour with a name, by which arrays find it, and a flag that belongs to
// the host (nothing here interprets it).
class TWSTDDLG_API CColor
{
public:
    CColor();
    CColor(const CColor& other);
    CColor& operator=(const CColor& other);
    ~CColor();

    const CString& GetName() const { return m_name; }
    const int& GetFlag() const { return m_flag; }
    const COLORREF& GetRGB() const { return m_rgb; }

    void SetName(const char* name);
    void SetFlag(int flag);
    void SetRGB(COLORREF rgb);
    // Writes name, colour and flag at once.
    void Set(const char* name, COLORREF rgb, int flag);

private:
    CString m_name;
    int m_flag;
    COLORREF m_rgb;
};

// The colour of a default CColor, and of a name that a CColorArray lacks.
constexpr COLORREF TW_NO_COLOR = 0xFFFFFFFF;

// The result of convertRGBName2ColorRef for an unknown name.
constexpr COLORREF TW_UNKNOWN_COLOR_NAME = 0x00FEFEFE;

// Number of colours in the standard palette (a 4 x 4 grid, index = column +
// 4 * row) and of names in the palette's name table (the palette and the
// pseudo-entries "pen color" and "back color").
constexpr int TW_PALETTE_COLORS = 16;
constexpr int TW_PALETTE_NAMES = 18;

// Index of the pseudo-entry "pen color" in the name table; "back color"
// follows it.
constexpr int TW_PEN_COLOR_INDEX = 16;
constexpr int TW_BACK_COLOR_INDEX = 17;

TWSTDDLG_EXTERN_ARRAY(CColor);

// An array of named colours. Add and Replace keep the names unique ignoring
// case; AddSorted keeps name order and admits equal names. Serialize is
// CArray's: the count and the raw element images, so names do not survive
// an archive (persist colours by name and value instead).
class TWSTDDLG_API CColorArray : public CArray<CColor, CColor&>
{
public:
    CColorArray();
    ~CColorArray() override;

    // Appends the colour and returns its index; -1 and no change if a colour
    // of the same name (ignoring case) is there.
    INT_PTR Add(CColor color);
    // Inserts in the order of CompareStringA(name, other, true), after the
    // last element whose name does not sort after it; returns its index.
    INT_PTR AddSorted(CColor color);
    // Puts the colour in place of the one with the same name, keeping the
    // position, and returns that index; appends it if there is none.
    INT_PTR Replace(CColor color);
    // Index of the first colour whose name equals name ignoring case
    // (both upper-cased, then compared exactly); -1 if none.
    INT_PTR FindColor(const char* name) const;
    // Colour of the element FindColor finds; TW_NO_COLOR if none.
    COLORREF GetRGB(const char* name) const;
};

// The palette colour at index; any index outside 0..15, negative ones too,
// gives entry 0 (white).
TWSTDDLG_API COLORREF GetColor(int index);

// The first palette index 0..15 whose colour equals rgb exactly; -1 if none.
TWSTDDLG_API int GetColorIndex(COLORREF rgb);

// The palette index that an English colour word in the text stands for,
// 16 for "pen color" and "back color"; -1 if the text holds none.
// The text is upper-cased and searched for these keywords in this order, the
// first one found anywhere in it deciding: WHITE, YELLOW, LIGHTMAGENTA,
// ORANGE, LIGHTRED, LIGHTCYAN, DARKGREEN, LIGHTGREEN, DARKBLUE, LIGHTBLUE,
// DARKGRAY, LIGHTGRAY, DARKRED, BROWN, MAGENTA, RED, CYAN, GREEN, BLUE,
// BLACK, PEN COLOR, BACK COLOR.
// Deliberate: words the palette lacks fold onto neighbours (LIGHTMAGENTA to
// magenta, LIGHTRED to orange, LIGHTCYAN to cyan, BROWN to dark red) and
// "back color" gives 16 like "pen color", so GetColorString(17) does not
// come back as 17; hosts store these indices.
TWSTDDLG_API int GetColorIndex(const char* text);

// The name of palette entry index: upper-case English for 0..15, "pen color"
// for 16, "back color" for 17 and for any other index, negative ones too.
// The text is constant storage.
TWSTDDLG_API const char* GetColorString(int index);

// The German name of a colour ("schwarz", "weiß", "hellgrau", ...), or
// "undefiniert" for a colour that has none. Texts are code page 1252.
TWSTDDLG_API CString convertColorRef2Name(COLORREF rgb);

// The colour of an RGB_ name ("RGB_DARKGREEN") or of one of the German names
// "schwarz", "weiß", "grau", "gelb", "orange", "rot", "grün", "hellblau",
// compared whole and ignoring case; TW_UNKNOWN_COLOR_NAME (0x00FEFEFE, an
// ordinary near-white colour) for any other name.
// Deliberate: not the inverse of convertColorRef2Name. "grün" gives dark
// green 0x00008000 (which the other way is "dunkelgrün"), and the other
// German names it produces ("hellgrau", "dunkelrot", "braun", ...) are
// unknown here; stored names depend on exactly these results.
TWSTDDLG_API COLORREF convertRGBName2ColorRef(const char* name);
