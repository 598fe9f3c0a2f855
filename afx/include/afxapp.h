// Applications, user-interface threads, module state, the resource chain of
// extension DLLs, the application profile and message boxes.
//
// Module state: afx is one DLL shared by the exe and every extension DLL, and
// the framework runs its user interface on one thread, so the process has
// exactly one AFX_MODULE_STATE. AfxGetModuleState, AfxGetAppModuleState and
// AfxGetStaticModuleState all return it, and AFX_MANAGE_STATE changes nothing.
// Until AfxWinInit runs, its instance and resource handles are the exe's.
//
// Resource chain: every CDynLinkLibrary links itself into the module state's
// list when it is constructed, in front of those already there (the most
// recently loaded extension DLL is searched first), and unlinks itself when it
// is destroyed. AfxFindResourceHandle and the string loader of CString search
// the current resource handle, then the non-system libraries of the chain in
// list order, then the system libraries, then the application's instance.
//
// Profile: with a registry key set (SetRegistryKey), values live below
// HKEY_CURRENT_USER\Software\<key>\<m_pszProfileName>\<section>, where
// SetRegistryKey makes m_pszProfileName the application's name; otherwise
// in the INI file m_pszProfileName (default "<exe name>.INI", which Windows
// places in the Windows directory), through the private profile functions.
// INI writes go straight to WritePrivateProfileStringA, not through a
// temporary file that replaces the profile (CAtomicFile): the system
// serialises writers of one profile, caches it and may map it to the
// registry (IniFileMapping), and a copy replaced behind its back would lose
// the concurrent writes of other processes.
#pragma once

#include "afx.h"
#include "afxmsg.h"
#include "afxwnd.h"
#include "afxres.h"

class CWinApp;
class CWinThread;
class CDynLinkLibrary;
class COleObjectFactory;

#ifndef WM_IDLEUPDATECMDUI
// Sent to the main window and its descendants while the thread is idle;
// wParam TRUE asks to disable controls without a handler.
#define WM_IDLEUPDATECMDUI 0x0363
#endif
#ifndef WM_KICKIDLE
// Posted to make an idle message loop run its idle processing again.
#define WM_KICKIDLE 0x036A
#endif

#ifndef ON_THREAD_MESSAGE
// A thread's handler of a message posted without a window:
// void memberFxn(WPARAM, LPARAM).
#define ON_THREAD_MESSAGE(message_, memberFxn) \
    AFX_MSG_ENTRY(message_, AFX_THUNK_V(memberFxn, (WPARAM, LPARAM), (wParam, lParam), 0))
// As ON_THREAD_MESSAGE for a message number from RegisterWindowMessage.
#define ON_REGISTERED_THREAD_MESSAGE(nMessageVariable, memberFxn) \
    {0xC000, \
     0, \
     0, \
     0, \
     AfxSig_registered, \
     &(nMessageVariable), \
     AFX_THUNK_V(memberFxn, (WPARAM, LPARAM), (wParam, lParam), 0)},
#endif

// The framework's record of an extension DLL, filled by AfxInitExtensionModule.
struct AFX_EXTENSION_MODULE
{
    BOOL bInitialized;
    HMODULE hModule;
    HMODULE hResource;
    // Always NULL here: run-time classes of every module register themselves
    // for CRuntimeClass::FromName, so no class list is handed over.
    CRuntimeClass* pFirstSharedClass;
    COleObjectFactory* pFirstSharedFactory;
};

// The process's framework state: current application, instance and
// resource handles, application name and the resource chain.
class AFX_API AFX_MODULE_STATE
{
public:
    AFX_MODULE_STATE();
    AFX_MODULE_STATE(const AFX_MODULE_STATE&) = delete;
    AFX_MODULE_STATE& operator=(const AFX_MODULE_STATE&) = delete;

    CWinApp* m_pCurrentWinApp;
    HINSTANCE m_hCurrentInstanceHandle;
    HINSTANCE m_hCurrentResourceHandle;
    LPCTSTR m_lpszCurrentAppName;
    BOOL m_bDLL;
    BOOL m_bSystem;
    // First library of the resource chain; each links to the next through
    // CDynLinkLibrary::m_pNextDLL. Changed only by CDynLinkLibrary.
    CDynLinkLibrary* m_pFirstDLL;
};

// The process's one module state.
AFX_API AFX_MODULE_STATE* AfxGetModuleState();
// The same state; the framework's name for the application's module state.
AFX_API AFX_MODULE_STATE* AfxGetAppModuleState();
// The same state; extension code passes it to AFX_MANAGE_STATE.
AFX_API AFX_MODULE_STATE* AfxGetStaticModuleState();

// Keeps framework code that switches module states compiling; with one
// module state per process there is nothing to switch.
#define AFX_MANAGE_STATE(p) ((void)(p))

// The module that holds the application's resources unless changed.
AFX_API HINSTANCE AfxGetResourceHandle();
// Makes hInstResource the module searched first for resources.
AFX_API void AfxSetResourceHandle(HINSTANCE hInstResource);
// The application's (exe's) instance handle.
AFX_API HINSTANCE AfxGetInstanceHandle();
// The first module along the resource chain that has resource lpszName of
// type lpszType; the current resource handle if none has it.
AFX_API HINSTANCE AfxFindResourceHandle(LPCTSTR lpszName, LPCTSTR lpszType);

// Records an extension DLL's module handle; TRUE, and a second call for the
// same record does nothing more.
AFX_API BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE hModule);
// Removes and deletes the CDynLinkLibrary objects of state's module, or with
// bAll those of every extension module.
AFX_API void AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL bAll = FALSE);

// One extension DLL's link in the resource chain; the framework owns it once
// constructed, and AfxTermExtensionModule deletes it.
class AFX_API CDynLinkLibrary : public CCmdTarget
{
    DECLARE_DYNAMIC(CDynLinkLibrary)

public:
    explicit CDynLinkLibrary(AFX_EXTENSION_MODULE& state, BOOL bSystem = FALSE);
    CDynLinkLibrary(HINSTANCE hModule, HINSTANCE hResource);
    ~CDynLinkLibrary() override;

    HMODULE m_hModule;
    HMODULE m_hResource;
    // System libraries are searched after every non-system one.
    BOOL m_bSystem;
    CDynLinkLibrary* m_pNextDLL;

private:
    void Link();
};

// A thread with a message loop: idle processing, message pre-translation
// along the window chain, and the thread's main window.
class AFX_API CWinThread : public CCmdTarget
{
    DECLARE_DYNAMIC(CWinThread)

public:
    CWinThread();
    ~CWinThread() override;

    operator HANDLE() const { return m_hThread; }

    // The window whose destruction ends the thread's message loop.
    CWnd* m_pMainWnd;
    // A window that stands in for the main window while it is active.
    CWnd* m_pActiveWnd;
    BOOL m_bAutoDelete;
    HANDLE m_hThread;
    DWORD m_nThreadID;

    // m_pActiveWnd if set, else m_pMainWnd.
    virtual CWnd* GetMainWnd();
    // Per-thread start-up; FALSE (the default) means no message loop runs.
    virtual BOOL InitInstance();
    // The message loop with idle processing; ends with ExitInstance's result
    // when WM_QUIT arrives.
    virtual int Run();
    // Offers a message to the windows from its target up to the main window,
    // then to the thread's own thread-message handlers; TRUE if one used it.
    virtual BOOL PreTranslateMessage(MSG* pMsg);
    // Gets, pre-translates and dispatches one message; FALSE on WM_QUIT.
    virtual BOOL PumpMessage();
    // Idle work: lCount 0 updates the user interface of the main window
    // and its descendants (WM_IDLEUPDATECMDUI) and asks for more; lCount 1
    // deletes the temporary window objects and is the last call.
    virtual BOOL OnIdle(LONG lCount);
    // FALSE for messages after which idle processing need not run again:
    // WM_PAINT, the caret's timer and mouse moves that did not move.
    virtual BOOL IsIdleMessage(MSG* pMsg);
    // Clean-up when the loop ends; returns the thread's exit code (the
    // WM_QUIT code).
    virtual int ExitInstance();
    // Handles an exception thrown out of a window procedure: shows its
    // message through AfxMessageBox (not for CUserException) and answers -1
    // to WM_CREATE, 0 otherwise. The caller deletes the exception. The window
    // procedure hands over every exception that escapes a handler, so that
    // none unwinds through the system's frames: framework exceptions as they
    // are, std::bad_alloc as a CMemoryException, any other C++ exception as a
    // CException whose message is its what() (or "Internal application
    // error." for one that is not a std::exception).
    virtual LRESULT ProcessWndProcException(CException* e, const MSG* pMsg);
    // Deletes the object if m_bAutoDelete is set.
    virtual void Delete();

    // Hands a message without a window to the thread's ON_THREAD_MESSAGE
    // handler; TRUE if there was one.
    virtual BOOL DispatchThreadMessageEx(MSG* pMsg);

    // The message being processed.
    const MSG* GetCurrentMessage() const { return &m_msgCur; }

    DECLARE_MESSAGE_MAP()

protected:
    MSG m_msgCur;
    POINT m_ptCursorLast;
    UINT m_nMsgLast;
};

// The application: start-up through AfxWinMain, the profile, message boxes
// and help. Construct exactly one, as a global or before AfxWinInit.
//
// The m_psz strings are owned by the application and freed with free(); a
// program that replaces one frees the old value and assigns a _strdup copy.
class AFX_API CWinApp : public CWinThread
{
    DECLARE_DYNAMIC(CWinApp)

public:
    // Registers the new application as the module state's current one;
    // lpszAppName NULL takes the name from the AFX_IDS_APP_TITLE string or
    // the exe name in AfxWinInit.
    explicit CWinApp(LPCTSTR lpszAppName = NULL);
    ~CWinApp() override;

    LPCTSTR m_pszAppName;
    HINSTANCE m_hInstance;
    LPTSTR m_lpCmdLine;
    int m_nCmdShow;
    LPCTSTR m_pszExeName;
    LPCTSTR m_pszHelpFilePath;
    LPCTSTR m_pszProfileName;
    LPCTSTR m_pszRegistryKey;

    // Process-wide start-up before InitInstance; TRUE to go on.
    virtual BOOL InitApplication();
    BOOL InitInstance() override;
    // Ends at once (exit code 0) when InitInstance made no main window.
    int Run() override;
    int ExitInstance() override;

    // Keeps the profile in the registry below
    // HKEY_CURRENT_USER\Software\<lpszRegistryKey>\<application name>.
    void SetRegistryKey(LPCTSTR lpszRegistryKey);
    // As SetRegistryKey(LPCTSTR) with string resource nIDRegistryKey.
    void SetRegistryKey(UINT nIDRegistryKey);

    // The application's registry key, created if missing; the caller closes
    // it. NULL without a registry key.
    HKEY GetAppRegistryKey();
    // A section's key below the application's, created if missing (so that
    // reading a value creates its section, as the framework does); the
    // caller closes it.
    HKEY GetSectionKey(LPCTSTR lpszSection);

    // The entry's integer, or nDefault if it is missing or, in the
    // registry, not a REG_DWORD.
    UINT GetProfileInt(LPCTSTR lpszSection, LPCTSTR lpszEntry, int nDefault);
    BOOL WriteProfileInt(LPCTSTR lpszSection, LPCTSTR lpszEntry, int nValue);
    // The entry's text, or lpszDefault (NULL reads as "") if it is missing
    // or, in the registry, not a string.
    CString GetProfileString(LPCTSTR lpszSection, LPCTSTR lpszEntry, LPCTSTR lpszDefault = NULL);
    // Writes a text; a NULL lpszValue deletes the entry, a NULL lpszEntry
    // deletes the whole section.
    BOOL WriteProfileString(LPCTSTR lpszSection, LPCTSTR lpszEntry, LPCTSTR lpszValue);
    // The entry's bytes in a new[] array the caller delete[]s; FALSE, with
    // *ppData NULL and *pBytes 0, if there is none.
    BOOL GetProfileBinary(LPCTSTR lpszSection, LPCTSTR lpszEntry, LPBYTE* ppData, UINT* pBytes);
    // Writes bytes: REG_BINARY in the registry; in an INI file two letters
    // 'A'..'P' per byte, low half first, as the framework writes them. More
    // than INT_MAX / 2 bytes do not fit a text: the INI write returns FALSE
    // and writes nothing.
    BOOL WriteProfileBinary(LPCTSTR lpszSection, LPCTSTR lpszEntry, LPBYTE pData, UINT nBytes);

    // Shows a message box for AfxMessageBox: the application's name as
    // caption, owned by the main window or else the active window; a box
    // without an icon gets the exclamation mark (OK types) or the question
    // mark (Yes/No types).
    virtual int DoMessageBox(LPCTSTR lpszPrompt, UINT nType, UINT nIDPrompt);
    // Opens help for dwData through WinHelpA with m_pszHelpFilePath, owned
    // by the main window. Tests replace it.
    virtual void WinHelp(DWORD_PTR dwData, UINT nCmd = HELP_CONTEXT);
    // ID_HELP: opens the help file's contents (WinHelp with HELP_CONTENTS);
    // there is no lookup of the active window's help context.
    afx_msg void OnHelp();

    // Icons and cursors found along the resource chain, and the system's.
    HICON LoadIcon(LPCTSTR lpszResourceName) const;
    HICON LoadIcon(UINT nIDResource) const;
    HCURSOR LoadCursor(LPCTSTR lpszResourceName) const;
    HCURSOR LoadCursor(UINT nIDResource) const;
    HICON LoadStandardIcon(LPCTSTR lpszIconName) const;
    HCURSOR LoadStandardCursor(LPCTSTR lpszCursorName) const;

    // Fills the exe name, the application name, the help file path and the
    // profile name where they are still unset; AfxWinInit calls it.
    void SetCurrentHandles();

    DECLARE_MESSAGE_MAP()

private:
    BOOL UsesRegistry() const;
};

// The current application, or NULL.
AFX_API CWinApp* AfxGetApp();
// The calling thread's CWinThread (the application on its thread), or NULL.
AFX_API CWinThread* AfxGetThread();
// The current thread's main window, or NULL.
AFX_API CWnd* AfxGetMainWnd();
// The current application's name, or NULL.
AFX_API LPCTSTR AfxGetAppName();

// Initialises the module state and the current application (instance,
// command line, exe name, application name, help file and profile name).
AFX_API BOOL AfxWinInit(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPTSTR lpCmdLine, int nCmdShow);
// Runs the current application: AfxWinInit, InitApplication, InitInstance,
// then Run (or ExitInstance when InitInstance fails); returns the exit code.
AFX_API int AfxWinMain(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPTSTR lpCmdLine, int nCmdShow);
// Clean-up after the application's loop has ended.
AFX_API void AfxWinTerm();

// Pumps one message through the current thread; FALSE on WM_QUIT.
AFX_API BOOL AfxPumpMessage();
// Pre-translates one message through the current thread.
AFX_API BOOL AfxPreTranslateMessage(MSG* pMsg);
// Whether idle processing should follow the message.
AFX_API BOOL AfxIsIdleMessage(MSG* pMsg);
// Posts WM_QUIT with nExitCode to the calling thread.
AFX_API void AfxPostQuitMessage(int nExitCode);

// Shows a message box through the current application's DoMessageBox
// (without an application, MessageBoxA); returns the answer.
AFX_API int AfxMessageBox(LPCTSTR lpszText, UINT nType = MB_OK, UINT nIDHelp = 0);
// As above with string resource nIDPrompt as text; nIDHelp (UINT)-1 means
// the help context is nIDPrompt.
AFX_API int AfxMessageBox(UINT nIDPrompt, UINT nType = MB_OK, UINT nIDHelp = (UINT)-1);
