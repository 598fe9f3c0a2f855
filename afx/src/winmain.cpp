// The entry point of a framework application. It lives in the static
// library afxmain, which the afx target links into every Windows-subsystem
// executable: the C runtime's start-up calls WinMain unless the program
// defines main or WinMain itself, and this WinMain runs the application
// object through AfxWinMain.
#include "afxwin.h"

extern "C" int WINAPI WinMain(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPSTR lpCmdLine, int nCmdShow)
{
    return AfxWinMain(hInstance, hPrevInstance, lpCmdLine, nCmdShow);
}
