// What the symbol table adds to the rules of named arrays (color_test.cpp):
// targets found by name and replacement in place.
#include "values/symbol.h"

#include <gtest/gtest.h>

namespace {

CSymbol MakeSymbol(const char* name, const char* adr, unsigned int ziel)
{
    CSymbol s;
    s.Set(name, adr, ziel);
    return s;
}

}  // namespace

TEST(CSymbolArray, GetZielWidensEveryTargetAndGivesMinusOneForAnUnknownName)
{
    CSymbolArray a;
    EXPECT_EQ(a.GetZiel("start"), -1);
    a.Add(MakeSymbol("START", "a", 10));
    a.Add(MakeSymbol("Ende", "b", 0xFFFFFFFFu));
    a.Add(MakeSymbol("Null", "c", 0));
    struct
    {
        const char* name;
        long long ziel;
    } cases[] = {
        {"start", 10}, {"ENDE", 4294967295LL}, {"null", 0}, {"star", -1}, {"", -1}, {nullptr, -1},
    };
    for (const auto& c : cases)
        EXPECT_EQ(a.GetZiel(c.name), c.ziel) << (c.name ? c.name : "(null)");
}

TEST(CSymbolArray, ReplaceKeepsThePositionAndTakesAddressAndTarget)
{
    CSymbolArray a;
    a.Add(MakeSymbol("A", "1", 1));
    a.Add(MakeSymbol("START", "2", 2));
    a.Add(MakeSymbol("C", "3", 3));
    EXPECT_EQ(a.Replace(MakeSymbol("start", "0x99", 99)), 1);
    ASSERT_EQ(a.GetSize(), 3);
    EXPECT_STREQ(a[1].Name(), "start");
    EXPECT_STREQ(a[1].Adr(), "0x99");
    EXPECT_EQ(a[1].Ziel(), 99u);
    EXPECT_EQ(a.Replace(MakeSymbol("D", "4", 4)), 3) << "a new name is appended";
}
