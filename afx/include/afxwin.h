// The framework's window layer: applications, module state, command
// targets, windows, dialogs, data exchange, controls and GDI wrappers.
#pragma once

#include "afx.h"
#include "afxmsg.h"
#include "afxgdi.h"
#include "afxmenu.h"
#include "afxwnd.h"
#include "afxapp.h"
