// The framework's narrow string: code page 1252 bytes, one pointer wide,
// reference counted and copied on write.
//
// What callers can rely on beyond the framework's reference:
// - A null const char* argument reads as the empty string: constructors,
//   assignment, +=, Append, Insert and comparisons treat it as "", searches
//   for it return -1, Replace with it as the old text replaces nothing.
// - The text may hold NUL bytes when it was built from a pointer and a
//   length (constructor, SetString, Append, GetBufferSetLength). Searches,
//   comparisons, Replace, Remove, Trim, Span*, FindOneOf and Tokenize run
//   over the whole length; Collate, CollateNoCase and any use of
//   GetString() as a C string stop at the first NUL.
// - Compare, CompareNoCase, Collate and CollateNoCase return -1, 0 or 1.
// - Positions and counts out of range are clamped as each function says.
//   Negative lengths, GetAt/SetAt outside the text, ReleaseBuffer or
//   Truncate beyond the buffer and a negative Tokenize start throw
//   CInvalidArgException*; running out of memory throws CMemoryException*.
// - Format arguments may point into the string being formatted.
// - Format, AppendFormat and TRACE check a literal format against their
//   arguments at compile time and pass a CString argument as its text
//   (afxformat.h).
#pragma once

#include "afxplatform.h"
#include "afxformat.h"

#include <atomic>
#include <cstdarg>
#include <type_traits>

// Upper case of a code page 1252 byte; ß, µ and non-letters stay as they are.
AFX_API char AfxToUpper1252(char ch);
// Lower case of a code page 1252 byte, the inverse of AfxToUpper1252.
AFX_API char AfxToLower1252(char ch);

// Header in front of the characters of every string block.
struct CStringData
{
    // Owners of the block; -1 while GetBuffer has handed it out, so that
    // copies taken meanwhile get their own text.
    std::atomic<int> refs;
    int length;
    // Characters the block can hold, not counting the terminator.
    int capacity;
};

// A counted string of code page 1252 bytes, always NUL-terminated.
class AFX_API CString
{
public:
    CString() noexcept;
    CString(const char* psz);
    // Takes nLength bytes, NULs included; a null pch gives the empty string.
    CString(const char* pch, int nLength);
    // nRepeat copies of ch; nRepeat <= 0 gives the empty string.
    CString(char ch, int nRepeat = 1);
    CString(const CString& src);
    CString(CString&& src) noexcept;
    ~CString();

    CString& operator=(const CString& src);
    CString& operator=(CString&& src) noexcept;
    CString& operator=(const char* psz);
    CString& operator=(char ch);

    operator LPCTSTR() const noexcept { return m_pszData; }
    // The text, NUL-terminated; valid until the string changes.
    LPCTSTR GetString() const noexcept { return m_pszData; }
    int GetLength() const noexcept { return GetData()->length; }
    BOOL IsEmpty() const noexcept { return GetLength() == 0; }
    // Characters the buffer holds without reallocating.
    int GetAllocLength() const noexcept { return GetData()->capacity; }
    // Makes the string empty and frees its buffer.
    void Empty() noexcept;

    // The character at iChar; iChar == GetLength() reads the terminator.
    char GetAt(int iChar) const;
    // Overwrites the character at iChar, which must lie inside the text.
    void SetAt(int iChar, char ch);
    char operator[](int iChar) const { return GetAt(iChar); }

    CString& operator+=(const CString& str);
    CString& operator+=(const char* psz);
    CString& operator+=(char ch);
    // Appends nLength bytes of pszSrc, NULs included.
    void Append(const char* pszSrc, int nLength);
    void Append(const char* psz);
    void Append(const CString& str);
    void AppendChar(char ch);
    void SetString(const char* psz);
    // Replaces the text with nLength bytes of psz, which may point into it.
    void SetString(const char* psz, int nLength);

    // Byte order, bytes compared unsigned; a longer text after its prefix.
    int Compare(const char* psz) const;
    // As Compare(const char*), over both whole lengths.
    int Compare(const CString& str) const;
    // Compare after folding both sides with AfxToLower1252.
    int CompareNoCase(const char* psz) const;
    int CompareNoCase(const CString& str) const;
    // Order of the C runtime's current collation locale (strcoll).
    int Collate(const char* psz) const;
    // Collate after folding both sides with AfxToLower1252.
    int CollateNoCase(const char* psz) const;

    // From nFirst (clamped to 0..length) to the end.
    CString Mid(int nFirst) const;
    // nCount characters from nFirst; both clamped to the text.
    CString Mid(int nFirst, int nCount) const;
    // The first nCount characters, nCount clamped to 0..length.
    CString Left(int nCount) const;
    // The last nCount characters, nCount clamped to 0..length.
    CString Right(int nCount) const;
    // The leading characters that are all in pszCharSet; null or "" gives "".
    CString SpanIncluding(const char* pszCharSet) const;
    // The leading characters none of which is in pszCharSet; null or "" gives the whole text.
    CString SpanExcluding(const char* pszCharSet) const;

    CString& MakeUpper();
    CString& MakeLower();
    CString& MakeReverse();
    // Replaces every chOld with chNew; returns how many there were (0 if chOld == chNew).
    int Replace(char chOld, char chNew);
    // Replaces non-overlapping occurrences from left to right; returns their
    // count. A null or empty pszOld replaces nothing; a null pszNew deletes.
    int Replace(const char* pszOld, const char* pszNew);
    // Removes every ch; returns how many were removed.
    int Remove(char ch);
    // Inserts before iIndex (clamped to 0..length); returns the new length.
    int Insert(int iIndex, char ch);
    int Insert(int iIndex, const char* psz);
    // Deletes up to nCount characters from iIndex (clamped); returns the new length.
    int Delete(int iIndex, int nCount = 1);

    // First ch at or after iStart; -1 if none or iStart is outside the text.
    int Find(char ch, int iStart = 0) const;
    // First pszSub at or after iStart (0..length); -1 if none or pszSub is
    // null. An empty pszSub is found at iStart, as strstr finds it.
    int Find(const char* pszSub, int iStart = 0) const;
    int ReverseFind(char ch) const;
    // First character that is in pszCharSet; -1 if none.
    int FindOneOf(const char* pszCharSet) const;

    // printf formatting. A literal format is checked against the arguments
    // at compile time (afxformat.h); a CString argument passes its text, as
    // the framework's programs expect. The MSVC length modifiers (I64, I32,
    // I, l as 32 bits, w, h for strings) work as in the Windows runtime. A
    // null format leaves the string empty, and so does an argument the C
    // runtime cannot convert.
    template <class... Args>
    void Format(AfxFormatString<std::type_identity_t<Args>...> pszFormat, const Args&... args)
    {
        static_assert((AfxFormat::kPassable<Args> && ...), "Format: an argument cannot be passed to printf");
        FormatUnchecked(pszFormat.get(), AfxFormat::Pass(args)...);
    }
    void FormatV(const char* pszFormat, va_list args);
    // As Format, appending; a null format or a failed conversion appends nothing.
    template <class... Args>
    void AppendFormat(AfxFormatString<std::type_identity_t<Args>...> pszFormat, const Args&... args)
    {
        static_assert((AfxFormat::kPassable<Args> && ...), "AppendFormat: an argument cannot be passed to printf");
        AppendFormatUnchecked(pszFormat.get(), AfxFormat::Pass(args)...);
    }
    void AppendFormatV(const char* pszFormat, va_list args);

    // Trimming removes ASCII white space (space, \t, \n, \v, \f, \r), one
    // character, or any character of a set (null or "" trims nothing).
    CString& Trim();
    CString& Trim(char chTarget);
    CString& Trim(const char* pszTargets);
    CString& TrimLeft();
    CString& TrimLeft(char chTarget);
    CString& TrimLeft(const char* pszTargets);
    CString& TrimRight();
    CString& TrimRight(char chTarget);
    CString& TrimRight(const char* pszTargets);

    // The next token at or after iStart, skipping leading delimiters; sets
    // iStart past the token, or to -1 with an empty result when none is left.
    CString Tokenize(const char* pszTokens, int& iStart) const;

    // A writable buffer of at least the current length; the string must not
    // be used otherwise until ReleaseBuffer.
    char* GetBuffer();
    // As GetBuffer, with room for nMinBufferLength characters (less than the
    // length counts as the length).
    char* GetBuffer(int nMinBufferLength);
    // A writable buffer whose text has nLength characters; new ones are NUL.
    char* GetBufferSetLength(int nLength);
    // Ends GetBuffer: the text becomes nNewLength characters, or with -1 runs
    // up to the first NUL in the buffer.
    void ReleaseBuffer(int nNewLength = -1);
    void ReleaseBufferSetLength(int nNewLength);
    // Makes room for nLength characters without changing the text.
    void Preallocate(int nLength);
    // Shrinks the buffer to the text.
    void FreeExtra();
    // Cuts the text to nNewLength characters (0..length); the buffer stays.
    void Truncate(int nNewLength);

#ifdef _WIN32
    // Replaces the text with string resource nID from the module that
    // AfxFindStringResourceHandle names; FALSE, text unchanged, if none has it.
    BOOL LoadString(UINT nID);
    // Format with string resource nFormatID as the format (unchecked); a
    // missing string leaves the string empty.
    template <class... Args>
    void Format(UINT nFormatID, const Args&... args)
    {
        static_assert((AfxFormat::kPassable<Args> && ...), "Format: an argument cannot be passed to printf");
        FormatResourceUnchecked(nFormatID, AfxFormat::Pass(args)...);
    }
    // Message formatting through the system's FormatMessage
    // (FORMAT_MESSAGE_FROM_STRING): inserts %1..%99, each an argument, "!s!"
    // unless the insert names a printf conversion such as %2!d!. A CString
    // argument passes its text; each insert needs its argument, as the
    // system reads them unchecked. Throws CMemoryException* when the system
    // cannot format (a malformed insert).
    template <class... Args>
    void FormatMessage(LPCTSTR pszFormat, const Args&... args)
    {
        static_assert((AfxFormat::kPassable<Args> && ...), "FormatMessage: an argument cannot be passed");
        FormatMessageUnchecked(pszFormat, AfxFormat::Pass(args)...);
    }
    // As FormatMessage with string resource nFormatID as the format; a
    // missing string leaves the string empty.
    template <class... Args>
    void FormatMessage(UINT nFormatID, const Args&... args)
    {
        static_assert((AfxFormat::kPassable<Args> && ...), "FormatMessage: an argument cannot be passed");
        FormatMessageResourceUnchecked(nFormatID, AfxFormat::Pass(args)...);
    }
    // FormatMessage with the arguments in *pArgList.
    void FormatMessageV(LPCTSTR pszFormat, va_list* pArgList);
#endif

private:
    CStringData* GetData() const noexcept
    {
        return reinterpret_cast<CStringData*>(m_pszData) - 1;
    }
    CStringData* PrepareWrite(int minCapacity, int keep, bool grow);
    void CopyBeforeWrite();
    void SetLength(int nLength) noexcept;
    int InsertBytes(int iIndex, const char* pch, int nLength);
    void PutFormatted(int keep, int nLength, const char* pszFormat, va_list args);

    // The C variadic cores of the formatting templates; every argument is
    // already a scalar or a pointer.
    void FormatUnchecked(const char* pszFormat, ...);
    void AppendFormatUnchecked(const char* pszFormat, ...);
#ifdef _WIN32
    void FormatResourceUnchecked(UINT nFormatID, ...);
    void FormatMessageUnchecked(LPCTSTR pszFormat, ...);
    void FormatMessageResourceUnchecked(UINT nFormatID, ...);
#endif

    char* m_pszData;
};

template <class... Args>
AfxFormatString<Args...>::AfxFormatString(const CString& text) : m_psz(text.GetString())
{}

AFX_API CString operator+(const CString& str1, const CString& str2);
AFX_API CString operator+(const CString& str1, const char* psz2);
AFX_API CString operator+(const char* psz1, const CString& str2);
AFX_API CString operator+(const CString& str1, char ch2);
AFX_API CString operator+(char ch1, const CString& str2);

inline bool operator==(const CString& a, const CString& b)
{
    return a.GetLength() == b.GetLength() && a.Compare(b) == 0;
}
inline bool operator==(const CString& a, const char* b)
{
    return a.Compare(b) == 0;
}
inline bool operator==(const char* a, const CString& b)
{
    return b.Compare(a) == 0;
}
inline bool operator!=(const CString& a, const CString& b)
{
    return !(a == b);
}
inline bool operator!=(const CString& a, const char* b)
{
    return !(a == b);
}
inline bool operator!=(const char* a, const CString& b)
{
    return !(a == b);
}
inline bool operator<(const CString& a, const CString& b)
{
    return a.Compare(b) < 0;
}
inline bool operator<(const CString& a, const char* b)
{
    return a.Compare(b) < 0;
}
inline bool operator<(const char* a, const CString& b)
{
    return b.Compare(a) > 0;
}
inline bool operator>(const CString& a, const CString& b)
{
    return a.Compare(b) > 0;
}
inline bool operator>(const CString& a, const char* b)
{
    return a.Compare(b) > 0;
}
inline bool operator>(const char* a, const CString& b)
{
    return b.Compare(a) < 0;
}
inline bool operator<=(const CString& a, const CString& b)
{
    return a.Compare(b) <= 0;
}
inline bool operator<=(const CString& a, const char* b)
{
    return a.Compare(b) <= 0;
}
inline bool operator<=(const char* a, const CString& b)
{
    return b.Compare(a) >= 0;
}
inline bool operator>=(const CString& a, const CString& b)
{
    return a.Compare(b) >= 0;
}
inline bool operator>=(const CString& a, const char* b)
{
    return a.Compare(b) >= 0;
}
inline bool operator>=(const char* a, const CString& b)
{
    return b.Compare(a) <= 0;
}

#ifdef _WIN32
// The module whose string table holds string nID, or NULL. Searches the
// resource chain in AfxFindResourceHandle's order (afxapp.h).
AFX_API HINSTANCE AfxFindStringResourceHandle(UINT nID);
// Copies string resource nID into lpszBuf, truncated and NUL-terminated;
// returns the characters copied, 0 if there is no such string.
AFX_API int AfxLoadString(UINT nID, LPSTR lpszBuf, UINT nMaxBuf = 256);
#endif
