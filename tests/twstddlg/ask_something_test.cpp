// CAskSomething: the real question dialog from the library's resources,
// driven through its own modal loop.
#include "dialogs/ask_something.h"
#include "res/resource.h"

#include "dialog_driver.h"
#include "test_app.h"

#include <gtest/gtest.h>

namespace {

constexpr DWORD_PTR kHelpContext = 0x20000 + 1221;

class AskSomethingTest : public ::testing::Test
{
protected:
    void SetUp() override { CTestApp::Get().Reset(); }
    void TearDown() override
    {
        CTestApp::Get().Reset();
        AfxDeleteTempMap();
    }
};

TEST_F(AskSomethingTest, ShowsTheQuestionUnderTheCaptionFrageWithFiveGermanAnswers)
{
    CAskSomething ask("Soll „Bild 1.jpg“ überschrieben werden?", nullptr);
    DialogDriver driver;
    driver.OnDialog([](DialogHandle& d) {
        EXPECT_EQ(d.Caption(), "Frage");
        EXPECT_EQ(d.Text(IDC_ASK_QUESTION), "Soll „Bild 1.jpg“ überschrieben werden?");
        struct
        {
            int id;
            const char* text;
        } buttons[] = {
            {IDOK, "&Ja"},
            {IDC_ASK_YES_ALL, "Ja, a&lle"},
            {IDNO, "&Nein"},
            {IDC_ASK_NO_ALL, "N&ein, keine"},
            {IDCANCEL, "&Abbrechen"},
        };
        for (const auto& b : buttons) {
            EXPECT_EQ(d.Text(b.id), b.text) << b.id;
            EXPECT_TRUE(::IsWindowVisible(d.Item(b.id))) << b.id;
        }
        const LRESULT def = ::SendMessageA(d.Hwnd(), DM_GETDEFID, 0, 0);
        EXPECT_EQ(HIWORD(def), DC_HASDEFID);
        EXPECT_EQ(LOWORD(def), IDOK);
        d.Click(IDCANCEL);
    });
    EXPECT_EQ(ask.DoModal(), IDCANCEL);
    EXPECT_EQ(driver.Ran(), 1);
}

TEST_F(AskSomethingTest, EachAnswerEndsTheDialogWithItsResult)
{
    enum Action
    {
        kClick,
        kEscape,
        kEnter,
        kClose
    };
    struct
    {
        Action action;
        int button;
        INT_PTR answer;
    } cases[] = {
        {kClick, IDOK, IDOK},
        {kClick, IDC_ASK_YES_ALL, CAskSomething::kYesToAll},
        {kClick, IDNO, IDNO},
        {kClick, IDC_ASK_NO_ALL, CAskSomething::kNoToAll},
        {kClick, IDCANCEL, IDCANCEL},
        {kEscape, 0, IDCANCEL},
        {kEnter, 0, IDOK},
        {kClose, 0, IDCANCEL},
    };
    for (const auto& c : cases) {
        CAskSomething ask("Weiter?", nullptr);
        DialogDriver driver;
        driver.OnDialog([&](DialogHandle& d) {
            switch (c.action) {
            case kClick:
                d.Click(c.button);
                break;
            case kEscape:
                d.Key(VK_ESCAPE);
                break;
            case kEnter:
                d.Key(VK_RETURN);
                break;
            case kClose:
                ::SendMessageA(d.Hwnd(), WM_SYSCOMMAND, SC_CLOSE, 0);
                d.Pump();
                break;
            }
        });
        EXPECT_EQ(ask.DoModal(), c.answer) << c.action << " " << c.button;
        EXPECT_EQ(driver.Ran(), 1) << c.action << " " << c.button;
        EXPECT_EQ(driver.LeftOpen(), 0) << c.action << " " << c.button;
    }
}

TEST_F(AskSomethingTest, NoToAllFlagAnswersThirteenWithoutShowing)
{
    struct
    {
        int flag;
        INT_PTR answer;
        int shown;
    } cases[] = {
        {0, IDNO, 1},
        {1, CAskSomething::kNoToAll, 0},
        {-1, CAskSomething::kNoToAll, 0},
    };
    for (const auto& c : cases) {
        CAskSomething ask("Auch diese Datei?", nullptr);
        EXPECT_EQ(ask.m_bNoToAll, 0);
        ask.m_bNoToAll = c.flag;
        DialogDriver driver;
        driver.OnDialog([](DialogHandle& d) { d.Click(IDNO); });
        EXPECT_EQ(ask.DoModal(), c.answer) << c.flag;
        EXPECT_EQ(driver.Ran(), c.shown) << c.flag;
        EXPECT_EQ(ask.m_hWnd, nullptr) << c.flag;
    }
}

TEST_F(AskSomethingTest, F1WithoutModifiersAndWmHelpOpenTheDialogsHelpContext)
{
    enum Action
    {
        kF1,
        kHelpMessage
    };
    struct
    {
        Action action;
        UINT modifiers;
        bool help;
    } cases[] = {
        {kF1, kNoModifier, true},          {kF1, kCtrl, false}, {kF1, kShift, false}, {kF1, kAlt, false},
        {kHelpMessage, kNoModifier, true},
    };
    for (const auto& c : cases) {
        CTestApp::Get().Reset();
        CAskSomething ask("Hilfe?", nullptr);
        DialogDriver driver;
        driver.OnDialog([&](DialogHandle& d) {
            if (c.action == kF1) {
                d.Key(VK_F1, c.modifiers);
            } else {
                HELPINFO info = {sizeof info, HELPINFO_WINDOW, IDOK, d.Item(IDOK), 0, {0, 0}};
                ::SendMessageA(d.Hwnd(), WM_HELP, 0, reinterpret_cast<LPARAM>(&info));
            }
            EXPECT_TRUE(d.IsOpen());
            d.Click(IDNO);
        });
        EXPECT_EQ(ask.DoModal(), IDNO);
        const auto& calls = CTestApp::Get().HelpCalls();
        if (c.help) {
            ASSERT_EQ(calls.size(), 1u) << c.action << " " << c.modifiers;
            EXPECT_EQ(calls[0].data, kHelpContext);
            EXPECT_EQ(calls[0].command, static_cast<UINT>(HELP_CONTEXT));
        } else {
            EXPECT_TRUE(calls.empty()) << c.action << " " << c.modifiers;
        }
    }
}

TEST_F(AskSomethingTest, ModelessCreateShowsTheSameTemplate)
{
    CAskSomething ask("Ohne Warten?", nullptr);
    ASSERT_TRUE(ask.Create(IDD_ASK_SOMETHING, nullptr));
    CString caption;
    CString question;
    ask.GetWindowText(caption);
    ask.GetDlgItemText(IDC_ASK_QUESTION, question);
    EXPECT_STREQ(caption, "Frage");
    EXPECT_STREQ(question, "Ohne Warten?");
    EXPECT_TRUE(ask.DestroyWindow());
}

}  // namespace
