// Module state and the resource chain against a real extension DLL that
// the tests load and unload: strings and templates found along the chain,
// through a switched resource handle, in the framework's order, and gone
// once the extension module has ended.
#include "afxwin.h"
#include "ext_dll/ext_resource.h"
#include "test_app.h"

#include <gtest/gtest.h>

namespace {

constexpr char kExtensionDll[] = "tw_test_ext.dll";

using ExtensionModuleGetter = AFX_EXTENSION_MODULE* (*)();

// How many libraries of the chain belong to module.
int ChainLinksOf(HMODULE module)
{
    int count = 0;
    for (const CDynLinkLibrary* dll = AfxGetModuleState()->m_pFirstDLL; dll != nullptr; dll = dll->m_pNextDLL) {
        if (dll->m_hModule == module)
            ++count;
    }
    return count;
}

CString Loaded(UINT nID)
{
    CString text("(nicht geladen)");
    text.LoadString(nID);
    return text;
}

// Loads the test extension DLL for one test and unloads it afterwards; the
// resource handle is put back whatever the test did.
class ResourceChainTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        m_savedResource = AfxGetResourceHandle();
        m_dll = LoadLibraryA(kExtensionDll);
        ASSERT_NE(m_dll, nullptr) << "error " << GetLastError();
        auto getter = reinterpret_cast<ExtensionModuleGetter>(
            reinterpret_cast<void*>(GetProcAddress(m_dll, "TwTestExtensionModule")));
        ASSERT_NE(getter, nullptr);
        m_extension = getter();
    }

    void TearDown() override
    {
        AfxSetResourceHandle(m_savedResource);
        if (m_dll != nullptr)
            FreeLibrary(m_dll);
    }

    HINSTANCE m_savedResource = nullptr;
    HMODULE m_dll = nullptr;
    AFX_EXTENSION_MODULE* m_extension = nullptr;
};

TEST_F(ResourceChainTest, LoadingTheDllLinksItOnceAndRecordsItsModule)
{
    EXPECT_TRUE(m_extension->bInitialized);
    EXPECT_EQ(m_extension->hModule, m_dll);
    EXPECT_EQ(m_extension->hResource, m_dll);
    EXPECT_EQ(ChainLinksOf(m_dll), 1);
    const CDynLinkLibrary* first = AfxGetModuleState()->m_pFirstDLL;
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first->m_hModule, m_dll) << "the newest library leads the chain";

    EXPECT_TRUE(AfxInitExtensionModule(*m_extension, GetModuleHandleA(nullptr)));
    EXPECT_EQ(m_extension->hModule, m_dll) << "a second call changes nothing";
    EXPECT_EQ(ChainLinksOf(m_dll), 1);
}

TEST_F(ResourceChainTest, StringAndTemplateOfTheDllAreFoundThroughTheChain)
{
    ASSERT_EQ(AfxGetResourceHandle(), GetModuleHandleA(nullptr));
    EXPECT_EQ(Loaded(IDS_EXT_ONLY), "Grüße aus der Erweiterung");
    EXPECT_EQ(AfxFindStringResourceHandle(IDS_EXT_ONLY), m_dll);
    char buffer[8];
    EXPECT_EQ(AfxLoadString(IDS_EXT_ONLY, buffer, sizeof buffer), 7);
    EXPECT_STREQ(buffer, "Grüße a");

    const HINSTANCE owner = AfxFindResourceHandle(MAKEINTRESOURCEA(IDD_EXT_DIALOG), RT_DIALOG);
    ASSERT_EQ(owner, m_dll);
    HWND dialog = CreateDialogParamA(owner, MAKEINTRESOURCEA(IDD_EXT_DIALOG), nullptr, nullptr, 0);
    ASSERT_NE(dialog, nullptr);
    char text[64] = {};
    GetDlgItemTextA(dialog, IDC_EXT_TEXT, text, sizeof text);
    EXPECT_STREQ(text, "Vorlage aus der Erweiterung");
    DestroyWindow(dialog);
}

TEST_F(ResourceChainTest, SwitchedResourceHandleIsSearchedBeforeTheChain)
{
    EXPECT_EQ(Loaded(IDS_EXT_SHARED), "Text des Programms") << "the exe is the resource handle";
    AfxSetResourceHandle(m_dll);
    EXPECT_EQ(AfxGetResourceHandle(), m_dll);
    EXPECT_EQ(Loaded(IDS_EXT_SHARED), "Text der Erweiterung");
    EXPECT_EQ(AfxFindStringResourceHandle(IDS_EXT_SHARED), m_dll);
    EXPECT_EQ(Loaded(IDS_APP_PROMPT), "Wirklich löschen?") << "the application's instance is searched last";
    AfxSetResourceHandle(m_savedResource);
    EXPECT_EQ(Loaded(IDS_EXT_SHARED), "Text des Programms");
    EXPECT_EQ(AfxGetInstanceHandle(), GetModuleHandleA(nullptr));
}

TEST_F(ResourceChainTest, SearchOrderIsHandleThenLibrariesThenSystemLibrariesThenApplication)
{
    // afx.dll has no resources of its own: as the resource handle it leaves
    // the decision to the chain.
    const HMODULE exe = GetModuleHandleA(nullptr);
    AfxSetResourceHandle(GetModuleHandleA("afx.dll"));
    ASSERT_NE(AfxGetResourceHandle(), nullptr);
    EXPECT_EQ(AfxFindStringResourceHandle(IDS_EXT_SHARED), m_dll);

    auto* newer = new CDynLinkLibrary(exe, exe);
    EXPECT_EQ(AfxGetModuleState()->m_pFirstDLL, newer);
    EXPECT_EQ(AfxFindStringResourceHandle(IDS_EXT_SHARED), exe) << "newer libraries come first";
    delete newer;
    EXPECT_EQ(ChainLinksOf(exe), 0) << "a library unlinks itself when deleted";
    EXPECT_EQ(AfxFindStringResourceHandle(IDS_EXT_SHARED), m_dll);

    AFX_EXTENSION_MODULE system = {};
    ASSERT_TRUE(AfxInitExtensionModule(system, exe));
    auto* systemLibrary = new CDynLinkLibrary(system, TRUE);
    EXPECT_EQ(AfxGetModuleState()->m_pFirstDLL, systemLibrary);
    EXPECT_EQ(AfxFindStringResourceHandle(IDS_EXT_SHARED), m_dll) << "system libraries come after the others";
    AfxTermExtensionModule(system);
    EXPECT_EQ(ChainLinksOf(exe), 0);

    AfxTermExtensionModule(*m_extension);
    EXPECT_EQ(AfxFindStringResourceHandle(IDS_EXT_SHARED), exe) << "the application's instance comes last";
}

TEST_F(ResourceChainTest, AfterTerminationTheChainNoLongerFindsTheDll)
{
    AfxTermExtensionModule(*m_extension);
    EXPECT_EQ(ChainLinksOf(m_dll), 0);
    CString text("unverändert");
    EXPECT_FALSE(text.LoadString(IDS_EXT_ONLY));
    EXPECT_EQ(text, "unverändert");
    EXPECT_EQ(AfxFindStringResourceHandle(IDS_EXT_ONLY), nullptr);
    EXPECT_EQ(AfxFindResourceHandle(MAKEINTRESOURCEA(IDD_EXT_DIALOG), RT_DIALOG), AfxGetResourceHandle())
        << "a resource found nowhere answers the current resource handle";
    EXPECT_EQ(Loaded(IDS_EXT_SHARED), "Text des Programms");

    // A resource handle switch still reaches the DLL without the chain.
    AfxSetResourceHandle(m_dll);
    EXPECT_EQ(Loaded(IDS_EXT_ONLY), "Grüße aus der Erweiterung");
    EXPECT_EQ(AfxFindResourceHandle(MAKEINTRESOURCEA(IDD_EXT_DIALOG), RT_DIALOG), m_dll);
    AfxSetResourceHandle(m_savedResource);

    new CDynLinkLibrary(*m_extension);
    EXPECT_EQ(Loaded(IDS_EXT_ONLY), "Grüße aus der Erweiterung") << "a new library links the DLL again";
}

TEST_F(ResourceChainTest, TerminationRemovesOnlyItsModuleUnlessAllAreAsked)
{
    const HMODULE exe = GetModuleHandleA(nullptr);
    AFX_EXTENSION_MODULE other = {};
    ASSERT_TRUE(AfxInitExtensionModule(other, exe));
    new CDynLinkLibrary(other);
    new CDynLinkLibrary(other);
    EXPECT_EQ(ChainLinksOf(exe), 2);

    AfxTermExtensionModule(other);
    EXPECT_EQ(ChainLinksOf(exe), 0);
    EXPECT_EQ(ChainLinksOf(m_dll), 1);

    new CDynLinkLibrary(other);
    AfxTermExtensionModule(other, TRUE);
    EXPECT_EQ(AfxGetModuleState()->m_pFirstDLL, nullptr);
    EXPECT_EQ(Loaded(IDS_EXT_ONLY), "(nicht geladen)");
}

TEST_F(ResourceChainTest, UnloadingTheDllTakesItOutOfTheChain)
{
    FreeLibrary(m_dll);
    EXPECT_EQ(GetModuleHandleA(kExtensionDll), nullptr);
    EXPECT_EQ(ChainLinksOf(m_dll), 0);
    m_dll = nullptr;
    EXPECT_EQ(AfxFindStringResourceHandle(IDS_EXT_ONLY), nullptr);
    EXPECT_EQ(Loaded(IDS_EXT_SHARED), "Text des Programms");
}

TEST(ModuleState, IsOneStateWithTheApplicationAndItsHandles)
{
    AFX_MODULE_STATE* state = AfxGetModuleState();
    EXPECT_EQ(AfxGetAppModuleState(), state);
    EXPECT_EQ(AfxGetStaticModuleState(), state);
    EXPECT_EQ(state->m_pCurrentWinApp, &CTestApp::Get());
    EXPECT_EQ(state->m_hCurrentInstanceHandle, GetModuleHandleA(nullptr));
    EXPECT_EQ(state->m_hCurrentResourceHandle, GetModuleHandleA(nullptr));
    EXPECT_STREQ(state->m_lpszCurrentAppName, CTestApp::kAppName);
    EXPECT_EQ(state->m_pFirstDLL, nullptr) << "no extension DLL is loaded between tests";
}

}  // namespace
