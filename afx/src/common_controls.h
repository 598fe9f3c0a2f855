// Helpers that the common control wrappers share.
#pragma once

#include "afxcmn.h"

// Makes sure the common control classes are registered before a Create.
inline void AfxInitCommonControlClasses(DWORD classes)
{
    INITCOMMONCONTROLSEX init = {sizeof(INITCOMMONCONTROLSEX), classes};
    ::InitCommonControlsEx(&init);
}

// The image list's handle for a message, NULL for no list.
inline HIMAGELIST AfxImageListHandle(const CImageList* pImageList)
{
    return pImageList != nullptr ? pImageList->m_hImageList : nullptr;
}
