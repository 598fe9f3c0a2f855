// Binary serialization of values, strings and objects through a buffered
// CFile.
//
// All values are little-endian. Formats:
// - counts (WriteCount): below 0xFFFF one WORD; else the WORD 0xFFFF and,
//   below 0xFFFFFFFF, a DWORD; else also the DWORD 0xFFFFFFFF and a 64-bit
//   count.
// - CString: its length, then its bytes without a terminator. A length below
//   0xFF is one BYTE; else the BYTE 0xFF and, below 0xFFFE, a WORD; else the
//   WORD 0xFFFF and, below 0xFFFFFFFF, a DWORD; else the DWORD 0xFFFFFFFF and
//   a 64-bit length. On loading, the marker BYTE 0xFF, WORD 0xFFFE announces
//   a UTF-16 string (written by a Unicode program), which is read and
//   narrowed: code units below 0x100 become that byte, others '?'.
// - objects (WriteObject): the persistent object format of the framework. A
//   WORD tag: 0 for NULL; 0xFFFF for a class not seen before, followed by
//   the class reference (schema WORD, name length WORD, name) and the object;
//   0x8000 | index for a class seen before, followed by the object; a plain
//   index for an object already written, which is read back as the same
//   pointer. Classes and objects share one index sequence starting at 1;
//   indexes from 0x7FFF on are written as the WORD 0x7FFF and a DWORD (with
//   the top bit set for classes).
//
// A loading archive reads ahead in its buffer; Close gives unread bytes back
// to the file by seeking back, so the file position is just after the data
// that was read.
//
// Hostile input: a count or length read from the archive is checked against
// the bytes the archive can still read (those in its buffer plus the file's
// GetLength() - GetPosition()) before anything is allocated for it, so a
// corrupt or hostile count throws CArchiveException endOfFile instead of
// allocating what it claims. Where the file cannot tell its length or
// position (GetLength or GetPosition throw, as for a pipe or a socket), the
// check passes and the loaders grow as elements arrive instead: memory then
// follows the data actually read, and the end of the data throws endOfFile.
// Objects nested deeper than kMaxLoadDepth (an object whose Serialize reads
// an object whose Serialize reads ...) throw badIndex, so loading never
// recurses without bound.
#pragma once

#include "afxplatform.h"
#include "afxobject.h"
#include "afxexcept.h"
#include "afxfile.h"
#include "afxstr.h"

#include <memory>
#include <unordered_map>
#include <vector>

// A buffered stream of serialized data on a CFile, either storing or loading.
class AFX_API CArchive
{
public:
    enum Mode
    {
        store = 0,
        load = 1,
        bNoFlushOnDelete = 2
    };

    // How many objects ReadObject may load inside each other.
    static constexpr UINT kMaxLoadDepth = 1000;

    // An archive on pFile, which must stay open while the archive lives.
    // nBufSize bytes of lpBuf serve as the buffer if lpBuf is given; else the
    // archive allocates its own (4096 bytes if nBufSize is not positive).
    CArchive(CFile* pFile, UINT nMode, int nBufSize = 4096, void* lpBuf = NULL);
    // Closes the archive (flushing it unless bNoFlushOnDelete); never throws:
    // a failing flush is dropped.
    ~CArchive();
    CArchive(const CArchive&) = delete;
    CArchive& operator=(const CArchive&) = delete;

    BOOL IsLoading() const;
    BOOL IsStoring() const;
    BOOL IsBufferEmpty() const;
    CFile* GetFile() const;

    // Reads up to nMax bytes; fewer only at the end of the file.
    UINT Read(void* lpBuf, UINT nMax);
    // Reads exactly nCount bytes or throws CArchiveException endOfFile.
    void EnsureRead(void* lpBuf, UINT nCount);
    void Write(const void* lpBuf, UINT nMax);

    // Writes a text without terminator or line end.
    void WriteString(LPCTSTR lpsz);
    // Reads one line into rString without its "\n" or "\r\n"; FALSE at the
    // end of the file when nothing was read. A line longer than a CString
    // holds (INT_MAX characters) throws CMemoryException.
    BOOL ReadString(CString& rString);
    // Reads one line, at most nMax - 1 characters, into lpsz without its line
    // end; NULL at the end of the file when nothing was read.
    LPTSTR ReadString(LPTSTR lpsz, UINT nMax);

    void WriteCount(DWORD_PTR dwCount);
    // Reads a count; throws endOfFile if it exceeds the bytes the archive
    // can still read, since every counted element takes at least one.
    DWORD_PTR ReadCount();
    // Not in the framework: throws endOfFile if nCount elements of at least
    // nMinBytes bytes each cannot fit in what the loading archive can still
    // read; checks nothing where the file cannot tell (see the header
    // comment).
    void CheckCount(ULONGLONG nCount, ULONGLONG nMinBytes);

    // Writes an object (or NULL) with its class; see the header comment.
    void WriteObject(const CObject* pOb);
    // Reads an object written by WriteObject; throws badClass if it is not
    // of pClassRef (NULL accepts any class) or its class is not registered,
    // badSchema if its schema differs from the class's, badIndex for an
    // unknown back reference or nesting deeper than kMaxLoadDepth.
    CObject* ReadObject(const CRuntimeClass* pClassRef);
    // Schema of the object being loaded, valid inside its Serialize.
    UINT GetObjectSchema();
    void SetObjectSchema(UINT nSchema);

    // Writes the buffer to the file (storing) and flushes the file.
    void Flush();
    // Flushes and detaches from the file, which stays open.
    void Close();
    // Detaches from the file without writing the buffer; never throws.
    void Abort();

    CArchive& operator<<(BYTE by);
    CArchive& operator<<(WORD w);
    CArchive& operator<<(int i);
    CArchive& operator<<(unsigned u);
    CArchive& operator<<(short w);
    CArchive& operator<<(char ch);
    CArchive& operator<<(bool b);
    CArchive& operator<<(float f);
    CArchive& operator<<(double d);
    CArchive& operator<<(LONGLONG dwdw);
    CArchive& operator<<(ULONGLONG dwdw);
#ifdef _WIN32
    CArchive& operator<<(LONG l);
    CArchive& operator<<(DWORD dw);
#endif

    CArchive& operator>>(BYTE& by);
    CArchive& operator>>(WORD& w);
    CArchive& operator>>(int& i);
    CArchive& operator>>(unsigned& u);
    CArchive& operator>>(short& w);
    CArchive& operator>>(char& ch);
    CArchive& operator>>(bool& b);
    CArchive& operator>>(float& f);
    CArchive& operator>>(double& d);
    CArchive& operator>>(LONGLONG& dwdw);
    CArchive& operator>>(ULONGLONG& dwdw);
#ifdef _WIN32
    CArchive& operator>>(LONG& l);
    CArchive& operator>>(DWORD& dw);
#endif

    friend AFX_API CArchive& operator<<(CArchive& ar, const CObject* pOb);
    friend AFX_API CArchive& operator>>(CArchive& ar, CObject*& pOb);
    friend AFX_API CArchive& operator>>(CArchive& ar, const CObject*& pOb);

protected:
    // Throws readOnly unless storing.
    void CheckStoring() const;
    // Throws writeOnly unless loading.
    void CheckLoading() const;
    void FillBuffer();
    void FlushBuffer();

    UINT m_nMode;
    CFile* m_pFile;
    CString m_strFileName;
    BYTE* m_lpBufStart;
    BYTE* m_lpBufMax;
    BYTE* m_lpBufCur;
    UINT m_nBufSize;
    std::unique_ptr<BYTE[]> m_ownBuffer;
    UINT m_nObjectSchema;

private:
    // One class or object read so far; its position is its index.
    struct LoadEntry
    {
        const void* pItem;
        bool bIsClass;
        UINT nSchema;
    };

    void WriteTag(DWORD nIndex, bool bIsClass);
    const LoadEntry& LoadedEntry(DWORD nIndex) const;
    // The bytes a loading archive can still read; false where the file
    // cannot tell.
    bool BytesLeft(ULONGLONG& nLeft) const;

    DWORD m_nMapCount;
    UINT m_nLoadDepth;
    std::unordered_map<const void*, DWORD> m_storeMap;
    std::vector<LoadEntry> m_loadArray;
};

AFX_API CArchive& operator<<(CArchive& ar, const CString& str);
AFX_API CArchive& operator>>(CArchive& ar, CString& str);
