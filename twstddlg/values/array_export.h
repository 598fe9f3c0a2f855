// Declares that the library instantiates and exports CArray<TYPE, TYPE&>, so
// that hosts call the library's copy of its members.
//
// Only the members defined outside the class body are declared, one by one:
// mingw-w64 g++ never exports inline member functions, and an explicit
// instantiation declaration of the whole class would keep hosts from
// compiling those inline members themselves (unoptimised hosts would then
// miss them at link time). Hosts thus compile the inline members (GetSize,
// GetAt, Add, operator[], the constructor and destructor, ...) and import the
// rest. array_instances.cpp holds the matching instantiation definitions.
#pragma once

#include "twstddlg_api.h"
#include "afxtempl.h"

#define TWSTDDLG_EXTERN_ARRAY(TYPE) \
    extern template TWSTDDLG_API void CArray<TYPE, TYPE&>::SetSize(INT_PTR, INT_PTR); \
    extern template TWSTDDLG_API void CArray<TYPE, TYPE&>::FreeExtra(); \
    extern template TWSTDDLG_API void CArray<TYPE, TYPE&>::SetAtGrow(INT_PTR, TYPE&); \
    extern template TWSTDDLG_API INT_PTR CArray<TYPE, TYPE&>::Append(const CArray&); \
    extern template TWSTDDLG_API void CArray<TYPE, TYPE&>::Copy(const CArray&); \
    extern template TWSTDDLG_API void CArray<TYPE, TYPE&>::InsertAt(INT_PTR, TYPE&, INT_PTR); \
    extern template TWSTDDLG_API void CArray<TYPE, TYPE&>::InsertAt(INT_PTR, const CArray*); \
    extern template TWSTDDLG_API void CArray<TYPE, TYPE&>::RemoveAt(INT_PTR, INT_PTR); \
    extern template TWSTDDLG_API void CArray<TYPE, TYPE&>::Serialize(CArchive&); \
    extern template TWSTDDLG_API void CArray<TYPE, TYPE&>::AssertValid() const
