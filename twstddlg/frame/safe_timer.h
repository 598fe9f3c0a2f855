// Starting a window's timer with retries.
#pragma once
#include "twstddlg_api.h"

#ifdef _WIN32
class CWnd;

// Starts a timer with identifier 1 on the window, retrying up to 9999 times
// while SetTimer fails; returns the identifier SetTimer gave, 0 on failure.
TWSTDDLG_API UINT_PTR GfxSetSafeTimer(CWnd* wnd, UINT elapse);
#endif
