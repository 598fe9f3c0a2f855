// Menus: the object side of an HMENU.
//
// Handle maps: like windows, each thread keeps a permanent map (HMENU -> the
// CMenu that created, loaded or attached it) and a temporary map of CMenu
// objects that FromHandle makes for other menus. Temporary objects are
// deleted at idle time with the other temporaries (AfxDeleteTempMap); do not
// keep their pointers.
#pragma once

#include "afx.h"
#include "afxgdi.h"

class CWnd;

// A menu bar or pop-up menu.
class AFX_API CMenu : public CObject
{
    DECLARE_DYNCREATE(CMenu)

public:
    CMenu();
    // Destroys the menu if the object still owns one.
    ~CMenu() override;

    HMENU m_hMenu;

    operator HMENU() const { return m_hMenu; }
    BOOL operator==(const CMenu& menu) const { return menu.m_hMenu == m_hMenu; }
    BOOL operator!=(const CMenu& menu) const { return menu.m_hMenu != m_hMenu; }
    // m_hMenu, or NULL when called through a NULL pointer.
    HMENU GetSafeHmenu() const;

    // Handle maps.
    static CMenu* PASCAL FromHandle(HMENU hMenu);
    static CMenu* PASCAL FromHandlePermanent(HMENU hMenu);
    // Deletes the calling thread's temporary objects (all kinds).
    static void PASCAL DeleteTempMap();
    BOOL Attach(HMENU hMenu);
    HMENU Detach();

    // Creation and destruction.
    BOOL CreateMenu();
    BOOL CreatePopupMenu();
    // Loads from the module that AfxFindResourceHandle finds for RT_MENU.
    BOOL LoadMenu(LPCTSTR lpszResourceName);
    BOOL LoadMenu(UINT nIDResource);
    BOOL LoadMenuIndirect(const void* lpMenuTemplate);
    BOOL DestroyMenu();

    // Items. nPosition is a command id or, with MF_BYPOSITION, a position.
    BOOL AppendMenu(UINT nFlags, UINT_PTR nIDNewItem = 0, LPCTSTR lpszNewItem = NULL);
    BOOL AppendMenu(UINT nFlags, UINT_PTR nIDNewItem, const CBitmap* pBmp);
    BOOL InsertMenu(UINT nPosition, UINT nFlags, UINT_PTR nIDNewItem = 0, LPCTSTR lpszNewItem = NULL);
    BOOL InsertMenu(UINT nPosition, UINT nFlags, UINT_PTR nIDNewItem, const CBitmap* pBmp);
    BOOL ModifyMenu(UINT nPosition, UINT nFlags, UINT_PTR nIDNewItem = 0, LPCTSTR lpszNewItem = NULL);
    BOOL ModifyMenu(UINT nPosition, UINT nFlags, UINT_PTR nIDNewItem, const CBitmap* pBmp);
    // Takes the item out; a pop-up it opened is kept.
    BOOL RemoveMenu(UINT nPosition, UINT nFlags);
    // Takes the item out and destroys a pop-up it opened.
    BOOL DeleteMenu(UINT nPosition, UINT nFlags);

    // Reading back. GetMenuItemCount gives (UINT)-1 for an invalid menu,
    // GetMenuItemID 0 for a separator and (UINT)-1 for a pop-up.
    UINT GetMenuItemCount() const;
    UINT GetMenuItemID(int nPos) const;
    UINT GetMenuState(UINT nID, UINT nFlags) const;
    int GetMenuString(UINT nIDItem, LPTSTR lpString, int nMaxCount, UINT nFlags) const;
    int GetMenuString(UINT nIDItem, CString& rString, UINT nFlags) const;
    BOOL GetMenuItemInfo(UINT uItem, LPMENUITEMINFO lpMenuItemInfo, BOOL fByPos = FALSE);
    BOOL SetMenuItemInfo(UINT uItem, LPMENUITEMINFO lpMenuItemInfo, BOOL fByPos = FALSE);
    // The pop-up that item nPos opens (a temporary object unless permanent), or NULL.
    CMenu* GetSubMenu(int nPos) const;

    // State. Each returns the previous state, or (UINT)-1.
    UINT CheckMenuItem(UINT nIDCheckItem, UINT nCheck);
    UINT EnableMenuItem(UINT nIDEnableItem, UINT nEnable);
    BOOL CheckMenuRadioItem(UINT nIDFirst, UINT nIDLast, UINT nIDItem, UINT nFlags);
    BOOL SetDefaultItem(UINT uItem, BOOL fByPos = FALSE);
    UINT GetDefaultItem(UINT gmdiFlags, BOOL fByPos = FALSE);

    // Shows the pop-up at (x, y) for pWnd; with TPM_RETURNCMD the chosen
    // command, else nonzero on success.
    BOOL TrackPopupMenu(UINT nFlags, int x, int y, CWnd* pWnd, LPCRECT lpRect = NULL);
    BOOL TrackPopupMenuEx(UINT fuFlags, int x, int y, CWnd* pWnd, LPTPMPARAMS lptpm);

    // Owner-drawn items of a permanent menu: the owner window's
    // WM_DRAWITEM and WM_MEASUREITEM come here.
    virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);
    virtual void MeasureItem(LPMEASUREITEMSTRUCT lpMeasureItemStruct);
};
