#include "exif.h"

#include "afxexcept.h"
#include "cp1252.h"
#include "jpeg_segments.h"
#include "settings.h"

#include <climits>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace {

enum IfdKind
{
    IFD_0,
    IFD_EXIF,
    IFD_GPS,
    IFD_INTEROP,
    IFD_1
};

constexpr const char* kIfdNames[] = {"IFD0", "ExifIFD", "GPS", "Interop", "IFD1"};

// Byte size of one value of each TIFF type (index = type); 0 = unknown.
constexpr unsigned kTypeSize[] = {0, 1, 1, 2, 4, 8, 1, 1, 2, 4, 8, 4, 8, 4};

enum TiffType : WORD
{
    T_BYTE = 1,
    T_ASCII = 2,
    T_SHORT = 3,
    T_LONG = 4,
    T_RATIONAL = 5,
    T_SBYTE = 6,
    T_UNDEFINED = 7,
    T_SSHORT = 8,
    T_SLONG = 9,
    T_SRATIONAL = 10,
    T_FLOAT = 11,
    T_DOUBLE = 12,
    T_IFD = 13,
};

struct TagName
{
    bool gps;
    WORD id;
    const char* name;
};

// Names of the EXIF standard. GPS tags have their own numbering; every
// other IFD shares one table.
constexpr TagName kTagNames[] = {
    {false, 0x0001, "InteroperabilityIndex"},
    {false, 0x0002, "InteroperabilityVersion"},
    {false, 0x00FE, "NewSubfileType"},
    {false, 0x0100, "ImageWidth"},
    {false, 0x0101, "ImageLength"},
    {false, 0x0102, "BitsPerSample"},
    {false, 0x0103, "Compression"},
    {false, 0x0106, "PhotometricInterpretation"},
    {false, 0x010E, "ImageDescription"},
    {false, 0x010F, "Make"},
    {false, 0x0110, "Model"},
    {false, 0x0111, "StripOffsets"},
    {false, 0x0112, "Orientation"},
    {false, 0x0115, "SamplesPerPixel"},
    {false, 0x0116, "RowsPerStrip"},
    {false, 0x0117, "StripByteCounts"},
    {false, 0x011A, "XResolution"},
    {false, 0x011B, "YResolution"},
    {false, 0x011C, "PlanarConfiguration"},
    {false, 0x0128, "ResolutionUnit"},
    {false, 0x012D, "TransferFunction"},
    {false, 0x0131, "Software"},
    {false, 0x0132, "DateTime"},
    {false, 0x013B, "Artist"},
    {false, 0x013E, "WhitePoint"},
    {false, 0x013F, "PrimaryChromaticities"},
    {false, 0x0201, "JPEGInterchangeFormat"},
    {false, 0x0202, "JPEGInterchangeFormatLength"},
    {false, 0x0211, "YCbCrCoefficients"},
    {false, 0x0212, "YCbCrSubSampling"},
    {false, 0x0213, "YCbCrPositioning"},
    {false, 0x0214, "ReferenceBlackWhite"},
    {false, 0x8298, "Copyright"},
    {false, 0x829A, "ExposureTime"},
    {false, 0x829D, "FNumber"},
    {false, 0x8769, "ExifIFDPointer"},
    {false, 0x8822, "ExposureProgram"},
    {false, 0x8824, "SpectralSensitivity"},
    {false, 0x8825, "GPSInfoIFDPointer"},
    {false, 0x8827, "ISOSpeedRatings"},
    {false, 0x8828, "OECF"},
    {false, 0x8830, "SensitivityType"},
    {false, 0x9000, "ExifVersion"},
    {false, 0x9003, "DateTimeOriginal"},
    {false, 0x9004, "DateTimeDigitized"},
    {false, 0x9010, "OffsetTime"},
    {false, 0x9011, "OffsetTimeOriginal"},
    {false, 0x9012, "OffsetTimeDigitized"},
    {false, 0x9101, "ComponentsConfiguration"},
    {false, 0x9102, "CompressedBitsPerPixel"},
    {false, 0x9201, "ShutterSpeedValue"},
    {false, 0x9202, "ApertureValue"},
    {false, 0x9203, "BrightnessValue"},
    {false, 0x9204, "ExposureBiasValue"},
    {false, 0x9205, "MaxApertureValue"},
    {false, 0x9206, "SubjectDistance"},
    {false, 0x9207, "MeteringMode"},
    {false, 0x9208, "LightSource"},
    {false, 0x9209, "Flash"},
    {false, 0x920A, "FocalLength"},
    {false, 0x9214, "SubjectArea"},
    {false, 0x927C, "MakerNote"},
    {false, 0x9286, "UserComment"},
    {false, 0x9290, "SubSecTime"},
    {false, 0x9291, "SubSecTimeOriginal"},
    {false, 0x9292, "SubSecTimeDigitized"},
    {false, 0xA000, "FlashpixVersion"},
    {false, 0xA001, "ColorSpace"},
    {false, 0xA002, "PixelXDimension"},
    {false, 0xA003, "PixelYDimension"},
    {false, 0xA004, "RelatedSoundFile"},
    {false, 0xA005, "InteroperabilityIFDPointer"},
    {false, 0xA20B, "FlashEnergy"},
    {false, 0xA20E, "FocalPlaneXResolution"},
    {false, 0xA20F, "FocalPlaneYResolution"},
    {false, 0xA210, "FocalPlaneResolutionUnit"},
    {false, 0xA214, "SubjectLocation"},
    {false, 0xA215, "ExposureIndex"},
    {false, 0xA217, "SensingMethod"},
    {false, 0xA300, "FileSource"},
    {false, 0xA301, "SceneType"},
    {false, 0xA302, "CFAPattern"},
    {false, 0xA401, "CustomRendered"},
    {false, 0xA402, "ExposureMode"},
    {false, 0xA403, "WhiteBalance"},
    {false, 0xA404, "DigitalZoomRatio"},
    {false, 0xA405, "FocalLengthIn35mmFilm"},
    {false, 0xA406, "SceneCaptureType"},
    {false, 0xA407, "GainControl"},
    {false, 0xA408, "Contrast"},
    {false, 0xA409, "Saturation"},
    {false, 0xA40A, "Sharpness"},
    {false, 0xA40C, "SubjectDistanceRange"},
    {false, 0xA420, "ImageUniqueID"},
    {false, 0xA430, "CameraOwnerName"},
    {false, 0xA431, "BodySerialNumber"},
    {false, 0xA432, "LensSpecification"},
    {false, 0xA433, "LensMake"},
    {false, 0xA434, "LensModel"},
    {false, 0xA435, "LensSerialNumber"},
    {true, 0x00, "GPSVersionID"},
    {true, 0x01, "GPSLatitudeRef"},
    {true, 0x02, "GPSLatitude"},
    {true, 0x03, "GPSLongitudeRef"},
    {true, 0x04, "GPSLongitude"},
    {true, 0x05, "GPSAltitudeRef"},
    {true, 0x06, "GPSAltitude"},
    {true, 0x07, "GPSTimeStamp"},
    {true, 0x08, "GPSSatellites"},
    {true, 0x09, "GPSStatus"},
    {true, 0x0A, "GPSMeasureMode"},
    {true, 0x0B, "GPSDOP"},
    {true, 0x0C, "GPSSpeedRef"},
    {true, 0x0D, "GPSSpeed"},
    {true, 0x0E, "GPSTrackRef"},
    {true, 0x0F, "GPSTrack"},
    {true, 0x10, "GPSImgDirectionRef"},
    {true, 0x11, "GPSImgDirection"},
    {true, 0x12, "GPSMapDatum"},
    {true, 0x1B, "GPSProcessingMethod"},
    {true, 0x1D, "GPSDateStamp"},
    {true, 0x1E, "GPSDifferential"},
};

// Tags whose UNDEFINED bytes are a short ASCII text (version numbers).
constexpr WORD kVersionTags[] = {0x0002, 0x9000, 0xA000};

constexpr int kMaxDepth = 3;
constexpr int kMaxIfds = 8;
constexpr int kMaxListedValues = 64;

const char* FindTagName(IfdKind ifd, WORD id)
{
    const bool gps = ifd == IFD_GPS;
    for (const TagName& t : kTagNames)
        if (t.gps == gps && t.id == id)
            return t.name;
    return nullptr;
}

// One IFD entry whose values lie inside the block.
struct Entry
{
    IfdKind ifd;
    WORD id;
    WORD type;
    DWORD count;
    size_t offset;
    size_t size;
};

// Bounds-checked reads of the TIFF block in its byte order.
class TiffBlock
{
public:
    TiffBlock(const BYTE* data, size_t size, bool little) : m_p(data), m_n(size), m_le(little) {}

    size_t size() const { return m_n; }
    const BYTE* at(size_t off) const { return m_p + off; }
    bool has(size_t off, size_t count) const { return off <= m_n && count <= m_n - off; }

    WORD u16(size_t off) const
    {
        return m_le ? WORD(m_p[off] | m_p[off + 1] << 8) : WORD(m_p[off] << 8 | m_p[off + 1]);
    }
    DWORD u32(size_t off) const
    {
        const DWORD b0 = m_p[off], b1 = m_p[off + 1], b2 = m_p[off + 2], b3 = m_p[off + 3];
        return m_le ? (b0 | b1 << 8 | b2 << 16 | b3 << 24) : (b3 | b2 << 8 | b1 << 16 | b0 << 24);
    }
    bool little() const { return m_le; }

    // Value number i of an entry as a double; ok false for a zero denominator.
    double Number(const Entry& e, DWORD i, bool* ok = nullptr) const
    {
        if (ok)
            *ok = true;
        const size_t off = e.offset + size_t(i) * kTypeSize[e.type];
        switch (e.type) {
        case T_BYTE:
        case T_UNDEFINED:
        case T_ASCII:
            return m_p[off];
        case T_SBYTE:
            return static_cast<signed char>(m_p[off]);
        case T_SHORT:
            return u16(off);
        case T_SSHORT:
            return static_cast<std::int16_t>(u16(off));
        case T_LONG:
        case T_IFD:
            return u32(off);
        case T_SLONG:
            return static_cast<std::int32_t>(u32(off));
        case T_RATIONAL:
        case T_SRATIONAL: {
            const bool sign = e.type == T_SRATIONAL;
            const double num = sign ? double(std::int32_t(u32(off))) : double(u32(off));
            const double den = sign ? double(std::int32_t(u32(off + 4))) : double(u32(off + 4));
            if (den == 0) {
                if (ok)
                    *ok = false;
                return 0.0;
            }
            return num / den;
        }
        case T_FLOAT: {
            const DWORD bits = u32(off);
            float f;
            std::memcpy(&f, &bits, 4);
            return f;
        }
        case T_DOUBLE: {
            const std::uint64_t hi = u32(off + (m_le ? 4 : 0)), lo = u32(off + (m_le ? 0 : 4));
            const std::uint64_t bits = hi << 32 | lo;
            double d;
            std::memcpy(&d, &bits, 8);
            return d;
        }
        }
        return 0.0;
    }

private:
    const BYTE* m_p;
    size_t m_n;
    bool m_le;
};

bool IsIntegerType(WORD type)
{
    return type == T_BYTE || type == T_SBYTE || type == T_SHORT || type == T_SSHORT || type == T_LONG ||
           type == T_SLONG || type == T_IFD || type == T_UNDEFINED;
}

// Bytes up to the first NUL, trailing blanks removed; UTF-8 converted.
CString TextOf(const BYTE* p, size_t n)
{
    size_t len = 0;
    while (len < n && p[len] != 0)
        ++len;
    while (len > 0 && p[len - 1] == ' ')
        --len;
    const std::string_view text(reinterpret_cast<const char*>(p), len);
    if (twutil_jpeg::LooksLikeUtf8(text)) {
        const std::string converted = twutil_jpeg::Utf8ToCp1252(text);
        return CString(converted.data(), static_cast<int>(converted.size()));
    }
    return CString(text.data(), static_cast<int>(text.size()));
}

// UCS-2 text to cp1252 for the characters the code page has, '?' otherwise.
CString Ucs2Text(const TiffBlock& t, size_t off, size_t n)
{
    std::string out;
    for (size_t i = 0; i + 1 < n; i += 2) {
        const WORD c = t.u16(off + i);
        if (c == 0)
            break;
        const int byte = twutil_cp1252::FromUnicode(c);
        out += byte >= 0 ? static_cast<char>(byte) : '?';
    }
    while (!out.empty() && out.back() == ' ')
        out.pop_back();
    return CString(out.data(), static_cast<int>(out.size()));
}

// A number as the display text shows it; the same words for values that
// are not finite in every C runtime.
CString FormatNumber(double v)
{
    if (std::isnan(v))
        return "nan";
    if (std::isinf(v))
        return v < 0 ? "-inf" : "inf";
    char buf[40];
    std::snprintf(buf, sizeof buf, "%.10g", v);
    return buf;
}

// The display text of an entry's values.
CString DisplayText(const TiffBlock& t, const Entry& e)
{
    if (e.type == T_ASCII)
        return TextOf(t.at(e.offset), e.size);
    if (e.type == T_UNDEFINED) {
        for (WORD v : kVersionTags)
            if (v == e.id && e.ifd != IFD_GPS)
                return TextOf(t.at(e.offset), e.size);
        if (e.id == 0x9286 && e.ifd == IFD_EXIF) {
            if (e.size < 8)
                return CString();
            const BYTE* code = t.at(e.offset);
            if (std::memcmp(code, "UNICODE\0", 8) == 0)
                return Ucs2Text(t, e.offset + 8, e.size - 8);
            return TextOf(code + 8, e.size - 8);
        }
    }
    CString text;
    const DWORD shown = e.count < DWORD(kMaxListedValues) ? e.count : DWORD(kMaxListedValues);
    for (DWORD i = 0; i < shown; ++i) {
        if (i)
            text += ' ';
        bool ok = true;
        const double v = t.Number(e, i, &ok);
        if (!ok) {
            const size_t off = e.offset + size_t(i) * 8;
            text += t.u32(off) == 0 ? "undef" : "inf";
        } else if (IsIntegerType(e.type)) {
            char buf[24];
            std::snprintf(buf, sizeof buf, "%lld", static_cast<long long>(v));
            text += buf;
        } else
            text += FormatNumber(v);
    }
    if (shown < e.count)
        text += " ...";
    return text;
}

// State of one decode: the block, the record and the IFDs met so far.
class Decoder
{
public:
    Decoder(const TiffBlock& t, tag_ExifInfo& info, ExifTagCallback cb, void* ctx)
        : m_t(t), m_info(info), m_cb(cb), m_ctx(ctx)
    {}

    void WalkIfd(size_t off, IfdKind kind, int depth);
    void Finish();

private:
    void OnEntry(const Entry& e);
    void Record(const Entry& e);

    const TiffBlock& m_t;
    tag_ExifInfo& m_info;
    ExifTagCallback m_cb;
    void* m_ctx;
    std::vector<size_t> m_visited;

    CString m_original, m_digitized;
    double m_shutterApex = 0, m_apertureApex = 0;
    bool m_hasShutter = false, m_hasAperture = false;
    double m_lat = 0, m_lon = 0, m_alt = 0;
    bool m_hasLat = false, m_hasLon = false, m_hasAlt = false;
    char m_latRef = 'N', m_lonRef = 'E';
    int m_altRef = 0;
};

void Decoder::WalkIfd(size_t off, IfdKind kind, int depth)
{
    if (depth > kMaxDepth || int(m_visited.size()) >= kMaxIfds || !m_t.has(off, 2))
        return;
    for (size_t v : m_visited)
        if (v == off)
            return;
    m_visited.push_back(off);

    const size_t declared = m_t.u16(off);
    const size_t fitting = (m_t.size() - off - 2) / 12;
    const size_t count = declared < fitting ? declared : fitting;
    for (size_t i = 0; i < count; ++i) {
        const size_t pos = off + 2 + i * 12;
        Entry e{kind, m_t.u16(pos), m_t.u16(pos + 2), m_t.u32(pos + 4), 0, 0};
        if (e.type >= std::size(kTypeSize) || kTypeSize[e.type] == 0)
            continue;
        const std::uint64_t bytes = std::uint64_t(e.count) * kTypeSize[e.type];
        if (bytes > m_t.size())
            continue;
        e.size = static_cast<size_t>(bytes);
        e.offset = bytes <= 4 ? pos + 8 : m_t.u32(pos + 8);
        if (!m_t.has(e.offset, e.size) || e.count == 0)
            continue;

        OnEntry(e);

        const bool pointer = (e.type == T_LONG || e.type == T_IFD) && e.count == 1;
        if (!pointer)
            continue;
        if (kind == IFD_0 && e.id == 0x8769)
            WalkIfd(m_t.u32(e.offset), IFD_EXIF, depth + 1);
        else if (kind == IFD_0 && e.id == 0x8825)
            WalkIfd(m_t.u32(e.offset), IFD_GPS, depth + 1);
        else if (kind == IFD_EXIF && e.id == 0xA005)
            WalkIfd(m_t.u32(e.offset), IFD_INTEROP, depth + 1);
    }
    if (kind == IFD_0 && declared <= fitting && m_t.has(off + 2 + declared * 12, 4)) {
        const size_t next = m_t.u32(off + 2 + declared * 12);
        if (next != 0)
            WalkIfd(next, IFD_1, depth + 1);
    }
}

void Decoder::OnEntry(const Entry& e)
{
    if (m_cb) {
        char unknown[16];
        const char* name = FindTagName(e.ifd, e.id);
        if (!name) {
            std::snprintf(unknown, sizeof unknown, "Tag0x%04X", unsigned(e.id));
            name = unknown;
        }
        const CString text = DisplayText(m_t, e);
        ExifTag tag{kIfdNames[e.ifd], e.id, name, e.type, e.count, text.GetString(), false, false, 0.0};
        const bool numeric = e.type != T_ASCII && !(e.type == T_UNDEFINED && e.count != 1);
        if (numeric && e.count == 1) {
            bool ok = true;
            tag.number = m_t.Number(e, 0, &ok);
            tag.isNumber = ok && std::isfinite(tag.number);
            tag.isInteger = tag.isNumber && IsIntegerType(e.type);
        }
        m_cb(tag, m_ctx);
    }
    Record(e);
}

void Decoder::Record(const Entry& e)
{
    const bool text = e.type == T_ASCII;
    const bool number = e.type != T_ASCII && e.type != T_UNDEFINED;
    bool ok = true;
    const double first = number ? m_t.Number(e, 0, &ok) : 0.0;
    // A zero denominator, a NaN or an infinity is no value: the field stays absent.
    const bool value = number && ok && std::isfinite(first);
    // Deliberately 0 for a number outside the int range (converting it
    // would be undefined): the field then reads as "none".
    auto asInt = [&](double v) { return v >= INT_MIN && v <= INT_MAX ? int(v) : 0; };

    if (e.ifd == IFD_GPS) {
        auto degrees = [&](double& out) {
            if (!number || e.count < 3)
                return false;
            double parts[3];
            for (DWORD i = 0; i < 3; ++i)
                if (parts[i] = m_t.Number(e, i, &ok); !ok)
                    return false;
            out = parts[0] + parts[1] / 60.0 + parts[2] / 3600.0;
            return std::isfinite(out);
        };
        switch (e.id) {
        case 0x01:
            if (text)
                m_latRef = char(*m_t.at(e.offset));
            break;
        case 0x02:
            m_hasLat = degrees(m_lat);
            break;
        case 0x03:
            if (text)
                m_lonRef = char(*m_t.at(e.offset));
            break;
        case 0x04:
            m_hasLon = degrees(m_lon);
            break;
        case 0x05:
            m_altRef = value ? asInt(first) : 0;
            break;
        case 0x06:
            if (value) {
                m_alt = first;
                m_hasAlt = true;
            }
            break;
        }
        return;
    }
    if (e.ifd == IFD_1 || e.ifd == IFD_INTEROP)
        return;

    switch (e.id) {
    case 0x010E:
        if (text)
            m_info.ImageDescription = TextOf(m_t.at(e.offset), e.size);
        break;
    case 0x010F:
        if (text)
            m_info.CameraMake = TextOf(m_t.at(e.offset), e.size);
        break;
    case 0x0110:
        if (text)
            m_info.CameraModel = TextOf(m_t.at(e.offset), e.size);
        break;
    case 0x0112:
        if (value)
            m_info.Orientation = first >= 1 && first <= 8 ? int(first) : 0;
        break;
    case 0x011A:
        if (value)
            m_info.XResolution = first;
        break;
    case 0x011B:
        if (value)
            m_info.YResolution = first;
        break;
    case 0x0128:
        if (value)
            m_info.ResolutionUnit = asInt(first);
        break;
    case 0x0131:
        if (text)
            m_info.Software = TextOf(m_t.at(e.offset), e.size);
        break;
    case 0x0132:
        if (text)
            m_info.DateTimeModified = TextOf(m_t.at(e.offset), e.size);
        break;
    case 0x013B:
        if (text)
            m_info.Artist = TextOf(m_t.at(e.offset), e.size);
        break;
    case 0x8298:
        if (text)
            m_info.Copyright = TextOf(m_t.at(e.offset), e.size);
        break;
    case 0x829A:
        if (value)
            m_info.ExposureTime = first;
        break;
    case 0x829D:
        if (value)
            m_info.FNumber = first;
        break;
    case 0x8822:
        if (value)
            m_info.ExposureProgram = asInt(first);
        break;
    case 0x8827:
        if (value)
            m_info.ISOequivalent = asInt(first);
        break;
    case 0x9003:
        if (text)
            m_original = TextOf(m_t.at(e.offset), e.size);
        break;
    case 0x9004:
        if (text)
            m_digitized = TextOf(m_t.at(e.offset), e.size);
        break;
    case 0x9201:
        if (value) {
            m_shutterApex = first;
            m_hasShutter = true;
        }
        break;
    case 0x9202:
        if (value) {
            m_apertureApex = first;
            m_hasAperture = true;
        }
        break;
    case 0x9204:
        if (value)
            m_info.ExposureBias = first;
        break;
    case 0x9206:
        if (value)
            m_info.SubjectDistance = first;
        break;
    case 0x9207:
        if (value)
            m_info.MeteringMode = asInt(first);
        break;
    case 0x9208:
        if (value)
            m_info.LightSource = asInt(first);
        break;
    case 0x9209:
        if (value)
            m_info.Flash = asInt(first);
        break;
    case 0x920A:
        if (value)
            m_info.FocalLength = first;
        break;
    case 0x9286:
        if (e.type == T_UNDEFINED)
            m_info.UserComment = DisplayText(m_t, e);
        break;
    case 0xA002:
        if (value)
            m_info.Width = asInt(first);
        break;
    case 0xA003:
        if (value)
            m_info.Height = asInt(first);
        break;
    case 0xA402:
        if (value)
            m_info.ExposureMode = asInt(first);
        break;
    case 0xA403:
        if (value)
            m_info.WhiteBalance = asInt(first);
        break;
    case 0xA404:
        if (value)
            m_info.DigitalZoomRatio = first;
        break;
    case 0xA405:
        if (value)
            m_info.FocalLength35mm = asInt(first);
        break;
    case 0xA406:
        if (value)
            m_info.SceneCaptureType = asInt(first);
        break;
    case 0xA434:
        if (text)
            m_info.LensModel = TextOf(m_t.at(e.offset), e.size);
        break;
    }
}

void Decoder::Finish()
{
    if (!m_original.IsEmpty())
        m_info.DateTime = m_original;
    else if (!m_digitized.IsEmpty())
        m_info.DateTime = m_digitized;
    else
        m_info.DateTime = m_info.DateTimeModified;

    if (m_info.ExposureTime == 0 && m_hasShutter && std::fabs(m_shutterApex) < 64)
        m_info.ExposureTime = std::exp2(-m_shutterApex);
    if (m_info.FNumber == 0 && m_hasAperture && std::fabs(m_apertureApex) < 64)
        m_info.FNumber = std::exp2(m_apertureApex / 2.0);

    // A position off the globe is no position.
    if (m_hasLat && m_hasLon && std::fabs(m_lat) <= 90 && std::fabs(m_lon) <= 180) {
        m_info.HasGps = TRUE;
        m_info.GpsLatitude = m_latRef == 'S' ? -m_lat : m_lat;
        m_info.GpsLongitude = m_lonRef == 'W' ? -m_lon : m_lon;
    }
    if (m_hasAlt) {
        m_info.HasGpsAltitude = TRUE;
        m_info.GpsAltitude = m_altRef == 1 ? -m_alt : m_alt;
    }
}

// Records each tag in a settings store under "EXIF.<name>".
void StoreTag(const ExifTag& tag, void* context)
{
    auto* store = static_cast<CSettings*>(context);
    CString key = "EXIF.";
    if (std::strcmp(tag.ifd, "IFD1") == 0)
        key += "IFD1.";
    key += tag.name;
    try {
        if (tag.isInteger && tag.number >= INT_MIN && tag.number <= INT_MAX)
            store->setInt(key, static_cast<int>(tag.number));
        else if (tag.isNumber)
            store->setDouble(key, tag.number);
        else
            store->setString(key, tag.text);
    } catch (CException* e) {
        e->Delete();
    }
}

struct JpegParts
{
    std::vector<BYTE> app1;
    bool hasExif = false;
    bool isJpeg = false;
    int frameWidth = 0;
    int frameHeight = 0;
};

JpegParts ReadJpegParts(twutil_jpeg::ByteSource& source)
{
    using namespace twutil_jpeg;
    JpegParts parts;
    bool haveFrame = false;
    parts.isJpeg = ScanSegments(
        source, [](BYTE marker) { return marker == 0xE1 || IsFrameMarker(marker); },
        [&](const Segment& s) {
            if (s.marker == 0xE1) {
                if (!parts.hasExif && s.size >= 6 && std::memcmp(s.body, "Exif\0", 5) == 0) {
                    parts.app1.assign(s.body, s.body + s.size);
                    parts.hasExif = true;
                }
            } else if (!haveFrame && s.size >= 5) {
                parts.frameHeight = s.body[1] << 8 | s.body[2];
                parts.frameWidth = s.body[3] << 8 | s.body[4];
                haveFrame = true;
            }
            return true;
        });
    return parts;
}

}  // namespace

Cexif::Cexif(tag_ExifInfo* info) : m_exifinfo(info ? info : &m_ownInfo) {}

bool Cexif::DecodeExifBlock(const BYTE* block, size_t size, ExifTagCallback tagCallback, void* context)
{
    *m_exifinfo = tag_ExifInfo();
    m_lastError.Empty();
    if (!block)
        size = 0;
    if (size >= 6 && std::memcmp(block, "Exif\0", 5) == 0) {
        block += 6;
        size -= 6;
    }
    if (size < 8 || !((block[0] == 'I' && block[1] == 'I') || (block[0] == 'M' && block[1] == 'M'))) {
        m_lastError = "no TIFF header in the EXIF block";
        return false;
    }
    const TiffBlock t(block, size, block[0] == 'I');
    if (t.u16(2) != 42) {
        m_lastError = "no TIFF header in the EXIF block";
        return false;
    }
    const size_t ifd0 = t.u32(4);
    if (!t.has(ifd0, 2)) {
        m_lastError = "the first IFD lies outside the EXIF block";
        return false;
    }
    m_exifinfo->IsExif = TRUE;
    Decoder decoder(t, *m_exifinfo, tagCallback, context);
    decoder.WalkIfd(ifd0, IFD_0, 0);
    decoder.Finish();
    return true;
}

static bool DecodeParts(Cexif& exif, const JpegParts& parts, ExifTagCallback cb, void* ctx)
{
    tag_ExifInfo& info = *exif.GetInfo();
    if (!parts.isJpeg || !parts.hasExif) {
        exif.DecodeExifBlock(nullptr, 0);
        return false;
    }
    if (!exif.DecodeExifBlock(parts.app1.data(), parts.app1.size(), cb, ctx))
        return false;
    if (info.Width == 0 && info.Height == 0) {
        info.Width = parts.frameWidth;
        info.Height = parts.frameHeight;
    }
    return true;
}

bool Cexif::DecodeExif(const BYTE* jpeg, size_t size, ExifTagCallback tagCallback, void* context)
{
    twutil_jpeg::MemorySource source(jpeg, size);
    const JpegParts parts = ReadJpegParts(source);
    const bool found = DecodeParts(*this, parts, tagCallback, context);
    if (!parts.isJpeg)
        m_lastError = "not a JPEG picture";
    else if (!parts.hasExif)
        m_lastError = "the picture holds no EXIF segment";
    return found;
}

bool Cexif::DecodeExif(const BYTE* jpeg, size_t size, CSettings* store)
{
    return store ? DecodeExif(jpeg, size, StoreTag, store) : DecodeExif(jpeg, size, nullptr, nullptr);
}

bool Cexif::DecodeExif(FILE* file, ExifTagCallback tagCallback, void* context)
{
    twutil_jpeg::FileSource source(file);
    const JpegParts parts = ReadJpegParts(source);
    const bool found = DecodeParts(*this, parts, tagCallback, context);
    if (!parts.isJpeg)
        m_lastError = file ? "not a JPEG picture" : "no file";
    else if (!parts.hasExif)
        m_lastError = "the picture holds no EXIF segment";
    return found;
}

bool Cexif::DecodeExif(FILE* file, CSettings* store)
{
    return store ? DecodeExif(file, StoreTag, store) : DecodeExif(file, nullptr, nullptr);
}
