// Drives modal dialogs from inside their own message loop: the test arms a
// script before DoModal, the driver runs it once the dialog is initialised
// and shown, and the script reads and sets controls, clicks, types keys and
// ends the dialog.
//
//   DialogDriver driver;
//   driver.OnDialog([&](DialogHandle& d) {
//       EXPECT_EQ(d.Text(IDC_NAME), "Anna");
//       d.Key(VK_F1);
//       d.Click(IDOK);
//   });
//   EXPECT_EQ(dlg.DoModal(), IDOK);
//
// Each step that sends input waits until the dialog's loop has processed it
// (the driver pumps the framework's loop up to a marker message posted after
// the input). A dialog the script leaves open is cancelled afterwards and
// counted in LeftOpen(); a watchdog cancels dialogs whose script never ran.
#pragma once

#include "afxwin.h"

#include <deque>
#include <functional>
#include <string>

// Modifier keys held during DialogHandle::Key.
enum KeyModifier : UINT
{
    kNoModifier = 0,
    kShift = 1,
    kCtrl = 2,
    kAlt = 4,
};

// One shown dialog as the script sees it.
class DialogHandle
{
public:
    explicit DialogHandle(HWND hWnd) : m_hWnd(hWnd) {}

    HWND Hwnd() const { return m_hWnd; }
    HWND Item(int id) const;
    std::string Caption() const;
    std::string Text(int id) const;
    // Sets a control's text as the program would (WM_SETTEXT; edits report EN_CHANGE).
    void SetText(int id, const char* text);
    int Check(int id) const;
    void SetCheck(int id, int state);
    // The control that has the keyboard focus, or NULL.
    HWND Focus() const;
    // Clicks a button as the user does (BM_CLICK) and waits for the result.
    void Click(int id);
    // Sends WM_COMMAND with the control's id and notification code, as the
    // control itself would.
    void Command(int id, UINT code = BN_CLICKED);
    // Types one key (down and up) into the focused control, with the
    // modifiers held as far as GetKeyState can tell, and waits until the
    // dialog's loop has processed it.
    void Key(UINT vk, UINT modifiers = kNoModifier);
    // Lets the dialog's loop process everything queued so far.
    void Pump();
    // Ends the dialog with nResult (CDialog::EndDialog for framework dialogs).
    void End(int nResult);
    // Whether the dialog still exists and is shown.
    bool IsOpen() const;

private:
    HWND m_hWnd;
};

// Runs scripts on the dialogs the calling thread shows, one script per
// dialog in the order they were added. Only one driver may exist at a time.
class DialogDriver
{
public:
    using Script = std::function<void(DialogHandle&)>;

    // nWatchdogMs bounds the wait for a dialog that is shown but whose
    // script does not run or does not end it.
    explicit DialogDriver(UINT nWatchdogMs = 10000);
    ~DialogDriver();
    DialogDriver(const DialogDriver&) = delete;
    DialogDriver& operator=(const DialogDriver&) = delete;

    // Adds a script for the next top-level dialog (with this caption, when
    // given) that is shown.
    void OnDialog(Script script, const char* caption = nullptr);

    // Scripts that ran.
    int Ran() const { return m_ran; }
    // Dialogs a script left open, which the driver then cancelled.
    int LeftOpen() const { return m_leftOpen; }
    // Whether the watchdog had to cancel a dialog.
    bool TimedOut() const { return m_timedOut; }

private:
    struct Entry
    {
        Script script;
        std::string caption;
    };

    static LRESULT CALLBACK HookProc(int code, WPARAM wParam, LPARAM lParam);
    static LRESULT CALLBACK DriverWndProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam);
    void OnShown(HWND hDialog);
    void RunScript(HWND hDialog);
    void OnWatchdog();

    friend class DialogHandle;

    HWND m_hWndDriver = nullptr;
    HHOOK m_hHook = nullptr;
    UINT m_nWatchdogMs;
    std::deque<Entry> m_scripts;
    std::deque<HWND> m_initialised;
    int m_ran = 0;
    int m_leftOpen = 0;
    bool m_timedOut = false;
    unsigned m_markerSent = 0;
    unsigned m_markerSeen = 0;
};
