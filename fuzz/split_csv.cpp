// SplitCSVLine on arbitrary bytes: no crash, and pieces survive a round trip
// through quoting and joining.
#include "string_helpers.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

// Every piece in quotes with its quotes doubled, joined by sep.
CString QuoteAndJoin(const CStringArray& pieces, char sep)
{
    std::string line;
    for (INT_PTR i = 0; i < pieces.GetSize(); ++i) {
        if (i > 0)
            line += sep;
        line += '"';
        const CString& piece = pieces[i];
        for (int k = 0; k < piece.GetLength(); ++k) {
            if (piece[k] == '"')
                line += '"';
            line += piece[k];
        }
        line += '"';
    }
    return CString(line.data(), static_cast<int>(line.size()));
}

bool SamePieces(const CStringArray& a, const CStringArray& b)
{
    if (a.GetSize() != b.GetSize())
        return false;
    for (INT_PTR i = 0; i < a.GetSize(); ++i) {
        if (a[i].GetLength() != b[i].GetLength() || a[i].Compare(b[i]) != 0)
            return false;
    }
    return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size == 0 || size > (1u << 20))
        return 0;
    const char sep = static_cast<char>(data[0]);
    const CString line(reinterpret_cast<const char*>(data + 1), static_cast<int>(size - 1));

    CStringArray pieces;
    const int count = SplitCSVLine(line, sep, &pieces);
    if (count != pieces.GetSize() || count > line.GetLength() + 1)
        std::abort();
    if (line.IsEmpty() != (count == 0))
        std::abort();

    // Text without quotes splits into exactly what joining gives back.
    if (sep != '"' && line.Find('"') < 0) {
        CString joined;
        for (INT_PTR i = 0; i < pieces.GetSize(); ++i) {
            if (i > 0)
                joined += sep;
            joined.Append(pieces[i].GetString(), pieces[i].GetLength());
        }
        CString expected = line;
        if (!expected.IsEmpty() && expected[expected.GetLength() - 1] == sep)
            expected.Truncate(expected.GetLength() - 1);
        if (joined.GetLength() != expected.GetLength() || joined.Compare(expected) != 0)
            std::abort();
    }

    if (sep != '"') {
        CStringArray again;
        SplitCSVLine(QuoteAndJoin(pieces, sep), sep, &again);
        if (!SamePieces(pieces, again))
            std::abort();
    }
    return 0;
}
