#include "frame_win_support.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

namespace frametest {

namespace {

HKEY OpenTesselwerk(REGSAM access)
{
    HKEY key = nullptr;
    if (RegOpenKeyExA(HKEY_CURRENT_USER, kTesselwerk, 0, access, &key) != ERROR_SUCCESS)
        return nullptr;
    return key;
}

bool KeyIsEmpty(HKEY key)
{
    DWORD subkeys = 0;
    DWORD values = 0;
    return RegQueryInfoKeyA(key, nullptr, nullptr, nullptr, &subkeys, nullptr, nullptr, &values, nullptr, nullptr,
                            nullptr, nullptr) == ERROR_SUCCESS &&
           subkeys == 0 && values == 0;
}

}  // namespace

TesselwerkValues::TesselwerkValues(std::vector<std::string> names)
{
    HKEY key = OpenTesselwerk(KEY_READ);
    m_keyExisted = key != nullptr;
    for (auto& name : names) {
        Saved saved;
        saved.name = name;
        if (key != nullptr) {
            DWORD size = 0;
            if (RegQueryValueExA(key, name.c_str(), nullptr, &saved.type, nullptr, &size) == ERROR_SUCCESS) {
                saved.bytes.resize(size);
                saved.present = RegQueryValueExA(key, name.c_str(), nullptr, &saved.type,
                                                 reinterpret_cast<BYTE*>(saved.bytes.data()), &size) == ERROR_SUCCESS;
                saved.bytes.resize(size);
            }
        }
        m_saved.push_back(saved);
    }
    if (key != nullptr)
        RegCloseKey(key);
}

TesselwerkValues::~TesselwerkValues()
{
    HKEY key = OpenTesselwerk(KEY_READ | KEY_WRITE);
    if (key == nullptr)
        return;
    for (const auto& saved : m_saved) {
        if (saved.present)
            RegSetValueExA(key, saved.name.c_str(), 0, saved.type, reinterpret_cast<const BYTE*>(saved.bytes.data()),
                           static_cast<DWORD>(saved.bytes.size()));
        else
            RegDeleteValueA(key, saved.name.c_str());
    }
    const bool empty = KeyIsEmpty(key);
    RegCloseKey(key);
    if (!m_keyExisted && empty)
        RegDeleteKeyA(HKEY_CURRENT_USER, kTesselwerk);
}

void TesselwerkValues::SetString(const char* name, const char* text)
{
    SetRaw(name, REG_SZ, SzBytes(text));
}

void TesselwerkValues::SetDword(const char* name, DWORD value)
{
    SetRaw(name, REG_DWORD, DwordBytes(value));
}

void TesselwerkValues::SetRaw(const char* name, DWORD type, const std::string& bytes)
{
    WriteValue(kTesselwerk, name, type, bytes);
}

void TesselwerkValues::Remove(const char* name)
{
    if (HKEY key = OpenTesselwerk(KEY_WRITE)) {
        RegDeleteValueA(key, name);
        RegCloseKey(key);
    }
}

void WriteValue(const CString& keyPath, const char* name, DWORD type, const std::string& bytes)
{
    HKEY key = nullptr;
    ASSERT_EQ(RegCreateKeyExA(HKEY_CURRENT_USER, keyPath, 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr),
              ERROR_SUCCESS);
    EXPECT_EQ(RegSetValueExA(key, name, 0, type, reinterpret_cast<const BYTE*>(bytes.data()),
                             static_cast<DWORD>(bytes.size())),
              ERROR_SUCCESS);
    RegCloseKey(key);
}

bool ReadValue(const CString& keyPath, const char* name, DWORD& type, std::string& bytes)
{
    HKEY key = nullptr;
    if (RegOpenKeyExA(HKEY_CURRENT_USER, keyPath, 0, KEY_READ, &key) != ERROR_SUCCESS)
        return false;
    char data[1024];
    DWORD size = sizeof data;
    const bool found =
        RegQueryValueExA(key, name, nullptr, &type, reinterpret_cast<BYTE*>(data), &size) == ERROR_SUCCESS;
    if (found)
        bytes.assign(data, size);
    RegCloseKey(key);
    return found;
}

std::string SzBytes(const std::string& text)
{
    return std::string(text.c_str(), text.size() + 1);
}

std::string DwordBytes(DWORD value)
{
    return std::string(reinterpret_cast<const char*>(&value), sizeof value);
}

TempFolder::TempFolder()
{
    char base[MAX_PATH] = {};
    GetTempPathA(MAX_PATH, base);
    static int counter = 0;
    m_path.Format("%sTwFrameTest_%lu_%d", base, GetCurrentProcessId(), ++counter);
    CreateDirectoryA(m_path, nullptr);
}

TempFolder::~TempFolder()
{
    WIN32_FIND_DATAA found;
    HANDLE search = FindFirstFileA(m_path + "\\*", &found);
    if (search != INVALID_HANDLE_VALUE) {
        do {
            const CString name = found.cFileName;
            if (name != "." && name != "..")
                DeleteFileA(m_path + "\\" + name);
        } while (FindNextFileA(search, &found));
        FindClose(search);
    }
    RemoveDirectoryA(m_path);
}

std::string ReadFileBytes(const CString& path)
{
    std::ifstream in(static_cast<const char*>(path), std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

void WriteFileBytes(const CString& path, const std::string& bytes)
{
    std::ofstream out(static_cast<const char*>(path), std::ios::binary);
    out << bytes;
}

}  // namespace frametest
