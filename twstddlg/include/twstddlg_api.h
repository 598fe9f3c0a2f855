// Export macro of twstddlg.dll.
#pragma once
#include "afxplatform.h"

#if defined(_WIN32) && !defined(TWSTDDLG_STATIC)
#ifdef TWSTDDLG_BUILDING
#define TWSTDDLG_API __declspec(dllexport)
#else
#define TWSTDDLG_API __declspec(dllimport)
#endif
#else
#define TWSTDDLG_API
#endif
