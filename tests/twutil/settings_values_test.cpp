#include "settings.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <string>

TEST(BinaryToStr, UpperCaseHexPairsSeparatedByBlanks)
{
    const BYTE bytes[] = {0x0A, 0xFF, 0x10, 0x00};
    EXPECT_EQ(BinaryToStr(bytes, 4), "0A FF 10 00");
    EXPECT_EQ(BinaryToStr(bytes, 1), "0A");
    EXPECT_EQ(BinaryToStr(bytes, 0), "");
    EXPECT_EQ(BinaryToStr(bytes, -3), "");
    EXPECT_EQ(BinaryToStr(nullptr, 4), "");
}

TEST(BinaryToStr, ReadsTheLengthPrefixOfARecordValue)
{
    CSettings s;
    const BYTE bytes[] = {1, 0xAB};
    s.setBinary("x", bytes, 2);
    EXPECT_EQ(BinaryToStr(s.hash_lookup("x")->value), "01 AB");
    s.setBinary("x", nullptr, 0);
    EXPECT_EQ(BinaryToStr(s.hash_lookup("x")->value), "");
    EXPECT_EQ(BinaryToStr(static_cast<const void*>(nullptr)), "");
}

TEST(StrToBinary, HexPairsWithOptionalBlanks)
{
    struct
    {
        const char* text;
        std::string bytes;
    } cases[] = {
        {"0A FF 10", std::string("\x0A\xFF\x10", 3)},
        {"0aff10", std::string("\x0A\xFF\x10", 3)},
        {"  00\t01  ", std::string("\x00\x01", 2)},
        {"Ff", "\xFF"},
    };
    for (auto& c : cases) {
        unsigned char* bytes = reinterpret_cast<unsigned char*>(1);
        const int count = StrToBinary(c.text, bytes);
        ASSERT_EQ(count, int(c.bytes.size())) << c.text;
        ASSERT_NE(bytes, nullptr);
        EXPECT_EQ(std::memcmp(bytes, c.bytes.data(), c.bytes.size()), 0) << c.text;
        std::free(bytes);
    }
}

TEST(StrToBinary, BadTextGivesNoBytesAndNull)
{
    const char* cases[] = {"", "   ", "A", "0A F", "0 A", "0G", "0x0A", "0A,FF", "äö", nullptr};
    for (const char* text : cases) {
        unsigned char* bytes = reinterpret_cast<unsigned char*>(1);
        EXPECT_EQ(StrToBinary(text, bytes), 0) << (text ? text : "(null)");
        EXPECT_EQ(bytes, nullptr);
    }
}

TEST(StrToBinary, ReadsWhatBinaryToStrWrites)
{
    BYTE all[256];
    for (int i = 0; i < 256; ++i)
        all[i] = BYTE(i);
    const CString text = BinaryToStr(all, 256);
    unsigned char* bytes = nullptr;
    ASSERT_EQ(StrToBinary(text, bytes), 256);
    EXPECT_EQ(std::memcmp(bytes, all, 256), 0);
    std::free(bytes);
}

TEST(IsStringValueTrue, TruthWordsIgnoringCaseAndSurroundingBlanks)
{
    struct
    {
        const char* text;
        int value;
    } cases[] = {
        {"1", 1},     {"ok", 1},  {"OK", 1}, {"yes", 1},  {"Ja", 1},     {"TRUE", 1}, {"Wahr", 1},
        {" ja\t", 1}, {"0", 0},   {"no", 0}, {"nein", 0}, {"falsch", 0}, {"on", 0},   {"11", 0},
        {"true!", 0}, {"j a", 0}, {"", 0},   {"  ", 0},   {nullptr, 0},
    };
    for (auto& c : cases)
        EXPECT_EQ(IsStringValueTrue(c.text), c.value) << (c.text ? c.text : "(null)");
}

TEST(SettingsFormatFromPath, XmlOnlyForTheXmlExtension)
{
    struct
    {
        const char* path;
        SettingsFormat format;
    } cases[] = {
        {"C:\\a\\b.xml", SETTINGS_FORMAT_XML}, {"b.XML", SETTINGS_FORMAT_XML},  {"b.Xml", SETTINGS_FORMAT_XML},
        {".xml", SETTINGS_FORMAT_XML},         {"b.ini", SETTINGS_FORMAT_INI},  {"b.xml.bak", SETTINGS_FORMAT_INI},
        {"bxml", SETTINGS_FORMAT_INI},         {"b.xmlx", SETTINGS_FORMAT_INI}, {"", SETTINGS_FORMAT_INI},
        {nullptr, SETTINGS_FORMAT_INI},
    };
    for (auto& c : cases)
        EXPECT_EQ(SettingsFormatFromPath(c.path), c.format) << (c.path ? c.path : "(null)");
}
