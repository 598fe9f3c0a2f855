// Dialog data exchange and validation, and CWnd::UpdateData, which runs it.
#include "wnd_state.h"

#include <cerrno>
#include <cfloat>
#include <climits>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

// The framework's English texts of parse and validation failures.
constexpr char kParseInt[] = "Please enter an integer.";
constexpr char kParseUInt[] = "Please enter a positive integer.";
constexpr char kParseReal[] = "Please enter a number.";
constexpr char kParseByte[] = "Please enter an integer between 0 and 255.";
constexpr char kIntRange[] = "Please enter an integer between %1 and %2.";
constexpr char kRealRange[] = "Please enter a number between %1 and %2.";
constexpr char kStringSize[] = "Please enter no more than %1 characters.";

// The template with %1 and %2 replaced.
CString FormatPrompt(const char* pszTemplate, const CString& arg1, const CString& arg2 = CString())
{
    CString text(pszTemplate);
    text.Replace("%1", arg1);
    text.Replace("%2", arg2);
    return text;
}

[[noreturn]] void FailWith(CDataExchange* pDX, const CString& prompt, UINT nIDPrompt)
{
    AfxMessageBox(prompt, MB_ICONEXCLAMATION, nIDPrompt);
    pDX->Fail();
}

bool IsBlank(char ch)
{
    return ch == ' ' || ch == '\t' || ch == '\n' || ch == '\r' || ch == '\v' || ch == '\f';
}

bool OnlyBlanksFrom(const char* p)
{
    while (*p != '\0' && IsBlank(*p))
        ++p;
    return *p == '\0';
}

// A whole signed number with optional white space around it.
bool ParseSigned(const char* text, long long minValue, long long maxValue, long long& value)
{
    errno = 0;
    char* end = nullptr;
    const long long parsed = std::strtoll(text, &end, 10);
    if (end == text || errno == ERANGE || !OnlyBlanksFrom(end) || parsed < minValue || parsed > maxValue)
        return false;
    value = parsed;
    return true;
}

// As ParseSigned without a minus sign.
bool ParseUnsigned(const char* text, unsigned long long maxValue, unsigned long long& value)
{
    const char* p = text;
    while (IsBlank(*p))
        ++p;
    if (*p == '-')
        return false;
    errno = 0;
    char* end = nullptr;
    const unsigned long long parsed = std::strtoull(p, &end, 10);
    if (end == p || errno == ERANGE || !OnlyBlanksFrom(end) || parsed > maxValue)
        return false;
    value = parsed;
    return true;
}

// A floating-point number as the C locale reads it.
bool ParseReal(const char* text, double& value)
{
    errno = 0;
    char* end = nullptr;
    const double parsed = std::strtod(text, &end);
    if (end == text || errno == ERANGE || !OnlyBlanksFrom(end))
        return false;
    value = parsed;
    return true;
}

CString ControlText(CDataExchange* pDX, int nIDC)
{
    CString text;
    const HWND hWndCtrl = pDX->PrepareEditCtrl(nIDC);
    const int nLen = ::GetWindowTextLengthA(hWndCtrl);
    const int nCopied = ::GetWindowTextA(hWndCtrl, text.GetBufferSetLength(nLen), nLen + 1);
    text.ReleaseBuffer(nCopied);
    return text;
}

// Sets the control's text only when it differs, so that an unchanged
// control neither flickers nor reports a change.
void SetControlText(HWND hWndCtrl, const char* pszText)
{
    const int nNewLen = static_cast<int>(std::strlen(pszText));
    char old[256];
    if (nNewLen < static_cast<int>(sizeof(old)) &&
        ::GetWindowTextA(hWndCtrl, old, static_cast<int>(sizeof(old))) == nNewLen && std::strcmp(old, pszText) == 0)
        return;
    ::SetWindowTextA(hWndCtrl, pszText);
}

template <class T>
void ExchangeSigned(CDataExchange* pDX, int nIDC, T& value, long long minValue, long long maxValue,
                    const char* pszPrompt, UINT nIDPrompt, const char* pszFormat)
{
    if (pDX->m_bSaveAndValidate) {
        long long parsed = 0;
        if (!ParseSigned(ControlText(pDX, nIDC), minValue, maxValue, parsed))
            FailWith(pDX, pszPrompt, nIDPrompt);
        value = static_cast<T>(parsed);
    } else {
        const HWND hWndCtrl = pDX->PrepareEditCtrl(nIDC);
        char text[32];
        std::snprintf(text, sizeof(text), pszFormat, static_cast<long long>(value));
        SetControlText(hWndCtrl, text);
    }
}

template <class T>
void ExchangeUnsigned(CDataExchange* pDX, int nIDC, T& value, unsigned long long maxValue, const char* pszPrompt,
                      UINT nIDPrompt)
{
    if (pDX->m_bSaveAndValidate) {
        unsigned long long parsed = 0;
        if (!ParseUnsigned(ControlText(pDX, nIDC), maxValue, parsed))
            FailWith(pDX, pszPrompt, nIDPrompt);
        value = static_cast<T>(parsed);
    } else {
        const HWND hWndCtrl = pDX->PrepareEditCtrl(nIDC);
        char text[32];
        std::snprintf(text, sizeof(text), "%llu", static_cast<unsigned long long>(value));
        SetControlText(hWndCtrl, text);
    }
}

template <class T>
void ExchangeReal(CDataExchange* pDX, int nIDC, T& value, int nDigits)
{
    if (pDX->m_bSaveAndValidate) {
        double parsed = 0;
        if (!ParseReal(ControlText(pDX, nIDC), parsed))
            FailWith(pDX, kParseReal, AFX_IDP_PARSE_REAL);
        value = static_cast<T>(parsed);
    } else {
        const HWND hWndCtrl = pDX->PrepareEditCtrl(nIDC);
        char text[64];
        std::snprintf(text, sizeof(text), "%.*g", nDigits, static_cast<double>(value));
        SetControlText(hWndCtrl, text);
    }
}

CString NumberText(long long value)
{
    CString text;
    text.Format("%lld", value);
    return text;
}

CString NumberText(unsigned long long value)
{
    CString text;
    text.Format("%llu", value);
    return text;
}

CString NumberText(double value)
{
    CString text;
    text.Format("%.*g", DBL_DIG, value);
    return text;
}

}  // namespace

CDataExchange::CDataExchange(CWnd* pDlgWnd, BOOL bSaveAndValidate)
    : m_bSaveAndValidate(bSaveAndValidate), m_pDlgWnd(pDlgWnd), m_idLastControl(0), m_bEditLastControl(FALSE)
{}

HWND CDataExchange::PrepareCtrl(int nIDC)
{
    HWND hWndCtrl = nullptr;
    m_pDlgWnd->GetDlgItem(nIDC, &hWndCtrl);
    if (hWndCtrl == nullptr)
        AfxThrowNotSupportedException();
    m_idLastControl = static_cast<UINT>(nIDC);
    m_bEditLastControl = FALSE;
    return hWndCtrl;
}

HWND CDataExchange::PrepareEditCtrl(int nIDC)
{
    const HWND hWndCtrl = PrepareCtrl(nIDC);
    m_bEditLastControl = TRUE;
    return hWndCtrl;
}

void CDataExchange::Fail()
{
    if (m_bSaveAndValidate && m_idLastControl != 0) {
        HWND hWndLastControl = nullptr;
        m_pDlgWnd->GetDlgItem(static_cast<int>(m_idLastControl), &hWndLastControl);
        if (hWndLastControl != nullptr) {
            ::SetFocus(hWndLastControl);
            if (m_bEditLastControl)
                ::SendMessageA(hWndLastControl, EM_SETSEL, 0, -1);
        }
    }
    AfxThrowUserException();
}

void DDX_Text(CDataExchange* pDX, int nIDC, CString& value)
{
    if (pDX->m_bSaveAndValidate) {
        value = ControlText(pDX, nIDC);
    } else {
        SetControlText(pDX->PrepareEditCtrl(nIDC), value);
    }
}

void DDX_Text(CDataExchange* pDX, int nIDC, LPTSTR value, int nMaxLen)
{
    const HWND hWndCtrl = pDX->PrepareEditCtrl(nIDC);
    if (pDX->m_bSaveAndValidate)
        ::GetWindowTextA(hWndCtrl, value, nMaxLen);
    else
        SetControlText(hWndCtrl, value);
}

void DDX_Text(CDataExchange* pDX, int nIDC, int& value)
{
    ExchangeSigned(pDX, nIDC, value, INT_MIN, INT_MAX, kParseInt, AFX_IDP_PARSE_INT, "%lld");
}

void DDX_Text(CDataExchange* pDX, int nIDC, long& value)
{
    ExchangeSigned(pDX, nIDC, value, LONG_MIN, LONG_MAX, kParseInt, AFX_IDP_PARSE_INT, "%lld");
}

void DDX_Text(CDataExchange* pDX, int nIDC, short& value)
{
    ExchangeSigned(pDX, nIDC, value, SHRT_MIN, SHRT_MAX, kParseInt, AFX_IDP_PARSE_INT, "%lld");
}

void DDX_Text(CDataExchange* pDX, int nIDC, BYTE& value)
{
    ExchangeSigned(pDX, nIDC, value, 0, 255, kParseByte, AFX_IDP_PARSE_BYTE, "%lld");
}

void DDX_Text(CDataExchange* pDX, int nIDC, UINT& value)
{
    ExchangeUnsigned(pDX, nIDC, value, UINT_MAX, kParseUInt, AFX_IDP_PARSE_UINT);
}

void DDX_Text(CDataExchange* pDX, int nIDC, DWORD& value)
{
    ExchangeUnsigned(pDX, nIDC, value, 0xFFFFFFFFULL, kParseUInt, AFX_IDP_PARSE_UINT);
}

void DDX_Text(CDataExchange* pDX, int nIDC, float& value)
{
    ExchangeReal(pDX, nIDC, value, FLT_DIG);
}

void DDX_Text(CDataExchange* pDX, int nIDC, double& value)
{
    ExchangeReal(pDX, nIDC, value, DBL_DIG);
}

void DDX_Check(CDataExchange* pDX, int nIDC, int& value)
{
    const HWND hWndCtrl = pDX->PrepareCtrl(nIDC);
    if (pDX->m_bSaveAndValidate)
        value = static_cast<int>(::SendMessageA(hWndCtrl, BM_GETCHECK, 0, 0));
    else
        ::SendMessageA(hWndCtrl, BM_SETCHECK, static_cast<WPARAM>(value), 0);
}

void DDX_Radio(CDataExchange* pDX, int nIDC, int& value)
{
    HWND hWndCtrl = pDX->PrepareCtrl(nIDC);
    if (pDX->m_bSaveAndValidate)
        value = -1;
    // The group runs from nIDC to the next control with WS_GROUP; only
    // radio buttons count.
    int index = 0;
    do {
        if (::SendMessageA(hWndCtrl, WM_GETDLGCODE, 0, 0) & DLGC_RADIOBUTTON) {
            if (pDX->m_bSaveAndValidate) {
                if (::SendMessageA(hWndCtrl, BM_GETCHECK, 0, 0) != 0)
                    value = index;
            } else {
                ::SendMessageA(hWndCtrl, BM_SETCHECK, index == value, 0);
            }
            ++index;
        }
        hWndCtrl = ::GetWindow(hWndCtrl, GW_HWNDNEXT);
    } while (hWndCtrl != nullptr && (::GetWindowLongA(hWndCtrl, GWL_STYLE) & WS_GROUP) == 0);
}

void DDX_Control(CDataExchange* pDX, int nIDC, CWnd& rControl)
{
    if (rControl.m_hWnd != nullptr)
        return;
    const HWND hWndCtrl = pDX->PrepareCtrl(nIDC);
    if (!rControl.SubclassWindow(hWndCtrl))
        AfxThrowNotSupportedException();
}

void DDV_MaxChars(CDataExchange* pDX, const CString& value, int nChars)
{
    if (pDX->m_bSaveAndValidate) {
        if (value.GetLength() > nChars)
            FailWith(pDX, FormatPrompt(kStringSize, NumberText(static_cast<long long>(nChars))),
                     AFX_IDP_PARSE_STRING_SIZE);
    } else if (pDX->m_idLastControl != 0 && pDX->m_bEditLastControl) {
        HWND hWndLastControl = nullptr;
        pDX->m_pDlgWnd->GetDlgItem(static_cast<int>(pDX->m_idLastControl), &hWndLastControl);
        ::SendMessageA(hWndLastControl, EM_LIMITTEXT, static_cast<WPARAM>(nChars), 0);
    }
}

void DDV_MinMaxInt(CDataExchange* pDX, int value, int minVal, int maxVal)
{
    DDV_MinMaxLong(pDX, value, minVal, maxVal);
}

void DDV_MinMaxLong(CDataExchange* pDX, long value, long minVal, long maxVal)
{
    if (pDX->m_bSaveAndValidate && (value < minVal || value > maxVal))
        FailWith(pDX,
                 FormatPrompt(kIntRange, NumberText(static_cast<long long>(minVal)),
                              NumberText(static_cast<long long>(maxVal))),
                 AFX_IDP_PARSE_INT_RANGE);
}

void DDV_MinMaxUInt(CDataExchange* pDX, UINT value, UINT minVal, UINT maxVal)
{
    DDV_MinMaxDWord(pDX, value, minVal, maxVal);
}

void DDV_MinMaxDWord(CDataExchange* pDX, DWORD value, DWORD minVal, DWORD maxVal)
{
    if (pDX->m_bSaveAndValidate && (value < minVal || value > maxVal))
        FailWith(pDX,
                 FormatPrompt(kIntRange, NumberText(static_cast<unsigned long long>(minVal)),
                              NumberText(static_cast<unsigned long long>(maxVal))),
                 AFX_IDP_PARSE_INT_RANGE);
}

void DDV_MinMaxDouble(CDataExchange* pDX, const double& value, double minVal, double maxVal)
{
    if (pDX->m_bSaveAndValidate && (value < minVal || value > maxVal))
        FailWith(pDX, FormatPrompt(kRealRange, NumberText(minVal), NumberText(maxVal)), AFX_IDP_PARSE_REAL_RANGE);
}

BOOL CWnd::UpdateData(BOOL bSaveAndValidate)
{
    CDataExchange dx(this, bSaveAndValidate);
    AfxWndThreadState& state = AfxGetWndThreadState();
    const HWND hWndOldLockout = state.hLockoutNotifyWindow;
    // Control notifications that the exchange itself causes stay unseen.
    state.hLockoutNotifyWindow = m_hWnd;
    BOOL ok = FALSE;
    try {
        DoDataExchange(&dx);
        ok = TRUE;
    } catch (CUserException* e) {
        // Validation failed; the user has been told.
        e->Delete();
    } catch (CException* e) {
        char text[512] = {};
        if (!e->GetErrorMessage(text, sizeof(text)))
            std::strcpy(text, "Internal application error.");
        AfxMessageBox(text, MB_ICONSTOP, AFX_IDP_INTERNAL_FAILURE);
        e->Delete();
    }
    state.hLockoutNotifyWindow = hWndOldLockout;
    return ok;
}

void CWnd::DoDataExchange(CDataExchange*) {}
