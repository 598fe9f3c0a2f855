#include "file_name.h"

#include <vector>

CString CFileName::GetFilename(HMODULE module)
{
    // Module paths may be longer than MAX_PATH; grow until the name fits.
    std::vector<char> path(MAX_PATH);
    for (;;) {
        const DWORD length = GetModuleFileNameA(module, path.data(), static_cast<DWORD>(path.size()));
        if (length == 0)
            return CString();
        if (length < path.size())
            break;
        if (path.size() >= 32768)
            return CString();
        path.resize(path.size() * 2);
    }
    return CFileName(CString(path.data())).GetFilename();
}
