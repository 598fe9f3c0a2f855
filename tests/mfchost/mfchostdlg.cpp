// mfchostdlg.cpp : implementation file
//

#include "stdafx.h"
#include "mfchost.h"
#include "mfchostdlg.h"

#ifdef _DEBUG
#define new DEBUG_NEW
#endif

// Posted by OnInitDialog: the dialog drives itself, as a user would.
#define WM_RUN_SCRIPT (WM_APP + 1)
// Posted before the About box opens: clicks its OK button.
#define WM_CLOSE_ABOUT (WM_APP + 2)


// CAboutDlg dialog used for App About

class CAboutDlg : public CDialog
{
public:
	CAboutDlg();

// Dialog Data
	enum { IDD = IDD_ABOUTBOX };

	protected:
	virtual void DoDataExchange(CDataExchange* pDX);    // DDX/DDV support

// Implementation
protected:
	DECLARE_MESSAGE_MAP()
};

CAboutDlg::CAboutDlg() : CDialog(CAboutDlg::IDD)
{
}

void CAboutDlg::DoDataExchange(CDataExchange* pDX)
{
	CDialog::DoDataExchange(pDX);
}

BEGIN_MESSAGE_MAP(CAboutDlg, CDialog)
END_MESSAGE_MAP()


// CMfcHostDlg dialog

CMfcHostDlg::CMfcHostDlg(CWnd* pParent /*=NULL*/)
	: CDialog(CMfcHostDlg::IDD, pParent)
	, m_nRunClicks(0)
	, m_nBareClicks(0)
	, m_nCountCommands(0)
	, m_nPickCommands(0)
	, m_nLastRadio(0)
	, m_nItemChanges(0)
	, m_nScrollPos(0)
	, m_nMenuPopups(0)
	, m_bCountChecked(FALSE)
	, m_bAboutInSystemMenu(FALSE)
	, m_bIconSet(FALSE)
	, m_bTopMostToggled(FALSE)
	, m_nHeaderColumns(0)
	, m_nAboutResult(-1)
	, m_strName(_T("World"))
{
	m_hIcon = AfxGetApp()->LoadStandardIcon(IDI_APPLICATION);
}

void CMfcHostDlg::DoDataExchange(CDataExchange* pDX)
{
	CDialog::DoDataExchange(pDX);
	DDX_Control(pDX, IDC_LIST, m_list);
}

BEGIN_MESSAGE_MAP(CMfcHostDlg, CDialog)
	ON_WM_SYSCOMMAND()
	ON_WM_PAINT()
	ON_WM_QUERYDRAGICON()
	ON_BN_CLICKED(IDC_RUN, &CMfcHostDlg::OnRun)
	ON_BN_CLICKED(IDC_BARE, OnBare)
	// An inherited handler, named bare as older code names it.
	ON_BN_CLICKED(IDC_CLOSE, OnCancel)
	ON_COMMAND(ID_TOOLS_COUNT, &CMfcHostDlg::OnToolsCount)
	ON_UPDATE_COMMAND_UI(ID_TOOLS_COUNT, OnUpdateToolsCount)
	// Overloads: the entry's handler type picks the one that fits.
	ON_COMMAND(ID_TOOLS_PICK, OnPick)
	ON_COMMAND_RANGE(IDC_RADIO1, IDC_RADIO3, &CMfcHostDlg::OnPick)
	ON_NOTIFY(LVN_ITEMCHANGED, IDC_LIST, &CMfcHostDlg::OnItemChangedList)
	ON_WM_HSCROLL()
	ON_WM_INITMENUPOPUP()
	ON_MESSAGE(WM_RUN_SCRIPT, &CMfcHostDlg::OnRunScript)
	ON_MESSAGE(WM_CLOSE_ABOUT, &CMfcHostDlg::OnCloseAbout)
END_MESSAGE_MAP()


// CMfcHostDlg message handlers

BOOL CMfcHostDlg::OnInitDialog()
{
	CDialog::OnInitDialog();

	// Add "About..." menu item to system menu.

	// IDM_ABOUTBOX must be in the system command range.
	ASSERT((IDM_ABOUTBOX & 0xFFF0) == IDM_ABOUTBOX);
	ASSERT(IDM_ABOUTBOX < 0xF000);

	CMenu* pSysMenu = GetSystemMenu(FALSE);
	if (pSysMenu != NULL)
	{
		BOOL bNameValid;
		CString strAboutMenu;
		bNameValid = strAboutMenu.LoadString(IDS_ABOUTBOX);
		ASSERT(bNameValid);
		if (!strAboutMenu.IsEmpty())
		{
			pSysMenu->AppendMenu(MF_SEPARATOR);
			pSysMenu->AppendMenu(MF_STRING, IDM_ABOUTBOX, strAboutMenu);
		}
		m_bAboutInSystemMenu = pSysMenu->GetMenuState(IDM_ABOUTBOX, MF_BYCOMMAND) != (UINT)-1;
	}

	// Set the icon for this dialog.  The framework does this automatically
	//  when the application's main window is not a dialog
	SetIcon(m_hIcon, TRUE);			// Set big icon
	SetIcon(m_hIcon, FALSE);		// Set small icon
	m_bIconSet = GetIcon(TRUE) == m_hIcon;

	ASSERT_VALID(this);
	VERIFY(m_list.InsertColumn(0, _T("Name"), LVCFMT_LEFT, 120) == 0);
	VERIFY(m_list.InsertColumn(1, _T("Value"), LVCFMT_LEFT, 80) == 1);
	m_list.InsertItem(0, _T("first"));
	m_list.InsertItem(1, _T("second"));
	CHeaderCtrl* pHeader = m_list.GetHeaderCtrl();
	if (pHeader != NULL)
		m_nHeaderColumns = pHeader->GetItemCount();

	CScrollBar* pScroll = (CScrollBar*)GetDlgItem(IDC_SCROLL);
	pScroll->SetScrollRange(0, 100);

	PostMessage(WM_RUN_SCRIPT);

	return TRUE;  // return TRUE  unless you set the focus to a control
}

void CMfcHostDlg::OnSysCommand(UINT nID, LPARAM lParam)
{
	if ((nID & 0xFFF0) == IDM_ABOUTBOX)
	{
		CAboutDlg dlgAbout;
		m_nAboutResult = dlgAbout.DoModal();
	}
	else
	{
		CDialog::OnSysCommand(nID, lParam);
	}
}

// If you add a minimize button to your dialog, you will need the code below
//  to draw the icon.  For MFC applications using the document/view model,
//  this is automatically done for you by the framework.

void CMfcHostDlg::OnPaint()
{
	if (IsIconic())
	{
		CPaintDC dc(this); // device context for painting

		SendMessage(WM_ICONERASEBKGND, reinterpret_cast<WPARAM>(dc.GetSafeHdc()), 0);

		// Center icon in client rectangle
		int cxIcon = GetSystemMetrics(SM_CXICON);
		int cyIcon = GetSystemMetrics(SM_CYICON);
		CRect rect;
		GetClientRect(&rect);
		int x = (rect.Width() - cxIcon + 1) / 2;
		int y = (rect.Height() - cyIcon + 1) / 2;

		// Draw the icon
		dc.DrawIcon(x, y, m_hIcon);
	}
	else
	{
		CDialog::OnPaint();
	}
}

// The system calls this function to obtain the cursor to display while the user drags
//  the minimized window.
HCURSOR CMfcHostDlg::OnQueryDragIcon()
{
	return static_cast<HCURSOR>(m_hIcon);
}

void CMfcHostDlg::OnRun()
{
	m_nRunClicks++;
	TRACE(_T("Run clicked by %s, %d time(s)\n"), m_strName, m_nRunClicks);
}

void CMfcHostDlg::OnBare()
{
	m_nBareClicks++;
}

void CMfcHostDlg::OnToolsCount()
{
	m_nCountCommands++;
}

void CMfcHostDlg::OnUpdateToolsCount(CCmdUI* pCmdUI)
{
	pCmdUI->SetCheck(m_nCountCommands > 0);
}

void CMfcHostDlg::OnPick()
{
	m_nPickCommands++;
}

void CMfcHostDlg::OnPick(UINT nID)
{
	m_nLastRadio = nID;
}

void CMfcHostDlg::OnItemChangedList(NMHDR* pNMHDR, LRESULT* pResult)
{
	LPNMLISTVIEW pNMLV = reinterpret_cast<LPNMLISTVIEW>(pNMHDR);
	if ((pNMLV->uChanged & LVIF_STATE) && (pNMLV->uNewState & LVIS_SELECTED))
		m_nItemChanges++;
	*pResult = 0;
}

void CMfcHostDlg::OnHScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar)
{
	if (pScrollBar != NULL && pScrollBar->GetDlgCtrlID() == IDC_SCROLL)
	{
		int nCurrent = pScrollBar->GetScrollPos();
		switch (nSBCode)
		{
		case SB_LINERIGHT:
			nCurrent += 1;
			break;
		case SB_PAGERIGHT:
			nCurrent += 10;
			break;
		case SB_THUMBPOSITION:
		case SB_THUMBTRACK:
			nCurrent = nPos;
			break;
		}
		pScrollBar->SetScrollPos(nCurrent);
		m_nScrollPos = pScrollBar->GetScrollPos();
	}
	CDialog::OnHScroll(nSBCode, nPos, pScrollBar);
}

// Dialogs do not update their menu's items by themselves: ask this
// dialog's ON_UPDATE_COMMAND_UI handlers for each item of the pop-up.
void CMfcHostDlg::OnInitMenuPopup(CMenu* pPopupMenu, UINT nIndex, BOOL bSysMenu)
{
	ASSERT(pPopupMenu != NULL);
	m_nMenuPopups++;
	if (bSysMenu)
		return;

	CCmdUI state;
	state.m_pMenu = pPopupMenu;
	state.m_nIndexMax = pPopupMenu->GetMenuItemCount();
	for (state.m_nIndex = 0; state.m_nIndex < state.m_nIndexMax; state.m_nIndex++)
	{
		state.m_nID = pPopupMenu->GetMenuItemID(state.m_nIndex);
		if (state.m_nID == 0 || state.m_nID == (UINT)-1)
			continue;	// separators and pop-ups
		state.DoUpdate(this, FALSE);
	}
}

// The script: clicks, commands, a selection, a scroll and a menu, each the
// way Windows delivers it; then the Close button ends the dialog.
LRESULT CMfcHostDlg::OnRunScript(WPARAM /*wParam*/, LPARAM /*lParam*/)
{
	SendDlgItemMessage(IDC_RUN, BM_CLICK);
	SendDlgItemMessage(IDC_RUN, BM_CLICK);
	SendDlgItemMessage(IDC_BARE, BM_CLICK);
	SendDlgItemMessage(IDC_RADIO2, BM_CLICK);

	SendMessage(WM_COMMAND, MAKEWPARAM(ID_TOOLS_COUNT, 0));
	SendMessage(WM_COMMAND, MAKEWPARAM(ID_TOOLS_PICK, 0));

	m_list.SetItemState(1, LVIS_SELECTED, LVIS_SELECTED);

	CWnd* pScroll = GetDlgItem(IDC_SCROLL);
	pScroll->SendMessage(WM_KEYDOWN, VK_RIGHT);
	pScroll->SendMessage(WM_KEYDOWN, VK_NEXT);

	CMenu* pTools = GetMenu()->GetSubMenu(0);
	SendMessage(WM_INITMENUPOPUP, (WPARAM)pTools->GetSafeHmenu(), MAKELPARAM(0, FALSE));
	m_bCountChecked = (pTools->GetMenuState(ID_TOOLS_COUNT, MF_BYCOMMAND) & MF_CHECKED) != 0;

	SetWindowPos(&wndTopMost, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
	BOOL bTopMost = (GetExStyle() & WS_EX_TOPMOST) != 0;
	SetWindowPos(&wndNoTopMost, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
	m_bTopMostToggled = bTopMost && (GetExStyle() & WS_EX_TOPMOST) == 0;

	PostMessage(WM_CLOSE_ABOUT, 10);
	SendMessage(WM_SYSCOMMAND, IDM_ABOUTBOX);

	SendDlgItemMessage(IDC_CLOSE, BM_CLICK);
	return 0;
}

// Runs inside the About box's modal loop; wParam counts the tries left.
LRESULT CMfcHostDlg::OnCloseAbout(WPARAM wParam, LPARAM /*lParam*/)
{
	CWnd* pAbout = CWnd::FindWindow(NULL, _T("About mfchost"));
	if (pAbout != NULL)
		pAbout->SendDlgItemMessage(IDOK, BM_CLICK);
	else if (wParam > 0)
		PostMessage(WM_CLOSE_ABOUT, wParam - 1);
	return 0;
}
