// Keeping a window's place in the application profile (section
// "Einstellungen", values <prefix>DlgX, DlgY, DlgW, DlgH and DlgF).
#pragma once
#include "twstddlg_api.h"

#ifdef _WIN32
class CWnd;

// Puts the window where WriteDlgPositionSize left it: position, size and
// minimised/maximised state, corrected to the screen.
TWSTDDLG_API void ReadDlgPositionSize(CWnd* wnd, const char* prefix);

// Stores the window's normal position and size and its state.
TWSTDDLG_API void WriteDlgPositionSize(CWnd* wnd, const char* prefix);

// Moves the window to the position WriteWndPosition stored, keeping its
// size; a position off the screen becomes 0 and is stored as 0.
TWSTDDLG_API void ReadWndPosition(CWnd* wnd, const char* prefix);

// Stores the window's top-left corner in screen coordinates.
TWSTDDLG_API void WriteWndPosition(CWnd* wnd, const char* prefix);
#endif
