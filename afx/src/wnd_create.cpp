// CWnd creation and subclassing: the creation hook that attaches the object
// before the window's first message, the window classes, Create and
// SubclassWindow.
#include "wnd_state.h"

#include <algorithm>
#include <cstdio>

IMPLEMENT_DYNCREATE(CWnd, CCmdTarget)

// What the hook reaches in CWnd's protected part.
struct AfxWndAccess
{
    static void PreSubclass(CWnd* pWnd) { pWnd->PreSubclassWindow(); }
};

namespace {

// The default class of CWnd::Create with a NULL class name.
constexpr char kDefaultWndClass[] = "AfxWnd";

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
            try {
                AfxWndAccess::PreSubclass(pWnd);
            } catch (...) {
                // CreateWindowEx called us: nothing may unwind through it.
                const MSG msg = {hWnd, WM_NULL, 0, 0, 0, {}};
                AfxProcessEscapedException(&msg);
            }
            WNDPROC* pOldWndProc = pWnd->GetSuperWndProcAddr();
            const auto oldWndProc = reinterpret_cast<WNDPROC>(
                ::SetWindowLongPtrA(hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&AfxWndProc)));
            if (oldWndProc != &AfxWndProc)
                *pOldWndProc = oldWndProc;
        }
    }
    return ::CallNextHookEx(state.hHookCbt, code, wParam, lParam);
}

}  // namespace

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
