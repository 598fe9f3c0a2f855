// The framework's exception family. Exceptions are thrown as pointers
// (throw new ...) and caught as CException*; the catcher calls Delete().
//
// Memory, not-supported and invalid-argument exceptions are thrown from
// static objects that are not auto-deleting, so throwing them never
// allocates and Delete() leaves them alone. The others are heap objects that
// Delete() frees.
//
// GetErrorMessage texts are English. Texts that name a file say
// "an unnamed file" where no file name is known.
#pragma once

#include "afxplatform.h"
#include "afxobject.h"
#include "afxstr.h"

// Base of every framework exception.
class AFX_API CException : public CObject
{
    DECLARE_DYNAMIC(CException)

public:
    CException();
    explicit CException(BOOL bAutoDelete);
    ~CException() override = default;

    // Frees the exception if it is a heap object; does nothing otherwise.
    void Delete();

    // Copies the message (truncated, NUL-terminated) into lpszError; FALSE
    // if the exception has no message. Sets *pnHelpContext to 0 if given.
    virtual BOOL GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext = NULL) const;

#ifdef _WIN32
    // Shows the message in a message box (MessageBoxA, owned by the active
    // window) and returns the box's result. nMessageID is used only as the
    // fallback text's number when there is no message.
    virtual int ReportError(UINT nType = MB_OK, UINT nMessageID = 0);
#endif

    BOOL m_bAutoDelete;
};

// An exception whose message is one fixed text.
class AFX_API CSimpleException : public CException
{
    DECLARE_DYNAMIC(CSimpleException)

public:
    CSimpleException();
    explicit CSimpleException(BOOL bAutoDelete);

    BOOL GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext = NULL) const override;

protected:
    CSimpleException(BOOL bAutoDelete, LPCTSTR lpszMessage);

private:
    LPCTSTR m_lpszMessage;
};

// Out of memory.
class AFX_API CMemoryException : public CSimpleException
{
    DECLARE_DYNAMIC(CMemoryException)

public:
    CMemoryException();
    explicit CMemoryException(BOOL bAutoDelete);
};

// An operation the object does not support.
class AFX_API CNotSupportedException : public CSimpleException
{
    DECLARE_DYNAMIC(CNotSupportedException)

public:
    CNotSupportedException();
    explicit CNotSupportedException(BOOL bAutoDelete);
};

// An argument outside what the function accepts.
class AFX_API CInvalidArgException : public CSimpleException
{
    DECLARE_DYNAMIC(CInvalidArgException)

public:
    CInvalidArgException();
    explicit CInvalidArgException(BOOL bAutoDelete);
};

// Stops an operation after the user has already been told why; it has no
// message of its own.
class AFX_API CUserException : public CSimpleException
{
    DECLARE_DYNAMIC(CUserException)

public:
    CUserException();
    explicit CUserException(BOOL bAutoDelete);
};

// A failure of serialization through a CArchive.
class AFX_API CArchiveException : public CException
{
    DECLARE_DYNAMIC(CArchiveException)

public:
    enum
    {
        none,
        genericException,
        readOnly,
        endOfFile,
        writeOnly,
        badIndex,
        badClass,
        badSchema,
    };

    explicit CArchiveException(int cause = CArchiveException::none, LPCTSTR lpszArchiveName = NULL);

    BOOL GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext = NULL) const override;

    int m_cause;
    CString m_strFileName;
};

// A failure of a file operation, with the operating system's error code.
class AFX_API CFileException : public CException
{
    DECLARE_DYNAMIC(CFileException)

public:
    enum
    {
        none,
        genericException,
        fileNotFound,
        badPath,
        tooManyOpenFiles,
        accessDenied,
        invalidFile,
        removeCurrentDir,
        directoryFull,
        badSeek,
        hardIO,
        sharingViolation,
        lockViolation,
        diskFull,
        endOfFile,
    };

    explicit CFileException(int cause = CFileException::none, LONG lOsError = -1, LPCTSTR lpszArchiveName = NULL);

    // Clears the exception for reuse as an Open error receiver.
    void Clear();

    BOOL GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext = NULL) const override;

    // The cause for a Win32 error code (GetLastError); genericException for
    // codes without a closer cause.
    static int PASCAL OsErrorToException(LONG lOsError);
    // The cause for a C runtime errno value.
    static int PASCAL ErrnoToException(int nErrno);
    // Throws the exception for a Win32 error code; 0 throws nothing.
    static void PASCAL ThrowOsError(LONG lOsError, LPCTSTR lpszFileName = NULL);
    // Throws the exception for an errno value; 0 throws nothing.
    static void PASCAL ThrowErrno(int nErrno, LPCTSTR lpszFileName = NULL);

    int m_cause;
    // The operating system's code: GetLastError() in the Windows build,
    // errno in the native build; -1 when there is none.
    LONG m_lOsError;
    CString m_strFileName;
};

// Throwers. None returns.
[[noreturn]] AFX_API void AfxThrowMemoryException();
[[noreturn]] AFX_API void AfxThrowNotSupportedException();
[[noreturn]] AFX_API void AfxThrowInvalidArgException();
[[noreturn]] AFX_API void AfxThrowUserException();
[[noreturn]] AFX_API void AfxThrowArchiveException(int cause, LPCTSTR lpszArchiveName = NULL);
[[noreturn]] AFX_API void AfxThrowFileException(int cause, LONG lOsError = -1, LPCTSTR lpszFileName = NULL);

// ---- The framework's exception macros ----
//
//   TRY { ... }
//   CATCH(CFileException, e) { ... e->m_cause ... }
//   AND_CATCH(CMemoryException, e) { ... }
//   END_CATCH
//
// CATCH binds e as a pointer of the named class and takes the exception
// into the construct's keeping: it is deleted (Delete) when the construct
// ends, however the handler leaves it, unless the handler passes it on
// with THROW_LAST(). CATCH_ALL(e) catches every CException* and ends with
// END_CATCH_ALL. THROW(e) throws the exception pointer e.

// Keeps the exception a CATCH block caught until its TRY construct ends.
class AfxCaughtException
{
public:
    AfxCaughtException() = default;
    AfxCaughtException(const AfxCaughtException&) = delete;
    AfxCaughtException& operator=(const AfxCaughtException&) = delete;
    ~AfxCaughtException()
    {
        if (m_pException != nullptr)
            m_pException->Delete();
    }
    void Keep(CException* pException) { m_pException = pException; }
    // THROW_LAST: the exception goes on and is no longer this construct's.
    void Release() { m_pException = nullptr; }

private:
    CException* m_pException = nullptr;
};

#define TRY \
    { \
        AfxCaughtException afxCaught_; \
        try {
#define CATCH(class_name, e) \
    } \
    catch (class_name * e) \
    { \
        afxCaught_.Keep(e);
#define AND_CATCH(class_name, e) CATCH(class_name, e)
#define END_CATCH \
    } \
    }
#define CATCH_ALL(e) CATCH(CException, e)
#define AND_CATCH_ALL(e) CATCH(CException, e)
#define END_CATCH_ALL END_CATCH
#define THROW(e) throw e
#define THROW_LAST() (afxCaught_.Release(), throw)
