// Code page 1252 and Unicode, for the readers and writers of twutil that
// meet both (UTF-8 and UCS-2 texts in pictures, character references in
// XML settings files). Internal to twutil.
#pragma once

namespace twutil_cp1252 {

// Whether the code page leaves a byte without a character: 0x81, 0x8D,
// 0x8F, 0x90 and 0x9D.
bool IsUndefined(unsigned char byte);

// The byte of a Unicode code point; -1 for a code point the code page has
// no byte for. An undefined byte stands for the C1 control of its own value
// (U+0081 is 0x81), as Windows maps them.
int FromUnicode(unsigned long codePoint);

}  // namespace twutil_cp1252
