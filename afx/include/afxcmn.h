// Common controls (comctl32): progress bar, tab control, image list,
// header and list view.
//
// Image lists have handle maps like menus: the CImageList that created or
// attached a list is permanent; FromHandle makes temporary objects for other
// lists, deleted at idle time with the other temporaries.
#pragma once

#include "afxwin.h"

#include <commctrl.h>

// A progress bar.
class AFX_API CProgressCtrl : public CWnd
{
    DECLARE_DYNAMIC(CProgressCtrl)

public:
    CProgressCtrl();
    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    void SetRange(short nLower, short nUpper);
    void SetRange32(int nLower, int nUpper);
    void GetRange(int& nLower, int& nUpper) const;
    // Each returns the previous position.
    int SetPos(int nPos);
    int GetPos() const;
    int OffsetPos(int nPos);
    int SetStep(int nStep);
    int StepIt();
    COLORREF SetBarColor(COLORREF clrBar);
    COLORREF SetBkColor(COLORREF clrNew);
};

// A list of same-sized images, drawn by index.
class AFX_API CImageList : public CObject
{
    DECLARE_DYNCREATE(CImageList)

public:
    CImageList();
    // Destroys the list if the object still owns one.
    ~CImageList() override;

    HIMAGELIST m_hImageList;

    operator HIMAGELIST() const { return m_hImageList; }
    HIMAGELIST GetSafeHandle() const;

    static CImageList* PASCAL FromHandle(HIMAGELIST hImageList);
    static CImageList* PASCAL FromHandlePermanent(HIMAGELIST hImageList);
    static void PASCAL DeleteTempMap();
    BOOL Attach(HIMAGELIST hImageList);
    HIMAGELIST Detach();

    // nFlags: ILC_COLOR32, ILC_MASK, ...
    BOOL Create(int cx, int cy, UINT nFlags, int nInitial, int nGrow);
    // From a bitmap resource found along the resource chain; crMask is the
    // transparent colour (CLR_NONE for none).
    BOOL Create(UINT nBitmapID, int cx, int nGrow, COLORREF crMask);
    BOOL Create(LPCTSTR lpszBitmapID, int cx, int nGrow, COLORREF crMask);
    BOOL DeleteImageList();

    int GetImageCount() const;
    BOOL SetImageCount(UINT uNewCount);
    // Each returns the index of the first new image, or -1.
    int Add(CBitmap* pbmImage, CBitmap* pbmMask);
    int Add(CBitmap* pbmImage, COLORREF crMask);
    int Add(HICON hIcon);
    int Replace(int nImage, HICON hIcon);
    BOOL Remove(int nImage);
    HICON ExtractIcon(int nImage);
    COLORREF SetBkColor(COLORREF cr);
    COLORREF GetBkColor() const;
    BOOL GetImageInfo(int nImage, IMAGEINFO* pImageInfo) const;
    // nStyle: ILD_NORMAL, ILD_TRANSPARENT, ...
    BOOL Draw(CDC* pDC, int nImage, POINT pt, UINT nStyle);
};

// A tab control.
class AFX_API CTabCtrl : public CWnd
{
    DECLARE_DYNAMIC(CTabCtrl)

public:
    CTabCtrl();
    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    // Each returns the new tab's index, or -1.
    LONG InsertItem(int nItem, TCITEM* pTabCtrlItem);
    LONG InsertItem(int nItem, LPCTSTR lpszItem);
    LONG InsertItem(int nItem, LPCTSTR lpszItem, int nImage);
    BOOL GetItem(int nItem, TCITEM* pTabCtrlItem) const;
    BOOL SetItem(int nItem, TCITEM* pTabCtrlItem);
    BOOL DeleteItem(int nItem);
    BOOL DeleteAllItems();
    int GetItemCount() const;
    BOOL GetItemRect(int nItem, LPRECT lpRect) const;
    int GetCurSel() const;
    // Returns the previous selection, or -1.
    int SetCurSel(int nItem);
    int GetCurFocus() const;
    void SetCurFocus(int nItem);
    int GetRowCount() const;
    // bLarger: display rectangle -> window rectangle; else the reverse.
    void AdjustRect(BOOL bLarger, LPRECT lpRect);
    int HitTest(TCHITTESTINFO* pHitTestInfo) const;
    CImageList* GetImageList() const;
    CImageList* SetImageList(CImageList* pImageList);
};

// The header of a list view, or a header control of its own.
class AFX_API CHeaderCtrl : public CWnd
{
    DECLARE_DYNAMIC(CHeaderCtrl)

public:
    CHeaderCtrl();
    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    int GetItemCount() const;
    BOOL GetItem(int nPos, HDITEM* pHeaderItem) const;
    BOOL SetItem(int nPos, HDITEM* pHeaderItem);
    int InsertItem(int nPos, HDITEM* phdi);
    BOOL DeleteItem(int nPos);
    BOOL GetItemRect(int nIndex, LPRECT lpRect) const;
    BOOL GetOrderArray(LPINT piArray, int iCount) const;
    BOOL SetOrderArray(int iCount, LPINT piArray);
    int OrderToIndex(int nOrder) const;
    CImageList* GetImageList() const;
    CImageList* SetImageList(CImageList* pImageList);

    // Draws an HDF_OWNERDRAW item; the parent's WM_DRAWITEM comes here.
    virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);

protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
};

// A list view. Sorting goes through LVM_SORTITEMS with the items' data.
class AFX_API CListCtrl : public CWnd
{
    DECLARE_DYNAMIC(CListCtrl)

public:
    CListCtrl();
    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);
    BOOL CreateEx(DWORD dwExStyle, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    // Columns.
    int InsertColumn(int nCol, const LVCOLUMN* pColumn);
    // nWidth -1: no width given; nSubItem -1: the column's own index.
    int InsertColumn(int nCol, LPCTSTR lpszColumnHeading, int nFormat = LVCFMT_LEFT, int nWidth = -1,
                     int nSubItem = -1);
    BOOL DeleteColumn(int nCol);
    BOOL GetColumn(int nCol, LVCOLUMN* pColumn) const;
    BOOL SetColumn(int nCol, const LVCOLUMN* pColumn);
    int GetColumnWidth(int nCol) const;
    BOOL SetColumnWidth(int nCol, int cx);
    // A temporary object for the list view's header.
    CHeaderCtrl* GetHeaderCtrl() const;

    // Items. Each InsertItem returns the new item's index, or -1.
    int InsertItem(const LVITEM* pItem);
    int InsertItem(int nItem, LPCTSTR lpszItem);
    int InsertItem(int nItem, LPCTSTR lpszItem, int nImage);
    int InsertItem(UINT nMask, int nItem, LPCTSTR lpszItem, UINT nState, UINT nStateMask, int nImage, LPARAM lParam);
    BOOL GetItem(LVITEM* pItem) const;
    BOOL SetItem(const LVITEM* pItem);
    BOOL SetItem(int nItem, int nSubItem, UINT nMask, LPCTSTR lpszItem, int nImage, UINT nState, UINT nStateMask,
                 LPARAM lParam);
    BOOL SetItemText(int nItem, int nSubItem, LPCTSTR lpszText);
    int GetItemText(int nItem, int nSubItem, LPTSTR lpszText, int nLen) const;
    CString GetItemText(int nItem, int nSubItem) const;
    BOOL DeleteItem(int nItem);
    BOOL DeleteAllItems();
    int GetItemCount() const;
    BOOL SetItemCount(int nItems);
    DWORD_PTR GetItemData(int nItem) const;
    BOOL SetItemData(int nItem, DWORD_PTR dwData);
    UINT GetItemState(int nItem, UINT nMask) const;
    BOOL SetItemState(int nItem, UINT nState, UINT nMask);
    BOOL SetItemState(int nItem, LVITEM* pItem);
    BOOL GetItemRect(int nItem, LPRECT lpRect, UINT nCode) const;
    int FindItem(LVFINDINFO* pFindInfo, int nStart = -1) const;
    int HitTest(CPoint pt, UINT* pFlags = NULL) const;

    // Selection.
    UINT GetSelectedCount() const;
    // The next item after nItem (-1: from the start) with the LVNI_ flags.
    int GetNextItem(int nItem, int nFlags) const;
    POSITION GetFirstSelectedItemPosition() const;
    // The selected item at pos; pos moves to the next one (NULL at the end).
    int GetNextSelectedItem(POSITION& pos) const;
    int GetSelectionMark() const;
    int SetSelectionMark(int iIndex);

    // Sorting: pfnCompare gets the items' data (LVITEM::lParam) and dwData.
    BOOL SortItems(PFNLVCOMPARE pfnCompare, DWORD_PTR dwData);

    // Appearance.
    DWORD GetExtendedStyle() const;
    // Returns the previous extended style.
    DWORD SetExtendedStyle(DWORD dwNewStyle);
    BOOL EnsureVisible(int nItem, BOOL bPartialOK);
    int GetTopIndex() const;
    int GetCountPerPage() const;
    BOOL RedrawItems(int nFirst, int nLast);
    BOOL Update(int nItem);
    int GetStringWidth(LPCTSTR lpsz) const;
    // nImageList: LVSIL_NORMAL, LVSIL_SMALL or LVSIL_STATE. Returns the previous list.
    CImageList* SetImageList(CImageList* pImageList, int nImageList);
    CImageList* GetImageList(int nImageList) const;
    COLORREF GetBkColor() const;
    BOOL SetBkColor(COLORREF cr);
    COLORREF GetTextColor() const;
    BOOL SetTextColor(COLORREF cr);
    COLORREF GetTextBkColor() const;
    BOOL SetTextBkColor(COLORREF cr);

    // Draws the items of an LVS_OWNERDRAWFIXED list; the parent's WM_DRAWITEM comes here.
    virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);

protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
};
