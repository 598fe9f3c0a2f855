#include "exif.h"
#include "settings.h"

#include "picture_test_support.h"

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <filesystem>
#include <string>
#include <vector>

using namespace picture_test;

namespace {

// Builds TIFF blocks: IFD0 with optional Exif, GPS and IFD1 directories.
class Tiff
{
public:
    struct E
    {
        WORD tag;
        WORD type;
        DWORD count;
        Bytes value;
    };

    explicit Tiff(bool little) : m_le(little) {}

    Bytes U16(unsigned v) const { return m_le ? Bytes{BYTE(v), BYTE(v >> 8)} : Bytes{BYTE(v >> 8), BYTE(v)}; }
    Bytes U32(DWORD v) const
    {
        return m_le ? Bytes{BYTE(v), BYTE(v >> 8), BYTE(v >> 16), BYTE(v >> 24)}
                    : Bytes{BYTE(v >> 24), BYTE(v >> 16), BYTE(v >> 8), BYTE(v)};
    }
    E Ascii(WORD tag, const std::string& s) const
    {
        Bytes b(s.begin(), s.end());
        b.push_back(0);
        return {tag, 2, DWORD(b.size()), b};
    }
    E Short(WORD tag, unsigned v) const { return {tag, 3, 1, U16(v)}; }
    E Long(WORD tag, DWORD v) const { return {tag, 4, 1, U32(v)}; }
    E Byte(WORD tag, BYTE v) const { return {tag, 1, 1, {v}}; }
    E Rationals(WORD tag, std::vector<std::pair<long long, long long>> v, WORD type = 5) const
    {
        E e{tag, type, DWORD(v.size()), {}};
        for (auto [n, d] : v) {
            Append(e.value, U32(DWORD(n)));
            Append(e.value, U32(DWORD(d)));
        }
        return e;
    }
    E Rational(WORD tag, long long n, long long d) const { return Rationals(tag, {{n, d}}); }
    E Floats(WORD tag, std::vector<double> v) const
    {
        E e{tag, 11, DWORD(v.size()), {}};
        for (double d : v) {
            const float f = static_cast<float>(d);
            DWORD bits;
            std::memcpy(&bits, &f, 4);
            Append(e.value, U32(bits));
        }
        return e;
    }
    E Double(WORD tag, double d) const
    {
        std::uint64_t bits;
        std::memcpy(&bits, &d, 8);
        E e{tag, 12, 1, U32(DWORD(m_le ? bits : bits >> 32))};
        Append(e.value, U32(DWORD(m_le ? bits >> 32 : bits)));
        return e;
    }
    E Undefined(WORD tag, const Bytes& b) const { return {tag, 7, DWORD(b.size()), b}; }

    // Header, the directories one after the other, then the long values.
    Bytes Build(std::vector<E> ifd0, const std::vector<E>& exif = {}, const std::vector<E>& gps = {},
                const std::vector<E>& ifd1 = {}) const
    {
        auto size = [](size_t n) { return DWORD(2 + 12 * n + 4); };
        const size_t ifd0Count = ifd0.size() + !exif.empty() + !gps.empty();
        const DWORD ifd0Off = 8;
        const DWORD exifOff = ifd0Off + size(ifd0Count);
        const DWORD gpsOff = exifOff + (exif.empty() ? 0 : size(exif.size()));
        const DWORD ifd1Off = gpsOff + (gps.empty() ? 0 : size(gps.size()));
        DWORD dataOff = ifd1Off + (ifd1.empty() ? 0 : size(ifd1.size()));
        if (!exif.empty())
            ifd0.push_back(Long(0x8769, exifOff));
        if (!gps.empty())
            ifd0.push_back(Long(0x8825, gpsOff));

        Bytes out = m_le ? Bytes{'I', 'I', 42, 0} : Bytes{'M', 'M', 0, 42};
        Append(out, U32(ifd0Off));
        Bytes data;
        auto directory = [&](const std::vector<E>& entries, DWORD next) {
            Append(out, U16(unsigned(entries.size())));
            for (const E& e : entries) {
                Append(out, U16(e.tag));
                Append(out, U16(e.type));
                Append(out, U32(e.count));
                if (e.value.size() <= 4) {
                    Bytes inline4 = e.value;
                    inline4.resize(4);
                    Append(out, inline4);
                } else {
                    Append(out, U32(DWORD(dataOff + data.size())));
                    Append(data, e.value);
                    if (data.size() & 1)
                        data.push_back(0);
                }
            }
            Append(out, U32(next));
        };
        directory(ifd0, ifd1.empty() ? 0 : ifd1Off);
        if (!exif.empty())
            directory(exif, 0);
        if (!gps.empty())
            directory(gps, 0);
        if (!ifd1.empty())
            directory(ifd1, 0);
        Append(out, data);
        return out;
    }

    // Writes a 32-bit value into a built block.
    void Put32(Bytes& block, size_t off, DWORD v) const
    {
        const Bytes b = U32(v);
        std::copy(b.begin(), b.end(), block.begin() + off);
    }
    void Put16(Bytes& block, size_t off, unsigned v) const
    {
        const Bytes b = U16(v);
        std::copy(b.begin(), b.end(), block.begin() + off);
    }

private:
    static void Append(Bytes& to, const Bytes& b) { to.insert(to.end(), b.begin(), b.end()); }
    bool m_le;
};

Bytes App1(const Bytes& tiff)
{
    Bytes body = {'E', 'x', 'i', 'f', 0, 0};
    body.insert(body.end(), tiff.begin(), tiff.end());
    return Segment(0xE1, body);
}

// A camera-like block: IFD0 make, model, orientation; an Exif IFD; GPS; IFD1.
Bytes CameraBlock(const Tiff& t, int orientation = 6)
{
    return t.Build({t.Ascii(0x010F, "Canon  "), t.Ascii(0x0110, "EOS 5D"), t.Short(0x0112, orientation),
                    t.Ascii(0x0132, "2020:01:02 03:04:05"), t.Rational(0x011A, 300, 1), t.Short(0x0128, 2)},
                   {t.Rational(0x829A, 1, 250), t.Rational(0x829D, 28, 10), t.Short(0x8827, 400),
                    t.Ascii(0x9003, "2019:12:31 23:59:58"), t.Rational(0x920A, 50, 1), t.Short(0x9209, 0x19),
                    t.Long(0xA002, 4000), t.Short(0xA003, 3000), t.Rationals(0x9204, {{-2, 3}}, 10),
                    t.Undefined(0x9000, ToBytes("0230")), t.Undefined(0xC0DE, {1, 2, 3, 4, 5, 6})},
                   {t.Ascii(0x01, "S"), t.Rationals(0x02, {{48, 1}, {8, 1}, {30, 1}}), t.Ascii(0x03, "W"),
                    t.Rationals(0x04, {{11, 1}, {34, 1}, {3600, 100}}), t.Byte(0x05, 1), t.Rational(0x06, 5195, 10)},
                   {t.Short(0x0103, 6), t.Long(0x0201, 0), t.Long(0x0202, 0)});
}

struct SeenTag
{
    std::string ifd;
    std::string name;
    std::string text;
    bool isNumber;
    double number;
};

void Collect(const ExifTag& tag, void* context)
{
    static_cast<std::vector<SeenTag>*>(context)->push_back({tag.ifd, tag.name, tag.text, tag.isNumber, tag.number});
}

}  // namespace

TEST(ExifBlock, ReadsTheCameraRecordInBothByteOrders)
{
    for (bool little : {true, false}) {
        const Tiff t(little);
        tag_ExifInfo info;
        Cexif exif(&info);
        ASSERT_TRUE(exif.DecodeExif(JpegWith({App1(CameraBlock(t))}).data(), JpegWith({App1(CameraBlock(t))}).size()))
            << exif.GetLastError().GetString();
        SCOPED_TRACE(little ? "II" : "MM");
        EXPECT_TRUE(info.IsExif);
        EXPECT_STREQ(info.CameraMake, "Canon");
        EXPECT_STREQ(info.CameraModel, "EOS 5D");
        EXPECT_EQ(info.Orientation, 6);
        EXPECT_STREQ(info.DateTime, "2019:12:31 23:59:58");
        EXPECT_STREQ(info.DateTimeModified, "2020:01:02 03:04:05");
        EXPECT_DOUBLE_EQ(info.ExposureTime, 0.004);
        EXPECT_DOUBLE_EQ(info.FNumber, 2.8);
        EXPECT_EQ(info.ISOequivalent, 400);
        EXPECT_DOUBLE_EQ(info.FocalLength, 50.0);
        EXPECT_EQ(info.Flash, 0x19);
        EXPECT_TRUE(info.FlashUsed());
        EXPECT_EQ(info.Width, 4000);
        EXPECT_EQ(info.Height, 3000);
        EXPECT_NEAR(info.ExposureBias, -2.0 / 3.0, 1e-12);
        EXPECT_DOUBLE_EQ(info.XResolution, 300.0);
        EXPECT_EQ(info.ResolutionUnit, 2);
        EXPECT_TRUE(info.HasGps);
        EXPECT_NEAR(info.GpsLatitude, -(48 + 8 / 60.0 + 30 / 3600.0), 1e-9);
        EXPECT_NEAR(info.GpsLongitude, -(11 + 34 / 60.0 + 36 / 3600.0), 1e-9);
        EXPECT_TRUE(info.HasGpsAltitude);
        EXPECT_DOUBLE_EQ(info.GpsAltitude, -519.5);
        EXPECT_EQ(info.MeteringMode, -1);
    }
}

TEST(ExifBlock, TagCallbackNamesEveryTagWithItsDirectoryAndText)
{
    for (bool little : {true, false}) {
        const Tiff t(little);
        std::vector<SeenTag> seen;
        Cexif exif;
        ASSERT_TRUE(exif.DecodeExifBlock(CameraBlock(t).data(), CameraBlock(t).size(), Collect, &seen));
        const struct
        {
            const char* ifd;
            const char* name;
            const char* text;
        } expected[] = {
            {"IFD0", "Make", "Canon"},           {"IFD0", "Orientation", "6"},
            {"IFD0", "ExifIFDPointer", nullptr}, {"ExifIFD", "ExposureTime", "0.004"},
            {"ExifIFD", "FNumber", "2.8"},       {"ExifIFD", "ExposureBiasValue", "-0.6666666667"},
            {"ExifIFD", "ExifVersion", "0230"},  {"ExifIFD", "Tag0xC0DE", "1 2 3 4 5 6"},
            {"GPS", "GPSLatitudeRef", "S"},      {"GPS", "GPSLatitude", "48 8 30"},
            {"GPS", "GPSLongitude", "11 34 36"}, {"IFD1", "Compression", "6"},
        };
        size_t at = 0;
        for (const auto& e : expected) {
            while (at < seen.size() && !(seen[at].ifd == e.ifd && seen[at].name == e.name))
                ++at;
            ASSERT_LT(at, seen.size()) << e.ifd << " " << e.name << " missing or out of order";
            if (e.text) {
                EXPECT_EQ(seen[at].text, e.text) << e.name;
            }
        }
        EXPECT_EQ(seen.size(), 6u + 1 + 1 + 11 + 6 + 3);
    }
}

TEST(ExifBlock, FallsBackToApexValuesOlderDatesAndRejectsOddValues)
{
    const Tiff t(true);
    constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
    constexpr double kInf = std::numeric_limits<double>::infinity();
    struct Case
    {
        const char* what;
        std::vector<Tiff::E> ifd0, exif;
        double exposure, fnumber;
        const char* dateTime;
        int orientation;
        int iso = 0;
        std::vector<Tiff::E> gps = {};
        bool hasGps = false;
        double altitude = 0;  // 0: none
    } cases[] = {
        {"apex values only", {}, {t.Rational(0x9201, 8, 1), t.Rational(0x9202, 4, 1)}, 1.0 / 256, 4.0, "", 0},
        {"exposure wins over apex", {}, {t.Rational(0x829A, 1, 60), t.Rational(0x9201, 8, 1)}, 1.0 / 60, 0, "", 0},
        {"digitized when no original",
         {t.Ascii(0x0132, "2001:01:01 00:00:00")},
         {t.Ascii(0x9004, "2002:02:02 00:00:00")},
         0,
         0,
         "2002:02:02 00:00:00",
         0},
        {"modified when no capture time", {t.Ascii(0x0132, "2001:01:01 00:00:00")}, {}, 0, 0, "2001:01:01 00:00:00", 0},
        {"zero denominator", {t.Short(0x0112, 8)}, {t.Rational(0x829A, 1, 0), t.Rational(0x829D, 0, 0)}, 0, 0, "", 8},
        {"orientation out of range", {t.Short(0x0112, 9)}, {}, 0, 0, "", 0},
        {"orientation zero", {t.Short(0x0112, 0)}, {}, 0, 0, "", 0},
        // Numbers that are not finite or do not fit leave their fields absent.
        {"NaN and infinity", {t.Double(0x0112, kNaN)}, {t.Floats(0x829A, {kNaN}), t.Double(0x829D, kInf)}, 0, 0, "", 0},
        {"NaN apex values", {}, {t.Floats(0x9201, {kNaN}), t.Floats(0x9202, {-kInf})}, 0, 0, "", 0},
        {"orientation and ISO beyond int", {t.Double(0x0112, 1e300)}, {t.Double(0x8827, 3e9)}, 0, 0, "", 0, 0},
        {"ISO as a whole double", {}, {t.Double(0x8827, 800.0)}, 0, 0, "", 0, 800},
        {"position with a NaN minute",
         {},
         {},
         0,
         0,
         "",
         0,
         0,
         {t.Floats(0x02, {48, kNaN, 0}), t.Rationals(0x04, {{11, 1}, {0, 1}, {0, 1}})},
         false},
        {"latitude beyond 90 degrees",
         {},
         {},
         0,
         0,
         "",
         0,
         0,
         {t.Rationals(0x02, {{90, 1}, {0, 1}, {1, 1}}), t.Rationals(0x04, {{11, 1}, {0, 1}, {0, 1}})},
         false},
        {"infinite altitude and NaN reference",
         {},
         {},
         0,
         0,
         "",
         0,
         0,
         {t.Floats(0x05, {kNaN}), t.Double(0x06, kInf)},
         false,
         0},
        {"NaN altitude reference counts as above the sea",
         {},
         {},
         0,
         0,
         "",
         0,
         0,
         {t.Floats(0x05, {kNaN}), t.Rational(0x06, 100, 1)},
         false,
         100},
    };
    for (const Case& c : cases) {
        tag_ExifInfo info;
        Cexif exif(&info);
        std::vector<Tiff::E> ifd0 = c.ifd0;
        ifd0.push_back(t.Ascii(0x010F, "X"));
        const Bytes block = t.Build(ifd0, c.exif, c.gps);
        ASSERT_TRUE(exif.DecodeExifBlock(block.data(), block.size())) << c.what;
        EXPECT_NEAR(info.ExposureTime, c.exposure, 1e-12) << c.what;
        EXPECT_NEAR(info.FNumber, c.fnumber, 1e-12) << c.what;
        EXPECT_STREQ(info.DateTime, c.dateTime) << c.what;
        EXPECT_EQ(info.Orientation, c.orientation) << c.what;
        EXPECT_EQ(info.ISOequivalent, c.iso) << c.what;
        EXPECT_EQ(info.HasGps != FALSE, c.hasGps) << c.what;
        EXPECT_EQ(info.HasGpsAltitude != FALSE, c.altitude != 0) << c.what;
        EXPECT_EQ(info.GpsAltitude, c.altitude) << c.what;
    }
}

TEST(ExifBlock, UserCommentInEachCharacterCode)
{
    for (bool little : {true, false}) {
        const Tiff t(little);
        Bytes unicode = ToBytes(std::string("UNICODE\0", 8));
        for (unsigned cp : {0x47u, 0xFCu, 0x20ACu, 0x3A9u, 0x20u}) {
            const Bytes c = t.U16(cp);
            unicode.insert(unicode.end(), c.begin(), c.end());
        }
        const struct
        {
            Bytes payload;
            const char* text;
        } cases[] = {
            {ToBytes(std::string("ASCII\0\0\0Hallo  ", 15)), "Hallo"},
            {ToBytes(std::string("\0\0\0\0\0\0\0\0Grün\0junk", 17)), "Grün"},
            {unicode, "Gü€?"},
            {ToBytes("ASC"), ""},
        };
        for (const auto& c : cases) {
            tag_ExifInfo info;
            Cexif exif(&info);
            const Bytes block = t.Build({t.Ascii(0x010F, "X")}, {t.Undefined(0x9286, c.payload)});
            ASSERT_TRUE(exif.DecodeExifBlock(block.data(), block.size()));
            EXPECT_STREQ(info.UserComment, c.text);
        }
    }
}

TEST(ExifBlock, TextsInUtf8AreConvertedAndOthersTakenAsCp1252)
{
    const Tiff t(true);
    const struct
    {
        std::string stored;
        const char* text;
    } cases[] = {
        {"Gr\xC3\xBCn \xE2\x82\xAC", "Grün €"}, {"Grün", "Grün"},   {"Canon \xCE\xA9", "Canon ?"}, {"a\xC3", "a\xC3"},
        {"\xC3\xBC\xFC", "\xC3\xBC\xFC"},       {"plain", "plain"},
    };
    for (const auto& c : cases) {
        tag_ExifInfo info;
        Cexif exif(&info);
        const Bytes block = t.Build({t.Ascii(0x010F, c.stored)});
        ASSERT_TRUE(exif.DecodeExifBlock(block.data(), block.size()));
        EXPECT_EQ(std::string(info.CameraMake), c.text) << c.stored;
    }
}

TEST(ExifCorrupt, BrokenHeadersGiveNoExifWithAReason)
{
    const struct
    {
        const char* what;
        Bytes block;
    } cases[] = {
        {"empty", {}},
        {"only the Exif tag", ToBytes(std::string("Exif\0\0", 6))},
        {"wrong magic", {'I', 'I', 43, 0, 8, 0, 0, 0, 0, 0}},
        {"mixed byte order", {'I', 'M', 42, 0, 8, 0, 0, 0, 0, 0}},
        {"IFD0 past the end", {'I', 'I', 42, 0, 0xF0, 0xFF, 0xFF, 0xFF, 0, 0}},
        {"IFD0 without its count", {'M', 'M', 0, 42, 0, 0, 0, 9, 0}},
    };
    for (const auto& c : cases) {
        tag_ExifInfo info;
        info.CameraMake = "stale";
        Cexif exif(&info);
        EXPECT_FALSE(exif.DecodeExifBlock(c.block.data(), c.block.size())) << c.what;
        EXPECT_FALSE(info.IsExif) << c.what;
        EXPECT_TRUE(info.CameraMake.IsEmpty()) << c.what;
        EXPECT_FALSE(exif.GetLastError().IsEmpty()) << c.what;
    }
}

TEST(ExifCorrupt, KeepsWhatWasValidBeforeAFault)
{
    for (bool little : {true, false}) {
        const Tiff t(little);
        // IFD0: Make, Model, ExposureTime (8 bytes at a data offset), Exif pointer.
        const Bytes base = t.Build({t.Ascii(0x010F, "Make"), t.Ascii(0x0110, "Model"), t.Rational(0x829A, 1, 8)},
                                   {t.Short(0x8827, 200)});
        auto entry = [](int i) { return size_t(8 + 2 + 12 * i); };
        const size_t next0 = entry(4);
        struct Case
        {
            const char* what;
            void (*mutate)(const Tiff&, Bytes&, size_t (*)(int), size_t);
            const char* make;
            const char* model;
            double exposure;
            int iso;
        } cases[] = {
            {"intact", [](const Tiff&, Bytes&, size_t (*)(int), size_t) {}, "Make", "Model", 0.125, 200},
            {"IFD0 names itself as next", [](const Tiff& t, Bytes& b, size_t (*)(int), size_t n) { t.Put32(b, n, 8); },
             "Make", "Model", 0.125, 200},
            {"Exif pointer back to IFD0",
             [](const Tiff& t, Bytes& b, size_t (*e)(int), size_t) { t.Put32(b, e(3) + 8, 8); }, "Make", "Model", 0.125,
             0},
            {"Exif pointer past the end",
             [](const Tiff& t, Bytes& b, size_t (*e)(int), size_t) { t.Put32(b, e(3) + 8, 0xFFFFFFF0); }, "Make",
             "Model", 0.125, 0},
            {"value offset past the end",
             [](const Tiff& t, Bytes& b, size_t (*e)(int), size_t) { t.Put32(b, e(0) + 8, DWORD(b.size() - 2)); }, "",
             "Model", 0.125, 200},
            {"count whose size overflows 32 bits",
             [](const Tiff& t, Bytes& b, size_t (*e)(int), size_t) { t.Put32(b, e(2) + 4, 0x20000001); }, "Make",
             "Model", 0, 200},
            {"huge count", [](const Tiff& t, Bytes& b, size_t (*e)(int), size_t) { t.Put32(b, e(1) + 4, 0xFFFFFFFF); },
             "Make", "", 0.125, 200},
            {"unknown type", [](const Tiff& t, Bytes& b, size_t (*e)(int), size_t) { t.Put16(b, e(0) + 2, 99); }, "",
             "Model", 0.125, 200},
            {"entry count beyond the block",
             [](const Tiff& t, Bytes& b, size_t (*)(int), size_t) { t.Put16(b, 8, 5000); }, "Make", "Model", 0.125,
             200},
            {"block cut inside IFD0", [](const Tiff&, Bytes& b, size_t (*e)(int), size_t) { b.resize(e(2)); }, "", "",
             0, 0},
        };
        for (const Case& c : cases) {
            Bytes block = base;
            c.mutate(t, block, entry, next0);
            std::vector<SeenTag> seen;
            tag_ExifInfo info;
            Cexif exif(&info);
            EXPECT_TRUE(exif.DecodeExifBlock(block.data(), block.size(), Collect, &seen)) << c.what;
            EXPECT_STREQ(info.CameraMake, c.make) << c.what;
            EXPECT_STREQ(info.CameraModel, c.model) << c.what;
            EXPECT_DOUBLE_EQ(info.ExposureTime, c.exposure) << c.what;
            EXPECT_EQ(info.ISOequivalent, c.iso) << c.what;
            int makes = 0;
            for (const SeenTag& s : seen)
                makes += s.name == "Make";
            EXPECT_LE(makes, 1) << c.what << ": a directory was read twice";
        }
    }
}

TEST(ExifJpeg, FindsTheExifSegmentAmongOthersAndTheFrameSize)
{
    const Tiff t(false);
    const Bytes xmp = Segment(0xE1, ToBytes("http://ns.adobe.com/xap/1.0/\0<x/>"));
    const Bytes jfif = Segment(0xE0, ToBytes(std::string("JFIF\0\1\1\0\0\1\0\1\0\0", 14)));
    const Bytes first = App1(t.Build({t.Ascii(0x010F, "First")}));
    const Bytes second = App1(t.Build({t.Ascii(0x010F, "Second")}, {t.Long(0xA002, 640), t.Long(0xA003, 480)}));
    const struct
    {
        const char* what;
        Bytes jpeg;
        const char* make;
        int width, height;
    } cases[] = {
        {"after APP0 and XMP", JpegWith({jfif, xmp, first}), "First", 8, 8},
        {"first of two", JpegWith({first, second}), "First", 8, 8},
        {"with pixel dimensions", JpegWith({second, first}), "Second", 640, 480},
        {"with fill bytes before markers",
         [&] {
             Bytes j = JpegWith({first});
             j.insert(j.begin() + 2, 3, 0xFF);
             return j;
         }(),
         "First", 8, 8},
    };
    for (const auto& c : cases) {
        tag_ExifInfo info;
        Cexif exif(&info);
        EXPECT_TRUE(exif.DecodeExif(c.jpeg.data(), c.jpeg.size())) << c.what;
        EXPECT_STREQ(info.CameraMake, c.make) << c.what;
        EXPECT_EQ(info.Width, c.width) << c.what;
        EXPECT_EQ(info.Height, c.height) << c.what;
    }
}

TEST(ExifJpeg, BrokenStreamsGiveNoExifOrKeepTheCutSegment)
{
    const Tiff t(true);
    const Bytes app1 = App1(t.Build({t.Ascii(0x010F, "Make"), t.Ascii(0x0110, "Model with a long name")}));
    const Bytes withExif = JpegWith({app1});
    // The file ends inside the second text value.
    const Bytes cut(withExif.begin(), withExif.begin() + (app1.size() - 8));
    Bytes lengthOne = withExif;
    lengthOne[5] = 1;
    lengthOne[4] = 0;
    Bytes garbage = withExif;
    garbage[2] = 0x00;
    Bytes afterScan = kGrey8Jpeg;
    afterScan.insert(afterScan.end() - 2, app1.begin(), app1.end());
    const struct
    {
        const char* what;
        Bytes jpeg;
        bool found;
        const char* make;
        const char* model;
    } cases[] = {
        {"not a JPEG", ToBytes("\x89PNG\r\n\x1a\n"), false, "", ""},
        {"empty", {}, false, "", ""},
        {"only SOI", {0xFF, 0xD8}, false, "", ""},
        {"no EXIF segment", kGrey8Jpeg, false, "", ""},
        {"segment cut by the end", cut, true, "Make", ""},
        {"length field below 2", lengthOne, false, "", ""},
        {"no marker after SOI", garbage, false, "", ""},
        {"EXIF after the scan", afterScan, false, "", ""},
        {"intact", withExif, true, "Make", "Model with a long name"},
    };
    for (const auto& c : cases) {
        tag_ExifInfo info;
        Cexif exif(&info);
        EXPECT_EQ(exif.DecodeExif(c.jpeg.data(), c.jpeg.size()), c.found) << c.what;
        EXPECT_EQ(bool(info.IsExif), c.found) << c.what;
        EXPECT_EQ(exif.GetLastError().IsEmpty(), c.found) << c.what;
        EXPECT_STREQ(info.CameraMake, c.make) << c.what;
        EXPECT_STREQ(info.CameraModel, c.model) << c.what;
    }
}

TEST(ExifFile, ReadsFromTheFilePositionAndRecordsEveryTagInAStore)
{
    const Bytes jpeg = JpegWith({App1(CameraBlock(Tiff(true), 8))});
    const std::string path = (std::filesystem::temp_directory_path() / "twutil_exif_file_test.jpg").string();
    FILE* out = std::fopen(path.c_str(), "wb");
    ASSERT_NE(out, nullptr);
    std::fwrite("junk", 1, 4, out);
    std::fwrite(jpeg.data(), 1, jpeg.size(), out);
    std::fclose(out);

    FILE* in = std::fopen(path.c_str(), "rb");
    ASSERT_NE(in, nullptr);
    tag_ExifInfo info;
    Cexif exif(&info);
    CSettings store;
    EXPECT_FALSE(exif.DecodeExif(in, &store)) << "the junk is not a JPEG";
    std::fseek(in, 4, SEEK_SET);
    EXPECT_TRUE(exif.DecodeExif(in, &store));
    std::fclose(in);
    std::filesystem::remove(path);

    EXPECT_EQ(info.Orientation, 8);
    EXPECT_EQ(info.Width, 4000);
    EXPECT_STREQ(store.getString("EXIF.Make"), "Canon");
    EXPECT_EQ(store.getInt("EXIF.Orientation"), 8);
    EXPECT_EQ(store.getInt("EXIF.ISOSpeedRatings"), 400);
    EXPECT_DOUBLE_EQ(store.getDouble("EXIF.ExposureTime"), 0.004);
    EXPECT_STREQ(store.getString("EXIF.GPSLatitude"), "48 8 30");
    EXPECT_STREQ(store.getString("EXIF.GPSLatitudeRef"), "S");
    EXPECT_STREQ(store.getString("EXIF.Tag0xC0DE"), "1 2 3 4 5 6");
    EXPECT_EQ(store.getInt("EXIF.IFD1.Compression"), 6);
    EXPECT_EQ(store.getInt("EXIF.Compression", -1), -1) << "thumbnail tags stay apart";

    Cexif none;
    EXPECT_FALSE(none.DecodeExif(static_cast<FILE*>(nullptr)));
    EXPECT_FALSE(none.GetInfo()->IsExif);
}

#ifndef _WIN32

// exiftool writes the tags; what it reads back must be what we decode.
TEST(ExifPeer, AgreesWithExiftoolInBothByteOrdersAndOrientations)
{
    ASSERT_TRUE(ExiftoolPresent()) << "exiftool is missing: install libimage-exiftool-perl "
                                      "(tools/bootstrap.sh does)";
    const struct
    {
        const char* order;
        const char* exifCharset;  // how exiftool stores EXIF texts; "" is UTF-8
        int orientation;
        const char* make;
        const char* model;
        const char* date;
        const char* exposure;
        const char* fnumber;
        int iso;
        const char* focal;
        int flash;
        int width, height;
    } cases[] = {
        {"II", "", 1, "Nikon", "D850", "2021:06:01 12:00:00", "0.002", "4", 100, "35", 0, 8256, 5504},
        {"MM", "", 8, "Canon", "EOS R5 Ä", "1999:12:31 23:59:59", "1.5", "1.4", 6400, "85", 1, 640, 480},
        {"II", "cp1252", 6, "Grün & Söhne", "Modell Ü", "2005:02:03 04:05:06", "0.0005", "11", 800, "200", 25, 1, 1},
        {"MM", "cp1252", 3, "Fuji", "X-T4 ß", "2010:10:10 10:10:10", "30", "22", 160, "16", 16, 4000, 6000},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.order) + " " + std::to_string(c.orientation) + " " + c.exifCharset);
        TempFolder folder;
        ASSERT_TRUE(folder.Ok());
        const std::string picture = folder.File("peer.jpg");
        std::vector<std::string> args = {"-ExifByteOrder=" + std::string(c.order),
                                         "-Orientation#=" + std::to_string(c.orientation),
                                         Utf8("-Make=" + std::string(c.make)),
                                         Utf8("-Model=" + std::string(c.model)),
                                         "-DateTimeOriginal=" + std::string(c.date),
                                         "-ExposureTime=" + std::string(c.exposure),
                                         "-FNumber=" + std::string(c.fnumber),
                                         "-ISO=" + std::to_string(c.iso),
                                         "-FocalLength=" + std::string(c.focal),
                                         "-ExifIFD:Flash#=" + std::to_string(c.flash),
                                         "-ExifIFD:ExifImageWidth=" + std::to_string(c.width),
                                         "-ExifIFD:ExifImageHeight=" + std::to_string(c.height),
                                         "-GPSLatitude=52.5",
                                         "-GPSLatitudeRef=S",
                                         "-GPSLongitude=13.25",
                                         "-GPSLongitudeRef=W"};
        std::string readOptions;
        if (*c.exifCharset) {
            args.insert(args.begin(), {"-charset", "exif=" + std::string(c.exifCharset)});
            readOptions = "-charset exif=" + std::string(c.exifCharset);
        }
        const ExiftoolJson peer(ExiftoolWrite(folder, args, picture, readOptions));
        auto number = [&](const char* key) {
            EXPECT_TRUE(peer.Has(key)) << key;
            return peer.Number(key);
        };
        auto text = [&](const char* key) {
            EXPECT_TRUE(peer.Has(key)) << key;
            return Cp1252(peer.Text(key));
        };

        const Bytes jpeg = ReadBytes(picture);
        tag_ExifInfo info;
        Cexif exif(&info);
        ASSERT_TRUE(exif.DecodeExif(jpeg.data(), jpeg.size())) << exif.GetLastError().GetString();
        EXPECT_EQ(jpeg[2 + 4 + 6 + 0], BYTE(c.order[0])) << "exiftool wrote the other byte order";
        EXPECT_EQ(info.Orientation, int(number("IFD0:Orientation")));
        EXPECT_EQ(std::string(info.CameraMake), text("IFD0:Make"));
        EXPECT_EQ(std::string(info.CameraModel), text("IFD0:Model"));
        EXPECT_STREQ(info.CameraModel, c.model);
        EXPECT_EQ(std::string(info.DateTime), text("ExifIFD:DateTimeOriginal"));
        EXPECT_DOUBLE_EQ(info.ExposureTime, number("ExifIFD:ExposureTime"));
        EXPECT_DOUBLE_EQ(info.FNumber, number("ExifIFD:FNumber"));
        EXPECT_EQ(info.ISOequivalent, int(number("ExifIFD:ISO")));
        EXPECT_DOUBLE_EQ(info.FocalLength, number("ExifIFD:FocalLength"));
        EXPECT_EQ(info.Flash, int(number("ExifIFD:Flash")));
        EXPECT_EQ(info.Width, int(number("ExifIFD:ExifImageWidth")));
        EXPECT_EQ(info.Height, int(number("ExifIFD:ExifImageHeight")));
        EXPECT_DOUBLE_EQ(info.XResolution, number("IFD0:XResolution"));
        EXPECT_NEAR(info.GpsLatitude, number("Composite:GPSLatitude"), 1e-9);
        EXPECT_NEAR(info.GpsLongitude, number("Composite:GPSLongitude"), 1e-9);
    }
}

TEST(ExifPeer, GoesPastExiftoolsOwnTagsToTheSameRecordInAStore)
{
    ASSERT_TRUE(ExiftoolPresent()) << "exiftool is missing: install libimage-exiftool-perl";
    TempFolder folder;
    ASSERT_TRUE(folder.Ok());
    const std::string picture = folder.File("store.jpg");
    const std::string json = ExiftoolWrite(folder,
                                           {"-ExifByteOrder=II", "-Orientation#=5", "-Software=twutil",
                                            Utf8("-Artist=Jörg"), "-ExposureCompensation=-1.5", "-ISO=250"},
                                           picture);
    const ExiftoolJson peer(json);

    FILE* in = std::fopen(picture.c_str(), "rb");
    ASSERT_NE(in, nullptr);
    CSettings store;
    Cexif exif;
    EXPECT_TRUE(exif.DecodeExif(in, &store));
    std::fclose(in);
    EXPECT_EQ(store.getInt("EXIF.Orientation"), int(peer.Number("IFD0:Orientation")));
    EXPECT_EQ(std::string(store.getString("EXIF.Software")), Cp1252(peer.Text("IFD0:Software")));
    EXPECT_EQ(std::string(store.getString("EXIF.Artist")), Cp1252(peer.Text("IFD0:Artist")));
    EXPECT_DOUBLE_EQ(store.getDouble("EXIF.ExposureBiasValue"), peer.Number("ExifIFD:ExposureCompensation"));
    EXPECT_EQ(store.getInt("EXIF.ISOSpeedRatings"), int(peer.Number("ExifIFD:ISO")));
    EXPECT_DOUBLE_EQ(store.getDouble("EXIF.XResolution"), peer.Number("IFD0:XResolution"));
}

#endif  // !_WIN32
