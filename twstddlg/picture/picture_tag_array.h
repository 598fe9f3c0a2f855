// The annotations of one picture: an array of picture tags kept in caption
// order with unique captions, its list string and hit tests over all tags.
//
// List string: the concatenation of the tags' text forms, each ending in
// ";". A URL holding a semicolon breaks the list; this is not guarded.
//
// Captions (GetText() of a tag) are unique ignoring case (CompareNoCase)
// and ordered by twutil's CompareStringA(new, existing, true). AddSorted and
// BuildArray keep both; Insert and Visible replace in place and keep
// neither.
//
// BuildArray tells the user about each refused tag: string 30040 ("Element
// konnte nicht eingefügt werden") in AfxMessageBox with an OK button.
#pragma once

#include "twstddlg_api.h"
#include "picture/picture_tag.h"
#include "values/array_export.h"

// The DLL instantiates and exports the array's members.
TWSTDDLG_EXTERN_ARRAY(CPictureTag);

// The annotations of one picture, ordered by caption.
class TWSTDDLG_API CPictureTagArray : public CArray<CPictureTag, CPictureTag&>
{
public:
    // Adds the tags of a list string to those already held, each with
    // AddSorted; a refused tag is reported and skipped.
    void BuildArray(CString list);
    // The list string of all tags in array order; empty for no tags.
    CString ToString();

    // Inserts the tag in caption order and returns its index; -1, and the
    // tag is dropped, if its caption is taken (ignoring case).
    INT_PTR AddSorted(CPictureTag tag);
    // Replaces the tag at index without checks; index >= size adds it with
    // AddSorted; a negative index gives -1 and changes nothing.
    INT_PTR Insert(INT_PTR index, CPictureTag tag);
    // Sets the visible switch of the tag at index; -1 if index is outside.
    INT_PTR Visible(INT_PTR index, int visible);
    // Index of the first tag whose caption equals caption ignoring case; -1 if none.
    INT_PTR Find(CString caption);

    // The first tag, in array order, whose handle the point hits, and which
    // handle; index -1 and DOT_NONE without a hit. index is written only
    // for DOT_POINT.
    _TAG_INFO FindPictureTag(CPoint point, int& index);
    // As FindPictureTag with each tag's outline test.
    _TAG_INFO PointInPictureTag(CPoint point, int& index);

private:
    class CaptionOf;
};
