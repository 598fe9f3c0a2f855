#include "frame/fix_mfc_toolbar.h"

#include "frame/module_version.h"
#include "frame/module_version_number.h"

int TwModuleVersionNumber(const char* moduleName)
{
    DLLVERSIONINFO info = {};
    if (!CModuleVersion::DllGetVersion(moduleName, info))
        return 0;
    return static_cast<int>(info.dwMajorVersion * 100 + info.dwMinorVersion);
}

int CFixMFCToolBar::iVerComCtl32 = TwModuleVersionNumber("comctl32.dll");
