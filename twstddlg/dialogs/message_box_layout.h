// What the message box shows and answers for its style bits, and the
// profile value name of a question. The Win32 shell is message_box.cpp.
#pragma once

#include "afxstr.h"
#include "dialogs/message_box_style.h"

namespace twmsgbox {

// What the box shows for one set of style bits.
struct Layout
{
    bool showYesAll;    // button 14
    bool yesAllIsOk;    // button 14 reads "Ok"
    bool showYesNo;     // buttons 6 and 7
    bool showCheckBox;  // the check box, and whether a stored choice counts
    int defaultButton;  // the id given to DM_SETDEFID
};

// The buttons, the check box and the default button for `style`.
Layout LayoutFor(unsigned style);

// The answer of a question that the user silenced: 1 in single-button
// mode, else 7 with kStyleSilentNo, else 6.
int SilencedAnswer(unsigned style);

// The answer of button 14: 1 in single-button mode, else 14.
int YesAllAnswer(unsigned style);

// The profile value name of one question: "NOMSG_<caption>_<number>", the
// caption taken as it is.
CString SettingsName(const char* caption, int messageId);

}  // namespace twmsgbox
