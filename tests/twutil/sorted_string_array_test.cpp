#include "sorted_string_array.h"

#include "string_helpers.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::vector<std::string> Contents(const CStringArray& a)
{
    std::vector<std::string> v;
    for (INT_PTR i = 0; i < a.GetSize(); ++i)
        v.emplace_back(a[i].GetString());
    return v;
}

}  // namespace

TEST(CSortedStringArray, AddSortedReturnsTheIndexInAscendingOrder)
{
    struct
    {
        const char* text;
        INT_PTR index;
    } steps[] = {
        {"Zebra", 0}, {"Apfel", 0}, {"Maus", 1}, {"Bild 10", 1}, {"Bild 9", 1}, {"äpfel", 1}, {"", 0}, {"Zoo", 7},
    };
    CSortedStringArray a;
    for (const auto& s : steps)
        EXPECT_EQ(a.AddSorted(s.text), s.index) << s.text;
    EXPECT_EQ(Contents(a),
              (std::vector<std::string>{"", "Apfel", "äpfel", "Bild 9", "Bild 10", "Maus", "Zebra", "Zoo"}));
}

TEST(CSortedStringArray, EqualTextsGoAfterTheLastEqualOne)
{
    CSortedStringArray a;
    a.AddSorted("b");
    a.AddSorted("a");
    a.AddSorted("c");
    EXPECT_EQ(a.AddSorted("b"), 2);
    EXPECT_EQ(a.AddSorted("b"), 3);
    EXPECT_EQ(a.AddSorted(nullptr), 0);
    EXPECT_EQ(a.AddSorted(""), 1);
    EXPECT_EQ(Contents(a), (std::vector<std::string>{"", "", "a", "b", "b", "b", "c"}));
}

TEST(CSortedStringArray, StaysSortedUnderManyInsertsAndRefillsAfterSetSizeZero)
{
    CSortedStringArray a;
    unsigned seed = 12345;
    for (int round = 0; round < 2; ++round) {
        a.SetSize(0);
        for (int i = 0; i < 300; ++i) {
            seed = seed * 1103515245u + 12345u;
            const CString text = ToString(static_cast<__int64>((seed >> 8) % 1000)) + "x";
            const INT_PTR at = a.AddSorted(text);
            ASSERT_EQ(a[at], text);
            if (at + 1 < a.GetSize()) {
                ASSERT_LT(CompareStringA(text, a[at + 1], true), 0);
            }
        }
        ASSERT_EQ(a.GetSize(), 300);
        for (INT_PTR i = 1; i < a.GetSize(); ++i)
            ASSERT_LE(CompareStringA(a[i - 1], a[i], true), 0) << i;
    }
}
