// The library's version: the one place it is written down.
#pragma once

#define TWSTDDLG_VERSION_MAJOR 1
#define TWSTDDLG_VERSION_MINOR 0
#define TWSTDDLG_VERSION_BUILD 0
#define TWSTDDLG_VERSION_TEXT "1.0.0.0"
