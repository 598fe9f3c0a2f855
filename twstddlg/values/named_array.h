// The rules that every array of named values shares (colours, symbols, the
// unique string arrays): name equality ignoring case, and insertion in name
// order scanning from the end. Used by the library's sources only.
#pragma once

#include "afxstr.h"
#include "afxtempl.h"
#include "string_helpers.h"

#include <cstring>

namespace tw_values {

// Whether the two names are equal after converting both to upper case
// (code page 1252), compared over their whole lengths. A null text is "".
inline bool SameName(const CString& stored, const char* wanted)
{
    const std::size_t length = wanted != nullptr ? std::strlen(wanted) : 0;
    if (static_cast<std::size_t>(stored.GetLength()) != length)
        return false;
    const char* s = stored.GetString();
    for (std::size_t i = 0; i < length; ++i) {
        if (AfxToUpper1252(s[i]) != AfxToUpper1252(wanted[i]))
            return false;
    }
    return true;
}

// Index of the first element whose name (nameOf(element)) is SameName as
// name; -1 if none.
template <class TYPE, class ARG_TYPE, class NameOf>
INT_PTR FindByName(const CArray<TYPE, ARG_TYPE>& array, const char* name, NameOf nameOf)
{
    for (INT_PTR i = 0; i < array.GetSize(); ++i) {
        if (SameName(nameOf(array[i]), name))
            return i;
    }
    return -1;
}

// Inserts element after the last element whose name the new name does not
// sort before (CompareStringA(new, old, true) >= 0), scanning from the end,
// so an equal name goes after the last equal one; at 0 if there is none.
// Returns the index where the element now stands. No duplicate check.
template <class TYPE, class ARG_TYPE, class NameOf>
INT_PTR InsertByName(CArray<TYPE, ARG_TYPE>& array, ARG_TYPE element, NameOf nameOf)
{
    const CString name = nameOf(element);
    for (INT_PTR i = array.GetSize() - 1; i >= 0; --i) {
        if (CompareStringA(name, nameOf(array[i]), true) >= 0) {
            if (i == array.GetUpperBound())
                return array.Add(element);
            array.InsertAt(i + 1, element);
            return i + 1;
        }
    }
    if (array.IsEmpty())
        return array.Add(element);
    array.InsertAt(0, element);
    return 0;
}

}  // namespace tw_values
