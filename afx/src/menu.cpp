// CMenu, the menu members of CWnd and the update of pop-up items through
// ON_UPDATE_COMMAND_UI handlers.
#include "wnd_state.h"

#include <cstdint>
#include <vector>

IMPLEMENT_DYNCREATE(CMenu, CObject)

namespace {

LPCSTR BitmapItem(const CBitmap* pBmp)
{
    return reinterpret_cast<LPCSTR>(pBmp != nullptr ? pBmp->GetSafeHandle() : nullptr);
}

}  // namespace

void AfxDeleteMenuTempMap(AfxWndThreadState& state)
{
    auto temporary = std::move(state.menus.temporary);
    state.menus.temporary.clear();
    for (auto& entry : temporary) {
        entry.second->m_hMenu = nullptr;
        delete entry.second;
    }
}

CMenu* AfxFindPermanentMenuOfItem(UINT nID)
{
    for (const auto& entry : AfxGetWndThreadState().menus.permanent) {
        const int count = ::GetMenuItemCount(entry.first);
        for (int i = 0; i < count; ++i) {
            if (::GetMenuItemID(entry.first, i) == nID)
                return entry.second;
        }
    }
    return nullptr;
}

// ---- CMenu: handle maps ----

CMenu::CMenu() : m_hMenu(nullptr) {}

CMenu::~CMenu()
{
    DestroyMenu();
}

HMENU CMenu::GetSafeHmenu() const
{
    return AfxOpaqueAddress(this) == 0 ? nullptr : m_hMenu;
}

CMenu* PASCAL CMenu::FromHandle(HMENU hMenu)
{
    if (hMenu == nullptr)
        return nullptr;
    AfxWndThreadState& state = AfxGetWndThreadState();
    if (CMenu* pMenu = state.menus.LookupPermanent(hMenu))
        return pMenu;
    CMenu*& temp = state.menus.temporary[hMenu];
    if (temp == nullptr)
        temp = new CMenu;
    temp->m_hMenu = hMenu;
    return temp;
}

CMenu* PASCAL CMenu::FromHandlePermanent(HMENU hMenu)
{
    if (hMenu == nullptr)
        return nullptr;
    return AfxGetWndThreadState().menus.LookupPermanent(hMenu);
}

void PASCAL CMenu::DeleteTempMap()
{
    AfxDeleteTempMap();
}

BOOL CMenu::Attach(HMENU hMenu)
{
    if (hMenu == nullptr || m_hMenu != nullptr)
        return FALSE;
    m_hMenu = hMenu;
    AfxGetWndThreadState().menus.permanent[hMenu] = this;
    return TRUE;
}

HMENU CMenu::Detach()
{
    const HMENU hMenu = m_hMenu;
    if (hMenu != nullptr) {
        auto& permanent = AfxGetWndThreadState().menus.permanent;
        auto it = permanent.find(hMenu);
        if (it != permanent.end() && it->second == this)
            permanent.erase(it);
    }
    m_hMenu = nullptr;
    return hMenu;
}

// ---- CMenu: creation ----

BOOL CMenu::CreateMenu()
{
    return Attach(::CreateMenu());
}

BOOL CMenu::CreatePopupMenu()
{
    return Attach(::CreatePopupMenu());
}

BOOL CMenu::LoadMenu(LPCTSTR lpszResourceName)
{
    const HINSTANCE hInst = AfxFindResourceHandle(lpszResourceName, RT_MENU);
    return Attach(::LoadMenuA(hInst, lpszResourceName));
}

BOOL CMenu::LoadMenu(UINT nIDResource)
{
    return LoadMenu(MAKEINTRESOURCEA(nIDResource));
}

BOOL CMenu::LoadMenuIndirect(const void* lpMenuTemplate)
{
    return Attach(::LoadMenuIndirectA(static_cast<const MENUTEMPLATEA*>(lpMenuTemplate)));
}

BOOL CMenu::DestroyMenu()
{
    if (m_hMenu == nullptr)
        return FALSE;
    return ::DestroyMenu(Detach());
}

// ---- CMenu: items ----

BOOL CMenu::AppendMenu(UINT nFlags, UINT_PTR nIDNewItem, LPCTSTR lpszNewItem)
{
    return ::AppendMenuA(m_hMenu, nFlags, nIDNewItem, lpszNewItem);
}

BOOL CMenu::AppendMenu(UINT nFlags, UINT_PTR nIDNewItem, const CBitmap* pBmp)
{
    return ::AppendMenuA(m_hMenu, nFlags | MF_BITMAP, nIDNewItem, BitmapItem(pBmp));
}

BOOL CMenu::InsertMenu(UINT nPosition, UINT nFlags, UINT_PTR nIDNewItem, LPCTSTR lpszNewItem)
{
    return ::InsertMenuA(m_hMenu, nPosition, nFlags, nIDNewItem, lpszNewItem);
}

BOOL CMenu::InsertMenu(UINT nPosition, UINT nFlags, UINT_PTR nIDNewItem, const CBitmap* pBmp)
{
    return ::InsertMenuA(m_hMenu, nPosition, nFlags | MF_BITMAP, nIDNewItem, BitmapItem(pBmp));
}

BOOL CMenu::ModifyMenu(UINT nPosition, UINT nFlags, UINT_PTR nIDNewItem, LPCTSTR lpszNewItem)
{
    return ::ModifyMenuA(m_hMenu, nPosition, nFlags, nIDNewItem, lpszNewItem);
}

BOOL CMenu::ModifyMenu(UINT nPosition, UINT nFlags, UINT_PTR nIDNewItem, const CBitmap* pBmp)
{
    return ::ModifyMenuA(m_hMenu, nPosition, nFlags | MF_BITMAP, nIDNewItem, BitmapItem(pBmp));
}

BOOL CMenu::RemoveMenu(UINT nPosition, UINT nFlags)
{
    return ::RemoveMenu(m_hMenu, nPosition, nFlags);
}

BOOL CMenu::DeleteMenu(UINT nPosition, UINT nFlags)
{
    return ::DeleteMenu(m_hMenu, nPosition, nFlags);
}

UINT CMenu::GetMenuItemCount() const
{
    return static_cast<UINT>(::GetMenuItemCount(m_hMenu));
}

UINT CMenu::GetMenuItemID(int nPos) const
{
    return ::GetMenuItemID(m_hMenu, nPos);
}

UINT CMenu::GetMenuState(UINT nID, UINT nFlags) const
{
    return ::GetMenuState(m_hMenu, nID, nFlags);
}

int CMenu::GetMenuString(UINT nIDItem, LPTSTR lpString, int nMaxCount, UINT nFlags) const
{
    return ::GetMenuStringA(m_hMenu, nIDItem, lpString, nMaxCount, nFlags);
}

int CMenu::GetMenuString(UINT nIDItem, CString& rString, UINT nFlags) const
{
    const int length = ::GetMenuStringA(m_hMenu, nIDItem, nullptr, 0, nFlags);
    if (length <= 0) {
        rString.Empty();
        return 0;
    }
    std::vector<char> buffer(static_cast<size_t>(length) + 1);
    const int copied = ::GetMenuStringA(m_hMenu, nIDItem, buffer.data(), length + 1, nFlags);
    rString = CString(buffer.data(), copied);
    return copied;
}

BOOL CMenu::GetMenuItemInfo(UINT uItem, LPMENUITEMINFO lpMenuItemInfo, BOOL fByPos)
{
    return ::GetMenuItemInfoA(m_hMenu, uItem, fByPos, lpMenuItemInfo);
}

BOOL CMenu::SetMenuItemInfo(UINT uItem, LPMENUITEMINFO lpMenuItemInfo, BOOL fByPos)
{
    return ::SetMenuItemInfoA(m_hMenu, uItem, fByPos, lpMenuItemInfo);
}

CMenu* CMenu::GetSubMenu(int nPos) const
{
    return FromHandle(::GetSubMenu(m_hMenu, nPos));
}

UINT CMenu::CheckMenuItem(UINT nIDCheckItem, UINT nCheck)
{
    return static_cast<UINT>(::CheckMenuItem(m_hMenu, nIDCheckItem, nCheck));
}

UINT CMenu::EnableMenuItem(UINT nIDEnableItem, UINT nEnable)
{
    return static_cast<UINT>(::EnableMenuItem(m_hMenu, nIDEnableItem, nEnable));
}

BOOL CMenu::CheckMenuRadioItem(UINT nIDFirst, UINT nIDLast, UINT nIDItem, UINT nFlags)
{
    return ::CheckMenuRadioItem(m_hMenu, nIDFirst, nIDLast, nIDItem, nFlags);
}

BOOL CMenu::SetDefaultItem(UINT uItem, BOOL fByPos)
{
    return ::SetMenuDefaultItem(m_hMenu, uItem, fByPos);
}

UINT CMenu::GetDefaultItem(UINT gmdiFlags, BOOL fByPos)
{
    return ::GetMenuDefaultItem(m_hMenu, fByPos, gmdiFlags);
}

BOOL CMenu::TrackPopupMenu(UINT nFlags, int x, int y, CWnd* pWnd, LPCRECT lpRect)
{
    return ::TrackPopupMenu(m_hMenu, nFlags, x, y, 0, pWnd->GetSafeHwnd(), lpRect);
}

BOOL CMenu::TrackPopupMenuEx(UINT fuFlags, int x, int y, CWnd* pWnd, LPTPMPARAMS lptpm)
{
    return ::TrackPopupMenuEx(m_hMenu, fuFlags, x, y, pWnd->GetSafeHwnd(), lptpm);
}

void CMenu::DrawItem(LPDRAWITEMSTRUCT) {}

void CMenu::MeasureItem(LPMEASUREITEMSTRUCT) {}

// ---- CWnd: menus ----

BOOL CWnd::SetMenu(CMenu* pMenu)
{
    return ::SetMenu(m_hWnd, pMenu != nullptr ? pMenu->m_hMenu : nullptr);
}

CMenu* CWnd::GetMenu() const
{
    return CMenu::FromHandle(::GetMenu(m_hWnd));
}

CMenu* CWnd::GetSystemMenu(BOOL bRevert) const
{
    return CMenu::FromHandle(::GetSystemMenu(m_hWnd, bRevert));
}

void CWnd::DrawMenuBar()
{
    ::DrawMenuBar(m_hWnd);
}

void CWnd::OnInitMenuPopup(CMenu* pPopupMenu, UINT, BOOL bSysMenu)
{
    Default();
    if (bSysMenu || pPopupMenu == nullptr)
        return;
    CCmdUI state;
    state.m_pMenu = pPopupMenu;
    state.m_nIndexMax = pPopupMenu->GetMenuItemCount();
    for (state.m_nIndex = 0; state.m_nIndex < state.m_nIndexMax; ++state.m_nIndex) {
        state.m_nID = pPopupMenu->GetMenuItemID(static_cast<int>(state.m_nIndex));
        // Separators and pop-up items have no command of their own.
        if (state.m_nID == 0 || state.m_nID == static_cast<UINT>(-1))
            continue;
        state.DoUpdate(this, FALSE);
        // A handler may have removed items; the loop goes on after them.
        const UINT count = pPopupMenu->GetMenuItemCount();
        if (count < state.m_nIndexMax) {
            state.m_nIndex -= state.m_nIndexMax - count;
            state.m_nIndexMax = count;
        }
    }
}
