#include "values/color.h"

#include "afxfile.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <string>
#include <vector>

#ifdef _WIN32
#include <windows.h>
#endif

namespace {

struct PaletteEntry
{
    int index;
    COLORREF rgb;
    const char* name;
};

constexpr PaletteEntry kPalette[] = {
    {0, 0x00FFFFFF, "WHITE"},      {1, 0x00C0C0C0, "LIGHTGRAY"},  {2, 0x00808080, "DARKGRAY"},
    {3, 0x00000000, "BLACK"},      {4, 0x0000FFFF, "YELLOW"},     {5, 0x000080FF, "ORANGE"},
    {6, 0x000000FF, "RED"},        {7, 0x00000080, "DARKRED"},    {8, 0x00FF00FF, "MAGENTA"},
    {9, 0x0080FF00, "LIGHTGREEN"}, {10, 0x0000FF00, "GREEN"},     {11, 0x00008000, "DARKGREEN"},
    {12, 0x00FFFF00, "CYAN"},      {13, 0x00FF8000, "LIGHTBLUE"}, {14, 0x00FF0000, "BLUE"},
    {15, 0x00800000, "DARKBLUE"},
};

struct KeywordEntry
{
    const char* word;
    int index;
};

// In the order in which GetColorIndex tries them.
constexpr KeywordEntry kKeywords[] = {
    {"WHITE", 0},      {"YELLOW", 4},     {"LIGHTMAGENTA", 8}, {"ORANGE", 5},      {"LIGHTRED", 5}, {"LIGHTCYAN", 12},
    {"DARKGREEN", 11}, {"LIGHTGREEN", 9}, {"DARKBLUE", 15},    {"LIGHTBLUE", 13},  {"DARKGRAY", 2}, {"LIGHTGRAY", 1},
    {"DARKRED", 7},    {"BROWN", 7},      {"MAGENTA", 8},      {"RED", 6},         {"CYAN", 12},    {"GREEN", 10},
    {"BLUE", 14},      {"BLACK", 3},      {"PEN COLOR", 16},   {"BACK COLOR", 16},
};

struct GermanEntry
{
    COLORREF rgb;
    const char* name;
    COLORREF back;  // what convertRGBName2ColorRef makes of the name
};

constexpr COLORREF kUnknown = 0x00FEFEFE;

constexpr GermanEntry kGerman[] = {
    {0x00000000, "schwarz", 0x00000000},
    {0x00FFFFFF, "weiß", 0x00FFFFFF},
    {0x00F0F0F0, "hellstes grau", kUnknown},
    {0x00D8D8D8, "helleres grau", kUnknown},
    {0x00C0C0C0, "hellgrau", kUnknown},
    {0x00808080, "grau", 0x00808080},
    {0x0000FFFF, "gelb", 0x0000FFFF},
    {0x000080FF, "orange", 0x000080FF},
    {0x000000FF, "rot", 0x000000FF},
    {0x00000080, "dunkelrot", kUnknown},
    {0x00FF00FF, "magenta", kUnknown},
    {0x0080FF00, "hellgrün", kUnknown},
    {0x0000FF00, "grün", 0x00008000},
    {0x00008000, "dunkelgrün", kUnknown},
    {0x00FFFF00, "cyan", kUnknown},
    {0x00808000, "dunkelcyan", kUnknown},
    {0x00505000, "dunkelstes cyan", kUnknown},
    {0x00FF8000, "hellblau", 0x00FF8000},
    {0x00FF0000, "blau", kUnknown},
    {0x00800000, "dunkelblau", kUnknown},
    {0x0080FFFF, "hellgelb", kUnknown},
    {0x008080FF, "hellrot", kUnknown},
    {0x002D52A0, "braun", kUnknown},
    {0x00500050, "purpur", kUnknown},
    {0x0000D7FF, "gold", kUnknown},
};

struct RgbEntry
{
    const char* name;
    COLORREF rgb;
    const char* german;  // what convertColorRef2Name calls the colour
};

constexpr RgbEntry kRgbNames[] = {
    {"RGB_BLACK", 0x00000000, "schwarz"},
    {"RGB_WHITE", 0x00FFFFFF, "weiß"},
    {"RGB_LIGHTESTGRAY", 0x00F0F0F0, "hellstes grau"},
    {"RGB_LIGHTERGRAY", 0x00D8D8D8, "helleres grau"},
    {"RGB_LIGHTGRAY", 0x00C0C0C0, "hellgrau"},
    {"RGB_DARKGRAY", 0x00808080, "grau"},
    {"RGB_YELLOW", 0x0000FFFF, "gelb"},
    {"RGB_ORANGE", 0x000080FF, "orange"},
    {"RGB_RED", 0x000000FF, "rot"},
    {"RGB_DARKRED", 0x00000080, "dunkelrot"},
    {"RGB_MAGENTA", 0x00FF00FF, "magenta"},
    {"RGB_LIGHTGREEN", 0x0080FF00, "hellgrün"},
    {"RGB_GREEN", 0x0000FF00, "grün"},
    {"RGB_DARKGREEN", 0x00008000, "dunkelgrün"},
    {"RGB_CYAN", 0x00FFFF00, "cyan"},
    {"RGB_DARKCYAN", 0x00808000, "dunkelcyan"},
    {"RGB_DARKESTCYAN", 0x00505000, "dunkelstes cyan"},
    {"RGB_LIGHTBLUE", 0x00FF8000, "hellblau"},
    {"RGB_BLUE", 0x00FF0000, "blau"},
    {"RGB_DARKBLUE", 0x00800000, "dunkelblau"},
    {"RGB_LIGHTYELLOW", 0x0080FFFF, "hellgelb"},
    {"RGB_LIGHTRED", 0x008080FF, "hellrot"},
    {"RGB_SIENNA", 0x002D52A0, "braun"},
    {"RGB_PURPLE", 0x00500050, "purpur"},
    {"RGB_SILVER", 0x00C0C0C0, "hellgrau"},
    {"RGB_GOLD", 0x0000D7FF, "gold"},
};

CColor MakeColor(const char* name, COLORREF rgb, int flag = 0)
{
    CColor c;
    c.Set(name, rgb, flag);
    return c;
}

std::vector<std::string> Names(const CColorArray& a)
{
    std::vector<std::string> v;
    for (INT_PTR i = 0; i < a.GetSize(); ++i)
        v.emplace_back(a[i].GetName().GetString());
    return v;
}

std::vector<int> Flags(const CColorArray& a)
{
    std::vector<int> v;
    for (INT_PTR i = 0; i < a.GetSize(); ++i)
        v.push_back(a[i].GetFlag());
    return v;
}

// The archive exception's cause, or -1 if f throws none.
template <class F>
int ArchiveCause(F f)
{
    try {
        f();
    } catch (CException* e) {
        int cause = -2;
        if (auto* ae = DYNAMIC_DOWNCAST(CArchiveException, e))
            cause = ae->m_cause;
        e->Delete();
        return cause;
    }
    return -1;
}

}  // namespace

TEST(ColorPalette, EveryEntryHasItsColourAndNameBothWays)
{
    for (const auto& e : kPalette) {
        EXPECT_EQ(GetColor(e.index), e.rgb) << e.index;
        EXPECT_STREQ(GetColorString(e.index), e.name) << e.index;
        EXPECT_EQ(GetColorIndex(e.rgb), e.index) << e.name;
        EXPECT_EQ(GetColorIndex(e.name), e.index) << e.name;
    }
    EXPECT_STREQ(GetColorString(16), "pen color");
    EXPECT_STREQ(GetColorString(17), "back color");
}

TEST(ColorPalette, IndicesOutsideTheTablesAreClampedToWhiteAndBackColor)
{
    const int outside[] = {-1, INT_MIN, INT_MAX, 16, 17, 18, 1000};
    for (int i : outside)
        EXPECT_EQ(GetColor(i), 0x00FFFFFFu) << i;
    const int outsideNames[] = {-1, -17, INT_MIN, INT_MAX, 18, 1000};
    for (int i : outsideNames)
        EXPECT_STREQ(GetColorString(i), "back color") << i;
    EXPECT_EQ(GetColorString(-1), GetColorString(17)) << "the same constant text";
}

TEST(ColorPalette, ColourIndexNeedsAnExactPaletteValue)
{
    const COLORREF others[] = {0x002D52A0, 0x00FEFEFE, 0xFFFFFFFF, 0x01FFFFFF, 0x01000000, 0x00C0C0C1, 0x00F0F0F0};
    for (COLORREF c : others)
        EXPECT_EQ(GetColorIndex(c), -1) << std::hex << c;
    EXPECT_EQ(GetColorIndex(COLORREF(0x00C0C0C0)), 1);
}

TEST(ColorKeywords, EachKeywordAloneGivesItsIndexInAnyCase)
{
    for (const auto& k : kKeywords) {
        EXPECT_EQ(GetColorIndex(k.word), k.index) << k.word;
        CString lower(k.word);
        lower.MakeLower();
        EXPECT_EQ(GetColorIndex(lower), k.index) << k.word;
        EXPECT_EQ(GetColorIndex(CString("Farbe: ") + k.word + " (Rand)"), k.index) << k.word;
    }
}

TEST(ColorKeywords, TheEarlierKeywordInTheOrderDecidesWhereverItStands)
{
    const int n = static_cast<int>(std::size(kKeywords));
    for (int first = 0; first < n; ++first) {
        for (int later = first + 1; later < n; ++later) {
            const CString text = CString(kKeywords[later].word) + "+" + kKeywords[first].word;
            EXPECT_EQ(GetColorIndex(text), kKeywords[first].index) << text.GetString();
        }
    }
}

TEST(ColorKeywords, FoldedNamesBlanksAndTextsWithoutAKeyword)
{
    struct
    {
        const char* text;
        int index;
    } cases[] = {
        {"back color", 16},                   // Deliberate: not 17
        {"Pen Color", 16},  {"Dark Red", 6},  // the blank hides DARKRED, RED remains
        {"lightred", 5},    {"LightMagenta", 8}, {"lightcyan", 12}, {"brown", 7}, {"BLUEBLACK", 14}, {"blackwhite", 0},
        {"dark-green", 10}, {"backcolor", -1},   {"grau", -1},      {"GRAY", -1}, {"weiß", -1},      {"", -1},
        {nullptr, -1},
    };
    for (const auto& c : cases)
        EXPECT_EQ(GetColorIndex(c.text), c.index) << (c.text ? c.text : "(null)");
    EXPECT_EQ(GetColorIndex(GetColorString(17)), 16) << "entry 17 comes back as 16";
}

TEST(ColorKeywords, LongTextIsSearchedWhole)
{
    CString text('x', 100000);
    EXPECT_EQ(GetColorIndex(text), -1);
    text += "cyan";
    EXPECT_EQ(GetColorIndex(text), 12);
}

TEST(ColorNames, EveryGermanNameBothWays)
{
    for (const auto& g : kGerman) {
        EXPECT_STREQ(convertColorRef2Name(g.rgb).GetString(), g.name) << std::hex << g.rgb;
        EXPECT_EQ(convertRGBName2ColorRef(g.name), g.back) << g.name;
    }
}

TEST(ColorNames, EveryRgbNameInAnyCaseAndTheGermanNameOfItsColour)
{
    for (const auto& r : kRgbNames) {
        EXPECT_EQ(convertRGBName2ColorRef(r.name), r.rgb) << r.name;
        CString lower(r.name);
        lower.MakeLower();
        EXPECT_EQ(convertRGBName2ColorRef(lower), r.rgb) << r.name;
        EXPECT_STREQ(convertColorRef2Name(r.rgb).GetString(), r.german) << r.name;
    }
}

TEST(ColorNames, GermanNamesAreCodePage1252Bytes)
{
    const CString weiss = convertColorRef2Name(0x00FFFFFF);
    ASSERT_EQ(weiss.GetLength(), 4);
    EXPECT_EQ(static_cast<unsigned char>(weiss[3]), 0xDF);
    const CString gruen = convertColorRef2Name(0x0000FF00);
    ASSERT_EQ(gruen.GetLength(), 4);
    EXPECT_EQ(static_cast<unsigned char>(gruen[2]), 0xFC);
    EXPECT_EQ(convertRGBName2ColorRef("GR\xDCN"), 0x00008000u) << "umlaut case folds too";
    EXPECT_EQ(convertRGBName2ColorRef("WEI\xDF"), 0x00FFFFFFu);
}

TEST(ColorNames, GreenIsDarkGreenOnTheWayBack)
{
    EXPECT_EQ(convertRGBName2ColorRef("grün"), 0x00008000u);
    EXPECT_STREQ(convertColorRef2Name(convertRGBName2ColorRef("grün")).GetString(), "dunkelgrün");
    EXPECT_EQ(convertRGBName2ColorRef(convertColorRef2Name(0x0000FF00)), 0x00008000u);
}

TEST(ColorNames, UnknownColoursAndNames)
{
    const COLORREF colours[] = {0x00FEFEFE, 0xFFFFFFFF, 0x01000000, 0x00010101, 0x002D52A1};
    for (COLORREF c : colours)
        EXPECT_STREQ(convertColorRef2Name(c).GetString(), "undefiniert") << std::hex << c;
    const char* names[] = {"RGB_BROWN", "RGB_",  "RGB_RED ",    " RGB_RED", "RGB RED", "red",
                           "weiss",     "gruen", "undefiniert", "",         nullptr};
    for (const char* n : names)
        EXPECT_EQ(convertRGBName2ColorRef(n), 0x00FEFEFEu) << (n ? n : "(null)");
    EXPECT_EQ(TW_UNKNOWN_COLOR_NAME, 0x00FEFEFEu);
}

TEST(CColor, DefaultIsUnnamedWithoutColour)
{
    const CColor c;
    EXPECT_TRUE(c.GetName().IsEmpty());
    EXPECT_EQ(c.GetFlag(), 0);
    EXPECT_EQ(c.GetRGB(), 0xFFFFFFFFu);
    EXPECT_EQ(c.GetRGB(), TW_NO_COLOR);
}

TEST(CColor, SetWritesAllFieldsAndCopiesCarryThemIndependently)
{
    CColor a;
    a.Set("Rahmen", 0x00123456, 7);
    EXPECT_STREQ(a.GetName().GetString(), "Rahmen");
    EXPECT_EQ(a.GetRGB(), 0x00123456u);
    EXPECT_EQ(a.GetFlag(), 7);

    CColor b(a);
    CColor c;
    c = a;
    a.SetName("Anders");
    a.SetRGB(1);
    a.SetFlag(-3);
    for (const CColor* copy : {&b, &c}) {
        EXPECT_STREQ(copy->GetName().GetString(), "Rahmen");
        EXPECT_EQ(copy->GetRGB(), 0x00123456u);
        EXPECT_EQ(copy->GetFlag(), 7);
    }
    EXPECT_EQ(a.GetFlag(), -3);

    CColor& self = c;
    c = self;
    EXPECT_STREQ(c.GetName().GetString(), "Rahmen");
}

TEST(CColorArray, AddRefusesANameThatIsThereIgnoringCase)
{
    CColorArray a;
    struct
    {
        const char* name;
        INT_PTR index;
    } steps[] = {
        {"ROT", 0},  {"Rot", -1}, {"rot", -1},  {"Grün", 1}, {"GRÜN", -1},  {"grün", -1},
        {"Rot ", 2}, {"weiß", 3}, {"WEISS", 4}, {"", 5},     {nullptr, -1},
    };
    for (const auto& s : steps)
        EXPECT_EQ(a.Add(MakeColor(s.name, 0x00000001, 9)), s.index) << (s.name ? s.name : "(null)");
    EXPECT_EQ(Names(a), (std::vector<std::string>{"ROT", "Grün", "Rot ", "weiß", "WEISS", ""}));
    EXPECT_EQ(a[0].GetRGB(), 0x00000001u);
}

TEST(CColorArray, RefusedAddLeavesTheElementUnchanged)
{
    CColorArray a;
    a.Add(MakeColor("ROT", 0x000000FF, 1));
    EXPECT_EQ(a.Add(MakeColor("Rot", 0x00000080, 2)), -1);
    ASSERT_EQ(a.GetSize(), 1);
    EXPECT_STREQ(a[0].GetName().GetString(), "ROT");
    EXPECT_EQ(a[0].GetRGB(), 0x000000FFu);
    EXPECT_EQ(a[0].GetFlag(), 1);
}

TEST(CColorArray, ReplaceKeepsThePositionAndTakesTheNewValues)
{
    CColorArray a;
    a.Add(MakeColor("Blau", 0x00FF0000, 1));
    a.Add(MakeColor("ROT", 0x000000FF, 2));
    a.Add(MakeColor("Gelb", 0x0000FFFF, 3));
    EXPECT_EQ(a.Replace(MakeColor("Rot", 0x00000080, 20)), 1);
    ASSERT_EQ(a.GetSize(), 3);
    EXPECT_STREQ(a[1].GetName().GetString(), "Rot");
    EXPECT_EQ(a[1].GetRGB(), 0x00000080u);
    EXPECT_EQ(a[1].GetFlag(), 20);
    EXPECT_EQ(Names(a), (std::vector<std::string>{"Blau", "Rot", "Gelb"}));

    EXPECT_EQ(a.Replace(MakeColor("Grün", 0x0000FF00, 4)), 3);
    EXPECT_EQ(Names(a), (std::vector<std::string>{"Blau", "Rot", "Gelb", "Grün"}));
}

TEST(CColorArray, FindColorAndGetRGBCompareWholeNamesIgnoringCase)
{
    CColorArray a;
    EXPECT_EQ(a.FindColor("rot"), -1);
    EXPECT_EQ(a.GetRGB("rot"), 0xFFFFFFFFu);
    a.AddSorted(MakeColor("Linie", 0x00000010));
    a.AddSorted(MakeColor("ROT", 0x00000020));
    a.AddSorted(MakeColor("rot", 0x00000030));
    struct
    {
        const char* name;
        INT_PTR index;
        COLORREF rgb;
    } cases[] = {
        {"rot", 1, 0x00000020},   {"Rot", 1, 0x00000020}, {"LINIE", 0, 0x00000010},  {"RO", -1, 0xFFFFFFFF},
        {"rot ", -1, 0xFFFFFFFF}, {"", -1, 0xFFFFFFFF},   {nullptr, -1, 0xFFFFFFFF},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(a.FindColor(c.name), c.index) << (c.name ? c.name : "(null)");
        EXPECT_EQ(a.GetRGB(c.name), c.rgb) << (c.name ? c.name : "(null)");
    }
}

TEST(CColorArray, AddSortedInsertsInNameOrderWithoutDuplicateCheck)
{
    CColorArray a;
    struct
    {
        const char* name;
        INT_PTR index;
    } steps[] = {
        {"mitte", 0}, {"zeile", 1}, {"anfang", 0}, {"nase", 2}, {"zeile", 4}, {"aal", 0},
    };
    for (const auto& s : steps)
        EXPECT_EQ(a.AddSorted(MakeColor(s.name, 0)), s.index) << s.name;
    EXPECT_EQ(Names(a), (std::vector<std::string>{"aal", "anfang", "mitte", "nase", "zeile", "zeile"}));
}

TEST(CColorArray, AddSortedPutsAnEqualNameAfterTheLastEqualOne)
{
    CColorArray a;
    a.AddSorted(MakeColor("b", 0, 1));
    a.AddSorted(MakeColor("a", 0, 2));
    a.AddSorted(MakeColor("c", 0, 3));
    EXPECT_EQ(a.AddSorted(MakeColor("b", 0, 4)), 2);
    EXPECT_EQ(a.AddSorted(MakeColor("b", 0, 5)), 3);
    EXPECT_EQ(a.AddSorted(MakeColor("a", 0, 6)), 1);
    EXPECT_EQ(Flags(a), (std::vector<int>{2, 6, 1, 4, 5, 3}));
    EXPECT_EQ(a.Add(MakeColor("B", 0)), -1) << "Add still refuses it";
}

TEST(CColorArray, AddSortedScansFromTheEndOfAnUnorderedArray)
{
    CColorArray a;
    CArray<CColor, CColor&>& plain = a;
    for (const char* n : {"c", "z", "a"}) {
        CColor c = MakeColor(n, 0);
        plain.Add(c);
    }
    EXPECT_EQ(a.AddSorted(MakeColor("b", 0)), 3) << "not smaller than the last: appended";

    a.RemoveAll();
    for (const char* n : {"z", "z", "z", "a", "z"}) {
        CColor c = MakeColor(n, 0);
        plain.Add(c);
    }
    EXPECT_EQ(a.AddSorted(MakeColor("b", 0)), 4) << "after the last element it does not precede";
    EXPECT_EQ(Names(a), (std::vector<std::string>{"z", "z", "z", "a", "b", "z"}));
}

TEST(CColorArray, ArchiveKeepsTheCountButNotTheNames)
{
    CColorArray a;
    a.Add(MakeColor("Rot", 0x000000FF, 1));
    a.Add(MakeColor("Blau", 0x00FF0000, 2));
    CMemFile file;
    {
        CArchive ar(&file, CArchive::store);
        a.Serialize(ar);
    }
    EXPECT_EQ(file.GetLength(), 2u + 2u * sizeof(CColor)) << "count word and raw images";

    file.SeekToBegin();
    CColorArray b;
    b.Add(MakeColor("alt", 0));
    {
        CArchive ar(&file, CArchive::load);
        b.Serialize(ar);
    }
    ASSERT_EQ(b.GetSize(), 2);
    for (INT_PTR i = 0; i < 2; ++i) {
        EXPECT_TRUE(b[i].GetName().IsEmpty());
        EXPECT_EQ(b[i].GetRGB(), TW_NO_COLOR);
    }

    file.SetLength(file.GetLength() - 1);
    file.SeekToBegin();
    CColorArray c;
    EXPECT_EQ(ArchiveCause([&] {
                  CArchive ar(&file, CArchive::load);
                  c.Serialize(ar);
              }),
              CArchiveException::endOfFile);
}

TEST(CColorArray, ElementAccessOutsideRaisesInvalidArgument)
{
    CColorArray a;
    a.Add(MakeColor("Rot", 0));
    for (INT_PTR i : {INT_PTR(-1), INT_PTR(1), INT_PTR(100)}) {
        bool invalid = false;
        try {
            a.GetAt(i);
        } catch (CException* e) {
            invalid = e->IsKindOf(RUNTIME_CLASS(CInvalidArgException)) != FALSE;
            e->Delete();
        }
        EXPECT_TRUE(invalid) << i;
    }
}

#ifdef _WIN32

namespace {

HMODULE ModuleOf(const void* address)
{
    HMODULE module = NULL;
    GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       static_cast<LPCSTR>(address), &module);
    return module;
}

// The code address of a non-virtual member function (Itanium ABI, as
// mingw-w64 uses it: the first word of the member pointer).
template <class PMF>
const void* CodeOf(PMF pmf)
{
    const void* code = nullptr;
    std::memcpy(&code, &pmf, sizeof(code));
    return code;
}

}  // namespace

TEST(ColorAcrossTheLibrary, HostUsesTheLibrarysArrayInstantiation)
{
    const HMODULE library = GetModuleHandleA("twstddlg.dll");
    ASSERT_NE(library, nullptr);
    using Colors = CArray<CColor, CColor&>;
    using InsertOne = void (Colors::*)(INT_PTR, CColor&, INT_PTR);
    EXPECT_EQ(ModuleOf(CodeOf(&Colors::SetSize)), library);
    EXPECT_EQ(ModuleOf(CodeOf(&Colors::SetAtGrow)), library);
    EXPECT_EQ(ModuleOf(CodeOf(static_cast<InsertOne>(&Colors::InsertAt))), library);
    EXPECT_EQ(ModuleOf(CodeOf(&CColorArray::AddSorted)), library);
}

TEST(ColorAcrossTheLibrary, PaletteNamesAreConstantsOfTheLibrary)
{
    const HMODULE library = GetModuleHandleA("twstddlg.dll");
    for (int i = 0; i < TW_PALETTE_NAMES; ++i)
        EXPECT_EQ(ModuleOf(GetColorString(i)), library) << i;
}

TEST(ColorAcrossTheLibrary, HostArrayGrowsAndShrinksThroughExportedMembers)
{
    CColorArray a;
    CArray<CColor, CColor&>& plain = a;
    for (int i = 0; i < 2000; ++i) {
        CString name;
        name.Format("Farbe %04d", i);
        ASSERT_EQ(a.Add(MakeColor(name, static_cast<COLORREF>(i), i)), i);
    }
    plain.SetSize(1500);
    plain.FreeExtra();
    CColor extra = MakeColor("Farbe 0007", 7, 7);
    plain.InsertAt(0, extra, 3);
    ASSERT_EQ(a.GetSize(), 1503);
    EXPECT_EQ(a.FindColor("FARBE 0007"), 0);
    EXPECT_EQ(a.GetRGB("farbe 1499"), 1499u);
    EXPECT_EQ(a[1502].GetFlag(), 1499);
    EXPECT_EQ(a.FindColor("Farbe 1500"), -1);
}

#endif
