// The basic controls: static, button and edit.
#include "afxwin.h"

IMPLEMENT_DYNAMIC(CStatic, CWnd)
IMPLEMENT_DYNAMIC(CButton, CWnd)
IMPLEMENT_DYNAMIC(CEdit, CWnd)

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
