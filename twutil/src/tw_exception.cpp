#include "tw_exception.h"
#include "file_name.h"

IMPLEMENT_DYNAMIC(CTwException, CObject)

CTwException::CTwException() = default;

CTwException::~CTwException() = default;

CString CTwException::FormatException(CException* exception, const char* text, const char* file, int line)
{
    CString shown;
    auto addBlock = [&shown](const CString& block) {
        if (!shown.IsEmpty())
            shown += "\n\n";
        shown += block;
    };

    if (text != nullptr && *text != '\0')
        addBlock(text);

    if (exception != nullptr) {
        char message[2048] = {};
        if (exception->GetErrorMessage(message, sizeof message) && message[0] != '\0') {
            addBlock(message);
        } else {
            CString none;
            none.Format("Ausnahme ohne Beschreibung (%s).", exception->GetRuntimeClass()->m_lpszClassName);
            addBlock(none);
        }
    }

    if (file != nullptr && *file != '\0') {
        const CFileName name{CString(file)};
        CString source = "Quelle: " + name.GetNameExt();
        if (line > 0)
            source.AppendFormat(", Zeile %d", line);
        addBlock(source);
    }
    return shown;
}
