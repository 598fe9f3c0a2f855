// Diagnostics: failed assertions, object checks and trace output.
#include "afxdebug.h"

#include <cstdlib>

BOOL AfxAssertFailedLine(LPCSTR lpszFileName, int nLine)
{
    CString report;
    report.Format("%s(%d): assertion failed\n", lpszFileName != nullptr ? lpszFileName : "?", nLine);
    afxDump << report.GetString();
    afxDump.Flush();
#ifdef _WIN32
    if (IsDebuggerPresent())
        return TRUE;
#endif
    std::abort();
}

void AfxDebugBreak()
{
#ifdef _WIN32
    DebugBreak();
#else
    __builtin_trap();
#endif
}

void AfxAssertValidObject(const CObject* pOb, LPCSTR lpszFileName, int nLine)
{
    if (pOb == nullptr) {
        if (AfxAssertFailedLine(lpszFileName, nLine))
            AfxDebugBreak();
        return;
    }
    pOb->AssertValid();
}

void AfxTraceV(LPCSTR lpszFormat, va_list args)
{
    CString text;
    text.FormatV(lpszFormat, args);
    afxDump << text.GetString();
}

void AfxTraceUnchecked(LPCSTR lpszFormat, ...)
{
    va_list args;
    va_start(args, lpszFormat);
    AfxTraceV(lpszFormat, args);
    va_end(args);
}
