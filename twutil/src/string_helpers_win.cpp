// The string helpers that ask Windows: decimal separator, documents folder
// and the values of path variables.
#include "string_helpers_os.h"

#include <shlobj.h>

#include <vector>

CString ProgramDirectory()
{
    std::vector<char> buffer(MAX_PATH);
    for (;;) {
        const DWORD n = GetModuleFileNameA(nullptr, buffer.data(), DWORD(buffer.size()));
        if (n == 0)
            return CString();
        if (n < buffer.size()) {
            CString path(buffer.data(), int(n));
            const int slash = path.ReverseFind('\\');
            return slash < 0 ? CString() : path.Left(slash);
        }
        if (buffer.size() >= 32768)
            return CString();
        buffer.resize(buffer.size() * 2);
    }
}

char DecimalOperatorOS()
{
    char buffer[8] = {};
    if (GetLocaleInfoA(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, buffer, sizeof buffer) == 0 || buffer[0] == '\0')
        return '.';
    return buffer[0];
}

BOOL ReturnDocDir(CString& dir)
{
    char buffer[MAX_PATH] = {};
    if (FAILED(SHGetFolderPathA(nullptr, CSIDL_PERSONAL, nullptr, SHGFP_TYPE_CURRENT, buffer)) || buffer[0] == '\0') {
        dir.Empty();
        return FALSE;
    }
    dir = buffer;
    const int n = dir.GetLength();
    // A drive root keeps its backslash ("D:\"), which is still a folder.
    if (n > 3)
        EnsureNoTrailingChar(dir, '\\');
    return TRUE;
}

BOOL ReadEnvironmentVariable(const char* name, CString& value)
{
    SetLastError(ERROR_SUCCESS);
    const DWORD size = GetEnvironmentVariableA(name, nullptr, 0);
    if (size == 0) {
        value.Empty();
        return GetLastError() != ERROR_ENVVAR_NOT_FOUND;
    }
    std::vector<char> buffer(size);
    const DWORD n = GetEnvironmentVariableA(name, buffer.data(), size);
    if (n == 0 || n >= size)
        return FALSE;
    value = CString(buffer.data(), int(n));
    return TRUE;
}
