// The framework's window layer: applications, module state, command
// targets, windows, dialogs, data exchange, the standard controls, menus,
// GDI wrappers and the standard resource ids.
#pragma once

// Programs test this name to see that afxwin.h came first (the wizard's
// headers do).
#ifndef __AFXWIN_H__
#define __AFXWIN_H__
#endif

#include "afx.h"
#include "afxres.h"
#include "afxmsg.h"
#include "afxgdi.h"
#include "afxmenu.h"
#include "afxcmd.h"
#include "afxwnd.h"
#include "afxdialog.h"
#include "afxctrls.h"
#include "afxapp.h"
