#include "shell_seam.h"
#include "afxstr.h"

#include <atomic>
#include <mutex>

namespace {

typedef HWND(WINAPI* HtmlHelpFunction)(HWND, LPCSTR, UINT, DWORD_PTR);

// The path of the HTML Help control as registered, or "hhctrl.ocx".
CString HtmlHelpControlPath()
{
    const char* key = "CLSID\\{ADB880A6-D8FF-11CF-9377-00AA003B7A11}\\InprocServer32";
    HKEY opened = nullptr;
    CString path = "hhctrl.ocx";
    if (RegOpenKeyExA(HKEY_CLASSES_ROOT, key, 0, KEY_READ, &opened) != ERROR_SUCCESS)
        return path;
    char value[MAX_PATH + 1] = {};
    DWORD size = MAX_PATH;
    DWORD type = 0;
    if (RegQueryValueExA(opened, nullptr, nullptr, &type, reinterpret_cast<BYTE*>(value), &size) == ERROR_SUCCESS &&
        (type == REG_SZ || type == REG_EXPAND_SZ) && value[0] != '\0') {
        if (type == REG_EXPAND_SZ) {
            char expanded[MAX_PATH + 1] = {};
            const DWORD length = ExpandEnvironmentStringsA(value, expanded, MAX_PATH);
            if (length > 0 && length <= MAX_PATH)
                path = expanded;
        } else {
            path = value;
        }
    }
    RegCloseKey(opened);
    return path;
}

HtmlHelpFunction ResolveHtmlHelp()
{
    static std::once_flag once;
    static HtmlHelpFunction function = nullptr;
    std::call_once(once, [] {
        HMODULE control = LoadLibraryA(HtmlHelpControlPath());
        if (control != nullptr)
            function =
                reinterpret_cast<HtmlHelpFunction>(reinterpret_cast<void*>(GetProcAddress(control, "HtmlHelpA")));
    });
    return function;
}

CShellSeam& DefaultSeam()
{
    static CShellSeam seam;
    return seam;
}

std::atomic<CShellSeam*> g_installed{nullptr};

}  // namespace

CShellSeam::~CShellSeam() = default;

HINSTANCE CShellSeam::ShellExecuteA(HWND owner, LPCSTR verb, LPCSTR file, LPCSTR parameters, LPCSTR directory, INT show)
{
    return ::ShellExecuteA(owner, verb, file, parameters, directory, show);
}

BOOL CShellSeam::ShellExecuteExA(SHELLEXECUTEINFOA* info)
{
    return ::ShellExecuteExA(info);
}

BOOL CShellSeam::WinHelpA(HWND owner, LPCSTR helpFile, UINT command, ULONG_PTR data)
{
    return ::WinHelpA(owner, helpFile, command, data);
}

HWND CShellSeam::HtmlHelpA(HWND owner, LPCSTR helpFile, UINT command, DWORD_PTR data)
{
    HtmlHelpFunction function = ResolveHtmlHelp();
    return function != nullptr ? function(owner, helpFile, command, data) : nullptr;
}

CShellSeam* TwGetShellSeam()
{
    CShellSeam* seam = g_installed.load();
    return seam != nullptr ? seam : &DefaultSeam();
}

CShellSeam* TwSetShellSeam(CShellSeam* seam)
{
    CShellSeam* previous = g_installed.exchange(seam);
    return previous != nullptr ? previous : &DefaultSeam();
}
