// Unbuffered binary files (CFile), buffered text files (CStdioFile),
// growable memory streams (CMemFile) and files that replace their target
// only when complete (CAtomicFile).
//
// Every failure throws a CFileException* carrying the operating system's
// error code, except Open, which reports through its pError argument.
//
// In the Windows build CFile wraps a Win32 file HANDLE and honours the share
// modes (shareExclusive and shareCompat share nothing, so a second open of
// the file fails with sharingViolation). In the native build it wraps a POSIX
// file descriptor stored in m_hFile and ignores the share modes, which POSIX
// open() has no equivalent for.
#pragma once

#include "afxplatform.h"
#include "afxobject.h"
#include "afxexcept.h"
#include "afxstr.h"

#ifndef _WIN32
typedef void* HANDLE;
#endif

// A binary file on disk, read and written without buffering.
class AFX_API CFile : public CObject
{
    DECLARE_DYNAMIC(CFile)

public:
    enum OpenFlags
    {
        modeRead = 0x00000,
        modeWrite = 0x00001,
        modeReadWrite = 0x00002,
        shareCompat = 0x00000,
        shareExclusive = 0x00010,
        shareDenyWrite = 0x00020,
        shareDenyRead = 0x00030,
        shareDenyNone = 0x00040,
        modeNoInherit = 0x00080,
        modeCreate = 0x01000,
        modeNoTruncate = 0x02000,
        typeText = 0x04000,
        typeBinary = 0x08000,
        osNoBuffer = 0x10000,
        osWriteThrough = 0x20000,
        osRandomAccess = 0x40000,
        osSequentialScan = 0x80000,
    };

    enum SeekPosition
    {
        begin = 0x0,
        current = 0x1,
        end = 0x2
    };

    // The value of m_hFile while no file is open.
    static const HANDLE hFileNull;

    CFile();
    // Wraps an open handle, which the destructor does not close.
    explicit CFile(HANDLE hFile);
    // Opens the file; throws CFileException on failure.
    CFile(LPCTSTR lpszFileName, UINT nOpenFlags);
    // Closes the file if it is open, ignoring errors.
    ~CFile() override;

    operator HANDLE() const;

    // Opens the file; on failure returns FALSE and fills *pError if given.
    virtual BOOL Open(LPCTSTR lpszFileName, UINT nOpenFlags, CFileException* pError = NULL);

    // Reads up to nCount bytes; fewer (or 0) only at the end of the file.
    virtual UINT Read(void* lpBuf, UINT nCount);
    virtual void Write(const void* lpBuf, UINT nCount);

    // Moves the position and returns the new one from the file's start.
    virtual ULONGLONG Seek(LONGLONG lOff, UINT nFrom);
    void SeekToBegin();
    ULONGLONG SeekToEnd();
    virtual ULONGLONG GetPosition() const;

    virtual ULONGLONG GetLength() const;
    // Truncates or extends (with zero bytes) the file; the position stays.
    virtual void SetLength(ULONGLONG dwNewLen);

    virtual void Flush();
    // Closes the file; throws if the system reports an error.
    virtual void Close();
    // Closes the file, ignoring every error.
    virtual void Abort();

    // The name part of the path: "b.txt" for "c:\a\b.txt".
    virtual CString GetFileName() const;
    // The name without its extension: "b" for "c:\a\b.txt".
    virtual CString GetFileTitle() const;
    // The path as passed to Open.
    virtual CString GetFilePath() const;
    virtual void SetFilePath(LPCTSTR lpszNewName);

    static void PASCAL Rename(LPCTSTR lpszOldName, LPCTSTR lpszNewName);
    static void PASCAL Remove(LPCTSTR lpszFileName);

    HANDLE m_hFile;

protected:
    BOOL m_bCloseOnDelete;
    CString m_strFileName;
};

// A file in memory that grows in steps of nGrowBytes as it is written.
class AFX_API CMemFile : public CFile
{
    DECLARE_DYNAMIC(CMemFile)

public:
    explicit CMemFile(UINT nGrowBytes = 1024);
    // Uses lpBuffer as the file; see Attach.
    CMemFile(BYTE* lpBuffer, UINT nBufferSize, UINT nGrowBytes = 0);
    ~CMemFile() override;

    // Uses lpBuffer as the file. With nGrowBytes 0 the file is the buffer's
    // nBufferSize bytes and cannot grow (growing throws CMemoryException);
    // otherwise the file starts empty and the buffer, which must then come
    // from malloc, is reallocated as it grows. The caller keeps ownership.
    void Attach(BYTE* lpBuffer, UINT nBufferSize, UINT nGrowBytes = 0);
    // Gives the buffer to the caller (free() it if it was grown or allocated
    // here) and leaves the file empty and closed.
    BYTE* Detach();

    UINT Read(void* lpBuf, UINT nCount) override;
    void Write(const void* lpBuf, UINT nCount) override;
    // Positions beyond the end are allowed; writing there zero-fills the gap.
    ULONGLONG Seek(LONGLONG lOff, UINT nFrom) override;
    ULONGLONG GetPosition() const override;
    ULONGLONG GetLength() const override;
    void SetLength(ULONGLONG dwNewLen) override;
    void Flush() override;
    void Close() override;
    void Abort() override;

protected:
    virtual BYTE* Alloc(SIZE_T nBytes);
    virtual BYTE* Realloc(BYTE* lpMem, SIZE_T nBytes);
    virtual BYTE* Memcpy(BYTE* lpMemTarget, const BYTE* lpMemSource, SIZE_T nBytes);
    virtual void Free(BYTE* lpMem);
    // Makes the buffer hold at least dwNewLen bytes, in steps of m_nGrowBytes.
    virtual void GrowFile(SIZE_T dwNewLen);

    SIZE_T m_nGrowBytes;
    SIZE_T m_nPosition;
    SIZE_T m_nBufferSize;
    SIZE_T m_nFileSize;
    BYTE* m_lpBuffer;
    BOOL m_bAutoDelete;

private:
    void FreeBuffer();
};

// A file read and written as text lines, with the C runtime's text and
// binary modes on top of CFile.
//
// typeText (the default when neither type flag is given) writes every "\n"
// as "\r\n" (so "\r\n" becomes "\r\r\n"), reads "\r\n" as "\n" and ends
// the file at a Ctrl-Z byte (0x1A); typeBinary reads and writes bytes as they
// are, so a line read from a "\r\n" file keeps its "\r". Positions and
// lengths are those of the bytes on disk. As with the runtime's append modes,
// a file opened with modeCreate | modeNoTruncate, or with modeWrite without
// modeCreate, writes every block at the file's end, wherever the position
// was. There is no FILE* (m_pStream): the class buffers reads itself.
class AFX_API CStdioFile : public CFile
{
    DECLARE_DYNAMIC(CStdioFile)

public:
    CStdioFile();
    // Opens the file; throws CFileException on failure.
    CStdioFile(LPCTSTR lpszFileName, UINT nOpenFlags);

    BOOL Open(LPCTSTR lpszFileName, UINT nOpenFlags, CFileException* pError = NULL) override;

    // Writes the text up to its terminator.
    virtual void WriteString(LPCTSTR lpsz);
    // Reads up to nMax - 1 characters, stopping after a line end, which is
    // kept as "\n" (text mode); NULL at the end of the file.
    virtual LPTSTR ReadString(LPTSTR lpsz, UINT nMax);
    // Reads one line without its "\n"; FALSE at the end of the file. A line
    // longer than a CString holds (INT_MAX characters) throws
    // CMemoryException, leaving the position inside that line.
    virtual BOOL ReadString(CString& rString);

    UINT Read(void* lpBuf, UINT nCount) override;
    void Write(const void* lpBuf, UINT nCount) override;
    ULONGLONG Seek(LONGLONG lOff, UINT nFrom) override;
    ULONGLONG GetPosition() const override;
    ULONGLONG GetLength() const override;
    void SetLength(ULONGLONG dwNewLen) override;
    void Flush() override;
    void Close() override;
    void Abort() override;

private:
    static constexpr UINT kBufferSize = 4096;

    int NextChar();
    bool FillBuffer();
    void DropReadBuffer();

    BOOL m_bText;
    BOOL m_bAppend;
    // A Ctrl-Z ended the text; a seek clears it.
    BOOL m_bAtTextEnd;
    UINT m_nBufPos;
    UINT m_nBufEnd;
    char m_buffer[kBufferSize];
};

// Not in the framework: a file that is written under a temporary name in
// its target's folder and takes the target's place only when complete.
// Every file the libraries write as a whole goes through it.
//
// Close() flushes the data to disk and then replaces the target in one step
// that either happens or changes nothing: MoveFileExA with
// MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH in the Windows build
// (the replacement takes over the target's hidden, system and archive
// attributes), rename(2) natively (it takes over the target's permission
// bits). ReplaceFileA is not used: without a backup name it can lose the
// target when it fails half-way. A failure anywhere (a write error such as a full disk, a
// target that is read-only or held open by another program, an exception
// after which the caller calls Abort() or just destroys the object) leaves
// the target exactly as it was, and no temporary file behind. A read-only
// target is refused (accessDenied) in both builds, although rename(2) alone
// would replace it. Files written by appending (logs) do not use it.
class AFX_API CAtomicFile : public CStdioFile
{
    DECLARE_DYNAMIC(CAtomicFile)

public:
    CAtomicFile();
    // Removes the temporary file unless Close replaced the target.
    ~CAtomicFile() override;

    // Creates a new temporary file beside lpszFileName and opens it for
    // writing; of nOpenFlags only typeText and typeBinary count. On failure
    // returns FALSE and fills *pError if given. Error messages of later calls
    // name the target, which GetFilePath returns.
    BOOL Open(LPCTSTR lpszFileName, UINT nOpenFlags, CFileException* pError = NULL) override;
    // Flushes and closes the file and puts it in the target's place; throws
    // CFileException on failure, after which the target is unchanged and the
    // temporary file gone.
    void Close() override;
    // Closes and removes the temporary file; the target is unchanged. Never
    // throws.
    void Abort() override;

private:
    CString m_strTemp;
};
