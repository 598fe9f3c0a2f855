// CWnd's default message handlers: most pass the message on with
// Default(); those of owner-drawn items, colours and scrolling reflect it to
// the control's object first.
#include "wnd_state.h"

int CWnd::OnCreate(LPCREATESTRUCT)
{
    return static_cast<int>(Default());
}

BOOL CWnd::OnNcCreate(LPCREATESTRUCT)
{
    return static_cast<BOOL>(Default());
}

void CWnd::OnDestroy()
{
    Default();
}

void CWnd::OnNcDestroy()
{
    if (CWinThread* pThread = AfxGetThread()) {
        if (pThread->m_pMainWnd == this) {
            // The thread's loop ends with its main window.
            AfxPostQuitMessage(0);
            pThread->m_pMainWnd = nullptr;
        }
        if (pThread->m_pActiveWnd == this)
            pThread->m_pActiveWnd = nullptr;
    }

    Default();
    // Put the saved procedure back only while ours is still the window's;
    // a later subclasser stays in place.
    WNDPROC* lplpfn = GetSuperWndProcAddr();
    if (*lplpfn != nullptr && reinterpret_cast<WNDPROC>(::GetWindowLongPtrA(m_hWnd, GWLP_WNDPROC)) == &AfxWndProc)
        ::SetWindowLongPtrA(m_hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(*lplpfn));
    *lplpfn = nullptr;
    Detach();
    PostNcDestroy();
}

void CWnd::OnClose()
{
    Default();
}
void CWnd::OnSize(UINT, int, int)
{
    Default();
}
void CWnd::OnSizing(UINT, LPRECT)
{
    Default();
}
void CWnd::OnMoving(UINT, LPRECT)
{
    Default();
}
void CWnd::OnMove(int, int)
{
    Default();
}
void CWnd::OnEnterSizeMove()
{
    Default();
}
void CWnd::OnExitSizeMove()
{
    Default();
}
void CWnd::OnPaint()
{
    Default();
}
BOOL CWnd::OnEraseBkgnd(CDC*)
{
    return static_cast<BOOL>(Default());
}
void CWnd::OnTimer(UINT_PTR)
{
    Default();
}
void CWnd::OnKeyDown(UINT, UINT, UINT)
{
    Default();
}
void CWnd::OnKeyUp(UINT, UINT, UINT)
{
    Default();
}
void CWnd::OnChar(UINT, UINT, UINT)
{
    Default();
}
void CWnd::OnSysKeyDown(UINT, UINT, UINT)
{
    Default();
}
void CWnd::OnSysKeyUp(UINT, UINT, UINT)
{
    Default();
}
void CWnd::OnSysChar(UINT, UINT, UINT)
{
    Default();
}
void CWnd::OnLButtonDown(UINT, CPoint)
{
    Default();
}
void CWnd::OnLButtonUp(UINT, CPoint)
{
    Default();
}
void CWnd::OnLButtonDblClk(UINT, CPoint)
{
    Default();
}
void CWnd::OnRButtonDown(UINT, CPoint)
{
    Default();
}
void CWnd::OnRButtonUp(UINT, CPoint)
{
    Default();
}
void CWnd::OnRButtonDblClk(UINT, CPoint)
{
    Default();
}
void CWnd::OnMButtonDown(UINT, CPoint)
{
    Default();
}
void CWnd::OnMButtonUp(UINT, CPoint)
{
    Default();
}
void CWnd::OnMouseMove(UINT, CPoint)
{
    Default();
}
void CWnd::OnMouseHover(UINT, CPoint)
{
    Default();
}
void CWnd::OnMouseLeave()
{
    Default();
}
BOOL CWnd::OnMouseWheel(UINT, short, CPoint)
{
    return static_cast<BOOL>(Default());
}
int CWnd::OnMouseActivate(CWnd*, UINT, UINT)
{
    return static_cast<int>(Default());
}
BOOL CWnd::OnSetCursor(CWnd*, UINT, UINT)
{
    return static_cast<BOOL>(Default());
}
void CWnd::OnSetFocus(CWnd*)
{
    Default();
}
void CWnd::OnKillFocus(CWnd*)
{
    Default();
}
void CWnd::OnEnable(BOOL)
{
    Default();
}
UINT CWnd::OnGetDlgCode()
{
    return static_cast<UINT>(Default());
}

HBRUSH CWnd::OnCtlColor(CDC*, CWnd* pWnd, UINT)
{
    LRESULT lResult = 0;
    if (pWnd != nullptr && ReflectLastMsg(pWnd->m_hWnd, &lResult))
        return reinterpret_cast<HBRUSH>(lResult);
    return reinterpret_cast<HBRUSH>(Default());
}

void CWnd::OnDrawItem(int, LPDRAWITEMSTRUCT lpDrawItemStruct)
{
    if (lpDrawItemStruct->CtlType == ODT_MENU) {
        if (CMenu* pMenu = CMenu::FromHandlePermanent(reinterpret_cast<HMENU>(lpDrawItemStruct->hwndItem))) {
            pMenu->DrawItem(lpDrawItemStruct);
            return;
        }
    } else if (ReflectLastMsg(lpDrawItemStruct->hwndItem)) {
        return;
    }
    Default();
}

void CWnd::OnMeasureItem(int, LPMEASUREITEMSTRUCT lpMeasureItemStruct)
{
    if (lpMeasureItemStruct->CtlType == ODT_MENU) {
        if (CMenu* pMenu = AfxFindPermanentMenuOfItem(lpMeasureItemStruct->itemID)) {
            pMenu->MeasureItem(lpMeasureItemStruct);
            return;
        }
    } else {
        CWnd* pChild = GetDescendantWindow(static_cast<int>(lpMeasureItemStruct->CtlID), TRUE);
        if (pChild != nullptr && pChild->SendChildNotifyLastMsg())
            return;
    }
    Default();
}

int CWnd::OnCompareItem(int, LPCOMPAREITEMSTRUCT lpCompareItemStruct)
{
    LRESULT lResult = 0;
    if (ReflectLastMsg(lpCompareItemStruct->hwndItem, &lResult))
        return static_cast<int>(lResult);
    return static_cast<int>(Default());
}

void CWnd::OnDeleteItem(int, LPDELETEITEMSTRUCT lpDeleteItemStruct)
{
    if (ReflectLastMsg(lpDeleteItemStruct->hwndItem))
        return;
    Default();
}

LRESULT CWnd::OnMenuChar(UINT, UINT, CMenu*)
{
    return Default();
}
void CWnd::OnInitMenu(CMenu*)
{
    Default();
}
void CWnd::OnMenuSelect(UINT, UINT, HMENU)
{
    Default();
}
void CWnd::OnEnterMenuLoop(BOOL)
{
    Default();
}
void CWnd::OnExitMenuLoop(BOOL)
{
    Default();
}
void CWnd::OnEnterIdle(UINT, CWnd*)
{
    Default();
}
void CWnd::OnGetMinMaxInfo(MINMAXINFO*)
{
    Default();
}
BOOL CWnd::OnHelpInfo(HELPINFO*)
{
    return static_cast<BOOL>(Default());
}
void CWnd::OnContextMenu(CWnd*, CPoint)
{
    Default();
}
void CWnd::OnShowWindow(BOOL, UINT)
{
    Default();
}
void CWnd::OnActivate(UINT, CWnd*, BOOL)
{
    Default();
}
void CWnd::OnActivateApp(BOOL, DWORD)
{
    Default();
}
BOOL CWnd::OnNcActivate(BOOL)
{
    return static_cast<BOOL>(Default());
}
LRESULT CWnd::OnNcHitTest(CPoint)
{
    return Default();
}
void CWnd::OnNcPaint()
{
    Default();
}
void CWnd::OnNcCalcSize(BOOL, NCCALCSIZE_PARAMS*)
{
    Default();
}
void CWnd::OnNcLButtonDown(UINT, CPoint)
{
    Default();
}
void CWnd::OnNcLButtonUp(UINT, CPoint)
{
    Default();
}
void CWnd::OnNcLButtonDblClk(UINT, CPoint)
{
    Default();
}
void CWnd::OnNcRButtonDown(UINT, CPoint)
{
    Default();
}
void CWnd::OnNcMouseMove(UINT, CPoint)
{
    Default();
}

void CWnd::OnHScroll(UINT, UINT, CScrollBar*)
{
    const MSG& msg = AfxGetWndThreadState().lastSentMsg;
    if (msg.lParam != 0 && ReflectLastMsg(reinterpret_cast<HWND>(msg.lParam)))
        return;
    Default();
}

void CWnd::OnVScroll(UINT, UINT, CScrollBar*)
{
    const MSG& msg = AfxGetWndThreadState().lastSentMsg;
    if (msg.lParam != 0 && ReflectLastMsg(reinterpret_cast<HWND>(msg.lParam)))
        return;
    Default();
}

void CWnd::OnSysCommand(UINT, LPARAM)
{
    Default();
}
void CWnd::OnWindowPosChanged(WINDOWPOS*)
{
    Default();
}
void CWnd::OnWindowPosChanging(WINDOWPOS*)
{
    Default();
}
void CWnd::OnDropFiles(HDROP)
{
    Default();
}
void CWnd::OnCancelMode()
{
    Default();
}
void CWnd::OnCaptureChanged(CWnd*)
{
    Default();
}
void CWnd::OnSettingChange(UINT, LPCTSTR)
{
    Default();
}
void CWnd::OnWinIniChange(LPCTSTR)
{
    Default();
}
void CWnd::OnSysColorChange()
{
    Default();
}

void CWnd::OnParentNotify(UINT message, LPARAM lParam)
{
    if ((LOWORD(message) == WM_CREATE || LOWORD(message) == WM_DESTROY) &&
        ReflectLastMsg(reinterpret_cast<HWND>(lParam)))
        return;
    Default();
}

HCURSOR CWnd::OnQueryDragIcon()
{
    return reinterpret_cast<HCURSOR>(Default());
}
void CWnd::OnMDIActivate(BOOL, CWnd*, CWnd*)
{
    Default();
}
