// Controls: scroll bar, list box, combo box and the common controls
// (progress bar, tab control, image list, header, list view), filled and
// read back on real controls.
#include "test_app.h"

#include "afxcmn.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

constexpr UINT kListId = 200;
constexpr UINT kComboId = 201;
constexpr UINT kScrollId = 202;
constexpr UINT kControlId = 203;

// A parent that records which scroll bar object its scroll handlers got.
class CControlParent : public CWnd
{
public:
    std::vector<CScrollBar*> scrolledBars;
    std::vector<UINT> scrollCodes;

    BOOL CreateTopLevel()
    {
        return CreateEx(0, nullptr, "Steuerelemente", WS_POPUP | WS_VISIBLE, 0, 0, 500, 400, nullptr, nullptr);
    }

protected:
    afx_msg void OnHScroll(UINT nSBCode, UINT, CScrollBar* pScrollBar)
    {
        scrolledBars.push_back(pScrollBar);
        scrollCodes.push_back(nSBCode);
    }
    afx_msg void OnVScroll(UINT nSBCode, UINT, CScrollBar* pScrollBar)
    {
        scrolledBars.push_back(pScrollBar);
        scrollCodes.push_back(nSBCode);
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CControlParent, CWnd)
    ON_WM_HSCROLL()
    ON_WM_VSCROLL()
END_MESSAGE_MAP()

class ControlsTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        CTestApp::Get().Reset();
        ASSERT_TRUE(parent.CreateTopLevel());
    }
    void TearDown() override
    {
        parent.DestroyWindow();
        AfxDeleteTempMap();
    }

    CControlParent parent;
};

// The list box and the combo box share their item calls but for the text's.
void ItemText(const CListBox& box, int i, CString& text)
{
    box.GetText(i, text);
}
void ItemText(const CComboBox& box, int i, CString& text)
{
    box.GetLBText(i, text);
}
BOOL CreateBox(CListBox& box, CWnd* parent)
{
    return box.Create(WS_CHILD | WS_VISIBLE | WS_VSCROLL | LBS_NOTIFY, CRect(10, 10, 200, 200), parent, kListId);
}
BOOL CreateBox(CComboBox& box, CWnd* parent)
{
    return box.Create(WS_CHILD | WS_VISIBLE | CBS_DROPDOWNLIST, CRect(10, 10, 200, 200), parent, kComboId);
}

template <class Box>
std::vector<std::string> Texts(const Box& box)
{
    std::vector<std::string> texts;
    for (int i = 0; i < box.GetCount(); ++i) {
        CString text;
        ItemText(box, i, text);
        texts.emplace_back(static_cast<LPCTSTR>(text));
    }
    return texts;
}

template <class Box>
class ItemBoxTest : public ControlsTest
{};
using ItemBoxes = ::testing::Types<CListBox, CComboBox>;
TYPED_TEST_SUITE(ItemBoxTest, ItemBoxes);

static_assert(LB_ERR == CB_ERR);

// The wrappers whose arguments are packed or unpacked on the way: texts
// into a CString, data pointers, the search messages' start index.
TYPED_TEST(ItemBoxTest, FillsFindsSelectsAndDeletesItsItems)
{
    TypeParam box;
    ASSERT_TRUE(CreateBox(box, &this->parent));
    box.AddString("Birne");
    box.AddString("Apfel");
    EXPECT_EQ(box.InsertString(0, "\xC4pfelchen"), 0);
    EXPECT_EQ(box.InsertString(-1, "Banane"), 3);
    EXPECT_EQ(Texts(box), (std::vector<std::string>{"\xC4pfelchen", "Birne", "Apfel", "Banane"}));
    int payload = 7;
    box.SetItemDataPtr(2, &payload);

    struct
    {
        int start;
        const char* text;
        int prefix;
        int exact;
    } finds[] = {
        {-1, "b", 1, LB_ERR},  // prefix, case ignored
        {1, "B", 3, LB_ERR},   // after the start
        {3, "b", 1, LB_ERR},   // wraps round
        {-1, "apfel", 2, 2},   // exact, case ignored
        {-1, "Kirsche", LB_ERR, LB_ERR},
    };
    for (const auto& f : finds) {
        EXPECT_EQ(box.FindString(f.start, f.text), f.prefix) << f.text;
        EXPECT_EQ(box.FindStringExact(f.start, f.text), f.exact) << f.text;
    }
    EXPECT_EQ(box.SelectString(-1, "bir"), 1);
    EXPECT_EQ(box.GetCurSel(), 1);
    // No selection answers the error value although nothing failed.
    EXPECT_EQ(box.SetCurSel(-1), LB_ERR);
    EXPECT_EQ(box.DeleteString(0), 3);
    EXPECT_EQ(box.GetItemDataPtr(1), &payload);
}

// LB_SETSEL takes the flag first and the index second.
TEST_F(ControlsTest, MultipleSelectionListBoxReportsItsSelectedItems)
{
    CListBox box;
    ASSERT_TRUE(box.Create(WS_CHILD | WS_VISIBLE | LBS_EXTENDEDSEL, CRect(10, 10, 200, 200), &parent, kListId));
    for (const char* text : {"Anna", "Bert", "Carl", "Dora", "Emil"})
        box.AddString(text);

    box.SetSel(1);
    box.SetSel(3);
    box.SetSel(4);
    box.SetSel(4, FALSE);
    EXPECT_EQ(box.GetSelCount(), 2);
    EXPECT_GT(box.GetSel(3), 0);
    EXPECT_EQ(box.GetSel(4), 0);
    std::vector<int> selected(4, -1);
    EXPECT_EQ(box.GetSelItems(static_cast<int>(selected.size()), selected.data()), 2);
    EXPECT_EQ(selected, (std::vector<int>{1, 3, -1, -1}));
    // Room for one: one comes back.
    EXPECT_EQ(box.GetSelItems(1, selected.data()), 1);

    box.SelItemRange(TRUE, 0, 2);
    EXPECT_EQ(box.GetSelCount(), 4);
    box.SetSel(-1, FALSE);
    EXPECT_EQ(box.GetSelCount(), 0);
}

// A control's own scroll bar reaches the parent's handler as its object, the
// window's scroll bar as NULL.
TEST_F(ControlsTest, ScrollBarLimitAndTheParentsHandler)
{
    CScrollBar bar;
    ASSERT_TRUE(bar.Create(WS_CHILD | WS_VISIBLE | SBS_HORZ, CRect(10, 250, 300, 270), &parent, kScrollId));
    bar.SetScrollRange(0, 50);
    bar.SetScrollPos(20);
    SCROLLINFO info = {};
    info.fMask = SIF_PAGE;
    info.nPage = 11;
    bar.SetScrollInfo(&info);
    EXPECT_EQ(bar.GetScrollLimit(), 40);
    ASSERT_TRUE(bar.GetScrollInfo(&info));
    EXPECT_EQ(info.nPos, 20);

    parent.SendMessage(WM_HSCROLL, MAKEWPARAM(SB_LINERIGHT, 0), reinterpret_cast<LPARAM>(bar.m_hWnd));
    parent.SendMessage(WM_VSCROLL, MAKEWPARAM(SB_TOP, 0), 0);
    EXPECT_EQ(parent.scrolledBars, (std::vector<CScrollBar*>{&bar, nullptr}));
    EXPECT_EQ(parent.scrollCodes, (std::vector<UINT>{SB_LINERIGHT, SB_TOP}));
}

TEST_F(ControlsTest, ProgressRangeAndTabTextsPassThroughTheirStructures)
{
    CProgressCtrl progress;
    ASSERT_TRUE(progress.Create(WS_CHILD | WS_VISIBLE, CRect(10, 10, 300, 30), &parent, kControlId));
    progress.SetRange32(-5, 1000);
    int low = -1, high = -1;
    progress.GetRange(low, high);
    EXPECT_EQ(low, -5);
    EXPECT_EQ(high, 1000);

    CTabCtrl tabs;
    ASSERT_TRUE(tabs.Create(WS_CHILD | WS_VISIBLE, CRect(10, 40, 400, 300), &parent, kControlId + 1));
    EXPECT_EQ(tabs.InsertItem(0, "Allgemein"), 0);
    EXPECT_EQ(tabs.InsertItem(1, "Erweitert"), 1);
    EXPECT_EQ(tabs.InsertItem(1, "Farben"), 1);
    char text[32] = {};
    TCITEM item = {};
    item.mask = TCIF_TEXT;
    item.pszText = text;
    item.cchTextMax = sizeof text;
    ASSERT_TRUE(tabs.GetItem(2, &item));
    EXPECT_STREQ(text, "Erweitert");
}

TEST_F(ControlsTest, ImageListKeepsItsHandleMap)
{
    CImageList images;
    ASSERT_TRUE(images.Create(16, 16, ILC_COLOR24, 2, 2));
    EXPECT_EQ(CImageList::FromHandlePermanent(images.m_hImageList), &images);
    EXPECT_EQ(CImageList::FromHandle(images.m_hImageList), &images);

    CClientDC screen(nullptr);
    CBitmap strip;
    ASSERT_TRUE(strip.CreateCompatibleBitmap(&screen, 32, 16));
    // A strip of two images.
    EXPECT_EQ(images.Add(&strip, static_cast<CBitmap*>(nullptr)), 0);
    EXPECT_EQ(images.GetImageCount(), 2);

    const HIMAGELIST hList = images.Detach();
    EXPECT_EQ(images.m_hImageList, nullptr);
    EXPECT_EQ(CImageList::FromHandlePermanent(hList), nullptr);
    CImageList* temp = CImageList::FromHandle(hList);
    ASSERT_NE(temp, nullptr);
    EXPECT_EQ(temp->GetImageCount(), 2);
    EXPECT_EQ(AfxGetTempObjectCount(), 1);
    AfxDeleteTempMap();
    EXPECT_EQ(AfxGetTempObjectCount(), 0);
    CImageList again;
    ASSERT_TRUE(again.Attach(hList));
    EXPECT_FALSE(again.Attach(hList)) << "an object holds one list";
    EXPECT_EQ(again.GetImageCount(), 2);
    EXPECT_TRUE(again.DeleteImageList());
    EXPECT_EQ(again.m_hImageList, nullptr);
}

std::vector<std::string> ColumnTexts(const CListCtrl& list, int nSubItem)
{
    std::vector<std::string> texts;
    for (int i = 0; i < list.GetItemCount(); ++i)
        texts.emplace_back(static_cast<LPCTSTR>(list.GetItemText(i, nSubItem)));
    return texts;
}

int CALLBACK CompareByData(LPARAM lParam1, LPARAM lParam2, LPARAM lParamSort)
{
    const int order = lParam1 < lParam2 ? -1 : lParam1 > lParam2 ? 1 : 0;
    return lParamSort != 0 ? -order : order;
}

class ListCtrlTest : public ControlsTest
{
protected:
    void SetUp() override
    {
        ControlsTest::SetUp();
        ASSERT_TRUE(list.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_SHOWSELALWAYS, CRect(0, 0, 480, 380), &parent,
                                kControlId));
        ASSERT_EQ(list.InsertColumn(0, "Name", LVCFMT_LEFT, 120), 0);
        ASSERT_EQ(list.InsertColumn(1, "Ort", LVCFMT_LEFT, 100), 1);
        ASSERT_EQ(list.InsertColumn(2, "Alter", LVCFMT_RIGHT, 60), 2);
        struct
        {
            const char* name;
            const char* place;
            const char* age;
            int data;
        } rows[] = {
            {"M\xFCller", "K\xF6ln", "41", 30},
            {"Schmidt", "Berlin", "35", 10},
            {"Wei\xDF", "M\xFCnchen", "58", 40},
            {"Fischer", "Hamburg", "27", 20},
        };
        for (const auto& row : rows) {
            const int n = list.InsertItem(list.GetItemCount(), row.name);
            ASSERT_GE(n, 0);
            ASSERT_TRUE(list.SetItemText(n, 1, row.place));
            ASSERT_TRUE(list.SetItemText(n, 2, row.age));
            ASSERT_TRUE(list.SetItemData(n, static_cast<DWORD_PTR>(row.data)));
        }
    }

    CListCtrl list;
};

TEST_F(ListCtrlTest, ColumnsItemsAndTextsReadBack)
{
    EXPECT_EQ(ColumnTexts(list, 0), (std::vector<std::string>{"M\xFCller", "Schmidt", "Wei\xDF", "Fischer"}));
    EXPECT_EQ(ColumnTexts(list, 1), (std::vector<std::string>{"K\xF6ln", "Berlin", "M\xFCnchen", "Hamburg"}));
    char buffer[16] = {};
    EXPECT_EQ(list.GetItemText(2, 1, buffer, sizeof buffer), 7);
    EXPECT_STREQ(buffer, "M\xFCnchen");
    // The CString form grows its buffer until the whole text fits.
    const std::string longText(700, 'x');
    list.SetItemText(3, 2, longText.c_str());
    EXPECT_EQ(std::string(static_cast<LPCTSTR>(list.GetItemText(3, 2))), longText);
    EXPECT_EQ(list.GetItemData(2), 40u);

    // InsertColumn's heading, width and format reach the header.
    CHeaderCtrl* header = list.GetHeaderCtrl();
    ASSERT_NE(header, nullptr);
    EXPECT_EQ(header->GetItemCount(), 3);
    char text[32] = {};
    HDITEM item = {};
    item.mask = HDI_TEXT | HDI_WIDTH | HDI_FORMAT;
    item.pszText = text;
    item.cchTextMax = sizeof text;
    ASSERT_TRUE(header->GetItem(2, &item));
    EXPECT_STREQ(text, "Alter");
    EXPECT_EQ(item.cxy, 60);
    EXPECT_EQ(item.fmt & HDF_JUSTIFYMASK, HDF_RIGHT);

    ASSERT_TRUE(list.DeleteItem(0));
    EXPECT_EQ(ColumnTexts(list, 0), (std::vector<std::string>{"Schmidt", "Wei\xDF", "Fischer"}));
}

TEST_F(ListCtrlTest, SelectionIsSetAndWalked)
{
    EXPECT_EQ(list.GetSelectedCount(), 0u);
    POSITION none = list.GetFirstSelectedItemPosition();
    EXPECT_EQ(none, nullptr);

    ASSERT_TRUE(list.SetItemState(1, LVIS_SELECTED, LVIS_SELECTED));
    ASSERT_TRUE(list.SetItemState(3, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED));
    EXPECT_EQ(list.GetSelectedCount(), 2u);
    EXPECT_EQ(list.GetItemState(3, LVIS_SELECTED | LVIS_FOCUSED), static_cast<UINT>(LVIS_SELECTED | LVIS_FOCUSED));
    EXPECT_EQ(list.GetNextItem(-1, LVNI_FOCUSED), 3);

    std::vector<int> walked;
    for (POSITION pos = list.GetFirstSelectedItemPosition(); pos != nullptr;)
        walked.push_back(list.GetNextSelectedItem(pos));
    EXPECT_EQ(walked, (std::vector<int>{1, 3}));

    ASSERT_TRUE(list.SetItemState(-1, 0, LVIS_SELECTED));
    EXPECT_EQ(list.GetSelectedCount(), 0u);
}

TEST_F(ListCtrlTest, SortItemsOrdersRowsByTheirData)
{
    list.SetItemState(0, LVIS_SELECTED, LVIS_SELECTED);
    ASSERT_TRUE(list.SortItems(CompareByData, 0));
    EXPECT_EQ(ColumnTexts(list, 0), (std::vector<std::string>{"Schmidt", "Fischer", "M\xFCller", "Wei\xDF"}));
    EXPECT_EQ(ColumnTexts(list, 2), (std::vector<std::string>{"35", "27", "41", "58"}));
    // The selection moves with its row.
    EXPECT_EQ(list.GetNextItem(-1, LVNI_SELECTED), 2);
    ASSERT_TRUE(list.SortItems(CompareByData, 1));
    EXPECT_EQ(ColumnTexts(list, 1), (std::vector<std::string>{"M\xFCnchen", "K\xF6ln", "Hamburg", "Berlin"}));
}

// A header that records the owner-drawn items it is asked to draw.
class CDrawnHeader : public CHeaderCtrl
{
public:
    std::vector<UINT> drawnItems;
    void DrawItem(LPDRAWITEMSTRUCT lpDIS) override
    {
        if (lpDIS->CtlType == ODT_HEADER)
            drawnItems.push_back(lpDIS->itemID);
    }
};

TEST_F(ListCtrlTest, OwnerDrawnHeaderItemsReachTheHeadersObject)
{
    CDrawnHeader header;
    ASSERT_TRUE(header.SubclassWindow(list.GetHeaderCtrl()->GetSafeHwnd()));
    EXPECT_EQ(list.GetHeaderCtrl(), &header);
    HDITEM item = {};
    item.mask = HDI_FORMAT;
    ASSERT_TRUE(header.GetItem(1, &item));
    item.fmt |= HDF_OWNERDRAW;
    ASSERT_TRUE(header.SetItem(1, &item));
    header.RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    ASSERT_FALSE(header.drawnItems.empty());
    for (UINT drawn : header.drawnItems)
        EXPECT_EQ(drawn, 1u);
    header.UnsubclassWindow();
}

TEST_F(ListCtrlTest, ImageListComesBackAsItsObject)
{
    CImageList small;
    ASSERT_TRUE(small.Create(16, 16, ILC_COLOR24, 1, 1));
    EXPECT_EQ(list.GetImageList(LVSIL_SMALL), nullptr);
    EXPECT_EQ(list.SetImageList(&small, LVSIL_SMALL), nullptr);
    EXPECT_EQ(list.GetImageList(LVSIL_SMALL), &small);
    // Without LVS_SHAREIMAGELISTS the control would destroy the list with
    // itself; the object owns it, so it is taken back first.
    EXPECT_EQ(list.SetImageList(nullptr, LVSIL_SMALL), &small);
    EXPECT_EQ(list.GetImageList(LVSIL_SMALL), nullptr);
}

}  // namespace
