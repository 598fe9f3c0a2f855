// Test helpers of the Windows file, clipboard and shell tests: a temporary
// folder of the test's own and small file helpers.
//
// File names in these tests are ASCII: the test runner starts Wine without a
// Unix locale, and Wine then cannot store other characters in Unix file
// names (creating "Größe.txt" fails with ERROR_FILE_NOT_FOUND). Windows has
// no such limit.
#pragma once

#ifdef _WIN32
#include "afxplatform.h"
#include "afxstr.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace files_test {

// Removes a folder with everything in it, read-only files included.
inline void RemoveTree(const CString& folder)
{
    WIN32_FIND_DATAA found;
    HANDLE search = FindFirstFileA(folder + "\\*", &found);
    if (search != INVALID_HANDLE_VALUE) {
        do {
            const CString name = found.cFileName;
            if (name == "." || name == "..")
                continue;
            const CString path = folder + "\\" + name;
            SetFileAttributesA(path, FILE_ATTRIBUTE_NORMAL);
            if (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)
                RemoveTree(path);
            else
                DeleteFileA(path);
        } while (FindNextFileA(search, &found));
        FindClose(search);
    }
    RemoveDirectoryA(folder);
}

// A fresh folder below the system's temporary folder, removed with its
// content at the end of the test.
class TempFolder
{
public:
    TempFolder()
    {
        char temp[MAX_PATH] = {};
        GetTempPathA(MAX_PATH, temp);
        static int counter = 0;
        m_path.Format("%stwutil_files_%lu_%d", temp, GetCurrentProcessId(), ++counter);
        RemoveTree(m_path);
        EXPECT_TRUE(CreateDirectoryA(m_path, nullptr)) << m_path.GetString();
    }
    ~TempFolder() { RemoveTree(m_path); }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const CString& Path() const { return m_path; }
    // The path of name inside the folder.
    CString operator/(const char* name) const { return m_path + "\\" + name; }

private:
    CString m_path;
};

inline bool WriteBytes(const CString& path, const std::vector<BYTE>& bytes)
{
    HANDLE file = CreateFileA(path, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return false;
    DWORD written = 0;
    const BOOL ok = bytes.empty() || WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
    CloseHandle(file);
    return ok && written == bytes.size();
}

inline bool WriteText(const CString& path, const std::string& text)
{
    return WriteBytes(path, std::vector<BYTE>(text.begin(), text.end()));
}

// The file's content; empty when it cannot be read.
inline std::string ReadText(const CString& path)
{
    HANDLE file =
        CreateFileA(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return std::string();
    std::string text;
    char buffer[4096];
    DWORD read = 0;
    while (ReadFile(file, buffer, sizeof buffer, &read, nullptr) && read > 0)
        text.append(buffer, read);
    CloseHandle(file);
    return text;
}

inline bool Exists(const CString& path)
{
    return GetFileAttributesA(path) != INVALID_FILE_ATTRIBUTES;
}

}  // namespace files_test
#endif
