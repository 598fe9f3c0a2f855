// Exchange files of the settings store: choosing the format, reading and
// writing the file; the formats themselves are settings_ini.cpp and
// settings_xml.cpp.
#include "settings.h"
#include "settings_text.h"

#include "afxfile.h"

#include <algorithm>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

using namespace twutil_settings;

namespace {

const char kDefaultSection[] = "Settings";

std::string_view SectionName(const char* section)
{
    return section && *section ? std::string_view(section) : std::string_view(kDefaultSection);
}

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

// Writes the file through a temporary one that replaces it only when
// complete: a failed export leaves the old file as it was.
bool WriteFile(const char* path, const std::string& data)
{
    constexpr size_t kPiece = 1u << 30;
    CAtomicFile file;
    if (!file.Open(path, CFile::typeBinary))
        return false;
    try {
        for (size_t at = 0; at < data.size(); at += kPiece)
            file.Write(data.data() + at, UINT(std::min(kPiece, data.size() - at)));
        file.Close();
    } catch (CException* e) {
        e->Delete();
        return false;
    }
    return true;
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
        return ParseXml(data, length, SectionName(section), target);
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
