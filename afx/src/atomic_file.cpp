// CAtomicFile: writing under a temporary name that replaces the target only
// when complete; file_os.h names what the system does.
#include "afxfile.h"

#include "file_os.h"

#include <atomic>
#include <chrono>
#include <cstdio>

namespace {

constexpr UINT kTypeMask = CFile::typeText | CFile::typeBinary;
// Names tried before giving up when others are taken.
constexpr int kNameAttempts = 100;

// A name beside the target that no other writer is likely to pick; the
// file is created only if it does not exist, so a clash costs one retry.
CString TemporaryName(LPCTSTR lpszTarget)
{
    static std::atomic<unsigned> s_counter{0};
    const auto ticks = static_cast<unsigned long long>(std::chrono::steady_clock::now().time_since_epoch().count());
    char suffix[48];
    std::snprintf(suffix, sizeof suffix, ".~%llx-%x.tmp", ticks & 0xFFFFFFFFFFull, s_counter.fetch_add(1));
    return CString(lpszTarget) + suffix;
}

void RemoveQuietly(const CString& fileName)
{
    try {
        CFile::Remove(fileName);
    } catch (CException* e) {
        e->Delete();
    }
}

}  // namespace

IMPLEMENT_DYNAMIC(CAtomicFile, CStdioFile)

CAtomicFile::CAtomicFile() = default;

CAtomicFile::~CAtomicFile()
{
    CAtomicFile::Abort();
}

BOOL CAtomicFile::Open(LPCTSTR lpszFileName, UINT nOpenFlags, CFileException* pError)
{
    Abort();
    if (pError != nullptr)
        pError->Clear();
    if (lpszFileName == nullptr || lpszFileName[0] == '\0')
        return CStdioFile::Open(lpszFileName, modeWrite, pError);
    CString temp;
    LONG error = 0;
    for (int attempt = 0; attempt < kNameAttempts; ++attempt) {
        temp = TemporaryName(lpszFileName);
        error = AfxFileCreateNew(temp);
        if (!AfxFileExistsError(error))
            break;
    }
    if (error != 0) {
        if (pError != nullptr) {
            pError->m_cause = AfxFileErrorCause(error);
            pError->m_lOsError = error;
            pError->m_strFileName = lpszFileName;
        }
        return FALSE;
    }
    // The file is new and ours: opening it again with modeCreate only
    // empties an empty file.
    if (!CStdioFile::Open(temp, modeCreate | modeWrite | shareExclusive | (nOpenFlags & kTypeMask), pError)) {
        RemoveQuietly(temp);
        return FALSE;
    }
    m_strTemp = temp;
    SetFilePath(AfxFileFullPath(lpszFileName));
    return TRUE;
}

void CAtomicFile::Close()
{
    if (m_strTemp.IsEmpty()) {
        CStdioFile::Close();
        return;
    }
    const CString target = GetFilePath();
    try {
        CFile::Flush();
        CStdioFile::Close();
    } catch (...) {
        Abort();
        throw;
    }
    const CString temp = m_strTemp;
    m_strTemp.Empty();
    const LONG error = AfxFileReplace(temp, target);
    if (error != 0) {
        RemoveQuietly(temp);
        AfxFileThrowError(error, target);
    }
}

void CAtomicFile::Abort()
{
    CStdioFile::Abort();
    if (!m_strTemp.IsEmpty()) {
        RemoveQuietly(m_strTemp);
        m_strTemp.Empty();
    }
}
