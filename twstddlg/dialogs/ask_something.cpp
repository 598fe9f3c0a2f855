#include "dialogs/ask_something.h"

#include "res/resource.h"

static_assert(CAskSomething::kYesToAll == IDC_ASK_YES_ALL && CAskSomething::kNoToAll == IDC_ASK_NO_ALL);

namespace {

// Help contexts of the library's dialogs start here.
constexpr DWORD_PTR kHelpContextBase = 0x20000;

bool keyHeld(int vk)
{
    return ::GetKeyState(vk) < 0;
}

}  // namespace

BEGIN_MESSAGE_MAP(CAskSomething, CDialog)
    ON_BN_CLICKED(IDNO, OnNo)
    ON_BN_CLICKED(IDC_ASK_YES_ALL, OnYesToAll)
    ON_BN_CLICKED(IDC_ASK_NO_ALL, OnNoToAll)
    ON_WM_HELPINFO()
END_MESSAGE_MAP()

CAskSomething::CAskSomething(CString question, CWnd* parent) : CDialog(IDD_ASK_SOMETHING, parent), m_sQuestion(question)
{}

INT_PTR CAskSomething::DoModal()
{
    if (m_bNoToAll != 0)
        return kNoToAll;
    return CDialog::DoModal();
}

void CAskSomething::DoDataExchange(CDataExchange* dx)
{
    CDialog::DoDataExchange(dx);
    DDX_Text(dx, IDC_ASK_QUESTION, m_sQuestion);
}

BOOL CAskSomething::PreTranslateMessage(MSG* msg)
{
    if (msg->message == WM_KEYDOWN && msg->wParam == VK_F1 && !keyHeld(VK_SHIFT) && !keyHeld(VK_CONTROL) &&
        !keyHeld(VK_MENU)) {
        WinHelp(kHelpContextBase + IDD_ASK_SOMETHING, HELP_CONTEXT);
        return TRUE;
    }
    return CDialog::PreTranslateMessage(msg);
}

BOOL CAskSomething::OnHelpInfo(HELPINFO*)
{
    WinHelp(kHelpContextBase + IDD_ASK_SOMETHING, HELP_CONTEXT);
    return TRUE;
}

void CAskSomething::OnNo()
{
    EndDialog(IDNO);
}

void CAskSomething::OnYesToAll()
{
    EndDialog(kYesToAll);
}

void CAskSomething::OnNoToAll()
{
    EndDialog(kNoToAll);
}
