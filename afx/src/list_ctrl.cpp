// CListCtrl, the list view.
#include "common_controls.h"

#include <cstring>
#include <vector>

IMPLEMENT_DYNAMIC(CListCtrl, CWnd)

CListCtrl::CListCtrl() = default;

BOOL CListCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    AfxInitCommonControlClasses(ICC_LISTVIEW_CLASSES);
    return CWnd::Create(WC_LISTVIEWA, nullptr, dwStyle, rect, pParentWnd, nID);
}

BOOL CListCtrl::CreateEx(DWORD dwExStyle, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    AfxInitCommonControlClasses(ICC_LISTVIEW_CLASSES);
    return CWnd::CreateEx(dwExStyle, WC_LISTVIEWA, nullptr, dwStyle, rect, pParentWnd, nID);
}

int CListCtrl::InsertColumn(int nCol, const LVCOLUMN* pColumn)
{
    return static_cast<int>(
        SendMessage(LVM_INSERTCOLUMNA, static_cast<WPARAM>(nCol), reinterpret_cast<LPARAM>(pColumn)));
}

int CListCtrl::InsertColumn(int nCol, LPCTSTR lpszColumnHeading, int nFormat, int nWidth, int nSubItem)
{
    LVCOLUMNA column = {};
    column.mask = LVCF_TEXT | LVCF_FMT;
    column.pszText = const_cast<LPSTR>(lpszColumnHeading);
    column.fmt = nFormat;
    if (nWidth != -1) {
        column.mask |= LVCF_WIDTH;
        column.cx = nWidth;
    }
    if (nSubItem != -1) {
        column.mask |= LVCF_SUBITEM;
        column.iSubItem = nSubItem;
    }
    return InsertColumn(nCol, &column);
}

BOOL CListCtrl::DeleteColumn(int nCol)
{
    return static_cast<BOOL>(SendMessage(LVM_DELETECOLUMN, static_cast<WPARAM>(nCol), 0));
}

BOOL CListCtrl::GetColumn(int nCol, LVCOLUMN* pColumn) const
{
    return static_cast<BOOL>(SendMessage(LVM_GETCOLUMNA, static_cast<WPARAM>(nCol), reinterpret_cast<LPARAM>(pColumn)));
}

BOOL CListCtrl::SetColumn(int nCol, const LVCOLUMN* pColumn)
{
    return static_cast<BOOL>(SendMessage(LVM_SETCOLUMNA, static_cast<WPARAM>(nCol), reinterpret_cast<LPARAM>(pColumn)));
}

int CListCtrl::GetColumnWidth(int nCol) const
{
    return static_cast<int>(SendMessage(LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(nCol), 0));
}

BOOL CListCtrl::SetColumnWidth(int nCol, int cx)
{
    return static_cast<BOOL>(SendMessage(LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(nCol), MAKELPARAM(cx, 0)));
}

CHeaderCtrl* CListCtrl::GetHeaderCtrl() const
{
    const HWND hHeader = reinterpret_cast<HWND>(SendMessage(LVM_GETHEADER, 0, 0));
    return static_cast<CHeaderCtrl*>(CWnd::FromHandle(hHeader));
}

int CListCtrl::InsertItem(const LVITEM* pItem)
{
    return static_cast<int>(SendMessage(LVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(pItem)));
}

int CListCtrl::InsertItem(int nItem, LPCTSTR lpszItem)
{
    return InsertItem(LVIF_TEXT, nItem, lpszItem, 0, 0, 0, 0);
}

int CListCtrl::InsertItem(int nItem, LPCTSTR lpszItem, int nImage)
{
    return InsertItem(LVIF_TEXT | LVIF_IMAGE, nItem, lpszItem, 0, 0, nImage, 0);
}

int CListCtrl::InsertItem(UINT nMask, int nItem, LPCTSTR lpszItem, UINT nState, UINT nStateMask, int nImage,
                          LPARAM lParam)
{
    LVITEMA item = {};
    item.mask = nMask;
    item.iItem = nItem;
    item.pszText = const_cast<LPSTR>(lpszItem);
    item.state = nState;
    item.stateMask = nStateMask;
    item.iImage = nImage;
    item.lParam = lParam;
    return InsertItem(&item);
}

BOOL CListCtrl::GetItem(LVITEM* pItem) const
{
    return static_cast<BOOL>(SendMessage(LVM_GETITEMA, 0, reinterpret_cast<LPARAM>(pItem)));
}

BOOL CListCtrl::SetItem(const LVITEM* pItem)
{
    return static_cast<BOOL>(SendMessage(LVM_SETITEMA, 0, reinterpret_cast<LPARAM>(pItem)));
}

BOOL CListCtrl::SetItem(int nItem, int nSubItem, UINT nMask, LPCTSTR lpszItem, int nImage, UINT nState, UINT nStateMask,
                        LPARAM lParam)
{
    LVITEMA item = {};
    item.mask = nMask;
    item.iItem = nItem;
    item.iSubItem = nSubItem;
    item.pszText = const_cast<LPSTR>(lpszItem);
    item.iImage = nImage;
    item.state = nState;
    item.stateMask = nStateMask;
    item.lParam = lParam;
    return SetItem(&item);
}

BOOL CListCtrl::SetItemText(int nItem, int nSubItem, LPCTSTR lpszText)
{
    LVITEMA item = {};
    item.iSubItem = nSubItem;
    item.pszText = const_cast<LPSTR>(lpszText);
    return static_cast<BOOL>(
        SendMessage(LVM_SETITEMTEXTA, static_cast<WPARAM>(nItem), reinterpret_cast<LPARAM>(&item)));
}

int CListCtrl::GetItemText(int nItem, int nSubItem, LPTSTR lpszText, int nLen) const
{
    LVITEMA item = {};
    item.iSubItem = nSubItem;
    item.pszText = lpszText;
    item.cchTextMax = nLen;
    return static_cast<int>(SendMessage(LVM_GETITEMTEXTA, static_cast<WPARAM>(nItem), reinterpret_cast<LPARAM>(&item)));
}

CString CListCtrl::GetItemText(int nItem, int nSubItem) const
{
    // The control reports no length, and a truncated copy may come without
    // its terminating NUL (Wine's ANSI path): the buffer keeps a NUL of its
    // own and grows until the text leaves room to spare.
    std::vector<char> buffer(256);
    for (;;) {
        buffer.back() = '\0';
        GetItemText(nItem, nSubItem, buffer.data(), static_cast<int>(buffer.size()) - 1);
        const size_t length = std::strlen(buffer.data());
        if (length + 2 < buffer.size())
            return CString(buffer.data(), static_cast<int>(length));
        buffer.assign(buffer.size() * 2, '\0');
    }
}

BOOL CListCtrl::DeleteItem(int nItem)
{
    return static_cast<BOOL>(SendMessage(LVM_DELETEITEM, static_cast<WPARAM>(nItem), 0));
}

BOOL CListCtrl::DeleteAllItems()
{
    return static_cast<BOOL>(SendMessage(LVM_DELETEALLITEMS, 0, 0));
}

int CListCtrl::GetItemCount() const
{
    return static_cast<int>(SendMessage(LVM_GETITEMCOUNT, 0, 0));
}

BOOL CListCtrl::SetItemCount(int nItems)
{
    return static_cast<BOOL>(SendMessage(LVM_SETITEMCOUNT, static_cast<WPARAM>(nItems), 0));
}

DWORD_PTR CListCtrl::GetItemData(int nItem) const
{
    LVITEMA item = {};
    item.mask = LVIF_PARAM;
    item.iItem = nItem;
    GetItem(&item);
    return static_cast<DWORD_PTR>(item.lParam);
}

BOOL CListCtrl::SetItemData(int nItem, DWORD_PTR dwData)
{
    return SetItem(nItem, 0, LVIF_PARAM, nullptr, 0, 0, 0, static_cast<LPARAM>(dwData));
}

UINT CListCtrl::GetItemState(int nItem, UINT nMask) const
{
    return static_cast<UINT>(SendMessage(LVM_GETITEMSTATE, static_cast<WPARAM>(nItem), static_cast<LPARAM>(nMask)));
}

BOOL CListCtrl::SetItemState(int nItem, UINT nState, UINT nMask)
{
    LVITEMA item = {};
    item.state = nState;
    item.stateMask = nMask;
    return SetItemState(nItem, &item);
}

BOOL CListCtrl::SetItemState(int nItem, LVITEM* pItem)
{
    return static_cast<BOOL>(
        SendMessage(LVM_SETITEMSTATE, static_cast<WPARAM>(nItem), reinterpret_cast<LPARAM>(pItem)));
}

BOOL CListCtrl::GetItemRect(int nItem, LPRECT lpRect, UINT nCode) const
{
    lpRect->left = static_cast<LONG>(nCode);
    return static_cast<BOOL>(
        SendMessage(LVM_GETITEMRECT, static_cast<WPARAM>(nItem), reinterpret_cast<LPARAM>(lpRect)));
}

int CListCtrl::FindItem(LVFINDINFO* pFindInfo, int nStart) const
{
    return static_cast<int>(
        SendMessage(LVM_FINDITEMA, static_cast<WPARAM>(nStart), reinterpret_cast<LPARAM>(pFindInfo)));
}

int CListCtrl::HitTest(CPoint pt, UINT* pFlags) const
{
    LVHITTESTINFO info = {};
    info.pt = pt;
    const int nItem = static_cast<int>(SendMessage(LVM_HITTEST, 0, reinterpret_cast<LPARAM>(&info)));
    if (pFlags != nullptr)
        *pFlags = info.flags;
    return nItem;
}

UINT CListCtrl::GetSelectedCount() const
{
    return static_cast<UINT>(SendMessage(LVM_GETSELECTEDCOUNT, 0, 0));
}

int CListCtrl::GetNextItem(int nItem, int nFlags) const
{
    return static_cast<int>(SendMessage(LVM_GETNEXTITEM, static_cast<WPARAM>(nItem), MAKELPARAM(nFlags, 0)));
}

// A position is the item's index plus one, so that NULL ends the walk.
POSITION CListCtrl::GetFirstSelectedItemPosition() const
{
    return reinterpret_cast<POSITION>(static_cast<INT_PTR>(GetNextItem(-1, LVNI_SELECTED) + 1));
}

int CListCtrl::GetNextSelectedItem(POSITION& pos) const
{
    const int nItem = static_cast<int>(reinterpret_cast<INT_PTR>(pos)) - 1;
    pos = reinterpret_cast<POSITION>(static_cast<INT_PTR>(GetNextItem(nItem, LVNI_SELECTED) + 1));
    return nItem;
}

int CListCtrl::GetSelectionMark() const
{
    return static_cast<int>(SendMessage(LVM_GETSELECTIONMARK, 0, 0));
}

int CListCtrl::SetSelectionMark(int iIndex)
{
    return static_cast<int>(SendMessage(LVM_SETSELECTIONMARK, 0, static_cast<LPARAM>(iIndex)));
}

BOOL CListCtrl::SortItems(PFNLVCOMPARE pfnCompare, DWORD_PTR dwData)
{
    return static_cast<BOOL>(
        SendMessage(LVM_SORTITEMS, static_cast<WPARAM>(dwData), reinterpret_cast<LPARAM>(pfnCompare)));
}

DWORD CListCtrl::GetExtendedStyle() const
{
    return static_cast<DWORD>(SendMessage(LVM_GETEXTENDEDLISTVIEWSTYLE, 0, 0));
}

DWORD CListCtrl::SetExtendedStyle(DWORD dwNewStyle)
{
    return static_cast<DWORD>(SendMessage(LVM_SETEXTENDEDLISTVIEWSTYLE, 0, static_cast<LPARAM>(dwNewStyle)));
}

BOOL CListCtrl::EnsureVisible(int nItem, BOOL bPartialOK)
{
    return static_cast<BOOL>(SendMessage(LVM_ENSUREVISIBLE, static_cast<WPARAM>(nItem), MAKELPARAM(bPartialOK, 0)));
}

int CListCtrl::GetTopIndex() const
{
    return static_cast<int>(SendMessage(LVM_GETTOPINDEX, 0, 0));
}

int CListCtrl::GetCountPerPage() const
{
    return static_cast<int>(SendMessage(LVM_GETCOUNTPERPAGE, 0, 0));
}

BOOL CListCtrl::RedrawItems(int nFirst, int nLast)
{
    return static_cast<BOOL>(SendMessage(LVM_REDRAWITEMS, static_cast<WPARAM>(nFirst), static_cast<LPARAM>(nLast)));
}

BOOL CListCtrl::Update(int nItem)
{
    return static_cast<BOOL>(SendMessage(LVM_UPDATE, static_cast<WPARAM>(nItem), 0));
}

int CListCtrl::GetStringWidth(LPCTSTR lpsz) const
{
    return static_cast<int>(SendMessage(LVM_GETSTRINGWIDTHA, 0, reinterpret_cast<LPARAM>(lpsz)));
}

CImageList* CListCtrl::SetImageList(CImageList* pImageList, int nImageList)
{
    return CImageList::FromHandle(reinterpret_cast<HIMAGELIST>(SendMessage(
        LVM_SETIMAGELIST, static_cast<WPARAM>(nImageList), reinterpret_cast<LPARAM>(AfxImageListHandle(pImageList)))));
}

CImageList* CListCtrl::GetImageList(int nImageList) const
{
    return CImageList::FromHandle(
        reinterpret_cast<HIMAGELIST>(SendMessage(LVM_GETIMAGELIST, static_cast<WPARAM>(nImageList), 0)));
}

COLORREF CListCtrl::GetBkColor() const
{
    return static_cast<COLORREF>(SendMessage(LVM_GETBKCOLOR, 0, 0));
}

BOOL CListCtrl::SetBkColor(COLORREF cr)
{
    return static_cast<BOOL>(SendMessage(LVM_SETBKCOLOR, 0, static_cast<LPARAM>(cr)));
}

COLORREF CListCtrl::GetTextColor() const
{
    return static_cast<COLORREF>(SendMessage(LVM_GETTEXTCOLOR, 0, 0));
}

BOOL CListCtrl::SetTextColor(COLORREF cr)
{
    return static_cast<BOOL>(SendMessage(LVM_SETTEXTCOLOR, 0, static_cast<LPARAM>(cr)));
}

COLORREF CListCtrl::GetTextBkColor() const
{
    return static_cast<COLORREF>(SendMessage(LVM_GETTEXTBKCOLOR, 0, 0));
}

BOOL CListCtrl::SetTextBkColor(COLORREF cr)
{
    return static_cast<BOOL>(SendMessage(LVM_SETTEXTBKCOLOR, 0, static_cast<LPARAM>(cr)));
}

void CListCtrl::DrawItem(LPDRAWITEMSTRUCT) {}

BOOL CListCtrl::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    if (message != WM_DRAWITEM)
        return CWnd::OnChildNotify(message, wParam, lParam, pResult);
    DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam));
    if (pResult != nullptr)
        *pResult = TRUE;
    return TRUE;
}
