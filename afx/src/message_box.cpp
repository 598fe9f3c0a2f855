// AfxMessageBox: message boxes through the current application.
#include "afxwin.h"

int AfxMessageBox(LPCTSTR lpszText, UINT nType, UINT nIDHelp)
{
    if (CWinApp* app = AfxGetApp())
        return app->DoMessageBox(lpszText, nType, nIDHelp);
    return MessageBoxA(GetActiveWindow(), lpszText, AfxGetAppName(), nType);
}

int AfxMessageBox(UINT nIDPrompt, UINT nType, UINT nIDHelp)
{
    CString text;
    // A missing string shows an empty box, as the framework does.
    text.LoadString(nIDPrompt);
    if (nIDHelp == static_cast<UINT>(-1))
        nIDHelp = nIDPrompt;
    return AfxMessageBox(text.GetString(), nType, nIDHelp);
}
