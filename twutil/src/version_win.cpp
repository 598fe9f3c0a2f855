#include "twversion.h"

#include <memory>

BOOL twDllGetVersion(const char* moduleName, DLLVERSIONINFO& info)
{
    info.dwMajorVersion = info.dwMinorVersion = info.dwBuildNumber = 0;
    info.dwPlatformID = DLLVER_PLATFORM_WINDOWS;

    HMODULE module = GetModuleHandleA(moduleName);
    if (module == nullptr)
        return FALSE;
    char path[MAX_PATH] = {};
    const DWORD len = GetModuleFileNameA(module, path, MAX_PATH);
    if (len == 0 || len >= MAX_PATH)
        return FALSE;

    DWORD handle = 0;
    const DWORD size = GetFileVersionInfoSizeA(path, &handle);
    if (size == 0)
        return FALSE;
    auto data = std::make_unique<BYTE[]>(size);
    if (!GetFileVersionInfoA(path, 0, size, data.get()))
        return FALSE;

    VS_FIXEDFILEINFO* fixed = nullptr;
    UINT fixedLen = 0;
    if (!VerQueryValueA(data.get(), "\\", reinterpret_cast<void**>(&fixed), &fixedLen) ||
        fixedLen < sizeof(VS_FIXEDFILEINFO) || fixed->dwSignature != 0xFEEF04BD)
        return FALSE;

    info.dwMajorVersion = HIWORD(fixed->dwFileVersionMS);
    info.dwMinorVersion = LOWORD(fixed->dwFileVersionMS);
    info.dwBuildNumber = HIWORD(fixed->dwFileVersionLS);
    return TRUE;
}
