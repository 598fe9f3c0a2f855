// The standard controls of user32: static, button, edit, scroll bar, list
// box and combo box.
#pragma once

#include "afxwnd.h"

// A static control: text, frame, icon or bitmap.
class AFX_API CStatic : public CWnd
{
    DECLARE_DYNAMIC(CStatic)

public:
    CStatic();
    BOOL Create(LPCTSTR lpszText, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID = 0xffff);

    // Each returns the previous image.
    HICON SetIcon(HICON hIcon);
    HICON GetIcon() const;
    HBITMAP SetBitmap(HBITMAP hBitmap);
    HBITMAP GetBitmap() const;
    HCURSOR SetCursor(HCURSOR hCursor);
    HCURSOR GetCursor();
    HENHMETAFILE SetEnhMetaFile(HENHMETAFILE hMetaFile);
};

// A push button, check box, radio button or group box.
class AFX_API CButton : public CWnd
{
    DECLARE_DYNAMIC(CButton)

public:
    CButton();
    BOOL Create(LPCTSTR lpszCaption, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    UINT GetState() const;
    void SetState(BOOL bHighlight);
    int GetCheck() const;
    void SetCheck(int nCheck);
    UINT GetButtonStyle() const;
    void SetButtonStyle(UINT nStyle, BOOL bRedraw = TRUE);
    HICON SetIcon(HICON hIcon);
    HICON GetIcon() const;
    HBITMAP SetBitmap(HBITMAP hBitmap);
    HBITMAP GetBitmap() const;

    // Draws an owner-draw button; the parent's WM_DRAWITEM comes here.
    virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);

protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
};

// An edit control.
class AFX_API CEdit : public CWnd
{
    DECLARE_DYNAMIC(CEdit)

public:
    CEdit();
    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    BOOL CanUndo() const;
    int GetLineCount() const;
    BOOL GetModify() const;
    void SetModify(BOOL bModified = TRUE);
    void GetRect(LPRECT lpRect) const;
    // Start in the low word, end in the high word.
    DWORD GetSel() const;
    void GetSel(int& nStartChar, int& nEndChar) const;
    // Copies line nIndex into lpszBuffer (its first WORD holds the room
    // when nMaxLength is not given); returns the characters copied, no NUL.
    int GetLine(int nIndex, LPTSTR lpszBuffer) const;
    int GetLine(int nIndex, LPTSTR lpszBuffer, int nMaxLength) const;
    void EmptyUndoBuffer();
    BOOL FmtLines(BOOL bAddEOL);
    void LimitText(int nChars = 0);
    UINT GetLimitText() const;
    void SetLimitText(UINT nMax);
    int LineFromChar(int nIndex = -1) const;
    int LineIndex(int nLine = -1) const;
    int LineLength(int nLine = -1) const;
    void LineScroll(int nLines, int nChars = 0);
    void ReplaceSel(LPCTSTR lpszNewText, BOOL bCanUndo = FALSE);
    void SetPasswordChar(TCHAR ch);
    TCHAR GetPasswordChar() const;
    void SetSel(DWORD dwSelection, BOOL bNoScroll = FALSE);
    void SetSel(int nStartChar, int nEndChar, BOOL bNoScroll = FALSE);
    BOOL SetReadOnly(BOOL bReadOnly = TRUE);
    int GetFirstVisibleLine() const;
    CPoint PosFromChar(UINT nChar) const;
    int CharFromPos(CPoint pt) const;
    void SetMargins(UINT nLeft, UINT nRight);
    DWORD GetMargins() const;

    void Clear();
    void Copy();
    void Cut();
    void Paste();
    BOOL Undo();
};

// A scroll bar control.
class AFX_API CScrollBar : public CWnd
{
    DECLARE_DYNAMIC(CScrollBar)

public:
    CScrollBar();
    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    int GetScrollPos() const;
    int SetScrollPos(int nPos, BOOL bRedraw = TRUE);
    void GetScrollRange(LPINT lpMinPos, LPINT lpMaxPos) const;
    void SetScrollRange(int nMinPos, int nMaxPos, BOOL bRedraw = TRUE);
    void ShowScrollBar(BOOL bShow = TRUE);
    BOOL EnableScrollBar(UINT nArrowFlags = ESB_ENABLE_BOTH);
    BOOL SetScrollInfo(LPSCROLLINFO lpScrollInfo, BOOL bRedraw = TRUE);
    BOOL GetScrollInfo(LPSCROLLINFO lpScrollInfo, UINT nMask = SIF_ALL);
    int GetScrollLimit();
};

// A list box. Indexes are 0-based; LB_ERR (-1) reports a failure.
class AFX_API CListBox : public CWnd
{
    DECLARE_DYNAMIC(CListBox)

public:
    CListBox();
    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    int GetCount() const;
    int GetTopIndex() const;
    int SetTopIndex(int nIndex);
    DWORD_PTR GetItemData(int nIndex) const;
    int SetItemData(int nIndex, DWORD_PTR dwItemData);
    void* GetItemDataPtr(int nIndex) const;
    int SetItemDataPtr(int nIndex, void* pData);
    int GetItemRect(int nIndex, LPRECT lpRect) const;
    int GetItemHeight(int nIndex) const;
    int SetItemHeight(int nIndex, UINT cyItemHeight);
    int GetText(int nIndex, LPTSTR lpszBuffer) const;
    void GetText(int nIndex, CString& rString) const;
    int GetTextLen(int nIndex) const;
    void SetHorizontalExtent(int cxExtent);

    // Single selection.
    int GetCurSel() const;
    int SetCurSel(int nSelect);
    // Multiple selection.
    int GetSel(int nIndex) const;
    int SetSel(int nIndex, BOOL bSelect = TRUE);
    int GetSelCount() const;
    // Fills rgIndex with up to nMaxItems selected indexes; returns how many.
    int GetSelItems(int nMaxItems, LPINT rgIndex) const;
    int GetCaretIndex() const;
    int SetCaretIndex(int nIndex, BOOL bScroll = TRUE);
    int SelItemRange(BOOL bSelect, int nFirstItem, int nLastItem);

    int AddString(LPCTSTR lpszItem);
    int InsertString(int nIndex, LPCTSTR lpszItem);
    // Returns the number of items left.
    int DeleteString(UINT nIndex);
    void ResetContent();
    // Searches after nStartAfter (-1: from the start) for an item that
    // begins with (FindString) or equals (FindStringExact) the text,
    // ignoring case.
    int FindString(int nStartAfter, LPCTSTR lpszItem) const;
    int FindStringExact(int nIndexStart, LPCTSTR lpszFind) const;
    int SelectString(int nStartAfter, LPCTSTR lpszItem);
    int ItemFromPoint(CPoint pt, BOOL& bOutside) const;

    virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);
    virtual void MeasureItem(LPMEASUREITEMSTRUCT lpMeasureItemStruct);
    virtual int CompareItem(LPCOMPAREITEMSTRUCT lpCompareItemStruct);
    virtual void DeleteItem(LPDELETEITEMSTRUCT lpDeleteItemStruct);

protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
};

// A combo box. Indexes are 0-based; CB_ERR (-1) reports a failure.
class AFX_API CComboBox : public CWnd
{
    DECLARE_DYNAMIC(CComboBox)

public:
    CComboBox();
    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    int GetCount() const;
    int GetCurSel() const;
    int SetCurSel(int nSelect);
    DWORD GetEditSel() const;
    BOOL LimitText(int nMaxChars);
    BOOL SetEditSel(int nStartChar, int nEndChar);
    DWORD_PTR GetItemData(int nIndex) const;
    int SetItemData(int nIndex, DWORD_PTR dwItemData);
    void* GetItemDataPtr(int nIndex) const;
    int SetItemDataPtr(int nIndex, void* pData);
    int GetLBText(int nIndex, LPTSTR lpszText) const;
    void GetLBText(int nIndex, CString& rString) const;
    int GetLBTextLen(int nIndex) const;
    int SetItemHeight(int nIndex, UINT cyItemHeight);
    int GetItemHeight(int nIndex) const;
    int SetDroppedWidth(UINT nWidth);
    int GetDroppedWidth() const;
    void ShowDropDown(BOOL bShowIt = TRUE);
    BOOL GetDroppedState() const;
    void GetDroppedControlRect(LPRECT lprect) const;
    int GetTopIndex() const;
    int SetTopIndex(int nIndex);

    int AddString(LPCTSTR lpszString);
    int InsertString(int nIndex, LPCTSTR lpszString);
    // Returns the number of items left.
    int DeleteString(UINT nIndex);
    void ResetContent();
    int FindString(int nStartAfter, LPCTSTR lpszString) const;
    int FindStringExact(int nIndexStart, LPCTSTR lpszFind) const;
    int SelectString(int nStartAfter, LPCTSTR lpszString);

    void Clear();
    void Copy();
    void Cut();
    void Paste();

    virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);
    virtual void MeasureItem(LPMEASUREITEMSTRUCT lpMeasureItemStruct);
    virtual int CompareItem(LPCOMPAREITEMSTRUCT lpCompareItemStruct);
    virtual void DeleteItem(LPDELETEITEMSTRUCT lpDeleteItemStruct);

protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
};
