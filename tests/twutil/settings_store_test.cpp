#include "settings.h"

#include "afxexcept.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <string>
#include <vector>

namespace {

// Runs f and reports whether it threw a CInvalidArgException*.
template <typename F>
bool ThrowsInvalidArg(F f)
{
    try {
        f();
    } catch (CException* e) {
        const bool invalidArg = e->IsKindOf(RUNTIME_CLASS(CInvalidArgException));
        e->Delete();
        return invalidArg;
    }
    return false;
}

}  // namespace

TEST(SettingsStore, MissingKeyGivesTheDefault)
{
    CSettings s;
    s.setInt("Da", 1);
    EXPECT_EQ(s.getInt("Fehlt", 42), 42);
    EXPECT_EQ(s.getInt("Fehlt"), 0);
    EXPECT_EQ(s.getInt64("Fehlt", -7), -7);
    EXPECT_TRUE(s.getBool("Fehlt", true));
    EXPECT_FALSE(s.getBool("Fehlt"));
    EXPECT_EQ(s.getDouble("Fehlt", 2.5), 2.5);
    EXPECT_EQ(s.getString("Fehlt", "vorgabe"), "vorgabe");
    EXPECT_EQ(s.getString("Fehlt"), "");
    EXPECT_EQ(s.getFile("Fehlt", "c:\\x"), "c:\\x");
    int count = 5;
    EXPECT_EQ(s.getBinary("Fehlt", &count), nullptr);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(s.getInt(nullptr, 3), 3);
    EXPECT_EQ(s.hash_lookup(nullptr), nullptr);
}

TEST(SettingsStore, KeysIgnoreCaseAndKeepTheFirstSpelling)
{
    CSettings s;
    s.setInt("MARKER.Linie.Farbe", 255);
    s.setInt("marker.LINIE.farbe", 128);
    s.setString("Schrift.Größe", "klein");
    EXPECT_EQ(s.GetCount(), 2);
    EXPECT_EQ(s.getInt("Marker.Linie.Farbe"), 128);
    EXPECT_STREQ(s.hash_lookup("MARKER.LINIE.FARBE")->key, "MARKER.Linie.Farbe");
    EXPECT_EQ(s.getString("SCHRIFT.GRÖSSE"), "");  // ß has no upper case of its own
    EXPECT_EQ(s.getString("schrift.grÖße"), "klein");
}

TEST(SettingsStore, GetsConvertOnlyBetweenRelatedTypes)
{
    CSettings s;
    s.setInt("i", -5);
    s.setBool("b", 7);
    s.setInt64("p", 0x100000000LL);
    s.setInt64("q", 12);
    s.setDouble("d", 2.75);
    s.setString("s", "12");
    s.setFile("f", "C:\\a.txt");
    const BYTE bytes[] = {1, 2};
    s.setBinary("x", bytes, 2);

    struct
    {
        const char* key;
        int asInt;
        LONGLONG asInt64;
        bool asBool;
        double asDouble;
        const char* asString;
    } cases[] = {
        {"i", -5, -5, true, -5.0, "-"},
        {"b", 1, 1, true, -1.0, "-"},
        {"p", -1, 0x100000000LL, true, 4294967296.0, "-"},
        {"q", 12, 12, true, 12.0, "-"},
        {"d", -1, -1, false, 2.75, "-"},
        {"s", -1, -1, false, -1.0, "12"},
        {"f", -1, -1, false, -1.0, "C:\\a.txt"},
        {"x", -1, -1, false, -1.0, "-"},
    };
    for (auto& c : cases) {
        EXPECT_EQ(s.getInt(c.key, -1), c.asInt) << c.key;
        EXPECT_EQ(s.getInt64(c.key, -1), c.asInt64) << c.key;
        EXPECT_EQ(s.getBool(c.key, false), c.asBool) << c.key;
        EXPECT_EQ(s.getDouble(c.key, -1.0), c.asDouble) << c.key;
        EXPECT_EQ(s.getString(c.key, "-"), c.asString) << c.key;
        EXPECT_EQ(s.getFile(c.key, "-"), c.asString) << c.key;
    }
    int count = 0;
    const BYTE* got = s.getBinary("x", &count);
    ASSERT_NE(got, nullptr);
    EXPECT_EQ(count, 2);
    EXPECT_EQ(got[1], 2);
    EXPECT_EQ(s.getBinary("s"), nullptr);
}

TEST(SettingsStore, NumberSettersRefuseToReplaceTexts)
{
    CSettings s;
    s.setString("s", "text");
    s.setFile("f", "a.txt");
    const BYTE one = 1;
    s.setBinary("x", &one, 1);
    for (const char* key : {"s", "f", "x"}) {
        const int type = s.hash_lookup(key)->type;
        EXPECT_TRUE(ThrowsInvalidArg([&] { s.setInt(key, 1); })) << key;
        EXPECT_TRUE(ThrowsInvalidArg([&] { s.setInt64(key, 1); })) << key;
        EXPECT_TRUE(ThrowsInvalidArg([&] { s.setDouble(key, 1.0); })) << key;
        EXPECT_EQ(s.hash_lookup(key)->type, type) << key;
    }
    EXPECT_EQ(s.getString("s"), "text");
    EXPECT_EQ(s.getFile("f"), "a.txt");
}

TEST(SettingsStore, OtherSetsTurnTheRecordIntoTheirType)
{
    struct
    {
        void (*first)(CSettings&);
        void (*second)(CSettings&);
        int type;
    } cases[] = {
        {[](CSettings& s) { s.setInt("k", 3); }, [](CSettings& s) { s.setString("k", "t"); }, SETTINGS_STRING},
        {[](CSettings& s) { s.setString("k", "t"); }, [](CSettings& s) { s.setBool("k", 1); }, SETTINGS_BOOL},
        {[](CSettings& s) { s.setBool("k", 1); }, [](CSettings& s) { s.setDouble("k", 1.5); }, SETTINGS_DOUBLE},
        {[](CSettings& s) { s.setDouble("k", 1.5); }, [](CSettings& s) { s.setInt64("k", 9); }, SETTINGS_INTPTR},
        {[](CSettings& s) { s.setFile("k", "a"); }, [](CSettings& s) { s.setBinary("k", nullptr, 0); },
         SETTINGS_BINARY},
        {[](CSettings& s) { s.setBinary("k", nullptr, 0); }, [](CSettings& s) { s.setFile("k", "a"); }, SETTINGS_FILE},
        {[](CSettings& s) { s.setInt64("k", 9); }, [](CSettings& s) { s.setInt("k", 2); }, SETTINGS_INT},
    };
    for (auto& c : cases) {
        CSettings s;
        c.first(s);
        c.second(s);
        EXPECT_EQ(s.GetCount(), 1);
        EXPECT_EQ(s.hash_lookup("k")->type, c.type);
    }
}

TEST(SettingsStore, NullOrEmptyKeysAreNeverStored)
{
    CSettings s;
    const BYTE b = 0;
    EXPECT_FALSE(s.setInt(nullptr, 1));
    EXPECT_FALSE(s.setInt("", 1));
    EXPECT_FALSE(s.setInt64("", 1));
    EXPECT_FALSE(s.setDouble("", 1));
    EXPECT_FALSE(s.setBool(nullptr, 1));
    EXPECT_FALSE(s.setString("", "x"));
    EXPECT_FALSE(s.setFile(nullptr, "x"));
    EXPECT_FALSE(s.setBinary("", &b, 1));
    EXPECT_FALSE(s.setDeleted("", 1));
    EXPECT_EQ(s.GetCount(), 0);
}

TEST(SettingsStore, BinaryRefusesNegativeCountsAndMissingBytes)
{
    CSettings s;
    EXPECT_FALSE(s.setBinary("x", nullptr, 1));
    const BYTE b = 9;
    EXPECT_FALSE(s.setBinary("x", &b, -1));
    EXPECT_EQ(s.GetCount(), 0);
    EXPECT_TRUE(s.setBinary("x", nullptr, 0));
    int count = -1;
    EXPECT_NE(s.getBinary("x", &count), nullptr);
    EXPECT_EQ(count, 0);
}

TEST(SettingsStore, NullTextsStoreEmptyTexts)
{
    CSettings s;
    EXPECT_TRUE(s.setString("s", nullptr));
    EXPECT_TRUE(s.setFile("f", nullptr));
    EXPECT_EQ(s.getString("s", "-"), "");
    EXPECT_EQ(s.getFile("f", "-"), "");
}

TEST(SettingsStore, SetStringAcceptsTheRecordsOwnText)
{
    CSettings s;
    s.setString("s", "selbst");
    s.setString("s", static_cast<const char*>(s.hash_lookup("s")->value));
    EXPECT_EQ(s.getString("s"), "selbst");
}

TEST(SettingsStore, DeletedRecordsReadAsMissingUntilSetAgain)
{
    CSettings s;
    s.setInt("GLOBAL.Excel.Error", 2);
    EXPECT_TRUE(s.setDeleted("global.excel.error", 1));
    EXPECT_EQ(s.getInt("GLOBAL.Excel.Error", -1), -1);
    ASSERT_NE(s.hash_lookup("GLOBAL.Excel.Error"), nullptr);
    EXPECT_EQ(s.hash_lookup("GLOBAL.Excel.Error")->deleted, 1);
    EXPECT_EQ(*static_cast<int*>(s.hash_lookup("GLOBAL.Excel.Error")->value), 2);

    EXPECT_TRUE(s.setDeleted("GLOBAL.Excel.Error", 0));
    EXPECT_EQ(s.getInt("GLOBAL.Excel.Error", -1), 2);

    s.setDeleted("GLOBAL.Excel.Error", 5);
    EXPECT_EQ(s.hash_lookup("GLOBAL.Excel.Error")->deleted, 1);
    s.setInt("GLOBAL.Excel.Error", 3);
    EXPECT_EQ(s.hash_lookup("GLOBAL.Excel.Error")->deleted, 0);
    EXPECT_EQ(s.getInt("GLOBAL.Excel.Error"), 3);

    EXPECT_FALSE(s.setDeleted("Fehlt", 1));
    EXPECT_EQ(s.GetCount(), 1);
}

TEST(SettingsStore, GetVarWalksInInsertionOrder)
{
    CSettings s;
    const char* keys[] = {"Zeta", "alpha", "MARKER.Pfeil.Ende", "GLOBAL.Editor", "beta"};
    for (const char* k : keys)
        s.setInt(k, 1);
    s.setInt("ALPHA", 2);  // an existing key keeps its place
    s.setDeleted("MARKER.Pfeil.Ende", 1);

    std::vector<std::string> all;
    for (nList* r = s.getVar(LIST_FIRST, true); r; r = s.getVar(LIST_NEXT, true))
        all.push_back(r->key);
    EXPECT_EQ(all, (std::vector<std::string>{"Zeta", "alpha", "MARKER.Pfeil.Ende", "GLOBAL.Editor", "beta"}));

    std::vector<std::string> live;
    for (nList* r = s.getVar(LIST_FIRST, false); r; r = s.getVar(LIST_NEXT, false))
        live.push_back(r->key);
    EXPECT_EQ(live, (std::vector<std::string>{"Zeta", "alpha", "GLOBAL.Editor", "beta"}));

    EXPECT_EQ(s.getVar(LIST_NEXT, true), nullptr);
    EXPECT_EQ(s.getVar(static_cast<listtyp>(7), true), nullptr);

    CSettings empty;
    EXPECT_EQ(empty.getVar(LIST_FIRST, true), nullptr);
}

TEST(SettingsStore, ValuePointersHoldTheTypedValuesUnderTheirTypeCodes)
{
    CSettings s;
    s.setString("s", "Grün");
    s.setBool("b", 1);
    s.setInt("i", -3);
    s.setDouble("d", 0.5);
    const BYTE bytes[] = {0xDE, 0xAD, 0xBE};
    s.setBinary("x", bytes, 3);
    s.setFile("f", "a.bmp");
    s.setInt64("p", -0x123456789LL);

    const struct
    {
        const char* key;
        int type;
    } types[] = {{"s", 0}, {"b", 1}, {"i", 4}, {"d", 8}, {"x", 16}, {"f", 32}, {"p", 64}};
    for (const auto& t : types)
        EXPECT_EQ(s.hash_lookup(t.key)->type, t.type) << t.key;
    EXPECT_STREQ(static_cast<const char*>(s.hash_lookup("s")->value), "Grün");
    EXPECT_EQ(*static_cast<int*>(s.hash_lookup("b")->value), 1);
    EXPECT_EQ(*static_cast<int*>(s.hash_lookup("i")->value), -3);
    EXPECT_EQ(*static_cast<double*>(s.hash_lookup("d")->value), 0.5);
    const BYTE* block = static_cast<const BYTE*>(s.hash_lookup("x")->value);
    DWORD length;
    std::memcpy(&length, block, 4);
    EXPECT_EQ(length, 3u) << "a leading 32-bit length";
    EXPECT_EQ(std::memcmp(block + 4, bytes, 3), 0);
    EXPECT_STREQ(static_cast<const char*>(s.hash_lookup("f")->value), "a.bmp");
    EXPECT_EQ(*static_cast<INT_PTR*>(s.hash_lookup("p")->value), -0x123456789LL);
}

TEST(SettingsStore, RecordsAndScalarPointersSurviveGrowth)
{
    CSettings s;
    s.setInt("MARKER.Linie.Farbe", 1);
    nList* rec = s.hash_lookup("MARKER.Linie.Farbe");
    int* value = static_cast<int*>(rec->value);
    char key[32];
    for (int i = 0; i < 20000; ++i) {
        std::snprintf(key, sizeof key, "Gruppe%d.Wert%d", i % 37, i);
        s.setInt(key, i);
    }
    s.setInt("marker.linie.farbe", 99);
    EXPECT_EQ(s.hash_lookup("MARKER.Linie.Farbe"), rec);
    EXPECT_EQ(*value, 99);
    EXPECT_EQ(s.GetCount(), 20001);
    for (int i = 0; i < 20000; i += 997) {
        std::snprintf(key, sizeof key, "GRUPPE%d.WERT%d", i % 37, i);
        EXPECT_EQ(s.getInt(key, -1), i) << key;
    }
    EXPECT_STREQ(s.GetAt(20000)->key, "Gruppe19.Wert19999");
    EXPECT_EQ(s.GetAt(20001), nullptr);
    EXPECT_EQ(s.GetAt(-1), nullptr);

    s.RemoveAll();
    EXPECT_EQ(s.GetCount(), 0);
    EXPECT_EQ(s.hash_lookup("MARKER.Linie.Farbe"), nullptr);
    s.setInt("neu", 1);
    EXPECT_EQ(s.getInt("NEU"), 1);
}

TEST(SettingsStore, MergeSetsEverySourceRecordAndKeepsTheRest)
{
    CSettings target;
    target.setString("Bleibt", "da");
    target.setString("Typ", "text");
    target.setInt("Wert", 1);

    CSettings source;
    source.setInt("typ", 5);
    source.setInt("Wert", 2);
    source.setDeleted("Wert", 1);
    source.setDouble("Neu", 0.25);

    target.Merge(source);
    EXPECT_EQ(target.GetCount(), 4);
    EXPECT_EQ(target.getString("Bleibt"), "da");
    EXPECT_EQ(target.hash_lookup("Typ")->type, SETTINGS_INT);
    EXPECT_EQ(target.getInt("Typ"), 5);
    EXPECT_EQ(target.hash_lookup("Wert")->deleted, 1);
    EXPECT_EQ(*static_cast<int*>(target.hash_lookup("Wert")->value), 2);
    EXPECT_EQ(target.getDouble("Neu"), 0.25);
    EXPECT_STREQ(target.GetAt(3)->key, "Neu");
}

TEST(SettingsStore, IsEqualComparesKeysOrderTypesFlagsAndBits)
{
    auto make = [](CSettings& s) {
        s.setInt("a", 1);
        s.setDouble("b", 0.0);
        s.setString("c", "x");
    };
    CSettings a, b;
    make(a);
    make(b);
    EXPECT_TRUE(a.IsEqual(b));

    struct
    {
        void (*change)(CSettings&);
    } cases[] = {
        {[](CSettings& s) { s.setDouble("b", -0.0); }}, {[](CSettings& s) { s.setDeleted("a", 1); }},
        {[](CSettings& s) { s.setBool("a", 1); }},      {[](CSettings& s) { s.setString("c", "X"); }},
        {[](CSettings& s) { s.setInt("d", 0); }},
    };
    for (auto& c : cases) {
        CSettings changed;
        make(changed);
        c.change(changed);
        EXPECT_FALSE(a.IsEqual(changed));
        EXPECT_FALSE(changed.IsEqual(a));
    }

    CSettings otherSpelling;
    otherSpelling.setInt("A", 1);
    otherSpelling.setDouble("b", 0.0);
    otherSpelling.setString("c", "x");
    EXPECT_FALSE(a.IsEqual(otherSpelling));
}
