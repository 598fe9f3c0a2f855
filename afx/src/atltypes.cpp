// The rectangle rules that combine two rectangles.
#include "atltypes.h"

#include <algorithm>

BOOL CRect::IntersectRect(LPCRECT lpRect1, LPCRECT lpRect2) noexcept
{
    const CRect a(lpRect1), b(lpRect2);
    CRect common(std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
                 std::min(a.bottom, b.bottom));
    if (a.IsRectEmpty() || b.IsRectEmpty() || common.IsRectEmpty()) {
        SetRectEmpty();
        return FALSE;
    }
    CopyRect(&common);
    return TRUE;
}

BOOL CRect::UnionRect(LPCRECT lpRect1, LPCRECT lpRect2) noexcept
{
    const CRect a(lpRect1), b(lpRect2);
    if (a.IsRectEmpty() && b.IsRectEmpty()) {
        SetRectEmpty();
        return FALSE;
    }
    if (a.IsRectEmpty()) {
        CopyRect(&b);
        return TRUE;
    }
    if (b.IsRectEmpty()) {
        CopyRect(&a);
        return TRUE;
    }
    SetRect(std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right), std::max(a.bottom, b.bottom));
    return TRUE;
}

BOOL CRect::SubtractRect(LPCRECT lpRectSrc1, LPCRECT lpRectSrc2) noexcept
{
    CRect result(lpRectSrc1);
    CRect common;
    if (result.IsRectEmpty()) {
        SetRectEmpty();
        return FALSE;
    }
    if (!common.IntersectRect(lpRectSrc1, lpRectSrc2)) {
        CopyRect(&result);
        return TRUE;
    }
    if (common.EqualRect(&result)) {
        SetRectEmpty();
        return FALSE;
    }
    // Only a cut across the whole height or width changes the bounding box.
    if (common.top == result.top && common.bottom == result.bottom) {
        if (common.left == result.left)
            result.left = common.right;
        else if (common.right == result.right)
            result.right = common.left;
    } else if (common.left == result.left && common.right == result.right) {
        if (common.top == result.top)
            result.top = common.bottom;
        else if (common.bottom == result.bottom)
            result.bottom = common.top;
    }
    CopyRect(&result);
    return TRUE;
}
