// Dialogs: creation order, the modal loop and its pre-translation, command
// routing, data exchange and validation, driven through real dialogs.
#include "dialog_driver.h"
#include "test_app.h"
#include "test_resource.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Events = std::vector<std::string>;

// A command that the dialog does not handle but its owner does.
constexpr UINT kOwnerCommand = 0x8120;

class DialogTest : public ::testing::Test
{
protected:
    void SetUp() override { CTestApp::Get().Reset(); }
    void TearDown() override
    {
        CTestApp::Get().Reset();
        AfxDeleteTempMap();
    }
};

// Records the order of creation messages, keys seen by PreTranslateMessage
// and command handlers.
class CEventDialog : public CDialog
{
public:
    explicit CEventDialog(CWnd* pParent = nullptr) : CDialog(IDD_TEST_EVENTS, pParent) {}

    Events events;
    // Keys as "[ctrl+][shift+]<virtual key>".
    Events keys;
    int endFromInit = 0;
    int editChanges = 0;
    bool exchangeEdit = false;
    CString editText;

    BOOL OnInitDialog() override
    {
        events.push_back("OnInitDialog");
        CDialog::OnInitDialog();
        if (endFromInit != 0)
            EndDialog(endFromInit);
        return TRUE;
    }

    BOOL PreTranslateMessage(MSG* pMsg) override
    {
        if (pMsg->message == WM_KEYDOWN) {
            keys.push_back(std::string(GetKeyState(VK_CONTROL) < 0 ? "ctrl+" : "") +
                           (GetKeyState(VK_SHIFT) < 0 ? "shift+" : "") + std::to_string(pMsg->wParam));
        }
        return CDialog::PreTranslateMessage(pMsg);
    }

protected:
    void DoDataExchange(CDataExchange* pDX) override
    {
        if (exchangeEdit)
            DDX_Text(pDX, IDC_EV_EDIT, editText);
    }
    afx_msg BOOL OnNcCreate(LPCREATESTRUCT lpcs)
    {
        events.push_back("WM_NCCREATE");
        return CDialog::OnNcCreate(lpcs);
    }
    afx_msg int OnCreate(LPCREATESTRUCT lpcs)
    {
        events.push_back("WM_CREATE");
        return CDialog::OnCreate(lpcs);
    }
    afx_msg void OnDestroy()
    {
        events.push_back("WM_DESTROY");
        CDialog::OnDestroy();
    }
    afx_msg void OnFirst() { events.push_back("OnFirst"); }
    afx_msg void OnOtherButton(UINT nID) { events.push_back("OnOtherButton " + std::to_string(nID)); }
    afx_msg void OnEditChange() { ++editChanges; }
    void OnOK() override
    {
        events.push_back("OnOK");
        CDialog::OnOK();
    }
    void OnCancel() override
    {
        events.push_back("OnCancel");
        CDialog::OnCancel();
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CEventDialog, CDialog)
    ON_WM_NCCREATE()
    ON_WM_CREATE()
    ON_WM_DESTROY()
    ON_BN_CLICKED(IDC_EV_FIRST, OnFirst)
    ON_CONTROL_RANGE(BN_CLICKED, IDC_EV_SECOND, IDC_EV_THIRD, OnOtherButton)
    ON_EN_CHANGE(IDC_EV_EDIT, OnEditChange)
END_MESSAGE_MAP()

TEST_F(DialogTest, PreTranslateMessageSeesEveryKeyBeforeTheDialogManager)
{
    CEventDialog dlg;
    DialogDriver driver;
    driver.OnDialog([](DialogHandle& d) {
        d.Key(VK_F1);
        d.Key(VK_F1, kShift);
        d.Key('C', kCtrl);
        d.Key(VK_RETURN);
    });

    EXPECT_EQ(dlg.DoModal(), IDOK);

    EXPECT_EQ(dlg.keys, (Events{"112", "shift+112", "ctrl+67", "13"}));
    // Enter went on to the dialog manager, which pressed the default button.
    EXPECT_EQ(dlg.events.back(), "WM_DESTROY");
    EXPECT_EQ(dlg.events[dlg.events.size() - 2], "OnOK");
}

TEST_F(DialogTest, EscapeEndsTheDialogThroughOnCancel)
{
    CEventDialog dlg;
    DialogDriver driver;
    driver.OnDialog([](DialogHandle& d) { d.Key(VK_ESCAPE); });

    EXPECT_EQ(dlg.DoModal(), IDCANCEL);
    EXPECT_EQ(dlg.keys.size(), 1u);
    EXPECT_EQ(dlg.events[dlg.events.size() - 2], "OnCancel");
    EXPECT_EQ(driver.LeftOpen(), 0);
}

TEST_F(DialogTest, ButtonClicksRouteToTheDialogsHandlers)
{
    CEventDialog dlg;
    DialogDriver driver;
    driver.OnDialog([](DialogHandle& d) {
        d.Click(IDC_EV_FIRST);
        d.Click(IDC_EV_THIRD);
        d.Click(IDC_EV_SECOND);
        d.Command(IDC_EV_FIRST);
        EXPECT_TRUE(d.IsOpen());
        d.Click(IDCANCEL);
    });

    EXPECT_EQ(dlg.DoModal(), IDCANCEL);
    EXPECT_EQ(driver.Ran(), 1);
    EXPECT_EQ(driver.LeftOpen(), 0);
    EXPECT_EQ(dlg.m_hWnd, nullptr);

    // The creation messages reach the map before OnInitDialog.
    const Events expected = {"WM_NCCREATE",
                             "WM_CREATE",
                             "OnInitDialog",
                             "OnFirst",
                             "OnOtherButton " + std::to_string(IDC_EV_THIRD),
                             "OnOtherButton " + std::to_string(IDC_EV_SECOND),
                             "OnFirst",
                             "OnCancel",
                             "WM_DESTROY"};
    EXPECT_EQ(dlg.events, expected);
}

TEST_F(DialogTest, EndDialogInOnInitDialogSkipsTheLoop)
{
    CEventDialog dlg;
    dlg.endFromInit = 42;
    EXPECT_EQ(dlg.DoModal(), 42);
    const Events expected = {"WM_NCCREATE", "WM_CREATE", "OnInitDialog", "WM_DESTROY"};
    EXPECT_EQ(dlg.events, expected);
}

TEST_F(DialogTest, MissingTemplateMakesDoModalReturnMinusOne)
{
    CDialog dlg(IDD_TEST_MISSING);
    EXPECT_EQ(dlg.DoModal(), -1);
    EXPECT_EQ(dlg.m_hWnd, nullptr);
}

// A top-level window that owns modal dialogs in the tests.
class COwnerWnd : public CWnd
{
public:
    int ownerCommands = 0;

    BOOL CreateOwner()
    {
        return CreateEx(0, AfxRegisterWndClass(0), "Besitzer", WS_OVERLAPPEDWINDOW, 0, 0, 300, 200, nullptr, nullptr);
    }

protected:
    afx_msg void OnOwnerCommand() { ++ownerCommands; }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(COwnerWnd, CWnd)
    ON_COMMAND(kOwnerCommand, OnOwnerCommand)
END_MESSAGE_MAP()

TEST_F(DialogTest, ModalLoopDisablesTheOwnerAndEnablesItAgain)
{
    COwnerWnd owner;
    ASSERT_TRUE(owner.CreateOwner());
    CEventDialog dlg(&owner);
    DialogDriver driver;
    bool ownerEnabledDuringLoop = true;
    HWND dialogOwner = nullptr;
    driver.OnDialog([&](DialogHandle& d) {
        ownerEnabledDuringLoop = owner.IsWindowEnabled() != FALSE;
        dialogOwner = ::GetWindow(d.Hwnd(), GW_OWNER);
        d.Click(IDOK);
    });

    EXPECT_EQ(dlg.DoModal(), IDOK);
    EXPECT_FALSE(ownerEnabledDuringLoop);
    EXPECT_EQ(dialogOwner, owner.m_hWnd);
    EXPECT_TRUE(owner.IsWindowEnabled());
    owner.DestroyWindow();
}

TEST_F(DialogTest, CommandsTheDialogDoesNotHandleGoToItsOwner)
{
    COwnerWnd owner;
    ASSERT_TRUE(owner.CreateOwner());
    CEventDialog dlg(&owner);
    DialogDriver driver;
    driver.OnDialog([](DialogHandle& d) {
        ::SendMessageA(d.Hwnd(), WM_COMMAND, kOwnerCommand, 0);
        // A control id is not a command: a click on an unhandled control stays.
        ::SendMessageA(d.Hwnd(), WM_COMMAND, MAKEWPARAM(IDC_EV_EDIT, BN_CLICKED), 0);
        d.Click(IDOK);
    });

    EXPECT_EQ(dlg.DoModal(), IDOK);
    EXPECT_EQ(owner.ownerCommands, 1);
    owner.DestroyWindow();
}

TEST_F(DialogTest, ModelessDialogCreatesInitialisesAndDestroys)
{
    CEventDialog dlg;
    ASSERT_TRUE(dlg.Create(IDD_TEST_EVENTS));
    EXPECT_EQ(CWnd::FromHandlePermanent(dlg.m_hWnd), &dlg);
    EXPECT_FALSE(dlg.IsWindowVisible());

    dlg.SetDlgItemText(IDC_EV_EDIT, "geändert");
    EXPECT_EQ(dlg.editChanges, 1);
    CString text;
    dlg.GetDlgItemText(IDC_EV_EDIT, text);
    EXPECT_STREQ(text, "geändert");

    const HWND hWnd = dlg.m_hWnd;
    EXPECT_TRUE(dlg.DestroyWindow());
    EXPECT_FALSE(::IsWindow(hWnd));
    EXPECT_EQ(dlg.m_hWnd, nullptr);
    const Events expected = {"WM_NCCREATE", "WM_CREATE", "OnInitDialog", "WM_DESTROY"};
    EXPECT_EQ(dlg.events, expected);
}

// ---- Data exchange ----

class CDataDialog : public CDialog
{
public:
    CDataDialog() : CDialog(IDD_TEST_DDX) {}

    CString text;
    int number = 0;
    UINT unsignedNumber = 0;
    long longNumber = 0;
    DWORD word = 0;
    double real = 0;
    int check = 0;
    int radio = -1;
    bool validateRange = false;
    bool validateLength = false;

protected:
    void DoDataExchange(CDataExchange* pDX) override
    {
        DDX_Text(pDX, IDC_DDX_TEXT, text);
        if (validateLength)
            DDV_MaxChars(pDX, text, 5);
        DDX_Text(pDX, IDC_DDX_INT, number);
        if (validateRange)
            DDV_MinMaxInt(pDX, number, 1, 100);
        DDX_Text(pDX, IDC_DDX_UINT, unsignedNumber);
        DDX_Text(pDX, IDC_DDX_LONG, longNumber);
        DDX_Text(pDX, IDC_DDX_DWORD, word);
        DDX_Text(pDX, IDC_DDX_DOUBLE, real);
        DDX_Check(pDX, IDC_DDX_CHECK, check);
        DDX_Radio(pDX, IDC_DDX_RADIO1, radio);
    }
};

TEST_F(DialogTest, DataExchangeRoundTripsEveryType)
{
    CDataDialog dlg;
    dlg.text = "Grüße";
    dlg.number = -42;
    dlg.unsignedNumber = 4000000000u;
    dlg.longNumber = -2000000000L;
    dlg.word = 0xFFFFFFFFu;
    dlg.real = 3.25;
    dlg.check = 1;
    dlg.radio = 1;

    DialogDriver driver;
    driver.OnDialog([](DialogHandle& d) {
        EXPECT_EQ(d.Text(IDC_DDX_TEXT), "Grüße");
        EXPECT_EQ(d.Text(IDC_DDX_INT), "-42");
        EXPECT_EQ(d.Text(IDC_DDX_UINT), "4000000000");
        EXPECT_EQ(d.Text(IDC_DDX_LONG), "-2000000000");
        EXPECT_EQ(d.Text(IDC_DDX_DWORD), "4294967295");
        EXPECT_EQ(d.Text(IDC_DDX_DOUBLE), "3.25");
        EXPECT_EQ(d.Check(IDC_DDX_CHECK), BST_CHECKED);
        EXPECT_EQ(d.Check(IDC_DDX_RADIO1), BST_UNCHECKED);
        EXPECT_EQ(d.Check(IDC_DDX_RADIO2), BST_CHECKED);
        EXPECT_EQ(d.Check(IDC_DDX_RADIO3), BST_UNCHECKED);

        d.SetText(IDC_DDX_TEXT, "Öl");
        d.SetText(IDC_DDX_INT, " 17 ");
        d.SetText(IDC_DDX_UINT, "123");
        d.SetText(IDC_DDX_LONG, "+99");
        d.SetText(IDC_DDX_DWORD, "0");
        d.SetText(IDC_DDX_DOUBLE, "-1.5e3");
        d.SetCheck(IDC_DDX_CHECK, BST_UNCHECKED);
        d.SetCheck(IDC_DDX_RADIO2, BST_UNCHECKED);
        d.SetCheck(IDC_DDX_RADIO3, BST_CHECKED);
        d.Click(IDOK);
    });

    EXPECT_EQ(dlg.DoModal(), IDOK);
    EXPECT_STREQ(dlg.text, "Öl");
    EXPECT_EQ(dlg.number, 17);
    EXPECT_EQ(dlg.unsignedNumber, 123u);
    EXPECT_EQ(dlg.longNumber, 99L);
    EXPECT_EQ(dlg.word, 0u);
    EXPECT_DOUBLE_EQ(dlg.real, -1500.0);
    EXPECT_EQ(dlg.check, 0);
    EXPECT_EQ(dlg.radio, 2);
    EXPECT_TRUE(CTestApp::Get().MessageBoxes().empty());
}

TEST_F(DialogTest, RadioGroupWithNothingCheckedReadsMinusOne)
{
    CDataDialog dlg;
    dlg.radio = -1;
    DialogDriver driver;
    driver.OnDialog([](DialogHandle& d) {
        EXPECT_EQ(d.Check(IDC_DDX_RADIO1) + d.Check(IDC_DDX_RADIO2) + d.Check(IDC_DDX_RADIO3), 0);
        d.Click(IDOK);
    });
    EXPECT_EQ(dlg.DoModal(), IDOK);
    EXPECT_EQ(dlg.radio, -1);
}

// A failed parse or validation shows the framework's text, puts the focus
// on the field and keeps the dialog open with the members unchanged.
TEST_F(DialogTest, FailedValidationKeepsTheDialogOpenAndNamesTheProblem)
{
    struct Case
    {
        int control;
        const char* input;
        const char* message;
        UINT helpId;
        bool range;
        bool length;
    } cases[] = {
        {IDC_DDX_INT, "12abc", "Please enter an integer.", AFX_IDP_PARSE_INT, false, false},
        {IDC_DDX_INT, "", "Please enter an integer.", AFX_IDP_PARSE_INT, false, false},
        {IDC_DDX_INT, "99999999999", "Please enter an integer.", AFX_IDP_PARSE_INT, false, false},
        {IDC_DDX_INT, "101", "Please enter an integer between 1 and 100.", AFX_IDP_PARSE_INT_RANGE, true, false},
        {IDC_DDX_UINT, "-1", "Please enter a positive integer.", AFX_IDP_PARSE_UINT, false, false},
        {IDC_DDX_DWORD, "4294967296", "Please enter a positive integer.", AFX_IDP_PARSE_UINT, false, false},
        // The C locale's decimal point: a German decimal comma does not parse.
        {IDC_DDX_DOUBLE, "3,5", "Please enter a number.", AFX_IDP_PARSE_REAL, false, false},
        {IDC_DDX_TEXT, "zu lang", "Please enter no more than 5 characters.", AFX_IDP_PARSE_STRING_SIZE, false, true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.input);
        CTestApp::Get().Reset();
        CDataDialog dlg;
        dlg.number = 7;
        dlg.validateRange = c.range;
        dlg.validateLength = c.length;
        dlg.text = "kurz";
        DialogDriver driver;
        bool openAfterFailure = false;
        bool focusOnField = false;
        driver.OnDialog([&](DialogHandle& d) {
            d.SetText(c.control, c.input);
            d.Click(IDOK);
            openAfterFailure = d.IsOpen();
            focusOnField = d.Focus() == d.Item(c.control);
            d.Click(IDCANCEL);
        });

        EXPECT_EQ(dlg.DoModal(), IDCANCEL);
        EXPECT_TRUE(openAfterFailure);
        EXPECT_TRUE(focusOnField);
        // A DDV_ check comes after its DDX_ has stored the value; a failed
        // parse stores nothing.
        EXPECT_EQ(dlg.number, c.range ? 101 : 7);
        const auto& boxes = CTestApp::Get().MessageBoxes();
        ASSERT_EQ(boxes.size(), 1u);
        EXPECT_STREQ(boxes[0].text, c.message);
        EXPECT_EQ(boxes[0].helpId, c.helpId);
        EXPECT_EQ(boxes[0].type & MB_ICONMASK, static_cast<UINT>(MB_ICONEXCLAMATION));
    }
}

TEST_F(DialogTest, CorrectedInputIsAcceptedAfterAFailure)
{
    CDataDialog dlg;
    DialogDriver driver;
    driver.OnDialog([](DialogHandle& d) {
        d.SetText(IDC_DDX_INT, "x");
        d.Click(IDOK);
        ASSERT_TRUE(d.IsOpen());
        d.SetText(IDC_DDX_INT, "8");
        d.Click(IDOK);
        EXPECT_FALSE(d.IsOpen());
    });
    EXPECT_EQ(dlg.DoModal(), IDOK);
    EXPECT_EQ(dlg.number, 8);
    EXPECT_EQ(CTestApp::Get().MessageBoxes().size(), 1u);
}

TEST_F(DialogTest, UpdateDataHoldsBackTheNotificationsItCauses)
{
    CEventDialog dlg;
    ASSERT_TRUE(dlg.Create(IDD_TEST_EVENTS));
    dlg.exchangeEdit = true;

    dlg.editText = "eins";
    EXPECT_TRUE(dlg.UpdateData(FALSE));
    EXPECT_EQ(dlg.editChanges, 0);
    CString text;
    dlg.GetDlgItemText(IDC_EV_EDIT, text);
    EXPECT_STREQ(text, "eins");

    // The same exchange outside UpdateData is seen.
    CDataExchange dx(&dlg, FALSE);
    CString other = "zwei";
    DDX_Text(&dx, IDC_EV_EDIT, other);
    EXPECT_EQ(dlg.editChanges, 1);
    // An unchanged text is not set again.
    DDX_Text(&dx, IDC_EV_EDIT, other);
    EXPECT_EQ(dlg.editChanges, 1);
    dlg.DestroyWindow();
}

TEST_F(DialogTest, DataExchangeOfAMissingControlFailsUpdateData)
{
    class CBrokenDialog : public CDialog
    {
    public:
        CBrokenDialog() : CDialog(IDD_TEST_EVENTS) {}
        void DoDataExchange(CDataExchange* pDX) override
        {
            int value = 0;
            DDX_Text(pDX, 4711, value);
        }
    };
    CBrokenDialog dlg;
    // OnInitDialog's UpdateData(FALSE) fails and ends the dialog with -1.
    EXPECT_EQ(dlg.DoModal(), -1);
    ASSERT_EQ(CTestApp::Get().MessageBoxes().size(), 1u);
    EXPECT_EQ(CTestApp::Get().MessageBoxes()[0].helpId, static_cast<UINT>(AFX_IDP_INTERNAL_FAILURE));
}

TEST_F(DialogTest, DriverCancelsADialogItsScriptLeftOpen)
{
    CEventDialog dlg;
    DialogDriver driver;
    driver.OnDialog([](DialogHandle& d) { EXPECT_EQ(d.Caption(), "Ereignisse"); });
    EXPECT_EQ(dlg.DoModal(), IDCANCEL);
    EXPECT_EQ(driver.LeftOpen(), 1);
    EXPECT_FALSE(driver.TimedOut());
}

}  // namespace
