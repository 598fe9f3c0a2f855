#include "atltypes.h"

#include <gtest/gtest.h>

#include <ostream>

static std::ostream& operator<<(std::ostream& os, const RECT& r)
{
    return os << "(" << r.left << "," << r.top << "," << r.right << "," << r.bottom << ")";
}

static void ExpectRect(const RECT& r, LONG l, LONG t, LONG rr, LONG b, const char* what)
{
    EXPECT_EQ(r.left, l) << what;
    EXPECT_EQ(r.top, t) << what;
    EXPECT_EQ(r.right, rr) << what;
    EXPECT_EQ(r.bottom, b) << what;
}

TEST(CPointCSize, ConstructionFromPackedWordsIsSigned)
{
    CPoint p(static_cast<LPARAM>(MAKELONG(-5, 300)));
    EXPECT_EQ(p.x, -5);
    EXPECT_EQ(p.y, 300);
    CSize s(static_cast<DWORD>(MAKELONG(7, -2)));
    EXPECT_EQ(s.cx, 7);
    EXPECT_EQ(s.cy, -2);

    CPoint fromSize(CSize(3, 4));
    EXPECT_TRUE(fromSize == CPoint(3, 4));
    CSize fromPoint(CPoint(-1, 9));
    EXPECT_TRUE(fromPoint == CSize(-1, 9));
    EXPECT_TRUE(CPoint() == CPoint(0, 0));
    EXPECT_TRUE(CSize() == CSize(0, 0));
}

TEST(CPointCSize, ArithmeticKeepsTheRightResultType)
{
    const CPoint a(10, 20), b(3, 5);
    const CSize s(1, 2);

    CSize diff = a - b;
    EXPECT_TRUE(diff == CSize(7, 15));
    CPoint sum = a + b;
    EXPECT_TRUE(sum == CPoint(13, 25));
    EXPECT_TRUE(a + s == CPoint(11, 22));
    EXPECT_TRUE(a - s == CPoint(9, 18));
    EXPECT_TRUE(-a == CPoint(-10, -20));
    EXPECT_TRUE(s + a == CPoint(11, 22));
    EXPECT_TRUE(s - a == CPoint(-9, -18));
    EXPECT_TRUE(s + CSize(4, 4) == CSize(5, 6));
    EXPECT_TRUE(s - CSize(4, 4) == CSize(-3, -2));
    EXPECT_TRUE(-s == CSize(-1, -2));
    EXPECT_TRUE(a != b);
    EXPECT_FALSE(a != CPoint(10, 20));
    EXPECT_TRUE(s != CSize(2, 1));

    CPoint p(1, 1);
    p += CSize(2, 3);
    p -= CPoint(1, 0);
    p += CPoint(10, 10);
    p -= CSize(0, 4);
    EXPECT_TRUE(p == CPoint(12, 10));
    p.Offset(-2, 5);
    p.Offset(CSize(1, 1));
    p.Offset(CPoint(1, 1));
    EXPECT_TRUE(p == CPoint(12, 17));
    p.SetPoint(-7, 8);
    EXPECT_TRUE(p == CPoint(-7, 8));

    CSize z(5, 5);
    z += CSize(1, 2);
    z -= CSize(3, 3);
    EXPECT_TRUE(z == CSize(3, 4));
    z.SetSize(9, -9);
    EXPECT_TRUE(z == CSize(9, -9));

    const CRect r(0, 0, 10, 10);
    ExpectRect(CPoint(2, 3) + &r, 2, 3, 12, 13, "point + rect");
    ExpectRect(CPoint(2, 3) - &r, -2, -3, 8, 7, "point - rect");
    ExpectRect(CSize(2, 3) + &r, 2, 3, 12, 13, "size + rect");
    ExpectRect(CSize(2, 3) - &r, -2, -3, 8, 7, "size - rect");
}

TEST(CRect, ConstructorsAndMeasures)
{
    ExpectRect(CRect(), 0, 0, 0, 0, "default");
    ExpectRect(CRect(1, 2, 3, 4), 1, 2, 3, 4, "edges");
    RECT raw = {5, 6, 7, 8};
    ExpectRect(CRect(raw), 5, 6, 7, 8, "RECT&");
    ExpectRect(CRect(&raw), 5, 6, 7, 8, "LPCRECT");
    ExpectRect(CRect(CPoint(1, 2), CSize(10, 20)), 1, 2, 11, 22, "point+size");
    ExpectRect(CRect(CPoint(1, 2), CPoint(-3, 4)), 1, 2, -3, 4, "two points");

    CRect r(10, 20, 40, 60);
    EXPECT_EQ(r.Width(), 30);
    EXPECT_EQ(r.Height(), 40);
    EXPECT_TRUE(r.Size() == CSize(30, 40));
    EXPECT_TRUE(r.CenterPoint() == CPoint(25, 40));
    EXPECT_TRUE(CRect(-3, -3, 0, 0).CenterPoint() == CPoint(-1, -1));
    EXPECT_TRUE(r.TopLeft() == CPoint(10, 20));
    EXPECT_TRUE(r.BottomRight() == CPoint(40, 60));

    r.TopLeft() = CPoint(0, 1);
    r.BottomRight() += CSize(1, 1);
    ExpectRect(r, 0, 1, 41, 61, "corners assigned through references");
    const CRect& cr = r;
    EXPECT_EQ(&cr.TopLeft().x, &r.left);
    EXPECT_EQ(&cr.BottomRight().y, &r.bottom);

    LPRECT p = r;
    LPCRECT cp = cr;
    EXPECT_EQ(p, static_cast<RECT*>(&r));
    EXPECT_EQ(cp, static_cast<const RECT*>(&r));
    EXPECT_EQ(CRect(5, 5, 2, 2).Width(), -3);
}

TEST(CRect, EmptyAndNullAreDifferentQuestions)
{
    struct
    {
        CRect r;
        bool empty;
        bool null;
    } cases[] = {
        {CRect(0, 0, 0, 0), true, true},       {CRect(1, 1, 1, 5), true, false}, {CRect(1, 1, 5, 1), true, false},
        {CRect(5, 1, 1, 5), true, false},      {CRect(1, 5, 5, 1), true, false}, {CRect(0, 0, 1, 1), false, false},
        {CRect(-5, -5, -4, -4), false, false},
    };
    for (auto& c : cases) {
        EXPECT_EQ(c.r.IsRectEmpty() != FALSE, c.empty) << c.r;
        EXPECT_EQ(c.r.IsRectNull() != FALSE, c.null) << c.r;
    }
}

TEST(CRect, PtInRectExcludesRightAndBottomEdges)
{
    const CRect r(10, 20, 30, 40);
    struct
    {
        int x, y;
        bool inside;
    } cases[] = {
        {10, 20, true}, {29, 39, true},  {30, 20, false}, {10, 40, false},
        {9, 25, false}, {15, 19, false}, {29, 40, false}, {30, 39, false},
    };
    for (auto& c : cases)
        EXPECT_EQ(r.PtInRect(CPoint(c.x, c.y)) != FALSE, c.inside) << c.x << "," << c.y;
    EXPECT_FALSE(CRect(5, 5, 5, 5).PtInRect(CPoint(5, 5)));
    EXPECT_FALSE(CRect(10, 10, 0, 0).PtInRect(CPoint(5, 5)));
}

TEST(CRect, SettersInflateDeflateOffsetAndMove)
{
    CRect r;
    r.SetRect(1, 2, 3, 4);
    ExpectRect(r, 1, 2, 3, 4, "SetRect");
    r.SetRect(CPoint(5, 6), CPoint(7, 8));
    ExpectRect(r, 5, 6, 7, 8, "SetRect points");
    RECT src = {9, 9, 19, 29};
    r.CopyRect(&src);
    ExpectRect(r, 9, 9, 19, 29, "CopyRect");
    r.SetRectEmpty();
    ExpectRect(r, 0, 0, 0, 0, "SetRectEmpty");

    r.SetRect(10, 10, 20, 20);
    r.InflateRect(1, 2);
    ExpectRect(r, 9, 8, 21, 22, "inflate x,y");
    r.InflateRect(CSize(1, 1));
    ExpectRect(r, 8, 7, 22, 23, "inflate size");
    RECT by = {1, 2, 3, 4};
    r.InflateRect(&by);
    ExpectRect(r, 7, 5, 25, 27, "inflate rect");
    r.InflateRect(-1, -1, 1, 1);
    ExpectRect(r, 8, 6, 26, 28, "inflate l,t,r,b");
    r.DeflateRect(&by);
    ExpectRect(r, 9, 8, 23, 24, "deflate rect");
    r.DeflateRect(1, 1, 2, 2);
    ExpectRect(r, 10, 9, 21, 22, "deflate l,t,r,b");
    r.DeflateRect(CSize(1, 2));
    ExpectRect(r, 11, 11, 20, 20, "deflate size");
    r.DeflateRect(1, 1);
    ExpectRect(r, 12, 12, 19, 19, "deflate x,y");

    r.OffsetRect(1, -2);
    ExpectRect(r, 13, 10, 20, 17, "offset x,y");
    r.OffsetRect(CPoint(-3, 0));
    r.OffsetRect(CSize(0, 5));
    ExpectRect(r, 10, 15, 17, 22, "offset point, size");
    r.MoveToX(0);
    ExpectRect(r, 0, 15, 7, 22, "MoveToX");
    r.MoveToY(-1);
    ExpectRect(r, 0, -1, 7, 6, "MoveToY");
    r.MoveToXY(100, 200);
    ExpectRect(r, 100, 200, 107, 207, "MoveToXY");
    r.MoveToXY(CPoint(1, 1));
    ExpectRect(r, 1, 1, 8, 8, "MoveToXY point");

    CRect n(30, 40, 10, 20);
    n.NormalizeRect();
    ExpectRect(n, 10, 20, 30, 40, "normalize both");
    n.SetRect(1, 9, 5, 2);
    n.NormalizeRect();
    ExpectRect(n, 1, 2, 5, 9, "normalize top/bottom only");
    n.SwapLeftRight();
    ExpectRect(n, 5, 2, 1, 9, "SwapLeftRight");
}

TEST(CRect, OperatorsOffsetInflateAndCombine)
{
    const CRect r(10, 10, 20, 20);
    const RECT by = {1, 2, 3, 4};
    ExpectRect(r + CPoint(1, 2), 11, 12, 21, 22, "+ point");
    ExpectRect(r - CPoint(1, 2), 9, 8, 19, 18, "- point");
    ExpectRect(r + CSize(1, 2), 11, 12, 21, 22, "+ size");
    ExpectRect(r - CSize(1, 2), 9, 8, 19, 18, "- size");
    ExpectRect(r + &by, 9, 8, 23, 24, "+ rect inflates");
    ExpectRect(r - &by, 11, 12, 17, 16, "- rect deflates");
    ExpectRect(r & CRect(15, 0, 30, 15), 15, 10, 20, 15, "&");
    ExpectRect(r | CRect(0, 15, 5, 30), 0, 10, 20, 30, "|");

    CRect m(r);
    m += CPoint(1, 1);
    m -= CSize(2, 2);
    ExpectRect(m, 9, 9, 19, 19, "+= point, -= size");
    m += CSize(1, 1);
    m -= CPoint(1, 1);
    ExpectRect(m, 9, 9, 19, 19, "+= size, -= point");
    m += &by;
    ExpectRect(m, 8, 7, 22, 23, "+= rect");
    m -= &by;
    ExpectRect(m, 9, 9, 19, 19, "-= rect");
    m &= CRect(0, 0, 12, 12);
    ExpectRect(m, 9, 9, 12, 12, "&=");
    m |= CRect(50, 50, 51, 51);
    ExpectRect(m, 9, 9, 51, 51, "|=");
    m &= CRect(100, 100, 200, 200);
    ExpectRect(m, 0, 0, 0, 0, "&= disjoint gives zeros");

    RECT raw = {1, 2, 3, 4};
    CRect a;
    a = raw;
    EXPECT_TRUE(a == raw);
    EXPECT_FALSE(a != raw);
    EXPECT_TRUE(a.EqualRect(&raw));
    EXPECT_TRUE(CRect(1, 1, 1, 1) != CRect(2, 2, 2, 2)) << "empty rectangles compare by edges";
}

TEST(CRect, IntersectRectFollowsWin32)
{
    struct
    {
        RECT a, b;
        BOOL ok;
        RECT out;
    } cases[] = {
        {{0, 0, 10, 10}, {5, 5, 15, 15}, TRUE, {5, 5, 10, 10}},
        {{0, 0, 10, 10}, {2, 2, 4, 4}, TRUE, {2, 2, 4, 4}},
        {{0, 0, 10, 10}, {10, 0, 20, 10}, FALSE, {0, 0, 0, 0}},  // touching edge
        {{0, 0, 10, 10}, {20, 20, 30, 30}, FALSE, {0, 0, 0, 0}},
        {{0, 0, 10, 10}, {5, 5, 5, 8}, FALSE, {0, 0, 0, 0}},    // empty input
        {{10, 10, 0, 0}, {0, 0, 10, 10}, FALSE, {0, 0, 0, 0}},  // unnormalized input
        {{-10, -10, 0, 0}, {-5, -20, 5, -8}, TRUE, {-5, -10, 0, -8}},
    };
    for (auto& c : cases) {
        CRect r(99, 99, 99, 99);
        EXPECT_EQ(r.IntersectRect(&c.a, &c.b), c.ok) << c.a << " & " << c.b;
        EXPECT_TRUE(r == c.out) << c.a << " & " << c.b << " gave " << r;
    }
    CRect self(0, 0, 10, 10);
    self.IntersectRect(self, CRect(5, 5, 20, 20));
    ExpectRect(self, 5, 5, 10, 10, "destination is also a source");
}

TEST(CRect, UnionRectIgnoresEmptyInputs)
{
    struct
    {
        RECT a, b;
        BOOL ok;
        RECT out;
    } cases[] = {
        {{0, 0, 10, 10}, {5, 5, 15, 15}, TRUE, {0, 0, 15, 15}},
        {{0, 0, 10, 10}, {20, 30, 40, 50}, TRUE, {0, 0, 40, 50}},
        {{0, 0, 10, 10}, {100, 100, 100, 200}, TRUE, {0, 0, 10, 10}},
        {{50, 50, 40, 60}, {1, 2, 3, 4}, TRUE, {1, 2, 3, 4}},
        {{5, 5, 5, 5}, {7, 7, 1, 1}, FALSE, {0, 0, 0, 0}},
        {{-4, -4, -2, -2}, {2, 2, 4, 4}, TRUE, {-4, -4, 4, 4}},
    };
    for (auto& c : cases) {
        CRect r(99, 99, 99, 99);
        EXPECT_EQ(r.UnionRect(&c.a, &c.b), c.ok) << c.a << " | " << c.b;
        EXPECT_TRUE(r == c.out) << c.a << " | " << c.b << " gave " << r;
    }
    CRect self(0, 0, 10, 10);
    self.UnionRect(CRect(20, 20, 30, 30), self);
    ExpectRect(self, 0, 0, 30, 30, "destination is also a source");
}

TEST(CRect, SubtractRectCutsOnlyAcrossAWholeSide)
{
    struct
    {
        RECT a, b;
        BOOL ok;
        RECT out;
    } cases[] = {
        {{10, 10, 100, 100}, {50, 50, 150, 150}, TRUE, {10, 10, 100, 100}},  // corner
        {{10, 10, 100, 100}, {50, 10, 150, 150}, TRUE, {10, 10, 50, 100}},   // right side
        {{10, 10, 100, 100}, {0, 0, 50, 200}, TRUE, {50, 10, 100, 100}},     // left side
        {{10, 10, 100, 100}, {0, 0, 200, 40}, TRUE, {10, 40, 100, 100}},     // top side
        {{10, 10, 100, 100}, {10, 60, 100, 100}, TRUE, {10, 10, 100, 60}},   // bottom side
        {{10, 10, 100, 100}, {40, 0, 60, 200}, TRUE, {10, 10, 100, 100}},    // middle strip
        {{10, 10, 100, 100}, {200, 200, 300, 300}, TRUE, {10, 10, 100, 100}},
        {{10, 10, 100, 100}, {10, 10, 100, 100}, FALSE, {0, 0, 0, 0}},
        {{10, 10, 100, 100}, {0, 0, 200, 200}, FALSE, {0, 0, 0, 0}},
        {{10, 10, 10, 100}, {0, 0, 5, 5}, FALSE, {0, 0, 0, 0}},
        {{10, 10, 100, 100}, {20, 20, 20, 20}, TRUE, {10, 10, 100, 100}},  // empty cut
    };
    for (auto& c : cases) {
        CRect r(99, 99, 99, 99);
        EXPECT_EQ(r.SubtractRect(&c.a, &c.b), c.ok) << c.a << " - " << c.b;
        EXPECT_TRUE(r == c.out) << c.a << " - " << c.b << " gave " << r;
    }
}

TEST(CRect, MulDivRoundsHalfAwayFromZero)
{
    ExpectRect(CRect(1, 3, 5, -3).MulDiv(1, 2), 1, 2, 3, -2, "halves");
    ExpectRect(CRect(10, 20, 30, 40).MulDiv(3, 2), 15, 30, 45, 60, "scale up");
    ExpectRect(CRect(1, 2, 3, 4).MulDiv(5, 0), -1, -1, -1, -1, "zero divisor");
    ExpectRect(CRect(1, 2, 3, -4).MulDiv(-1, 1), -1, -2, -3, 4, "negative multiplier");
}
