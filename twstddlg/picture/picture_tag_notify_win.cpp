// Windows shell of the picture tag array: tells the user about a tag that
// BuildArray refused, with the library's own message 30040.
#include "picture/picture_tag_refusal.h"

#include "afxwin.h"
#include "frame/library_instance.h"
#include "res/resource.h"

namespace {

void ShowTagInsertRefused(const CPictureTag&)
{
    char text[256] = "";
    ::LoadStringA(TwLibraryInstance(), IDS_TAG_INSERT_REFUSED, text, sizeof text);
    AfxMessageBox(text, MB_OK);
}

const PICTURE_TAG_REFUSED_NOTIFIER g_installedAtLoad = [] {
    SetPictureTagRefusedNotifier(&ShowTagInsertRefused);
    return &ShowTagInsertRefused;
}();

}  // namespace
