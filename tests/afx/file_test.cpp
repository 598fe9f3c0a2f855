// CFile on real files in a private temporary folder, and CMemFile.
#include "afx.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <functional>
#include <random>
#include <string>
#include <vector>

#ifndef _WIN32
#include <sys/resource.h>
#endif

namespace fs = std::filesystem;

namespace {

// The operating systems name some failures differently.
#ifdef _WIN32
constexpr LONG kFileNotFoundError = ERROR_FILE_NOT_FOUND;
constexpr LONG kPathNotFoundError = ERROR_PATH_NOT_FOUND;
constexpr int kPathNotFoundCause = CFileException::badPath;
constexpr int kWriteToReadOnlyCause = CFileException::accessDenied;
#else
constexpr LONG kFileNotFoundError = ENOENT;
constexpr LONG kPathNotFoundError = ENOENT;
constexpr int kPathNotFoundCause = CFileException::fileNotFound;
constexpr int kWriteToReadOnlyCause = CFileException::invalidFile;
#endif

// A fresh folder below the system's temporary folder, removed with its
// contents at the end of the test.
class FileTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        std::random_device random;
        m_dir = fs::temp_directory_path() / ("afx_file_test_" + std::to_string(random()));
        fs::create_directories(m_dir);
    }

    void TearDown() override
    {
        std::error_code ignored;
        fs::remove_all(m_dir, ignored);
    }

    std::string PathOf(const char* name) const { return (m_dir / name).string(); }

    fs::path m_dir;
};

// The CFileException that action throws, or NULL; the caller deletes it.
CFileException* FileError(const std::function<void()>& action)
{
    try {
        action();
    } catch (CException* e) {
        CFileException* pFile = DYNAMIC_DOWNCAST(CFileException, e);
        if (pFile == nullptr)
            e->Delete();
        return pFile;
    }
    return nullptr;
}

std::string ReadAll(CFile& file)
{
    std::string text(static_cast<std::size_t>(file.GetLength()), '\0');
    file.SeekToBegin();
    const UINT n = file.Read(text.data(), static_cast<UINT>(text.size()));
    text.resize(n);
    return text;
}

// A CMemFile that shows its buffer's size.
class CInspectedMemFile : public CMemFile
{
public:
    using CMemFile::CMemFile;
    SIZE_T BufferSize() const { return m_nBufferSize; }
};

}  // namespace

TEST_F(FileTest, CreateWriteSeekReadAndLength)
{
    const std::string path = PathOf("data.bin");
    CFile file;
    ASSERT_TRUE(file.Open(path.c_str(), CFile::modeCreate | CFile::modeReadWrite));
    EXPECT_NE(file.m_hFile, CFile::hFileNull);
    file.Write("hello world", 11);
    EXPECT_EQ(file.GetLength(), 11u);
    EXPECT_EQ(file.GetPosition(), 11u);

    struct
    {
        LONGLONG offset;
        UINT from;
        ULONGLONG position;
    } seeks[] = {
        {6, CFile::begin, 6},
        {-2, CFile::current, 4},
        {-5, CFile::end, 6},
        {3, CFile::end, 14},
    };
    for (auto& s : seeks)
        EXPECT_EQ(file.Seek(s.offset, s.from), s.position) << s.offset << "/" << s.from;

    file.Seek(6, CFile::begin);
    char buffer[16] = {};
    EXPECT_EQ(file.Read(buffer, sizeof buffer), 5u);
    EXPECT_STREQ(buffer, "world");
    EXPECT_EQ(file.Read(buffer, sizeof buffer), 0u);
    EXPECT_EQ(file.SeekToEnd(), 11u);
    file.SeekToBegin();
    EXPECT_EQ(file.GetPosition(), 0u);

    file.SetLength(5);
    EXPECT_EQ(file.GetLength(), 5u);
    EXPECT_EQ(file.GetPosition(), 0u);
    file.SetLength(8);
    EXPECT_EQ(ReadAll(file), std::string("hello\0\0\0", 8));

    CFileException* e = FileError([&] { file.Seek(-1, CFile::begin); });
    ASSERT_NE(e, nullptr);
    EXPECT_EQ(e->m_cause, CFileException::badSeek);
    EXPECT_STREQ(static_cast<LPCTSTR>(e->m_strFileName), static_cast<LPCTSTR>(file.GetFilePath()));
    e->Delete();

    file.Close();
    EXPECT_EQ(file.m_hFile, CFile::hFileNull);
    EXPECT_EQ(fs::file_size(path), 8u);
}

TEST_F(FileTest, MissingFileReportsFileNotFoundWithTheOsError)
{
    const std::string path = PathOf("missing.txt");
    CFile file;
    CFileException error;
    EXPECT_FALSE(file.Open(path.c_str(), CFile::modeRead, &error));
    EXPECT_EQ(error.m_cause, CFileException::fileNotFound);
    EXPECT_EQ(error.m_lOsError, kFileNotFoundError);
    EXPECT_STREQ(static_cast<LPCTSTR>(error.m_strFileName), path.c_str());
    EXPECT_EQ(file.m_hFile, CFile::hFileNull);

    CFileException* e = FileError([&] { CFile thrown(path.c_str(), CFile::modeRead); });
    ASSERT_NE(e, nullptr);
    EXPECT_EQ(e->m_cause, CFileException::fileNotFound);
    EXPECT_EQ(e->m_lOsError, kFileNotFoundError);
    EXPECT_STREQ(static_cast<LPCTSTR>(e->m_strFileName), path.c_str());
    char message[512];
    e->GetErrorMessage(message, sizeof message);
    EXPECT_EQ(std::string(message), path + " was not found.");
    e->Delete();

    const std::string inMissingDir = PathOf("no_such_dir/x.txt");
    EXPECT_FALSE(file.Open(inMissingDir.c_str(), CFile::modeCreate | CFile::modeWrite, &error));
    EXPECT_EQ(error.m_lOsError, kPathNotFoundError);
    EXPECT_EQ(error.m_cause, kPathNotFoundCause);

    EXPECT_FALSE(file.Open("", CFile::modeRead, &error));
    EXPECT_EQ(error.m_cause, CFileException::badPath);
}

TEST_F(FileTest, CreateTruncatesUnlessNoTruncate)
{
    const std::string path = PathOf("keep.txt");
    {
        CFile file(path.c_str(), CFile::modeCreate | CFile::modeWrite);
        file.Write("0123456789", 10);
    }
    struct
    {
        UINT flags;
        ULONGLONG length;
        const char* what;
    } cases[] = {
        {CFile::modeCreate | CFile::modeNoTruncate | CFile::modeReadWrite, 10, "kept"},
        {CFile::modeReadWrite, 10, "plain open keeps"},
        {CFile::modeCreate | CFile::modeReadWrite, 0, "truncated"},
    };
    for (auto& c : cases) {
        CFile file(path.c_str(), c.flags);
        EXPECT_EQ(file.GetLength(), c.length) << c.what;
        EXPECT_EQ(file.GetPosition(), 0u) << c.what;
        file.Write("0123456789", 10);
    }

    const std::string fresh = PathOf("fresh.txt");
    CFile created(fresh.c_str(), CFile::modeCreate | CFile::modeNoTruncate | CFile::modeWrite);
    EXPECT_EQ(created.GetLength(), 0u);
}

TEST_F(FileTest, ReadOnlyFileRefusesWrites)
{
    const std::string path = PathOf("ro.txt");
    CFile(path.c_str(), CFile::modeCreate | CFile::modeWrite).Write("abc", 3);
    CFile file(path.c_str(), CFile::modeRead);
    CFileException* e = FileError([&] { file.Write("x", 1); });
    ASSERT_NE(e, nullptr);
    EXPECT_EQ(e->m_cause, kWriteToReadOnlyCause);
    e->Delete();
    EXPECT_EQ(ReadAll(file), "abc");
}

TEST_F(FileTest, NamePartsOfTheOpenedPath)
{
    const std::string path = PathOf("report.final.txt");
    CFile file(path.c_str(), CFile::modeCreate | CFile::modeWrite);
    EXPECT_STREQ(static_cast<LPCTSTR>(file.GetFileName()), "report.final.txt");
    EXPECT_STREQ(static_cast<LPCTSTR>(file.GetFileTitle()), "report.final");
    EXPECT_TRUE(fs::equivalent(fs::path(static_cast<LPCTSTR>(file.GetFilePath())), path));

    struct
    {
        const char* path;
        const char* name;
        const char* title;
    } cases[] = {
        {"c:\\a\\b.txt", "b.txt", "b"},
        {"dir/sub/readme", "readme", "readme"},
        {"plain.ini", "plain.ini", "plain"},
        {"", "", ""},
    };
    for (auto& c : cases) {
        CFile named;
        named.SetFilePath(c.path);
        EXPECT_STREQ(static_cast<LPCTSTR>(named.GetFileName()), c.name) << c.path;
        EXPECT_STREQ(static_cast<LPCTSTR>(named.GetFileTitle()), c.title) << c.path;
    }
}

TEST_F(FileTest, RemoveAndRenameReportTheOsError)
{
    const std::string a = PathOf("a.txt");
    const std::string b = PathOf("b.txt");
    CFile(a.c_str(), CFile::modeCreate | CFile::modeWrite).Write("1", 1);

    CFile::Rename(a.c_str(), b.c_str());
    EXPECT_FALSE(fs::exists(a));
    EXPECT_TRUE(fs::exists(b));

    CFileException* e = FileError([&] { CFile::Rename(a.c_str(), b.c_str()); });
    ASSERT_NE(e, nullptr);
    EXPECT_EQ(e->m_cause, CFileException::fileNotFound);
    EXPECT_STREQ(static_cast<LPCTSTR>(e->m_strFileName), a.c_str());
    e->Delete();

    CFile::Remove(b.c_str());
    EXPECT_FALSE(fs::exists(b));
    e = FileError([&] { CFile::Remove(b.c_str()); });
    ASSERT_NE(e, nullptr);
    EXPECT_EQ(e->m_cause, CFileException::fileNotFound);
    EXPECT_EQ(e->m_lOsError, kFileNotFoundError);
    e->Delete();
}

TEST_F(FileTest, ClosedFileThrowsInvalidFile)
{
    const std::string path = PathOf("closed.txt");
    CFile file(path.c_str(), CFile::modeCreate | CFile::modeReadWrite);
    file.Close();
    char ch = 0;
    const std::function<void()> uses[] = {
        [&] { file.Read(&ch, 1); },
        [&] { file.Write("x", 1); },
        [&] { file.GetLength(); },
    };
    for (auto& use : uses) {
        CFileException* e = FileError(use);
        ASSERT_NE(e, nullptr);
        EXPECT_EQ(e->m_cause, CFileException::invalidFile);
        e->Delete();
    }
    file.Abort();
    file.Close();
}

TEST_F(FileTest, ArchiveExceptionsNameTheArchiveFile)
{
    const std::string path = PathOf("store.dat");
    CFile file(path.c_str(), CFile::modeCreate | CFile::modeReadWrite);
    CArchive ar(&file, CArchive::store);
    int value = 0;
    try {
        ar >> value;
        FAIL() << "loading from a storing archive";
    } catch (CArchiveException* e) {
        EXPECT_EQ(e->m_cause, CArchiveException::writeOnly);
        EXPECT_STREQ(static_cast<LPCTSTR>(e->m_strFileName), static_cast<LPCTSTR>(file.GetFilePath()));
        e->Delete();
    }
    ar << 42;
    ar.Close();
    EXPECT_EQ(file.GetLength(), 4u);
}

#ifdef _WIN32
TEST_F(FileTest, ExclusiveShareModeBlocksASecondOpen)
{
    const std::string path = PathOf("shared.txt");
    struct
    {
        UINT firstShare;
        UINT secondShare;
        bool opens;
        const char* what;
    } cases[] = {
        {CFile::shareExclusive, CFile::shareDenyNone, false, "exclusive"},
        {CFile::shareCompat, CFile::shareDenyNone, false, "compat is exclusive"},
        {CFile::shareDenyWrite, CFile::shareDenyNone, false, "deny write blocks a writer"},
        {CFile::shareDenyNone, CFile::shareDenyNone, true, "deny none"},
    };
    for (auto& c : cases) {
        CFile first(path.c_str(), CFile::modeCreate | CFile::modeReadWrite | c.firstShare);
        CFile second;
        CFileException error;
        const BOOL opened = second.Open(path.c_str(), CFile::modeReadWrite | c.secondShare, &error);
        EXPECT_EQ(opened != FALSE, c.opens) << c.what;
        if (!c.opens) {
            EXPECT_EQ(error.m_cause, CFileException::sharingViolation) << c.what;
            EXPECT_EQ(error.m_lOsError, LONG(ERROR_SHARING_VIOLATION)) << c.what;
        }
    }
}
#endif

TEST_F(FileTest, AtomicFileReplacesTheTargetOnlyWhenComplete)
{
    const std::string target = PathOf("settings.ini");
    const auto writeNew = [](CAtomicFile& file) {
        file.WriteString("new\n");
        file.Close();
    };
    struct
    {
        const char* what;
        const char* before;  // NULL: no target
        bool readOnly;
        std::function<void(CAtomicFile&)> write;
        int cause;  // of the CFileException that write throws; -1 none, -2 another exception
        const char* after;
    } cases[] = {
        {"no target yet", nullptr, false, writeNew, -1, "new\r\n"},
        {"target replaced", "old", false, writeNew, -1, "new\r\n"},
        {"exception half-way", "old", false,
         [](CAtomicFile& file) {
             file.Write("ne", 2);
             AfxThrowUserException();
         },
         -2, "old"},
        {"aborted", "old", false,
         [](CAtomicFile& file) {
             file.Write("new", 3);
             file.Abort();
         },
         -1, "old"},
        {"read-only target", "old", true, writeNew, CFileException::accessDenied, "old"},
#ifdef _WIN32
        {"target held open by another program", "old", false,
         [&](CAtomicFile& file) {
             CFile holder(target.c_str(), CFile::modeRead | CFile::shareDenyNone);
             file.Write("new", 3);
             file.Close();
         },
         CFileException::accessDenied, "old"},
#else
        {"disk full", "old", false,
         [](CAtomicFile& file) {
             // Writes beyond 2 bytes fail as on a full disk (EFBIG).
             rlimit saved{};
             getrlimit(RLIMIT_FSIZE, &saved);
             rlimit small = saved;
             small.rlim_cur = 2;
             const auto previous = std::signal(SIGXFSZ, SIG_IGN);
             setrlimit(RLIMIT_FSIZE, &small);
             struct Restore
             {
                 rlimit limit;
                 void (*handler)(int);
                 ~Restore()
                 {
                     setrlimit(RLIMIT_FSIZE, &limit);
                     std::signal(SIGXFSZ, handler);
                 }
             } restore{saved, previous};
             file.Write("new", 3);
             file.Close();
         },
         CFileException::diskFull, "old"},
#endif
    };
    for (auto& c : cases) {
        if (c.before != nullptr)
            CFile(target.c_str(), CFile::modeCreate | CFile::modeWrite).Write(c.before, UINT(std::strlen(c.before)));
        if (c.readOnly)
            fs::permissions(target, fs::perms::owner_write, fs::perm_options::remove);
        int cause = -1;
        try {
            CAtomicFile file;
            ASSERT_TRUE(file.Open(target.c_str(), CFile::typeText)) << c.what;
            EXPECT_STREQ(file.GetFileName(), "settings.ini") << c.what << ": errors name the target";
            c.write(file);
        } catch (CException* e) {
            const auto* pFile = DYNAMIC_DOWNCAST(CFileException, e);
            cause = pFile != nullptr ? pFile->m_cause : -2;
            e->Delete();
        }
        EXPECT_EQ(cause, c.cause) << c.what;
        std::vector<std::string> left;
        for (const auto& entry : fs::directory_iterator(m_dir))
            left.push_back(entry.path().filename().string());
        EXPECT_EQ(left, std::vector<std::string>{"settings.ini"}) << c.what << ": the target and nothing else";
        CFile written(target.c_str(), CFile::modeRead);
        EXPECT_EQ(ReadAll(written), c.after) << c.what;
        written.Close();
        fs::permissions(target, fs::perms::owner_write, fs::perm_options::add);
        fs::remove(target);
    }

    CAtomicFile file;
    CFileException error;
    EXPECT_FALSE(file.Open((m_dir / "missing" / "settings.ini").string().c_str(), CFile::typeBinary, &error));
    EXPECT_EQ(error.m_cause, kPathNotFoundCause);
    EXPECT_TRUE(fs::is_empty(m_dir));
}

TEST(MemFile, GrowsInStepsOfGrowBytes)
{
    CInspectedMemFile file(16);
    EXPECT_EQ(file.BufferSize(), 0u);
    struct
    {
        UINT write;
        SIZE_T buffer;
        ULONGLONG length;
    } steps[] = {
        {1, 16, 1}, {15, 16, 16}, {1, 32, 17}, {40, 64, 57}, {0, 64, 57},
    };
    std::string expected;
    for (auto& s : steps) {
        const std::string chunk(s.write, static_cast<char>('a' + expected.size() % 26));
        file.Write(chunk.data(), s.write);
        expected += chunk;
        EXPECT_EQ(file.BufferSize(), s.buffer) << expected.size();
        EXPECT_EQ(file.GetLength(), s.length);
    }
    EXPECT_EQ(ReadAll(file), expected);
}

TEST(MemFile, SeekBeyondTheEndAndWriteZeroFillsTheGap)
{
    CMemFile file(8);
    file.Write("ab", 2);
    EXPECT_EQ(file.Seek(3, CFile::end), 5u);
    EXPECT_EQ(file.GetLength(), 2u);
    char ch = 0;
    EXPECT_EQ(file.Read(&ch, 1), 0u);
    file.Write("z", 1);
    EXPECT_EQ(ReadAll(file), std::string("ab\0\0\0z", 6));

    struct
    {
        LONGLONG offset;
        UINT from;
        ULONGLONG position;
    } seeks[] = {
        {0, CFile::begin, 0},
        {4, CFile::current, 4},
        {-1, CFile::end, 5},
        {-5, CFile::current, 0},
    };
    for (auto& s : seeks)
        EXPECT_EQ(file.Seek(s.offset, s.from), s.position);

    CFileException* e = FileError([&] { file.Seek(-1, CFile::begin); });
    ASSERT_NE(e, nullptr);
    EXPECT_EQ(e->m_cause, CFileException::badSeek);
    e->Delete();
    EXPECT_EQ(file.GetPosition(), 0u);

    file.SetLength(2);
    EXPECT_EQ(ReadAll(file), "ab");
    file.SetLength(4);
    EXPECT_EQ(ReadAll(file), std::string("ab\0\0", 4));
}

TEST(MemFile, AttachedBufferWithoutGrowBytesIsTheWholeFile)
{
    BYTE buffer[4] = {'w', 'x', 'y', 'z'};
    CMemFile file(buffer, sizeof buffer);
    EXPECT_EQ(file.GetLength(), 4u);
    EXPECT_EQ(ReadAll(file), "wxyz");
    file.SeekToBegin();
    file.Write("AB", 2);
    EXPECT_EQ(buffer[1], 'B');

    CException* pCaught = nullptr;
    try {
        file.Write("CDE", 3);
    } catch (CException* e) {
        pCaught = e;
    }
    ASSERT_NE(pCaught, nullptr);
    EXPECT_TRUE(pCaught->IsKindOf(RUNTIME_CLASS(CMemoryException)));
    pCaught->Delete();
    EXPECT_EQ(file.GetLength(), 4u);

    EXPECT_EQ(file.Detach(), buffer);
    EXPECT_EQ(file.GetLength(), 0u);
    EXPECT_EQ(buffer[0], 'A');
}

TEST(MemFile, AttachedBufferWithGrowBytesStartsEmptyAndDetachGivesTheGrownBuffer)
{
    BYTE* initial = static_cast<BYTE*>(std::malloc(4));
    std::memcpy(initial, "old!", 4);
    CMemFile file;
    file.Attach(initial, 4, 8);
    EXPECT_EQ(file.GetLength(), 0u);
    file.Write("0123456789", 10);
    EXPECT_EQ(file.GetLength(), 10u);
    BYTE* grown = file.Detach();
    ASSERT_NE(grown, nullptr);
    EXPECT_EQ(std::memcmp(grown, "0123456789", 10), 0);
    std::free(grown);
    EXPECT_EQ(file.GetLength(), 0u);

    file.Write("again", 5);
    EXPECT_EQ(ReadAll(file), "again");
    file.Close();
    EXPECT_EQ(file.GetLength(), 0u);
}

TEST(MemFile, NullBuffersAreInvalidArguments)
{
    CMemFile file;
    const std::function<void()> uses[] = {
        [&] { file.Write(nullptr, 1); },
        [&] { file.Attach(nullptr, 4); },
        [&] { file.Seek(0, 7); },
    };
    for (auto& use : uses) {
        CException* pCaught = nullptr;
        try {
            use();
        } catch (CException* e) {
            pCaught = e;
        }
        ASSERT_NE(pCaught, nullptr);
        EXPECT_TRUE(pCaught->IsKindOf(RUNTIME_CLASS(CInvalidArgException)));
        pCaught->Delete();
    }
    file.Write("ab", 2);
    file.SeekToBegin();
    EXPECT_EQ(file.Read(nullptr, 0), 0u);
}
