// A string array kept in ascending order by AddSorted.
#pragma once

#include "twutil_api.h"
#include "afxcoll.h"

// A CStringArray whose AddSorted keeps the strings in the ascending order of
// CompareStringA(a, b, true) (see string_helpers.h). Equal strings are
// admitted. The other members are those of CStringArray and do not sort.
class TWUTIL_API CSortedStringArray : public CStringArray
{
public:
    CSortedStringArray();
    virtual ~CSortedStringArray();

    // Inserts the text after every element that does not sort after it, so an
    // equal text goes after the last equal one, and returns its index. Found
    // by binary search: on an array that was filled in another order the text
    // lands at some index and the array stays as safe to use as before.
    // A null text is inserted as "".
    INT_PTR AddSorted(const char* text);
};
