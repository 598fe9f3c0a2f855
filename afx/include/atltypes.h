// Geometry values: CPoint, CSize and CRect over the Win32 POINT, SIZE and
// RECT structures, so that each passes wherever the structure is expected.
//
// The rectangle rules (empty, intersection, union, subtraction) are our own
// portable code in both builds, with the results the Win32 rectangle
// functions give: an empty rectangle has no positive width or no positive
// height, an empty result is all zeros, and a union ignores empty inputs.
#pragma once

#include "afxplatform.h"

class CPoint;
class CSize;
class CRect;

namespace afx_detail {

// number * numerator / denominator rounded half away from zero; -1 when the
// denominator is zero or the result does not fit an int, as Win32 MulDiv.
inline int MulDivRounded(int number, int numerator, int denominator)
{
    if (denominator == 0)
        return -1;
    long long product = static_cast<long long>(number) * numerator;
    const bool negative = (product < 0) != (denominator < 0);
    unsigned long long a =
        product < 0 ? 0ULL - static_cast<unsigned long long>(product) : static_cast<unsigned long long>(product);
    unsigned long long d = denominator < 0 ? 0ULL - static_cast<unsigned long long>(denominator)
                                           : static_cast<unsigned long long>(denominator);
    unsigned long long q = (a + d / 2) / d;
    if (q > (negative ? 0x80000000ULL : 0x7FFFFFFFULL))
        return -1;
    return negative ? static_cast<int>(0LL - static_cast<long long>(q)) : static_cast<int>(q);
}

}  // namespace afx_detail

// A two-dimensional extent (cx, cy) or a relative offset.
class CSize : public tagSIZE
{
public:
    CSize() noexcept
    {
        cx = 0;
        cy = 0;
    }
    CSize(int initCX, int initCY) noexcept
    {
        cx = initCX;
        cy = initCY;
    }
    CSize(SIZE initSize) noexcept
    {
        cx = initSize.cx;
        cy = initSize.cy;
    }
    CSize(POINT initPt) noexcept
    {
        cx = initPt.x;
        cy = initPt.y;
    }
    // Low word is cx, high word cy, both signed.
    CSize(DWORD dwSize) noexcept
    {
        cx = static_cast<short>(LOWORD(dwSize));
        cy = static_cast<short>(HIWORD(dwSize));
    }

    BOOL operator==(SIZE size) const noexcept { return cx == size.cx && cy == size.cy; }
    BOOL operator!=(SIZE size) const noexcept { return !(*this == size); }
    void operator+=(SIZE size) noexcept
    {
        cx += size.cx;
        cy += size.cy;
    }
    void operator-=(SIZE size) noexcept
    {
        cx -= size.cx;
        cy -= size.cy;
    }
    void SetSize(int CX, int CY) noexcept
    {
        cx = CX;
        cy = CY;
    }

    CSize operator+(SIZE size) const noexcept { return CSize(cx + size.cx, cy + size.cy); }
    CSize operator-(SIZE size) const noexcept { return CSize(cx - size.cx, cy - size.cy); }
    CSize operator-() const noexcept { return CSize(-cx, -cy); }

    CPoint operator+(POINT point) const noexcept;
    CPoint operator-(POINT point) const noexcept;
    CRect operator+(const RECT* lpRect) const noexcept;
    CRect operator-(const RECT* lpRect) const noexcept;
};

// A point (x, y) in some coordinate system.
class CPoint : public tagPOINT
{
public:
    CPoint() noexcept
    {
        x = 0;
        y = 0;
    }
    CPoint(int initX, int initY) noexcept
    {
        x = initX;
        y = initY;
    }
    CPoint(POINT initPt) noexcept
    {
        x = initPt.x;
        y = initPt.y;
    }
    CPoint(SIZE initSize) noexcept
    {
        x = initSize.cx;
        y = initSize.cy;
    }
    // Low word is x, high word y, both signed, as in mouse message parameters.
    CPoint(LPARAM dwPoint) noexcept
    {
        x = static_cast<short>(LOWORD(dwPoint));
        y = static_cast<short>(HIWORD(dwPoint));
    }

    void Offset(int xOffset, int yOffset) noexcept
    {
        x += xOffset;
        y += yOffset;
    }
    void Offset(POINT point) noexcept { Offset(point.x, point.y); }
    void Offset(SIZE size) noexcept { Offset(size.cx, size.cy); }
    void SetPoint(int X, int Y) noexcept
    {
        x = X;
        y = Y;
    }

    BOOL operator==(POINT point) const noexcept { return x == point.x && y == point.y; }
    BOOL operator!=(POINT point) const noexcept { return !(*this == point); }
    void operator+=(SIZE size) noexcept { Offset(size); }
    void operator-=(SIZE size) noexcept { Offset(-size.cx, -size.cy); }
    void operator+=(POINT point) noexcept { Offset(point); }
    void operator-=(POINT point) noexcept { Offset(-point.x, -point.y); }

    CPoint operator+(SIZE size) const noexcept { return CPoint(x + size.cx, y + size.cy); }
    CPoint operator-(SIZE size) const noexcept { return CPoint(x - size.cx, y - size.cy); }
    CPoint operator-() const noexcept { return CPoint(-x, -y); }
    CPoint operator+(POINT point) const noexcept { return CPoint(x + point.x, y + point.y); }
    CSize operator-(POINT point) const noexcept { return CSize(x - point.x, y - point.y); }

    CRect operator+(const RECT* lpRect) const noexcept;
    CRect operator-(const RECT* lpRect) const noexcept;
};

// A rectangle given by its left, top, right and bottom edges; the right and
// bottom edges lie outside the rectangle.
class CRect : public tagRECT
{
public:
    CRect() noexcept { SetRectEmpty(); }
    CRect(int l, int t, int r, int b) noexcept { SetRect(l, t, r, b); }
    CRect(const RECT& srcRect) noexcept { CopyRect(&srcRect); }
    CRect(const RECT* lpSrcRect) noexcept { CopyRect(lpSrcRect); }
    CRect(POINT point, SIZE size) noexcept { SetRect(point.x, point.y, point.x + size.cx, point.y + size.cy); }
    CRect(POINT topLeft, POINT bottomRight) noexcept { SetRect(topLeft, bottomRight); }

    int Width() const noexcept { return right - left; }
    int Height() const noexcept { return bottom - top; }
    CSize Size() const noexcept { return CSize(Width(), Height()); }

    // The corners are views into this rectangle: assigning to them moves
    // the edges. CPoint adds nothing to POINT, so the layouts coincide.
    CPoint& TopLeft() noexcept { return *reinterpret_cast<CPoint*>(&left); }
    CPoint& BottomRight() noexcept { return *reinterpret_cast<CPoint*>(&right); }
    const CPoint& TopLeft() const noexcept { return *reinterpret_cast<const CPoint*>(&left); }
    const CPoint& BottomRight() const noexcept { return *reinterpret_cast<const CPoint*>(&right); }
    CPoint CenterPoint() const noexcept { return CPoint((left + right) / 2, (top + bottom) / 2); }

    void SwapLeftRight() noexcept { SwapLeftRight(this); }
    static void SwapLeftRight(LPRECT lpRect) noexcept
    {
        LONG t = lpRect->left;
        lpRect->left = lpRect->right;
        lpRect->right = t;
    }

    operator LPRECT() noexcept { return this; }
    operator LPCRECT() const noexcept { return this; }

    BOOL IsRectEmpty() const noexcept { return right <= left || bottom <= top; }
    BOOL IsRectNull() const noexcept { return left == 0 && top == 0 && right == 0 && bottom == 0; }
    BOOL PtInRect(POINT point) const noexcept
    {
        return point.x >= left && point.x < right && point.y >= top && point.y < bottom;
    }

    void SetRect(int x1, int y1, int x2, int y2) noexcept
    {
        left = x1;
        top = y1;
        right = x2;
        bottom = y2;
    }
    void SetRect(POINT topLeft, POINT bottomRight) noexcept
    {
        SetRect(topLeft.x, topLeft.y, bottomRight.x, bottomRight.y);
    }
    void SetRectEmpty() noexcept { SetRect(0, 0, 0, 0); }
    void CopyRect(LPCRECT lpSrcRect) noexcept
    {
        SetRect(lpSrcRect->left, lpSrcRect->top, lpSrcRect->right, lpSrcRect->bottom);
    }
    // Exact comparison: two empty rectangles at different places differ.
    BOOL EqualRect(LPCRECT lpRect) const noexcept
    {
        return left == lpRect->left && top == lpRect->top && right == lpRect->right && bottom == lpRect->bottom;
    }

    void InflateRect(int x, int y) noexcept { InflateRect(x, y, x, y); }
    void InflateRect(SIZE size) noexcept { InflateRect(size.cx, size.cy); }
    void InflateRect(LPCRECT lpRect) noexcept { InflateRect(lpRect->left, lpRect->top, lpRect->right, lpRect->bottom); }
    void InflateRect(int l, int t, int r, int b) noexcept
    {
        left -= l;
        top -= t;
        right += r;
        bottom += b;
    }
    void DeflateRect(int x, int y) noexcept { InflateRect(-x, -y); }
    void DeflateRect(SIZE size) noexcept { InflateRect(-size.cx, -size.cy); }
    void DeflateRect(LPCRECT lpRect) noexcept
    {
        InflateRect(-lpRect->left, -lpRect->top, -lpRect->right, -lpRect->bottom);
    }
    void DeflateRect(int l, int t, int r, int b) noexcept { InflateRect(-l, -t, -r, -b); }

    void OffsetRect(int x, int y) noexcept
    {
        left += x;
        right += x;
        top += y;
        bottom += y;
    }
    void OffsetRect(SIZE size) noexcept { OffsetRect(size.cx, size.cy); }
    void OffsetRect(POINT point) noexcept { OffsetRect(point.x, point.y); }
    // Swaps edges so that left <= right and top <= bottom.
    void NormalizeRect() noexcept
    {
        if (left > right)
            SwapLeftRight();
        if (top > bottom) {
            LONG t = top;
            top = bottom;
            bottom = t;
        }
    }

    void MoveToX(int x) noexcept { OffsetRect(x - left, 0); }
    void MoveToY(int y) noexcept { OffsetRect(0, y - top); }
    void MoveToXY(int x, int y) noexcept { OffsetRect(x - left, y - top); }
    void MoveToXY(POINT point) noexcept { MoveToXY(point.x, point.y); }

    // Sets this to the common part of both; all zeros and FALSE when they
    // do not overlap or either is empty.
    AFX_API BOOL IntersectRect(LPCRECT lpRect1, LPCRECT lpRect2) noexcept;
    // Sets this to the smallest rectangle holding both, ignoring an empty
    // one; all zeros and FALSE when both are empty.
    AFX_API BOOL UnionRect(LPCRECT lpRect1, LPCRECT lpRect2) noexcept;
    // Sets this to the bounding box of lpRectSrc1 minus lpRectSrc2; FALSE
    // when that is empty (then all zeros).
    AFX_API BOOL SubtractRect(LPCRECT lpRectSrc1, LPCRECT lpRectSrc2) noexcept;

    void operator=(const RECT& srcRect) noexcept { CopyRect(&srcRect); }
    BOOL operator==(const RECT& rect) const noexcept { return EqualRect(&rect); }
    BOOL operator!=(const RECT& rect) const noexcept { return !EqualRect(&rect); }
    void operator+=(POINT point) noexcept { OffsetRect(point); }
    void operator+=(SIZE size) noexcept { OffsetRect(size); }
    void operator+=(LPCRECT lpRect) noexcept { InflateRect(lpRect); }
    void operator-=(POINT point) noexcept { OffsetRect(-point.x, -point.y); }
    void operator-=(SIZE size) noexcept { OffsetRect(-size.cx, -size.cy); }
    void operator-=(LPCRECT lpRect) noexcept { DeflateRect(lpRect); }
    void operator&=(const RECT& rect) noexcept { IntersectRect(this, &rect); }
    void operator|=(const RECT& rect) noexcept { UnionRect(this, &rect); }

    CRect operator+(POINT point) const noexcept
    {
        CRect r(*this);
        r.OffsetRect(point);
        return r;
    }
    CRect operator-(POINT point) const noexcept
    {
        CRect r(*this);
        r.OffsetRect(-point.x, -point.y);
        return r;
    }
    CRect operator+(SIZE size) const noexcept
    {
        CRect r(*this);
        r.OffsetRect(size);
        return r;
    }
    CRect operator-(SIZE size) const noexcept
    {
        CRect r(*this);
        r.OffsetRect(-size.cx, -size.cy);
        return r;
    }
    CRect operator+(LPCRECT lpRect) const noexcept
    {
        CRect r(*this);
        r.InflateRect(lpRect);
        return r;
    }
    CRect operator-(LPCRECT lpRect) const noexcept
    {
        CRect r(*this);
        r.DeflateRect(lpRect);
        return r;
    }
    CRect operator&(const RECT& rect2) const noexcept
    {
        CRect r;
        r.IntersectRect(this, &rect2);
        return r;
    }
    CRect operator|(const RECT& rect2) const noexcept
    {
        CRect r;
        r.UnionRect(this, &rect2);
        return r;
    }
    // Each edge scaled by nMultiplier / nDivisor, rounded as Win32 MulDiv.
    CRect MulDiv(int nMultiplier, int nDivisor) const noexcept
    {
        return CRect(afx_detail::MulDivRounded(left, nMultiplier, nDivisor),
                     afx_detail::MulDivRounded(top, nMultiplier, nDivisor),
                     afx_detail::MulDivRounded(right, nMultiplier, nDivisor),
                     afx_detail::MulDivRounded(bottom, nMultiplier, nDivisor));
    }
};

inline CPoint CSize::operator+(POINT point) const noexcept
{
    return CPoint(cx + point.x, cy + point.y);
}
inline CPoint CSize::operator-(POINT point) const noexcept
{
    return CPoint(cx - point.x, cy - point.y);
}
inline CRect CSize::operator+(const RECT* lpRect) const noexcept
{
    return CRect(lpRect) + *this;
}
inline CRect CSize::operator-(const RECT* lpRect) const noexcept
{
    return CRect(lpRect) - *this;
}
inline CRect CPoint::operator+(const RECT* lpRect) const noexcept
{
    return CRect(lpRect) + *this;
}
inline CRect CPoint::operator-(const RECT* lpRect) const noexcept
{
    return CRect(lpRect) - *this;
}
