// Property: loading the framework's collections and objects from any bytes
// never crashes, leaks or allocates what a hostile count claims; it either
// succeeds or throws CArchiveException (nothing else); what loads stores
// again, and loading that gives the same value again. The first byte
// chooses what is loaded (its low three bits), whether the file can tell
// its length (bit 4) and the archive's buffer size (bit 5: 3 bytes instead
// of 4096).
#include "afxcoll.h"
#include "afxfile.h"

#include "fuzz_check.h"

#include <cstdint>
#include <functional>
#include <set>
#include <vector>

namespace {

using Bytes = std::vector<BYTE>;

// The one class a fuzz input may make objects of. It records its live
// objects, so that the target frees whatever an input made: a CObArray does
// not own its elements, and a load that fails half-way leaves the objects
// read so far to nobody.
class CFuzzNode : public CObject
{
    DECLARE_SERIAL(CFuzzNode)

public:
    CFuzzNode() { Live().insert(this); }
    ~CFuzzNode() override { Live().erase(this); }

    void Serialize(CArchive& ar) override
    {
        if (ar.IsStoring())
            ar << m_name;
        else
            ar >> m_name;
        m_strings.Serialize(ar);
        m_dwords.Serialize(ar);
        m_words.Serialize(ar);
        m_bytes.Serialize(ar);
        m_ints.Serialize(ar);
        m_children.Serialize(ar);
    }

    static std::set<CFuzzNode*>& Live()
    {
        static std::set<CFuzzNode*> live;
        return live;
    }

    static void FreeAll()
    {
        while (!Live().empty())
            delete *Live().begin();
    }

private:
    CString m_name;
    CStringArray m_strings;
    CDWordArray m_dwords;
    CWordArray m_words;
    CByteArray m_bytes;
    CArray<int> m_ints;
    CObArray m_children;
};

IMPLEMENT_SERIAL(CFuzzNode, CObject, 1)

// A memory file that, like a pipe, cannot tell its length.
class CStreamFile : public CMemFile
{
public:
    ULONGLONG GetLength() const override { AfxThrowNotSupportedException(); }
};

struct Source
{
    const uint8_t* data;
    size_t size;
    bool stream;
    int bufSize;
};

// Runs load on an archive over the bytes: true when it loads, false when it
// throws CArchiveException; anything else thrown fails the run.
bool Load(const Source& source, const std::function<void(CArchive&)>& load)
{
    std::unique_ptr<CMemFile> file = source.stream ? std::make_unique<CStreamFile>() : std::make_unique<CMemFile>();
    if (source.size > 0)
        file->Write(source.data, UINT(source.size));
    file->SeekToBegin();
    try {
        CArchive ar(file.get(), CArchive::load, source.bufSize);
        load(ar);
        ar.Close();
        return true;
    } catch (CArchiveException* e) {
        e->Delete();
        return false;
    } catch (CException* e) {
        e->Delete();
        Check(false);
    }
    return false;
}

Bytes Store(const std::function<void(CArchive&)>& store)
{
    CMemFile file;
    {
        CArchive ar(&file, CArchive::store);
        store(ar);
        ar.Close();
    }
    Bytes bytes(size_t(file.GetLength()));
    file.SeekToBegin();
    if (!bytes.empty())
        file.Read(bytes.data(), UINT(bytes.size()));
    return bytes;
}

Source Of(const Bytes& bytes)
{
    return {bytes.data(), bytes.size(), false, 4096};
}

// A collection loads, stores, and loads from that to what stores the same.
template <class T>
void CheckCollection(const Source& source)
{
    T loaded;
    if (!Load(source, [&](CArchive& ar) { loaded.Serialize(ar); }))
        return;
    const Bytes stored = Store([&](CArchive& ar) { loaded.Serialize(ar); });
    T again;
    Check(Load(Of(stored), [&](CArchive& ar) { again.Serialize(ar); }));
    Check(Store([&](CArchive& ar) { again.Serialize(ar); }) == stored);
}

// A map stores its pairs in bucket order, which loading reverses within a
// bucket: it comes back with the same pairs.
void CheckMap(const Source& source)
{
    CMapStringToString loaded;
    if (!Load(source, [&](CArchive& ar) { loaded.Serialize(ar); }))
        return;
    const Bytes stored = Store([&](CArchive& ar) { loaded.Serialize(ar); });
    CMapStringToString again;
    Check(Load(Of(stored), [&](CArchive& ar) { again.Serialize(ar); }));
    Check(again.GetCount() == loaded.GetCount());
    for (POSITION pos = loaded.GetStartPosition(); pos != NULL;) {
        CString key, value, other;
        loaded.GetNextAssoc(pos, key, value);
        Check(again.Lookup(key, other) && other == value);
    }
}

// Two objects (or NULLs) with everything they refer to, which may include
// each other and themselves.
void CheckObjects(const Source& source)
{
    CObject* loaded[2] = {};
    const auto storeBoth = [&](CObject* const(&objects)[2]) {
        return Store([&](CArchive& ar) { ar << objects[0] << objects[1]; });
    };
    if (!Load(source, [&](CArchive& ar) { ar >> loaded[0] >> loaded[1]; }))
        return;
    const Bytes stored = storeBoth(loaded);
    CObject* again[2] = {};
    Check(Load(Of(stored), [&](CArchive& ar) { ar >> again[0] >> again[1]; }));
    Check(storeBoth(again) == stored);
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    // Objects of the framework's own classes would escape the count of live
    // objects; reading one of their names then fails as an unknown class.
    for (CRuntimeClass* pClass :
         {RUNTIME_CLASS(CByteArray), RUNTIME_CLASS(CWordArray), RUNTIME_CLASS(CDWordArray), RUNTIME_CLASS(CObArray),
          RUNTIME_CLASS(CStringArray), RUNTIME_CLASS(CMapStringToString)})
        pClass->m_pfnCreateObject = nullptr;
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size == 0)
        return 0;
    const uint8_t choice = data[0];
    const Source source = {data + 1, size - 1, (choice & 0x10) != 0, (choice & 0x20) != 0 ? 3 : 4096};
    switch (choice & 7) {
    case 0:
        CheckCollection<CStringArray>(source);
        break;
    case 1:
        CheckCollection<CDWordArray>(source);
        break;
    case 2:
        CheckCollection<CByteArray>(source);
        break;
    case 3:
        CheckCollection<CWordArray>(source);
        break;
    case 4:
        CheckMap(source);
        break;
    case 5:
        CheckCollection<CArray<int>>(source);
        break;
    case 6:
        CheckCollection<CObArray>(source);
        break;
    default:
        CheckObjects(source);
        break;
    }
    CFuzzNode::FreeAll();
    return 0;
}
