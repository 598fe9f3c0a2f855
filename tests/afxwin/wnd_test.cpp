// Windows: message maps, creation, handle maps, subclassing, reflection,
// command routing and the GDI wrappers, on real windows and device contexts.
#include "test_app.h"

#include <commctrl.h>
#include <gtest/gtest.h>

#include <new>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using Events = std::vector<std::string>;

constexpr int kChildId = 100;
constexpr UINT kFirstRangeCommand = 0x8200;
constexpr UINT kLastRangeCommand = 0x8204;
constexpr UINT kExCommand = 0x8210;
constexpr UINT kDisabledCommand = 0x8211;
constexpr UINT kPrivateMessage = WM_APP + 7;

UINT RegisteredTestMessage()
{
    static const UINT message = ::RegisterWindowMessageA("TwWndTestRegistered");
    return message;
}
const UINT g_registeredMessage = RegisteredTestMessage();

class WndTest : public ::testing::Test
{
protected:
    void SetUp() override { CTestApp::Get().Reset(); }
    void TearDown() override
    {
        CTestApp::Get().Reset();
        AfxDeleteTempMap();
    }
};

// A top-level window that records what its map dispatches.
class CRecordingWnd : public CWnd
{
public:
    Events events;
    CSize createdSize;
    std::string createName;
    int failCreate = 0;
    bool postNcDestroyCalled = false;

    BOOL CreateTopLevel(DWORD dwStyle = WS_OVERLAPPEDWINDOW)
    {
        return CreateEx(0, AfxRegisterWndClass(CS_DBLCLKS), "Aufzeichnung", dwStyle, 10, 20, 320, 240, nullptr,
                        nullptr);
    }

protected:
    afx_msg BOOL OnNcCreate(LPCREATESTRUCT lpcs)
    {
        events.push_back("WM_NCCREATE");
        return CWnd::OnNcCreate(lpcs);
    }
    afx_msg int OnCreate(LPCREATESTRUCT lpcs)
    {
        events.push_back("WM_CREATE");
        createName = lpcs->lpszName;
        if (failCreate)
            return -1;
        return CWnd::OnCreate(lpcs);
    }
    afx_msg void OnSize(UINT nType, int cx, int cy)
    {
        events.push_back("WM_SIZE");
        createdSize = CSize(cx, cy);
        CWnd::OnSize(nType, cx, cy);
    }
    afx_msg void OnDestroy()
    {
        events.push_back("WM_DESTROY");
        CWnd::OnDestroy();
    }
    afx_msg void OnNcDestroy()
    {
        events.push_back("WM_NCDESTROY");
        CWnd::OnNcDestroy();
    }
    void PostNcDestroy() override
    {
        events.push_back("PostNcDestroy");
        postNcDestroyCalled = true;
    }
    afx_msg LRESULT OnPrivate(WPARAM wParam, LPARAM lParam)
    {
        events.push_back("private " + std::to_string(wParam) + " " + std::to_string(lParam));
        return 1234;
    }
    afx_msg LRESULT OnRegistered(WPARAM wParam, LPARAM)
    {
        events.push_back("registered " + std::to_string(wParam));
        return 99;
    }
    afx_msg void OnTimer(UINT_PTR nIDEvent)
    {
        events.push_back("WM_TIMER " + std::to_string(nIDEvent));
        KillTimer(nIDEvent);
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CRecordingWnd, CWnd)
    ON_WM_NCCREATE()
    ON_WM_CREATE()
    ON_WM_SIZE()
    ON_WM_DESTROY()
    ON_WM_NCDESTROY()
    ON_WM_TIMER()
    ON_MESSAGE(kPrivateMessage, OnPrivate)
    ON_REGISTERED_MESSAGE(g_registeredMessage, OnRegistered)
END_MESSAGE_MAP()

Events Only(const Events& events, std::initializer_list<const char*> names)
{
    Events filtered;
    for (const auto& e : events) {
        for (const char* name : names) {
            if (e == name)
                filtered.push_back(e);
        }
    }
    return filtered;
}

TEST_F(WndTest, CreationAndDestructionMessagesReachTheMapInOrder)
{
    CRecordingWnd wnd;
    ASSERT_TRUE(wnd.CreateTopLevel());
    EXPECT_EQ(CWnd::FromHandlePermanent(wnd.m_hWnd), &wnd);
    EXPECT_EQ(wnd.createName, "Aufzeichnung");
    // A hidden window gets its first WM_SIZE when it is shown.
    wnd.ShowWindow(SW_SHOWNOACTIVATE);
    CRect client;
    wnd.GetClientRect(&client);
    EXPECT_EQ(wnd.createdSize, client.Size());

    const HWND hWnd = wnd.m_hWnd;
    EXPECT_TRUE(wnd.DestroyWindow());
    EXPECT_FALSE(::IsWindow(hWnd));
    EXPECT_EQ(wnd.m_hWnd, nullptr);
    EXPECT_EQ(CWnd::FromHandlePermanent(hWnd), nullptr);

    const Events expected = {"WM_NCCREATE", "WM_CREATE", "WM_SIZE", "WM_DESTROY", "WM_NCDESTROY", "PostNcDestroy"};
    EXPECT_EQ(wnd.events, expected);
}

TEST_F(WndTest, CreateFailsWhenOnCreateRefuses)
{
    CRecordingWnd wnd;
    wnd.failCreate = 1;
    EXPECT_FALSE(wnd.CreateTopLevel());
    EXPECT_EQ(wnd.m_hWnd, nullptr);
    EXPECT_TRUE(wnd.postNcDestroyCalled);
    const Events expected = {"WM_NCCREATE", "WM_CREATE", "WM_NCDESTROY"};
    EXPECT_EQ(Only(wnd.events, {"WM_NCCREATE", "WM_CREATE", "WM_NCDESTROY"}), expected);
}

TEST_F(WndTest, GeneralAndRegisteredMessagesReachTheirHandlers)
{
    CRecordingWnd wnd;
    ASSERT_TRUE(wnd.CreateTopLevel());
    wnd.events.clear();

    EXPECT_EQ(wnd.SendMessage(kPrivateMessage, 5, 6), 1234);
    EXPECT_EQ(wnd.SendMessage(g_registeredMessage, 8, 0), 99);
    ASSERT_EQ(wnd.SetTimer(3, 1), 3u);
    MSG msg;
    while (wnd.events.size() < 3 && ::GetMessageA(&msg, nullptr, 0, 0)) {
        ::TranslateMessage(&msg);
        ::DispatchMessageA(&msg);
    }
    const Events expected = {"private 5 6", "registered 8", "WM_TIMER 3"};
    EXPECT_EQ(wnd.events, expected);
    wnd.DestroyWindow();
}

TEST_F(WndTest, DefaultCreateUsesTheFrameworksWindowClass)
{
    CWnd parent;
    ASSERT_TRUE(parent.CreateEx(0, nullptr, "Eltern", WS_POPUP, 0, 0, 100, 100, nullptr, nullptr));
    CWnd child;
    ASSERT_TRUE(child.Create(nullptr, "Kind", WS_VISIBLE, CRect(0, 0, 10, 10), &parent, kChildId));
    char className[64] = {};
    ::GetClassNameA(child.m_hWnd, className, sizeof(className));
    EXPECT_STREQ(className, "AfxWnd");
    EXPECT_TRUE(child.GetStyle() & WS_CHILD);
    EXPECT_EQ(parent.GetDescendantWindow(kChildId, TRUE), &child);
    parent.DestroyWindow();
    // The child went with its parent.
    EXPECT_EQ(child.m_hWnd, nullptr);
}

// A window whose map names a handler for each way an entry unpacks its
// message; each handler records its name and the arguments it was given.
class CEveryMessageWnd : public CWnd
{
public:
    Events events;

protected:
    void Add(const std::string& e) { events.push_back(e); }
    static std::string P(CPoint p) { return std::to_string(p.x) + "," + std::to_string(p.y); }
    static std::string W(CWnd* pWnd) { return pWnd != nullptr ? "wnd" : "null"; }
    static std::string N(UINT n) { return std::to_string(n); }

    afx_msg void OnSizing(UINT nSide, LPRECT) { Add("OnSizing " + N(nSide)); }
    afx_msg void OnMove(int x, int y) { Add("OnMove " + P(CPoint(x, y))); }
    afx_msg BOOL OnEraseBkgnd(CDC* pDC)
    {
        Add("OnEraseBkgnd " + std::string(pDC != nullptr ? "dc" : "null"));
        return TRUE;
    }
    afx_msg void OnKeyDown(UINT c, UINT r, UINT f) { Add("OnKeyDown " + N(c) + " " + N(r) + " " + N(f)); }
    afx_msg void OnLButtonDown(UINT f, CPoint p) { Add("OnLButtonDown " + N(f) + " " + P(p)); }
    afx_msg BOOL OnMouseWheel(UINT f, short z, CPoint p)
    {
        Add("OnMouseWheel " + N(f) + " " + std::to_string(z) + " " + P(p));
        return TRUE;
    }
    afx_msg int OnMouseActivate(CWnd* w, UINT h, UINT m)
    {
        Add("OnMouseActivate " + W(w) + " " + N(h) + " " + N(m));
        return MA_NOACTIVATE;
    }
    afx_msg void OnSetFocus(CWnd* w) { Add("OnSetFocus " + W(w)); }
    afx_msg void OnEnterIdle(UINT why, CWnd* w) { Add("OnEnterIdle " + N(why) + " " + W(w)); }
    afx_msg BOOL OnHelpInfo(HELPINFO* p)
    {
        Add("OnHelpInfo " + std::to_string(p->iCtrlId));
        return TRUE;
    }
    afx_msg void OnContextMenu(CWnd* w, CPoint p) { Add("OnContextMenu " + W(w) + " " + P(p)); }
    afx_msg void OnActivate(UINT s, CWnd* w, BOOL m)
    {
        Add("OnActivate " + N(s) + " " + W(w) + " " + std::to_string(m));
    }
    afx_msg LRESULT OnNcHitTest(CPoint p)
    {
        Add("OnNcHitTest " + P(p));
        return HTCAPTION;
    }
    afx_msg void OnSettingChange(UINT f, LPCTSTR s) { Add("OnSettingChange " + N(f) + " " + s); }
    afx_msg void OnMDIActivate(BOOL b, CWnd* a, CWnd* d)
    {
        Add("OnMDIActivate " + std::to_string(b) + " " + W(a) + " " + W(d));
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CEveryMessageWnd, CWnd)
    ON_WM_SIZING()
    ON_WM_MOVE()
    ON_WM_ERASEBKGND()
    ON_WM_KEYDOWN()
    ON_WM_LBUTTONDOWN()
    ON_WM_MOUSEWHEEL()
    ON_WM_MOUSEACTIVATE()
    ON_WM_SETFOCUS()
    ON_WM_ENTERIDLE()
    ON_WM_HELPINFO()
    ON_WM_CONTEXTMENU()
    ON_WM_ACTIVATE()
    ON_WM_NCHITTEST()
    ON_WM_SETTINGCHANGE()
    ON_WM_MDIACTIVATE()
END_MESSAGE_MAP()

// One entry of each unpacking form: signed points, words split from wParam
// or lParam, temporary window and DC objects (NULL for a NULL handle),
// pointers to structures, and the handler's result or the entry's own.
TEST_F(WndTest, WindowMessageEntriesUnpackTheirArguments)
{
    CEveryMessageWnd wnd;
    ASSERT_TRUE(wnd.CreateEx(0, nullptr, "Alles", WS_POPUP, 0, 0, 100, 100, nullptr, nullptr));
    wnd.events.clear();
    const HWND self = wnd.m_hWnd;
    const LPARAM point = MAKELPARAM(-5, 7);
    const LPARAM selfParam = reinterpret_cast<LPARAM>(self);
    const WPARAM selfWParam = reinterpret_cast<WPARAM>(self);
    CClientDC dc(&wnd);
    RECT rect = {0, 0, 1, 1};
    HELPINFO help = {sizeof(HELPINFO), HELPINFO_WINDOW, 55, nullptr, 0, {0, 0}};
    char section[] = "intl";

    struct Case
    {
        UINT message;
        WPARAM wParam;
        LPARAM lParam;
        const char* handled;
        LRESULT result;
    } cases[] = {
        {WM_SIZING, WMSZ_LEFT, reinterpret_cast<LPARAM>(&rect), "OnSizing 1", TRUE},
        {WM_MOVE, 0, point, "OnMove -5,7", 0},
        {WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc.m_hDC), 0, "OnEraseBkgnd dc", TRUE},
        {WM_KEYDOWN, 'A', MAKELPARAM(3, 0x1E), "OnKeyDown 65 3 30", 0},
        {WM_LBUTTONDOWN, MK_LBUTTON, point, "OnLButtonDown 1 -5,7", 0},
        {WM_MOUSEWHEEL, MAKEWPARAM(MK_SHIFT, -120), point, "OnMouseWheel 4 -120 -5,7", TRUE},
        {WM_MOUSEACTIVATE, selfWParam, MAKELPARAM(HTCLIENT, WM_LBUTTONDOWN), "OnMouseActivate wnd 1 513",
         MA_NOACTIVATE},
        {WM_SETFOCUS, 0, 0, "OnSetFocus null", 0},
        {WM_ENTERIDLE, MSGF_DIALOGBOX, selfParam, "OnEnterIdle 0 wnd", 0},
        {WM_HELP, 0, reinterpret_cast<LPARAM>(&help), "OnHelpInfo 55", TRUE},
        {WM_CONTEXTMENU, selfWParam, point, "OnContextMenu wnd -5,7", 0},
        {WM_ACTIVATE, MAKEWPARAM(WA_CLICKACTIVE, TRUE), 0, "OnActivate 2 null 1", 0},
        {WM_NCHITTEST, 0, point, "OnNcHitTest -5,7", HTCAPTION},
        {WM_SETTINGCHANGE, 5, reinterpret_cast<LPARAM>(section), "OnSettingChange 5 intl", 0},
        // The receiving child is activated when lParam names it.
        {WM_MDIACTIVATE, 0, selfParam, "OnMDIActivate 1 wnd null", 0},
    };
    for (const Case& c : cases) {
        wnd.events.clear();
        const LRESULT result = ::SendMessageA(self, c.message, c.wParam, c.lParam);
        EXPECT_EQ(wnd.events, Events{c.handled}) << std::hex << c.message;
        EXPECT_EQ(result, c.result) << c.handled;
    }
    wnd.DestroyWindow();
}

// A control whose class takes every reflected message.
class CReflectingChild : public CWnd
{
public:
    Events events;
    UINT updatedId = 0;

protected:
    afx_msg void DrawItem(LPDRAWITEMSTRUCT p) { events.push_back("DrawItem " + std::to_string(p->itemID)); }
    afx_msg void MeasureItem(LPMEASUREITEMSTRUCT p)
    {
        events.push_back("MeasureItem");
        p->itemHeight = 21;
    }
    afx_msg int CompareItem(LPCOMPAREITEMSTRUCT)
    {
        events.push_back("CompareItem");
        return -1;
    }
    afx_msg void DeleteItem(LPDELETEITEMSTRUCT p) { events.push_back("DeleteItem " + std::to_string(p->itemID)); }
    afx_msg void HScroll(UINT code, UINT pos)
    {
        events.push_back("HScroll " + std::to_string(code) + " " + std::to_string(pos));
    }
    afx_msg void VScroll(UINT code, UINT pos)
    {
        events.push_back("VScroll " + std::to_string(code) + " " + std::to_string(pos));
    }
    afx_msg void ParentNotify(UINT message, LPARAM)
    {
        events.push_back("ParentNotify " + std::to_string(LOWORD(message)));
    }
    afx_msg void OnUpdateSelf(CCmdUI* pCmdUI)
    {
        updatedId = pCmdUI->m_nID;
        pCmdUI->Enable(FALSE);
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CReflectingChild, CWnd)
    ON_WM_DRAWITEM_REFLECT()
    ON_WM_MEASUREITEM_REFLECT()
    ON_WM_COMPAREITEM_REFLECT()
    ON_WM_DELETEITEM_REFLECT()
    ON_WM_HSCROLL_REFLECT()
    ON_WM_VSCROLL_REFLECT()
    ON_WM_PARENTNOTIFY_REFLECT()
    ON_UPDATE_COMMAND_UI_REFLECT(OnUpdateSelf)
END_MESSAGE_MAP()

TEST_F(WndTest, ReflectedOwnerDrawScrollAndUpdateMessagesReachTheChild)
{
    CWnd parent;
    ASSERT_TRUE(parent.CreateEx(0, nullptr, "Eltern", WS_POPUP, 0, 0, 200, 100, nullptr, nullptr));
    CReflectingChild child;
    ASSERT_TRUE(child.Create(nullptr, "", WS_VISIBLE, CRect(0, 0, 50, 50), &parent, kChildId));
    const HWND hChild = child.m_hWnd;
    const LPARAM childParam = reinterpret_cast<LPARAM>(hChild);

    DRAWITEMSTRUCT draw = {ODT_BUTTON, kChildId, 3, ODA_DRAWENTIRE, 0, hChild, nullptr, {0, 0, 1, 1}, 0};
    MEASUREITEMSTRUCT measure = {ODT_LISTBOX, kChildId, 0, 0, 0, 0};
    COMPAREITEMSTRUCT compare = {ODT_LISTBOX, kChildId, hChild, 0, 0, 1, 0, 0};
    DELETEITEMSTRUCT deleted = {ODT_LISTBOX, kChildId, 9, hChild, 0};
    struct Case
    {
        UINT message;
        WPARAM wParam;
        LPARAM lParam;
        const char* handled;
        LRESULT result;
    } cases[] = {
        {WM_DRAWITEM, kChildId, reinterpret_cast<LPARAM>(&draw), "DrawItem 3", TRUE},
        {WM_MEASUREITEM, kChildId, reinterpret_cast<LPARAM>(&measure), "MeasureItem", TRUE},
        {WM_COMPAREITEM, kChildId, reinterpret_cast<LPARAM>(&compare), "CompareItem", -1},
        {WM_DELETEITEM, kChildId, reinterpret_cast<LPARAM>(&deleted), "DeleteItem 9", TRUE},
        {WM_HSCROLL, SB_LINEDOWN, childParam, "HScroll 1 0", 0},
        {WM_VSCROLL, MAKEWPARAM(SB_THUMBPOSITION, 7), childParam, "VScroll 4 7", 0},
        {WM_PARENTNOTIFY, MAKEWPARAM(WM_CREATE, kChildId), childParam, "ParentNotify 1", 0},
    };
    for (const Case& c : cases) {
        child.events.clear();
        EXPECT_EQ(parent.SendMessage(c.message, c.wParam, c.lParam), c.result) << c.handled;
        EXPECT_EQ(child.events, Events{c.handled});
    }
    EXPECT_EQ(measure.itemHeight, 21u);

    parent.UpdateDialogControls(&parent, FALSE);
    EXPECT_EQ(child.updatedId, static_cast<UINT>(kChildId));
    EXPECT_FALSE(child.IsWindowEnabled());
    parent.DestroyWindow();
}

// ---- Handle maps ----

HWND CreateForeignWindow(HWND parent = nullptr)
{
    return ::CreateWindowExA(0, "STATIC", "fremd", parent != nullptr ? WS_CHILD : WS_POPUP, 0, 0, 50, 20, parent,
                             nullptr, nullptr, nullptr);
}

TEST_F(WndTest, ForeignWindowsGetTemporaryObjects)
{
    const HWND foreign = CreateForeignWindow();
    ASSERT_NE(foreign, nullptr);
    EXPECT_EQ(CWnd::FromHandlePermanent(foreign), nullptr);
    CWnd* temp = CWnd::FromHandle(foreign);
    ASSERT_NE(temp, nullptr);
    EXPECT_EQ(temp->m_hWnd, foreign);
    EXPECT_EQ(CWnd::FromHandle(foreign), temp);
    EXPECT_EQ(CWnd::FromHandlePermanent(foreign), nullptr);
    EXPECT_EQ(AfxGetTempObjectCount(), 1);
    EXPECT_EQ(CWnd::FromHandle(nullptr), nullptr);

    AfxDeleteTempMap();
    EXPECT_EQ(AfxGetTempObjectCount(), 0);
    // The window itself lives on.
    EXPECT_TRUE(::IsWindow(foreign));

    // Locked maps survive the idle clean-up until the last unlock.
    AfxLockTempMaps();
    CWnd::FromHandle(foreign);
    AfxDeleteTempMap();
    EXPECT_EQ(AfxGetTempObjectCount(), 1);
    EXPECT_TRUE(AfxUnlockTempMaps());
    EXPECT_EQ(AfxGetTempObjectCount(), 0);
    ::DestroyWindow(foreign);
}

TEST_F(WndTest, AttachAndDetachMakeAndUnmakeThePermanentObject)
{
    const HWND foreign = CreateForeignWindow();
    CWnd wnd;
    ASSERT_TRUE(wnd.Attach(foreign));
    EXPECT_EQ(CWnd::FromHandlePermanent(foreign), &wnd);
    EXPECT_EQ(CWnd::FromHandle(foreign), &wnd);
    EXPECT_EQ(AfxGetTempObjectCount(), 0);
    EXPECT_FALSE(wnd.Attach(nullptr));

    EXPECT_EQ(wnd.Detach(), foreign);
    EXPECT_EQ(wnd.m_hWnd, nullptr);
    EXPECT_EQ(CWnd::FromHandlePermanent(foreign), nullptr);
    EXPECT_TRUE(::IsWindow(foreign));
    ::DestroyWindow(foreign);
}

// Windows of the calling thread, children included.
int CountThreadWindows()
{
    int count = 0;
    ::EnumThreadWindows(
        ::GetCurrentThreadId(),
        [](HWND hWnd, LPARAM lParam) -> BOOL {
            auto* n = reinterpret_cast<int*>(lParam);
            ++*n;
            ::EnumChildWindows(
                hWnd,
                [](HWND, LPARAM inner) -> BOOL {
                    ++*reinterpret_cast<int*>(inner);
                    return TRUE;
                },
                lParam);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&count));
    return count;
}

// GDI objects of the process, counted by handle value.
int CountGdiObjects()
{
    int count = 0;
    for (ULONG_PTR h = 1; h <= 0xFFFF; ++h) {
        if (::GetObjectType(reinterpret_cast<HGDIOBJ>(h)) != 0)
            ++count;
    }
    return count;
}

TEST_F(WndTest, TemporaryObjectsGoAtIdleWithoutGrowthOverRounds)
{
    CWnd parent;
    ASSERT_TRUE(parent.CreateEx(0, nullptr, "Eltern", WS_POPUP, 0, 0, 200, 200, nullptr, nullptr));
    std::vector<HWND> children;
    for (int i = 0; i < 5; ++i)
        children.push_back(CreateForeignWindow(parent.m_hWnd));

    const auto round = [&] {
        for (HWND child : children)
            EXPECT_EQ(CWnd::FromHandle(child)->GetParent(), &parent);
        CDC* pDC = parent.GetDC();
        CPen pen(PS_SOLID, 1, RGB(1, 2, 3));
        CPen* oldPen = pDC->SelectObject(&pen);
        EXPECT_NE(oldPen, nullptr);
        pDC->SelectObject(oldPen);
        EXPECT_NE(pDC->GetCurrentFont(), nullptr);
        parent.ReleaseDC(pDC);
        EXPECT_GE(AfxGetTempObjectCount(), 7);
        // The thread's idle processing deletes them.
        CWinThread* thread = AfxGetThread();
        ASSERT_NE(thread, nullptr);
        LONG count = 0;
        while (thread->OnIdle(count++)) {
        }
        EXPECT_EQ(AfxGetTempObjectCount(), 0);
    };

    round();  // The first use of some calls leaves objects for good.
    const int windows = CountThreadWindows();
    const int gdiObjects = CountGdiObjects();
    for (int i = 0; i < 5; ++i)
        round();
    EXPECT_EQ(CountThreadWindows(), windows);
    EXPECT_EQ(CountGdiObjects(), gdiObjects);
    parent.DestroyWindow();
}

// ---- Subclassing ----

// An edit control that drops 'x' and passes everything else on.
class CFilterEdit : public CEdit
{
public:
    std::string seen;
    Events subclassEvents;

protected:
    void PreSubclassWindow() override { subclassEvents.push_back("PreSubclassWindow"); }
    afx_msg void OnChar(UINT nChar, UINT nRepCnt, UINT nFlags)
    {
        seen.push_back(static_cast<char>(nChar));
        if (nChar != 'x')
            CEdit::OnChar(nChar, nRepCnt, nFlags);
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CFilterEdit, CEdit)
    ON_WM_CHAR()
END_MESSAGE_MAP()

TEST_F(WndTest, SubclassedControlRunsHandlersAndDefaultPassesOn)
{
    CWnd parent;
    ASSERT_TRUE(parent.CreateEx(0, nullptr, "Eltern", WS_POPUP, 0, 0, 200, 200, nullptr, nullptr));
    const HWND edit = ::CreateWindowExA(0, "EDIT", "", WS_CHILD | WS_VISIBLE, 0, 0, 150, 20, parent.m_hWnd,
                                        reinterpret_cast<HMENU>(static_cast<INT_PTR>(kChildId)), nullptr, nullptr);
    const LONG_PTR original = ::GetWindowLongPtrA(edit, GWLP_WNDPROC);

    CFilterEdit filter;
    ASSERT_TRUE(filter.SubclassDlgItem(kChildId, &parent));
    EXPECT_EQ(filter.subclassEvents, Events{"PreSubclassWindow"});
    EXPECT_EQ(reinterpret_cast<WNDPROC>(::GetWindowLongPtrA(edit, GWLP_WNDPROC)), &AfxWndProc);
    EXPECT_EQ(CWnd::FromHandlePermanent(edit), &filter);
    // A window that has an object already is not taken twice.
    CEdit second;
    EXPECT_FALSE(second.SubclassWindow(edit));

    for (char ch : std::string("axbx"))
        ::SendMessageA(edit, WM_CHAR, static_cast<WPARAM>(ch), 1);
    EXPECT_EQ(filter.seen, "axbx");
    CString text;
    filter.GetWindowText(text);
    EXPECT_STREQ(text, "ab");

    EXPECT_EQ(filter.UnsubclassWindow(), edit);
    EXPECT_EQ(::GetWindowLongPtrA(edit, GWLP_WNDPROC), original);
    EXPECT_EQ(CWnd::FromHandlePermanent(edit), nullptr);
    ::SendMessageA(edit, WM_CHAR, 'z', 1);
    EXPECT_EQ(filter.seen, "axbx");
    parent.DestroyWindow();
}

// ---- Reflection ----

// A static control that colours itself through the reflected WM_CTLCOLOR.
class CColourStatic : public CStatic
{
public:
    CBrush brush{RGB(255, 0, 0)};
    bool giveBrush = true;
    std::vector<UINT> ctlColors;

protected:
    afx_msg HBRUSH CtlColor(CDC* pDC, UINT nCtlColor)
    {
        ctlColors.push_back(nCtlColor);
        if (!giveBrush)
            return nullptr;
        pDC->SetBkColor(RGB(255, 0, 0));
        return brush;
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CColourStatic, CStatic)
    ON_WM_CTLCOLOR_REFLECT()
END_MESSAGE_MAP()

// A parent with its own WM_CTLCOLOR handler that asks the base first.
class CColourParent : public CWnd
{
public:
    CBrush brush{RGB(0, 0, 255)};
    Events events;

protected:
    afx_msg HBRUSH OnCtlColor(CDC* pDC, CWnd* pWnd, UINT nCtlColor)
    {
        events.push_back("parent OnCtlColor");
        HBRUSH fromBase = CWnd::OnCtlColor(pDC, pWnd, nCtlColor);
        const HBRUSH systemBrush = reinterpret_cast<HBRUSH>(Default());
        return fromBase != systemBrush ? fromBase : static_cast<HBRUSH>(brush);
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CColourParent, CWnd)
    ON_WM_CTLCOLOR()
END_MESSAGE_MAP()

TEST_F(WndTest, ReflectedCtlColorLetsTheControlDecideBeforeItsParent)
{
    CColourParent parent;
    ASSERT_TRUE(parent.CreateEx(0, nullptr, "Eltern", WS_POPUP | WS_VISIBLE, 0, 0, 200, 100, nullptr, nullptr));
    CColourStatic label;
    ASSERT_TRUE(label.Create("", WS_CHILD | WS_VISIBLE | SS_LEFT, CRect(10, 10, 110, 40), &parent, kChildId));

    // The control paints itself and asks its parent for a brush.
    label.RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
    ASSERT_FALSE(label.ctlColors.empty());
    EXPECT_EQ(label.ctlColors.back(), static_cast<UINT>(CTLCOLOR_STATIC));
    CClientDC labelDC(&label);
    EXPECT_EQ(labelDC.GetPixel(50, 15), RGB(255, 0, 0));

    parent.events.clear();
    label.ctlColors.clear();
    CClientDC dc(&parent);
    const auto ask = [&] {
        return reinterpret_cast<HBRUSH>(parent.SendMessage(WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(dc.m_hDC),
                                                           reinterpret_cast<LPARAM>(label.m_hWnd)));
    };

    EXPECT_EQ(ask(), static_cast<HBRUSH>(label.brush));
    label.giveBrush = false;
    EXPECT_EQ(ask(), static_cast<HBRUSH>(parent.brush));
    EXPECT_EQ(parent.events, (Events{"parent OnCtlColor", "parent OnCtlColor"}));
    EXPECT_EQ(label.ctlColors.size(), 2u);
    parent.DestroyWindow();
}

// A list view's object that takes some of its own notifications.
class CNotifyChild : public CWnd
{
public:
    Events* events = nullptr;
    BOOL passInsertOn = FALSE;

protected:
    afx_msg void OnDeleteAll(NMHDR* pNMHDR, LRESULT* pResult)
    {
        events->push_back("child LVN_DELETEALLITEMS");
        *pResult = TRUE;  // no per-item LVN_DELETEITEM
    }
    afx_msg BOOL OnInsert(NMHDR*, LRESULT*)
    {
        events->push_back("child LVN_INSERTITEM");
        return !passInsertOn;
    }
    afx_msg void OnTextChange() { events->push_back("child EN_CHANGE"); }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CNotifyChild, CWnd)
    ON_NOTIFY_REFLECT(LVN_DELETEALLITEMS, OnDeleteAll)
    ON_NOTIFY_REFLECT_EX(LVN_INSERTITEM, OnInsert)
    ON_CONTROL_REFLECT(EN_CHANGE, OnTextChange)
END_MESSAGE_MAP()

class CNotifyParent : public CWnd
{
public:
    Events events;

protected:
    afx_msg void OnInsert(NMHDR* pNMHDR, LRESULT*)
    {
        events.push_back("parent LVN_INSERTITEM " + std::to_string(pNMHDR->idFrom));
    }
    afx_msg void OnDeleteItem(NMHDR*, LRESULT*) { events.push_back("parent LVN_DELETEITEM"); }
    afx_msg void OnDeleteAll(NMHDR*, LRESULT*) { events.push_back("parent LVN_DELETEALLITEMS"); }
    afx_msg void OnTextChange() { events.push_back("parent EN_CHANGE"); }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CNotifyParent, CWnd)
    ON_NOTIFY(LVN_INSERTITEM, kChildId, OnInsert)
    ON_NOTIFY(LVN_DELETEITEM, kChildId, OnDeleteItem)
    ON_NOTIFY(LVN_DELETEALLITEMS, kChildId, OnDeleteAll)
    ON_EN_CHANGE(kChildId + 1, OnTextChange)
END_MESSAGE_MAP()

TEST_F(WndTest, ReflectedNotificationsReachTheChildAndTheParentWhenLeft)
{
    CNotifyParent parent;
    ASSERT_TRUE(parent.CreateEx(0, nullptr, "Eltern", WS_POPUP, 0, 0, 300, 200, nullptr, nullptr));
    const HWND list =
        ::CreateWindowExA(0, WC_LISTVIEWA, "", WS_CHILD | WS_VISIBLE | LVS_REPORT, 0, 0, 200, 100, parent.m_hWnd,
                          reinterpret_cast<HMENU>(static_cast<INT_PTR>(kChildId)), nullptr, nullptr);
    const HWND edit = ::CreateWindowExA(0, "EDIT", "", WS_CHILD | WS_VISIBLE, 0, 120, 200, 20, parent.m_hWnd,
                                        reinterpret_cast<HMENU>(static_cast<INT_PTR>(kChildId + 1)), nullptr, nullptr);
    LVCOLUMNA column = {};
    column.mask = LVCF_WIDTH;
    column.cx = 100;
    ::SendMessageA(list, LVM_INSERTCOLUMNA, 0, reinterpret_cast<LPARAM>(&column));
    const auto insert = [&] {
        LVITEMA item = {};
        item.mask = LVIF_TEXT;
        item.pszText = const_cast<char*>("Zeile");
        ::SendMessageA(list, LVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&item));
    };

    // Without an object for the controls, the parent's handlers run.
    insert();
    ::SetWindowTextA(edit, "a");
    ::SendMessageA(list, LVM_DELETEALLITEMS, 0, 0);
    EXPECT_EQ(parent.events, (Events{"parent LVN_INSERTITEM 100", "parent EN_CHANGE", "parent LVN_DELETEALLITEMS",
                                     "parent LVN_DELETEITEM"}));

    Events childEvents;
    CNotifyChild listObject;
    listObject.events = &childEvents;
    ASSERT_TRUE(listObject.SubclassWindow(list));
    CNotifyChild editObject;
    editObject.events = &childEvents;
    ASSERT_TRUE(editObject.SubclassWindow(edit));
    parent.events.clear();

    insert();  // the child takes it
    listObject.passInsertOn = TRUE;
    insert();                                        // the child looks and passes it on
    ::SetWindowTextA(edit, "b");                     // the child takes the command
    ::SendMessageA(list, LVM_DELETEALLITEMS, 0, 0);  // the child takes it, no per-item notes
    EXPECT_EQ(childEvents,
              (Events{"child LVN_INSERTITEM", "child LVN_INSERTITEM", "child EN_CHANGE", "child LVN_DELETEALLITEMS"}));
    EXPECT_EQ(parent.events, Events{"parent LVN_INSERTITEM 100"});
    parent.DestroyWindow();
}

// An owner-drawn button that records its drawing.
class COwnerDrawButton : public CButton
{
public:
    std::vector<UINT> drawnIds;

    void DrawItem(LPDRAWITEMSTRUCT lpDIS) override
    {
        drawnIds.push_back(lpDIS->CtlID);
        CDC* pDC = CDC::FromHandle(lpDIS->hDC);
        pDC->FillSolidRect(&lpDIS->rcItem, RGB(0, 128, 0));
    }
};

TEST_F(WndTest, OwnerDrawReachesTheButtonsDrawItem)
{
    CWnd parent;
    ASSERT_TRUE(parent.CreateEx(0, nullptr, "Eltern", WS_POPUP | WS_VISIBLE, 0, 0, 200, 100, nullptr, nullptr));
    COwnerDrawButton button;
    ASSERT_TRUE(button.Create("Knopf", WS_CHILD | WS_VISIBLE | BS_OWNERDRAW, CRect(10, 10, 90, 40), &parent, kChildId));
    button.RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    ASSERT_FALSE(button.drawnIds.empty());
    EXPECT_EQ(button.drawnIds.back(), static_cast<UINT>(kChildId));
    CClientDC dc(&button);
    EXPECT_EQ(dc.GetPixel(40, 15), RGB(0, 128, 0));
    parent.DestroyWindow();
}

// ---- Command routing ----

class CCommandWnd : public CWnd
{
public:
    Events events;
    BOOL exTakes = FALSE;
    BOOL disable = TRUE;

protected:
    afx_msg void OnRange(UINT nID) { events.push_back("range " + std::to_string(nID - kFirstRangeCommand)); }
    afx_msg void OnUpdateRange(CCmdUI* pCmdUI)
    {
        pCmdUI->Enable(pCmdUI->m_nID != kFirstRangeCommand + 1);
        pCmdUI->SetCheck(pCmdUI->m_nID == kFirstRangeCommand + 2);
        pCmdUI->SetText(pCmdUI->m_nID == kFirstRangeCommand + 3 ? "Vier" : "x");
    }
    afx_msg BOOL OnEx(UINT nID)
    {
        events.push_back("ex");
        return exTakes;
    }
    afx_msg void OnDisabled() { events.push_back("disabled command ran"); }
    afx_msg void OnUpdateDisabled(CCmdUI* pCmdUI) { pCmdUI->Enable(!disable); }
    DECLARE_MESSAGE_MAP()
};

// Its EX handler sits in front of the base map's plain handler.
class CDerivedCommandWnd : public CCommandWnd
{
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CCommandWnd, CWnd)
    ON_COMMAND_RANGE(kFirstRangeCommand, kLastRangeCommand, OnRange)
    ON_UPDATE_COMMAND_UI_RANGE(kFirstRangeCommand, kLastRangeCommand, OnUpdateRange)
    ON_COMMAND(kExCommand, OnDisabled)
    ON_COMMAND(kDisabledCommand, OnDisabled)
    ON_UPDATE_COMMAND_UI(kDisabledCommand, OnUpdateDisabled)
END_MESSAGE_MAP()

BEGIN_MESSAGE_MAP(CDerivedCommandWnd, CCommandWnd)
    ON_COMMAND_EX(kExCommand, OnEx)
END_MESSAGE_MAP()

TEST_F(WndTest, CommandRangesAndExHandlersRouteAsDeclared)
{
    CDerivedCommandWnd wnd;
    ASSERT_TRUE(wnd.CreateEx(0, nullptr, "Befehle", WS_POPUP, 0, 0, 100, 100, nullptr, nullptr));
    for (UINT id : {kFirstRangeCommand, kLastRangeCommand, kFirstRangeCommand + 2})
        EXPECT_EQ(wnd.SendMessage(WM_COMMAND, id, 0), 1);
    // A declining EX handler leaves the command unhandled by this target;
    // routing goes on to the next target, not to the base class's map.
    EXPECT_EQ(wnd.SendMessage(WM_COMMAND, kExCommand, 0), 0);
    wnd.exTakes = TRUE;
    EXPECT_EQ(wnd.SendMessage(WM_COMMAND, kExCommand, 0), 1);
    // A menu command that its update handler disables is eaten unrun.
    EXPECT_EQ(wnd.SendMessage(WM_COMMAND, kDisabledCommand, 0), 1);
    EXPECT_EQ(wnd.SendMessage(WM_COMMAND, kFirstRangeCommand + 1, 0), 1);
    wnd.disable = FALSE;
    wnd.SendMessage(WM_COMMAND, kDisabledCommand, 0);
    const Events expected = {"range 0", "range 4", "range 2", "ex", "ex", "disabled command ran"};
    EXPECT_EQ(wnd.events, expected);
    wnd.DestroyWindow();
}

TEST_F(WndTest, UpdateDialogControlsSetsControlStateFromHandlers)
{
    CCommandWnd wnd;
    ASSERT_TRUE(wnd.CreateEx(0, nullptr, "Befehle", WS_POPUP, 0, 0, 300, 100, nullptr, nullptr));
    std::vector<CButton*> buttons;
    for (UINT i = 0; i < 4; ++i) {
        auto* button = new CButton;
        const DWORD style = WS_CHILD | WS_VISIBLE | (i == 2 ? BS_CHECKBOX : BS_PUSHBUTTON);
        ASSERT_TRUE(button->Create("b", style, CRect(i * 60, 0, i * 60 + 50, 20), &wnd, kFirstRangeCommand + i));
        buttons.push_back(button);
    }
    auto* orphan = new CButton;
    ASSERT_TRUE(orphan->Create("o", WS_CHILD | BS_PUSHBUTTON, CRect(0, 30, 50, 50), &wnd, 0x8300));

    wnd.UpdateDialogControls(&wnd, TRUE);
    EXPECT_TRUE(buttons[0]->IsWindowEnabled());
    EXPECT_FALSE(buttons[1]->IsWindowEnabled());
    EXPECT_EQ(buttons[2]->GetCheck(), BST_CHECKED);
    CString text;
    buttons[3]->GetWindowText(text);
    EXPECT_STREQ(text, "Vier");
    // No handler for the command at all: disabled.
    EXPECT_FALSE(orphan->IsWindowEnabled());

    wnd.DestroyWindow();
    for (CButton* button : buttons)
        delete button;
    delete orphan;
}

// ---- Exceptions in handlers ----

// A window whose handlers throw what wParam chooses; its OnCreate throws
// when asked to.
class CThrowingWnd : public CWnd
{
public:
    bool throwOnCreate = false;

protected:
    afx_msg int OnCreate(LPCREATESTRUCT lpcs)
    {
        if (throwOnCreate)
            throw std::runtime_error("Fenster kaputt");
        return CWnd::OnCreate(lpcs);
    }
    afx_msg LRESULT OnThrow(WPARAM wParam, LPARAM)
    {
        switch (wParam) {
        case 0:
            AfxThrowUserException();
        case 1:
            AfxThrowNotSupportedException();
        case 2:
            AfxThrowMemoryException();
        case 3:
            throw std::runtime_error("Laufzeitfehler");
        case 4:
            throw std::bad_alloc();
        default:
            throw 42;
        }
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CThrowingWnd, CWnd)
    ON_WM_CREATE()
    ON_MESSAGE(kPrivateMessage, OnThrow)
END_MESSAGE_MAP()

TEST_F(WndTest, ExceptionsStopAtTheWindowProcedure)
{
    CThrowingWnd wnd;
    ASSERT_TRUE(wnd.CreateEx(0, nullptr, "Ausnahmen", WS_POPUP, 0, 0, 100, 100, nullptr, nullptr));
    struct
    {
        WPARAM kind;
        const char* box;  // NULL: none
    } cases[] = {
        {0, nullptr},  // a user exception: the user has been told
        {1, "An unsupported operation was attempted."},
        {2, "Out of memory."},
        {3, "Laufzeitfehler"},
        {4, "Out of memory."},
        {5, "Internal application error."},  // not even a std::exception
    };
    for (const auto& c : cases) {
        CTestApp::Get().Reset();
        EXPECT_EQ(wnd.SendMessage(kPrivateMessage, c.kind, 0), 0) << c.kind;
        const auto& boxes = CTestApp::Get().MessageBoxes();
        ASSERT_EQ(boxes.size(), c.box != nullptr ? 1u : 0u) << c.kind;
        if (c.box != nullptr) {
            EXPECT_STREQ(boxes[0].text, c.box) << c.kind;
        }
        EXPECT_TRUE(::IsWindow(wnd.m_hWnd)) << c.kind;
    }
    wnd.DestroyWindow();

    CTestApp::Get().Reset();
    CThrowingWnd failing;
    failing.throwOnCreate = true;
    EXPECT_FALSE(failing.CreateEx(0, nullptr, "Kaputt", WS_POPUP, 0, 0, 100, 100, nullptr, nullptr));
    ASSERT_EQ(CTestApp::Get().MessageBoxes().size(), 1u);
    EXPECT_STREQ(CTestApp::Get().MessageBoxes()[0].text, "Fenster kaputt");
    EXPECT_EQ(failing.m_hWnd, nullptr);
}

// ---- GDI ----

class GdiTest : public WndTest
{
protected:
    void SetUp() override
    {
        WndTest::SetUp();
        CClientDC screen(nullptr);
        ASSERT_TRUE(dc.CreateCompatibleDC(&screen));
        ASSERT_TRUE(bitmap.CreateCompatibleBitmap(&screen, 64, 64));
        oldBitmap = dc.SelectObject(&bitmap);
        dc.FillSolidRect(0, 0, 64, 64, RGB(255, 255, 255));
    }
    void TearDown() override
    {
        dc.SelectObject(oldBitmap);
        WndTest::TearDown();
    }

    CDC dc;
    CBitmap bitmap;
    CBitmap* oldBitmap = nullptr;
};

TEST_F(GdiTest, SelectObjectReturnsThePreviousObjectOfItsKind)
{
    ASSERT_NE(oldBitmap, nullptr);
    EXPECT_TRUE(oldBitmap->IsKindOf(RUNTIME_CLASS(CBitmap)));
    EXPECT_EQ(CGdiObject::FromHandle(bitmap.m_hObject), &bitmap);

    CPen red(PS_SOLID, 1, RGB(255, 0, 0));
    CPen* stockPen = dc.SelectObject(&red);
    ASSERT_NE(stockPen, nullptr);
    EXPECT_EQ(stockPen->m_hObject, ::GetStockObject(BLACK_PEN));
    EXPECT_EQ(dc.SelectObject(stockPen), &red);  // the permanent object comes back

    CGdiObject* previous = dc.SelectStockObject(NULL_BRUSH);
    EXPECT_TRUE(previous->IsKindOf(RUNTIME_CLASS(CBrush)));
    CFont* font = dc.GetCurrentFont();
    ASSERT_NE(font, nullptr);
    EXPECT_TRUE(font->IsKindOf(RUNTIME_CLASS(CFont)));
}

TEST_F(GdiTest, DrawingPrimitivesReachThePixels)
{
    dc.FillSolidRect(CRect(0, 0, 10, 10), RGB(10, 20, 30));
    EXPECT_EQ(dc.GetPixel(5, 5), RGB(10, 20, 30));
    EXPECT_EQ(dc.GetPixel(10, 10), RGB(255, 255, 255));

    dc.Draw3dRect(CRect(20, 20, 30, 30), RGB(255, 0, 0), RGB(0, 0, 255));
    EXPECT_EQ(dc.GetPixel(20, 20), RGB(255, 0, 0));
    EXPECT_EQ(dc.GetPixel(29, 29), RGB(0, 0, 255));
    EXPECT_EQ(dc.GetPixel(25, 25), RGB(255, 255, 255));

    // Through gdi32's export: everything red in the source stays out.
    CDC source;
    ASSERT_TRUE(source.CreateCompatibleDC(&dc));
    CBitmap sourceBitmap;
    ASSERT_TRUE(sourceBitmap.CreateCompatibleBitmap(&dc, 4, 4));
    CBitmap* oldSource = source.SelectObject(&sourceBitmap);
    source.FillSolidRect(0, 0, 4, 4, RGB(255, 0, 0));
    source.SetPixel(0, 0, RGB(0, 0, 0));
    EXPECT_TRUE(dc.TransparentBlt(50, 0, 4, 4, &source, 0, 0, 4, 4, RGB(255, 0, 0)));
    EXPECT_EQ(dc.GetPixel(50, 0), RGB(0, 0, 0));
    EXPECT_EQ(dc.GetPixel(51, 1), RGB(255, 255, 255));
    source.SelectObject(oldSource);
}

TEST_F(GdiTest, PointFontHeightIsConvertedForTheDevice)
{
    CFont font;
    ASSERT_TRUE(font.CreatePointFont(100, "Arial"));
    LOGFONTA logFont = {};
    font.GetLogFont(&logFont);
    EXPECT_LT(logFont.lfHeight, 0);
    EXPECT_STREQ(logFont.lfFaceName, "Arial");
}

TEST_F(GdiTest, WrappersReleaseTheirObjects)
{
    const auto round = [&] {
        CPen pen(PS_DASH, 1, RGB(1, 1, 1));
        CBrush hatch(HS_CROSS, RGB(2, 2, 2));
        CFont font;
        font.CreatePointFont(90, "Tahoma");
        CRgn region;
        region.CreateEllipticRgn(0, 0, 5, 5);
        CBitmap bmp;
        bmp.CreateCompatibleBitmap(&dc, 8, 8);
        CDC memory;
        memory.CreateCompatibleDC(&dc);
        CBitmap* old = memory.SelectObject(&bmp);
        memory.SelectObject(old);
        AfxDeleteTempMap();
    };
    round();
    const int before = CountGdiObjects();
    for (int i = 0; i < 5; ++i)
        round();
    EXPECT_EQ(CountGdiObjects(), before);
}

}  // namespace
