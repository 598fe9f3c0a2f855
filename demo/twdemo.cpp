// twdemo: the host application that shows what the library offers.
//
//   twdemo.exe                 the interactive demo: a main window whose menus
//                              open every dialog and control of the catalogue
//   twdemo.exe --tour DIR      shows each window once, saves a PNG of it into
//                              DIR and prints the file's path, then ends
#include "demo_catalog.h"
#include "twstddlg.h"

#include <cstdio>
#include <cstring>
#include <memory>
#include <string>

namespace {

// Command ids of the catalogue's menu items: kFirstEntryCommand + index.
constexpr UINT kFirstEntryCommand = 40000;
constexpr UINT kExitCommand = 39999;

CString libraryVersion()
{
    DLLVERSIONINFO info = {};
    info.cbSize = sizeof(info);
    DllGetVersion(info);
    CString text;
    text.Format("%lu.%lu.%lu", static_cast<unsigned long>(info.dwMajorVersion),
                static_cast<unsigned long>(info.dwMinorVersion), static_cast<unsigned long>(info.dwBuildNumber));
    return text;
}

// The main window: a heading with the library's version and the menus of
// the catalogue.
class CDemoMainWnd : public CWnd
{
public:
    BOOL CreateMain()
    {
        LPCTSTR cls =
            AfxRegisterWndClass(CS_HREDRAW | CS_VREDRAW, LoadCursor(nullptr, IDC_ARROW),
                                reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1), LoadIcon(nullptr, IDI_APPLICATION));
        const CString caption = "twstddlg-Demo – Version " + libraryVersion();
        return CreateEx(0, cls, caption, WS_OVERLAPPEDWINDOW, 80, 60, 760, 420, nullptr, buildMenu());
    }

protected:
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override
    {
        const UINT id = LOWORD(wParam);
        const auto& entries = DemoEntries();
        if (id >= kFirstEntryCommand && id < kFirstEntryCommand + entries.size()) {
            entries[id - kFirstEntryCommand].run(this);
            return TRUE;
        }
        if (id == kExitCommand) {
            DestroyWindow();
            return TRUE;
        }
        return CWnd::OnCommand(wParam, lParam);
    }

    afx_msg void OnPaint();
    afx_msg void OnDestroy() { PostQuitMessage(0); }
    DECLARE_MESSAGE_MAP()

private:
    static HMENU buildMenu()
    {
        HMENU bar = CreateMenu();
        HMENU file = CreatePopupMenu();
        AppendMenuA(file, MF_STRING, kExitCommand, "&Beenden");
        AppendMenuA(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(file), "&Datei");
        const auto& entries = DemoEntries();
        HMENU popup = nullptr;
        const char* group = nullptr;
        for (size_t i = 0; i < entries.size(); ++i) {
            if (group == nullptr || lstrcmpA(group, entries[i].group) != 0) {
                group = entries[i].group;
                popup = CreatePopupMenu();
                AppendMenuA(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(popup), group);
            }
            AppendMenuA(popup, MF_STRING, kFirstEntryCommand + i, entries[i].label);
        }
        return bar;
    }
};

BEGIN_MESSAGE_MAP(CDemoMainWnd, CWnd)
    ON_WM_PAINT()
    ON_WM_DESTROY()
END_MESSAGE_MAP()

void CDemoMainWnd::OnPaint()
{
    PAINTSTRUCT ps;
    HDC dc = ::BeginPaint(m_hWnd, &ps);
    RECT rc;
    ::GetClientRect(m_hWnd, &rc);
    FillRect(dc, &rc, GetSysColorBrush(COLOR_WINDOW));

    RECT band = {0, 0, rc.right, 56};
    HBRUSH bandBrush = CreateSolidBrush(RGB(0, 84, 147));
    FillRect(dc, &band, bandBrush);
    DeleteObject(bandBrush);

    HFONT title =
        CreateFontA(-28, 0, 0, 0, FW_BOLD, FALSE, FALSE, FALSE, DEFAULT_CHARSET, 0, 0, CLEARTYPE_QUALITY, 0, "Tahoma");
    HFONT body = CreateFontA(-16, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET, 0, 0, CLEARTYPE_QUALITY, 0,
                             "Tahoma");
    HGDIOBJ oldFont = SelectObject(dc, title);
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, RGB(255, 255, 255));
    RECT titleRect = {16, 0, rc.right, 56};
    const CString heading = "twstddlg " + libraryVersion();
    DrawTextA(dc, heading, -1, &titleRect, DT_SINGLELINE | DT_VCENTER);

    SelectObject(dc, body);
    SetTextColor(dc, GetSysColor(COLOR_WINDOWTEXT));
    RECT text = {16, 72, rc.right - 16, rc.bottom - 16};
    const char* lines = "Standarddialoge, Steuerelemente und Wertetypen für die Programme von Tesselwerk.\n\n"
                        "Die Menüs oben öffnen jeden Dialog und jedes Steuerelement der Bibliothek.";
    DrawTextA(dc, lines, -1, &text, DT_WORDBREAK);
    SelectObject(dc, oldFont);
    DeleteObject(title);
    DeleteObject(body);
    ::EndPaint(m_hWnd, &ps);
}

class CDemoApp : public CWinApp
{
public:
    CDemoApp() : CWinApp("twdemo") {}

    BOOL InitInstance() override
    {
        SetRegistryKey("Tesselwerk");
        // The error log lives in the program folder, as in the hosts.
        if (GetProfileString("Einstellungen", "ProgDir", "").IsEmpty())
            WriteProfileString("Einstellungen", "ProgDir", programFolder());
        m_errorReporter = std::make_unique<CTwSystemError>();
        auto* main = new CDemoMainWnd;
        if (!main->CreateMain()) {
            delete main;
            return FALSE;
        }
        m_pMainWnd = main;
        main->ShowWindow(SW_SHOWNORMAL);
        main->UpdateWindow();
        return TRUE;
    }

    // The folder of twdemo.exe.
    static CString programFolder()
    {
        char path[MAX_PATH] = {};
        GetModuleFileNameA(nullptr, path, MAX_PATH);
        CString folder(path);
        folder = folder.Left(folder.ReverseFind('\\') + 1);
        return folder;
    }

    // Shows the main window and then every entry of the catalogue once.
    int RunTour(const std::string& folder)
    {
        CreateDirectoryA(folder.c_str(), nullptr);
        if (!InitInstance())
            return 1;
        DemoTour tour(folder);
        DemoSettle(300);
        tour.Shot(m_pMainWnd->GetSafeHwnd(), "main-window");
        for (const DemoEntry& entry : DemoEntries())
            if (entry.tour)
                entry.tour(tour, m_pMainWnd);
        m_pMainWnd->DestroyWindow();
        DemoSettle(0);
        ExitInstance();
        return tour.AllSaved() ? 0 : 1;
    }

private:
    // Made once at start: reads the debug level and fixes the log's path.
    std::unique_ptr<CTwSystemError> m_errorReporter;
};

CDemoApp theApp;

}  // namespace

int main(int argc, char** argv)
{
    HINSTANCE instance = GetModuleHandleA(nullptr);
    if (argc >= 3 && std::strcmp(argv[1], "--tour") == 0) {
        if (!AfxWinInit(instance, nullptr, GetCommandLineA(), SW_SHOWNORMAL))
            return 2;
        return theApp.RunTour(argv[2]);
    }
    return AfxWinMain(instance, nullptr, GetCommandLineA(), SW_SHOWNORMAL);
}
