// The typed collection template CArray and the element helpers it calls.
//
// Elements live in one buffer of m_nMaxSize slots of which the first m_nSize
// are constructed. When the buffer grows, elements are moved (or copied if
// their move may throw) into the new buffer, never copied as raw bytes, so
// any C++ type with a default constructor and assignment may be an element.
// Every bad index or count throws CInvalidArgException* through
// AfxThrowInvalidArgException(). Running out of memory, or a size or growth
// beyond what the address space can hold, throws CMemoryException* (never
// std::bad_alloc); what an element's own constructor or assignment throws
// passes through unchanged.
//
// Serialization follows the framework: Serialize writes the element count,
// then SerializeElements<TYPE> writes the elements. Loading checks the count
// against the bytes the archive can still read (CArchive::CheckCount, one
// byte an element at least, since a specialised SerializeElements may store
// less than sizeof(TYPE)), throws CArchiveException badIndex for a count no
// array can hold, and grows the array in batches that double as elements
// arrive, so SerializeElements is called once per batch and memory follows
// the data actually read even where the archive cannot check the count.
// The default SerializeElements stores each element's raw memory image,
// which is right for plain values (numbers, POINT, RECT, structs of those).
// A user may specialise it for a type, as in
//     template<> void AFXAPI SerializeElements<CColor>(CArchive& ar, CColor* p, INT_PTR n);
// declared before the first use of CArray<CColor>::Serialize.
//
// Deliberate difference from a raw memory load: for element types that are
// not trivially copyable (a CString member, a virtual function, a pointer
// owner), the default loader reads and discards the elements' bytes and
// resets the elements to default-constructed values, because planting a
// stored image into such an object would leave it with dangling pointers.
// The count is still read, the archive position still advances past the
// elements, and a short read still throws CArchiveException endOfFile. Such
// types must specialise SerializeElements to round-trip their values.
#pragma once

#include "afxplatform.h"
#include "afxobject.h"
#include "afxexcept.h"
#include "afxarchive.h"

#include <algorithm>
#include <cassert>
#include <cstdint>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>

#ifndef AFXAPI
#define AFXAPI
#endif

// Value-initialises nCount elements in raw memory: zero for numbers and
// pointers, the default constructor for classes.
template <class TYPE>
inline void AFXAPI ConstructElements(TYPE* pElements, INT_PTR nCount)
{
    if (nCount > 0)
        std::uninitialized_value_construct_n(pElements, nCount);
}

// Runs the destructors of nCount elements, leaving raw memory.
template <class TYPE>
inline void AFXAPI DestructElements(TYPE* pElements, INT_PTR nCount)
{
    if (nCount > 0)
        std::destroy_n(pElements, nCount);
}

// Assigns nCount elements of pSrc to the constructed elements of pDest.
template <class TYPE>
inline void AFXAPI CopyElements(TYPE* pDest, const TYPE* pSrc, INT_PTR nCount)
{
    for (INT_PTR i = 0; i < nCount; ++i)
        pDest[i] = pSrc[i];
}

// Stores or loads the raw memory images of nCount elements; see the header
// comment for element types that are not trivially copyable, which are
// reset to default values.
template <class TYPE>
void AFXAPI SerializeElements(CArchive& ar, TYPE* pElements, INT_PTR nCount)
{
    if (nCount <= 0 || pElements == NULL)
        return;
    // Archive calls take a UINT byte count; large arrays go in chunks.
    constexpr std::uint64_t maxChunk = 0x40000000;
    std::uint64_t remaining = static_cast<std::uint64_t>(nCount) * sizeof(TYPE);
    if (ar.IsStoring()) {
        const BYTE* p = reinterpret_cast<const BYTE*>(pElements);
        while (remaining > 0) {
            const UINT n = static_cast<UINT>(std::min(remaining, maxChunk));
            ar.Write(p, n);
            p += n;
            remaining -= n;
        }
    } else if constexpr (std::is_trivially_copyable_v<TYPE>) {
        BYTE* p = reinterpret_cast<BYTE*>(pElements);
        while (remaining > 0) {
            const UINT n = static_cast<UINT>(std::min(remaining, maxChunk));
            ar.EnsureRead(p, n);
            p += n;
            remaining -= n;
        }
    } else {
        for (INT_PTR i = 0; i < nCount; ++i)
            pElements[i] = TYPE();
        BYTE scratch[4096];
        while (remaining > 0) {
            const UINT n = static_cast<UINT>(std::min<std::uint64_t>(remaining, sizeof(scratch)));
            ar.EnsureRead(scratch, n);
            remaining -= n;
        }
    }
}

// A growable array of TYPE, passed in and out of the member functions as
// ARG_TYPE.
template <class TYPE, class ARG_TYPE = const TYPE&>
class CArray : public CObject
{
public:
    typedef TYPE BASE_TYPE;
    typedef ARG_TYPE BASE_ARG_TYPE;

    CArray() noexcept : m_pData(NULL), m_nSize(0), m_nMaxSize(0), m_nGrowBy(0) {}
    ~CArray() override { releaseAll(); }

    INT_PTR GetSize() const noexcept { return m_nSize; }
    INT_PTR GetCount() const noexcept { return m_nSize; }
    BOOL IsEmpty() const noexcept { return m_nSize == 0; }
    INT_PTR GetUpperBound() const noexcept { return m_nSize - 1; }

    // Makes the array nNewSize long: new elements are value-initialised,
    // dropped ones destroyed, size 0 frees the buffer. nGrowBy >= 0 sets how
    // many slots a later growth adds at least (0: an eighth of the size,
    // 4 to 1024).
    void SetSize(INT_PTR nNewSize, INT_PTR nGrowBy = -1);
    // Shrinks the buffer to the current size.
    void FreeExtra();
    void RemoveAll() { SetSize(0, -1); }

    const TYPE& GetAt(INT_PTR nIndex) const { return m_pData[checkedIndex(nIndex)]; }
    TYPE& GetAt(INT_PTR nIndex) { return m_pData[checkedIndex(nIndex)]; }
    void SetAt(INT_PTR nIndex, ARG_TYPE newElement) { m_pData[checkedIndex(nIndex)] = newElement; }
    const TYPE& ElementAt(INT_PTR nIndex) const { return m_pData[checkedIndex(nIndex)]; }
    TYPE& ElementAt(INT_PTR nIndex) { return m_pData[checkedIndex(nIndex)]; }
    const TYPE& operator[](INT_PTR nIndex) const { return GetAt(nIndex); }
    TYPE& operator[](INT_PTR nIndex) { return ElementAt(nIndex); }

    // The buffer itself; valid until the array is resized.
    const TYPE* GetData() const noexcept { return m_pData; }
    TYPE* GetData() noexcept { return m_pData; }

    // Sets element nIndex, growing the array first if it is that short.
    void SetAtGrow(INT_PTR nIndex, ARG_TYPE newElement);
    // Appends one element and returns its index.
    INT_PTR Add(ARG_TYPE newElement)
    {
        const INT_PTR nIndex = m_nSize;
        SetAtGrow(nIndex, newElement);
        return nIndex;
    }
    // Appends copies of src's elements and returns the former size.
    INT_PTR Append(const CArray& src);
    // Makes this array a copy of src.
    void Copy(const CArray& src);

    // Inserts nCount copies of newElement before nIndex; an index past the
    // end grows the array to nIndex + nCount.
    void InsertAt(INT_PTR nIndex, ARG_TYPE newElement, INT_PTR nCount = 1);
    // Inserts copies of all of pNewArray's elements before nStartIndex.
    void InsertAt(INT_PTR nStartIndex, const CArray* pNewArray);
    // Removes nCount elements starting at nIndex.
    void RemoveAt(INT_PTR nIndex, INT_PTR nCount = 1);

    void Serialize(CArchive& ar) override;
    void AssertValid() const override;

protected:
    TYPE* m_pData;
    INT_PTR m_nSize;
    INT_PTR m_nMaxSize;
    INT_PTR m_nGrowBy;

    // Serialize for elements that take at least nMinBytes bytes each in an
    // archive.
    void SerializeCounted(CArchive& ar, ULONGLONG nMinBytes);
    // Loading part of the collections' Serialize: reads and checks the count
    // (elements of at least nMinBytes bytes each) and makes the array that
    // long in batches that double, calling loadBatch(pFirst, nCount) for
    // each new stretch of elements.
    template <class LoadBatch>
    void LoadCounted(CArchive& ar, ULONGLONG nMinBytes, LoadBatch loadBatch);

private:
    static constexpr INT_PTR maxElements()
    {
        return static_cast<INT_PTR>(PTRDIFF_MAX / (sizeof(TYPE) > 0 ? sizeof(TYPE) : 1));
    }
    INT_PTR checkedIndex(INT_PTR nIndex) const
    {
        if (nIndex < 0 || nIndex >= m_nSize)
            AfxThrowInvalidArgException();
        return nIndex;
    }
    // Moves the constructed elements into a buffer of nNewMax slots.
    void reallocate(INT_PTR nNewMax);
    // Opens nCount slots before nIndex (growing the array if nIndex is past
    // the end); the slots hold valid but unspecified values.
    void openGap(INT_PTR nIndex, INT_PTR nCount);
    void releaseAll() noexcept;
};

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::releaseAll() noexcept
{
    if (m_pData != NULL) {
        DestructElements<TYPE>(m_pData, m_nSize);
        std::allocator<TYPE>().deallocate(m_pData, static_cast<std::size_t>(m_nMaxSize));
    }
    m_pData = NULL;
    m_nSize = 0;
    m_nMaxSize = 0;
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::reallocate(INT_PTR nNewMax)
{
    TYPE* pNew = NULL;
    try {
        pNew = std::allocator<TYPE>().allocate(static_cast<std::size_t>(nNewMax));
    } catch (const std::bad_alloc&) {
        AfxThrowMemoryException();
    }
    try {
        if constexpr (std::is_nothrow_move_constructible_v<TYPE> || !std::is_copy_constructible_v<TYPE>)
            std::uninitialized_move_n(m_pData, m_nSize, pNew);
        else
            std::uninitialized_copy_n(m_pData, m_nSize, pNew);
    } catch (...) {
        std::allocator<TYPE>().deallocate(pNew, static_cast<std::size_t>(nNewMax));
        throw;
    }
    if (m_pData != NULL) {
        DestructElements<TYPE>(m_pData, m_nSize);
        std::allocator<TYPE>().deallocate(m_pData, static_cast<std::size_t>(m_nMaxSize));
    }
    m_pData = pNew;
    m_nMaxSize = nNewMax;
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::SetSize(INT_PTR nNewSize, INT_PTR nGrowBy)
{
    if (nNewSize < 0)
        AfxThrowInvalidArgException();
    if (nNewSize > maxElements())
        AfxThrowMemoryException();
    if (nGrowBy >= 0)
        m_nGrowBy = nGrowBy;

    if (nNewSize == 0) {
        releaseAll();
        return;
    }
    if (m_pData == NULL) {
        reallocate(std::max(nNewSize, std::min(m_nGrowBy, maxElements())));
    } else if (nNewSize > m_nMaxSize) {
        INT_PTR grow = m_nGrowBy;
        if (grow == 0)
            grow = std::clamp<INT_PTR>(m_nSize / 8, 4, 1024);
        const INT_PTR nNewMax = (m_nMaxSize <= maxElements() - grow) ? std::max(nNewSize, m_nMaxSize + grow) : nNewSize;
        reallocate(nNewMax);
    }
    if (nNewSize > m_nSize)
        ConstructElements<TYPE>(m_pData + m_nSize, nNewSize - m_nSize);
    else
        DestructElements<TYPE>(m_pData + nNewSize, m_nSize - nNewSize);
    m_nSize = nNewSize;
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::FreeExtra()
{
    if (m_nSize == m_nMaxSize)
        return;
    if (m_nSize == 0)
        releaseAll();
    else
        reallocate(m_nSize);
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::SetAtGrow(INT_PTR nIndex, ARG_TYPE newElement)
{
    if (nIndex < 0)
        AfxThrowInvalidArgException();
    if (nIndex >= maxElements())
        AfxThrowMemoryException();
    if (nIndex < m_nSize) {
        m_pData[nIndex] = newElement;
    } else if (nIndex < m_nMaxSize) {
        // No reallocation: an argument inside this array stays in place.
        SetSize(nIndex + 1, -1);
        m_pData[nIndex] = newElement;
    } else {
        // The argument may be one of our elements, which the growth moves.
        TYPE copy(newElement);
        SetSize(nIndex + 1, -1);
        m_pData[nIndex] = std::move(copy);
    }
}

template <class TYPE, class ARG_TYPE>
INT_PTR CArray<TYPE, ARG_TYPE>::Append(const CArray& src)
{
    if (this == &src)
        AfxThrowInvalidArgException();
    const INT_PTR nOldSize = m_nSize;
    if (src.m_nSize > 0) {
        SetSize(m_nSize + src.m_nSize, -1);
        CopyElements<TYPE>(m_pData + nOldSize, src.m_pData, src.m_nSize);
    }
    return nOldSize;
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::Copy(const CArray& src)
{
    if (this == &src)
        return;
    SetSize(src.m_nSize, -1);
    CopyElements<TYPE>(m_pData, src.m_pData, src.m_nSize);
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::openGap(INT_PTR nIndex, INT_PTR nCount)
{
    if (nIndex < 0 || nCount <= 0)
        AfxThrowInvalidArgException();
    if (nCount > maxElements() - std::max(nIndex, m_nSize))
        AfxThrowMemoryException();
    if (nIndex >= m_nSize) {
        SetSize(nIndex + nCount, -1);
        return;
    }
    const INT_PTR nOldSize = m_nSize;
    SetSize(m_nSize + nCount, -1);
    std::move_backward(m_pData + nIndex, m_pData + nOldSize, m_pData + nOldSize + nCount);
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::InsertAt(INT_PTR nIndex, ARG_TYPE newElement, INT_PTR nCount)
{
    if (nIndex < 0 || nCount <= 0)
        AfxThrowInvalidArgException();
    // The argument may be one of our elements, which the insertion moves.
    const TYPE copy(newElement);
    openGap(nIndex, nCount);
    for (INT_PTR i = 0; i < nCount; ++i)
        m_pData[nIndex + i] = copy;
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::InsertAt(INT_PTR nStartIndex, const CArray* pNewArray)
{
    if (pNewArray == NULL || nStartIndex < 0)
        AfxThrowInvalidArgException();
    const INT_PTR n = pNewArray->m_nSize;
    if (n == 0)
        return;
    openGap(nStartIndex, n);
    if (pNewArray != this) {
        CopyElements<TYPE>(m_pData + nStartIndex, pNewArray->m_pData, n);
        return;
    }
    // Inserting into itself: the elements from nStartIndex on now sit n
    // slots further up.
    for (INT_PTR i = 0; i < n; ++i)
        m_pData[nStartIndex + i] = m_pData[i < nStartIndex ? i : i + n];
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::RemoveAt(INT_PTR nIndex, INT_PTR nCount)
{
    if (nIndex < 0 || nCount < 0 || nIndex > m_nSize || nCount > m_nSize - nIndex)
        AfxThrowInvalidArgException();
    if (nCount == 0)
        return;
    std::move(m_pData + nIndex + nCount, m_pData + m_nSize, m_pData + nIndex);
    DestructElements<TYPE>(m_pData + m_nSize - nCount, nCount);
    m_nSize -= nCount;
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::Serialize(CArchive& ar)
{
    SerializeCounted(ar, 1);
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::SerializeCounted(CArchive& ar, ULONGLONG nMinBytes)
{
    CObject::Serialize(ar);
    if (ar.IsStoring()) {
        ar.WriteCount(static_cast<DWORD_PTR>(m_nSize));
        SerializeElements<TYPE>(ar, m_pData, m_nSize);
        return;
    }
    LoadCounted(ar, nMinBytes, [&ar](TYPE* pFirst, INT_PTR nCount) { SerializeElements<TYPE>(ar, pFirst, nCount); });
}

template <class TYPE, class ARG_TYPE>
template <class LoadBatch>
void CArray<TYPE, ARG_TYPE>::LoadCounted(CArchive& ar, ULONGLONG nMinBytes, LoadBatch loadBatch)
{
    const DWORD_PTR nRead = ar.ReadCount();
    if (nRead > static_cast<DWORD_PTR>(maxElements()))
        AfxThrowArchiveException(CArchiveException::badIndex,
                                 ar.GetFile() != NULL ? ar.GetFile()->GetFilePath() : CString());
    ar.CheckCount(nRead, nMinBytes);
    const INT_PTR nCount = static_cast<INT_PTR>(nRead);
    constexpr INT_PTR nFirstBatch = std::max<INT_PTR>(1, 0x10000 / static_cast<INT_PTR>(sizeof(TYPE)));
    if (m_nSize > nCount || nCount == 0)
        SetSize(nCount, -1);
    INT_PTR nDone = 0;
    while (nDone < nCount) {
        const INT_PTR nBatch = std::min(nCount - nDone, std::max(nDone, nFirstBatch));
        if (m_nSize < nDone + nBatch)
            SetSize(nDone + nBatch, -1);
        loadBatch(m_pData + nDone, nBatch);
        nDone += nBatch;
    }
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::AssertValid() const
{
    CObject::AssertValid();
    assert(m_nSize >= 0 && m_nSize <= m_nMaxSize && m_nGrowBy >= 0);
    assert((m_pData == NULL) == (m_nMaxSize == 0));
}
