// A module loaded for the lifetime of an object.
#pragma once

#include "twutil_api.h"
#include "afx.h"

#ifdef _WIN32

// Loads a named module (LoadLibraryA, the system's usual search order) when
// constructed and frees it when destroyed. A module that cannot be loaded
// leaves a null handle; nothing is shown, not even the system's box for a
// missing dependency. Derived classes bind the module's entry points by
// name and read m_hModule to see whether it was loaded.
class TWUTIL_API CDllLoader : public CObject
{
    DECLARE_DYNAMIC(CDllLoader)

public:
    // A null or empty name loads nothing.
    explicit CDllLoader(const char* moduleName);
    ~CDllLoader() override;

    BOOL IsLoaded() const { return m_hModule != nullptr; }
    HMODULE GetModule() const { return m_hModule; }
    const CString& GetModuleName() const { return m_sModuleName; }

    // The module's export of that name; null when the module is not loaded,
    // the name is null or the export is missing.
    FARPROC GetProcAddress(const char* procName) const;

protected:
    // The name the object was constructed with, as given.
    CString m_sModuleName;
    // The loaded module; null when loading failed.
    HMODULE m_hModule;
};

#endif
