// Window placement through the application profile, round trips through
// real windows and the corrections as the shell applies them.
#include "frame/placement_win.h"
#include "frame_win_support.h"

#include <gtest/gtest.h>

#include <string>

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

TEST(PlacementShell, NormalWindowRoundTrip)
{
    StoredValues stored("FrameNormal");
    {
        FrameWindow wnd;
        wnd.SetNormal({120, 80, 640, 410});
        wnd.ShowWindow(SW_SHOWNORMAL);
        WriteDlgPositionSize(&wnd, stored.Prefix());
    }
    EXPECT_EQ(stored.Get("DlgX"), 120);
    EXPECT_EQ(stored.Get("DlgY"), 80);
    EXPECT_EQ(stored.Get("DlgW"), 520);
    EXPECT_EQ(stored.Get("DlgH"), 330);
    EXPECT_EQ(stored.Get("DlgF"), 0);

    FrameWindow again(10, 10, 200, 150);
    ReadDlgPositionSize(&again, stored.Prefix());
    const WINDOWPLACEMENT wp = again.Placement();
    EXPECT_EQ(wp.showCmd, static_cast<UINT>(SW_SHOWNORMAL));
    EXPECT_TRUE(SameRect(wp.rcNormalPosition, {120, 80, 640, 410}));
    EXPECT_TRUE(SameRect(again.WindowRect(), {120, 80, 640, 410}));
    EXPECT_TRUE(again.IsWindowVisible());
}

TEST(PlacementShell, MaximisedWindowStoresItsNormalRectangle)
{
    StoredValues stored("FrameMax");
    {
        FrameWindow wnd;
        wnd.SetNormal({150, 100, 550, 400});
        wnd.ShowWindow(SW_SHOWMAXIMIZED);
        ASSERT_TRUE(wnd.IsZoomed());
        WriteDlgPositionSize(&wnd, stored.Prefix());
    }
    EXPECT_EQ(stored.Get("DlgX"), 150);
    EXPECT_EQ(stored.Get("DlgY"), 100);
    EXPECT_EQ(stored.Get("DlgW"), 400);
    EXPECT_EQ(stored.Get("DlgH"), 300);
    EXPECT_EQ(stored.Get("DlgF"), 16);

    FrameWindow again(10, 10, 200, 150);
    ReadDlgPositionSize(&again, stored.Prefix());
    EXPECT_TRUE(again.IsZoomed());
    EXPECT_TRUE(SameRect(again.Placement().rcNormalPosition, {150, 100, 550, 400}));
    again.ShowWindow(SW_RESTORE);
    EXPECT_FALSE(again.IsZoomed());
    EXPECT_TRUE(SameRect(again.WindowRect(), {150, 100, 550, 400}));
}

TEST(PlacementShell, MinimisedFromMaximisedComesBackMinimisedToBeRestoredMaximised)
{
    StoredValues stored("FrameMinMax");
    {
        FrameWindow wnd;
        wnd.SetNormal({200, 120, 700, 520});
        wnd.ShowWindow(SW_SHOWMAXIMIZED);
        wnd.ShowWindow(SW_MINIMIZE);
        ASSERT_TRUE(wnd.IsIconic());
        WriteDlgPositionSize(&wnd, stored.Prefix());
    }
    EXPECT_EQ(stored.Get("DlgF"), 17);
    EXPECT_EQ(stored.Get("DlgX"), 200);
    EXPECT_EQ(stored.Get("DlgW"), 500);

    FrameWindow other(10, 10, 100, 100);
    other.ShowWindow(SW_SHOWNORMAL);
    other.SetActiveWindow();

    FrameWindow again(10, 10, 200, 150);
    ReadDlgPositionSize(&again, stored.Prefix());
    EXPECT_TRUE(again.IsIconic());
    // Shown minimised without taking the activation.
    EXPECT_NE(::GetActiveWindow(), again.m_hWnd);
    const WINDOWPLACEMENT wp = again.Placement();
    EXPECT_EQ(wp.flags & WPF_RESTORETOMAXIMIZED, static_cast<UINT>(WPF_RESTORETOMAXIMIZED));
    EXPECT_TRUE(SameRect(wp.rcNormalPosition, {200, 120, 700, 520}));
    again.ShowWindow(SW_RESTORE);
    EXPECT_TRUE(again.IsZoomed());
}

TEST(PlacementShell, MinimisedFromNormalStoresOnlyTheMinimisedBit)
{
    StoredValues stored("FrameMin");
    FrameWindow wnd;
    wnd.SetNormal({60, 70, 460, 370});
    wnd.ShowWindow(SW_SHOWNORMAL);
    wnd.ShowWindow(SW_MINIMIZE);
    ASSERT_TRUE(wnd.IsIconic());
    WriteDlgPositionSize(&wnd, stored.Prefix());
    EXPECT_EQ(stored.Get("DlgF"), 1);
    EXPECT_EQ(stored.Get("DlgX"), 60);
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
        {"y beyond the edge", 100, sh + 1, 400, 300, {100, 0, 500, 300}},
        {"negative x kept", -100, 50, 600, 300, {-100, 50, 500, 350}},
        {"right below 50 spans the width", -30, 50, 20, 300, {0, 50, sw, 350}},
        {"bottom below 50 spans the height", 100, -60, 400, 100, {100, 0, 500, sh}},
        {"too wide is clipped", 100, 50, 3000 + sw, 300, {100, 50, sw, 350}},
        {"too high is clipped", 100, 50, 400, 3000 + sh, {100, 50, 500, sh}},
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
        {"inside", 100, 200, 100, 200},     {"x beyond", 5000, 200, 0, 200},
        {"x on the edge", sw, 200, 0, 200}, {"x just inside", sw - 1, 200, sw - 1, 200},
        {"x negative", -30, 200, 0, 200},   {"y on the edge", 100, sh, 100, 0},
        {"y negative", 100, -1, 100, 0},    {"both", -5, sh + 5, 0, 0},
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
