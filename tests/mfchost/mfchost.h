// mfchost.h : main header file for the mfchost application
//

#pragma once

#ifndef __AFXWIN_H__
	#error "include 'stdafx.h' before including this file for PCH"
#endif

#include "resource.h"		// main symbols


// CMfcHostApp:
// See mfchost.cpp for the implementation of this class
//

class CMfcHostApp : public CWinApp
{
public:
	CMfcHostApp();

	// Prints "ok <what>" or "FAILED <what>" and counts the failures.
	void Check(BOOL bOk, LPCTSTR lpszWhat);

// Overrides
public:
	virtual BOOL InitInstance();
	virtual int ExitInstance();

// Implementation
protected:
	void CheckStrings();
	void CheckExceptions();
	void CheckObjects();

	int m_nFailures;

	DECLARE_MESSAGE_MAP()
};

extern CMfcHostApp theApp;
