#include "frame/system_error.h"

#include "afxwin.h"
#include "file_operation.h"
#include "frame/error_text.h"
#include "frame/library_instance.h"
#include "frame/registry_switch.h"
#include "string_helpers.h"
#include "tw_exception.h"

#include <cstdlib>
#include <ctime>

namespace {

constexpr int kLogRecords = 1;
constexpr int kShowNotes = 2;
constexpr UINT kHelpContext = 0x7FFF;
constexpr int kViewerLine = 87;
constexpr DWORD kValueBufferSize = 260;

int ReadDebugLevel()
{
    HKEY key = nullptr;
    if (RegOpenKeyExA(HKEY_CURRENT_USER, kTesselwerkKey, 0, KEY_READ, &key) != ERROR_SUCCESS)
        return 0;
    // One byte more than the query may fill, so the text always ends.
    char buffer[kValueBufferSize + 1] = {};
    DWORD size = kValueBufferSize;
    DWORD type = 0;
    int level = 0;
    if (RegQueryValueExA(key, "DebugLevel", nullptr, &type, reinterpret_cast<BYTE*>(buffer), &size) == ERROR_SUCCESS &&
        size > 0 && type == REG_DWORD) {
        // Deliberate: the value must be a REG_DWORD but its bytes are read as
        // text, so DWORD 1 gives 0 and only 0x31 ('1'), 0x33 ('3') ... count.
        level = atoi(buffer);
    }
    RegCloseKey(key);
    return level;
}

bool ShowsMessage(int level, int code)
{
    return (level & kShowNotes) != 0 || !twerror::IsNote(code);
}

}  // namespace

int CTwSystemError::m_iDebugLevel = 0;
CString CTwSystemError::m_sErrorFile;

CTwSystemError::CTwSystemError()
{
    m_iDebugLevel = ReadDebugLevel();
    CWinApp* app = AfxGetApp();
    CString directory = app != nullptr ? app->GetProfileString("Einstellungen", "ProgDir", "") : CString();
    EnsureTrailingChar(directory, '\\');
    m_sErrorFile = directory + "TwSysError.txt";
}

CTwSystemError::~CTwSystemError() = default;

CString CTwSystemError::LoadString(int code, int fromLibrary)
{
    const HINSTANCE remembered = AfxGetResourceHandle();
    if (fromLibrary)
        AfxSetResourceHandle(TwLibraryInstance());
    CString text;
    text.LoadString(static_cast<UINT>(twerror::MessageId(code)));
    AfxSetResourceHandle(remembered);
    return text;
}

CString CTwSystemError::MessageText(int code, const char* insertion, int fromLibrary)
{
    return twerror::InsertText(LoadString(code, fromLibrary), insertion);
}

void CTwSystemError::ShowError(int code, const char* insertion, int asError, int fromLibrary, int silent)
{
    const CString text = MessageText(code, insertion, fromLibrary);
    if (m_iDebugLevel & kLogRecords)
        WriteToFile(code, text, asError);
    if (!silent && ShowsMessage(m_iDebugLevel, code))
        AfxMessageBox(twerror::FormatBoxText(code, text), MB_OK, kHelpContext);
}

void CTwSystemError::ShowException(int code, const char* insertion, CException* exception, CString location,
                                   int ignored, int fromLibrary)
{
    const CString text = MessageText(code, insertion, fromLibrary);
    if (m_iDebugLevel & kLogRecords)
        WriteToFile(code, text, TRUE);
    if (!ShowsMessage(m_iDebugLevel, code) || exception == nullptr)
        return;
    // Deliberate: the caller's location is ignored; the viewer always names
    // the reporter's own source and line.
    CTwException().viewException(exception, twerror::FormatBoxText(code, text), __FILE__, kViewerLine);
}

void CTwSystemError::WriteToLog(int code, const char* insertion, int fromLibrary)
{
    WriteToFile(code, MessageText(code, insertion, fromLibrary), FALSE);
}

void CTwSystemError::WriteToFile(int code, const char* text, int asError)
{
    CStdioFile file;
    const UINT mode = CFileOperation::FileExist(m_sErrorFile)
                          ? CFile::modeReadWrite | CFile::shareExclusive | CFile::typeBinary
                          : CFile::modeCreate | CFile::modeWrite | CFile::shareExclusive | CFile::typeBinary;
    // A locked or unreachable log drops the record.
    if (!file.Open(m_sErrorFile, mode))
        return;
    ULONGLONG oldLength = 0;
    try {
        oldLength = file.SeekToEnd();
        const __time64_t now = _time64(nullptr);
        tm local = {};
        _localtime64_s(&local, &now);
        const twerror::RecordTime time = {local.tm_mday, local.tm_mon + 1, local.tm_year + 1900,
                                          local.tm_hour, local.tm_min,     local.tm_sec};
        file.WriteString(twerror::FormatRecord(asError != 0, time, code, CString(text)));
        file.Close();
    } catch (CException* e) {
        e->Delete();
        // A record cut short (a full disk) goes again; the earlier ones stay.
        try {
            if (file.m_hFile != CFile::hFileNull)
                file.SetLength(oldLength);
        } catch (CException* eAgain) {
            eAgain->Delete();
        }
        file.Abort();
    }
}
