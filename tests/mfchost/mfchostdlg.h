// mfchostdlg.h : header file
//

#pragma once


// CMfcHostDlg dialog
class CMfcHostDlg : public CDialog
{
// Construction
public:
	CMfcHostDlg(CWnd* pParent = NULL);	// standard constructor

// Dialog Data
	enum { IDD = IDD_MFCHOST_DIALOG };

	// What the handlers saw, for the application to check afterwards.
	int m_nRunClicks;
	int m_nBareClicks;
	int m_nCountCommands;
	int m_nPickCommands;
	UINT m_nLastRadio;
	int m_nItemChanges;
	int m_nScrollPos;
	int m_nMenuPopups;
	BOOL m_bCountChecked;
	BOOL m_bAboutInSystemMenu;
	BOOL m_bIconSet;
	BOOL m_bTopMostToggled;
	int m_nHeaderColumns;
	INT_PTR m_nAboutResult;

	protected:
	virtual void DoDataExchange(CDataExchange* pDX);	// DDX/DDV support


// Implementation
protected:
	HICON m_hIcon;
	CListCtrl m_list;
	CString m_strName;

	// Generated message map functions
	virtual BOOL OnInitDialog();
	afx_msg void OnSysCommand(UINT nID, LPARAM lParam);
	afx_msg void OnPaint();
	afx_msg HCURSOR OnQueryDragIcon();
	afx_msg void OnRun();
	afx_msg void OnBare();
	afx_msg void OnToolsCount();
	afx_msg void OnUpdateToolsCount(CCmdUI* pCmdUI);
	afx_msg void OnPick();
	afx_msg void OnPick(UINT nID);
	afx_msg void OnItemChangedList(NMHDR* pNMHDR, LRESULT* pResult);
	afx_msg void OnHScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar);
	afx_msg void OnInitMenuPopup(CMenu* pPopupMenu, UINT nIndex, BOOL bSysMenu);
	afx_msg LRESULT OnRunScript(WPARAM wParam, LPARAM lParam);
	afx_msg LRESULT OnCloseAbout(WPARAM wParam, LPARAM lParam);
	DECLARE_MESSAGE_MAP()
};
