// CArchive: value, count, string and object formats byte by byte, round
// trips through small buffers, short input and misuse.
#include "afx.h"
#include "afxcoll.h"

#include "archive_test_support.h"

#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace {

using archive_test::ArchiveCause;

using Bytes = std::vector<BYTE>;

Bytes ContentOf(CFile& file)
{
    Bytes bytes(static_cast<std::size_t>(file.GetLength()));
    file.SeekToBegin();
    if (!bytes.empty())
        file.Read(bytes.data(), static_cast<UINT>(bytes.size()));
    return bytes;
}

// What store writes through an archive with a buffer of nBufSize bytes.
Bytes Stored(const std::function<void(CArchive&)>& store, int nBufSize = 4096)
{
    CMemFile file;
    {
        CArchive ar(&file, CArchive::store, nBufSize);
        store(ar);
    }
    return ContentOf(file);
}

// A memory file that, like a pipe, cannot tell its length.
class CStreamFile : public CMemFile
{
public:
    ULONGLONG GetLength() const override { AfxThrowNotSupportedException(); }
};

// A loading archive over the given bytes, in a file that can tell how many
// are left or (bStream) one that cannot.
struct Loader
{
    explicit Loader(const Bytes& bytes, int nBufSize = 4096, bool bStream = false)
    {
        file = bStream ? std::make_unique<CStreamFile>() : std::make_unique<CMemFile>();
        if (!bytes.empty())
            file->Write(bytes.data(), static_cast<UINT>(bytes.size()));
        file->SeekToBegin();
        ar = std::make_unique<CArchive>(file.get(), CArchive::load, nBufSize);
    }

    std::unique_ptr<CMemFile> file;
    std::unique_ptr<CArchive> ar;
};

Bytes Concat(std::initializer_list<Bytes> parts)
{
    Bytes all;
    for (const Bytes& part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

Bytes TextBytes(const char* text)
{
    return Bytes(text, text + std::strlen(text));
}

class CArchiveTestNode : public CObject
{
    DECLARE_SERIAL(CArchiveTestNode)

public:
    CArchiveTestNode() = default;
    CArchiveTestNode(int nValue, CArchiveTestNode* pNext) : m_nValue(nValue), m_pNext(pNext) {}

    void Serialize(CArchive& ar) override
    {
        if (ar.IsStoring()) {
            ar << m_nValue << m_pNext;
        } else {
            m_nLoadedSchema = ar.GetObjectSchema();
            ar >> m_nValue >> m_pNext;
        }
    }

    int m_nValue = 0;
    CArchiveTestNode* m_pNext = nullptr;
    UINT m_nLoadedSchema = 0;
};

class CArchiveTestOther : public CObject
{
    DECLARE_SERIAL(CArchiveTestOther)
};

class CArchiveTestNotSerial : public CObject
{
    DECLARE_DYNCREATE(CArchiveTestNotSerial)
};

IMPLEMENT_SERIAL(CArchiveTestNode, CObject, 1)
IMPLEMENT_SERIAL(CArchiveTestOther, CObject, 1)
IMPLEMENT_DYNCREATE(CArchiveTestNotSerial, CObject)

}  // namespace

TEST(Archive, ValuesAreLittleEndianWithFixedSizes)
{
    struct
    {
        std::function<void(CArchive&)> store;
        Bytes bytes;
        const char* what;
    } cases[] = {
        {[](CArchive& ar) { ar << BYTE(0xAB); }, {0xAB}, "BYTE"},
        {[](CArchive& ar) { ar << WORD(0x1234); }, {0x34, 0x12}, "WORD"},
        {[](CArchive& ar) { ar << short(-2); }, {0xFE, 0xFF}, "short"},
        {[](CArchive& ar) { ar << -2; }, {0xFE, 0xFF, 0xFF, 0xFF}, "int"},
        {[](CArchive& ar) { ar << 0x01020304u; }, {0x04, 0x03, 0x02, 0x01}, "unsigned"},
        {[](CArchive& ar) { ar << LONG(-1); }, {0xFF, 0xFF, 0xFF, 0xFF}, "LONG"},
        {[](CArchive& ar) { ar << DWORD(0x80000001u); }, {0x01, 0x00, 0x00, 0x80}, "DWORD"},
        {[](CArchive& ar) { ar << 'A'; }, {0x41}, "char"},
        {[](CArchive& ar) { ar << true << false; }, {0x01, 0x00}, "bool"},
        {[](CArchive& ar) { ar << 1.0f; }, {0x00, 0x00, 0x80, 0x3F}, "float"},
        {[](CArchive& ar) { ar << 1.0; }, {0, 0, 0, 0, 0, 0, 0xF0, 0x3F}, "double"},
        {[](CArchive& ar) { ar << LONGLONG(-2); }, {0xFE, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}, "LONGLONG"},
        {[](CArchive& ar) { ar << ULONGLONG(0x0102030405060708ull); },
         {0x08, 0x07, 0x06, 0x05, 0x04, 0x03, 0x02, 0x01},
         "ULONGLONG"},
    };
    for (auto& c : cases)
        EXPECT_EQ(Stored(c.store), c.bytes) << c.what;
}

TEST(Archive, EveryOperatorRoundTripsThroughAnyBufferSize)
{
    const CString text("Grüße, weiß");
    for (int nBufSize : {1, 2, 3, 5, 16, 4096}) {
        const Bytes bytes = Stored(
            [&](CArchive& ar) {
                ar << BYTE(200) << WORD(65000) << LONG(-123456) << DWORD(4000000000u) << -77 << 4000000001u
                   << short(-32768) << char('z') << true << 3.25f << -1.0e300 << LONGLONG(-9000000000000000000LL)
                   << ULONGLONG(18000000000000000000ull) << text << CString();
            },
            nBufSize);

        Loader in(bytes, nBufSize);
        BYTE by = 0;
        WORD w = 0;
        LONG l = 0;
        DWORD dw = 0;
        int i = 0;
        unsigned u = 0;
        short sh = 0;
        char ch = 0;
        bool b = false;
        float f = 0;
        double d = 0;
        LONGLONG ll = 0;
        ULONGLONG ull = 0;
        CString s1("old"), s2("old");
        *in.ar >> by >> w >> l >> dw >> i >> u >> sh >> ch >> b >> f >> d >> ll >> ull >> s1 >> s2;
        EXPECT_EQ(by, 200);
        EXPECT_EQ(w, 65000);
        EXPECT_EQ(l, -123456);
        EXPECT_EQ(dw, 4000000000u);
        EXPECT_EQ(i, -77);
        EXPECT_EQ(u, 4000000001u);
        EXPECT_EQ(sh, -32768);
        EXPECT_EQ(ch, 'z');
        EXPECT_TRUE(b);
        EXPECT_EQ(f, 3.25f);
        EXPECT_EQ(d, -1.0e300);
        EXPECT_EQ(ll, -9000000000000000000LL);
        EXPECT_EQ(ull, 18000000000000000000ull);
        EXPECT_STREQ(static_cast<LPCTSTR>(s1), static_cast<LPCTSTR>(text)) << nBufSize;
        EXPECT_TRUE(s2.IsEmpty());
        EXPECT_EQ(in.ar->Read(&by, 1), 0u) << "all data consumed, buffer " << nBufSize;
    }
}

TEST(Archive, CallerBufferIsUsedAsTheArchiveBuffer)
{
    BYTE buffer[8];
    std::memset(buffer, 0, sizeof buffer);
    CMemFile file;
    {
        CArchive ar(&file, CArchive::store, sizeof buffer, buffer);
        ar << WORD(0xBEEF);
        EXPECT_EQ(buffer[0], 0xEF);
        EXPECT_EQ(buffer[1], 0xBE);
        EXPECT_EQ(file.GetLength(), 0u);
    }
    EXPECT_EQ(ContentOf(file), (Bytes{0xEF, 0xBE}));
}

TEST(Archive, CountEncodingAtThresholds)
{
    struct
    {
        ULONGLONG count;
        Bytes bytes;
    } cases[] = {
        {0, {0x00, 0x00}},
        {0x1234, {0x34, 0x12}},
        {0xFFFE, {0xFE, 0xFF}},
        {0xFFFF, {0xFF, 0xFF, 0xFF, 0xFF, 0x00, 0x00}},
        {0x10000, {0xFF, 0xFF, 0x00, 0x00, 0x01, 0x00}},
        {0xFFFFFFFE, {0xFF, 0xFF, 0xFE, 0xFF, 0xFF, 0xFF}},
        {0xFFFFFFFF, {0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0, 0, 0, 0}},
        {0x100000000, {0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0, 0, 0, 0, 1, 0, 0, 0}},
        {0x123456789ABCull, {0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xBC, 0x9A, 0x78, 0x56, 0x34, 0x12, 0, 0}},
    };
    for (auto& c : cases) {
        const DWORD_PTR count = static_cast<DWORD_PTR>(c.count);
        const Bytes bytes = Stored([&](CArchive& ar) { ar.WriteCount(count); });
        EXPECT_EQ(bytes, c.bytes) << std::hex << c.count;
        // Without the counted elements behind it, only a file that cannot
        // tell its length lets the count through.
        Loader in(bytes, 4096, true);
        EXPECT_EQ(in.ar->ReadCount(), count) << std::hex << c.count;
    }
}

TEST(Archive, StringLengthPrefixAtThresholds)
{
    struct
    {
        int length;
        Bytes prefix;
    } cases[] = {
        {0, {0x00}},
        {1, {0x01}},
        {254, {0xFE}},
        {255, {0xFF, 0xFF, 0x00}},
        {0xFFFD, {0xFF, 0xFD, 0xFF}},
        {0xFFFE, {0xFF, 0xFF, 0xFF, 0xFE, 0xFF, 0x00, 0x00}},
        {0x10000, {0xFF, 0xFF, 0xFF, 0x00, 0x00, 0x01, 0x00}},
    };
    for (auto& c : cases) {
        std::string body(static_cast<std::size_t>(c.length), 'x');
        for (std::size_t k = 0; k < body.size(); k += 7)
            body[k] = static_cast<char>('a' + k % 26);
        const CString text(body.data(), c.length);
        const Bytes bytes = Stored([&](CArchive& ar) { ar << text; }, 100);
        ASSERT_EQ(bytes.size(), c.prefix.size() + body.size()) << c.length;
        EXPECT_EQ(Bytes(bytes.begin(), bytes.begin() + c.prefix.size()), c.prefix) << c.length;
        EXPECT_EQ(std::memcmp(bytes.data() + c.prefix.size(), body.data(), body.size()), 0);

        Loader in(bytes, 100);
        CString loaded;
        *in.ar >> loaded;
        ASSERT_EQ(loaded.GetLength(), c.length);
        EXPECT_EQ(std::memcmp(static_cast<LPCTSTR>(loaded), body.data(), body.size()), 0);
    }
}

TEST(Archive, StringKeepsEmbeddedNulAndHighBytes)
{
    const char raw[] = {'a', '\0', 'b', '\xE4', '\xFF'};
    const CString text(raw, 5);
    const Bytes bytes = Stored([&](CArchive& ar) { ar << text; });
    EXPECT_EQ(bytes, (Bytes{0x05, 'a', 0x00, 'b', 0xE4, 0xFF}));
    Loader in(bytes);
    CString loaded;
    *in.ar >> loaded;
    ASSERT_EQ(loaded.GetLength(), 5);
    EXPECT_EQ(std::memcmp(static_cast<LPCTSTR>(loaded), raw, 5), 0);
}

TEST(Archive, WideStringIsNarrowedOnLoading)
{
    struct
    {
        Bytes bytes;
        const char* text;
    } cases[] = {
        {{0xFF, 0xFE, 0xFF, 0x03, 'A', 0x00, 0xE4, 0x00, 0xA9, 0x03}, "A\xE4?"},
        {{0xFF, 0xFE, 0xFF, 0x00}, ""},
        {{0xFF, 0xFE, 0xFF, 0xFF, 0x02, 0x00, 'h', 0x00, 'i', 0x00}, "hi"},
    };
    for (auto& c : cases) {
        Loader in(c.bytes);
        CString loaded("old");
        *in.ar >> loaded;
        EXPECT_STREQ(static_cast<LPCTSTR>(loaded), c.text);
    }
}

TEST(Archive, ShortInputThrowsEndOfFile)
{
    struct
    {
        Bytes bytes;
        std::function<void(CArchive&)> load;
        const char* what;
    } cases[] = {
        {{0x01, 0x02},
         [](CArchive& ar) {
             int i;
             ar >> i;
         },
         "int from 2 bytes"},
        {{},
         [](CArchive& ar) {
             BYTE b;
             ar >> b;
         },
         "BYTE from nothing"},
        {{0x01, 0x02, 0x03},
         [](CArchive& ar) {
             double d;
             ar >> d;
         },
         "double from 3 bytes"},
        {{0x05, 'a', 'b'},
         [](CArchive& ar) {
             CString s;
             ar >> s;
         },
         "string body cut"},
        {{0xFF, 0xFF},
         [](CArchive& ar) {
             CString s;
             ar >> s;
         },
         "string length cut"},
        {{0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x7F, 'x'},
         [](CArchive& ar) {
             CString s;
             ar >> s;
         },
         "huge claimed length"},
        {{0xFF, 0xFF, 0x01, 0x00}, [](CArchive& ar) { ar.ReadCount(); }, "count cut"},
        {{0x01, 0x02, 0x03},
         [](CArchive& ar) {
             BYTE b[4];
             ar.EnsureRead(b, 4);
         },
         "EnsureRead cut"},
        {{0xFF, 0xFF, 0x01}, [](CArchive& ar) { ar.ReadObject(nullptr); }, "class record cut"},
    };
    for (auto& c : cases) {
        for (int nBufSize : {2, 4096}) {
            Loader in(c.bytes, nBufSize);
            EXPECT_EQ(ArchiveCause([&] { c.load(*in.ar); }), CArchiveException::endOfFile)
                << c.what << ", buffer " << nBufSize;
        }
    }

    Loader in(Bytes{1, 2, 3});
    BYTE b[8] = {};
    EXPECT_EQ(in.ar->Read(b, 8), 3u);
    EXPECT_EQ(b[2], 3);
    EXPECT_EQ(in.ar->Read(b, 8), 0u);
}

// Nested arrays: the CObArray class record, then nLevels arrays of one
// element each, the innermost holding NULL.
Bytes NestedArrays(int nLevels)
{
    Bytes bytes = Concat({{0xFF, 0xFF, 0x00, 0x00, 0x08, 0x00}, TextBytes("CObArray"), {0x01, 0x00}});
    for (int k = 1; k < nLevels; ++k)
        bytes.insert(bytes.end(), {0x01, 0x80, 0x01, 0x00});
    bytes.insert(bytes.end(), {0x00, 0x00});
    return bytes;
}

// Deletes nested arrays with everything they hold.
void DeleteNested(CObject* pOb)
{
    for (CObject* pInner = pOb; pInner != nullptr;) {
        CObArray* pArray = DYNAMIC_DOWNCAST(CObArray, pInner);
        CObject* pNext = pArray != nullptr && pArray->GetSize() > 0 ? pArray->GetAt(0) : nullptr;
        delete pInner;
        pInner = pNext;
    }
}

TEST(Archive, HostileCountsThrowBeforeAllocating)
{
    enum Kind
    {
        memory,
        disk,
        stream
    };
    const Bytes sevenBytes = {0xFF, 0xFF, 0xFE, 0xFF, 0xFF, 0xFF, 0x00};
    const auto dwords = [](CArchive& ar) { CDWordArray().Serialize(ar); };
    struct
    {
        const char* what;
        Bytes bytes;
        Kind kind;
        std::function<void(CArchive&)> load;
        int cause;
    } cases[] = {
        {"4G DWORDs claimed by 7 bytes", sevenBytes, memory, dwords, CArchiveException::endOfFile},
        {"the same on disk", sevenBytes, disk, dwords, CArchiveException::endOfFile},
        {"the same where the length is unknown", sevenBytes, stream, dwords, CArchiveException::endOfFile},
        {"16 bytes claimed by 8",
         {0x10, 0x00, 1, 2, 3, 4, 5, 6, 7, 8},
         memory,
         [](CArchive& ar) { CByteArray().Serialize(ar); },
         CArchiveException::endOfFile},
        {"4 WORDs in 7 bytes",
         {0x04, 0x00, 1, 2, 3, 4, 5, 6, 7},
         memory,
         [](CArchive& ar) { CWordArray().Serialize(ar); },
         CArchiveException::endOfFile},
        {"2^64 - 1 strings",
         {0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF},
         memory,
         [](CArchive& ar) { CStringArray().Serialize(ar); },
         CArchiveException::endOfFile},
        {"3 object tags in 5 bytes",
         {0x03, 0x00, 0, 0, 0, 0, 0},
         memory,
         [](CArchive& ar) { CObArray().Serialize(ar); },
         CArchiveException::endOfFile},
        {"4 map pairs in 7 bytes",
         {0x04, 0x00, 0, 0, 0, 0, 0, 0, 0},
         memory,
         [](CArchive& ar) { CMapStringToString().Serialize(ar); },
         CArchiveException::endOfFile},
        {"2G ints in 1 byte",
         {0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x7F, 1},
         memory,
         [](CArchive& ar) { CArray<int>().Serialize(ar); },
         CArchiveException::endOfFile},
        {"2^63 ints, which no array holds",
         {0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0, 0, 0, 0, 0, 0, 0, 0x80},
         stream,
         [](CArchive& ar) { CArray<int>().Serialize(ar); },
         CArchiveException::badIndex},
        {"a 2G string in 1 byte",
         {0xFF, 0xFF, 0xFF, 0xF0, 0xFF, 0xFF, 0x7F, 'a'},
         memory,
         [](CArchive& ar) {
             CString s;
             ar >> s;
         },
         CArchiveException::endOfFile},
        {"objects nested as deep as allowed", NestedArrays(CArchive::kMaxLoadDepth), memory,
         [](CArchive& ar) { DeleteNested(ar.ReadObject(nullptr)); }, -1},
        {"objects nested deeper", NestedArrays(CArchive::kMaxLoadDepth + 1), memory,
         [](CArchive& ar) { DeleteNested(ar.ReadObject(nullptr)); }, CArchiveException::badIndex},
    };
    const std::string path = (std::filesystem::temp_directory_path() / "afx_hostile_count.dat").string();
    for (auto& c : cases) {
        if (c.kind == disk) {
            {
                CFile out(path.c_str(), CFile::modeCreate | CFile::modeWrite);
                out.Write(c.bytes.data(), static_cast<UINT>(c.bytes.size()));
            }
            CFile in(path.c_str(), CFile::modeRead);
            CArchive ar(&in, CArchive::load);
            EXPECT_EQ(ArchiveCause([&] { c.load(ar); }), c.cause) << c.what;
            ar.Abort();
            in.Close();
            CFile::Remove(path.c_str());
            continue;
        }
        Loader in(c.bytes, 4096, c.kind == stream);
        EXPECT_EQ(ArchiveCause([&] { c.load(*in.ar); }), c.cause) << c.what;
    }
}

TEST(Archive, WrongDirectionThrows)
{
    const std::function<void(CArchive&)> loads[] = {
        [](CArchive& ar) {
            int i;
            ar >> i;
        },
        [](CArchive& ar) {
            BYTE b;
            ar.Read(&b, 1);
        },
        [](CArchive& ar) { ar.ReadCount(); },
        [](CArchive& ar) { ar.ReadObject(nullptr); },
        [](CArchive& ar) {
            CString s;
            ar >> s;
        },
        [](CArchive& ar) {
            CString s;
            ar.ReadString(s);
        },
    };
    const std::function<void(CArchive&)> stores[] = {
        [](CArchive& ar) { ar << 1; },
        [](CArchive& ar) { ar.Write("x", 1); },
        [](CArchive& ar) { ar.WriteCount(1); },
        [](CArchive& ar) { ar.WriteObject(nullptr); },
        [](CArchive& ar) { ar << CString("x"); },
        [](CArchive& ar) { ar.WriteString("x"); },
    };
    for (auto& load : loads) {
        CMemFile file;
        CArchive ar(&file, CArchive::store);
        EXPECT_EQ(ArchiveCause([&] { load(ar); }), CArchiveException::writeOnly);
    }
    for (auto& store : stores) {
        Loader in(Bytes{1, 0, 0, 0});
        EXPECT_EQ(ArchiveCause([&] { store(*in.ar); }), CArchiveException::readOnly);
    }
}

TEST(Archive, StoredDataReachesTheFileOnCloseOrDestruction)
{
    struct
    {
        UINT extraMode;
        std::function<void(CArchive&)> end;
        ULONGLONG length;
        const char* what;
    } cases[] = {
        {0, [](CArchive&) {}, 4, "destruction flushes"},
        {CArchive::bNoFlushOnDelete, [](CArchive&) {}, 0, "no flush on delete"},
        {0, [](CArchive& ar) { ar.Close(); }, 4, "close flushes"},
        {CArchive::bNoFlushOnDelete, [](CArchive& ar) { ar.Close(); }, 4, "close flushes even without flush on delete"},
        {0, [](CArchive& ar) { ar.Flush(); }, 4, "flush"},
        {0, [](CArchive& ar) { ar.Abort(); }, 0, "abort discards"},
    };
    for (auto& c : cases) {
        CMemFile file;
        {
            CArchive ar(&file, CArchive::store | c.extraMode);
            ar << 12345;
            EXPECT_EQ(file.GetLength(), 0u) << c.what;
            c.end(ar);
        }
        EXPECT_EQ(file.GetLength(), c.length) << c.what;
    }

    CMemFile file;
    CArchive ar(&file, CArchive::store);
    EXPECT_EQ(ar.GetFile(), &file);
    ar.Close();
    EXPECT_EQ(ar.GetFile(), nullptr);
}

TEST(Archive, FailingFlushThrowsFromCloseButNotFromDestruction)
{
    BYTE fixed[2] = {0, 0};
    {
        CMemFile file(fixed, sizeof fixed);
        CArchive ar(&file, CArchive::store);
        ar << 1 << 2;
        CException* pCaught = nullptr;
        try {
            ar.Close();
        } catch (CException* e) {
            pCaught = e;
        }
        ASSERT_NE(pCaught, nullptr);
        EXPECT_TRUE(pCaught->IsKindOf(RUNTIME_CLASS(CMemoryException)));
        pCaught->Delete();
        EXPECT_EQ(ar.GetFile(), nullptr);
    }
    {
        CMemFile file(fixed, sizeof fixed);
        CArchive ar(&file, CArchive::store);
        ar << 1 << 2;
    }
    SUCCEED() << "the destructor dropped the failing flush";
}

TEST(Archive, CloseGivesUnreadBytesBackToTheFile)
{
    CMemFile file;
    const int values[] = {1, 2, 3};
    file.Write(values, sizeof values);
    file.SeekToBegin();
    {
        CArchive ar(&file, CArchive::load);
        int first = 0;
        ar >> first;
        EXPECT_EQ(first, 1);
        EXPECT_EQ(file.GetPosition(), sizeof values) << "the archive reads ahead";
    }
    EXPECT_EQ(file.GetPosition(), sizeof(int));
}

TEST(Archive, LinesAreReadWithoutTheirEnds)
{
    const Bytes bytes = Stored([](CArchive& ar) {
        ar.WriteString("one\r\ntwo\n\nthree");
        ar.WriteString(nullptr);
    });
    EXPECT_EQ(bytes, TextBytes("one\r\ntwo\n\nthree"));

    Loader in(bytes, 3);
    CString line;
    const char* expected[] = {"one", "two", "", "three"};
    for (const char* text : expected) {
        ASSERT_TRUE(in.ar->ReadString(line));
        EXPECT_STREQ(static_cast<LPCTSTR>(line), text);
    }
    EXPECT_FALSE(in.ar->ReadString(line));

    // A line cut at the buffer's size leaves its line end for the next call.
    Loader fixed(TextBytes("abcdef\r\nxy"));
    char sz[4];
    const char* pieces[] = {"abc", "def", "", "xy"};
    for (const char* text : pieces) {
        ASSERT_NE(fixed.ar->ReadString(sz, sizeof sz), nullptr) << text;
        EXPECT_STREQ(sz, text);
    }
    EXPECT_EQ(fixed.ar->ReadString(sz, sizeof sz), nullptr);
}

TEST(Archive, ObjectsUseThePersistentObjectFormat)
{
    CArchiveTestNode tail(7, nullptr);
    CArchiveTestNode head(5, &tail);
    const Bytes bytes = Stored([&](CArchive& ar) {
        ar << &head;
        ar << &tail;
        ar << static_cast<const CObject*>(nullptr);
    });
    const Bytes expected = Concat({
        {0xFF, 0xFF, 0x01, 0x00, 0x10, 0x00},
        TextBytes("CArchiveTestNode"),  // new class, 1
        {0x05, 0x00, 0x00, 0x00},       // head (2)
        {0x01, 0x80},                   // class 1
        {0x07, 0x00, 0x00, 0x00},       // tail (3)
        {0x00, 0x00},                   // tail's next
        {0x03, 0x00},                   // tail again
        {0x00, 0x00},                   // NULL
    });
    EXPECT_EQ(bytes, expected);

    Loader in(bytes, 5);
    CArchiveTestNode* pHead = nullptr;
    CArchiveTestNode* pTail = nullptr;
    CObject* pNull = &head;
    *in.ar >> pHead >> pTail >> pNull;
    ASSERT_NE(pHead, nullptr);
    EXPECT_EQ(pHead->m_nValue, 5);
    EXPECT_EQ(pHead->m_nLoadedSchema, 1u);
    ASSERT_NE(pHead->m_pNext, nullptr);
    EXPECT_EQ(pHead->m_pNext->m_nValue, 7);
    EXPECT_EQ(pTail, pHead->m_pNext) << "a repeated object loads as the same pointer";
    EXPECT_EQ(pNull, nullptr);
    delete pTail;
    delete pHead;
}

TEST(Archive, ManyObjectsUseBigTags)
{
    constexpr int kCount = 0x7FFF + 3;
    std::vector<std::unique_ptr<CArchiveTestNode>> nodes;
    for (int k = 0; k < kCount; ++k)
        nodes.push_back(std::make_unique<CArchiveTestNode>(k, nullptr));
    const Bytes bytes = Stored([&](CArchive& ar) {
        for (auto& node : nodes)
            ar << node.get();
        ar << nodes.back().get();
    });
    // The last object has index kCount + 1 (class 1, objects from 2).
    const DWORD lastIndex = kCount + 1;
    const Bytes tail(bytes.end() - 6, bytes.end());
    EXPECT_EQ(tail, (Bytes{0xFF, 0x7F, BYTE(lastIndex), BYTE(lastIndex >> 8), 0, 0}));

    Loader in(bytes);
    std::vector<std::unique_ptr<CObject>> loaded;
    for (int k = 0; k < kCount; ++k) {
        CArchiveTestNode* p = nullptr;
        *in.ar >> p;
        ASSERT_NE(p, nullptr);
        loaded.emplace_back(p);
        ASSERT_EQ(p->m_nValue, k);
    }
    CArchiveTestNode* pAgain = nullptr;
    *in.ar >> pAgain;
    EXPECT_EQ(pAgain, loaded.back().get());
}

TEST(Archive, ReadObjectRejectsBadInput)
{
    const Bytes node = Stored([](CArchive& ar) {
        CArchiveTestNode n(1, nullptr);
        ar << &n;
    });
    const Bytes badSchema =
        Concat({{0xFF, 0xFF, 0x02, 0x00, 0x10, 0x00}, TextBytes("CArchiveTestNode"), {1, 0, 0, 0, 0, 0}});
    const Bytes unknownClass = Concat({{0xFF, 0xFF, 0x01, 0x00, 0x03, 0x00}, TextBytes("Zzz")});
    const Bytes hugeName = {0xFF, 0xFF, 0x01, 0x00, 0xFF, 0x7F, 'a'};
    const Bytes backToClass = Concat({node, {0x01, 0x00}});
    const Bytes classAsObject = Concat({node, {0x02, 0x80}});

    struct
    {
        Bytes bytes;
        CRuntimeClass* requested;
        int reads;
        int cause;
        const char* what;
    } cases[] = {
        {node, RUNTIME_CLASS(CArchiveTestOther), 1, CArchiveException::badClass, "other class"},
        {badSchema, nullptr, 1, CArchiveException::badSchema, "schema 2 for 1"},
        {unknownClass, nullptr, 1, CArchiveException::badClass, "unknown class"},
        {hugeName, nullptr, 1, CArchiveException::badClass, "name too long"},
        {{0x05, 0x00}, nullptr, 1, CArchiveException::badIndex, "unknown object"},
        {{0x03, 0x80}, nullptr, 1, CArchiveException::badIndex, "unknown class index"},
        {{0xFF, 0x7F, 9, 0, 0, 0}, nullptr, 1, CArchiveException::badIndex, "big unknown"},
        {backToClass, nullptr, 2, CArchiveException::badIndex, "object tag names a class"},
        {classAsObject, nullptr, 2, CArchiveException::badIndex, "class tag names an object"},
    };
    for (auto& c : cases) {
        Loader in(c.bytes);
        std::vector<std::unique_ptr<CObject>> loaded;
        const int cause = ArchiveCause([&] {
            for (int k = 0; k < c.reads; ++k)
                loaded.emplace_back(in.ar->ReadObject(c.requested));
        });
        EXPECT_EQ(cause, c.cause) << c.what;
    }

    CArchiveTestNotSerial notSerial;
    EXPECT_EQ(notSerial.GetRuntimeClass(), RUNTIME_CLASS(CArchiveTestNotSerial));
    CMemFile file;
    CArchive ar(&file, CArchive::store);
    EXPECT_EQ(ArchiveCause([&] { ar.WriteObject(&notSerial); }), CArchiveException::badClass);
}
