// CDialog: creation from templates, the modal loop and the dialog commands.
#include "wnd_state.h"

#include <string>

IMPLEMENT_DYNAMIC(CDialog, CWnd)

namespace {

// Command ids (as opposed to control ids) are 0x8000 and above.
constexpr UINT kFirstCommandId = 0x8000;
constexpr UINT kFirstSystemCommand = 0xF000;

// Skips one sz_Or_Ord field of a dialog template.
const WORD* SkipNameOrOrdinal(const WORD* p)
{
    if (*p == 0)
        return p + 1;
    if (*p == 0xFFFF)
        return p + 2;
    while (*p != 0)
        ++p;
    return p + 1;
}

// The window class a dialog template asks for: the dialog class's atom
// unless the template names another; a name goes into storage.
LPCSTR TemplateClass(LPCDLGTEMPLATE lpTemplate, std::string& storage)
{
    const auto* words = reinterpret_cast<const WORD*>(lpTemplate);
    const bool extended = words[0] == 1 && words[1] == 0xFFFF;
    // Fixed header: DLGTEMPLATEEX has 26 bytes, DLGTEMPLATE 18.
    const WORD* p = words + (extended ? 13 : 9);
    p = SkipNameOrOrdinal(p);  // menu
    if (*p == 0)
        return MAKEINTATOM(0x8002);
    if (*p == 0xFFFF)
        return MAKEINTATOM(p[1]);
    const auto* name = reinterpret_cast<const wchar_t*>(p);
    const int length = ::WideCharToMultiByte(CP_ACP, 0, name, -1, nullptr, 0, nullptr, nullptr);
    storage.assign(static_cast<std::size_t>(length > 0 ? length : 1), '\0');
    ::WideCharToMultiByte(CP_ACP, 0, name, -1, storage.data(), length, nullptr, nullptr);
    return storage.c_str();
}

// The dialog procedure behind DefDlgProc: only WM_INITDIALOG reaches the
// object here (through CDialog::HandleInitDialog's Default()).
INT_PTR CALLBACK AfxDlgProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message != WM_INITDIALOG)
        return FALSE;
    CDialog* pDialog = DYNAMIC_DOWNCAST(CDialog, CWnd::FromHandlePermanent(hWnd));
    if (pDialog == nullptr)
        return TRUE;
    try {
        return pDialog->OnInitDialog();
    } catch (...) {
        // The system's dialog procedure called us: nothing may unwind through it.
        const MSG msg = {hWnd, message, wParam, lParam, 0, {}};
        return AfxProcessEscapedException(&msg);
    }
}

}  // namespace

BOOL CWnd::CreateDlgIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd, HINSTANCE hInst)
{
    if (lpDialogTemplate == nullptr)
        return FALSE;
    if (hInst == nullptr)
        hInst = AfxGetResourceHandle();
    std::string className;
    AfxHookWindowCreateOfClass(this, TemplateClass(lpDialogTemplate, className));
    const HWND hWnd = ::CreateDialogIndirectParamA(hInst, lpDialogTemplate, pParentWnd->GetSafeHwnd(), &AfxDlgProc, 0);
    if (!AfxUnhookWindowCreate()) {
        if (hWnd != nullptr)
            ::DestroyWindow(hWnd);
        return FALSE;
    }
    if (hWnd == nullptr) {
        // Destroyed during creation: OnNcDestroy has detached it already.
        return FALSE;
    }
    return TRUE;
}

BEGIN_MESSAGE_MAP(CDialog, CWnd)
    ON_COMMAND(IDOK, OnOK)
    ON_COMMAND(IDCANCEL, OnCancel)
    ON_MESSAGE(WM_INITDIALOG, HandleInitDialog)
    ON_MESSAGE(WM_SETFONT, HandleSetFont)
END_MESSAGE_MAP()

CDialog::CDialog()
{
    Init(nullptr);
}

CDialog::CDialog(LPCTSTR lpszTemplateName, CWnd* pParentWnd)
{
    Init(pParentWnd);
    m_lpszTemplateName = lpszTemplateName;
    if (IS_INTRESOURCE(lpszTemplateName))
        m_nIDHelp = LOWORD(reinterpret_cast<ULONG_PTR>(lpszTemplateName));
}

CDialog::CDialog(UINT nIDTemplate, CWnd* pParentWnd)
{
    Init(pParentWnd);
    m_lpszTemplateName = MAKEINTRESOURCEA(nIDTemplate);
    m_nIDHelp = nIDTemplate;
}

void CDialog::Init(CWnd* pParentWnd)
{
    m_lpszTemplateName = nullptr;
    m_hDialogTemplate = nullptr;
    m_lpDialogTemplate = nullptr;
    m_lpDialogInit = nullptr;
    m_pParentWnd = pParentWnd;
    m_hWndTop = nullptr;
    m_nIDHelp = 0;
}

CDialog::~CDialog()
{
    // Destroyed here so that the dialog's own map still sees the messages.
    if (m_hWnd != nullptr && FromHandlePermanent(m_hWnd) == this)
        DestroyWindow();
}

BOOL CDialog::Create(LPCTSTR lpszTemplateName, CWnd* pParentWnd)
{
    m_lpszTemplateName = lpszTemplateName;
    if (IS_INTRESOURCE(lpszTemplateName) && m_nIDHelp == 0)
        m_nIDHelp = LOWORD(reinterpret_cast<ULONG_PTR>(lpszTemplateName));
    const HINSTANCE hInst = AfxFindResourceHandle(lpszTemplateName, RT_DIALOG);
    const HRSRC hResource = ::FindResourceA(hInst, lpszTemplateName, RT_DIALOG);
    const HGLOBAL hTemplate = hResource != nullptr ? ::LoadResource(hInst, hResource) : nullptr;
    if (hTemplate == nullptr)
        return FALSE;
    m_pParentWnd = pParentWnd;
    return CreateDlgIndirect(static_cast<LPCDLGTEMPLATE>(::LockResource(hTemplate)), pParentWnd, hInst);
}

BOOL CDialog::Create(UINT nIDTemplate, CWnd* pParentWnd)
{
    return Create(MAKEINTRESOURCEA(nIDTemplate), pParentWnd);
}

BOOL CDialog::CreateIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd, void* lpDialogInit)
{
    m_lpDialogInit = lpDialogInit;
    m_pParentWnd = pParentWnd;
    return CreateDlgIndirect(lpDialogTemplate, pParentWnd, nullptr);
}

BOOL CDialog::CreateIndirect(HGLOBAL hDialogTemplate, CWnd* pParentWnd)
{
    const auto* lpTemplate = static_cast<LPCDLGTEMPLATE>(::GlobalLock(hDialogTemplate));
    const BOOL result = CreateIndirect(lpTemplate, pParentWnd, nullptr);
    ::GlobalUnlock(hDialogTemplate);
    return result;
}

BOOL CDialog::InitModalIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd, void* lpDialogInit)
{
    m_lpDialogTemplate = lpDialogTemplate;
    m_lpDialogInit = lpDialogInit;
    m_pParentWnd = pParentWnd;
    return TRUE;
}

BOOL CDialog::InitModalIndirect(HGLOBAL hDialogTemplate, CWnd* pParentWnd)
{
    m_hDialogTemplate = hDialogTemplate;
    m_pParentWnd = pParentWnd;
    return TRUE;
}

HWND CDialog::PreModal()
{
    HWND hWnd = m_pParentWnd->GetSafeHwnd();
    if (hWnd == nullptr) {
        CWnd* pMainWnd = AfxGetMainWnd();
        hWnd = pMainWnd->GetSafeHwnd();
    }
    // A popup cannot be owned by a child window.
    while (hWnd != nullptr && (::GetWindowLongA(hWnd, GWL_STYLE) & WS_CHILD))
        hWnd = ::GetParent(hWnd);
    HWND hWndTop = hWnd;
    for (HWND h = hWnd; h != nullptr; h = ::GetParent(h))
        hWndTop = h;
    if (m_pParentWnd == nullptr && hWnd != nullptr)
        hWnd = ::GetLastActivePopup(hWnd);
    // The top-level window above the owner is disabled as well.
    if (hWndTop != nullptr && hWndTop != hWnd && ::IsWindowEnabled(hWndTop)) {
        m_hWndTop = hWndTop;
        ::EnableWindow(hWndTop, FALSE);
    } else {
        m_hWndTop = nullptr;
    }
    return hWnd;
}

void CDialog::PostModal()
{
    if (::IsWindow(m_hWndTop))
        ::EnableWindow(m_hWndTop, TRUE);
    m_hWndTop = nullptr;
}

INT_PTR CDialog::DoModal()
{
    LPCDLGTEMPLATE lpDialogTemplate = m_lpDialogTemplate;
    HGLOBAL hDialogTemplate = m_hDialogTemplate;
    HINSTANCE hInst = AfxGetResourceHandle();
    if (m_lpszTemplateName != nullptr) {
        hInst = AfxFindResourceHandle(m_lpszTemplateName, RT_DIALOG);
        const HRSRC hResource = ::FindResourceA(hInst, m_lpszTemplateName, RT_DIALOG);
        hDialogTemplate = hResource != nullptr ? ::LoadResource(hInst, hResource) : nullptr;
    }
    if (hDialogTemplate != nullptr)
        lpDialogTemplate = static_cast<LPCDLGTEMPLATE>(::LockResource(hDialogTemplate));
    if (lpDialogTemplate == nullptr)
        return -1;

    const HWND hWndParent = PreModal();
    bool enableParent = false;
    if (hWndParent != nullptr && hWndParent != ::GetDesktopWindow() && ::IsWindowEnabled(hWndParent)) {
        ::EnableWindow(hWndParent, FALSE);
        enableParent = true;
    }

    // Set before creation: an EndDialog in OnInitDialog skips the loop.
    m_nModalResult = -1;
    m_nFlags |= WF_CONTINUEMODAL;
    try {
        if (CreateDlgIndirect(lpDialogTemplate, CWnd::FromHandle(hWndParent), hInst)) {
            if (m_nFlags & WF_CONTINUEMODAL) {
                DWORD dwFlags = MLF_SHOWONIDLE;
                if (GetStyle() & DS_NOIDLEMSG)
                    dwFlags |= MLF_NOIDLEMSG;
                RunModalLoop(dwFlags);
            }
            if (m_hWnd != nullptr)
                ::SetWindowPos(m_hWnd, nullptr, 0, 0, 0, 0,
                               SWP_HIDEWINDOW | SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE | SWP_NOZORDER);
        }
    } catch (CException* e) {
        e->Delete();
        m_nModalResult = -1;
    }
    m_nFlags &= ~(WF_MODALLOOP | WF_CONTINUEMODAL);

    if (enableParent)
        ::EnableWindow(hWndParent, TRUE);
    if (hWndParent != nullptr && ::GetActiveWindow() == m_hWnd)
        ::SetActiveWindow(hWndParent);
    DestroyWindow();
    PostModal();
    return m_nModalResult;
}

void CDialog::EndDialog(int nResult)
{
    if (m_nFlags & (WF_MODALLOOP | WF_CONTINUEMODAL))
        EndModalLoop(nResult);
    ::EndDialog(m_hWnd, nResult);
}

BOOL CDialog::OnInitDialog()
{
    if (!UpdateData(FALSE)) {
        EndDialog(-1);
        return FALSE;
    }
    return TRUE;
}

void CDialog::OnSetFont(CFont*) {}

void CDialog::OnOK()
{
    if (!UpdateData(TRUE))
        return;
    EndDialog(IDOK);
}

void CDialog::OnCancel()
{
    EndDialog(IDCANCEL);
}

LRESULT CDialog::HandleInitDialog(WPARAM, LPARAM)
{
    return Default();
}

LRESULT CDialog::HandleSetFont(WPARAM wParam, LPARAM)
{
    OnSetFont(CFont::FromHandle(reinterpret_cast<HFONT>(wParam)));
    return Default();
}

BOOL CDialog::PreTranslateMessage(MSG* pMsg)
{
    if (CWnd::PreTranslateMessage(pMsg))
        return TRUE;

    // Escape in a multi-line edit would be swallowed by the edit control.
    if (pMsg->message == WM_KEYDOWN && (pMsg->wParam == VK_ESCAPE || pMsg->wParam == VK_CANCEL) &&
        (::GetWindowLongA(pMsg->hwnd, GWL_STYLE) & ES_MULTILINE)) {
        char className[16] = {};
        ::GetClassNameA(pMsg->hwnd, className, static_cast<int>(sizeof(className)));
        if (::lstrcmpiA(className, "Edit") == 0) {
            const HWND hCancel = ::GetDlgItem(m_hWnd, IDCANCEL);
            if (hCancel == nullptr || ::IsWindowEnabled(hCancel)) {
                SendMessage(WM_COMMAND, IDCANCEL, 0);
                return TRUE;
            }
        }
    }

    const bool keyboard = pMsg->message >= WM_KEYFIRST && pMsg->message <= WM_KEYLAST;
    const bool mouse = pMsg->message >= WM_MOUSEFIRST && pMsg->message <= WM_MOUSELAST;
    if (!keyboard && !mouse)
        return FALSE;
    return ::IsDialogMessageA(m_hWnd, pMsg);
}

BOOL CDialog::OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo)
{
    if (CWnd::OnCmdMsg(nID, nCode, pExtra, pHandlerInfo))
        return TRUE;
    // Control notifications and system commands end at the dialog.
    if ((nCode != CN_COMMAND && static_cast<UINT>(nCode) != CN_UPDATE_COMMAND_UI) || nID < kFirstCommandId ||
        nID >= kFirstSystemCommand)
        return FALSE;

    // Then the window that owns the dialog, then the application.
    const HWND hWndOwner = m_hWndOwner != nullptr ? m_hWndOwner : ::GetParent(m_hWnd);
    if (CWnd* pOwner = FromHandlePermanent(hWndOwner)) {
        if (pOwner != this && pOwner->OnCmdMsg(nID, nCode, pExtra, pHandlerInfo))
            return TRUE;
    }
    if (CWinThread* pThread = AfxGetThread())
        return pThread->OnCmdMsg(nID, nCode, pExtra, pHandlerInfo);
    return FALSE;
}

void CDialog::GotoDlgCtrl(CWnd* pWndCtrl)
{
    SendMessage(WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(pWndCtrl->GetSafeHwnd()), TRUE);
}

void CDialog::NextDlgCtrl() const
{
    ::SendMessageA(m_hWnd, WM_NEXTDLGCTL, 0, 0);
}

void CDialog::PrevDlgCtrl() const
{
    ::SendMessageA(m_hWnd, WM_NEXTDLGCTL, 1, 0);
}

void CDialog::SetDefID(UINT nID)
{
    SendMessage(DM_SETDEFID, nID, 0);
}

DWORD CDialog::GetDefID() const
{
    return static_cast<DWORD>(::SendMessageA(m_hWnd, DM_GETDEFID, 0, 0));
}

void CDialog::MapDialogRect(LPRECT lpRect) const
{
    ::MapDialogRect(m_hWnd, lpRect);
}
