// Arbitrary bytes as one picture tag text and as a list string.
//
// Properties checked:
// 1. Tag round trip: for the tag T that the parser makes of the input, if
//    T's caption (GetText) and URL hold no double quote and no NUL byte,
//    then S = T.ToString() ends in ";", and the tag parsed from S without
//    that ";" prints S again.
// 2. List order: BuildArray of the input into an empty array leaves
//    captions unique ignoring case and ascending by CompareStringA(a, b,
//    true), strictly where neither caption holds a NUL byte (CompareStringA
//    reads up to it); each refused piece is reported once (refusals + size
//    = number of pieces).
// 3. List round trip: if no tag of that array has a double quote or a NUL
//    byte in its caption or URL, nor a semicolon in its URL, then BuildArray
//    of its list string into an empty array gives the same list string,
//    with nothing refused.
// Hit tests run on every tag with points taken from the input, so that
// extreme coordinates meet the sanitizers.
#include "picture/picture_tag_array.h"
#include "picture/picture_tag_refusal.h"
#include "afxcoll.h"
#include "string_helpers.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

int g_refusals = 0;

void CountRefusal(const CPictureTag&)
{
    ++g_refusals;
}

bool Has(const CString& s, char c)
{
    return std::memchr(s.GetString(), c, static_cast<size_t>(s.GetLength())) != nullptr;
}

bool Printable(const CPictureTag& tag)
{
    const CString caption = tag.GetText();
    const CString url = tag.GetURL();
    return !Has(caption, '"') && !Has(caption, '\0') && !Has(url, '"') && !Has(url, '\0');
}

void Check(bool ok, const char* what)
{
    if (!ok) {
        std::fprintf(stderr, "property violated: %s\n", what);
        std::abort();
    }
}

void HitTests(const CPictureTag& tag, const uint8_t* data, size_t size)
{
    const int extremes[] = {0, 1, -1, 5, 46341, 65536, INT32_MAX, INT32_MIN};
    for (size_t i = 0; i + 1 < size && i < 16; i += 2) {
        const long long x = static_cast<long long>(extremes[data[i] % 8]) + data[i + 1];
        const long long y = static_cast<long long>(extremes[data[i + 1] % 8]) - data[i];
        CPoint p(static_cast<int>(x), static_cast<int>(y));
        int index = -1;
        tag.FindPictureTag(p, index);
        tag.PointInPictureTag(p, index);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const bool installed = (SetPictureTagRefusedNotifier(&CountRefusal), true);
    (void)installed;
    const CString input(reinterpret_cast<const char*>(data), static_cast<int>(size));

    // 1. One tag.
    CPictureTag tag(input);
    HitTests(tag, data, size);
    if (Printable(tag)) {
        const CString printed = tag.ToString();
        Check(printed.GetLength() > 0 && printed[printed.GetLength() - 1] == ';', "tag text ends in ;");
        CPictureTag again(printed.Left(printed.GetLength() - 1));
        Check(again.ToString() == printed, "tag round trip");
    }
    CPictureTag copy(tag);
    Check(copy.ToString() == tag.ToString(), "copy prints the same");

    // 2. A list.
    g_refusals = 0;
    CPictureTagArray tags;
    tags.BuildArray(input);
    CStringArray pieces;
    SplitCSVLine(input, ';', &pieces);
    Check(tags.GetSize() + g_refusals == pieces.GetSize(), "every piece added or refused");
    bool listPrintable = true;
    for (INT_PTR i = 0; i < tags.GetSize(); ++i) {
        HitTests(tags[i], data, size);
        const CString caption = tags[i].GetText();
        if (i > 0) {
            // CompareStringA reads up to a NUL, CompareNoCase the whole text.
            const CString previous = tags[i - 1].GetText();
            const int order = CompareStringA(previous, caption, true);
            Check(order <= 0, "captions ascending");
            Check(order < 0 || Has(previous, '\0') || Has(caption, '\0'), "captions strictly ascending");
        }
        for (INT_PTR j = 0; j < i && tags.GetSize() <= 256; ++j)
            Check(tags[j].GetText().CompareNoCase(caption) != 0, "captions unique");
        listPrintable = listPrintable && Printable(tags[i]) && !Has(tags[i].GetURL(), ';');
    }
    int index = -1;
    tags.FindPictureTag(CPoint(0, 0), index);
    tags.PointInPictureTag(CPoint(1, 1), index);

    // 3. The list read back.
    if (listPrintable) {
        const CString list = tags.ToString();
        g_refusals = 0;
        CPictureTagArray again;
        again.BuildArray(list);
        Check(g_refusals == 0, "nothing refused on the way back");
        Check(again.ToString() == list, "list round trip");
    }
    return 0;
}
