// Run-time classes and serialization of the ready-made collections.
#include "afxcoll.h"

namespace {

// FNV-1a over the bytes of a text.
UINT HashText(LPCTSTR key) noexcept
{
    UINT nHash = 2166136261u;
    if (key != NULL) {
        for (; *key != 0; ++key) {
            nHash ^= static_cast<BYTE>(*key);
            nHash *= 16777619u;
        }
    }
    return nHash;
}

// The least bytes an element takes in an archive: an object's tag, a
// string's length, a map pair's two lengths.
constexpr ULONGLONG kObjectBytes = 2;
constexpr ULONGLONG kStringBytes = 1;
constexpr ULONGLONG kPairBytes = 2;

// Writes the count and then each element through the archive's operator.
template <class TYPE, class ARG_TYPE>
void StoreEach(CArchive& ar, const CArray<TYPE, ARG_TYPE>& array)
{
    ar.WriteCount(static_cast<DWORD_PTR>(array.GetSize()));
    for (INT_PTR i = 0; i < array.GetSize(); ++i)
        ar << array[i];
}

// Reads a batch of elements back through the archive's operator.
template <class TYPE>
auto LoadEach(CArchive& ar)
{
    return [&ar](TYPE* pFirst, INT_PTR nCount) {
        for (INT_PTR i = 0; i < nCount; ++i)
            ar >> pFirst[i];
    };
}

}  // namespace

IMPLEMENT_SERIAL(CByteArray, CObject, 0)
IMPLEMENT_SERIAL(CWordArray, CObject, 0)
IMPLEMENT_SERIAL(CDWordArray, CObject, 0)
IMPLEMENT_DYNAMIC(CUIntArray, CObject)
IMPLEMENT_DYNAMIC(CPtrArray, CObject)
IMPLEMENT_SERIAL(CObArray, CObject, 0)
IMPLEMENT_SERIAL(CStringArray, CObject, 0)
IMPLEMENT_DYNAMIC(CMapPtrToPtr, CObject)
IMPLEMENT_DYNAMIC(CMapStringToPtr, CObject)
IMPLEMENT_SERIAL(CMapStringToString, CObject, 0)

void CPtrArray::Serialize(CArchive& ar)
{
    CObject::Serialize(ar);
}

void CByteArray::Serialize(CArchive& ar)
{
    SerializeCounted(ar, sizeof(BYTE));
}

void CWordArray::Serialize(CArchive& ar)
{
    SerializeCounted(ar, sizeof(WORD));
}

void CDWordArray::Serialize(CArchive& ar)
{
    SerializeCounted(ar, sizeof(DWORD));
}

void CObArray::Serialize(CArchive& ar)
{
    CObject::Serialize(ar);
    if (ar.IsStoring())
        StoreEach(ar, *this);
    else
        LoadCounted(ar, kObjectBytes, LoadEach<CObject*>(ar));
}

void CStringArray::Serialize(CArchive& ar)
{
    CObject::Serialize(ar);
    if (ar.IsStoring())
        StoreEach(ar, *this);
    else
        LoadCounted(ar, kStringBytes, LoadEach<CString>(ar));
}

UINT CMapStringToPtr::HashKey(LPCTSTR key) const noexcept
{
    return HashText(key);
}

UINT CMapStringToString::HashKey(LPCTSTR key) const noexcept
{
    return HashText(key);
}

BOOL CMapStringToString::LookupKey(LPCTSTR key, LPCTSTR& rKey) const
{
    const CAssoc* pAssoc = find(key, hashOf(key));
    if (pAssoc == NULL)
        return FALSE;
    rKey = pAssoc->key;
    return TRUE;
}

void CMapStringToString::Serialize(CArchive& ar)
{
    CObject::Serialize(ar);
    if (ar.IsStoring()) {
        ar.WriteCount(static_cast<DWORD_PTR>(m_nCount));
        POSITION pos = GetStartPosition();
        while (pos != NULL) {
            CString key, value;
            GetNextAssoc(pos, key, value);
            ar << key << value;
        }
    } else {
        const DWORD_PTR nCount = ar.ReadCount();
        ar.CheckCount(nCount, kPairBytes);
        for (DWORD_PTR n = nCount; n > 0; --n) {
            CString key, value;
            ar >> key >> value;
            SetAt(key, value);
        }
    }
}
