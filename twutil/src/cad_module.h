// Loading of the CAD drawing module, by platform. Internal to twutil.
#pragma once

#include "connect_cad.h"

namespace twutil_cad {

// Loads the module and finds its drawing entry; on success returns the
// module handle and sets draw, otherwise returns null with nothing held.
void* LoadDrawingModule(const char* moduleName, TwCadDrawProc& draw);
// Releases a module returned by LoadDrawingModule.
void FreeDrawingModule(void* module);

}  // namespace twutil_cad
