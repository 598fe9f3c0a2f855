#include "frame/truth_words.h"

#include "truth_word_table.h"

#include <string_view>

namespace twswitch {

bool IsTruthWord(CString value)
{
    value.MakeLower();
    const std::string_view text(value.GetString(), static_cast<size_t>(value.GetLength()));
    for (std::string_view word : twutil::kTruthWords)
        if (text == word)
            return true;
    return false;
}

}  // namespace twswitch
