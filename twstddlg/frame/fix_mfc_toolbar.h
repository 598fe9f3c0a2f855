// The common-controls version the toolbar fix draws by.
#pragma once
#include "twstddlg_api.h"

#ifdef _WIN32
// The toolbar fix; here only the version it chooses its drawing by.
class TWSTDDLG_API CFixMFCToolBar
{
public:
    // comctl32.dll's version as major * 100 + minor (6.10 gives 610), taken
    // when the library loads; 0 when the version query failed.
    static int iVerComCtl32;
};
#endif
