// The string helpers that ask the system, in the native build: the C
// locale, $HOME and the environment stand in for the Windows calls.
#ifndef _WIN32

#include "string_helpers_os.h"

#include <clocale>
#include <cstdlib>
#include <string>

#include <unistd.h>

// From /proc/self/exe.
CString ProgramDirectory()
{
    std::string buffer(4096, '\0');
    const ssize_t n = readlink("/proc/self/exe", buffer.data(), buffer.size());
    if (n <= 0 || size_t(n) >= buffer.size())
        return CString();
    buffer.resize(size_t(n));
    const size_t slash = buffer.rfind('/');
    if (slash == std::string::npos)
        return CString();
    return CString(buffer.data(), int(slash == 0 ? 1 : slash));
}

char DecimalOperatorOS()
{
    const lconv* conv = std::localeconv();
    if (conv == nullptr || conv->decimal_point == nullptr || conv->decimal_point[0] == '\0')
        return '.';
    return conv->decimal_point[0];
}

BOOL ReturnDocDir(CString& dir)
{
    const char* home = std::getenv("HOME");
    if (home == nullptr || *home == '\0') {
        dir.Empty();
        return FALSE;
    }
    dir = home;
    if (dir.GetLength() > 1)
        EnsureNoTrailingChar(dir, '/');
    return TRUE;
}

BOOL ReadEnvironmentVariable(const char* name, CString& value)
{
    const char* env = std::getenv(name);
    if (env == nullptr)
        return FALSE;
    value = env;
    return TRUE;
}

#endif  // _WIN32
