// Window placement kept in the application profile: the correction rules.
//
// The Win32 shell (placement_win.cpp) reads and writes the five profile
// values and applies the result; every rule about what is stored and how a
// stored value is corrected lives here.
#pragma once

#include "afxplatform.h"

namespace twplacement {

// Profile value name suffixes, appended directly to the caller's prefix.
inline constexpr const char* kSuffixX = "DlgX";
inline constexpr const char* kSuffixY = "DlgY";
inline constexpr const char* kSuffixW = "DlgW";
inline constexpr const char* kSuffixH = "DlgH";
inline constexpr const char* kSuffixF = "DlgF";

// Defaults of the five values when nothing is stored.
inline constexpr int kDefaultX = 0;
inline constexpr int kDefaultY = 0;
inline constexpr int kDefaultW = 400;
inline constexpr int kDefaultH = 300;
inline constexpr int kDefaultF = 0;

// Bits of the stored state flags.
inline constexpr int kFlagMinimized = 1;
inline constexpr int kFlagMaximized = 16;

// Show commands and placement flags with their Win32 values.
inline constexpr UINT kShowNormal = 1;
inline constexpr UINT kShowMinimized = 2;
inline constexpr UINT kShowMaximized = 3;
inline constexpr UINT kShowMinNoActive = 7;
inline constexpr UINT kPlaceSetMinPosition = 1;
inline constexpr UINT kPlaceRestoreToMaximized = 2;

// The five values as stored in the profile.
struct StoredPlacement
{
    int x = kDefaultX;
    int y = kDefaultY;
    int w = kDefaultW;
    int h = kDefaultH;
    int flags = kDefaultF;
};

// The parts of a WINDOWPLACEMENT that the rules decide.
struct Placement
{
    UINT flags = 0;
    UINT showCmd = kShowNormal;
    POINT minPosition = {0, 0};
    POINT maxPosition = {0, 0};
    RECT normal = {0, 0, 0, 0};
};

// The stored values for a window's current placement.
StoredPlacement StoredFromPlacement(const Placement& placement);

// The placement to apply for stored values on a screen of the given size;
// `borderX`/`borderY` are the system's border metrics.
Placement PlacementFromStored(const StoredPlacement& stored, int screenWidth, int screenHeight, int borderX,
                              int borderY);

// A position read by the position-only reader, and whether the stored value
// must be repaired (written back as 0).
struct CorrectedPosition
{
    int x = 0;
    int y = 0;
    bool repairX = false;
    bool repairY = false;
};

// Corrects a stored position for the position-only reader.
CorrectedPosition PositionFromStored(int x, int y, int screenWidth, int screenHeight);

}  // namespace twplacement
