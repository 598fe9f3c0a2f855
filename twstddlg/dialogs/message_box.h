// CMessageBox: the yes/no question whose answer the user may make
// permanent, and the plain information box with one "Ok" button.
#pragma once
#include "twstddlg_api.h"
#include "dialogs/message_box_style.h"

#ifdef _WIN32
#include "afxwin.h"

// A modal yes/no question the user may silence; style bits in twmsgbox.
// DoModal answers 6 (Yes), 7 (No), 14 (Yes to all), 1 ("Ok" of the
// single-button mode) or 2 (Escape or the close box).
class TWSTDDLG_API CMessageBox : public CDialog
{
public:
    enum
    {
        kYesToAll = twmsgbox::kAnswerYesAll
    };

    // An empty box with style 1 (Yes to all, no check box) and number 0.
    // Not explicit, like the framework's dialogs made from their parent.
    CMessageBox(CWnd* parent);
    // A question with its number and caption (which name its profile value).
    CMessageBox(CWnd* parent, int messageId, const char* caption, const char* message, int style);

    // Sets the help context offset; F1 opens help context helpId + 0x20000.
    void SetHelpId(int helpId);

protected:
    BOOL OnInitDialog() override;
    BOOL PreTranslateMessage(MSG* msg) override;
    void DoDataExchange(CDataExchange* dx) override;

    afx_msg void OnYes();
    afx_msg void OnNo();
    afx_msg void OnYesall();
    afx_msg void OnDestroy();
    DECLARE_MESSAGE_MAP()

private:
    CString getSettingsName() const;
    void loadIcon();

    CString m_sCaption;
    CString m_sMessage;
    CButton m_btnDontShow;
    CButton m_btnYesAll;
    CButton m_btnYes;
    CButton m_btnNo;
    CString m_sText;
    BOOL m_bDontShow = FALSE;
    HICON m_hIcon = nullptr;
    UINT m_nStyle;
    int m_nMessageId;
    int m_nHelpId = 0;
};
#endif
