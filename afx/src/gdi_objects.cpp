// GDI object wrappers (pens, brushes, fonts, bitmaps, regions) and their
// handle map.
#include "wnd_state.h"

#include <cstdlib>

IMPLEMENT_DYNAMIC(CGdiObject, CObject)
IMPLEMENT_DYNAMIC(CPen, CGdiObject)
IMPLEMENT_DYNAMIC(CBrush, CGdiObject)
IMPLEMENT_DYNAMIC(CFont, CGdiObject)
IMPLEMENT_DYNAMIC(CBitmap, CGdiObject)
IMPLEMENT_DYNAMIC(CRgn, CGdiObject)

namespace {

// A temporary wrapper of the handle's own kind.
CGdiObject* NewTempObject(HGDIOBJ hObject)
{
    switch (::GetObjectType(hObject)) {
    case OBJ_PEN:
    case OBJ_EXTPEN:
        return new CPen;
    case OBJ_BRUSH:
        return new CBrush;
    case OBJ_FONT:
        return new CFont;
    case OBJ_BITMAP:
        return new CBitmap;
    case OBJ_REGION:
        return new CRgn;
    default:
        return new CGdiObject;
    }
}

template <class T>
T* TypedFromHandle(HGDIOBJ hObject)
{
    if (hObject == nullptr)
        return nullptr;
    AfxWndThreadState& state = AfxGetWndThreadState();
    CGdiObject* pObject = state.gdiObjects.LookupPermanent(hObject);
    if (pObject != nullptr && pObject->IsKindOf(RUNTIME_CLASS(T)))
        return static_cast<T*>(pObject);
    CGdiObject*& temp = state.gdiObjects.temporary[hObject];
    if (temp != nullptr && !temp->IsKindOf(RUNTIME_CLASS(T))) {
        // The handle was deleted and reused for another kind of object.
        temp->m_hObject = nullptr;
        delete temp;
        temp = nullptr;
    }
    if (temp == nullptr)
        temp = new T;
    temp->m_hObject = hObject;
    return static_cast<T*>(temp);
}

}  // namespace

void AfxDeleteGdiTempMaps(AfxWndThreadState& state)
{
    auto objects = std::move(state.gdiObjects.temporary);
    state.gdiObjects.temporary.clear();
    for (auto& entry : objects) {
        entry.second->m_hObject = nullptr;
        delete entry.second;
    }
    auto dcs = std::move(state.dcs.temporary);
    state.dcs.temporary.clear();
    for (auto& entry : dcs) {
        entry.second->m_hDC = nullptr;
        entry.second->m_hAttribDC = nullptr;
        delete entry.second;
    }
}

// ---- CGdiObject ----

CGdiObject::CGdiObject() : m_hObject(nullptr) {}

CGdiObject::~CGdiObject()
{
    DeleteObject();
}

HGDIOBJ CGdiObject::GetSafeHandle() const
{
    return AfxOpaqueAddress(this) == 0 ? nullptr : m_hObject;
}

CGdiObject* PASCAL CGdiObject::FromHandle(HGDIOBJ hObject)
{
    if (hObject == nullptr)
        return nullptr;
    AfxWndThreadState& state = AfxGetWndThreadState();
    if (CGdiObject* pObject = state.gdiObjects.LookupPermanent(hObject))
        return pObject;
    CGdiObject*& temp = state.gdiObjects.temporary[hObject];
    if (temp == nullptr)
        temp = NewTempObject(hObject);
    temp->m_hObject = hObject;
    return temp;
}

void PASCAL CGdiObject::DeleteTempMap()
{
    AfxWndThreadState& state = AfxGetWndThreadState();
    if (state.nTempMapLock == 0)
        AfxDeleteGdiTempMaps(state);
}

BOOL CGdiObject::Attach(HGDIOBJ hObject)
{
    if (hObject == nullptr)
        return FALSE;
    AfxGetWndThreadState().gdiObjects.permanent[hObject] = this;
    m_hObject = hObject;
    return TRUE;
}

HGDIOBJ CGdiObject::Detach()
{
    const HGDIOBJ hObject = m_hObject;
    if (hObject != nullptr) {
        auto& permanent = AfxGetWndThreadState().gdiObjects.permanent;
        auto it = permanent.find(hObject);
        if (it != permanent.end() && it->second == this)
            permanent.erase(it);
    }
    m_hObject = nullptr;
    return hObject;
}

BOOL CGdiObject::DeleteObject()
{
    if (m_hObject == nullptr)
        return FALSE;
    return ::DeleteObject(Detach());
}

int CGdiObject::GetObject(int nCount, LPVOID lpObject) const
{
    return ::GetObjectA(m_hObject, nCount, lpObject);
}

UINT CGdiObject::GetObjectType() const
{
    return static_cast<UINT>(::GetObjectType(m_hObject));
}

BOOL CGdiObject::CreateStockObject(int nIndex)
{
    return Attach(::GetStockObject(nIndex));
}

BOOL CGdiObject::UnrealizeObject()
{
    return ::UnrealizeObject(m_hObject);
}

// ---- CPen ----

CPen::CPen() = default;

CPen::CPen(int nPenStyle, int nWidth, COLORREF crColor)
{
    if (!CreatePen(nPenStyle, nWidth, crColor))
        AfxThrowNotSupportedException();
}

CPen::CPen(int nPenStyle, int nWidth, const LOGBRUSH* pLogBrush, int nStyleCount, const DWORD* lpStyle)
{
    if (!CreatePen(nPenStyle, nWidth, pLogBrush, nStyleCount, lpStyle))
        AfxThrowNotSupportedException();
}

CPen* PASCAL CPen::FromHandle(HPEN hPen)
{
    return TypedFromHandle<CPen>(hPen);
}

BOOL CPen::CreatePen(int nPenStyle, int nWidth, COLORREF crColor)
{
    return Attach(::CreatePen(nPenStyle, nWidth, crColor));
}

BOOL CPen::CreatePen(int nPenStyle, int nWidth, const LOGBRUSH* pLogBrush, int nStyleCount, const DWORD* lpStyle)
{
    return Attach(::ExtCreatePen(static_cast<DWORD>(nPenStyle), static_cast<DWORD>(nWidth), pLogBrush,
                                 static_cast<DWORD>(nStyleCount), lpStyle));
}

BOOL CPen::CreatePenIndirect(LPLOGPEN lpLogPen)
{
    return Attach(::CreatePenIndirect(lpLogPen));
}

int CPen::GetLogPen(LOGPEN* pLogPen)
{
    return ::GetObjectA(m_hObject, sizeof(LOGPEN), pLogPen);
}

// ---- CBrush ----

CBrush::CBrush() = default;

CBrush::CBrush(COLORREF crColor)
{
    if (!CreateSolidBrush(crColor))
        AfxThrowNotSupportedException();
}

CBrush::CBrush(int nIndex, COLORREF crColor)
{
    if (!CreateHatchBrush(nIndex, crColor))
        AfxThrowNotSupportedException();
}

CBrush::CBrush(CBitmap* pBitmap)
{
    if (!CreatePatternBrush(pBitmap))
        AfxThrowNotSupportedException();
}

CBrush* PASCAL CBrush::FromHandle(HBRUSH hBrush)
{
    return TypedFromHandle<CBrush>(hBrush);
}

BOOL CBrush::CreateSolidBrush(COLORREF crColor)
{
    return Attach(::CreateSolidBrush(crColor));
}

BOOL CBrush::CreateHatchBrush(int nIndex, COLORREF crColor)
{
    return Attach(::CreateHatchBrush(nIndex, crColor));
}

BOOL CBrush::CreateBrushIndirect(const LOGBRUSH* lpLogBrush)
{
    return Attach(::CreateBrushIndirect(lpLogBrush));
}

BOOL CBrush::CreatePatternBrush(CBitmap* pBitmap)
{
    return Attach(::CreatePatternBrush(static_cast<HBITMAP>(pBitmap->GetSafeHandle())));
}

BOOL CBrush::CreateSysColorBrush(int nIndex)
{
    return Attach(::GetSysColorBrush(nIndex));
}

int CBrush::GetLogBrush(LOGBRUSH* pLogBrush)
{
    return ::GetObjectA(m_hObject, sizeof(LOGBRUSH), pLogBrush);
}

// ---- CFont ----

CFont::CFont() = default;

CFont* PASCAL CFont::FromHandle(HFONT hFont)
{
    return TypedFromHandle<CFont>(hFont);
}

BOOL CFont::CreateFontIndirect(const LOGFONT* lpLogFont)
{
    return Attach(::CreateFontIndirectA(lpLogFont));
}

BOOL CFont::CreateFont(int nHeight, int nWidth, int nEscapement, int nOrientation, int nWeight, BYTE bItalic,
                       BYTE bUnderline, BYTE cStrikeOut, BYTE nCharSet, BYTE nOutPrecision, BYTE nClipPrecision,
                       BYTE nQuality, BYTE nPitchAndFamily, LPCTSTR lpszFacename)
{
    return Attach(::CreateFontA(nHeight, nWidth, nEscapement, nOrientation, nWeight, bItalic, bUnderline, cStrikeOut,
                                nCharSet, nOutPrecision, nClipPrecision, nQuality, nPitchAndFamily, lpszFacename));
}

BOOL CFont::CreatePointFont(int nPointSize, LPCTSTR lpszFaceName, CDC* pDC)
{
    LOGFONTA logFont = {};
    logFont.lfCharSet = DEFAULT_CHARSET;
    logFont.lfHeight = nPointSize;
    if (lpszFaceName != nullptr)
        ::lstrcpynA(logFont.lfFaceName, lpszFaceName, LF_FACESIZE);
    return CreatePointFontIndirect(&logFont, pDC);
}

BOOL CFont::CreatePointFontIndirect(const LOGFONT* lpLogFont, CDC* pDC)
{
    const HDC hDC = pDC != nullptr ? pDC->m_hAttribDC : ::GetDC(nullptr);
    LOGFONTA logFont = *lpLogFont;
    POINT pt = {0, ::MulDiv(::GetDeviceCaps(hDC, LOGPIXELSY), logFont.lfHeight, 720)};
    ::DPtoLP(hDC, &pt, 1);
    POINT ptOrg = {0, 0};
    ::DPtoLP(hDC, &ptOrg, 1);
    logFont.lfHeight = -std::abs(pt.y - ptOrg.y);
    if (pDC == nullptr)
        ::ReleaseDC(nullptr, hDC);
    return CreateFontIndirect(&logFont);
}

int CFont::GetLogFont(LOGFONT* pLogFont)
{
    return ::GetObjectA(m_hObject, sizeof(LOGFONTA), pLogFont);
}

// ---- CBitmap ----

CBitmap::CBitmap() = default;

CBitmap* PASCAL CBitmap::FromHandle(HBITMAP hBitmap)
{
    return TypedFromHandle<CBitmap>(hBitmap);
}

BOOL CBitmap::LoadBitmap(LPCTSTR lpszResourceName)
{
    const HINSTANCE hInst = AfxFindResourceHandle(lpszResourceName, RT_BITMAP);
    return Attach(::LoadBitmapA(hInst, lpszResourceName));
}

BOOL CBitmap::LoadBitmap(UINT nIDResource)
{
    return LoadBitmap(MAKEINTRESOURCEA(nIDResource));
}

BOOL CBitmap::LoadOEMBitmap(UINT nIDBitmap)
{
    return Attach(::LoadBitmapA(nullptr, MAKEINTRESOURCEA(nIDBitmap)));
}

BOOL CBitmap::CreateBitmap(int nWidth, int nHeight, UINT nPlanes, UINT nBitcount, const void* lpBits)
{
    return Attach(::CreateBitmap(nWidth, nHeight, nPlanes, nBitcount, lpBits));
}

BOOL CBitmap::CreateBitmapIndirect(LPBITMAP lpBitmap)
{
    return Attach(::CreateBitmapIndirect(lpBitmap));
}

BOOL CBitmap::CreateCompatibleBitmap(CDC* pDC, int nWidth, int nHeight)
{
    return Attach(::CreateCompatibleBitmap(pDC->GetSafeHdc(), nWidth, nHeight));
}

int CBitmap::GetBitmap(BITMAP* pBitMap)
{
    return ::GetObjectA(m_hObject, sizeof(BITMAP), pBitMap);
}

CSize CBitmap::GetBitmapDimension() const
{
    SIZE size = {0, 0};
    ::GetBitmapDimensionEx(static_cast<HBITMAP>(m_hObject), &size);
    return size;
}

// ---- CRgn ----

CRgn::CRgn() = default;

CRgn* PASCAL CRgn::FromHandle(HRGN hRgn)
{
    return TypedFromHandle<CRgn>(hRgn);
}

BOOL CRgn::CreateRectRgn(int x1, int y1, int x2, int y2)
{
    return Attach(::CreateRectRgn(x1, y1, x2, y2));
}

BOOL CRgn::CreateRectRgnIndirect(LPCRECT lpRect)
{
    return Attach(::CreateRectRgnIndirect(lpRect));
}

BOOL CRgn::CreateEllipticRgn(int x1, int y1, int x2, int y2)
{
    return Attach(::CreateEllipticRgn(x1, y1, x2, y2));
}

BOOL CRgn::CreateEllipticRgnIndirect(LPCRECT lpRect)
{
    return Attach(::CreateEllipticRgnIndirect(lpRect));
}

BOOL CRgn::CreateRoundRectRgn(int x1, int y1, int x2, int y2, int x3, int y3)
{
    return Attach(::CreateRoundRectRgn(x1, y1, x2, y2, x3, y3));
}

BOOL CRgn::CreatePolygonRgn(LPPOINT lpPoints, int nCount, int nMode)
{
    return Attach(::CreatePolygonRgn(lpPoints, nCount, nMode));
}

int CRgn::CombineRgn(CRgn* pRgn1, CRgn* pRgn2, int nCombineMode)
{
    return ::CombineRgn(static_cast<HRGN>(m_hObject), static_cast<HRGN>(pRgn1->GetSafeHandle()),
                        static_cast<HRGN>(pRgn2->GetSafeHandle()), nCombineMode);
}

int CRgn::CopyRgn(CRgn* pRgnSrc)
{
    return ::CombineRgn(static_cast<HRGN>(m_hObject), static_cast<HRGN>(pRgnSrc->GetSafeHandle()), nullptr, RGN_COPY);
}

BOOL CRgn::EqualRgn(CRgn* pRgn) const
{
    return ::EqualRgn(static_cast<HRGN>(m_hObject), static_cast<HRGN>(pRgn->GetSafeHandle()));
}

int CRgn::OffsetRgn(int x, int y)
{
    return ::OffsetRgn(static_cast<HRGN>(m_hObject), x, y);
}

int CRgn::OffsetRgn(POINT point)
{
    return OffsetRgn(point.x, point.y);
}

int CRgn::GetRgnBox(LPRECT lpRect) const
{
    return ::GetRgnBox(static_cast<HRGN>(m_hObject), lpRect);
}

BOOL CRgn::PtInRegion(int x, int y) const
{
    return ::PtInRegion(static_cast<HRGN>(m_hObject), x, y);
}

BOOL CRgn::PtInRegion(POINT point) const
{
    return PtInRegion(point.x, point.y);
}

BOOL CRgn::RectInRegion(LPCRECT lpRect) const
{
    return ::RectInRegion(static_cast<HRGN>(m_hObject), lpRect);
}

void CRgn::SetRectRgn(int x1, int y1, int x2, int y2)
{
    ::SetRectRgn(static_cast<HRGN>(m_hObject), x1, y1, x2, y2);
}

void CRgn::SetRectRgn(LPCRECT lpRect)
{
    SetRectRgn(lpRect->left, lpRect->top, lpRect->right, lpRect->bottom);
}
