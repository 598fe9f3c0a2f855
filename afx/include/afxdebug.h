// Diagnostics: assertions, trace output, object checks and DEBUG_NEW.
//
// They are active in a debug build, which is one compiled with _DEBUG (the
// Debug configuration of our CMake package defines it). In a release build
// ASSERT, ASSERT_VALID, ASSERT_KINDOF and TRACE compile to nothing and do
// not evaluate their arguments, VERIFY evaluates its expression without
// checking it, and DEBUG_NEW is plain new.
//
// A failed assertion writes "file(line): assertion failed" to the debugger
// and to stderr, then breaks into a debugger if one is attached and ends the
// process otherwise: there is no Abort/Retry/Ignore box. TRACE writes its
// text to the debugger and to stderr (afxDump), without adding a line end.
// DEBUG_NEW allocates as new does and records nothing (no leak report).
#pragma once

#include "afxplatform.h"
#include "afxformat.h"
#include "afxobject.h"
#include "afxstr.h"

#include <cstdarg>
#include <cstddef>
#include <new>
#include <type_traits>

// Reports a failed assertion at lpszFileName(nLine); TRUE when a debugger
// is attached and should break. Without one it ends the process.
AFX_API BOOL AfxAssertFailedLine(LPCSTR lpszFileName, int nLine);
// Stops in the attached debugger.
AFX_API void AfxDebugBreak();
// Asserts that pOb is not NULL, then calls its AssertValid.
AFX_API void AfxAssertValidObject(const CObject* pOb, LPCSTR lpszFileName, int nLine);
// Writes printf-formatted text to the diagnostic output.
AFX_API void AfxTraceV(LPCSTR lpszFormat, va_list args);
// The C variadic core of AfxTrace; every argument is already passed as printf expects.
AFX_API void AfxTraceUnchecked(LPCSTR lpszFormat, ...);

// TRACE's function: a literal format is checked against the arguments at
// compile time, and a CString argument passes its text (afxformat.h).
template <class... Args>
void AfxTrace(AfxFormatString<std::type_identity_t<Args>...> lpszFormat, const Args&... args)
{
    static_assert((AfxFormat::kPassable<Args> && ...), "TRACE: an argument cannot be passed to printf");
    AfxTraceUnchecked(lpszFormat.get(), AfxFormat::Pass(args)...);
}

// The file name that ASSERT and DEBUG_NEW report; a source may define its
// own (the older wizard's "static char THIS_FILE[] = __FILE__;").
#ifndef THIS_FILE
#define THIS_FILE __FILE__
#endif

// Allocation forms of DEBUG_NEW: they allocate as the plain forms do.
inline void* operator new(std::size_t nSize, LPCSTR /*lpszFileName*/, int /*nLine*/)
{
    return ::operator new(nSize);
}
inline void* operator new[](std::size_t nSize, LPCSTR /*lpszFileName*/, int /*nLine*/)
{
    return ::operator new[](nSize);
}
// Called when a constructor throws after DEBUG_NEW allocated.
inline void operator delete(void* p, LPCSTR /*lpszFileName*/, int /*nLine*/) noexcept
{
    ::operator delete(p);
}
inline void operator delete[](void* p, LPCSTR /*lpszFileName*/, int /*nLine*/) noexcept
{
    ::operator delete[](p);
}

#ifdef _DEBUG

#define ASSERT(f) ((void)((f) || (AfxAssertFailedLine(THIS_FILE, __LINE__) && (AfxDebugBreak(), 0))))
#define VERIFY(f) ASSERT(f)
#define ASSERT_VALID(pOb) AfxAssertValidObject((pOb), THIS_FILE, __LINE__)
#define ASSERT_KINDOF(class_name, object) ASSERT((object)->IsKindOf(RUNTIME_CLASS(class_name)))
#define DEBUG_ONLY(f) (f)
#define TRACE(...) AfxTrace(__VA_ARGS__)
#define DEBUG_NEW new (THIS_FILE, __LINE__)

#else

#define ASSERT(f) ((void)0)
#define VERIFY(f) ((void)(f))
#define ASSERT_VALID(pOb) ((void)0)
#define ASSERT_KINDOF(class_name, object) ((void)0)
#define DEBUG_ONLY(f) ((void)0)
#define TRACE(...) ((void)0)
#define DEBUG_NEW new

#endif

// The fixed-argument forms; TRACE0 prints its text as it is (a '%' in it is
// not a conversion).
#define TRACE0(sz) TRACE("%s", _T(sz))
#define TRACE1(sz, p1) TRACE(_T(sz), p1)
#define TRACE2(sz, p1, p2) TRACE(_T(sz), p1, p2)
#define TRACE3(sz, p1, p2, p3) TRACE(_T(sz), p1, p2, p3)
