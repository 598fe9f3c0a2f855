// CTabCtrl, the tab control.
#include "common_controls.h"

IMPLEMENT_DYNAMIC(CTabCtrl, CWnd)

CTabCtrl::CTabCtrl() = default;

BOOL CTabCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    AfxInitCommonControlClasses(ICC_TAB_CLASSES);
    return CWnd::Create(WC_TABCONTROLA, nullptr, dwStyle, rect, pParentWnd, nID);
}

LONG CTabCtrl::InsertItem(int nItem, TCITEM* pTabCtrlItem)
{
    return static_cast<LONG>(
        SendMessage(TCM_INSERTITEMA, static_cast<WPARAM>(nItem), reinterpret_cast<LPARAM>(pTabCtrlItem)));
}

LONG CTabCtrl::InsertItem(int nItem, LPCTSTR lpszItem)
{
    TCITEMA item = {};
    item.mask = TCIF_TEXT;
    item.pszText = const_cast<LPSTR>(lpszItem);
    return InsertItem(nItem, &item);
}

LONG CTabCtrl::InsertItem(int nItem, LPCTSTR lpszItem, int nImage)
{
    TCITEMA item = {};
    item.mask = TCIF_TEXT | TCIF_IMAGE;
    item.pszText = const_cast<LPSTR>(lpszItem);
    item.iImage = nImage;
    return InsertItem(nItem, &item);
}

BOOL CTabCtrl::GetItem(int nItem, TCITEM* pTabCtrlItem) const
{
    return static_cast<BOOL>(
        SendMessage(TCM_GETITEMA, static_cast<WPARAM>(nItem), reinterpret_cast<LPARAM>(pTabCtrlItem)));
}

BOOL CTabCtrl::SetItem(int nItem, TCITEM* pTabCtrlItem)
{
    return static_cast<BOOL>(
        SendMessage(TCM_SETITEMA, static_cast<WPARAM>(nItem), reinterpret_cast<LPARAM>(pTabCtrlItem)));
}

BOOL CTabCtrl::DeleteItem(int nItem)
{
    return static_cast<BOOL>(SendMessage(TCM_DELETEITEM, static_cast<WPARAM>(nItem), 0));
}

BOOL CTabCtrl::DeleteAllItems()
{
    return static_cast<BOOL>(SendMessage(TCM_DELETEALLITEMS, 0, 0));
}

int CTabCtrl::GetItemCount() const
{
    return static_cast<int>(SendMessage(TCM_GETITEMCOUNT, 0, 0));
}

BOOL CTabCtrl::GetItemRect(int nItem, LPRECT lpRect) const
{
    return static_cast<BOOL>(
        SendMessage(TCM_GETITEMRECT, static_cast<WPARAM>(nItem), reinterpret_cast<LPARAM>(lpRect)));
}

int CTabCtrl::GetCurSel() const
{
    return static_cast<int>(SendMessage(TCM_GETCURSEL, 0, 0));
}

int CTabCtrl::SetCurSel(int nItem)
{
    return static_cast<int>(SendMessage(TCM_SETCURSEL, static_cast<WPARAM>(nItem), 0));
}

int CTabCtrl::GetCurFocus() const
{
    return static_cast<int>(SendMessage(TCM_GETCURFOCUS, 0, 0));
}

void CTabCtrl::SetCurFocus(int nItem)
{
    SendMessage(TCM_SETCURFOCUS, static_cast<WPARAM>(nItem), 0);
}

int CTabCtrl::GetRowCount() const
{
    return static_cast<int>(SendMessage(TCM_GETROWCOUNT, 0, 0));
}

void CTabCtrl::AdjustRect(BOOL bLarger, LPRECT lpRect)
{
    SendMessage(TCM_ADJUSTRECT, static_cast<WPARAM>(bLarger), reinterpret_cast<LPARAM>(lpRect));
}

int CTabCtrl::HitTest(TCHITTESTINFO* pHitTestInfo) const
{
    return static_cast<int>(SendMessage(TCM_HITTEST, 0, reinterpret_cast<LPARAM>(pHitTestInfo)));
}

CImageList* CTabCtrl::GetImageList() const
{
    return CImageList::FromHandle(reinterpret_cast<HIMAGELIST>(SendMessage(TCM_GETIMAGELIST, 0, 0)));
}

CImageList* CTabCtrl::SetImageList(CImageList* pImageList)
{
    return CImageList::FromHandle(reinterpret_cast<HIMAGELIST>(
        SendMessage(TCM_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(AfxImageListHandle(pImageList)))));
}
