// The framework's header of the date and time picker and the month
// calendar controls. Those classes do not exist yet; it gives afxcmn.h, so
// programs that include it compile.
#pragma once

#include "afxcmn.h"
