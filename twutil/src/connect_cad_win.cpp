#include "cad_module.h"

#include <windows.h>

namespace twutil_cad {

void* LoadDrawingModule(const char* moduleName, TwCadDrawProc& draw)
{
    draw = nullptr;
    // No "module not found" box if the module is missing or broken.
    const UINT oldMode = SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
    HMODULE module = LoadLibraryA(moduleName);
    SetErrorMode(oldMode);
    if (!module)
        return nullptr;
    FARPROC entry = GetProcAddress(module, TWCAD_DRAW_ENTRY);
    if (!entry) {
        FreeLibrary(module);
        return nullptr;
    }
    draw = reinterpret_cast<TwCadDrawProc>(reinterpret_cast<void*>(entry));
    return module;
}

void FreeDrawingModule(void* module)
{
    FreeLibrary(static_cast<HMODULE>(module));
}

}  // namespace twutil_cad
