// The framework's ready-made collections: typed arrays and hash maps.
//
// Arrays: each is a CArray of its element type with the framework's
// interface and run-time class. Unlike the framework, where every array is a
// separate class, they derive from CArray<...>; callers see the same
// members, and CArray<...>* also accepts them.
//   CByteArray, CWordArray, CDWordArray, CUIntArray serialize as the count
//   and the raw little-endian elements; CStringArray as the count and each
//   string in the archive's CString format; CObArray as the count and each
//   object in the persistent object format; CPtrArray holds addresses, which
//   mean nothing in a file, so its Serialize writes nothing. Loading checks
//   the count against what the archive can still hold before anything is
//   allocated (CArchive::CheckCount), taking the least each element needs:
//   its size for the raw arrays, one byte for a string, two for an object
//   tag, two for a map's key and value.
//
// Maps: chained hash tables. A table has GetHashTableSize() buckets (17
// unless InitHashTable says otherwise) and never resizes by itself; the
// buckets are allocated at the first insertion. Associations are allocated
// one by one (the nBlockSize argument is accepted and ignored), so a
// reference from operator[] stays valid until its key is removed. Iteration
// with GetStartPosition/GetNextAssoc visits every pair exactly once in
// bucket order, provided the map is not changed meanwhile. Running out of
// memory throws CMemoryException* (never std::bad_alloc).
#pragma once

#include "afxplatform.h"
#include "afxobject.h"
#include "afxexcept.h"
#include "afxarchive.h"
#include "afxstr.h"
#include "afxtempl.h"

#include <new>

// An array of BYTE.
class AFX_API CByteArray : public CArray<BYTE, BYTE>
{
    DECLARE_SERIAL(CByteArray)

public:
    void Serialize(CArchive& ar) override;
};

// An array of WORD.
class AFX_API CWordArray : public CArray<WORD, WORD>
{
    DECLARE_SERIAL(CWordArray)

public:
    void Serialize(CArchive& ar) override;
};

// An array of DWORD.
class AFX_API CDWordArray : public CArray<DWORD, DWORD>
{
    DECLARE_SERIAL(CDWordArray)

public:
    void Serialize(CArchive& ar) override;
};

// An array of UINT.
class AFX_API CUIntArray : public CArray<UINT, UINT>
{
    DECLARE_DYNAMIC(CUIntArray)
};

// An array of untyped pointers, which it does not own.
class AFX_API CPtrArray : public CArray<void*, void*>
{
    DECLARE_DYNAMIC(CPtrArray)

public:
    void Serialize(CArchive& ar) override;
};

// An array of CObject pointers, which it does not own.
class AFX_API CObArray : public CArray<CObject*, CObject*>
{
    DECLARE_SERIAL(CObArray)

public:
    void Serialize(CArchive& ar) override;
};

// An array of CString; text arguments may be given as LPCTSTR.
class AFX_API CStringArray : public CArray<CString, const CString&>
{
    DECLARE_SERIAL(CStringArray)

public:
    using CArray::Add;
    using CArray::InsertAt;
    using CArray::SetAt;
    using CArray::SetAtGrow;

    INT_PTR Add(LPCTSTR newElement) { return CArray::Add(CString(newElement)); }
    void SetAt(INT_PTR nIndex, LPCTSTR newElement) { CArray::SetAt(nIndex, CString(newElement)); }
    void SetAtGrow(INT_PTR nIndex, LPCTSTR newElement) { CArray::SetAtGrow(nIndex, CString(newElement)); }
    void InsertAt(INT_PTR nIndex, LPCTSTR newElement, INT_PTR nCount = 1)
    {
        CArray::InsertAt(nIndex, CString(newElement), nCount);
    }

    void Serialize(CArchive& ar) override;
};

namespace afx_detail {

// The chained hash table behind the CMap* classes. Derived supplies
// HashKey(ARG_KEY); keys compare with ==.
template <class Derived, class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
class MapBase : public CObject
{
public:
    INT_PTR GetCount() const noexcept { return m_nCount; }
    INT_PTR GetSize() const noexcept { return m_nCount; }
    BOOL IsEmpty() const noexcept { return m_nCount == 0; }

    // Copies the value of key into rValue; FALSE if key is absent.
    BOOL Lookup(ARG_KEY key, VALUE& rValue) const
    {
        const CAssoc* pAssoc = find(key, hashOf(key));
        if (pAssoc == NULL)
            return FALSE;
        rValue = pAssoc->value;
        return TRUE;
    }
    // The value of key, inserted with a default value if absent.
    VALUE& operator[](ARG_KEY key)
    {
        const UINT nHash = hashOf(key);
        if (CAssoc* pAssoc = find(key, nHash))
            return pAssoc->value;
        if (m_pHashTable == NULL)
            m_pHashTable = newTable(m_nHashTableSize);
        CAssoc* pAssoc = new (std::nothrow) CAssoc{NULL, nHash, KEY(key), VALUE()};
        if (pAssoc == NULL)
            AfxThrowMemoryException();
        link(pAssoc);
        ++m_nCount;
        return pAssoc->value;
    }
    void SetAt(ARG_KEY key, ARG_VALUE newValue) { (*this)[key] = newValue; }
    // Removes key; FALSE if it was absent.
    BOOL RemoveKey(ARG_KEY key)
    {
        if (m_pHashTable == NULL)
            return FALSE;
        const UINT nHash = hashOf(key);
        for (CAssoc** ppAssoc = &m_pHashTable[nHash % m_nHashTableSize]; *ppAssoc != NULL;
             ppAssoc = &(*ppAssoc)->pNext) {
            CAssoc* pAssoc = *ppAssoc;
            if (pAssoc->nHashValue == nHash && pAssoc->key == key) {
                *ppAssoc = pAssoc->pNext;
                delete pAssoc;
                --m_nCount;
                return TRUE;
            }
        }
        return FALSE;
    }
    // Removes every pair and frees the buckets; the table size stays.
    void RemoveAll() noexcept
    {
        if (m_pHashTable != NULL) {
            for (UINT i = 0; i < m_nHashTableSize; ++i) {
                for (CAssoc* pAssoc = m_pHashTable[i]; pAssoc != NULL;) {
                    CAssoc* pNext = pAssoc->pNext;
                    delete pAssoc;
                    pAssoc = pNext;
                }
            }
            delete[] m_pHashTable;
        }
        m_pHashTable = NULL;
        m_nCount = 0;
    }

    // Where an iteration starts: NULL for an empty map.
    POSITION GetStartPosition() const noexcept { return m_nCount == 0 ? NULL : BEFORE_START_POSITION; }
    // Reads the pair at rNextPosition and moves it on; NULL after the last.
    void GetNextAssoc(POSITION& rNextPosition, KEY& rKey, VALUE& rValue) const
    {
        if (rNextPosition == NULL || m_pHashTable == NULL)
            AfxThrowInvalidArgException();
        const CAssoc* pAssoc =
            rNextPosition == BEFORE_START_POSITION ? firstFrom(0) : reinterpret_cast<const CAssoc*>(rNextPosition);
        if (pAssoc == NULL)
            AfxThrowInvalidArgException();
        const CAssoc* pNext =
            pAssoc->pNext != NULL ? pAssoc->pNext : firstFrom(pAssoc->nHashValue % m_nHashTableSize + 1);
        rNextPosition = reinterpret_cast<POSITION>(const_cast<CAssoc*>(pNext));
        rKey = pAssoc->key;
        rValue = pAssoc->value;
    }

    UINT GetHashTableSize() const noexcept { return m_nHashTableSize; }
    // Sets the number of buckets, best chosen prime and about 20% above the
    // expected count. Pairs already present are redistributed.
    void InitHashTable(UINT hashSize, BOOL bAllocNow = TRUE)
    {
        if (hashSize == 0)
            AfxThrowInvalidArgException();
        // The new buckets first: running out of memory leaves the map as it was.
        CAssoc** pNew = bAllocNow || m_pHashTable != NULL ? newTable(hashSize) : NULL;
        CAssoc** pOld = m_pHashTable;
        const UINT nOldSize = m_nHashTableSize;
        m_pHashTable = pNew;
        m_nHashTableSize = hashSize;
        if (pOld == NULL)
            return;
        for (UINT i = 0; i < nOldSize; ++i) {
            for (CAssoc* pAssoc = pOld[i]; pAssoc != NULL;) {
                CAssoc* pNext = pAssoc->pNext;
                link(pAssoc);
                pAssoc = pNext;
            }
        }
        delete[] pOld;
    }

protected:
    struct CAssoc
    {
        CAssoc* pNext;
        UINT nHashValue;
        KEY key;
        VALUE value;
    };

    explicit MapBase(INT_PTR nBlockSize) noexcept
        : m_pHashTable(NULL), m_nHashTableSize(17), m_nCount(0), m_nBlockSize(nBlockSize)
    {}
    ~MapBase() override { RemoveAll(); }

    CAssoc** m_pHashTable;
    UINT m_nHashTableSize;
    INT_PTR m_nCount;
    INT_PTR m_nBlockSize;

    UINT hashOf(ARG_KEY key) const { return static_cast<const Derived*>(this)->HashKey(key); }
    CAssoc* find(ARG_KEY key, UINT nHash) const
    {
        if (m_pHashTable == NULL)
            return NULL;
        for (CAssoc* pAssoc = m_pHashTable[nHash % m_nHashTableSize]; pAssoc != NULL; pAssoc = pAssoc->pNext) {
            if (pAssoc->nHashValue == nHash && pAssoc->key == key)
                return pAssoc;
        }
        return NULL;
    }

private:
    const CAssoc* firstFrom(UINT nBucket) const noexcept
    {
        for (; nBucket < m_nHashTableSize; ++nBucket) {
            if (m_pHashTable[nBucket] != NULL)
                return m_pHashTable[nBucket];
        }
        return NULL;
    }
    static CAssoc** newTable(UINT hashSize)
    {
        CAssoc** pTable = new (std::nothrow) CAssoc*[hashSize]();
        if (pTable == NULL)
            AfxThrowMemoryException();
        return pTable;
    }
    void link(CAssoc* pAssoc) noexcept
    {
        CAssoc*& head = m_pHashTable[pAssoc->nHashValue % m_nHashTableSize];
        pAssoc->pNext = head;
        head = pAssoc;
    }
};

}  // namespace afx_detail

// A hash map from untyped pointers to untyped pointers, owning neither.
class AFX_API CMapPtrToPtr : public afx_detail::MapBase<CMapPtrToPtr, void*, void*, void*, void*>
{
    DECLARE_DYNAMIC(CMapPtrToPtr)

public:
    explicit CMapPtrToPtr(INT_PTR nBlockSize = 10) noexcept : MapBase(nBlockSize) {}

    // The bucket hash of a key.
    UINT HashKey(void* key) const noexcept
    {
        const ULONGLONG k = reinterpret_cast<UINT_PTR>(key);
        return static_cast<UINT>((k >> 4) ^ (k >> 32));
    }
};

// A hash map from texts (compared case-sensitively) to untyped pointers.
class AFX_API CMapStringToPtr : public afx_detail::MapBase<CMapStringToPtr, CString, LPCTSTR, void*, void*>
{
    DECLARE_DYNAMIC(CMapStringToPtr)

public:
    explicit CMapStringToPtr(INT_PTR nBlockSize = 10) noexcept : MapBase(nBlockSize) {}

    // The bucket hash of a key; NULL hashes as "".
    UINT HashKey(LPCTSTR key) const noexcept;
};

// A hash map from texts (compared case-sensitively) to texts.
class AFX_API CMapStringToString : public afx_detail::MapBase<CMapStringToString, CString, LPCTSTR, CString, LPCTSTR>
{
    DECLARE_SERIAL(CMapStringToString)

public:
    explicit CMapStringToString(INT_PTR nBlockSize = 10) noexcept : MapBase(nBlockSize) {}

    // Points rKey at the map's own copy of key; FALSE if key is absent.
    BOOL LookupKey(LPCTSTR key, LPCTSTR& rKey) const;
    // The bucket hash of a key; NULL hashes as "".
    UINT HashKey(LPCTSTR key) const noexcept;

    // Writes the count and each key and value; loading adds to the map.
    void Serialize(CArchive& ar) override;
};
