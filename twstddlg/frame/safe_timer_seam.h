// The SetTimer call of GfxSetSafeTimer, which tests replace.
// Library-internal (not exported).
#pragma once

#include "afxplatform.h"

// The SetTimer call GfxSetSafeTimer makes.
typedef UINT_PTR(WINAPI* TW_SET_TIMER)(HWND, UINT_PTR, UINT, TIMERPROC);

// Makes GfxSetSafeTimer call `setTimer` (null: the system's SetTimer) and
// returns the one used before. Tests put a failing one in.
TW_SET_TIMER TwSetTimerSeam(TW_SET_TIMER setTimer);
