// A link target: an Internet address, a mail address or a file.
#pragma once

#include "twutil_api.h"
#include "afxstr.h"

// A link target held as one text, opened in the user's browser (or the
// program that the shell associates with it) by Navigate.
class TWUTIL_API CHyperlink
{
public:
    // A null text gives an empty link.
    CHyperlink(const char* link = nullptr);
    CHyperlink(const CHyperlink& other);
    CHyperlink& operator=(const CHyperlink& other);
    CHyperlink& operator=(const char* link);

    operator const char*() const { return m_sLink.GetString(); }
    BOOL IsEmpty() const { return m_sLink.IsEmpty(); }

    // The text that Navigate hands to the shell: the link without blanks
    // around it, with "http://" put before an address that starts with
    // "www." (the shell cannot open it without a scheme).
    CString GetTarget() const;

#ifdef _WIN32
    // Opens the target through the shell seam (verb "open", no owner,
    // SW_SHOWNORMAL) and returns the shell's instance handle value: above 32
    // is success, otherwise a code for ReturnShellExecuteError. An empty
    // link returns SE_ERR_FNF (2) without a call.
    HINSTANCE Navigate() const;
#endif

private:
    CString m_sLink;
};
