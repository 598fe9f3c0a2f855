// The module that holds the library's code and resources.
#pragma once

#include "afxplatform.h"

// The library's module instance handle: twstddlg.dll, or the program that
// the library's objects are linked into (a test). The library's own texts
// are loaded from it.
HINSTANCE TwLibraryInstance();
