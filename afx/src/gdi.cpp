// GDI object and device context wrappers with their handle maps.
#include "wnd_state.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>

IMPLEMENT_DYNAMIC(CGdiObject, CObject)
IMPLEMENT_DYNAMIC(CPen, CGdiObject)
IMPLEMENT_DYNAMIC(CBrush, CGdiObject)
IMPLEMENT_DYNAMIC(CFont, CGdiObject)
IMPLEMENT_DYNAMIC(CBitmap, CGdiObject)
IMPLEMENT_DYNAMIC(CRgn, CGdiObject)
IMPLEMENT_DYNAMIC(CDC, CObject)
IMPLEMENT_DYNAMIC(CPaintDC, CDC)
IMPLEMENT_DYNAMIC(CClientDC, CDC)
IMPLEMENT_DYNAMIC(CWindowDC, CDC)

namespace {

std::uintptr_t OpaqueAddress(const void* p)
{
    std::uintptr_t value = reinterpret_cast<std::uintptr_t>(p);
    asm("" : "+r"(value));
    return value;
}

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
    return OpaqueAddress(this) == 0 ? nullptr : m_hObject;
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

// ---- CDC ----

CDC::CDC() : m_hDC(nullptr), m_hAttribDC(nullptr) {}

CDC::~CDC()
{
    if (m_hDC != nullptr)
        ::DeleteDC(Detach());
}

HDC CDC::GetSafeHdc() const
{
    return OpaqueAddress(this) == 0 ? nullptr : m_hDC;
}

CDC* PASCAL CDC::FromHandle(HDC hDC)
{
    if (hDC == nullptr)
        return nullptr;
    AfxWndThreadState& state = AfxGetWndThreadState();
    if (CDC* pDC = state.dcs.LookupPermanent(hDC))
        return pDC;
    CDC*& temp = state.dcs.temporary[hDC];
    if (temp == nullptr)
        temp = new CDC;
    temp->m_hDC = hDC;
    temp->m_hAttribDC = hDC;
    return temp;
}

void PASCAL CDC::DeleteTempMap()
{
    AfxWndThreadState& state = AfxGetWndThreadState();
    if (state.nTempMapLock == 0)
        AfxDeleteGdiTempMaps(state);
}

BOOL CDC::Attach(HDC hDC)
{
    if (hDC == nullptr)
        return FALSE;
    AfxGetWndThreadState().dcs.permanent[hDC] = this;
    m_hDC = hDC;
    m_hAttribDC = hDC;
    return TRUE;
}

HDC CDC::Detach()
{
    const HDC hDC = m_hDC;
    if (hDC != nullptr) {
        auto& permanent = AfxGetWndThreadState().dcs.permanent;
        auto it = permanent.find(hDC);
        if (it != permanent.end() && it->second == this)
            permanent.erase(it);
    }
    m_hDC = nullptr;
    m_hAttribDC = nullptr;
    return hDC;
}

BOOL CDC::CreateCompatibleDC(CDC* pDC)
{
    return Attach(::CreateCompatibleDC(pDC->GetSafeHdc()));
}

BOOL CDC::CreateDC(LPCTSTR lpszDriverName, LPCTSTR lpszDeviceName, LPCTSTR lpszOutput, const void* lpInitData)
{
    return Attach(::CreateDCA(lpszDriverName, lpszDeviceName, lpszOutput, static_cast<const DEVMODEA*>(lpInitData)));
}

BOOL CDC::DeleteDC()
{
    if (m_hDC == nullptr)
        return FALSE;
    return ::DeleteDC(Detach());
}

CWnd* CDC::GetWindow() const
{
    return CWnd::FromHandle(::WindowFromDC(m_hDC));
}

int CDC::SaveDC()
{
    return ::SaveDC(m_hDC);
}

BOOL CDC::RestoreDC(int nSavedDC)
{
    return ::RestoreDC(m_hDC, nSavedDC);
}

int CDC::GetDeviceCaps(int nIndex) const
{
    return ::GetDeviceCaps(m_hAttribDC, nIndex);
}

CPen* CDC::SelectObject(CPen* pPen)
{
    return CPen::FromHandle(static_cast<HPEN>(::SelectObject(m_hDC, pPen->GetSafeHandle())));
}

CBrush* CDC::SelectObject(CBrush* pBrush)
{
    return CBrush::FromHandle(static_cast<HBRUSH>(::SelectObject(m_hDC, pBrush->GetSafeHandle())));
}

CFont* CDC::SelectObject(CFont* pFont)
{
    return CFont::FromHandle(static_cast<HFONT>(::SelectObject(m_hDC, pFont->GetSafeHandle())));
}

CBitmap* CDC::SelectObject(CBitmap* pBitmap)
{
    return CBitmap::FromHandle(static_cast<HBITMAP>(::SelectObject(m_hDC, pBitmap->GetSafeHandle())));
}

int CDC::SelectObject(CRgn* pRgn)
{
    return static_cast<int>(reinterpret_cast<INT_PTR>(::SelectObject(m_hDC, pRgn->GetSafeHandle())));
}

CGdiObject* CDC::SelectObject(CGdiObject* pObject)
{
    return SelectHandle(pObject->GetSafeHandle());
}

CGdiObject* CDC::SelectHandle(HGDIOBJ hObject)
{
    return CGdiObject::FromHandle(::SelectObject(m_hDC, hObject));
}

CGdiObject* CDC::SelectStockObject(int nIndex)
{
    return SelectHandle(::GetStockObject(nIndex));
}

CPen* CDC::GetCurrentPen() const
{
    return CPen::FromHandle(static_cast<HPEN>(::GetCurrentObject(m_hDC, OBJ_PEN)));
}

CBrush* CDC::GetCurrentBrush() const
{
    return CBrush::FromHandle(static_cast<HBRUSH>(::GetCurrentObject(m_hDC, OBJ_BRUSH)));
}

CFont* CDC::GetCurrentFont() const
{
    return CFont::FromHandle(static_cast<HFONT>(::GetCurrentObject(m_hDC, OBJ_FONT)));
}

CBitmap* CDC::GetCurrentBitmap() const
{
    return CBitmap::FromHandle(static_cast<HBITMAP>(::GetCurrentObject(m_hDC, OBJ_BITMAP)));
}

COLORREF CDC::SetTextColor(COLORREF crColor)
{
    return ::SetTextColor(m_hDC, crColor);
}

COLORREF CDC::GetTextColor() const
{
    return ::GetTextColor(m_hAttribDC);
}

COLORREF CDC::SetBkColor(COLORREF crColor)
{
    return ::SetBkColor(m_hDC, crColor);
}

COLORREF CDC::GetBkColor() const
{
    return ::GetBkColor(m_hAttribDC);
}

int CDC::SetBkMode(int nBkMode)
{
    return ::SetBkMode(m_hDC, nBkMode);
}

int CDC::GetBkMode() const
{
    return ::GetBkMode(m_hAttribDC);
}

int CDC::SetROP2(int nDrawMode)
{
    return ::SetROP2(m_hDC, nDrawMode);
}

int CDC::GetROP2() const
{
    return ::GetROP2(m_hAttribDC);
}

int CDC::SetMapMode(int nMapMode)
{
    return ::SetMapMode(m_hDC, nMapMode);
}

int CDC::GetMapMode() const
{
    return ::GetMapMode(m_hAttribDC);
}

UINT CDC::SetTextAlign(UINT nFlags)
{
    return ::SetTextAlign(m_hDC, nFlags);
}

int CDC::SetStretchBltMode(int nStretchMode)
{
    return ::SetStretchBltMode(m_hDC, nStretchMode);
}

CPoint CDC::SetViewportOrg(int x, int y)
{
    POINT old = {0, 0};
    ::SetViewportOrgEx(m_hDC, x, y, &old);
    return old;
}

CPoint CDC::SetViewportOrg(POINT point)
{
    return SetViewportOrg(point.x, point.y);
}

CPoint CDC::GetViewportOrg() const
{
    POINT point = {0, 0};
    ::GetViewportOrgEx(m_hAttribDC, &point);
    return point;
}

CPoint CDC::SetWindowOrg(int x, int y)
{
    POINT old = {0, 0};
    ::SetWindowOrgEx(m_hDC, x, y, &old);
    return old;
}

CPoint CDC::SetWindowOrg(POINT point)
{
    return SetWindowOrg(point.x, point.y);
}

CPoint CDC::GetWindowOrg() const
{
    POINT point = {0, 0};
    ::GetWindowOrgEx(m_hAttribDC, &point);
    return point;
}

void CDC::DPtoLP(LPPOINT lpPoints, int nCount) const
{
    ::DPtoLP(m_hAttribDC, lpPoints, nCount);
}

void CDC::DPtoLP(LPRECT lpRect) const
{
    ::DPtoLP(m_hAttribDC, reinterpret_cast<LPPOINT>(lpRect), 2);
}

void CDC::LPtoDP(LPPOINT lpPoints, int nCount) const
{
    ::LPtoDP(m_hAttribDC, lpPoints, nCount);
}

void CDC::LPtoDP(LPRECT lpRect) const
{
    ::LPtoDP(m_hAttribDC, reinterpret_cast<LPPOINT>(lpRect), 2);
}

int CDC::IntersectClipRect(int x1, int y1, int x2, int y2)
{
    return ::IntersectClipRect(m_hDC, x1, y1, x2, y2);
}

int CDC::IntersectClipRect(LPCRECT lpRect)
{
    return IntersectClipRect(lpRect->left, lpRect->top, lpRect->right, lpRect->bottom);
}

int CDC::ExcludeClipRect(int x1, int y1, int x2, int y2)
{
    return ::ExcludeClipRect(m_hDC, x1, y1, x2, y2);
}

int CDC::ExcludeClipRect(LPCRECT lpRect)
{
    return ExcludeClipRect(lpRect->left, lpRect->top, lpRect->right, lpRect->bottom);
}

int CDC::SelectClipRgn(CRgn* pRgn)
{
    return ::SelectClipRgn(m_hDC, static_cast<HRGN>(pRgn->GetSafeHandle()));
}

int CDC::GetClipBox(LPRECT lpRect) const
{
    return ::GetClipBox(m_hDC, lpRect);
}

CPoint CDC::MoveTo(int x, int y)
{
    POINT old = {0, 0};
    ::MoveToEx(m_hDC, x, y, &old);
    return old;
}

CPoint CDC::MoveTo(POINT point)
{
    return MoveTo(point.x, point.y);
}

BOOL CDC::LineTo(int x, int y)
{
    return ::LineTo(m_hDC, x, y);
}

BOOL CDC::LineTo(POINT point)
{
    return LineTo(point.x, point.y);
}

BOOL CDC::Polyline(const POINT* lpPoints, int nCount)
{
    return ::Polyline(m_hDC, lpPoints, nCount);
}

BOOL CDC::Polygon(const POINT* lpPoints, int nCount)
{
    return ::Polygon(m_hDC, lpPoints, nCount);
}

BOOL CDC::Rectangle(int x1, int y1, int x2, int y2)
{
    return ::Rectangle(m_hDC, x1, y1, x2, y2);
}

BOOL CDC::Rectangle(LPCRECT lpRect)
{
    return Rectangle(lpRect->left, lpRect->top, lpRect->right, lpRect->bottom);
}

BOOL CDC::RoundRect(int x1, int y1, int x2, int y2, int x3, int y3)
{
    return ::RoundRect(m_hDC, x1, y1, x2, y2, x3, y3);
}

BOOL CDC::Ellipse(int x1, int y1, int x2, int y2)
{
    return ::Ellipse(m_hDC, x1, y1, x2, y2);
}

BOOL CDC::Ellipse(LPCRECT lpRect)
{
    return Ellipse(lpRect->left, lpRect->top, lpRect->right, lpRect->bottom);
}

void CDC::FillRect(LPCRECT lpRect, CBrush* pBrush)
{
    ::FillRect(m_hDC, lpRect, static_cast<HBRUSH>(pBrush->GetSafeHandle()));
}

void CDC::FrameRect(LPCRECT lpRect, CBrush* pBrush)
{
    ::FrameRect(m_hDC, lpRect, static_cast<HBRUSH>(pBrush->GetSafeHandle()));
}

void CDC::InvertRect(LPCRECT lpRect)
{
    ::InvertRect(m_hDC, lpRect);
}

void CDC::FillSolidRect(LPCRECT lpRect, COLORREF clr)
{
    ::SetBkColor(m_hDC, clr);
    ::ExtTextOutA(m_hDC, 0, 0, ETO_OPAQUE, lpRect, nullptr, 0, nullptr);
}

void CDC::FillSolidRect(int x, int y, int cx, int cy, COLORREF clr)
{
    const RECT rect = {x, y, x + cx, y + cy};
    FillSolidRect(&rect, clr);
}

void CDC::Draw3dRect(LPCRECT lpRect, COLORREF clrTopLeft, COLORREF clrBottomRight)
{
    Draw3dRect(lpRect->left, lpRect->top, lpRect->right - lpRect->left, lpRect->bottom - lpRect->top, clrTopLeft,
               clrBottomRight);
}

void CDC::Draw3dRect(int x, int y, int cx, int cy, COLORREF clrTopLeft, COLORREF clrBottomRight)
{
    FillSolidRect(x, y, cx - 1, 1, clrTopLeft);
    FillSolidRect(x, y, 1, cy - 1, clrTopLeft);
    FillSolidRect(x + cx - 1, y, 1, cy, clrBottomRight);
    FillSolidRect(x, y + cy - 1, cx, 1, clrBottomRight);
}

BOOL CDC::DrawEdge(LPRECT lpRect, UINT nEdge, UINT nFlags)
{
    return ::DrawEdge(m_hDC, lpRect, nEdge, nFlags);
}

void CDC::DrawFocusRect(LPCRECT lpRect)
{
    ::DrawFocusRect(m_hDC, lpRect);
}

BOOL CDC::DrawIcon(int x, int y, HICON hIcon)
{
    return ::DrawIcon(m_hDC, x, y, hIcon);
}

BOOL CDC::DrawIcon(POINT point, HICON hIcon)
{
    return DrawIcon(point.x, point.y, hIcon);
}

COLORREF CDC::SetPixel(int x, int y, COLORREF crColor)
{
    return ::SetPixel(m_hDC, x, y, crColor);
}

COLORREF CDC::SetPixel(POINT point, COLORREF crColor)
{
    return SetPixel(point.x, point.y, crColor);
}

COLORREF CDC::GetPixel(int x, int y) const
{
    return ::GetPixel(m_hDC, x, y);
}

COLORREF CDC::GetPixel(POINT point) const
{
    return GetPixel(point.x, point.y);
}

BOOL CDC::PatBlt(int x, int y, int nWidth, int nHeight, DWORD dwRop)
{
    return ::PatBlt(m_hDC, x, y, nWidth, nHeight, dwRop);
}

BOOL CDC::BitBlt(int x, int y, int nWidth, int nHeight, CDC* pSrcDC, int xSrc, int ySrc, DWORD dwRop)
{
    return ::BitBlt(m_hDC, x, y, nWidth, nHeight, pSrcDC->GetSafeHdc(), xSrc, ySrc, dwRop);
}

BOOL CDC::StretchBlt(int x, int y, int nWidth, int nHeight, CDC* pSrcDC, int xSrc, int ySrc, int nSrcWidth,
                     int nSrcHeight, DWORD dwRop)
{
    return ::StretchBlt(m_hDC, x, y, nWidth, nHeight, pSrcDC->GetSafeHdc(), xSrc, ySrc, nSrcWidth, nSrcHeight, dwRop);
}

BOOL CDC::TransparentBlt(int xDest, int yDest, int nDestWidth, int nDestHeight, CDC* pSrcDC, int xSrc, int ySrc,
                         int nSrcWidth, int nSrcHeight, UINT clrTransparent)
{
    // gdi32's export of msimg32's TransparentBlt.
    return ::GdiTransparentBlt(m_hDC, xDest, yDest, nDestWidth, nDestHeight, pSrcDC->GetSafeHdc(), xSrc, ySrc,
                               nSrcWidth, nSrcHeight, clrTransparent);
}

BOOL CDC::TextOut(int x, int y, LPCTSTR lpszString, int nCount)
{
    return ::TextOutA(m_hDC, x, y, lpszString, nCount);
}

BOOL CDC::TextOut(int x, int y, const CString& str)
{
    return TextOut(x, y, str.GetString(), str.GetLength());
}

BOOL CDC::ExtTextOut(int x, int y, UINT nOptions, LPCRECT lpRect, LPCTSTR lpszString, UINT nCount, LPINT lpDxWidths)
{
    return ::ExtTextOutA(m_hDC, x, y, nOptions, lpRect, lpszString, nCount, lpDxWidths);
}

int CDC::DrawText(LPCTSTR lpszString, int nCount, LPRECT lpRect, UINT nFormat)
{
    return ::DrawTextA(m_hDC, lpszString, nCount, lpRect, nFormat);
}

int CDC::DrawText(const CString& str, LPRECT lpRect, UINT nFormat)
{
    // DT_MODIFYSTRING would write into the string: draw from a copy.
    if (nFormat & DT_MODIFYSTRING) {
        CString copy(str);
        char* buffer = copy.GetBuffer(copy.GetLength() + 4);
        const int result = ::DrawTextA(m_hDC, buffer, -1, lpRect, nFormat);
        copy.ReleaseBuffer();
        return result;
    }
    return DrawText(str.GetString(), str.GetLength(), lpRect, nFormat);
}

CSize CDC::GetTextExtent(LPCTSTR lpszString, int nCount) const
{
    SIZE size = {0, 0};
    ::GetTextExtentPoint32A(m_hAttribDC, lpszString, nCount, &size);
    return size;
}

CSize CDC::GetTextExtent(const CString& str) const
{
    return GetTextExtent(str.GetString(), str.GetLength());
}

BOOL CDC::GetTextMetrics(LPTEXTMETRIC lpMetrics) const
{
    return ::GetTextMetricsA(m_hAttribDC, lpMetrics);
}

int CDC::GetTextFace(CString& rString) const
{
    const int nLen = ::GetTextFaceA(m_hAttribDC, 0, nullptr);
    if (nLen <= 0) {
        rString.Empty();
        return 0;
    }
    const int nCopied = ::GetTextFaceA(m_hAttribDC, nLen, rString.GetBufferSetLength(nLen));
    rString.ReleaseBuffer();
    return nCopied;
}

// ---- Window device contexts ----

CPaintDC::CPaintDC(CWnd* pWnd) : m_ps(), m_hWnd(pWnd->GetSafeHwnd())
{
    if (!Attach(::BeginPaint(m_hWnd, &m_ps)))
        AfxThrowNotSupportedException();
}

CPaintDC::~CPaintDC()
{
    ::EndPaint(m_hWnd, &m_ps);
    Detach();
}

CClientDC::CClientDC(CWnd* pWnd) : m_hWnd(pWnd->GetSafeHwnd())
{
    if (!Attach(::GetDC(m_hWnd)))
        AfxThrowNotSupportedException();
}

CClientDC::~CClientDC()
{
    ::ReleaseDC(m_hWnd, Detach());
}

CWindowDC::CWindowDC(CWnd* pWnd) : m_hWnd(pWnd->GetSafeHwnd())
{
    if (!Attach(::GetWindowDC(m_hWnd)))
        AfxThrowNotSupportedException();
}

CWindowDC::~CWindowDC()
{
    ::ReleaseDC(m_hWnd, Detach());
}
