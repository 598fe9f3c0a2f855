#ifdef _WIN32
#include "dll_loader.h"
#include "files_test_support.h"
#include "twversion.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

// A module that the test process has not loaded otherwise, and one of its exports.
constexpr const char* kModule = "msimg32.dll";
constexpr const char* kExport = "TransparentBlt";

// Binds the module as a plug-in front end does: through the protected members.
class PluginFrontEnd : public CDllLoader
{
public:
    PluginFrontEnd() : CDllLoader(kModule) {}
    bool HasPlugin() const { return m_hModule != nullptr; }
    const CString& Name() const { return m_sModuleName; }
};

}  // namespace

TEST(DllLoader, LoadsOnConstructionAndFreesOnDestruction)
{
    ASSERT_EQ(GetModuleHandleA(kModule), nullptr) << "the test needs a module nobody else loaded";
    {
        CDllLoader loader(kModule);
        EXPECT_TRUE(loader.IsLoaded());
        EXPECT_NE(loader.GetModule(), nullptr);
        EXPECT_EQ(loader.GetModule(), GetModuleHandleA(kModule));
        EXPECT_STREQ(loader.GetModuleName(), kModule);
        EXPECT_NE(loader.GetProcAddress(kExport), nullptr);
        EXPECT_EQ(loader.GetProcAddress("NoSuchExport"), nullptr);
        EXPECT_EQ(loader.GetProcAddress(nullptr), nullptr);
    }
    EXPECT_EQ(GetModuleHandleA(kModule), nullptr);
}

TEST(DllLoader, EachObjectHoldsItsOwnReference)
{
    ASSERT_EQ(GetModuleHandleA(kModule), nullptr);
    auto first = std::make_unique<CDllLoader>(kModule);
    {
        CDllLoader second(kModule);
        EXPECT_EQ(second.GetModule(), first->GetModule());
    }
    EXPECT_NE(GetModuleHandleA(kModule), nullptr) << "the first object still holds it";
    first.reset();
    EXPECT_EQ(GetModuleHandleA(kModule), nullptr);
}

TEST(DllLoader, MissingOrBrokenModulesLeaveANullHandle)
{
    files_test::TempFolder folder;
    const CString broken = folder / "kaputt.dll";
    ASSERT_TRUE(files_test::WriteText(broken, "kein Modul"));

    const CString names[] = {"tw_no_such_module_4711", "tw_no_such_module_4711.dll", broken, folder / "fehlt.dll",
                             CString()};
    for (const CString& name : names) {
        CDllLoader loader(name);
        EXPECT_FALSE(loader.IsLoaded()) << name.GetString();
        EXPECT_EQ(loader.GetModule(), nullptr) << name.GetString();
        EXPECT_STREQ(loader.GetModuleName(), name) << "the name is kept as given";
        EXPECT_EQ(loader.GetProcAddress(kExport), nullptr);
    }
    CDllLoader null(nullptr);
    EXPECT_FALSE(null.IsLoaded());
    EXPECT_STREQ(null.GetModuleName(), "");
}

TEST(DllLoader, DerivedClassesReadNameAndHandleDirectly)
{
    ASSERT_EQ(GetModuleHandleA(kModule), nullptr);
    {
        PluginFrontEnd plugin;
        EXPECT_TRUE(plugin.HasPlugin());
        EXPECT_STREQ(plugin.Name(), kModule);
    }
    EXPECT_EQ(GetModuleHandleA(kModule), nullptr) << "the base class frees it";
}

TEST(DllVersion, FixedVersionOfALoadedModule)
{
    DLLVERSIONINFO info = {};
    info.cbSize = sizeof info;
    EXPECT_TRUE(twDllGetVersion("kernel32.dll", info));
    EXPECT_GT(info.dwMajorVersion, 0u);
    EXPECT_EQ(info.cbSize, sizeof info);

    info.dwMajorVersion = info.dwMinorVersion = info.dwBuildNumber = 99;
    EXPECT_FALSE(twDllGetVersion("tw_no_such_module_4711.dll", info));
    EXPECT_EQ(info.dwMajorVersion, 0u);
    EXPECT_EQ(info.dwMinorVersion, 0u);
    EXPECT_EQ(info.dwBuildNumber, 0u);
}
#endif
