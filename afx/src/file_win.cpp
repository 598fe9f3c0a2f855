// CFile on Win32 file handles (Windows build).
#include "afxfile.h"

namespace {

constexpr UINT kAccessMask = CFile::modeRead | CFile::modeWrite | CFile::modeReadWrite;
constexpr UINT kShareMask = 0x70;

struct FlagMapping { UINT flag; DWORD value; };

constexpr FlagMapping kShareModes[] = {
    {CFile::shareCompat, 0},
    {CFile::shareExclusive, 0},
    {CFile::shareDenyWrite, FILE_SHARE_READ},
    {CFile::shareDenyRead, FILE_SHARE_WRITE},
    {CFile::shareDenyNone, FILE_SHARE_READ | FILE_SHARE_WRITE},
};

constexpr FlagMapping kOsFlags[] = {
    {CFile::osNoBuffer, FILE_FLAG_NO_BUFFERING},
    {CFile::osWriteThrough, FILE_FLAG_WRITE_THROUGH},
    {CFile::osRandomAccess, FILE_FLAG_RANDOM_ACCESS},
    {CFile::osSequentialScan, FILE_FLAG_SEQUENTIAL_SCAN},
};

DWORD AccessOf(UINT nOpenFlags)
{
    switch (nOpenFlags & kAccessMask) {
    case CFile::modeWrite: return GENERIC_WRITE;
    case CFile::modeReadWrite: return GENERIC_READ | GENERIC_WRITE;
    default: return GENERIC_READ;
    }
}

DWORD ShareOf(UINT nOpenFlags)
{
    for (const auto& m : kShareModes) {
        if ((nOpenFlags & kShareMask) == m.flag)
            return m.value;
    }
    return 0;
}

DWORD CreationOf(UINT nOpenFlags)
{
    if (!(nOpenFlags & CFile::modeCreate))
        return OPEN_EXISTING;
    return (nOpenFlags & CFile::modeNoTruncate) ? OPEN_ALWAYS : CREATE_ALWAYS;
}

DWORD AttributesOf(UINT nOpenFlags)
{
    DWORD attributes = FILE_ATTRIBUTE_NORMAL;
    for (const auto& m : kOsFlags) {
        if (nOpenFlags & m.flag)
            attributes |= m.value;
    }
    return attributes;
}

LONG LastError()
{
    return static_cast<LONG>(GetLastError());
}

}  // namespace

BOOL CFile::Open(LPCTSTR lpszFileName, UINT nOpenFlags, CFileException* pError)
{
    if (pError != nullptr)
        pError->Clear();
    if (lpszFileName == nullptr || lpszFileName[0] == '\0') {
        if (pError != nullptr) {
            pError->m_cause = CFileException::badPath;
            pError->m_lOsError = ERROR_PATH_NOT_FOUND;
            pError->m_strFileName = lpszFileName != nullptr ? lpszFileName : "";
        }
        return FALSE;
    }
    if (m_hFile != hFileNull)
        Abort();

    SECURITY_ATTRIBUTES sa = {};
    sa.nLength = sizeof sa;
    sa.bInheritHandle = (nOpenFlags & modeNoInherit) ? FALSE : TRUE;
    HANDLE h = CreateFileA(lpszFileName, AccessOf(nOpenFlags), ShareOf(nOpenFlags), &sa,
                           CreationOf(nOpenFlags), AttributesOf(nOpenFlags), nullptr);
    if (h == INVALID_HANDLE_VALUE) {
        const LONG error = LastError();
        if (pError != nullptr) {
            pError->m_cause = CFileException::OsErrorToException(error);
            pError->m_lOsError = error;
            pError->m_strFileName = lpszFileName;
        }
        return FALSE;
    }
    m_hFile = h;
    m_bCloseOnDelete = TRUE;

    char szFull[MAX_PATH * 4];
    const DWORD nFull = GetFullPathNameA(lpszFileName, sizeof szFull, szFull, nullptr);
    m_strFileName = (nFull > 0 && nFull < sizeof szFull) ? szFull : lpszFileName;
    return TRUE;
}

UINT CFile::Read(void* lpBuf, UINT nCount)
{
    if (nCount == 0)
        return 0;
    if (lpBuf == nullptr)
        AfxThrowInvalidArgException();
    DWORD nRead = 0;
    if (!ReadFile(m_hFile, lpBuf, nCount, &nRead, nullptr))
        CFileException::ThrowOsError(LastError(), m_strFileName);
    return nRead;
}

void CFile::Write(const void* lpBuf, UINT nCount)
{
    if (nCount == 0)
        return;
    if (lpBuf == nullptr)
        AfxThrowInvalidArgException();
    DWORD nWritten = 0;
    if (!WriteFile(m_hFile, lpBuf, nCount, &nWritten, nullptr))
        CFileException::ThrowOsError(LastError(), m_strFileName);
    if (nWritten != nCount)
        AfxThrowFileException(CFileException::diskFull, ERROR_DISK_FULL, m_strFileName);
}

ULONGLONG CFile::Seek(LONGLONG lOff, UINT nFrom)
{
    DWORD method = FILE_BEGIN;
    switch (nFrom) {
    case begin: method = FILE_BEGIN; break;
    case current: method = FILE_CURRENT; break;
    case end: method = FILE_END; break;
    default: AfxThrowInvalidArgException();
    }
    LARGE_INTEGER distance;
    distance.QuadPart = lOff;
    LARGE_INTEGER position;
    if (!SetFilePointerEx(m_hFile, distance, &position, method))
        CFileException::ThrowOsError(LastError(), m_strFileName);
    return static_cast<ULONGLONG>(position.QuadPart);
}

ULONGLONG CFile::GetPosition() const
{
    LARGE_INTEGER zero = {};
    LARGE_INTEGER position;
    if (!SetFilePointerEx(m_hFile, zero, &position, FILE_CURRENT))
        CFileException::ThrowOsError(LastError(), m_strFileName);
    return static_cast<ULONGLONG>(position.QuadPart);
}

ULONGLONG CFile::GetLength() const
{
    LARGE_INTEGER size;
    if (!GetFileSizeEx(m_hFile, &size))
        CFileException::ThrowOsError(LastError(), m_strFileName);
    return static_cast<ULONGLONG>(size.QuadPart);
}

void CFile::SetLength(ULONGLONG dwNewLen)
{
    const ULONGLONG position = GetPosition();
    Seek(static_cast<LONGLONG>(dwNewLen), begin);
    if (!SetEndOfFile(m_hFile))
        CFileException::ThrowOsError(LastError(), m_strFileName);
    Seek(static_cast<LONGLONG>(position), begin);
}

void CFile::Flush()
{
    if (m_hFile == hFileNull)
        return;
    if (!FlushFileBuffers(m_hFile))
        CFileException::ThrowOsError(LastError(), m_strFileName);
}

void CFile::Close()
{
    LONG error = 0;
    if (m_hFile != hFileNull && !CloseHandle(m_hFile))
        error = LastError();
    const CString name = m_strFileName;
    m_hFile = hFileNull;
    m_bCloseOnDelete = FALSE;
    m_strFileName.Empty();
    CFileException::ThrowOsError(error, name);
}

void CFile::Abort()
{
    if (m_hFile != hFileNull)
        CloseHandle(m_hFile);
    m_hFile = hFileNull;
    m_bCloseOnDelete = FALSE;
    m_strFileName.Empty();
}

void PASCAL CFile::Rename(LPCTSTR lpszOldName, LPCTSTR lpszNewName)
{
    if (!MoveFileA(lpszOldName, lpszNewName))
        CFileException::ThrowOsError(LastError(), lpszOldName);
}

void PASCAL CFile::Remove(LPCTSTR lpszFileName)
{
    if (!DeleteFileA(lpszFileName))
        CFileException::ThrowOsError(LastError(), lpszFileName);
}
