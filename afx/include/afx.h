// The framework's core: strings, run-time classes, exceptions, files,
// archives, geometry, the non-template collections and the diagnostics
// (ASSERT, TRACE, DEBUG_NEW).
#pragma once

// Programs test this name to see that afx.h came first.
#ifndef __AFX_H__
#define __AFX_H__
#endif

#include "afxplatform.h"
#include "afxstr.h"
#include "afxobject.h"
#include "afxexcept.h"
#include "afxfile.h"
#include "afxarchive.h"
#include "atltypes.h"
#include "afxcoll.h"
#include "afxdebug.h"
