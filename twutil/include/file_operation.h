// Existence, copying, deleting and write access of files.
#pragma once

#include "twutil_api.h"
#include "afxstr.h"

// File operations as static functions. Null or empty names are refused with
// FALSE; nothing here shows a message.
class TWUTIL_API CFileOperation
{
public:
    // Where a copy of source goes for the target as given: a target that
    // ends with a backslash or slash is a folder and gets the source's name
    // and extension ("D:\Ziel\" + "C:\a\Bild.jpg" = "D:\Ziel\Bild.jpg");
    // any other target is taken as the new file's name.
    static CString CopyTarget(const char* source, const char* target);

#ifdef _WIN32
    // Non-zero if path names an existing file. Folders and wildcard patterns
    // ("*.txt") do not count.
    static BOOL FileExist(const char* path);

    // Copies source to target (see CopyTarget; a target naming an existing
    // folder also gets the source's name). An existing target file is
    // replaced when overwrite is true and kept (FALSE) otherwise; a read-only
    // target is never replaced. Copying a file onto itself is refused.
    // Returns non-zero on success.
    static BOOL FileCopy(const char* source, const char* target, bool overwrite = true);

    // Non-zero if path is an existing file that may be overwritten now: it
    // is not read-only and no other program holds it open without sharing
    // write access. A missing file, a folder or a null name gives FALSE.
    static BOOL IsFileWritable(const char* path);

    // Deletes the file path. force true clears a read-only attribute first;
    // with force false a read-only file stays and FALSE is returned. Folders
    // are not deleted. Returns non-zero when the file was deleted.
    static BOOL DeleteFileA(const char* path, bool force);
#endif
};
