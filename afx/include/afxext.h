// The framework's extensions header. Its classes (control bars, bitmap
// buttons, splitter windows, form views) do not exist yet; it gives
// afxwin.h, so programs that include it compile.
#pragma once

#include "afxwin.h"
