// CWnd's common members: thin wrappers of the window functions, styles,
// texts, family relations, geometry, painting, focus, timers, message boxes
// and help.
#include "wnd_state.h"

#include <algorithm>
#include <cstring>

HWND CWnd::GetSafeHwnd() const
{
    return AfxOpaqueAddress(this) == 0 ? nullptr : m_hWnd;
}

DWORD CWnd::GetStyle() const
{
    return static_cast<DWORD>(::GetWindowLongA(m_hWnd, GWL_STYLE));
}

DWORD CWnd::GetExStyle() const
{
    return static_cast<DWORD>(::GetWindowLongA(m_hWnd, GWL_EXSTYLE));
}

namespace {

BOOL ModifyStyleOf(HWND hWnd, int nStyleOffset, DWORD dwRemove, DWORD dwAdd, UINT nFlags)
{
    const DWORD dwStyle = static_cast<DWORD>(::GetWindowLongA(hWnd, nStyleOffset));
    const DWORD dwNewStyle = (dwStyle & ~dwRemove) | dwAdd;
    if (dwStyle == dwNewStyle)
        return FALSE;
    ::SetWindowLongA(hWnd, nStyleOffset, static_cast<LONG>(dwNewStyle));
    if (nFlags != 0)
        ::SetWindowPos(hWnd, nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | nFlags);
    return TRUE;
}

}  // namespace

BOOL PASCAL CWnd::ModifyStyle(HWND hWnd, DWORD dwRemove, DWORD dwAdd, UINT nFlags)
{
    return ModifyStyleOf(hWnd, GWL_STYLE, dwRemove, dwAdd, nFlags);
}

BOOL PASCAL CWnd::ModifyStyleEx(HWND hWnd, DWORD dwRemove, DWORD dwAdd, UINT nFlags)
{
    return ModifyStyleOf(hWnd, GWL_EXSTYLE, dwRemove, dwAdd, nFlags);
}

BOOL CWnd::ModifyStyle(DWORD dwRemove, DWORD dwAdd, UINT nFlags)
{
    return ModifyStyleOf(m_hWnd, GWL_STYLE, dwRemove, dwAdd, nFlags);
}

BOOL CWnd::ModifyStyleEx(DWORD dwRemove, DWORD dwAdd, UINT nFlags)
{
    return ModifyStyleOf(m_hWnd, GWL_EXSTYLE, dwRemove, dwAdd, nFlags);
}

LRESULT CWnd::SendMessage(UINT message, WPARAM wParam, LPARAM lParam) const
{
    return ::SendMessageA(m_hWnd, message, wParam, lParam);
}

BOOL CWnd::PostMessage(UINT message, WPARAM wParam, LPARAM lParam) const
{
    return ::PostMessageA(m_hWnd, message, wParam, lParam);
}

LRESULT CWnd::SendDlgItemMessage(int nID, UINT message, WPARAM wParam, LPARAM lParam) const
{
    return ::SendDlgItemMessageA(m_hWnd, nID, message, wParam, lParam);
}

namespace {

void SendToDescendants(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam, BOOL bDeep, BOOL bOnlyPerm)
{
    for (HWND hWndChild = ::GetTopWindow(hWnd); hWndChild != nullptr; hWndChild = ::GetWindow(hWndChild, GW_HWNDNEXT)) {
        if (bOnlyPerm) {
            if (CWnd* pWnd = CWnd::FromHandlePermanent(hWndChild))
                AfxCallWndProc(pWnd, hWndChild, message, wParam, lParam);
        } else {
            ::SendMessageA(hWndChild, message, wParam, lParam);
        }
        if (bDeep && ::GetTopWindow(hWndChild) != nullptr)
            SendToDescendants(hWndChild, message, wParam, lParam, bDeep, bOnlyPerm);
    }
}

}  // namespace

void CWnd::SendMessageToDescendants(UINT message, WPARAM wParam, LPARAM lParam, BOOL bDeep, BOOL bOnlyPerm)
{
    SendToDescendants(m_hWnd, message, wParam, lParam, bDeep, bOnlyPerm);
}

void CWnd::SetWindowText(LPCTSTR lpszString)
{
    ::SetWindowTextA(m_hWnd, lpszString);
}

int CWnd::GetWindowText(LPTSTR lpszStringBuf, int nMaxCount) const
{
    return ::GetWindowTextA(m_hWnd, lpszStringBuf, nMaxCount);
}

void CWnd::GetWindowText(CString& rString) const
{
    const int nLen = ::GetWindowTextLengthA(m_hWnd);
    const int nCopied = ::GetWindowTextA(m_hWnd, rString.GetBufferSetLength(nLen), nLen + 1);
    rString.ReleaseBuffer(nCopied);
}

int CWnd::GetWindowTextLength() const
{
    return ::GetWindowTextLengthA(m_hWnd);
}

void CWnd::SetFont(CFont* pFont, BOOL bRedraw)
{
    SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(pFont != nullptr ? pFont->m_hObject : nullptr), bRedraw);
}

CFont* CWnd::GetFont() const
{
    const auto hFont = reinterpret_cast<HFONT>(SendMessage(WM_GETFONT, 0, 0));
    return hFont != nullptr ? CFont::FromHandle(hFont) : nullptr;
}

CWnd* CWnd::GetDlgItem(int nID) const
{
    return FromHandle(::GetDlgItem(m_hWnd, nID));
}

void CWnd::GetDlgItem(int nID, HWND* phWnd) const
{
    *phWnd = ::GetDlgItem(m_hWnd, nID);
}

int CWnd::GetDlgCtrlID() const
{
    return ::GetDlgCtrlID(m_hWnd);
}

int CWnd::SetDlgCtrlID(int nID)
{
    return static_cast<int>(::SetWindowLongPtrA(m_hWnd, GWLP_ID, nID));
}

void CWnd::SetDlgItemText(int nID, LPCTSTR lpszString)
{
    ::SetDlgItemTextA(m_hWnd, nID, lpszString);
}

int CWnd::GetDlgItemText(int nID, LPTSTR lpStr, int nMaxCount) const
{
    return static_cast<int>(::GetDlgItemTextA(m_hWnd, nID, lpStr, nMaxCount));
}

int CWnd::GetDlgItemText(int nID, CString& rString) const
{
    rString.Empty();
    const HWND hWndItem = ::GetDlgItem(m_hWnd, nID);
    if (hWndItem == nullptr)
        return 0;
    const int nLen = ::GetWindowTextLengthA(hWndItem);
    const int nCopied = ::GetWindowTextA(hWndItem, rString.GetBufferSetLength(nLen), nLen + 1);
    rString.ReleaseBuffer(nCopied);
    return rString.GetLength();
}

void CWnd::SetDlgItemInt(int nID, UINT nValue, BOOL bSigned)
{
    ::SetDlgItemInt(m_hWnd, nID, nValue, bSigned);
}

UINT CWnd::GetDlgItemInt(int nID, BOOL* lpTrans, BOOL bSigned) const
{
    return ::GetDlgItemInt(m_hWnd, nID, lpTrans, bSigned);
}

void CWnd::CheckDlgButton(int nIDButton, UINT nCheck)
{
    ::CheckDlgButton(m_hWnd, nIDButton, nCheck);
}

UINT CWnd::IsDlgButtonChecked(int nIDButton) const
{
    return ::IsDlgButtonChecked(m_hWnd, nIDButton);
}

void CWnd::CheckRadioButton(int nIDFirstButton, int nIDLastButton, int nIDCheckButton)
{
    ::CheckRadioButton(m_hWnd, nIDFirstButton, nIDLastButton, nIDCheckButton);
}

int CWnd::GetCheckedRadioButton(int nIDFirstButton, int nIDLastButton)
{
    for (int nID = nIDFirstButton; nID <= nIDLastButton; ++nID) {
        if (::IsDlgButtonChecked(m_hWnd, nID))
            return nID;
    }
    return 0;
}

CWnd* CWnd::GetNextDlgTabItem(CWnd* pWndCtl, BOOL bPrevious) const
{
    return FromHandle(::GetNextDlgTabItem(m_hWnd, pWndCtl->GetSafeHwnd(), bPrevious));
}

CWnd* CWnd::GetNextDlgGroupItem(CWnd* pWndCtl, BOOL bPrevious) const
{
    return FromHandle(::GetNextDlgGroupItem(m_hWnd, pWndCtl->GetSafeHwnd(), bPrevious));
}

namespace {

CWnd* FindDescendant(HWND hWnd, int nID, BOOL bOnlyPerm)
{
    for (HWND hWndChild = ::GetTopWindow(hWnd); hWndChild != nullptr; hWndChild = ::GetWindow(hWndChild, GW_HWNDNEXT)) {
        if (static_cast<WORD>(::GetDlgCtrlID(hWndChild)) == static_cast<WORD>(nID)) {
            if (!bOnlyPerm || CWnd::FromHandlePermanent(hWndChild) != nullptr)
                return CWnd::FromHandle(hWndChild);
        }
        if (::GetTopWindow(hWndChild) != nullptr) {
            if (CWnd* pWnd = FindDescendant(hWndChild, nID, bOnlyPerm))
                return pWnd;
        }
    }
    return nullptr;
}

// The parent of a child, the owner of anything else.
HWND ParentOrOwner(HWND hWnd)
{
    if (::GetWindowLongA(hWnd, GWL_STYLE) & WS_CHILD)
        return ::GetParent(hWnd);
    return ::GetWindow(hWnd, GW_OWNER);
}

}  // namespace

CWnd* CWnd::GetDescendantWindow(int nID, BOOL bOnlyPerm) const
{
    return FindDescendant(m_hWnd, nID, bOnlyPerm);
}

CWnd* CWnd::GetParent() const
{
    if (!::IsWindow(m_hWnd))
        return nullptr;
    return FromHandle(::GetParent(m_hWnd));
}

CWnd* CWnd::SetParent(CWnd* pWndNewParent)
{
    return FromHandle(::SetParent(m_hWnd, pWndNewParent->GetSafeHwnd()));
}

CWnd* CWnd::GetOwner() const
{
    return m_hWndOwner != nullptr ? FromHandle(m_hWndOwner) : GetParent();
}

void CWnd::SetOwner(CWnd* pOwnerWnd)
{
    m_hWndOwner = pOwnerWnd->GetSafeHwnd();
}

CWnd* CWnd::GetTopLevelParent() const
{
    if (m_hWnd == nullptr)
        return nullptr;
    HWND hWndTop = m_hWnd;
    for (HWND hWnd = ParentOrOwner(hWndTop); hWnd != nullptr; hWnd = ParentOrOwner(hWndTop))
        hWndTop = hWnd;
    return FromHandle(hWndTop);
}

CWnd* CWnd::GetTopLevelOwner() const
{
    if (m_hWnd == nullptr)
        return nullptr;
    HWND hWndOwner = m_hWnd;
    for (HWND hWnd = ::GetWindow(hWndOwner, GW_OWNER); hWnd != nullptr; hWnd = ::GetWindow(hWndOwner, GW_OWNER))
        hWndOwner = hWnd;
    return FromHandle(hWndOwner);
}

CWnd* CWnd::GetWindow(UINT nCmd) const
{
    return FromHandle(::GetWindow(m_hWnd, nCmd));
}

BOOL CWnd::IsChild(const CWnd* pWnd) const
{
    return ::IsChild(m_hWnd, pWnd->GetSafeHwnd());
}

BOOL CWnd::ShowWindow(int nCmdShow)
{
    return ::ShowWindow(m_hWnd, nCmdShow);
}

BOOL CWnd::IsWindowVisible() const
{
    return ::IsWindowVisible(m_hWnd);
}

BOOL CWnd::EnableWindow(BOOL bEnable)
{
    return ::EnableWindow(m_hWnd, bEnable);
}

BOOL CWnd::IsWindowEnabled() const
{
    return ::IsWindowEnabled(m_hWnd);
}

BOOL CWnd::IsIconic() const
{
    return ::IsIconic(m_hWnd);
}

BOOL CWnd::IsZoomed() const
{
    return ::IsZoomed(m_hWnd);
}

void CWnd::SetRedraw(BOOL bRedraw)
{
    SendMessage(WM_SETREDRAW, bRedraw, 0);
}

void CWnd::MoveWindow(int x, int y, int nWidth, int nHeight, BOOL bRepaint)
{
    ::MoveWindow(m_hWnd, x, y, nWidth, nHeight, bRepaint);
}

void CWnd::MoveWindow(LPCRECT lpRect, BOOL bRepaint)
{
    MoveWindow(lpRect->left, lpRect->top, lpRect->right - lpRect->left, lpRect->bottom - lpRect->top, bRepaint);
}

HICON CWnd::SetIcon(HICON hIcon, BOOL bBigIcon)
{
    return reinterpret_cast<HICON>(
        SendMessage(WM_SETICON, bBigIcon ? ICON_BIG : ICON_SMALL, reinterpret_cast<LPARAM>(hIcon)));
}

HICON CWnd::GetIcon(BOOL bBigIcon) const
{
    return reinterpret_cast<HICON>(SendMessage(WM_GETICON, bBigIcon ? ICON_BIG : ICON_SMALL, 0));
}

BOOL CWnd::SetWindowPos(const CWnd* pWndInsertAfter, int x, int y, int cx, int cy, UINT nFlags)
{
    return ::SetWindowPos(m_hWnd, pWndInsertAfter->GetSafeHwnd(), x, y, cx, cy, nFlags);
}

void CWnd::GetWindowRect(LPRECT lpRect) const
{
    ::GetWindowRect(m_hWnd, lpRect);
}

void CWnd::GetClientRect(LPRECT lpRect) const
{
    ::GetClientRect(m_hWnd, lpRect);
}

void CWnd::ClientToScreen(LPPOINT lpPoint) const
{
    ::ClientToScreen(m_hWnd, lpPoint);
}

void CWnd::ClientToScreen(LPRECT lpRect) const
{
    ::ClientToScreen(m_hWnd, reinterpret_cast<LPPOINT>(&lpRect->left));
    ::ClientToScreen(m_hWnd, reinterpret_cast<LPPOINT>(&lpRect->right));
}

void CWnd::ScreenToClient(LPPOINT lpPoint) const
{
    ::ScreenToClient(m_hWnd, lpPoint);
}

void CWnd::ScreenToClient(LPRECT lpRect) const
{
    ::ScreenToClient(m_hWnd, reinterpret_cast<LPPOINT>(&lpRect->left));
    ::ScreenToClient(m_hWnd, reinterpret_cast<LPPOINT>(&lpRect->right));
}

BOOL CWnd::GetWindowPlacement(WINDOWPLACEMENT* lpwndpl) const
{
    lpwndpl->length = sizeof(WINDOWPLACEMENT);
    return ::GetWindowPlacement(m_hWnd, lpwndpl);
}

BOOL CWnd::SetWindowPlacement(const WINDOWPLACEMENT* lpwndpl)
{
    WINDOWPLACEMENT wp = *lpwndpl;
    wp.length = sizeof(WINDOWPLACEMENT);
    return ::SetWindowPlacement(m_hWnd, &wp);
}

void CWnd::CenterWindow(CWnd* pAlternateOwner)
{
    const DWORD dwStyle = GetStyle();
    HWND hWndCenter = pAlternateOwner->GetSafeHwnd();
    if (pAlternateOwner == nullptr)
        hWndCenter = (dwStyle & WS_CHILD) ? ::GetParent(m_hWnd) : ::GetWindow(m_hWnd, GW_OWNER);

    CRect rcDlg;
    GetWindowRect(&rcDlg);
    CRect rcArea;
    CRect rcCenter;
    if ((dwStyle & WS_CHILD) == 0) {
        // Never centre over a hidden or minimised owner.
        if (hWndCenter != nullptr) {
            const DWORD dwCenterStyle = static_cast<DWORD>(::GetWindowLongA(hWndCenter, GWL_STYLE));
            if ((dwCenterStyle & WS_VISIBLE) == 0 || (dwCenterStyle & WS_MINIMIZE) != 0)
                hWndCenter = nullptr;
        }
        MONITORINFO mi = {};
        mi.cbSize = sizeof(mi);
        ::GetMonitorInfoA(::MonitorFromWindow(hWndCenter != nullptr ? hWndCenter : m_hWnd, MONITOR_DEFAULTTOPRIMARY),
                          &mi);
        rcArea = mi.rcWork;
        if (hWndCenter == nullptr)
            rcCenter = rcArea;
        else
            ::GetWindowRect(hWndCenter, &rcCenter);
    } else {
        const HWND hWndParent = ::GetParent(m_hWnd);
        ::GetClientRect(hWndParent, &rcArea);
        ::GetClientRect(hWndCenter, &rcCenter);
        ::MapWindowPoints(hWndCenter, hWndParent, reinterpret_cast<LPPOINT>(&rcCenter), 2);
    }

    int xLeft = (rcCenter.left + rcCenter.right) / 2 - rcDlg.Width() / 2;
    int yTop = (rcCenter.top + rcCenter.bottom) / 2 - rcDlg.Height() / 2;
    xLeft = std::max<int>(rcArea.left, std::min<int>(xLeft, rcArea.right - rcDlg.Width()));
    yTop = std::max<int>(rcArea.top, std::min<int>(yTop, rcArea.bottom - rcDlg.Height()));
    ::SetWindowPos(m_hWnd, nullptr, xLeft, yTop, -1, -1, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void CWnd::BringWindowToTop()
{
    ::BringWindowToTop(m_hWnd);
}

void CWnd::Invalidate(BOOL bErase)
{
    ::InvalidateRect(m_hWnd, nullptr, bErase);
}

void CWnd::InvalidateRect(LPCRECT lpRect, BOOL bErase)
{
    ::InvalidateRect(m_hWnd, lpRect, bErase);
}

void CWnd::ValidateRect(LPCRECT lpRect)
{
    ::ValidateRect(m_hWnd, lpRect);
}

void CWnd::UpdateWindow()
{
    ::UpdateWindow(m_hWnd);
}

BOOL CWnd::RedrawWindow(LPCRECT lpRectUpdate, CRgn* prgnUpdate, UINT flags)
{
    return ::RedrawWindow(m_hWnd, lpRectUpdate,
                          prgnUpdate != nullptr ? static_cast<HRGN>(prgnUpdate->m_hObject) : nullptr, flags);
}

CDC* CWnd::GetDC()
{
    return CDC::FromHandle(::GetDC(m_hWnd));
}

CDC* CWnd::GetWindowDC()
{
    return CDC::FromHandle(::GetWindowDC(m_hWnd));
}

int CWnd::ReleaseDC(CDC* pDC)
{
    return ::ReleaseDC(m_hWnd, pDC->GetSafeHdc());
}

CWnd* CWnd::SetFocus()
{
    return FromHandle(::SetFocus(m_hWnd));
}

CWnd* PASCAL CWnd::GetFocus()
{
    return FromHandle(::GetFocus());
}

CWnd* PASCAL CWnd::GetActiveWindow()
{
    return FromHandle(::GetActiveWindow());
}

CWnd* PASCAL CWnd::GetForegroundWindow()
{
    return FromHandle(::GetForegroundWindow());
}

CWnd* PASCAL CWnd::GetDesktopWindow()
{
    return FromHandle(::GetDesktopWindow());
}

CWnd* PASCAL CWnd::GetCapture()
{
    return FromHandle(::GetCapture());
}

CWnd* PASCAL CWnd::FindWindow(LPCTSTR lpszClassName, LPCTSTR lpszWindowName)
{
    return FromHandle(::FindWindowA(lpszClassName, lpszWindowName));
}

CWnd* CWnd::SetActiveWindow()
{
    return FromHandle(::SetActiveWindow(m_hWnd));
}

CWnd* CWnd::SetCapture()
{
    return FromHandle(::SetCapture(m_hWnd));
}

BOOL CWnd::SetForegroundWindow()
{
    return ::SetForegroundWindow(m_hWnd);
}

UINT_PTR CWnd::SetTimer(UINT_PTR nIDEvent, UINT nElapse, void(CALLBACK* lpfnTimer)(HWND, UINT, UINT_PTR, DWORD))
{
    return ::SetTimer(m_hWnd, nIDEvent, nElapse, lpfnTimer);
}

BOOL CWnd::KillTimer(UINT_PTR nIDEvent)
{
    return ::KillTimer(m_hWnd, nIDEvent);
}

int CWnd::MessageBox(LPCTSTR lpszText, LPCTSTR lpszCaption, UINT nType)
{
    if (lpszCaption == nullptr)
        lpszCaption = AfxGetAppName();
    return ::MessageBoxA(GetSafeHwnd(), lpszText, lpszCaption, nType);
}

void CWnd::WinHelp(DWORD_PTR dwData, UINT nCmd)
{
    // The application's WinHelp is the one place that opens help.
    if (CWinApp* pApp = AfxGetApp())
        pApp->WinHelp(dwData, nCmd);
    else
        ::WinHelpA(m_hWnd, nullptr, nCmd, dwData);
}
