#include "frame/placement.h"

#include <gtest/gtest.h>

#include <climits>

using namespace twplacement;

namespace {

constexpr int kScreenW = 1920;
constexpr int kScreenH = 1080;

Placement fromStored(int x, int y, int w, int h, int f)
{
    return PlacementFromStored(StoredPlacement{x, y, w, h, f}, kScreenW, kScreenH, 1, 2);
}

}  // namespace

TEST(PlacementWrite, ShowStateGivesTheStoredFlags)
{
    struct
    {
        UINT showCmd;
        UINT flags;
        int stored;
    } cases[] = {
        {kShowNormal, 0, 0},
        {kShowMaximized, 0, 16},
        {kShowMinimized, 0, 1},
        {kShowMinimized, kPlaceRestoreToMaximized, 17},
        {kShowMinimized, kPlaceSetMinPosition, 17},  // any flag counts
        {kShowMinNoActive, kPlaceRestoreToMaximized, 0},
        {0, 0, 0},
    };
    for (const auto& c : cases) {
        Placement p;
        p.showCmd = c.showCmd;
        p.flags = c.flags;
        p.normal = {10, 20, 110, 220};
        const StoredPlacement s = StoredFromPlacement(p);
        EXPECT_EQ(s.flags, c.stored) << c.showCmd << "/" << c.flags;
        EXPECT_EQ(s.x, 10);
        EXPECT_EQ(s.y, 20);
        EXPECT_EQ(s.w, 100);
        EXPECT_EQ(s.h, 200);
    }
}

TEST(PlacementRead, NothingStoredGivesANormalWindowAtTheOrigin)
{
    const Placement p = PlacementFromStored(StoredPlacement{}, kScreenW, kScreenH, 1, 2);
    EXPECT_EQ(p.showCmd, kShowNormal);
    EXPECT_EQ(p.flags, kPlaceSetMinPosition);
    EXPECT_EQ(p.normal.left, 0);
    EXPECT_EQ(p.normal.top, 0);
    EXPECT_EQ(p.normal.right, 400);
    EXPECT_EQ(p.normal.bottom, 300);
    EXPECT_EQ(p.minPosition.x, 0);
    EXPECT_EQ(p.minPosition.y, 0);
    EXPECT_EQ(p.maxPosition.x, -1);
    EXPECT_EQ(p.maxPosition.y, -2);
}

TEST(PlacementRead, CorrectsEachEdge)
{
    struct
    {
        int x, y, w, h;
        RECT expected;
        const char* why;
    } cases[] = {
        {5000, 10, 400, 300, {0, 10, 400, 310}, "x beyond the screen resets to 0"},
        {10, 5000, 400, 300, {10, 0, 410, 300}, "y beyond the screen resets to 0"},
        {1920, 10, 400, 300, {1920, 10, 1920, 310}, "x equal to the width is kept"},
        {-30, 10, 20, 300, {0, 10, 1920, 310}, "right below 50 spans the width"},
        {-30, 10, 100, 300, {-30, 10, 70, 310}, "negative x is kept"},
        {100, 10, 3000, 300, {100, 10, 1920, 310}, "right clipped to the screen"},
        {10, -40, 400, 60, {10, 0, 410, 1080}, "bottom below 50 spans the height"},
        {10, 10, 400, 39, {10, 0, 410, 1080}, "bottom 49 spans the height"},
        {0, 0, 49, 300, {0, 0, 1920, 300}, "right 49 spans the width"},
        {0, 0, 50, 300, {0, 0, 50, 300}, "right 50 is kept"},
        {10, 10, INT_MAX, INT_MAX, {10, 10, 1920, 1080}, "huge sizes do not overflow"},
    };
    for (const auto& c : cases) {
        const Placement p = fromStored(c.x, c.y, c.w, c.h, 0);
        EXPECT_EQ(p.normal.left, c.expected.left) << c.why;
        EXPECT_EQ(p.normal.top, c.expected.top) << c.why;
        EXPECT_EQ(p.normal.right, c.expected.right) << c.why;
        EXPECT_EQ(p.normal.bottom, c.expected.bottom) << c.why;
    }
}

TEST(PlacementRead, StoredFlagsGiveShowStateAndPlacementFlags)
{
    struct
    {
        int stored;
        UINT showCmd;
        UINT flags;
    } cases[] = {
        {0, kShowNormal, kPlaceSetMinPosition},      {16, kShowMaximized, kPlaceRestoreToMaximized},
        {1, kShowMinNoActive, kPlaceSetMinPosition}, {17, kShowMinNoActive, kPlaceRestoreToMaximized},
        {2, kShowNormal, kPlaceSetMinPosition},
    };
    for (const auto& c : cases) {
        const Placement p = fromStored(10, 10, 400, 300, c.stored);
        EXPECT_EQ(p.showCmd, c.showCmd) << c.stored;
        EXPECT_EQ(p.flags, c.flags) << c.stored;
    }
}

TEST(PositionRead, RejectsNegativeAndEdgeValuesAndRepairsThem)
{
    struct
    {
        int x, y;
        int ex, ey;
        bool rx, ry;
    } cases[] = {
        {10, 20, 10, 20, false, false},         {5000, 20, 0, 20, true, false}, {1920, 20, 0, 20, true, false},
        {1919, 1079, 1919, 1079, false, false}, {-30, 20, 0, 20, true, false},  {10, -1, 10, 0, false, true},
        {10, 1080, 10, 0, false, true},         {-1, 1080, 0, 0, true, true},
    };
    for (const auto& c : cases) {
        const CorrectedPosition p = PositionFromStored(c.x, c.y, kScreenW, kScreenH);
        EXPECT_EQ(p.x, c.ex) << c.x << "," << c.y;
        EXPECT_EQ(p.y, c.ey) << c.x << "," << c.y;
        EXPECT_EQ(p.repairX, c.rx) << c.x << "," << c.y;
        EXPECT_EQ(p.repairY, c.ry) << c.x << "," << c.y;
    }
}
