// INI and XML exchange files of the settings store.
#include "settings.h"
#include "settings_access.h"

#include <bit>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

namespace {

const char kDefaultSection[] = "Settings";

struct TypeName
{
    int type;
    std::string_view name;
};

// The names the settings viewer shows, used in both file formats.
constexpr TypeName kTypeNames[] = {
    {SETTINGS_STRING, "String"}, {SETTINGS_BOOL, "Boolean"}, {SETTINGS_INT, "Integer"},   {SETTINGS_DOUBLE, "Double"},
    {SETTINGS_BINARY, "Binary"}, {SETTINGS_FILE, "File"},    {SETTINGS_INTPTR, "IntPtr"},
};

// Unicode code points of the bytes 0x80..0x9F of code page 1252; 0 where the
// byte stands for the code point of its own value.
constexpr unsigned short kCp1252High[32] = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178,
};

// Control bytes that XML 1.0 forbids travel as these private-use characters.
constexpr unsigned kControlBase = 0xE000;

struct LowerTable
{
    char lower[256];
    LowerTable()
    {
        for (int i = 0; i < 256; ++i)
            lower[i] = AfxToLower1252(char(i));
    }
};
const LowerTable kLower;

inline char Lower(char c)
{
    return kLower.lower[static_cast<unsigned char>(c)];
}

bool EqualNoCase(std::string_view a, std::string_view b)
{
    if (a.size() != b.size())
        return false;
    for (size_t i = 0; i < a.size(); ++i)
        if (Lower(a[i]) != Lower(b[i]))
            return false;
    return true;
}

std::string_view TypeNameOf(int type)
{
    for (const TypeName& t : kTypeNames)
        if (t.type == type)
            return t.name;
    return "String";
}

int TypeFromName(std::string_view name)
{
    for (const TypeName& t : kTypeNames)
        if (EqualNoCase(t.name, name))
            return t.type;
    return -1;
}

// Byte searches a word at a time: the C runtime's memchr is a plain byte loop
// in some runtimes, and the readers search every line several times.
constexpr unsigned long long kOnes = 0x0101010101010101ull;
constexpr unsigned long long kHighs = 0x8080808080808080ull;

unsigned long long LoadWord(const char* p)
{
    unsigned long long w;
    std::memcpy(&w, p, sizeof w);
    return w;
}

// The first byte c in [p, end); end when there is none.
const char* FindByte(const char* p, const char* end, char c)
{
    const unsigned long long pattern = kOnes * static_cast<unsigned char>(c);
    for (; end - p >= 8; p += 8) {
        const unsigned long long w = LoadWord(p) ^ pattern;
        // The lowest marked byte is the first match; marks above it may be false.
        const unsigned long long zero = (w - kOnes) & ~w & kHighs;
        if (zero)
            return p + (std::countr_zero(zero) >> 3);
    }
    while (p < end && *p != c)
        ++p;
    return p;
}

size_t FindByte(std::string_view text, char c, size_t from = 0)
{
    const char* end = text.data() + text.size();
    const char* at = FindByte(text.data() + from, end, c);
    return at == end ? std::string_view::npos : size_t(at - text.data());
}

// How many bytes c [p, end) holds.
size_t CountByte(const char* p, const char* end, char c)
{
    const unsigned long long pattern = kOnes * static_cast<unsigned char>(c);
    const unsigned long long lows = ~kHighs;
    size_t count = 0;
    for (; end - p >= 8; p += 8) {
        const unsigned long long w = LoadWord(p) ^ pattern;
        count += size_t(std::popcount(~(((w & lows) + lows) | w | lows)));
    }
    for (; p < end; ++p)
        count += *p == c;
    return count;
}

std::string_view SectionName(const char* section)
{
    return section && *section ? std::string_view(section) : std::string_view(kDefaultSection);
}

// ---- value text, shared by both formats ----

void AppendDouble(std::string& out, double d)
{
    char buf[40];
    if (d != d) {
        unsigned long long bits;
        std::memcpy(&bits, &d, sizeof bits);
        out += "NaN:";
        for (int shift = 60; shift >= 0; shift -= 4)
            out += kSettingsHexDigits[(bits >> shift) & 15];
        return;
    }
    const auto r = std::to_chars(buf, buf + sizeof buf, d);
    out.append(buf, r.ptr);
}

template <typename T>
void AppendInteger(std::string& out, T v)
{
    char buf[24];
    const auto r = std::to_chars(buf, buf + sizeof buf, v);
    out.append(buf, r.ptr);
}

void AppendHexBytes(std::string& out, const nList& rec)
{
    DWORD length;
    std::memcpy(&length, rec.value, sizeof length);
    const unsigned char* bytes = static_cast<const unsigned char*>(rec.value) + sizeof(DWORD);
    const size_t at = out.size();
    out.resize(at + size_t(length) * 2);
    char* p = &out[at];
    for (DWORD i = 0; i < length; ++i) {
        *p++ = kSettingsHexDigits[bytes[i] >> 4];
        *p++ = kSettingsHexDigits[bytes[i] & 15];
    }
}

template <typename T>
bool ParseInteger(std::string_view text, T& v)
{
    if (text.empty())
        return false;
    const auto r = std::from_chars(text.data(), text.data() + text.size(), v);
    return r.ec == std::errc() && r.ptr == text.data() + text.size();
}

bool ParseDouble(std::string_view text, double& d)
{
    if (text.size() == 20 && text.substr(0, 4) == "NaN:") {
        unsigned long long bits = 0;
        for (size_t i = 4; i < 20; ++i) {
            const int h = SettingsHexValue(text[i]);
            if (h < 0)
                return false;
            bits = bits * 16 + unsigned(h);
        }
        std::memcpy(&d, &bits, sizeof d);
        return d != d;
    }
    if (text.empty() || text[0] == '+')
        return false;
    const auto r = std::from_chars(text.data(), text.data() + text.size(), d);
    return r.ec == std::errc() && r.ptr == text.data() + text.size();
}

// Stores one parsed record in the parse target; false when the record is
// malformed or its key is already there.
class RecordSink
{
public:
    explicit RecordSink(CSettingsBase& target) : m_target(target) {}

    bool Add(std::string_view key, int type, bool deleted, std::string_view text)
    {
        if (key.empty() || key.size() > 0x7FFFFFF0 || FindByte(key, '\0') != std::string_view::npos)
            return false;
        long long number = 0;
        double real = 0;
        switch (type) {
        case SETTINGS_STRING:
        case SETTINGS_FILE:
            if (FindByte(text, '\0') != std::string_view::npos)
                return false;
            break;
        case SETTINGS_BOOL:
            if (text == "1" || EqualNoCase(text, "TRUE"))
                number = 1;
            else if (!(text == "0" || EqualNoCase(text, "FALSE")))
                return false;
            break;
        case SETTINGS_INT: {
            int v;
            if (!ParseInteger(text, v))
                return false;
            number = v;
            break;
        }
        case SETTINGS_INTPTR:
            if (!ParseInteger(text, number))
                return false;
            break;
        case SETTINGS_DOUBLE:
            if (!ParseDouble(text, real))
                return false;
            break;
        case SETTINGS_BINARY:
            if (text.size() % 2 || text.size() / 2 > 0x7FFFFFF0)
                return false;
            for (char c : text)
                if (SettingsHexValue(c) < 0)
                    return false;
            break;
        default:
            return false;
        }
        nList* rec = SettingsReaderAccess::AddNew(m_target, key.data(), int(key.size()), type);
        if (!rec)
            return false;
        rec->deleted = deleted ? 1 : 0;
        if (type == SETTINGS_STRING || type == SETTINGS_FILE) {
            char* copy = static_cast<char*>(SettingsReaderAccess::NewValue(m_target, rec, text.size() + 1));
            std::memcpy(copy, text.data(), text.size());
            copy[text.size()] = '\0';
        } else if (type == SETTINGS_BINARY) {
            const DWORD length = DWORD(text.size() / 2);
            BYTE* block = static_cast<BYTE*>(SettingsReaderAccess::NewValue(m_target, rec, sizeof(DWORD) + length));
            std::memcpy(block, &length, sizeof length);
            for (DWORD i = 0; i < length; ++i)
                block[sizeof(DWORD) + i] = BYTE(SettingsHexValue(text[2 * i]) * 16 + SettingsHexValue(text[2 * i + 1]));
        } else if (type == SETTINGS_DOUBLE)
            rec->scalar.d = real;
        else if (type == SETTINGS_INTPTR)
            rec->scalar.p = INT_PTR(number);
        else
            rec->scalar.i = int(number);
        return true;
    }

private:
    CSettingsBase& m_target;
};

bool HasNulOrBom(const char* data, size_t length)
{
    if (length >= 3 && std::memcmp(data, "\xEF\xBB\xBF", 3) == 0)
        return true;
    return FindByte(data, data + length, '\0') != data + length;
}

// ---- INI ----

enum IniPart
{
    INI_KEY,
    INI_VALUE,
    INI_SECTION,
};

void AppendIniEscaped(std::string& out, std::string_view text, IniPart part)
{
    for (size_t i = 0; i < text.size(); ++i) {
        const unsigned char c = static_cast<unsigned char>(text[i]);
        const bool edge = i == 0 || i + 1 == text.size();
        bool escape = c < 0x20 || c == 0x7F || c == '\\' || (c == ' ' && edge);
        if (part == INI_KEY)
            escape = escape || c == '=' || (i == 0 && (c == ';' || c == '#' || c == '['));
        else if (part == INI_SECTION)
            escape = escape || c == ']';
        if (!escape) {
            out += char(c);
            continue;
        }
        out += '\\';
        switch (c) {
        case '\\':
            out += '\\';
            break;
        case '\n':
            out += 'n';
            break;
        case '\r':
            out += 'r';
            break;
        case '\t':
            out += 't';
            break;
        default:
            out += 'x';
            out += kSettingsHexDigits[c >> 4];
            out += kSettingsHexDigits[c & 15];
        }
    }
}

// The unescaped text in result: the text itself when it holds no escape,
// else scratch.
bool IniUnescape(std::string_view text, std::string& scratch, std::string_view& result)
{
    if (FindByte(text, '\\') == std::string_view::npos) {
        result = text;
        return true;
    }
    std::string& out = scratch;
    out.clear();
    size_t i = 0;
    while (i < text.size()) {
        const size_t slash = FindByte(text, '\\', i);
        if (slash == std::string_view::npos) {
            out.append(text.data() + i, text.size() - i);
            break;
        }
        out.append(text.data() + i, slash - i);
        if (slash + 1 >= text.size())
            return false;
        const char e = text[slash + 1];
        i = slash + 2;
        switch (e) {
        case '\\':
            out += '\\';
            break;
        case 'n':
            out += '\n';
            break;
        case 'r':
            out += '\r';
            break;
        case 't':
            out += '\t';
            break;
        case 'x': {
            if (slash + 3 >= text.size())
                return false;
            const int hi = SettingsHexValue(text[slash + 2]);
            const int lo = SettingsHexValue(text[slash + 3]);
            if (hi < 0 || lo < 0 || (hi == 0 && lo == 0))
                return false;
            out += char(hi * 16 + lo);
            i = slash + 4;
            break;
        }
        default:
            return false;
        }
    }
    result = out;
    return true;
}

void AppendValueText(std::string& out, const nList& rec, bool xml);

void WriteIni(const CSettingsBase& store, std::string_view section, std::string& out)
{
    out += '[';
    AppendIniEscaped(out, section, INI_SECTION);
    out += "]\r\n";
    for (int i = 0; i < store.GetCount(); ++i) {
        const nList& rec = *store.GetAt(i);
        AppendIniEscaped(out, std::string_view(rec.key, size_t(rec.keyLength)), INI_KEY);
        out += '=';
        out += TypeNameOf(rec.type);
        if (rec.deleted)
            out += ",deleted";
        out += ':';
        AppendValueText(out, rec, false);
        out += "\r\n";
    }
}

std::string_view TrimBlanks(std::string_view s)
{
    size_t b = 0;
    size_t e = s.size();
    while (b < e && (s[b] == ' ' || s[b] == '\t'))
        ++b;
    while (e > b && (s[e - 1] == ' ' || s[e - 1] == '\t'))
        --e;
    return s.substr(b, e - b);
}

bool ParseIni(const char* data, size_t length, std::string_view section, CSettingsBase& target)
{
    if (HasNulOrBom(data, length))
        return false;
    RecordSink sink(target);
    std::string keyScratch;
    std::string valueScratch;
    std::string_view key;
    std::string_view value;
    bool sawSection = false;
    bool inSection = false;
    bool found = false;
    size_t pos = 0;
    while (pos < length) {
        const char* eol = FindByte(data + pos, data + length, '\n');
        // A last line without a line end is a file cut off in the middle.
        if (eol == data + length)
            return false;
        std::string_view line(data + pos, size_t(eol - (data + pos)));
        pos = size_t(eol - data) + 1;
        if (!line.empty() && line.back() == '\r')
            line.remove_suffix(1);
        line = TrimBlanks(line);
        if (line.empty() || line[0] == ';' || line[0] == '#')
            continue;
        if (line[0] == '[') {
            if (line.size() < 2 || line.back() != ']' || !IniUnescape(line.substr(1, line.size() - 2), keyScratch, key))
                return false;
            sawSection = true;
            inSection = EqualNoCase(key, section);
            found = found || inSection;
            continue;
        }
        if (!sawSection)
            return false;
        if (!inSection)
            continue;
        const size_t eq = FindByte(line, '=');
        if (eq == std::string_view::npos || !IniUnescape(TrimBlanks(line.substr(0, eq)), keyScratch, key))
            return false;
        std::string_view rest = TrimBlanks(line.substr(eq + 1));
        const size_t colon = FindByte(rest, ':');
        if (colon == std::string_view::npos)
            return false;
        std::string_view typeText = rest.substr(0, colon);
        bool deleted = false;
        const size_t comma = FindByte(typeText, ',');
        if (comma != std::string_view::npos) {
            if (!EqualNoCase(TrimBlanks(typeText.substr(comma + 1)), "deleted"))
                return false;
            deleted = true;
            typeText = typeText.substr(0, comma);
        }
        const int type = TypeFromName(TrimBlanks(typeText));
        if (type < 0 || !IniUnescape(TrimBlanks(rest.substr(colon + 1)), valueScratch, value))
            return false;
        if (!sink.Add(key, type, deleted, value))
            return false;
    }
    return found;
}

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
        else if (c >= 0x80 && c < 0xA0 && !kCp1252High[c - 0x80])
            ref = c;  // bytes that code page 1252 leaves undefined
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
        AppendValueText(out, rec, true);
        out += "</value>\r\n";
    }
    out += " </section>\r\n</settings>\r\n";
}

void AppendValueText(std::string& out, const nList& rec, bool xml)
{
    switch (rec.type) {
    case SETTINGS_STRING:
    case SETTINGS_FILE: {
        const char* text = static_cast<const char*>(rec.value);
        if (xml)
            AppendXmlEscaped(out, text, false);
        else
            AppendIniEscaped(out, text, INI_VALUE);
        break;
    }
    case SETTINGS_BOOL:
        out += rec.scalar.i ? "TRUE" : "FALSE";
        break;
    case SETTINGS_INT:
        AppendInteger(out, rec.scalar.i);
        break;
    case SETTINGS_INTPTR:
        AppendInteger(out, static_cast<long long>(rec.scalar.p));
        break;
    case SETTINGS_DOUBLE:
        AppendDouble(out, rec.scalar.d);
        break;
    case SETTINGS_BINARY:
        AppendHexBytes(out, rec);
        break;
    }
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
        if (cp < 0x80 || (cp >= 0xA0 && cp <= 0xFF)) {
            byte = char(cp);
            return true;
        }
        if (cp > kControlBase && cp < kControlBase + 0x20) {
            byte = char(cp - kControlBase);
            return true;
        }
        for (unsigned i = 0; i < 32; ++i) {
            if ((kCp1252High[i] == 0 && cp == 0x80 + i) || (kCp1252High[i] && kCp1252High[i] == cp)) {
                byte = char(0x80 + i);
                return true;
            }
        }
        return false;
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

void WriteText(const CSettingsBase& store, SettingsFormat format, const char* section, std::string& out)
{
    out.clear();
    out.reserve(size_t(store.GetCount()) * 64 + 256);
    if (format == SETTINGS_FORMAT_XML)
        WriteXml(store, SectionName(section), out);
    else
        WriteIni(store, SectionName(section), out);
}

// The file's bytes in a buffer that is not cleared first.
bool ReadFile(const char* path, std::unique_ptr<char[]>& data, size_t& length)
{
    FILE* f = std::fopen(path, "rb");
    if (!f)
        return false;
    bool ok = std::fseek(f, 0, SEEK_END) == 0;
    const long size = ok ? std::ftell(f) : -1;
    ok = ok && size >= 0 && size < 0x7FFFFFFF && std::fseek(f, 0, SEEK_SET) == 0;
    if (ok) {
        length = size_t(size);
        data.reset(new char[length ? length : 1]);
        ok = std::fread(data.get(), 1, length, f) == length;
    }
    std::fclose(f);
    return ok;
}

bool WriteFile(const char* path, const std::string& data)
{
    FILE* f = std::fopen(path, "wb");
    if (!f)
        return false;
    bool ok = std::fwrite(data.data(), 1, data.size(), f) == data.size();
    ok = std::fclose(f) == 0 && ok;
    return ok;
}

}  // namespace

SettingsFormat SettingsFormatFromPath(const char* path)
{
    if (!path)
        return SETTINGS_FORMAT_INI;
    const size_t length = std::strlen(path);
    return length >= 4 && EqualNoCase(std::string_view(path + length - 4, 4), ".xml") ? SETTINGS_FORMAT_XML
                                                                                      : SETTINGS_FORMAT_INI;
}

BOOL ParseSettingsText(SettingsFormat format, const char* section, const char* data, size_t length,
                       CSettingsBase& target)
{
    if (!data && length)
        return FALSE;
    if (!data)
        data = "";
    // Writers put one record on a line; a record takes at least 8 bytes.
    const size_t lines = CountByte(data, data + length, '\n');
    SettingsReaderAccess::Reserve(target, lines < length / 8 ? lines : length / 8);
    if (format == SETTINGS_FORMAT_XML)
        return !HasNulOrBom(data, length) && XmlReader(data, length).Parse(SectionName(section), target);
    if (format == SETTINGS_FORMAT_INI)
        return ParseIni(data, length, SectionName(section), target);
    return FALSE;
}

CSettings::CSettings() = default;

CSettings::~CSettings() = default;

CString CSettings::ExportSettingsText(SettingsFormat format, const char* section) const
{
    std::string out;
    WriteText(*this, format, section, out);
    return CString(out.data(), int(out.size()));
}

int CSettings::ImportSettingsText(SettingsFormat format, const char* section, const char* data, int length)
{
    if (length < 0)
        return 0;
    CSettings parsed;
    if (!ParseSettingsText(format, section, data, size_t(length), parsed))
        return 0;
    if (GetCount() == 0)
        std::swap(m_impl, parsed.m_impl);
    else
        Merge(parsed);
    return 1;
}

int CSettings::ExchangeSettings(int direction, const char* section, const char* path)
{
    if (!path || !*path)
        return 0;
    const SettingsFormat format = SettingsFormatFromPath(path);
    std::string text;
    if (direction == 0) {
        WriteText(*this, format, section, text);
        return WriteFile(path, text) ? 1 : 0;
    }
    std::unique_ptr<char[]> data;
    size_t length = 0;
    if (direction != 1 || !ReadFile(path, data, length) || length > 0x7FFFFFFE)
        return 0;
    return ImportSettingsText(format, section, data.get(), int(length));
}
