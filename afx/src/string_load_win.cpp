// CString's string resources (finding the module along the resource chain,
// loading and converting), resource formats and message formatting through
// the system's FormatMessage.
#include "afxwin.h"
#include "module_state_impl.h"

#include <algorithm>
#include <climits>
#include <cstring>
#include <string_view>
#include <utility>
#include <vector>

namespace {

constexpr UINT kCodePage1252 = 1252;
constexpr UINT kStringsPerBlock = 16;

// The UTF-16 text of string nID in module; empty if the module lacks it.
std::wstring_view FindStringEntry(HINSTANCE module, UINT nID)
{
    HRSRC resource = FindResourceA(module, MAKEINTRESOURCEA(nID / kStringsPerBlock + 1), RT_STRING);
    if (resource == nullptr)
        return {};
    HGLOBAL loaded = LoadResource(module, resource);
    if (loaded == nullptr)
        return {};
    const auto* entry = static_cast<const WCHAR*>(LockResource(loaded));
    if (entry == nullptr)
        return {};
    const WCHAR* end = entry + SizeofResource(module, resource) / sizeof(WCHAR);
    // A block holds 16 counted texts in a row; skip to the one for nID.
    for (UINT i = 0; i < nID % kStringsPerBlock; ++i) {
        if (entry >= end)
            return {};
        entry += 1 + *entry;
    }
    if (entry >= end || *entry > end - entry - 1)
        return {};
    return {entry + 1, *entry};
}

}  // namespace

HINSTANCE AfxFindStringResourceHandle(UINT nID)
{
    for (HINSTANCE module : AfxResourceSearchOrder()) {
        if (!FindStringEntry(module, nID).empty())
            return module;
    }
    return nullptr;
}

BOOL CString::LoadString(UINT nID)
{
    HINSTANCE module = AfxFindStringResourceHandle(nID);
    if (module == nullptr)
        return FALSE;
    const std::wstring_view text = FindStringEntry(module, nID);
    const WCHAR* wide = text.data();
    const int wideLength = static_cast<int>(text.size());
    const int length = WideCharToMultiByte(kCodePage1252, 0, wide, wideLength, nullptr, 0, nullptr, nullptr);
    if (length <= 0)
        return FALSE;
    CString loaded;
    WideCharToMultiByte(kCodePage1252, 0, wide, wideLength, loaded.GetBufferSetLength(length), length, nullptr,
                        nullptr);
    loaded.ReleaseBuffer(length);
    *this = std::move(loaded);
    return TRUE;
}

void CString::FormatResourceUnchecked(UINT nFormatID, ...)
{
    CString format;
    format.LoadString(nFormatID);
    va_list args;
    va_start(args, nFormatID);
    FormatV(format, args);
    va_end(args);
}

void CString::FormatMessageV(LPCTSTR pszFormat, va_list* pArgList)
{
    if (pszFormat == nullptr || *pszFormat == '\0') {
        Empty();
        return;
    }
    LPSTR buffer = nullptr;
    const DWORD length = ::FormatMessageA(FORMAT_MESSAGE_FROM_STRING | FORMAT_MESSAGE_ALLOCATE_BUFFER, pszFormat, 0, 0,
                                          reinterpret_cast<LPSTR>(&buffer), 0, pArgList);
    if (length == 0 || buffer == nullptr) {
        LocalFree(buffer);
        AfxThrowMemoryException();
    }
    struct LocalBuffer
    {
        LPSTR text;
        ~LocalBuffer() { LocalFree(text); }
    } const owner{buffer};
    SetString(owner.text, static_cast<int>(length));
}

void CString::FormatMessageUnchecked(LPCTSTR pszFormat, ...)
{
    va_list args;
    va_start(args, pszFormat);
    FormatMessageV(pszFormat, &args);
    va_end(args);
}

void CString::FormatMessageResourceUnchecked(UINT nFormatID, ...)
{
    CString format;
    format.LoadString(nFormatID);
    va_list args;
    va_start(args, nFormatID);
    FormatMessageV(format, &args);
    va_end(args);
}

int AfxLoadString(UINT nID, LPSTR lpszBuf, UINT nMaxBuf)
{
    if (lpszBuf == nullptr || nMaxBuf == 0)
        return 0;
    CString text;
    text.LoadString(nID);
    const int copied = std::min(text.GetLength(), static_cast<int>(std::min<UINT>(nMaxBuf - 1, INT_MAX)));
    std::memcpy(lpszBuf, text.GetString(), static_cast<std::size_t>(copied));
    lpszBuf[copied] = '\0';
    return copied;
}
