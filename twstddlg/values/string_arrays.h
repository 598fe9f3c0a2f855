// The string array family: sorted and unique string lists and the arrays of
// checked strings and picture identities.
//
// Unique arrays compare texts ignoring case (both upper-cased in code page
// 1252, then compared exactly). Their own Add refuses a text already present
// with -1; the members inherited from the framework's arrays (SetAt,
// InsertAt, SetAtGrow, and Add through a base-class pointer or reference)
// do not check, so a host that uses them keeps the texts unique itself.
// Serialize is the framework's: the count and the raw element images for the
// record arrays, so their strings do not survive an archive.
#pragma once

#include "twstddlg_api.h"
#include "afxcoll.h"
#include "afxtempl.h"
#include "values/array_export.h"
#include "sorted_string_array.h"

// A text with its check state (0 unchecked).
struct _STRING_CHECK
{
    CString text;
    int check = 0;
};

// The identity of a picture: folder, file name and title together.
struct _BILD_IDENT
{
    CString folder;
    CString file;
    CString title;
};

TWSTDDLG_EXTERN_ARRAY(_STRING_CHECK);
TWSTDDLG_EXTERN_ARRAY(_BILD_IDENT);

// A string list without two texts that are equal ignoring case, in the order
// of adding.
class TWSTDDLG_API CUniqueStringArray : public CStringArray
{
public:
    CUniqueStringArray();
    ~CUniqueStringArray() override;

    // Appends the text and returns its index; -1 and no change if it is there.
    INT_PTR Add(const char* text);
    // Index of the text ignoring case; -1 if it is not there.
    INT_PTR Find(const char* text) const;
};

// A string list without two texts that are equal ignoring case, kept in the
// order of CompareStringA(a, b, true) as CSortedStringArray is.
class TWSTDDLG_API CUniqueSortedStringArray : public CStringArray
{
public:
    CUniqueSortedStringArray();
    ~CUniqueSortedStringArray() override;

    // Inserts the text at its place in order and returns its index; -1 and
    // no change if it is there.
    INT_PTR AddSorted(const char* text);
    // The same as AddSorted, so that adding never breaks the order.
    INT_PTR Add(const char* text);
    // Index of the text ignoring case; -1 if it is not there.
    INT_PTR Find(const char* text) const;
};

// Checked texts without two texts that are equal ignoring case.
class TWSTDDLG_API CUniqueStringArrayCheck : public CArray<_STRING_CHECK, _STRING_CHECK&>
{
public:
    CUniqueStringArrayCheck();
    ~CUniqueStringArrayCheck() override;

    // Appends the element and returns its index; -1 and no change if its
    // text is there (the check state is not compared).
    INT_PTR Add(_STRING_CHECK element);
    INT_PTR Add(const char* text, int check = 0);
    // Index of the element with this text ignoring case; -1 if none.
    INT_PTR Find(const char* text) const;
};

// Picture identities without two that are equal ignoring case in all three
// strings.
class TWSTDDLG_API CUniqueStringArrayPicture : public CArray<_BILD_IDENT, _BILD_IDENT&>
{
public:
    CUniqueStringArrayPicture();
    ~CUniqueStringArrayPicture() override;

    // Appends the identity and returns its index; -1 and no change if an
    // equal one is there.
    INT_PTR Add(_BILD_IDENT element);
    INT_PTR Add(const char* folder, const char* file, const char* title);
    // Index of the identity whose folder, file and title all equal these
    // ignoring case; -1 if none.
    INT_PTR Find(const char* folder, const char* file, const char* title) const;
};
