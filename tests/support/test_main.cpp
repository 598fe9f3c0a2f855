// The main function of the window tests: runs GoogleTest inside an
// initialised CTestApp with the common controls registered.
#include "test_app.h"

#include <commctrl.h>
#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);

    CTestApp app;
    if (!AfxWinInit(GetModuleHandleA(nullptr), nullptr, GetCommandLineA(), SW_SHOWNORMAL))
        return 2;
    INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_WIN95_CLASSES | ICC_DATE_CLASSES | ICC_USEREX_CLASSES |
                                                          ICC_COOL_CLASSES | ICC_LINK_CLASS};
    InitCommonControlsEx(&controls);
    if (!app.InitInstance())
        return 2;

    const int result = RUN_ALL_TESTS();
    app.ExitInstance();
    return result;
}
