// CStdioFile: text and binary modes over CFile, with a read buffer.
#include "afxfile.h"

#include <climits>
#include <cstring>
#include <new>
#include <string>

namespace {

constexpr UINT kAccessMask = CFile::modeRead | CFile::modeWrite | CFile::modeReadWrite;
constexpr char kCtrlZ = '\x1A';

// Whether the runtime would open the file in an append mode: "a" for
// modeCreate | modeNoTruncate and for modeWrite without modeCreate.
bool IsAppendMode(UINT nOpenFlags)
{
    if (nOpenFlags & CFile::modeCreate)
        return (nOpenFlags & CFile::modeNoTruncate) != 0;
    return (nOpenFlags & kAccessMask) == CFile::modeWrite;
}

}  // namespace

IMPLEMENT_DYNAMIC(CStdioFile, CFile)

CStdioFile::CStdioFile() : m_bText(TRUE), m_bAppend(FALSE), m_bAtTextEnd(FALSE), m_nBufPos(0), m_nBufEnd(0), m_buffer()
{}

CStdioFile::CStdioFile(LPCTSTR lpszFileName, UINT nOpenFlags) : CStdioFile()
{
    CFileException error;
    if (!Open(lpszFileName, nOpenFlags, &error))
        AfxThrowFileException(error.m_cause, error.m_lOsError, error.m_strFileName);
}

BOOL CStdioFile::Open(LPCTSTR lpszFileName, UINT nOpenFlags, CFileException* pError)
{
    DropReadBuffer();
    m_bAtTextEnd = FALSE;
    if (!CFile::Open(lpszFileName, nOpenFlags & ~(typeText | typeBinary), pError))
        return FALSE;
    m_bText = (nOpenFlags & typeBinary) ? FALSE : TRUE;
    m_bAppend = IsAppendMode(nOpenFlags) ? TRUE : FALSE;
    return TRUE;
}

bool CStdioFile::FillBuffer()
{
    const UINT keep = m_nBufEnd - m_nBufPos;
    std::memmove(m_buffer, m_buffer + m_nBufPos, keep);
    m_nBufPos = 0;
    m_nBufEnd = keep;
    const UINT got = CFile::Read(m_buffer + keep, kBufferSize - keep);
    m_nBufEnd += got;
    return got > 0;
}

void CStdioFile::DropReadBuffer()
{
    if (m_nBufPos != m_nBufEnd)
        CFile::Seek(-static_cast<LONGLONG>(m_nBufEnd - m_nBufPos), current);
    m_nBufPos = 0;
    m_nBufEnd = 0;
}

int CStdioFile::NextChar()
{
    if (m_bAtTextEnd)
        return -1;
    if (m_nBufPos == m_nBufEnd && !FillBuffer())
        return -1;
    const char ch = m_buffer[m_nBufPos];
    if (m_bText) {
        if (ch == kCtrlZ) {
            m_bAtTextEnd = TRUE;
            return -1;
        }
        if (ch == '\r') {
            if (m_nBufPos + 1 == m_nBufEnd)
                FillBuffer();
            if (m_nBufPos + 1 < m_nBufEnd && m_buffer[m_nBufPos + 1] == '\n') {
                m_nBufPos += 2;
                return '\n';
            }
        }
    }
    ++m_nBufPos;
    return static_cast<unsigned char>(ch);
}

UINT CStdioFile::Read(void* lpBuf, UINT nCount)
{
    if (nCount == 0)
        return 0;
    if (lpBuf == nullptr)
        AfxThrowInvalidArgException();
    char* out = static_cast<char*>(lpBuf);
    UINT n = 0;
    while (n < nCount) {
        const int ch = NextChar();
        if (ch < 0)
            break;
        out[n++] = static_cast<char>(ch);
    }
    return n;
}

void CStdioFile::Write(const void* lpBuf, UINT nCount)
{
    if (nCount == 0)
        return;
    if (lpBuf == nullptr)
        AfxThrowInvalidArgException();
    DropReadBuffer();
    if (m_bAppend)
        CFile::Seek(0, end);
    const char* text = static_cast<const char*>(lpBuf);
    if (!m_bText) {
        CFile::Write(text, nCount);
        return;
    }
    std::string translated;
    translated.reserve(nCount + nCount / 8);
    for (UINT i = 0; i < nCount; ++i) {
        if (text[i] == '\n')
            translated += '\r';
        translated += text[i];
    }
    CFile::Write(translated.data(), static_cast<UINT>(translated.size()));
}

void CStdioFile::WriteString(LPCTSTR lpsz)
{
    if (lpsz == nullptr)
        AfxThrowInvalidArgException();
    Write(lpsz, static_cast<UINT>(std::strlen(lpsz)));
}

LPTSTR CStdioFile::ReadString(LPTSTR lpsz, UINT nMax)
{
    if (lpsz == nullptr || nMax == 0)
        AfxThrowInvalidArgException();
    UINT n = 0;
    bool any = false;
    while (n + 1 < nMax) {
        const int ch = NextChar();
        if (ch < 0)
            break;
        any = true;
        lpsz[n++] = static_cast<char>(ch);
        if (ch == '\n')
            break;
    }
    lpsz[n] = '\0';
    return (any || nMax == 1) ? lpsz : nullptr;
}

BOOL CStdioFile::ReadString(CString& rString)
{
    std::string line;
    bool any = false;
    for (;;) {
        const int ch = NextChar();
        if (ch < 0)
            break;
        any = true;
        if (ch == '\n')
            break;
        // A line that no CString can hold is refused before it costs more.
        if (line.size() >= static_cast<std::size_t>(INT_MAX))
            AfxThrowMemoryException();
        try {
            line += static_cast<char>(ch);
        } catch (const std::bad_alloc&) {
            AfxThrowMemoryException();
        }
    }
    rString.SetString(line.data(), static_cast<int>(line.size()));
    return any ? TRUE : FALSE;
}

ULONGLONG CStdioFile::Seek(LONGLONG lOff, UINT nFrom)
{
    DropReadBuffer();
    m_bAtTextEnd = FALSE;
    return CFile::Seek(lOff, nFrom);
}

ULONGLONG CStdioFile::GetPosition() const
{
    return CFile::GetPosition() - (m_nBufEnd - m_nBufPos);
}

ULONGLONG CStdioFile::GetLength() const
{
    return CFile::GetLength();
}

void CStdioFile::SetLength(ULONGLONG dwNewLen)
{
    DropReadBuffer();
    CFile::SetLength(dwNewLen);
}

void CStdioFile::Flush()
{
    // Nothing is held back on the way out, so there is nothing to write;
    // like the runtime's fflush this does not ask the system to commit.
    if (m_hFile != hFileNull)
        DropReadBuffer();
}

void CStdioFile::Close()
{
    m_nBufPos = m_nBufEnd = 0;
    m_bAtTextEnd = FALSE;
    CFile::Close();
}

void CStdioFile::Abort()
{
    m_nBufPos = m_nBufEnd = 0;
    m_bAtTextEnd = FALSE;
    CFile::Abort();
}
