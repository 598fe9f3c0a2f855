// Starting programs, showing file information, reporting shell errors,
// letting the user interface breathe during long work, and listing fonts.
// Programs, links and the properties view go through the shell seam
// (shell_seam.h).
#pragma once

#include "twutil_api.h"
#include "afxstr.h"

// The German text for a result of ShellExecuteA (or of CHyperlink::Navigate
// and CallExternProgram): one sentence per SE_ERR_* and system code that the
// shell returns (0, 2, 3, 5, 8, 11, 26 to 32), "Unbekannter Fehler (Code
// n)." for any other value up to 32, and an empty text for a value above 32,
// which is no error.
TWUTIL_API CString ShellExecuteErrorText(INT_PTR result);

#ifdef _WIN32
#include "afxwin.h"
#include "sorted_string_array.h"

// ShellExecuteErrorText for the instance handle that the shell returned.
TWUTIL_API CString ReturnShellExecuteError(HINSTANCE result);

// Starts a program (or a batch file, or a document with its program) through
// the shell's "open" verb with the given arguments (null for none).
// - wait: non-zero waits until the program has ended, processing this
//   thread's messages meanwhile so that windows keep painting.
// - show: the SW_* show command of the program's window (1 = SW_SHOWNORMAL).
// - directory: the working directory; null or empty means the folder the
//   program lies in (the current directory when the program has no folder).
// - parent: owner of any window the shell shows; null for none.
// Returns the shell's result: above 32 when the program started, otherwise
// an error code for ReturnShellExecuteError. The shell shows no error box
// itself. A null or empty program returns SE_ERR_FNF (2) without a call.
TWUTIL_API INT_PTR CallExternProgram(const char* program, const char* args, unsigned wait, unsigned show,
                                     const char* directory, CWnd* parent);

// Shows the shell's properties view of a file or folder (verb "properties").
// Returns non-zero when the shell took the request; FALSE for a null or empty
// name or one that names nothing, without a call.
TWUTIL_API BOOL ViewFileInformation(const char* path);

// Processes every message waiting for this thread (pre-translated by the
// framework, so dialog keys work) and returns when none is left. Returns
// FALSE when it met WM_QUIT, which it posts again so that the message loop
// still ends; TRUE otherwise.
TWUTIL_API BOOL CheckOtherTasks();

// Fills fonts with the name of every font family of the device context
// (EnumFontFamiliesA), each name once, in the order of AddSorted, without
// the vertical "@" variants; a null dc means the screen. The array is
// emptied first. Returns the number of names.
TWUTIL_API INT_PTR EnumerateFonts(HDC dc, CSortedStringArray& fonts);
// EnumerateFonts for a framework device context; null means the screen.
TWUTIL_API INT_PTR EnumerateFonts(CDC* dc, CSortedStringArray& fonts);
#endif
