#include "atltypes.h"

#include <gtest/gtest.h>

#include <functional>
#include <ostream>

static std::ostream& operator<<(std::ostream& os, const RECT& r)
{
    return os << "(" << r.left << "," << r.top << "," << r.right << "," << r.bottom << ")";
}

static void ExpectRect(const RECT& r, LONG l, LONG t, LONG rr, LONG b, const char* what)
{
    EXPECT_TRUE(r.left == l && r.top == t && r.right == rr && r.bottom == b) << what << " gave " << r;
}

TEST(CPointCSize, ConstructionFromPackedWordsIsSigned)
{
    CPoint p(static_cast<LPARAM>(MAKELONG(-5, 300)));
    EXPECT_EQ(p.x, -5);
    EXPECT_EQ(p.y, 300);
    CSize s(static_cast<DWORD>(MAKELONG(7, -2)));
    EXPECT_EQ(s.cx, 7);
    EXPECT_EQ(s.cy, -2);
}

TEST(CPointCSize, ArithmeticKeepsTheRightResultType)
{
    const CPoint a(10, 20), b(3, 5);
    const CSize s(1, 2);

    CSize diff = a - b;
    EXPECT_TRUE(diff == CSize(7, 15));
    EXPECT_TRUE(a + b == CPoint(13, 25));
    EXPECT_TRUE(a + s == CPoint(11, 22));
    EXPECT_TRUE(a - s == CPoint(9, 18));
    EXPECT_TRUE(-a == CPoint(-10, -20));
    EXPECT_TRUE(s + a == CPoint(11, 22));
    EXPECT_TRUE(s - a == CPoint(-9, -18));
    EXPECT_TRUE(s - CSize(4, 4) == CSize(-3, -2));
    EXPECT_TRUE(-s == CSize(-1, -2));
    EXPECT_FALSE(a != CPoint(10, 20));

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
    CSize z(5, 5);
    z += CSize(1, 2);
    z -= CSize(3, 3);
    EXPECT_TRUE(z == CSize(3, 4));

    const CRect r(0, 0, 10, 10);
    ExpectRect(CPoint(2, 3) + &r, 2, 3, 12, 13, "point + rect");
    ExpectRect(CPoint(2, 3) - &r, -2, -3, 8, 7, "point - rect");
    ExpectRect(CSize(2, 3) + &r, 2, 3, 12, 13, "size + rect");
    ExpectRect(CSize(2, 3) - &r, -2, -3, 8, 7, "size - rect");
}

TEST(CRect, MeasuresAndCornerReferences)
{
    ExpectRect(CRect(CPoint(1, 2), CSize(10, 20)), 1, 2, 11, 22, "point+size");
    CRect r(10, 20, 40, 60);
    EXPECT_TRUE(r.Size() == CSize(30, 40));
    EXPECT_TRUE(r.CenterPoint() == CPoint(25, 40));
    EXPECT_TRUE(CRect(-3, -3, 0, 0).CenterPoint() == CPoint(-1, -1));
    EXPECT_EQ(CRect(5, 5, 2, 2).Width(), -3);

    // The corners are references into the rectangle itself.
    r.TopLeft() = CPoint(0, 1);
    r.BottomRight() += CSize(1, 1);
    ExpectRect(r, 0, 1, 41, 61, "corners assigned through references");
    const CRect& cr = r;
    EXPECT_EQ(&cr.TopLeft().x, &r.left);
    EXPECT_EQ(&cr.BottomRight().y, &r.bottom);
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

// Each change applied to (10,10,20,20).
TEST(CRect, InflateDeflateOffsetMoveAndOperators)
{
    const RECT by = {1, 2, 3, 4};
    struct
    {
        const char* what;
        std::function<void(CRect&)> change;
        RECT out;
    } cases[] = {
        {"inflate x,y", [](CRect& r) { r.InflateRect(1, 2); }, {9, 8, 21, 22}},
        {"inflate size", [](CRect& r) { r.InflateRect(CSize(1, 1)); }, {9, 9, 21, 21}},
        {"inflate rect", [&](CRect& r) { r.InflateRect(&by); }, {9, 8, 23, 24}},
        {"inflate l,t,r,b", [](CRect& r) { r.InflateRect(-1, -1, 1, 1); }, {11, 11, 21, 21}},
        {"deflate rect", [&](CRect& r) { r.DeflateRect(&by); }, {11, 12, 17, 16}},
        {"deflate l,t,r,b", [](CRect& r) { r.DeflateRect(1, 1, 2, 2); }, {11, 11, 18, 18}},
        {"deflate size", [](CRect& r) { r.DeflateRect(CSize(1, 2)); }, {11, 12, 19, 18}},
        {"deflate x,y", [](CRect& r) { r.DeflateRect(1, 1); }, {11, 11, 19, 19}},
        {"offset x,y", [](CRect& r) { r.OffsetRect(1, -2); }, {11, 8, 21, 18}},
        {"offset point", [](CRect& r) { r.OffsetRect(CPoint(-3, 0)); }, {7, 10, 17, 20}},
        {"offset size", [](CRect& r) { r.OffsetRect(CSize(0, 5)); }, {10, 15, 20, 25}},
        {"MoveToX", [](CRect& r) { r.MoveToX(0); }, {0, 10, 10, 20}},
        {"MoveToY", [](CRect& r) { r.MoveToY(-1); }, {10, -1, 20, 9}},
        {"MoveToXY", [](CRect& r) { r.MoveToXY(100, 200); }, {100, 200, 110, 210}},
        {"MoveToXY point", [](CRect& r) { r.MoveToXY(CPoint(1, 1)); }, {1, 1, 11, 11}},
        {"SwapLeftRight", [](CRect& r) { r.SwapLeftRight(); }, {20, 10, 10, 20}},
        {"= + point", [](CRect& r) { r = r + CPoint(1, 2); }, {11, 12, 21, 22}},
        {"= - point", [](CRect& r) { r = r - CPoint(1, 2); }, {9, 8, 19, 18}},
        {"= + size", [](CRect& r) { r = r + CSize(1, 2); }, {11, 12, 21, 22}},
        {"= - size", [](CRect& r) { r = r - CSize(1, 2); }, {9, 8, 19, 18}},
        {"= + rect inflates", [&](CRect& r) { r = r + &by; }, {9, 8, 23, 24}},
        {"= - rect deflates", [&](CRect& r) { r = r - &by; }, {11, 12, 17, 16}},
        {"= &", [](CRect& r) { r = r & CRect(15, 0, 30, 15); }, {15, 10, 20, 15}},
        {"= |", [](CRect& r) { r = r | CRect(0, 15, 5, 30); }, {0, 10, 20, 30}},
        {"+= point", [](CRect& r) { r += CPoint(1, 1); }, {11, 11, 21, 21}},
        {"-= point", [](CRect& r) { r -= CPoint(1, 1); }, {9, 9, 19, 19}},
        {"+= size", [](CRect& r) { r += CSize(1, 1); }, {11, 11, 21, 21}},
        {"-= size", [](CRect& r) { r -= CSize(2, 2); }, {8, 8, 18, 18}},
        {"+= rect", [&](CRect& r) { r += &by; }, {9, 8, 23, 24}},
        {"-= rect", [&](CRect& r) { r -= &by; }, {11, 12, 17, 16}},
        {"&=", [](CRect& r) { r &= CRect(0, 0, 12, 12); }, {10, 10, 12, 12}},
        {"|=", [](CRect& r) { r |= CRect(50, 50, 51, 51); }, {10, 10, 51, 51}},
        {"&= disjoint gives zeros", [](CRect& r) { r &= CRect(100, 100, 200, 200); }, {0, 0, 0, 0}},
    };
    for (auto& c : cases) {
        CRect r(10, 10, 20, 20);
        c.change(r);
        ExpectRect(r, c.out.left, c.out.top, c.out.right, c.out.bottom, c.what);
    }

    CRect n(30, 40, 10, 20);
    n.NormalizeRect();
    ExpectRect(n, 10, 20, 30, 40, "normalize both");
    n.SetRect(1, 9, 5, 2);
    n.NormalizeRect();
    ExpectRect(n, 1, 2, 5, 9, "normalize top/bottom only");
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
