// What the INI and XML halves of the settings exchange share: type names,
// byte searches, the value texts and the sink that stores parsed records.
// Internal to twutil.
#pragma once

#include "settings.h"
#include "settings_access.h"

#include <bit>
#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>

namespace twutil_settings {

// The name the exchange files give a record type ("String", "Integer", ...);
// "String" for an unknown type.
std::string_view TypeNameOf(int type);
// The record type of a name, compared without regard to case; -1 if unknown.
int TypeFromName(std::string_view name);

struct LowerTable
{
    char lower[256];
    LowerTable()
    {
        for (int i = 0; i < 256; ++i)
            lower[i] = AfxToLower1252(char(i));
    }
};
inline const LowerTable kLower;

inline char Lower(char c)
{
    return kLower.lower[static_cast<unsigned char>(c)];
}

// Whether two texts are equal after code page 1252 lower-casing.
inline bool EqualNoCase(std::string_view a, std::string_view b)
{
    if (a.size() != b.size())
        return false;
    for (size_t i = 0; i < a.size(); ++i)
        if (Lower(a[i]) != Lower(b[i]))
            return false;
    return true;
}

// Byte searches a word at a time: the C runtime's memchr is a plain byte loop
// in some runtimes, and the readers search every line several times.
inline constexpr unsigned long long kOnes = 0x0101010101010101ull;
inline constexpr unsigned long long kHighs = 0x8080808080808080ull;

inline unsigned long long LoadWord(const char* p)
{
    unsigned long long w;
    std::memcpy(&w, p, sizeof w);
    return w;
}

// The first byte c in [p, end); end when there is none.
inline const char* FindByte(const char* p, const char* end, char c)
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

inline size_t FindByte(std::string_view text, char c, size_t from = 0)
{
    const char* end = text.data() + text.size();
    const char* at = FindByte(text.data() + from, end, c);
    return at == end ? std::string_view::npos : size_t(at - text.data());
}

// How many bytes c [p, end) holds.
inline size_t CountByte(const char* p, const char* end, char c)
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

// The text without blanks and tabs at either end.
inline std::string_view TrimBlanks(std::string_view s)
{
    size_t b = 0;
    size_t e = s.size();
    while (b < e && (s[b] == ' ' || s[b] == '\t'))
        ++b;
    while (e > b && (s[e - 1] == ' ' || s[e - 1] == '\t'))
        --e;
    return s.substr(b, e - b);
}

// Whether exchange file text holds a NUL byte or starts with a UTF-8 byte
// order mark, both of which refuse the file.
bool HasNulOrBom(const char* data, size_t length);

// Appends a record's value text: numbers and binary data as both formats
// write them, texts through the format's own escaping.
void AppendValueText(std::string& out, const nList& rec, void (*appendText)(std::string&, std::string_view));

// Stores one parsed record in the parse target; false when the record is
// malformed or its key is already there.
class RecordSink
{
public:
    explicit RecordSink(CSettingsBase& target) : m_target(target) {}

    // Stores the record whose value text is text.
    bool Add(std::string_view key, int type, bool deleted, std::string_view text);

private:
    CSettingsBase& m_target;
};

// The INI half: the store as an INI section, and the records of the named
// section of INI text into target; false when the text is refused.
void WriteIni(const CSettingsBase& store, std::string_view section, std::string& out);
bool ParseIni(const char* data, size_t length, std::string_view section, CSettingsBase& target);

// The XML half, likewise.
void WriteXml(const CSettingsBase& store, std::string_view section, std::string& out);
bool ParseXml(const char* data, size_t length, std::string_view section, CSettingsBase& target);

}  // namespace twutil_settings
