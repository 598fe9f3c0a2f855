// The framework's standard dialogs header. The common dialogs and property
// sheets do not exist yet; it gives afxext.h (and so afxwin.h, which holds
// CDialog), so programs that include it compile.
#pragma once

#include "afxext.h"
