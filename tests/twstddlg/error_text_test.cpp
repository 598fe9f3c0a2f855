#include "frame/error_text.h"

#include <gtest/gtest.h>

using namespace twerror;

TEST(ErrorText, RemainderSelectsMessageAndKind)
{
    struct
    {
        int code;
        int id;
        bool note;
    } cases[] = {
        {19, 30019, false},  {1019, 30019, false}, {0, 30000, false},   {49, 30049, false}, {50, 30050, true},
        {1055, 30055, true}, {99, 30099, true},    {100, 30000, false}, {-5, 29995, false}, {-1055, 29945, false},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(MessageId(c.code), c.id) << c.code;
        EXPECT_EQ(IsNote(c.code), c.note) << c.code;
    }
}

TEST(ErrorText, InsertionReplacesEveryPlaceholderButNotOneAtTheStart)
{
    struct
    {
        const char* text;
        const char* insertion;
        const char* expected;
    } cases[] = {
        {"Registry error [%s].", "Software", "Registry error [Software]."},
        {"Registry error [%s].", nullptr, "Registry error [%s]."},
        {"%s not found.", "x", "%s not found."},
        {"%s and %s", "x", "%s and %s"},
        {"a %s and %s", "x", "a x and x"},
        {"no placeholder", "x", "no placeholder"},
        {"", "x", ""},
        {"DLL %s not found.", "", "DLL  not found."},
    };
    for (const auto& c : cases)
        EXPECT_STREQ(InsertText(c.text, c.insertion), c.expected) << c.text;
}

TEST(ErrorText, RecordHasPaddedFieldsAndNoLineEnd)
{
    const RecordTime t{5, 3, 2026, 9, 7, 2};
    EXPECT_STREQ(FormatRecord(true, t, 1019, "Registry error [Software]."),
                 "F  5. 3.2026 09:07:02 [1019] Registry error [Software].");
    EXPECT_STREQ(FormatRecord(false, t, 19, "x"), "I  5. 3.2026 09:07:02 [0019] x");
    EXPECT_STREQ(FormatRecord(false, t, -5, "x"), "I  5. 3.2026 09:07:02 [-005] x");
    const RecordTime late{31, 12, 2026, 23, 59, 59};
    EXPECT_STREQ(FormatRecord(true, late, 123456, ""), "F 31.12.2026 23:59:59 [123456] ");
}

TEST(ErrorText, BoxTextBracketsTheCode)
{
    EXPECT_STREQ(FormatBoxText(19, "Registry error [%s]."), "[0019] Registry error [%s].");
    EXPECT_STREQ(FormatBoxText(1055, ""), "[1055] ");
}
