#include "frame/placement.h"

#include <algorithm>

namespace twplacement {

namespace {

// Below this extent a stored window is taken as lost and spans the screen.
constexpr int kMinimumExtent = 50;

}  // namespace

StoredPlacement StoredFromPlacement(const Placement& placement)
{
    int minimized = 0;
    int maximized = 0;
    switch (placement.showCmd) {
    case kShowMaximized:
        maximized = 1;
        break;
    case kShowMinimized:
        // Deliberate: any placement flag counts as "restore maximised", which
        // in practice is the only flag a minimised window carries.
        minimized = 1;
        maximized = placement.flags != 0 ? 1 : 0;
        break;
    default:
        break;
    }
    StoredPlacement stored;
    stored.x = placement.normal.left;
    stored.y = placement.normal.top;
    stored.w = placement.normal.right - placement.normal.left;
    stored.h = placement.normal.bottom - placement.normal.top;
    stored.flags = minimized * kFlagMinimized + maximized * kFlagMaximized;
    return stored;
}

Placement PlacementFromStored(const StoredPlacement& stored, int screenWidth, int screenHeight, int borderX,
                              int borderY)
{
    // Deliberate: only values beyond the screen are reset; negative ones stay,
    // so a window on a monitor to the left keeps its place.
    const int x = stored.x > screenWidth ? 0 : stored.x;
    const int y = stored.y > screenHeight ? 0 : stored.y;
    // Computed in 64 bits: a stored width near INT_MAX must not overflow.
    const int right = static_cast<int>(std::min<long long>(static_cast<long long>(x) + stored.w, screenWidth));
    const int bottom = static_cast<int>(std::min<long long>(static_cast<long long>(y) + stored.h, screenHeight));

    Placement placement;
    if (right < kMinimumExtent) {
        placement.normal.left = 0;
        placement.normal.right = screenWidth;
    } else {
        placement.normal.left = x;
        placement.normal.right = right;
    }
    if (bottom < kMinimumExtent) {
        placement.normal.top = 0;
        placement.normal.bottom = screenHeight;
    } else {
        placement.normal.top = y;
        placement.normal.bottom = bottom;
    }

    const bool minimized = (stored.flags & kFlagMinimized) != 0;
    const bool maximized = (stored.flags & kFlagMaximized) != 0;
    placement.showCmd = minimized ? kShowMinNoActive : maximized ? kShowMaximized : kShowNormal;
    placement.flags = maximized ? kPlaceRestoreToMaximized : kPlaceSetMinPosition;
    placement.minPosition = {0, 0};
    placement.maxPosition = {-borderX, -borderY};
    return placement;
}

CorrectedPosition PositionFromStored(int x, int y, int screenWidth, int screenHeight)
{
    CorrectedPosition position{x, y, false, false};
    // Deliberate: stricter than the full reader; negative and edge values are
    // reset and repaired in the profile.
    if (x < 0 || x >= screenWidth) {
        position.x = 0;
        position.repairX = true;
    }
    if (y < 0 || y >= screenHeight) {
        position.y = 0;
        position.repairY = true;
    }
    return position;
}

}  // namespace twplacement
