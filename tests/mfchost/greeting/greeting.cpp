// greeting.cpp : the extension DLL's class and its initialization
//

#include "../stdafx.h"
#include "greeting.h"

#ifdef _DEBUG
#define new DEBUG_NEW
#endif

static AFX_EXTENSION_MODULE GreetingDLL = { FALSE, NULL, NULL, NULL, NULL };

extern "C" int APIENTRY
DllMain(HINSTANCE hInstance, DWORD dwReason, LPVOID lpReserved)
{
	UNREFERENCED_PARAMETER(lpReserved);

	if (dwReason == DLL_PROCESS_ATTACH)
	{
		TRACE0("MFCHOSTEXT.DLL Initializing!\n");

		// Extension DLL one-time initialization
		if (!AfxInitExtensionModule(GreetingDLL, hInstance))
			return 0;

		new CDynLinkLibrary(GreetingDLL);
	}
	else if (dwReason == DLL_PROCESS_DETACH)
	{
		TRACE0("MFCHOSTEXT.DLL Terminating!\n");

		// Terminate the library before destructors are called
		AfxTermExtensionModule(GreetingDLL);
	}
	return 1;   // ok
}

IMPLEMENT_DYNCREATE(CGreeting, CObject)

CGreeting::CGreeting()
	: m_nTimes(2)
{
}

CString CGreeting::Greet(const CString& strName) const
{
	CString strGreeting;
	strGreeting.Format(_T("Hello, %s (x%d)"), strName, m_nTimes);
	return strGreeting;
}
