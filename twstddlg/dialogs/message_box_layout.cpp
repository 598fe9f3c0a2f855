#include "dialogs/message_box_layout.h"

namespace twmsgbox {

namespace {

// The default button by bits 8 and 9: neither or both give Yes.
constexpr struct
{
    unsigned bits;
    int button;
} kDefaultButtons[] = {
    {0, kAnswerYes},
    {kStyleDefYesAll, kAnswerYesAll},
    {kStyleDefNo, kAnswerNo},
    {kStyleDefYesAll | kStyleDefNo, kAnswerYes},
};

bool has(unsigned style, unsigned bit)
{
    return (style & bit) != 0;
}

}  // namespace

Layout LayoutFor(unsigned style)
{
    const bool okOnly = has(style, kStyleOkOnly);
    Layout layout = {};
    layout.showYesAll = okOnly || has(style, kStyleYesAll);
    layout.yesAllIsOk = okOnly;
    layout.showYesNo = !okOnly;
    layout.showCheckBox = has(style, kStyleDontShow);
    layout.defaultButton = kAnswerYes;
    if (okOnly) {
        layout.defaultButton = kAnswerYesAll;
    } else {
        const unsigned bits = style & (kStyleDefYesAll | kStyleDefNo);
        for (const auto& entry : kDefaultButtons)
            if (entry.bits == bits)
                layout.defaultButton = entry.button;
    }
    return layout;
}

int SilencedAnswer(unsigned style)
{
    if (has(style, kStyleOkOnly))
        return kAnswerOk;
    return has(style, kStyleSilentNo) ? kAnswerNo : kAnswerYes;
}

int YesAllAnswer(unsigned style)
{
    return has(style, kStyleOkOnly) ? kAnswerOk : kAnswerYesAll;
}

CString SettingsName(const char* caption, int messageId)
{
    CString name;
    name.Format("NOMSG_%s_%i", caption != nullptr ? caption : "", messageId);
    return name;
}

}  // namespace twmsgbox
