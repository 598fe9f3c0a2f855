// CWnd: handle maps, the creation hook, the window procedure, message-map
// dispatch, reflection, the modal loop and the window's common members.
#include "wnd_state.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <vector>

IMPLEMENT_DYNCREATE(CWnd, CCmdTarget)

// What the hook and the window procedure reach in CWnd's protected part.
struct AfxWndAccess
{
    static void PreSubclass(CWnd* pWnd) { pWnd->PreSubclassWindow(); }
};

namespace {

thread_local AfxWndThreadState* t_state = nullptr;

// The default class of CWnd::Create with a NULL class name.
constexpr char kDefaultWndClass[] = "AfxWnd";

// A pointer as an integer the optimiser cannot assume non-null: the
// framework allows Get...Safe... calls through a NULL object pointer.
template <class T>
std::uintptr_t OpaqueAddress(const T* p)
{
    std::uintptr_t value = reinterpret_cast<std::uintptr_t>(p);
    asm("" : "+r"(value));
    return value;
}

// Windows the system makes on a thread by itself, which the creation hook
// must not take for the window being created.
bool IsSystemHelperWindow(HWND hWnd)
{
    static constexpr const char* kHelperClasses[] = {
        "IME", "MSCTFIME UI", "OleMainThreadWndClass", "CicMarshalWndClass", "Default IME",
    };
    char name[64] = {};
    ::GetClassNameA(hWnd, name, static_cast<int>(sizeof(name)));
    return std::any_of(std::begin(kHelperClasses), std::end(kHelperClasses),
                       [&](const char* helper) { return ::lstrcmpiA(name, helper) == 0; });
}

bool IsExpectedWindow(HWND hWnd, LPCSTR lpszClass)
{
    if (lpszClass == nullptr)
        return !IsSystemHelperWindow(hWnd);
    if (IS_INTRESOURCE(lpszClass))
        return ::GetClassWord(hWnd, GCW_ATOM) == LOWORD(reinterpret_cast<ULONG_PTR>(lpszClass));
    char name[256] = {};
    ::GetClassNameA(hWnd, name, static_cast<int>(sizeof(name)));
    return ::lstrcmpiA(name, lpszClass) == 0;
}

LRESULT CALLBACK CbtFilterHook(int code, WPARAM wParam, LPARAM lParam)
{
    AfxWndThreadState& state = AfxGetWndThreadState();
    if (code == HCBT_CREATEWND && state.pWndInit != nullptr) {
        const HWND hWnd = reinterpret_cast<HWND>(wParam);
        if (IsExpectedWindow(hWnd, state.lpszInitClass)) {
            CWnd* pWnd = state.pWndInit;
            state.pWndInit = nullptr;
            pWnd->Attach(hWnd);
            AfxWndAccess::PreSubclass(pWnd);
            WNDPROC* pOldWndProc = pWnd->GetSuperWndProcAddr();
            const auto oldWndProc = reinterpret_cast<WNDPROC>(
                ::SetWindowLongPtrA(hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&AfxWndProc)));
            if (oldWndProc != &AfxWndProc)
                *pOldWndProc = oldWndProc;
        }
    }
    return ::CallNextHookEx(state.hHookCbt, code, wParam, lParam);
}

LRESULT CallWndProc(CWnd* pWnd, HWND hWnd, UINT nMsg, WPARAM wParam, LPARAM lParam)
{
    AfxWndThreadState& state = AfxGetWndThreadState();
    const MSG previous = state.lastSentMsg;
    state.lastSentMsg.hwnd = hWnd;
    state.lastSentMsg.message = nMsg;
    state.lastSentMsg.wParam = wParam;
    state.lastSentMsg.lParam = lParam;

    LRESULT lResult = 0;
    try {
        lResult = pWnd->WindowProc(nMsg, wParam, lParam);
    } catch (CException* e) {
        // A framework exception must not unwind through the system's frames.
        CWinThread* pThread = AfxGetThread();
        if (pThread != nullptr)
            lResult = pThread->ProcessWndProcException(e, &state.lastSentMsg);
        else
            lResult = nMsg == WM_CREATE ? -1 : 0;
        e->Delete();
    }
    state.lastSentMsg = previous;
    return lResult;
}

// Hands a message to a child window's object (reflection); FALSE if the
// child has no permanent object or does not take it.
BOOL ReflectToChild(HWND hWndChild, UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    CWnd* pChild = CWnd::FromHandlePermanent(hWndChild);
    if (pChild == nullptr)
        return FALSE;
    return pChild->OnChildNotify(message, wParam, lParam, pResult);
}

bool IsCtlColorMessage(UINT message)
{
    return message >= WM_CTLCOLORMSGBOX && message <= WM_CTLCOLORSTATIC;
}

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

AfxWndThreadState& AfxGetWndThreadState()
{
    if (t_state == nullptr)
        t_state = new AfxWndThreadState;
    return *t_state;
}

// ---- Handle maps ----

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

// ---- Creation hook and window classes ----

void AfxHookWindowCreate(CWnd* pWnd)
{
    AfxWndThreadState& state = AfxGetWndThreadState();
    if (state.nHookDepth++ == 0)
        state.hHookCbt = ::SetWindowsHookExA(WH_CBT, &CbtFilterHook, nullptr, ::GetCurrentThreadId());
    state.pWndInit = pWnd;
    state.lpszInitClass = nullptr;
}

BOOL AfxUnhookWindowCreate()
{
    AfxWndThreadState& state = AfxGetWndThreadState();
    const BOOL found = state.pWndInit == nullptr;
    state.pWndInit = nullptr;
    state.lpszInitClass = nullptr;
    if (state.nHookDepth > 0 && --state.nHookDepth == 0 && state.hHookCbt != nullptr) {
        ::UnhookWindowsHookEx(state.hHookCbt);
        state.hHookCbt = nullptr;
    }
    return found;
}

// Hooks the creation of pWnd's window, which must be of class lpszClass
// (a name or an atom).
void AfxHookWindowCreateOfClass(CWnd* pWnd, LPCSTR lpszClass)
{
    AfxHookWindowCreate(pWnd);
    AfxGetWndThreadState().lpszInitClass = lpszClass;
}

LPCTSTR AfxRegisterWndClass(UINT nClassStyle, HCURSOR hCursor, HBRUSH hbrBackground, HICON hIcon)
{
    thread_local char className[96];
    const HINSTANCE hInst = AfxGetInstanceHandle();
    std::snprintf(className, sizeof(className), "Afx:%p:%x:%p:%p:%p", static_cast<void*>(hInst), nClassStyle,
                  static_cast<void*>(hCursor), static_cast<void*>(hbrBackground), static_cast<void*>(hIcon));
    WNDCLASSA wc = {};
    if (::GetClassInfoA(hInst, className, &wc))
        return className;
    wc.style = nClassStyle;
    wc.lpfnWndProc = &::DefWindowProcA;
    wc.hInstance = hInst;
    wc.hIcon = hIcon;
    wc.hCursor = hCursor;
    wc.hbrBackground = hbrBackground;
    wc.lpszClassName = className;
    if (!::RegisterClassA(&wc))
        return nullptr;
    return className;
}

// ---- Window procedure ----

LRESULT CALLBACK AfxWndProc(HWND hWnd, UINT nMsg, WPARAM wParam, LPARAM lParam)
{
    CWnd* pWnd = CWnd::FromHandlePermanent(hWnd);
    if (pWnd == nullptr)
        return ::DefWindowProcA(hWnd, nMsg, wParam, lParam);
    return CallWndProc(pWnd, hWnd, nMsg, wParam, lParam);
}

const MSG* PASCAL CWnd::GetCurrentMessage()
{
    return &AfxGetWndThreadState().lastSentMsg;
}

// ---- CWnd ----

BEGIN_MESSAGE_MAP(CWnd, CCmdTarget)
    ON_WM_NCDESTROY()
    ON_WM_CTLCOLOR()
    ON_WM_DRAWITEM()
    ON_WM_MEASUREITEM()
    ON_WM_COMPAREITEM()
    ON_WM_DELETEITEM()
    ON_WM_INITMENUPOPUP()
    ON_WM_PARENTNOTIFY()
END_MESSAGE_MAP()

CWnd::CWnd() : m_hWnd(nullptr), m_pfnSuper(nullptr), m_hWndOwner(nullptr), m_nFlags(0), m_nModalResult(0) {}

CWnd::CWnd(HWND hWndInsertAfter)
    : m_hWnd(hWndInsertAfter), m_pfnSuper(nullptr), m_hWndOwner(nullptr), m_nFlags(0), m_nModalResult(0)
{}

const CWnd CWnd::wndTop(HWND_TOP);
const CWnd CWnd::wndBottom(HWND_BOTTOM);
const CWnd CWnd::wndTopMost(HWND_TOPMOST);
const CWnd CWnd::wndNoTopMost(HWND_NOTOPMOST);

CWnd::~CWnd()
{
    if (m_hWnd != nullptr && FromHandlePermanent(m_hWnd) == this)
        DestroyWindow();
}

HWND CWnd::GetSafeHwnd() const
{
    return OpaqueAddress(this) == 0 ? nullptr : m_hWnd;
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

BOOL CWnd::PreCreateWindow(CREATESTRUCT& cs)
{
    if (cs.lpszClass == nullptr) {
        WNDCLASSA wc = {};
        if (!::GetClassInfoA(cs.hInstance, kDefaultWndClass, &wc)) {
            wc.style = CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW;
            wc.lpfnWndProc = &::DefWindowProcA;
            wc.hInstance = cs.hInstance;
            wc.hCursor = ::LoadCursorA(nullptr, IDC_ARROW);
            wc.lpszClassName = kDefaultWndClass;
            if (!::RegisterClassA(&wc))
                return FALSE;
        }
        cs.lpszClass = kDefaultWndClass;
    }
    return TRUE;
}

BOOL CWnd::Create(LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd,
                  UINT nID, CCreateContext* pContext)
{
    return CreateEx(0, lpszClassName, lpszWindowName, dwStyle | WS_CHILD, rect.left, rect.top, rect.right - rect.left,
                    rect.bottom - rect.top, pParentWnd->GetSafeHwnd(),
                    reinterpret_cast<HMENU>(static_cast<UINT_PTR>(nID)), pContext);
}

BOOL CWnd::CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, const RECT& rect,
                    CWnd* pParentWnd, UINT nID, LPVOID lpParam)
{
    return CreateEx(dwExStyle, lpszClassName, lpszWindowName, dwStyle, rect.left, rect.top, rect.right - rect.left,
                    rect.bottom - rect.top, pParentWnd->GetSafeHwnd(),
                    reinterpret_cast<HMENU>(static_cast<UINT_PTR>(nID)), lpParam);
}

BOOL CWnd::CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, int x, int y,
                    int nWidth, int nHeight, HWND hWndParent, HMENU nIDorHMenu, LPVOID lpParam)
{
    CREATESTRUCTA cs = {};
    cs.dwExStyle = dwExStyle;
    cs.lpszClass = lpszClassName;
    cs.lpszName = lpszWindowName;
    cs.style = static_cast<LONG>(dwStyle);
    cs.x = x;
    cs.y = y;
    cs.cx = nWidth;
    cs.cy = nHeight;
    cs.hwndParent = hWndParent;
    cs.hMenu = nIDorHMenu;
    cs.hInstance = AfxGetInstanceHandle();
    cs.lpCreateParams = lpParam;

    if (!PreCreateWindow(cs)) {
        PostNcDestroy();
        return FALSE;
    }

    AfxHookWindowCreateOfClass(this, cs.lpszClass);
    const HWND hWnd = ::CreateWindowExA(cs.dwExStyle, cs.lpszClass, cs.lpszName, static_cast<DWORD>(cs.style), cs.x,
                                        cs.y, cs.cx, cs.cy, cs.hwndParent, cs.hMenu, cs.hInstance, cs.lpCreateParams);
    if (!AfxUnhookWindowCreate()) {
        // The hook never saw the window: nothing is attached to this object.
        if (hWnd != nullptr)
            ::DestroyWindow(hWnd);
        PostNcDestroy();
        return FALSE;
    }
    return hWnd != nullptr;
}

BOOL CWnd::DestroyWindow()
{
    if (m_hWnd == nullptr)
        return FALSE;
    const bool permanent = FromHandlePermanent(m_hWnd) == this;
    const BOOL result = ::DestroyWindow(m_hWnd);
    // A permanent object was detached by OnNcDestroy and may be gone.
    if (!permanent)
        Detach();
    return result;
}

void CWnd::PreSubclassWindow() {}

WNDPROC* CWnd::GetSuperWndProcAddr()
{
    return &m_pfnSuper;
}

BOOL CWnd::SubclassWindow(HWND hWnd)
{
    if (hWnd == nullptr || FromHandlePermanent(hWnd) != nullptr)
        return FALSE;
    if (!Attach(hWnd))
        return FALSE;
    PreSubclassWindow();
    WNDPROC* lplpfn = GetSuperWndProcAddr();
    const auto oldWndProc =
        reinterpret_cast<WNDPROC>(::SetWindowLongPtrA(hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&AfxWndProc)));
    if (oldWndProc == nullptr) {
        Detach();
        return FALSE;
    }
    if (*lplpfn == nullptr)
        *lplpfn = oldWndProc;
    return TRUE;
}

BOOL CWnd::SubclassDlgItem(UINT nID, CWnd* pParent)
{
    const HWND hWndControl = ::GetDlgItem(pParent->GetSafeHwnd(), static_cast<int>(nID));
    return hWndControl != nullptr && SubclassWindow(hWndControl);
}

HWND CWnd::UnsubclassWindow()
{
    if (m_hWnd == nullptr)
        return nullptr;
    WNDPROC* lplpfn = GetSuperWndProcAddr();
    ::SetWindowLongPtrA(m_hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(*lplpfn));
    *lplpfn = nullptr;
    return Detach();
}

void CWnd::PostNcDestroy() {}

void CWnd::DoDataExchange(CDataExchange*) {}

// ---- Message processing ----

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    LRESULT lResult = 0;
    if (!OnWndMsg(message, wParam, lParam, &lResult))
        lResult = DefWindowProc(message, wParam, lParam);
    return lResult;
}

BOOL CWnd::OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    LRESULT lResult = 0;
    if (message == WM_COMMAND) {
        if (!OnCommand(wParam, lParam))
            return FALSE;
        lResult = 1;
    } else if (message == WM_NOTIFY) {
        const auto* pNMHDR = reinterpret_cast<const NMHDR*>(lParam);
        if (pNMHDR == nullptr || pNMHDR->hwndFrom == nullptr || !OnNotify(wParam, lParam, &lResult))
            return FALSE;
    } else {
        const AFX_MSGMAP_ENTRY* entry = nullptr;
        const bool registered = message >= 0xC000 && message <= 0xFFFF;
        for (const AFX_MSGMAP* map = GetMessageMap(); map != nullptr && entry == nullptr;
             map = map->pfnGetBaseMap != nullptr ? map->pfnGetBaseMap() : nullptr) {
            if (registered) {
                for (const AFX_MSGMAP_ENTRY* e = map->lpEntries; e->nSig != AfxSig_end; ++e) {
                    if (e->nSig == AfxSig_registered && *e->pnRegisteredMessage == message) {
                        entry = e;
                        break;
                    }
                }
                continue;
            }
            entry = AfxFindMessageEntry(map->lpEntries, message, 0, 0);
            if (entry == nullptr && IsCtlColorMessage(message))
                entry = AfxFindMessageEntry(map->lpEntries, WM_CTLCOLOR, 0, 0);
        }
        if (entry == nullptr) {
            // Scroll bars and list boxes without a handler in the parent's
            // map still get their reflected messages.
            if ((message == WM_HSCROLL || message == WM_VSCROLL || message == WM_VKEYTOITEM ||
                 message == WM_CHARTOITEM) &&
                lParam != 0)
                return ReflectToChild(reinterpret_cast<HWND>(lParam), message, wParam, lParam, pResult);
            return FALSE;
        }
        AFX_MSGCALL call = {message, wParam, lParam, 0, 0, nullptr, 0};
        if (!entry->pfn(this, call))
            return FALSE;
        lResult = call.lResult;
    }
    if (pResult != nullptr)
        *pResult = lResult;
    return TRUE;
}

LRESULT CWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    const WNDPROC pfnSuper = *GetSuperWndProcAddr();
    if (pfnSuper != nullptr)
        return ::CallWindowProcA(pfnSuper, m_hWnd, message, wParam, lParam);
    return ::DefWindowProcA(m_hWnd, message, wParam, lParam);
}

LRESULT CWnd::Default()
{
    const MSG& msg = AfxGetWndThreadState().lastSentMsg;
    return DefWindowProc(msg.message, msg.wParam, msg.lParam);
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
        if (ReflectToChild(hWndCtrl, WM_COMMAND, wParam, lParam, &lResult))
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
    if (ReflectToChild(hWndCtrl, WM_NOTIFY, wParam, lParam, pResult))
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
        if (IsCtlColorMessage(message)) {
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

// ---- Modal loop ----

int CWnd::RunModalLoop(DWORD dwFlags)
{
    bool idle = true;
    LONG idleCount = 0;
    bool showIdle = (dwFlags & MLF_SHOWONIDLE) != 0 && (GetStyle() & WS_VISIBLE) == 0;
    const HWND hWndParent = ::GetParent(m_hWnd);
    m_nFlags |= WF_MODALLOOP | WF_CONTINUEMODAL;

    MSG peeked = {};
    for (;;) {
        while (idle && !::PeekMessageA(&peeked, nullptr, 0, 0, PM_NOREMOVE)) {
            if (showIdle) {
                ShowWindow(SW_SHOWNORMAL);
                UpdateWindow();
                showIdle = false;
            }
            if ((dwFlags & MLF_NOIDLEMSG) == 0 && hWndParent != nullptr && idleCount == 0)
                ::SendMessageA(hWndParent, WM_ENTERIDLE, MSGF_DIALOGBOX, reinterpret_cast<LPARAM>(m_hWnd));
            if ((dwFlags & MLF_NOKICKIDLE) != 0 || !SendMessage(WM_KICKIDLE, MSGF_DIALOGBOX, idleCount++))
                idle = false;
        }
        do {
            if (!AfxPumpMessage()) {
                AfxPostQuitMessage(0);
                m_nFlags &= ~(WF_MODALLOOP | WF_CONTINUEMODAL);
                return -1;
            }
            MSG current = peeked;
            if (CWinThread* pThread = AfxGetThread())
                current = *pThread->GetCurrentMessage();
            if (showIdle && (current.message == 0x118 || current.message == WM_SYSKEYDOWN)) {
                ShowWindow(SW_SHOWNORMAL);
                UpdateWindow();
                showIdle = false;
            }
            if (!ContinueModal()) {
                m_nFlags &= ~(WF_MODALLOOP | WF_CONTINUEMODAL);
                return m_nModalResult;
            }
            if (AfxIsIdleMessage(&current)) {
                idle = true;
                idleCount = 0;
            }
        } while (::PeekMessageA(&peeked, nullptr, 0, 0, PM_NOREMOVE));
    }
}

BOOL CWnd::ContinueModal()
{
    return (m_nFlags & WF_CONTINUEMODAL) != 0;
}

void CWnd::EndModalLoop(int nResult)
{
    m_nModalResult = nResult;
    if (m_nFlags & WF_CONTINUEMODAL) {
        m_nFlags &= ~WF_CONTINUEMODAL;
        ::PostMessageA(m_hWnd, WM_NULL, 0, 0);
    }
}

// ---- Data ----

BOOL CWnd::UpdateData(BOOL bSaveAndValidate)
{
    CDataExchange dx(this, bSaveAndValidate);
    AfxWndThreadState& state = AfxGetWndThreadState();
    const HWND hWndOldLockout = state.hLockoutNotifyWindow;
    // Control notifications that the exchange itself causes stay unseen.
    state.hLockoutNotifyWindow = m_hWnd;
    BOOL ok = FALSE;
    try {
        DoDataExchange(&dx);
        ok = TRUE;
    } catch (CUserException* e) {
        // Validation failed; the user has been told.
        e->Delete();
    } catch (CException* e) {
        char text[512] = {};
        if (!e->GetErrorMessage(text, sizeof(text)))
            std::strcpy(text, "Internal application error.");
        AfxMessageBox(text, MB_ICONSTOP, AFX_IDP_INTERNAL_FAILURE);
        e->Delete();
    }
    state.hLockoutNotifyWindow = hWndOldLockout;
    return ok;
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

// ---- Common members ----

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
                CallWndProc(pWnd, hWndChild, message, wParam, lParam);
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

// ---- Default message handlers ----

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
