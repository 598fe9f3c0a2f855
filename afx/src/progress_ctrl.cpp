// CProgressCtrl, the progress bar.
#include "common_controls.h"

IMPLEMENT_DYNAMIC(CProgressCtrl, CWnd)

CProgressCtrl::CProgressCtrl() = default;

BOOL CProgressCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    AfxInitCommonControlClasses(ICC_PROGRESS_CLASS);
    return CWnd::Create(PROGRESS_CLASSA, nullptr, dwStyle, rect, pParentWnd, nID);
}

void CProgressCtrl::SetRange(short nLower, short nUpper)
{
    SendMessage(PBM_SETRANGE, 0, MAKELPARAM(nLower, nUpper));
}

void CProgressCtrl::SetRange32(int nLower, int nUpper)
{
    SendMessage(PBM_SETRANGE32, static_cast<WPARAM>(nLower), static_cast<LPARAM>(nUpper));
}

void CProgressCtrl::GetRange(int& nLower, int& nUpper) const
{
    PBRANGE range = {};
    SendMessage(PBM_GETRANGE, FALSE, reinterpret_cast<LPARAM>(&range));
    nLower = range.iLow;
    nUpper = range.iHigh;
}

int CProgressCtrl::SetPos(int nPos)
{
    return static_cast<int>(SendMessage(PBM_SETPOS, static_cast<WPARAM>(nPos), 0));
}

int CProgressCtrl::GetPos() const
{
    return static_cast<int>(SendMessage(PBM_GETPOS, 0, 0));
}

int CProgressCtrl::OffsetPos(int nPos)
{
    return static_cast<int>(SendMessage(PBM_DELTAPOS, static_cast<WPARAM>(nPos), 0));
}

int CProgressCtrl::SetStep(int nStep)
{
    return static_cast<int>(SendMessage(PBM_SETSTEP, static_cast<WPARAM>(nStep), 0));
}

int CProgressCtrl::StepIt()
{
    return static_cast<int>(SendMessage(PBM_STEPIT, 0, 0));
}

COLORREF CProgressCtrl::SetBarColor(COLORREF clrBar)
{
    return static_cast<COLORREF>(SendMessage(PBM_SETBARCOLOR, 0, static_cast<LPARAM>(clrBar)));
}

COLORREF CProgressCtrl::SetBkColor(COLORREF clrNew)
{
    return static_cast<COLORREF>(SendMessage(PBM_SETBKCOLOR, 0, static_cast<LPARAM>(clrNew)));
}
