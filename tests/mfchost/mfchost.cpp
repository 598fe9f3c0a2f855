// mfchost.cpp : Defines the class behaviors for the application.
//
// A dialog-based application written as the framework's wizard writes
// one. Its checks print "ok ..." or "FAILED ..." and a summary line; the
// exit code is the number of failures.

#include "stdafx.h"
#include "mfchost.h"
#include "mfchostdlg.h"
#include "greeting/greeting.h"

#include <cstdio>

#ifdef _DEBUG
#define new DEBUG_NEW
#endif


// An exception of the application's own, counting its deletions.
class CHostException : public CException
{
	DECLARE_DYNAMIC(CHostException)

public:
	virtual ~CHostException() { s_nDeleted++; }

	static int s_nDeleted;
};

IMPLEMENT_DYNAMIC(CHostException, CException)

int CHostException::s_nDeleted = 0;


// A record created by class name.
class CHostRecord : public CObject
{
	DECLARE_DYNCREATE(CHostRecord)

public:
	CHostRecord() : m_nValue(17) {}

	virtual void AssertValid() const
	{
		CObject::AssertValid();
		ASSERT(m_nValue == 17);
	}

	int m_nValue;
};

IMPLEMENT_DYNCREATE(CHostRecord, CObject)


// CMfcHostApp

BEGIN_MESSAGE_MAP(CMfcHostApp, CWinApp)
	ON_COMMAND(ID_HELP, &CWinApp::OnHelp)
END_MESSAGE_MAP()


// CMfcHostApp construction

CMfcHostApp::CMfcHostApp()
	: m_nFailures(0)
{
	// TODO: add construction code here,
	// Place all significant initialization in InitInstance
}


// The one and only CMfcHostApp object

CMfcHostApp theApp;


void CMfcHostApp::Check(BOOL bOk, LPCTSTR lpszWhat)
{
	std::printf("%s %s\n", bOk ? "ok" : "FAILED", lpszWhat);
	if (!bOk)
		m_nFailures++;
}

void CMfcHostApp::CheckStrings()
{
	CString strName(_T("World"));
	CString strText;

	strText.Format(_T("%s has %d letters"), strName, strName.GetLength());
	Check(strText == _T("World has 5 letters"), _T("Format with a CString argument"));

	strText.AppendFormat(_T(", %s again"), strName);
	Check(strText == _T("World has 5 letters, World again"), _T("AppendFormat with a CString argument"));

	strText.Format(IDS_GREETING, strName, 3);
	Check(strText == _T("Hello World, 3 times"), _T("Format from a string resource"));

	strText.FormatMessage(_T("%1!d! of %2!d! say: %3%!"), 4, 5, strName);
	Check(strText == _T("4 of 5 say: World!"), _T("FormatMessage with inserts"));

	strText.FormatMessage(IDS_MESSAGE, strName, 7);
	Check(strText == _T("World greets 7"), _T("FormatMessage from a string resource"));

	Check(strName.Find(_T("")) == 0 && strName.Find(_T(""), 2) == 2, _T("Find of an empty string"));

	TRACE(_T("%s traced %d\n"), strName, 1);
	TRACE1("%d traced\n", 2);

	CGreeting greeting;
	Check(greeting.Greet(strName) == _T("Hello, World (x2)"), _T("AFX_EXT_CLASS class of an extension DLL"));
}

void CMfcHostApp::CheckExceptions()
{
	// CATCH binds a pointer; END_CATCH deletes the exception.
	BOOL bCaught = FALSE;
	TRY
	{
		THROW(new CHostException);
	}
	CATCH(CFileException, e)
	{
		UNREFERENCED_PARAMETER(e);
	}
	AND_CATCH(CHostException, e)
	{
		bCaught = e->IsKindOf(RUNTIME_CLASS(CHostException));
	}
	END_CATCH
	Check(bCaught && CHostException::s_nDeleted == 1, _T("TRY/AND_CATCH caught and deleted"));

	// THROW_LAST passes the same exception on, undeleted.
	BOOL bOuter = FALSE;
	TRY
	{
		TRY
		{
			THROW(new CHostException);
		}
		CATCH_ALL(e)
		{
			THROW_LAST();
		}
		END_CATCH_ALL
	}
	CATCH(CHostException, e)
	{
		bOuter = CHostException::s_nDeleted == 1;
	}
	END_CATCH
	Check(bOuter && CHostException::s_nDeleted == 2, _T("THROW_LAST rethrows without deleting"));

	// A framework exception from a real file operation.
	int nCause = CFileException::none;
	TRY
	{
		CFile file(_T("Z:\\no\\such\\folder\\file.txt"), CFile::modeRead);
	}
	CATCH(CFileException, e)
	{
		nCause = e->m_cause;
	}
	END_CATCH
	Check(nCause == CFileException::badPath || nCause == CFileException::fileNotFound,
		_T("CATCH(CFileException, e) of a failed open"));
}

void CMfcHostApp::CheckObjects()
{
	CObject* pObject = RUNTIME_CLASS(CHostRecord)->CreateObject();
	CHostRecord* pRecord = DYNAMIC_DOWNCAST(CHostRecord, pObject);
	ASSERT_VALID(pRecord);
	Check(pRecord != NULL && pRecord->m_nValue == 17, _T("IMPLEMENT_DYNCREATE creates by class"));
	delete pObject;

	CHostException* pException = new CHostException;
	Check(pException->IsKindOf(RUNTIME_CLASS(CException)), _T("IMPLEMENT_DYNAMIC knows the base class"));
	pException->Delete();
}


// CMfcHostApp initialization

BOOL CMfcHostApp::InitInstance()
{
	// InitCommonControlsEx() is required on Windows XP if an application
	// manifest specifies use of ComCtl32.dll version 6 or later to enable
	// visual styles.  Otherwise, any window creation will fail.
	INITCOMMONCONTROLSEX InitCtrls;
	InitCtrls.dwSize = sizeof(InitCtrls);
	// Set this to include all the common control classes you want to use
	// in your application.
	InitCtrls.dwICC = ICC_WIN95_CLASSES;
	InitCommonControlsEx(&InitCtrls);

	CWinApp::InitInstance();

	CheckStrings();
	CheckExceptions();
	CheckObjects();

	CMfcHostDlg dlg;
	m_pMainWnd = &dlg;
	INT_PTR nResponse = dlg.DoModal();
	Check(nResponse == IDCANCEL, _T("the inherited OnCancel ended the dialog"));
	Check(dlg.m_nRunClicks == 2, _T("ON_BN_CLICKED with &CMfcHostDlg::OnRun"));
	Check(dlg.m_nBareClicks == 1, _T("ON_BN_CLICKED with a bare name"));
	Check(dlg.m_nLastRadio == IDC_RADIO2, _T("ON_COMMAND_RANGE picks the overload with the id"));
	Check(dlg.m_nCountCommands == 1 && dlg.m_nPickCommands == 1, _T("ON_COMMAND of menu commands"));
	Check(dlg.m_nMenuPopups == 1 && dlg.m_bCountChecked, _T("ON_UPDATE_COMMAND_UI checked the menu item"));
	Check(dlg.m_nItemChanges == 1 && dlg.m_nHeaderColumns == 2, _T("ON_NOTIFY of the list control"));
	Check(dlg.m_nScrollPos == 11, _T("ON_WM_HSCROLL moved the scroll bar"));
	Check(dlg.m_bAboutInSystemMenu, _T("GetSystemMenu took the About item"));
	Check(dlg.m_nAboutResult == IDOK, _T("ON_WM_SYSCOMMAND opened the About box, its OK closed it"));
	Check(dlg.m_bIconSet, _T("SetIcon(HICON, BOOL)"));
	Check(dlg.m_bTopMostToggled, _T("SetWindowPos with &wndTopMost and &wndNoTopMost"));

	std::printf("%s: %d failure(s)\n", m_nFailures == 0 ? "MFCHOST PASSED" : "MFCHOST FAILED", m_nFailures);
	std::fflush(stdout);

	// Since the dialog has been closed, return FALSE so that we exit the
	//  application, rather than start the application's message pump.
	return FALSE;
}

int CMfcHostApp::ExitInstance()
{
	CWinApp::ExitInstance();
	return m_nFailures;
}
