// CStdioFile on real files in a private temporary folder: text and binary
// modes, line reading, positions, append modes and sharing.
#include "afx.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

namespace fs = std::filesystem;

namespace {

class StdioFileTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        std::random_device random;
        m_dir = fs::temp_directory_path() / ("afx_stdio_test_" + std::to_string(random()));
        fs::create_directories(m_dir);
    }

    void TearDown() override
    {
        std::error_code ignored;
        fs::remove_all(m_dir, ignored);
    }

    std::string PathOf(const char* name) const { return (m_dir / name).string(); }

    // The file's bytes as they are on disk.
    std::string Bytes(const char* name) const
    {
        std::ifstream in(PathOf(name), std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    }

    void Put(const char* name, const std::string& bytes) const
    {
        std::ofstream out(PathOf(name), std::ios::binary | std::ios::trunc);
        out << bytes;
    }

    // Every line ReadString(CString&) gives until it reports the end.
    std::vector<std::string> ReadLines(const char* name, UINT type) const
    {
        CStdioFile file(PathOf(name).c_str(), CFile::modeRead | type);
        std::vector<std::string> lines;
        CString line;
        while (file.ReadString(line))
            lines.emplace_back(line.GetString(), line.GetLength());
        EXPECT_TRUE(line.IsEmpty()) << "the end leaves the string empty";
        EXPECT_FALSE(file.ReadString(line)) << "the end stays the end";
        return lines;
    }

    fs::path m_dir;
};

using LineList = std::vector<std::string>;

TEST_F(StdioFileTest, TextModeWritesLineEndsAsCarriageReturnLineFeed)
{
    {
        CStdioFile file(PathOf("t.txt").c_str(), CFile::modeCreate | CFile::modeWrite | CFile::typeText);
        file.WriteString("eins\nzwei\n");
        file.WriteString("drei");
        file.WriteString("\r\n");
        const char raw[] = {'v', '\n', 'w'};
        file.Write(raw, sizeof raw);
    }
    EXPECT_EQ(Bytes("t.txt"), "eins\r\nzwei\r\ndrei\r\r\nv\r\nw");
}

TEST_F(StdioFileTest, TextIsTheModeWithoutATypeFlag)
{
    {
        CStdioFile file(PathOf("d.txt").c_str(), CFile::modeCreate | CFile::modeWrite);
        file.WriteString("a\nb\n");
    }
    EXPECT_EQ(Bytes("d.txt"), "a\r\nb\r\n");
    EXPECT_EQ(ReadLines("d.txt", 0), (LineList{"a", "b"}));
}

TEST_F(StdioFileTest, BinaryModeWritesBytesAsGiven)
{
    {
        CStdioFile file(PathOf("b.txt").c_str(), CFile::modeCreate | CFile::modeWrite | CFile::typeBinary);
        file.WriteString("eins\nzwei\r\n");
        file.WriteString("gr\xfcn");
    }
    EXPECT_EQ(Bytes("b.txt"), "eins\nzwei\r\ngr\xfcn");
}

TEST_F(StdioFileTest, ReadStringSplitsLinesInEachMode)
{
    struct
    {
        const char* bytes;
        UINT type;
        LineList lines;
    } cases[] = {
        {"a\r\nb\r\n", CFile::typeText, {"a", "b"}},
        {"a\nb\n", CFile::typeText, {"a", "b"}},
        {"a\r\nb", CFile::typeText, {"a", "b"}},
        {"\r\n\r\nx", CFile::typeText, {"", "", "x"}},
        {"a\rb\r\n", CFile::typeText, {"a\rb"}},
        {"a\r\r\nb", CFile::typeText, {"a\r", "b"}},
        {"end\r", CFile::typeText, {"end\r"}},
        {"vor\x1A"
         "nach\r\n",
         CFile::typeText,
         {"vor"}},
        {"", CFile::typeText, {}},
        {"a\r\nb\r\n", CFile::typeBinary, {"a\r", "b\r"}},
        {"a\nb", CFile::typeBinary, {"a", "b"}},
        {"vor\x1A"
         "nach",
         CFile::typeBinary,
         {"vor\x1A"
          "nach"}},
        {"\n", CFile::typeBinary, {""}},
    };
    for (auto& c : cases) {
        Put("r.txt", c.bytes);
        EXPECT_EQ(ReadLines("r.txt", c.type), c.lines) << c.bytes << " type " << c.type;
    }
}

TEST_F(StdioFileTest, LongLinesAndLineEndsAcrossTheReadBufferStayWhole)
{
    std::string bytes;
    LineList expected;
    for (int i = 0; i < 300; ++i) {
        std::string line(static_cast<std::size_t>(i * 7 % 5000), static_cast<char>('a' + i % 26));
        bytes += line + "\r\n";
        expected.push_back(line);
    }
    Put("long.txt", bytes);
    EXPECT_EQ(ReadLines("long.txt", CFile::typeText), expected);
}

TEST_F(StdioFileTest, ReadStringIntoABufferKeepsTheLineEndAndStopsAtTheLimit)
{
    Put("s.txt", "abcdef\r\ngh\r\n");
    CStdioFile file(PathOf("s.txt").c_str(), CFile::modeRead | CFile::shareDenyNone | CFile::typeText);
    char buffer[5];
    ASSERT_EQ(file.ReadString(buffer, sizeof buffer), buffer);
    EXPECT_STREQ(buffer, "abcd");
    ASSERT_NE(file.ReadString(buffer, sizeof buffer), nullptr);
    EXPECT_STREQ(buffer, "ef\n");
    ASSERT_NE(file.ReadString(buffer, sizeof buffer), nullptr);
    EXPECT_STREQ(buffer, "gh\n");
    EXPECT_EQ(file.ReadString(buffer, sizeof buffer), nullptr);

    CStdioFile binary(PathOf("s.txt").c_str(), CFile::modeRead | CFile::shareDenyNone | CFile::typeBinary);
    char line[16];
    ASSERT_NE(binary.ReadString(line, sizeof line), nullptr);
    EXPECT_STREQ(line, "abcdef\r\n");
}

TEST_F(StdioFileTest, PositionsAreThoseOnDiskAndSeekingBackReadsAgain)
{
    Put("p.txt", "eins\r\nzwei\r\ndrei");
    CStdioFile file(PathOf("p.txt").c_str(), CFile::modeRead | CFile::typeText);
    EXPECT_EQ(file.GetLength(), 16u);
    CString line;
    ASSERT_TRUE(file.ReadString(line));
    EXPECT_EQ(file.GetPosition(), 6u);
    const ULONGLONG second = file.GetPosition();
    ASSERT_TRUE(file.ReadString(line));
    EXPECT_EQ(line, "zwei");
    EXPECT_EQ(file.GetPosition(), 12u);
    EXPECT_EQ(file.Seek(static_cast<LONGLONG>(second), CFile::begin), second);
    ASSERT_TRUE(file.ReadString(line));
    EXPECT_EQ(line, "zwei");
    EXPECT_EQ(file.Seek(-4, CFile::end), 12u);
    ASSERT_TRUE(file.ReadString(line));
    EXPECT_EQ(line, "drei");
    EXPECT_EQ(file.GetPosition(), 16u);
    EXPECT_FALSE(file.ReadString(line));
    file.SeekToBegin();
    char text[32] = {};
    EXPECT_EQ(file.Read(text, sizeof text - 1), 14u) << "Read translates too";
    EXPECT_STREQ(text, "eins\nzwei\ndrei");
}

TEST_F(StdioFileTest, WritingAfterReadingContinuesWhereReadingStopped)
{
    Put("w.txt", "eins\r\nzwei\r\n");
    {
        CStdioFile file(PathOf("w.txt").c_str(), CFile::modeReadWrite | CFile::typeText);
        CString line;
        ASSERT_TRUE(file.ReadString(line));
        file.WriteString("ZWEI\n");
        EXPECT_EQ(file.GetLength(), 12u);
        EXPECT_EQ(file.GetPosition(), 12u);
    }
    EXPECT_EQ(Bytes("w.txt"), "eins\r\nZWEI\r\n");
}

TEST_F(StdioFileTest, AppendModesWriteAtTheEndWhereverThePositionIs)
{
    struct
    {
        UINT flags;
        bool appends;
    } cases[] = {
        {CFile::modeCreate | CFile::modeNoTruncate | CFile::modeWrite, true},
        {CFile::modeCreate | CFile::modeNoTruncate | CFile::modeReadWrite, true},
        {CFile::modeWrite, true},
        {CFile::modeReadWrite, false},
    };
    for (auto& c : cases) {
        Put("a.txt", "0123456789");
        {
            CStdioFile file(PathOf("a.txt").c_str(), c.flags | CFile::typeBinary);
            file.Seek(2, CFile::begin);
            file.WriteString("ab");
        }
        EXPECT_EQ(Bytes("a.txt"), c.appends ? "0123456789ab" : "01ab456789") << std::hex << c.flags;
    }
}

TEST_F(StdioFileTest, ModeCreateTruncatesAndOpeningAMissingFileFails)
{
    Put("c.txt", "alt");
    {
        CStdioFile file(PathOf("c.txt").c_str(), CFile::modeCreate | CFile::modeWrite | CFile::typeText);
    }
    EXPECT_EQ(Bytes("c.txt"), "");

    CStdioFile missing;
    CFileException error;
    EXPECT_FALSE(missing.Open(PathOf("fehlt.txt").c_str(), CFile::modeRead | CFile::typeText, &error));
    EXPECT_EQ(error.m_cause, CFileException::fileNotFound);
    try {
        CStdioFile thrown(PathOf("fehlt.txt").c_str(), CFile::modeRead);
        ADD_FAILURE() << "opening a missing file must throw";
    } catch (CFileException* e) {
        EXPECT_EQ(e->m_cause, CFileException::fileNotFound);
        e->Delete();
    }
}

TEST_F(StdioFileTest, ReadWriteRoundTripKeepsTextOfBothModes)
{
    const LineList lines = {"Öffnen", "", "grün\tweiß", "  Leerzeichen  "};
    for (UINT type : {static_cast<UINT>(CFile::typeText), static_cast<UINT>(CFile::typeBinary)}) {
        {
            CStdioFile file(PathOf("rt.txt").c_str(), CFile::modeCreate | CFile::modeWrite | type);
            for (auto& line : lines) {
                file.WriteString(line.c_str());
                file.WriteString("\n");
            }
        }
        EXPECT_EQ(ReadLines("rt.txt", type), lines) << type;
    }
}

#ifdef _WIN32
TEST_F(StdioFileTest, ExclusiveSharingMakesASecondOpenFail)
{
    Put("x.txt", "x");
    CStdioFile first;
    ASSERT_TRUE(first.Open(PathOf("x.txt").c_str(), CFile::modeReadWrite | CFile::shareExclusive | CFile::typeBinary));
    CStdioFile second;
    CFileException error;
    EXPECT_FALSE(second.Open(PathOf("x.txt").c_str(), CFile::modeRead | CFile::shareDenyNone, &error));
    EXPECT_EQ(error.m_cause, CFileException::sharingViolation);
    first.Close();
    EXPECT_TRUE(second.Open(PathOf("x.txt").c_str(), CFile::modeRead | CFile::shareDenyNone));
}
#endif

}  // namespace
