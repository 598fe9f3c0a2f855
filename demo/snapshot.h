// Saving what a window shows on screen as a PNG file.
#pragma once
#include <windows.h>

// Paints `wnd` and its children now and writes the window's on-screen image,
// frame included, to `path` as PNG. Returns false when the window is not
// visible, its image has one colour only (it was not on screen), or the file
// cannot be written.
bool SnapshotWindowToPng(HWND wnd, const char* path);
