// CDC, the device context wrapper, and its handle map: attaching,
// selecting objects, attributes, coordinates and clipping.
#include "wnd_state.h"

IMPLEMENT_DYNAMIC(CDC, CObject)

CDC::CDC() : m_hDC(nullptr), m_hAttribDC(nullptr) {}

CDC::~CDC()
{
    if (m_hDC != nullptr)
        ::DeleteDC(Detach());
}

HDC CDC::GetSafeHdc() const
{
    return AfxOpaqueAddress(this) == 0 ? nullptr : m_hDC;
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
