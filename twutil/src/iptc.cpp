#include "iptc.h"

#include "jpeg_segments.h"

#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

namespace {

struct DatasetName
{
    int record;
    int dataset;
    const char* name;
};

constexpr DatasetName kDatasetNames[] = {
    {1, 0, "ModelVersion"},
    {1, 5, "Destination"},
    {1, 20, "FileFormat"},
    {1, 22, "FileFormatVersion"},
    {1, 30, "ServiceIdentifier"},
    {1, 40, "EnvelopeNumber"},
    {1, 50, "ProductID"},
    {1, 60, "EnvelopePriority"},
    {1, 70, "DateSent"},
    {1, 80, "TimeSent"},
    {1, 90, "CodedCharacterSet"},
    {1, 100, "UNO"},
    {1, 120, "ARMIdentifier"},
    {1, 122, "ARMVersion"},
    {2, 0, "RecordVersion"},
    {2, 3, "ObjectTypeReference"},
    {2, 4, "ObjectAttributeReference"},
    {2, 5, "ObjectName"},
    {2, 7, "EditStatus"},
    {2, 8, "EditorialUpdate"},
    {2, 10, "Urgency"},
    {2, 12, "SubjectReference"},
    {2, 15, "Category"},
    {2, 20, "SupplementalCategories"},
    {2, 22, "FixtureIdentifier"},
    {2, 25, "Keywords"},
    {2, 26, "ContentLocationCode"},
    {2, 27, "ContentLocationName"},
    {2, 30, "ReleaseDate"},
    {2, 35, "ReleaseTime"},
    {2, 37, "ExpirationDate"},
    {2, 38, "ExpirationTime"},
    {2, 40, "SpecialInstructions"},
    {2, 42, "ActionAdvised"},
    {2, 45, "ReferenceService"},
    {2, 47, "ReferenceDate"},
    {2, 50, "ReferenceNumber"},
    {2, 55, "DateCreated"},
    {2, 60, "TimeCreated"},
    {2, 62, "DigitalCreationDate"},
    {2, 63, "DigitalCreationTime"},
    {2, 65, "OriginatingProgram"},
    {2, 70, "ProgramVersion"},
    {2, 75, "ObjectCycle"},
    {2, 80, "By-line"},
    {2, 85, "By-lineTitle"},
    {2, 90, "City"},
    {2, 92, "Sub-location"},
    {2, 95, "Province-State"},
    {2, 100, "Country-PrimaryLocationCode"},
    {2, 101, "Country-PrimaryLocationName"},
    {2, 103, "OriginalTransmissionReference"},
    {2, 105, "Headline"},
    {2, 110, "Credit"},
    {2, 115, "Source"},
    {2, 116, "CopyrightNotice"},
    {2, 118, "Contact"},
    {2, 120, "Caption-Abstract"},
    {2, 122, "Writer-Editor"},
    {2, 130, "ImageType"},
    {2, 131, "ImageOrientation"},
    {2, 135, "LanguageIdentifier"},
};

// Datasets that hold a binary number rather than text.
constexpr struct
{
    int record, dataset;
} kNumericDatasets[] = {{1, 0}, {1, 20}, {1, 22}, {2, 0}};

constexpr BYTE kPhotoshop[] = "Photoshop 3.0";
constexpr size_t kMaxSegments = 16;
constexpr WORD kIptcResource = 0x0404;

bool IsNumericDataset(int record, int dataset)
{
    for (const auto& d : kNumericDatasets)
        if (d.record == record && d.dataset == dataset)
            return true;
    return false;
}

// The resource stream of all APP13 "Photoshop 3.0" segments, in order.
std::vector<BYTE> ReadPhotoshopResources(twutil_jpeg::ByteSource& source, bool& isJpeg)
{
    using namespace twutil_jpeg;
    std::vector<BYTE> stream;
    size_t segments = 0;
    isJpeg = ScanSegments(
        source, [](BYTE marker) { return marker == 0xED; },
        [&](const Segment& s) {
            if (s.size >= sizeof kPhotoshop && std::memcmp(s.body, kPhotoshop, sizeof kPhotoshop) == 0) {
                stream.insert(stream.end(), s.body + sizeof kPhotoshop, s.body + s.size);
                ++segments;
            }
            return segments < kMaxSegments;
        });
    return stream;
}

// The IIM bytes of resource 0x0404 in a resource stream; size 0 when absent.
void FindIptcResource(const std::vector<BYTE>& stream, const BYTE*& data, size_t& size)
{
    data = nullptr;
    size = 0;
    const size_t n = stream.size();
    const BYTE* p = stream.data();
    size_t pos = 0;
    while (n - pos >= 12) {
        if (std::memcmp(p + pos, "8BIM", 4) != 0)
            return;
        const WORD id = WORD(p[pos + 4] << 8 | p[pos + 5]);
        // The Pascal-string name is padded so that length byte and name are even.
        size_t nameLen = p[pos + 6] + 1;
        nameLen += nameLen & 1;
        pos += 6 + nameLen;
        if (pos > n || n - pos < 4)
            return;
        const size_t declared = size_t(p[pos]) << 24 | size_t(p[pos + 1]) << 16 | size_t(p[pos + 2]) << 8 | p[pos + 3];
        pos += 4;
        const size_t available = declared < n - pos ? declared : n - pos;
        if (id == kIptcResource) {
            data = p + pos;
            size = available;
            return;
        }
        if (declared > n - pos)
            return;
        pos += declared + (declared & 1);
        if (pos > n)
            return;
    }
}

}  // namespace

CIPTC::CIPTC() : m_utf8(FALSE) {}

void CIPTC::RemoveAll()
{
    m_data.RemoveAll();
    m_utf8 = FALSE;
}

int CIPTC::DecodeIIM(const BYTE* data, size_t size)
{
    RemoveAll();
    if (!data)
        size = 0;

    struct Raw
    {
        int record, dataset;
        size_t offset, length;
    };
    std::vector<Raw> raws;
    bool utf8 = false;
    size_t pos = 0;
    while (size - pos >= 5 && data[pos] == 0x1C) {
        const int record = data[pos + 1];
        const int dataset = data[pos + 2];
        size_t length = size_t(data[pos + 3]) << 8 | data[pos + 4];
        pos += 5;
        if (length & 0x8000) {
            const size_t digits = length & 0x7FFF;
            if (digits == 0 || digits > 4 || size - pos < digits)
                break;
            length = 0;
            for (size_t i = 0; i < digits; ++i)
                length = length << 8 | data[pos + i];
            pos += digits;
        }
        if (length > size - pos)
            break;
        if (record == 1 && dataset == 90)
            utf8 = length >= 3 && std::memcmp(data + pos, "\x1B%G", 3) == 0;
        if (record == 1 || record == 2)
            raws.push_back({record, dataset, pos, length});
        pos += length;
    }

    m_utf8 = utf8;
    for (const Raw& r : raws) {
        const BYTE* p = data + r.offset;
        CIPTCEntry entry;
        entry.record = r.record;
        entry.dataset = r.dataset;
        if (IsNumericDataset(r.record, r.dataset) && r.length >= 1 && r.length <= 4) {
            unsigned long value = 0;
            for (size_t i = 0; i < r.length; ++i)
                value = value << 8 | p[i];
            entry.text.Format("%lu", static_cast<DWORD>(value));
        } else if (r.record == 1 && r.dataset == 90) {
            for (size_t i = 0; i < r.length && p[i] != 0; ++i) {
                if (i)
                    entry.text += ' ';
                if (p[i] == 0x1B)
                    entry.text += "ESC";
                else
                    entry.text += static_cast<char>(p[i]);
            }
        } else {
            size_t len = 0;
            while (len < r.length && p[len] != 0)
                ++len;
            std::string text(reinterpret_cast<const char*>(p), len);
            if (utf8)
                text = twutil_jpeg::Utf8ToCp1252(text);
            entry.text = CString(text.data(), static_cast<int>(text.size()));
        }
        m_data.Add(entry);
    }
    return m_data.GetSize() > 0 ? 1 : 0;
}

static int DecodeSource(CIPTC& iptc, twutil_jpeg::ByteSource& source)
{
    bool isJpeg = false;
    const std::vector<BYTE> stream = ReadPhotoshopResources(source, isJpeg);
    const BYTE* data = nullptr;
    size_t size = 0;
    if (isJpeg)
        FindIptcResource(stream, data, size);
    return iptc.DecodeIIM(data, size);
}

int CIPTC::OpenMemory(const BYTE* jpeg, size_t size)
{
    twutil_jpeg::MemorySource source(jpeg, size);
    return DecodeSource(*this, source);
}

int CIPTC::OpenFile(CString fileName)
{
    RemoveAll();
    if (fileName.IsEmpty())
        return 0;
    FILE* file = std::fopen(fileName, "rb");
    if (!file)
        return 0;
    twutil_jpeg::FileSource source(file);
    const int result = DecodeSource(*this, source);
    std::fclose(file);
    return result;
}

CString CIPTC::GetValue(int record, int dataset) const
{
    for (INT_PTR i = 0; i < m_data.GetSize(); ++i)
        if (m_data[i].record == record && m_data[i].dataset == dataset)
            return m_data[i].text;
    return CString();
}

INT_PTR CIPTC::GetValues(int record, int dataset, CStringArray& values) const
{
    values.RemoveAll();
    for (INT_PTR i = 0; i < m_data.GetSize(); ++i)
        if (m_data[i].record == record && m_data[i].dataset == dataset)
            values.Add(m_data[i].text);
    return values.GetSize();
}

const char* CIPTC::GetDatasetName(int record, int dataset)
{
    for (const DatasetName& d : kDatasetNames)
        if (d.record == record && d.dataset == dataset)
            return d.name;
    return nullptr;
}
