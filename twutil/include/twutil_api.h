// Export macro of twutil.dll.
#pragma once
#include "afxplatform.h"

#if defined(_WIN32) && !defined(TWUTIL_STATIC)
#ifdef TWUTIL_BUILDING
#define TWUTIL_API __declspec(dllexport)
#else
#define TWUTIL_API __declspec(dllimport)
#endif
#else
#define TWUTIL_API
#endif
