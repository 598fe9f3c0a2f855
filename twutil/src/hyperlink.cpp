#include "hyperlink.h"

CHyperlink::CHyperlink(const char* link) : m_sLink(link != nullptr ? link : "") {}

CHyperlink::CHyperlink(const CHyperlink& other) = default;

CHyperlink& CHyperlink::operator=(const CHyperlink& other) = default;

CHyperlink& CHyperlink::operator=(const char* link)
{
    m_sLink = link != nullptr ? link : "";
    return *this;
}

CString CHyperlink::GetTarget() const
{
    CString target = m_sLink;
    target.Trim();
    if (target.Left(4).CompareNoCase("www.") == 0)
        target.Insert(0, "http://");
    return target;
}
