// Command targets: message-map look-up, command routing and CCmdUI.
#include "afxwin.h"

IMPLEMENT_DYNAMIC(CCmdTarget, CObject)

const AFX_MSGMAP* PASCAL CCmdTarget::GetThisMessageMap()
{
    static const AFX_MSGMAP_ENTRY entries[] = {{0, 0, 0, 0, AfxSig_end, nullptr, nullptr}};
    static const AFX_MSGMAP messageMap = {nullptr, &entries[0]};
    return &messageMap;
}

const AFX_MSGMAP* CCmdTarget::GetMessageMap() const
{
    return GetThisMessageMap();
}

const AFX_MSGMAP_ENTRY* AfxFindMessageEntry(const AFX_MSGMAP_ENTRY* lpEntry, UINT nMsg, UINT nCode, UINT nID)
{
    for (; lpEntry->nSig != AfxSig_end; ++lpEntry) {
        if (lpEntry->nSig == AfxSig_msg && lpEntry->nMessage == nMsg && lpEntry->nCode == nCode &&
            nID >= lpEntry->nID && nID <= lpEntry->nLastID)
            return lpEntry;
    }
    return nullptr;
}

CCmdTarget::CCmdTarget() = default;

CCmdTarget::~CCmdTarget() = default;

BOOL CCmdTarget::OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo)
{
    // An update request keeps its code whole; everything else carries the
    // message in the high word (WM_NOTIFY, reflected messages) and the
    // notification code in the low word.
    UINT nMsg = WM_COMMAND;
    UINT code = static_cast<UINT>(nCode);
    if (code != CN_UPDATE_COMMAND_UI) {
        nMsg = HIWORD(code) != 0 ? HIWORD(code) : WM_COMMAND;
        code = LOWORD(code);
    }

    for (const AFX_MSGMAP* map = GetMessageMap(); map != nullptr;
         map = map->pfnGetBaseMap != nullptr ? map->pfnGetBaseMap() : nullptr) {
        const AFX_MSGMAP_ENTRY* entry = AfxFindMessageEntry(map->lpEntries, nMsg, code, nID);
        if (entry == nullptr)
            continue;
        if (pHandlerInfo != nullptr) {
            pHandlerInfo->pTarget = this;
            pHandlerInfo->pfn = entry->pfn;
            return TRUE;
        }
        AFX_MSGCALL call = {nMsg, 0, 0, nID, code, pExtra, 0};
        return entry->pfn(this, call);
    }
    return FALSE;
}

void CCmdTarget::BeginWaitCursor()
{
    SetCursor(LoadCursorA(nullptr, IDC_WAIT));
}

void CCmdTarget::EndWaitCursor()
{
    SetCursor(LoadCursorA(nullptr, IDC_ARROW));
}

void CCmdTarget::RestoreWaitCursor()
{
    BeginWaitCursor();
}

CCmdUI::CCmdUI()
    : m_nID(0), m_nIndex(0), m_pMenu(nullptr), m_pSubMenu(nullptr), m_pParentMenu(nullptr), m_pOther(nullptr),
      m_nIndexMax(0), m_bEnableChanged(FALSE), m_bContinueRouting(FALSE)
{}

// With m_pMenu the item at m_nIndex changes (pop-up items, m_pSubMenu, are
// left alone); else the control in m_pOther.
void CCmdUI::Enable(BOOL bOn)
{
    if (m_pMenu != nullptr) {
        if (m_pSubMenu == nullptr)
            m_pMenu->EnableMenuItem(m_nIndex, MF_BYPOSITION | (bOn ? MF_ENABLED : MF_DISABLED | MF_GRAYED));
    } else if (m_pOther != nullptr && m_pOther->m_hWnd != nullptr) {
        const HWND hWnd = m_pOther->m_hWnd;
        // Disabling the focused control first moves the focus on.
        if (!bOn && ::GetFocus() == hWnd) {
            const HWND parent = ::GetParent(hWnd);
            if (parent != nullptr)
                ::SendMessageA(parent, WM_NEXTDLGCTL, 0, FALSE);
        }
        ::EnableWindow(hWnd, bOn);
    }
    m_bEnableChanged = TRUE;
}

void CCmdUI::SetCheck(int nCheck)
{
    if (m_pMenu != nullptr) {
        if (m_pSubMenu == nullptr)
            m_pMenu->CheckMenuItem(m_nIndex, MF_BYPOSITION | (nCheck != 0 ? MF_CHECKED : MF_UNCHECKED));
    } else if (m_pOther != nullptr && m_pOther->m_hWnd != nullptr &&
               (::SendMessageA(m_pOther->m_hWnd, WM_GETDLGCODE, 0, 0) & DLGC_BUTTON)) {
        ::SendMessageA(m_pOther->m_hWnd, BM_SETCHECK, static_cast<WPARAM>(nCheck), 0);
    }
}

void CCmdUI::SetRadio(BOOL bOn)
{
    if (m_pMenu != nullptr && m_pSubMenu == nullptr) {
        MENUITEMINFOA info = {};
        info.cbSize = sizeof(info);
        info.fMask = MIIM_FTYPE;
        if (m_pMenu->GetMenuItemInfo(m_nIndex, &info, TRUE)) {
            info.fType |= MFT_RADIOCHECK;
            m_pMenu->SetMenuItemInfo(m_nIndex, &info, TRUE);
        }
    }
    SetCheck(bOn ? 1 : 0);
}

void CCmdUI::SetText(LPCTSTR lpszText)
{
    if (m_pMenu != nullptr) {
        if (m_pSubMenu == nullptr) {
            // The item keeps its check and enable state.
            const UINT keep = m_pMenu->GetMenuState(m_nIndex, MF_BYPOSITION) & (MF_CHECKED | MF_DISABLED | MF_GRAYED);
            m_pMenu->ModifyMenu(m_nIndex, MF_BYPOSITION | MF_STRING | keep, m_nID, lpszText);
        }
    } else if (m_pOther != nullptr && m_pOther->m_hWnd != nullptr) {
        m_pOther->SetWindowText(lpszText);
    }
}

void CCmdUI::ContinueRouting()
{
    m_bContinueRouting = TRUE;
}

BOOL CCmdUI::DoUpdate(CCmdTarget* pTarget, BOOL bDisableIfNoHndler)
{
    if (pTarget == nullptr)
        return FALSE;
    m_bEnableChanged = FALSE;
    const BOOL handled = pTarget->OnCmdMsg(m_nID, static_cast<int>(CN_UPDATE_COMMAND_UI), this, nullptr);
    if (bDisableIfNoHndler && !m_bEnableChanged) {
        AFX_CMDHANDLERINFO info = {nullptr, nullptr};
        Enable(pTarget->OnCmdMsg(m_nID, CN_COMMAND, this, &info));
    }
    return handled;
}
