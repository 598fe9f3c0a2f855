// Demo entry of the library frame: the library's version from its version
// resource, the common-controls version, and the system error reporter
// with its debug level bits, an error, a note and the log file.
#include "demo_catalog.h"
#include "twstddlg.h"

namespace {

constexpr UINT kLogBit = 101;
constexpr UINT kNotesBit = 102;
constexpr UINT kRaiseError = 103;
constexpr UINT kRaiseNote = 104;
constexpr UINT kShowLog = 105;
constexpr UINT kLogText = 106;
constexpr UINT kLevelText = 107;

constexpr char kTesselwerk[] = "Software\\Tesselwerk";
constexpr int kErrorCode = 1019;
constexpr int kNoteCode = 1050;

// The debug level as the reporter reads it: a REG_DWORD whose bytes are
// taken as text.
int ReadLevel(DWORD* raw)
{
    *raw = 0;
    HKEY key = nullptr;
    if (RegOpenKeyExA(HKEY_CURRENT_USER, kTesselwerk, 0, KEY_READ, &key) != ERROR_SUCCESS)
        return 0;
    char data[8] = {};
    DWORD size = 4;
    DWORD type = 0;
    const bool ok =
        RegQueryValueExA(key, "DebugLevel", nullptr, &type, reinterpret_cast<BYTE*>(data), &size) == ERROR_SUCCESS &&
        type == REG_DWORD;
    RegCloseKey(key);
    if (!ok)
        return 0;
    memcpy(raw, data, 4);
    return atoi(data);
}

// Stores the level as the digit the reporter understands (3 as 0x33) and
// lets a new reporter read it.
void WriteLevel(int level)
{
    HKEY key = nullptr;
    if (RegCreateKeyExA(HKEY_CURRENT_USER, kTesselwerk, 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr) !=
        ERROR_SUCCESS)
        return;
    const DWORD value = static_cast<DWORD>('0' + level);
    RegSetValueExA(key, "DebugLevel", 0, REG_DWORD, reinterpret_cast<const BYTE*>(&value), sizeof value);
    RegCloseKey(key);
    CTwSystemError reporter;
}

// Where the reporter writes: "ProgDir" of the profile, else the current folder.
CString LogPath()
{
    CString folder = AfxGetApp()->GetProfileString("Einstellungen", "ProgDir", "");
    if (!folder.IsEmpty() && folder.Right(1) != "\\")
        folder += "\\";
    char full[MAX_PATH] = {};
    GetFullPathNameA(folder + "TwSysError.txt", MAX_PATH, full, nullptr);
    return full;
}

CString VersionLines()
{
    CString lines;
    CModuleVersion version;
    if (version.GetFileVersionInfo("twstddlg.dll")) {
        lines.Format("Versionsressource von twstddlg.dll:\r\n"
                     "    Dateiversion %u.%u.%u.%u, Produktversion \"%s\"\r\n"
                     "    %s, %s\r\n",
                     HIWORD(version.dwFileVersionMS), LOWORD(version.dwFileVersionMS), HIWORD(version.dwFileVersionLS),
                     LOWORD(version.dwFileVersionLS), static_cast<const char*>(version.GetValue("ProductVersion")),
                     static_cast<const char*>(version.GetValue("FileDescription")),
                     static_cast<const char*>(version.GetValue("LegalCopyright")));
    } else {
        lines = "Versionsressource von twstddlg.dll nicht lesbar.\r\n";
    }
    DLLVERSIONINFO info = {};
    info.cbSize = sizeof info;
    DllGetVersion(info);
    lines.AppendFormat("DllGetVersion der Bibliothek: %lu.%lu.%lu\r\n", static_cast<unsigned long>(info.dwMajorVersion),
                       static_cast<unsigned long>(info.dwMinorVersion), static_cast<unsigned long>(info.dwBuildNumber));
    lines.AppendFormat("comctl32.dll beim Laden: CFixMFCToolBar::iVerComCtl32 = %d", CFixMFCToolBar::iVerComCtl32);
    return lines;
}

// The frame's window: versions, the debug level bits, an error and a note
// to raise, and the log file's content.
class CFrameDemoWnd : public CWnd
{
public:
    BOOL CreateShow(CWnd* owner)
    {
        LPCTSTR cls = AfxRegisterWndClass(CS_HREDRAW | CS_VREDRAW, LoadCursor(nullptr, IDC_ARROW),
                                          reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1));
        if (!CreateEx(0, cls, "Bibliotheksrahmen: Version und Fehlermeldungen",
                      WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX | WS_VISIBLE, 140, 100, 640, 520,
                      owner ? owner->GetSafeHwnd() : nullptr, nullptr))
            return FALSE;
        CTwSystemError reporter;
        m_versions.Create(VersionLines(), WS_CHILD | WS_VISIBLE, CRect(12, 10, 620, 90), this);
        m_level.Create("", WS_CHILD | WS_VISIBLE, CRect(12, 100, 620, 120), this, kLevelText);
        m_logBit.Create("Bit 0 (1): Meldungen in die Protokolldatei schreiben", WS_CHILD | WS_VISIBLE | BS_AUTOCHECKBOX,
                        CRect(12, 124, 620, 144), this, kLogBit);
        m_notesBit.Create("Bit 1 (2): auch Hinweise (Codes mit Rest 50 bis 99) anzeigen",
                          WS_CHILD | WS_VISIBLE | BS_AUTOCHECKBOX, CRect(12, 146, 620, 166), this, kNotesBit);
        m_error.Create("&Fehler 1019 melden", WS_CHILD | WS_VISIBLE | BS_PUSHBUTTON, CRect(12, 176, 200, 202), this,
                       kRaiseError);
        m_note.Create("&Hinweis 1050 melden", WS_CHILD | WS_VISIBLE | BS_PUSHBUTTON, CRect(210, 176, 398, 202), this,
                      kRaiseNote);
        m_show.Create("&Protokoll neu lesen", WS_CHILD | WS_VISIBLE | BS_PUSHBUTTON, CRect(408, 176, 620, 202), this,
                      kShowLog);
        m_logLabel.Create("Protokolldatei " + LogPath() + ":", WS_CHILD | WS_VISIBLE, CRect(12, 212, 620, 230), this);
        m_log.Create(WS_CHILD | WS_VISIBLE | WS_BORDER | WS_VSCROLL | ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL,
                     CRect(12, 232, 620, 480), this, kLogText);
        SendMessageToDescendants(WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)), FALSE);
        ShowLevel();
        OnShowLog();
        return TRUE;
    }

protected:
    afx_msg void OnLevelBit()
    {
        WriteLevel((m_logBit.GetCheck() == BST_CHECKED ? 1 : 0) | (m_notesBit.GetCheck() == BST_CHECKED ? 2 : 0));
        ShowLevel();
    }
    afx_msg void OnRaiseError()
    {
        CTwSystemError::ShowError(kErrorCode, "Software\\Tesselwerk", TRUE, TRUE, FALSE);
        OnShowLog();
    }
    afx_msg void OnRaiseNote()
    {
        CTwSystemError::ShowError(kNoteCode, nullptr, FALSE, TRUE, FALSE);
        OnShowLog();
    }
    afx_msg void OnShowLog()
    {
        CString text;
        CStdioFile file;
        if (file.Open(LogPath(), CFile::modeRead | CFile::shareDenyNone | CFile::typeBinary)) {
            const ULONGLONG length = file.GetLength();
            const UINT shown = static_cast<UINT>(length < 8000 ? length : 8000);
            file.Seek(-static_cast<LONGLONG>(shown), CFile::end);
            file.Read(text.GetBufferSetLength(static_cast<int>(shown)), shown);
            text.ReleaseBuffer(static_cast<int>(shown));
        } else {
            text = "(noch keine Protokolldatei)";
        }
        m_log.SetWindowText(text);
    }
    void PostNcDestroy() override { delete this; }
    DECLARE_MESSAGE_MAP()

private:
    void ShowLevel()
    {
        DWORD raw = 0;
        const int level = ReadLevel(&raw);
        CString text;
        text.Format("DebugLevel (REG_DWORD 0x%08lX, als Text gelesen): %d", static_cast<unsigned long>(raw), level);
        m_level.SetWindowText(text);
        m_logBit.SetCheck((level & 1) ? BST_CHECKED : BST_UNCHECKED);
        m_notesBit.SetCheck((level & 2) ? BST_CHECKED : BST_UNCHECKED);
    }

    CStatic m_versions;
    CStatic m_level;
    CStatic m_logLabel;
    CButton m_logBit;
    CButton m_notesBit;
    CButton m_error;
    CButton m_note;
    CButton m_show;
    CEdit m_log;
};

BEGIN_MESSAGE_MAP(CFrameDemoWnd, CWnd)
    ON_BN_CLICKED(kLogBit, OnLevelBit)
    ON_BN_CLICKED(kNotesBit, OnLevelBit)
    ON_BN_CLICKED(kRaiseError, OnRaiseError)
    ON_BN_CLICKED(kRaiseNote, OnRaiseNote)
    ON_BN_CLICKED(kShowLog, OnShowLog)
END_MESSAGE_MAP()

CFrameDemoWnd* showFrame(CWnd* parent)
{
    auto* wnd = new CFrameDemoWnd;
    if (!wnd->CreateShow(parent)) {
        delete wnd;
        return nullptr;
    }
    return wnd;
}

DemoRegistrar frame{{"&Rahmen", "&Version und Fehlermeldungen", [](CWnd* parent) { showFrame(parent); },
                     [](DemoTour& tour, CWnd* parent) {
                         CFrameDemoWnd* wnd = showFrame(parent);
                         if (wnd == nullptr)
                             return;
                         DemoSettle(300);
                         tour.Shot(wnd->GetSafeHwnd(), "library-frame");
                         tour.ShotModal(
                             "system-error",
                             [] { CTwSystemError::ShowError(kErrorCode, "Software\\Tesselwerk", TRUE, TRUE, FALSE); },
                             IDOK);
                         wnd->DestroyWindow();
                     }}};

}  // namespace
