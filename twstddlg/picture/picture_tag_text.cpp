// Picture tag text form: the writer and the parser.
#include "picture/picture_tag.h"

#include "afxcoll.h"
#include "afxexcept.h"
#include "string_helpers.h"

#include <climits>

namespace {

constexpr INT_PTR kHeadFields = 7;

bool IsCSpace(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\v' || c == '\f' || c == '\r';
}

// atoi of a NUL-terminated text; out-of-range values are clamped.
int ReadInt(const char* p)
{
    while (IsCSpace(*p))
        ++p;
    bool negative = false;
    if (*p == '+' || *p == '-')
        negative = *p++ == '-';
    long long value = 0;
    const long long limit = negative ? -static_cast<long long>(INT_MIN) : INT_MAX;
    for (; *p >= '0' && *p <= '9'; ++p) {
        value = value * 10 + (*p - '0');
        if (value > limit)
            value = limit;
    }
    return static_cast<int>(negative ? -value : value);
}

int ReadInt(const CString& field)
{
    return ReadInt(field.GetString());
}

}  // namespace

CString CPictureTag::ToString()
{
    CString text;
    text.AppendChar(GetTagTypeChar());
    const CString caption = GetText();
    text.AppendFormat("%i,%i,%i,%i,%i,%i,\"%s\"", m_ptPosition.x, m_ptPosition.y, m_szDistance.cx, m_szDistance.cy,
                      m_ptTextPosition.x, m_ptTextPosition.y, caption.GetString());
    if (m_eTagForm == TAG_POLYGON) {
        for (INT_PTR i = 0; i < m_aPoints.GetSize(); ++i)
            text.AppendFormat(",%i,%i", m_aPoints[i].x, m_aPoints[i].y);
    }
    if (!m_strURL.IsEmpty())
        text.AppendFormat(",\"%s\"", m_strURL.GetString());
    text.AppendChar(';');
    return text;
}

void CPictureTag::PictureTagFromText(CString text)
{
    try {
        CStringArray fields;
        SplitCSVLine(text, ',', &fields);
        const INT_PTR n = fields.GetSize();
        if (n < kHeadFields)
            return;
        const CString& head = fields[0];
        m_eTagForm = GetTagForm(head.GetAt(0));
        m_ptPosition.x = ReadInt(head.Mid(1));
        m_ptPosition.y = ReadInt(fields[1]);
        m_szDistance.cx = ReadInt(fields[2]);
        m_szDistance.cy = ReadInt(fields[3]);
        m_ptTextPosition.x = ReadInt(fields[4]);
        m_ptTextPosition.y = ReadInt(fields[5]);
        m_strText = fields[6];
        m_iVisible = 1;
        if (n == kHeadFields + 1) {
            m_strURL = fields[kHeadFields];
        } else if (n > kHeadFields + 1) {
            // Deliberate: pairs after the head are read as points for every
            // form, though only polygons write them back.
            m_aPoints.RemoveAll();
            for (INT_PTR k = 0; k < (n - kHeadFields) / 2; ++k) {
                CPoint point(ReadInt(fields[kHeadFields + 2 * k]), ReadInt(fields[kHeadFields + 1 + 2 * k]));
                m_aPoints.Add(point);
            }
            if (n % 2 == 0)
                m_strURL = fields[n - 1];
        }
    } catch (CException* e) {
        // A fault while reading keeps whatever was read until then.
        e->Delete();
    }
}
