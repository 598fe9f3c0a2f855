#ifdef _WIN32
#include "file_name.h"
#include "file_operation.h"
#include "files_test_support.h"

#include <gtest/gtest.h>

using files_test::Exists;
using files_test::ReadText;
using files_test::TempFolder;
using files_test::WriteText;

TEST(FileExist, OnlyExistingFilesCount)
{
    TempFolder folder;
    ASSERT_TRUE(WriteText(folder / "Gross.txt", "x"));
    ASSERT_TRUE(CreateDirectoryA(folder / "Unterordner", nullptr));

    struct
    {
        CString path;
        BOOL exists;
    } cases[] = {
        {folder / "Gross.txt", TRUE},
        {folder / "GROSS.TXT", TRUE},
        {folder / "fehlt.txt", FALSE},
        {folder / "Unterordner", FALSE},
        {folder / "*.txt", FALSE},
        {folder / "Gr?ss.txt", FALSE},
        {folder.Path() + "\\Unterordner\\..\\Gross.txt", TRUE},
    };
    for (auto& c : cases)
        EXPECT_EQ(CFileOperation::FileExist(c.path), c.exists) << c.path.GetString();
    EXPECT_FALSE(CFileOperation::FileExist(nullptr));
    EXPECT_FALSE(CFileOperation::FileExist(""));
}

TEST(FileCopy, CopiesToAFileOrIntoAFolder)
{
    TempFolder folder;
    const CString source = folder / "Bild.jpg";
    ASSERT_TRUE(WriteText(source, "Inhalt"));
    ASSERT_TRUE(CreateDirectoryA(folder / "Ziel", nullptr));

    EXPECT_TRUE(CFileOperation::FileCopy(source, folder / "Kopie.jpg"));
    EXPECT_EQ(ReadText(folder / "Kopie.jpg"), "Inhalt");

    EXPECT_TRUE(CFileOperation::FileCopy(source, folder.Path() + "\\Ziel\\"));
    EXPECT_EQ(ReadText(folder / "Ziel\\Bild.jpg"), "Inhalt") << "a trailing backslash names a folder";

    ASSERT_TRUE(DeleteFileA(folder / "Ziel\\Bild.jpg"));
    EXPECT_TRUE(CFileOperation::FileCopy(source, folder / "Ziel"));
    EXPECT_EQ(ReadText(folder / "Ziel\\Bild.jpg"), "Inhalt") << "an existing folder gets the source's name";
    EXPECT_TRUE(Exists(folder / "Ziel")) << "the folder stays a folder";
}

TEST(FileCopy, ExistingTargetsAreReplacedOnlyWhenAllowedAndWritable)
{
    TempFolder folder;
    const CString source = folder / "neu.txt";
    const CString target = folder / "alt.txt";
    ASSERT_TRUE(WriteText(source, "neu"));
    ASSERT_TRUE(WriteText(target, "alt"));

    EXPECT_FALSE(CFileOperation::FileCopy(source, target, false));
    EXPECT_EQ(ReadText(target), "alt");
    EXPECT_TRUE(CFileOperation::FileCopy(source, target));
    EXPECT_EQ(ReadText(target), "neu");

    ASSERT_TRUE(WriteText(source, "neuer"));
    ASSERT_TRUE(SetFileAttributesA(target, FILE_ATTRIBUTE_READONLY));
    EXPECT_FALSE(CFileOperation::FileCopy(source, target));
    EXPECT_EQ(ReadText(target), "neu") << "a read-only target is kept";
}

TEST(FileCopy, RefusesBadSourcesTargetsAndCopiesOntoItself)
{
    TempFolder folder;
    const CString source = folder / "a.txt";
    ASSERT_TRUE(WriteText(source, "a"));

    EXPECT_FALSE(CFileOperation::FileCopy(folder / "fehlt.txt", folder / "b.txt"));
    EXPECT_FALSE(Exists(folder / "b.txt"));
    EXPECT_FALSE(CFileOperation::FileCopy(source, source));
    EXPECT_FALSE(CFileOperation::FileCopy(source, folder.Path() + "\\.\\A.TXT"));
    EXPECT_FALSE(CFileOperation::FileCopy(source, folder.Path() + "\\"));
    EXPECT_EQ(ReadText(source), "a");
    EXPECT_FALSE(CFileOperation::FileCopy(source, folder / "fehlt\\b.txt"));
    EXPECT_FALSE(CFileOperation::FileCopy(nullptr, folder / "b.txt"));
    EXPECT_FALSE(CFileOperation::FileCopy(source, nullptr));
    EXPECT_FALSE(CFileOperation::FileCopy(source, ""));
    EXPECT_FALSE(CFileOperation::FileCopy(folder.Path(), folder / "b"));
}

TEST(IsFileWritable, NeedsAnExistingUnlockedFileWithoutWriteProtection)
{
    TempFolder folder;
    const CString path = folder / "daten.xls";
    ASSERT_TRUE(WriteText(path, "1;2"));
    EXPECT_TRUE(CFileOperation::IsFileWritable(path));
    EXPECT_EQ(ReadText(path), "1;2") << "the test changes nothing";

    HANDLE reader = CreateFileA(path, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(reader, INVALID_HANDLE_VALUE);
    EXPECT_FALSE(CFileOperation::IsFileWritable(path)) << "held open against writers";
    CloseHandle(reader);
    EXPECT_TRUE(CFileOperation::IsFileWritable(path));

    ASSERT_TRUE(SetFileAttributesA(path, FILE_ATTRIBUTE_READONLY));
    EXPECT_FALSE(CFileOperation::IsFileWritable(path));

    EXPECT_FALSE(CFileOperation::IsFileWritable(folder / "fehlt.xls"));
    EXPECT_FALSE(CFileOperation::IsFileWritable(folder.Path()));
    EXPECT_FALSE(CFileOperation::IsFileWritable(nullptr));
    EXPECT_FALSE(CFileOperation::IsFileWritable(""));
}

TEST(DeleteFile, ForceDecidesAboutReadOnlyFiles)
{
    TempFolder folder;
    const CString plain = folder / "plain.txt";
    const CString locked = folder / "readonly.txt";
    ASSERT_TRUE(WriteText(plain, "p"));
    ASSERT_TRUE(WriteText(locked, "r"));
    ASSERT_TRUE(SetFileAttributesA(locked, FILE_ATTRIBUTE_READONLY));

    EXPECT_TRUE(CFileOperation::DeleteFileA(plain, false));
    EXPECT_FALSE(Exists(plain));

    EXPECT_FALSE(CFileOperation::DeleteFileA(locked, false));
    EXPECT_TRUE(Exists(locked));
    EXPECT_TRUE(CFileOperation::DeleteFileA(locked, true));
    EXPECT_FALSE(Exists(locked));

    EXPECT_FALSE(CFileOperation::DeleteFileA(plain, true)) << "already gone";
    ASSERT_TRUE(CreateDirectoryA(folder / "Ordner", nullptr));
    EXPECT_FALSE(CFileOperation::DeleteFileA(folder / "Ordner", true));
    EXPECT_TRUE(Exists(folder / "Ordner"));
    EXPECT_FALSE(CFileOperation::DeleteFileA(nullptr, true));
    EXPECT_FALSE(CFileOperation::DeleteFileA("", true));
}

TEST(DeleteFile, AFileHeldOpenStaysAndKeepsItsWriteProtection)
{
    TempFolder folder;
    const CString path = folder / "offen.txt";
    ASSERT_TRUE(WriteText(path, "x"));
    ASSERT_TRUE(SetFileAttributesA(path, FILE_ATTRIBUTE_READONLY));
    HANDLE holder = CreateFileA(path, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(holder, INVALID_HANDLE_VALUE);

    EXPECT_FALSE(CFileOperation::DeleteFileA(path, true));
    CloseHandle(holder);
    EXPECT_TRUE(Exists(path));
    EXPECT_NE(GetFileAttributesA(path) & FILE_ATTRIBUTE_READONLY, 0u);
}

TEST(FileName, ModuleNameWithoutFolderAndExtension)
{
    EXPECT_STREQ(CFileName::GetFilename(nullptr), "twutil_files_tests");
    EXPECT_STREQ(CFileName::GetFilename(GetModuleHandleA("twutil.dll")), "twutil");
    EXPECT_STREQ(CFileName::GetFilename(reinterpret_cast<HMODULE>(static_cast<INT_PTR>(0x10))), "");
}
#endif
