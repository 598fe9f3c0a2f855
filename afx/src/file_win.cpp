// CFile on Win32 file handles (Windows build).
#include "file_os.h"

namespace {

constexpr UINT kAccessMask = CFile::modeRead | CFile::modeWrite | CFile::modeReadWrite;
constexpr UINT kShareMask = 0x70;

struct FlagMapping
{
    UINT flag;
    DWORD value;
};

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
    case CFile::modeWrite:
        return GENERIC_WRITE;
    case CFile::modeReadWrite:
        return GENERIC_READ | GENERIC_WRITE;
    default:
        return GENERIC_READ;
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

LONG AfxFileBadPathError()
{
    return ERROR_PATH_NOT_FOUND;
}

HANDLE AfxFileOpen(LPCTSTR lpszFileName, UINT nOpenFlags, LONG& error)
{
    SECURITY_ATTRIBUTES sa = {};
    sa.nLength = sizeof sa;
    sa.bInheritHandle = (nOpenFlags & CFile::modeNoInherit) ? FALSE : TRUE;
    HANDLE h = CreateFileA(lpszFileName, AccessOf(nOpenFlags), ShareOf(nOpenFlags), &sa, CreationOf(nOpenFlags),
                           AttributesOf(nOpenFlags), nullptr);
    if (h == INVALID_HANDLE_VALUE) {
        error = LastError();
        return CFile::hFileNull;
    }
    return h;
}

CString AfxFileFullPath(LPCTSTR lpszFileName)
{
    char szFull[MAX_PATH * 4];
    const DWORD nFull = GetFullPathNameA(lpszFileName, sizeof szFull, szFull, nullptr);
    return (nFull > 0 && nFull < sizeof szFull) ? szFull : lpszFileName;
}

LONG AfxFileClose(HANDLE hFile)
{
    return CloseHandle(hFile) ? 0 : LastError();
}

int AfxFileErrorCause(LONG error)
{
    return CFileException::OsErrorToException(error);
}

void AfxFileThrowError(LONG error, LPCTSTR lpszFileName)
{
    CFileException::ThrowOsError(error, lpszFileName);
}

UINT AfxFileRead(HANDLE hFile, void* lpBuf, UINT nCount, LPCTSTR lpszFileName)
{
    DWORD nRead = 0;
    if (!ReadFile(hFile, lpBuf, nCount, &nRead, nullptr))
        CFileException::ThrowOsError(LastError(), lpszFileName);
    return nRead;
}

void AfxFileWrite(HANDLE hFile, const void* lpBuf, UINT nCount, LPCTSTR lpszFileName)
{
    DWORD nWritten = 0;
    if (!WriteFile(hFile, lpBuf, nCount, &nWritten, nullptr))
        CFileException::ThrowOsError(LastError(), lpszFileName);
    if (nWritten != nCount)
        AfxThrowFileException(CFileException::diskFull, ERROR_DISK_FULL, lpszFileName);
}

ULONGLONG CFile::Seek(LONGLONG lOff, UINT nFrom)
{
    DWORD method = FILE_BEGIN;
    switch (nFrom) {
    case begin:
        method = FILE_BEGIN;
        break;
    case current:
        method = FILE_CURRENT;
        break;
    case end:
        method = FILE_END;
        break;
    default:
        AfxThrowInvalidArgException();
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

LONG AfxFileCreateNew(LPCTSTR lpszFileName)
{
    const HANDLE h = CreateFileA(lpszFileName, GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (h == INVALID_HANDLE_VALUE)
        return LastError();
    return CloseHandle(h) ? 0 : LastError();
}

bool AfxFileExistsError(LONG error)
{
    return error == ERROR_FILE_EXISTS || error == ERROR_ALREADY_EXISTS;
}

LONG AfxFileReplace(LPCTSTR lpszTemp, LPCTSTR lpszTarget)
{
    // Attributes a replacement keeps; read-only targets are refused.
    constexpr DWORD kKeptAttributes =
        FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;
    const DWORD attributes = GetFileAttributesA(lpszTarget);
    if (attributes != INVALID_FILE_ATTRIBUTES) {
        if (attributes & (FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_DIRECTORY))
            return ERROR_ACCESS_DENIED;
        if ((attributes & kKeptAttributes) != 0 && !SetFileAttributesA(lpszTemp, attributes & kKeptAttributes))
            return LastError();
    } else if (GetLastError() != ERROR_FILE_NOT_FOUND) {
        return LastError();
    }
    // One rename that either happens or leaves both files as they were.
    // (ReplaceFileA without a backup name can lose the target when it fails
    // half-way, with ERROR_UNABLE_TO_MOVE_REPLACEMENT.)
    if (!MoveFileExA(lpszTemp, lpszTarget, MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
        return LastError();
    return 0;
}
