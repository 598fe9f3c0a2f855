// The message box's style bits: which buttons it shows, which one is the
// default, what it answers without asking, and where a silenced question is
// remembered. The Win32 shell is message_box.cpp.
#pragma once

#include "afxstr.h"
#include "twstddlg_api.h"

namespace twmsgbox {

// Style bits of CMessageBox.
inline constexpr unsigned kStyleYesAll = 0x1;       // shows "Ja, &alle"
inline constexpr unsigned kStyleDontShow = 0x2;     // shows the check box and honours a stored choice
inline constexpr unsigned kStyleOkOnly = 0x4;       // one "Ok" button instead of Yes and No
inline constexpr unsigned kStyleSilentNo = 0x8;     // a silenced question answers No instead of Yes
inline constexpr unsigned kStyleDefYesAll = 0x100;  // default button "Ja, &alle" (alone)
inline constexpr unsigned kStyleDefNo = 0x200;      // default button "&Nein" (alone)

// The answers, which are also the ids of the buttons that give them.
inline constexpr int kAnswerOk = 1;
inline constexpr int kAnswerYes = 6;
inline constexpr int kAnswerNo = 7;
inline constexpr int kAnswerYesAll = 14;

// The profile section that holds the silenced questions.
inline constexpr const char* kProfileSection = "Einstellungen";

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
TWSTDDLG_API Layout LayoutFor(unsigned style);

// The answer of a question that the user silenced: 1 in single-button
// mode, else 7 with kStyleSilentNo, else 6.
TWSTDDLG_API int SilencedAnswer(unsigned style);

// The answer of button 14: 1 in single-button mode, else 14.
TWSTDDLG_API int YesAllAnswer(unsigned style);

// The profile value name of one question: "NOMSG_<caption>_<number>", the
// caption taken as it is.
TWSTDDLG_API CString SettingsName(const char* caption, int messageId);

}  // namespace twmsgbox
