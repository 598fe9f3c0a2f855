#include "dialogs/message_box.h"

#include "dialogs/message_box_layout.h"
#include "res/resource.h"

namespace {

// Help contexts of the library's dialogs start here.
constexpr DWORD_PTR kHelpContextBase = 0x20000;
// The host application's icon, shown in the caption.
constexpr UINT kApplicationIcon = 128;

bool keyHeld(int vk)
{
    return ::GetKeyState(vk) < 0;
}

}  // namespace

BEGIN_MESSAGE_MAP(CMessageBox, CDialog)
    ON_BN_CLICKED(IDYES, OnYes)
    ON_BN_CLICKED(IDNO, OnNo)
    ON_BN_CLICKED(IDC_MB_YES_ALL, OnYesall)
    ON_WM_DESTROY()
END_MESSAGE_MAP()

CMessageBox::CMessageBox(CWnd* parent)
    : CDialog(IDD_MESSAGE_BOX, parent), m_nStyle(twmsgbox::kStyleYesAll), m_nMessageId(0)
{
    loadIcon();
}

CMessageBox::CMessageBox(CWnd* parent, int messageId, const char* caption, const char* message, int style)
    : CDialog(IDD_MESSAGE_BOX, parent), m_sCaption(caption), m_sMessage(message), m_nStyle(static_cast<UINT>(style)),
      m_nMessageId(messageId)
{
    loadIcon();
}

void CMessageBox::SetHelpId(int helpId)
{
    m_nHelpId = helpId;
}

void CMessageBox::loadIcon()
{
    LPCSTR name = MAKEINTRESOURCEA(kApplicationIcon);
    m_hIcon = ::LoadIconA(AfxFindResourceHandle(name, RT_GROUP_ICON), name);
}

CString CMessageBox::getSettingsName() const
{
    return twmsgbox::SettingsName(m_sCaption, m_nMessageId);
}

void CMessageBox::DoDataExchange(CDataExchange* dx)
{
    CDialog::DoDataExchange(dx);
    DDX_Control(dx, IDC_MB_DONT_SHOW, m_btnDontShow);
    DDX_Control(dx, IDC_MB_YES_ALL, m_btnYesAll);
    DDX_Control(dx, IDYES, m_btnYes);
    DDX_Control(dx, IDNO, m_btnNo);
    DDX_Text(dx, IDC_MB_TEXT, m_sText);
    DDX_Check(dx, IDC_MB_DONT_SHOW, m_bDontShow);
}

BOOL CMessageBox::OnInitDialog()
{
    CDialog::OnInitDialog();

    if (m_hIcon != nullptr) {
        SendMessage(WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(m_hIcon));
        SendMessage(WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(m_hIcon));
    }
    SetWindowText(m_sCaption);
    m_sText = m_sMessage;
    m_bDontShow = AfxGetApp()->GetProfileInt(twmsgbox::kProfileSection, getSettingsName(), 0) != 0;

    const twmsgbox::Layout layout = twmsgbox::LayoutFor(m_nStyle);
    if (!layout.showYesAll)
        m_btnYesAll.ShowWindow(SW_HIDE);
    if (layout.yesAllIsOk) {
        m_btnYesAll.ShowWindow(SW_SHOW);
        m_btnYesAll.SetWindowText("Ok");
        m_btnYes.ShowWindow(SW_HIDE);
        m_btnNo.ShowWindow(SW_HIDE);
    }
    if (!layout.showCheckBox) {
        m_btnDontShow.ShowWindow(SW_HIDE);
    } else if (m_bDontShow) {
        // Deliberate: ends before the stored choice reaches the check box, so
        // the silence holds for this one showing (see OnDestroy).
        EndDialog(twmsgbox::SilencedAnswer(m_nStyle));
        return FALSE;
    }

    SetDefID(static_cast<UINT>(layout.defaultButton));
    UpdateData(FALSE);
    return TRUE;
}

BOOL CMessageBox::PreTranslateMessage(MSG* msg)
{
    if (msg->message == WM_KEYDOWN && msg->wParam == VK_F1 && !keyHeld(VK_SHIFT) && !keyHeld(VK_CONTROL) &&
        !keyHeld(VK_MENU)) {
        WinHelp(kHelpContextBase + static_cast<DWORD_PTR>(m_nHelpId), HELP_CONTEXT);
        return TRUE;
    }
    return CDialog::PreTranslateMessage(msg);
}

void CMessageBox::OnYes()
{
    EndDialog(twmsgbox::kAnswerYes);
}

void CMessageBox::OnNo()
{
    EndDialog(twmsgbox::kAnswerNo);
}

void CMessageBox::OnYesall()
{
    EndDialog(twmsgbox::YesAllAnswer(m_nStyle));
}

void CMessageBox::OnDestroy()
{
    // Deliberate: written on every close and read from the control even when
    // hidden, so a silenced question writes 0 and is asked again next time.
    AfxGetApp()->WriteProfileInt(twmsgbox::kProfileSection, getSettingsName(), m_btnDontShow.GetCheck());
    CDialog::OnDestroy();
}
