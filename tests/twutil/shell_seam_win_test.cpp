#ifdef _WIN32
#include "files_test_support.h"
#include "hyperlink.h"
#include "shell_helpers.h"
#include "shell_seam.h"
#include "string_helpers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

using files_test::TempFolder;

namespace {

std::string Text(LPCSTR s)
{
    return s != nullptr ? s : "(null)";
}

// A seam that records every call and answers from its settings.
class RecordingSeam : public CShellSeam
{
public:
    struct Call
    {
        std::string function;
        std::string verb;
        std::string file;
        std::string parameters;
        std::string directory;
        int show = 0;
        ULONG mask = 0;
        HWND owner = nullptr;

        // Function, verb, file, parameters, folder and show command.
        std::string Line() const
        {
            return function + " " + verb + "|" + file + "|" + parameters + "|" + directory + "|" + std::to_string(show);
        }
    };

    std::vector<std::string> Lines() const
    {
        std::vector<std::string> lines;
        for (const Call& call : calls)
            lines.push_back(call.Line());
        return lines;
    }

    std::vector<Call> calls;
    INT_PTR shellResult = 42;
    BOOL extendedResult = TRUE;
    INT_PTR extendedInstance = 42;
    HANDLE extendedProcess = nullptr;
    DWORD extendedError = 0;

    HINSTANCE ShellExecuteA(HWND owner, LPCSTR verb, LPCSTR file, LPCSTR parameters, LPCSTR directory,
                            INT show) override
    {
        calls.push_back({"ShellExecuteA", Text(verb), Text(file), Text(parameters), Text(directory), show, 0, owner});
        return reinterpret_cast<HINSTANCE>(shellResult);
    }
    BOOL ShellExecuteExA(SHELLEXECUTEINFOA* info) override
    {
        calls.push_back({"ShellExecuteExA", Text(info->lpVerb), Text(info->lpFile), Text(info->lpParameters),
                         Text(info->lpDirectory), info->nShow, info->fMask, info->hwnd});
        info->hInstApp = reinterpret_cast<HINSTANCE>(extendedInstance);
        info->hProcess = (info->fMask & SEE_MASK_NOCLOSEPROCESS) != 0 ? extendedProcess : nullptr;
        if (!extendedResult)
            SetLastError(extendedError);
        return extendedResult;
    }
    BOOL WinHelpA(HWND owner, LPCSTR helpFile, UINT command, ULONG_PTR data) override
    {
        calls.push_back({"WinHelpA", "", Text(helpFile), "", "", static_cast<int>(command), 0, owner});
        return TRUE;
    }
    HWND HtmlHelpA(HWND owner, LPCSTR helpFile, UINT command, DWORD_PTR data) override
    {
        calls.push_back({"HtmlHelpA", "", Text(helpFile), "", "", static_cast<int>(command), 0, owner});
        return nullptr;
    }
};

// Installs a recording seam for one test and puts the previous one back.
class ShellSeamTest : public testing::Test
{
protected:
    void SetUp() override { m_previous = TwSetShellSeam(&seam); }
    void TearDown() override { TwSetShellSeam(m_previous); }

    RecordingSeam seam;

private:
    CShellSeam* m_previous = nullptr;
};

bool IsOpenHandle(HANDLE handle)
{
    DWORD flags = 0;
    return GetHandleInformation(handle, &flags) != FALSE;
}

// A hidden window that records the messages it receives.
class RecordingWindow
{
public:
    RecordingWindow()
    {
        WNDCLASSA wc = {};
        wc.lpfnWndProc = Procedure;
        wc.hInstance = GetModuleHandleA(nullptr);
        wc.lpszClassName = "TwutilFilesRecordingWindow";
        RegisterClassA(&wc);
        m_hwnd = CreateWindowExA(0, wc.lpszClassName, "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, wc.hInstance, nullptr);
        SetWindowLongPtrA(m_hwnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    }
    ~RecordingWindow() { DestroyWindow(m_hwnd); }

    HWND Handle() const { return m_hwnd; }
    std::vector<UINT> received;
    HANDLE ackEvent = nullptr;

private:
    static LRESULT CALLBACK Procedure(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
    {
        auto* self = reinterpret_cast<RecordingWindow*>(GetWindowLongPtrA(hwnd, GWLP_USERDATA));
        if (self != nullptr && message >= WM_APP) {
            self->received.push_back(message);
            if (self->ackEvent != nullptr)
                SetEvent(self->ackEvent);
            return 0;
        }
        return DefWindowProcA(hwnd, message, wParam, lParam);
    }

    HWND m_hwnd;
};

// A stand-in for a started program: it posts a message to the window, waits
// (at most 5 s) until the window has received it, then ends.
struct FakeProgram
{
    HWND window;
    HANDLE ack;
};

DWORD WINAPI FakeProgramMain(void* parameter)
{
    auto* program = static_cast<FakeProgram*>(parameter);
    PostMessageA(program->window, WM_APP + 7, 0, 0);
    WaitForSingleObject(program->ack, 5000);
    return 0;
}

}  // namespace

TEST(ShellSeam, InstallingGivesThePreviousSeamBackAndNullRestoresTheStandard)
{
    CShellSeam* standard = TwGetShellSeam();
    ASSERT_NE(standard, nullptr);
    RecordingSeam first;
    EXPECT_EQ(TwSetShellSeam(&first), standard);
    EXPECT_EQ(TwSetShellSeam(nullptr), &first);
    EXPECT_EQ(TwGetShellSeam(), standard);
}

TEST(ShellSeam, StandardSeamAsksTheRealShellForAMissingFile)
{
    // A file that does not exist opens nothing, so no program starts.
    TempFolder folder;
    const CString missing = folder / "fehlt.html";
    const INT_PTR opened = reinterpret_cast<INT_PTR>(CHyperlink(missing).Navigate());
    EXPECT_GE(opened, 0);
    EXPECT_LE(opened, 32);
    const INT_PTR started = CallExternProgram(folder / "fehlt.exe", nullptr, 0, SW_SHOWNORMAL, nullptr, nullptr);
    EXPECT_GE(started, 0);
    EXPECT_LE(started, 32);
    EXPECT_FALSE(ReturnShellExecuteError(reinterpret_cast<HINSTANCE>(started)).IsEmpty());
}

TEST_F(ShellSeamTest, NavigateOpensTheTargetWithTheShell)
{
    EXPECT_EQ(reinterpret_cast<INT_PTR>(CHyperlink("http://www.example.de/").Navigate()), 42);
    EXPECT_EQ(reinterpret_cast<INT_PTR>(CHyperlink(" www.example.de ").Navigate()), 42);
    seam.shellResult = SE_ERR_NOASSOC;
    EXPECT_EQ(reinterpret_cast<INT_PTR>(CHyperlink("mailto:anna@example.de").Navigate()), SE_ERR_NOASSOC);

    EXPECT_EQ(seam.Lines(), (std::vector<std::string>{"ShellExecuteA open|http://www.example.de/|(null)|(null)|1",
                                                      "ShellExecuteA open|http://www.example.de|(null)|(null)|1",
                                                      "ShellExecuteA open|mailto:anna@example.de|(null)|(null)|1"}));
    for (const auto& call : seam.calls)
        EXPECT_EQ(call.owner, nullptr);
}

TEST_F(ShellSeamTest, NavigateWithAnEmptyLinkReportsAMissingFileWithoutACall)
{
    EXPECT_EQ(reinterpret_cast<INT_PTR>(CHyperlink().Navigate()), SE_ERR_FNF);
    EXPECT_EQ(reinterpret_cast<INT_PTR>(CHyperlink("   ").Navigate()), SE_ERR_FNF);
    EXPECT_TRUE(seam.calls.empty());
}

TEST_F(ShellSeamTest, ProgramStartsInItsOwnFolderAsTheDispatcherCallsIt)
{
    EXPECT_EQ(CallExternProgram("C:\\Programme\\Tw\\werkzeug.exe", nullptr, 0, 1, nullptr, nullptr), 42);
    ASSERT_EQ(seam.Lines(), (std::vector<std::string>{
                                "ShellExecuteExA open|C:\\Programme\\Tw\\werkzeug.exe|(null)|C:\\Programme\\Tw\\|1"}));
    EXPECT_EQ(seam.calls[0].owner, nullptr);
    EXPECT_NE(seam.calls[0].mask & SEE_MASK_FLAG_NO_UI, 0u) << "failures come back as codes";
    EXPECT_EQ(seam.calls[0].mask & SEE_MASK_NOCLOSEPROCESS, 0u) << "nothing to wait for";
}

TEST_F(ShellSeamTest, ProgramGetsArgumentsFolderShowCommandAndOwner)
{
    RecordingWindow owner;
    CWnd parent;
    parent.Attach(owner.Handle());
    EXPECT_EQ(CallExternProgram("werkzeug.bat", "-a \"b c\"", 0, SW_SHOWMAXIMIZED, "D:\\Arbeit", &parent), 42);
    parent.Detach();
    EXPECT_EQ(CallExternProgram("werkzeug.exe", "", 0, SW_HIDE, "", nullptr), 42);

    // A program without a folder runs in the current one.
    ASSERT_EQ(seam.Lines(), (std::vector<std::string>{"ShellExecuteExA open|werkzeug.bat|-a \"b c\"|D:\\Arbeit|3",
                                                      "ShellExecuteExA open|werkzeug.exe||(null)|0"}));
    EXPECT_EQ(seam.calls[0].owner, owner.Handle());
}

TEST_F(ShellSeamTest, ProgramFailuresBecomeShellErrorCodes)
{
    struct
    {
        BOOL started;
        INT_PTR instance;
        DWORD error;
        INT_PTR result;
    } cases[] = {
        {FALSE, SE_ERR_NOASSOC, 0, SE_ERR_NOASSOC},
        {FALSE, 0, ERROR_FILE_NOT_FOUND, SE_ERR_FNF},
        {FALSE, 42, ERROR_FILE_NOT_FOUND, SE_ERR_FNF},
        {FALSE, 42, ERROR_NO_ASSOCIATION, SE_ERR_NOASSOC},
        {FALSE, 42, ERROR_DLL_NOT_FOUND, SE_ERR_DLLNOTFOUND},
        {FALSE, 42, ERROR_CANCELLED, 1},
        {TRUE, 42, 0, 42},
        {TRUE, 0, 0, 33},
    };
    for (auto& c : cases) {
        seam.extendedResult = c.started;
        seam.extendedInstance = c.instance;
        seam.extendedError = c.error;
        EXPECT_EQ(CallExternProgram("a.exe", nullptr, 0, 1, nullptr, nullptr), c.result)
            << c.started << " " << c.instance << " " << c.error;
    }
}

TEST_F(ShellSeamTest, ProgramWithoutANameIsNotStarted)
{
    EXPECT_EQ(CallExternProgram(nullptr, nullptr, 0, 1, nullptr, nullptr), SE_ERR_FNF);
    EXPECT_EQ(CallExternProgram("", "x", 1, 1, nullptr, nullptr), SE_ERR_FNF);
    EXPECT_TRUE(seam.calls.empty());
}

TEST_F(ShellSeamTest, WaitingForAProgramKeepsMessagesFlowingAndClosesItsHandle)
{
    RecordingWindow window;
    HANDLE ack = CreateEventA(nullptr, TRUE, FALSE, nullptr);
    window.ackEvent = ack;
    FakeProgram program = {window.Handle(), ack};
    HANDLE process = CreateThread(nullptr, 0, FakeProgramMain, &program, 0, nullptr);
    ASSERT_NE(process, nullptr);
    HANDLE watched = nullptr;
    ASSERT_TRUE(DuplicateHandle(GetCurrentProcess(), process, GetCurrentProcess(), &watched, SYNCHRONIZE, FALSE, 0));
    seam.extendedProcess = process;

    EXPECT_EQ(CallExternProgram("C:\\a\\lang.exe", nullptr, 1, 1, nullptr, nullptr), 42);

    ASSERT_EQ(seam.calls.size(), 1u);
    EXPECT_NE(seam.calls[0].mask & SEE_MASK_NOCLOSEPROCESS, 0u);
    EXPECT_EQ(WaitForSingleObject(watched, 0), WAIT_OBJECT_0) << "returned only after the program ended";
    EXPECT_EQ(window.received, std::vector<UINT>{WM_APP + 7}) << "the message arrived while waiting";
    EXPECT_EQ(WaitForSingleObject(ack, 0), WAIT_OBJECT_0);
    EXPECT_FALSE(IsOpenHandle(process)) << "the process handle is closed";
    CloseHandle(watched);
    CloseHandle(ack);
}

TEST_F(ShellSeamTest, FileInformationIsTheShellsPropertiesView)
{
    TempFolder folder;
    const CString path = folder / "Strand 2023.jpg";
    ASSERT_TRUE(files_test::WriteText(path, "x"));

    EXPECT_TRUE(ViewFileInformation(path));
    EXPECT_TRUE(ViewFileInformation(folder.Path())) << "folders have properties too";
    seam.extendedResult = FALSE;
    EXPECT_FALSE(ViewFileInformation(path));

    ASSERT_EQ(seam.calls.size(), 3u);
    EXPECT_EQ(seam.calls[0].function, "ShellExecuteExA");
    EXPECT_EQ(seam.calls[0].verb, "properties");
    EXPECT_EQ(seam.calls[0].file, path.GetString());
    EXPECT_NE(seam.calls[0].mask & SEE_MASK_INVOKEIDLIST, 0u);
    EXPECT_EQ(seam.calls[1].file, folder.Path().GetString());
}

TEST_F(ShellSeamTest, FileInformationOfNothingMakesNoCall)
{
    TempFolder folder;
    EXPECT_FALSE(ViewFileInformation(folder / "fehlt.jpg"));
    EXPECT_FALSE(ViewFileInformation(""));
    EXPECT_FALSE(ViewFileInformation(nullptr));
    EXPECT_TRUE(seam.calls.empty());
}

TEST(CheckOtherTasks, ProcessesEverythingWaitingAndReturns)
{
    RecordingWindow window;
    for (UINT m = WM_APP; m < WM_APP + 3; ++m)
        PostMessageA(window.Handle(), m, 0, 0);

    EXPECT_TRUE(CheckOtherTasks());
    EXPECT_EQ(window.received, (std::vector<UINT>{WM_APP, WM_APP + 1, WM_APP + 2}));
    MSG msg;
    EXPECT_FALSE(PeekMessageA(&msg, nullptr, 0, 0, PM_NOREMOVE));
    EXPECT_TRUE(CheckOtherTasks()) << "nothing waiting: returns at once";
}

TEST(CheckOtherTasks, LeavesTheQuitMessageForTheMessageLoop)
{
    RecordingWindow window;
    PostMessageA(window.Handle(), WM_APP, 0, 0);
    PostQuitMessage(7);

    EXPECT_FALSE(CheckOtherTasks());
    EXPECT_EQ(window.received, std::vector<UINT>{WM_APP});
    MSG msg = {};
    ASSERT_TRUE(PeekMessageA(&msg, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(msg.wParam, 7u);
}

namespace {

int CALLBACK CollectRaw(const LOGFONTA* font, const TEXTMETRICA*, DWORD, LPARAM names)
{
    reinterpret_cast<std::vector<std::string>*>(names)->push_back(font->lfFaceName);
    return 1;
}

}  // namespace

TEST(EnumerateFonts, EachFamilyOnceInSortedOrder)
{
    // The system names a family once per character set.
    std::vector<std::string> raw;
    HDC screen = GetDC(nullptr);
    EnumFontFamiliesA(screen, nullptr, CollectRaw, reinterpret_cast<LPARAM>(&raw));
    ReleaseDC(nullptr, screen);
    std::vector<std::string> distinct;
    for (const std::string& name : raw) {
        if (name[0] != '@' && std::find(distinct.begin(), distinct.end(), name) == distinct.end())
            distinct.push_back(name);
    }
    ASSERT_FALSE(distinct.empty());

    CSortedStringArray fonts;
    fonts.Add("vorher");
    const INT_PTR count = EnumerateFonts(static_cast<HDC>(nullptr), fonts);
    EXPECT_EQ(count, fonts.GetSize());
    EXPECT_EQ(count, static_cast<INT_PTR>(distinct.size()));
    for (INT_PTR i = 0; i < count; ++i) {
        EXPECT_NE(std::find(distinct.begin(), distinct.end(), fonts[i].GetString()), distinct.end())
            << fonts[i].GetString();
        if (i > 0) {
            EXPECT_LT(CompareStringA(fonts[i - 1], fonts[i], true), 0) << fonts[i].GetString();
        }
    }

    HDC memory = CreateCompatibleDC(nullptr);
    CSortedStringArray fromMemory;
    EXPECT_GT(EnumerateFonts(memory, fromMemory), 0);
    DeleteDC(memory);

    CSortedStringArray fromFramework;
    EXPECT_EQ(EnumerateFonts(static_cast<CDC*>(nullptr), fromFramework), count);
}
#endif
