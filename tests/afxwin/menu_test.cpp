// Menus: building and reading back real menus, the handle maps, the menu
// members of CWnd, menu messages and ON_UPDATE_COMMAND_UI on menu items.
#include "test_app.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

constexpr UINT kOpen = 0x9001;
constexpr UINT kSave = 0x9002;
constexpr UINT kPrint = 0x9003;
constexpr UINT kSmall = 0x9010;
constexpr UINT kMedium = 0x9011;
constexpr UINT kLarge = 0x9012;
constexpr UINT kPlain = 0x9020;
constexpr UINT kOwnerDrawn = 0x9030;
constexpr UINT_PTR kSafetyTimer = 1;

class MenuTest : public ::testing::Test
{
protected:
    void SetUp() override { CTestApp::Get().Reset(); }
    void TearDown() override { AfxDeleteTempMap(); }
};

// The state bits a test compares: a separator reports itself greyed too, and
// a greyed item may report MF_DISABLED as well.
UINT StateMask(UINT expected)
{
    if (expected & MF_SEPARATOR)
        return MF_SEPARATOR;
    return MF_SEPARATOR | MF_CHECKED | MF_GRAYED | MF_POPUP;
}

// Runs the thread's idle processing to its end.
void RunIdle()
{
    CWinThread* thread = AfxGetThread();
    ASSERT_NE(thread, nullptr);
    LONG count = 0;
    while (thread->OnIdle(count++)) {
    }
}

// "Datei" pop-up: Öffnen, separator, Speichern (checked), Drucken (greyed),
// a "Größe" sub-menu with three radio items.
void BuildFileMenu(CMenu& bar, CMenu& file, CMenu& size)
{
    ASSERT_TRUE(bar.CreateMenu());
    ASSERT_TRUE(file.CreatePopupMenu());
    ASSERT_TRUE(size.CreatePopupMenu());
    ASSERT_TRUE(size.AppendMenu(MF_STRING, kSmall, "&Klein"));
    ASSERT_TRUE(size.AppendMenu(MF_STRING, kMedium, "&Mittel"));
    ASSERT_TRUE(size.AppendMenu(MF_STRING, kLarge, "&Gro\xDF"));
    ASSERT_TRUE(file.AppendMenu(MF_STRING, kOpen,
                                "\xD6"
                                "ffnen...\tStrg+O"));
    ASSERT_TRUE(file.AppendMenu(MF_SEPARATOR));
    ASSERT_TRUE(file.AppendMenu(MF_STRING | MF_CHECKED, kSave, "&Speichern"));
    ASSERT_TRUE(file.AppendMenu(MF_STRING | MF_GRAYED, kPrint, "&Drucken"));
    ASSERT_TRUE(file.AppendMenu(MF_POPUP, reinterpret_cast<UINT_PTR>(size.m_hMenu),
                                "Gr\xF6\xDF"
                                "e"));
    ASSERT_TRUE(bar.AppendMenu(MF_POPUP, reinterpret_cast<UINT_PTR>(file.m_hMenu), "&Datei"));
    // The bar owns the pop-ups from now on.
    size.Detach();
    file.Detach();
}

TEST_F(MenuTest, BuiltMenuReadsBackItsIdsStringsStatesAndSubMenus)
{
    CMenu bar, file, size;
    BuildFileMenu(bar, file, size);
    ASSERT_EQ(bar.GetMenuItemCount(), 1u);
    CMenu* pFile = bar.GetSubMenu(0);
    ASSERT_NE(pFile, nullptr);
    ASSERT_EQ(pFile->GetMenuItemCount(), 5u);

    struct
    {
        int pos;
        UINT id;
        const char* text;
        UINT stateBits;
    } items[] = {
        {0, kOpen,
         "\xD6"
         "ffnen...\tStrg+O",
         0},
        {1, 0, "", MF_SEPARATOR},
        {2, kSave, "&Speichern", MF_CHECKED},
        {3, kPrint, "&Drucken", MF_GRAYED},
        {4, static_cast<UINT>(-1),
         "Gr\xF6\xDF"
         "e",
         MF_POPUP},
    };
    for (const auto& item : items) {
        EXPECT_EQ(pFile->GetMenuItemID(item.pos), item.id) << item.pos;
        CString text;
        EXPECT_EQ(pFile->GetMenuString(item.pos, text, MF_BYPOSITION), static_cast<int>(strlen(item.text)));
        EXPECT_STREQ(text, item.text) << item.pos;
        EXPECT_EQ(pFile->GetMenuState(item.pos, MF_BYPOSITION) & StateMask(item.stateBits), item.stateBits) << item.pos;
    }

    CMenu* pSize = pFile->GetSubMenu(4);
    ASSERT_NE(pSize, nullptr);
    EXPECT_EQ(pSize->GetMenuItemID(2), kLarge);
    EXPECT_EQ(pFile->GetSubMenu(0), nullptr);
    // By command, the look-up reaches into sub-menus.
    CString large;
    bar.GetMenuString(kLarge, large, MF_BYCOMMAND);
    EXPECT_STREQ(large, "&Gro\xDF");
    bar.DestroyMenu();
}

// GetDefaultItem takes the flags first, the system's call the by-position
// switch first; DeleteMenu destroys a pop-up item's menu, RemoveMenu keeps it.
TEST_F(MenuTest, DefaultItemAndRemovalReachTheRightCalls)
{
    CMenu menu;
    ASSERT_TRUE(menu.CreatePopupMenu());
    menu.AppendMenu(MF_STRING, kOpen, "Eins");
    menu.AppendMenu(MF_STRING, kSave, "Zwei");
    ASSERT_TRUE(menu.SetDefaultItem(kSave));
    EXPECT_EQ(menu.GetDefaultItem(0), kSave);
    EXPECT_EQ(menu.GetDefaultItem(0, TRUE), 1u);

    const HMENU kept = ::CreatePopupMenu();
    const HMENU deleted = ::CreatePopupMenu();
    menu.AppendMenu(MF_POPUP, reinterpret_cast<UINT_PTR>(kept), "Bleibt");
    menu.AppendMenu(MF_POPUP, reinterpret_cast<UINT_PTR>(deleted), "Geht");
    ASSERT_TRUE(menu.RemoveMenu(2, MF_BYPOSITION));
    ASSERT_TRUE(menu.DeleteMenu(2, MF_BYPOSITION));
    EXPECT_EQ(menu.GetMenuItemCount(), 2u);
    EXPECT_TRUE(::IsMenu(kept));
    EXPECT_FALSE(::IsMenu(deleted));
    ::DestroyMenu(kept);
}

TEST_F(MenuTest, OwnedMenusArePermanentAndDestroyedWithTheirObject)
{
    HMENU hMenu = nullptr;
    {
        CMenu menu;
        ASSERT_TRUE(menu.CreatePopupMenu());
        hMenu = menu.m_hMenu;
        EXPECT_EQ(CMenu::FromHandle(hMenu), &menu);
        EXPECT_EQ(CMenu::FromHandlePermanent(hMenu), &menu);
        EXPECT_EQ(AfxGetTempObjectCount(), 0);
        EXPECT_FALSE(menu.CreatePopupMenu());
    }
    EXPECT_FALSE(::IsMenu(hMenu));

    {
        CMenu menu;
        ASSERT_TRUE(menu.CreateMenu());
        hMenu = menu.Detach();
        EXPECT_EQ(menu.m_hMenu, nullptr);
        EXPECT_EQ(CMenu::FromHandlePermanent(hMenu), nullptr);
    }
    EXPECT_TRUE(::IsMenu(hMenu));

    CMenu attached;
    ASSERT_TRUE(attached.Attach(hMenu));
    EXPECT_EQ(CMenu::FromHandlePermanent(hMenu), &attached);
    EXPECT_TRUE(attached.DestroyMenu());
    EXPECT_FALSE(::IsMenu(hMenu));
    EXPECT_EQ(attached.m_hMenu, nullptr);
    EXPECT_EQ(CMenu::FromHandlePermanent(hMenu), nullptr);
}

TEST_F(MenuTest, ForeignMenusGetTemporaryObjectsDeletedAtIdle)
{
    const HMENU foreign = ::CreatePopupMenu();
    ::AppendMenuA(foreign, MF_STRING, kOpen, "Fremd");
    for (int round = 0; round < 3; ++round) {
        CMenu* pMenu = CMenu::FromHandle(foreign);
        ASSERT_NE(pMenu, nullptr);
        EXPECT_EQ(CMenu::FromHandle(foreign), pMenu);
        EXPECT_EQ(CMenu::FromHandlePermanent(foreign), nullptr);
        EXPECT_EQ(pMenu->GetMenuItemID(0), kOpen);
        EXPECT_EQ(AfxGetTempObjectCount(), 1);
        RunIdle();
        EXPECT_EQ(AfxGetTempObjectCount(), 0);
        // The menu itself outlives its temporary object.
        EXPECT_TRUE(::IsMenu(foreign));
    }
    EXPECT_EQ(CMenu::FromHandle(nullptr), nullptr);
    ::DestroyMenu(foreign);
}

// A top-level window that records the menu messages its map dispatches and
// updates its menu items through ON_UPDATE_COMMAND_UI.
class CMenuWnd : public CWnd
{
public:
    std::vector<std::string> events;
    HMENU initMenu = nullptr;
    HMENU charMenu = nullptr;
    UINT menuChar = 0;
    BOOL saveEnabled = FALSE;
    int printCheck = 1;
    CString openText = "Neu &laden";
    // States read while the pop-up is open.
    std::vector<UINT> statesWhileOpen;
    HMENU trackedMenu = nullptr;

    BOOL CreateTopLevel()
    {
        return CreateEx(0, AfxRegisterWndClass(0), "Men\xFC", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 10, 10, 300, 200,
                        nullptr, nullptr);
    }

protected:
    afx_msg void OnInitMenu(CMenu* pMenu)
    {
        events.push_back("WM_INITMENU");
        initMenu = pMenu->GetSafeHmenu();
        CWnd::OnInitMenu(pMenu);
    }
    afx_msg LRESULT OnMenuChar(UINT nChar, UINT nFlags, CMenu* pMenu)
    {
        events.push_back("WM_MENUCHAR");
        menuChar = nChar;
        charMenu = pMenu->GetSafeHmenu();
        (void)nFlags;
        return MAKELRESULT(2, MNC_EXECUTE);
    }
    afx_msg void OnEnterIdle(UINT nWhy, CWnd* pWho)
    {
        if (nWhy == MSGF_MENU && trackedMenu != nullptr && statesWhileOpen.empty()) {
            for (int i = 0; i < ::GetMenuItemCount(trackedMenu); ++i)
                statesWhileOpen.push_back(::GetMenuState(trackedMenu, i, MF_BYPOSITION));
            ::EndMenu();
        }
        CWnd::OnEnterIdle(nWhy, pWho);
    }
    // A safety net: a menu that never reports idle is closed after a while.
    afx_msg void OnTimer(UINT_PTR)
    {
        KillTimer(kSafetyTimer);
        ::EndMenu();
    }
    afx_msg void OnUpdateOpen(CCmdUI* pCmdUI) { pCmdUI->SetText(openText); }
    afx_msg void OnUpdateSave(CCmdUI* pCmdUI) { pCmdUI->Enable(saveEnabled); }
    afx_msg void OnUpdatePrint(CCmdUI* pCmdUI) { pCmdUI->SetCheck(printCheck); }
    afx_msg void OnUpdateSize(CCmdUI* pCmdUI) { pCmdUI->SetRadio(pCmdUI->m_nID == kLarge); }
    afx_msg void OnOpen() { events.push_back("open"); }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CMenuWnd, CWnd)
    ON_WM_INITMENU()
    ON_WM_MENUCHAR()
    ON_WM_ENTERIDLE()
    ON_WM_TIMER()
    ON_COMMAND(kOpen, OnOpen)
    ON_UPDATE_COMMAND_UI(kOpen, OnUpdateOpen)
    ON_UPDATE_COMMAND_UI(kSave, OnUpdateSave)
    ON_UPDATE_COMMAND_UI(kPrint, OnUpdatePrint)
    ON_UPDATE_COMMAND_UI_RANGE(kSmall, kLarge, OnUpdateSize)
END_MESSAGE_MAP()

// A pop-up with: Öffnen, separator, Speichern, Drucken, Klein, Gross, Ohne.
void BuildUpdateMenu(CMenu& popup)
{
    ASSERT_TRUE(popup.CreatePopupMenu());
    popup.AppendMenu(MF_STRING, kOpen,
                     "\xD6"
                     "ffnen");
    popup.AppendMenu(MF_SEPARATOR);
    popup.AppendMenu(MF_STRING | MF_CHECKED, kSave, "Speichern");
    popup.AppendMenu(MF_STRING, kPrint, "Drucken");
    popup.AppendMenu(MF_STRING, kSmall, "Klein");
    popup.AppendMenu(MF_STRING | MF_GRAYED, kLarge, "Gross");
    popup.AppendMenu(MF_STRING | MF_GRAYED, kPlain, "Ohne");
}

TEST_F(MenuTest, InitMenuPopupUpdatesItemsThroughTheirHandlers)
{
    CMenuWnd wnd;
    ASSERT_TRUE(wnd.CreateTopLevel());
    CMenu popup;
    BuildUpdateMenu(popup);

    wnd.SendMessage(WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(popup.m_hMenu), MAKELPARAM(0, FALSE));

    struct
    {
        int pos;
        const char* text;
        UINT state;
    } expected[] = {
        {0, "Neu &laden", 0},       {1, "", MF_SEPARATOR}, {2, "Speichern", MF_CHECKED | MF_GRAYED},  // the check stays
        {3, "Drucken", MF_CHECKED}, {4, "Klein", 0},       {5, "Gross", MF_CHECKED | MF_GRAYED},  // handler checks only
        {6, "Ohne", MF_GRAYED},  // no handler: unchanged
    };
    for (const auto& item : expected) {
        CString text;
        popup.GetMenuString(item.pos, text, MF_BYPOSITION);
        EXPECT_STREQ(text, item.text) << item.pos;
        EXPECT_EQ(popup.GetMenuState(item.pos, MF_BYPOSITION) & StateMask(item.state), item.state) << item.pos;
    }
    MENUITEMINFO info = {};
    info.cbSize = sizeof info;
    info.fMask = MIIM_FTYPE;
    ASSERT_TRUE(popup.GetMenuItemInfo(5, &info, TRUE));
    EXPECT_TRUE(info.fType & MFT_RADIOCHECK);
    EXPECT_EQ(popup.GetMenuItemID(0), kOpen);

    // The handlers' state changes show on the next opening.
    wnd.saveEnabled = TRUE;
    wnd.printCheck = 0;
    wnd.SendMessage(WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(popup.m_hMenu), MAKELPARAM(0, FALSE));
    EXPECT_EQ(popup.GetMenuState(kSave, MF_BYCOMMAND) & (MF_CHECKED | MF_GRAYED), static_cast<UINT>(MF_CHECKED));
    EXPECT_EQ(popup.GetMenuState(kPrint, MF_BYCOMMAND) & MF_CHECKED, 0u);

    // A system menu is left alone.
    CMenu other;
    BuildUpdateMenu(other);
    wnd.SendMessage(WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(other.m_hMenu), MAKELPARAM(0, TRUE));
    CString text;
    other.GetMenuString(0, text, MF_BYPOSITION);
    EXPECT_STREQ(text, "\xD6"
                       "ffnen");
    EXPECT_EQ(other.GetMenuState(kSave, MF_BYCOMMAND) & MF_GRAYED, 0u);
    wnd.DestroyWindow();
}

TEST_F(MenuTest, OpeningAPopupRunsTheUpdateHandlersBeforeItShows)
{
    CMenuWnd wnd;
    ASSERT_TRUE(wnd.CreateTopLevel());
    CMenu popup;
    BuildUpdateMenu(popup);
    wnd.trackedMenu = popup.m_hMenu;
    wnd.SetForegroundWindow();
    wnd.SetTimer(kSafetyTimer, 5000);

    CRect rect;
    wnd.GetWindowRect(&rect);
    popup.TrackPopupMenu(TPM_LEFTALIGN | TPM_RETURNCMD, rect.left + 20, rect.top + 40, &wnd);
    wnd.KillTimer(kSafetyTimer);

    ASSERT_EQ(wnd.statesWhileOpen.size(), 7u);
    EXPECT_EQ(wnd.statesWhileOpen[2] & MF_GRAYED, static_cast<UINT>(MF_GRAYED));
    EXPECT_EQ(wnd.statesWhileOpen[3] & MF_CHECKED, static_cast<UINT>(MF_CHECKED));
    EXPECT_EQ(wnd.events.front(), "WM_INITMENU");
    EXPECT_EQ(wnd.initMenu, popup.m_hMenu);
    CString text;
    popup.GetMenuString(kOpen, text, MF_BYCOMMAND);
    EXPECT_STREQ(text, "Neu &laden");
    wnd.DestroyWindow();
}

TEST_F(MenuTest, MenuMessagesHandTheirMenuToTheHandlers)
{
    CMenuWnd wnd;
    ASSERT_TRUE(wnd.CreateTopLevel());
    CMenu popup;
    BuildUpdateMenu(popup);

    wnd.SendMessage(WM_INITMENU, reinterpret_cast<WPARAM>(popup.m_hMenu), 0);
    EXPECT_EQ(wnd.initMenu, popup.m_hMenu);
    const LRESULT result =
        wnd.SendMessage(WM_MENUCHAR, MAKEWPARAM('k', MF_POPUP), reinterpret_cast<LPARAM>(popup.m_hMenu));
    EXPECT_EQ(result, MAKELRESULT(2, MNC_EXECUTE));
    EXPECT_EQ(wnd.menuChar, static_cast<UINT>('k'));
    EXPECT_EQ(wnd.charMenu, popup.m_hMenu);
    EXPECT_EQ(wnd.events, (std::vector<std::string>{"WM_INITMENU", "WM_MENUCHAR"}));
    // A menu command whose update handler leaves it enabled runs.
    wnd.SendMessage(WM_COMMAND, MAKEWPARAM(kOpen, 0), 0);
    EXPECT_EQ(wnd.events.back(), "open");
    wnd.DestroyWindow();
}

TEST_F(MenuTest, WindowMenuBarIsSetAndReadBack)
{
    CMenuWnd wnd;
    ASSERT_TRUE(wnd.CreateTopLevel());
    EXPECT_EQ(wnd.GetMenu(), nullptr);
    CMenu bar, file, size;
    BuildFileMenu(bar, file, size);
    ASSERT_TRUE(wnd.SetMenu(&bar));
    EXPECT_EQ(wnd.GetMenu(), &bar);
    EXPECT_EQ(::GetMenu(wnd.m_hWnd), bar.m_hMenu);
    ASSERT_TRUE(wnd.SetMenu(nullptr));
    EXPECT_EQ(wnd.GetMenu(), nullptr);
    wnd.DestroyWindow();
}

// A menu whose owner-drawn items it measures and draws itself.
class COwnerDrawMenu : public CMenu
{
public:
    std::vector<UINT> measured;
    std::vector<UINT> drawn;

    void MeasureItem(LPMEASUREITEMSTRUCT lpMIS) override
    {
        measured.push_back(lpMIS->itemID);
        lpMIS->itemWidth = 120;
        lpMIS->itemHeight = 24;
    }
    void DrawItem(LPDRAWITEMSTRUCT lpDIS) override { drawn.push_back(lpDIS->itemID); }
};

TEST_F(MenuTest, OwnerDrawnItemsReachTheMenusObject)
{
    CMenuWnd wnd;
    ASSERT_TRUE(wnd.CreateTopLevel());
    COwnerDrawMenu menu;
    ASSERT_TRUE(menu.CreatePopupMenu());
    menu.AppendMenu(MF_STRING, kOpen, "Text");
    ASSERT_TRUE(menu.ModifyMenu(kOpen, MF_BYCOMMAND | MF_OWNERDRAW, kOwnerDrawn, static_cast<LPCTSTR>(nullptr)));

    MEASUREITEMSTRUCT mis = {};
    mis.CtlType = ODT_MENU;
    mis.itemID = kOwnerDrawn;
    wnd.SendMessage(WM_MEASUREITEM, 0, reinterpret_cast<LPARAM>(&mis));
    EXPECT_EQ(menu.measured, std::vector<UINT>{kOwnerDrawn});
    EXPECT_EQ(mis.itemHeight, 24u);

    DRAWITEMSTRUCT dis = {};
    dis.CtlType = ODT_MENU;
    dis.itemID = kOwnerDrawn;
    dis.hwndItem = reinterpret_cast<HWND>(menu.m_hMenu);
    wnd.SendMessage(WM_DRAWITEM, 0, reinterpret_cast<LPARAM>(&dis));
    EXPECT_EQ(menu.drawn, std::vector<UINT>{kOwnerDrawn});

    // An item of no permanent menu is left to the default.
    mis.itemID = 0xBEEF;
    mis.itemHeight = 0;
    wnd.SendMessage(WM_MEASUREITEM, 0, reinterpret_cast<LPARAM>(&mis));
    EXPECT_EQ(menu.measured.size(), 1u);
    wnd.DestroyWindow();
}

}  // namespace
