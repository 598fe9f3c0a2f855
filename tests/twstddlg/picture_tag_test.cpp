#include "picture/picture_tag.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <utility>
#include <vector>

namespace {

using Points = std::vector<std::pair<int, int>>;

// Reads and sets the fields that have no public accessor.
class TagProbe : public CPictureTag
{
public:
    TagProbe() = default;
    explicit TagProbe(const char* text) : CPictureTag(CString(text)) {}

    void Parse(const char* text) { PictureTagFromText(text); }
    std::pair<int, int> Distance() const { return {m_szDistance.cx, m_szDistance.cy}; }
    std::string Stored() const { return std::string(m_strText.GetString(), m_strText.GetLength()); }
    Points GetPoints() const
    {
        Points v;
        for (INT_PTR i = 0; i < m_aPoints.GetSize(); ++i)
            v.emplace_back(m_aPoints[i].x, m_aPoints[i].y);
        return v;
    }
    void SetDrawingState(int arrowSize, COLORREF color, CPoint offset, float zoom)
    {
        m_iArrowSize = arrowSize;
        m_crLineColor = color;
        m_ptOffset = offset;
        m_fZoom = zoom;
    }
    bool SameDrawingState(const TagProbe& o) const
    {
        return m_iArrowSize == o.m_iArrowSize && m_crLineColor == o.m_crLineColor && m_ptOffset == o.m_ptOffset &&
               m_fZoom == o.m_fZoom;
    }
};

std::string Str(const CString& s)
{
    return std::string(s.GetString(), s.GetLength());
}

TagProbe Polygon(CPoint position, std::initializer_list<CPoint> corners)
{
    TagProbe tag;
    tag.InitTagForm(TAG_POLYGON);
    tag.SetPosition(position);
    for (CPoint p : corners)
        tag.SetCorner(p);
    return tag;
}

}  // namespace

// ---- form table ----------------------------------------------------------------

TEST(PictureTagForms, LetterAndGermanNameOfEveryForm)
{
    struct
    {
        int form;
        char letter;
        const char* name;
    } rows[] = {
        {-1, '?', "Unbekannt"}, {0, 'E', "Ellipse"},  {1, 'K', "Kreis"}, {2, 'L', "Linie"},   {3, 'P', "Pfeil"},
        {4, 'Q', "Quadrat"},    {5, 'R', "Rechteck"}, {6, 'T', "Text"},  {7, 'V', "Vieleck"},
    };
    for (auto& r : rows) {
        CPictureTag tag;
        tag.SetTagForm(static_cast<TAG_FORM>(r.form));
        EXPECT_EQ(tag.GetTagTypeChar(), r.letter) << r.form;
        EXPECT_EQ(Str(tag.GetTagName()), r.name) << r.form;
        EXPECT_EQ(Str(CPictureTag::GetTagName(static_cast<TAG_FORM>(r.form))), r.name);
        if (r.form >= 0) {
            EXPECT_EQ(CPictureTag::GetTagForm(r.letter), r.form) << r.letter;
        }
    }
}

TEST(PictureTagForms, UnknownLettersAndFormsFallBack)
{
    struct
    {
        char letter;
        int form;
    } letters[] = {
        {'?', -1}, {'r', -1}, {'e', -1}, {'A', -1}, {'\0', -1}, {'\xFF', -1}, {'V', 7},
    };
    for (auto& c : letters)
        EXPECT_EQ(CPictureTag::GetTagForm(c.letter), c.form) << int(c.letter);

    for (int form : {8, 9, -2, INT_MAX}) {
        CPictureTag tag;
        tag.SetTagForm(static_cast<TAG_FORM>(form));
        EXPECT_EQ(static_cast<unsigned char>(tag.GetTagTypeChar()), 255) << form;
        EXPECT_EQ(Str(tag.GetTagName()), "???") << form;
    }
}

// ---- fields -------------------------------------------------------------------

TEST(PictureTagFields, NewTagHasDefaultsAndBaseWritesNothing)
{
    TagProbe tag;
    EXPECT_EQ(tag.GetTagForm(), TAG_UNKNOWN);
    EXPECT_EQ(tag.GetPosition(), CPoint(0, 0));
    EXPECT_EQ(tag.Distance(), std::make_pair(0, 0));
    EXPECT_EQ(tag.GetTextPosition(), CPoint(0, 0));
    EXPECT_EQ(tag.GetVisible(), 1);
    EXPECT_TRUE(tag.GetText().IsEmpty());
    EXPECT_TRUE(tag.GetURL().IsEmpty());
    TagProbe drawn;
    drawn.SetDrawingState(15, 0, CPoint(0, 0), 1.0f);
    EXPECT_TRUE(tag.SameDrawingState(drawn));

    CPictureTagBase base;
    EXPECT_TRUE(base.ToString().IsEmpty());
    CPictureTagBase& asBase = tag;
    EXPECT_EQ(Str(asBase.ToString()), "?0,0,0,0,0,0,\"\";");
}

TEST(PictureTagFields, TextKeepsSemicolonsButGivesThemAsCommas)
{
    struct
    {
        const char* set;
        const char* stored;
        const char* got;
    } cases[] = {
        {"a;b", "a;b", "a,b"},
        {"Zeile 1\r\nZeile 2", "Zeile 1\\nZeile 2", "Zeile 1\\nZeile 2"},
        {"a\r\n\r\nb;", "a\\n\\nb;", "a\\n\\nb,"},
        {"lone\nLF and\rCR", "lone\nLF and\rCR", "lone\nLF and\rCR"},
        {"", "", ""},
    };
    for (auto& c : cases) {
        TagProbe tag;
        tag.SetText(c.set);
        EXPECT_EQ(tag.Stored(), c.stored) << c.set;
        EXPECT_EQ(Str(tag.GetText()), c.got) << c.set;
    }
}

TEST(PictureTagFields, PolygonIsBuiltClickByClick)
{
    TagProbe tag;
    tag.SetCorner(CPoint(9, 9));
    tag.SetDistance(5, 6);
    tag.InitTagForm(TAG_POLYGON);
    EXPECT_EQ(tag.GetTagForm(), TAG_POLYGON);
    EXPECT_EQ(tag.Distance(), std::make_pair(0, 0));
    EXPECT_TRUE(tag.GetPoints().empty());

    tag.SetCorner(CPoint(10, 20));
    EXPECT_EQ(tag.Distance(), std::make_pair(10, 20));
    tag.CorrectPointArray();
    EXPECT_EQ(tag.GetPoints(), (Points{{10, 20}})) << "one point: nothing to correct";

    tag.SetCorner(CPoint(30, 40));
    tag.SetCorner(CPoint(50, 60));
    EXPECT_EQ(tag.GetPoints(), (Points{{10, 20}, {30, 40}, {50, 60}}));
    tag.CorrectPointArray();
    EXPECT_EQ(tag.GetPoints(), (Points{{10, 20}, {30, 40}}));
    EXPECT_EQ(tag.Distance(), std::make_pair(50, 60));

    struct
    {
        int index;
        Points after;
    } replace[] = {
        {1, {{10, 20}, {7, 7}}},
        {0, {{7, 7}, {7, 7}}},
        {2, {{7, 7}, {7, 7}}},
        {-1, {{7, 7}, {7, 7}}},
    };
    for (auto& r : replace) {
        tag.SetCorner(CPoint(7, 7), r.index);
        EXPECT_EQ(tag.GetPoints(), r.after) << r.index;
    }
    EXPECT_EQ(tag.Distance(), std::make_pair(50, 60));
}

TEST(PictureTagFields, CopiesCarryEveryFieldAndReplacePoints)
{
    TagProbe src("V1,2,3,4,5,6,\"Dach\",7,8,9,10,\"http://x\"");
    src.SetVisible(0);
    src.SetDrawingState(40, 0x123456, CPoint(-3, 4), 2.5f);

    TagProbe target("R0,0,0,0,0,0,\"alt\",1,1,2,2,3,3");
    static_cast<CPictureTag&>(target) = src;
    TagProbe constructed;
    static_cast<CPictureTag&>(constructed) = CPictureTag(src);
    for (TagProbe* copy : {&target, &constructed}) {
        EXPECT_EQ(Str(copy->ToString()), Str(src.ToString()));
        EXPECT_EQ(copy->GetPoints(), (Points{{7, 8}, {9, 10}}));
        EXPECT_EQ(copy->GetVisible(), 0);
        EXPECT_TRUE(copy->SameDrawingState(src));
    }

    CPictureTag& self = src;
    self = src;
    EXPECT_EQ(src.GetPoints(), (Points{{7, 8}, {9, 10}})) << "self-assignment keeps the points";

    CPictureTag moved(std::move(static_cast<CPictureTag&>(target)));
    EXPECT_EQ(Str(moved.ToString()), Str(src.ToString()));
    EXPECT_TRUE(target.GetPoints().empty()) << "a moved-from tag gives up text, URL and points";
    EXPECT_TRUE(target.GetText().IsEmpty());
    EXPECT_TRUE(target.GetURL().IsEmpty());
    CPictureTag& back = target;
    back = std::move(moved);
    EXPECT_EQ(Str(target.ToString()), Str(src.ToString()));
}

// ---- text form ----------------------------------------------------------------

TEST(PictureTagText, ParserReadsHeadPointsAndUrl)
{
    struct Case
    {
        const char* text;
        int form;
        CPoint position;
        std::pair<int, int> distance;
        CPoint textPosition;
        const char* caption;
        const char* url;
        Points points;
    } cases[] = {
        {"R1,2,3,4,5,6,\"a\"", 5, {1, 2}, {3, 4}, {5, 6}, "a", "", {}},
        {"R1,2,3,4,5,6,\"a\",\"u\"", 5, {1, 2}, {3, 4}, {5, 6}, "a", "u", {}},
        {"R1,2,3,4,5,6,\"a\",7,8", 5, {1, 2}, {3, 4}, {5, 6}, "a", "", {{7, 8}}},
        {"R1,2,3,4,5,6,\"a\",7,8,\"u\"", 5, {1, 2}, {3, 4}, {5, 6}, "a", "u", {{7, 8}}},
        {"V0,0,9,9,0,0,\"\",1,2,3,4,5", 7, {0, 0}, {9, 9}, {0, 0}, "", "5", {{1, 2}, {3, 4}}},
        {"V0,0,9,9,0,0,\"\",1,2,3,4", 7, {0, 0}, {9, 9}, {0, 0}, "", "", {{1, 2}, {3, 4}}},
        {"r1,2,3,4,5,6,\"a\"", -1, {1, 2}, {3, 4}, {5, 6}, "a", "", {}},
        {"?1,2,3,4,5,6,\"a\"", -1, {1, 2}, {3, 4}, {5, 6}, "a", "", {}},
        {"E-10, 20,x,4y,+5,\t6,Haus", 0, {-10, 20}, {0, 4}, {5, 6}, "Haus", "", {}},
        {"T1,2,3,4,5,6,\"Auge, links\",\"http://host/a?b=1;c=2\"",
         6,
         {1, 2},
         {3, 4},
         {5, 6},
         "Auge, links",
         "http://host/a?b=1;c=2",
         {}},
        {"T1,2,3,4,5,6,\"a;b\"", 6, {1, 2}, {3, 4}, {5, 6}, "a;b", "", {}},
        {"T1,2,3,4,5,6,\"a\\nb\"", 6, {1, 2}, {3, 4}, {5, 6}, "a\\nb", "", {}},
        {"K99999999999,-99999999999,3,4,5,6,\"\"", 1, {INT_MAX, INT_MIN}, {3, 4}, {5, 6}, "", "", {}},
        {",1,2,3,4,5,6", -1, {0, 1}, {2, 3}, {4, 5}, "6", "", {}},
    };
    for (auto& c : cases) {
        TagProbe tag(c.text);
        EXPECT_EQ(tag.GetTagForm(), c.form) << c.text;
        EXPECT_EQ(tag.GetPosition(), c.position) << c.text;
        EXPECT_EQ(tag.Distance(), c.distance) << c.text;
        EXPECT_EQ(tag.GetTextPosition(), c.textPosition) << c.text;
        EXPECT_EQ(tag.Stored(), c.caption) << c.text;
        EXPECT_EQ(Str(tag.GetURL()), c.url) << c.text;
        EXPECT_EQ(tag.GetPoints(), c.points) << c.text;
        EXPECT_EQ(tag.GetVisible(), 1) << c.text;
    }
}

TEST(PictureTagText, ShortOrPartialTextKeepsWhatTheTagHad)
{
    for (const char* text : {"Kaputt", "", "R1,2,3,4,5,6", ";;;;;;;"}) {
        TagProbe tag(text);
        EXPECT_EQ(tag.GetTagForm(), TAG_UNKNOWN) << text;
        EXPECT_TRUE(tag.GetText().IsEmpty()) << text;
        EXPECT_EQ(tag.GetVisible(), 1) << text;
        EXPECT_EQ(tag.GetPosition(), CPoint(0, 0)) << text;
    }

    TagProbe tag("V1,2,3,4,5,6,\"a\",7,8,\"u\"");
    tag.SetVisible(0);
    tag.Parse("R9,9");
    EXPECT_EQ(Str(tag.ToString()), "V1,2,3,4,5,6,\"a\",7,8,\"u\";");
    EXPECT_EQ(tag.GetVisible(), 0);

    // Seven fields set the head only: URL and points stay.
    tag.Parse("V0,0,0,0,0,0,\"b\"");
    EXPECT_EQ(Str(tag.GetURL()), "u");
    EXPECT_EQ(tag.GetPoints(), (Points{{7, 8}}));
    EXPECT_EQ(tag.GetVisible(), 1);
    // Eight fields set the URL, points stay.
    tag.Parse("V0,0,0,0,0,0,\"b\",\"w\"");
    EXPECT_EQ(Str(tag.GetURL()), "w");
    EXPECT_EQ(tag.GetPoints(), (Points{{7, 8}}));
    // Nine fields replace the points, URL stays.
    tag.Parse("V0,0,0,0,0,0,\"b\",1,1");
    EXPECT_EQ(Str(tag.GetURL()), "w");
    EXPECT_EQ(tag.GetPoints(), (Points{{1, 1}}));
}

TEST(PictureTagText, WriterFormsHeadCaptionPointsAndUrl)
{
    struct
    {
        const char* built;
        const char* written;
    } cases[] = {
        {"R10,20,30,40,12,70,\"Haus\"", "R10,20,30,40,12,70,\"Haus\";"},
        {"R1,2,3,4,5,6,\"a;b\"", "R1,2,3,4,5,6,\"a,b\";"},
        {"R1,2,3,4,5,6,\"a\",1,2,3,4", "R1,2,3,4,5,6,\"a\";"},
        {"V1,2,3,4,5,6,\"a\",1,2,3,4", "V1,2,3,4,5,6,\"a\",1,2,3,4;"},
        {"V1,2,3,4,5,6,\"a\",1,2,3,4,\"u\"", "V1,2,3,4,5,6,\"a\",1,2,3,4,\"u\";"},
        {"P-1,-2,-3,-4,-5,-6,\"\",\"http://x/;y\"", "P-1,-2,-3,-4,-5,-6,\"\",\"http://x/;y\";"},
        {"r1,2,3,4,5,6,\"a\"", "?1,2,3,4,5,6,\"a\";"},
        {"T0,0,0,0,0,0,say \"hi\"", "T0,0,0,0,0,0,\"say \"hi\"\";"},
    };
    for (auto& c : cases) {
        CPictureTag tag{CString(c.built)};
        EXPECT_EQ(Str(tag.ToString()), c.written) << c.built;
    }

    TagProbe tag("R1,2,3,4,5,6,\"a;b\"");
    EXPECT_EQ(tag.Stored(), "a;b");

    tag.SetTagForm(static_cast<TAG_FORM>(9));
    EXPECT_EQ(Str(tag.ToString()), "\xFF"
                                   "1,2,3,4,5,6,\"a,b\";");

    TagProbe twoLines;
    twoLines.InitTagForm(TAG_TEXT);
    twoLines.SetText("Zeile 1\r\nZeile 2");
    EXPECT_EQ(Str(twoLines.ToString()), "T0,0,0,0,0,0,\"Zeile 1\\nZeile 2\";");

    TagProbe drawn = Polygon(CPoint(5, 5), {CPoint(1, 2), CPoint(3, 4), CPoint(20, 30)});
    drawn.CorrectPointArray();
    EXPECT_EQ(Str(drawn.ToString()), "V5,5,20,30,0,0,\"\",1,2,3,4;");
}

TEST(PictureTagText, PrintedTagsReadBackToTheSameText)
{
    // Tag texts as a list holds them, each read without its final ";".
    const char* texts[] = {
        "E10,10,40,20,60,10,\"Auge\"",
        "V0,0,100,100,5,5,\"Dach, rot\",10,0,10,10,0,10,\"https://example.org/a?b=c&d=e\"",
        "P-5,-5,30,-40,0,0,\"Pfeil\\nzwei Zeilen\",\"file;with;semicolons\"",
        "T1,1,0,0,1,1,\"\"",
        "Q2147483647,-2147483648,0,0,0,0,\"  blanks  \"",
    };
    for (const char* text : texts) {
        const std::string written = std::string(text) + ";";
        CPictureTag tag{CString(text)};
        EXPECT_EQ(Str(tag.ToString()), written);
        const CString printed = tag.ToString();
        CPictureTag again(printed.Left(printed.GetLength() - 1));
        EXPECT_EQ(Str(again.ToString()), written);
    }
}

// ---- hit tests ----------------------------------------------------------------

TEST(PictureTagHits, HandlesWithinFivePixelsOnBothAxes)
{
    CPictureTag rect{CString("R100,100,50,40,300,300,\"r\"")};
    struct
    {
        CPoint p;
        int dot;
    } cases[] = {
        {{100, 100}, 1}, {{105, 105}, 1}, {{95, 95}, 1},   {{105, 95}, 1},  {{106, 100}, 0},
        {{100, 94}, 0},  {{106, 106}, 0}, {{150, 140}, 2}, {{155, 145}, 2}, {{156, 140}, 0},
        {{50, 40}, 0},   {{300, 300}, 3}, {{295, 305}, 3}, {{294, 300}, 0},
    };
    for (auto& c : cases) {
        int index = -7;
        EXPECT_EQ(rect.FindPictureTag(c.p, index), c.dot) << c.p.x << "," << c.p.y;
        EXPECT_EQ(index, -7) << "index is only written for polygon corners";
    }

    // Overlapping handles: position, then far corner, then caption.
    CPictureTag stacked{CString("L0,0,4,4,2,2,\"s\"")};
    int index = 0;
    EXPECT_EQ(stacked.FindPictureTag(CPoint(2, 2), index), DOT_POSITION);
    EXPECT_EQ(stacked.FindPictureTag(CPoint(9, 9), index), DOT_SIZE);
}

TEST(PictureTagHits, PolygonHandlesAreTheLastCornerThenEachPoint)
{
    CPictureTag poly{CString("V0,0,200,200,500,500,\"p\",100,0,100,100,0,100")};
    struct
    {
        CPoint p;
        int dot;
        int index;
    } cases[] = {
        {{200, 200}, 2, -7}, {{103, 2}, 4, 0}, {{100, 100}, 4, 1}, {{0, 104}, 4, 2},
        {{500, 500}, 3, -7}, {{1, 1}, 1, -7},  {{50, 50}, 0, -7},
    };
    for (auto& c : cases) {
        int index = -7;
        EXPECT_EQ(poly.FindPictureTag(c.p, index), c.dot) << c.p.x << "," << c.p.y;
        EXPECT_EQ(index, c.index) << c.p.x << "," << c.p.y;
    }
    // A polygon's distance is absolute: no handle at position + distance.
    int index = 0;
    CPictureTag moved{CString("V50,50,200,200,500,500,\"p\",100,0,100,100")};
    EXPECT_EQ(moved.FindPictureTag(CPoint(250, 250), index), DOT_NONE);
}

TEST(PictureTagHits, EllipseOutlineAroundPositionWithinFivePercent)
{
    // Deliberately centred on the position, radius cx / 2 and cy / 2; odd
    // extents halve to 20.5 and 10.5, not 20 and 10.
    const CPictureTag ellipse = CString("E1000,1000,200,100,0,0,\"e\"");
    const CPictureTag odd = CString("E1000,1000,41,21,0,0,\"o\"");
    struct
    {
        const CPictureTag& tag;
        CPoint p;
        int dot;
    } cases[] = {
        {ellipse, {1098, 1000}, 5}, {ellipse, {1097, 1000}, 0}, {ellipse, {1102, 1000}, 5}, {ellipse, {1103, 1000}, 0},
        {ellipse, {902, 1000}, 5},  {ellipse, {1000, 1050}, 5}, {ellipse, {1000, 1051}, 5}, {ellipse, {1000, 1052}, 0},
        {ellipse, {1000, 1000}, 1}, {ellipse, {1100, 1050}, 0}, {odd, {1021, 1000}, 5},     {odd, {1010, 1009}, 5},
        {odd, {1009, 1009}, 0},
    };
    for (auto& c : cases) {
        int index = 0;
        EXPECT_EQ(c.tag.PointInPictureTag(c.p, index), c.dot) << c.tag.GetText() << " " << c.p.x << "," << c.p.y;
    }

    // Squares wrap in 32 bits: 65536 squared is 0.
    CPictureTag round{CString("E0,0,200,200,0,0,\"w\"")};
    int index = 0;
    EXPECT_EQ(round.PointInPictureTag(CPoint(65536, 100), index), DOT_OUTLINE);
    CPictureTag flat{CString("E0,0,200,0,0,0,\"f\"")};
    EXPECT_EQ(flat.PointInPictureTag(CPoint(100, 0), index), DOT_NONE);
    EXPECT_EQ(flat.PointInPictureTag(CPoint(0, 50), index), DOT_NONE);
}

TEST(PictureTagHits, CircleOutlineAroundPositionWithinFivePixels)
{
    // An odd extent halves to a radius of 50.5, not 50.
    const CPictureTag circle = CString("K1000,1000,100,0,0,0,\"k\"");
    const CPictureTag odd = CString("K1000,1000,101,0,0,0,\"o\"");
    struct
    {
        const CPictureTag& tag;
        CPoint p;
        int dot;
    } cases[] = {
        {circle, {1054, 1000}, 5}, {circle, {1055, 1000}, 0}, {circle, {1046, 1000}, 5}, {circle, {1045, 1000}, 0},
        {circle, {1030, 1040}, 5}, {circle, {1000, 947}, 5},  {circle, {1007, 1000}, 0}, {circle, {1100, 1010}, 0},
        {odd, {1055, 1000}, 5},    {odd, {1045, 1001}, 0},
    };
    for (auto& c : cases) {
        int index = 0;
        EXPECT_EQ(c.tag.PointInPictureTag(c.p, index), c.dot) << c.tag.GetText() << " " << c.p.x << "," << c.p.y;
    }
}

TEST(PictureTagHits, RectangleOutlineTakesDistanceAsBottomRightCorner)
{
    for (const char* text : {"R10,10,100,80,500,500,\"r\"", "Q10,10,100,80,500,500,\"q\""}) {
        CPictureTag rect{CString(text)};
        struct
        {
            CPoint p;
            int dot;
        } cases[] = {
            {{50, 80}, 5}, {{10, 80}, 5},  {{100, 80}, 5}, {{101, 80}, 0}, {{50, 81}, 0},
            {{10, 50}, 5}, {{100, 50}, 5}, {{100, 10}, 5}, {{101, 50}, 0}, {{11, 50}, 0},
            {{50, 10}, 0}, {{100, 81}, 0}, {{100, 9}, 0},  {{110, 90}, 2}, {{50, 50}, 0},
        };
        for (auto& c : cases) {
            int index = 0;
            EXPECT_EQ(rect.PointInPictureTag(c.p, index), c.dot) << text << " " << c.p.x << "," << c.p.y;
        }
    }
}

TEST(PictureTagHits, PolygonOutlineSkipsItsLastSegments)
{
    CPictureTag poly{CString("V0,0,900,900,900,0,\"p\",100,0,100,100,0,100")};
    struct
    {
        CPoint p;
        int dot;
    } cases[] = {
        {{50, 0}, 5},   {{50, 1}, 5},   {{50, 2}, 0}, {{100, 50}, 5},
        {{102, 50}, 0}, {{50, 100}, 0}, {{0, 50}, 0}, {{150, 0}, 0},
    };
    for (auto& c : cases) {
        int index = -7;
        EXPECT_EQ(poly.PointInPictureTag(c.p, index), c.dot) << c.p.x << "," << c.p.y;
    }

    CPictureTag onePoint{CString("V0,0,900,900,900,0,\"p\",100,0")};
    int index = 0;
    EXPECT_EQ(onePoint.PointInPictureTag(CPoint(50, 0), index), DOT_NONE);
}

TEST(PictureTagHits, LinesArrowsTextsAndUnknownFormsHaveNoOutline)
{
    for (const char* text : {"L0,0,100,0,900,900,\"l\"", "P0,0,100,0,900,900,\"p\"", "T0,0,100,0,900,900,\"t\"",
                             "?0,0,100,0,900,900,\"u\""}) {
        CPictureTag tag{CString(text)};
        int index = 0;
        EXPECT_EQ(tag.PointInPictureTag(CPoint(50, 0), index), DOT_NONE) << text;
        EXPECT_EQ(tag.PointInPictureTag(CPoint(900, 900), index), DOT_TEXT) << text;
    }
}
