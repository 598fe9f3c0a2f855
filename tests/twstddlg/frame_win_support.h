// Helpers of the frame's window tests: the values below
// HKEY_CURRENT_USER\Software\Tesselwerk that a test changes and puts back,
// registry values below the test application's key, and a temporary folder.
#pragma once

#include "afxwin.h"
#include "test_app.h"

#include <string>
#include <vector>

namespace frametest {

constexpr char kTesselwerk[] = "Software\\Tesselwerk";

// Keeps the named values of HKCU\Software\Tesselwerk as they were: what a
// test writes there is removed and what was there is put back; the key is
// removed again if the test made it and left it empty.
class TesselwerkValues
{
public:
    explicit TesselwerkValues(std::vector<std::string> names);
    ~TesselwerkValues();
    TesselwerkValues(const TesselwerkValues&) = delete;
    TesselwerkValues& operator=(const TesselwerkValues&) = delete;

    void SetString(const char* name, const char* text);
    void SetDword(const char* name, DWORD value);
    void SetRaw(const char* name, DWORD type, const std::string& bytes);
    void Remove(const char* name);

private:
    struct Saved
    {
        std::string name;
        bool present = false;
        DWORD type = REG_NONE;
        std::string bytes;
    };
    std::vector<Saved> m_saved;
    bool m_keyExisted = false;
};

// Writes a value below HKEY_CURRENT_USER\<keyPath>, making the key.
void WriteValue(const CString& keyPath, const char* name, DWORD type, const std::string& bytes);
// Reads a value below HKEY_CURRENT_USER\<keyPath>; false when it is missing.
bool ReadValue(const CString& keyPath, const char* name, DWORD& type, std::string& bytes);

// A REG_SZ's bytes with their terminator.
std::string SzBytes(const std::string& text);
// A REG_DWORD's four bytes.
std::string DwordBytes(DWORD value);

// A new empty folder below the temporary folder, removed with what it holds.
class TempFolder
{
public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    // The folder's path without a trailing backslash.
    const CString& Path() const { return m_path; }
    CString File(const char* name) const { return m_path + "\\" + name; }

private:
    CString m_path;
};

// The whole content of a file; empty when it cannot be read.
std::string ReadFileBytes(const CString& path);
void WriteFileBytes(const CString& path, const std::string& bytes);

}  // namespace frametest
