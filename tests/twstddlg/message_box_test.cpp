// CMessageBox: the real dialog from the library's resources, driven through
// its own modal loop; answers, shown buttons, the default button, the
// silenced questions in the profile and F1 help.
#include "dialogs/message_box.h"
#include "res/resource.h"

#include "dialog_driver.h"
#include "test_app.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace {

constexpr DWORD_PTR kHelpBase = 0x20000;

// The profile section of the silenced questions, as the registry holds it.
CString SectionPath()
{
    return CTestApp::Get().ProfileKeyPath() + "\\Einstellungen";
}

std::optional<DWORD> StoredValue(const char* name)
{
    DWORD value = 0;
    DWORD size = sizeof value;
    if (RegGetValueA(HKEY_CURRENT_USER, SectionPath(), name, RRF_RT_REG_DWORD, nullptr, &value, &size) != ERROR_SUCCESS)
        return std::nullopt;
    return value;
}

void Store(const char* name, DWORD value)
{
    HKEY key = nullptr;
    ASSERT_EQ(RegCreateKeyExA(HKEY_CURRENT_USER, SectionPath(), 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr),
              ERROR_SUCCESS);
    RegSetValueExA(key, name, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&value), sizeof value);
    RegCloseKey(key);
}

bool Visible(const DialogHandle& d, int id)
{
    return ::IsWindowVisible(d.Item(id)) != FALSE;
}

// The dialog's default button as DM_GETDEFID reports it; 0 without one.
int DefaultButton(const DialogHandle& d)
{
    const LRESULT result = ::SendMessageA(d.Hwnd(), DM_GETDEFID, 0, 0);
    return HIWORD(result) == DC_HASDEFID ? LOWORD(result) : 0;
}

class MessageBoxTest : public ::testing::Test
{
protected:
    void SetUp() override { CTestApp::Get().Reset(); }
    void TearDown() override
    {
        RegDeleteTreeA(HKEY_CURRENT_USER, SectionPath());
        CTestApp::Get().Reset();
        AfxDeleteTempMap();
    }
};

TEST_F(MessageBoxTest, ShowsCaptionMessageAndTheGermanTexts)
{
    CMessageBox box(nullptr, 3, "Speichern", "Möchten Sie die Änderungen an „Grüße.txt“ speichern?", 1 | 2);
    DialogDriver driver;
    driver.OnDialog([](DialogHandle& d) {
        EXPECT_EQ(d.Caption(), "Speichern");
        EXPECT_EQ(d.Text(IDC_MB_TEXT), "Möchten Sie die Änderungen an „Grüße.txt“ speichern?");
        EXPECT_EQ(d.Text(IDYES), "&Ja");
        EXPECT_EQ(d.Text(IDC_MB_YES_ALL), "Ja, &alle");
        EXPECT_EQ(d.Text(IDNO), "&Nein");
        EXPECT_EQ(d.Text(IDC_MB_DONT_SHOW), "&Diesen Dialog nicht mehr anzeigen");
        EXPECT_EQ(d.Check(IDC_MB_DONT_SHOW), BST_UNCHECKED);
        // The question mark icon of the template, from the library's resources.
        EXPECT_NE(::SendMessageA(d.Item(-1), STM_GETICON, 0, 0), 0);
        d.Click(IDNO);
    });
    EXPECT_EQ(box.DoModal(), IDNO);
    EXPECT_EQ(driver.Ran(), 1);
}

TEST_F(MessageBoxTest, StyleBitsChooseTheButtonsTheCheckBoxAndTheDefault)
{
    struct
    {
        int style;
        bool yes, yesAll, no, check;
        const char* yesAllText;
        int defaultButton;
    } cases[] = {
        {0, true, false, true, false, "Ja, &alle", IDYES},
        {1 | 2, true, true, true, true, "Ja, &alle", IDYES},
        {2 | 4, false, true, false, true, "Ok", IDC_MB_YES_ALL},
        {1 | 0x200, true, true, true, false, "Ja, &alle", IDNO},
        // The default follows the bits even when its button is hidden.
        {0x100, true, false, true, false, "Ja, &alle", IDC_MB_YES_ALL},
    };
    for (const auto& c : cases) {
        CMessageBox box(nullptr, 1, "Stil", "Welche Knöpfe?", c.style);
        DialogDriver driver;
        driver.OnDialog([&](DialogHandle& d) {
            EXPECT_EQ(Visible(d, IDYES), c.yes) << c.style;
            EXPECT_EQ(Visible(d, IDC_MB_YES_ALL), c.yesAll) << c.style;
            EXPECT_EQ(Visible(d, IDNO), c.no) << c.style;
            EXPECT_EQ(Visible(d, IDC_MB_DONT_SHOW), c.check) << c.style;
            EXPECT_EQ(d.Text(IDC_MB_YES_ALL), c.yesAllText) << c.style;
            EXPECT_EQ(DefaultButton(d), c.defaultButton) << c.style;
            d.Key(VK_ESCAPE);
        });
        EXPECT_EQ(box.DoModal(), IDCANCEL) << c.style;
        EXPECT_EQ(driver.Ran(), 1) << c.style;
    }
}

TEST_F(MessageBoxTest, EachButtonEnterEscapeAndTheCloseBoxGiveTheirAnswer)
{
    enum Action
    {
        kClick,
        kEnter,
        kEscape,
        kClose
    };
    struct
    {
        int style;
        Action action;
        int button;
        INT_PTR answer;
    } cases[] = {
        {1, kClick, IDYES, IDYES},
        {1, kClick, IDNO, IDNO},
        {1, kClick, IDC_MB_YES_ALL, CMessageBox::kYesToAll},
        {4, kClick, IDC_MB_YES_ALL, IDOK},
        // Enter gives the default button's answer while the check box has the focus.
        {1 | 2, kEnter, 0, IDYES},
        {1 | 2 | 0x100, kEnter, 0, CMessageBox::kYesToAll},
        {1 | 2 | 0x200, kEnter, 0, IDNO},
        {2 | 4 | 0x200, kEnter, 0, IDOK},
        {1, kEscape, 0, IDCANCEL},
        {4, kEscape, 0, IDCANCEL},
        {1 | 2, kClose, 0, IDCANCEL},
    };
    for (const auto& c : cases) {
        CMessageBox box(nullptr, 2, "Antwort", "Weiter?", c.style);
        DialogDriver driver;
        driver.OnDialog([&](DialogHandle& d) {
            if (c.action == kClick) {
                d.Click(c.button);
            } else if (c.action == kEnter) {
                EXPECT_EQ(d.Focus(), d.Item(IDC_MB_DONT_SHOW)) << c.style;
                d.Key(VK_RETURN);
            } else if (c.action == kEscape) {
                d.Key(VK_ESCAPE);
            } else {
                ::SendMessageA(d.Hwnd(), WM_SYSCOMMAND, SC_CLOSE, 0);
            }
            d.Pump();
        });
        EXPECT_EQ(box.DoModal(), c.answer) << c.style << " " << c.action << " " << c.button;
        EXPECT_EQ(driver.LeftOpen(), 0) << c.style << " " << c.action << " " << c.button;
    }
}

TEST_F(MessageBoxTest, SilencedQuestionAnswersWithoutShowingAndWritesZeroBack)
{
    struct
    {
        int style;
        INT_PTR answer;
    } cases[] = {
        {2, IDYES},
        {2 | 8, IDNO},
        {2 | 4, IDOK},
    };
    for (const auto& c : cases) {
        Store("NOMSG_Stumm_9", 1);
        CMessageBox box(nullptr, 9, "Stumm", "Nicht zu sehen", c.style);
        DialogDriver driver;
        driver.OnDialog([](DialogHandle& d) { d.Key(VK_ESCAPE); });
        EXPECT_EQ(box.DoModal(), c.answer) << c.style;
        EXPECT_EQ(driver.Ran(), 0) << c.style;
        EXPECT_EQ(StoredValue("NOMSG_Stumm_9"), std::optional<DWORD>(0)) << c.style;
    }
}

TEST_F(MessageBoxTest, SilencedQuestionIsSkippedOnceAndAskedAgainTheNextTime)
{
    const auto ask = [](DialogDriver::Script script) {
        CMessageBox box(nullptr, 3, "Speichern", "Speichern?", 1 | 2);
        DialogDriver driver;
        driver.OnDialog(std::move(script));
        const INT_PTR answer = box.DoModal();
        return std::make_pair(answer, driver.Ran());
    };

    // The user ticks the box and answers No: the choice is stored.
    auto first = ask([](DialogHandle& d) {
        d.Click(IDC_MB_DONT_SHOW);
        d.Click(IDNO);
    });
    EXPECT_EQ(first, std::make_pair(INT_PTR{IDNO}, 1));
    EXPECT_EQ(StoredValue("NOMSG_Speichern_3"), std::optional<DWORD>(1));

    // Next time the box answers Yes unseen and the stored value drops to 0.
    auto second = ask([](DialogHandle& d) { d.Click(IDNO); });
    EXPECT_EQ(second, std::make_pair(INT_PTR{IDYES}, 0));
    EXPECT_EQ(StoredValue("NOMSG_Speichern_3"), std::optional<DWORD>(0));

    // And the time after, the question is shown again with the box unticked.
    int checkShown = -1;
    auto third = ask([&](DialogHandle& d) {
        checkShown = d.Check(IDC_MB_DONT_SHOW);
        d.Click(IDYES);
    });
    EXPECT_EQ(third, std::make_pair(INT_PTR{IDYES}, 1));
    EXPECT_EQ(checkShown, BST_UNCHECKED);
    EXPECT_EQ(StoredValue("NOMSG_Speichern_3"), std::optional<DWORD>(0));
}

TEST_F(MessageBoxTest, EveryCloseWritesTheCheckBoxStateEvenWithoutCheckBox)
{
    enum Action
    {
        kNo,
        kEscape,
        kTickAndYes
    };
    struct
    {
        int style;
        Action action;
        DWORD stored;
    } cases[] = {
        {0, kNo, 0}, {4, kEscape, 0}, {2, kEscape, 0}, {2, kTickAndYes, 1}, {2 | 4, kTickAndYes, 1},
    };
    for (const auto& c : cases) {
        RegDeleteTreeA(HKEY_CURRENT_USER, SectionPath());
        CMessageBox box(nullptr, 5, "Schreiben", "Wird geschrieben?", c.style);
        DialogDriver driver;
        driver.OnDialog([&](DialogHandle& d) {
            switch (c.action) {
            case kNo:
                d.Click(IDNO);
                break;
            case kEscape:
                d.Key(VK_ESCAPE);
                break;
            case kTickAndYes:
                d.Click(IDC_MB_DONT_SHOW);
                d.Click(Visible(d, IDYES) ? IDYES : IDC_MB_YES_ALL);
                break;
            }
        });
        box.DoModal();
        EXPECT_EQ(driver.Ran(), 1) << c.style << " " << c.action;
        EXPECT_EQ(StoredValue("NOMSG_Schreiben_5"), std::optional<DWORD>(c.stored)) << c.style << " " << c.action;
    }
}

TEST_F(MessageBoxTest, WithoutTheCheckBoxBitAStoredChoiceIsShownAnywayAndKept)
{
    // The stored choice reaches the hidden check box and is written back.
    Store("NOMSG_Verdeckt_6", 1);
    CMessageBox box(nullptr, 6, "Verdeckt", "Trotzdem gefragt", 1);
    DialogDriver driver;
    driver.OnDialog([](DialogHandle& d) {
        EXPECT_FALSE(Visible(d, IDC_MB_DONT_SHOW));
        EXPECT_EQ(d.Check(IDC_MB_DONT_SHOW), BST_CHECKED);
        d.Click(IDYES);
    });
    EXPECT_EQ(box.DoModal(), IDYES);
    EXPECT_EQ(driver.Ran(), 1);
    EXPECT_EQ(StoredValue("NOMSG_Verdeckt_6"), std::optional<DWORD>(1));
}

TEST_F(MessageBoxTest, CaptionAndNumberNameTheStoredValue)
{
    struct
    {
        const char* caption;
        int number;
        const char* name;
    } cases[] = {
        {"Speichern", 3, "NOMSG_Speichern_3"},
        {"Speichern", 4, "NOMSG_Speichern_4"},
        {"Daten\\Export", 12, "NOMSG_Daten\\Export_12"},
        {"Löschen", -1, "NOMSG_Löschen_-1"},
    };
    for (const auto& c : cases) {
        CMessageBox box(nullptr, c.number, c.caption, "Name?", 2);
        DialogDriver driver;
        driver.OnDialog([](DialogHandle& d) {
            d.Click(IDC_MB_DONT_SHOW);
            d.Click(IDYES);
        });
        EXPECT_EQ(box.DoModal(), IDYES) << c.name;
        EXPECT_EQ(StoredValue(c.name), std::optional<DWORD>(1)) << c.name;
    }
    // Each question kept its own value; the same caption and number share one.
    Store("NOMSG_Speichern_4", 0);
    CMessageBox other(nullptr, 4, "Speichern", "Anders", 2 | 8);
    CMessageBox same(nullptr, 3, "Speichern", "Gleich", 2 | 8);
    DialogDriver driver;
    driver.OnDialog([](DialogHandle& d) { d.Click(IDYES); });
    EXPECT_EQ(other.DoModal(), IDYES);
    EXPECT_EQ(same.DoModal(), IDNO);
    EXPECT_EQ(driver.Ran(), 1);
}

TEST_F(MessageBoxTest, OneArgumentConstructorAsksWithNumberZeroAndStyleOne)
{
    CMessageBox box(nullptr);
    DialogDriver driver;
    driver.OnDialog([](DialogHandle& d) {
        EXPECT_EQ(d.Caption(), "");
        EXPECT_TRUE(Visible(d, IDC_MB_YES_ALL));
        EXPECT_FALSE(Visible(d, IDC_MB_DONT_SHOW));
        d.Click(IDC_MB_YES_ALL);
    });
    EXPECT_EQ(box.DoModal(), CMessageBox::kYesToAll);
    EXPECT_EQ(StoredValue("NOMSG__0"), std::optional<DWORD>(0));
}

TEST_F(MessageBoxTest, F1WithoutModifiersOpensHelpAtTheHelpIdAboveTheBase)
{
    struct
    {
        UINT modifiers;
        int helpId;
        bool help;
    } cases[] = {
        {kNoModifier, 0, true}, {kNoModifier, 77, true}, {kCtrl, 77, false}, {kShift, 77, false}, {kAlt, 77, false},
    };
    for (const auto& c : cases) {
        CTestApp::Get().Reset();
        CMessageBox box(nullptr, 1, "Hilfe", "Hilfe gefällig?", 1);
        if (c.helpId != 0)
            box.SetHelpId(c.helpId);
        DialogDriver driver;
        bool openAfterKey = false;
        driver.OnDialog([&](DialogHandle& d) {
            d.Key(VK_F1, c.modifiers);
            openAfterKey = d.IsOpen();
            d.Click(IDNO);
        });
        EXPECT_EQ(box.DoModal(), IDNO) << c.modifiers;
        EXPECT_TRUE(openAfterKey) << c.modifiers;
        const auto& calls = CTestApp::Get().HelpCalls();
        if (c.help) {
            ASSERT_EQ(calls.size(), 1u) << c.modifiers;
            EXPECT_EQ(calls[0].data, kHelpBase + c.helpId);
            EXPECT_EQ(calls[0].command, static_cast<UINT>(HELP_CONTEXT));
        } else {
            EXPECT_TRUE(calls.empty()) << c.modifiers;
        }
    }
}

}  // namespace
