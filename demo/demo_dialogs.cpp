// The demo's "&Dialoge" menu: the message box with its variants and the
// question dialog with answers for all.
#include "demo_catalog.h"
#include "dialogs/ask_something.h"
#include "dialogs/message_box.h"

namespace {

// One showing of CMessageBox as the demo offers it.
struct MessageBoxSample
{
    const char* label;
    const char* shotName;
    int messageId;
    const char* caption;
    const char* message;
    int style;
};

constexpr MessageBoxSample kMessageBoxSamples[] = {
    {"&Frage mit „Ja, alle“ und Ankreuzfeld", "message-box-question", 1, "Dateien speichern",
     "Die Datei „Urlaub 2024.jpg“ wurde geändert.\n\nSollen die Änderungen gespeichert werden?",
     twmsgbox::kStyleYesAll | twmsgbox::kStyleDontShow},
    {"Frage mit „&Nein“ als Vorgabe", "message-box-default-no", 2, "Bilder löschen",
     "Sollen die ausgewählten Bilder endgültig gelöscht werden?",
     twmsgbox::kStyleDontShow | twmsgbox::kStyleSilentNo | twmsgbox::kStyleDefNo},
    {"&Hinweis mit „Ok“", "message-box-info", 3, "Datensicherung",
     "Die Datensicherung ist abgeschlossen. Alle 128 Dateien wurden übertragen.", twmsgbox::kStyleOkOnly},
};

const char* answerName(INT_PTR answer)
{
    switch (answer) {
    case IDOK:
        return "Ok / Ja";
    case IDCANCEL:
        return "Abbrechen";
    case IDYES:
        return "Ja";
    case IDNO:
        return "Nein";
    case CMessageBox::kYesToAll:
        return "Ja, alle";
    case CAskSomething::kYesToAll:
        return "Ja, alle";
    case CAskSomething::kNoToAll:
        return "Nein, keine";
    default:
        return "?";
    }
}

void showAnswer(CWnd* parent, INT_PTR answer)
{
    CString text;
    text.Format("Antwort: %d (%s)", static_cast<int>(answer), answerName(answer));
    parent->MessageBox(text, "Ergebnis", MB_OK | MB_ICONINFORMATION);
}

INT_PTR showMessageBox(const MessageBoxSample& sample, CWnd* parent)
{
    CMessageBox box(parent, sample.messageId, sample.caption, sample.message, sample.style);
    return box.DoModal();
}

// The tour always shows the question, even when it was silenced in the
// interactive demo: its profile value "NOMSG_<caption>_<number>" goes to 0.
void forgetSilence(const MessageBoxSample& sample)
{
    CString name;
    name.Format("NOMSG_%s_%i", sample.caption, sample.messageId);
    AfxGetApp()->WriteProfileInt(twmsgbox::kProfileSection, name, 0);
}

DemoEntry messageBoxEntry(const MessageBoxSample& sample)
{
    return {"&Dialoge", sample.label, [&sample](CWnd* parent) { showAnswer(parent, showMessageBox(sample, parent)); },
            [&sample](DemoTour& tour, CWnd* parent) {
                forgetSilence(sample);
                tour.ShotModal(sample.shotName, [&] { showMessageBox(sample, parent); });
            }};
}

const char kQuestion[] = "Die Datei „Urlaub 2024.jpg“ gibt es im Zielordner schon.\n"
                         "Soll sie überschrieben werden?";

DemoRegistrar questionWithCheckBox{messageBoxEntry(kMessageBoxSamples[0])};
DemoRegistrar questionDefaultNo{messageBoxEntry(kMessageBoxSamples[1])};
DemoRegistrar information{messageBoxEntry(kMessageBoxSamples[2])};

DemoRegistrar askSomething{{"&Dialoge", "Frage für &alle Dateien",
                            [](CWnd* parent) {
                                CAskSomething ask(kQuestion, parent);
                                showAnswer(parent, ask.DoModal());
                            },
                            [](DemoTour& tour, CWnd* parent) {
                                tour.ShotModal("ask-something", [&] {
                                    CAskSomething ask(kQuestion, parent);
                                    ask.DoModal();
                                });
                            }}};

}  // namespace
