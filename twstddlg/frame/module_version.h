// Version information of loaded modules and of system libraries.
#pragma once
#include "twstddlg_api.h"

#ifdef _WIN32
#include "afxstr.h"

#include <shlwapi.h>

// The version resource of a loaded module: the fixed file information as the
// object's own fields, and named string values of one translation.
//
// The version data is one array allocation (new[]) owned by the object and
// freed (delete[]) by its destructor and by the next GetFileVersionInfo;
// the array begins with a 16-byte header that records the data's size, and
// m_pVersionInfo points just past it.
// Deliberate: copy construction and assignment give the copy its own array
// with the same data. Copying the pointer as it is would leave two objects
// owning one array, which the second destructor would free again.
class TWSTDDLG_API CModuleVersion : public VS_FIXEDFILEINFO
{
public:
    CModuleVersion();
    CModuleVersion(const CModuleVersion& other);
    CModuleVersion& operator=(const CModuleVersion& other);
    virtual ~CModuleVersion();

    // Reads the version resource of the loaded module `moduleName` (null: the
    // executable); modules are not loaded here. TRUE when the fixed
    // information carries its signature. Without a translation table the
    // strings are looked up under language 0, code page 1252.
    BOOL GetFileVersionInfo(LPCTSTR moduleName);

    // The string value `key` ("ProductVersion", "FileDescription", ...) of the
    // current translation; empty when there is none or nothing was read.
    CString GetValue(LPCTSTR key) const;

    // Asks the module's own DllGetVersion export; loads the module and keeps
    // it loaded. TRUE when the export exists and succeeds.
    static BOOL DllGetVersion(LPCTSTR moduleName, DLLVERSIONINFO& info);

protected:
    // The version resource as GetFileVersionInfoA returns it; null until read.
    BYTE* m_pVersionInfo;
    // Language id and code page of the string table GetValue reads.
    struct TRANSLATION
    {
        WORD langID;
        WORD charset;
    } m_translation;
};

// Whether a newer program version exists, and the versions of the running
// program and of the one recorded in the registry; the host fills it.
class TWSTDDLG_API CCheckProgramVersion
{
public:
    CCheckProgramVersion(int isNewVersion = 0, int currentExeVersion = 0, int registryExeVersion = 0)
        : m_iIsNewVersion(isNewVersion), m_iCurrentExeVersion(currentExeVersion),
          m_iRegistryExeVersion(registryExeVersion)
    {}
    ~CCheckProgramVersion();

    int _IsNewVersion() const;
    int _GetCurrentExeVersion() const;
    int _GetRegistryExeVersion() const;

protected:
    int m_iIsNewVersion;
    int m_iCurrentExeVersion;
    int m_iRegistryExeVersion;
};
#endif
