// The application object against the real registry, INI files, message
// boxes and message loop: profile round trips and where the values land,
// scripted message boxes, help requests, start-up, pre-translation order
// and idle processing.
#include "afxwin.h"
#include "ext_dll/ext_resource.h"
#include "test_app.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace {

constexpr char kSection[] = "Einstellungen";

// A value read straight from the registry below the test application's key.
struct RegValue
{
    bool found = false;
    DWORD type = REG_NONE;
    std::string bytes;
};

RegValue ReadRegistry(const CString& keyPath, LPCTSTR entry)
{
    RegValue value;
    HKEY key = nullptr;
    if (RegOpenKeyExA(HKEY_CURRENT_USER, keyPath, 0, KEY_READ, &key) != ERROR_SUCCESS)
        return value;
    char data[512];
    DWORD size = sizeof data;
    if (RegQueryValueExA(key, entry, nullptr, &value.type, reinterpret_cast<BYTE*>(data), &size) == ERROR_SUCCESS) {
        value.found = true;
        value.bytes.assign(data, size);
    }
    RegCloseKey(key);
    return value;
}

bool RegistryKeyExists(const CString& keyPath)
{
    HKEY key = nullptr;
    if (RegOpenKeyExA(HKEY_CURRENT_USER, keyPath, 0, KEY_READ, &key) != ERROR_SUCCESS)
        return false;
    RegCloseKey(key);
    return true;
}

void WriteRegistry(const CString& keyPath, LPCTSTR entry, DWORD type, const void* data, DWORD size)
{
    HKEY key = nullptr;
    ASSERT_EQ(RegCreateKeyExA(HKEY_CURRENT_USER, keyPath, 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr),
              ERROR_SUCCESS);
    RegSetValueExA(key, entry, 0, type, static_cast<const BYTE*>(data), size);
    RegCloseKey(key);
}

std::string Dword(DWORD value)
{
    return std::string(reinterpret_cast<const char*>(&value), sizeof value);
}

std::string FileText(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

// The test application's registry profile, emptied after each test.
class RegistryProfileTest : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_NE(app.m_pszRegistryKey, nullptr); }
    void TearDown() override { RegDeleteTreeA(HKEY_CURRENT_USER, app.ProfileKeyPath()); }

    CString SectionPath(LPCTSTR section) const { return app.ProfileKeyPath() + "\\" + section; }

    CTestApp& app = CTestApp::Get();
};

TEST_F(RegistryProfileTest, ValuesRoundTripAndLandBelowTheApplicationsKey)
{
    EXPECT_TRUE(app.WriteProfileInt(kSection, "Zoom", 150));
    EXPECT_EQ(app.GetProfileInt(kSection, "Zoom", 0), 150u);
    RegValue zoom = ReadRegistry(SectionPath(kSection), "Zoom");
    EXPECT_TRUE(zoom.found);
    EXPECT_EQ(zoom.type, static_cast<DWORD>(REG_DWORD));
    EXPECT_EQ(zoom.bytes, Dword(150));

    EXPECT_TRUE(app.WriteProfileInt(kSection, "Versatz", -3));
    EXPECT_EQ(static_cast<int>(app.GetProfileInt(kSection, "Versatz", 0)), -3);

    EXPECT_TRUE(app.WriteProfileString(kSection, "Viewer", "C:\\Programme\\grün.exe"));
    EXPECT_EQ(app.GetProfileString(kSection, "Viewer"), "C:\\Programme\\grün.exe");
    RegValue viewer = ReadRegistry(SectionPath(kSection), "Viewer");
    EXPECT_EQ(viewer.type, static_cast<DWORD>(REG_SZ));
    EXPECT_EQ(viewer.bytes, std::string("C:\\Programme\\grün.exe") + '\0');

    BYTE bytes[] = {0x00, 0x1F, 0xA5, 0xFF};
    EXPECT_TRUE(app.WriteProfileBinary(kSection, "Daten", bytes, sizeof bytes));
    LPBYTE read = nullptr;
    UINT count = 0;
    ASSERT_TRUE(app.GetProfileBinary(kSection, "Daten", &read, &count));
    EXPECT_EQ(std::string(reinterpret_cast<char*>(read), count), std::string("\x00\x1F\xA5\xFF", 4));
    delete[] read;
    RegValue data = ReadRegistry(SectionPath(kSection), "Daten");
    EXPECT_EQ(data.type, static_cast<DWORD>(REG_BINARY));
    EXPECT_EQ(data.bytes, std::string("\x00\x1F\xA5\xFF", 4));
}

TEST_F(RegistryProfileTest, ReadingAValueCreatesItsSectionKeyDeliberately)
{
    const CString path = SectionPath("NurGelesen");
    ASSERT_FALSE(RegistryKeyExists(path));
    EXPECT_EQ(app.GetProfileInt("NurGelesen", "Wert", 7), 7u);
    EXPECT_TRUE(RegistryKeyExists(path));
}

TEST_F(RegistryProfileTest, MissingValuesAndValuesOfTheWrongTypeOrSizeReadAsDefaults)
{
    EXPECT_EQ(app.GetProfileInt(kSection, "Fehlt", 42), 42u);
    EXPECT_EQ(app.GetProfileString(kSection, "Fehlt", "Vorgabe"), "Vorgabe");
    EXPECT_EQ(app.GetProfileString(kSection, "Fehlt"), "");
    LPBYTE read = reinterpret_cast<LPBYTE>(&read);
    UINT count = 99;
    EXPECT_FALSE(app.GetProfileBinary(kSection, "Fehlt", &read, &count));
    EXPECT_EQ(read, nullptr);
    EXPECT_EQ(count, 0u);

    const CString path = SectionPath(kSection);
    const char text[] = "5";
    const DWORD number = 5;
    const BYTE shortBinary[] = {5, 0};
    const char unterminated[] = {'o', 'h', 'n', 'e'};
    WriteRegistry(path, "Text", REG_SZ, text, sizeof text);
    WriteRegistry(path, "Zahl", REG_DWORD, &number, sizeof number);
    WriteRegistry(path, "Kurz", REG_BINARY, shortBinary, sizeof shortBinary);
    WriteRegistry(path, "Offen", REG_SZ, unterminated, sizeof unterminated);

    EXPECT_EQ(app.GetProfileInt(kSection, "Text", -1), static_cast<UINT>(-1));
    EXPECT_EQ(app.GetProfileInt(kSection, "Kurz", -1), static_cast<UINT>(-1));
    EXPECT_EQ(app.GetProfileString(kSection, "Zahl", "keine"), "keine");
    EXPECT_EQ(app.GetProfileString(kSection, "Offen", "keine"), "ohne");
    read = reinterpret_cast<LPBYTE>(&read);
    EXPECT_FALSE(app.GetProfileBinary(kSection, "Text", &read, &count));
    EXPECT_EQ(read, nullptr);
}

TEST_F(RegistryProfileTest, NullValueDeletesTheEntryAndNullEntryTheWholeSection)
{
    app.WriteProfileString(kSection, "Eins", "1");
    app.WriteProfileString(kSection, "Zwei", "2");
    app.WriteProfileInt("Andere", "Drei", 3);

    EXPECT_TRUE(app.WriteProfileString(kSection, "Eins", nullptr));
    EXPECT_FALSE(ReadRegistry(SectionPath(kSection), "Eins").found);
    EXPECT_TRUE(ReadRegistry(SectionPath(kSection), "Zwei").found);

    EXPECT_TRUE(app.WriteProfileString(kSection, nullptr, nullptr));
    EXPECT_FALSE(RegistryKeyExists(SectionPath(kSection)));
    EXPECT_EQ(app.GetProfileString(kSection, "Zwei", "weg"), "weg");
    EXPECT_EQ(app.GetProfileInt("Andere", "Drei", 0), 3u);
}

TEST_F(RegistryProfileTest, RegistryKeyFromAStringResourceMovesTheProfile)
{
    const CString company = app.m_pszRegistryKey;
    app.SetRegistryKey(static_cast<UINT>(IDS_APP_REGISTRY_KEY));
    EXPECT_STREQ(app.m_pszRegistryKey, "TwTests_Aus_Ressource");
    EXPECT_STREQ(app.m_pszProfileName, CTestApp::kAppName);
    EXPECT_TRUE(app.WriteProfileInt(kSection, "Ort", 1));
    const RegValue moved = ReadRegistry("Software\\TwTests_Aus_Ressource\\TwTestApp\\Einstellungen", "Ort");
    RegDeleteTreeA(HKEY_CURRENT_USER, "Software\\TwTests_Aus_Ressource");
    app.SetRegistryKey(company);
    EXPECT_TRUE(moved.found);
    EXPECT_EQ(moved.bytes, Dword(1));
    EXPECT_FALSE(ReadRegistry(SectionPath(kSection), "Ort").found);
}

// The test application's profile as an INI file in a private folder.
class IniProfileTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        char temp[MAX_PATH];
        GetTempPathA(sizeof temp, temp);
        m_dir.Format("%stw_ini_%lu_%lu", temp, GetCurrentProcessId(), GetTickCount());
        ASSERT_TRUE(CreateDirectoryA(m_dir, nullptr));
        m_file = m_dir + "\\profil.ini";
        m_savedKey = app.m_pszRegistryKey;
        m_savedProfile = app.m_pszProfileName;
        app.m_pszRegistryKey = nullptr;
        app.m_pszProfileName = _strdup(m_file);
    }

    void TearDown() override
    {
        std::free(const_cast<char*>(app.m_pszProfileName));
        app.m_pszRegistryKey = m_savedKey;
        app.m_pszProfileName = m_savedProfile;
        // Makes the system write and forget its cached copy of the file.
        WritePrivateProfileStringA(nullptr, nullptr, nullptr, m_file);
        DeleteFileA(m_file);
        RemoveDirectoryA(m_dir);
    }

    CString Private(LPCTSTR section, LPCTSTR entry) const
    {
        char value[256] = {};
        GetPrivateProfileStringA(section, entry, "(fehlt)", value, sizeof value, m_file);
        return value;
    }

    CTestApp& app = CTestApp::Get();
    CString m_dir;
    CString m_file;
    LPCTSTR m_savedKey = nullptr;
    LPCTSTR m_savedProfile = nullptr;
};

TEST_F(IniProfileTest, ValuesRoundTripThroughTheFile)
{
    EXPECT_TRUE(app.WriteProfileInt(kSection, "Zoom", 150));
    EXPECT_TRUE(app.WriteProfileInt(kSection, "Versatz", -3));
    EXPECT_TRUE(app.WriteProfileString(kSection, "Viewer", "grün.exe"));
    BYTE bytes[] = {0x00, 0x1F, 0xA5};
    EXPECT_TRUE(app.WriteProfileBinary(kSection, "Daten", bytes, sizeof bytes));
    // Twice 1 GiB of letters does not fit a text: refused before a byte is read.
    EXPECT_FALSE(app.WriteProfileBinary(kSection, "Riesig", bytes, 0x40000000));

    EXPECT_EQ(app.GetProfileInt(kSection, "Zoom", 0), 150u);
    EXPECT_EQ(app.GetProfileString(kSection, "Viewer"), "grün.exe");
    LPBYTE read = nullptr;
    UINT count = 0;
    ASSERT_TRUE(app.GetProfileBinary(kSection, "Daten", &read, &count));
    EXPECT_EQ(std::string(reinterpret_cast<char*>(read), count), std::string("\x00\x1F\xA5", 3));
    delete[] read;

    EXPECT_EQ(Private(kSection, "Zoom"), "150");
    EXPECT_EQ(Private(kSection, "Versatz"), "-3");
    EXPECT_EQ(Private(kSection, "Daten"), "AAPBFK") << "two letters a byte, low half first";
    EXPECT_EQ(Private(kSection, "Riesig"), "(fehlt)");
    WritePrivateProfileStringA(nullptr, nullptr, nullptr, m_file);
    // The text is stored as its own bytes.
    const std::string text = FileText(m_file.GetString());
    EXPECT_NE(text.find("Viewer=grün.exe"), std::string::npos) << text;
}

TEST_F(IniProfileTest, MissingEntriesGiveTheDefaultsAndOddTextDropsItsLastLetter)
{
    EXPECT_EQ(app.GetProfileInt(kSection, "Fehlt", 42), 42u);
    EXPECT_EQ(app.GetProfileString(kSection, "Fehlt", "Vorgabe"), "Vorgabe");
    EXPECT_EQ(app.GetProfileString(kSection, "Fehlt"), "");
    LPBYTE read = nullptr;
    UINT count = 5;
    EXPECT_FALSE(app.GetProfileBinary(kSection, "Fehlt", &read, &count));
    EXPECT_EQ(count, 0u);

    WritePrivateProfileStringA(kSection, "Ungerade", "PBA", m_file);
    ASSERT_TRUE(app.GetProfileBinary(kSection, "Ungerade", &read, &count));
    ASSERT_EQ(count, 1u);
    EXPECT_EQ(read[0], 0x1F);
    delete[] read;
}

TEST_F(IniProfileTest, NullValueDeletesTheEntryAndNullEntryTheWholeSection)
{
    app.WriteProfileString(kSection, "Eins", "1");
    app.WriteProfileString(kSection, "Zwei", "2");
    app.WriteProfileString("Andere", "Drei", "3");
    EXPECT_TRUE(app.WriteProfileString(kSection, "Eins", nullptr));
    EXPECT_EQ(Private(kSection, "Eins"), "(fehlt)");
    EXPECT_EQ(Private(kSection, "Zwei"), "2");
    EXPECT_TRUE(app.WriteProfileString(kSection, nullptr, nullptr));
    EXPECT_EQ(Private(kSection, "Zwei"), "(fehlt)");
    EXPECT_EQ(Private("Andere", "Drei"), "3");
    WritePrivateProfileStringA(nullptr, nullptr, nullptr, m_file);
    EXPECT_EQ(FileText(m_file.GetString()).find("[Einstellungen]"), std::string::npos);
}

// A CWinApp that records the start-up calls AfxWinMain makes.
class CStartRecordingApp : public CWinApp
{
public:
    explicit CStartRecordingApp(BOOL initResult) : m_initResult(initResult) {}

    BOOL InitApplication() override
    {
        calls.push_back("InitApplication");
        return TRUE;
    }
    BOOL InitInstance() override
    {
        calls.push_back("InitInstance");
        return m_initResult;
    }
    int Run() override
    {
        calls.push_back("Run");
        return CWinApp::Run();
    }
    int ExitInstance() override
    {
        calls.push_back("ExitInstance");
        return 5;
    }

    std::vector<std::string> calls;

private:
    BOOL m_initResult;
};

// Makes the test application current again when a test's own one is gone.
struct ReinstateTestApp
{
    ~ReinstateTestApp() { CTestApp::Get().Reinstate(); }
};

TEST(ApplicationStart, AfxWinInitNamesTheExeTheHelpFileAndTheThread)
{
    CTestApp& app = CTestApp::Get();
    EXPECT_EQ(AfxGetThread(), &app);
    EXPECT_EQ(app.m_nThreadID, GetCurrentThreadId());
    EXPECT_STREQ(app.m_pszExeName, "afxwin_tests");
    const std::string help = app.m_pszHelpFilePath;
    EXPECT_EQ(help.substr(help.size() - 17), "\\afxwin_tests.HLP") << help;
}

TEST(ApplicationStart, WithoutRegistryKeyTheProfileIsTheExeNamesIniInTheWindowsDirectory)
{
    char windows[MAX_PATH];
    GetWindowsDirectoryA(windows, sizeof windows);
    const std::string ini = std::string(windows) + "\\afxwin_tests.INI";
    DeleteFileA(ini.c_str());
    {
        const ReinstateTestApp reinstate;
        {
            CWinApp other;
            EXPECT_EQ(AfxGetApp(), &other);
            ASSERT_TRUE(AfxWinInit(GetModuleHandleA(nullptr), nullptr, const_cast<LPTSTR>(""), SW_SHOW));
            EXPECT_STREQ(other.m_pszAppName, "afxwin_tests") << "no title string: the exe name";
            EXPECT_STREQ(AfxGetAppName(), "afxwin_tests");
            EXPECT_STREQ(other.m_pszProfileName, "afxwin_tests.INI");
            EXPECT_EQ(other.m_pszRegistryKey, nullptr);
            EXPECT_TRUE(other.WriteProfileString("Abschnitt", "Eintrag", "Wert"));
            EXPECT_EQ(other.GetProfileString("Abschnitt", "Eintrag"), "Wert");
        }
        EXPECT_EQ(AfxGetApp(), nullptr) << "a destroyed application leaves the module state";
        EXPECT_EQ(AfxGetAppName(), nullptr);
    }
    EXPECT_EQ(AfxGetApp(), &CTestApp::Get());
    WritePrivateProfileStringA(nullptr, nullptr, nullptr, ini.c_str());
    EXPECT_NE(FileText(ini).find("Eintrag=Wert"), std::string::npos);
    DeleteFileA(ini.c_str());
}

TEST(ApplicationStart, AfxWinMainRunsTheApplicationOrEndsItWhenInitInstanceFails)
{
    const ReinstateTestApp reinstate;
    const HINSTANCE exe = GetModuleHandleA(nullptr);
    {
        CStartRecordingApp app(TRUE);
        EXPECT_EQ(AfxWinMain(exe, nullptr, const_cast<LPTSTR>(""), SW_SHOW), 5);
        EXPECT_EQ(app.calls, (std::vector<std::string>{"InitApplication", "InitInstance", "Run", "ExitInstance"}))
            << "without a main window Run ends at once";
    }
    {
        CStartRecordingApp app(FALSE);
        EXPECT_EQ(AfxWinMain(exe, nullptr, const_cast<LPTSTR>(""), SW_SHOW), 5);
        EXPECT_EQ(app.calls, (std::vector<std::string>{"InitApplication", "InitInstance", "ExitInstance"}));
    }
}

// Each test starts with no recorded box or help call and no script.
class MessageBoxTest : public ::testing::Test
{
protected:
    void SetUp() override { app.Reset(); }
    void TearDown() override { app.Reset(); }

    CTestApp& app = CTestApp::Get();
};

// AfxMessageBox reaches the application's DoMessageBox with its type and
// help id; the test application answers from its script, then with the
// default button or the set default answer.
TEST_F(MessageBoxTest, BoxesReachTheApplicationAndGetScriptedOrDefaultAnswers)
{
    app.QueueAnswer(IDNO);
    app.QueueAnswer(IDCANCEL);
    EXPECT_EQ(AfxMessageBox("Speichern?", MB_YESNO), IDNO);
    EXPECT_EQ(AfxMessageBox("Abbrechen?", MB_YESNOCANCEL | MB_ICONQUESTION, 0x7FFF), IDCANCEL);
    EXPECT_EQ(AfxMessageBox("Fertig."), IDOK);
    ASSERT_EQ(app.MessageBoxes().size(), 3u);
    EXPECT_EQ(app.MessageBoxes()[0].text, "Speichern?");
    EXPECT_EQ(app.MessageBoxes()[0].helpId, 0u);
    EXPECT_EQ(app.MessageBoxes()[1].type, static_cast<UINT>(MB_YESNOCANCEL | MB_ICONQUESTION));
    EXPECT_EQ(app.MessageBoxes()[1].helpId, 0x7FFFu);
    EXPECT_EQ(app.MessageBoxes()[2].type, static_cast<UINT>(MB_OK));

    struct
    {
        UINT type;
        int answer;
    } cases[] = {
        {MB_OKCANCEL | MB_DEFBUTTON2, IDCANCEL},
        {MB_YESNO, IDYES},
        {MB_YESNOCANCEL | MB_DEFBUTTON3, IDCANCEL},
        {MB_ABORTRETRYIGNORE | MB_DEFBUTTON2, IDRETRY},
    };
    for (auto& c : cases)
        EXPECT_EQ(AfxMessageBox("?", c.type), c.answer) << std::hex << c.type;
    app.SetDefaultAnswer(IDNO);
    EXPECT_EQ(AfxMessageBox("?", MB_YESNO), IDNO);
}

TEST_F(MessageBoxTest, ExceptionReportsGoThroughTheApplicationsBox)
{
    app.QueueAnswer(IDRETRY);
    try {
        AfxThrowFileException(CFileException::fileNotFound, ERROR_FILE_NOT_FOUND, "C:\\fehlt.txt");
    } catch (CException* e) {
        EXPECT_EQ(e->ReportError(MB_RETRYCANCEL), IDRETRY);
        e->Delete();
    }
    try {
        AfxThrowUserException();
    } catch (CException* e) {
        EXPECT_EQ(e->ReportError(), IDOK);
        e->Delete();
    }
    ASSERT_EQ(app.MessageBoxes().size(), 2u);
    EXPECT_NE(app.MessageBoxes()[0].text.Find("fehlt.txt"), -1) << app.MessageBoxes()[0].text.GetString();
    EXPECT_EQ(app.MessageBoxes()[0].type, static_cast<UINT>(MB_RETRYCANCEL));
    EXPECT_EQ(app.MessageBoxes()[1].text, "No error message is available.");
}

TEST_F(MessageBoxTest, PromptFromAStringResourceUsesItsIdAsHelpContext)
{
    app.QueueAnswer(IDYES);
    EXPECT_EQ(AfxMessageBox(IDS_APP_PROMPT, MB_YESNO), IDYES);
    AfxMessageBox(IDS_APP_PROMPT, MB_OK, 77);
    ASSERT_EQ(app.MessageBoxes().size(), 2u);
    EXPECT_EQ(app.MessageBoxes()[0].text, "Wirklich löschen?");
    EXPECT_EQ(app.MessageBoxes()[0].helpId, static_cast<UINT>(IDS_APP_PROMPT));
    EXPECT_EQ(app.MessageBoxes()[1].helpId, 77u);
}

// What the timer saw of the real message box before it answered it.
struct SeenBox
{
    HWND box = nullptr;
    std::string caption;
    std::string text;
    HWND owner = nullptr;
    bool icon = false;
    int ticks = 0;
};
SeenBox g_seenBox;

BOOL CALLBACK FindThreadBox(HWND hwnd, LPARAM lParam)
{
    char cls[16] = {};
    GetClassNameA(hwnd, cls, sizeof cls);
    if (std::string(cls) != "#32770" || !IsWindowVisible(hwnd))
        return TRUE;
    *reinterpret_cast<HWND*>(lParam) = hwnd;
    return FALSE;
}

BOOL CALLBACK FindIcon(HWND hwnd, LPARAM lParam)
{
    char cls[16] = {};
    GetClassNameA(hwnd, cls, sizeof cls);
    if (std::string(cls) == "Static" && (GetWindowLongA(hwnd, GWL_STYLE) & SS_TYPEMASK) == SS_ICON &&
        SendMessageA(hwnd, STM_GETICON, 0, 0) != 0)
        *reinterpret_cast<bool*>(lParam) = true;
    return TRUE;
}

BOOL CALLBACK FindText(HWND hwnd, LPARAM lParam)
{
    char cls[16] = {};
    GetClassNameA(hwnd, cls, sizeof cls);
    if (std::string(cls) == "Static" && (GetWindowLongA(hwnd, GWL_STYLE) & SS_TYPEMASK) != SS_ICON) {
        char text[128] = {};
        GetWindowTextA(hwnd, text, sizeof text);
        if (text[0] != '\0')
            *reinterpret_cast<std::string*>(lParam) = text;
    }
    return TRUE;
}

// Runs inside the box's modal loop: reads the box and answers No. Gives up
// (ending the loop by WM_QUIT) if no box appears within about two seconds.
void CALLBACK AnswerRealBox(HWND, UINT, UINT_PTR id, DWORD)
{
    HWND box = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), FindThreadBox, reinterpret_cast<LPARAM>(&box));
    if (box == nullptr) {
        if (++g_seenBox.ticks > 100) {
            KillTimer(nullptr, id);
            PostQuitMessage(0);
        }
        return;
    }
    KillTimer(nullptr, id);
    g_seenBox.box = box;
    char caption[128] = {};
    GetWindowTextA(box, caption, sizeof caption);
    g_seenBox.caption = caption;
    EnumChildWindows(box, FindText, reinterpret_cast<LPARAM>(&g_seenBox.text));
    EnumChildWindows(box, FindIcon, reinterpret_cast<LPARAM>(&g_seenBox.icon));
    g_seenBox.owner = GetWindow(box, GW_OWNER);
    PostMessageA(box, WM_COMMAND, IDNO, 0);
}

TEST_F(MessageBoxTest, TheFrameworksBoxHasTheAppNameAsCaptionAndAnIcon)
{
    g_seenBox = SeenBox();
    ASSERT_NE(SetTimer(nullptr, 0, 20, AnswerRealBox), 0u);
    const int answer = app.CWinApp::DoMessageBox("Echte Frage?", MB_YESNO, 0);
    ASSERT_NE(g_seenBox.box, nullptr) << "no message box appeared";
    EXPECT_EQ(answer, IDNO);
    EXPECT_EQ(g_seenBox.caption, "TwTestApp");
    EXPECT_EQ(g_seenBox.text, "Echte Frage?");
    EXPECT_TRUE(g_seenBox.icon) << "a box without an icon gets the question mark";
    EXPECT_TRUE(app.MessageBoxes().empty());
}

// The order in which the message loop offers and delivers a message.
std::vector<std::string> g_events;

LRESULT CALLBACK RecordingWndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_KEYDOWN || message == WM_IDLEUPDATECMDUI) {
        char name[32] = {};
        GetWindowTextA(hwnd, name, sizeof name);
        g_events.push_back(std::string(name) + (message == WM_KEYDOWN ? ".WM_KEYDOWN" : ".WM_IDLEUPDATECMDUI"));
        return 0;
    }
    return DefWindowProcA(hwnd, message, wParam, lParam);
}

constexpr char kRecordingClass[] = "TwAppTestRecording";

// A window object that records when the loop offers it a key.
class CRecordingWnd : public CWnd
{
public:
    CRecordingWnd(const char* name, bool consumes) : m_name(name), m_consumes(consumes) {}

    BOOL PreTranslateMessage(MSG* pMsg) override
    {
        if (pMsg->message != WM_KEYDOWN)
            return FALSE;
        g_events.push_back(m_name + ".PreTranslate");
        return m_consumes ? TRUE : FALSE;
    }

private:
    std::string m_name;
    bool m_consumes;
};

// A thread object that records what reaches it after the window chain.
class CRecordingThread : public CWinThread
{
public:
    BOOL PreTranslateMessage(MSG* pMsg) override
    {
        if (CWinThread::PreTranslateMessage(pMsg))
            return TRUE;
        if (pMsg->message == WM_KEYDOWN)
            g_events.push_back("thread.PreTranslate");
        return FALSE;
    }

    BOOL OnIdle(LONG lCount) override
    {
        const BOOL more = CWinThread::OnIdle(lCount);
        g_events.push_back("OnIdle(" + std::to_string(lCount) + ")=" + (more ? "more" : "done"));
        if (quitWhenIdleEnds && !more)
            PostQuitMessage(4);
        return more;
    }

    bool quitWhenIdleEnds = false;

protected:
    void OnAppMessage(WPARAM wParam, LPARAM lParam)
    {
        g_events.push_back("thread.WM_APP(" + std::to_string(wParam) + "," + std::to_string(lParam) + ")");
    }
    void OnRegisteredMessage(WPARAM, LPARAM) { g_events.push_back("thread.registered"); }

    DECLARE_MESSAGE_MAP()
};

const UINT g_registeredThreadMessage = RegisterWindowMessageA("TwAppTestThreadMessage");

BEGIN_MESSAGE_MAP(CRecordingThread, CWinThread)
    ON_THREAD_MESSAGE(WM_APP, OnAppMessage)
    ON_REGISTERED_THREAD_MESSAGE(g_registeredThreadMessage, OnRegisteredMessage)
END_MESSAGE_MAP()

// A main window with a child and a grandchild, and a modeless top-level
// window beside it, each with a recording window object.
class MessageLoopTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        WNDCLASSA wc = {};
        wc.lpfnWndProc = RecordingWndProc;
        wc.hInstance = GetModuleHandleA(nullptr);
        wc.lpszClassName = kRecordingClass;
        RegisterClassA(&wc);
        m_hwndMain = CreateWindowExA(0, kRecordingClass, "main", WS_OVERLAPPEDWINDOW, 10, 10, 300, 200, nullptr,
                                     nullptr, wc.hInstance, nullptr);
        m_hwndChild = CreateWindowExA(0, kRecordingClass, "child", WS_CHILD | WS_VISIBLE, 0, 0, 200, 100, m_hwndMain,
                                      nullptr, wc.hInstance, nullptr);
        m_hwndGrandchild = CreateWindowExA(0, kRecordingClass, "grandchild", WS_CHILD | WS_VISIBLE, 0, 0, 50, 50,
                                           m_hwndChild, nullptr, wc.hInstance, nullptr);
        m_hwndModeless = CreateWindowExA(0, kRecordingClass, "modeless", WS_POPUP, 400, 10, 100, 100, nullptr, nullptr,
                                         wc.hInstance, nullptr);
        ASSERT_TRUE(m_hwndMain && m_hwndChild && m_hwndGrandchild && m_hwndModeless);
        m_main.Attach(m_hwndMain);
        m_child.Attach(m_hwndChild);
        m_grandchild.Attach(m_hwndGrandchild);
        m_modeless.Attach(m_hwndModeless);
        m_thread.m_pMainWnd = &m_main;
        DrainQueue();
        g_events.clear();
    }

    void TearDown() override
    {
        for (CWnd* wnd : {&m_grandchild, &m_child, &m_main, &m_modeless}) {
            if (wnd->GetSafeHwnd() != nullptr)
                wnd->Detach();
        }
        DestroyWindow(m_hwndModeless);
        DestroyWindow(m_hwndMain);
        DrainQueue();
        g_events.clear();
    }

    static void DrainQueue()
    {
        MSG msg;
        while (PeekMessageA(&msg, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&msg);
            DispatchMessageA(&msg);
        }
    }

    // Posts a key to target and runs the thread's loop until WM_QUIT.
    int RunWithKeyTo(HWND target)
    {
        PostMessageA(target, WM_KEYDOWN, VK_F2, 0);
        PostQuitMessage(3);
        return m_thread.Run();
    }

    std::vector<std::string> KeyEvents() const
    {
        std::vector<std::string> keys;
        for (const auto& e : g_events) {
            if (e.find("OnIdle") == std::string::npos && e.find("IDLEUPDATE") == std::string::npos)
                keys.push_back(e);
        }
        return keys;
    }

    HWND m_hwndMain = nullptr, m_hwndChild = nullptr, m_hwndGrandchild = nullptr, m_hwndModeless = nullptr;
    CRecordingWnd m_main{"main", false};
    CRecordingWnd m_child{"child", false};
    CRecordingWnd m_grandchild{"grandchild", false};
    CRecordingWnd m_modeless{"modeless", false};
    CRecordingThread m_thread;
};

using Events = std::vector<std::string>;

TEST_F(MessageLoopTest, AKeyIsOfferedUpTheWindowChainThenToTheThreadThenDelivered)
{
    EXPECT_EQ(RunWithKeyTo(m_hwndGrandchild), 3) << "Run ends with the WM_QUIT code";
    EXPECT_EQ(KeyEvents(), (Events{"grandchild.PreTranslate", "child.PreTranslate", "main.PreTranslate",
                                   "thread.PreTranslate", "grandchild.WM_KEYDOWN"}));
}

TEST_F(MessageLoopTest, AWindowThatTakesTheKeyEndsItsWay)
{
    CRecordingWnd consuming("child", true);
    m_child.Detach();
    consuming.Attach(m_hwndChild);
    RunWithKeyTo(m_hwndGrandchild);
    consuming.Detach();
    EXPECT_EQ(KeyEvents(), (Events{"grandchild.PreTranslate", "child.PreTranslate"}));
}

TEST_F(MessageLoopTest, AModelessWindowsKeyAlsoGoesToTheMainWindow)
{
    RunWithKeyTo(m_hwndModeless);
    EXPECT_EQ(KeyEvents(),
              (Events{"modeless.PreTranslate", "main.PreTranslate", "thread.PreTranslate", "modeless.WM_KEYDOWN"}));
}

TEST_F(MessageLoopTest, ThreadMessagesGoToTheThreadsHandlersAndNoWindow)
{
    PostThreadMessageA(GetCurrentThreadId(), WM_APP, 7, 8);
    PostThreadMessageA(GetCurrentThreadId(), g_registeredThreadMessage, 0, 0);
    PostThreadMessageA(GetCurrentThreadId(), WM_APP + 1, 0, 0);
    PostQuitMessage(0);
    m_thread.Run();
    EXPECT_EQ(KeyEvents(), (Events{"thread.WM_APP(7,8)", "thread.registered"}));
}

TEST_F(MessageLoopTest, PumpMessageReportsQuitWithItsCode)
{
    PostQuitMessage(9);
    EXPECT_FALSE(m_thread.PumpMessage());
    EXPECT_EQ(m_thread.GetCurrentMessage()->message, static_cast<UINT>(WM_QUIT));
    EXPECT_EQ(m_thread.ExitInstance(), 9);
}

TEST_F(MessageLoopTest, IdleTimeUpdatesTheVisibleMainWindowsTreeThenCleansUpAndStops)
{
    EXPECT_TRUE(m_thread.OnIdle(0));
    EXPECT_EQ(g_events, Events{"OnIdle(0)=more"}) << "a hidden main window gets no update";

    ShowWindow(m_hwndMain, SW_SHOWNOACTIVATE);
    DrainQueue();
    g_events.clear();
    m_thread.quitWhenIdleEnds = true;
    EXPECT_EQ(m_thread.Run(), 4);
    EXPECT_EQ(g_events, (Events{"main.WM_IDLEUPDATECMDUI", "child.WM_IDLEUPDATECMDUI", "grandchild.WM_IDLEUPDATECMDUI",
                                "OnIdle(0)=more", "OnIdle(1)=done"}));
}

TEST_F(MessageLoopTest, OnlyMessagesThatMayChangeSomethingStartIdleTimeAgain)
{
    struct
    {
        UINT message;
        POINT pt;
        BOOL idle;
    } cases[] = {
        {WM_KEYDOWN, {0, 0}, TRUE},   {WM_PAINT, {0, 0}, FALSE},     {0x0118, {0, 0}, FALSE},
        {WM_MOUSEMOVE, {5, 5}, TRUE}, {WM_MOUSEMOVE, {5, 5}, FALSE}, {WM_NCMOUSEMOVE, {5, 5}, TRUE},
        {WM_MOUSEMOVE, {5, 6}, TRUE}, {WM_TIMER, {5, 6}, TRUE},
    };
    for (auto& c : cases) {
        MSG msg = {};
        msg.message = c.message;
        msg.pt = c.pt;
        EXPECT_EQ(m_thread.IsIdleMessage(&msg), c.idle) << std::hex << c.message << " at " << c.pt.y;
    }
}

TEST_F(MessageLoopTest, TheMainWindowIsTheActiveWindowWhileOneIsSet)
{
    CTestApp& app = CTestApp::Get();
    app.m_pMainWnd = &m_main;
    EXPECT_EQ(AfxGetMainWnd(), &m_main);
    app.m_pActiveWnd = &m_modeless;
    EXPECT_EQ(AfxGetMainWnd(), &m_modeless);
    app.m_pActiveWnd = nullptr;
    app.m_pMainWnd = nullptr;
    EXPECT_EQ(AfxGetMainWnd(), nullptr);
}

}  // namespace
