// The XML half of the settings exchange: a <settings> document of
// <section> elements holding <value key="..." type="..."> elements, in code
// page 1252.
#include "settings_text.h"

#include "cp1252.h"

#include <cstdio>

namespace twutil_settings {

namespace {

// Control bytes that XML 1.0 forbids travel as these private-use characters.
constexpr unsigned kControlBase = 0xE000;

// ---- XML ----

void AppendXmlEscaped(std::string& out, std::string_view text, bool attribute)
{
    size_t plain = 0;
    for (size_t i = 0; i < text.size(); ++i) {
        const unsigned char c = static_cast<unsigned char>(text[i]);
        const char* named = nullptr;
        unsigned ref = 0;
        if (c == '&')
            named = "&amp;";
        else if (c == '<')
            named = "&lt;";
        else if (c == '>')
            named = "&gt;";
        else if (c == '"' && attribute)
            named = "&quot;";
        else if (c == '\t' || c == '\n' || c == '\r')
            ref = c;
        else if (c < 0x20)
            ref = kControlBase + c;
        else if (twutil_cp1252::IsUndefined(c))
            ref = c;
        else
            continue;
        out.append(text.data() + plain, i - plain);
        plain = i + 1;
        if (named) {
            out += named;
            continue;
        }
        char buf[16];
        const int n = std::snprintf(buf, sizeof buf, "&#x%X;", ref);
        out.append(buf, size_t(n));
    }
    out.append(text.data() + plain, text.size() - plain);
}

void AppendXmlValue(std::string& out, std::string_view text)
{
    AppendXmlEscaped(out, text, false);
}

// A recursive-descent reader for the XML layout above; every method returns
// false at the first thing that is not well formed.
class XmlReader
{
public:
    XmlReader(const char* data, size_t length) : m_p(data), m_end(data + length) {}

    bool Parse(std::string_view section, CSettingsBase& target)
    {
        RecordSink sink(target);
        bool found = false;
        if (!Prolog() || !Expect('<') || Name() != "settings" || !Attributes())
            return false;
        if (m_selfClosed)
            return false;
        for (;;) {
            if (!Misc())
                return false;
            if (StartsWith("</")) {
                m_p += 2;
                if (Name() != "settings" || !CloseTag())
                    return false;
                break;
            }
            if (!Expect('<') || Name() != "section" || !Attributes())
                return false;
            const bool wanted = m_hasName && EqualNoCase(m_name, section);
            if (!m_hasName)
                return false;
            found = found || wanted;
            if (m_selfClosed)
                continue;
            if (!Section(wanted, sink))
                return false;
        }
        return Misc() && m_p == m_end && found;
    }

private:
    bool Section(bool wanted, RecordSink& sink)
    {
        for (;;) {
            if (!Misc())
                return false;
            if (StartsWith("</")) {
                m_p += 2;
                return Name() == "section" && CloseTag();
            }
            if (!Expect('<') || Name() != "value" || !Attributes())
                return false;
            if (!m_hasKey || !m_hasType)
                return false;
            const int type = TypeFromName(m_type);
            if (type < 0)
                return false;
            m_text.clear();
            if (!m_selfClosed && (!Content() || Name() != "value" || !CloseTag()))
                return false;
            if (wanted && !sink.Add(m_key, type, m_deleted, m_text))
                return false;
        }
    }

    bool StartsWith(std::string_view s) const
    {
        return size_t(m_end - m_p) >= s.size() && std::memcmp(m_p, s.data(), s.size()) == 0;
    }

    static bool IsSpace(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

    void SkipSpace()
    {
        while (m_p < m_end && IsSpace(*m_p))
            ++m_p;
    }

    bool Expect(char c)
    {
        if (m_p >= m_end || *m_p != c)
            return false;
        ++m_p;
        return true;
    }

    bool SkipPast(std::string_view terminator)
    {
        const std::string_view rest(m_p, size_t(m_end - m_p));
        const size_t at = rest.find(terminator);
        if (at == std::string_view::npos)
            return false;
        m_p += at + terminator.size();
        return true;
    }

    // White space, comments and processing instructions between elements.
    bool Misc()
    {
        for (;;) {
            SkipSpace();
            if (StartsWith("<!--")) {
                m_p += 4;
                if (!SkipPast("-->"))
                    return false;
            } else if (StartsWith("<?")) {
                // A second XML declaration, or one after white space, is refused.
                if (StartsWith("<?xml") && m_end - m_p > 5 && (IsSpace(m_p[5]) || m_p[5] == '?'))
                    return false;
                m_p += 2;
                if (!SkipPast("?>"))
                    return false;
            } else
                return true;
        }
    }

    bool Prolog()
    {
        if (StartsWith("<?xml") && m_end - m_p > 5 && IsSpace(m_p[5])) {
            m_p += 5;
            const char* close = m_p;
            const std::string_view rest(m_p, size_t(m_end - m_p));
            const size_t at = rest.find("?>");
            if (at == std::string_view::npos)
                return false;
            close += at;
            const std::string_view decl(m_p, at);
            m_p = close + 2;
            const size_t enc = decl.find("encoding");
            if (enc != std::string_view::npos) {
                std::string_view v = decl.substr(enc + 8);
                v = TrimBlanks(v);
                if (v.empty() || v[0] != '=')
                    return false;
                v = TrimBlanks(v.substr(1));
                if (v.size() < 2 || (v[0] != '"' && v[0] != '\''))
                    return false;
                const size_t end = v.find(v[0], 1);
                if (end == std::string_view::npos)
                    return false;
                const std::string_view name = v.substr(1, end - 1);
                if (!EqualNoCase(name, "windows-1252") && !EqualNoCase(name, "cp1252") &&
                    !EqualNoCase(name, "iso-8859-1") && !EqualNoCase(name, "us-ascii"))
                    return false;
            }
        }
        if (!Misc())
            return false;
        return !StartsWith("<!");
    }

    static bool IsNameChar(char c)
    {
        return !IsSpace(c) && c != '/' && c != '>' && c != '=' && c != '<' && c != '"' && c != '\'';
    }

    std::string_view Name()
    {
        const char* start = m_p;
        while (m_p < m_end && IsNameChar(*m_p))
            ++m_p;
        return std::string_view(start, size_t(m_p - start));
    }

    bool CloseTag()
    {
        SkipSpace();
        return Expect('>');
    }

    // Attributes up to ">" or "/>"; remembers those of section and value.
    bool Attributes()
    {
        m_hasName = m_hasKey = m_hasType = m_deleted = false;
        for (;;) {
            const bool spaced = m_p < m_end && IsSpace(*m_p);
            SkipSpace();
            if (m_p >= m_end)
                return false;
            if (*m_p == '>') {
                ++m_p;
                m_selfClosed = false;
                return true;
            }
            if (StartsWith("/>")) {
                m_p += 2;
                m_selfClosed = true;
                return true;
            }
            const std::string_view name = Name();
            if (!spaced || name.empty())
                return false;
            SkipSpace();
            if (!Expect('='))
                return false;
            SkipSpace();
            std::string* into = &m_scratch;
            if (name == "name")
                into = &m_name, m_hasName = true;
            else if (name == "key")
                into = &m_key, m_hasKey = true;
            else if (name == "type")
                into = &m_type, m_hasType = true;
            if (!AttributeValue(*into))
                return false;
            if (name == "deleted") {
                if (m_scratch == "1" || m_scratch == "true")
                    m_deleted = true;
                else if (m_scratch != "0" && m_scratch != "false")
                    return false;
            }
        }
    }

    bool AttributeValue(std::string& out)
    {
        out.clear();
        if (m_p >= m_end || (*m_p != '"' && *m_p != '\''))
            return false;
        const char quote = *m_p++;
        for (;;) {
            const char* start = m_p;
            while (m_p < m_end && *m_p != quote && *m_p != '&' && *m_p != '<' && static_cast<unsigned char>(*m_p) > ' ')
                ++m_p;
            out.append(start, size_t(m_p - start));
            if (m_p >= m_end)
                return false;
            const char c = *m_p;
            if (c == quote) {
                ++m_p;
                return true;
            }
            if (c == '<')
                return false;
            if (c == '&') {
                if (!Reference(out))
                    return false;
                continue;
            }
            ++m_p;
            if (c == '\r' && m_p < m_end && *m_p == '\n')
                ++m_p;
            out += IsSpace(c) ? ' ' : c;
        }
    }

    // Element content up to and including "</".
    bool Content()
    {
        for (;;) {
            const char* start = m_p;
            while (m_p < m_end && *m_p != '<' && *m_p != '&' && *m_p != '\r')
                ++m_p;
            m_text.append(start, size_t(m_p - start));
            if (m_p >= m_end)
                return false;
            if (*m_p == '\r') {
                ++m_p;
                if (m_p < m_end && *m_p == '\n')
                    ++m_p;
                m_text += '\n';
            } else if (*m_p == '&') {
                if (!Reference(m_text))
                    return false;
            } else if (StartsWith("</")) {
                m_p += 2;
                return true;
            } else if (StartsWith("<!--")) {
                m_p += 4;
                if (!SkipPast("-->"))
                    return false;
            } else if (StartsWith("<![CDATA[")) {
                m_p += 9;
                const char* begin = m_p;
                if (!SkipPast("]]>"))
                    return false;
                for (const char* q = begin; q < m_p - 3; ++q) {
                    if (*q == '\r') {
                        if (q + 1 < m_p - 3 && q[1] == '\n')
                            ++q;
                        m_text += '\n';
                    } else
                        m_text += *q;
                }
            } else
                return false;
        }
    }

    static bool CodePointToByte(unsigned long cp, char& byte)
    {
        if (cp == 0)
            return false;
        if (cp > kControlBase && cp < kControlBase + 0x20) {
            byte = char(cp - kControlBase);
            return true;
        }
        const int b = twutil_cp1252::FromUnicode(cp);
        if (b < 0)
            return false;
        byte = char(b);
        return true;
    }

    bool Reference(std::string& out)
    {
        ++m_p;  // '&'
        const char* limit = m_end - m_p > 13 ? m_p + 13 : m_end;
        const char* semi = FindByte(m_p, limit, ';');
        if (semi == limit || semi - m_p > 12)
            return false;
        const std::string_view ref(m_p, size_t(semi - m_p));
        m_p = semi + 1;
        if (ref == "amp")
            out += '&';
        else if (ref == "lt")
            out += '<';
        else if (ref == "gt")
            out += '>';
        else if (ref == "quot")
            out += '"';
        else if (ref == "apos")
            out += '\'';
        else if (ref.size() >= 2 && ref[0] == '#') {
            const bool hex = ref[1] == 'x';
            const std::string_view digits = ref.substr(hex ? 2 : 1);
            if (digits.empty() || digits.size() > 8)
                return false;
            unsigned long cp = 0;
            for (char c : digits) {
                const int d = hex ? SettingsHexValue(c) : (c >= '0' && c <= '9' ? c - '0' : -1);
                if (d < 0)
                    return false;
                cp = cp * (hex ? 16 : 10) + unsigned(d);
            }
            char byte;
            if (!CodePointToByte(cp, byte))
                return false;
            out += byte;
        } else
            return false;
        return true;
    }

    const char* m_p;
    const char* m_end;
    bool m_selfClosed = false;
    bool m_hasName = false;
    bool m_hasKey = false;
    bool m_hasType = false;
    bool m_deleted = false;
    std::string m_name;
    std::string m_key;
    std::string m_type;
    std::string m_scratch;
    std::string m_text;
};

}  // namespace

void WriteXml(const CSettingsBase& store, std::string_view section, std::string& out)
{
    out += "<?xml version=\"1.0\" encoding=\"windows-1252\"?>\r\n<settings>\r\n <section name=\"";
    AppendXmlEscaped(out, section, true);
    out += "\">\r\n";
    std::string value;
    for (int i = 0; i < store.GetCount(); ++i) {
        const nList& rec = *store.GetAt(i);
        out += "  <value key=\"";
        AppendXmlEscaped(out, std::string_view(rec.key, size_t(rec.keyLength)), true);
        out += "\" type=\"";
        out += TypeNameOf(rec.type);
        out += rec.deleted ? "\" deleted=\"1\">" : "\">";
        AppendValueText(out, rec, AppendXmlValue);
        out += "</value>\r\n";
    }
    out += " </section>\r\n</settings>\r\n";
}

bool ParseXml(const char* data, size_t length, std::string_view section, CSettingsBase& target)
{
    return !HasNulOrBom(data, length) && XmlReader(data, length).Parse(section, target);
}

}  // namespace twutil_settings
