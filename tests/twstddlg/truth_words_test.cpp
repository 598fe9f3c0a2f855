#include "frame/truth_words.h"

#include <gtest/gtest.h>

TEST(RegistrySwitch, TruthWordsAfterLowerCasing)
{
    struct
    {
        const char* value;
        bool set;
    } cases[] = {
        {"1", true},   {"ok", true},   {"OK", true},    {"yes", true},   {"Ja", true},
        {"JA", true},  {"True", true}, {"TRUE", true},  {"wahr", true},  {"WAHR", true},
        {" 1", false}, {"1 ", false},  {"yes ", false}, {"on", false},   {"y", false},
        {"2", false},  {"", false},    {"0", false},    {"nein", false}, {"wahr\n", false},
    };
    for (const auto& c : cases)
        EXPECT_EQ(twswitch::IsTruthWord(c.value), c.set) << '"' << c.value << '"';
}

TEST(RegistrySwitch, EmbeddedNulDoesNotMakeAWord)
{
    EXPECT_FALSE(twswitch::IsTruthWord(CString("ja\0x", 4)));
}
