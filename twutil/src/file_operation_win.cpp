#include "file_operation.h"

namespace {

bool IsEmptyName(const char* path)
{
    return path == nullptr || *path == '\0';
}

DWORD Attributes(const char* path)
{
    return IsEmptyName(path) ? INVALID_FILE_ATTRIBUTES : GetFileAttributesA(path);
}

bool IsFolder(DWORD attributes)
{
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

CString FullPath(const char* path)
{
    char full[MAX_PATH * 4] = {};
    const DWORD length = GetFullPathNameA(path, sizeof full, full, nullptr);
    return length > 0 && length < sizeof full ? CString(full) : CString(path);
}

}  // namespace

BOOL CFileOperation::FileExist(const char* path)
{
    if (IsEmptyName(path) || strpbrk(path, "*?") != nullptr)
        return FALSE;
    const DWORD attributes = GetFileAttributesA(path);
    return attributes != INVALID_FILE_ATTRIBUTES && !IsFolder(attributes);
}

BOOL CFileOperation::FileCopy(const char* source, const char* target, bool overwrite)
{
    if (!FileExist(source) || IsEmptyName(target))
        return FALSE;
    CString to = CopyTarget(source, target);
    if (IsFolder(Attributes(to)))
        to = CopyTarget(source, to + "\\");
    if (FullPath(source).CompareNoCase(FullPath(to)) == 0)
        return FALSE;
    const DWORD targetAttributes = Attributes(to);
    if (targetAttributes != INVALID_FILE_ATTRIBUTES && (targetAttributes & FILE_ATTRIBUTE_READONLY) != 0)
        return FALSE;
    return CopyFileA(source, to, overwrite ? FALSE : TRUE) ? TRUE : FALSE;
}

BOOL CFileOperation::IsFileWritable(const char* path)
{
    if (!FileExist(path))
        return FALSE;
    if ((GetFileAttributesA(path) & FILE_ATTRIBUTE_READONLY) != 0)
        return FALSE;
    // Opening for writing without changing anything tells whether another
    // program holds the file against writers.
    HANDLE file = CreateFileA(path, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                              OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return FALSE;
    CloseHandle(file);
    return TRUE;
}

BOOL CFileOperation::DeleteFileA(const char* path, bool force)
{
    if (!FileExist(path))
        return FALSE;
    const DWORD attributes = GetFileAttributesA(path);
    if ((attributes & FILE_ATTRIBUTE_READONLY) != 0) {
        if (!force)
            return FALSE;
        if (!SetFileAttributesA(path, attributes & ~FILE_ATTRIBUTE_READONLY))
            return FALSE;
        if (!::DeleteFileA(path)) {
            // Leave the file as it was when it cannot go.
            SetFileAttributesA(path, attributes);
            return FALSE;
        }
        return TRUE;
    }
    return ::DeleteFileA(path) ? TRUE : FALSE;
}
