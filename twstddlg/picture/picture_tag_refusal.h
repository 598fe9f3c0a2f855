// Who is told about a tag that CPictureTagArray::BuildArray refused.
// Library-internal (not exported): in the Windows build the library
// installs, at load, the notifier that shows message 30040; the native build
// has none; tests and fuzz targets put their own in.
#pragma once

#include "picture/picture_tag.h"

// Told about each tag that BuildArray could not add (its caption is taken).
typedef void (*PICTURE_TAG_REFUSED_NOTIFIER)(const CPictureTag& refused);

// Makes notifier the one BuildArray calls for a refused tag (NULL: nobody is
// told); returns the one it replaces.
PICTURE_TAG_REFUSED_NOTIFIER SetPictureTagRefusedNotifier(PICTURE_TAG_REFUSED_NOTIFIER notifier);
