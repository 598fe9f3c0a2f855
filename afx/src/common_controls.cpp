// Common controls: progress bar, image list, tab control, header and list
// view.
#include "afxcmn.h"
#include "wnd_state.h"

#include <cstdint>
#include <cstring>
#include <vector>

IMPLEMENT_DYNAMIC(CProgressCtrl, CWnd)
IMPLEMENT_DYNCREATE(CImageList, CObject)
IMPLEMENT_DYNAMIC(CTabCtrl, CWnd)
IMPLEMENT_DYNAMIC(CHeaderCtrl, CWnd)
IMPLEMENT_DYNAMIC(CListCtrl, CWnd)

namespace {

std::uintptr_t OpaqueAddress(const void* p)
{
    std::uintptr_t value = reinterpret_cast<std::uintptr_t>(p);
    asm("" : "+r"(value));
    return value;
}

// Makes sure the common control classes are registered before a Create.
void InitCommonControlClasses(DWORD classes)
{
    INITCOMMONCONTROLSEX init = {sizeof(INITCOMMONCONTROLSEX), classes};
    ::InitCommonControlsEx(&init);
}

HIMAGELIST ImageListHandle(const CImageList* pImageList)
{
    return pImageList != nullptr ? pImageList->m_hImageList : nullptr;
}

}  // namespace

void AfxDeleteImageListTempMap(AfxWndThreadState& state)
{
    auto temporary = std::move(state.imageLists.temporary);
    state.imageLists.temporary.clear();
    for (auto& entry : temporary) {
        entry.second->m_hImageList = nullptr;
        delete entry.second;
    }
}

// ---- CProgressCtrl ----

CProgressCtrl::CProgressCtrl() = default;

BOOL CProgressCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    InitCommonControlClasses(ICC_PROGRESS_CLASS);
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

// ---- CImageList ----

CImageList::CImageList() : m_hImageList(nullptr) {}

CImageList::~CImageList()
{
    DeleteImageList();
}

HIMAGELIST CImageList::GetSafeHandle() const
{
    return OpaqueAddress(this) == 0 ? nullptr : m_hImageList;
}

CImageList* PASCAL CImageList::FromHandle(HIMAGELIST hImageList)
{
    if (hImageList == nullptr)
        return nullptr;
    AfxWndThreadState& state = AfxGetWndThreadState();
    if (CImageList* pList = state.imageLists.LookupPermanent(hImageList))
        return pList;
    CImageList*& temp = state.imageLists.temporary[hImageList];
    if (temp == nullptr)
        temp = new CImageList;
    temp->m_hImageList = hImageList;
    return temp;
}

CImageList* PASCAL CImageList::FromHandlePermanent(HIMAGELIST hImageList)
{
    if (hImageList == nullptr)
        return nullptr;
    return AfxGetWndThreadState().imageLists.LookupPermanent(hImageList);
}

void PASCAL CImageList::DeleteTempMap()
{
    AfxDeleteTempMap();
}

BOOL CImageList::Attach(HIMAGELIST hImageList)
{
    if (hImageList == nullptr || m_hImageList != nullptr)
        return FALSE;
    m_hImageList = hImageList;
    AfxGetWndThreadState().imageLists.permanent[hImageList] = this;
    return TRUE;
}

HIMAGELIST CImageList::Detach()
{
    const HIMAGELIST hImageList = m_hImageList;
    if (hImageList != nullptr) {
        auto& permanent = AfxGetWndThreadState().imageLists.permanent;
        auto it = permanent.find(hImageList);
        if (it != permanent.end() && it->second == this)
            permanent.erase(it);
    }
    m_hImageList = nullptr;
    return hImageList;
}

BOOL CImageList::Create(int cx, int cy, UINT nFlags, int nInitial, int nGrow)
{
    return Attach(ImageList_Create(cx, cy, nFlags, nInitial, nGrow));
}

BOOL CImageList::Create(UINT nBitmapID, int cx, int nGrow, COLORREF crMask)
{
    return Create(MAKEINTRESOURCEA(nBitmapID), cx, nGrow, crMask);
}

BOOL CImageList::Create(LPCTSTR lpszBitmapID, int cx, int nGrow, COLORREF crMask)
{
    const HINSTANCE hInst = AfxFindResourceHandle(lpszBitmapID, RT_BITMAP);
    return Attach(ImageList_LoadImageA(hInst, lpszBitmapID, cx, nGrow, crMask, IMAGE_BITMAP, LR_CREATEDIBSECTION));
}

BOOL CImageList::DeleteImageList()
{
    if (m_hImageList == nullptr)
        return FALSE;
    return ImageList_Destroy(Detach());
}

int CImageList::GetImageCount() const
{
    return ImageList_GetImageCount(m_hImageList);
}

BOOL CImageList::SetImageCount(UINT uNewCount)
{
    return ImageList_SetImageCount(m_hImageList, uNewCount);
}

int CImageList::Add(CBitmap* pbmImage, CBitmap* pbmMask)
{
    return ImageList_Add(m_hImageList, static_cast<HBITMAP>(pbmImage->GetSafeHandle()),
                         pbmMask != nullptr ? static_cast<HBITMAP>(pbmMask->GetSafeHandle()) : nullptr);
}

int CImageList::Add(CBitmap* pbmImage, COLORREF crMask)
{
    return ImageList_AddMasked(m_hImageList, static_cast<HBITMAP>(pbmImage->GetSafeHandle()), crMask);
}

int CImageList::Add(HICON hIcon)
{
    return ImageList_AddIcon(m_hImageList, hIcon);
}

int CImageList::Replace(int nImage, HICON hIcon)
{
    return ImageList_ReplaceIcon(m_hImageList, nImage, hIcon);
}

BOOL CImageList::Remove(int nImage)
{
    return ImageList_Remove(m_hImageList, nImage);
}

HICON CImageList::ExtractIcon(int nImage)
{
    return ImageList_GetIcon(m_hImageList, nImage, ILD_NORMAL);
}

COLORREF CImageList::SetBkColor(COLORREF cr)
{
    return ImageList_SetBkColor(m_hImageList, cr);
}

COLORREF CImageList::GetBkColor() const
{
    return ImageList_GetBkColor(m_hImageList);
}

BOOL CImageList::GetImageInfo(int nImage, IMAGEINFO* pImageInfo) const
{
    return ImageList_GetImageInfo(m_hImageList, nImage, pImageInfo);
}

BOOL CImageList::Draw(CDC* pDC, int nImage, POINT pt, UINT nStyle)
{
    return ImageList_Draw(m_hImageList, nImage, pDC->GetSafeHdc(), pt.x, pt.y, nStyle);
}

// ---- CTabCtrl ----

CTabCtrl::CTabCtrl() = default;

BOOL CTabCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    InitCommonControlClasses(ICC_TAB_CLASSES);
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
        SendMessage(TCM_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(ImageListHandle(pImageList)))));
}

// ---- CHeaderCtrl ----

CHeaderCtrl::CHeaderCtrl() = default;

BOOL CHeaderCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    InitCommonControlClasses(ICC_LISTVIEW_CLASSES);
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
        SendMessage(HDM_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(ImageListHandle(pImageList)))));
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

// ---- CListCtrl ----

CListCtrl::CListCtrl() = default;

BOOL CListCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    InitCommonControlClasses(ICC_LISTVIEW_CLASSES);
    return CWnd::Create(WC_LISTVIEWA, nullptr, dwStyle, rect, pParentWnd, nID);
}

BOOL CListCtrl::CreateEx(DWORD dwExStyle, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    InitCommonControlClasses(ICC_LISTVIEW_CLASSES);
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
        LVM_SETIMAGELIST, static_cast<WPARAM>(nImageList), reinterpret_cast<LPARAM>(ImageListHandle(pImageList)))));
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
