// CImageList and its handle map.
#include "afxcmn.h"
#include "wnd_state.h"

IMPLEMENT_DYNCREATE(CImageList, CObject)

void AfxDeleteImageListTempMap(AfxWndThreadState& state)
{
    auto temporary = std::move(state.imageLists.temporary);
    state.imageLists.temporary.clear();
    for (auto& entry : temporary) {
        entry.second->m_hImageList = nullptr;
        delete entry.second;
    }
}

CImageList::CImageList() : m_hImageList(nullptr) {}

CImageList::~CImageList()
{
    DeleteImageList();
}

HIMAGELIST CImageList::GetSafeHandle() const
{
    return AfxOpaqueAddress(this) == 0 ? nullptr : m_hImageList;
}

CImageList* PASCAL CImageList::FromHandle(HIMAGELIST hImageList)
{
    if (hImageList == nullptr)
        return nullptr;
    AfxWndThreadState& state = AfxGetWndThreadState();
    if (CImageList* pList = state.imageLists.LookupPermanent(hImageList))
        return pList;
    CImageList*& temp = state.imageLists.temporary[hImageList];
    if (temp == nullptr)
        temp = new CImageList;
    temp->m_hImageList = hImageList;
    return temp;
}

CImageList* PASCAL CImageList::FromHandlePermanent(HIMAGELIST hImageList)
{
    if (hImageList == nullptr)
        return nullptr;
    return AfxGetWndThreadState().imageLists.LookupPermanent(hImageList);
}

void PASCAL CImageList::DeleteTempMap()
{
    AfxDeleteTempMap();
}

BOOL CImageList::Attach(HIMAGELIST hImageList)
{
    if (hImageList == nullptr || m_hImageList != nullptr)
        return FALSE;
    m_hImageList = hImageList;
    AfxGetWndThreadState().imageLists.permanent[hImageList] = this;
    return TRUE;
}

HIMAGELIST CImageList::Detach()
{
    const HIMAGELIST hImageList = m_hImageList;
    if (hImageList != nullptr) {
        auto& permanent = AfxGetWndThreadState().imageLists.permanent;
        auto it = permanent.find(hImageList);
        if (it != permanent.end() && it->second == this)
            permanent.erase(it);
    }
    m_hImageList = nullptr;
    return hImageList;
}

BOOL CImageList::Create(int cx, int cy, UINT nFlags, int nInitial, int nGrow)
{
    return Attach(ImageList_Create(cx, cy, nFlags, nInitial, nGrow));
}

BOOL CImageList::Create(UINT nBitmapID, int cx, int nGrow, COLORREF crMask)
{
    return Create(MAKEINTRESOURCEA(nBitmapID), cx, nGrow, crMask);
}

BOOL CImageList::Create(LPCTSTR lpszBitmapID, int cx, int nGrow, COLORREF crMask)
{
    const HINSTANCE hInst = AfxFindResourceHandle(lpszBitmapID, RT_BITMAP);
    return Attach(ImageList_LoadImageA(hInst, lpszBitmapID, cx, nGrow, crMask, IMAGE_BITMAP, LR_CREATEDIBSECTION));
}

BOOL CImageList::DeleteImageList()
{
    if (m_hImageList == nullptr)
        return FALSE;
    return ImageList_Destroy(Detach());
}

int CImageList::GetImageCount() const
{
    return ImageList_GetImageCount(m_hImageList);
}

BOOL CImageList::SetImageCount(UINT uNewCount)
{
    return ImageList_SetImageCount(m_hImageList, uNewCount);
}

int CImageList::Add(CBitmap* pbmImage, CBitmap* pbmMask)
{
    return ImageList_Add(m_hImageList, static_cast<HBITMAP>(pbmImage->GetSafeHandle()),
                         pbmMask != nullptr ? static_cast<HBITMAP>(pbmMask->GetSafeHandle()) : nullptr);
}

int CImageList::Add(CBitmap* pbmImage, COLORREF crMask)
{
    return ImageList_AddMasked(m_hImageList, static_cast<HBITMAP>(pbmImage->GetSafeHandle()), crMask);
}

int CImageList::Add(HICON hIcon)
{
    return ImageList_AddIcon(m_hImageList, hIcon);
}

int CImageList::Replace(int nImage, HICON hIcon)
{
    return ImageList_ReplaceIcon(m_hImageList, nImage, hIcon);
}

BOOL CImageList::Remove(int nImage)
{
    return ImageList_Remove(m_hImageList, nImage);
}

HICON CImageList::ExtractIcon(int nImage)
{
    return ImageList_GetIcon(m_hImageList, nImage, ILD_NORMAL);
}

COLORREF CImageList::SetBkColor(COLORREF cr)
{
    return ImageList_SetBkColor(m_hImageList, cr);
}

COLORREF CImageList::GetBkColor() const
{
    return ImageList_GetBkColor(m_hImageList);
}

BOOL CImageList::GetImageInfo(int nImage, IMAGEINFO* pImageInfo) const
{
    return ImageList_GetImageInfo(m_hImageList, nImage, pImageInfo);
}

BOOL CImageList::Draw(CDC* pDC, int nImage, POINT pt, UINT nStyle)
{
    return ImageList_Draw(m_hImageList, nImage, pDC->GetSafeHdc(), pt.x, pt.y, nStyle);
}
