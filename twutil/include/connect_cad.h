// The bridge to the optional CAD drawing module, which draws pictures (and
// turns, greys and inverts them) for the picture display control.
//
// The module is looked for once, when the bridge is made: the Windows build
// loads the module "TwCad.dll" (LoadLibraryA, so the usual DLL search
// order applies) and looks up its entry "DrawBild", of type TwCadDrawProc.
// The bridge is available only when both are found; a module without that
// entry is released again at once. The native build has no such module: it
// is never available there. The meaning of the drawing flags (260, 772,
// 1024 plus an orientation) belongs to the module.
#pragma once

#include "twutil_api.h"
#include "atltypes.h"

class CDC;

// The drawing entry of the CAD module: draws the picture file into the
// device context at x, y in a box of w by h; non-zero when drawn.
typedef int (*TwCadDrawProc)(CDC* dc, const char* file, int x, int y, int w, int h, int flags, CRect* clip);

// Name of the CAD module and of its drawing entry.
#define TWCAD_MODULE_NAME "TwCad.dll"
#define TWCAD_DRAW_ENTRY "DrawBild"

// Connects to the CAD drawing module when it is installed.
class TWUTIL_API CConnectCAD
{
public:
    CConnectCAD();
    // Looks for another module of the same interface (for hosts and tests);
    // a null or empty name gives an unavailable bridge.
    explicit CConnectCAD(const char* moduleName);
    ~CConnectCAD();
    CConnectCAD(const CConnectCAD&) = delete;
    CConnectCAD& operator=(const CConnectCAD&) = delete;

    // Whether the module and its drawing entry were found.
    BOOL _isCadAvailable() const;
    // Has the module draw a picture file; the device context is handed over
    // untouched. FALSE when the bridge is unavailable, the file name is null
    // or empty, or the module reports failure.
    BOOL _DrawBild(CDC* dc, const char* file, int x, int y, int w, int h, int flags, CRect* clip);

private:
    void* m_module;
    TwCadDrawProc m_draw;
};
