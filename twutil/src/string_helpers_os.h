// What the portable string helpers ask the system for; string_helpers_win.cpp
// and, in the native build, string_helpers_posix.cpp answer.
#pragma once

#include "string_helpers.h"

// The directory of the running program without a trailing separator; empty
// when the system does not tell.
CString ProgramDirectory();

// Reads the environment variable name into value; FALSE when it is not set or
// cannot be read.
BOOL ReadEnvironmentVariable(const char* name, CString& value);
