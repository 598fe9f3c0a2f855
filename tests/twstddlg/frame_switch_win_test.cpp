// The frame's internals against the real system: the registry reader and
// the policy switches, the safe timer, the common-controls version number.
#include "frame/module_version.h"
#include "frame/module_version_number.h"
#include "frame/registry_switch.h"
#include "frame/safe_timer.h"
#include "frame/safe_timer_seam.h"
#include "frame_win_support.h"

#include <gtest/gtest.h>

#include <set>
#include <vector>

using namespace frametest;

namespace {

// A key of this test below the test application's company key.
CString ReaderKey()
{
    return CTestApp::Get().CompanyKeyPath() + "\\FrameReader";
}

struct ReaderKeyCleanup
{
    ~ReaderKeyCleanup() { RegDeleteTreeA(HKEY_CURRENT_USER, ReaderKey()); }
};

// The process's valid handle values (GetProcessHandleCount answers 0 under
// Wine, so the handles are probed one by one).
std::set<HANDLE> OpenHandles()
{
    std::set<HANDLE> handles;
    for (uintptr_t value = 4; value < 0x10000; value += 4) {
        DWORD flags = 0;
        if (GetHandleInformation(reinterpret_cast<HANDLE>(value), &flags))
            handles.insert(reinterpret_cast<HANDLE>(value));
    }
    return handles;
}

std::vector<HANDLE> Added(const std::set<HANDLE>& before, const std::set<HANDLE>& after)
{
    std::vector<HANDLE> added;
    for (HANDLE h : after)
        if (before.count(h) == 0)
            added.push_back(h);
    return added;
}

}  // namespace

TEST(RegistryReader, OnlyStringValuesUpTo260BytesAreRead)
{
    ReaderKeyCleanup cleanup;
    struct
    {
        const char* name;
        DWORD type;
        std::string bytes;
        LONG status;
        const char* text;
    } cases[] = {
        {"Wort", REG_SZ, SzBytes("Ja"), ERROR_SUCCESS, "Ja"},
        {"Leer", REG_SZ, SzBytes(""), ERROR_SUCCESS, ""},
        {"Zahl", REG_DWORD, DwordBytes(1), ERROR_SUCCESS, ""},
        {"Ziffer", REG_DWORD, DwordBytes(0x31), ERROR_SUCCESS, ""},
        {"Erweitert", REG_EXPAND_SZ, SzBytes("ja"), ERROR_SUCCESS, ""},
        {"Binaer", REG_BINARY, "ja", ERROR_SUCCESS, ""},
        {"Passt", REG_SZ, SzBytes(std::string(259, 'w')), ERROR_SUCCESS, nullptr},
        {"Zulang", REG_SZ, SzBytes(std::string(260, 'w')), ERROR_MORE_DATA, ""},
    };
    for (const auto& c : cases)
        WriteValue(ReaderKey(), c.name, c.type, c.bytes);

    for (const auto& c : cases) {
        CString text = "vorher";
        EXPECT_EQ(ReadRegistryString(HKEY_CURRENT_USER, ReaderKey(), c.name, text), c.status) << c.name;
        const CString expected = c.text != nullptr ? CString(c.text) : CString('w', 259);
        EXPECT_STREQ(text, expected) << c.name;
    }
}

TEST(RegistryReader, MissingKeyOrValueGivesTheStatusAndAnEmptyText)
{
    ReaderKeyCleanup cleanup;
    WriteValue(ReaderKey(), "Da", REG_SZ, SzBytes("x"));

    CString text = "vorher";
    EXPECT_EQ(ReadRegistryString(HKEY_CURRENT_USER, ReaderKey(), "Fehlt", text), ERROR_FILE_NOT_FOUND);
    EXPECT_TRUE(text.IsEmpty());
    text = "vorher";
    EXPECT_EQ(ReadRegistryString(HKEY_CURRENT_USER, ReaderKey() + "\\Nirgends", "Da", text), ERROR_FILE_NOT_FOUND);
    EXPECT_TRUE(text.IsEmpty());
}

TEST(RegistryReader, ClosesTheRootKeyItWasGivenAndLeavesTheSubkeyOpen)
{
    ReaderKeyCleanup cleanup;
    WriteValue(ReaderKey() + "\\Unter", "Wert", REG_SZ, SzBytes("ok"));
    HKEY root = nullptr;
    ASSERT_EQ(RegOpenKeyExA(HKEY_CURRENT_USER, ReaderKey(), 0, KEY_READ, &root), ERROR_SUCCESS);

    const std::set<HANDLE> before = OpenHandles();
    ASSERT_EQ(before.count(root), 1u);
    CString text;
    EXPECT_EQ(ReadRegistryString(root, "Unter", "Wert", text), ERROR_SUCCESS);
    EXPECT_STREQ(text, "ok");
    const std::set<HANDLE> after = OpenHandles();
    EXPECT_EQ(after.count(root), 0u) << "the root key given is closed";

    // Exactly one new handle: the subkey, still open and readable.
    const std::vector<HANDLE> added = Added(before, after);
    ASSERT_EQ(added.size(), 1u);
    HKEY subkey = static_cast<HKEY>(added[0]);
    char data[16] = {};
    DWORD size = sizeof data;
    EXPECT_EQ(RegQueryValueExA(subkey, "Wert", nullptr, nullptr, reinterpret_cast<BYTE*>(data), &size), ERROR_SUCCESS);
    EXPECT_STREQ(data, "ok");
    RegCloseKey(subkey);
}

TEST(RegistryReader, EachCallWithAPredefinedRootLeavesOneHandleOpen)
{
    ReaderKeyCleanup cleanup;
    WriteValue(ReaderKey(), "Wert", REG_SZ, SzBytes("ok"));
    const std::set<HANDLE> before = OpenHandles();
    CString text;
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(ReadRegistryString(HKEY_CURRENT_USER, ReaderKey(), "Wert", text), ERROR_SUCCESS);
    const std::vector<HANDLE> added = Added(before, OpenHandles());
    EXPECT_EQ(added.size(), 3u);
    for (HANDLE h : added)
        RegCloseKey(static_cast<HKEY>(h));
}

TEST(RegistryReader, AFailedOpenLeavesTheRootKeyOpen)
{
    ReaderKeyCleanup cleanup;
    WriteValue(ReaderKey(), "Wert", REG_SZ, SzBytes("ok"));
    HKEY root = nullptr;
    ASSERT_EQ(RegOpenKeyExA(HKEY_CURRENT_USER, ReaderKey(), 0, KEY_READ, &root), ERROR_SUCCESS);
    CString text;
    EXPECT_EQ(ReadRegistryString(root, "Nirgends", "Wert", text), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(RegCloseKey(root), ERROR_SUCCESS);
}

TEST(RegistrySwitch, TruthWordsAsStringValuesSetTheSwitch)
{
    TesselwerkValues values({"TwFrameTestSwitch"});
    struct
    {
        const char* value;
        int set;
    } cases[] = {
        {"1", 1},    {"ok", 1},   {"OK", 1},   {"yes", 1},  {"YES", 1},  {"ja", 1}, {"JA", 1},
        {"Ja", 1},   {"true", 1}, {"True", 1}, {"wahr", 1}, {"WAHR", 1}, {" 1", 0}, {"1 ", 0},
        {"yes ", 0}, {"on", 0},   {"y", 0},    {"2", 0},    {"nein", 0}, {"", 0},   {"jawohl", 0},
    };
    for (const auto& c : cases) {
        values.SetString("TwFrameTestSwitch", c.value);
        EXPECT_EQ(IsRegistrySwitchSet("TwFrameTestSwitch"), c.set) << '"' << c.value << '"';
    }
}

TEST(RegistrySwitch, OtherTypesLongValuesAndMissingValuesDoNotCount)
{
    TesselwerkValues values({"TwFrameTestSwitch"});
    struct
    {
        const char* what;
        DWORD type;
        std::string bytes;
    } cases[] = {
        {"dword 1", REG_DWORD, DwordBytes(1)},
        {"dword '1'", REG_DWORD, DwordBytes(0x31)},
        {"expand ja", REG_EXPAND_SZ, SzBytes("ja")},
        {"multi ja", REG_MULTI_SZ, SzBytes("ja") + '\0'},
        {"300 bytes", REG_SZ, SzBytes("ja" + std::string(298, ' '))},
    };
    for (const auto& c : cases) {
        values.SetRaw("TwFrameTestSwitch", c.type, c.bytes);
        EXPECT_EQ(IsRegistrySwitchSet("TwFrameTestSwitch"), 0) << c.what;
    }
    values.Remove("TwFrameTestSwitch");
    EXPECT_EQ(IsRegistrySwitchSet("TwFrameTestSwitch"), 0);
}

TEST(PolicySwitches, EachReadsItsOwnValueAfreshAtEveryCall)
{
    TesselwerkValues values({"DisableInternet", "DisableDumpWriter"});
    values.Remove("DisableInternet");
    values.Remove("DisableDumpWriter");
    EXPECT_EQ(IsInternetDisabled(), 0);
    EXPECT_EQ(IsDumpWriterDisabled(), 0);

    values.SetString("DisableInternet", "Ja");
    EXPECT_EQ(IsInternetDisabled(), 1);
    EXPECT_EQ(IsDumpWriterDisabled(), 0);

    values.SetDword("DisableInternet", 1);
    EXPECT_EQ(IsInternetDisabled(), 0);

    values.SetString("DisableDumpWriter", "wahr");
    EXPECT_EQ(IsDumpWriterDisabled(), 1);
    values.SetString("DisableDumpWriter", "falsch");
    EXPECT_EQ(IsDumpWriterDisabled(), 0);
}

namespace {

struct TimerCall
{
    HWND wnd;
    UINT_PTR id;
    UINT elapse;
};
std::vector<TimerCall> g_timerCalls;
int g_failuresLeft = 0;

UINT_PTR WINAPI RecordingSetTimer(HWND wnd, UINT_PTR id, UINT elapse, TIMERPROC proc)
{
    g_timerCalls.push_back({wnd, id, elapse});
    if (g_failuresLeft > 0) {
        --g_failuresLeft;
        return 0;
    }
    return 0x4711;
}

// Puts the recording SetTimer in for one test.
struct RecordingTimer
{
    explicit RecordingTimer(int failures)
    {
        g_timerCalls.clear();
        g_failuresLeft = failures;
        previous = TwSetTimerSeam(RecordingSetTimer);
    }
    ~RecordingTimer() { TwSetTimerSeam(previous); }
    TW_SET_TIMER previous;
};

struct TimerWindow : CWnd
{
    TimerWindow() { EXPECT_TRUE(CreateEx(0, nullptr, "Zeitgeber", WS_POPUP, 0, 0, 50, 50, nullptr, nullptr)); }
    ~TimerWindow() override { DestroyWindow(); }
};

}  // namespace

TEST(SafeTimer, GivesUpAfter9999AttemptsEachAskingForIdentifier1)
{
    TimerWindow wnd;
    RecordingTimer timer(1000000);
    EXPECT_EQ(GfxSetSafeTimer(&wnd, 100), 0u);
    ASSERT_EQ(g_timerCalls.size(), 9999u);
    for (const auto& call : g_timerCalls) {
        ASSERT_EQ(call.id, 1u);
        ASSERT_EQ(call.wnd, wnd.m_hWnd);
        ASSERT_EQ(call.elapse, 100u);
    }
}

TEST(SafeTimer, ReturnsWhatSetTimerGivesAfterFailures)
{
    TimerWindow wnd;
    struct
    {
        int failures;
        size_t calls;
        UINT_PTR result;
    } cases[] = {{0, 1, 0x4711}, {3, 4, 0x4711}, {9998, 9999, 0x4711}, {9999, 9999, 0}};
    for (const auto& c : cases) {
        RecordingTimer timer(c.failures);
        EXPECT_EQ(GfxSetSafeTimer(&wnd, 5), c.result) << c.failures;
        EXPECT_EQ(g_timerCalls.size(), c.calls) << c.failures;
    }
}

TEST(SafeTimer, StartsARealTimerWithIdentifier1)
{
    TimerWindow wnd;
    ASSERT_EQ(GfxSetSafeTimer(&wnd, 10), 1u);
    MSG msg = {};
    bool ticked = false;
    const DWORD deadline = GetTickCount() + 5000;
    while (!ticked && GetTickCount() < deadline) {
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 100, QS_TIMER);
        while (PeekMessageA(&msg, wnd.m_hWnd, WM_TIMER, WM_TIMER, PM_REMOVE))
            ticked = ticked || msg.wParam == 1;
    }
    EXPECT_TRUE(ticked);
    EXPECT_TRUE(wnd.KillTimer(1));
}

TEST(ModuleVersionNumber, MajorTimes100PlusMinorAnd0WithoutAnAnswer)
{
    DLLVERSIONINFO info = {};
    ASSERT_TRUE(CModuleVersion::DllGetVersion("comctl32.dll", info));
    struct
    {
        const char* module;
        int number;
    } cases[] = {
        {"comctl32.dll", static_cast<int>(info.dwMajorVersion * 100 + info.dwMinorVersion)},
        {"kernel32.dll", 0},  // no DllGetVersion export
        {"kein_solches_modul.dll", 0},
    };
    for (const auto& c : cases)
        EXPECT_EQ(TwModuleVersionNumber(c.module), c.number) << c.module;
}
