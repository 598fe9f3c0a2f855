#include "dialogs/message_box_layout.h"

#include <gtest/gtest.h>

using namespace twmsgbox;

TEST(MessageBoxStyle, BitsChooseButtonsCheckBoxAndDefault)
{
    struct
    {
        unsigned style;
        bool yesAll, yesAllIsOk, yesNo, checkBox;
        int defaultButton;
    } cases[] = {
        {0, false, false, true, false, 6},
        {0x1, true, false, true, false, 6},
        {0x2, false, false, true, true, 6},
        {0x3, true, false, true, true, 6},
        {0x4, true, true, false, false, 14},
        {0x6, true, true, false, true, 14},
        {0x8, false, false, true, false, 6},
        {0x100, false, false, true, false, 14},
        {0x101, true, false, true, false, 14},
        {0x201, true, false, true, false, 7},
        {0x301, true, false, true, false, 6},
        {0x104, true, true, false, false, 14},
        {0x204, true, true, false, false, 14},
        {0x20B, true, false, true, true, 7},
        // Bits outside the known ones change nothing.
        {0x400 | 0x10 | 0x1, true, false, true, false, 6},
    };
    for (const auto& c : cases) {
        const Layout layout = LayoutFor(c.style);
        EXPECT_EQ(layout.showYesAll, c.yesAll) << std::hex << c.style;
        EXPECT_EQ(layout.yesAllIsOk, c.yesAllIsOk) << std::hex << c.style;
        EXPECT_EQ(layout.showYesNo, c.yesNo) << std::hex << c.style;
        EXPECT_EQ(layout.showCheckBox, c.checkBox) << std::hex << c.style;
        EXPECT_EQ(layout.defaultButton, c.defaultButton) << std::hex << c.style;
    }
}

TEST(MessageBoxStyle, SilencedAndYesToAllAnswers)
{
    struct
    {
        unsigned style;
        int silenced;
        int yesAll;
    } cases[] = {
        {0x2, 6, 14}, {0xA, 7, 14}, {0x6, 1, 1}, {0xE, 1, 1}, {0x3, 6, 14}, {0x0, 6, 14}, {0x8, 7, 14}, {0x302, 6, 14},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(SilencedAnswer(c.style), c.silenced) << std::hex << c.style;
        EXPECT_EQ(YesAllAnswer(c.style), c.yesAll) << std::hex << c.style;
    }
}

TEST(MessageBoxStyle, SettingsNameJoinsCaptionAndNumberAsTheyAre)
{
    struct
    {
        const char* caption;
        int number;
        const char* name;
    } cases[] = {
        {"Speichern", 3, "NOMSG_Speichern_3"},
        {"Speichern", 0, "NOMSG_Speichern_0"},
        {"Daten\\Export", 12, "NOMSG_Daten\\Export_12"},
        {"", 7, "NOMSG__7"},
        {"Löschen", -5, "NOMSG_Löschen_-5"},
        {"100%", 1, "NOMSG_100%_1"},
        {"A_B", 2147483647, "NOMSG_A_B_2147483647"},
    };
    for (const auto& c : cases)
        EXPECT_STREQ(SettingsName(c.caption, c.number), c.name) << c.caption;
}
