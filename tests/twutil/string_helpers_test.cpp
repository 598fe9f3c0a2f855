#include "string_helpers.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#ifdef _WIN32
#include <windows.h>
#endif

namespace {

std::vector<std::string> Pieces(const CStringArray& a)
{
    std::vector<std::string> v;
    for (INT_PTR i = 0; i < a.GetSize(); ++i)
        v.emplace_back(a[i].GetString(), a[i].GetLength());
    return v;
}

std::vector<std::string> Split(const char* line, char sep)
{
    CStringArray out;
    out.Add("left over");
    const int count = SplitCSVLine(line, sep, &out);
    EXPECT_EQ(count, out.GetSize()) << line;
    return Pieces(out);
}

int Sign(int v)
{
    return v < 0 ? -1 : (v > 0 ? 1 : 0);
}

}  // namespace

// ---- CompareStringA ---------------------------------------------------------

TEST(CompareStringA, ReadsLikeAListAUserExpects)
{
    // Each chain sorts strictly ascending with the flag true.
    const std::vector<const char*> chains[] = {
        {"Bild 1", "Bild 01", "Bild 001", "Bild 2", "Bild 2a", "Bild 9", "Bild 10"},
        {"a2b", "a10a"},
        {"x99999999999999999999999", "x100000000000000000000000"},
        {"Apfel", "apfel", "Äpfel", "Apfelbaum", "Birne", "Öl", "Pfanne"},
        {"Mass", "Maß", "Masse"},
        {"", "a", "a b", "ab"},
        {"a/", "a0", "a9", "a:"},
        {"-5", "3"}};
    for (const auto& chain : chains) {
        for (size_t i = 0; i < chain.size(); ++i) {
            for (size_t j = i + 1; j < chain.size(); ++j) {
                EXPECT_LT(CompareStringA(chain[i], chain[j], true), 0) << chain[i] << " < " << chain[j];
                EXPECT_GT(CompareStringA(chain[j], chain[i], true), 0) << chain[j] << " > " << chain[i];
            }
        }
    }
}

TEST(CompareStringA, ZeroOnlyForEqualTextsAndNullReadsAsEmpty)
{
    EXPECT_EQ(CompareStringA("Bild 10", "Bild 10", true), 0);
    EXPECT_EQ(CompareStringA("", "", true), 0);
    EXPECT_EQ(CompareStringA(nullptr, "", true), 0);
    EXPECT_EQ(CompareStringA(nullptr, nullptr, false), 0);
    EXPECT_LT(CompareStringA(nullptr, "a", true), 0);
    EXPECT_GT(CompareStringA("a", nullptr, true), 0);
    EXPECT_NE(CompareStringA("ABC", "abc", true), 0);
    EXPECT_NE(CompareStringA("007", "7", true), 0);
}

TEST(CompareStringA, FlagFalseKeepsCaseApart)
{
    struct
    {
        const char* a;
        const char* b;
        int withFlag;
        int withoutFlag;
    } cases[] = {
        {"Zebra", "apfel", 1, -1}, {"Bild 9", "Bild 10", -1, -1}, {"Äpfel", "Birne", -1, -1},
        {"äpfel", "Birne", -1, 1}, {"ABC", "abc", -1, -1},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Sign(CompareStringA(c.a, c.b, true)), c.withFlag) << c.a << " vs " << c.b;
        EXPECT_EQ(Sign(CompareStringA(c.a, c.b, false)), c.withoutFlag) << c.a << " vs " << c.b;
    }
}

TEST(CompareStringA, IsATotalOrderOverTrickyTexts)
{
    std::vector<const char*> texts = {
        "",         " ",       "a",      "A",   "ä",   "Ä",      "á",       "ae",      "æ",       "Æ",       "b",
        "B",        "z",       "s",      "ss",  "ß",   "SS",     "y",       "Y",       "ÿ",       "Ÿ",       "Öl",
        "Ol",       "ol",      "Oel",    "Øl",  "œl",  "Œl",     "Müller",  "Mueller", "Muller",  "Mülller", "Straße",
        "Strasse",  "STRASSE", "Straáe", "x/",  "x:",  "x0",     "x.",      "-1",      "+1",      "\x7f",    "\x80",
        "\xa0",     "0",       "00",     "000", "1",   "01",     "001",     "10",      "010",     "9",       "09",
        "99",       "100",     "1a",     "01a", "a 1", "Bild 9", "Bild 09", "Bild 10", "bild 10", "Bild10",  "Bild 1a",
        "Bild 01a", "Bild 1A", "a1",     "a01", "a1b", "a01b",   "a1b2",    "a1b02",   "a01b2",   "A1b2"};
    for (const char* longNumber :
         {"12345678901234567890", "012345678901234567890", "12345678901234567891", "9999999999999999999999999"})
        texts.push_back(longNumber);
    const int n = static_cast<int>(texts.size());
    for (bool flag : {true, false}) {
        for (int i = 0; i < n; ++i) {
            EXPECT_EQ(CompareStringA(texts[i], texts[i], flag), 0) << texts[i];
            for (int j = 0; j < n; ++j) {
                const int ij = Sign(CompareStringA(texts[i], texts[j], flag));
                const int ji = Sign(CompareStringA(texts[j], texts[i], flag));
                ASSERT_EQ(ij, -ji) << texts[i] << " / " << texts[j] << " flag " << flag;
                ASSERT_EQ(ij == 0, i == j) << texts[i] << " / " << texts[j];
                if (ij >= 0)
                    continue;
                for (int k = 0; k < n; ++k) {
                    if (Sign(CompareStringA(texts[j], texts[k], flag)) < 0) {
                        ASSERT_LT(CompareStringA(texts[i], texts[k], flag), 0)
                            << texts[i] << " < " << texts[j] << " < " << texts[k] << " flag " << flag;
                    }
                }
            }
        }
    }
}

// ---- ConvertDate ------------------------------------------------------------

TEST(ConvertDate, AcceptedFormsGiveTheSameDay)
{
    const int day = ConvertDate("05.03.2026");
    ASSERT_GE(day, 0);
    for (const char* text :
         {"5.3.2026", "05.03.26", "5.3.26", "2026-03-05", "2026-3-5", "2026:03:05", "  05.03.2026\t"})
        EXPECT_EQ(ConvertDate(text), day) << text;
    struct
    {
        const char* text;
        int minutes;
    } cases[] = {
        {"05.03.2026 09:07", 9 * 60 + 7},
        {"05.03.2026 9:07:59", 9 * 60 + 7},
        {"2026-03-05T23:59", 23 * 60 + 59},
        {"2026:03:05 12:00:00", 12 * 60},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ConvertDate(c.text), day + c.minutes) << c.text;
}

TEST(ConvertDate, OrdersChronologicallyAcrossTheRange)
{
    const char* ascending[] = {
        "01.01.1900", "01.01.1900 00:01", "28.02.1900", "01.03.1900",       "31.12.1929",       "1.1.30",
        "31.12.99",   "01.01.00",         "29.02.2000", "31.12.29",         "19.01.2038 03:14", "19.01.2038 03:15",
        "2100-02-28", "2100-03-01",       "29.02.2400", "31.12.4999 23:59",
    };
    int previous = TW_NO_DATE;
    for (const char* text : ascending) {
        const int value = ConvertDate(text);
        EXPECT_GT(value, previous) << text;
        previous = value;
    }
    EXPECT_EQ(ConvertDate("01.01.1900"), 0);
    EXPECT_EQ(ConvertDate("02.01.1900"), 1440);
    EXPECT_EQ(ConvertDate("01.01.1970") / 1440, 25567);
}

TEST(ConvertDate, NonDatesSortBeforeEveryDate)
{
    // Not dates at all, impossible days and forms, bad times.
    const std::vector<const char*> groups[] = {
        {nullptr, "", "   ", "Kaputt", "05.03", "5.3.202", "12:00", "26-03-05"},
        {"32.01.2026", "00.01.2026", "29.02.2025", "29.02.1900", "31.04.2026", "05.13.2026", "31.12.1899", "01.01.5000",
         "2026-02-30", "2026.03.05", "05.03.2026x", "2026-03-05T", "005.03.2026", "05.03.02026", "-05.03.2026",
         "99999999999.1.2026"},
        {"05.03.2026 24:00", "05.03.2026 12:60", "05.03.2026 12:00:60", "05.03.202612:00", "05.03.2026 12",
         "05.03.2026 12:5", "05.03.2026T12:00"}};
    for (const auto& group : groups) {
        for (const char* text : group)
            EXPECT_EQ(ConvertDate(text), TW_NO_DATE) << (text ? text : "(null)");
    }
    EXPECT_LT(TW_NO_DATE, ConvertDate("01.01.1900"));
}

// ---- SplitCSVLine -----------------------------------------------------------

TEST(SplitCSVLine, PiecesTrailingSeparatorAndQuotedFields)
{
    using V = std::vector<std::string>;
    struct
    {
        const char* line;
        char sep;
        V pieces;
    } cases[] = {
        {"", ';', V{}},
        {"a", ';', V{"a"}},
        {"a;b;", ';', V{"a", "b"}},
        {"a;;", ';', V{"a", ""}},
        {";", ';', V{""}},
        {";a", ';', V{"", "a"}},
        {"a;;b", ';', V{"a", "", "b"}},
        {" a ; b ", ';', V{" a ", " b "}},
        {"E10,10,40,20,60,10,\"Auge\";T5,5,0,0,5,5,\"Titel\";", ';',
         V{"E10,10,40,20,60,10,\"Auge\"", "T5,5,0,0,5,5,\"Titel\""}},
        {"R10,20,30,40,12,70,\"Haus\"", ',', V{"R10", "20", "30", "40", "12", "70", "Haus"}},
        {"\"a,b\",c", ',', V{"a,b", "c"}},
        {"\"\"", ',', V{""}},
        {"\"\",", ',', V{""}},
        {"\"a\"\"b\"", ',', V{"a\"b"}},
        {"\"\"\"\"", ',', V{"\""}},
        {"  \"a,b\"  ,c", ',', V{"a,b", "c"}},
        {"\"say \"hi\"\",x", ',', V{"say \"hi\"", "x"}},
        {"\"open,to the end,", ',', V{"open,to the end,"}},
        {"ab\"c,d", ',', V{"ab\"c", "d"}},
        {"1,\"x\"y\",2", ',', V{"1", "x\"y", "2"}},
        {"\"a\" \"b c\" d", ' ', V{"a", "b c", "d"}},
        {"a\"b\"c\"", '"', V{"a", "b", "c"}},
        {"a\tb\t", '\t', V{"a", "b"}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Split(c.line, c.sep), c.pieces) << c.line;
}

TEST(SplitCSVLine, BadArgumentsAndNulBytes)
{
    CStringArray out;
    EXPECT_EQ(SplitCSVLine("a;b", ';', nullptr), -1);
    const CString withNul("a\0b;c", 5);
    EXPECT_EQ(SplitCSVLine(withNul, ';', &out), 2);
    EXPECT_EQ(out[0].GetLength(), 3);
}

// ---- FindCRLF ---------------------------------------------------------------

TEST(FindCRLF, EachBreakKindWithItsLength)
{
    struct
    {
        const char* text;
        BOOL found;
        int position;
        int length;
    } cases[] = {
        {"Zeile1\r\nZeile2", TRUE, 6, 2},
        {"Zeile1\nZeile2", TRUE, 6, 1},
        {"Zeile1\rZeile2", TRUE, 6, 1},
        {"Zeile1\\nZeile2", TRUE, 6, 2},
        {"\\nab", TRUE, 0, 2},
        {"\r\n", TRUE, 0, 2},
        {"a\n\r\nb", TRUE, 1, 1},
        {"a\\\\nb", TRUE, 2, 2},
        {"keine Zeilen", FALSE, -1, 0},
        {"", FALSE, -1, 0},
        {"ends in \\", FALSE, -1, 0},
        {"C:\\temp", FALSE, -1, 0},
    };
    for (const auto& c : cases) {
        CString text(c.text);
        int position = 99;
        int length = 99;
        EXPECT_EQ(FindCRLF(text, position, length), c.found) << c.text;
        EXPECT_EQ(position, c.position) << c.text;
        EXPECT_EQ(length, c.length) << c.text;
        EXPECT_EQ(text, c.text);
    }
}

// ---- NextToken, ToString ----------------------------------------------------

TEST(NextToken, WalksLikeStrtokAndEndsWithEmpty)
{
    std::string copy = "150,,200,";
    EXPECT_EQ(NextToken(copy.c_str(), ','), "150");
    copy.assign("xxxxxxxxx");
    EXPECT_EQ(NextToken(nullptr, ','), "200");
    EXPECT_EQ(NextToken(nullptr, ','), "");
    EXPECT_EQ(NextToken(nullptr, ','), "");

    EXPECT_EQ(NextToken(",,a", ','), "a");
    EXPECT_EQ(NextToken(nullptr, ','), "");
    EXPECT_EQ(NextToken("", ','), "");
    EXPECT_EQ(NextToken("x y", ','), "x y");
    EXPECT_EQ(NextToken("a;b", ','), "a;b");
    EXPECT_EQ(NextToken("a;b", ';'), "a");
    EXPECT_EQ(NextToken("neu", ';'), "neu");
    EXPECT_EQ(NextToken(nullptr, ';'), "");
}

TEST(ToString, DecimalTextOfEveryRange)
{
    struct
    {
        __int64 value;
        const char* text;
    } cases[] = {
        {0, "0"},
        {-5, "-5"},
        {4294967296LL, "4294967296"},
        {9223372036854775807LL, "9223372036854775807"},
        {-9223372036854775807LL - 1, "-9223372036854775808"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ToString(c.value), c.text);
}

// ---- Decimal separator ------------------------------------------------------

TEST(ReplaceDecimalPoint, AtofReadsBothSeparators)
{
    struct
    {
        const char* text;
        double value;
    } cases[] = {
        {"12,5", 12.5},
        {"12.5", 12.5},
        {"-0,25", -0.25},
        {"+3,5", 3.5},
        {"  7,75 kg", 7.75},
        {"1.234,56", 1234.56},
        {"1,234.56", 1234.56},
        {"1.234.567", 1234567},
        {"1.234.567,8", 1234567.8},
        {"1,234", 1.234},
        {",5", 0.5},
        {"1,5e3", 1500},
        {"42", 42},
        {"abc", 0},
        {"", 0},
    };
    for (const auto& c : cases)
        EXPECT_DOUBLE_EQ(std::atof(ReplaceDecimalPoint(c.text)), c.value) << c.text;
}

TEST(ReplaceDecimalPoint, OnlyTheLeadingNumberChanges)
{
    struct
    {
        const char* text;
        const char* result;
    } cases[] = {
        {"12,5 m, 3,5 m", "12.5 m, 3,5 m"},
        {"Preis 1,5", "Preis 1,5"},
        {"1.234,5", "1234.5"},
        {"-1,5", "-1.5"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ReplaceDecimalPoint(c.text), c.result) << c.text;
}

TEST(DecimalOperatorOS, IsTheSeparatorTheSystemWritesNumbersWith)
{
    const char sep = DecimalOperatorOS();
#ifdef _WIN32
    char formatted[32] = {};
    ASSERT_GT(GetNumberFormatA(LOCALE_USER_DEFAULT, 0, "1.5", nullptr, formatted, sizeof formatted), 0);
    EXPECT_EQ(sep, formatted[1]) << formatted;
#else
    char formatted[32];
    std::snprintf(formatted, sizeof formatted, "%.1f", 1.5);
    EXPECT_EQ(sep, formatted[1]);
#endif
}

// ---- Trailing characters ----------------------------------------------------

TEST(EnsureTrailingChar, AddsOnceAndLeavesEmptyAlone)
{
    struct
    {
        const char* text;
        char ch;
        const char* result;
    } cases[] = {
        {"C:\\Daten", '\\', "C:\\Daten\\"}, {"C:\\Daten\\", '\\', "C:\\Daten\\"}, {"", '\\', ""},
        {"150,200", ',', "150,200,"},       {"150,200,", ',', "150,200,"},
    };
    for (const auto& c : cases) {
        CString text(c.text);
        EXPECT_EQ(EnsureTrailingChar(text, c.ch), c.result) << c.text;
        EXPECT_EQ(text, c.result);
    }
}

TEST(EnsureNoTrailingChar, RemovesEveryTrailingOne)
{
    struct
    {
        const char* text;
        char ch;
        const char* result;
    } cases[] = {
        {"C:\\Daten\\", '\\', "C:\\Daten"},
        {"C:\\Daten\\\\\\", '\\', "C:\\Daten"},
        {"C:\\Daten", '\\', "C:\\Daten"},
        {"C:\\", '\\', "C:"},
        {"\\\\", '\\', ""},
        {"", '\\', ""},
        {"a--", '-', "a"},
    };
    for (const auto& c : cases) {
        CString text(c.text);
        EXPECT_EQ(EnsureNoTrailingChar(text, c.ch), c.result) << c.text;
    }
}

// ---- isLink -----------------------------------------------------------------

TEST(IsLink, InternetAddressesOnly)
{
    for (const char* text : {"http://example.com", "HTTPS://example.com/a?b", "ftp://server/file",
                             "mailto:info@example.com", "MailTo:x", "www.example.com", "  WWW.example.com  "})
        EXPECT_TRUE(isLink(text)) << text;
    for (const char* text :
         {"http://", "www.", "  www.  ", "file://C:/a.txt", "C:\\Bilder\\www.jpg", "example.com", "wwwexample.com", ""})
        EXPECT_FALSE(isLink(text)) << text;
}

// ---- Path variables ---------------------------------------------------------

namespace {

BOOL TableLookup(const char* name, CString& value, void* context)
{
    auto* calls = static_cast<std::vector<std::string>*>(context);
    calls->emplace_back(name);
    const CString key(name);
    if (key.CompareNoCase("ProgDir") == 0)
        value = "C:\\Programme\\Tw";
    else if (key == "TEMP")
        value = "C:\\Temp";
    else if (key == "LEER")
        value = "";
    else if (key == "SELF")
        value = "%TEMP%";
    else
        return FALSE;
    return TRUE;
}

}  // namespace

TEST(ReplacePathVariables, KnownNamesExpandUnknownOnesStay)
{
    struct
    {
        const char* path;
        const char* result;
    } cases[] = {
        {"%ProgDir%\\PlugIn", "C:\\Programme\\Tw\\PlugIn"},
        {"%progdir%\\a;%TEMP%\\b", "C:\\Programme\\Tw\\a;C:\\Temp\\b"},
        {"%TEMP%%TEMP%", "C:\\TempC:\\Temp"},
        {"x%LEER%y", "xy"},
        {"%SELF%", "%TEMP%"},
        {"%UNBEKANNT%\\a", "%UNBEKANNT%\\a"},
        {"50% of %TEMP%", "50% of C:\\Temp"},
        {"100%", "100%"},
        {"%", "%"},
        {"%%", "%%"},
        {"%%TEMP%", "%C:\\Temp"},
        {"%a\\b%TEMP%", "%a\\bC:\\Temp"},
        {"C:\\ohne", "C:\\ohne"},
        {"", ""},
    };
    for (const auto& c : cases) {
        std::vector<std::string> calls;
        EXPECT_EQ(ReplacePathVariables(c.path, &TableLookup, &calls), c.result) << c.path;
    }
    std::vector<std::string> calls;
    ReplacePathVariables("%%|%a/b%|%TEMP%", &TableLookup, &calls);
    EXPECT_EQ(calls, (std::vector<std::string>{"|", "|", "TEMP"}));
    EXPECT_EQ(ReplacePathVariables("%TEMP%", nullptr, nullptr), "%TEMP%");
}

TEST(ReplacePathVariables, SystemNamesComeFromTheSystem)
{
    CString doc;
    ASSERT_TRUE(ReturnDocDir(doc));
    EXPECT_EQ(ReplacePathVariables(CString("%DocDir%|%docdir%")), doc + "|" + doc);

    const CString prog = ReplacePathVariables(CString("%ProgDir%"));
    EXPECT_NE(prog, "%ProgDir%");
    EXPECT_FALSE(prog.IsEmpty());
#ifdef _WIN32
    char exe[MAX_PATH] = {};
    GetModuleFileNameA(nullptr, exe, MAX_PATH);
    EXPECT_EQ(CString(exe).Left(prog.GetLength() + 1), prog + "\\");

    SetEnvironmentVariableA("TW_STRINGS_TEST", "Wert 1");
    EXPECT_EQ(ReplacePathVariables(CString("a%TW_STRINGS_TEST%b")), "aWert 1b");
    SetEnvironmentVariableA("TW_STRINGS_TEST", nullptr);
#else
    setenv("TW_STRINGS_TEST", "Wert 1", 1);
    EXPECT_EQ(ReplacePathVariables(CString("a%TW_STRINGS_TEST%b")), "aWert 1b");
    unsetenv("TW_STRINGS_TEST");
#endif
    EXPECT_EQ(ReplacePathVariables(CString("a%TW_STRINGS_TEST%b")), "a%TW_STRINGS_TEST%b");
}

TEST(ReturnDocDir, GivesAnExistingFolderWithoutTrailingSeparator)
{
    CString dir("vorher");
    ASSERT_TRUE(ReturnDocDir(dir));
    ASSERT_FALSE(dir.IsEmpty());
#ifdef _WIN32
    const DWORD attributes = GetFileAttributesA(dir);
    ASSERT_NE(attributes, INVALID_FILE_ATTRIBUTES) << dir.GetString();
    EXPECT_NE(attributes & FILE_ATTRIBUTE_DIRECTORY, 0u);
    EXPECT_NE(dir[dir.GetLength() - 1], '\\');
    EXPECT_EQ(dir[1], ':') << dir.GetString();
#else
    EXPECT_EQ(dir, std::getenv("HOME"));
    const std::string saved = std::getenv("HOME");
    unsetenv("HOME");
    EXPECT_FALSE(ReturnDocDir(dir));
    EXPECT_TRUE(dir.IsEmpty());
    setenv("HOME", saved.c_str(), 1);
#endif
}
