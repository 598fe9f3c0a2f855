#include "file_name.h"
#include "file_operation.h"
#include "hyperlink.h"
#include "shell_helpers.h"
#include "tw_exception.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace {

struct Parts
{
    const char* path;
    const char* drive;
    const char* dir;
    const char* name;
    const char* ext;
};

void ExpectParts(const CFileName& f, const Parts& c)
{
    EXPECT_STREQ(f.GetDrive(), c.drive) << c.path;
    EXPECT_STREQ(f.GetDir(), c.dir) << c.path;
    EXPECT_STREQ(f.GetName(), c.name) << c.path;
    EXPECT_STREQ(f.GetExt(), c.ext) << c.path;
}

}  // namespace

TEST(FileName, SplitsIntoDriveDirectoryNameAndExtension)
{
    const Parts cases[] = {
        {"C:\\Bilder\\Urlaub\\Strand.jpg", "C:", "\\Bilder\\Urlaub\\", "Strand", ".jpg"},
        {"c:\\Strand.JPG", "c:", "\\", "Strand", ".JPG"},
        {"C:Strand.jpg", "C:", "", "Strand", ".jpg"},
        {"C:\\", "C:", "\\", "", ""},
        {"C:", "C:", "", "", ""},
        {"\\\\server\\share\\Ordner\\Datei.txt", "\\\\server\\share", "\\Ordner\\", "Datei", ".txt"},
        {"\\\\server\\share", "\\\\server\\share", "", "", ""},
        {"\\\\server", "\\\\server", "", "", ""},
        {"\\\\?\\C:\\lang\\Datei.txt", "\\\\?\\C:", "\\lang\\", "Datei", ".txt"},
        {"\\\\?\\UNC\\server\\share\\a.b", "\\\\?\\UNC\\server\\share", "\\", "a", ".b"},
        {"\\\\?\\Volume{1234}\\a.b", "\\\\?\\Volume{1234}", "\\", "a", ".b"},
        {"Ordner\\Datei.txt", "", "Ordner\\", "Datei", ".txt"},
        {"Datei.txt", "", "", "Datei", ".txt"},
        {"\\Ordner\\Datei", "", "\\Ordner\\", "Datei", ""},
        {"C:/Bilder/Strand.png", "C:", "/Bilder/", "Strand", ".png"},
        {"C:\\mixed/pfad\\a.txt", "C:", "\\mixed/pfad\\", "a", ".txt"},
        {"archiv.tar.gz", "", "", "archiv.tar", ".gz"},
        {"C:\\ordner.v2\\README", "C:", "\\ordner.v2\\", "README", ""},
        {".profile", "", "", "", ".profile"},
        {"Datei.", "", "", "Datei", "."},
        {"C:\\Ordner\\", "C:", "\\Ordner\\", "", ""},
        {"http://www.example.de/seite/index.html", "", "http://www.example.de/seite/", "index", ".html"},
        {"C:\\Größe\\weiß.jpg", "C:", "\\Größe\\", "weiß", ".jpg"},
        {"", "", "", "", ""},
        {"1:\\x", "", "1:\\", "x", ""},
    };
    for (const Parts& c : cases)
        ExpectParts(CFileName(c.path), c);
}

TEST(FileName, BlanksAndOnePairOfQuotesAroundThePathAreRemoved)
{
    const Parts cases[] = {
        {"  C:\\a\\b.txt  ", "C:", "\\a\\", "b", ".txt"},
        {"\"C:\\a b\\c.txt\"", "C:", "\\a b\\", "c", ".txt"},
        {" \" C:\\a\\c.txt \" ", "C:", "\\a\\", "c", ".txt"},
        {"\"", "", "", "\"", ""},
        {"\"\"", "", "", "", ""},
        {"C:\\\"a\".txt", "C:", "\\", "\"a\"", ".txt"},
    };
    for (const Parts& c : cases)
        ExpectParts(CFileName(c.path), c);
}

TEST(FileName, PartsGiveThePathBack)
{
    const char* paths[] = {
        "C:\\Bilder\\Strand.jpg", "\\\\server\\share\\x\\y.z", "a.b.c", "C:/x/y",
        "\\\\?\\C:\\a",           "http://host/a.html",        "",
    };
    for (const char* path : paths) {
        const CFileName f{CString(path)};
        EXPECT_STREQ(f.GetFilenameFull(), path);
        EXPECT_EQ(f.GetPath() + f.GetNameExt(), CString(path));
    }
    const CFileName f{CString("C:\\Bilder\\Strand.jpg")};
    EXPECT_STREQ(f.GetFilename(), "Strand");
    EXPECT_STREQ(f.GetNameExt(), "Strand.jpg");
    EXPECT_STREQ(f.GetPath(), "C:\\Bilder\\");
}

TEST(FileName, SettingAgainReplacesEveryPart)
{
    CFileName f(CString("C:\\a\\b.jpg"));
    f.SetFilename("name");
    ExpectParts(f, {"name", "", "", "name", ""});
    f.SetFilename(CString());
    ExpectParts(f, {"", "", "", "", ""});
    EXPECT_FALSE(f.IsPicture(1));

    CFileName empty;
    EXPECT_STREQ(empty.GetFilenameFull(), "");
    EXPECT_FALSE(empty.IsWebPage());
}

TEST(FileName, PictureExtensionsWithAndWithoutOtherFormats)
{
    const char* shown[] = {"a.jpg", "a.JPEG", "a.Jpe", "a.jfif", "a.bmp", "a.dib",
                           "a.gif", "a.png",  "a.ico", "a.wmf",  "a.emf"};
    const char* others[] = {"a.tif", "a.TIFF", "a.webp", "a.heic", "a.nef", "a.CR2", "a.dng", "a.psd", "a.svg"};
    const char* none[] = {"a.txt", "a.jpg.txt", "jpg", "a.", "a.jp", "a.jpgx", "C:\\bilder.jpg\\x", "a.mp4"};
    for (const char* path : shown) {
        EXPECT_TRUE(CFileName(path).IsPicture(0)) << path;
        EXPECT_TRUE(CFileName(path).IsPicture(1)) << path;
    }
    for (const char* path : others) {
        EXPECT_FALSE(CFileName(path).IsPicture(0)) << path;
        EXPECT_TRUE(CFileName(path).IsPicture(-5)) << path << ": any non-zero value asks for all formats";
    }
    for (const char* path : none)
        EXPECT_FALSE(CFileName(path).IsPicture(1)) << path;
}

TEST(FileName, MovieExtensions)
{
    struct
    {
        const char* path;
        BOOL movie;
    } cases[] = {
        {"a.avi", TRUE},  {"a.MPG", TRUE},  {"a.mpeg", TRUE}, {"a.mp4", TRUE},      {"a.mov", TRUE},
        {"a.wmv", TRUE},  {"a.mkv", TRUE},  {"a.webm", TRUE}, {"a.m2ts", TRUE},     {"a.3gp", TRUE},
        {"a.mp3", FALSE}, {"a.jpg", FALSE}, {"a", FALSE},     {"a.avi.bak", FALSE},
    };
    for (auto& c : cases)
        EXPECT_EQ(CFileName(c.path).IsMovie(), c.movie) << c.path;
}

TEST(FileName, WebPagesByAddressOrExtension)
{
    const char* pages[] = {"C:\\seiten\\index.html",
                           "index.HTM",
                           "a.shtml",
                           "a.xhtml",
                           "a.mht",
                           "a.php",
                           "a.aspx",
                           "Favorit.url",
                           "http://www.example.de",
                           "https://example.de/bild.jpg",
                           "www.example.de",
                           "ftp://host/datei.zip",
                           "mailto:anna@example.de",
                           "  http://host/page.php?x=1"};
    for (const char* path : pages)
        EXPECT_TRUE(CFileName(path).IsWebPage()) << path;
    for (const char* path : {"file://C:/a.txt", "C:\\a\\html", "a.htmlx", "a.txt", ""})
        EXPECT_FALSE(CFileName(path).IsWebPage()) << path;
}

TEST(FileName, ProgramsAreExeComBatCmdPifAndScr)
{
    for (const char* path : {"C:\\Programme\\Tw\\twdemo.exe", "a.EXE", "a.com", "a.bat", "a.cmd", "a.pif", "a.scr"})
        EXPECT_TRUE(CFileName(path).IsExecutable()) << path;
    for (const char* path : {"a.lnk", "a.msi", "a.dll", "exe", "a.exe.txt"})
        EXPECT_FALSE(CFileName(path).IsExecutable()) << path;
}

TEST(FileName, ShortenedPathKeepsDriveAndTheLastFoldersThatFit)
{
    const char* path = "C:\\Users\\anna\\Bilder\\Urlaub 2023\\Strand.jpg";  // 43 characters
    struct
    {
        int max;
        const char* shown;
    } cases[] = {
        {43, "C:\\Users\\anna\\Bilder\\Urlaub 2023\\Strand.jpg"},
        {42, "C:\\...\\anna\\Bilder\\Urlaub 2023\\Strand.jpg"},
        {36, "C:\\...\\Bilder\\Urlaub 2023\\Strand.jpg"},
        {35, "C:\\...\\Urlaub 2023\\Strand.jpg"},
        {29, "C:\\...\\Urlaub 2023\\Strand.jpg"},
        {28, "C:\\...\\Strand.jpg"},
        {17, "C:\\...\\Strand.jpg"},
        {16, "...\\Strand.jpg"},
        {14, "...\\Strand.jpg"},
        {13, "Strand.jpg"},
        {10, "Strand.jpg"},
        {9, "Str...jpg"},
        {8, "St...jpg"},
        {0, "St...jpg"},
        {-100, "St...jpg"},
    };
    const CFileName f{CString(path)};
    for (auto& c : cases) {
        const CString shown = f.GetFilenameFullShorted(c.max);
        EXPECT_STREQ(shown, c.shown) << c.max;
        EXPECT_LE(shown.GetLength(), std::max(c.max, 8)) << c.max;
    }
    EXPECT_STREQ(f.GetFilenameFullShorted(), path) << "60 characters by default";
}

TEST(FileName, ShortenedPathForNetworkRelativeAndSlashPaths)
{
    struct
    {
        const char* path;
        int max;
        const char* shown;
    } cases[] = {
        {"\\\\server\\share\\Abteilung\\Projekte\\Plan.pdf", 36, "\\\\server\\share\\...\\Projekte\\Plan.pdf"},
        {"\\\\server\\share\\Abteilung\\Projekte\\Plan.pdf", 35, "\\\\server\\share\\...\\Plan.pdf"},
        {"eins\\zwei\\drei\\vier.txt", 20, "...\\drei\\vier.txt"},
        {"/home/anna/bilder/strand.jpg", 20, ".../strand.jpg"},
        {"/home/anna/bilder/strand.jpg", 21, ".../bilder/strand.jpg"},
        {"C:/a/b/c/d/e/f/g.txt", 14, "C:/.../f/g.txt"},
        {"C:/a/b/c/d/e/f/g.txt", 13, "C:/.../g.txt"},
        {"C:\\a/b\\c/d/e/f/g.txt", 14, "C:\\...\\f/g.txt"},
        {"C:\\Ordner\\EinSehrLangerDateiname.jpeg", 12, "EinSe...jpeg"},
        {"C:\\Ordner\\Datei.sehrlangeendung", 12, "Datei.seh..."},
        {"C:\\Ordner\\.sehrlangeendung", 10, ".sehrla..."},
        {"C:\\EinSehrLangerOrdnername\\", 12, "C:\\...\\"},
    };
    for (auto& c : cases) {
        const CString shown = CFileName(c.path).GetFilenameFullShorted(c.max);
        EXPECT_STREQ(shown, c.shown) << c.path << " " << c.max;
        EXPECT_LE(shown.GetLength(), c.max) << c.path;
    }
}

TEST(FileOperationTarget, FolderTargetsGetTheSourceName)
{
    struct
    {
        const char* source;
        const char* target;
        const char* result;
    } cases[] = {
        {"C:\\a\\Bild.jpg", "D:\\Ziel\\", "D:\\Ziel\\Bild.jpg"},
        {"C:\\a\\Bild.jpg", "D:/Ziel/", "D:/Ziel/Bild.jpg"},
        {"C:\\a\\Bild.jpg", "D:\\Ziel\\Neu.jpg", "D:\\Ziel\\Neu.jpg"},
        {"C:\\a\\Bild.jpg", "D:\\Ziel", "D:\\Ziel"},
        {"C:\\a\\Bild.jpg", "", ""},
        {"C:\\a\\Bild.jpg", nullptr, ""},
        {nullptr, "D:\\Ziel\\", "D:\\Ziel\\"},
        {"C:\\a\\", "D:\\Ziel\\", "D:\\Ziel\\"},
    };
    for (auto& c : cases)
        EXPECT_STREQ(CFileOperation::CopyTarget(c.source, c.target), c.result)
            << (c.source ? c.source : "(null)") << " -> " << (c.target ? c.target : "(null)");
}

TEST(Hyperlink, TargetIsTrimmedAndWwwAddressesGetAScheme)
{
    struct
    {
        const char* link;
        const char* target;
    } cases[] = {
        {"www.example.de", "http://www.example.de"},
        {"  WWW.example.de ", "http://WWW.example.de"},
        {"https://www.example.de", "https://www.example.de"},
        {"mailto:anna@example.de", "mailto:anna@example.de"},
        {"C:\\Hilfe\\index.html", "C:\\Hilfe\\index.html"},
        {"www", "www"},
        {"   ", ""},
        {nullptr, ""},
    };
    for (auto& c : cases)
        EXPECT_STREQ(CHyperlink(c.link).GetTarget(), c.target) << (c.link ? c.link : "(null)");
    CHyperlink link("www.example.de");
    link = static_cast<const char*>(nullptr);
    EXPECT_TRUE(link.IsEmpty());
}

TEST(ShellErrorText, GermanSentencePerShellCode)
{
    struct
    {
        INT_PTR code;
        const char* text;
    } cases[] = {
        {0, "Zu wenig Arbeitsspeicher oder Ressourcen."},
        {2, "Die Datei wurde nicht gefunden."},
        {3, "Der Pfad wurde nicht gefunden."},
        {5, "Der Zugriff wurde verweigert."},
        {8, "Zu wenig Arbeitsspeicher, um den Vorgang auszuführen."},
        {11, "Die Programmdatei ist ungültig."},
        {26, "Eine Freigabeverletzung ist aufgetreten."},
        {27, "Die Dateizuordnung ist unvollständig oder ungültig."},
        {28, "Die DDE-Anforderung hat das Zeitlimit überschritten."},
        {29, "Die DDE-Transaktion ist fehlgeschlagen."},
        {30, "Die DDE-Transaktion konnte nicht ausgeführt werden, weil andere DDE-Transaktionen bearbeitet wurden."},
        {31, "Diesem Dateityp ist kein Programm zugeordnet."},
        {32, "Eine benötigte Programmbibliothek (DLL) wurde nicht gefunden."},
        {1, "Unbekannter Fehler (Code 1)."},
        {-7, "Unbekannter Fehler (Code -7)."},
        {33, ""},
    };
    for (auto& c : cases)
        EXPECT_STREQ(ShellExecuteErrorText(c.code), c.text) << c.code;
}

TEST(TwException, TextShowsExplanationMessageAndSource)
{
    CInvalidArgException invalid;  // a static kind: never deleted
    char message[256] = {};
    ASSERT_TRUE(invalid.GetErrorMessage(message, sizeof message));
    const std::string own = message;

    EXPECT_STREQ(CTwException::FormatException(&invalid, "[0019] Fehler", "C:\\src\\twstddlg\\error.cpp", 87),
                 ("[0019] Fehler\n\n" + own + "\n\nQuelle: error.cpp, Zeile 87").c_str());
    EXPECT_STREQ(CTwException::FormatException(&invalid, nullptr, "/work/src/error.cpp", 0),
                 (own + "\n\nQuelle: error.cpp").c_str());
    EXPECT_STREQ(CTwException::FormatException(nullptr, "Nur Text", nullptr, 87), "Nur Text");
    EXPECT_STREQ(CTwException::FormatException(nullptr, "", "", 5), "");
    EXPECT_STREQ(CTwException::FormatException(nullptr, "Text", "a.cpp", -1), "Text\n\nQuelle: a.cpp");

    CUserException user;  // has no message of its own
    EXPECT_STREQ(CTwException::FormatException(&user, "Text", nullptr, 0),
                 "Text\n\nAusnahme ohne Beschreibung (CUserException).");
}
