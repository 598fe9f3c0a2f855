// Version resources of loaded modules, the DllGetVersion exports, and the
// library's link into the framework's resource chain.
#include "frame/fix_mfc_toolbar.h"
#include "frame/library_entry.h"
#include "frame/module_version.h"
#include "frame_win_support.h"
#include "res/resource.h"
#include "res/version.h"

#include <gtest/gtest.h>

#include <vector>

using namespace frametest;

namespace {

constexpr char kProbeDll[] = "tw_frame_version_dll.dll";
constexpr char kLibrary[] = "twstddlg.dll";

// Exposes the translation for the tests.
struct VersionProbe : CModuleVersion
{
    WORD Language() const { return m_translation.langID; }
    WORD CodePage() const { return m_translation.charset; }
    const BYTE* Data() const { return m_pVersionInfo; }
};

// The probe module stays unloaded between tests.
struct ProbeDllUnloaded
{
    ProbeDllUnloaded() { EXPECT_EQ(GetModuleHandleA(kProbeDll), nullptr) << "loaded by an earlier test"; }
    ~ProbeDllUnloaded()
    {
        while (HMODULE module = GetModuleHandleA(kProbeDll))
            FreeLibrary(module);
    }
};

std::vector<HMODULE> ChainModules()
{
    std::vector<HMODULE> modules;
    for (CDynLinkLibrary* dll = AfxGetModuleState()->m_pFirstDLL; dll != nullptr; dll = dll->m_pNextDLL)
        modules.push_back(dll->m_hModule);
    return modules;
}

bool InChain(HMODULE module)
{
    for (HMODULE m : ChainModules())
        if (m == module)
            return true;
    return false;
}

}  // namespace

TEST(ModuleVersion, ReadsTheLibrarysOwnVersionResource)
{
    VersionProbe version;
    ASSERT_TRUE(version.GetFileVersionInfo(kLibrary));
    EXPECT_EQ(version.dwSignature, 0xFEEF04BDu);
    EXPECT_EQ(version.dwFileVersionMS, static_cast<DWORD>(MAKELONG(TWSTDDLG_VERSION_MINOR, TWSTDDLG_VERSION_MAJOR)));
    EXPECT_EQ(version.dwFileType, static_cast<DWORD>(VFT_DLL));
    EXPECT_EQ(version.Language(), 0x407);
    EXPECT_EQ(version.CodePage(), 1252);
    struct
    {
        const char* key;
        const char* value;
    } cases[] = {
        {"CompanyName", "Tesselwerk"},
        {"ProductVersion", TWSTDDLG_VERSION_TEXT},
        {"InternalName", "TWSTDDLG"},
        {"LegalCopyright", "© Tesselwerk"},
        {"Comments", ""},
    };
    for (const auto& c : cases)
        EXPECT_STREQ(version.GetValue(c.key), c.value) << c.key;
}

TEST(ModuleVersion, NullNameReadsTheExecutableWithItsTranslation)
{
    VersionProbe version;
    ASSERT_TRUE(version.GetFileVersionInfo(nullptr));
    EXPECT_EQ(version.dwFileVersionMS, static_cast<DWORD>(MAKELONG(4, 3)));
    EXPECT_EQ(version.Language(), 0x409);
    EXPECT_EQ(version.CodePage(), 1200);
    EXPECT_STREQ(version.GetValue("FileDescription"), "Rahmentests");
}

TEST(ModuleVersion, WithoutATranslationTableLooksInLanguage0CodePage1252)
{
    ProbeDllUnloaded unloaded;
    ASSERT_NE(LoadLibraryA(kProbeDll), nullptr);
    VersionProbe version;
    ASSERT_TRUE(version.GetFileVersionInfo(kProbeDll));
    EXPECT_EQ(version.Language(), 0);
    EXPECT_EQ(version.CodePage(), 1252);
    EXPECT_EQ(version.dwFileVersionLS, static_cast<DWORD>(MAKELONG(10, 9)));
    EXPECT_STREQ(version.GetValue("FileDescription"), "Prüfmodul ohne Übersetzung");
    EXPECT_STREQ(version.GetValue("ProductVersion"), "7.8");
}

TEST(ModuleVersion, AModuleThatIsNotLoadedIsNotRead)
{
    ProbeDllUnloaded unloaded;
    char exe[MAX_PATH] = {};
    GetModuleFileNameA(nullptr, exe, MAX_PATH);
    CString onDisk = exe;
    onDisk = onDisk.Left(onDisk.ReverseFind('\\') + 1) + kProbeDll;
    ASSERT_NE(GetFileAttributesA(onDisk), INVALID_FILE_ATTRIBUTES);

    VersionProbe version;
    ASSERT_TRUE(version.GetFileVersionInfo(kLibrary));
    EXPECT_FALSE(version.GetFileVersionInfo(kProbeDll));
    EXPECT_EQ(GetModuleHandleA(kProbeDll), nullptr);
    // The fixed fields are cleared, the language stays, the code page is 1252.
    EXPECT_EQ(version.dwSignature, 0u);
    EXPECT_EQ(version.dwFileVersionMS, 0u);
    EXPECT_EQ(version.Language(), 0x407);
    EXPECT_EQ(version.CodePage(), 1252);
}

TEST(ModuleVersion, NothingReadGivesEmptyValues)
{
    VersionProbe version;
    EXPECT_EQ(version.Data(), nullptr);
    EXPECT_EQ(version.Language(), 0);
    EXPECT_EQ(version.CodePage(), 0);
    EXPECT_EQ(version.dwSignature, 0u);
    EXPECT_STREQ(version.GetValue("CompanyName"), "");
    EXPECT_FALSE(version.GetFileVersionInfo("kein_solches_modul.dll"));
    EXPECT_STREQ(version.GetValue("CompanyName"), "");
}

TEST(ModuleVersion, CopiesKeepAnsweringAfterTheOriginalIsGone)
{
    auto* original = new VersionProbe;
    ASSERT_TRUE(original->GetFileVersionInfo(kLibrary));
    VersionProbe copy;
    static_cast<CModuleVersion&>(copy) = *original;
    const CModuleVersion constructed(*original);
    delete original;
    EXPECT_STREQ(copy.GetValue("CompanyName"), "Tesselwerk");
    EXPECT_STREQ(constructed.GetValue("ProductVersion"), TWSTDDLG_VERSION_TEXT);
    EXPECT_EQ(copy.Language(), 0x407);
    EXPECT_EQ(copy.dwSignature, 0xFEEF04BDu);
}

TEST(DllVersion, CommonControlsVersionIsWhatTheLibraryRecorded)
{
    DLLVERSIONINFO info = {};
    info.dwMajorVersion = 99;
    ASSERT_TRUE(CModuleVersion::DllGetVersion("comctl32.dll", info));
    EXPECT_EQ(info.cbSize, 20u);
    EXPECT_GE(info.dwMajorVersion, 5u);
    const int number = static_cast<int>(info.dwMajorVersion * 100 + info.dwMinorVersion);
    EXPECT_EQ(CFixMFCToolBar::iVerComCtl32, number);
}

TEST(DllVersion, AModuleWithoutTheExportGivesFalseAndStaysLoaded)
{
    ProbeDllUnloaded unloaded;
    DLLVERSIONINFO info = {};
    EXPECT_FALSE(CModuleVersion::DllGetVersion(kProbeDll, info));
    EXPECT_NE(GetModuleHandleA(kProbeDll), nullptr);
}

TEST(DllVersion, AMissingModuleGivesFalse)
{
    DLLVERSIONINFO info = {};
    EXPECT_FALSE(CModuleVersion::DllGetVersion("kein_solches_modul.dll", info));
}

TEST(DllVersion, TheLibraryAnswersWithItsOwnVersion)
{
    DLLVERSIONINFO info = {};
    info.cbSize = sizeof info;
    info.dwMajorVersion = 77;
    DllGetVersion(info);
    EXPECT_EQ(info.dwMajorVersion, static_cast<DWORD>(TWSTDDLG_VERSION_MAJOR));
    EXPECT_EQ(info.dwMinorVersion, static_cast<DWORD>(TWSTDDLG_VERSION_MINOR));
    EXPECT_EQ(info.dwBuildNumber, static_cast<DWORD>(TWSTDDLG_VERSION_BUILD));
    EXPECT_EQ(info.cbSize, sizeof info);
}

TEST(CheckProgramVersion, AccessorsAnswerTheHeldValues)
{
    const CCheckProgramVersion check(1, 20304, 20201);
    EXPECT_EQ(check._IsNewVersion(), 1);
    EXPECT_EQ(check._GetCurrentExeVersion(), 20304);
    EXPECT_EQ(check._GetRegistryExeVersion(), 20201);
}

TEST(LibraryEntry, TheLibraryIsLinkedIntoTheResourceChain)
{
    const HMODULE library = GetModuleHandleA(kLibrary);
    ASSERT_NE(library, nullptr);
    EXPECT_TRUE(InChain(library));
    // Its strings are found along the chain from the application.
    CString text;
    EXPECT_TRUE(text.LoadString(IDS_ERR_UPDATE_CHECK));
    EXPECT_STREQ(text, "Fehler beim Ermitteln von Updates [%i].");
    EXPECT_EQ(AfxFindResourceHandle(MAKEINTRESOURCE(IDS_ERR_UPDATE_CHECK / 16 + 1), RT_STRING), library);
}

TEST(LibraryEntry, LoadingLinksAndUnloadingUnlinksTheModule)
{
    // A second copy of the library under another name: its entry runs on
    // load and unload like the original's.
    TempFolder folder;
    char original[MAX_PATH] = {};
    GetModuleFileNameA(GetModuleHandleA(kLibrary), original, MAX_PATH);
    const CString copyPath = folder.File("twstddlg_kopie.dll");
    ASSERT_TRUE(CopyFileA(original, copyPath, FALSE));

    const size_t before = ChainModules().size();
    HMODULE copy = LoadLibraryA(copyPath);
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(ChainModules().size(), before + 1);
    EXPECT_EQ(ChainModules().front(), copy);
    ASSERT_TRUE(FreeLibrary(copy));
    EXPECT_EQ(ChainModules().size(), before);
    EXPECT_FALSE(InChain(copy));
    EXPECT_TRUE(InChain(GetModuleHandleA(kLibrary)));
}
