#include "values/color.h"
#include "picture/picture_tag_array.h"
#include "values/string_arrays.h"
#include "values/symbol.h"

#include <gtest/gtest.h>

#include <algorithm>
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
};

constexpr RgbEntry kRgbNames[] = {
    {"RGB_BLACK", 0x00000000},       {"RGB_WHITE", 0x00FFFFFF},       {"RGB_LIGHTESTGRAY", 0x00F0F0F0},
    {"RGB_LIGHTERGRAY", 0x00D8D8D8}, {"RGB_LIGHTGRAY", 0x00C0C0C0},   {"RGB_DARKGRAY", 0x00808080},
    {"RGB_YELLOW", 0x0000FFFF},      {"RGB_ORANGE", 0x000080FF},      {"RGB_RED", 0x000000FF},
    {"RGB_DARKRED", 0x00000080},     {"RGB_MAGENTA", 0x00FF00FF},     {"RGB_LIGHTGREEN", 0x0080FF00},
    {"RGB_GREEN", 0x0000FF00},       {"RGB_DARKGREEN", 0x00008000},   {"RGB_CYAN", 0x00FFFF00},
    {"RGB_DARKCYAN", 0x00808000},    {"RGB_DARKESTCYAN", 0x00505000}, {"RGB_LIGHTBLUE", 0x00FF8000},
    {"RGB_BLUE", 0x00FF0000},        {"RGB_DARKBLUE", 0x00800000},    {"RGB_LIGHTYELLOW", 0x0080FFFF},
    {"RGB_LIGHTRED", 0x008080FF},    {"RGB_SIENNA", 0x002D52A0},      {"RGB_PURPLE", 0x00500050},
    {"RGB_SILVER", 0x00C0C0C0},      {"RGB_GOLD", 0x0000D7FF},
};

CColor MakeColor(const char* name, COLORREF rgb, int flag = 0)
{
    CColor c;
    c.Set(name, rgb, flag);
    return c;
}

CSymbol MakeSymbol(const char* name, unsigned int ziel)
{
    CSymbol s;
    s.Set(name, "", ziel);
    return s;
}

CPictureTag MakeTag(const char* caption, int x)
{
    CPictureTag tag;
    tag.InitTagForm(TAG_TEXT);
    tag.SetPosition(CPoint(x, x));
    tag.SetText(caption);
    return tag;
}

// How the tests reach one array of named values: its adding operations, its
// look-up, the name at an index and, where elements carry one, a number that
// tells elements of equal names apart. AddUnchecked adds through the
// framework's base class, as a host may, so the array can be out of order.
template <class A>
struct Named;

template <>
struct Named<CColorArray>
{
    static constexpr bool kSortedAdmitsEqual = true;
    static INT_PTR Add(CColorArray& a, const char* name, int id = 0) { return a.Add(MakeColor(name, 0, id)); }
    static INT_PTR AddSorted(CColorArray& a, const char* name, int id = 0)
    {
        return a.AddSorted(MakeColor(name, 0, id));
    }
    static void AddUnchecked(CColorArray& a, const char* name)
    {
        CColor c = MakeColor(name, 0);
        static_cast<CArray<CColor, CColor&>&>(a).Add(c);
    }
    static INT_PTR Find(CColorArray& a, const char* name) { return a.FindColor(name); }
    static CString Name(CColorArray& a, INT_PTR i) { return a[i].GetName(); }
    static int Id(CColorArray& a, INT_PTR i) { return a[i].GetFlag(); }
};

template <>
struct Named<CSymbolArray>
{
    static constexpr bool kSortedAdmitsEqual = true;
    static INT_PTR Add(CSymbolArray& a, const char* name, int id = 0) { return a.Add(MakeSymbol(name, id)); }
    static INT_PTR AddSorted(CSymbolArray& a, const char* name, int id = 0)
    {
        return a.AddSorted(MakeSymbol(name, id));
    }
    static void AddUnchecked(CSymbolArray& a, const char* name)
    {
        CSymbol s = MakeSymbol(name, 0);
        static_cast<CArray<CSymbol, CSymbol&>&>(a).Add(s);
    }
    static INT_PTR Find(CSymbolArray& a, const char* name) { return a.FindName(name); }
    static CString Name(CSymbolArray& a, INT_PTR i) { return a[i].Name(); }
    static int Id(CSymbolArray& a, INT_PTR i) { return static_cast<int>(a[i].Ziel()); }
};

// A tag array refuses a taken caption on every sorted insertion.
template <>
struct Named<CPictureTagArray>
{
    static constexpr bool kSortedAdmitsEqual = false;
    static INT_PTR Add(CPictureTagArray& a, const char* name, int id = 0) { return a.AddSorted(MakeTag(name, id)); }
    static INT_PTR AddSorted(CPictureTagArray& a, const char* name, int id = 0) { return Add(a, name, id); }
    static void AddUnchecked(CPictureTagArray& a, const char* name)
    {
        CPictureTag tag = MakeTag(name, 0);
        static_cast<CArray<CPictureTag, CPictureTag&>&>(a).Add(tag);
    }
    static INT_PTR Find(CPictureTagArray& a, const char* name) { return a.Find(name); }
    static CString Name(CPictureTagArray& a, INT_PTR i) { return a[i].GetText(); }
};

template <>
struct Named<CUniqueSortedStringArray>
{
    static constexpr bool kSortedAdmitsEqual = false;
    static INT_PTR Add(CUniqueSortedStringArray& a, const char* name, int = 0) { return a.Add(name); }
    static INT_PTR AddSorted(CUniqueSortedStringArray& a, const char* name, int = 0) { return a.AddSorted(name); }
    static void AddUnchecked(CUniqueSortedStringArray& a, const char* name) { a.CStringArray::Add(name); }
    static INT_PTR Find(CUniqueSortedStringArray& a, const char* name) { return a.Find(name); }
    static CString Name(CUniqueSortedStringArray& a, INT_PTR i) { return a[i]; }
};

template <>
struct Named<CUniqueStringArray>
{
    static INT_PTR Add(CUniqueStringArray& a, const char* name, int = 0) { return a.Add(name); }
    static INT_PTR Find(CUniqueStringArray& a, const char* name) { return a.Find(name); }
    static CString Name(CUniqueStringArray& a, INT_PTR i) { return a[i]; }
};

template <>
struct Named<CUniqueStringArrayCheck>
{
    static INT_PTR Add(CUniqueStringArrayCheck& a, const char* name, int id = 0) { return a.Add(name, id); }
    static INT_PTR Find(CUniqueStringArrayCheck& a, const char* name) { return a.Find(name); }
    static CString Name(CUniqueStringArrayCheck& a, INT_PTR i) { return a[i].text; }
};

template <class A>
std::vector<std::string> Names(A& a)
{
    std::vector<std::string> v;
    for (INT_PTR i = 0; i < a.GetSize(); ++i)
        v.emplace_back(Named<A>::Name(a, i).GetString());
    return v;
}

const char* Shown(const char* text)
{
    return text != nullptr ? text : "(null)";
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

TEST(ColorKeywords, TheEarlierKeywordInTheOrderDecidesWhereverItStandsInAnyCase)
{
    const int n = static_cast<int>(std::size(kKeywords));
    for (int first = 0; first < n; ++first) {
        CString lower(kKeywords[first].word);
        lower.MakeLower();
        EXPECT_EQ(GetColorIndex(CString("Farbe: ") + lower + " (Rand)"), kKeywords[first].index) << lower.GetString();
        for (int later = first + 1; later < n; ++later) {
            const CString text = CString(kKeywords[later].word) + "+" + lower;
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

TEST(ColorNames, EveryRgbNameInAnyCase)
{
    for (const auto& r : kRgbNames) {
        EXPECT_EQ(convertRGBName2ColorRef(r.name), r.rgb) << r.name;
        CString lower(r.name);
        lower.MakeLower();
        EXPECT_EQ(convertRGBName2ColorRef(lower), r.rgb) << r.name;
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

TEST(ColorNames, UnknownColoursAndNames)
{
    const COLORREF colours[] = {0x00FEFEFE, 0xFFFFFFFF, 0x01000000, 0x00010101, 0x002D52A1};
    for (COLORREF c : colours)
        EXPECT_STREQ(convertColorRef2Name(c).GetString(), "undefiniert") << std::hex << c;
    const char* names[] = {"RGB_BROWN", "RGB_",  "RGB_RED ",    " RGB_RED", "RGB RED", "red",
                           "weiss",     "gruen", "undefiniert", "",         nullptr};
    for (const char* n : names)
        EXPECT_EQ(convertRGBName2ColorRef(n), 0x00FEFEFEu) << (n ? n : "(null)");
}

TEST(CColorArray, ReplaceKeepsThePositionAndTakesTheNewColourAndFlag)
{
    CColorArray a;
    a.Add(MakeColor("Blau", 0x00FF0000, 1));
    a.Add(MakeColor("ROT", 0x000000FF, 2));
    a.Add(MakeColor("Gelb", 0x0000FFFF, 3));
    EXPECT_EQ(a.Replace(MakeColor("Rot", 0x00000080, 20)), 1);
    EXPECT_EQ(Names(a), (std::vector<std::string>{"Blau", "Rot", "Gelb"}));
    EXPECT_EQ(a[1].GetRGB(), 0x00000080u);
    EXPECT_EQ(a[1].GetFlag(), 20);
    EXPECT_EQ(a.Replace(MakeColor("Grün", 0x0000FF00, 4)), 3) << "a new name is appended";
}

TEST(CColorArray, UnknownNameHasNoColourLikeADefaultColour)
{
    CColorArray a;
    EXPECT_EQ(a.GetRGB("rot"), 0xFFFFFFFFu);
    a.Add(MakeColor("ROT", 0x000000FF));
    EXPECT_EQ(a.GetRGB("rot"), 0x000000FFu);
    EXPECT_EQ(a.GetRGB("rot "), 0xFFFFFFFFu);
    EXPECT_EQ(CColor().GetRGB(), 0xFFFFFFFFu);
}

// ---- the rules every array of named values shares ---------------------------

template <class A>
class NamedArrayUnique : public ::testing::Test
{};
using UniqueArrays = ::testing::Types<CColorArray, CSymbolArray, CPictureTagArray, CUniqueStringArray,
                                      CUniqueSortedStringArray, CUniqueStringArrayCheck>;
TYPED_TEST_SUITE(NamedArrayUnique, UniqueArrays);

TYPED_TEST(NamedArrayUnique, AddRefusesANameThatIsThereIgnoringCaseAndKeepsTheFirst)
{
    using Ops = Named<TypeParam>;
    // Case folds in code page 1252: Ü and ü are one letter; ß has no capital of its own.
    struct
    {
        const char* name;
        bool added;
    } steps[] = {
        {"ROT", true},  {"Rot", false},  {"rot", false},  {"Grün", true}, {"GRÜN", false},  {"Rot ", true},
        {"weiß", true}, {"WEISS", true}, {"WEIß", false}, {"", true},     {nullptr, false},
    };
    TypeParam a;
    std::vector<std::string> added;
    for (const auto& s : steps) {
        const INT_PTR index = Ops::Add(a, s.name, 7);
        if (s.added) {
            ASSERT_GE(index, 0) << Shown(s.name);
            EXPECT_STREQ(Ops::Name(a, index), s.name);
            added.emplace_back(s.name);
        } else {
            EXPECT_EQ(index, -1) << Shown(s.name);
        }
    }
    ASSERT_EQ(a.GetSize(), static_cast<INT_PTR>(added.size()));
    std::vector<std::string> held = Names(a);
    std::sort(held.begin(), held.end());
    std::sort(added.begin(), added.end());
    EXPECT_EQ(held, added) << "refused names change nothing";
}

TYPED_TEST(NamedArrayUnique, LookUpComparesWholeNamesIgnoringCase)
{
    using Ops = Named<TypeParam>;
    TypeParam a;
    EXPECT_EQ(Ops::Find(a, "linie"), -1);
    Ops::Add(a, "Linie");
    Ops::Add(a, "Größe");
    const INT_PTR linie = Ops::Find(a, "Linie");
    const INT_PTR groesse = Ops::Find(a, "Größe");
    ASSERT_NE(linie, groesse);
    struct
    {
        const char* name;
        INT_PTR index;
    } cases[] = {
        {"LINIE", linie}, {"linie", linie}, {"GRÖßE", groesse}, {"größe", groesse}, {"GRÖSSE", -1},
        {"Lini", -1},     {"Linie ", -1},   {"", -1},           {nullptr, -1},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Ops::Find(a, c.name), c.index) << Shown(c.name);
}

template <class A>
class NamedArraySorted : public ::testing::Test
{};
using SortedArrays = ::testing::Types<CColorArray, CSymbolArray, CPictureTagArray, CUniqueSortedStringArray>;
TYPED_TEST_SUITE(NamedArraySorted, SortedArrays);

TYPED_TEST(NamedArraySorted, AddSortedInsertsInCompareStringAOrder)
{
    using Ops = Named<TypeParam>;
    struct
    {
        const char* name;
        INT_PTR index;
    } steps[] = {
        {"Zebra", 0}, {"Apfel", 0}, {"Maus", 1}, {"apfelbaum", 1}, {"Bild 10", 2}, {"Bild 9", 2}, {"Zz", 6}, {"a", 0},
    };
    TypeParam a;
    for (const auto& s : steps)
        EXPECT_EQ(Ops::AddSorted(a, s.name), s.index) << s.name;
    EXPECT_EQ(Names(a),
              (std::vector<std::string>{"a", "Apfel", "apfelbaum", "Bild 9", "Bild 10", "Maus", "Zebra", "Zz"}));
}

TYPED_TEST(NamedArraySorted, PlaceIsFoundScanningFromTheEnd)
{
    using Ops = Named<TypeParam>;
    TypeParam a;
    for (const char* n : {"z1", "z2", "z3", "a", "z4"})
        Ops::AddUnchecked(a, n);
    EXPECT_EQ(Ops::AddSorted(a, "b"), 4) << "after the last element it does not sort before";
    EXPECT_EQ(Names(a), (std::vector<std::string>{"z1", "z2", "z3", "a", "b", "z4"}));
    EXPECT_EQ(Ops::AddSorted(a, "zz"), 6) << "not smaller than the last: appended";
    EXPECT_EQ(Ops::AddSorted(a, "0"), 0);
}

TYPED_TEST(NamedArraySorted, AnEqualNameGoesAfterTheLastEqualOneOrIsRefused)
{
    using Ops = Named<TypeParam>;
    TypeParam a;
    for (const char* n : {"m", "c", "x"})
        Ops::AddSorted(a, n, 1);
    if constexpr (Ops::kSortedAdmitsEqual) {
        struct
        {
            const char* name;
            int id;
            INT_PTR index;
        } steps[] = {{"m", 4, 2}, {"m", 5, 3}, {"a", 6, 0}, {"c", 7, 2}};
        for (const auto& s : steps)
            EXPECT_EQ(Ops::AddSorted(a, s.name, s.id), s.index) << s.name << s.id;
        EXPECT_EQ(Names(a), (std::vector<std::string>{"a", "c", "c", "m", "m", "m", "x"}));
        std::vector<int> ids;
        for (INT_PTR i = 0; i < a.GetSize(); ++i)
            ids.push_back(Ops::Id(a, i));
        EXPECT_EQ(ids, (std::vector<int>{6, 1, 7, 1, 4, 5, 1}));
        EXPECT_EQ(Ops::Add(a, "M"), -1) << "Add refuses what AddSorted admits";
    } else {
        EXPECT_EQ(Ops::AddSorted(a, "m"), -1);
        EXPECT_EQ(Ops::AddSorted(a, "X"), -1);
        EXPECT_EQ(Names(a), (std::vector<std::string>{"c", "m", "x"}));
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
