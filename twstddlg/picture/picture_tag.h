// Picture tags: one annotation drawn over a picture (ellipse, circle, line,
// arrow, square, rectangle, free text or polygon) with a caption, a caption
// position, a visibility switch and an optional link, its one-line text form
// and its hit tests. Coordinates are picture pixels.
//
// Text form of one tag (ToString and the parser):
//     <letter><x>,<y>,<cx>,<cy>,<text x>,<text y>,"<caption>"[,<px>,<py>]...[,"<URL>"];
// The caption is written with its semicolons turned into commas; quotes in
// caption and URL are not escaped. Points are written for polygons only.
//
// Choices made here:
// - Numbers are read as atoi reads them (leading blanks, a sign, digits,
//   anything else ends the number); a number beyond the int range reads as
//   INT_MAX or INT_MIN, as the Windows runtime's atoi gives it.
// - A form outside the table writes its letter as the byte 255.
// - The handle test compares in 64-bit arithmetic, so no coordinate wraps.
//   The outline tests take their squares (and the sums of two squares) in
//   32-bit integer arithmetic that wraps as on the target. A zero axis
//   never hits.
// - Copy assignment of a tag to itself leaves it unchanged.
// - A tag also has a move constructor and move assignment that take the
//   text, URL and points over without copying; the moved-from tag keeps its
//   other fields and has an empty text, URL and point list. Arrays of tags
//   shift their elements with them.
#pragma once

#include "twstddlg_api.h"
#include "afxstr.h"
#include "afxtempl.h"
#include "atltypes.h"

// Kind of figure of a tag; any int value may occur, those outside the table
// are unknown forms.
enum TAG_FORM : int
{
    TAG_UNKNOWN = -1,
    TAG_ELLIPSE = 0,
    TAG_CIRCLE = 1,
    TAG_LINE = 2,
    TAG_ARROW = 3,
    TAG_SQUARE = 4,
    TAG_RECTANGLE = 5,
    TAG_TEXT = 6,
    TAG_POLYGON = 7,
};

// Which part of a tag a point hits.
enum TAG_DOT : int
{
    DOT_NONE = 0,
    DOT_POSITION = 1,
    DOT_SIZE = 2,
    DOT_TEXT = 3,
    DOT_POINT = 4,
    DOT_OUTLINE = 5,
};

// Result of a hit test over an array of tags: the tag's index (-1 for none)
// and the part hit.
struct _TAG_INFO
{
    __int64 index;
    TAG_DOT dot;
};

class CPictureTagArray;

// The data of one picture tag.
class TWSTDDLG_API CPictureTagBase
{
    friend class CPictureTagArray;

public:
    CPictureTagBase();
    CPictureTagBase(const CPictureTagBase&) = delete;
    CPictureTagBase& operator=(const CPictureTagBase&) = delete;
    virtual ~CPictureTagBase();

    // The tag's text form; the base gives an empty string.
    virtual CString ToString();

    TAG_FORM GetTagForm() const { return m_eTagForm; }
    void SetTagForm(TAG_FORM form) { m_eTagForm = form; }
    CPoint GetPosition() const { return m_ptPosition; }
    void SetPosition(CPoint position) { m_ptPosition = position; }
    int GetX() const { return m_ptPosition.x; }
    int GetY() const { return m_ptPosition.y; }
    CPoint GetTextPosition() const { return m_ptTextPosition; }
    void SetTextPosition(CPoint position) { m_ptTextPosition = position; }
    int GetVisible() const { return m_iVisible; }
    void SetVisible(int visible) { m_iVisible = visible; }
    CString GetURL() const { return m_strURL; }
    void SetURL(CString url) { m_strURL = url; }

    // Begins a new figure: sets the form, a zero distance and no points.
    void InitTagForm(TAG_FORM form);
    void SetDistance(CPoint distance);
    void SetDistance(int cx, int cy);
    // Sets the distance to the point and appends it to the points (one
    // click while a polygon is drawn).
    void SetCorner(CPoint point);
    // Replaces point index; an index outside the points is ignored.
    void SetCorner(CPoint point, int index);
    // Ends a polygon: with two points or more, the last point becomes the
    // distance and leaves the points.
    void CorrectPointArray();

    // Stores the caption with every CR LF written as backslash and n.
    void SetText(CString text);
    // The caption with every ";" turned into "," (the list separator).
    CString GetText() const;

    // The letter of the tag's form; the byte 255 for a form outside the table.
    char GetTagTypeChar() const;
    // The German name of the tag's form; "???" for a form outside the table.
    CString GetTagName() const;
    // The German name of a form; "???" for a form outside the table.
    static CString GetTagName(TAG_FORM form);
    // The form whose letter is exactly ch (upper case); TAG_UNKNOWN if none.
    static TAG_FORM GetTagForm(char ch);

    // Which handle the point hits (position, far corner or polygon corners,
    // caption), within 5 pixels on both axes; index is written only for
    // DOT_POINT, with the corner's index in the points.
    TAG_DOT FindPictureTag(CPoint point, int& index) const;
    // The handle test, then the outline of the figure (DOT_OUTLINE).
    TAG_DOT PointInPictureTag(CPoint point, int& index) const;

protected:
    // Copies every field of src, drawing state and points included.
    void FromPictureTagBase(const CPictureTagBase& src);
    // Hands the points of src over to this tag, dropping its own.
    void MovePoints(CPictureTagBase& src) noexcept;
    // Takes every field of src over without copying; src keeps its plain
    // values and loses its text, URL and points. Inline, because arrays of
    // tags call it for every element they shift.
    void MoveFromPictureTagBase(CPictureTagBase& src) noexcept
    {
        m_eTagForm = src.m_eTagForm;
        m_ptPosition = src.m_ptPosition;
        m_szDistance = src.m_szDistance;
        m_ptTextPosition = src.m_ptTextPosition;
        m_strText = static_cast<CString&&>(src.m_strText);
        m_iVisible = src.m_iVisible;
        m_strURL = static_cast<CString&&>(src.m_strURL);
        m_iArrowSize = src.m_iArrowSize;
        m_crLineColor = src.m_crLineColor;
        if (m_aPoints.GetData() != NULL || src.m_aPoints.GetData() != NULL)
            MovePoints(src);
        m_ptOffset = src.m_ptOffset;
        m_fZoom = src.m_fZoom;
    }

    TAG_FORM m_eTagForm;
    CPoint m_ptPosition;
    // The size (far corner relative to the position); for a polygon the
    // absolute last corner.
    CSize m_szDistance;
    CPoint m_ptTextPosition;
    // Line breaks are held as backslash and n.
    CString m_strText;
    int m_iVisible;
    CString m_strURL;
    // Drawing state, written when the tag is drawn.
    int m_iArrowSize;
    COLORREF m_crLineColor;
    // A polygon's inner corners; the first is the position, the last the distance.
    CArray<CPoint, CPoint&> m_aPoints;
    CPoint m_ptOffset;
    float m_fZoom;
};

// A picture tag with its text form and parser.
class TWSTDDLG_API CPictureTag : public CPictureTagBase
{
public:
    CPictureTag();
    CPictureTag(const CPictureTag& src);
    CPictureTag(CPictureTag&& src) noexcept : CPictureTagBase() { MoveFromPictureTagBase(src); }
    // Parses the text form; text it cannot read leaves the default tag.
    // Not explicit: hosts hand tag texts where a tag is expected.
    CPictureTag(CString text);
    ~CPictureTag() override;

    CPictureTag& operator=(const CPictureTag& src);
    CPictureTag& operator=(CPictureTag&& src) noexcept
    {
        if (this != &src)
            MoveFromPictureTagBase(src);
        return *this;
    }

    // The one-line text form, ending in ";".
    CString ToString() override;

protected:
    // Reads the text form into this tag. Fewer than seven comma-separated
    // fields change nothing; after the seven head fields, pairs are points
    // (for every form) and a single field left over is the URL.
    virtual void PictureTagFromText(CString text);
};
