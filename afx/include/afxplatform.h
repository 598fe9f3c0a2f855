// The one compatibility header: Win32 scalar types and the export macro.
//
// In the Windows build it includes <windows.h>, as the framework's own
// headers do, so that every translation unit sees the same A/W name macros
// (LoadString, CompareString, ...). In the native build it defines the few
// Win32 scalar types and structures the portable units use, with the same
// sizes and layouts as on 64-bit Windows.
#pragma once

#include <cstddef>
#include <cstdint>

#ifdef _WIN32

#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef STRICT
#define STRICT
#endif
#include <windows.h>
#include <tchar.h>

#else  // native build

typedef int BOOL;
typedef unsigned char BYTE;
typedef unsigned short WORD;
typedef std::uint32_t DWORD;
typedef unsigned int UINT;
typedef int INT;
typedef std::int32_t LONG;
typedef std::uint32_t ULONG;
typedef long long LONGLONG;
typedef unsigned long long ULONGLONG;
typedef std::intptr_t INT_PTR;
typedef std::uintptr_t UINT_PTR;
typedef std::intptr_t LONG_PTR;
typedef std::uintptr_t ULONG_PTR;
typedef std::uintptr_t DWORD_PTR;
typedef std::size_t SIZE_T;
typedef UINT* PUINT;
typedef char CHAR;
typedef char TCHAR;
typedef char* LPSTR;
typedef const char* LPCSTR;
typedef char* LPTSTR;
typedef const char* LPCTSTR;
typedef void* LPVOID;
typedef const void* LPCVOID;
typedef BYTE* LPBYTE;
typedef DWORD COLORREF;
typedef LONG HRESULT;
typedef UINT_PTR WPARAM;
typedef LONG_PTR LPARAM;
typedef LONG_PTR LRESULT;

#ifndef TRUE
#define TRUE 1
#define FALSE 0
#endif

#define __int64 long long
#define PASCAL
#define WINAPI
#define CALLBACK
#define _T(x) x
#define _TEXT(x) x
#define TEXT(x) x
#define MAX_PATH 260

typedef struct tagPOINT
{
    LONG x;
    LONG y;
} POINT, *LPPOINT;
typedef const POINT* LPCPOINT;
typedef struct tagSIZE
{
    LONG cx;
    LONG cy;
} SIZE, *LPSIZE;
typedef struct tagRECT
{
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
} RECT, *LPRECT;
typedef const RECT* LPCRECT;

#define RGB(r, g, b) ((COLORREF)(((BYTE)(r) | ((WORD)((BYTE)(g)) << 8)) | (((DWORD)(BYTE)(b)) << 16)))
#define GetRValue(rgb) ((BYTE)(rgb))
#define GetGValue(rgb) ((BYTE)(((WORD)(rgb)) >> 8))
#define GetBValue(rgb) ((BYTE)((rgb) >> 16))
#define MAKELONG(a, b) \
    ((LONG)(((WORD)(((DWORD_PTR)(a)) & 0xffff)) | ((DWORD)((WORD)(((DWORD_PTR)(b)) & 0xffff))) << 16))
#define LOWORD(l) ((WORD)(((DWORD_PTR)(l)) & 0xffff))
#define HIWORD(l) ((WORD)((((DWORD_PTR)(l)) >> 16) & 0xffff))

#define MB_OK 0x00000000L
#define MB_OKCANCEL 0x00000001L
#define MB_YESNOCANCEL 0x00000003L
#define MB_YESNO 0x00000004L
#define MB_ICONERROR 0x00000010L
#define MB_ICONEXCLAMATION 0x00000030L
#define MB_ICONINFORMATION 0x00000040L
#define IDOK 1
#define IDCANCEL 2
#define IDABORT 3
#define IDRETRY 4
#define IDIGNORE 5
#define IDYES 6
#define IDNO 7

#endif  // _WIN32

#ifndef _countof
#define _countof(a) (sizeof(a) / sizeof((a)[0]))
#endif

// Export macro of afx.dll. The native build links the portable units
// statically, so there it is empty.
#if defined(_WIN32) && !defined(AFX_STATIC)
#ifdef AFX_BUILDING
#define AFX_API __declspec(dllexport)
#else
#define AFX_API __declspec(dllimport)
#endif
#else
#define AFX_API
#endif

// Export macro of an extension DLL's classes, functions and data: exported
// while the DLL itself is compiled (with _AFXEXT defined), imported by the
// programs that use it.
#if defined(_WIN32)
#ifdef _AFXEXT
#define AFX_EXT_CLASS __declspec(dllexport)
#else
#define AFX_EXT_CLASS __declspec(dllimport)
#endif
#else
#define AFX_EXT_CLASS
#endif
#define AFX_EXT_API AFX_EXT_CLASS
#define AFX_EXT_DATA AFX_EXT_CLASS

// Opaque iteration position of the framework's collections.
struct __POSITION
{};
typedef __POSITION* POSITION;

// Start position of a collection iteration that has no element.
#ifndef BEFORE_START_POSITION
#define BEFORE_START_POSITION ((POSITION)-1L)
#endif
