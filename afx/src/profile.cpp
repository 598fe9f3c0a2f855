// The application profile: registry below the application's key, or an INI
// file through the private profile functions (written in place; see
// afxapp.h for why not through a temporary file).
#include "afxwin.h"

#include <climits>
#include <cstring>
#include <memory>
#include <vector>

namespace {

constexpr DWORD kKeyAccess = KEY_READ | KEY_WRITE;
constexpr char kSoftware[] = "Software";
constexpr DWORD kFirstIniBuffer = 256;
constexpr DWORD kMaxIniBuffer = 1u << 24;

// An open registry key, closed when it goes out of scope.
class RegKey
{
public:
    explicit RegKey(HKEY key = nullptr) : m_key(key) {}
    RegKey(const RegKey&) = delete;
    RegKey& operator=(const RegKey&) = delete;
    ~RegKey()
    {
        if (m_key != nullptr)
            RegCloseKey(m_key);
    }
    HKEY get() const { return m_key; }
    explicit operator bool() const { return m_key != nullptr; }

private:
    HKEY m_key;
};

HKEY CreateSubKey(HKEY parent, LPCTSTR name)
{
    HKEY key = nullptr;
    if (parent == nullptr || name == nullptr)
        return nullptr;
    DWORD disposition = 0;
    if (RegCreateKeyExA(parent, name, 0, nullptr, REG_OPTION_NON_VOLATILE, kKeyAccess, nullptr, &key, &disposition) !=
        ERROR_SUCCESS)
        return nullptr;
    return key;
}

// The value's type and bytes; false if it does not exist or cannot be read.
bool QueryValue(HKEY key, LPCTSTR name, DWORD& type, std::vector<BYTE>& data)
{
    for (int attempt = 0; attempt < 4; ++attempt) {
        DWORD size = 0;
        if (RegQueryValueExA(key, name, nullptr, &type, nullptr, &size) != ERROR_SUCCESS)
            return false;
        data.assign(size, 0);
        DWORD got = size;
        const LONG result = RegQueryValueExA(key, name, nullptr, &type, data.empty() ? nullptr : data.data(), &got);
        if (result == ERROR_SUCCESS) {
            data.resize(got);
            return true;
        }
        // The value grew between the two calls: ask again.
        if (result != ERROR_MORE_DATA)
            return false;
    }
    return false;
}

CString IniString(LPCTSTR section, LPCTSTR entry, LPCTSTR defaultText, LPCTSTR file)
{
    std::vector<char> buffer(kFirstIniBuffer);
    for (;;) {
        const DWORD size = static_cast<DWORD>(buffer.size());
        const DWORD length = GetPrivateProfileStringA(section, entry, defaultText, buffer.data(), size, file);
        // A result of size - 1 may have been cut short; try a larger buffer.
        if (length + 1 < size || size >= kMaxIniBuffer)
            return CString(buffer.data(), static_cast<int>(length));
        buffer.resize(static_cast<std::size_t>(size) * 2);
    }
}

}  // namespace

BOOL CWinApp::UsesRegistry() const
{
    return m_pszRegistryKey != nullptr;
}

HKEY CWinApp::GetAppRegistryKey()
{
    if (!UsesRegistry() || m_pszProfileName == nullptr)
        return nullptr;
    RegKey software(CreateSubKey(HKEY_CURRENT_USER, kSoftware));
    RegKey company(CreateSubKey(software.get(), m_pszRegistryKey));
    return CreateSubKey(company.get(), m_pszProfileName);
}

HKEY CWinApp::GetSectionKey(LPCTSTR lpszSection)
{
    RegKey app(GetAppRegistryKey());
    return CreateSubKey(app.get(), lpszSection);
}

UINT CWinApp::GetProfileInt(LPCTSTR lpszSection, LPCTSTR lpszEntry, int nDefault)
{
    if (lpszSection == nullptr || lpszEntry == nullptr)
        return static_cast<UINT>(nDefault);
    if (!UsesRegistry())
        return GetPrivateProfileIntA(lpszSection, lpszEntry, nDefault, m_pszProfileName);
    RegKey section(GetSectionKey(lpszSection));
    DWORD type = 0;
    std::vector<BYTE> data;
    if (!section || !QueryValue(section.get(), lpszEntry, type, data) || type != REG_DWORD ||
        data.size() != sizeof(DWORD))
        return static_cast<UINT>(nDefault);
    DWORD value = 0;
    std::memcpy(&value, data.data(), sizeof value);
    return value;
}

BOOL CWinApp::WriteProfileInt(LPCTSTR lpszSection, LPCTSTR lpszEntry, int nValue)
{
    if (lpszSection == nullptr || lpszEntry == nullptr)
        return FALSE;
    if (!UsesRegistry()) {
        char text[16];
        wsprintfA(text, "%d", nValue);
        return WritePrivateProfileStringA(lpszSection, lpszEntry, text, m_pszProfileName);
    }
    RegKey section(GetSectionKey(lpszSection));
    if (!section)
        return FALSE;
    const DWORD value = static_cast<DWORD>(nValue);
    return RegSetValueExA(section.get(), lpszEntry, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&value),
                          sizeof value) == ERROR_SUCCESS;
}

CString CWinApp::GetProfileString(LPCTSTR lpszSection, LPCTSTR lpszEntry, LPCTSTR lpszDefault)
{
    const LPCTSTR fallback = lpszDefault != nullptr ? lpszDefault : "";
    if (lpszSection == nullptr || lpszEntry == nullptr)
        return CString(fallback);
    if (!UsesRegistry())
        return IniString(lpszSection, lpszEntry, fallback, m_pszProfileName);
    RegKey section(GetSectionKey(lpszSection));
    DWORD type = 0;
    std::vector<BYTE> data;
    if (!section || !QueryValue(section.get(), lpszEntry, type, data) || (type != REG_SZ && type != REG_EXPAND_SZ))
        return CString(fallback);
    // A stored text need not end with its terminator; stop at the first NUL.
    const char* text = reinterpret_cast<const char*>(data.data());
    const std::size_t length = data.empty() ? 0 : strnlen(text, data.size());
    return CString(text, static_cast<int>(length));
}

BOOL CWinApp::WriteProfileString(LPCTSTR lpszSection, LPCTSTR lpszEntry, LPCTSTR lpszValue)
{
    if (lpszSection == nullptr)
        return FALSE;
    if (!UsesRegistry())
        return WritePrivateProfileStringA(lpszSection, lpszEntry, lpszValue, m_pszProfileName);
    if (lpszEntry == nullptr) {
        RegKey app(GetAppRegistryKey());
        return app && RegDeleteTreeA(app.get(), lpszSection) == ERROR_SUCCESS;
    }
    RegKey section(GetSectionKey(lpszSection));
    if (!section)
        return FALSE;
    if (lpszValue == nullptr)
        return RegDeleteValueA(section.get(), lpszEntry) == ERROR_SUCCESS;
    return RegSetValueExA(section.get(), lpszEntry, 0, REG_SZ, reinterpret_cast<const BYTE*>(lpszValue),
                          static_cast<DWORD>(std::strlen(lpszValue) + 1)) == ERROR_SUCCESS;
}

BOOL CWinApp::GetProfileBinary(LPCTSTR lpszSection, LPCTSTR lpszEntry, LPBYTE* ppData, UINT* pBytes)
{
    if (ppData == nullptr || pBytes == nullptr)
        return FALSE;
    *ppData = nullptr;
    *pBytes = 0;
    if (lpszSection == nullptr || lpszEntry == nullptr)
        return FALSE;
    if (!UsesRegistry()) {
        const CString text = IniString(lpszSection, lpszEntry, "", m_pszProfileName);
        if (text.IsEmpty())
            return FALSE;
        // Two letters a byte, low half first; an odd last letter is ignored.
        const UINT count = static_cast<UINT>(text.GetLength()) / 2;
        auto bytes = std::make_unique<BYTE[]>(count);
        for (UINT i = 0; i < count; ++i) {
            const unsigned low = static_cast<unsigned>(static_cast<BYTE>(text[static_cast<int>(2 * i)]) - 'A');
            const unsigned high = static_cast<unsigned>(static_cast<BYTE>(text[static_cast<int>(2 * i + 1)]) - 'A');
            bytes[i] = static_cast<BYTE>(((high << 4) + low) & 0xFF);
        }
        *ppData = bytes.release();
        *pBytes = count;
        return TRUE;
    }
    RegKey section(GetSectionKey(lpszSection));
    DWORD type = 0;
    std::vector<BYTE> data;
    if (!section || !QueryValue(section.get(), lpszEntry, type, data) || type != REG_BINARY)
        return FALSE;
    *ppData = new BYTE[data.size()];
    if (!data.empty())
        std::memcpy(*ppData, data.data(), data.size());
    *pBytes = static_cast<UINT>(data.size());
    return TRUE;
}

BOOL CWinApp::WriteProfileBinary(LPCTSTR lpszSection, LPCTSTR lpszEntry, LPBYTE pData, UINT nBytes)
{
    if (lpszSection == nullptr || lpszEntry == nullptr || (pData == nullptr && nBytes != 0))
        return FALSE;
    if (!UsesRegistry()) {
        if (nBytes > static_cast<UINT>(INT_MAX / 2))
            return FALSE;
        CString text;
        char* out = text.GetBufferSetLength(static_cast<int>(nBytes * 2));
        for (UINT i = 0; i < nBytes; ++i) {
            out[2 * i] = static_cast<char>('A' + (pData[i] & 0x0F));
            out[2 * i + 1] = static_cast<char>('A' + ((pData[i] >> 4) & 0x0F));
        }
        text.ReleaseBuffer(static_cast<int>(nBytes * 2));
        return WritePrivateProfileStringA(lpszSection, lpszEntry, text, m_pszProfileName);
    }
    RegKey section(GetSectionKey(lpszSection));
    if (!section)
        return FALSE;
    return RegSetValueExA(section.get(), lpszEntry, 0, REG_BINARY, pData, nBytes) == ERROR_SUCCESS;
}
