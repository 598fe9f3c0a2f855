// Property: reading never crashes or reads outside the input; reading the
// same bytes twice gives the same entries; the result is 1 exactly when
// entries were read; every entry belongs to record 1 or 2 and its text is
// NUL-free and no longer than the input. The first byte chooses whether the
// rest is a whole JPEG or bare IIM datasets.
#include "iptc.h"

#include "fuzz_check.h"

#include <cstdint>
#include <cstring>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    bool whole;
    if (!TakeReaderChoice(data, size, whole))
        return 0;

    CIPTC a, b;
    const int r1 = whole ? a.OpenMemory(data, size) : a.DecodeIIM(data, size);
    const int r2 = whole ? b.OpenMemory(data, size) : b.DecodeIIM(data, size);
    Check(r1 == r2);
    Check(r1 == (a.GetCount() > 0 ? 1 : 0));
    Check(a.GetCount() == b.GetCount() && a.IsUtf8() == b.IsUtf8());
    for (INT_PTR i = 0; i < a.GetCount(); ++i) {
        const CIPTCEntry& e = a.GetAt(i);
        Check(e.record == 1 || e.record == 2);
        Check(e.record == b.GetAt(i).record && e.dataset == b.GetAt(i).dataset);
        Check(e.text == b.GetAt(i).text);
        Check(std::strlen(e.text.GetString()) == size_t(e.text.GetLength()));
        // 1:90 spells ESC out, which can make its text longer than the bytes.
        Check(size_t(e.text.GetLength()) <= 4 * size);
    }
    return 0;
}
