// Command routing and reflection: WM_COMMAND and WM_NOTIFY to the command
// targets, control notifications reflected to the control's own object,
// pre-translation along the parent chain and the update of dialog controls
// from command UI handlers.
#include "wnd_state.h"

namespace {

// Disabled-command check of menu and accelerator commands.
class CTestCmdUI : public CCmdUI
{
public:
    BOOL m_bEnabled = TRUE;
    void Enable(BOOL bOn) override
    {
        m_bEnabled = bOn;
        m_bEnableChanged = TRUE;
    }
    void SetCheck(int) override {}
    void SetRadio(BOOL) override {}
    void SetText(LPCTSTR) override {}
};

}  // namespace

BOOL AfxReflectToChild(HWND hWndChild, UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    CWnd* pChild = CWnd::FromHandlePermanent(hWndChild);
    if (pChild == nullptr)
        return FALSE;
    return pChild->OnChildNotify(message, wParam, lParam, pResult);
}

BOOL CWnd::OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo)
{
    return CCmdTarget::OnCmdMsg(nID, nCode, pExtra, pHandlerInfo);
}

BOOL CWnd::OnCommand(WPARAM wParam, LPARAM lParam)
{
    const UINT nID = LOWORD(wParam);
    const HWND hWndCtrl = reinterpret_cast<HWND>(lParam);
    int nCode = HIWORD(wParam);

    if (hWndCtrl == nullptr) {
        // A menu or accelerator command: a disabled command is eaten.
        if (nID == 0)
            return FALSE;
        CTestCmdUI state;
        state.m_nID = nID;
        OnCmdMsg(nID, static_cast<int>(CN_UPDATE_COMMAND_UI), &state, nullptr);
        if (!state.m_bEnabled)
            return TRUE;
        nCode = CN_COMMAND;
    } else {
        if (AfxGetWndThreadState().hLockoutNotifyWindow == m_hWnd)
            return TRUE;
        LRESULT lResult = 0;
        if (AfxReflectToChild(hWndCtrl, WM_COMMAND, wParam, lParam, &lResult))
            return TRUE;
        if (nID == 0)
            return FALSE;
    }
    return OnCmdMsg(nID, nCode, nullptr, nullptr);
}

BOOL CWnd::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    auto* pNMHDR = reinterpret_cast<NMHDR*>(lParam);
    const HWND hWndCtrl = pNMHDR->hwndFrom;
    const UINT nID = static_cast<UINT>(::GetDlgCtrlID(hWndCtrl));
    const UINT nCode = pNMHDR->code;

    if (AfxGetWndThreadState().hLockoutNotifyWindow == m_hWnd)
        return TRUE;
    if (AfxReflectToChild(hWndCtrl, WM_NOTIFY, wParam, lParam, pResult))
        return TRUE;
    AFX_NOTIFY notify = {pResult, pNMHDR};
    return OnCmdMsg(nID, static_cast<int>(MAKELONG(nCode, WM_NOTIFY)), &notify, nullptr);
}

BOOL CWnd::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    return ReflectChildNotify(message, wParam, lParam, pResult);
}

BOOL CWnd::ReflectChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    LRESULT localResult = 0;
    if (pResult == nullptr)
        pResult = &localResult;
    switch (message) {
    case WM_HSCROLL:
    case WM_VSCROLL:
    case WM_PARENTNOTIFY:
    case WM_DRAWITEM:
    case WM_MEASUREITEM:
    case WM_DELETEITEM:
    case WM_VKEYTOITEM:
    case WM_CHARTOITEM:
    case WM_COMPAREITEM:
        return CWnd::OnWndMsg(WM_REFLECT_BASE + message, wParam, lParam, pResult);
    case WM_COMMAND: {
        const UINT nCode = HIWORD(wParam);
        if (CCmdTarget::OnCmdMsg(0, static_cast<int>(MAKELONG(nCode, WM_REFLECT_BASE + WM_COMMAND)), nullptr,
                                 nullptr)) {
            *pResult = 1;
            return TRUE;
        }
        return FALSE;
    }
    case WM_NOTIFY: {
        auto* pNMHDR = reinterpret_cast<NMHDR*>(lParam);
        AFX_NOTIFY notify = {pResult, pNMHDR};
        return CCmdTarget::OnCmdMsg(0, static_cast<int>(MAKELONG(pNMHDR->code, WM_REFLECT_BASE + WM_NOTIFY)), &notify,
                                    nullptr);
    }
    default:
        if (AfxIsCtlColorMessage(message)) {
            AFX_CTLCOLOR ctl = {m_hWnd, reinterpret_cast<HDC>(wParam), message - WM_CTLCOLORMSGBOX};
            return CWnd::OnWndMsg(WM_REFLECT_BASE + WM_CTLCOLOR, 0, reinterpret_cast<LPARAM>(&ctl), pResult);
        }
        return FALSE;
    }
}

BOOL PASCAL CWnd::ReflectLastMsg(HWND hWndChild, LRESULT* pResult)
{
    CWnd* pChild = FromHandlePermanent(hWndChild);
    return pChild != nullptr && pChild->SendChildNotifyLastMsg(pResult);
}

BOOL CWnd::SendChildNotifyLastMsg(LRESULT* pResult)
{
    const MSG& msg = AfxGetWndThreadState().lastSentMsg;
    return OnChildNotify(msg.message, msg.wParam, msg.lParam, pResult);
}

BOOL PASCAL CWnd::WalkPreTranslateTree(HWND hWndStop, MSG* pMsg)
{
    for (HWND hWnd = pMsg->hwnd; hWnd != nullptr; hWnd = ::GetParent(hWnd)) {
        CWnd* pWnd = FromHandlePermanent(hWnd);
        if (pWnd != nullptr && pWnd->PreTranslateMessage(pMsg))
            return TRUE;
        if (hWnd == hWndStop)
            break;
    }
    return FALSE;
}

BOOL CWnd::PreTranslateMessage(MSG*)
{
    return FALSE;
}

void CWnd::UpdateDialogControls(CCmdTarget* pTarget, BOOL bDisableIfNoHndler)
{
    CCmdUI state;
    CWnd wndTemp;
    for (HWND hWndChild = ::GetTopWindow(m_hWnd); hWndChild != nullptr;
         hWndChild = ::GetWindow(hWndChild, GW_HWNDNEXT)) {
        wndTemp.m_hWnd = hWndChild;
        state.m_nID = static_cast<UINT>(static_cast<WORD>(::GetDlgCtrlID(hWndChild)));
        state.m_pOther = &wndTemp;

        // The control's own reflected update handler comes first.
        if (CWnd* pChild = FromHandlePermanent(hWndChild)) {
            if (pChild->CCmdTarget::OnCmdMsg(
                    0,
                    static_cast<int>(MAKELONG(static_cast<WORD>(CN_UPDATE_COMMAND_UI), WM_REFLECT_BASE + WM_COMMAND)),
                    &state, nullptr))
                continue;
        }
        if (CCmdTarget::OnCmdMsg(state.m_nID, static_cast<int>(CN_UPDATE_COMMAND_UI), &state, nullptr))
            continue;

        // Only push buttons are disabled for want of a handler.
        BOOL bDisable = bDisableIfNoHndler;
        if (bDisable) {
            if ((::SendMessageA(hWndChild, WM_GETDLGCODE, 0, 0) & DLGC_BUTTON) == 0) {
                bDisable = FALSE;
            } else {
                const UINT nStyle = wndTemp.GetStyle() & 0x0F;
                if (nStyle == BS_AUTOCHECKBOX || nStyle == BS_AUTO3STATE || nStyle == BS_GROUPBOX ||
                    nStyle == BS_AUTORADIOBUTTON)
                    bDisable = FALSE;
            }
        }
        state.DoUpdate(pTarget, bDisable);
    }
    wndTemp.m_hWnd = nullptr;
}
