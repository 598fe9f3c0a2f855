// CHeaderCtrl, the column header.
#include "common_controls.h"

IMPLEMENT_DYNAMIC(CHeaderCtrl, CWnd)

CHeaderCtrl::CHeaderCtrl() = default;

BOOL CHeaderCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    AfxInitCommonControlClasses(ICC_LISTVIEW_CLASSES);
    return CWnd::Create(WC_HEADERA, nullptr, dwStyle, rect, pParentWnd, nID);
}

int CHeaderCtrl::GetItemCount() const
{
    return static_cast<int>(SendMessage(HDM_GETITEMCOUNT, 0, 0));
}

BOOL CHeaderCtrl::GetItem(int nPos, HDITEM* pHeaderItem) const
{
    return static_cast<BOOL>(
        SendMessage(HDM_GETITEMA, static_cast<WPARAM>(nPos), reinterpret_cast<LPARAM>(pHeaderItem)));
}

BOOL CHeaderCtrl::SetItem(int nPos, HDITEM* pHeaderItem)
{
    return static_cast<BOOL>(
        SendMessage(HDM_SETITEMA, static_cast<WPARAM>(nPos), reinterpret_cast<LPARAM>(pHeaderItem)));
}

int CHeaderCtrl::InsertItem(int nPos, HDITEM* phdi)
{
    return static_cast<int>(SendMessage(HDM_INSERTITEMA, static_cast<WPARAM>(nPos), reinterpret_cast<LPARAM>(phdi)));
}

BOOL CHeaderCtrl::DeleteItem(int nPos)
{
    return static_cast<BOOL>(SendMessage(HDM_DELETEITEM, static_cast<WPARAM>(nPos), 0));
}

BOOL CHeaderCtrl::GetItemRect(int nIndex, LPRECT lpRect) const
{
    return static_cast<BOOL>(
        SendMessage(HDM_GETITEMRECT, static_cast<WPARAM>(nIndex), reinterpret_cast<LPARAM>(lpRect)));
}

BOOL CHeaderCtrl::GetOrderArray(LPINT piArray, int iCount) const
{
    return static_cast<BOOL>(
        SendMessage(HDM_GETORDERARRAY, static_cast<WPARAM>(iCount), reinterpret_cast<LPARAM>(piArray)));
}

BOOL CHeaderCtrl::SetOrderArray(int iCount, LPINT piArray)
{
    return static_cast<BOOL>(
        SendMessage(HDM_SETORDERARRAY, static_cast<WPARAM>(iCount), reinterpret_cast<LPARAM>(piArray)));
}

int CHeaderCtrl::OrderToIndex(int nOrder) const
{
    return static_cast<int>(SendMessage(HDM_ORDERTOINDEX, static_cast<WPARAM>(nOrder), 0));
}

CImageList* CHeaderCtrl::GetImageList() const
{
    return CImageList::FromHandle(reinterpret_cast<HIMAGELIST>(SendMessage(HDM_GETIMAGELIST, 0, 0)));
}

CImageList* CHeaderCtrl::SetImageList(CImageList* pImageList)
{
    return CImageList::FromHandle(reinterpret_cast<HIMAGELIST>(
        SendMessage(HDM_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(AfxImageListHandle(pImageList)))));
}

void CHeaderCtrl::DrawItem(LPDRAWITEMSTRUCT) {}

BOOL CHeaderCtrl::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    if (message != WM_DRAWITEM)
        return CWnd::OnChildNotify(message, wParam, lParam, pResult);
    DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam));
    if (pResult != nullptr)
        *pResult = TRUE;
    return TRUE;
}
