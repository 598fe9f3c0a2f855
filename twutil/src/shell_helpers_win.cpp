#include "shell_helpers.h"
#include "file_name.h"
#include "shell_seam.h"

#include <set>
#include <string>

namespace {

// A failed ShellExecuteExA's error as a ShellExecuteA result code.
INT_PTR ShellResultFromError(DWORD error)
{
    switch (error) {
    case ERROR_NO_ASSOCIATION:
        return SE_ERR_NOASSOC;
    case ERROR_DDE_FAIL:
        return SE_ERR_DDEFAIL;
    case ERROR_DLL_NOT_FOUND:
        return SE_ERR_DLLNOTFOUND;
    default:
        // Codes above 32 would read as success: an unknown failure becomes 1.
        return error >= 1 && error <= 32 ? static_cast<INT_PTR>(error) : 1;
    }
}

// Waits for the process while this thread's windows keep working; stops
// early when the application is told to quit.
void WaitProcessingMessages(HANDLE process)
{
    for (;;) {
        const DWORD woken = MsgWaitForMultipleObjects(1, &process, FALSE, INFINITE, QS_ALLINPUT);
        if (woken != WAIT_OBJECT_0 + 1)
            return;
        if (!CheckOtherTasks())
            return;
    }
}

HWND MainWindow()
{
    CWnd* main = AfxGetMainWnd();
    return main != nullptr ? main->GetSafeHwnd() : nullptr;
}

int CALLBACK CollectFontFamily(const LOGFONTA* font, const TEXTMETRICA*, DWORD, LPARAM names)
{
    if (font->lfFaceName[0] != '@' && font->lfFaceName[0] != '\0')
        reinterpret_cast<std::set<std::string>*>(names)->insert(font->lfFaceName);
    return 1;
}

}  // namespace

CString ReturnShellExecuteError(HINSTANCE result)
{
    return ShellExecuteErrorText(reinterpret_cast<INT_PTR>(result));
}

INT_PTR CallExternProgram(const char* program, const char* args, unsigned wait, unsigned show, const char* directory,
                          CWnd* parent)
{
    if (program == nullptr || *program == '\0')
        return SE_ERR_FNF;
    const CString folder =
        directory != nullptr && *directory != '\0' ? CString(directory) : CFileName(CString(program)).GetPath();

    SHELLEXECUTEINFOA info = {};
    info.cbSize = sizeof info;
    info.fMask = SEE_MASK_FLAG_NO_UI | SEE_MASK_NOASYNC | (wait != 0 ? SEE_MASK_NOCLOSEPROCESS : 0);
    info.hwnd = parent != nullptr ? parent->GetSafeHwnd() : nullptr;
    info.lpVerb = "open";
    info.lpFile = program;
    info.lpParameters = args;
    info.lpDirectory = folder.IsEmpty() ? nullptr : folder.GetString();
    info.nShow = static_cast<int>(show);

    const BOOL started = TwGetShellSeam()->ShellExecuteExA(&info);
    const INT_PTR shellResult = reinterpret_cast<INT_PTR>(info.hInstApp);
    if (!started)
        return shellResult >= 1 && shellResult <= 32 ? shellResult : ShellResultFromError(GetLastError());

    if (info.hProcess != nullptr) {
        if (wait != 0)
            WaitProcessingMessages(info.hProcess);
        CloseHandle(info.hProcess);
    }
    // The shell leaves hInstApp unset for some successful starts.
    return shellResult > 32 ? shellResult : 33;
}

BOOL ViewFileInformation(const char* path)
{
    if (path == nullptr || *path == '\0' || GetFileAttributesA(path) == INVALID_FILE_ATTRIBUTES)
        return FALSE;
    SHELLEXECUTEINFOA info = {};
    info.cbSize = sizeof info;
    info.fMask = SEE_MASK_INVOKEIDLIST | SEE_MASK_FLAG_NO_UI;
    info.hwnd = MainWindow();
    info.lpVerb = "properties";
    info.lpFile = path;
    info.nShow = SW_SHOW;
    return TwGetShellSeam()->ShellExecuteExA(&info);
}

BOOL CheckOtherTasks()
{
    MSG msg;
    while (PeekMessageA(&msg, nullptr, 0, 0, PM_REMOVE)) {
        if (msg.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(msg.wParam));
            return FALSE;
        }
        if (!AfxPreTranslateMessage(&msg)) {
            TranslateMessage(&msg);
            DispatchMessageA(&msg);
        }
    }
    return TRUE;
}

INT_PTR EnumerateFonts(HDC dc, CSortedStringArray& fonts)
{
    fonts.RemoveAll();
    HDC screen = nullptr;
    if (dc == nullptr)
        dc = screen = GetDC(nullptr);
    std::set<std::string> names;
    if (dc != nullptr)
        EnumFontFamiliesA(dc, nullptr, CollectFontFamily, reinterpret_cast<LPARAM>(&names));
    if (screen != nullptr)
        ReleaseDC(nullptr, screen);
    for (const std::string& name : names)
        fonts.AddSorted(name.c_str());
    return fonts.GetSize();
}

INT_PTR EnumerateFonts(CDC* dc, CSortedStringArray& fonts)
{
    return EnumerateFonts(dc != nullptr ? dc->GetSafeHdc() : nullptr, fonts);
}
