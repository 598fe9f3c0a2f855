#include "frame/library_entry.h"

#include "afxwin.h"
#include "frame/library_instance.h"
#include "twversion.h"

#include <new>

// The image the linker put this code into.
extern "C" IMAGE_DOS_HEADER __ImageBase;

namespace {

// Known before the entry runs, and right where no entry runs at all: a test
// program that links the library's objects holds their resources itself.
HINSTANCE g_libraryInstance = reinterpret_cast<HINSTANCE>(&__ImageBase);
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
