// CWnd's modal message loop, which CDialog::DoModal and modal property
// sheets run.
#include "wnd_state.h"

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
