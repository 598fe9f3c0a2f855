// The device contexts of a window: CPaintDC, CClientDC and CWindowDC.
#include "afxwin.h"

IMPLEMENT_DYNAMIC(CPaintDC, CDC)
IMPLEMENT_DYNAMIC(CClientDC, CDC)
IMPLEMENT_DYNAMIC(CWindowDC, CDC)

CPaintDC::CPaintDC(CWnd* pWnd) : m_ps(), m_hWnd(pWnd->GetSafeHwnd())
{
    if (!Attach(::BeginPaint(m_hWnd, &m_ps)))
        AfxThrowNotSupportedException();
}

CPaintDC::~CPaintDC()
{
    ::EndPaint(m_hWnd, &m_ps);
    Detach();
}

CClientDC::CClientDC(CWnd* pWnd) : m_hWnd(pWnd->GetSafeHwnd())
{
    if (!Attach(::GetDC(m_hWnd)))
        AfxThrowNotSupportedException();
}

CClientDC::~CClientDC()
{
    ::ReleaseDC(m_hWnd, Detach());
}

CWindowDC::CWindowDC(CWnd* pWnd) : m_hWnd(pWnd->GetSafeHwnd())
{
    if (!Attach(::GetWindowDC(m_hWnd)))
        AfxThrowNotSupportedException();
}

CWindowDC::~CWindowDC()
{
    ::ReleaseDC(m_hWnd, Detach());
}
