// The window procedure of framework windows and message-map dispatch: the
// exception net around every handler, the CWnd message map, WindowProc and
// OnWndMsg.
#include "wnd_state.h"

#include <exception>
#include <new>

namespace {

// A C++ exception that is not a framework one, as the framework exception
// that ProcessWndProcException takes: its message is the exception's what(),
// or a fixed text for something that is not a std::exception. It lives on
// the stack of the handler that made it, so Delete() leaves it alone.
class CEscapedException : public CException
{
public:
    explicit CEscapedException(const char* lpszWhat) : CException(FALSE)
    {
        ::lstrcpynA(m_szText, lpszWhat != nullptr && *lpszWhat != '\0' ? lpszWhat : kUnknown, sizeof m_szText);
    }

    BOOL GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext = NULL) const override
    {
        if (pnHelpContext != nullptr)
            *pnHelpContext = 0;
        if (lpszError != nullptr && nMaxError > 0)
            ::lstrcpynA(lpszError, m_szText, static_cast<int>(nMaxError));
        return TRUE;
    }

private:
    static constexpr char kUnknown[] = "Internal application error.";
    // A fixed buffer: making this exception must not need memory.
    char m_szText[256];
};

// The thread's ProcessWndProcException for e, or its default answer when
// there is no thread object or it throws itself.
LRESULT ProcessException(CException* e, const MSG* pMsg) noexcept
{
    const LRESULT lFallback = pMsg != nullptr && pMsg->message == WM_CREATE ? -1 : 0;
    try {
        CWinThread* pThread = AfxGetThread();
        return pThread != nullptr ? pThread->ProcessWndProcException(e, pMsg) : lFallback;
    } catch (CException* eAgain) {
        eAgain->Delete();
    } catch (...) {
    }
    return lFallback;
}

}  // namespace

LRESULT AfxProcessEscapedException(const MSG* pMsg) noexcept
{
    try {
        throw;
    } catch (CException* e) {
        const LRESULT lResult = ProcessException(e, pMsg);
        e->Delete();
        return lResult;
    } catch (const std::bad_alloc&) {
        CMemoryException memory(FALSE);
        return ProcessException(&memory, pMsg);
    } catch (const std::exception& x) {
        CEscapedException escaped(x.what());
        return ProcessException(&escaped, pMsg);
    } catch (...) {
        CEscapedException escaped(nullptr);
        return ProcessException(&escaped, pMsg);
    }
}

LRESULT AfxCallWndProc(CWnd* pWnd, HWND hWnd, UINT nMsg, WPARAM wParam, LPARAM lParam)
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
    } catch (...) {
        // Nothing may unwind through the system's frames that called us: on
        // x64 that ends the process or leaves the system's state broken.
        const MSG current = state.lastSentMsg;
        lResult = AfxProcessEscapedException(&current);
    }
    state.lastSentMsg = previous;
    return lResult;
}

LRESULT CALLBACK AfxWndProc(HWND hWnd, UINT nMsg, WPARAM wParam, LPARAM lParam)
{
    CWnd* pWnd = CWnd::FromHandlePermanent(hWnd);
    if (pWnd == nullptr)
        return ::DefWindowProcA(hWnd, nMsg, wParam, lParam);
    return AfxCallWndProc(pWnd, hWnd, nMsg, wParam, lParam);
}

const MSG* PASCAL CWnd::GetCurrentMessage()
{
    return &AfxGetWndThreadState().lastSentMsg;
}

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
            if (entry == nullptr && AfxIsCtlColorMessage(message))
                entry = AfxFindMessageEntry(map->lpEntries, WM_CTLCOLOR, 0, 0);
        }
        if (entry == nullptr) {
            // Scroll bars and list boxes without a handler in the parent's
            // map still get their reflected messages.
            if ((message == WM_HSCROLL || message == WM_VSCROLL || message == WM_VKEYTOITEM ||
                 message == WM_CHARTOITEM) &&
                lParam != 0)
                return AfxReflectToChild(reinterpret_cast<HWND>(lParam), message, wParam, lParam, pResult);
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
