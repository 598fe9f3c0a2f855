// The system error reporter against the real registry, string tables, log
// file and the test application's message boxes.
#include "frame/system_error.h"
#include "frame_test_resource.h"
#include "frame_win_support.h"

#include <gtest/gtest.h>

#include <regex>
#include <string>
#include <vector>

using namespace frametest;

namespace {

constexpr char kSection[] = "Einstellungen";

bool Contains(const CString& text, const char* part)
{
    return text.Find(part) >= 0;
}

// Seconds since midnight, local time.
int SecondOfDay()
{
    SYSTEMTIME t;
    GetLocalTime(&t);
    return t.wHour * 3600 + t.wMinute * 60 + t.wSecond;
}

std::string TodayText()
{
    SYSTEMTIME t;
    GetLocalTime(&t);
    char text[32];
    snprintf(text, sizeof text, "%2d.%2d.%4d", t.wDay, t.wMonth, t.wYear);
    return text;
}

std::string RegexEscape(const std::string& text)
{
    static const std::regex metacharacters(R"([.^$|()\[\]{}*+?\\])");
    return std::regex_replace(text, metacharacters, R"(\$&)");
}

class ErrorReporter : public ::testing::Test
{
protected:
    void SetUp() override
    {
        CTestApp::Get().Reset();
        AfxGetApp()->WriteProfileString(kSection, "ProgDir", m_folder.Path());
        m_startSecond = SecondOfDay();
    }
    void TearDown() override
    {
        AfxGetApp()->WriteProfileString(kSection, "ProgDir", nullptr);
        CTestApp::Get().Reset();
    }

    // Stores DebugLevel as a REG_DWORD and constructs the reporter.
    void UseLevel(DWORD value)
    {
        m_values.SetDword("DebugLevel", value);
        CTwSystemError reporter;
    }

    CString LogPath() const { return m_folder.File("TwSysError.txt"); }
    std::string Log() const { return ReadFileBytes(LogPath()); }
    bool LogExists() const { return GetFileAttributesA(LogPath()) != INVALID_FILE_ATTRIBUTES; }

    std::vector<CString> BoxTexts() const
    {
        std::vector<CString> texts;
        for (const auto& box : CTestApp::Get().MessageBoxes())
            texts.push_back(box.text);
        return texts;
    }

    // A pattern for one record written during this test.
    std::string Record(char kind, const char* codeAndText) const
    {
        return std::string(1, kind) + " " + RegexEscape(TodayText()) + R"( (\d\d):(\d\d):(\d\d) )" +
               RegexEscape(codeAndText);
    }

    // Checks that the log holds exactly these records, in order, with no
    // line ends between them, each stamped during the test.
    void ExpectRecords(const std::vector<std::string>& patterns)
    {
        std::string all;
        for (const auto& p : patterns)
            all += "(" + p + ")";
        const std::string log = Log();
        std::smatch match;
        ASSERT_TRUE(std::regex_match(log, match, std::regex(all))) << log;
        const int endSecond = SecondOfDay();
        for (size_t i = 0; i < patterns.size(); ++i) {
            const size_t base = 1 + i * 4;
            const int second =
                std::stoi(match[base + 1]) * 3600 + std::stoi(match[base + 2]) * 60 + std::stoi(match[base + 3]);
            if (endSecond >= m_startSecond) {
                EXPECT_GE(second, m_startSecond);
                EXPECT_LE(second, endSecond);
            }
        }
    }

    TesselwerkValues m_values{{"DebugLevel"}};
    TempFolder m_folder;
    int m_startSecond = 0;
};

// An exception that reports its own destruction.
class ProbeException : public CException
{
public:
    explicit ProbeException(bool* deleted) : m_deleted(deleted) {}
    ~ProbeException() override { *m_deleted = true; }

private:
    bool* m_deleted;
};

}  // namespace

TEST_F(ErrorReporter, DebugLevelIsTheDwordsBytesReadAsText)
{
    struct
    {
        const char* what;
        DWORD type;
        std::string bytes;
        bool logs;
        bool showsNotes;
    } cases[] = {
        {"dword 1", REG_DWORD, DwordBytes(1), false, false},
        {"dword 0x31", REG_DWORD, DwordBytes(0x31), true, false},
        {"dword 0x32", REG_DWORD, DwordBytes(0x32), false, true},
        {"dword 0x33", REG_DWORD, DwordBytes(0x33), true, true},
        {"dword 0x3233 (32)", REG_DWORD, DwordBytes(0x3233), false, false},
        {"string 3", REG_SZ, SzBytes("3"), false, false},
        {"dword of 300 digits", REG_DWORD, std::string(300, '3'), false, false},
    };
    for (const auto& c : cases) {
        m_values.SetRaw("DebugLevel", c.type, c.bytes);
        CTwSystemError reporter;
        DeleteFileA(LogPath());
        CTestApp::Get().Reset();
        CTwSystemError::ShowError(1055, "x", TRUE, TRUE, FALSE);
        EXPECT_EQ(LogExists(), c.logs) << c.what;
        EXPECT_EQ(CTestApp::Get().MessageBoxes().size(), c.showsNotes ? 1u : 0u) << c.what;
    }
    m_values.Remove("DebugLevel");
    CTwSystemError reporter;
    CTestApp::Get().Reset();
    CTwSystemError::ShowError(1055, "x", TRUE, TRUE, FALSE);
    EXPECT_TRUE(CTestApp::Get().MessageBoxes().empty());
}

TEST_F(ErrorReporter, ErrorsAreShownWithTheBracketedCodeAndHelpContext7FFF)
{
    UseLevel(0);
    struct
    {
        int code;
        const char* insertion;
        const char* box;
    } cases[] = {
        {1019, "Software", "[1019] Registry error [Software]."},
        {19, nullptr, "[0019] Registry error [%s]."},
        {26, "C:\\Daten\\Bild.jpg", "[0026] Failed to open C:\\Daten\\Bild.jpg."},
        {9, "x", "[0009] Fehler beim Ermitteln von Updates [%i]."},  // only %s is replaced
        {40, nullptr, "[0040] Element konnte nicht eingefügt werden"},
        {49, "x", "[0049] "},
        {-19, "x", "[-019] "},     // the remainder keeps the sign: entry 29981
        {-1055, "x", "[-1055] "},  // remainder -55: an error, not a note
    };
    for (const auto& c : cases) {
        CTestApp::Get().Reset();
        CTwSystemError::ShowError(c.code, c.insertion, TRUE, TRUE, FALSE);
        const auto& boxes = CTestApp::Get().MessageBoxes();
        ASSERT_EQ(boxes.size(), 1u) << c.code;
        EXPECT_STREQ(boxes[0].text, c.box) << c.code;
        EXPECT_EQ(boxes[0].type, static_cast<UINT>(MB_OK)) << c.code;
        EXPECT_EQ(boxes[0].helpId, 0x7FFFu) << c.code;
    }
    EXPECT_FALSE(LogExists());
}

TEST_F(ErrorReporter, NotesAreShownOnlyAtLevelBit1)
{
    struct
    {
        int code;
        const char* box;
    } cases[] = {
        {1055, "[1055] "},
        {1050, "[1050] Mit dieser Anwahl wird die Vorschau im\nVorschaufenster ein- bzw. ausgeschaltet."},
        {51, "[0051] Vorschaufenster, in dem wichtige Kenngrößen\nder angewählten Datei dargestellt werden."},
        {99, "[0099] "},
    };
    UseLevel(0);
    for (const auto& c : cases)
        CTwSystemError::ShowError(c.code, "x", TRUE, TRUE, FALSE);
    EXPECT_TRUE(CTestApp::Get().MessageBoxes().empty());

    UseLevel(0x32);
    for (const auto& c : cases) {
        CTestApp::Get().Reset();
        CTwSystemError::ShowError(c.code, "x", TRUE, TRUE, FALSE);
        ASSERT_EQ(BoxTexts().size(), 1u) << c.code;
        EXPECT_STREQ(BoxTexts()[0], c.box) << c.code;
    }
    CTestApp::Get().Reset();
    CTwSystemError::ShowError(1055, "x", TRUE, TRUE, TRUE);
    EXPECT_TRUE(CTestApp::Get().MessageBoxes().empty()) << "silent";
}

TEST_F(ErrorReporter, TextsComeFromTheLibraryOrFromTheResourceChain)
{
    UseLevel(0);
    const HINSTANCE resources = AfxGetResourceHandle();
    struct
    {
        int code;
        int fromLibrary;
        const char* box;
    } cases[] = {
        {19, TRUE, "[0019] Registry error [Wert]."},
        {19, FALSE, "[0019] Anwendungstext [Wert]."},
        {20, FALSE, "[0020] DLL Wert not found."},
        // Deliberate rule: a placeholder at the very start stays. The
        // library lacks 42, so the search goes on to the program.
        {42, TRUE, "[0042] %s steht vorn."},
        {42, FALSE, "[0042] %s steht vorn."},
    };
    for (const auto& c : cases) {
        CTestApp::Get().Reset();
        CTwSystemError::ShowError(c.code, "Wert", TRUE, c.fromLibrary, FALSE);
        ASSERT_EQ(BoxTexts().size(), 1u) << c.code;
        EXPECT_STREQ(BoxTexts()[0], c.box) << c.code << "/" << c.fromLibrary;
        EXPECT_EQ(AfxGetResourceHandle(), resources);
    }
}

TEST_F(ErrorReporter, RecordsRunOnWithoutALineEnd)
{
    UseLevel(0x31);
    CTwSystemError::ShowError(1019, "Software", TRUE, TRUE, TRUE);
    CTwSystemError::WriteToLog(13, nullptr, TRUE);
    CTwSystemError::ShowError(1055, "x", FALSE, TRUE, FALSE);
    CTwSystemError::ShowError(-5, "x", TRUE, TRUE, FALSE);
    ExpectRecords({Record('F', "[1019] Registry error [Software]."), Record('I', "[0013] File written."),
                   Record('I', "[1055] "), Record('F', "[-005] ")});
    // Only the error, not the silent one and not the note.
    EXPECT_EQ(BoxTexts(), std::vector<CString>{"[-005] "});
}

TEST_F(ErrorReporter, WriteToLogWritesAtLevel0AndShowErrorDoesNot)
{
    UseLevel(0);
    CTwSystemError::ShowError(26, "a.txt", TRUE, TRUE, TRUE);
    EXPECT_FALSE(LogExists());
    CTwSystemError::WriteToLog(26, "a.txt", TRUE);
    ExpectRecords({Record('I', "[0026] Failed to open a.txt.")});
    EXPECT_TRUE(CTestApp::Get().MessageBoxes().empty());
}

TEST_F(ErrorReporter, AnExistingLogIsAppendedTo)
{
    UseLevel(0x31);
    WriteFileBytes(LogPath(), "Alt\r\n");
    CTwSystemError::ShowError(14, nullptr, FALSE, TRUE, TRUE);
    const std::string log = Log();
    ASSERT_EQ(log.rfind("Alt\r\n", 0), 0u) << log;
    EXPECT_TRUE(std::regex_match(log.substr(5), std::regex(Record('I', "[0014] No need for save.")))) << log;
}

TEST_F(ErrorReporter, ALogHeldOpenByAnotherHandleDropsTheRecord)
{
    UseLevel(0x31);
    WriteFileBytes(LogPath(), "Alt");
    HANDLE holder =
        CreateFileA(LogPath(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    ASSERT_NE(holder, INVALID_HANDLE_VALUE);
    CTwSystemError::ShowError(19, "x", TRUE, TRUE, FALSE);
    CTwSystemError::WriteToLog(19, "x", TRUE);
    CloseHandle(holder);

    EXPECT_EQ(Log(), "Alt");
    EXPECT_EQ(BoxTexts(), std::vector<CString>{"[0019] Registry error [x]."});
    // Once released, the next record lands again.
    CTwSystemError::WriteToLog(13, nullptr, TRUE);
    EXPECT_NE(Log().find("[0013] File written."), std::string::npos);
}

TEST_F(ErrorReporter, AMissingProgramFolderDropsTheRecord)
{
    const CString missing = m_folder.Path() + "\\fehlt";
    AfxGetApp()->WriteProfileString(kSection, "ProgDir", missing);
    UseLevel(0x31);
    CTwSystemError::ShowError(19, "x", TRUE, TRUE, TRUE);
    CTwSystemError::WriteToLog(19, "x", TRUE);
    EXPECT_EQ(GetFileAttributesA(missing), INVALID_FILE_ATTRIBUTES);
    EXPECT_FALSE(LogExists());
}

TEST_F(ErrorReporter, WithoutProgramFolderTheLogIsInTheCurrentFolder)
{
    char previous[MAX_PATH] = {};
    GetCurrentDirectoryA(MAX_PATH, previous);
    ASSERT_TRUE(SetCurrentDirectoryA(m_folder.Path()));
    AfxGetApp()->WriteProfileString(kSection, "ProgDir", nullptr);
    UseLevel(0);
    CTwSystemError::WriteToLog(13, nullptr, TRUE);
    SetCurrentDirectoryA(previous);
    ExpectRecords({Record('I', "[0013] File written.")});
}

TEST_F(ErrorReporter, ShowExceptionNamesTheReportersOwnPlaceAndKeepsTheException)
{
    UseLevel(0);
    bool deleted = false;
    CException* exception = new ProbeException(&deleted);
    CTwSystemError::ShowException(26, "a.txt", exception, "Aufrufer.cpp", 12, TRUE);
    EXPECT_FALSE(deleted);
    exception->Delete();
    EXPECT_TRUE(deleted);

    const auto& boxes = CTestApp::Get().MessageBoxes();
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_TRUE(Contains(boxes[0].text, "[0026] Failed to open a.txt.")) << boxes[0].text;
    EXPECT_TRUE(Contains(boxes[0].text, "Quelle: system_error.cpp, Zeile 87")) << boxes[0].text;
    EXPECT_FALSE(Contains(boxes[0].text, "Aufrufer"));
    EXPECT_EQ(boxes[0].type, static_cast<UINT>(MB_OK | MB_ICONERROR));
    EXPECT_FALSE(LogExists());
}

TEST_F(ErrorReporter, ShowExceptionShowsNothingWithoutAnExceptionAndLogsAsError)
{
    UseLevel(0x33);
    CTwSystemError::ShowException(19, "Software", nullptr, "", 0, TRUE);
    EXPECT_TRUE(CTestApp::Get().MessageBoxes().empty());
    ExpectRecords({Record('F', "[0019] Registry error [Software].")});
}

TEST_F(ErrorReporter, ShowExceptionShowsNotesOnlyAtLevelBit1)
{
    bool deleted = false;
    ProbeException exception(&deleted);
    exception.m_bAutoDelete = FALSE;
    UseLevel(0);
    CTwSystemError::ShowException(1055, "x", &exception, "", 0, TRUE);
    EXPECT_TRUE(CTestApp::Get().MessageBoxes().empty());
    UseLevel(0x32);
    CTwSystemError::ShowException(1055, "x", &exception, "", 0, TRUE);
    ASSERT_EQ(CTestApp::Get().MessageBoxes().size(), 1u);
    EXPECT_TRUE(Contains(BoxTexts()[0], "[1055] ")) << BoxTexts()[0];
}
