// CMemFile: a growable file in memory.
#include "afxfile.h"

#include <cstdlib>
#include <cstring>
#include <limits>

IMPLEMENT_DYNAMIC(CMemFile, CFile)

CMemFile::CMemFile(UINT nGrowBytes)
    : m_nGrowBytes(nGrowBytes), m_nPosition(0), m_nBufferSize(0), m_nFileSize(0), m_lpBuffer(nullptr),
      m_bAutoDelete(TRUE)
{}

CMemFile::CMemFile(BYTE* lpBuffer, UINT nBufferSize, UINT nGrowBytes) : CMemFile(nGrowBytes)
{
    Attach(lpBuffer, nBufferSize, nGrowBytes);
}

CMemFile::~CMemFile()
{
    FreeBuffer();
}

void CMemFile::FreeBuffer()
{
    if (m_lpBuffer != nullptr && m_bAutoDelete)
        Free(m_lpBuffer);
    m_lpBuffer = nullptr;
    m_nBufferSize = 0;
    m_nFileSize = 0;
    m_nPosition = 0;
}

void CMemFile::Attach(BYTE* lpBuffer, UINT nBufferSize, UINT nGrowBytes)
{
    if (lpBuffer == nullptr && nBufferSize != 0)
        AfxThrowInvalidArgException();
    FreeBuffer();
    m_nGrowBytes = nGrowBytes;
    m_lpBuffer = lpBuffer;
    m_nBufferSize = nBufferSize;
    m_nFileSize = nGrowBytes == 0 ? nBufferSize : 0;
    m_nPosition = 0;
    m_bAutoDelete = FALSE;
}

BYTE* CMemFile::Detach()
{
    BYTE* lpBuffer = m_lpBuffer;
    m_lpBuffer = nullptr;
    FreeBuffer();
    m_bAutoDelete = TRUE;
    return lpBuffer;
}

UINT CMemFile::Read(void* lpBuf, UINT nCount)
{
    if (nCount == 0 || m_nPosition >= m_nFileSize)
        return 0;
    if (lpBuf == nullptr)
        AfxThrowInvalidArgException();
    const SIZE_T nAvailable = m_nFileSize - m_nPosition;
    const UINT nRead = nCount < nAvailable ? nCount : static_cast<UINT>(nAvailable);
    Memcpy(static_cast<BYTE*>(lpBuf), m_lpBuffer + m_nPosition, nRead);
    m_nPosition += nRead;
    return nRead;
}

void CMemFile::Write(const void* lpBuf, UINT nCount)
{
    if (nCount == 0)
        return;
    if (lpBuf == nullptr)
        AfxThrowInvalidArgException();
    if (m_nPosition > std::numeric_limits<SIZE_T>::max() - nCount)
        AfxThrowFileException(CFileException::badSeek);
    const SIZE_T nEnd = m_nPosition + nCount;
    if (nEnd > m_nBufferSize)
        GrowFile(nEnd);
    if (m_nPosition > m_nFileSize)
        std::memset(m_lpBuffer + m_nFileSize, 0, m_nPosition - m_nFileSize);
    Memcpy(m_lpBuffer + m_nPosition, static_cast<const BYTE*>(lpBuf), nCount);
    m_nPosition = nEnd;
    if (m_nPosition > m_nFileSize)
        m_nFileSize = m_nPosition;
}

ULONGLONG CMemFile::Seek(LONGLONG lOff, UINT nFrom)
{
    LONGLONG base = 0;
    switch (nFrom) {
    case begin:
        base = 0;
        break;
    case current:
        base = static_cast<LONGLONG>(m_nPosition);
        break;
    case end:
        base = static_cast<LONGLONG>(m_nFileSize);
        break;
    default:
        AfxThrowInvalidArgException();
    }
    if ((lOff < 0 && base + lOff < 0) || (lOff > 0 && base > std::numeric_limits<LONGLONG>::max() - lOff))
        AfxThrowFileException(CFileException::badSeek);
    m_nPosition = static_cast<SIZE_T>(base + lOff);
    return m_nPosition;
}

ULONGLONG CMemFile::GetPosition() const
{
    return m_nPosition;
}

ULONGLONG CMemFile::GetLength() const
{
    return m_nFileSize;
}

void CMemFile::SetLength(ULONGLONG dwNewLen)
{
    if (dwNewLen > std::numeric_limits<SIZE_T>::max())
        AfxThrowMemoryException();
    const SIZE_T nNewLen = static_cast<SIZE_T>(dwNewLen);
    if (nNewLen > m_nBufferSize)
        GrowFile(nNewLen);
    if (nNewLen > m_nFileSize)
        std::memset(m_lpBuffer + m_nFileSize, 0, nNewLen - m_nFileSize);
    if (nNewLen < m_nPosition)
        m_nPosition = nNewLen;
    m_nFileSize = nNewLen;
}

void CMemFile::Flush() {}

void CMemFile::Close()
{
    FreeBuffer();
}

void CMemFile::Abort()
{
    Close();
}

BYTE* CMemFile::Alloc(SIZE_T nBytes)
{
    return static_cast<BYTE*>(std::malloc(nBytes));
}

BYTE* CMemFile::Realloc(BYTE* lpMem, SIZE_T nBytes)
{
    return static_cast<BYTE*>(std::realloc(lpMem, nBytes));
}

BYTE* CMemFile::Memcpy(BYTE* lpMemTarget, const BYTE* lpMemSource, SIZE_T nBytes)
{
    return static_cast<BYTE*>(std::memcpy(lpMemTarget, lpMemSource, nBytes));
}

void CMemFile::Free(BYTE* lpMem)
{
    std::free(lpMem);
}

void CMemFile::GrowFile(SIZE_T dwNewLen)
{
    if (dwNewLen <= m_nBufferSize)
        return;
    // A buffer attached without grow bytes is the whole file.
    if (m_nGrowBytes == 0)
        AfxThrowMemoryException();
    const SIZE_T nSteps = (dwNewLen - m_nBufferSize + m_nGrowBytes - 1) / m_nGrowBytes;
    const SIZE_T nNewBufferSize = m_nBufferSize + nSteps * m_nGrowBytes;
    BYTE* lpNew = m_lpBuffer == nullptr ? Alloc(nNewBufferSize) : Realloc(m_lpBuffer, nNewBufferSize);
    if (lpNew == nullptr)
        AfxThrowMemoryException();
    m_lpBuffer = lpNew;
    m_nBufferSize = nNewBufferSize;
}
