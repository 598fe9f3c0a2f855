// Putting texts, file names and pictures on the clipboard.
#pragma once

#include "twutil_api.h"
#include "afxstr.h"

#ifdef _WIN32

// Clipboard transfers as static functions. Each call replaces the whole
// clipboard content, or leaves it unchanged and returns FALSE when it
// fails (bad input, or the clipboard stays busy with another program for
// about a second).
class TWUTIL_API CClipboardOperation
{
public:
    // Puts a code page 1252 text on the clipboard, as CF_TEXT and as
    // CF_UNICODETEXT converted from code page 1252, so other programs read
    // "ä" whatever the system's code page. An empty text is put as such;
    // null is refused.
    static BOOL CopyTextToClipboard(const char* text);

    // Puts a file (or folder) on the clipboard so that Explorer pastes a
    // copy of it: CF_HDROP with the full path and "Preferred DropEffect"
    // copy; the full path also as text. A name that names nothing is
    // refused. Relative names are made full against the current directory.
    static BOOL CopyFileNameToClipBoard(CString path);

    // Puts the picture in the file on the clipboard as CF_DIB (24 bits per
    // pixel, bottom-up) and CF_BITMAP. BMP files are loaded with LoadImageA,
    // everything else with OleLoadPicture (JPEG, GIF, PNG, ICO, WMF, EMF;
    // icons and metafiles are drawn at their size on white). A missing file
    // or one that is not a picture is refused.
    static BOOL CopyPictureContentToClipBoard(CString path);

    // The clipboard's text in code page 1252 (read as CF_UNICODETEXT and
    // converted, characters outside the code page becoming '?'; CF_TEXT when
    // there is no Unicode text). FALSE, with text emptied, when the clipboard
    // holds no text.
    static BOOL GetTextFromClipboard(CString& text);
};

#endif
