#include "frame/placement_win.h"

#include "afxwin.h"
#include "frame/placement.h"

namespace {

constexpr char kSection[] = "Einstellungen";

using namespace twplacement;

CString ValueName(const char* prefix, const char* suffix)
{
    return CString(prefix) + suffix;
}

int ReadInt(const char* prefix, const char* suffix, int defaultValue)
{
    CWinApp* app = AfxGetApp();
    if (app == nullptr)
        return defaultValue;
    return static_cast<int>(app->GetProfileInt(kSection, ValueName(prefix, suffix), defaultValue));
}

void WriteInt(const char* prefix, const char* suffix, int value)
{
    if (CWinApp* app = AfxGetApp())
        app->WriteProfileInt(kSection, ValueName(prefix, suffix), value);
}

}  // namespace

void WriteDlgPositionSize(CWnd* wnd, const char* prefix)
{
    WINDOWPLACEMENT wp = {};
    wp.length = sizeof wp;
    if (!wnd->GetWindowPlacement(&wp))
        return;
    Placement current;
    current.flags = wp.flags;
    current.showCmd = wp.showCmd;
    current.normal = wp.rcNormalPosition;
    const StoredPlacement stored = StoredFromPlacement(current);
    WriteInt(prefix, kSuffixX, stored.x);
    WriteInt(prefix, kSuffixY, stored.y);
    WriteInt(prefix, kSuffixW, stored.w);
    WriteInt(prefix, kSuffixH, stored.h);
    WriteInt(prefix, kSuffixF, stored.flags);
}

void ReadDlgPositionSize(CWnd* wnd, const char* prefix)
{
    const int screenWidth = GetSystemMetrics(SM_CXSCREEN);
    const int screenHeight = GetSystemMetrics(SM_CYSCREEN);
    StoredPlacement stored;
    stored.x = ReadInt(prefix, kSuffixX, kDefaultX);
    stored.y = ReadInt(prefix, kSuffixY, kDefaultY);
    stored.w = ReadInt(prefix, kSuffixW, kDefaultW);
    stored.h = ReadInt(prefix, kSuffixH, kDefaultH);
    stored.flags = ReadInt(prefix, kSuffixF, kDefaultF);
    const Placement placement = PlacementFromStored(stored, screenWidth, screenHeight, GetSystemMetrics(SM_CXBORDER),
                                                    GetSystemMetrics(SM_CYBORDER));
    WINDOWPLACEMENT wp = {};
    wp.length = sizeof wp;
    wp.flags = placement.flags;
    wp.showCmd = placement.showCmd;
    wp.ptMinPosition = placement.minPosition;
    wp.ptMaxPosition = placement.maxPosition;
    wp.rcNormalPosition = placement.normal;
    wnd->SetWindowPlacement(&wp);
}

void WriteWndPosition(CWnd* wnd, const char* prefix)
{
    CRect rect;
    wnd->GetWindowRect(&rect);
    WriteInt(prefix, kSuffixX, rect.left);
    WriteInt(prefix, kSuffixY, rect.top);
}

void ReadWndPosition(CWnd* wnd, const char* prefix)
{
    const int screenWidth = GetSystemMetrics(SM_CXSCREEN);
    const int screenHeight = GetSystemMetrics(SM_CYSCREEN);
    const int x = ReadInt(prefix, kSuffixX, kDefaultX);
    const int y = ReadInt(prefix, kSuffixY, kDefaultY);
    const CorrectedPosition position = PositionFromStored(x, y, screenWidth, screenHeight);
    if (position.repairX)
        WriteInt(prefix, kSuffixX, 0);
    if (position.repairY)
        WriteInt(prefix, kSuffixY, 0);
    wnd->SetWindowPos(nullptr, position.x, position.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
}
