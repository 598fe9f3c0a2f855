// CDC drawing: lines, shapes, fills, pixels, block transfers and text.
#include "afxwin.h"

CPoint CDC::MoveTo(int x, int y)
{
    POINT old = {0, 0};
    ::MoveToEx(m_hDC, x, y, &old);
    return old;
}

CPoint CDC::MoveTo(POINT point)
{
    return MoveTo(point.x, point.y);
}

BOOL CDC::LineTo(int x, int y)
{
    return ::LineTo(m_hDC, x, y);
}

BOOL CDC::LineTo(POINT point)
{
    return LineTo(point.x, point.y);
}

BOOL CDC::Polyline(const POINT* lpPoints, int nCount)
{
    return ::Polyline(m_hDC, lpPoints, nCount);
}

BOOL CDC::Polygon(const POINT* lpPoints, int nCount)
{
    return ::Polygon(m_hDC, lpPoints, nCount);
}

BOOL CDC::Rectangle(int x1, int y1, int x2, int y2)
{
    return ::Rectangle(m_hDC, x1, y1, x2, y2);
}

BOOL CDC::Rectangle(LPCRECT lpRect)
{
    return Rectangle(lpRect->left, lpRect->top, lpRect->right, lpRect->bottom);
}

BOOL CDC::RoundRect(int x1, int y1, int x2, int y2, int x3, int y3)
{
    return ::RoundRect(m_hDC, x1, y1, x2, y2, x3, y3);
}

BOOL CDC::Ellipse(int x1, int y1, int x2, int y2)
{
    return ::Ellipse(m_hDC, x1, y1, x2, y2);
}

BOOL CDC::Ellipse(LPCRECT lpRect)
{
    return Ellipse(lpRect->left, lpRect->top, lpRect->right, lpRect->bottom);
}

void CDC::FillRect(LPCRECT lpRect, CBrush* pBrush)
{
    ::FillRect(m_hDC, lpRect, static_cast<HBRUSH>(pBrush->GetSafeHandle()));
}

void CDC::FrameRect(LPCRECT lpRect, CBrush* pBrush)
{
    ::FrameRect(m_hDC, lpRect, static_cast<HBRUSH>(pBrush->GetSafeHandle()));
}

void CDC::InvertRect(LPCRECT lpRect)
{
    ::InvertRect(m_hDC, lpRect);
}

void CDC::FillSolidRect(LPCRECT lpRect, COLORREF clr)
{
    ::SetBkColor(m_hDC, clr);
    ::ExtTextOutA(m_hDC, 0, 0, ETO_OPAQUE, lpRect, nullptr, 0, nullptr);
}

void CDC::FillSolidRect(int x, int y, int cx, int cy, COLORREF clr)
{
    const RECT rect = {x, y, x + cx, y + cy};
    FillSolidRect(&rect, clr);
}

void CDC::Draw3dRect(LPCRECT lpRect, COLORREF clrTopLeft, COLORREF clrBottomRight)
{
    Draw3dRect(lpRect->left, lpRect->top, lpRect->right - lpRect->left, lpRect->bottom - lpRect->top, clrTopLeft,
               clrBottomRight);
}

void CDC::Draw3dRect(int x, int y, int cx, int cy, COLORREF clrTopLeft, COLORREF clrBottomRight)
{
    FillSolidRect(x, y, cx - 1, 1, clrTopLeft);
    FillSolidRect(x, y, 1, cy - 1, clrTopLeft);
    FillSolidRect(x + cx - 1, y, 1, cy, clrBottomRight);
    FillSolidRect(x, y + cy - 1, cx, 1, clrBottomRight);
}

BOOL CDC::DrawEdge(LPRECT lpRect, UINT nEdge, UINT nFlags)
{
    return ::DrawEdge(m_hDC, lpRect, nEdge, nFlags);
}

void CDC::DrawFocusRect(LPCRECT lpRect)
{
    ::DrawFocusRect(m_hDC, lpRect);
}

BOOL CDC::DrawIcon(int x, int y, HICON hIcon)
{
    return ::DrawIcon(m_hDC, x, y, hIcon);
}

BOOL CDC::DrawIcon(POINT point, HICON hIcon)
{
    return DrawIcon(point.x, point.y, hIcon);
}

COLORREF CDC::SetPixel(int x, int y, COLORREF crColor)
{
    return ::SetPixel(m_hDC, x, y, crColor);
}

COLORREF CDC::SetPixel(POINT point, COLORREF crColor)
{
    return SetPixel(point.x, point.y, crColor);
}

COLORREF CDC::GetPixel(int x, int y) const
{
    return ::GetPixel(m_hDC, x, y);
}

COLORREF CDC::GetPixel(POINT point) const
{
    return GetPixel(point.x, point.y);
}

BOOL CDC::PatBlt(int x, int y, int nWidth, int nHeight, DWORD dwRop)
{
    return ::PatBlt(m_hDC, x, y, nWidth, nHeight, dwRop);
}

BOOL CDC::BitBlt(int x, int y, int nWidth, int nHeight, CDC* pSrcDC, int xSrc, int ySrc, DWORD dwRop)
{
    return ::BitBlt(m_hDC, x, y, nWidth, nHeight, pSrcDC->GetSafeHdc(), xSrc, ySrc, dwRop);
}

BOOL CDC::StretchBlt(int x, int y, int nWidth, int nHeight, CDC* pSrcDC, int xSrc, int ySrc, int nSrcWidth,
                     int nSrcHeight, DWORD dwRop)
{
    return ::StretchBlt(m_hDC, x, y, nWidth, nHeight, pSrcDC->GetSafeHdc(), xSrc, ySrc, nSrcWidth, nSrcHeight, dwRop);
}

BOOL CDC::TransparentBlt(int xDest, int yDest, int nDestWidth, int nDestHeight, CDC* pSrcDC, int xSrc, int ySrc,
                         int nSrcWidth, int nSrcHeight, UINT clrTransparent)
{
    // gdi32's export of msimg32's TransparentBlt.
    return ::GdiTransparentBlt(m_hDC, xDest, yDest, nDestWidth, nDestHeight, pSrcDC->GetSafeHdc(), xSrc, ySrc,
                               nSrcWidth, nSrcHeight, clrTransparent);
}

BOOL CDC::TextOut(int x, int y, LPCTSTR lpszString, int nCount)
{
    return ::TextOutA(m_hDC, x, y, lpszString, nCount);
}

BOOL CDC::TextOut(int x, int y, const CString& str)
{
    return TextOut(x, y, str.GetString(), str.GetLength());
}

BOOL CDC::ExtTextOut(int x, int y, UINT nOptions, LPCRECT lpRect, LPCTSTR lpszString, UINT nCount, LPINT lpDxWidths)
{
    return ::ExtTextOutA(m_hDC, x, y, nOptions, lpRect, lpszString, nCount, lpDxWidths);
}

int CDC::DrawText(LPCTSTR lpszString, int nCount, LPRECT lpRect, UINT nFormat)
{
    return ::DrawTextA(m_hDC, lpszString, nCount, lpRect, nFormat);
}

int CDC::DrawText(const CString& str, LPRECT lpRect, UINT nFormat)
{
    // DT_MODIFYSTRING would write into the string: draw from a copy.
    if (nFormat & DT_MODIFYSTRING) {
        CString copy(str);
        char* buffer = copy.GetBuffer(copy.GetLength() + 4);
        const int result = ::DrawTextA(m_hDC, buffer, -1, lpRect, nFormat);
        copy.ReleaseBuffer();
        return result;
    }
    return DrawText(str.GetString(), str.GetLength(), lpRect, nFormat);
}

CSize CDC::GetTextExtent(LPCTSTR lpszString, int nCount) const
{
    SIZE size = {0, 0};
    ::GetTextExtentPoint32A(m_hAttribDC, lpszString, nCount, &size);
    return size;
}

CSize CDC::GetTextExtent(const CString& str) const
{
    return GetTextExtent(str.GetString(), str.GetLength());
}

BOOL CDC::GetTextMetrics(LPTEXTMETRIC lpMetrics) const
{
    return ::GetTextMetricsA(m_hAttribDC, lpMetrics);
}

int CDC::GetTextFace(CString& rString) const
{
    const int nLen = ::GetTextFaceA(m_hAttribDC, 0, nullptr);
    if (nLen <= 0) {
        rString.Empty();
        return 0;
    }
    const int nCopied = ::GetTextFaceA(m_hAttribDC, nLen, rString.GetBufferSetLength(nLen));
    rString.ReleaseBuffer();
    return nCopied;
}
