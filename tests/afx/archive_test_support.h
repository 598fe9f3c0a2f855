// Test helpers of the collection and archive tests: serializing an object
// through a memory file and telling which exception an action throws.
#pragma once

#include "afx.h"
#include "afxfile.h"

#include <functional>
#include <vector>

namespace archive_test {

// The file's bytes; the position is at the start afterwards.
inline std::vector<BYTE> FileBytes(CMemFile& file)
{
    std::vector<BYTE> bytes(static_cast<size_t>(file.GetLength()));
    file.SeekToBegin();
    if (!bytes.empty())
        file.Read(bytes.data(), static_cast<UINT>(bytes.size()));
    file.SeekToBegin();
    return bytes;
}

// Serializes ob into the file and rewinds it.
inline void Store(CMemFile& file, CObject& ob)
{
    CArchive ar(&file, CArchive::store);
    ob.Serialize(ar);
    ar.Close();
    file.SeekToBegin();
}

// Serializes ob from the file at its position.
inline void Load(CMemFile& file, CObject& ob)
{
    CArchive ar(&file, CArchive::load);
    ob.Serialize(ar);
    ar.Close();
}

// Whether f throws the framework's invalid-argument exception.
inline bool ThrowsInvalidArg(const std::function<void()>& f)
{
    try {
        f();
    } catch (CException* e) {
        const bool ok = e->IsKindOf(RUNTIME_CLASS(CInvalidArgException)) != FALSE;
        e->Delete();
        return ok;
    }
    return false;
}

// The cause of the CArchiveException that f throws, -2 for another
// exception, or -1 if f throws none.
inline int ArchiveCause(const std::function<void()>& f)
{
    try {
        f();
    } catch (CException* e) {
        int cause = -2;
        if (auto* ae = DYNAMIC_DOWNCAST(CArchiveException, e))
            cause = ae->m_cause;
        e->Delete();
        return cause;
    }
    return -1;
}

}  // namespace archive_test
