// The application object of the window tests: it records message boxes and
// help requests and answers them from a script, and keeps its profile below
// a registry key of its own that it removes again.
#pragma once

#include "afxwin.h"

#include <deque>
#include <vector>

// A CWinApp that never waits for a person: every message box is recorded
// and answered, every help request is recorded and opens nothing.
class CTestApp : public CWinApp
{
public:
    struct MessageBoxCall
    {
        CString text;
        UINT type;
        UINT helpId;
    };
    struct HelpCall
    {
        DWORD_PTR data;
        UINT command;
    };

    // The application's name, the last part of the registry path.
    static constexpr const char* kAppName = "TwTestApp";

    CTestApp();
    // Removes the application's registry key with everything below it.
    ~CTestApp() override;

    // The one test application of the process.
    static CTestApp& Get();

    // Keeps the profile below a registry key unique to this process.
    BOOL InitInstance() override;

    // Records the box and returns the next scripted answer, or the default.
    int DoMessageBox(LPCTSTR lpszPrompt, UINT nType, UINT nIDPrompt) override;
    // Records the request.
    void WinHelp(DWORD_PTR dwData, UINT nCmd = HELP_CONTEXT) override;

    // Answers the next unanswered message box with nAnswer.
    void QueueAnswer(int nAnswer);
    // Answers unscripted boxes with nAnswer; 0 (the start value) answers each
    // with its default button.
    void SetDefaultAnswer(int nAnswer);
    // Forgets the recorded calls, the scripted answers and the default answer.
    void Reset();

    const std::vector<MessageBoxCall>& MessageBoxes() const { return m_boxes; }
    const std::vector<HelpCall>& HelpCalls() const { return m_help; }

    // The registry key below HKEY_CURRENT_USER that holds the company key
    // ("Software\<unique key>").
    const CString& CompanyKeyPath() const { return m_companyKey; }
    // The key that holds the profile's sections ("Software\<key>\TwTestApp").
    CString ProfileKeyPath() const;

    // Makes this application current again after a test replaced it with
    // another CWinApp (which unregisters itself when destroyed).
    void Reinstate();

    // The answer that a box of type nType gives when its default button is
    // pressed.
    static int DefaultButtonAnswer(UINT nType);

private:
    std::vector<MessageBoxCall> m_boxes;
    std::vector<HelpCall> m_help;
    std::deque<int> m_answers;
    int m_defaultAnswer = 0;
    CString m_companyKey;
};
