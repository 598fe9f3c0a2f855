#include "frame/safe_timer.h"

#include "frame/safe_timer_seam.h"

#include "afxwin.h"

namespace {

constexpr UINT_PTR kTimerId = 1;
constexpr int kAttemptLimit = 10000;

TW_SET_TIMER g_setTimer = ::SetTimer;

}  // namespace

TW_SET_TIMER TwSetTimerSeam(TW_SET_TIMER setTimer)
{
    const TW_SET_TIMER previous = g_setTimer;
    g_setTimer = setTimer != nullptr ? setTimer : ::SetTimer;
    return previous;
}

UINT_PTR GfxSetSafeTimer(CWnd* wnd, UINT elapse)
{
    for (int attempt = 1; attempt < kAttemptLimit; ++attempt) {
        // Deliberate: every attempt asks for identifier 1; the menu frames
        // kill exactly the identifier returned here.
        if (const UINT_PTR id = g_setTimer(wnd->GetSafeHwnd(), kTimerId, elapse, nullptr))
            return id;
    }
    return 0;
}
