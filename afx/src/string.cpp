// CString: blocks, copy on write, editing and searching; the formatting
// entry points are in string_format.cpp.
#include "afxstr.h"

#include "afxexcept.h"

#include <algorithm>
#include <array>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <new>
#include <string>
#include <string_view>

namespace {

// ---- code page 1252 case tables ------------------------------------------

// Letters outside the two contiguous ranges: {upper, lower}.
constexpr std::pair<unsigned char, unsigned char> kScatteredLetters[] = {
    {0x8A, 0x9A},  // Š š
    {0x8C, 0x9C},  // Œ œ
    {0x8E, 0x9E},  // Ž ž
    {0x9F, 0xFF},  // Ÿ ÿ
};
constexpr unsigned char kMultiplicationSign = 0xD7;
constexpr unsigned char kDivisionSign = 0xF7;

enum class Case
{
    upper,
    lower
};

constexpr std::array<unsigned char, 256> MakeCaseTable(Case to)
{
    std::array<unsigned char, 256> table{};
    for (int c = 0; c < 256; ++c)
        table[c] = static_cast<unsigned char>(c);
    for (int upper = 'A'; upper <= 'Z'; ++upper) {
        const int lower = upper + 0x20;
        if (to == Case::upper)
            table[lower] = static_cast<unsigned char>(upper);
        else
            table[upper] = static_cast<unsigned char>(lower);
    }
    for (int upper = 0xC0; upper <= 0xDE; ++upper) {
        if (upper == kMultiplicationSign)
            continue;
        const int lower = upper + 0x20;
        if (to == Case::upper)
            table[lower] = static_cast<unsigned char>(upper);
        else
            table[upper] = static_cast<unsigned char>(lower);
    }
    for (auto [upper, lower] : kScatteredLetters) {
        if (to == Case::upper)
            table[lower] = upper;
        else
            table[upper] = lower;
    }
    return table;
}

constexpr auto kToUpper = MakeCaseTable(Case::upper);
constexpr auto kToLower = MakeCaseTable(Case::lower);
static_assert(kToUpper[kDivisionSign] == kDivisionSign && kToLower[kMultiplicationSign] == kMultiplicationSign);
static_assert(kToUpper[0xDF] == 0xDF && kToUpper[0xB5] == 0xB5);

unsigned char Lower(char ch)
{
    return kToLower[static_cast<unsigned char>(ch)];
}

// ---- blocks --------------------------------------------------------------

// The longest text a block holds; keeps every size computation inside int.
constexpr int kMaxLength = INT_MAX - 64;

// The immortal block every empty string points to; it is never written.
struct NilBlock
{
    CStringData header;
    char chars[1];
};
constinit NilBlock g_nil{{{2}, 0, 0}, {'\0'}};
static_assert(offsetof(NilBlock, chars) == sizeof(CStringData));

char* CharsOf(CStringData* data)
{
    return reinterpret_cast<char*>(data + 1);
}
bool IsNil(const CStringData* data)
{
    return data == &g_nil.header;
}

bool IsOwned(const CStringData* data)
{
    if (IsNil(data))
        return false;
    const int refs = data->refs.load(std::memory_order_acquire);
    return refs == 1 || refs == -1;
}

bool IsLocked(const CStringData* data)
{
    return !IsNil(data) && data->refs.load(std::memory_order_relaxed) == -1;
}

CStringData* AllocateData(int capacity)
{
    if (capacity < 0 || capacity > kMaxLength)
        AfxThrowMemoryException();
    void* raw = ::operator new(sizeof(CStringData) + static_cast<std::size_t>(capacity) + 1, std::nothrow);
    if (raw == nullptr)
        AfxThrowMemoryException();
    auto* data = new (raw) CStringData{{1}, 0, capacity};
    CharsOf(data)[0] = '\0';
    return data;
}

void ReleaseData(CStringData* data) noexcept
{
    if (data == nullptr || IsNil(data))
        return;
    if (data->refs.load(std::memory_order_relaxed) == -1 || data->refs.fetch_sub(1, std::memory_order_acq_rel) == 1) {
        data->~CStringData();
        ::operator delete(data);
    }
}

// Releases a replaced block at scope end, after the caller has read from it.
struct DeferredRelease
{
    CStringData* data;
    ~DeferredRelease() { ReleaseData(data); }
};

int GrownCapacity(int capacity, int needed)
{
    const long long grown = static_cast<long long>(capacity) + capacity / 2 + 16;
    return static_cast<int>(std::max<long long>(needed, std::min<long long>(grown, kMaxLength)));
}

int CheckedLength(const char* psz)
{
    if (psz == nullptr)
        return 0;
    const std::size_t length = std::strlen(psz);
    if (length > static_cast<std::size_t>(kMaxLength))
        AfxThrowMemoryException();
    return static_cast<int>(length);
}

int CheckedSum(int a, long long b)
{
    const long long sum = a + b;
    if (sum > kMaxLength)
        AfxThrowMemoryException();
    return static_cast<int>(sum);
}

// ---- byte helpers --------------------------------------------------------

int Sign(int value)
{
    return (value > 0) - (value < 0);
}

int CompareBytes(const char* a, std::size_t lengthA, const char* b, std::size_t lengthB)
{
    const std::size_t common = std::min(lengthA, lengthB);
    const int result = common == 0 ? 0 : std::memcmp(a, b, common);
    if (result != 0)
        return Sign(result);
    return (lengthA > lengthB) - (lengthA < lengthB);
}

int CompareFolded(const char* a, std::size_t lengthA, const char* b, std::size_t lengthB)
{
    const std::size_t common = std::min(lengthA, lengthB);
    for (std::size_t i = 0; i < common; ++i) {
        const unsigned char x = Lower(a[i]);
        const unsigned char y = Lower(b[i]);
        if (x != y)
            return x < y ? -1 : 1;
    }
    return (lengthA > lengthB) - (lengthA < lengthB);
}

// Index of the first needle in text[from, length), or -1.
int FindBytes(const char* text, int length, int from, const char* needle, std::size_t needleLength)
{
    if (needleLength == 0 || needleLength > static_cast<std::size_t>(length - from))
        return -1;
    const int last = length - static_cast<int>(needleLength);
    for (int i = from; i <= last;) {
        const void* hit = std::memchr(text + i, needle[0], static_cast<std::size_t>(last - i + 1));
        if (hit == nullptr)
            return -1;
        i = static_cast<int>(static_cast<const char*>(hit) - text);
        if (std::memcmp(text + i, needle, needleLength) == 0)
            return i;
        ++i;
    }
    return -1;
}

// Membership of bytes in a NUL-terminated set; NUL itself is never a member.
class CharSet
{
public:
    explicit CharSet(const char* set)
    {
        for (const char* p = set; p != nullptr && *p != '\0'; ++p)
            m_has[static_cast<unsigned char>(*p)] = true;
    }
    explicit CharSet(char ch) { m_has[static_cast<unsigned char>(ch)] = ch != '\0'; }
    bool operator()(char ch) const { return m_has[static_cast<unsigned char>(ch)]; }

private:
    std::array<bool, 256> m_has{};
};

bool IsSpace(char ch)
{
    return ch == ' ' || (ch >= '\t' && ch <= '\r');
}

bool PointsInto(const char* p, const char* begin, const char* end)
{
    const auto address = reinterpret_cast<std::uintptr_t>(p);
    return address >= reinterpret_cast<std::uintptr_t>(begin) && address <= reinterpret_cast<std::uintptr_t>(end);
}

// Writes text with every old replaced by replacement into out; out may be
// text itself when the replacement is not longer. Returns the length written.
int ReplaceInto(const char* text, int length, std::string_view old, std::string_view replacement, char* out)
{
    int read = 0;
    int written = 0;
    for (int hit; (hit = FindBytes(text, length, read, old.data(), old.size())) >= 0;) {
        std::memmove(out + written, text + read, static_cast<std::size_t>(hit - read));
        written += hit - read;
        std::memcpy(out + written, replacement.data(), replacement.size());
        written += static_cast<int>(replacement.size());
        read = hit + static_cast<int>(old.size());
    }
    std::memmove(out + written, text + read, static_cast<std::size_t>(length - read));
    return written + length - read;
}

}  // namespace

char AfxToUpper1252(char ch)
{
    return static_cast<char>(kToUpper[static_cast<unsigned char>(ch)]);
}

char AfxToLower1252(char ch)
{
    return static_cast<char>(kToLower[static_cast<unsigned char>(ch)]);
}

// ---- blocks and copy on write ----------------------------------------------

// Makes the block this string's own with room for minCapacity characters,
// keeping the first keep characters. Returns the block it replaced, which
// the caller releases once it has read what it needs from it.
CStringData* CString::PrepareWrite(int minCapacity, int keep, bool grow)
{
    CStringData* old = GetData();
    if (IsOwned(old) && old->capacity >= minCapacity)
        return nullptr;
    const int capacity = grow ? GrownCapacity(old->capacity, minCapacity) : minCapacity;
    CStringData* fresh = AllocateData(capacity);
    keep = std::min({keep, old->length, capacity});
    std::memcpy(CharsOf(fresh), m_pszData, static_cast<std::size_t>(keep));
    fresh->length = keep;
    CharsOf(fresh)[keep] = '\0';
    m_pszData = CharsOf(fresh);
    return old;
}

void CString::CopyBeforeWrite()
{
    ReleaseData(PrepareWrite(GetLength(), GetLength(), false));
}

void CString::SetLength(int nLength) noexcept
{
    CStringData* data = GetData();
    if (IsNil(data))
        return;
    data->length = nLength;
    m_pszData[nLength] = '\0';
}

CString::CString() noexcept : m_pszData(g_nil.chars) {}

CString::CString(const char* psz) : CString()
{
    SetString(psz);
}

CString::CString(const char* pch, int nLength) : CString()
{
    SetString(pch, nLength);
}

CString::CString(char ch, int nRepeat) : CString()
{
    if (nRepeat <= 0)
        return;
    PrepareWrite(nRepeat, 0, false);
    std::memset(m_pszData, ch, static_cast<std::size_t>(nRepeat));
    SetLength(nRepeat);
}

CString::CString(const CString& src) : CString()
{
    *this = src;
}

CString::CString(CString&& src) noexcept : m_pszData(src.m_pszData)
{
    src.m_pszData = g_nil.chars;
}

CString::~CString()
{
    ReleaseData(GetData());
}

CString& CString::operator=(const CString& src)
{
    CStringData* source = src.GetData();
    if (source == GetData())
        return *this;
    if (IsLocked(source)) {
        SetString(src.m_pszData, source->length);
        return *this;
    }
    if (!IsNil(source))
        source->refs.fetch_add(1, std::memory_order_relaxed);
    CStringData* old = GetData();
    m_pszData = src.m_pszData;
    ReleaseData(old);
    return *this;
}

CString& CString::operator=(CString&& src) noexcept
{
    if (this != &src) {
        CStringData* old = GetData();
        m_pszData = src.m_pszData;
        src.m_pszData = g_nil.chars;
        ReleaseData(old);
    }
    return *this;
}

CString& CString::operator=(const char* psz)
{
    SetString(psz);
    return *this;
}

CString& CString::operator=(char ch)
{
    SetString(&ch, 1);
    return *this;
}

void CString::Empty() noexcept
{
    CStringData* old = GetData();
    m_pszData = g_nil.chars;
    ReleaseData(old);
}

void CString::SetString(const char* psz)
{
    SetString(psz, CheckedLength(psz));
}

void CString::SetString(const char* psz, int nLength)
{
    if (nLength < 0)
        AfxThrowInvalidArgException();
    if (psz == nullptr || nLength == 0) {
        Empty();
        return;
    }
    const DeferredRelease old{PrepareWrite(nLength, 0, false)};
    std::memmove(m_pszData, psz, static_cast<std::size_t>(nLength));
    SetLength(nLength);
}

// ---- characters ------------------------------------------------------------

char CString::GetAt(int iChar) const
{
    if (iChar < 0 || iChar > GetLength())
        AfxThrowInvalidArgException();
    return m_pszData[iChar];
}

void CString::SetAt(int iChar, char ch)
{
    if (iChar < 0 || iChar >= GetLength())
        AfxThrowInvalidArgException();
    CopyBeforeWrite();
    m_pszData[iChar] = ch;
}

// ---- appending -------------------------------------------------------------

void CString::Append(const char* pszSrc, int nLength)
{
    if (nLength < 0)
        AfxThrowInvalidArgException();
    if (pszSrc == nullptr || nLength == 0)
        return;
    const int length = GetLength();
    const int newLength = CheckedSum(length, nLength);
    const DeferredRelease old{PrepareWrite(newLength, length, true)};
    std::memmove(m_pszData + length, pszSrc, static_cast<std::size_t>(nLength));
    SetLength(newLength);
}

void CString::Append(const char* psz)
{
    Append(psz, CheckedLength(psz));
}

void CString::Append(const CString& str)
{
    // Sharing beats copying unless this string already has the room.
    if (IsEmpty() && GetAllocLength() < str.GetLength())
        *this = str;
    else
        Append(str.m_pszData, str.GetLength());
}

void CString::AppendChar(char ch)
{
    Append(&ch, 1);
}

CString& CString::operator+=(const CString& str)
{
    Append(str);
    return *this;
}

CString& CString::operator+=(const char* psz)
{
    Append(psz);
    return *this;
}

CString& CString::operator+=(char ch)
{
    AppendChar(ch);
    return *this;
}

namespace {

CString Concatenate(const char* a, int lengthA, const char* b, int lengthB)
{
    CString result;
    result.Preallocate(CheckedSum(lengthA, lengthB));
    result.Append(a, lengthA);
    result.Append(b, lengthB);
    return result;
}

}  // namespace

CString operator+(const CString& str1, const CString& str2)
{
    if (str1.IsEmpty())
        return str2;
    if (str2.IsEmpty())
        return str1;
    return Concatenate(str1.GetString(), str1.GetLength(), str2.GetString(), str2.GetLength());
}

CString operator+(const CString& str1, const char* psz2)
{
    if (psz2 == nullptr || *psz2 == '\0')
        return str1;
    return Concatenate(str1.GetString(), str1.GetLength(), psz2, CheckedLength(psz2));
}

CString operator+(const char* psz1, const CString& str2)
{
    if (psz1 == nullptr || *psz1 == '\0')
        return str2;
    return Concatenate(psz1, CheckedLength(psz1), str2.GetString(), str2.GetLength());
}

CString operator+(const CString& str1, char ch2)
{
    return Concatenate(str1.GetString(), str1.GetLength(), &ch2, 1);
}

CString operator+(char ch1, const CString& str2)
{
    return Concatenate(&ch1, 1, str2.GetString(), str2.GetLength());
}

// ---- comparing -------------------------------------------------------------

int CString::Compare(const char* psz) const
{
    const char* other = psz != nullptr ? psz : "";
    return CompareBytes(m_pszData, static_cast<std::size_t>(GetLength()), other, std::strlen(other));
}

int CString::Compare(const CString& str) const
{
    return CompareBytes(m_pszData, static_cast<std::size_t>(GetLength()), str.m_pszData,
                        static_cast<std::size_t>(str.GetLength()));
}

int CString::CompareNoCase(const char* psz) const
{
    const char* other = psz != nullptr ? psz : "";
    return CompareFolded(m_pszData, static_cast<std::size_t>(GetLength()), other, std::strlen(other));
}

int CString::CompareNoCase(const CString& str) const
{
    return CompareFolded(m_pszData, static_cast<std::size_t>(GetLength()), str.m_pszData,
                         static_cast<std::size_t>(str.GetLength()));
}

int CString::Collate(const char* psz) const
{
    return Sign(std::strcoll(m_pszData, psz != nullptr ? psz : ""));
}

int CString::CollateNoCase(const char* psz) const
{
    CString mine(m_pszData);
    CString other(psz);
    return Sign(std::strcoll(mine.MakeLower(), other.MakeLower()));
}

// ---- extracting ------------------------------------------------------------

CString CString::Mid(int nFirst) const
{
    const int first = std::clamp(nFirst, 0, GetLength());
    return Mid(first, GetLength() - first);
}

CString CString::Mid(int nFirst, int nCount) const
{
    const int length = GetLength();
    const int first = std::clamp(nFirst, 0, length);
    const int count = std::clamp(nCount, 0, length - first);
    if (first == 0 && count == length)
        return *this;
    return CString(m_pszData + first, count);
}

CString CString::Left(int nCount) const
{
    return Mid(0, nCount);
}

CString CString::Right(int nCount) const
{
    const int count = std::clamp(nCount, 0, GetLength());
    return Mid(GetLength() - count, count);
}

CString CString::SpanIncluding(const char* pszCharSet) const
{
    const CharSet set(pszCharSet);
    const char* end = m_pszData + GetLength();
    return Left(static_cast<int>(std::find_if_not(GetString(), end, set) - m_pszData));
}

CString CString::SpanExcluding(const char* pszCharSet) const
{
    const CharSet set(pszCharSet);
    const char* end = m_pszData + GetLength();
    return Left(static_cast<int>(std::find_if(GetString(), end, set) - m_pszData));
}

// ---- editing ---------------------------------------------------------------

CString& CString::MakeUpper()
{
    if (!IsEmpty()) {
        CopyBeforeWrite();
        std::transform(m_pszData, m_pszData + GetLength(), m_pszData, AfxToUpper1252);
    }
    return *this;
}

CString& CString::MakeLower()
{
    if (!IsEmpty()) {
        CopyBeforeWrite();
        std::transform(m_pszData, m_pszData + GetLength(), m_pszData, AfxToLower1252);
    }
    return *this;
}

CString& CString::MakeReverse()
{
    if (GetLength() > 1) {
        CopyBeforeWrite();
        std::reverse(m_pszData, m_pszData + GetLength());
    }
    return *this;
}

int CString::Replace(char chOld, char chNew)
{
    if (chOld == chNew)
        return 0;
    const int count = static_cast<int>(std::count(m_pszData, m_pszData + GetLength(), chOld));
    if (count > 0) {
        CopyBeforeWrite();
        std::replace(m_pszData, m_pszData + GetLength(), chOld, chNew);
    }
    return count;
}

int CString::Replace(const char* pszOld, const char* pszNew)
{
    if (pszOld == nullptr || *pszOld == '\0')
        return 0;
    std::string_view old(pszOld);
    std::string_view replacement(pszNew != nullptr ? pszNew : "");
    const int length = GetLength();

    int count = 0;
    for (int hit = 0; (hit = FindBytes(m_pszData, length, hit, old.data(), old.size())) >= 0;
         hit += static_cast<int>(old.size()))
        ++count;
    if (count == 0)
        return 0;

    // Arguments that point into this text are read before it changes.
    CString oldCopy;
    CString replacementCopy;
    const char* end = m_pszData + GetAllocLength();
    if (PointsInto(old.data(), m_pszData, end)) {
        oldCopy.SetString(old.data(), static_cast<int>(old.size()));
        old = std::string_view(oldCopy.GetString(), old.size());
    }
    if (PointsInto(replacement.data(), m_pszData, end)) {
        replacementCopy.SetString(replacement.data(), static_cast<int>(replacement.size()));
        replacement = std::string_view(replacementCopy.GetString(), replacement.size());
    }

    const long long delta = static_cast<long long>(replacement.size()) - static_cast<long long>(old.size());
    const int newLength = CheckedSum(length, delta * count);
    if (delta <= 0) {
        CopyBeforeWrite();
        SetLength(ReplaceInto(m_pszData, length, old, replacement, m_pszData));
        return count;
    }
    CStringData* fresh = AllocateData(newLength);
    ReplaceInto(m_pszData, length, old, replacement, CharsOf(fresh));
    const DeferredRelease previous{GetData()};
    m_pszData = CharsOf(fresh);
    SetLength(newLength);
    return count;
}

int CString::Remove(char ch)
{
    const int count = static_cast<int>(std::count(m_pszData, m_pszData + GetLength(), ch));
    if (count > 0) {
        CopyBeforeWrite();
        std::remove(m_pszData, m_pszData + GetLength(), ch);
        SetLength(GetLength() - count);
    }
    return count;
}

int CString::InsertBytes(int iIndex, const char* pch, int nLength)
{
    const int length = GetLength();
    if (nLength == 0)
        return length;
    const int index = std::clamp(iIndex, 0, length);
    const int newLength = CheckedSum(length, nLength);
    CString copy;
    if (PointsInto(pch, m_pszData, m_pszData + GetAllocLength())) {
        copy.SetString(pch, nLength);
        pch = copy.GetString();
    }
    ReleaseData(PrepareWrite(newLength, length, true));
    std::memmove(m_pszData + index + nLength, m_pszData + index, static_cast<std::size_t>(length - index));
    std::memcpy(m_pszData + index, pch, static_cast<std::size_t>(nLength));
    SetLength(newLength);
    return newLength;
}

int CString::Insert(int iIndex, char ch)
{
    return InsertBytes(iIndex, &ch, 1);
}

int CString::Insert(int iIndex, const char* psz)
{
    return InsertBytes(iIndex, psz, CheckedLength(psz));
}

int CString::Delete(int iIndex, int nCount)
{
    const int length = GetLength();
    const int index = std::max(iIndex, 0);
    if (index >= length || nCount <= 0)
        return length;
    const int count = std::min(nCount, length - index);
    CopyBeforeWrite();
    std::memmove(m_pszData + index, m_pszData + index + count, static_cast<std::size_t>(length - index - count));
    SetLength(length - count);
    return length - count;
}

// ---- searching -------------------------------------------------------------

int CString::Find(char ch, int iStart) const
{
    const int length = GetLength();
    if (iStart < 0 || iStart >= length)
        return -1;
    const void* hit = std::memchr(m_pszData + iStart, ch, static_cast<std::size_t>(length - iStart));
    return hit != nullptr ? static_cast<int>(static_cast<const char*>(hit) - m_pszData) : -1;
}

int CString::Find(const char* pszSub, int iStart) const
{
    if (pszSub == nullptr || iStart < 0 || iStart > GetLength())
        return -1;
    const std::size_t subLength = std::strlen(pszSub);
    if (subLength == 0)
        return iStart;
    return FindBytes(m_pszData, GetLength(), iStart, pszSub, subLength);
}

int CString::ReverseFind(char ch) const
{
    for (int i = GetLength() - 1; i >= 0; --i) {
        if (m_pszData[i] == ch)
            return i;
    }
    return -1;
}

int CString::FindOneOf(const char* pszCharSet) const
{
    const CharSet set(pszCharSet);
    const char* end = m_pszData + GetLength();
    const char* hit = std::find_if(GetString(), end, set);
    return hit != end ? static_cast<int>(hit - m_pszData) : -1;
}

// ---- trimming --------------------------------------------------------------

namespace {

enum TrimSides
{
    kLeft = 1,
    kRight = 2,
    kBoth = kLeft | kRight
};

template <class Pred>
void TrimWhere(CString& text, int sides, Pred trimmed)
{
    const char* begin = text.GetString();
    const char* first = begin;
    const char* last = begin + text.GetLength();
    if (sides & kLeft)
        first = std::find_if_not(first, last, trimmed);
    if (sides & kRight) {
        while (last != first && trimmed(last[-1]))
            --last;
    }
    if (first != begin || last != begin + text.GetLength())
        text.SetString(first, static_cast<int>(last - first));
}

}  // namespace

CString& CString::Trim()
{
    TrimWhere(*this, kBoth, IsSpace);
    return *this;
}

CString& CString::Trim(char chTarget)
{
    TrimWhere(*this, kBoth, CharSet(chTarget));
    return *this;
}

CString& CString::Trim(const char* pszTargets)
{
    TrimWhere(*this, kBoth, CharSet(pszTargets));
    return *this;
}

CString& CString::TrimLeft()
{
    TrimWhere(*this, kLeft, IsSpace);
    return *this;
}

CString& CString::TrimLeft(char chTarget)
{
    TrimWhere(*this, kLeft, CharSet(chTarget));
    return *this;
}

CString& CString::TrimLeft(const char* pszTargets)
{
    TrimWhere(*this, kLeft, CharSet(pszTargets));
    return *this;
}

CString& CString::TrimRight()
{
    TrimWhere(*this, kRight, IsSpace);
    return *this;
}

CString& CString::TrimRight(char chTarget)
{
    TrimWhere(*this, kRight, CharSet(chTarget));
    return *this;
}

CString& CString::TrimRight(const char* pszTargets)
{
    TrimWhere(*this, kRight, CharSet(pszTargets));
    return *this;
}

// ---- tokens ----------------------------------------------------------------

CString CString::Tokenize(const char* pszTokens, int& iStart) const
{
    if (iStart < 0)
        AfxThrowInvalidArgException();
    const int length = GetLength();
    if (iStart < length) {
        // Deliberate: without delimiters the rest comes back and iStart does
        // not move, as in the framework; loops must test for this themselves.
        if (pszTokens == nullptr || *pszTokens == '\0')
            return Mid(iStart);
        const CharSet delimiter(pszTokens);
        const char* end = m_pszData + length;
        const char* first = std::find_if_not(GetString() + iStart, end, delimiter);
        if (first != end) {
            const char* last = std::find_if(first, end, delimiter);
            iStart = static_cast<int>(last - m_pszData) + 1;
            return CString(first, static_cast<int>(last - first));
        }
    }
    iStart = -1;
    return CString();
}

// ---- buffers ---------------------------------------------------------------

char* CString::GetBuffer()
{
    return GetBuffer(0);
}

char* CString::GetBuffer(int nMinBufferLength)
{
    const int length = GetLength();
    ReleaseData(PrepareWrite(std::max(nMinBufferLength, length), length, false));
    GetData()->refs.store(-1, std::memory_order_relaxed);
    return m_pszData;
}

char* CString::GetBufferSetLength(int nLength)
{
    if (nLength < 0)
        AfxThrowInvalidArgException();
    const int length = GetLength();
    GetBuffer(nLength);
    if (nLength > length)
        std::memset(m_pszData + length, 0, static_cast<std::size_t>(nLength - length));
    SetLength(nLength);
    return m_pszData;
}

void CString::ReleaseBuffer(int nNewLength)
{
    CStringData* data = GetData();
    const bool owned = IsOwned(data);
    const int limit = owned ? data->capacity : data->length;
    if (nNewLength == -1) {
        const void* nul = std::memchr(m_pszData, '\0', static_cast<std::size_t>(limit));
        nNewLength = nul != nullptr ? static_cast<int>(static_cast<const char*>(nul) - m_pszData) : limit;
    }
    if (nNewLength < 0 || nNewLength > limit)
        AfxThrowInvalidArgException();
    if (!owned) {
        if (nNewLength == data->length)
            return;
        CopyBeforeWrite();
    }
    GetData()->refs.store(1, std::memory_order_relaxed);
    SetLength(nNewLength);
}

void CString::ReleaseBufferSetLength(int nNewLength)
{
    if (nNewLength < 0)
        AfxThrowInvalidArgException();
    ReleaseBuffer(nNewLength);
}

void CString::Preallocate(int nLength)
{
    const int length = GetLength();
    if (nLength > length)
        ReleaseData(PrepareWrite(nLength, length, false));
}

void CString::FreeExtra()
{
    CStringData* data = GetData();
    if (!IsOwned(data) || data->capacity == data->length)
        return;
    if (data->length == 0) {
        Empty();
        return;
    }
    CStringData* fresh = AllocateData(data->length);
    std::memcpy(CharsOf(fresh), m_pszData, static_cast<std::size_t>(data->length));
    m_pszData = CharsOf(fresh);
    SetLength(data->length);
    ReleaseData(data);
}

void CString::Truncate(int nNewLength)
{
    const int length = GetLength();
    if (nNewLength < 0 || nNewLength > length)
        AfxThrowInvalidArgException();
    if (nNewLength == length)
        return;
    ReleaseData(PrepareWrite(nNewLength, nNewLength, false));
    SetLength(nNewLength);
}

// ---- formatting ------------------------------------------------------------

// Writes the nLength formatted characters after the first keep characters.
// The current text stays intact while the arguments are read, so they may
// point into it: in place the output goes behind the terminator first.
void CString::PutFormatted(int keep, int nLength, const char* pszFormat, va_list args)
{
    const int length = GetLength();
    const int newLength = CheckedSum(keep, nLength);
    CStringData* data = GetData();
    const auto outputSize = static_cast<std::size_t>(nLength) + 1;
    if (IsOwned(data) && static_cast<long long>(data->capacity) >= static_cast<long long>(length) + 1 + nLength) {
        char* scratch = m_pszData + length + 1;
        std::vsnprintf(scratch, outputSize, pszFormat, args);
        std::memmove(m_pszData + keep, scratch, outputSize);
        SetLength(newLength);
        return;
    }
    const int capacity = keep > 0 ? GrownCapacity(data->capacity, newLength) : newLength;
    CStringData* fresh = AllocateData(capacity);
    std::memcpy(CharsOf(fresh), m_pszData, static_cast<std::size_t>(keep));
    std::vsnprintf(CharsOf(fresh) + keep, outputSize, pszFormat, args);
    const DeferredRelease previous{data};
    m_pszData = CharsOf(fresh);
    SetLength(newLength);
}
