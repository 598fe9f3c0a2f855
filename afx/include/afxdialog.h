// Dialogs and dialog data exchange: CDialog (modal and modeless),
// CDataExchange and the DDX_/DDV_ functions.
#pragma once

#include "afxwnd.h"
#include "afxres.h"

// A dialog from a template: modal through DoModal (the framework's own loop,
// in which PreTranslateMessage sees every message before IsDialogMessage),
// modeless through Create.
class AFX_API CDialog : public CWnd
{
    DECLARE_DYNAMIC(CDialog)

public:
    CDialog();
    explicit CDialog(LPCTSTR lpszTemplateName, CWnd* pParentWnd = NULL);
    explicit CDialog(UINT nIDTemplate, CWnd* pParentWnd = NULL);
    ~CDialog() override;

    LPCTSTR m_lpszTemplateName;
    HGLOBAL m_hDialogTemplate;
    LPCDLGTEMPLATE m_lpDialogTemplate;
    void* m_lpDialogInit;
    CWnd* m_pParentWnd;
    HWND m_hWndTop;
    UINT m_nIDHelp;

    // Modeless creation from the template found along the resource chain.
    virtual BOOL Create(LPCTSTR lpszTemplateName, CWnd* pParentWnd = NULL);
    virtual BOOL Create(UINT nIDTemplate, CWnd* pParentWnd = NULL);
    virtual BOOL CreateIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd = NULL, void* lpDialogInit = NULL);
    virtual BOOL CreateIndirect(HGLOBAL hDialogTemplate, CWnd* pParentWnd = NULL);
    // For a dialog run with DoModal from a template in memory.
    BOOL InitModalIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd = NULL, void* lpDialogInit = NULL);
    BOOL InitModalIndirect(HGLOBAL hDialogTemplate, CWnd* pParentWnd = NULL);

    // Shows the dialog modally and returns the EndDialog result; -1 when
    // the template is missing or the dialog could not be created.
    virtual INT_PTR DoModal();
    void EndDialog(int nResult);

    void GotoDlgCtrl(CWnd* pWndCtrl);
    void NextDlgCtrl() const;
    void PrevDlgCtrl() const;
    void SetDefID(UINT nID);
    DWORD GetDefID() const;
    void MapDialogRect(LPRECT lpRect) const;
    void SetHelpID(UINT nIDR) { m_nIDHelp = nIDR; }

    // Called for WM_INITDIALOG; transfers data into the controls (UpdateData(FALSE)).
    virtual BOOL OnInitDialog();
    virtual void OnSetFont(CFont* pFont);
    BOOL PreTranslateMessage(MSG* pMsg) override;
    BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo) override;

protected:
    // IDOK: validates and stores the data (UpdateData(TRUE)), then EndDialog(IDOK).
    virtual void OnOK();
    // IDCANCEL: EndDialog(IDCANCEL).
    virtual void OnCancel();
    // The owner the modal dialog disables: the parent's top-level window,
    // else the main window.
    HWND PreModal();
    void PostModal();

    afx_msg LRESULT HandleInitDialog(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT HandleSetFont(WPARAM wParam, LPARAM lParam);

    DECLARE_MESSAGE_MAP()

private:
    void Init(CWnd* pParentWnd);
};

// The context of one UpdateData: direction, dialog and the last control
// exchanged (where Fail puts the focus).
class AFX_API CDataExchange
{
public:
    CDataExchange(CWnd* pDlgWnd, BOOL bSaveAndValidate);

    BOOL m_bSaveAndValidate;
    CWnd* m_pDlgWnd;
    UINT m_idLastControl;
    BOOL m_bEditLastControl;

    // The control nIDC, which becomes the last control; throws
    // CNotSupportedException if the dialog has no such control.
    HWND PrepareCtrl(int nIDC);
    // As PrepareCtrl for an edit control: Fail selects its text.
    HWND PrepareEditCtrl(int nIDC);
    // Ends a failed validation: focus (and selection) back to the last
    // control, then throws CUserException. The caller has told the user.
    [[noreturn]] void Fail();
};

// Text of control nIDC <-> value. Numbers are read as the C locale reads
// them (a decimal point, not a comma), with white space around allowed;
// anything else shows "Please enter an integer." or "Please enter a
// number." through AfxMessageBox and fails.
AFX_API void DDX_Text(CDataExchange* pDX, int nIDC, CString& value);
AFX_API void DDX_Text(CDataExchange* pDX, int nIDC, int& value);
AFX_API void DDX_Text(CDataExchange* pDX, int nIDC, UINT& value);
AFX_API void DDX_Text(CDataExchange* pDX, int nIDC, long& value);
AFX_API void DDX_Text(CDataExchange* pDX, int nIDC, DWORD& value);
AFX_API void DDX_Text(CDataExchange* pDX, int nIDC, BYTE& value);
AFX_API void DDX_Text(CDataExchange* pDX, int nIDC, short& value);
AFX_API void DDX_Text(CDataExchange* pDX, int nIDC, float& value);
AFX_API void DDX_Text(CDataExchange* pDX, int nIDC, double& value);
AFX_API void DDX_Text(CDataExchange* pDX, int nIDC, LPTSTR value, int nMaxLen);
// Check state of a check box (0, 1, 2).
AFX_API void DDX_Check(CDataExchange* pDX, int nIDC, int& value);
// Index of the checked radio button of the group that starts at nIDC; -1 for none.
AFX_API void DDX_Radio(CDataExchange* pDX, int nIDC, int& value);
// Subclasses control nIDC with rControl the first time.
AFX_API void DDX_Control(CDataExchange* pDX, int nIDC, CWnd& rControl);

// Validation after the DDX_ call of the same control.
AFX_API void DDV_MaxChars(CDataExchange* pDX, const CString& value, int nChars);
AFX_API void DDV_MinMaxInt(CDataExchange* pDX, int value, int minVal, int maxVal);
AFX_API void DDV_MinMaxUInt(CDataExchange* pDX, UINT value, UINT minVal, UINT maxVal);
AFX_API void DDV_MinMaxLong(CDataExchange* pDX, long value, long minVal, long maxVal);
AFX_API void DDV_MinMaxDWord(CDataExchange* pDX, DWORD value, DWORD minVal, DWORD maxVal);
AFX_API void DDV_MinMaxDouble(CDataExchange* pDX, const double& value, double minVal, double maxVal);
