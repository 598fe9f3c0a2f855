// CArchive: buffered binary serialization.
#include "afxarchive.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>
#include <new>
#include <string>

static_assert(std::endian::native == std::endian::little,
              "the archive format is little-endian and values are copied as they are in memory");

namespace {

constexpr int kDefaultBufferSize = 4096;

constexpr WORD kCountEscape16 = 0xFFFF;
constexpr DWORD kCountEscape32 = 0xFFFFFFFF;

constexpr BYTE kStringEscape8 = 0xFF;
constexpr WORD kStringEscape16 = 0xFFFF;
constexpr WORD kStringWideMarker = 0xFFFE;
constexpr DWORD kStringEscape32 = 0xFFFFFFFF;
// A string body is read in pieces of this size, so that a length the
// archive cannot check fails at the end of the data instead of allocating
// the claimed size.
constexpr UINT kStringChunk = 64 * 1024;

constexpr WORD kNullTag = 0;
constexpr WORD kNewClassTag = 0xFFFF;
constexpr WORD kClassTag = 0x8000;
constexpr WORD kBigObjectTag = 0x7FFF;
constexpr DWORD kBigClassTag = 0x80000000;
constexpr DWORD kMaxMapCount = 0x7FFFFFFE;

template <typename T>
void StoreValue(CArchive& ar, T value)
{
    ar.Write(&value, sizeof(T));
}

template <typename T>
T LoadValue(CArchive& ar)
{
    T value;
    ar.EnsureRead(&value, sizeof(T));
    return value;
}

ULONGLONG ReadStringLength(CArchive& ar, bool& bWide)
{
    bWide = false;
    BYTE bLen = LoadValue<BYTE>(ar);
    if (bLen < kStringEscape8)
        return bLen;
    WORD wLen = LoadValue<WORD>(ar);
    if (wLen == kStringWideMarker) {
        bWide = true;
        bLen = LoadValue<BYTE>(ar);
        if (bLen < kStringEscape8)
            return bLen;
        wLen = LoadValue<WORD>(ar);
    }
    if (wLen < kStringEscape16)
        return wLen;
    const DWORD dwLen = LoadValue<DWORD>(ar);
    if (dwLen < kStringEscape32)
        return dwLen;
    return LoadValue<ULONGLONG>(ar);
}

void WriteStringLength(CArchive& ar, ULONGLONG nLength)
{
    if (nLength < kStringEscape8) {
        StoreValue(ar, static_cast<BYTE>(nLength));
        return;
    }
    StoreValue(ar, kStringEscape8);
    if (nLength < kStringWideMarker) {
        StoreValue(ar, static_cast<WORD>(nLength));
        return;
    }
    StoreValue(ar, kStringEscape16);
    if (nLength < kStringEscape32) {
        StoreValue(ar, static_cast<DWORD>(nLength));
        return;
    }
    StoreValue(ar, kStringEscape32);
    StoreValue(ar, static_cast<ULONGLONG>(nLength));
}

// Reads nBytes into text piece by piece.
void ReadBytes(CArchive& ar, std::string& text, ULONGLONG nBytes)
{
    while (nBytes > 0) {
        const UINT nPiece = static_cast<UINT>(std::min<ULONGLONG>(nBytes, kStringChunk));
        const std::size_t nOld = text.size();
        try {
            text.resize(nOld + nPiece);
        } catch (const std::bad_alloc&) {
            AfxThrowMemoryException();
        }
        ar.EnsureRead(text.data() + nOld, nPiece);
        nBytes -= nPiece;
    }
}

}  // namespace

CArchive::CArchive(CFile* pFile, UINT nMode, int nBufSize, void* lpBuf)
    : m_nMode(nMode), m_pFile(pFile), m_nObjectSchema(static_cast<UINT>(-1)), m_nMapCount(1), m_nLoadDepth(0)
{
    if (pFile == nullptr)
        AfxThrowInvalidArgException();
    m_strFileName = pFile->GetFilePath();
    if (nBufSize <= 0) {
        nBufSize = kDefaultBufferSize;
        lpBuf = nullptr;
    }
    if (lpBuf == nullptr) {
        m_ownBuffer = std::make_unique<BYTE[]>(static_cast<std::size_t>(nBufSize));
        lpBuf = m_ownBuffer.get();
    }
    m_nBufSize = static_cast<UINT>(nBufSize);
    m_lpBufStart = static_cast<BYTE*>(lpBuf);
    m_lpBufCur = m_lpBufStart;
    m_lpBufMax = IsLoading() ? m_lpBufStart : m_lpBufStart + m_nBufSize;
    m_loadArray.push_back({nullptr, false, 0});
}

CArchive::~CArchive()
{
    if (m_pFile != nullptr && !(m_nMode & bNoFlushOnDelete)) {
        try {
            Close();
        } catch (CException* e) {
            e->Delete();
        } catch (...) {
        }
    }
    Abort();
}

BOOL CArchive::IsLoading() const
{
    return (m_nMode & load) != 0;
}

BOOL CArchive::IsStoring() const
{
    return (m_nMode & load) == 0;
}

BOOL CArchive::IsBufferEmpty() const
{
    return m_lpBufCur == m_lpBufMax;
}

CFile* CArchive::GetFile() const
{
    return m_pFile;
}

void CArchive::CheckStoring() const
{
    if (!IsStoring())
        AfxThrowArchiveException(CArchiveException::readOnly, m_strFileName);
}

void CArchive::CheckLoading() const
{
    if (!IsLoading())
        AfxThrowArchiveException(CArchiveException::writeOnly, m_strFileName);
}

void CArchive::FillBuffer()
{
    const UINT nRead = m_pFile->Read(m_lpBufStart, m_nBufSize);
    m_lpBufCur = m_lpBufStart;
    m_lpBufMax = m_lpBufStart + nRead;
}

void CArchive::FlushBuffer()
{
    const UINT nPending = static_cast<UINT>(m_lpBufCur - m_lpBufStart);
    m_lpBufCur = m_lpBufStart;
    if (nPending > 0)
        m_pFile->Write(m_lpBufStart, nPending);
}

UINT CArchive::Read(void* lpBuf, UINT nMax)
{
    CheckLoading();
    if (nMax == 0)
        return 0;
    if (lpBuf == nullptr)
        AfxThrowInvalidArgException();
    BYTE* pOut = static_cast<BYTE*>(lpBuf);
    UINT nDone = 0;
    while (nDone < nMax) {
        if (m_lpBufCur == m_lpBufMax) {
            const UINT nLeft = nMax - nDone;
            if (nLeft >= m_nBufSize) {
                const UINT nRead = m_pFile->Read(pOut + nDone, nLeft);
                nDone += nRead;
                if (nRead == 0 || nDone == nMax)
                    break;
                continue;
            }
            FillBuffer();
            if (m_lpBufCur == m_lpBufMax)
                break;
        }
        const UINT nCopy = std::min<UINT>(nMax - nDone, static_cast<UINT>(m_lpBufMax - m_lpBufCur));
        std::memcpy(pOut + nDone, m_lpBufCur, nCopy);
        m_lpBufCur += nCopy;
        nDone += nCopy;
    }
    return nDone;
}

void CArchive::EnsureRead(void* lpBuf, UINT nCount)
{
    if (Read(lpBuf, nCount) != nCount)
        AfxThrowArchiveException(CArchiveException::endOfFile, m_strFileName);
}

void CArchive::Write(const void* lpBuf, UINT nMax)
{
    CheckStoring();
    if (nMax == 0)
        return;
    if (lpBuf == nullptr)
        AfxThrowInvalidArgException();
    const BYTE* pIn = static_cast<const BYTE*>(lpBuf);
    const UINT nRoom = static_cast<UINT>(m_lpBufMax - m_lpBufCur);
    if (nMax <= nRoom) {
        std::memcpy(m_lpBufCur, pIn, nMax);
        m_lpBufCur += nMax;
        return;
    }
    FlushBuffer();
    if (nMax >= m_nBufSize) {
        m_pFile->Write(pIn, nMax);
        return;
    }
    std::memcpy(m_lpBufCur, pIn, nMax);
    m_lpBufCur += nMax;
}

void CArchive::WriteString(LPCTSTR lpsz)
{
    if (lpsz != nullptr)
        Write(lpsz, static_cast<UINT>(std::strlen(lpsz)));
}

BOOL CArchive::ReadString(CString& rString)
{
    std::string line;
    char ch = 0;
    bool bAny = false;
    while (Read(&ch, 1) == 1) {
        bAny = true;
        if (ch == '\n')
            break;
        // A line that no CString can hold is refused before it costs more.
        if (line.size() >= static_cast<std::size_t>(std::numeric_limits<int>::max()))
            AfxThrowMemoryException();
        try {
            line += ch;
        } catch (const std::bad_alloc&) {
            AfxThrowMemoryException();
        }
    }
    if (!line.empty() && line.back() == '\r')
        line.pop_back();
    rString = CString(line.data(), static_cast<int>(line.size()));
    return bAny;
}

LPTSTR CArchive::ReadString(LPTSTR lpsz, UINT nMax)
{
    if (lpsz == nullptr || nMax == 0)
        AfxThrowInvalidArgException();
    UINT n = 0;
    char ch = 0;
    bool bAny = false;
    while (n + 1 < nMax && Read(&ch, 1) == 1) {
        bAny = true;
        if (ch == '\n')
            break;
        lpsz[n++] = ch;
    }
    if (n > 0 && lpsz[n - 1] == '\r')
        --n;
    lpsz[n] = '\0';
    return bAny ? lpsz : nullptr;
}

void CArchive::WriteCount(DWORD_PTR dwCount)
{
    if (dwCount < kCountEscape16) {
        StoreValue(*this, static_cast<WORD>(dwCount));
        return;
    }
    StoreValue(*this, kCountEscape16);
    if (dwCount < kCountEscape32) {
        StoreValue(*this, static_cast<DWORD>(dwCount));
        return;
    }
    StoreValue(*this, kCountEscape32);
    StoreValue(*this, static_cast<ULONGLONG>(dwCount));
}

DWORD_PTR CArchive::ReadCount()
{
    DWORD_PTR nCount = LoadValue<WORD>(*this);
    if (nCount == kCountEscape16) {
        nCount = LoadValue<DWORD>(*this);
        if (nCount == kCountEscape32)
            nCount = static_cast<DWORD_PTR>(LoadValue<ULONGLONG>(*this));
    }
    CheckCount(nCount, 1);
    return nCount;
}

bool CArchive::BytesLeft(ULONGLONG& nLeft) const
{
    ULONGLONG nLength = 0;
    ULONGLONG nPosition = 0;
    try {
        nLength = m_pFile->GetLength();
        nPosition = m_pFile->GetPosition();
    } catch (CException* e) {
        e->Delete();
        return false;
    }
    nLeft = static_cast<ULONGLONG>(m_lpBufMax - m_lpBufCur) + (nLength > nPosition ? nLength - nPosition : 0);
    return true;
}

void CArchive::CheckCount(ULONGLONG nCount, ULONGLONG nMinBytes)
{
    CheckLoading();
    // Most counts fit in the buffer, which needs no question to the file.
    const ULONGLONG nBuffered = static_cast<ULONGLONG>(m_lpBufMax - m_lpBufCur);
    if (nMinBytes == 0 || nCount <= nBuffered / nMinBytes)
        return;
    ULONGLONG nLeft = 0;
    if (m_pFile != nullptr && BytesLeft(nLeft) && nCount > nLeft / nMinBytes)
        AfxThrowArchiveException(CArchiveException::endOfFile, m_strFileName);
}

void CArchive::WriteTag(DWORD nIndex, bool bIsClass)
{
    if (nIndex < kBigObjectTag) {
        StoreValue(*this, static_cast<WORD>(bIsClass ? (kClassTag | nIndex) : nIndex));
        return;
    }
    StoreValue(*this, kBigObjectTag);
    StoreValue(*this, bIsClass ? (kBigClassTag | nIndex) : nIndex);
}

void CArchive::WriteObject(const CObject* pOb)
{
    CheckStoring();
    if (pOb == nullptr) {
        StoreValue(*this, kNullTag);
        return;
    }
    if (auto it = m_storeMap.find(pOb); it != m_storeMap.end()) {
        WriteTag(it->second, false);
        return;
    }
    CRuntimeClass* pClass = pOb->GetRuntimeClass();
    if (pClass->m_wSchema == AFX_NO_SCHEMA)
        AfxThrowArchiveException(CArchiveException::badClass, m_strFileName);
    if (m_nMapCount + 1 > kMaxMapCount)
        AfxThrowArchiveException(CArchiveException::badIndex, m_strFileName);
    if (auto it = m_storeMap.find(pClass); it != m_storeMap.end()) {
        WriteTag(it->second, true);
    } else {
        StoreValue(*this, kNewClassTag);
        pClass->Store(*this);
        m_storeMap[pClass] = m_nMapCount++;
    }
    m_storeMap[pOb] = m_nMapCount++;
    const_cast<CObject*>(pOb)->Serialize(*this);
}

const CArchive::LoadEntry& CArchive::LoadedEntry(DWORD nIndex) const
{
    if (nIndex == 0 || nIndex >= m_loadArray.size())
        AfxThrowArchiveException(CArchiveException::badIndex, m_strFileName);
    return m_loadArray[nIndex];
}

CObject* CArchive::ReadObject(const CRuntimeClass* pClassRef)
{
    CheckLoading();
    const WORD wTag = LoadValue<WORD>(*this);
    if (wTag == kNullTag)
        return nullptr;

    CRuntimeClass* pClass = nullptr;
    UINT nSchema = 0;
    if (wTag == kNewClassTag) {
        pClass = CRuntimeClass::Load(*this, &nSchema);
        if (pClass == nullptr)
            AfxThrowArchiveException(CArchiveException::badClass, m_strFileName);
        const bool bVersionable = (pClass->m_wSchema & VERSIONABLE_SCHEMA) != 0;
        if (!bVersionable && pClass->m_wSchema != nSchema)
            AfxThrowArchiveException(CArchiveException::badSchema, m_strFileName);
        if (m_loadArray.size() > kMaxMapCount)
            AfxThrowArchiveException(CArchiveException::badIndex, m_strFileName);
        m_loadArray.push_back({pClass, true, nSchema});
    } else {
        const DWORD obTag = wTag == kBigObjectTag ? LoadValue<DWORD>(*this)
                                                  : (DWORD(wTag & kClassTag) << 16) | DWORD(wTag & ~kClassTag);
        const bool bIsClass = (obTag & kBigClassTag) != 0;
        const LoadEntry& entry = LoadedEntry(obTag & ~kBigClassTag);
        if (entry.bIsClass != bIsClass || entry.pItem == nullptr)
            AfxThrowArchiveException(CArchiveException::badIndex, m_strFileName);
        if (!bIsClass) {
            CObject* pOb = const_cast<CObject*>(static_cast<const CObject*>(entry.pItem));
            if (pClassRef != nullptr && !pOb->IsKindOf(pClassRef))
                AfxThrowArchiveException(CArchiveException::badClass, m_strFileName);
            return pOb;
        }
        pClass = const_cast<CRuntimeClass*>(static_cast<const CRuntimeClass*>(entry.pItem));
        nSchema = entry.nSchema;
    }

    if (pClassRef != nullptr && !pClass->IsDerivedFrom(pClassRef))
        AfxThrowArchiveException(CArchiveException::badClass, m_strFileName);
    if (m_nLoadDepth >= kMaxLoadDepth)
        AfxThrowArchiveException(CArchiveException::badIndex, m_strFileName);
    CObject* pOb = pClass->CreateObject();
    if (pOb == nullptr)
        AfxThrowArchiveException(CArchiveException::badClass, m_strFileName);
    if (m_loadArray.size() > kMaxMapCount) {
        delete pOb;
        AfxThrowArchiveException(CArchiveException::badIndex, m_strFileName);
    }
    const std::size_t nIndex = m_loadArray.size();
    m_loadArray.push_back({pOb, false, nSchema});
    const UINT nSavedSchema = m_nObjectSchema;
    m_nObjectSchema = nSchema;
    ++m_nLoadDepth;
    try {
        pOb->Serialize(*this);
    } catch (...) {
        m_loadArray[nIndex].pItem = nullptr;
        m_nObjectSchema = nSavedSchema;
        --m_nLoadDepth;
        delete pOb;
        throw;
    }
    m_nObjectSchema = nSavedSchema;
    --m_nLoadDepth;
    return pOb;
}

UINT CArchive::GetObjectSchema()
{
    return m_nObjectSchema;
}

void CArchive::SetObjectSchema(UINT nSchema)
{
    m_nObjectSchema = nSchema;
}

CObject* AfxReadObject(CArchive& ar, const CRuntimeClass* pClassRef)
{
    return ar.ReadObject(pClassRef);
}

void CArchive::Flush()
{
    if (m_pFile == nullptr)
        return;
    if (IsStoring()) {
        FlushBuffer();
        m_pFile->Flush();
        return;
    }
    const LONGLONG nUnread = m_lpBufMax - m_lpBufCur;
    m_lpBufCur = m_lpBufMax = m_lpBufStart;
    if (nUnread > 0)
        m_pFile->Seek(-nUnread, CFile::current);
}

void CArchive::Close()
{
    try {
        Flush();
    } catch (...) {
        Abort();
        throw;
    }
    m_pFile = nullptr;
}

void CArchive::Abort()
{
    m_pFile = nullptr;
    m_lpBufCur = m_lpBufStart;
    m_lpBufMax = IsLoading() ? m_lpBufStart : m_lpBufStart + m_nBufSize;
}

CArchive& CArchive::operator<<(BYTE by)
{
    StoreValue(*this, by);
    return *this;
}
CArchive& CArchive::operator<<(WORD w)
{
    StoreValue(*this, w);
    return *this;
}
CArchive& CArchive::operator<<(int i)
{
    StoreValue(*this, static_cast<std::int32_t>(i));
    return *this;
}
CArchive& CArchive::operator<<(unsigned u)
{
    StoreValue(*this, static_cast<std::uint32_t>(u));
    return *this;
}
CArchive& CArchive::operator<<(short w)
{
    StoreValue(*this, w);
    return *this;
}
CArchive& CArchive::operator<<(char ch)
{
    StoreValue(*this, ch);
    return *this;
}
CArchive& CArchive::operator<<(bool b)
{
    StoreValue(*this, static_cast<BYTE>(b ? 1 : 0));
    return *this;
}
CArchive& CArchive::operator<<(float f)
{
    StoreValue(*this, f);
    return *this;
}
CArchive& CArchive::operator<<(double d)
{
    StoreValue(*this, d);
    return *this;
}
CArchive& CArchive::operator<<(LONGLONG dwdw)
{
    StoreValue(*this, dwdw);
    return *this;
}
CArchive& CArchive::operator<<(ULONGLONG dwdw)
{
    StoreValue(*this, dwdw);
    return *this;
}
#ifdef _WIN32
CArchive& CArchive::operator<<(LONG l)
{
    StoreValue(*this, l);
    return *this;
}
CArchive& CArchive::operator<<(DWORD dw)
{
    StoreValue(*this, dw);
    return *this;
}
#endif

CArchive& CArchive::operator>>(BYTE& by)
{
    by = LoadValue<BYTE>(*this);
    return *this;
}
CArchive& CArchive::operator>>(WORD& w)
{
    w = LoadValue<WORD>(*this);
    return *this;
}
CArchive& CArchive::operator>>(int& i)
{
    i = LoadValue<std::int32_t>(*this);
    return *this;
}
CArchive& CArchive::operator>>(unsigned& u)
{
    u = LoadValue<std::uint32_t>(*this);
    return *this;
}
CArchive& CArchive::operator>>(short& w)
{
    w = LoadValue<short>(*this);
    return *this;
}
CArchive& CArchive::operator>>(char& ch)
{
    ch = LoadValue<char>(*this);
    return *this;
}
CArchive& CArchive::operator>>(bool& b)
{
    b = LoadValue<BYTE>(*this) != 0;
    return *this;
}
CArchive& CArchive::operator>>(float& f)
{
    f = LoadValue<float>(*this);
    return *this;
}
CArchive& CArchive::operator>>(double& d)
{
    d = LoadValue<double>(*this);
    return *this;
}
CArchive& CArchive::operator>>(LONGLONG& dwdw)
{
    dwdw = LoadValue<LONGLONG>(*this);
    return *this;
}
CArchive& CArchive::operator>>(ULONGLONG& dwdw)
{
    dwdw = LoadValue<ULONGLONG>(*this);
    return *this;
}
#ifdef _WIN32
CArchive& CArchive::operator>>(LONG& l)
{
    l = LoadValue<LONG>(*this);
    return *this;
}
CArchive& CArchive::operator>>(DWORD& dw)
{
    dw = LoadValue<DWORD>(*this);
    return *this;
}
#endif

CArchive& operator<<(CArchive& ar, const CObject* pOb)
{
    ar.WriteObject(pOb);
    return ar;
}

CArchive& operator>>(CArchive& ar, CObject*& pOb)
{
    pOb = ar.ReadObject(nullptr);
    return ar;
}

CArchive& operator>>(CArchive& ar, const CObject*& pOb)
{
    pOb = ar.ReadObject(nullptr);
    return ar;
}

CArchive& operator<<(CArchive& ar, const CString& str)
{
    const int nLength = str.GetLength();
    WriteStringLength(ar, static_cast<ULONGLONG>(nLength));
    ar.Write(static_cast<LPCTSTR>(str), static_cast<UINT>(nLength));
    return ar;
}

CArchive& operator>>(CArchive& ar, CString& str)
{
    bool bWide = false;
    const ULONGLONG nLength = ReadStringLength(ar, bWide);
    const ULONGLONG nMaxLength = static_cast<ULONGLONG>(std::numeric_limits<int>::max());
    if (nLength > nMaxLength) {
        const CString name = ar.GetFile() != nullptr ? ar.GetFile()->GetFilePath() : CString();
        AfxThrowArchiveException(CArchiveException::badIndex, name);
    }
    ar.CheckCount(nLength, bWide ? 2 : 1);
    std::string text;
    ReadBytes(ar, text, bWide ? nLength * 2 : nLength);
    if (bWide) {
        std::string narrow(static_cast<std::size_t>(nLength), '?');
        for (std::size_t i = 0; i < narrow.size(); ++i) {
            const unsigned unit = BYTE(text[2 * i]) | (unsigned(BYTE(text[2 * i + 1])) << 8);
            if (unit < 0x100)
                narrow[i] = static_cast<char>(unit);
        }
        text.swap(narrow);
    }
    str = CString(text.data(), static_cast<int>(text.size()));
    return ar;
}
