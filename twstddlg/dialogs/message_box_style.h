// The message box's style bits and answers, and the profile section where
// a silenced question is remembered: a question with caption C and number N
// is silenced while the value "NOMSG_<C>_<N>" there is non-zero.
#pragma once

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

}  // namespace twmsgbox
