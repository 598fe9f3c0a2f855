// The exception family, its messages and the throwers. Each thrower throws
// a pointer of the most derived type, so that catch (CFileException* e) and
// catch (CException* e) both work.
#include "afxexcept.h"
#ifdef _WIN32
#include "afxwin.h"
#endif

#include <cerrno>
#include <cstring>
#include <string>
#include <string_view>

namespace {

// Copies text into lpszError, truncated to nMaxError - 1 characters.
void CopyMessage(std::string_view text, LPTSTR lpszError, UINT nMaxError)
{
    if (lpszError == nullptr || nMaxError == 0)
        return;
    const std::size_t n = text.size() < nMaxError - 1 ? text.size() : nMaxError - 1;
    std::memcpy(lpszError, text.data(), n);
    lpszError[n] = '\0';
}

// A message text with "%1" replaced by the file's name.
std::string WithFileName(std::string_view text, const CString& fileName)
{
    const std::string_view name = fileName.IsEmpty() ? std::string_view("an unnamed file")
                                                     : std::string_view(static_cast<LPCTSTR>(fileName),
                                                                        static_cast<std::size_t>(fileName.GetLength()));
    std::string result(text);
    const std::size_t at = result.find("%1");
    if (at != std::string::npos)
        result.replace(at, 2, name);
    return result;
}

constexpr const char* kArchiveMessages[] = {
    "Unexpected file format.",                                      // none
    "Unexpected file format.",                                      // genericException
    "Tried to write to %1 while it was being read.",                // readOnly
    "An unexpected end of file was encountered while reading %1.",  // endOfFile
    "Tried to read from %1 while it was being written.",            // writeOnly
    "%1 has a bad format.",                                         // badIndex
    "%1 contained an unexpected object.",                           // badClass
    "%1 contains an incorrect schema.",                             // badSchema
};

constexpr const char* kFileMessages[] = {
    "No error occurred.",                                             // none
    "An unexpected error occurred while accessing %1.",               // genericException
    "%1 was not found.",                                              // fileNotFound
    "%1 contains an invalid path.",                                   // badPath
    "%1 could not be opened because there are too many open files.",  // tooManyOpenFiles
    "Access to %1 was denied.",                                       // accessDenied
    "An invalid file handle was associated with %1.",                 // invalidFile
    "%1 could not be removed because it is the current directory.",   // removeCurrentDir
    "%1 could not be created because the directory is full.",         // directoryFull
    "Seek failed on %1.",                                             // badSeek
    "A hardware I/O error was reported while accessing %1.",          // hardIO
    "A sharing violation occurred while accessing %1.",               // sharingViolation
    "A locking violation occurred while accessing %1.",               // lockViolation
    "Disk full while accessing %1.",                                  // diskFull
    "An attempt was made to access %1 past its end.",                 // endOfFile
};

// The message of a cause from its class's table with the file's name in it;
// a cause outside the table gets the message of genericCause.
template <std::size_t N>
std::string CauseMessage(const char* const (&messages)[N], int cause, int genericCause, const CString& fileName)
{
    const bool known = cause >= 0 && cause < int(N);
    return WithFileName(messages[known ? cause : genericCause], fileName);
}

// Win32 error codes (GetLastError values); the same numbers in both builds.
struct OsErrorCause
{
    LONG error;
    int cause;
};
constexpr OsErrorCause kOsErrorCauses[] = {
    {0, CFileException::none},               // NO_ERROR
    {1, CFileException::genericException},   // ERROR_INVALID_FUNCTION
    {2, CFileException::fileNotFound},       // ERROR_FILE_NOT_FOUND
    {3, CFileException::badPath},            // ERROR_PATH_NOT_FOUND
    {4, CFileException::tooManyOpenFiles},   // ERROR_TOO_MANY_OPEN_FILES
    {5, CFileException::accessDenied},       // ERROR_ACCESS_DENIED
    {6, CFileException::invalidFile},        // ERROR_INVALID_HANDLE
    {15, CFileException::badPath},           // ERROR_INVALID_DRIVE
    {16, CFileException::removeCurrentDir},  // ERROR_CURRENT_DIRECTORY
    {18, CFileException::fileNotFound},      // ERROR_NO_MORE_FILES
    {19, CFileException::accessDenied},      // ERROR_WRITE_PROTECT
    {21, CFileException::hardIO},            // ERROR_NOT_READY
    {23, CFileException::hardIO},            // ERROR_CRC
    {25, CFileException::badSeek},           // ERROR_SEEK
    {29, CFileException::hardIO},            // ERROR_WRITE_FAULT
    {30, CFileException::hardIO},            // ERROR_READ_FAULT
    {31, CFileException::hardIO},            // ERROR_GEN_FAILURE
    {32, CFileException::sharingViolation},  // ERROR_SHARING_VIOLATION
    {33, CFileException::lockViolation},     // ERROR_LOCK_VIOLATION
    {36, CFileException::sharingViolation},  // ERROR_SHARING_BUFFER_EXCEEDED
    {38, CFileException::endOfFile},         // ERROR_HANDLE_EOF
    {39, CFileException::diskFull},          // ERROR_HANDLE_DISK_FULL
    {53, CFileException::badPath},           // ERROR_BAD_NETPATH
    {65, CFileException::accessDenied},      // ERROR_NETWORK_ACCESS_DENIED
    {67, CFileException::badPath},           // ERROR_BAD_NET_NAME
    {80, CFileException::accessDenied},      // ERROR_FILE_EXISTS
    {82, CFileException::directoryFull},     // ERROR_CANNOT_MAKE
    {87, CFileException::genericException},  // ERROR_INVALID_PARAMETER
    {112, CFileException::diskFull},         // ERROR_DISK_FULL
    {123, CFileException::badPath},          // ERROR_INVALID_NAME
    {131, CFileException::badSeek},          // ERROR_NEGATIVE_SEEK
    {132, CFileException::badSeek},          // ERROR_SEEK_ON_DEVICE
    {145, CFileException::accessDenied},     // ERROR_DIR_NOT_EMPTY
    {158, CFileException::lockViolation},    // ERROR_NOT_LOCKED
    {161, CFileException::badPath},          // ERROR_BAD_PATHNAME
    {167, CFileException::lockViolation},    // ERROR_LOCK_FAILED
    {183, CFileException::accessDenied},     // ERROR_ALREADY_EXISTS
    {206, CFileException::badPath},          // ERROR_FILENAME_EXCED_RANGE
};

struct ErrnoCause
{
    int error;
    int cause;
};
constexpr ErrnoCause kErrnoCauses[] = {
    {0, CFileException::none},
    {EPERM, CFileException::accessDenied},
    {ENOENT, CFileException::fileNotFound},
    {EIO, CFileException::hardIO},
    {ENXIO, CFileException::badPath},
    {EBADF, CFileException::invalidFile},
    {EACCES, CFileException::accessDenied},
    {EBUSY, CFileException::sharingViolation},
    {EEXIST, CFileException::accessDenied},
    {ENOTDIR, CFileException::badPath},
    {EISDIR, CFileException::accessDenied},
    {EINVAL, CFileException::genericException},
    {ENFILE, CFileException::tooManyOpenFiles},
    {EMFILE, CFileException::tooManyOpenFiles},
    {EFBIG, CFileException::diskFull},
    {ENOSPC, CFileException::diskFull},
    {ESPIPE, CFileException::badSeek},
    {EROFS, CFileException::accessDenied},
    {ENAMETOOLONG, CFileException::badPath},
    {EDEADLK, CFileException::lockViolation},
    {ENOLCK, CFileException::lockViolation},
    {ENOTEMPTY, CFileException::accessDenied},
};

CMemoryException g_memoryException(FALSE);
CNotSupportedException g_notSupportedException(FALSE);
CInvalidArgException g_invalidArgException(FALSE);

}  // namespace

IMPLEMENT_DYNAMIC(CException, CObject)
IMPLEMENT_DYNAMIC(CSimpleException, CException)
IMPLEMENT_DYNAMIC(CMemoryException, CSimpleException)
IMPLEMENT_DYNAMIC(CNotSupportedException, CSimpleException)
IMPLEMENT_DYNAMIC(CInvalidArgException, CSimpleException)
IMPLEMENT_DYNAMIC(CUserException, CSimpleException)
IMPLEMENT_DYNAMIC(CArchiveException, CException)
IMPLEMENT_DYNAMIC(CFileException, CException)

CException::CException() : m_bAutoDelete(TRUE) {}

CException::CException(BOOL bAutoDelete) : m_bAutoDelete(bAutoDelete) {}

void CException::Delete()
{
    if (m_bAutoDelete > 0)
        delete this;
}

BOOL CException::GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext) const
{
    if (pnHelpContext != nullptr)
        *pnHelpContext = 0;
    CopyMessage({}, lpszError, nMaxError);
    return FALSE;
}

#ifdef _WIN32
int CException::ReportError(UINT nType, UINT nMessageID)
{
    // Through AfxMessageBox, so that the application (and a test
    // application) sees and answers the box.
    char szMessage[512];
    UINT helpContext = 0;
    if (GetErrorMessage(szMessage, sizeof szMessage, &helpContext))
        return AfxMessageBox(szMessage, nType, helpContext);
    if (nMessageID != 0)
        return AfxMessageBox(nMessageID, nType, helpContext);
    return AfxMessageBox("No error message is available.", nType, helpContext);
}
#endif

CSimpleException::CSimpleException() : CSimpleException(TRUE, nullptr) {}

CSimpleException::CSimpleException(BOOL bAutoDelete) : CSimpleException(bAutoDelete, nullptr) {}

CSimpleException::CSimpleException(BOOL bAutoDelete, LPCTSTR lpszMessage)
    : CException(bAutoDelete), m_lpszMessage(lpszMessage)
{}

BOOL CSimpleException::GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext) const
{
    if (pnHelpContext != nullptr)
        *pnHelpContext = 0;
    CopyMessage(m_lpszMessage != nullptr ? m_lpszMessage : "", lpszError, nMaxError);
    return m_lpszMessage != nullptr;
}

CMemoryException::CMemoryException() : CMemoryException(TRUE) {}

CMemoryException::CMemoryException(BOOL bAutoDelete) : CSimpleException(bAutoDelete, "Out of memory.") {}

CNotSupportedException::CNotSupportedException() : CNotSupportedException(TRUE) {}

CNotSupportedException::CNotSupportedException(BOOL bAutoDelete)
    : CSimpleException(bAutoDelete, "An unsupported operation was attempted.")
{}

CInvalidArgException::CInvalidArgException() : CInvalidArgException(TRUE) {}

CInvalidArgException::CInvalidArgException(BOOL bAutoDelete)
    : CSimpleException(bAutoDelete, "Encountered an improper argument.")
{}

CUserException::CUserException() : CSimpleException(TRUE) {}

CUserException::CUserException(BOOL bAutoDelete) : CSimpleException(bAutoDelete) {}

CArchiveException::CArchiveException(int cause, LPCTSTR lpszArchiveName)
    : m_cause(cause), m_strFileName(lpszArchiveName != nullptr ? lpszArchiveName : "")
{}

BOOL CArchiveException::GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext) const
{
    if (pnHelpContext != nullptr)
        *pnHelpContext = 0;
    CopyMessage(CauseMessage(kArchiveMessages, m_cause, genericException, m_strFileName), lpszError, nMaxError);
    return TRUE;
}

CFileException::CFileException(int cause, LONG lOsError, LPCTSTR lpszArchiveName)
    : m_cause(cause), m_lOsError(lOsError), m_strFileName(lpszArchiveName != nullptr ? lpszArchiveName : "")
{}

void CFileException::Clear()
{
    m_cause = none;
    m_lOsError = -1;
    m_strFileName.Empty();
}

BOOL CFileException::GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext) const
{
    if (pnHelpContext != nullptr)
        *pnHelpContext = 0;
    CopyMessage(CauseMessage(kFileMessages, m_cause, genericException, m_strFileName), lpszError, nMaxError);
    return TRUE;
}

int PASCAL CFileException::OsErrorToException(LONG lOsError)
{
    for (const auto& entry : kOsErrorCauses) {
        if (entry.error == lOsError)
            return entry.cause;
    }
    return genericException;
}

int PASCAL CFileException::ErrnoToException(int nErrno)
{
    for (const auto& entry : kErrnoCauses) {
        if (entry.error == nErrno)
            return entry.cause;
    }
    return genericException;
}

void PASCAL CFileException::ThrowOsError(LONG lOsError, LPCTSTR lpszFileName)
{
    if (lOsError != 0)
        AfxThrowFileException(OsErrorToException(lOsError), lOsError, lpszFileName);
}

void PASCAL CFileException::ThrowErrno(int nErrno, LPCTSTR lpszFileName)
{
    if (nErrno != 0)
        AfxThrowFileException(ErrnoToException(nErrno), nErrno, lpszFileName);
}

void AfxThrowMemoryException()
{
    throw &g_memoryException;
}

void AfxThrowNotSupportedException()
{
    throw &g_notSupportedException;
}

void AfxThrowInvalidArgException()
{
    throw &g_invalidArgException;
}

void AfxThrowUserException()
{
    throw new CUserException;
}

void AfxThrowArchiveException(int cause, LPCTSTR lpszArchiveName)
{
    throw new CArchiveException(cause, lpszArchiveName);
}

void AfxThrowFileException(int cause, LONG lOsError, LPCTSTR lpszFileName)
{
    throw new CFileException(cause, lOsError, lpszFileName);
}
