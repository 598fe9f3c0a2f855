#include "frame/library_entry.h"

#include "twversion.h"

namespace {
HINSTANCE g_libraryInstance = nullptr;
}

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
    (void)reason;
    return TRUE;
}
