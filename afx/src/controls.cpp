// The basic controls: static, button, edit, scroll bar, list box and combo
// box.
#include "afxwin.h"

#include <vector>

IMPLEMENT_DYNAMIC(CStatic, CWnd)
IMPLEMENT_DYNAMIC(CButton, CWnd)
IMPLEMENT_DYNAMIC(CEdit, CWnd)
IMPLEMENT_DYNAMIC(CScrollBar, CWnd)
IMPLEMENT_DYNAMIC(CListBox, CWnd)
IMPLEMENT_DYNAMIC(CComboBox, CWnd)

// ---- CStatic ----

CStatic::CStatic() = default;

BOOL CStatic::Create(LPCTSTR lpszText, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CWnd::Create("STATIC", lpszText, dwStyle, rect, pParentWnd, nID);
}

HICON CStatic::SetIcon(HICON hIcon)
{
    return reinterpret_cast<HICON>(SendMessage(STM_SETICON, reinterpret_cast<WPARAM>(hIcon), 0));
}

HICON CStatic::GetIcon() const
{
    return reinterpret_cast<HICON>(SendMessage(STM_GETICON, 0, 0));
}

HBITMAP CStatic::SetBitmap(HBITMAP hBitmap)
{
    return reinterpret_cast<HBITMAP>(SendMessage(STM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(hBitmap)));
}

HBITMAP CStatic::GetBitmap() const
{
    return reinterpret_cast<HBITMAP>(SendMessage(STM_GETIMAGE, IMAGE_BITMAP, 0));
}

HCURSOR CStatic::SetCursor(HCURSOR hCursor)
{
    return reinterpret_cast<HCURSOR>(SendMessage(STM_SETIMAGE, IMAGE_CURSOR, reinterpret_cast<LPARAM>(hCursor)));
}

HCURSOR CStatic::GetCursor()
{
    return reinterpret_cast<HCURSOR>(SendMessage(STM_GETIMAGE, IMAGE_CURSOR, 0));
}

HENHMETAFILE CStatic::SetEnhMetaFile(HENHMETAFILE hMetaFile)
{
    return reinterpret_cast<HENHMETAFILE>(
        SendMessage(STM_SETIMAGE, IMAGE_ENHMETAFILE, reinterpret_cast<LPARAM>(hMetaFile)));
}

// ---- CButton ----

CButton::CButton() = default;

BOOL CButton::Create(LPCTSTR lpszCaption, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CWnd::Create("BUTTON", lpszCaption, dwStyle, rect, pParentWnd, nID);
}

UINT CButton::GetState() const
{
    return static_cast<UINT>(SendMessage(BM_GETSTATE, 0, 0));
}

void CButton::SetState(BOOL bHighlight)
{
    SendMessage(BM_SETSTATE, bHighlight, 0);
}

int CButton::GetCheck() const
{
    return static_cast<int>(SendMessage(BM_GETCHECK, 0, 0));
}

void CButton::SetCheck(int nCheck)
{
    SendMessage(BM_SETCHECK, static_cast<WPARAM>(nCheck), 0);
}

UINT CButton::GetButtonStyle() const
{
    return static_cast<UINT>(GetStyle() & 0xFFFF);
}

void CButton::SetButtonStyle(UINT nStyle, BOOL bRedraw)
{
    SendMessage(BM_SETSTYLE, nStyle, bRedraw);
}

HICON CButton::SetIcon(HICON hIcon)
{
    return reinterpret_cast<HICON>(SendMessage(BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(hIcon)));
}

HICON CButton::GetIcon() const
{
    return reinterpret_cast<HICON>(SendMessage(BM_GETIMAGE, IMAGE_ICON, 0));
}

HBITMAP CButton::SetBitmap(HBITMAP hBitmap)
{
    return reinterpret_cast<HBITMAP>(SendMessage(BM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(hBitmap)));
}

HBITMAP CButton::GetBitmap() const
{
    return reinterpret_cast<HBITMAP>(SendMessage(BM_GETIMAGE, IMAGE_BITMAP, 0));
}

void CButton::DrawItem(LPDRAWITEMSTRUCT) {}

BOOL CButton::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    if (message != WM_DRAWITEM)
        return CWnd::OnChildNotify(message, wParam, lParam, pResult);
    DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam));
    if (pResult != nullptr)
        *pResult = TRUE;
    return TRUE;
}

// ---- CEdit ----

CEdit::CEdit() = default;

BOOL CEdit::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CWnd::Create("EDIT", nullptr, dwStyle, rect, pParentWnd, nID);
}

BOOL CEdit::CanUndo() const
{
    return static_cast<BOOL>(SendMessage(EM_CANUNDO, 0, 0));
}

int CEdit::GetLineCount() const
{
    return static_cast<int>(SendMessage(EM_GETLINECOUNT, 0, 0));
}

BOOL CEdit::GetModify() const
{
    return static_cast<BOOL>(SendMessage(EM_GETMODIFY, 0, 0));
}

void CEdit::SetModify(BOOL bModified)
{
    SendMessage(EM_SETMODIFY, bModified, 0);
}

void CEdit::GetRect(LPRECT lpRect) const
{
    SendMessage(EM_GETRECT, 0, reinterpret_cast<LPARAM>(lpRect));
}

DWORD CEdit::GetSel() const
{
    return static_cast<DWORD>(SendMessage(EM_GETSEL, 0, 0));
}

void CEdit::GetSel(int& nStartChar, int& nEndChar) const
{
    DWORD start = 0;
    DWORD end = 0;
    SendMessage(EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    nStartChar = static_cast<int>(start);
    nEndChar = static_cast<int>(end);
}

int CEdit::GetLine(int nIndex, LPTSTR lpszBuffer) const
{
    return static_cast<int>(SendMessage(EM_GETLINE, static_cast<WPARAM>(nIndex), reinterpret_cast<LPARAM>(lpszBuffer)));
}

int CEdit::GetLine(int nIndex, LPTSTR lpszBuffer, int nMaxLength) const
{
    if (nMaxLength < static_cast<int>(sizeof(WORD)))
        return 0;
    *reinterpret_cast<WORD*>(lpszBuffer) = static_cast<WORD>(nMaxLength);
    return GetLine(nIndex, lpszBuffer);
}

void CEdit::EmptyUndoBuffer()
{
    SendMessage(EM_EMPTYUNDOBUFFER, 0, 0);
}

BOOL CEdit::FmtLines(BOOL bAddEOL)
{
    return static_cast<BOOL>(SendMessage(EM_FMTLINES, bAddEOL, 0));
}

void CEdit::LimitText(int nChars)
{
    SendMessage(EM_LIMITTEXT, static_cast<WPARAM>(nChars), 0);
}

UINT CEdit::GetLimitText() const
{
    return static_cast<UINT>(SendMessage(EM_GETLIMITTEXT, 0, 0));
}

void CEdit::SetLimitText(UINT nMax)
{
    SendMessage(EM_SETLIMITTEXT, nMax, 0);
}

int CEdit::LineFromChar(int nIndex) const
{
    return static_cast<int>(SendMessage(EM_LINEFROMCHAR, static_cast<WPARAM>(nIndex), 0));
}

int CEdit::LineIndex(int nLine) const
{
    return static_cast<int>(SendMessage(EM_LINEINDEX, static_cast<WPARAM>(nLine), 0));
}

int CEdit::LineLength(int nLine) const
{
    return static_cast<int>(SendMessage(EM_LINELENGTH, static_cast<WPARAM>(nLine), 0));
}

void CEdit::LineScroll(int nLines, int nChars)
{
    SendMessage(EM_LINESCROLL, static_cast<WPARAM>(nChars), nLines);
}

void CEdit::ReplaceSel(LPCTSTR lpszNewText, BOOL bCanUndo)
{
    SendMessage(EM_REPLACESEL, bCanUndo, reinterpret_cast<LPARAM>(lpszNewText));
}

void CEdit::SetPasswordChar(TCHAR ch)
{
    SendMessage(EM_SETPASSWORDCHAR, static_cast<BYTE>(ch), 0);
}

TCHAR CEdit::GetPasswordChar() const
{
    return static_cast<TCHAR>(SendMessage(EM_GETPASSWORDCHAR, 0, 0));
}

void CEdit::SetSel(DWORD dwSelection, BOOL bNoScroll)
{
    SetSel(static_cast<int>(static_cast<short>(LOWORD(dwSelection))),
           static_cast<int>(static_cast<short>(HIWORD(dwSelection))), bNoScroll);
}

void CEdit::SetSel(int nStartChar, int nEndChar, BOOL bNoScroll)
{
    SendMessage(EM_SETSEL, static_cast<WPARAM>(nStartChar), nEndChar);
    if (!bNoScroll)
        SendMessage(EM_SCROLLCARET, 0, 0);
}

BOOL CEdit::SetReadOnly(BOOL bReadOnly)
{
    return static_cast<BOOL>(SendMessage(EM_SETREADONLY, bReadOnly, 0));
}

int CEdit::GetFirstVisibleLine() const
{
    return static_cast<int>(SendMessage(EM_GETFIRSTVISIBLELINE, 0, 0));
}

CPoint CEdit::PosFromChar(UINT nChar) const
{
    return CPoint(static_cast<DWORD>(SendMessage(EM_POSFROMCHAR, nChar, 0)));
}

int CEdit::CharFromPos(CPoint pt) const
{
    return static_cast<int>(SendMessage(EM_CHARFROMPOS, 0, MAKELPARAM(pt.x, pt.y)));
}

void CEdit::SetMargins(UINT nLeft, UINT nRight)
{
    SendMessage(EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, MAKELONG(nLeft, nRight));
}

DWORD CEdit::GetMargins() const
{
    return static_cast<DWORD>(SendMessage(EM_GETMARGINS, 0, 0));
}

void CEdit::Clear()
{
    SendMessage(WM_CLEAR, 0, 0);
}

void CEdit::Copy()
{
    SendMessage(WM_COPY, 0, 0);
}

void CEdit::Cut()
{
    SendMessage(WM_CUT, 0, 0);
}

void CEdit::Paste()
{
    SendMessage(WM_PASTE, 0, 0);
}

BOOL CEdit::Undo()
{
    return static_cast<BOOL>(SendMessage(EM_UNDO, 0, 0));
}

namespace {

// An item's text read through a length message and a text message.
CString ItemText(const CWnd& wnd, UINT lenMessage, UINT textMessage, int nIndex)
{
    const int length = static_cast<int>(wnd.SendMessage(lenMessage, static_cast<WPARAM>(nIndex), 0));
    if (length < 0)
        return CString();
    std::vector<char> buffer(static_cast<size_t>(length) + 1);
    const int copied = static_cast<int>(
        wnd.SendMessage(textMessage, static_cast<WPARAM>(nIndex), reinterpret_cast<LPARAM>(buffer.data())));
    return copied < 0 ? CString() : CString(buffer.data(), copied);
}

// The owner-draw messages a list or combo box's parent hands back; the
// box's virtual of the same name handles each.
template <class Box>
BOOL OwnerDrawChildNotify(Box& box, UINT message, LPARAM lParam, LRESULT* pResult)
{
    LRESULT result = TRUE;
    switch (message) {
    case WM_DRAWITEM:
        box.DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam));
        break;
    case WM_MEASUREITEM:
        box.MeasureItem(reinterpret_cast<LPMEASUREITEMSTRUCT>(lParam));
        break;
    case WM_COMPAREITEM:
        result = box.CompareItem(reinterpret_cast<LPCOMPAREITEMSTRUCT>(lParam));
        break;
    case WM_DELETEITEM:
        box.DeleteItem(reinterpret_cast<LPDELETEITEMSTRUCT>(lParam));
        break;
    default:
        return FALSE;
    }
    if (pResult != nullptr)
        *pResult = result;
    return TRUE;
}

}  // namespace

// ---- CScrollBar ----

CScrollBar::CScrollBar() = default;

BOOL CScrollBar::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CWnd::Create("SCROLLBAR", nullptr, dwStyle, rect, pParentWnd, nID);
}

int CScrollBar::GetScrollPos() const
{
    return ::GetScrollPos(m_hWnd, SB_CTL);
}

int CScrollBar::SetScrollPos(int nPos, BOOL bRedraw)
{
    return ::SetScrollPos(m_hWnd, SB_CTL, nPos, bRedraw);
}

void CScrollBar::GetScrollRange(LPINT lpMinPos, LPINT lpMaxPos) const
{
    ::GetScrollRange(m_hWnd, SB_CTL, lpMinPos, lpMaxPos);
}

void CScrollBar::SetScrollRange(int nMinPos, int nMaxPos, BOOL bRedraw)
{
    ::SetScrollRange(m_hWnd, SB_CTL, nMinPos, nMaxPos, bRedraw);
}

void CScrollBar::ShowScrollBar(BOOL bShow)
{
    ::ShowScrollBar(m_hWnd, SB_CTL, bShow);
}

BOOL CScrollBar::EnableScrollBar(UINT nArrowFlags)
{
    return ::EnableScrollBar(m_hWnd, SB_CTL, nArrowFlags);
}

BOOL CScrollBar::SetScrollInfo(LPSCROLLINFO lpScrollInfo, BOOL bRedraw)
{
    lpScrollInfo->cbSize = sizeof(SCROLLINFO);
    ::SetScrollInfo(m_hWnd, SB_CTL, lpScrollInfo, bRedraw);
    return TRUE;
}

BOOL CScrollBar::GetScrollInfo(LPSCROLLINFO lpScrollInfo, UINT nMask)
{
    lpScrollInfo->cbSize = sizeof(SCROLLINFO);
    lpScrollInfo->fMask = nMask;
    return ::GetScrollInfo(m_hWnd, SB_CTL, lpScrollInfo);
}

int CScrollBar::GetScrollLimit()
{
    SCROLLINFO info = {};
    if (!GetScrollInfo(&info, SIF_RANGE | SIF_PAGE))
        return 0;
    const int page = info.nPage > 0 ? static_cast<int>(info.nPage) - 1 : 0;
    return info.nMax - page;
}

// ---- CListBox ----

CListBox::CListBox() = default;

BOOL CListBox::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CWnd::Create("LISTBOX", nullptr, dwStyle, rect, pParentWnd, nID);
}

int CListBox::GetCount() const
{
    return static_cast<int>(SendMessage(LB_GETCOUNT, 0, 0));
}

int CListBox::GetTopIndex() const
{
    return static_cast<int>(SendMessage(LB_GETTOPINDEX, 0, 0));
}

int CListBox::SetTopIndex(int nIndex)
{
    return static_cast<int>(SendMessage(LB_SETTOPINDEX, static_cast<WPARAM>(nIndex), 0));
}

DWORD_PTR CListBox::GetItemData(int nIndex) const
{
    return static_cast<DWORD_PTR>(SendMessage(LB_GETITEMDATA, static_cast<WPARAM>(nIndex), 0));
}

int CListBox::SetItemData(int nIndex, DWORD_PTR dwItemData)
{
    return static_cast<int>(SendMessage(LB_SETITEMDATA, static_cast<WPARAM>(nIndex), static_cast<LPARAM>(dwItemData)));
}

void* CListBox::GetItemDataPtr(int nIndex) const
{
    return reinterpret_cast<void*>(GetItemData(nIndex));
}

int CListBox::SetItemDataPtr(int nIndex, void* pData)
{
    return SetItemData(nIndex, reinterpret_cast<DWORD_PTR>(pData));
}

int CListBox::GetItemRect(int nIndex, LPRECT lpRect) const
{
    return static_cast<int>(SendMessage(LB_GETITEMRECT, static_cast<WPARAM>(nIndex), reinterpret_cast<LPARAM>(lpRect)));
}

int CListBox::GetItemHeight(int nIndex) const
{
    return static_cast<int>(SendMessage(LB_GETITEMHEIGHT, static_cast<WPARAM>(nIndex), 0));
}

int CListBox::SetItemHeight(int nIndex, UINT cyItemHeight)
{
    return static_cast<int>(SendMessage(LB_SETITEMHEIGHT, static_cast<WPARAM>(nIndex), MAKELPARAM(cyItemHeight, 0)));
}

int CListBox::GetText(int nIndex, LPTSTR lpszBuffer) const
{
    return static_cast<int>(SendMessage(LB_GETTEXT, static_cast<WPARAM>(nIndex), reinterpret_cast<LPARAM>(lpszBuffer)));
}

void CListBox::GetText(int nIndex, CString& rString) const
{
    rString = ItemText(*this, LB_GETTEXTLEN, LB_GETTEXT, nIndex);
}

int CListBox::GetTextLen(int nIndex) const
{
    return static_cast<int>(SendMessage(LB_GETTEXTLEN, static_cast<WPARAM>(nIndex), 0));
}

void CListBox::SetHorizontalExtent(int cxExtent)
{
    SendMessage(LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(cxExtent), 0);
}

int CListBox::GetCurSel() const
{
    return static_cast<int>(SendMessage(LB_GETCURSEL, 0, 0));
}

int CListBox::SetCurSel(int nSelect)
{
    return static_cast<int>(SendMessage(LB_SETCURSEL, static_cast<WPARAM>(nSelect), 0));
}

int CListBox::GetSel(int nIndex) const
{
    return static_cast<int>(SendMessage(LB_GETSEL, static_cast<WPARAM>(nIndex), 0));
}

int CListBox::SetSel(int nIndex, BOOL bSelect)
{
    return static_cast<int>(SendMessage(LB_SETSEL, static_cast<WPARAM>(bSelect), static_cast<LPARAM>(nIndex)));
}

int CListBox::GetSelCount() const
{
    return static_cast<int>(SendMessage(LB_GETSELCOUNT, 0, 0));
}

int CListBox::GetSelItems(int nMaxItems, LPINT rgIndex) const
{
    return static_cast<int>(
        SendMessage(LB_GETSELITEMS, static_cast<WPARAM>(nMaxItems), reinterpret_cast<LPARAM>(rgIndex)));
}

int CListBox::GetCaretIndex() const
{
    return static_cast<int>(SendMessage(LB_GETCARETINDEX, 0, 0));
}

int CListBox::SetCaretIndex(int nIndex, BOOL bScroll)
{
    return static_cast<int>(SendMessage(LB_SETCARETINDEX, static_cast<WPARAM>(nIndex), MAKELPARAM(bScroll, 0)));
}

int CListBox::SelItemRange(BOOL bSelect, int nFirstItem, int nLastItem)
{
    return static_cast<int>(
        SendMessage(LB_SELITEMRANGE, static_cast<WPARAM>(bSelect), MAKELPARAM(nFirstItem, nLastItem)));
}

int CListBox::AddString(LPCTSTR lpszItem)
{
    return static_cast<int>(SendMessage(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(lpszItem)));
}

int CListBox::InsertString(int nIndex, LPCTSTR lpszItem)
{
    return static_cast<int>(
        SendMessage(LB_INSERTSTRING, static_cast<WPARAM>(nIndex), reinterpret_cast<LPARAM>(lpszItem)));
}

int CListBox::DeleteString(UINT nIndex)
{
    return static_cast<int>(SendMessage(LB_DELETESTRING, nIndex, 0));
}

void CListBox::ResetContent()
{
    SendMessage(LB_RESETCONTENT, 0, 0);
}

int CListBox::FindString(int nStartAfter, LPCTSTR lpszItem) const
{
    return static_cast<int>(
        SendMessage(LB_FINDSTRING, static_cast<WPARAM>(nStartAfter), reinterpret_cast<LPARAM>(lpszItem)));
}

int CListBox::FindStringExact(int nIndexStart, LPCTSTR lpszFind) const
{
    return static_cast<int>(
        SendMessage(LB_FINDSTRINGEXACT, static_cast<WPARAM>(nIndexStart), reinterpret_cast<LPARAM>(lpszFind)));
}

int CListBox::SelectString(int nStartAfter, LPCTSTR lpszItem)
{
    return static_cast<int>(
        SendMessage(LB_SELECTSTRING, static_cast<WPARAM>(nStartAfter), reinterpret_cast<LPARAM>(lpszItem)));
}

int CListBox::ItemFromPoint(CPoint pt, BOOL& bOutside) const
{
    const DWORD result = static_cast<DWORD>(SendMessage(LB_ITEMFROMPOINT, 0, MAKELPARAM(pt.x, pt.y)));
    bOutside = HIWORD(result) != 0;
    return LOWORD(result);
}

void CListBox::DrawItem(LPDRAWITEMSTRUCT) {}
void CListBox::MeasureItem(LPMEASUREITEMSTRUCT) {}
int CListBox::CompareItem(LPCOMPAREITEMSTRUCT)
{
    return 0;
}
void CListBox::DeleteItem(LPDELETEITEMSTRUCT) {}

BOOL CListBox::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    if (OwnerDrawChildNotify(*this, message, lParam, pResult))
        return TRUE;
    return CWnd::OnChildNotify(message, wParam, lParam, pResult);
}

// ---- CComboBox ----

CComboBox::CComboBox() = default;

BOOL CComboBox::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CWnd::Create("COMBOBOX", nullptr, dwStyle, rect, pParentWnd, nID);
}

int CComboBox::GetCount() const
{
    return static_cast<int>(SendMessage(CB_GETCOUNT, 0, 0));
}

int CComboBox::GetCurSel() const
{
    return static_cast<int>(SendMessage(CB_GETCURSEL, 0, 0));
}

int CComboBox::SetCurSel(int nSelect)
{
    return static_cast<int>(SendMessage(CB_SETCURSEL, static_cast<WPARAM>(nSelect), 0));
}

DWORD CComboBox::GetEditSel() const
{
    return static_cast<DWORD>(SendMessage(CB_GETEDITSEL, 0, 0));
}

BOOL CComboBox::LimitText(int nMaxChars)
{
    return static_cast<BOOL>(SendMessage(CB_LIMITTEXT, static_cast<WPARAM>(nMaxChars), 0));
}

BOOL CComboBox::SetEditSel(int nStartChar, int nEndChar)
{
    return static_cast<BOOL>(SendMessage(CB_SETEDITSEL, 0, MAKELPARAM(nStartChar, nEndChar)));
}

DWORD_PTR CComboBox::GetItemData(int nIndex) const
{
    return static_cast<DWORD_PTR>(SendMessage(CB_GETITEMDATA, static_cast<WPARAM>(nIndex), 0));
}

int CComboBox::SetItemData(int nIndex, DWORD_PTR dwItemData)
{
    return static_cast<int>(SendMessage(CB_SETITEMDATA, static_cast<WPARAM>(nIndex), static_cast<LPARAM>(dwItemData)));
}

void* CComboBox::GetItemDataPtr(int nIndex) const
{
    return reinterpret_cast<void*>(GetItemData(nIndex));
}

int CComboBox::SetItemDataPtr(int nIndex, void* pData)
{
    return SetItemData(nIndex, reinterpret_cast<DWORD_PTR>(pData));
}

int CComboBox::GetLBText(int nIndex, LPTSTR lpszText) const
{
    return static_cast<int>(SendMessage(CB_GETLBTEXT, static_cast<WPARAM>(nIndex), reinterpret_cast<LPARAM>(lpszText)));
}

void CComboBox::GetLBText(int nIndex, CString& rString) const
{
    rString = ItemText(*this, CB_GETLBTEXTLEN, CB_GETLBTEXT, nIndex);
}

int CComboBox::GetLBTextLen(int nIndex) const
{
    return static_cast<int>(SendMessage(CB_GETLBTEXTLEN, static_cast<WPARAM>(nIndex), 0));
}

int CComboBox::SetItemHeight(int nIndex, UINT cyItemHeight)
{
    return static_cast<int>(SendMessage(CB_SETITEMHEIGHT, static_cast<WPARAM>(nIndex), MAKELPARAM(cyItemHeight, 0)));
}

int CComboBox::GetItemHeight(int nIndex) const
{
    return static_cast<int>(SendMessage(CB_GETITEMHEIGHT, static_cast<WPARAM>(nIndex), 0));
}

int CComboBox::SetDroppedWidth(UINT nWidth)
{
    return static_cast<int>(SendMessage(CB_SETDROPPEDWIDTH, nWidth, 0));
}

int CComboBox::GetDroppedWidth() const
{
    return static_cast<int>(SendMessage(CB_GETDROPPEDWIDTH, 0, 0));
}

void CComboBox::ShowDropDown(BOOL bShowIt)
{
    SendMessage(CB_SHOWDROPDOWN, static_cast<WPARAM>(bShowIt), 0);
}

BOOL CComboBox::GetDroppedState() const
{
    return static_cast<BOOL>(SendMessage(CB_GETDROPPEDSTATE, 0, 0));
}

void CComboBox::GetDroppedControlRect(LPRECT lprect) const
{
    SendMessage(CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(lprect));
}

int CComboBox::GetTopIndex() const
{
    return static_cast<int>(SendMessage(CB_GETTOPINDEX, 0, 0));
}

int CComboBox::SetTopIndex(int nIndex)
{
    return static_cast<int>(SendMessage(CB_SETTOPINDEX, static_cast<WPARAM>(nIndex), 0));
}

int CComboBox::AddString(LPCTSTR lpszString)
{
    return static_cast<int>(SendMessage(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(lpszString)));
}

int CComboBox::InsertString(int nIndex, LPCTSTR lpszString)
{
    return static_cast<int>(
        SendMessage(CB_INSERTSTRING, static_cast<WPARAM>(nIndex), reinterpret_cast<LPARAM>(lpszString)));
}

int CComboBox::DeleteString(UINT nIndex)
{
    return static_cast<int>(SendMessage(CB_DELETESTRING, nIndex, 0));
}

void CComboBox::ResetContent()
{
    SendMessage(CB_RESETCONTENT, 0, 0);
}

int CComboBox::FindString(int nStartAfter, LPCTSTR lpszString) const
{
    return static_cast<int>(
        SendMessage(CB_FINDSTRING, static_cast<WPARAM>(nStartAfter), reinterpret_cast<LPARAM>(lpszString)));
}

int CComboBox::FindStringExact(int nIndexStart, LPCTSTR lpszFind) const
{
    return static_cast<int>(
        SendMessage(CB_FINDSTRINGEXACT, static_cast<WPARAM>(nIndexStart), reinterpret_cast<LPARAM>(lpszFind)));
}

int CComboBox::SelectString(int nStartAfter, LPCTSTR lpszString)
{
    return static_cast<int>(
        SendMessage(CB_SELECTSTRING, static_cast<WPARAM>(nStartAfter), reinterpret_cast<LPARAM>(lpszString)));
}

void CComboBox::Clear()
{
    SendMessage(WM_CLEAR, 0, 0);
}

void CComboBox::Copy()
{
    SendMessage(WM_COPY, 0, 0);
}

void CComboBox::Cut()
{
    SendMessage(WM_CUT, 0, 0);
}

void CComboBox::Paste()
{
    SendMessage(WM_PASTE, 0, 0);
}

void CComboBox::DrawItem(LPDRAWITEMSTRUCT) {}
void CComboBox::MeasureItem(LPMEASUREITEMSTRUCT) {}
int CComboBox::CompareItem(LPCOMPAREITEMSTRUCT)
{
    return 0;
}
void CComboBox::DeleteItem(LPDELETEITEMSTRUCT) {}

BOOL CComboBox::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    if (OwnerDrawChildNotify(*this, message, lParam, pResult))
        return TRUE;
    return CWnd::OnChildNotify(message, wParam, lParam, pResult);
}
