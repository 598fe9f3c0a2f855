#include "iptc.h"

#include "picture_test_support.h"

#include <filesystem>
#include <iterator>
#include <string>
#include <vector>

using namespace picture_test;

namespace {

Bytes Dataset(int record, int dataset, const std::string& text)
{
    Bytes d = {0x1C, BYTE(record), BYTE(dataset), BYTE(text.size() >> 8), BYTE(text.size())};
    d.insert(d.end(), text.begin(), text.end());
    return d;
}

Bytes Join(const std::vector<Bytes>& parts)
{
    Bytes out;
    for (const Bytes& p : parts)
        out.insert(out.end(), p.begin(), p.end());
    return out;
}

// An image resource block: signature, id, padded Pascal name, size, padded data.
Bytes Resource(WORD id, const std::string& name, const Bytes& data)
{
    Bytes r = {'8', 'B', 'I', 'M', BYTE(id >> 8), BYTE(id), BYTE(name.size())};
    r.insert(r.end(), name.begin(), name.end());
    if ((name.size() + 1) & 1)
        r.push_back(0);
    const size_t n = data.size();
    r.insert(r.end(), {BYTE(n >> 24), BYTE(n >> 16), BYTE(n >> 8), BYTE(n)});
    r.insert(r.end(), data.begin(), data.end());
    if (n & 1)
        r.push_back(0);
    return r;
}

Bytes App13(const Bytes& resources)
{
    Bytes body = ToBytes(std::string("Photoshop 3.0\0", 14));
    body.insert(body.end(), resources.begin(), resources.end());
    return Segment(0xED, body);
}

const Bytes kIim =
    Join({Dataset(2, 0, std::string("\0\4", 2)), Dataset(2, 120, "Grüße aus Köln"), Dataset(2, 25, "Dom"),
          Dataset(2, 25, "Rhein"), Dataset(2, 80, "Jörg"), Dataset(2, 90, "Köln")});

std::vector<std::string> Texts(const CIPTC& iptc, int record, int dataset)
{
    CStringArray values;
    iptc.GetValues(record, dataset, values);
    std::vector<std::string> out;
    for (INT_PTR i = 0; i < values.GetSize(); ++i)
        out.push_back(values[i].GetString());
    return out;
}

}  // namespace

TEST(IptcRecords, KeepsEveryDatasetInFileOrderWithRepeatedKeywords)
{
    CIPTC iptc;
    ASSERT_EQ(iptc.DecodeIIM(kIim.data(), kIim.size()), 1);
    const struct
    {
        int record, dataset;
        const char* text;
    } expected[] = {
        {2, 0, "4"}, {2, 120, "Grüße aus Köln"}, {2, 25, "Dom"}, {2, 25, "Rhein"}, {2, 80, "Jörg"}, {2, 90, "Köln"},
    };
    ASSERT_EQ(iptc.GetCount(), INT_PTR(std::size(expected)));
    for (size_t i = 0; i < std::size(expected); ++i) {
        EXPECT_EQ(iptc.GetAt(i).record, expected[i].record) << i;
        EXPECT_EQ(iptc.GetAt(i).dataset, expected[i].dataset) << i;
        EXPECT_STREQ(iptc.GetAt(i).text, expected[i].text) << i;
    }
    EXPECT_EQ(Texts(iptc, 2, IPTC_KEYWORDS), (std::vector<std::string>{"Dom", "Rhein"}));
    EXPECT_STREQ(iptc.GetValue(2, IPTC_CAPTION), "Grüße aus Köln");
    EXPECT_STREQ(iptc.GetValue(2, IPTC_HEADLINE), "");
    EXPECT_FALSE(iptc.IsUtf8());
    EXPECT_STREQ(CIPTC::GetDatasetName(1, 90), "CodedCharacterSet");
    EXPECT_EQ(CIPTC::GetDatasetName(2, 254), nullptr);
}

TEST(IptcRecords, ConvertsUtf8WhenTheEnvelopeSaysSo)
{
    const std::string esc = "\x1B%G";
    const struct
    {
        const char* what;
        std::string charset;
        std::string bytes;
        const char* text;
    } cases[] = {
        {"umlauts", esc,
         "Gr\xC3\xBC\xC3\x9F"
         "e",
         "Grüße"},
        {"euro and dashes", esc,
         "\xE2\x82\xAC \xE2\x80\x93 \xE2\x80\x9E"
         "a\xE2\x80\x9C",
         "€ – „a“"},
        {"outside the code page", esc, "\xCE\xA9-\xE4\xB8\xAD-\xF0\x9F\x98\x80", "?-?-?"},
        {"C1 control", esc, "\xC2\x85", "?"},
        {"invalid bytes", esc,
         "a\xFF"
         "b\xC3",
         "a?b?"},
        {"cut sequence", esc,
         "\xE2\x82"
         "x",
         "?"
         "?x"},
        {"overlong", esc, "\xC0\xAF", "?"},
        {"surrogate", esc, "\xED\xA0\x80", "?"},
        {"no 1:90: bytes as they are", "", "Gr\xC3\xBC", "Gr\xC3\xBC"},
        {"other character set", "\x1B%/G", "Gr\xC3\xBC", "Gr\xC3\xBC"},
    };
    for (const auto& c : cases) {
        const Bytes iim =
            c.charset.empty() ? Dataset(2, 120, c.bytes) : Join({Dataset(1, 90, c.charset), Dataset(2, 120, c.bytes)});
        CIPTC iptc;
        ASSERT_EQ(iptc.DecodeIIM(iim.data(), iim.size()), 1) << c.what;
        EXPECT_EQ(std::string(iptc.GetValue(2, 120)), c.text) << c.what;
        EXPECT_EQ(bool(iptc.IsUtf8()), c.charset == esc) << c.what;
    }
    CIPTC iptc;
    const Bytes iim = Dataset(1, 90, esc);
    iptc.DecodeIIM(iim.data(), iim.size());
    EXPECT_STREQ(iptc.GetValue(1, 90), "ESC % G");
}

TEST(IptcRecords, CorruptDataKeepsTheDatasetsBeforeTheFault)
{
    const Bytes two = Join({Dataset(2, 5, "Titel"), Dataset(2, 25, "eins")});
    auto with = [&](const Bytes& tail) { return Join({two, tail}); };
    Bytes overlong = Dataset(2, 25, "zwei");
    overlong[4] = 50;
    const struct
    {
        const char* what;
        Bytes iim;
        int result;
        INT_PTR count;
    } cases[] = {
        {"intact", two, 1, 2},
        {"trailing padding", with(Bytes(7, 0)), 1, 2},
        {"length past the end", with(overlong), 1, 2},
        {"header cut short", with({0x1C, 2, 25}), 1, 2},
        {"no tag marker", with(Join({{0x1D}, Dataset(2, 25, "zwei")})), 1, 2},
        {"extended length", with({0x1C, 2, 25, 0x80, 0x02, 0x00, 0x03, 'd', 'r', 'i'}), 1, 3},
        {"extended length of five bytes", with({0x1C, 2, 25, 0x80, 0x05, 0, 0, 0, 0, 1, 'x'}), 1, 2},
        {"extended length of no bytes", with({0x1C, 2, 25, 0x80, 0x00}), 1, 2},
        {"extended length past the end", with({0x1C, 2, 25, 0x80, 0x04, 0xFF, 0xFF, 0xFF, 0xFF}), 1, 2},
        {"other records skipped", Join({Dataset(3, 10, "x"), Dataset(8, 10, "y"), Dataset(2, 5, "z")}), 1, 1},
        {"text ends at NUL", Dataset(2, 5, std::string("ab\0cd", 5)), 1, 1},
        {"nothing", {}, 0, 0},
        {"no datasets", Bytes(20, 0), 0, 0},
        {"only other records", Dataset(7, 10, "x"), 0, 0},
    };
    for (const auto& c : cases) {
        CIPTC iptc;
        EXPECT_EQ(iptc.DecodeIIM(c.iim.data(), c.iim.size()), c.result) << c.what;
        EXPECT_EQ(iptc.GetCount(), c.count) << c.what;
        for (INT_PTR i = 0; i < iptc.GetCount(); ++i)
            EXPECT_EQ(int(std::strlen(iptc.GetAt(i).text)), iptc.GetAt(i).text.GetLength()) << c.what;
    }
    CIPTC iptc;
    const Bytes nul = Dataset(2, 5, std::string("ab\0cd", 5));
    iptc.DecodeIIM(nul.data(), nul.size());
    EXPECT_STREQ(iptc.GetValue(2, 5), "ab");
}

TEST(IptcJpeg, FindsResource0404InThePhotoshopSegments)
{
    const Bytes other = Resource(0x03ED, "", Bytes(16, 1));
    const Bytes named = Resource(0x0425, "abc", Bytes(5, 2));
    const Bytes iptcRes = Resource(0x0404, "", kIim);
    const Bytes resources = Join({other, named, iptcRes});
    const Bytes split1(resources.begin(), resources.begin() + 40);
    const Bytes split2(resources.begin() + 40, resources.end());
    Bytes wrongSignature = resources;
    wrongSignature[0] = 'X';
    Bytes sizePastEnd = Join({other, Resource(0x0404, "", kIim)});
    const size_t sizeAt = other.size() + 4 + 2 + 2;
    sizePastEnd[sizeAt] = 0x7F;
    Bytes cutJpeg = JpegWith({App13(resources)});
    cutJpeg.resize(cutJpeg.size() - kGrey8Jpeg.size() + 2 - 7);
    const struct
    {
        const char* what;
        Bytes jpeg;
        int result;
        INT_PTR count;
    } cases[] = {
        {"after other resources", JpegWith({App13(resources)}), 1, 6},
        {"split over two segments", JpegWith({App13(split1), App13(split2)}), 1, 6},
        {"after an EXIF segment", JpegWith({Segment(0xE1, ToBytes("Exif")), App13(iptcRes)}), 1, 6},
        {"resource size past the end", JpegWith({App13(sizePastEnd)}), 1, 6},
        {"segment cut by the end of the file", cutJpeg, 1, 5},
        {"wrong resource signature", JpegWith({App13(wrongSignature)}), 0, 0},
        {"no Photoshop header", JpegWith({Segment(0xED, iptcRes)}), 0, 0},
        {"no IPTC resource", JpegWith({App13(Join({other, named}))}), 0, 0},
        {"no APP13", kGrey8Jpeg, 0, 0},
        {"not a JPEG", ToBytes("GIF89a"), 0, 0},
    };
    for (const auto& c : cases) {
        CIPTC iptc;
        EXPECT_EQ(iptc.OpenMemory(c.jpeg.data(), c.jpeg.size()), c.result) << c.what;
        EXPECT_EQ(iptc.GetCount(), c.count) << c.what;
    }
}

TEST(IptcFile, OpenFileReadsAFileAndForgetsTheLastOne)
{
    const std::string path = (std::filesystem::temp_directory_path() / "twutil_iptc_file_test.jpg").string();
    {
        FILE* out = std::fopen(path.c_str(), "wb");
        ASSERT_NE(out, nullptr);
        const Bytes jpeg = JpegWith({App13(Resource(0x0404, "", kIim))});
        std::fwrite(jpeg.data(), 1, jpeg.size(), out);
        std::fclose(out);
    }
    CIPTC iptc;
    EXPECT_EQ(iptc.OpenFile(CString(path.c_str())), 1);
    EXPECT_STREQ(iptc.GetValue(2, IPTC_CITY), "Köln");
    std::filesystem::remove(path);
    EXPECT_EQ(iptc.OpenFile(CString(path.c_str())), 0);
    EXPECT_EQ(iptc.GetCount(), 0);
    EXPECT_EQ(iptc.OpenFile(CString()), 0);
}

#ifndef _WIN32

// exiftool writes IPTC texts; what it reads back must be what we decode.
TEST(IptcPeer, AgreesWithExiftoolInCp1252AndUtf8)
{
    ASSERT_TRUE(ExiftoolPresent()) << "exiftool is missing: install libimage-exiftool-perl "
                                      "(tools/bootstrap.sh does)";
    // U+03A9 (not in code page 1252) can only be sent as UTF-8.
    const std::string omega = "\xCE\xA9";
    for (bool utf8 : {false, true}) {
        SCOPED_TRACE(utf8 ? "UTF-8" : "cp1252");
        TempFolder folder;
        ASSERT_TRUE(folder.Ok());
        const std::string picture = folder.File("iptc.jpg");
        std::vector<std::string> args = {
            Utf8("-IPTC:Caption-Abstract=Grüße aus München – 5 €"),
            Utf8("-IPTC:Keywords=Bäume"),
            Utf8("-IPTC:Keywords=Straße"),
            Utf8("-IPTC:Keywords=Öl"),
            Utf8("-IPTC:By-line=Jörg Müller"),
            Utf8("-IPTC:City=Köln"),
            Utf8("-IPTC:Headline=Ähre") + (utf8 ? omega : std::string()),
        };
        if (utf8)
            args.insert(args.begin(), "-IPTC:CodedCharacterSet=UTF8");
        const ExiftoolJson peer(ExiftoolWrite(folder, args, picture));
        ASSERT_TRUE(peer.Has("IPTC:City"));

        CIPTC iptc;
        ASSERT_EQ(iptc.OpenFile(CString(picture.c_str())), 1);
        EXPECT_EQ(bool(iptc.IsUtf8()), utf8);
        EXPECT_EQ(std::string(iptc.GetValue(2, IPTC_CAPTION)), Cp1252(peer.Text("IPTC:Caption-Abstract")));
        EXPECT_EQ(std::string(iptc.GetValue(2, IPTC_BYLINE)), Cp1252(peer.Text("IPTC:By-line")));
        EXPECT_EQ(std::string(iptc.GetValue(2, IPTC_CITY)), Cp1252(peer.Text("IPTC:City")));
        EXPECT_EQ(std::string(iptc.GetValue(2, IPTC_HEADLINE)), Cp1252(peer.Text("IPTC:Headline")));
        std::vector<std::string> keywords;
        for (const std::string& k : peer.List("IPTC:Keywords"))
            keywords.push_back(Cp1252(k));
        EXPECT_EQ(Texts(iptc, 2, IPTC_KEYWORDS), keywords);
        EXPECT_EQ(keywords.size(), 3u);
        EXPECT_STREQ(iptc.GetValue(2, IPTC_CITY), "Köln");
        if (utf8) {
            EXPECT_STREQ(iptc.GetValue(2, IPTC_HEADLINE), "Ähre?");
        }

        // The same file holds no EXIF; the IPTC reader does not need it.
        const Bytes jpeg = ReadBytes(picture);
        CIPTC fromMemory;
        EXPECT_EQ(fromMemory.OpenMemory(jpeg.data(), jpeg.size()), 1);
        EXPECT_EQ(fromMemory.GetCount(), iptc.GetCount());
    }
}

#endif  // !_WIN32
