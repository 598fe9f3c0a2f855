// Presenting a framework exception to the user.
#pragma once

#include "twutil_api.h"
#include "afx.h"

// Shows framework exceptions with the caller's explanation and the place in
// the source where they were caught. Callers construct a temporary object
// and call viewException on it.
class TWUTIL_API CTwException : public CObject
{
    DECLARE_DYNAMIC(CTwException)

public:
    CTwException();
    ~CTwException() override;

    // The text viewException shows, in blocks separated by an empty line:
    //   the caller's text (left out when null or empty),
    //   the exception's own message (GetErrorMessage, at most 2047 bytes),
    //     or "Ausnahme ohne Beschreibung (<class name>)." when it has none;
    //     the block is left out for a null exception,
    //   "Quelle: <file name>, Zeile <line>" with the file's name without its
    //     folders; ", Zeile <line>" is left out for a line below 1 and the
    //     whole block for a null or empty file.
    static CString FormatException(CException* exception, const char* text, const char* file, int line);

#ifdef _WIN32
    // Shows FormatException's text with AfxMessageBox (MB_OK | MB_ICONERROR,
    // no help context) and returns the box's answer. The exception is not
    // deleted: it stays the caller's.
    int viewException(CException* exception, const char* text, const char* file, int line);
#endif
};
