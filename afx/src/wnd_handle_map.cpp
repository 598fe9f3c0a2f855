// Handle maps of the window layer: the thread's state, the permanent CWnd
// objects of windows made or subclassed through the framework and the
// temporary ones made for other windows, deleted at idle time.
#include "wnd_state.h"

namespace {

thread_local AfxWndThreadState* t_state = nullptr;

}  // namespace

AfxWndThreadState& AfxGetWndThreadState()
{
    if (t_state == nullptr)
        t_state = new AfxWndThreadState;
    return *t_state;
}

CWnd* PASCAL CWnd::FromHandlePermanent(HWND hWnd)
{
    if (hWnd == nullptr)
        return nullptr;
    return AfxGetWndThreadState().windows.LookupPermanent(hWnd);
}

CWnd* PASCAL CWnd::FromHandle(HWND hWnd)
{
    if (hWnd == nullptr)
        return nullptr;
    AfxWndThreadState& state = AfxGetWndThreadState();
    if (CWnd* pWnd = state.windows.LookupPermanent(hWnd))
        return pWnd;
    CWnd*& temp = state.windows.temporary[hWnd];
    if (temp == nullptr)
        temp = new CWnd;
    temp->m_hWnd = hWnd;
    return temp;
}

void PASCAL CWnd::DeleteTempMap()
{
    AfxDeleteTempMap();
}

void AfxDeleteTempMap()
{
    AfxWndThreadState& state = AfxGetWndThreadState();
    if (state.nTempMapLock > 0)
        return;
    auto temporary = std::move(state.windows.temporary);
    state.windows.temporary.clear();
    for (auto& entry : temporary) {
        entry.second->m_hWnd = nullptr;
        delete entry.second;
    }
    AfxDeleteGdiTempMaps(state);
    AfxDeleteMenuTempMap(state);
    AfxDeleteImageListTempMap(state);
}

void AfxLockTempMaps()
{
    ++AfxGetWndThreadState().nTempMapLock;
}

BOOL AfxUnlockTempMaps(BOOL bDeleteTemps)
{
    AfxWndThreadState& state = AfxGetWndThreadState();
    if (state.nTempMapLock > 0 && --state.nTempMapLock == 0 && bDeleteTemps) {
        AfxDeleteTempMap();
        return TRUE;
    }
    return FALSE;
}

INT_PTR AfxGetTempObjectCount()
{
    const AfxWndThreadState& state = AfxGetWndThreadState();
    return static_cast<INT_PTR>(state.windows.temporary.size() + state.dcs.temporary.size() +
                                state.gdiObjects.temporary.size() + state.menus.temporary.size() +
                                state.imageLists.temporary.size());
}

BOOL CWnd::Attach(HWND hWndNew)
{
    if (hWndNew == nullptr)
        return FALSE;
    AfxGetWndThreadState().windows.permanent[hWndNew] = this;
    m_hWnd = hWndNew;
    return TRUE;
}

HWND CWnd::Detach()
{
    const HWND hWnd = m_hWnd;
    if (hWnd != nullptr) {
        auto& permanent = AfxGetWndThreadState().windows.permanent;
        auto it = permanent.find(hWnd);
        if (it != permanent.end() && it->second == this)
            permanent.erase(it);
    }
    m_hWnd = nullptr;
    return hWnd;
}
