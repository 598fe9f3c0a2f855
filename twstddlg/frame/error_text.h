// The text rules of the system error reporter: message selection, the
// insertion of the caller's text and the log record.
#pragma once

#include "afxstr.h"

namespace twerror {

// First string-table id of the reporter's message texts.
inline constexpr int kMessageBase = 30000;

// Whether a code's message is a note (shown only at debug level bit 1).
bool IsNote(int code);

// The string-table id of the message for an error code: 30000 plus the code
// modulo 100, with the sign of the code.
int MessageId(int code);

// Inserts `insertion` for every "%s" of `text`, unless the first "%s" stands
// at the very start or the insertion is null.
CString InsertText(const CString& text, const char* insertion);

// Local time parts of a log record.
struct RecordTime
{
    int day, month, year, hour, minute, second;
};

// One log record: kind letter F or I, time, code and text, with no line end.
CString FormatRecord(bool asError, const RecordTime& time, int code, const CString& text);

// The text of the message box: the bracketed code and the message.
CString FormatBoxText(int code, const CString& text);

}  // namespace twerror
