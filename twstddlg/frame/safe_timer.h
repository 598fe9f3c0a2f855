// Starting a window's timer with retries.
#pragma once
#include "twstddlg_api.h"

#ifdef _WIN32
class CWnd;

// Starts a timer with identifier 1 on the window, retrying up to 9999 times
// while SetTimer fails; returns the identifier SetTimer gave, 0 on failure.
TWSTDDLG_API UINT_PTR GfxSetSafeTimer(CWnd* wnd, UINT elapse);

// The SetTimer call GfxSetSafeTimer makes.
typedef UINT_PTR(WINAPI* TW_SET_TIMER)(HWND, UINT_PTR, UINT, TIMERPROC);

// Makes GfxSetSafeTimer call `setTimer` (null: the system's SetTimer) and
// returns the one used before. Tests put a failing one in.
TWSTDDLG_API TW_SET_TIMER TwSetTimerSeam(TW_SET_TIMER setTimer);
#endif
