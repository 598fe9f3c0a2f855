#include "dll_loader.h"

IMPLEMENT_DYNAMIC(CDllLoader, CObject)

CDllLoader::CDllLoader(const char* moduleName)
    : m_sModuleName(moduleName != nullptr ? moduleName : ""), m_hModule(nullptr)
{
    if (m_sModuleName.IsEmpty())
        return;
    DWORD previousMode = 0;
    const BOOL quiet = SetThreadErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX, &previousMode);
    m_hModule = LoadLibraryA(m_sModuleName);
    if (quiet)
        SetThreadErrorMode(previousMode, nullptr);
}

CDllLoader::~CDllLoader()
{
    if (m_hModule != nullptr)
        FreeLibrary(m_hModule);
}

FARPROC CDllLoader::GetProcAddress(const char* procName) const
{
    if (m_hModule == nullptr || procName == nullptr)
        return nullptr;
    return ::GetProcAddress(m_hModule, procName);
}
