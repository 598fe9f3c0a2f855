// The test application: scripted message boxes, recorded help, private
// registry key.
#include "test_app.h"

#include <array>

namespace {

CTestApp* g_testApp = nullptr;

// The buttons of each message box type, left to right.
struct BoxButtons
{
    UINT type;
    std::array<int, 3> answers;
};

constexpr BoxButtons kBoxButtons[] = {
    {MB_OK, {IDOK, IDOK, IDOK}},
    {MB_OKCANCEL, {IDOK, IDCANCEL, IDCANCEL}},
    {MB_ABORTRETRYIGNORE, {IDABORT, IDRETRY, IDIGNORE}},
    {MB_YESNOCANCEL, {IDYES, IDNO, IDCANCEL}},
    {MB_YESNO, {IDYES, IDNO, IDNO}},
    {MB_RETRYCANCEL, {IDRETRY, IDCANCEL, IDCANCEL}},
    {MB_CANCELTRYCONTINUE, {IDCANCEL, IDTRYAGAIN, IDCONTINUE}},
};

}  // namespace

CTestApp::CTestApp() : CWinApp(kAppName)
{
    g_testApp = this;
    m_companyKey.Format("Software\\TwTests_%lu_%lu", GetCurrentProcessId(), GetTickCount());
}

CTestApp::~CTestApp()
{
    RegDeleteTreeA(HKEY_CURRENT_USER, m_companyKey);
    if (g_testApp == this)
        g_testApp = nullptr;
}

CTestApp& CTestApp::Get()
{
    return *g_testApp;
}

BOOL CTestApp::InitInstance()
{
    // "Software\" is added by the framework.
    SetRegistryKey(m_companyKey.Mid(9));
    return TRUE;
}

int CTestApp::DoMessageBox(LPCTSTR lpszPrompt, UINT nType, UINT nIDPrompt)
{
    m_boxes.push_back({CString(lpszPrompt), nType, nIDPrompt});
    if (!m_answers.empty()) {
        const int answer = m_answers.front();
        m_answers.pop_front();
        return answer;
    }
    return m_defaultAnswer != 0 ? m_defaultAnswer : DefaultButtonAnswer(nType);
}

void CTestApp::WinHelp(DWORD_PTR dwData, UINT nCmd)
{
    m_help.push_back({dwData, nCmd});
}

void CTestApp::QueueAnswer(int nAnswer)
{
    m_answers.push_back(nAnswer);
}

void CTestApp::SetDefaultAnswer(int nAnswer)
{
    m_defaultAnswer = nAnswer;
}

void CTestApp::Reset()
{
    m_boxes.clear();
    m_help.clear();
    m_answers.clear();
    m_defaultAnswer = 0;
}

CString CTestApp::ProfileKeyPath() const
{
    return m_companyKey + "\\" + m_pszProfileName;
}

void CTestApp::Reinstate()
{
    AFX_MODULE_STATE* state = AfxGetModuleState();
    state->m_pCurrentWinApp = this;
    AfxWinInit(m_hInstance, nullptr, m_lpCmdLine, m_nCmdShow);
}

int CTestApp::DefaultButtonAnswer(UINT nType)
{
    const UINT buttons = nType & MB_TYPEMASK;
    const UINT index = ((nType & MB_DEFMASK) >> 8) & 3;
    for (const auto& b : kBoxButtons) {
        if (b.type == buttons)
            return b.answers[index < b.answers.size() ? index : 0];
    }
    return IDOK;
}
