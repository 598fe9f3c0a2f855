// What the string arrays add to the rules of named arrays (color_test.cpp):
// the order of adding, check states and picture identities.
#include "values/string_arrays.h"

#include <gtest/gtest.h>

TEST(CUniqueStringArray, AppendsInTheOrderOfAdding)
{
    CUniqueStringArray a;
    EXPECT_EQ(a.Add("Zebra"), 0);
    EXPECT_EQ(a.Add("Apfel"), 1);
    EXPECT_EQ(a.Add(CString("ZEBRA")), -1) << "a CString argument goes through the check too";
    EXPECT_STREQ(a[1], "Apfel");
}

TEST(CUniqueSortedStringArray, AddKeepsTheOrderAsAddSortedDoes)
{
    CUniqueSortedStringArray a;
    EXPECT_EQ(a.Add("m"), 0);
    EXPECT_EQ(a.Add("b"), 0);
    EXPECT_EQ(a.Add("x"), 2);
    EXPECT_EQ(a.Add("B"), -1);
    EXPECT_EQ(a.AddSorted("c"), 1);
}

TEST(CUniqueStringArrayCheck, TheCheckStateIsKeptButNotCompared)
{
    CUniqueStringArrayCheck a;
    EXPECT_EQ(a.Add("Eins", 1), 0);
    EXPECT_EQ(a.Add(_STRING_CHECK{CString("EINS"), 0}), -1);
    EXPECT_EQ(a.Add(_STRING_CHECK{CString("Drei"), -5}), 1);
    EXPECT_EQ(a.Add("Zwei"), 2);
    EXPECT_EQ(a[0].check, 1);
    EXPECT_EQ(a[1].check, -5);
    EXPECT_EQ(a[2].check, 0);
}

TEST(CUniqueStringArrayPicture, IdentitiesAreEqualOnlyWhenAllThreeStringsAreEqualIgnoringCase)
{
    CUniqueStringArrayPicture a;
    EXPECT_EQ(a.Add("C:\\Bilder", "urlaub.jpg", "Strand"), 0);
    struct
    {
        const char* folder;
        const char* file;
        const char* title;
        INT_PTR index;
    } steps[] = {
        {"c:\\bilder", "URLAUB.JPG", "strand", -1},
        {"C:\\Bilder", "urlaub.jpg", "Berg", 1},
        {"C:\\Bilder", "urlaub2.jpg", "Strand", 2},
        {"D:\\Bilder", "urlaub.jpg", "Strand", 3},
        {"", "", "", 4},
        {nullptr, nullptr, nullptr, -1},
    };
    for (const auto& s : steps)
        EXPECT_EQ(a.Add(s.folder, s.file, s.title), s.index) << s.index;
    EXPECT_EQ(a.Add(_BILD_IDENT{CString("C:\\BILDER"), CString("Urlaub.jpg"), CString("BERG")}), -1);
    EXPECT_EQ(a.Find("d:\\bilder", "urlaub.JPG", "STRAND"), 3);
    EXPECT_EQ(a.Find("D:\\Bilder", "urlaub.jpg", ""), -1);
    EXPECT_STREQ(a[1].title, "Berg");
}
