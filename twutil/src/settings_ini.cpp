// The INI half of the settings exchange: one section of "key=Type:value"
// lines, with backslash escapes for what a line cannot hold.
#include "settings_text.h"

namespace twutil_settings {

namespace {

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

void AppendIniValue(std::string& out, std::string_view text)
{
    AppendIniEscaped(out, text, INI_VALUE);
}

}  // namespace

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
        AppendValueText(out, rec, AppendIniValue);
        out += "\r\n";
    }
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

}  // namespace twutil_settings
