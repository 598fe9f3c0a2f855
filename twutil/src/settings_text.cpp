// The parts of the settings exchange that both file formats use.
#include "settings_text.h"

#include <charconv>

namespace twutil_settings {

namespace {

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

}  // namespace

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

bool HasNulOrBom(const char* data, size_t length)
{
    if (length >= 3 && std::memcmp(data, "\xEF\xBB\xBF", 3) == 0)
        return true;
    return FindByte(data, data + length, '\0') != data + length;
}

void AppendValueText(std::string& out, const nList& rec, void (*appendText)(std::string&, std::string_view))
{
    switch (rec.type) {
    case SETTINGS_STRING:
    case SETTINGS_FILE: {
        appendText(out, static_cast<const char*>(rec.value));
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

bool RecordSink::Add(std::string_view key, int type, bool deleted, std::string_view text)
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

}  // namespace twutil_settings
