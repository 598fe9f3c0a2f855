// Picture tag model: fields, the form table, copying and the hit tests.
#include "picture/picture_tag.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <utility>

namespace {

struct TagFormRow
{
    TAG_FORM form;
    char letter;
    const char* name;
};

constexpr TagFormRow kTagForms[] = {
    {TAG_UNKNOWN, '?', "Unbekannt"},  {TAG_ELLIPSE, 'E', "Ellipse"}, {TAG_CIRCLE, 'K', "Kreis"},
    {TAG_LINE, 'L', "Linie"},         {TAG_ARROW, 'P', "Pfeil"},     {TAG_SQUARE, 'Q', "Quadrat"},
    {TAG_RECTANGLE, 'R', "Rechteck"}, {TAG_TEXT, 'T', "Text"},       {TAG_POLYGON, 'V', "Vieleck"},
};
constexpr int kTagFormCount = static_cast<int>(std::size(kTagForms));

// The form names as strings, built when the library is loaded.
struct TagFormNames
{
    CString names[kTagFormCount];
    TagFormNames()
    {
        for (int i = 0; i < kTagFormCount; ++i)
            names[i] = kTagForms[i].name;
    }
};
const TagFormNames g_tagFormNames;

// Row of the form, searched from the first row; -1 if none.
constexpr int RowOfForm(TAG_FORM form)
{
    for (int i = 0; i < kTagFormCount; ++i)
        if (kTagForms[i].form == form)
            return i;
    return -1;
}

constexpr int RowOfLetter(char letter)
{
    for (int i = 0; i < kTagFormCount; ++i)
        if (kTagForms[i].letter == letter)
            return i;
    return -1;
}

constexpr int kHandleReach = 5;

bool NearHandle(CPoint p, long long hx, long long hy)
{
    return std::llabs(p.x - hx) <= kHandleReach && std::llabs(p.y - hy) <= kHandleReach;
}

// Difference and square in 32-bit arithmetic that wraps, as the outline
// tests define them.
std::int32_t Minus32(int a, int b)
{
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) - static_cast<std::uint32_t>(b));
}

std::int32_t SumOfSquares32(std::int32_t dx, std::int32_t dy)
{
    const std::uint32_t ux = static_cast<std::uint32_t>(dx);
    const std::uint32_t uy = static_cast<std::uint32_t>(dy);
    return static_cast<std::int32_t>(ux * ux + uy * uy);
}

std::int32_t Square32(std::int32_t d)
{
    const std::uint32_t u = static_cast<std::uint32_t>(d);
    return static_cast<std::int32_t>(u * u);
}

double Distance32(CPoint a, CPoint b)
{
    return std::sqrt(static_cast<double>(SumOfSquares32(Minus32(a.x, b.x), Minus32(a.y, b.y))));
}

}  // namespace

// ---- construction and copying ------------------------------------------------

CPictureTagBase::CPictureTagBase()
    : m_eTagForm(TAG_UNKNOWN), m_ptPosition(0, 0), m_szDistance(0, 0), m_ptTextPosition(0, 0), m_iVisible(1),
      m_iArrowSize(15), m_crLineColor(0), m_ptOffset(0, 0), m_fZoom(1.0f)
{}

CPictureTagBase::~CPictureTagBase() = default;

void CPictureTagBase::FromPictureTagBase(const CPictureTagBase& src)
{
    if (this == &src)
        return;
    m_eTagForm = src.m_eTagForm;
    m_ptPosition = src.m_ptPosition;
    m_szDistance = src.m_szDistance;
    m_ptTextPosition = src.m_ptTextPosition;
    m_strText = src.m_strText;
    m_iVisible = src.m_iVisible;
    m_strURL = src.m_strURL;
    m_iArrowSize = src.m_iArrowSize;
    m_crLineColor = src.m_crLineColor;
    m_aPoints.RemoveAll();
    for (INT_PTR i = 0; i < src.m_aPoints.GetSize(); ++i) {
        CPoint point = src.m_aPoints[i];
        m_aPoints.Add(point);
    }
    m_ptOffset = src.m_ptOffset;
    m_fZoom = src.m_fZoom;
}

namespace {

// Hands the buffer of one point array to another without copying elements;
// CArray itself has neither a move nor a swap.
struct PointArrayMove : CArray<CPoint, CPoint&>
{
    using Base = CArray<CPoint, CPoint&>;
    static void Move(Base& target, Base& src) noexcept
    {
        target.RemoveAll();
        std::swap(target.*(&PointArrayMove::m_pData), src.*(&PointArrayMove::m_pData));
        std::swap(target.*(&PointArrayMove::m_nSize), src.*(&PointArrayMove::m_nSize));
        std::swap(target.*(&PointArrayMove::m_nMaxSize), src.*(&PointArrayMove::m_nMaxSize));
        std::swap(target.*(&PointArrayMove::m_nGrowBy), src.*(&PointArrayMove::m_nGrowBy));
    }
};

}  // namespace

void CPictureTagBase::MovePoints(CPictureTagBase& src) noexcept
{
    PointArrayMove::Move(m_aPoints, src.m_aPoints);
}

CPictureTag::CPictureTag() = default;

CPictureTag::CPictureTag(const CPictureTag& src) : CPictureTagBase()
{
    FromPictureTagBase(src);
}

CPictureTag::CPictureTag(CString text) : CPictureTagBase()
{
    PictureTagFromText(text);
}

CPictureTag::~CPictureTag() = default;

CPictureTag& CPictureTag::operator=(const CPictureTag& src)
{
    FromPictureTagBase(src);
    return *this;
}

CString CPictureTagBase::ToString()
{
    return CString();
}

// ---- fields ------------------------------------------------------------------

void CPictureTagBase::InitTagForm(TAG_FORM form)
{
    m_eTagForm = form;
    m_szDistance = CSize(0, 0);
    m_aPoints.RemoveAll();
}

void CPictureTagBase::SetDistance(CPoint distance)
{
    m_szDistance = CSize(distance.x, distance.y);
}

void CPictureTagBase::SetDistance(int cx, int cy)
{
    m_szDistance = CSize(cx, cy);
}

void CPictureTagBase::SetCorner(CPoint point)
{
    SetDistance(point);
    m_aPoints.Add(point);
}

void CPictureTagBase::SetCorner(CPoint point, int index)
{
    if (index >= 0 && index < m_aPoints.GetSize())
        m_aPoints[index] = point;
}

void CPictureTagBase::CorrectPointArray()
{
    const INT_PTR count = m_aPoints.GetSize();
    if (count < 2)
        return;
    SetDistance(m_aPoints[count - 1]);
    m_aPoints.RemoveAt(count - 1);
}

void CPictureTagBase::SetText(CString text)
{
    text.Replace("\r\n", "\\n");
    m_strText = text;
}

CString CPictureTagBase::GetText() const
{
    CString text = m_strText;
    text.Replace(';', ',');
    return text;
}

// ---- the form table ----------------------------------------------------------

char CPictureTagBase::GetTagTypeChar() const
{
    const int row = RowOfForm(m_eTagForm);
    return row >= 0 ? kTagForms[row].letter : static_cast<char>(0xFF);
}

CString CPictureTagBase::GetTagName() const
{
    return GetTagName(m_eTagForm);
}

CString CPictureTagBase::GetTagName(TAG_FORM form)
{
    const int row = RowOfForm(form);
    return row >= 0 ? g_tagFormNames.names[row] : CString("???");
}

TAG_FORM CPictureTagBase::GetTagForm(char ch)
{
    const int row = RowOfLetter(ch);
    return row >= 0 ? kTagForms[row].form : TAG_UNKNOWN;
}

// ---- hit tests -----------------------------------------------------------------

TAG_DOT CPictureTagBase::FindPictureTag(CPoint point, int& index) const
{
    const long long x = m_ptPosition.x;
    const long long y = m_ptPosition.y;
    if (NearHandle(point, x, y))
        return DOT_POSITION;
    if (m_eTagForm == TAG_POLYGON) {
        if (NearHandle(point, m_szDistance.cx, m_szDistance.cy))
            return DOT_SIZE;
        for (INT_PTR i = 0; i < m_aPoints.GetSize(); ++i) {
            if (NearHandle(point, m_aPoints[i].x, m_aPoints[i].y)) {
                index = static_cast<int>(i);
                return DOT_POINT;
            }
        }
    } else if (NearHandle(point, x + m_szDistance.cx, y + m_szDistance.cy)) {
        return DOT_SIZE;
    }
    if (NearHandle(point, m_ptTextPosition.x, m_ptTextPosition.y))
        return DOT_TEXT;
    return DOT_NONE;
}

TAG_DOT CPictureTagBase::PointInPictureTag(CPoint point, int& index) const
{
    const TAG_DOT handle = FindPictureTag(point, index);
    if (handle != DOT_NONE)
        return handle;

    const int x = m_ptPosition.x;
    const int y = m_ptPosition.y;
    const int cx = m_szDistance.cx;
    const int cy = m_szDistance.cy;
    // The half axes of the ellipse and the circle's radius are halved as
    // doubles, not halved as integers and then converted: an odd extent of
    // 5 gives 2.5, not 2.
    const double a = cx / 2.0;
    const double b = cy / 2.0;
    bool hit = false;
    switch (m_eTagForm) {
    case TAG_ELLIPSE: {
        // Deliberate: the position is taken as the centre here although
        // drawing takes it as a corner of the bounding box.
        const double dx2 = Square32(Minus32(point.x, x));
        const double dy2 = Square32(Minus32(point.y, y));
        hit = std::fabs(dy2 / (b * b) + dx2 / (a * a) - 1.0) < 0.05;
        break;
    }
    case TAG_CIRCLE:
        hit = std::fabs(Distance32(point, m_ptPosition) - a) < 5.0;
        break;
    case TAG_SQUARE:
    case TAG_RECTANGLE: {
        // Deliberate: the distance is read as the absolute bottom-right
        // corner, edges are exact and the top edge counts only at its ends.
        const int right = cx;
        const int bottom = cy;
        if (point.y == bottom && x <= point.x && point.x <= right)
            hit = true;
        else
            hit = (point.x == x || point.x == right) && y <= point.y && point.y <= bottom;
        break;
    }
    case TAG_POLYGON: {
        const INT_PTR count = m_aPoints.GetSize();
        if (count < 2)
            break;
        // Deliberate: the segment to the last inner point and the closing
        // segments through the last corner are not tested.
        CPoint a = m_ptPosition;
        for (INT_PTR i = 0; i + 1 < count && !hit; ++i) {
            const CPoint b = m_aPoints[i];
            hit = std::fabs(Distance32(point, a) + Distance32(point, b) - Distance32(a, b)) < 0.05;
            a = b;
        }
        break;
    }
    default:
        break;
    }
    return hit ? DOT_OUTLINE : DOT_NONE;
}
