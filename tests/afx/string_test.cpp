#include "afxstr.h"

#include "afxdebug.h"
#include "afxexcept.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdio>
#include <cstring>
#include <functional>
#include <ostream>
#include <string>
#include <vector>

static_assert(sizeof(CString) == sizeof(void*));

// Shows the bytes of a string, escaping NULs and non-ASCII bytes.
static void PrintTo(const CString& s, std::ostream* os)
{
    *os << '"';
    for (int i = 0; i < s.GetLength(); ++i) {
        const auto byte = static_cast<unsigned char>(s.GetString()[i]);
        if (byte >= 0x20 && byte < 0x7F) {
            *os << static_cast<char>(byte);
        } else {
            char hex[8];
            std::snprintf(hex, sizeof hex, "\\x%02X", byte);
            *os << hex;
        }
    }
    *os << '"';
}

template <class F>
static bool ThrowsInvalidArg(F&& action)
{
    try {
        action();
    } catch (CInvalidArgException* e) {
        e->Delete();
        return true;
    }
    return false;
}

template <class... Args>
static CString Formatted(const char* format, Args... args)
{
    CString s("previous");
    s.Format(format, args...);
    return s;
}

TEST(CStringConstruct, NullAndLengthAndRepeatForms)
{
    EXPECT_EQ(CString(static_cast<const char*>(nullptr)), "");
    EXPECT_EQ(CString(nullptr, 5), "");
    EXPECT_EQ(CString("abcdef", 3), "abc");
    EXPECT_EQ(CString('x', 3), "xxx");
    EXPECT_EQ(CString('x', 0), "");
    EXPECT_EQ(CString('x', -2), "");
    EXPECT_EQ(CString('\0', 2).GetLength(), 2);
    EXPECT_TRUE(ThrowsInvalidArg([] { CString("abc", -1); }));

    CString s("text");
    s = static_cast<const char*>(nullptr);
    EXPECT_TRUE(s.IsEmpty());
    s = 'c';
    EXPECT_EQ(s, "c");
    s += static_cast<const char*>(nullptr);
    s.Append(nullptr, 3);
    EXPECT_EQ(s, "c");
}

TEST(CStringConstruct, EmbeddedNulIsKeptAndSearchedThrough)
{
    const CString s("ab\0cd", 5);
    EXPECT_EQ(s.GetLength(), 5);
    EXPECT_EQ(s.Find('c'), 3);
    EXPECT_EQ(s.Find("cd"), 3);
    EXPECT_EQ(s.Find('\0'), 2);
    EXPECT_EQ(s.ReverseFind('\0'), 2);
    EXPECT_EQ(s.Mid(3), "cd");
    EXPECT_GT(s.Compare("ab"), 0);
    EXPECT_LT(s.Compare(CString("ab\0ce", 5)), 0);
    EXPECT_NE(s, CString("ab\0ce", 5));
    EXPECT_EQ(s, CString("ab\0cd", 5));
}

TEST(CStringAccess, GetAtReadsTheTerminatorButNothingBeyond)
{
    CString s("abc");
    EXPECT_EQ(s.GetAt(0), 'a');
    EXPECT_EQ(s[2], 'c');
    EXPECT_EQ(s.GetAt(3), '\0');
    EXPECT_TRUE(ThrowsInvalidArg([&] { s.GetAt(4); }));
    EXPECT_TRUE(ThrowsInvalidArg([&] { s.GetAt(-1); }));
    EXPECT_TRUE(ThrowsInvalidArg([&] { s.SetAt(3, 'x'); }));
    EXPECT_TRUE(ThrowsInvalidArg([&] { s.SetAt(-1, 'x'); }));
    s.SetAt(1, 'X');
    EXPECT_EQ(s, "aXc");
}

TEST(CStringSearch, FindStartsAtTheGivenIndex)
{
    const CString s("abcabc");
    struct
    {
        char ch;
        int start;
        int found;
    } chars[] = {
        {'a', 0, 0},  {'a', 1, 3},  {'a', 3, 3},   {'a', 4, -1}, {'c', 5, 5},
        {'a', 6, -1}, {'a', 7, -1}, {'a', -1, -1}, {'x', 0, -1},
    };
    for (auto& c : chars)
        EXPECT_EQ(s.Find(c.ch, c.start), c.found) << c.ch << " from " << c.start;

    struct
    {
        const char* sub;
        int start;
        int found;
    } subs[] = {
        {"bc", 0, 1},       {"bc", 2, 4}, {"bc", 5, -1},    {"abc", 3, 3}, {"c", 5, 5},  {"c", 6, -1},
        {"abcabcd", 0, -1}, {"", 0, 0},   {nullptr, 0, -1}, {"a", -1, -1}, {"a", 7, -1}, {"cab", 0, 2},
        {"", 4, 4},         {"", 6, 6},   {"", 7, -1},      {"", -1, -1},
    };
    for (auto& c : subs)
        EXPECT_EQ(s.Find(c.sub, c.start), c.found) << (c.sub ? c.sub : "(null)") << " from " << c.start;
}

TEST(CStringSearch, ReverseFindAndFindOneOf)
{
    const CString s("hello world");
    EXPECT_EQ(s.ReverseFind('o'), 7);
    EXPECT_EQ(s.ReverseFind('h'), 0);
    EXPECT_EQ(s.ReverseFind('x'), -1);
    EXPECT_EQ(s.FindOneOf("wo"), 4);
    EXPECT_EQ(s.FindOneOf("xyz"), -1);
    EXPECT_EQ(s.FindOneOf(""), -1);
    EXPECT_EQ(s.FindOneOf(nullptr), -1);
    EXPECT_EQ(CString("cabbage").SpanIncluding("abc"), "cabba");
    EXPECT_EQ(CString("abc").SpanIncluding(""), "");
    EXPECT_EQ(CString("key=value").SpanExcluding("=;"), "key");
    EXPECT_EQ(CString("abc").SpanExcluding(nullptr), "abc");
}

TEST(CStringReplace, CountsNonOverlappingMatchesLeftToRight)
{
    struct
    {
        const char* text;
        const char* old;
        const char* replacement;
        const char* result;
        int count;
    } cases[] = {
        {"aaaa", "aa", "b", "bb", 2},
        {"aaa", "aa", "b", "ba", 1},
        {"ababab", "aba", "X", "Xbab", 1},
        {"abcabc", "bc", "XYZW", "aXYZWaXYZW", 2},
        {"hello world", "o", "", "hell wrld", 2},
        {"aXa", "X", nullptr, "aa", 1},
        {"abab", "ab", "ba", "baba", 2},
        {"abc", "", "x", "abc", 0},
        {"abc", nullptr, "x", "abc", 0},
        {"abc", "x", "y", "abc", 0},
        {"", "a", "b", "", 0},
        {"abc", "abc", "", "", 1},
    };
    for (auto& c : cases) {
        CString s(c.text);
        EXPECT_EQ(s.Replace(c.old, c.replacement), c.count) << c.text;
        EXPECT_EQ(s, c.result) << c.text;
    }
}

TEST(CStringReplace, CharactersAndArgumentsFromTheStringItself)
{
    CString s("banana");
    EXPECT_EQ(s.Replace('a', 'o'), 3);
    EXPECT_EQ(s, "bonono");
    EXPECT_EQ(s.Replace('x', 'y'), 0);
    EXPECT_EQ(s.Replace('o', 'o'), 0);

    CString self("ab\0xabyab", 9);
    EXPECT_EQ(self.Replace(self.GetString(), ""), 3);
    EXPECT_EQ(self, CString("\0xy", 3));
    CString grow("ab-ab");
    EXPECT_EQ(grow.Replace("-", grow.GetString()), 1);
    EXPECT_EQ(grow, "abab-abab");
}

TEST(CStringEdit, InsertClampsTheIndex)
{
    struct
    {
        int index;
        const char* result;
    } cases[] = {
        {-5, "XYabc"}, {0, "XYabc"}, {1, "aXYbc"}, {3, "abcXY"}, {9, "abcXY"},
    };
    for (auto& c : cases) {
        CString s("abc");
        EXPECT_EQ(s.Insert(c.index, "XY"), 5) << c.index;
        EXPECT_EQ(s, c.result) << c.index;
    }
    CString s("abc");
    EXPECT_EQ(s.Insert(1, '-'), 4);
    EXPECT_EQ(s, "a-bc");
    EXPECT_EQ(s.Insert(1, nullptr), 4);
    EXPECT_EQ(s.Insert(1, ""), 4);
    EXPECT_EQ(s.Insert(0, s.GetString() + 2), 6);
    EXPECT_EQ(s, "bca-bc");
}

TEST(CStringEdit, DeleteClampsIndexAndCount)
{
    struct
    {
        int index;
        int count;
        const char* result;
    } cases[] = {
        {0, 1, "bcdef"},  {-2, 2, "cdef"},  {4, 10, "abcd"},   {6, 1, "abcdef"},
        {9, 1, "abcdef"}, {2, 0, "abcdef"}, {2, -3, "abcdef"}, {0, 6, ""},
    };
    for (auto& c : cases) {
        CString s("abcdef");
        EXPECT_EQ(s.Delete(c.index, c.count), static_cast<int>(std::strlen(c.result))) << c.index << "," << c.count;
        EXPECT_EQ(s, c.result) << c.index << "," << c.count;
    }
    CString s("abcdef");
    s.Delete(1);
    EXPECT_EQ(s, "acdef");

    CString list("a,b,,c");
    EXPECT_EQ(list.Remove(','), 3);
    EXPECT_EQ(list, "abc");
    EXPECT_EQ(list.Remove(','), 0);
}

TEST(CStringExtract, MidLeftRightClampToTheText)
{
    const CString s("abcdef");
    struct
    {
        CString got;
        const char* expected;
        const char* what;
    } cases[] = {
        {s.Mid(2), "cdef", "Mid(2)"},       {s.Mid(6), "", "Mid(6)"},
        {s.Mid(9), "", "Mid(9)"},           {s.Mid(-3), "abcdef", "Mid(-3)"},
        {s.Mid(2, 2), "cd", "Mid(2,2)"},    {s.Mid(4, 9), "ef", "Mid(4,9)"},
        {s.Mid(-1, 2), "ab", "Mid(-1,2)"},  {s.Mid(2, -1), "", "Mid(2,-1)"},
        {s.Mid(7, 1), "", "Mid(7,1)"},      {s.Left(3), "abc", "Left(3)"},
        {s.Left(10), "abcdef", "Left(10)"}, {s.Left(-1), "", "Left(-1)"},
        {s.Right(2), "ef", "Right(2)"},     {s.Right(10), "abcdef", "Right(10)"},
        {s.Right(-1), "", "Right(-1)"},
    };
    for (auto& c : cases)
        EXPECT_EQ(c.got, c.expected) << c.what;
}

TEST(CStringTokenize, LoopsOverTokensAndEndsWithMinusOne)
{
    struct
    {
        const char* text;
        const char* delimiters;
        std::vector<std::string> tokens;
    } cases[] = {
        {"%First Second#Third", "% #", {"First", "Second", "Third"}},
        {"  a  b ", " ", {"a", "b"}},
        {"one", ",", {"one"}},
        {",,,", ",", {}},
        {"", ",", {}},
    };
    for (auto& c : cases) {
        const CString s(c.text);
        std::vector<std::string> tokens;
        int start = 0;
        for (CString token = s.Tokenize(c.delimiters, start); start != -1; token = s.Tokenize(c.delimiters, start))
            tokens.emplace_back(token.GetString());
        EXPECT_EQ(tokens, c.tokens) << c.text;
    }

    const CString s("ab,cd");
    int start = 3;
    EXPECT_EQ(s.Tokenize(",", start), "cd");
    EXPECT_EQ(start, 6);
    EXPECT_EQ(s.Tokenize(",", start), "");
    EXPECT_EQ(start, -1);
    start = -1;
    EXPECT_TRUE(ThrowsInvalidArg([&] { s.Tokenize(",", start); }));
}

TEST(CStringTokenize, WithoutDelimitersReturnsTheRestAndDoesNotAdvance)
{
    const CString s("abcdef");
    for (const char* delimiters : {"", static_cast<const char*>(nullptr)}) {
        int start = 2;
        EXPECT_EQ(s.Tokenize(delimiters, start), "cdef");
        EXPECT_EQ(start, 2);
        start = 6;
        EXPECT_EQ(s.Tokenize(delimiters, start), "");
        EXPECT_EQ(start, -1);
    }
}

TEST(CStringTrim, WhitespaceCharacterAndSetForms)
{
    using Trim = std::function<void(CString&)>;
    struct
    {
        const char* text;
        Trim trim;
        const char* result;
        const char* what;
    } cases[] = {
        {" \t a b \r\n", [](CString& s) { s.Trim(); }, "a b", "Trim()"},
        {" \t a b \r\n", [](CString& s) { s.TrimLeft(); }, "a b \r\n", "TrimLeft()"},
        {" \t a b \r\n", [](CString& s) { s.TrimRight(); }, " \t a b", "TrimRight()"},
        {" \v\f ", [](CString& s) { s.Trim(); }, "", "Trim() all blank"},
        {"\xA0x\xA0", [](CString& s) { s.Trim(); }, "\xA0x\xA0", "Trim() keeps NBSP"},
        {"xxaxbxx", [](CString& s) { s.Trim('x'); }, "axb", "Trim('x')"},
        {"xxaxbxx", [](CString& s) { s.TrimLeft('x'); }, "axbxx", "TrimLeft('x')"},
        {"xxaxbxx", [](CString& s) { s.TrimRight('x'); }, "xxaxb", "TrimRight('x')"},
        {"yxabyx", [](CString& s) { s.Trim("xy"); }, "ab", "Trim(\"xy\")"},
        {"yxabyx", [](CString& s) { s.TrimLeft("xy"); }, "abyx", "TrimLeft(\"xy\")"},
        {"yxabyx", [](CString& s) { s.TrimRight("xy"); }, "yxab", "TrimRight(\"xy\")"},
        {" ab ", [](CString& s) { s.Trim(""); }, " ab ", "Trim(\"\")"},
        {" ab ", [](CString& s) { s.Trim(static_cast<const char*>(nullptr)); }, " ab ", "Trim(null)"},
    };
    for (auto& c : cases) {
        CString s(c.text);
        c.trim(s);
        EXPECT_EQ(s, c.result) << c.what;
    }
}

TEST(CStringCase, EveryAccentedPairMapsBothWays)
{
    const char* lower = "abcxyzàáâãäåæçèéêëìíîïðñòóôõöøùúûüýþšœžÿ";
    const char* upper = "ABCXYZÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖØÙÚÛÜÝÞŠŒŽŸ";
    EXPECT_EQ(CString(lower).MakeUpper(), upper);
    EXPECT_EQ(CString(upper).MakeLower(), lower);

    const char* unchanged = "ßµ÷×€0123456789 !@[`{~\x81\x8D\x8F\x90\x9D\xA0\xAA\xBA";
    EXPECT_EQ(CString(unchanged).MakeUpper(), unchanged);
    EXPECT_EQ(CString(unchanged).MakeLower(), unchanged);

    for (int b = 0; b < 256; ++b) {
        const char c = static_cast<char>(b);
        const char u = AfxToUpper1252(c);
        const char l = AfxToLower1252(c);
        if (u != c) {
            EXPECT_EQ(AfxToLower1252(u), c) << b;
        }
        if (l != c) {
            EXPECT_EQ(AfxToUpper1252(l), c) << b;
        }
        EXPECT_FALSE(u != c && l != c) << b;
    }
    EXPECT_EQ(CString("abc").MakeReverse(), "cba");
}

TEST(CStringCompare, OrderIsUnsignedBytesAndOperatorsAgree)
{
    struct
    {
        const char* a;
        const char* b;
        int order;
    } cases[] = {
        {"abc", "abd", -1}, {"abc", "abc", 0}, {"ab", "abc", -1}, {"b", "abc", 1},
        {"é", "z", 1},      {"", "a", -1},     {"Z", "a", -1},    {"", "", 0},
    };
    for (auto& c : cases) {
        const CString a(c.a), b(c.b);
        EXPECT_EQ(a.Compare(c.b), c.order) << c.a << " vs " << c.b;
        EXPECT_EQ(a.Compare(b), c.order) << c.a << " vs " << c.b;
        EXPECT_EQ(a == b, c.order == 0);
        EXPECT_EQ(a == c.b, c.order == 0);
        EXPECT_EQ(c.a == b, c.order == 0);
        EXPECT_EQ(a != c.b, c.order != 0);
        EXPECT_EQ(c.a != b, c.order != 0);
        EXPECT_EQ(a < b, c.order < 0);
        EXPECT_EQ(c.a < b, c.order < 0);
        EXPECT_EQ(a > c.b, c.order > 0);
        EXPECT_EQ(c.a > b, c.order > 0);
        EXPECT_EQ(a <= c.b, c.order <= 0);
        EXPECT_EQ(c.a <= b, c.order <= 0);
        EXPECT_EQ(a >= b, c.order >= 0);
        EXPECT_EQ(c.a >= b, c.order >= 0);
    }
    EXPECT_EQ(CString().Compare(nullptr), 0);
    EXPECT_EQ(CString("a").Compare(nullptr), 1);
    EXPECT_FALSE(CString("abc") == static_cast<const char*>(nullptr));
    EXPECT_EQ(CString("abc").Collate("abd"), -1);
}

TEST(CStringCompare, NoCaseFoldsToLowerBeforeComparing)
{
    struct
    {
        const char* a;
        const char* b;
        int order;
    } cases[] = {
        {"abc", "ABD", -1}, {"Ärger", "äRGER", 0}, {"ŠŒŽŸ", "šœžÿ", 0}, {"Z", "a", 1},  {"straße", "STRASSE", 1},
        {"é", "F", 1},      {"a", "", 1},          {"", "", 0},         {"[", "a", -1},
    };
    for (auto& c : cases) {
        EXPECT_EQ(CString(c.a).CompareNoCase(c.b), c.order) << c.a << " vs " << c.b;
        EXPECT_EQ(CString(c.a).CompareNoCase(CString(c.b)), c.order) << c.a << " vs " << c.b;
    }
    EXPECT_EQ(CString("ABC").CollateNoCase("abc"), 0);
}

TEST(CStringShare, CopiesShareUntilOneIsModified)
{
    const CString original("  Some Text  ");
    using Edit = std::function<void(CString&)>;
    struct
    {
        Edit edit;
        const char* what;
    } edits[] = {
        {[](CString& s) { s += "x"; }, "+="},
        {[](CString& s) { s.MakeUpper(); }, "MakeUpper"},
        {[](CString& s) { s.MakeReverse(); }, "MakeReverse"},
        {[](CString& s) { s.Replace("Some", "Other"); }, "Replace grow"},
        {[](CString& s) { s.Replace("Some", "S"); }, "Replace shrink"},
        {[](CString& s) { s.Replace('e', 'E'); }, "Replace char"},
        {[](CString& s) { s.Remove(' '); }, "Remove"},
        {[](CString& s) { s.Insert(2, "!"); }, "Insert"},
        {[](CString& s) { s.Delete(0, 3); }, "Delete"},
        {[](CString& s) { s.Trim(); }, "Trim"},
        {[](CString& s) { s.SetAt(2, 's'); }, "SetAt"},
        {[](CString& s) { s.Truncate(4); }, "Truncate"},
        {[](CString& s) { s.AppendFormat("%d", 7); }, "AppendFormat"},
        {[](CString& s) { s.Format("%s!", s.GetString()); }, "Format"},
        {[](CString& s) {
             s.GetBuffer()[2] = 's';
             s.ReleaseBuffer();
         },
         "GetBuffer"},
        {[](CString& s) {
             s.GetBufferSetLength(3);
             s.ReleaseBuffer();
         },
         "GetBufferSetLength"},
    };
    for (auto& e : edits) {
        CString copy = original;
        EXPECT_EQ(copy.GetString(), original.GetString()) << e.what;
        e.edit(copy);
        EXPECT_EQ(original, "  Some Text  ") << e.what;
        EXPECT_NE(copy, original) << e.what;
    }
}

TEST(CStringShare, BufferHandedOutIsNotSharedWithLaterCopies)
{
    CString s("text");
    char* buffer = s.GetBuffer();
    const CString copy = s;
    buffer[0] = 'n';
    s.ReleaseBuffer();
    EXPECT_EQ(copy, "text");
    EXPECT_EQ(s, "next");
    const CString later = s;
    EXPECT_EQ(later.GetString(), s.GetString());

    CString moved(std::move(s));
    EXPECT_EQ(moved, "next");
    EXPECT_TRUE(s.IsEmpty());

    const CString a, b(""), c(static_cast<const char*>(nullptr));
    EXPECT_EQ(a.GetString(), b.GetString());
    EXPECT_EQ(a.GetString(), c.GetString());
    CString e;
    char* p = e.GetBuffer(4);
    EXPECT_NE(p, a.GetString());
    std::strcpy(p, "abc");
    e.ReleaseBuffer();
    EXPECT_EQ(e, "abc");
    EXPECT_EQ(*a.GetString(), '\0');
}

TEST(CStringBuffer, ReleaseBufferTakesTheNulOrTheGivenLength)
{
    CString s("ab");
    char* p = s.GetBuffer(10);
    EXPECT_GE(s.GetAllocLength(), 10);
    std::strcpy(p, "hello");
    s.ReleaseBuffer();
    EXPECT_EQ(s, "hello");
    EXPECT_EQ(s.GetLength(), 5);

    s.GetBuffer();
    s.ReleaseBuffer(3);
    EXPECT_EQ(s, "hel");

    p = s.GetBufferSetLength(6);
    EXPECT_EQ(s.GetLength(), 6);
    EXPECT_EQ(std::string(p, 6), std::string("hel\0\0\0", 6));
    std::memcpy(p, "wxyzuv", 6);
    s.ReleaseBufferSetLength(4);
    EXPECT_EQ(s, "wxyz");

    s.GetBuffer();
    EXPECT_TRUE(ThrowsInvalidArg([&] { s.ReleaseBuffer(s.GetAllocLength() + 1); }));
    EXPECT_TRUE(ThrowsInvalidArg([&] { s.ReleaseBuffer(-2); }));
    s.ReleaseBuffer();
    EXPECT_EQ(s, "wxyz");

    s.Preallocate(100);
    EXPECT_GE(s.GetAllocLength(), 100);
    EXPECT_EQ(s, "wxyz");
    s.FreeExtra();
    EXPECT_EQ(s.GetAllocLength(), 4);
    s.Truncate(2);
    EXPECT_EQ(s, "wx");
    EXPECT_TRUE(ThrowsInvalidArg([&] { s.Truncate(3); }));
}

TEST(CStringBuffer, AppendingGrowsGeometrically)
{
    CString s;
    int moves = 0;
    for (int i = 0; i < 2000; ++i) {
        const char* before = s.GetString();
        s.AppendChar('x');
        moves += s.GetString() != before;
    }
    EXPECT_EQ(s.GetLength(), 2000);
    EXPECT_LT(moves, 20);

    CString csv;
    for (int i = 0; i < 1000; ++i)
        csv.AppendFormat("%d,", i);
    EXPECT_EQ(csv.Left(6), "0,1,2,");
    EXPECT_EQ(csv.Right(4), "999,");
    EXPECT_EQ(csv.GetLength(), 10 * 2 + 90 * 3 + 900 * 4);
}

TEST(CStringFormat, PrintfConversionsAndMsvcLengthModifiers)
{
    EXPECT_EQ(Formatted("%I64d", LLONG_MIN), "-9223372036854775808");
    EXPECT_EQ(Formatted("%I64u", ULLONG_MAX), "18446744073709551615");
    EXPECT_EQ(Formatted("%-8I64d|", 7LL), "7       |");
    EXPECT_EQ(Formatted("%Ix", static_cast<size_t>(0xABCDEF0123)), "abcdef0123");
    EXPECT_EQ(Formatted("%Id", static_cast<ptrdiff_t>(-3)), "-3");
    EXPECT_EQ(Formatted("%I32d", -5), "-5");
    EXPECT_EQ(Formatted("%%I64d %d", 1), "%I64d 1");
    EXPECT_EQ(Formatted("%5d|%-5s|%05.1f", 42, "ab", 3.14159), "   42|ab   |003.1");
    EXPECT_EQ(Formatted("%*d|%.*s", 4, 7, 2, "xyz"), "   7|xy");
    EXPECT_EQ(Formatted("%c%c", 'a', 0xE4), "aä");
    EXPECT_EQ(Formatted("%s", std::string(10000, 'x').c_str()).GetLength(), 10000);
    const std::string longFormat = std::string(300, '-') + "%I64d";
    EXPECT_EQ(Formatted(longFormat.c_str(), 5LL), (std::string(300, '-') + "5").c_str());
    EXPECT_EQ(Formatted(""), "");
    EXPECT_EQ(Formatted(static_cast<const char*>(nullptr)), "");
    // Windows meanings: l is 32 bits, S and w are wide, h before s is narrow.
    EXPECT_EQ(Formatted("%ld|%lu|%lx", LONG(-2), DWORD(7), DWORD(0xFFFFFFFF)), "-2|7|ffffffff");
    EXPECT_EQ(Formatted("%S|%ws|%hs|%-3C|", L"ab", L"cd", "ef", L'g'), "ab|cd|ef|g  |");
    EXPECT_EQ(Formatted("%s|%5s|%.1s", CString("ab"), CString("c"), CString("xyz")), "ab|    c|x");

    CString appended("x");
    appended.AppendFormat(nullptr);
    appended.AppendFormat("");
    appended.AppendFormat("=%03d", 7);
    EXPECT_EQ(appended, "x=007");
}

TEST(CStringFormat, CheckedLiteralFormatsPassCStringArgumentsAsText)
{
    const CString name("Welt");
    CString text;
    text.Format("%s hat %d Buchstaben", name, name.GetLength());
    EXPECT_EQ(text, "Welt hat 4 Buchstaben");
    text.AppendFormat(", %s", name);
    EXPECT_EQ(text, "Welt hat 4 Buchstaben, Welt");
    static constexpr char kFormat[] = "%s/%I64d/%Iu";
    text.Format(kFormat, name, 5LL, sizeof(int));
    EXPECT_EQ(text, "Welt/5/4");
    char buffer[] = "%d%%";
    text.Format(buffer, 50);
    EXPECT_EQ(text, "50%");
    text.Format(name);
    EXPECT_EQ(text, "Welt");

    testing::internal::CaptureStderr();
    TRACE("%s %d\n", name, 3);
    TRACE0("100%\n");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Welt 3\n100%\n");
}

TEST(CStringFormat, ArgumentsMayPointIntoTheStringItself)
{
    CString shared("abc");
    shared.Format("%s-%s", shared.GetString(), shared.GetString());
    EXPECT_EQ(shared, "abc-abc");

    CString roomy("abc");
    roomy.Preallocate(100);
    roomy.Format("<%s>", roomy.GetString());
    EXPECT_EQ(roomy, "<abc>");
    roomy.AppendFormat("x%s", roomy.GetString());
    EXPECT_EQ(roomy, "<abc>x<abc>");
}

TEST(CStringConcat, AllOperandCombinations)
{
    const CString b("b");
    EXPECT_EQ("a" + b + 'c' + CString() + "d", "abcd");
    EXPECT_EQ('x' + CString("y"), "xy");
    EXPECT_EQ(b + b, "bb");
    EXPECT_EQ(b + static_cast<const char*>(nullptr), "b");
    EXPECT_EQ((CString() + b).GetString(), b.GetString());
    CString s("ab");
    s += s;
    s += 'c';
    s += CString("d");
    EXPECT_EQ(s, "ababcd");
}

TEST(CStringEmpty, EveryOperationAcceptsTheEmptyString)
{
    CString e;
    int start = 0;
    EXPECT_TRUE(e.IsEmpty());
    EXPECT_EQ(e.Find('a'), -1);
    EXPECT_EQ(e.Find("a"), -1);
    EXPECT_EQ(e.ReverseFind('a'), -1);
    EXPECT_EQ(e.FindOneOf("a"), -1);
    EXPECT_EQ(e.Mid(0), "");
    EXPECT_EQ(e.Left(1), "");
    EXPECT_EQ(e.Right(1), "");
    EXPECT_EQ(e.SpanExcluding("a"), "");
    EXPECT_EQ(e.Replace("a", "b"), 0);
    EXPECT_EQ(e.Remove('a'), 0);
    EXPECT_EQ(e.Delete(0), 0);
    EXPECT_EQ(e.Insert(0, ""), 0);
    EXPECT_EQ(e.Tokenize(",", start), "");
    EXPECT_EQ(start, -1);
    EXPECT_EQ(e.GetAt(0), '\0');
    EXPECT_EQ(e.Trim().MakeUpper().MakeReverse(), "");
    e.Truncate(0);
    e.ReleaseBuffer();
    e.FreeExtra();
    EXPECT_EQ(e + e, "");
    EXPECT_EQ(e.GetAllocLength(), 0);
}

#ifdef _WIN32
TEST(CStringLoad, UnknownResourceFailsAndKeepsTheText)
{
    constexpr UINT kNoSuchString = 61234;
    EXPECT_EQ(AfxFindStringResourceHandle(kNoSuchString), nullptr);
    CString s("kept");
    EXPECT_FALSE(s.LoadString(kNoSuchString));
    EXPECT_EQ(s, "kept");
    char buffer[8] = "x";
    EXPECT_EQ(AfxLoadString(kNoSuchString, buffer, sizeof buffer), 0);
    EXPECT_STREQ(buffer, "");
}
#endif
