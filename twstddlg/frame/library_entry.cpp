#include "frame/library_entry.h"

#include "afxwin.h"
#include "twversion.h"

#include <new>

namespace {

HINSTANCE g_libraryInstance = nullptr;
AFX_EXTENSION_MODULE g_extensionModule = {};

}  // namespace

HINSTANCE TwLibraryInstance()
{
    return g_libraryInstance;
}

void DllGetVersion(DLLVERSIONINFO& info)
{
    twDllGetVersion("TWSTDDLG", info);
}

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID)
{
    g_libraryInstance = instance;
    switch (reason) {
    case DLL_PROCESS_ATTACH:
        if (!AfxInitExtensionModule(g_extensionModule, instance))
            return FALSE;
        // The framework owns the link from here on; without memory the
        // library still loads, only unregistered.
        new (std::nothrow) CDynLinkLibrary(g_extensionModule);
        return TRUE;
    case DLL_PROCESS_DETACH:
        AfxTermExtensionModule(g_extensionModule, FALSE);
        return TRUE;
    default:
        return TRUE;
    }
}
