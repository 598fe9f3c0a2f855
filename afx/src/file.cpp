// CFile's rules on both systems; file_os.h names what the system does.
#include "afxfile.h"

#include "file_os.h"

#include <cstdint>
#include <cstring>

namespace {

HANDLE NullHandle()
{
    return reinterpret_cast<HANDLE>(static_cast<std::intptr_t>(-1));
}

bool IsPathSeparator(char ch)
{
#ifdef _WIN32
    return ch == '\\' || ch == '/' || ch == ':';
#else
    return ch == '\\' || ch == '/';
#endif
}

}  // namespace

IMPLEMENT_DYNAMIC(CFile, CObject)

const HANDLE CFile::hFileNull = NullHandle();

CFile::CFile() : m_hFile(NullHandle()), m_bCloseOnDelete(FALSE) {}

CFile::CFile(HANDLE hFile) : m_hFile(hFile), m_bCloseOnDelete(FALSE) {}

CFile::CFile(LPCTSTR lpszFileName, UINT nOpenFlags) : CFile()
{
    CFileException error;
    if (!Open(lpszFileName, nOpenFlags, &error))
        AfxThrowFileException(error.m_cause, error.m_lOsError, error.m_strFileName);
}

CFile::~CFile()
{
    if (m_hFile != NullHandle() && m_bCloseOnDelete)
        CFile::Abort();
}

BOOL CFile::Open(LPCTSTR lpszFileName, UINT nOpenFlags, CFileException* pError)
{
    if (pError != nullptr)
        pError->Clear();
    if (lpszFileName == nullptr || lpszFileName[0] == '\0') {
        if (pError != nullptr) {
            pError->m_cause = CFileException::badPath;
            pError->m_lOsError = AfxFileBadPathError();
            pError->m_strFileName = lpszFileName != nullptr ? lpszFileName : "";
        }
        return FALSE;
    }
    if (m_hFile != hFileNull)
        Abort();
    LONG error = 0;
    const HANDLE hFile = AfxFileOpen(lpszFileName, nOpenFlags, error);
    if (hFile == hFileNull) {
        if (pError != nullptr) {
            pError->m_cause = AfxFileErrorCause(error);
            pError->m_lOsError = error;
            pError->m_strFileName = lpszFileName;
        }
        return FALSE;
    }
    m_hFile = hFile;
    m_bCloseOnDelete = TRUE;
    m_strFileName = AfxFileFullPath(lpszFileName);
    return TRUE;
}

UINT CFile::Read(void* lpBuf, UINT nCount)
{
    if (nCount == 0)
        return 0;
    if (lpBuf == nullptr)
        AfxThrowInvalidArgException();
    return AfxFileRead(m_hFile, lpBuf, nCount, m_strFileName);
}

void CFile::Write(const void* lpBuf, UINT nCount)
{
    if (nCount == 0)
        return;
    if (lpBuf == nullptr)
        AfxThrowInvalidArgException();
    AfxFileWrite(m_hFile, lpBuf, nCount, m_strFileName);
}

void CFile::Close()
{
    const LONG error = m_hFile != hFileNull ? AfxFileClose(m_hFile) : 0;
    const CString name = m_strFileName;
    m_hFile = hFileNull;
    m_bCloseOnDelete = FALSE;
    m_strFileName.Empty();
    AfxFileThrowError(error, name);
}

void CFile::Abort()
{
    if (m_hFile != hFileNull)
        AfxFileClose(m_hFile);
    m_hFile = hFileNull;
    m_bCloseOnDelete = FALSE;
    m_strFileName.Empty();
}

CFile::operator HANDLE() const
{
    return m_hFile;
}

void CFile::SeekToBegin()
{
    Seek(0, begin);
}

ULONGLONG CFile::SeekToEnd()
{
    return Seek(0, end);
}

CString CFile::GetFileName() const
{
    const char* path = m_strFileName;
    const char* name = path;
    for (const char* p = path; *p != '\0'; ++p) {
        if (IsPathSeparator(*p))
            name = p + 1;
    }
    return CString(name);
}

CString CFile::GetFileTitle() const
{
    CString name = GetFileName();
    const char* text = name;
    const char* dot = std::strrchr(text, '.');
    return dot != nullptr ? CString(text, static_cast<int>(dot - text)) : name;
}

CString CFile::GetFilePath() const
{
    return m_strFileName;
}

void CFile::SetFilePath(LPCTSTR lpszNewName)
{
    m_strFileName = lpszNewName != nullptr ? lpszNewName : "";
}
