// The truth words with which a registry switch is set.
#pragma once

#include "afxstr.h"

namespace twswitch {

// Whether `value`, lower-cased, is exactly one of "1", "ok", "yes", "ja",
// "true" or "wahr". Blanks are not trimmed.
bool IsTruthWord(CString value);

}  // namespace twswitch
