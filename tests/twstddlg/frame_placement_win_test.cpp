// Window placement through the application profile, round trips through
// real windows and the corrections as the shell applies them.
#include "frame/placement_win.h"
#include "frame_win_support.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace frametest;

namespace {

constexpr const char* kSuffixes[] = {"DlgX", "DlgY", "DlgW", "DlgH", "DlgF"};

CString SectionKey()
{
    return CTestApp::Get().ProfileKeyPath() + "\\Einstellungen";
}

// The profile values of one prefix, removed again at the end of the test.
class StoredValues
{
public:
    explicit StoredValues(const char* prefix) : m_prefix(prefix) { Clear(); }
    ~StoredValues() { Clear(); }

    void Set(const char* suffix, int value)
    {
        WriteValue(SectionKey(), m_prefix + suffix, REG_DWORD, DwordBytes(static_cast<DWORD>(value)));
    }
    void Set(int x, int y, int w, int h, int f)
    {
        Set("DlgX", x);
        Set("DlgY", y);
        Set("DlgW", w);
        Set("DlgH", h);
        Set("DlgF", f);
    }
    // The stored value, or nullopt-like `missing` when there is none.
    int Get(const char* suffix, int missing = -12345) const
    {
        DWORD type = 0;
        std::string bytes;
        if (!ReadValue(SectionKey(), m_prefix + suffix, type, bytes) || type != REG_DWORD || bytes.size() != 4)
            return missing;
        return *reinterpret_cast<const int*>(bytes.data());
    }
    const char* Prefix() const { return m_prefix; }

private:
    void Clear()
    {
        HKEY key = nullptr;
        if (RegOpenKeyExA(HKEY_CURRENT_USER, SectionKey(), 0, KEY_WRITE, &key) != ERROR_SUCCESS)
            return;
        for (const char* suffix : kSuffixes)
            RegDeleteValueA(key, m_prefix + suffix);
        RegCloseKey(key);
    }

    CString m_prefix;
};

// A top-level window with a caption and a sizing frame.
struct FrameWindow : CWnd
{
    FrameWindow(int x = 100, int y = 100, int w = 300, int h = 200)
    {
        EXPECT_TRUE(CreateEx(0, nullptr, "Platz", WS_OVERLAPPEDWINDOW, x, y, w, h, nullptr, nullptr));
    }
    ~FrameWindow() override { DestroyWindow(); }

    WINDOWPLACEMENT Placement() const
    {
        WINDOWPLACEMENT wp = {};
        wp.length = sizeof wp;
        GetWindowPlacement(&wp);
        return wp;
    }
    void SetNormal(const RECT& rect)
    {
        WINDOWPLACEMENT wp = Placement();
        wp.showCmd = SW_SHOWNORMAL;
        wp.rcNormalPosition = rect;
        SetWindowPlacement(&wp);
    }
    CRect WindowRect() const
    {
        CRect rect;
        GetWindowRect(&rect);
        return rect;
    }
};

int ScreenWidth()
{
    return GetSystemMetrics(SM_CXSCREEN);
}

int ScreenHeight()
{
    return GetSystemMetrics(SM_CYSCREEN);
}

::testing::AssertionResult SameRect(const RECT& actual, const RECT& expected)
{
    if (EqualRect(&actual, &expected))
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "(" << actual.left << "," << actual.top << ")-(" << actual.right << ","
                                         << actual.bottom << ") instead of (" << expected.left << "," << expected.top
                                         << ")-(" << expected.right << "," << expected.bottom << ")";
}

}  // namespace

TEST(PlacementShell, WriteStoresTheNormalRectangleAndTheStateBits)
{
    struct
    {
        const char* what;
        std::vector<int> shows;
        int flags;
    } cases[] = {
        {"normal", {SW_SHOWNORMAL}, 0},
        {"maximised", {SW_SHOWMAXIMIZED}, 16},
        {"minimised", {SW_SHOWNORMAL, SW_MINIMIZE}, 1},
        {"minimised from maximised", {SW_SHOWMAXIMIZED, SW_MINIMIZE}, 17},
    };
    for (const auto& c : cases) {
        StoredValues stored("FrameWrite");
        FrameWindow wnd;
        wnd.SetNormal({120, 80, 640, 410});
        for (int show : c.shows)
            wnd.ShowWindow(show);
        WriteDlgPositionSize(&wnd, stored.Prefix());
        EXPECT_EQ(stored.Get("DlgX"), 120) << c.what;
        EXPECT_EQ(stored.Get("DlgY"), 80) << c.what;
        EXPECT_EQ(stored.Get("DlgW"), 520) << c.what;
        EXPECT_EQ(stored.Get("DlgH"), 330) << c.what;
        EXPECT_EQ(stored.Get("DlgF"), c.flags) << c.what;
    }
}

TEST(PlacementShell, ReadShowsTheStoredRectangleNormalOrMaximised)
{
    for (int flags : {0, 16}) {
        StoredValues stored("FrameRead");
        stored.Set(120, 80, 520, 330, flags);
        FrameWindow wnd(10, 10, 200, 150);
        ReadDlgPositionSize(&wnd, stored.Prefix());
        EXPECT_TRUE(wnd.IsWindowVisible()) << flags;
        EXPECT_FALSE(wnd.IsIconic()) << flags;
        EXPECT_EQ(wnd.IsZoomed() != FALSE, flags == 16);
        EXPECT_TRUE(SameRect(wnd.Placement().rcNormalPosition, {120, 80, 640, 410})) << flags;
        wnd.ShowWindow(SW_RESTORE);
        EXPECT_TRUE(SameRect(wnd.WindowRect(), {120, 80, 640, 410})) << flags;
    }
}

TEST(PlacementShell, ReadOf17ShowsMinimisedWithoutActivationToBeRestoredMaximised)
{
    StoredValues stored("FrameMinMax");
    stored.Set(200, 120, 500, 400, 17);
    FrameWindow other(10, 10, 100, 100);
    other.ShowWindow(SW_SHOWNORMAL);
    other.SetActiveWindow();

    FrameWindow wnd(10, 10, 200, 150);
    ReadDlgPositionSize(&wnd, stored.Prefix());
    EXPECT_TRUE(wnd.IsIconic());
    EXPECT_NE(::GetActiveWindow(), wnd.m_hWnd);
    const WINDOWPLACEMENT wp = wnd.Placement();
    EXPECT_EQ(wp.flags & WPF_RESTORETOMAXIMIZED, static_cast<UINT>(WPF_RESTORETOMAXIMIZED));
    EXPECT_TRUE(SameRect(wp.rcNormalPosition, {200, 120, 700, 520}));
    wnd.ShowWindow(SW_RESTORE);
    EXPECT_TRUE(wnd.IsZoomed());
}

TEST(PlacementShell, FullReaderCorrectsOnlyOnTheScreenAndNeverWrites)
{
    const int sw = ScreenWidth();
    const int sh = ScreenHeight();
    struct
    {
        const char* what;
        int x, y, w, h;
        RECT expected;
    } cases[] = {
        {"inside", 100, 50, 400, 300, {100, 50, 500, 350}},
        {"x beyond the edge", sw + 3000, 50, 400, 300, {0, 50, 400, 350}},
        {"bottom below 50 spans the height", 100, -60, 400, 100, {100, 0, 500, sh}},
    };
    for (const auto& c : cases) {
        StoredValues stored("FrameEdges");
        stored.Set(c.x, c.y, c.w, c.h, 0);
        FrameWindow wnd(10, 10, 200, 150);
        ReadDlgPositionSize(&wnd, stored.Prefix());
        EXPECT_TRUE(SameRect(wnd.Placement().rcNormalPosition, c.expected)) << c.what;
        EXPECT_EQ(stored.Get("DlgX"), c.x) << c.what;
        EXPECT_EQ(stored.Get("DlgY"), c.y) << c.what;
    }
}

TEST(PlacementShell, NothingStoredGivesANormal400By300WindowAtTheOrigin)
{
    StoredValues stored("FrameNothing");
    FrameWindow wnd(10, 10, 200, 150);
    ReadDlgPositionSize(&wnd, stored.Prefix());
    const WINDOWPLACEMENT wp = wnd.Placement();
    EXPECT_EQ(wp.showCmd, static_cast<UINT>(SW_SHOWNORMAL));
    EXPECT_TRUE(SameRect(wp.rcNormalPosition, {0, 0, 400, 300}));
    EXPECT_EQ(stored.Get("DlgX"), -12345);
}

TEST(PlacementShell, EmptyPrefixUsesTheBareNames)
{
    StoredValues stored("");
    FrameWindow wnd;
    wnd.SetNormal({30, 40, 330, 340});
    WriteDlgPositionSize(&wnd, "");
    EXPECT_EQ(stored.Get("DlgX"), 30);
    EXPECT_EQ(stored.Get("DlgH"), 300);
}

TEST(PositionShell, RoundTripKeepsTheSize)
{
    StoredValues stored("FramePos");
    {
        FrameWindow wnd(210, 160, 320, 240);
        WriteWndPosition(&wnd, stored.Prefix());
    }
    EXPECT_EQ(stored.Get("DlgX"), 210);
    EXPECT_EQ(stored.Get("DlgY"), 160);
    EXPECT_EQ(stored.Get("DlgW"), -12345);
    EXPECT_EQ(stored.Get("DlgF"), -12345);

    FrameWindow again(5, 5, 333, 222);
    ReadWndPosition(&again, stored.Prefix());
    EXPECT_TRUE(SameRect(again.WindowRect(), {210, 160, 210 + 333, 160 + 222}));
}

TEST(PositionShell, OffScreenValuesBecome0AndAreStoredAs0)
{
    const int sw = ScreenWidth();
    const int sh = ScreenHeight();
    struct
    {
        const char* what;
        int x, y;
        int expectedX, expectedY;
    } cases[] = {
        {"inside", 100, 200, 100, 200},
        {"x on the edge", sw, 200, 0, 200},
        {"x just inside", sw - 1, 200, sw - 1, 200},
        {"both off", -5, sh, 0, 0},
    };
    for (const auto& c : cases) {
        StoredValues stored("FramePosEdges");
        stored.Set("DlgX", c.x);
        stored.Set("DlgY", c.y);
        FrameWindow wnd(20, 20, 300, 200);
        ReadWndPosition(&wnd, stored.Prefix());
        const CRect rect = wnd.WindowRect();
        EXPECT_EQ(rect.left, c.expectedX) << c.what;
        EXPECT_EQ(rect.top, c.expectedY) << c.what;
        EXPECT_EQ(rect.Width(), 300) << c.what;
        EXPECT_EQ(rect.Height(), 200) << c.what;
        EXPECT_EQ(stored.Get("DlgX"), c.expectedX) << c.what;
        EXPECT_EQ(stored.Get("DlgY"), c.expectedY) << c.what;
    }
}

TEST(PositionShell, NothingStoredMovesToTheOriginWithoutStoring)
{
    StoredValues stored("FramePosNothing");
    FrameWindow wnd(20, 20, 300, 200);
    ReadWndPosition(&wnd, stored.Prefix());
    EXPECT_EQ(wnd.WindowRect().TopLeft(), CPoint(0, 0));
    EXPECT_EQ(stored.Get("DlgX"), -12345);
}
