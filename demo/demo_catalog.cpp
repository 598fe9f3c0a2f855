#include "demo_catalog.h"

#include "snapshot.h"

#include <algorithm>
#include <cstdio>

namespace {

std::vector<DemoEntry>& entries()
{
    static std::vector<DemoEntry> all;
    return all;
}

// The modal window the tour is waiting for, and what to do with it.
struct PendingShot
{
    DemoTour* tour = nullptr;
    const char* name = nullptr;
    UINT closeId = IDCANCEL;
    bool saved = false;
    int ticks = 0;
};
PendingShot g_pending;

BOOL CALLBACK findDialog(HWND wnd, LPARAM result)
{
    char cls[32] = {};
    GetClassNameA(wnd, cls, sizeof cls);
    if (IsWindowVisible(wnd) && lstrcmpA(cls, "#32770") == 0) {
        *reinterpret_cast<HWND*>(result) = wnd;
        return FALSE;
    }
    return TRUE;
}

void CALLBACK onTourTimer(HWND, UINT, UINT_PTR id, DWORD)
{
    HWND dialog = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), findDialog, reinterpret_cast<LPARAM>(&dialog));
    if (dialog == nullptr && ++g_pending.ticks < 50)
        return;  // not shown yet; up to 50 ticks of 100 ms
    KillTimer(nullptr, id);
    if (dialog != nullptr) {
        DemoSettle(200);
        g_pending.saved = g_pending.tour->Shot(dialog, g_pending.name);
        PostMessageA(dialog, WM_COMMAND, MAKEWPARAM(g_pending.closeId, BN_CLICKED), 0);
    }
}

}  // namespace

DemoRegistrar::DemoRegistrar(DemoEntry entry)
{
    entries().push_back(std::move(entry));
}

const std::vector<DemoEntry>& DemoEntries()
{
    static const bool sorted = [] {
        std::stable_sort(entries().begin(), entries().end(),
                         [](const DemoEntry& a, const DemoEntry& b) { return lstrcmpA(a.group, b.group) < 0; });
        return true;
    }();
    (void)sorted;
    return entries();
}

void DemoSettle(DWORD ms)
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

bool DemoTour::Shot(HWND wnd, const char* name)
{
    char path[MAX_PATH];
    std::snprintf(path, sizeof path, "%s\\%02d-%s.png", m_folder.c_str(), m_saved + m_failed + 1, name);
    const bool ok = SnapshotWindowToPng(wnd, path);
    (ok ? m_saved : m_failed)++;
    std::printf("%s %s\n", ok ? "saved" : "FAILED", path);
    std::fflush(stdout);
    return ok;
}

bool DemoTour::ShotModal(const char* name, const std::function<void()>& open, UINT closeId)
{
    g_pending = PendingShot{this, name, closeId, false, 0};
    SetTimer(nullptr, 0, 100, onTourTimer);
    open();
    if (!g_pending.saved && g_pending.ticks >= 50) {
        ++m_failed;
        std::printf("FAILED %s (no dialog appeared)\n", name);
    }
    return g_pending.saved;
}
