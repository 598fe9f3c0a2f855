// User-interface threads, the application object and the start-up path.
#include "afxwin.h"
#include "module_state_impl.h"

#include <cstdlib>
#include <cstring>

namespace {

constexpr UINT kCaretBlinkTimer = 0x0118;  // WM_SYSTIMER
constexpr int kModulePathChars = MAX_PATH * 4;

thread_local CWinThread* t_currentThread = nullptr;

BOOL CALLBACK SendIdleUpdate(HWND hwnd, LPARAM lParam)
{
    SendMessageA(hwnd, WM_IDLEUPDATECMDUI, static_cast<WPARAM>(lParam), 0);
    return TRUE;
}

// Replaces an owned string member with a copy of text.
void ReplaceOwned(LPCTSTR& member, LPCTSTR text)
{
    std::free(const_cast<char*>(member));
    member = text != nullptr ? _strdup(text) : nullptr;
}

void FreeOwned(LPCTSTR& member)
{
    std::free(const_cast<char*>(member));
    member = nullptr;
}

}  // namespace

void AfxSetCurrentThread(CWinThread* pThread)
{
    t_currentThread = pThread;
}

IMPLEMENT_DYNAMIC(CWinThread, CCmdTarget)

// The thread's own map is empty; derived threads add ON_THREAD_MESSAGE rows.
const AFX_MSGMAP* PASCAL CWinThread::GetThisMessageMap()
{
    static const AFX_MSGMAP_ENTRY entries[] = {{0, 0, 0, 0, AfxSig_end, nullptr, nullptr}};
    static const AFX_MSGMAP messageMap = {&CCmdTarget::GetThisMessageMap, &entries[0]};
    return &messageMap;
}

const AFX_MSGMAP* CWinThread::GetMessageMap() const
{
    return GetThisMessageMap();
}

CWinThread::CWinThread()
    : m_pMainWnd(nullptr), m_pActiveWnd(nullptr), m_bAutoDelete(TRUE), m_hThread(nullptr), m_nThreadID(0),
      m_msgCur(), m_ptCursorLast{-1, -1}, m_nMsgLast(0)
{}

CWinThread::~CWinThread()
{
    if (t_currentThread == this)
        t_currentThread = nullptr;
}

CWnd* CWinThread::GetMainWnd()
{
    return m_pActiveWnd != nullptr ? m_pActiveWnd : m_pMainWnd;
}

BOOL CWinThread::InitInstance()
{
    return FALSE;
}

int CWinThread::Run()
{
    bool idle = true;
    LONG idleCount = 0;
    MSG peeked;
    for (;;) {
        while (idle && !PeekMessageA(&peeked, nullptr, 0, 0, PM_NOREMOVE)) {
            if (!OnIdle(idleCount++))
                idle = false;
        }
        do {
            if (!PumpMessage())
                return ExitInstance();
            if (IsIdleMessage(&m_msgCur)) {
                idle = true;
                idleCount = 0;
            }
        } while (PeekMessageA(&peeked, nullptr, 0, 0, PM_NOREMOVE));
    }
}

BOOL CWinThread::PreTranslateMessage(MSG* pMsg)
{
    if (pMsg->hwnd == nullptr)
        return DispatchThreadMessageEx(pMsg);

    CWnd* mainWnd = GetMainWnd();
    if (CWnd::WalkPreTranslateTree(mainWnd != nullptr ? mainWnd->GetSafeHwnd() : nullptr, pMsg))
        return TRUE;

    // A modeless top-level window outside the main window's tree still gets
    // the main window's pre-translation (its accelerators).
    if (mainWnd != nullptr && mainWnd->GetSafeHwnd() != nullptr) {
        const HWND root = GetAncestor(pMsg->hwnd, GA_ROOT);
        if (root != nullptr && root != mainWnd->GetSafeHwnd())
            return mainWnd->PreTranslateMessage(pMsg);
    }
    return FALSE;
}

BOOL CWinThread::DispatchThreadMessageEx(MSG* pMsg)
{
    for (const AFX_MSGMAP* map = GetMessageMap(); map != nullptr;
         map = map->pfnGetBaseMap != nullptr ? map->pfnGetBaseMap() : nullptr) {
        const AFX_MSGMAP_ENTRY* entry = nullptr;
        if (pMsg->message < 0xC000) {
            entry = AfxFindMessageEntry(map->lpEntries, pMsg->message, 0, 0);
        } else {
            for (const AFX_MSGMAP_ENTRY* e = map->lpEntries; e->nSig != AfxSig_end; ++e) {
                if (e->nSig == AfxSig_registered && *e->pnRegisteredMessage == pMsg->message) {
                    entry = e;
                    break;
                }
            }
        }
        if (entry != nullptr) {
            AFX_MSGCALL call = {pMsg->message, pMsg->wParam, pMsg->lParam, 0, 0, nullptr, 0};
            entry->pfn(this, call);
            return TRUE;
        }
    }
    return FALSE;
}

BOOL CWinThread::PumpMessage()
{
    if (!GetMessageA(&m_msgCur, nullptr, 0, 0))
        return FALSE;
    if (m_msgCur.message != WM_KICKIDLE && !PreTranslateMessage(&m_msgCur)) {
        TranslateMessage(&m_msgCur);
        DispatchMessageA(&m_msgCur);
    }
    return TRUE;
}

BOOL CWinThread::OnIdle(LONG lCount)
{
    if (lCount <= 0) {
        CWnd* mainWnd = GetMainWnd();
        const HWND hwnd = mainWnd != nullptr ? mainWnd->GetSafeHwnd() : nullptr;
        if (hwnd != nullptr && IsWindowVisible(hwnd)) {
            SendIdleUpdate(hwnd, TRUE);
            EnumChildWindows(hwnd, SendIdleUpdate, TRUE);
        }
        return TRUE;
    }
    if (lCount == 1)
        AfxDeleteTempMap();
    return FALSE;
}

BOOL CWinThread::IsIdleMessage(MSG* pMsg)
{
    if (pMsg->message == WM_MOUSEMOVE || pMsg->message == WM_NCMOUSEMOVE) {
        const bool same =
            pMsg->message == m_nMsgLast && pMsg->pt.x == m_ptCursorLast.x && pMsg->pt.y == m_ptCursorLast.y;
        m_ptCursorLast = pMsg->pt;
        m_nMsgLast = pMsg->message;
        return same ? FALSE : TRUE;
    }
    return pMsg->message != WM_PAINT && pMsg->message != kCaretBlinkTimer;
}

int CWinThread::ExitInstance()
{
    return static_cast<int>(m_msgCur.wParam);
}

LRESULT CWinThread::ProcessWndProcException(CException* e, const MSG* pMsg)
{
    // A user exception means the user has already been told.
    if (e != nullptr && !e->IsKindOf(RUNTIME_CLASS(CUserException))) {
        char text[512];
        if (!e->GetErrorMessage(text, sizeof text))
            lstrcpynA(text, "An unsupported operation was attempted.", sizeof text);
        AfxMessageBox(text, MB_ICONEXCLAMATION);
    }
    if (pMsg != nullptr && pMsg->message == WM_CREATE)
        return -1;
    if (pMsg != nullptr && pMsg->message == WM_PAINT)
        ValidateRect(pMsg->hwnd, nullptr);
    return 0;
}

void CWinThread::Delete()
{
    if (m_bAutoDelete)
        delete this;
}

IMPLEMENT_DYNAMIC(CWinApp, CWinThread)

const AFX_MSGMAP* PASCAL CWinApp::GetThisMessageMap()
{
    static const AFX_MSGMAP_ENTRY entries[] = {{0, 0, 0, 0, AfxSig_end, nullptr, nullptr}};
    static const AFX_MSGMAP messageMap = {&CWinThread::GetThisMessageMap, &entries[0]};
    return &messageMap;
}

const AFX_MSGMAP* CWinApp::GetMessageMap() const
{
    return GetThisMessageMap();
}

CWinApp::CWinApp(LPCTSTR lpszAppName)
    : m_pszAppName(lpszAppName != nullptr ? _strdup(lpszAppName) : nullptr), m_hInstance(nullptr), m_lpCmdLine(nullptr),
      m_nCmdShow(SW_SHOWNORMAL), m_pszExeName(nullptr), m_pszHelpFilePath(nullptr), m_pszProfileName(nullptr),
      m_pszRegistryKey(nullptr)
{
    m_bAutoDelete = FALSE;
    m_hThread = GetCurrentThread();
    m_nThreadID = GetCurrentThreadId();
    AFX_MODULE_STATE* state = AfxGetModuleState();
    state->m_pCurrentWinApp = this;
    if (m_pszAppName != nullptr)
        state->m_lpszCurrentAppName = m_pszAppName;
    AfxSetCurrentThread(this);
}

CWinApp::~CWinApp()
{
    AFX_MODULE_STATE* state = AfxGetModuleState();
    if (state->m_pCurrentWinApp == this)
        state->m_pCurrentWinApp = nullptr;
    if (state->m_lpszCurrentAppName == m_pszAppName)
        state->m_lpszCurrentAppName = nullptr;
    FreeOwned(m_pszAppName);
    FreeOwned(m_pszExeName);
    FreeOwned(m_pszHelpFilePath);
    FreeOwned(m_pszProfileName);
    FreeOwned(m_pszRegistryKey);
}

BOOL CWinApp::InitApplication()
{
    return TRUE;
}

BOOL CWinApp::InitInstance()
{
    return TRUE;
}

int CWinApp::Run()
{
    if (m_pMainWnd == nullptr)
        AfxPostQuitMessage(0);
    return CWinThread::Run();
}

int CWinApp::ExitInstance()
{
    return static_cast<int>(m_msgCur.wParam);
}

void CWinApp::SetCurrentHandles()
{
    char path[kModulePathChars];
    const DWORD length = GetModuleFileNameA(m_hInstance, path, sizeof path);
    if (length == 0 || length >= sizeof path)
        path[0] = '\0';
    const char* name = path;
    for (const char* p = path; *p != '\0'; ++p) {
        if (*p == '\\' || *p == '/' || *p == ':')
            name = p + 1;
    }
    const char* dot = std::strrchr(name, '.');
    const CString exeName = dot != nullptr ? CString(name, static_cast<int>(dot - name)) : CString(name);

    if (m_pszExeName == nullptr)
        ReplaceOwned(m_pszExeName, exeName);
    if (m_pszAppName == nullptr) {
        CString title;
        ReplaceOwned(m_pszAppName, title.LoadString(AFX_IDS_APP_TITLE) ? title.GetString() : m_pszExeName);
    }
    if (m_pszHelpFilePath == nullptr) {
        CString help(path);
        const int pathDot = help.ReverseFind('.');
        const int lastSeparator = help.GetLength() - static_cast<int>(std::strlen(name));
        if (pathDot >= lastSeparator)
            help.Truncate(pathDot);
        help += ".HLP";
        ReplaceOwned(m_pszHelpFilePath, help);
    }
    if (m_pszProfileName == nullptr) {
        const CString ini = CString(m_pszExeName) + ".INI";
        ReplaceOwned(m_pszProfileName, ini);
    }
    AfxGetModuleState()->m_lpszCurrentAppName = m_pszAppName;
}

void CWinApp::SetRegistryKey(LPCTSTR lpszRegistryKey)
{
    ReplaceOwned(m_pszRegistryKey, lpszRegistryKey);
    // The profile's name becomes the application's, the key below which the
    // sections live.
    ReplaceOwned(m_pszProfileName, m_pszAppName);
}

void CWinApp::SetRegistryKey(UINT nIDRegistryKey)
{
    CString key;
    key.LoadString(nIDRegistryKey);
    SetRegistryKey(key.GetString());
}

int CWinApp::DoMessageBox(LPCTSTR lpszPrompt, UINT nType, UINT nIDPrompt)
{
    if ((nType & MB_ICONMASK) == 0) {
        switch (nType & MB_TYPEMASK) {
        case MB_OK:
        case MB_OKCANCEL:
            nType |= MB_ICONEXCLAMATION;
            break;
        case MB_YESNO:
        case MB_YESNOCANCEL:
            nType |= MB_ICONQUESTION;
            break;
        default:
            break;
        }
    }
    CWnd* mainWnd = AfxGetMainWnd();
    HWND owner = mainWnd != nullptr ? mainWnd->GetSafeHwnd() : nullptr;
    if (owner == nullptr || !IsWindowEnabled(owner))
        owner = GetActiveWindow();
    return MessageBoxA(owner, lpszPrompt, m_pszAppName, nType);
}

void CWinApp::WinHelp(DWORD_PTR dwData, UINT nCmd)
{
    CWnd* mainWnd = AfxGetMainWnd();
    ::WinHelpA(mainWnd != nullptr ? mainWnd->GetSafeHwnd() : nullptr, m_pszHelpFilePath, nCmd, dwData);
}

void CWinApp::OnHelp()
{
    WinHelp(0, HELP_CONTENTS);
}

HICON CWinApp::LoadIcon(LPCTSTR lpszResourceName) const
{
    return ::LoadIconA(AfxFindResourceHandle(lpszResourceName, RT_GROUP_ICON), lpszResourceName);
}

HICON CWinApp::LoadIcon(UINT nIDResource) const
{
    return LoadIcon(MAKEINTRESOURCEA(nIDResource));
}

HCURSOR CWinApp::LoadCursor(LPCTSTR lpszResourceName) const
{
    return ::LoadCursorA(AfxFindResourceHandle(lpszResourceName, RT_GROUP_CURSOR), lpszResourceName);
}

HCURSOR CWinApp::LoadCursor(UINT nIDResource) const
{
    return LoadCursor(MAKEINTRESOURCEA(nIDResource));
}

HICON CWinApp::LoadStandardIcon(LPCTSTR lpszIconName) const
{
    return ::LoadIconA(nullptr, lpszIconName);
}

HCURSOR CWinApp::LoadStandardCursor(LPCTSTR lpszCursorName) const
{
    return ::LoadCursorA(nullptr, lpszCursorName);
}

CWinApp* AfxGetApp()
{
    return AfxGetModuleState()->m_pCurrentWinApp;
}

CWinThread* AfxGetThread()
{
    return t_currentThread;
}

CWnd* AfxGetMainWnd()
{
    CWinThread* thread = AfxGetThread();
    return thread != nullptr ? thread->GetMainWnd() : nullptr;
}

LPCTSTR AfxGetAppName()
{
    return AfxGetModuleState()->m_lpszCurrentAppName;
}

BOOL AfxWinInit(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPTSTR lpCmdLine, int nCmdShow)
{
    AFX_MODULE_STATE* state = AfxGetModuleState();
    state->m_hCurrentInstanceHandle = hInstance;
    state->m_hCurrentResourceHandle = hInstance;
    if (CWinApp* app = AfxGetApp()) {
        app->m_hInstance = hInstance;
        app->m_lpCmdLine = lpCmdLine;
        app->m_nCmdShow = nCmdShow;
        app->m_nThreadID = GetCurrentThreadId();
        app->SetCurrentHandles();
        AfxSetCurrentThread(app);
    }
    return TRUE;
}

int AfxWinMain(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPTSTR lpCmdLine, int nCmdShow)
{
    int exitCode = -1;
    CWinApp* app = AfxGetApp();
    if (!AfxWinInit(hInstance, hPrevInstance, lpCmdLine, nCmdShow))
        return exitCode;
    CWinThread* thread = AfxGetThread();
    if (thread == nullptr || (app != nullptr && !app->InitApplication())) {
        AfxWinTerm();
        return exitCode;
    }
    if (!thread->InitInstance()) {
        if (thread->m_pMainWnd != nullptr)
            thread->m_pMainWnd->DestroyWindow();
        exitCode = thread->ExitInstance();
    } else {
        exitCode = thread->Run();
    }
    AfxWinTerm();
    return exitCode;
}

void AfxWinTerm()
{
    AfxDeleteTempMap();
}

BOOL AfxPumpMessage()
{
    if (CWinThread* thread = AfxGetThread())
        return thread->PumpMessage();
    MSG msg;
    if (!GetMessageA(&msg, nullptr, 0, 0))
        return FALSE;
    if (msg.message != WM_KICKIDLE && !AfxPreTranslateMessage(&msg)) {
        TranslateMessage(&msg);
        DispatchMessageA(&msg);
    }
    return TRUE;
}

BOOL AfxPreTranslateMessage(MSG* pMsg)
{
    if (CWinThread* thread = AfxGetThread())
        return thread->PreTranslateMessage(pMsg);
    CWnd* mainWnd = AfxGetMainWnd();
    return CWnd::WalkPreTranslateTree(mainWnd != nullptr ? mainWnd->GetSafeHwnd() : nullptr, pMsg);
}

BOOL AfxIsIdleMessage(MSG* pMsg)
{
    if (CWinThread* thread = AfxGetThread())
        return thread->IsIdleMessage(pMsg);
    return pMsg->message != WM_PAINT && pMsg->message != kCaretBlinkTimer;
}

void AfxPostQuitMessage(int nExitCode)
{
    PostQuitMessage(nExitCode);
}
