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

DWORD_PTR CheckedCount(CArchive& ar)
{
    const DWORD_PTR nCount = ar.ReadCount();
    if (nCount > static_cast<DWORD_PTR>(INTPTR_MAX / 2))
        AfxThrowArchiveException(CArchiveException::genericException);
    return nCount;
}

// Writes the count and then each element through the archive's operator,
// or reads them back the same way into the array resized to the count.
template <class TYPE, class ARG_TYPE>
void SerializeEach(CArchive& ar, CArray<TYPE, ARG_TYPE>& array)
{
    if (ar.IsStoring()) {
        ar.WriteCount(static_cast<DWORD_PTR>(array.GetSize()));
        for (INT_PTR i = 0; i < array.GetSize(); ++i)
            ar << array[i];
    } else {
        array.SetSize(static_cast<INT_PTR>(CheckedCount(ar)), -1);
        for (INT_PTR i = 0; i < array.GetSize(); ++i)
            ar >> array[i];
    }
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

void CObArray::Serialize(CArchive& ar)
{
    CObject::Serialize(ar);
    SerializeEach(ar, *this);
}

void CStringArray::Serialize(CArchive& ar)
{
    CObject::Serialize(ar);
    SerializeEach(ar, *this);
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
        for (DWORD_PTR n = CheckedCount(ar); n > 0; --n) {
            CString key, value;
            ar >> key >> value;
            SetAt(key, value);
        }
    }
}
