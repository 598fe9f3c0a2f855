// Test helpers of the EXIF and IPTC reader tests: a tiny JPEG, segment
// building, code page conversion and (natively) running exiftool.
#pragma once

#include "afxplatform.h"

#include <gtest/gtest.h>

#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#ifndef _WIN32
#include <filesystem>
#include <unistd.h>
#endif

namespace picture_test {

using Bytes = std::vector<BYTE>;

// A valid baseline JPEG, 8x8 pixels of grey 128, without any APPn segment.
inline const Bytes kGrey8Jpeg = {
    0xFF, 0xD8, 0xFF, 0xDB, 0x00, 0x43, 0x00, 0x01, 0x01, 0x01, 0x01, 0x01, 0x01, 0x01, 0x01, 0x01, 0x01, 0x01,
    0x01, 0x01, 0x01, 0x01, 0x01, 0x01, 0x01, 0x01, 0x01, 0x01, 0x01, 0x01, 0x01, 0x01, 0x01, 0x01, 0x01, 0x01,
    0x01, 0x01, 0x01, 0x01, 0x01, 0x01, 0x01, 0x01, 0x01, 0x01, 0x01, 0x01, 0x01, 0x01, 0x01, 0x01, 0x01, 0x01,
    0x01, 0x01, 0x01, 0x01, 0x01, 0x01, 0x01, 0x01, 0x01, 0x01, 0x01, 0x01, 0x01, 0x01, 0x01, 0x01, 0x01, 0xFF,
    0xC0, 0x00, 0x0B, 0x08, 0x00, 0x08, 0x00, 0x08, 0x01, 0x01, 0x11, 0x00, 0xFF, 0xC4, 0x00, 0x14, 0x00, 0x01,
    0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0xFF, 0xC4,
    0x00, 0x14, 0x10, 0x01, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00,
    0x00, 0x00, 0xFF, 0xDA, 0x00, 0x08, 0x01, 0x01, 0x00, 0x00, 0x3F, 0x00, 0x3F, 0xFF, 0xD9};

inline Bytes ToBytes(const std::string& s)
{
    return Bytes(s.begin(), s.end());
}

// A marker segment with its length field.
inline Bytes Segment(BYTE marker, const Bytes& body)
{
    const size_t length = body.size() + 2;
    Bytes s = {0xFF, marker, BYTE(length >> 8), BYTE(length)};
    s.insert(s.end(), body.begin(), body.end());
    return s;
}

// The grey JPEG with the given segments right after SOI.
inline Bytes JpegWith(const std::vector<Bytes>& segments)
{
    Bytes out(kGrey8Jpeg.begin(), kGrey8Jpeg.begin() + 2);
    for (const Bytes& s : segments)
        out.insert(out.end(), s.begin(), s.end());
    out.insert(out.end(), kGrey8Jpeg.begin() + 2, kGrey8Jpeg.end());
    return out;
}

// Code points of cp1252 bytes 0x80..0x9F; 0 where the code page has none.
inline constexpr unsigned kHigh1252[32] = {0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                           0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,
                                           0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                           0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

inline std::string AppendUtf8(std::string out, unsigned cp)
{
    if (cp < 0x80)
        out += char(cp);
    else if (cp < 0x800)
        out += {char(0xC0 | cp >> 6), char(0x80 | (cp & 0x3F))};
    else
        out += {char(0xE0 | cp >> 12), char(0x80 | (cp >> 6 & 0x3F)), char(0x80 | (cp & 0x3F))};
    return out;
}

// cp1252 text (as the test's literals are) to UTF-8, as exiftool takes it.
inline std::string Utf8(const std::string& cp1252)
{
    std::string out;
    for (unsigned char c : cp1252)
        out = AppendUtf8(out, c >= 0x80 && c < 0xA0 ? kHigh1252[c - 0x80] : c);
    return out;
}

// UTF-8 of exiftool's output back to cp1252, '?' for what it lacks.
inline std::string Cp1252(const std::string& utf8)
{
    std::string out;
    for (size_t i = 0; i < utf8.size();) {
        const unsigned char b = utf8[i];
        const int n = b < 0x80 ? 1 : b < 0xE0 ? 2 : b < 0xF0 ? 3 : 4;
        unsigned cp = n == 1 ? b : b & (0x3F >> (n - 1));
        for (int k = 1; k < n && i + k < utf8.size(); ++k)
            cp = cp << 6 | (utf8[i + k] & 0x3F);
        i += n;
        char c = '?';
        if (cp < 0x80 || (cp >= 0xA0 && cp <= 0xFF))
            c = char(cp);
        for (int k = 0; k < 32; ++k)
            if (kHigh1252[k] == cp)
                c = char(0x80 + k);
        out += c;
    }
    return out;
}

#ifndef _WIN32

// A value of exiftool's JSON output: text (numbers kept as written) or a list.
struct JsonValue
{
    std::string text;
    std::vector<std::string> list;
    bool isList = false;
};

// Reads exiftool's "-j" output: an array holding one flat object.
class ExiftoolJson
{
public:
    explicit ExiftoolJson(const std::string& s) : m_s(s) { Parse(); }

    bool Has(const std::string& key) const { return m_values.count(key) != 0; }
    std::string Text(const std::string& key) const
    {
        auto it = m_values.find(key);
        return it == m_values.end() ? std::string() : it->second.text;
    }
    double Number(const std::string& key) const { return std::atof(Text(key).c_str()); }
    std::vector<std::string> List(const std::string& key) const
    {
        auto it = m_values.find(key);
        if (it == m_values.end())
            return {};
        return it->second.isList ? it->second.list : std::vector<std::string>{it->second.text};
    }

private:
    void Skip()
    {
        while (m_i < m_s.size() && std::isspace(static_cast<unsigned char>(m_s[m_i])))
            ++m_i;
    }
    std::string Scalar()
    {
        Skip();
        std::string out;
        if (m_s[m_i] != '"') {
            while (m_i < m_s.size() && std::strchr(",]}", m_s[m_i]) == nullptr &&
                   !std::isspace(static_cast<unsigned char>(m_s[m_i])))
                out += m_s[m_i++];
            return out;
        }
        ++m_i;
        while (m_i < m_s.size() && m_s[m_i] != '"') {
            char c = m_s[m_i++];
            if (c == '\\') {
                c = m_s[m_i++];
                if (c == 'n')
                    c = '\n';
                else if (c == 't')
                    c = '\t';
                else if (c == 'u') {
                    out = AppendUtf8(out, unsigned(std::stoul(m_s.substr(m_i, 4), nullptr, 16)));
                    m_i += 4;
                    continue;
                }
            }
            out += c;
        }
        ++m_i;
        return out;
    }
    void Parse()
    {
        m_i = m_s.find('{');
        if (m_i == std::string::npos)
            return;
        ++m_i;
        for (;;) {
            Skip();
            if (m_i >= m_s.size() || m_s[m_i] == '}')
                return;
            const std::string key = Scalar();
            Skip();
            ++m_i;  // ':'
            Skip();
            JsonValue v;
            if (m_s[m_i] == '[') {
                v.isList = true;
                ++m_i;
                for (Skip(); m_s[m_i] != ']'; Skip()) {
                    v.list.push_back(Scalar());
                    Skip();
                    if (m_s[m_i] == ',')
                        ++m_i;
                }
                ++m_i;
            } else
                v.text = Scalar();
            m_values[key] = v;
            Skip();
            if (m_i < m_s.size() && m_s[m_i] == ',')
                ++m_i;
        }
    }

    std::string m_s;
    size_t m_i = 0;
    std::map<std::string, JsonValue> m_values;
};

// A private temporary folder, removed with everything in it.
class TempFolder
{
public:
    TempFolder()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "twpicXXXXXX").string();
        if (mkdtemp(pattern.data()))
            m_path = pattern;
    }
    ~TempFolder()
    {
        if (!m_path.empty())
            std::filesystem::remove_all(m_path);
    }
    std::string File(const std::string& name) const { return m_path + "/" + name; }
    bool Ok() const { return !m_path.empty(); }

private:
    std::string m_path;
};

inline std::string ReadText(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    std::ostringstream s;
    s << in.rdbuf();
    return s.str();
}

inline Bytes ReadBytes(const std::string& path)
{
    return ToBytes(ReadText(path));
}

inline void WriteBytes(const std::string& path, const Bytes& bytes)
{
    std::ofstream out(path, std::ios::binary);
    out.write(reinterpret_cast<const char*>(bytes.data()), std::streamsize(bytes.size()));
}

// Whether exiftool can be run at all.
inline bool ExiftoolPresent()
{
    return std::system("exiftool -ver >/dev/null 2>&1") == 0;
}

// Writes the grey JPEG into folder, has exiftool write the tags given as
// UTF-8 arguments ("-Make=Canon"), and returns exiftool's JSON of the file.
// Fails the test when exiftool is missing or reports an error.
// readOptions go before the read command's own ("-charset exif=cp1252").
inline std::string ExiftoolWrite(const TempFolder& folder, const std::vector<std::string>& args,
                                 const std::string& picture, const std::string& readOptions = "")
{
    WriteBytes(picture, kGrey8Jpeg);
    {
        std::ofstream argFile(folder.File("args.txt"), std::ios::binary);
        argFile << "-overwrite_original\n";
        for (const std::string& a : args)
            argFile << a << "\n";
        argFile << picture << "\n";
    }
    const std::string write = "exiftool -@ '" + folder.File("args.txt") + "' >'" + folder.File("write.log") + "' 2>&1";
    EXPECT_EQ(std::system(write.c_str()), 0) << ReadText(folder.File("write.log"));
    const std::string read = "exiftool " + readOptions + " -j -n -G1 '" + picture + "' >'" + folder.File("out.json") +
                             "' 2>'" + folder.File("read.log") + "'";
    EXPECT_EQ(std::system(read.c_str()), 0) << ReadText(folder.File("read.log"));
    return ReadText(folder.File("out.json"));
}

#endif  // !_WIN32

}  // namespace picture_test
