#include "sorted_string_array.h"

#include "string_helpers.h"

CSortedStringArray::CSortedStringArray() = default;

CSortedStringArray::~CSortedStringArray() = default;

INT_PTR CSortedStringArray::AddSorted(const char* text)
{
    const CString value(text);
    INT_PTR low = 0;
    INT_PTR high = GetSize();
    while (low < high) {
        const INT_PTR mid = low + (high - low) / 2;
        if (CompareStringA(value, GetAt(mid), true) < 0)
            high = mid;
        else
            low = mid + 1;
    }
    InsertAt(low, value);
    return low;
}
