// The framework's core: strings, run-time classes, exceptions, files,
// archives, geometry and the non-template collections.
#pragma once

#include "afxplatform.h"
#include "afxstr.h"
#include "afxobject.h"
#include "afxexcept.h"
#include "afxfile.h"
#include "afxarchive.h"
#include "atltypes.h"
#include "afxcoll.h"
