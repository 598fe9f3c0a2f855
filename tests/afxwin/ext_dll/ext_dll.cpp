// A small extension DLL for the module tests: it links itself into the
// resource chain when loaded and out again when unloaded, as a library of
// this framework does.
#include "afxwin.h"

namespace {

AFX_EXTENSION_MODULE g_extension = {};

}  // namespace

// The DLL's extension record, so that tests can end and renew its link.
extern "C" __declspec(dllexport) AFX_EXTENSION_MODULE* TwTestExtensionModule()
{
    return &g_extension;
}

extern "C" BOOL WINAPI DllMain(HINSTANCE hInstance, DWORD dwReason, LPVOID)
{
    if (dwReason == DLL_PROCESS_ATTACH) {
        if (!AfxInitExtensionModule(g_extension, hInstance))
            return FALSE;
        new CDynLinkLibrary(g_extension);
    } else if (dwReason == DLL_PROCESS_DETACH) {
        AfxTermExtensionModule(g_extension);
    }
    return TRUE;
}
