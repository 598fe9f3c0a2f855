#include "settings.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <limits>
#include <string>

namespace {

const SettingsFormat kFormats[] = {SETTINGS_FORMAT_INI, SETTINGS_FORMAT_XML};

double FromBits(unsigned long long bits)
{
    double d;
    std::memcpy(&d, &bits, sizeof d);
    return d;
}

// A store whose keys and values hit every escaping and number rule.
void FillNasty(CSettingsBase& s)
{
    std::string everyByte;
    for (int c = 1; c < 256; ++c)
        everyByte += char(c);
    const char* texts[] = {
        "",
        " vorn",
        "hinten ",
        "  ",
        "a=b",
        "[Abschnitt]",
        "<tag a=\"1\">&amp;'</tag>",
        "Zeile1\r\nZeile2\nZeile3\r",
        "\t",
        "\\",
        "\\x41\\n",
        "äöüÄÖÜß€ÿ\x81\x8D\x8F\x90\x9D",
        ";kein Kommentar",
        "#auch nicht",
        "NaN:",
        ":",
        "Integer,deleted:5",
        "]]>",
        "\x01\x1F\x7F",
        everyByte.c_str(),
    };
    char key[40];
    int n = 0;
    for (const char* t : texts) {
        std::snprintf(key, sizeof key, "Text.%d", n++);
        s.setString(key, t);
    }
    s.setFile("Datei.Pfad", "C:\\Programme\\Größe\\a b.txt");
    s.setFile("Datei.Leer", "");

    const char* keys[] = {
        "MARKER.Linie.Farbe", "key=with=eq",   "[klammer",     ";semi",    "#raute",
        " blank vorn",        "blank hinten ", "Größe.Ümlaut", "a\\.b",    "tab\tkey",
        "neue\nZeile",        "<>&\"'",        "x\x01y",       "\xA0nbsp", "€uro",
    };
    int v = 0;
    for (const char* k : keys)
        s.setInt(k, v++);
    s.setInt(std::string(300, 'L').c_str(), 7);

    const int ints[] = {0, -1, 1, INT_MIN, INT_MAX, 255};
    n = 0;
    for (int i : ints) {
        std::snprintf(key, sizeof key, "Int.%d", n++);
        s.setInt(key, i);
    }
    const LONGLONG ptrs[] = {0, LLONG_MIN, LLONG_MAX, -0x123456789AB};
    n = 0;
    for (LONGLONG p : ptrs) {
        std::snprintf(key, sizeof key, "Ptr.%d", n++);
        s.setInt64(key, p);
    }
    const double doubles[] = {
        0.0,
        -0.0,
        0.1,
        1.0 / 3.0,
        3.141592653589793,
        1e308,
        -1.7976931348623157e308,
        5e-324,
        2.2250738585072014e-308,
        std::numeric_limits<double>::infinity(),
        -std::numeric_limits<double>::infinity(),
        std::numeric_limits<double>::quiet_NaN(),
        FromBits(0x7FF0000000000001ULL),
        FromBits(0xFFF8000000000123ULL),
        123456789012345678.0,
    };
    n = 0;
    for (double d : doubles) {
        std::snprintf(key, sizeof key, "Double.%d", n++);
        s.setDouble(key, d);
    }
    s.setBool("Bool.Ja", 1);
    s.setBool("Bool.Nein", 0);
    BYTE all[256];
    for (int i = 0; i < 256; ++i)
        all[i] = BYTE(255 - i);
    s.setBinary("Binary.Alle", all, 256);
    s.setBinary("Binary.Leer", nullptr, 0);
    s.setBinary("Binary.Null", all + 255, 1);

    s.setDeleted("Text.3", 1);
    s.setDeleted("Int.1", 1);
    s.setDeleted("Binary.Leer", 1);
    s.setDeleted("Double.11", 1);
}

bool SameRecord(const nList& a, const nList& b)
{
    if (std::strcmp(a.key, b.key) != 0 || a.type != b.type || a.deleted != b.deleted)
        return false;
    switch (a.type) {
    case SETTINGS_STRING:
    case SETTINGS_FILE:
        return std::strcmp(static_cast<const char*>(a.value), static_cast<const char*>(b.value)) == 0;
    case SETTINGS_BINARY:
        return BinaryToStr(a.value) == BinaryToStr(b.value);
    case SETTINGS_DOUBLE:
        return std::memcmp(a.value, b.value, sizeof(double)) == 0;
    case SETTINGS_INTPTR:
        return *static_cast<const INT_PTR*>(a.value) == *static_cast<const INT_PTR*>(b.value);
    default:
        return *static_cast<const int*>(a.value) == *static_cast<const int*>(b.value);
    }
}

std::string Export(const CSettings& s, SettingsFormat f, const char* section)
{
    const CString text = s.ExportSettingsText(f, section);
    return std::string(text.GetString(), size_t(text.GetLength()));
}

int Import(CSettings& s, SettingsFormat f, const char* section, const std::string& text)
{
    return s.ImportSettingsText(f, section, text.data(), int(text.size()));
}

// A private folder for the files of one test, removed afterwards.
class TempFolder
{
public:
    TempFolder()
    {
        const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
        m_path = std::filesystem::temp_directory_path() / (std::string("twsettings_") + info->name());
        std::filesystem::remove_all(m_path);
        std::filesystem::create_directories(m_path);
    }
    ~TempFolder() { std::filesystem::remove_all(m_path); }
    std::string File(const char* name) const { return (m_path / name).string(); }

private:
    std::filesystem::path m_path;
};

std::string ReadAll(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

}  // namespace

TEST(SettingsExchange, EveryTypeRoundTripsExactlyThroughTextAndFiles)
{
    CSettings original;
    FillNasty(original);
    TempFolder folder;
    for (SettingsFormat f : kFormats) {
        const std::string text = Export(original, f, "Programm");
        CSettings back;
        ASSERT_EQ(Import(back, f, "Programm", text), 1) << f << "\n" << text;
        EXPECT_TRUE(back.IsEqual(original)) << f;
        EXPECT_EQ(Export(back, f, "Programm"), text) << f;

        const std::string path = folder.File(f == SETTINGS_FORMAT_XML ? "s.xml" : "s.ini");
        ASSERT_EQ(original.ExchangeSettings(0, "Programm", path.c_str()), 1);
        EXPECT_EQ(ReadAll(path), text);
        CSettings fromFile;
        ASSERT_EQ(fromFile.ExchangeSettings(1, "Programm", path.c_str()), 1);
        EXPECT_TRUE(fromFile.IsEqual(original)) << f;
    }
}

TEST(SettingsExchange, IniLayoutIsPlainTypedLines)
{
    CSettings s;
    s.setInt("MARKER.Linie.Farbe", 255);
    s.setString("GLOBAL.Editor", "C:\\edit.exe");
    s.setBool("Alt", 1);
    s.setDeleted("Alt", 1);
    s.setDouble("Zoom", 0.1);
    const BYTE b[] = {0x0F, 0xA0};
    s.setBinary("Daten", b, 2);
    s.setString("Mehr=Zeilen", " a\r\nb ");
    EXPECT_EQ(Export(s, SETTINGS_FORMAT_INI, "Bildverwaltung"), "[Bildverwaltung]\r\n"
                                                                "MARKER.Linie.Farbe=Integer:255\r\n"
                                                                "GLOBAL.Editor=String:C:\\\\edit.exe\r\n"
                                                                "Alt=Boolean,deleted:TRUE\r\n"
                                                                "Zoom=Double:0.1\r\n"
                                                                "Daten=Binary:0FA0\r\n"
                                                                "Mehr\\x3DZeilen=String:\\x20a\\r\\nb\\x20\r\n");
    EXPECT_EQ(Export(CSettings(), SETTINGS_FORMAT_INI, nullptr), "[Settings]\r\n");
}

TEST(SettingsExchange, XmlLayoutIsDeclaredAsWindows1252)
{
    CSettings s;
    s.setInt("MARKER.Linie.Farbe", 255);
    s.setString("Text<&>", "a\"b\r\n\x02ü\x81");
    s.setDeleted("Text<&>", 1);
    s.setInt64("Ptr", -5);
    EXPECT_EQ(Export(s, SETTINGS_FORMAT_XML, "A&B"),
              "<?xml version=\"1.0\" encoding=\"windows-1252\"?>\r\n"
              "<settings>\r\n"
              " <section name=\"A&amp;B\">\r\n"
              "  <value key=\"MARKER.Linie.Farbe\" type=\"Integer\">255</value>\r\n"
              "  <value key=\"Text&lt;&amp;&gt;\" type=\"String\" deleted=\"1\">"
              "a\"b&#xD;&#xA;&#xE002;ü&#x81;</value>\r\n"
              "  <value key=\"Ptr\" type=\"IntPtr\">-5</value>\r\n"
              " </section>\r\n"
              "</settings>\r\n");
}

// Cuts a valid file at every byte: a read either fails and changes nothing,
// or succeeds with exactly the records whose text is complete.
TEST(SettingsExchange, CutFilesNeverChangeTheStoreHalfway)
{
    CSettings source;
    source.setInt("Gemeinsam", 10);
    source.setString("Text", "zwei\r\nZeilen");
    source.setDouble("Pi", 3.14159);
    source.setBool("Ja", 1);
    const BYTE b[] = {1, 2, 3};
    source.setBinary("Bytes", b, 3);
    source.setDeleted("Ja", 1);
    source.setInt64("Ptr", 1234567890123LL);

    auto fillBase = [](CSettings& s) {
        s.setInt("Gemeinsam", 1);
        s.setString("Nur.Hier", "bleibt");
    };
    for (SettingsFormat f : kFormats) {
        const std::string text = Export(source, f, "S");
        int successes = 0;
        for (size_t cut = 0; cut < text.size(); ++cut) {
            const std::string part = text.substr(0, cut);
            CSettings store, before;
            fillBase(store);
            fillBase(before);
            const int result = Import(store, f, "S", part);
            if (!result) {
                EXPECT_TRUE(store.IsEqual(before)) << f << " cut " << cut;
                continue;
            }
            ++successes;
            // The records read are a leading part of the source, whole.
            CSettings parsed;
            ASSERT_TRUE(ParseSettingsText(f, "S", part.data(), part.size(), parsed));
            for (int i = 0; i < parsed.GetCount(); ++i)
                EXPECT_TRUE(SameRecord(*parsed.GetAt(i), *source.GetAt(i))) << f << " cut " << cut;
            before.Merge(parsed);
            EXPECT_TRUE(store.IsEqual(before)) << f << " cut " << cut;
            EXPECT_EQ(store.getString("Nur.Hier"), "bleibt");
        }
        if (f == SETTINGS_FORMAT_XML)
            EXPECT_EQ(successes, 2);  // only without the final line end
        else
            EXPECT_EQ(successes, source.GetCount());  // at each line end after the header
    }
}

TEST(SettingsExchange, MalformedFilesAreRefusedAndChangeNothing)
{
    struct
    {
        SettingsFormat format;
        const char* text;
    } cases[] = {
        {SETTINGS_FORMAT_INI, ""},
        {SETTINGS_FORMAT_INI, "[S]"},
        {SETTINGS_FORMAT_INI, "[Anders]\r\nA=Integer:1\r\n"},
        {SETTINGS_FORMAT_INI, "A=Integer:1\r\n[S]\r\n"},
        {SETTINGS_FORMAT_INI, "[S]\r\nA=Integer:1"},
        {SETTINGS_FORMAT_INI, "[S]\r\nA=Integer:1\r\na=Integer:2\r\n"},
        {SETTINGS_FORMAT_INI, "[S]\r\nA=Integer:2147483648\r\n"},
        {SETTINGS_FORMAT_INI, "[S]\r\nA=Integer:1x\r\n"},
        {SETTINGS_FORMAT_INI, "[S]\r\nA=Integer: \r\n"},
        {SETTINGS_FORMAT_INI, "[S]\r\nA=Integer:+1\r\n"},
        {SETTINGS_FORMAT_INI, "[S]\r\nA=IntPtr:9223372036854775808\r\n"},
        {SETTINGS_FORMAT_INI, "[S]\r\nA=Double:1e999\r\n"},
        {SETTINGS_FORMAT_INI, "[S]\r\nA=Double:NaN:7FF0000000000000\r\n"},
        {SETTINGS_FORMAT_INI, "[S]\r\nA=Double:\r\n"},
        {SETTINGS_FORMAT_INI, "[S]\r\nA=Boolean:vielleicht\r\n"},
        {SETTINGS_FORMAT_INI, "[S]\r\nA=Binary:ABC\r\n"},
        {SETTINGS_FORMAT_INI, "[S]\r\nA=Binary:GG\r\n"},
        {SETTINGS_FORMAT_INI, "[S]\r\nA=Zahl:1\r\n"},
        {SETTINGS_FORMAT_INI, "[S]\r\nA=Integer,weg:1\r\n"},
        {SETTINGS_FORMAT_INI, "[S]\r\nA=1\r\n"},
        {SETTINGS_FORMAT_INI, "[S]\r\nA\r\n"},
        {SETTINGS_FORMAT_INI, "[S]\r\n=String:x\r\n"},
        {SETTINGS_FORMAT_INI, "[S]\r\nA=String:a\\qb\r\n"},
        {SETTINGS_FORMAT_INI, "[S]\r\nA=String:ab\\\r\n"},
        {SETTINGS_FORMAT_INI, "[S]\r\nA=String:a\\x0\r\n"},
        {SETTINGS_FORMAT_INI, "[S]\r\nA=String:a\\x00b\r\n"},
        {SETTINGS_FORMAT_INI, "[S\r\nA=Integer:1\r\n"},
        {SETTINGS_FORMAT_INI, "\xEF\xBB\xBF[S]\r\nA=Integer:1\r\n"},
        {SETTINGS_FORMAT_XML, ""},
        {SETTINGS_FORMAT_XML, "<settings/>"},
        {SETTINGS_FORMAT_XML, "<settings><section name=\"X\"/></settings>"},
        {SETTINGS_FORMAT_XML, "<settings><section name=\"S\"><value key=\"A\" type=\"Integer\">1</value></section>"},
        {SETTINGS_FORMAT_XML,
         "<settings><section name=\"S\"><value key=\"A\" type=\"Integer\">1</value></section></settings>x"},
        {SETTINGS_FORMAT_XML, "<settings><section><value key=\"A\" type=\"Integer\">1</value></section></settings>"},
        {SETTINGS_FORMAT_XML, "<settings><section name=\"S\"><value type=\"Integer\">1</value></section></settings>"},
        {SETTINGS_FORMAT_XML, "<settings><section name=\"S\"><value key=\"A\">1</value></section></settings>"},
        {SETTINGS_FORMAT_XML,
         "<settings><section name=\"S\"><value key=\"A\" type=\"Integer\">1</wert></section></settings>"},
        {SETTINGS_FORMAT_XML,
         "<settings><section name=\"S\"><value key=\"A\" type=\"Integer\">1<b/></value></section></settings>"},
        {SETTINGS_FORMAT_XML,
         "<settings><section name=\"S\"><wert key=\"A\" type=\"Integer\">1</wert></section></settings>"},
        {SETTINGS_FORMAT_XML,
         "<settings><section name=\"S\">text<value key=\"A\" type=\"Integer\">1</value></section></settings>"},
        {SETTINGS_FORMAT_XML, "<settings><section name=\"S\"><value key=\"A\" type=\"Integer\">1</value><value "
                              "key=\"a\" type=\"Integer\">2</value></section></settings>"},
        {SETTINGS_FORMAT_XML,
         "<settings><section name=\"S\"><value key=\"A\" type=\"String\">&nbsp;</value></section></settings>"},
        {SETTINGS_FORMAT_XML,
         "<settings><section name=\"S\"><value key=\"A\" type=\"String\">&#x4E2D;</value></section></settings>"},
        {SETTINGS_FORMAT_XML,
         "<settings><section name=\"S\"><value key=\"A\" type=\"String\">&#0;</value></section></settings>"},
        {SETTINGS_FORMAT_XML,
         "<settings><section name=\"S\"><value key=\"A\" type=\"String\">&#x80;</value></section></settings>"},
        {SETTINGS_FORMAT_XML,
         "<settings><section name=\"S\"><value key=\"A\" type=\"String\">a & b</value></section></settings>"},
        {SETTINGS_FORMAT_XML, "<settings><section name=\"S\"><value key=\"A\" type=\"Integer\" "
                              "deleted=\"ja\">1</value></section></settings>"},
        {SETTINGS_FORMAT_XML,
         "<settings><section name=\"S\"><value key=\"A\"type=\"Integer\">1</value></section></settings>"},
        {SETTINGS_FORMAT_XML,
         "<settings><section name=\"S\"><value key=\"A<\" type=\"Integer\">1</value></section></settings>"},
        {SETTINGS_FORMAT_XML,
         "<settings><section name=\"S\"><value key=\"A\" type=\"Integer\">1<!-- offen</value></section></settings>"},
        {SETTINGS_FORMAT_XML, "<?xml version=\"1.0\" encoding=\"UTF-8\"?><settings><section name=\"S\"/></settings>"},
        {SETTINGS_FORMAT_XML, "<!DOCTYPE settings [<!ENTITY e \"x\">]><settings><section name=\"S\"/></settings>"},
        {SETTINGS_FORMAT_XML, " <?xml version=\"1.0\" encoding=\"UTF-8\"?><settings><section name=\"S\"/></settings>"},
        {SETTINGS_FORMAT_XML, "\xEF\xBB\xBF<settings><section name=\"S\"/></settings>"},
        {SETTINGS_FORMAT_XML, "<einstellungen><section name=\"S\"/></einstellungen>"},
    };
    for (auto& c : cases) {
        CSettings s, before;
        s.setInt("A", 42);
        before.setInt("A", 42);
        EXPECT_EQ(Import(s, c.format, "S", c.text), 0) << c.text;
        EXPECT_TRUE(s.IsEqual(before)) << c.text;
    }
    CSettings s;
    const std::string withNul("[S]\r\nA=String:a\0b\r\n", 19);
    EXPECT_EQ(Import(s, SETTINGS_FORMAT_INI, "S", withNul), 0);
    EXPECT_EQ(s.ImportSettingsText(SETTINGS_FORMAT_INI, "S", "[S]\r\n", -1), 0);
    EXPECT_EQ(s.GetCount(), 0);
}

TEST(SettingsExchange, HandWrittenVariantsAreAccepted)
{
    struct
    {
        SettingsFormat format;
        const char* text;
        const char* key;
        const char* value;  // getString of a String record, else the INI value text
    } cases[] = {
        {SETTINGS_FORMAT_INI, "; Kommentar\n\n[s]\nA = String : wert \n", "A", "wert"},
        {SETTINGS_FORMAT_INI, "[S]\r\n  # Kommentar\r\nA=string:x\r\n", "A", "x"},
        {SETTINGS_FORMAT_INI, "[Anders]\r\nA=Unsinn\r\n[S]\r\nA=String:y\r\n", "A", "y"},
        {SETTINGS_FORMAT_INI, "[S]\r\nA=String:\\x5b\\x3d\r\n", "A", "[="},
        {SETTINGS_FORMAT_INI, "[S]\r\nA=String:a=b:c\r\n", "A", "a=b:c"},
        {SETTINGS_FORMAT_INI, "[S]\r\nA=String:\r\n", "A", ""},
        {SETTINGS_FORMAT_INI, "[S]\r\n[Anders]\r\nX=Y\r\n[s]\r\nA=String:z\r\n", "A", "z"},
        {SETTINGS_FORMAT_XML,
         "<settings><section name='s'><value key='A' type='string'>wert</value></section></settings>", "A", "wert"},
        {SETTINGS_FORMAT_XML,
         "<?xml version='1.0' encoding='ISO-8859-1'?>\n<!-- c -->\n<settings>\n<section name=\"S\" >\n<value "
         "type=\"String\" key=\"A\" "
         "extra=\"1\"><![CDATA[<&>]]>&#65;&#x42;&apos;&#x20AC;</value>\n</section>\n</settings>\n<!-- ende -->\n",
         "A", "<&>AB'€"},
        {SETTINGS_FORMAT_XML, "<settings><section name=\"S\"><value key=\"A\" type=\"String\"/></section></settings>",
         "A", ""},
        {SETTINGS_FORMAT_XML,
         "<settings><section name=\"S\"><value key=\"A\" type=\"String\">a\r\nb\rc</value></section></settings>", "A",
         "a\nb\nc"},
        {SETTINGS_FORMAT_XML,
         "<settings><section name=\"S\"><value key=\"A\tB\" type=\"String\">x</value></section></settings>", "A B",
         "x"},
        {SETTINGS_FORMAT_XML,
         "<settings><section name=\"X\"><wert/></section><section name=\"S\"><value key=\"A\" "
         "type=\"String\">q</value></section></settings>",
         nullptr, nullptr},
    };
    for (auto& c : cases) {
        CSettings s;
        const int result = Import(s, c.format, "S", c.text);
        if (!c.key) {
            EXPECT_EQ(result, 0) << "unknown elements are refused even in other sections";
            continue;
        }
        ASSERT_EQ(result, 1) << c.text;
        EXPECT_EQ(s.getString(c.key, "(fehlt)"), c.value) << c.text;
    }

    CSettings b;
    ASSERT_EQ(
        Import(b, SETTINGS_FORMAT_INI, "S",
               "[S]\r\nA=Boolean:1\r\nB=Boolean:false\r\nC=boolean,DELETED:true\r\nD=Double:NaN:7ff8000000000001\r\n"),
        1);
    EXPECT_TRUE(b.getBool("A"));
    EXPECT_FALSE(b.getBool("B", true));
    EXPECT_EQ(b.hash_lookup("C")->deleted, 1);
    EXPECT_TRUE(std::isnan(b.getDouble("D")));
}

TEST(SettingsExchange, ReadingKeepsKeysTheFileLacksAndTakesTheFilesTypes)
{
    CSettings s;
    s.setString("Nur.Im.Speicher", "bleibt");
    s.setString("Typ", "text");
    s.setInt("Wert", 1);
    ASSERT_EQ(
        Import(s, SETTINGS_FORMAT_INI, "S", "[S]\r\ntyp=Integer:5\r\nWert=Integer,deleted:2\r\nNeu=Double:0.5\r\n"), 1);
    EXPECT_EQ(s.getString("Nur.Im.Speicher"), "bleibt");
    EXPECT_EQ(s.getInt("Typ"), 5);
    EXPECT_STREQ(s.GetAt(1)->key, "Typ");
    EXPECT_EQ(s.getInt("Wert", -1), -1);
    EXPECT_EQ(s.hash_lookup("Wert")->deleted, 1);
    EXPECT_EQ(s.getDouble("Neu"), 0.5);
    EXPECT_EQ(s.GetCount(), 4);
}

TEST(SettingsExchange, SectionNameSelectsAndMustBePresent)
{
    CSettings source;
    source.setInt("A", 1);
    for (SettingsFormat f : kFormats) {
        const std::string text = Export(source, f, "Bildverwaltung");
        CSettings s;
        EXPECT_EQ(Import(s, f, "Textverwaltung", text), 0) << f;
        EXPECT_EQ(Import(s, f, nullptr, text), 0) << f;
        EXPECT_EQ(Import(s, f, "BILDVERWALTUNG", text), 1) << f;
        EXPECT_EQ(s.getInt("A"), 1);

        const std::string unnamed = Export(source, f, "");
        CSettings t;
        EXPECT_EQ(Import(t, f, nullptr, unnamed), 1) << f;
        EXPECT_EQ(Import(t, f, "Settings", unnamed), 1) << f;
    }
    // Section names with the characters that need escaping.
    const char* names[] = {"[a]", " b ", "c\\d", "<&\">", "Größe"};
    for (SettingsFormat f : kFormats)
        for (const char* name : names) {
            CSettings s;
            EXPECT_EQ(Import(s, f, name, Export(source, f, name)), 1) << f << name;
            EXPECT_EQ(s.getInt("A"), 1);
        }
}

TEST(SettingsExchange, FileFailuresReportZero)
{
    TempFolder folder;
    CSettings s;
    s.setInt("A", 1);
    EXPECT_EQ(s.ExchangeSettings(1, "S", folder.File("fehlt.ini").c_str()), 0);
    EXPECT_EQ(s.ExchangeSettings(0, "S", folder.File("kein/ordner.ini").c_str()), 0);
    EXPECT_EQ(s.ExchangeSettings(0, "S", nullptr), 0);
    EXPECT_EQ(s.ExchangeSettings(0, "S", ""), 0);
    const std::string path = folder.File("s.ini");
    EXPECT_EQ(s.ExchangeSettings(2, "S", path.c_str()), 0);
    EXPECT_EQ(s.ExchangeSettings(-1, "S", path.c_str()), 0);
    EXPECT_FALSE(std::filesystem::exists(path));
    EXPECT_EQ(s.GetCount(), 1);

    // A failed export leaves the old file as it was, and nothing beside it.
    const std::string old = folder.File("alt.ini");
    std::ofstream(old, std::ios::binary) << "alt";
    std::filesystem::permissions(old, std::filesystem::perms::owner_write, std::filesystem::perm_options::remove);
    EXPECT_EQ(s.ExchangeSettings(0, "S", old.c_str()), 0);
    EXPECT_EQ(ReadAll(old), "alt");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(std::filesystem::path(old).parent_path()),
                            std::filesystem::directory_iterator()),
              1);
    std::filesystem::permissions(old, std::filesystem::perms::owner_write, std::filesystem::perm_options::add);
}

TEST(SettingsExchange, ExtensionChoosesTheFormat)
{
    TempFolder folder;
    CSettings s;
    s.setInt("A", 1);
    struct
    {
        const char* name;
        const char* start;
    } cases[] = {
        {"a.ini", "[S]"}, {"a.XML", "<?xml"}, {"a.txt", "[S]"}, {"a.xml.ini", "[S]"}, {"b.Xml", "<?xml"},
    };
    for (auto& c : cases) {
        const std::string path = folder.File(c.name);
        ASSERT_EQ(s.ExchangeSettings(0, "S", path.c_str()), 1) << c.name;
        EXPECT_EQ(ReadAll(path).rfind(c.start, 0), 0u) << c.name;
        CSettings back;
        EXPECT_EQ(back.ExchangeSettings(1, "S", path.c_str()), 1) << c.name;
        EXPECT_TRUE(back.IsEqual(s)) << c.name;
    }
}

TEST(SettingsExchange, LargeStoreRoundTrips)
{
    CSettings s;
    char key[48];
    for (int i = 0; i < 5000; ++i) {
        std::snprintf(key, sizeof key, "Gruppe%02d.Eintrag%05d", i % 50, i);
        switch (i % 4) {
        case 0:
            s.setInt(key, i * 7919);
            break;
        case 1:
            s.setDouble(key, i / 7.0);
            break;
        case 2:
            s.setString(key, "Größe & <Zeile>\r\n");
            break;
        default:
            s.setBool(key, i & 8);
            break;
        }
    }
    for (SettingsFormat f : kFormats) {
        CSettings back;
        back.setString("Vorher", "da");
        ASSERT_EQ(Import(back, f, "S", Export(s, f, "S")), 1);
        EXPECT_EQ(back.GetCount(), 5001);
        EXPECT_EQ(back.getDouble("GRUPPE01.EINTRAG00001"), 1 / 7.0);
        EXPECT_EQ(back.getString("Vorher"), "da");
    }
}

TEST(SettingsExchange, RereadingKeepsRecordsAndTakesEveryValueOfTheFile)
{
    for (SettingsFormat format : kFormats) {
        // Written in another key order than the store's, with texts longer,
        // shorter and of other types than the store holds.
        CSettings file;
        file.setString("Lang", "ein deutlich laengerer Text als vorher");
        file.setString("kurz", "k");
        file.setBinary("Text", reinterpret_cast<const BYTE*>("\x01\x02"), 2);
        file.setInt("Datei", 5);
        file.setFile("Zahl", "C:\\Bilder\\a.jpg");
        file.setString("Neu", "neu");
        const CString text = file.ExportSettingsText(format, "S");

        CSettings s;
        s.setString("Kurz", "ein langer Text");
        s.setString("lang", "x");
        s.setString("Text", "abc");
        s.setFile("Datei", "C:\\a.txt");
        s.setInt("Zahl", 7);
        s.setBool("Bleibt", 1);
        const nList* kurz = s.hash_lookup("Kurz");
        ASSERT_EQ(s.ImportSettingsText(format, "S", text, text.GetLength()), 1) << format;
        EXPECT_EQ(s.hash_lookup("kurz"), kurz) << format;
        EXPECT_EQ(s.getString("Kurz"), "k") << format;
        EXPECT_EQ(s.getString("Lang"), "ein deutlich laengerer Text als vorher") << format;
        int count = 0;
        const BYTE* bytes = s.getBinary("Text", &count);
        ASSERT_EQ(count, 2) << format;
        EXPECT_EQ(bytes[0], 1);
        EXPECT_EQ(bytes[1], 2);
        EXPECT_EQ(s.getInt("Datei"), 5) << format;
        EXPECT_EQ(s.hash_lookup("Datei")->value, &s.hash_lookup("Datei")->scalar) << format;
        EXPECT_EQ(s.getFile("Zahl"), "C:\\Bilder\\a.jpg") << format;
        EXPECT_TRUE(s.getBool("Bleibt")) << format;
        EXPECT_EQ(s.GetAt(s.GetCount() - 1)->key, CString("Neu")) << format;

        // The same file again, then values set over the ones that were read.
        ASSERT_EQ(s.ImportSettingsText(format, "S", text, text.GetLength()), 1) << format;
        EXPECT_EQ(s.hash_lookup("Kurz"), kurz) << format;
        EXPECT_EQ(s.getString("Kurz"), "k") << format;
        CSettings fresh;
        ASSERT_EQ(fresh.ImportSettingsText(format, "S", text, text.GetLength()), 1) << format;
        EXPECT_TRUE(fresh.IsEqual(file)) << format;
        fresh.setString("Lang", "neu gesetzt");
        fresh.setBool("Neu", 3);
        fresh.setBinary("Text", nullptr, 0);
        EXPECT_EQ(fresh.getString("Lang"), "neu gesetzt") << format;
        EXPECT_EQ(fresh.getInt("Neu"), 1) << format;
        EXPECT_EQ(fresh.GetCount(), 6) << format;
    }
}
