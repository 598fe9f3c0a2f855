// The one place through which the utility library and the dialogs start
// programs, open documents and links, show file properties and open help.
//
// Everything that would leave the process for the user's desktop (another
// program, a browser, an editor, a help viewer) calls the process's current
// seam instead of the platform function. The default seam calls the real
// functions; tests install a seam of their own that records the calls and
// answers them, so that no test starts a program.
//
// Callers: CHyperlink::Navigate, CallExternProgram and ViewFileInformation
// of this library; the command dispatcher, the picture control and the link
// control of twstddlg.
#pragma once

#include "twutil_api.h"

#ifdef _WIN32
#include <shellapi.h>

// The calls that leave the process. Each member stands in for the platform
// function of its name and has its arguments and result; the base class
// calls that function.
class TWUTIL_API CShellSeam
{
public:
    CShellSeam() = default;
    virtual ~CShellSeam();
    CShellSeam(const CShellSeam&) = delete;
    CShellSeam& operator=(const CShellSeam&) = delete;

    // Opens, explores, edits or prints a file or link; a result above 32
    // means success, otherwise it is an SE_ERR_* or system error code.
    virtual HINSTANCE ShellExecuteA(HWND owner, LPCSTR verb, LPCSTR file, LPCSTR parameters, LPCSTR directory,
                                    INT show);
    // The extended form: programs that a caller waits for
    // (SEE_MASK_NOCLOSEPROCESS) and verbs such as "properties".
    virtual BOOL ShellExecuteExA(SHELLEXECUTEINFOA* info);
    // Opens a WinHelp file.
    virtual BOOL WinHelpA(HWND owner, LPCSTR helpFile, UINT command, ULONG_PTR data);
    // Opens a compiled HTML help file. The default resolves HtmlHelpA on
    // first use from the HTML Help control that the default value of
    // "CLSID\{ADB880A6-D8FF-11CF-9377-00AA003B7A11}\InprocServer32" below
    // HKEY_CLASSES_ROOT names (an expandable value is expanded; at most
    // MAX_PATH characters), else from "hhctrl.ocx"; once that has failed,
    // every call returns null without trying again.
    virtual HWND HtmlHelpA(HWND owner, LPCSTR helpFile, UINT command, DWORD_PTR data);
};

// The seam in use: the one last installed, or the default.
TWUTIL_API CShellSeam* TwGetShellSeam();

// Installs seam for the whole process and returns the one it replaces (the
// default seam when none was installed), so a test can put it back. Null
// puts the default seam back. The caller keeps ownership and must keep the
// seam alive while it is installed.
TWUTIL_API CShellSeam* TwSetShellSeam(CShellSeam* seam);

#endif
