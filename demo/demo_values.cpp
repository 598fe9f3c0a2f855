// Demo entries of the value types: the standard palette with its names, and
// an annotation list parsed into picture tags.
#include "demo_catalog.h"
#include "twstddlg.h"

#include <memory>

namespace {

// A sample annotation list in the library's text form, deliberately
// unsorted and with one caption twice: the second one is refused.
const char kSampleTags[] = "R12,40,80,60,14,110,\"Zugspitze\",\"https://www.zugspitze.de\";"
                           "E200,120,60,30,200,160,\"Alpsee, Ufer\";"
                           "P90,30,40,20,90,60,\"Burg\";"
                           "V150,70,40,20,150,100,\"Eibsee\",170,90,160,110;"
                           "T300,40,0,0,300,40,\"Burg\";";

// A window that lists what the value types make of their inputs.
class CValuesWnd : public CWnd
{
public:
    BOOL CreateShow(CWnd* owner)
    {
        LPCTSTR cls = AfxRegisterWndClass(CS_HREDRAW | CS_VREDRAW, LoadCursor(nullptr, IDC_ARROW),
                                          reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1));
        if (!CreateEx(0, cls, "Farben und Bildmarkierungen", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 120, 90, 720, 560,
                      owner ? owner->GetSafeHwnd() : nullptr, nullptr))
            return FALSE;
        m_tags.BuildArray(kSampleTags);
        return TRUE;
    }

protected:
    afx_msg void OnPaint();
    void PostNcDestroy() override { delete this; }
    DECLARE_MESSAGE_MAP()

private:
    CPictureTagArray m_tags;
};

BEGIN_MESSAGE_MAP(CValuesWnd, CWnd)
    ON_WM_PAINT()
END_MESSAGE_MAP()

void CValuesWnd::OnPaint()
{
    CPaintDC dc(this);
    dc.SetBkMode(TRANSPARENT);
    HGDIOBJ oldFont = SelectObject(dc.GetSafeHdc(), GetStockObject(DEFAULT_GUI_FONT));

    dc.TextOut(16, 10, "Standardpalette: Index, englischer und deutscher Name");
    for (int i = 0; i < TW_PALETTE_COLORS; ++i) {
        const int x = 16 + (i / 8) * 340;
        const int y = 34 + (i % 8) * 26;
        const COLORREF color = GetColor(i);
        dc.FillSolidRect(x, y, 40, 20, color);
        dc.Draw3dRect(x, y, 40, 20, RGB(0, 0, 0), RGB(0, 0, 0));
        CString line;
        line.Format("%2d  %-14s %s", i, GetColorString(i), static_cast<const char*>(convertColorRef2Name(color)));
        dc.TextOut(x + 50, y + 3, line);
    }

    int y = 260;
    dc.TextOut(16, y, "Bildmarkierungen, nach Beschriftung sortiert (\"Burg\" doppelt: abgelehnt):");
    y += 24;
    for (INT_PTR i = 0; i < m_tags.GetSize(); ++i, y += 20) {
        CPictureTag& tag = m_tags[i];
        CString line;
        line.Format("%s  –  %s bei (%d, %d)  %s", static_cast<const char*>(tag.GetText()),
                    static_cast<const char*>(tag.GetTagName()), tag.GetX(), tag.GetY(),
                    static_cast<const char*>(tag.GetURL()));
        dc.TextOut(32, y, line);
    }
    y += 12;
    dc.TextOut(16, y, "Textform:");
    CRect text(32, y + 20, 700, y + 120);
    const CString list = m_tags.ToString();
    dc.DrawText(list, &text, DT_WORDBREAK);
    SelectObject(dc.GetSafeHdc(), oldFont);
}

CValuesWnd* showValues(CWnd* parent)
{
    auto* wnd = new CValuesWnd;
    if (!wnd->CreateShow(parent)) {
        delete wnd;
        return nullptr;
    }
    return wnd;
}

DemoRegistrar values{{"&Werte", "&Farben und Bildmarkierungen", [](CWnd* parent) { showValues(parent); },
                      [](DemoTour& tour, CWnd* parent) {
                          // The doubled caption is refused with a message
                          // box: pictured and closed on the way.
                          CValuesWnd* wnd = nullptr;
                          tour.ShotModal(
                              "values-refused", [&] { wnd = showValues(parent); }, IDOK);
                          if (wnd == nullptr)
                              return;
                          DemoSettle(300);
                          tour.Shot(wnd->GetSafeHwnd(), "values");
                          wnd->DestroyWindow();
                      }}};

}  // namespace
