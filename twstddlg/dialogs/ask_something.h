// CAskSomething: one question about one item of a series, answered for this
// item or for all that remain.
#pragma once
#include "twstddlg_api.h"

#ifdef _WIN32
#include "afxwin.h"

// A modal question answered with 1 (yes), 12 (yes to all), 7 (no),
// 13 (no to all) or 2 (cancel); callers keep "no to all" in m_bNoToAll.
class TWSTDDLG_API CAskSomething : public CDialog
{
public:
    enum
    {
        kYesToAll = 12,
        kNoToAll = 13
    };

    // The question, shown centred above the answers.
    CAskSomething(CString question, CWnd* parent);

    // When non-zero, DoModal answers kNoToAll at once without showing.
    int m_bNoToAll = 0;

    // Shows the question modally and returns the answer.
    INT_PTR DoModal() override;

protected:
    BOOL PreTranslateMessage(MSG* msg) override;
    void DoDataExchange(CDataExchange* dx) override;

    afx_msg void OnNo();
    afx_msg void OnYesToAll();
    afx_msg void OnNoToAll();
    afx_msg BOOL OnHelpInfo(HELPINFO* info);
    DECLARE_MESSAGE_MAP()

private:
    CString m_sQuestion;
};
#endif
