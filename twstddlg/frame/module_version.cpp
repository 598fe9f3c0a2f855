#include "frame/module_version.h"

#include <cstring>

namespace {

constexpr DWORD kFixedSignature = 0xFEEF04BD;
constexpr WORD kDefaultCodePage = 1252;

// The version data sits behind a header that records its size, so that a
// copy can duplicate it without a field of its own.
constexpr size_t kHeaderSize = 16;

BYTE* AllocateVersionData(DWORD size)
{
    BYTE* block = new BYTE[kHeaderSize + size]();
    std::memcpy(block, &size, sizeof size);
    return block + kHeaderSize;
}

void FreeVersionData(BYTE* data)
{
    if (data != nullptr)
        delete[](data - kHeaderSize);
}

BYTE* CopyVersionData(const BYTE* data)
{
    if (data == nullptr)
        return nullptr;
    DWORD size = 0;
    std::memcpy(&size, data - kHeaderSize, sizeof size);
    BYTE* copy = AllocateVersionData(size);
    std::memcpy(copy, data, size);
    return copy;
}

}  // namespace

CModuleVersion::CModuleVersion() : VS_FIXEDFILEINFO(), m_pVersionInfo(nullptr), m_translation{0, 0} {}

CModuleVersion::CModuleVersion(const CModuleVersion& other)
    : VS_FIXEDFILEINFO(other), m_pVersionInfo(CopyVersionData(other.m_pVersionInfo)), m_translation(other.m_translation)
{}

CModuleVersion& CModuleVersion::operator=(const CModuleVersion& other)
{
    if (this != &other) {
        BYTE* copy = CopyVersionData(other.m_pVersionInfo);
        FreeVersionData(m_pVersionInfo);
        static_cast<VS_FIXEDFILEINFO&>(*this) = other;
        m_pVersionInfo = copy;
        m_translation = other.m_translation;
    }
    return *this;
}

CModuleVersion::~CModuleVersion()
{
    FreeVersionData(m_pVersionInfo);
}

BOOL CModuleVersion::GetFileVersionInfo(LPCTSTR moduleName)
{
    m_translation.charset = kDefaultCodePage;
    static_cast<VS_FIXEDFILEINFO&>(*this) = VS_FIXEDFILEINFO();

    const HMODULE module = GetModuleHandleA(moduleName);
    if (module == nullptr)
        return FALSE;
    char path[MAX_PATH] = {};
    if (GetModuleFileNameA(module, path, MAX_PATH) == 0)
        return FALSE;

    DWORD handle = 0;
    const DWORD size = GetFileVersionInfoSizeA(path, &handle);
    if (size == 0)
        return FALSE;
    FreeVersionData(m_pVersionInfo);
    m_pVersionInfo = AllocateVersionData(size);
    if (!::GetFileVersionInfoA(path, 0, size, m_pVersionInfo))
        return FALSE;

    void* fixed = nullptr;
    UINT fixedLength = 0;
    if (!VerQueryValueA(m_pVersionInfo, "\\", &fixed, &fixedLength) || fixed == nullptr)
        return FALSE;
    std::memcpy(static_cast<VS_FIXEDFILEINFO*>(this), fixed,
                fixedLength < sizeof(VS_FIXEDFILEINFO) ? fixedLength : sizeof(VS_FIXEDFILEINFO));

    void* translation = nullptr;
    UINT translationLength = 0;
    if (VerQueryValueA(m_pVersionInfo, "\\VarFileInfo\\Translation", &translation, &translationLength) &&
        translation != nullptr && translationLength >= sizeof(TRANSLATION))
        std::memcpy(&m_translation, translation, sizeof(TRANSLATION));

    return dwSignature == kFixedSignature;
}

CString CModuleVersion::GetValue(LPCTSTR key) const
{
    if (m_pVersionInfo == nullptr || key == nullptr)
        return CString();
    CString query;
    query.Format("\\StringFileInfo\\%04x%04x\\%s", m_translation.langID, m_translation.charset, key);
    void* value = nullptr;
    UINT length = 0;
    if (!VerQueryValueA(m_pVersionInfo, query, &value, &length) || value == nullptr)
        return CString();
    const char* text = static_cast<const char*>(value);
    return CString(text, static_cast<int>(strnlen(text, length)));
}

BOOL CModuleVersion::DllGetVersion(LPCTSTR moduleName, DLLVERSIONINFO& info)
{
    // Deliberate: the module stays loaded for the rest of the process.
    const HMODULE module = LoadLibraryA(moduleName);
    if (module == nullptr)
        return FALSE;
    const auto getVersion =
        reinterpret_cast<DLLGETVERSIONPROC>(reinterpret_cast<void*>(GetProcAddress(module, "DllGetVersion")));
    if (getVersion == nullptr)
        return FALSE;
    info.dwMajorVersion = 0;
    info.dwMinorVersion = 0;
    info.dwBuildNumber = 0;
    info.dwPlatformID = 0;
    info.cbSize = sizeof(DLLVERSIONINFO);
    return SUCCEEDED(getVersion(&info));
}

CCheckProgramVersion::~CCheckProgramVersion() = default;

int CCheckProgramVersion::_IsNewVersion() const
{
    return m_iIsNewVersion;
}

int CCheckProgramVersion::_GetCurrentExeVersion() const
{
    return m_iCurrentExeVersion;
}

int CCheckProgramVersion::_GetRegistryExeVersion() const
{
    return m_iRegistryExeVersion;
}
