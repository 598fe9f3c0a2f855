#include "values/string_arrays.h"

#include "values/named_array.h"

namespace {

const CString& TextOf(const CString& text)
{
    return text;
}

const CString& TextOfCheck(const _STRING_CHECK& element)
{
    return element.text;
}

}  // namespace

CUniqueStringArray::CUniqueStringArray() = default;

CUniqueStringArray::~CUniqueStringArray() = default;

INT_PTR CUniqueStringArray::Add(const char* text)
{
    if (Find(text) >= 0)
        return -1;
    return CStringArray::Add(text);
}

INT_PTR CUniqueStringArray::Find(const char* text) const
{
    return tw_values::FindByName(*this, text, TextOf);
}

CUniqueSortedStringArray::CUniqueSortedStringArray() = default;

CUniqueSortedStringArray::~CUniqueSortedStringArray() = default;

INT_PTR CUniqueSortedStringArray::AddSorted(const char* text)
{
    if (Find(text) >= 0)
        return -1;
    return tw_values::InsertByName<CString, const CString&>(*this, CString(text), TextOf);
}

INT_PTR CUniqueSortedStringArray::Add(const char* text)
{
    return AddSorted(text);
}

INT_PTR CUniqueSortedStringArray::Find(const char* text) const
{
    return tw_values::FindByName(*this, text, TextOf);
}

CUniqueStringArrayCheck::CUniqueStringArrayCheck() = default;

CUniqueStringArrayCheck::~CUniqueStringArrayCheck() = default;

INT_PTR CUniqueStringArrayCheck::Add(_STRING_CHECK element)
{
    if (Find(element.text) >= 0)
        return -1;
    return CArray::Add(element);
}

INT_PTR CUniqueStringArrayCheck::Add(const char* text, int check)
{
    return Add(_STRING_CHECK{CString(text), check});
}

INT_PTR CUniqueStringArrayCheck::Find(const char* text) const
{
    return tw_values::FindByName(*this, text, TextOfCheck);
}

CUniqueStringArrayPicture::CUniqueStringArrayPicture() = default;

CUniqueStringArrayPicture::~CUniqueStringArrayPicture() = default;

INT_PTR CUniqueStringArrayPicture::Add(_BILD_IDENT element)
{
    if (Find(element.folder, element.file, element.title) >= 0)
        return -1;
    return CArray::Add(element);
}

INT_PTR CUniqueStringArrayPicture::Add(const char* folder, const char* file, const char* title)
{
    return Add(_BILD_IDENT{CString(folder), CString(file), CString(title)});
}

INT_PTR CUniqueStringArrayPicture::Find(const char* folder, const char* file, const char* title) const
{
    for (INT_PTR i = 0; i < GetSize(); ++i) {
        const _BILD_IDENT& p = GetAt(i);
        if (tw_values::SameName(p.folder, folder) && tw_values::SameName(p.file, file) &&
            tw_values::SameName(p.title, title))
            return i;
    }
    return -1;
}
