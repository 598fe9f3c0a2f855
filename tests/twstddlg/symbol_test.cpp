#include "values/symbol.h"

#include "afxfile.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

CSymbol MakeSymbol(const char* name, const char* adr = "", unsigned int ziel = 0)
{
    CSymbol s;
    s.Set(name, adr, ziel);
    return s;
}

std::vector<std::string> Names(const CSymbolArray& a)
{
    std::vector<std::string> v;
    for (INT_PTR i = 0; i < a.GetSize(); ++i)
        v.emplace_back(a[i].Name().GetString());
    return v;
}

std::vector<unsigned int> Ziele(const CSymbolArray& a)
{
    std::vector<unsigned int> v;
    for (INT_PTR i = 0; i < a.GetSize(); ++i)
        v.push_back(a[i].Ziel());
    return v;
}

// Adds without the uniqueness check, as a host may through the base class.
void AddPlain(CSymbolArray& a, const char* name, unsigned int ziel = 0)
{
    CSymbol s = MakeSymbol(name, "", ziel);
    static_cast<CArray<CSymbol, CSymbol&>&>(a).Add(s);
}

}  // namespace

TEST(CSymbol, DefaultIsEmptyWithTargetZero)
{
    const CSymbol s;
    EXPECT_TRUE(s.Name().IsEmpty());
    EXPECT_TRUE(s.Adr().IsEmpty());
    EXPECT_EQ(s.Ziel(), 0u);
}

TEST(CSymbol, SetAndCopiesCarryNameAddressAndTarget)
{
    CSymbol a;
    a.Set("START", "0x1000", 42);
    EXPECT_STREQ(a.Name().GetString(), "START");
    EXPECT_STREQ(a.Adr().GetString(), "0x1000");
    EXPECT_EQ(a.Ziel(), 42u);

    CSymbol b(a);
    CSymbol c;
    c = a;
    a.Set("ENDE", "0x2000", 7);
    for (const CSymbol* copy : {&b, &c}) {
        EXPECT_STREQ(copy->Name().GetString(), "START");
        EXPECT_STREQ(copy->Adr().GetString(), "0x1000");
        EXPECT_EQ(copy->Ziel(), 42u);
    }
    a.SetAdr(nullptr);
    a.SetName(nullptr);
    a.SetZiel(0xFFFFFFFFu);
    EXPECT_TRUE(a.Adr().IsEmpty());
    EXPECT_TRUE(a.Name().IsEmpty());
    EXPECT_EQ(a.Ziel(), 0xFFFFFFFFu);
    EXPECT_TRUE(a.IsKindOf(RUNTIME_CLASS(CObject)));
}

TEST(CSymbolArray, FindNameAndGetZielIgnoreCase)
{
    CSymbolArray a;
    EXPECT_EQ(a.FindName("start"), -1);
    EXPECT_EQ(a.GetZiel("start"), -1);
    a.Add(MakeSymbol("START", "a", 10));
    a.Add(MakeSymbol("Ende", "b", 20));
    a.Add(MakeSymbol("Größe", "c", 0xFFFFFFFFu));
    struct
    {
        const char* name;
        INT_PTR index;
        long long ziel;
    } cases[] = {
        {"start", 0, 10},
        {"START", 0, 10},
        {"ende", 1, 20},
        {"ENDE", 1, 20},
        {"GRÖSSE", -1, -1},
        {"GRÖßE", 2, 4294967295LL},
        {"größe", 2, 4294967295LL},
        {"star", -1, -1},
        {"start ", -1, -1},
        {"", -1, -1},
        {nullptr, -1, -1},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(a.FindName(c.name), c.index) << (c.name ? c.name : "(null)");
        EXPECT_EQ(a.GetZiel(c.name), c.ziel) << (c.name ? c.name : "(null)");
    }
}

TEST(CSymbolArray, AddRefusesANameThatIsThereIgnoringCase)
{
    CSymbolArray a;
    EXPECT_EQ(a.Add(MakeSymbol("START", "0x10", 1)), 0);
    EXPECT_EQ(a.Add(MakeSymbol("start", "0x20", 2)), -1);
    EXPECT_EQ(a.Add(MakeSymbol("Start", "0x30", 3)), -1);
    EXPECT_EQ(a.Add(MakeSymbol("Stopp", "0x40", 4)), 1);
    ASSERT_EQ(a.GetSize(), 2);
    EXPECT_STREQ(a[0].Name().GetString(), "START");
    EXPECT_STREQ(a[0].Adr().GetString(), "0x10");
    EXPECT_EQ(a[0].Ziel(), 1u);
}

TEST(CSymbolArray, ReplaceKeepsThePositionAndTakesAddressAndTarget)
{
    CSymbolArray a;
    a.Add(MakeSymbol("A", "1", 1));
    a.Add(MakeSymbol("START", "2", 2));
    a.Add(MakeSymbol("C", "3", 3));
    EXPECT_EQ(a.Replace(MakeSymbol("start", "0x99", 99)), 1);
    EXPECT_EQ(Names(a), (std::vector<std::string>{"A", "start", "C"}));
    EXPECT_STREQ(a[1].Adr().GetString(), "0x99");
    EXPECT_EQ(a[1].Ziel(), 99u);
    EXPECT_EQ(a.Replace(MakeSymbol("D", "4", 4)), 3);
    EXPECT_EQ(Names(a), (std::vector<std::string>{"A", "start", "C", "D"}));
}

TEST(CSymbolArray, AddSortedPutsAnEqualNameAfterTheLastEqualOne)
{
    CSymbolArray a;
    struct
    {
        const char* name;
        unsigned int ziel;
        INT_PTR index;
    } steps[] = {
        {"m", 1, 0}, {"c", 2, 0}, {"x", 3, 2}, {"m", 4, 2}, {"m", 5, 3}, {"a", 6, 0}, {"c", 7, 2},
    };
    for (const auto& s : steps)
        EXPECT_EQ(a.AddSorted(MakeSymbol(s.name, "", s.ziel)), s.index) << s.name << s.ziel;
    EXPECT_EQ(Names(a), (std::vector<std::string>{"a", "c", "c", "m", "m", "m", "x"}));
    EXPECT_EQ(Ziele(a), (std::vector<unsigned int>{6, 2, 7, 1, 4, 5, 3}));
    EXPECT_EQ(a.Add(MakeSymbol("M")), -1) << "Add refuses what AddSorted admits";
}

TEST(CSymbolArray, AddSortedScansFromTheEndOfAnUnorderedArray)
{
    CSymbolArray a;
    for (const char* n : {"z", "z", "z", "a", "z"})
        AddPlain(a, n);
    EXPECT_EQ(a.AddSorted(MakeSymbol("b")), 4);
    EXPECT_EQ(Names(a), (std::vector<std::string>{"z", "z", "z", "a", "b", "z"}));

    CSymbolArray c;
    for (const char* n : {"c", "z", "a"})
        AddPlain(c, n);
    EXPECT_EQ(c.AddSorted(MakeSymbol("b")), 3) << "not smaller than the last: appended";
    EXPECT_EQ(c.AddSorted(MakeSymbol("0")), 0);
}

TEST(CSymbolArray, ArchiveKeepsTheCountButNotTheSymbols)
{
    CSymbolArray a;
    a.Add(MakeSymbol("START", "0x10", 1));
    CMemFile file;
    {
        CArchive ar(&file, CArchive::store);
        a.Serialize(ar);
    }
    EXPECT_EQ(file.GetLength(), 2u + sizeof(CSymbol));
    file.SeekToBegin();
    CSymbolArray b;
    {
        CArchive ar(&file, CArchive::load);
        b.Serialize(ar);
    }
    ASSERT_EQ(b.GetSize(), 1);
    EXPECT_TRUE(b[0].Name().IsEmpty());
    EXPECT_EQ(b.GetZiel("START"), -1);
}

#ifdef _WIN32
TEST(SymbolAcrossTheLibrary, HostTableGrowsThroughTheLibraryAndStaysFindable)
{
    CSymbolArray a;
    for (unsigned int i = 0; i < 1000; ++i) {
        CString name;
        name.Format("S%03u", 999 - i);
        ASSERT_GE(a.AddSorted(MakeSymbol(name, "", i)), 0);
    }
    ASSERT_EQ(a.GetSize(), 1000);
    for (INT_PTR i = 0; i < 1000; ++i) {
        CString name;
        name.Format("s%03d", static_cast<int>(i));
        ASSERT_EQ(a.FindName(name), i);
        ASSERT_EQ(a.GetZiel(name), 999 - i);
    }
    CSymbolArray copy;
    copy.Copy(a);
    a.RemoveAll();
    EXPECT_EQ(copy.GetZiel("S500"), 499);
}
#endif
