#include "picture/picture_tag_array.h"
#include "picture/picture_tag_refusal.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#ifdef _WIN32
#include <windows.h>
#endif

namespace {

std::string Str(const CString& s)
{
    return std::string(s.GetString(), s.GetLength());
}

CPictureTag Tag(const char* caption, int x = 0)
{
    CPictureTag tag;
    tag.InitTagForm(TAG_TEXT);
    tag.SetPosition(CPoint(x, x));
    tag.SetText(caption);
    return tag;
}

std::vector<std::string> Captions(CPictureTagArray& a)
{
    std::vector<std::string> v;
    for (INT_PTR i = 0; i < a.GetSize(); ++i)
        v.push_back(Str(a[i].GetText()));
    return v;
}

// Records the captions of refused tags instead of telling a user.
std::vector<std::string> g_refused;
void RecordRefusal(const CPictureTag& tag)
{
    g_refused.push_back(Str(tag.GetText()));
}

class PictureTagArrayList : public ::testing::Test
{
protected:
    void SetUp() override
    {
        g_refused.clear();
        previous_ = SetPictureTagRefusedNotifier(&RecordRefusal);
    }
    void TearDown() override { SetPictureTagRefusedNotifier(previous_); }

private:
    PICTURE_TAG_REFUSED_NOTIFIER previous_ = nullptr;
};

}  // namespace

// ---- sorted insertion -----------------------------------------------------------

TEST(PictureTagArraySorted, CaptionsCompareWithTheirSemicolonsAsCommas)
{
    CPictureTagArray a;
    for (const char* c : {"Haus", "Dach;rot"})
        EXPECT_GE(a.AddSorted(Tag(c)), 0) << c;
    EXPECT_EQ(a.AddSorted(Tag("DACH,ROT", 7)), -1);
    EXPECT_EQ(a.AddSorted(Tag("haus;", 7)), 2) << "\"haus,\" is another caption";
    struct
    {
        const char* caption;
        INT_PTR index;
    } cases[] = {{"dach,rot", 0}, {"Dach;rot", -1}, {"HAUS,", 2}};
    for (auto& c : cases)
        EXPECT_EQ(a.Find(c.caption), c.index) << c.caption;
    EXPECT_EQ(a[0].GetX(), 0) << "the first stays";
}

TEST(PictureTagArraySorted, InsertReplacesInPlaceOrAddsSortedPastTheEnd)
{
    CPictureTagArray a;
    for (const char* c : {"Anton", "Berta", "Caesar"})
        a.AddSorted(Tag(c));

    struct
    {
        INT_PTR index;
        const char* caption;
        INT_PTR result;
        std::vector<std::string> after;
    } steps[] = {
        {-1, "Dora", -1, {"Anton", "Berta", "Caesar"}},
        {3, "Aaron", 0, {"Aaron", "Anton", "Berta", "Caesar"}},
        {4, "BERTA", -1, {"Aaron", "Anton", "Berta", "Caesar"}},
        {99, "Emil", 4, {"Aaron", "Anton", "Berta", "Caesar", "Emil"}},
        {1, "Zacharias", 1, {"Aaron", "Zacharias", "Berta", "Caesar", "Emil"}},
        {2, "emil", 2, {"Aaron", "Zacharias", "emil", "Caesar", "Emil"}},
    };
    for (auto& s : steps) {
        EXPECT_EQ(a.Insert(s.index, Tag(s.caption)), s.result) << s.caption;
        EXPECT_EQ(Captions(a), s.after) << s.caption;
    }
}

TEST(PictureTagArraySorted, VisibleReplacesACopyWithTheSwitchSet)
{
    CPictureTagArray a;
    a.AddSorted(Tag("Einzig", 42));
    struct
    {
        INT_PTR index;
        int visible;
        INT_PTR result;
        int after;
    } steps[] = {
        {0, 0, 0, 0},
        {1, 1, -1, 0},
        {-1, 1, -1, 0},
        {0, 5, 0, 5},
    };
    for (auto& s : steps) {
        EXPECT_EQ(a.Visible(s.index, s.visible), s.result) << s.index;
        ASSERT_EQ(a.GetSize(), 1);
        EXPECT_EQ(a[0].GetVisible(), s.after) << s.index;
    }
    EXPECT_EQ(a[0].GetX(), 42);
    EXPECT_EQ(Str(a[0].GetText()), "Einzig");
}

// ---- list string ----------------------------------------------------------------

TEST_F(PictureTagArrayList, ListIsWrittenInCaptionOrderAndReadsBackTheSame)
{
    const char* list = "E10,10,40,20,60,10,\"Auge\";"
                       "V0,0,100,100,5,5,\"Dach, rot\",10,0,10,10,\"http://example.org/dach?x=1\";"
                       "T5,5,0,0,5,5,\"Titel\";"
                       "P1,2,3,4,5,6,\"Pfeil\\nnach oben\",\"https://a.b/c\";"
                       "R1,2,3,4,5,6,\"bild\",7,8;";
    CPictureTagArray a;
    a.BuildArray(list);
    CPictureTag chimney{CString("L1,1,2,2,3,3,\"x\",9,9,\"u;v\"")};
    chimney.SetText("Kamin;alt");
    a.AddSorted(chimney);
    const std::string written = Str(a.ToString());
    EXPECT_EQ(written, "E10,10,40,20,60,10,\"Auge\";"
                       "R1,2,3,4,5,6,\"bild\";"
                       "V0,0,100,100,5,5,\"Dach, rot\",10,0,10,10,\"http://example.org/dach?x=1\";"
                       "L1,1,2,2,3,3,\"Kamin,alt\",\"u;v\";"
                       "P1,2,3,4,5,6,\"Pfeil\\nnach oben\",\"https://a.b/c\";"
                       "T5,5,0,0,5,5,\"Titel\";");

    CPictureTagArray again;
    again.BuildArray(written.c_str());
    // Deliberately unguarded: the semicolon in a URL splits the list.
    EXPECT_EQ(again.GetSize(), 7) << "no empty piece after the last ';'";
    EXPECT_EQ(Str(again[again.Find("Kamin,alt")].GetURL()), "u") << "the URL ends at its semicolon";
    EXPECT_EQ(again.Find(""), 0) << "its rest is a piece of its own";
    EXPECT_TRUE(g_refused.empty());

    a.RemoveAt(3);
    const std::string clean = Str(a.ToString());
    CPictureTagArray back;
    back.BuildArray(clean.c_str());
    EXPECT_EQ(back.GetSize(), 5);
    EXPECT_EQ(Str(back.ToString()), clean);
    EXPECT_TRUE(g_refused.empty());

    CPictureTagArray empty;
    EXPECT_TRUE(empty.ToString().IsEmpty());
    empty.BuildArray("");
    EXPECT_EQ(empty.GetSize(), 0);
}

TEST_F(PictureTagArrayList, RefusedTagsAreReportedAndSkipped)
{
    CPictureTagArray a;
    a.BuildArray("R1,1,1,1,1,1,\"Baum\";R2,2,2,2,2,2,\"BAUM\";R3,3,3,3,3,3,\"Ast\";R4,4,4,4,4,4,\"baum\";");
    EXPECT_EQ(g_refused, (std::vector<std::string>{"BAUM", "baum"}));
    EXPECT_EQ(Str(a.ToString()), "R3,3,3,3,3,3,\"Ast\";R1,1,1,1,1,1,\"Baum\";");

    // Pieces that are no tags become default tags with an empty caption:
    // the first is kept, each further one refused.
    g_refused.clear();
    CPictureTagArray broken;
    broken.BuildArray("Kaputt;Murks;T1,1,1,1,1,1,\"ok\"");
    EXPECT_EQ(g_refused, (std::vector<std::string>{""}));
    EXPECT_EQ(Str(broken.ToString()), "?0,0,0,0,0,0,\"\";T1,1,1,1,1,1,\"ok\";");
}

TEST_F(PictureTagArrayList, BuildArrayAddsToWhatIsThere)
{
    CPictureTagArray a;
    a.BuildArray("T0,0,0,0,0,0,\"Mitte\";");
    a.BuildArray("T0,0,0,0,0,0,\"Anfang\";T0,0,0,0,0,0,\"mitte\";T0,0,0,0,0,0,\"Ende\";");
    EXPECT_EQ(Captions(a), (std::vector<std::string>{"Anfang", "Ende", "Mitte"}));
    EXPECT_EQ(g_refused, (std::vector<std::string>{"mitte"}));
}

TEST_F(PictureTagArrayList, WithoutANotifierRefusalsAreSilent)
{
    EXPECT_EQ(SetPictureTagRefusedNotifier(nullptr), &RecordRefusal);
    CPictureTagArray a;
    a.BuildArray("T0,0,0,0,0,0,\"x\";T0,0,0,0,0,0,\"X\";");
    EXPECT_EQ(a.GetSize(), 1);
    EXPECT_TRUE(g_refused.empty());
}

// ---- hit tests over all tags ------------------------------------------------------

TEST(PictureTagArrayHits, FirstTagInArrayOrderWins)
{
    CPictureTagArray a;
    int index = -7;
    _TAG_INFO none = a.FindPictureTag(CPoint(0, 0), index);
    EXPECT_EQ(none.index, -1);
    EXPECT_EQ(none.dot, DOT_NONE);

    a.BuildArray("R10,10,20,20,90,90,\"A\";"
                 "R12,12,50,50,300,300,\"B\";"
                 "V500,500,900,900,0,0,\"C\",600,500,600,600;");
    struct
    {
        CPoint p;
        __int64 index;
        int dot;
        int corner;
    } cases[] = {
        {{11, 11}, 0, 1, -7},  {{62, 62}, 1, 2, -7},   {{30, 30}, 0, 2, -7},
        {{601, 599}, 2, 4, 1}, {{300, 300}, 1, 3, -7}, {{200, 200}, -1, 0, -7},
    };
    for (auto& c : cases) {
        index = -7;
        const _TAG_INFO info = a.FindPictureTag(c.p, index);
        EXPECT_EQ(info.index, c.index) << c.p.x << "," << c.p.y;
        EXPECT_EQ(info.dot, c.dot) << c.p.x << "," << c.p.y;
        EXPECT_EQ(index, c.corner) << c.p.x << "," << c.p.y;
    }

    struct
    {
        CPoint p;
        __int64 index;
        int dot;
    } outline[] = {
        {{10, 18}, 0, 5}, {{50, 30}, 1, 5}, {{550, 500}, 2, 5}, {{600, 550}, -1, 0}, {{11, 11}, 0, 1},
    };
    for (auto& c : outline) {
        const _TAG_INFO info = a.PointInPictureTag(c.p, index);
        EXPECT_EQ(info.index, c.index) << c.p.x << "," << c.p.y;
        EXPECT_EQ(info.dot, c.dot) << c.p.x << "," << c.p.y;
    }
}

#ifdef _WIN32
// ---- the library's refusal message (Windows) -------------------------------------

namespace {

struct SeenBox
{
    std::vector<std::string> texts;
    int buttons = 0;
    bool okButton = false;
};
std::vector<SeenBox> g_boxes;

BOOL CALLBACK ReadChild(HWND child, LPARAM param)
{
    SeenBox& box = *reinterpret_cast<SeenBox*>(param);
    char cls[64] = "";
    char text[512] = "";
    GetClassNameA(child, cls, sizeof cls);
    GetWindowTextA(child, text, sizeof text);
    if (lstrcmpiA(cls, "Static") == 0 && text[0] != '\0')
        box.texts.push_back(text);
    if (lstrcmpiA(cls, "Button") == 0) {
        ++box.buttons;
        box.okButton = box.okButton || GetDlgCtrlID(child) == IDOK;
    }
    return TRUE;
}

// Reads each message box as it opens and presses its OK button.
LRESULT CALLBACK AnswerBoxes(int code, WPARAM wParam, LPARAM lParam)
{
    if (code == HCBT_ACTIVATE) {
        HWND wnd = reinterpret_cast<HWND>(wParam);
        char cls[64] = "";
        GetClassNameA(wnd, cls, sizeof cls);
        if (lstrcmpA(cls, "#32770") == 0) {
            SeenBox box;
            EnumChildWindows(wnd, ReadChild, reinterpret_cast<LPARAM>(&box));
            g_boxes.push_back(box);
            PostMessageA(wnd, WM_COMMAND, IDOK, 0);
        }
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace

TEST(PictureTagArrayWin, RefusalShowsTheLibraryMessageWithAnOkButton)
{
    char loaded[256] = "";
    ASSERT_GT(LoadStringA(GetModuleHandleA("twstddlg.dll"), 30040, loaded, sizeof loaded), 0);
    EXPECT_STREQ(loaded, "Element konnte nicht eingefügt werden");

    g_boxes.clear();
    HHOOK hook = SetWindowsHookExA(WH_CBT, AnswerBoxes, nullptr, GetCurrentThreadId());
    ASSERT_NE(hook, nullptr);
    CPictureTagArray a;
    a.BuildArray("T0,0,0,0,0,0,\"Baum\";T0,0,0,0,0,0,\"BAUM\";T0,0,0,0,0,0,\"Ast\";");
    UnhookWindowsHookEx(hook);

    EXPECT_EQ(a.GetSize(), 2);
    ASSERT_EQ(g_boxes.size(), 1u);
    EXPECT_EQ(g_boxes[0].texts, (std::vector<std::string>{"Element konnte nicht eingefügt werden"}));
    EXPECT_EQ(g_boxes[0].buttons, 1);
    EXPECT_TRUE(g_boxes[0].okButton);
}
#endif
