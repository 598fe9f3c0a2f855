// twdemo: the host application that shows what the library offers.
//
//   twdemo.exe                 the interactive demo
//   twdemo.exe --tour DIR      shows each window once, saves a PNG of it into
//                              DIR and prints the file's path, then ends
#include "snapshot.h"
#include "twstddlg.h"

#include <cstdio>
#include <cstring>
#include <string>

namespace {

const char kMainClass[] = "TwDemoMainWindow";

std::string libraryVersion()
{
    DLLVERSIONINFO info = {};
    info.cbSize = sizeof(info);
    DllGetVersion(info);
    char text[64];
    std::snprintf(text, sizeof(text), "%lu.%lu.%lu", static_cast<unsigned long>(info.dwMajorVersion),
                  static_cast<unsigned long>(info.dwMinorVersion),
                  static_cast<unsigned long>(info.dwBuildNumber));
    return text;
}

void paintMain(HWND wnd)
{
    PAINTSTRUCT ps;
    HDC dc = BeginPaint(wnd, &ps);
    RECT rc;
    GetClientRect(wnd, &rc);
    FillRect(dc, &rc, GetSysColorBrush(COLOR_WINDOW));

    RECT band = {0, 0, rc.right, 56};
    HBRUSH bandBrush = CreateSolidBrush(RGB(0, 84, 147));
    FillRect(dc, &band, bandBrush);
    DeleteObject(bandBrush);

    HFONT title = CreateFontA(-28, 0, 0, 0, FW_BOLD, FALSE, FALSE, FALSE, DEFAULT_CHARSET, 0, 0,
                              CLEARTYPE_QUALITY, 0, "Tahoma");
    HFONT body = CreateFontA(-16, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET, 0, 0,
                             CLEARTYPE_QUALITY, 0, "Tahoma");
    HGDIOBJ oldFont = SelectObject(dc, title);
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, RGB(255, 255, 255));
    RECT titleRect = {16, 0, rc.right, 56};
    const std::string heading = "twstddlg " + libraryVersion();
    DrawTextA(dc, heading.c_str(), -1, &titleRect, DT_SINGLELINE | DT_VCENTER);

    SelectObject(dc, body);
    SetTextColor(dc, GetSysColor(COLOR_WINDOWTEXT));
    RECT text = {16, 72, rc.right - 16, rc.bottom - 16};
    const char* lines =
        "Standarddialoge, Steuerelemente und Wertetypen für die Programme von Tesselwerk.\n\n"
        "Die Module afx.dll, twutil.dll und twstddlg.dll sind geladen.\n"
        "Dialoge, Menüs und Steuerelemente erscheinen hier, sobald es sie gibt.";
    DrawTextA(dc, lines, -1, &text, DT_WORDBREAK);
    SelectObject(dc, oldFont);
    DeleteObject(title);
    DeleteObject(body);
    EndPaint(wnd, &ps);
}

LRESULT CALLBACK mainProc(HWND wnd, UINT msg, WPARAM wp, LPARAM lp)
{
    switch (msg) {
    case WM_PAINT:
        paintMain(wnd);
        return 0;
    case WM_DESTROY:
        PostQuitMessage(0);
        return 0;
    }
    return DefWindowProcA(wnd, msg, wp, lp);
}

HWND createMainWindow(HINSTANCE instance)
{
    WNDCLASSA wc = {};
    wc.lpfnWndProc = mainProc;
    wc.hInstance = instance;
    wc.hCursor = LoadCursor(nullptr, IDC_ARROW);
    wc.hIcon = LoadIcon(nullptr, IDI_APPLICATION);
    wc.lpszClassName = kMainClass;
    RegisterClassA(&wc);
    const std::string caption = "twstddlg-Demo – Version " + libraryVersion();
    return CreateWindowExA(0, kMainClass, caption.c_str(), WS_OVERLAPPEDWINDOW, 80, 60, 760, 420,
                           nullptr, nullptr, instance, nullptr);
}

// Handles whatever is queued, then waits up to `ms` for more, so that a
// shown window is mapped and painted before it is captured.
void settle(DWORD ms)
{
    const DWORD until = GetTickCount() + ms;
    MSG msg;
    for (;;) {
        while (PeekMessageA(&msg, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&msg);
            DispatchMessageA(&msg);
        }
        const DWORD now = GetTickCount();
        if (static_cast<LONG>(until - now) <= 0)
            break;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, until - now, QS_ALLINPUT);
    }
}

// Saves one window of the tour and tells where it went.
bool tourShot(HWND wnd, const std::string& dir, const char* name)
{
    settle(300);
    const std::string path = dir + "\\" + name + ".png";
    const bool ok = SnapshotWindowToPng(wnd, path.c_str());
    std::printf("%s %s\n", ok ? "saved" : "FAILED", path.c_str());
    std::fflush(stdout);
    return ok;
}

int runTour(HINSTANCE instance, const std::string& dir)
{
    CreateDirectoryA(dir.c_str(), nullptr);
    HWND main = createMainWindow(instance);
    ShowWindow(main, SW_SHOWNORMAL);
    UpdateWindow(main);
    const bool ok = tourShot(main, dir, "01-main-window");
    DestroyWindow(main);
    settle(0);
    return ok ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv)
{
    HINSTANCE instance = GetModuleHandleA(nullptr);
    if (argc >= 3 && std::strcmp(argv[1], "--tour") == 0)
        return runTour(instance, argv[2]);

    HWND main = createMainWindow(instance);
    ShowWindow(main, SW_SHOWNORMAL);
    UpdateWindow(main);
    MSG msg;
    while (GetMessageA(&msg, nullptr, 0, 0) > 0) {
        TranslateMessage(&msg);
        DispatchMessageA(&msg);
    }
    return static_cast<int>(msg.wParam);
}
