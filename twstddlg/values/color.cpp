#include "values/color.h"

#include "values/named_array.h"

namespace {

const CString& NameOf(const CColor& color)
{
    return color.GetName();
}

}  // namespace

CColor::CColor() : m_flag(0), m_rgb(TW_NO_COLOR) {}

CColor::CColor(const CColor& other) : CColor()
{
    Set(other.m_name, other.m_rgb, other.m_flag);
}

CColor& CColor::operator=(const CColor& other)
{
    Set(other.m_name, other.m_rgb, other.m_flag);
    return *this;
}

CColor::~CColor() = default;

void CColor::SetName(const char* name)
{
    m_name = name;
}

void CColor::SetFlag(int flag)
{
    m_flag = flag;
}

void CColor::SetRGB(COLORREF rgb)
{
    m_rgb = rgb;
}

void CColor::Set(const char* name, COLORREF rgb, int flag)
{
    SetName(name);
    SetRGB(rgb);
    SetFlag(flag);
}

CColorArray::CColorArray() = default;

CColorArray::~CColorArray() = default;

INT_PTR CColorArray::Add(CColor color)
{
    if (FindColor(color.GetName()) >= 0)
        return -1;
    return CArray::Add(color);
}

INT_PTR CColorArray::AddSorted(CColor color)
{
    return tw_values::InsertByName<CColor, CColor&>(*this, color, NameOf);
}

INT_PTR CColorArray::Replace(CColor color)
{
    const INT_PTR index = FindColor(color.GetName());
    if (index < 0)
        return CArray::Add(color);
    RemoveAt(index);
    InsertAt(index, color);
    return index;
}

INT_PTR CColorArray::FindColor(const char* name) const
{
    return tw_values::FindByName(*this, name, NameOf);
}

COLORREF CColorArray::GetRGB(const char* name) const
{
    const INT_PTR index = FindColor(name);
    return index < 0 ? TW_NO_COLOR : GetAt(index).GetRGB();
}
