// The parts of CFile that do not touch the operating system.
#include "afxfile.h"

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

CFile::CFile() : m_hFile(NullHandle()), m_bCloseOnDelete(FALSE)
{
}

CFile::CFile(HANDLE hFile) : m_hFile(hFile), m_bCloseOnDelete(FALSE)
{
}

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
