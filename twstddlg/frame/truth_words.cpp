#include "frame/truth_words.h"

#include <array>
#include <string_view>

namespace twswitch {

namespace {

constexpr std::array<std::string_view, 6> kTruthWords = {"1", "ok", "yes", "ja", "true", "wahr"};

}  // namespace

bool IsTruthWord(CString value)
{
    value.MakeLower();
    const std::string_view text(value.GetString(), static_cast<size_t>(value.GetLength()));
    for (std::string_view word : kTruthWords)
        if (text == word)
            return true;
    return false;
}

}  // namespace twswitch
