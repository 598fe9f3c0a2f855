// Picture tag array: sorted insertion, the list string and hit tests.
#include "picture/picture_tag_array.h"

#include "afxcoll.h"
#include "picture/picture_tag_refusal.h"
#include "string_helpers.h"

#include <cstdint>
#include <cstring>
#include <optional>
#include <utility>

namespace {

PICTURE_TAG_REFUSED_NOTIFIER g_refusedNotifier = nullptr;

}  // namespace

PICTURE_TAG_REFUSED_NOTIFIER SetPictureTagRefusedNotifier(PICTURE_TAG_REFUSED_NOTIFIER notifier)
{
    return std::exchange(g_refusedNotifier, notifier);
}

namespace {

// Whether the text holds a semicolon, eight bytes at a time: the scans ask
// this of every caption they pass.
bool HasSemicolon(const CString& text)
{
    constexpr std::uint64_t ones = 0x0101010101010101ull;
    constexpr std::uint64_t highs = 0x8080808080808080ull;
    constexpr std::uint64_t semicolons = ones * static_cast<unsigned char>(';');
    const char* p = text.GetString();
    int n = text.GetLength();
    for (; n >= 8; p += 8, n -= 8) {
        std::uint64_t word;
        std::memcpy(&word, p, sizeof word);
        word ^= semicolons;
        if (((word - ones) & ~word & highs) != 0)
            return true;
    }
    for (; n > 0; ++p, --n)
        if (*p == ';')
            return true;
    return false;
}

}  // namespace

// The caption of a held tag as GetText() gives it; refers to the stored text
// unless that holds a semicolon, so comparing costs no copy.
class CPictureTagArray::CaptionOf
{
public:
    explicit CaptionOf(const CPictureTagBase& tag)
    {
        const CString& stored = tag.m_strText;
        if (!HasSemicolon(stored)) {
            m_text = &stored;
        } else {
            m_converted.emplace(tag.GetText());
            m_text = &*m_converted;
        }
    }
    const CString& Text() const { return *m_text; }

private:
    const CString* m_text;
    std::optional<CString> m_converted;
};

void CPictureTagArray::BuildArray(CString list)
{
    CStringArray pieces;
    SplitCSVLine(list, ';', &pieces);
    for (INT_PTR i = 0; i < pieces.GetSize(); ++i) {
        CPictureTag tag(pieces[i]);
        if (AddSorted(tag) == -1 && g_refusedNotifier != nullptr)
            g_refusedNotifier(tag);
    }
}

CString CPictureTagArray::ToString()
{
    CString list;
    for (INT_PTR i = 0; i < GetSize(); ++i)
        list += ElementAt(i).ToString();
    return list;
}

INT_PTR CPictureTagArray::AddSorted(CPictureTag tag)
{
    if (GetSize() == 0)
        return Add(tag);
    const CString caption = tag.GetText();
    if (Find(caption) != -1)
        return -1;
    const char* text = caption.GetString();
    if (CompareStringA(text, CaptionOf(GetAt(GetUpperBound())).Text(), true) >= 0)
        return Add(tag);
    for (INT_PTR i = GetUpperBound(); i >= 0; --i) {
        if (CompareStringA(text, CaptionOf(GetAt(i)).Text(), true) >= 0) {
            InsertAt(i + 1, tag);
            return i + 1;
        }
    }
    InsertAt(0, tag);
    return 0;
}

INT_PTR CPictureTagArray::Insert(INT_PTR index, CPictureTag tag)
{
    if (index < 0)
        return -1;
    if (index >= GetSize())
        return AddSorted(std::move(tag));
    // Deliberate: a replacement in place, neither checked for a duplicate
    // caption nor moved to its sorted place.
    RemoveAt(index);
    InsertAt(index, tag);
    return index;
}

INT_PTR CPictureTagArray::Visible(INT_PTR index, int visible)
{
    if (index < 0 || index >= GetSize())
        return -1;
    CPictureTag tag(GetAt(index));
    tag.SetVisible(visible);
    return Insert(index, std::move(tag));
}

INT_PTR CPictureTagArray::Find(CString caption)
{
    // A caption without commas and semicolons equals a stored text exactly
    // when it equals the text with its semicolons turned into commas.
    const bool plain = caption.FindOneOf(",;") < 0;
    for (INT_PTR i = 0; i < GetSize(); ++i) {
        const CPictureTag& tag = GetAt(i);
        const int order = plain ? tag.m_strText.CompareNoCase(caption) : CaptionOf(tag).Text().CompareNoCase(caption);
        if (order == 0)
            return i;
    }
    return -1;
}

_TAG_INFO CPictureTagArray::FindPictureTag(CPoint point, int& index)
{
    for (INT_PTR i = 0; i < GetSize(); ++i) {
        const TAG_DOT dot = GetAt(i).FindPictureTag(point, index);
        if (dot != DOT_NONE)
            return _TAG_INFO{i, dot};
    }
    return _TAG_INFO{-1, DOT_NONE};
}

_TAG_INFO CPictureTagArray::PointInPictureTag(CPoint point, int& index)
{
    for (INT_PTR i = 0; i < GetSize(); ++i) {
        const TAG_DOT dot = GetAt(i).PointInPictureTag(point, index);
        if (dot != DOT_NONE)
            return _TAG_INFO{i, dot};
    }
    return _TAG_INFO{-1, DOT_NONE};
}
