// The truth words: the texts that settings values and registry switches read
// as "true".
#pragma once

#include <array>
#include <string_view>

namespace twutil {

// In lower case. Each reader decides itself about case and blanks around a
// text before it compares.
inline constexpr std::array<std::string_view, 6> kTruthWords = {"1", "ok", "yes", "ja", "true", "wahr"};

}  // namespace twutil
