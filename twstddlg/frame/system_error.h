// The reporter of numbered errors and notes: message texts from the
// library's string table, the log file "TwSysError.txt" in the program
// directory, message boxes and the exception viewer.
#pragma once
#include "twstddlg_api.h"

#ifdef _WIN32
#include "afx.h"

// Reports errors and notes by code. The code modulo 100 selects string
// 30000 plus the remainder; remainders below 50 are errors and always
// shown, 50 to 99 are notes shown only at debug level bit 1 (value 2).
// Debug level bit 0 (value 1) writes a record to the log for each report.
// Construct one at start-up: the constructor reads the debug level
// (HKCU\Software\Tesselwerk, "DebugLevel") and fixes the log file's path.
// The log is appended to in place, not replaced through a temporary file:
// copying the whole log for every record would cost more than the record,
// and a writer that holds the log open elsewhere would lose its handle. A
// record whose write fails is cut off again, so the log keeps the records
// it had.
class TWSTDDLG_API CTwSystemError
{
public:
    // Reads the debug level and takes the log path from the profile's
    // "ProgDir" (section "Einstellungen").
    CTwSystemError();
    virtual ~CTwSystemError();

    // Shows the code's message with `insertion` for its "%s" in a message
    // box (help context 0x7FFF) and logs it at debug level bit 0; `silent`
    // logs only.
    static void ShowError(int code, const char* insertion, int asError, int fromLibrary, int silent);

    // Presents a framework exception with the code's message through the
    // exception viewer; the exception stays the caller's.
    static void ShowException(int code, const char* insertion, CException* exception, CString location, int ignored,
                              int fromLibrary);

    // Appends an information record to the log at any debug level.
    static void WriteToLog(int code, const char* insertion, int fromLibrary);

private:
    static CString LoadString(int code, int fromLibrary);
    static void WriteToFile(int code, const char* text, int asError);
    static CString MessageText(int code, const char* insertion, int fromLibrary);

    static int m_iDebugLevel;
    static CString m_sErrorFile;
};
#endif
