// The framework's automation header. Its classes (COleVariant,
// COleDateTime, COleDispatchDriver) do not exist yet; it gives afxwin.h and
// the system's OLE automation declarations, so programs that include it
// compile.
#pragma once

#include "afxwin.h"

#include <ole2.h>
#include <oleauto.h>
