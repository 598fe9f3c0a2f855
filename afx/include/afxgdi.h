// GDI wrappers: pens, brushes, fonts, bitmaps, regions and device contexts.
//
// Handle maps: an object that owns its handle (Attach, or one of the Create
// functions) is permanent for the calling thread; FromHandle of any other
// handle gives a temporary object of the handle's kind, which the framework
// deletes at idle time (AfxDeleteTempMap) without deleting the handle. Each
// thread has its own maps. SelectObject returns the previously selected
// object as such a temporary object unless it is a permanent one.
#pragma once

#include "afx.h"

class CWnd;
class CDC;
class CPen;
class CBrush;
class CFont;
class CBitmap;
class CRgn;

// Base of the GDI object wrappers: owns one HGDIOBJ.
class AFX_API CGdiObject : public CObject
{
    DECLARE_DYNAMIC(CGdiObject)

public:
    CGdiObject();
    ~CGdiObject() override;

    HGDIOBJ m_hObject;

    operator HGDIOBJ() const { return m_hObject; }
    // m_hObject, or NULL when called through a NULL pointer.
    HGDIOBJ GetSafeHandle() const;

    // The permanent object of hObject, or a temporary one of its kind.
    static CGdiObject* PASCAL FromHandle(HGDIOBJ hObject);
    // Deletes the calling thread's temporary GDI objects.
    static void PASCAL DeleteTempMap();

    // Takes ownership of hObject; FALSE if it is NULL.
    BOOL Attach(HGDIOBJ hObject);
    // Gives up ownership and returns the handle.
    HGDIOBJ Detach();
    // Deletes the handle and empties the object.
    BOOL DeleteObject();

    int GetObject(int nCount, LPVOID lpObject) const;
    UINT GetObjectType() const;
    BOOL CreateStockObject(int nIndex);
    BOOL UnrealizeObject();

    BOOL operator==(const CGdiObject& obj) const { return obj.m_hObject == m_hObject; }
    BOOL operator!=(const CGdiObject& obj) const { return obj.m_hObject != m_hObject; }
};

// A pen.
class AFX_API CPen : public CGdiObject
{
    DECLARE_DYNAMIC(CPen)

public:
    CPen();
    // These constructors throw CNotSupportedException when creation fails.
    CPen(int nPenStyle, int nWidth, COLORREF crColor);
    CPen(int nPenStyle, int nWidth, const LOGBRUSH* pLogBrush, int nStyleCount = 0, const DWORD* lpStyle = NULL);

    static CPen* PASCAL FromHandle(HPEN hPen);
    operator HPEN() const { return static_cast<HPEN>(m_hObject); }

    BOOL CreatePen(int nPenStyle, int nWidth, COLORREF crColor);
    BOOL CreatePen(int nPenStyle, int nWidth, const LOGBRUSH* pLogBrush, int nStyleCount = 0,
                   const DWORD* lpStyle = NULL);
    BOOL CreatePenIndirect(LPLOGPEN lpLogPen);
    int GetLogPen(LOGPEN* pLogPen);
};

// A brush.
class AFX_API CBrush : public CGdiObject
{
    DECLARE_DYNAMIC(CBrush)

public:
    CBrush();
    explicit CBrush(COLORREF crColor);
    CBrush(int nIndex, COLORREF crColor);
    explicit CBrush(CBitmap* pBitmap);

    static CBrush* PASCAL FromHandle(HBRUSH hBrush);
    operator HBRUSH() const { return static_cast<HBRUSH>(m_hObject); }

    BOOL CreateSolidBrush(COLORREF crColor);
    BOOL CreateHatchBrush(int nIndex, COLORREF crColor);
    BOOL CreateBrushIndirect(const LOGBRUSH* lpLogBrush);
    BOOL CreatePatternBrush(CBitmap* pBitmap);
    // A system colour brush (GetSysColorBrush); the system owns it, so
    // DeleteObject only lets go of it.
    BOOL CreateSysColorBrush(int nIndex);
    int GetLogBrush(LOGBRUSH* pLogBrush);
};

// A logical font.
class AFX_API CFont : public CGdiObject
{
    DECLARE_DYNAMIC(CFont)

public:
    CFont();

    static CFont* PASCAL FromHandle(HFONT hFont);
    operator HFONT() const { return static_cast<HFONT>(m_hObject); }

    BOOL CreateFontIndirect(const LOGFONT* lpLogFont);
    BOOL CreateFont(int nHeight, int nWidth, int nEscapement, int nOrientation, int nWeight, BYTE bItalic,
                    BYTE bUnderline, BYTE cStrikeOut, BYTE nCharSet, BYTE nOutPrecision, BYTE nClipPrecision,
                    BYTE nQuality, BYTE nPitchAndFamily, LPCTSTR lpszFacename);
    // A font of nPointSize tenths of a point for pDC (the screen if NULL).
    BOOL CreatePointFont(int nPointSize, LPCTSTR lpszFaceName, CDC* pDC = NULL);
    // As CreatePointFont with lfHeight of lpLogFont in tenths of a point.
    BOOL CreatePointFontIndirect(const LOGFONT* lpLogFont, CDC* pDC = NULL);
    int GetLogFont(LOGFONT* pLogFont);
};

// A bitmap.
class AFX_API CBitmap : public CGdiObject
{
    DECLARE_DYNAMIC(CBitmap)

public:
    CBitmap();

    static CBitmap* PASCAL FromHandle(HBITMAP hBitmap);
    operator HBITMAP() const { return static_cast<HBITMAP>(m_hObject); }

    // Loads from the first module of the resource chain that has the bitmap.
    BOOL LoadBitmap(LPCTSTR lpszResourceName);
    BOOL LoadBitmap(UINT nIDResource);
    BOOL LoadOEMBitmap(UINT nIDBitmap);
    BOOL CreateBitmap(int nWidth, int nHeight, UINT nPlanes, UINT nBitcount, const void* lpBits);
    BOOL CreateBitmapIndirect(LPBITMAP lpBitmap);
    BOOL CreateCompatibleBitmap(CDC* pDC, int nWidth, int nHeight);
    int GetBitmap(BITMAP* pBitMap);
    CSize GetBitmapDimension() const;
};

// A region.
class AFX_API CRgn : public CGdiObject
{
    DECLARE_DYNAMIC(CRgn)

public:
    CRgn();

    static CRgn* PASCAL FromHandle(HRGN hRgn);
    operator HRGN() const { return static_cast<HRGN>(m_hObject); }

    BOOL CreateRectRgn(int x1, int y1, int x2, int y2);
    BOOL CreateRectRgnIndirect(LPCRECT lpRect);
    BOOL CreateEllipticRgn(int x1, int y1, int x2, int y2);
    BOOL CreateEllipticRgnIndirect(LPCRECT lpRect);
    BOOL CreateRoundRectRgn(int x1, int y1, int x2, int y2, int x3, int y3);
    BOOL CreatePolygonRgn(LPPOINT lpPoints, int nCount, int nMode);
    // Combines two regions into this one, which must exist already.
    int CombineRgn(CRgn* pRgn1, CRgn* pRgn2, int nCombineMode);
    int CopyRgn(CRgn* pRgnSrc);
    BOOL EqualRgn(CRgn* pRgn) const;
    int OffsetRgn(int x, int y);
    int OffsetRgn(POINT point);
    int GetRgnBox(LPRECT lpRect) const;
    BOOL PtInRegion(int x, int y) const;
    BOOL PtInRegion(POINT point) const;
    BOOL RectInRegion(LPCRECT lpRect) const;
    void SetRectRgn(int x1, int y1, int x2, int y2);
    void SetRectRgn(LPCRECT lpRect);
};

// A device context.
class AFX_API CDC : public CObject
{
    DECLARE_DYNAMIC(CDC)

public:
    CDC();
    ~CDC() override;

    HDC m_hDC;
    HDC m_hAttribDC;

    operator HDC() const { return m_hDC; }
    // m_hDC, or NULL when called through a NULL pointer.
    HDC GetSafeHdc() const;

    // The permanent object of hDC, or a temporary one.
    static CDC* PASCAL FromHandle(HDC hDC);
    // Deletes the calling thread's temporary device context objects.
    static void PASCAL DeleteTempMap();

    BOOL Attach(HDC hDC);
    HDC Detach();
    BOOL CreateCompatibleDC(CDC* pDC);
    BOOL CreateDC(LPCTSTR lpszDriverName, LPCTSTR lpszDeviceName, LPCTSTR lpszOutput, const void* lpInitData);
    BOOL DeleteDC();

    CWnd* GetWindow() const;
    int SaveDC();
    BOOL RestoreDC(int nSavedDC);
    int GetDeviceCaps(int nIndex) const;

    // Selection; each returns the previous object (NULL on failure).
    CPen* SelectObject(CPen* pPen);
    CBrush* SelectObject(CBrush* pBrush);
    virtual CFont* SelectObject(CFont* pFont);
    CBitmap* SelectObject(CBitmap* pBitmap);
    // The region's complexity (SIMPLEREGION, ...), or ERROR.
    int SelectObject(CRgn* pRgn);
    CGdiObject* SelectObject(CGdiObject* pObject);
    virtual CGdiObject* SelectStockObject(int nIndex);
    CPen* GetCurrentPen() const;
    CBrush* GetCurrentBrush() const;
    CFont* GetCurrentFont() const;
    CBitmap* GetCurrentBitmap() const;

    // Colours and modes.
    virtual COLORREF SetTextColor(COLORREF crColor);
    COLORREF GetTextColor() const;
    virtual COLORREF SetBkColor(COLORREF crColor);
    COLORREF GetBkColor() const;
    int SetBkMode(int nBkMode);
    int GetBkMode() const;
    int SetROP2(int nDrawMode);
    int GetROP2() const;
    int SetMapMode(int nMapMode);
    int GetMapMode() const;
    UINT SetTextAlign(UINT nFlags);
    int SetStretchBltMode(int nStretchMode);
    CPoint SetViewportOrg(int x, int y);
    CPoint SetViewportOrg(POINT point);
    CPoint GetViewportOrg() const;
    CPoint SetWindowOrg(int x, int y);
    CPoint SetWindowOrg(POINT point);
    CPoint GetWindowOrg() const;
    void DPtoLP(LPPOINT lpPoints, int nCount = 1) const;
    void DPtoLP(LPRECT lpRect) const;
    void LPtoDP(LPPOINT lpPoints, int nCount = 1) const;
    void LPtoDP(LPRECT lpRect) const;

    // Clipping.
    int IntersectClipRect(int x1, int y1, int x2, int y2);
    int IntersectClipRect(LPCRECT lpRect);
    int ExcludeClipRect(int x1, int y1, int x2, int y2);
    int ExcludeClipRect(LPCRECT lpRect);
    int SelectClipRgn(CRgn* pRgn);
    int GetClipBox(LPRECT lpRect) const;

    // Lines and shapes.
    CPoint MoveTo(int x, int y);
    CPoint MoveTo(POINT point);
    BOOL LineTo(int x, int y);
    BOOL LineTo(POINT point);
    BOOL Polyline(const POINT* lpPoints, int nCount);
    BOOL Polygon(const POINT* lpPoints, int nCount);
    BOOL Rectangle(int x1, int y1, int x2, int y2);
    BOOL Rectangle(LPCRECT lpRect);
    BOOL RoundRect(int x1, int y1, int x2, int y2, int x3, int y3);
    BOOL Ellipse(int x1, int y1, int x2, int y2);
    BOOL Ellipse(LPCRECT lpRect);
    void FillRect(LPCRECT lpRect, CBrush* pBrush);
    void FrameRect(LPCRECT lpRect, CBrush* pBrush);
    void InvertRect(LPCRECT lpRect);
    // Fills with a solid colour through the background colour, which it changes.
    void FillSolidRect(LPCRECT lpRect, COLORREF clr);
    void FillSolidRect(int x, int y, int cx, int cy, COLORREF clr);
    void Draw3dRect(LPCRECT lpRect, COLORREF clrTopLeft, COLORREF clrBottomRight);
    void Draw3dRect(int x, int y, int cx, int cy, COLORREF clrTopLeft, COLORREF clrBottomRight);
    BOOL DrawEdge(LPRECT lpRect, UINT nEdge, UINT nFlags);
    void DrawFocusRect(LPCRECT lpRect);
    BOOL DrawIcon(int x, int y, HICON hIcon);
    BOOL DrawIcon(POINT point, HICON hIcon);
    COLORREF SetPixel(int x, int y, COLORREF crColor);
    COLORREF SetPixel(POINT point, COLORREF crColor);
    COLORREF GetPixel(int x, int y) const;
    COLORREF GetPixel(POINT point) const;

    // Bit transfers.
    BOOL PatBlt(int x, int y, int nWidth, int nHeight, DWORD dwRop);
    BOOL BitBlt(int x, int y, int nWidth, int nHeight, CDC* pSrcDC, int xSrc, int ySrc, DWORD dwRop);
    BOOL StretchBlt(int x, int y, int nWidth, int nHeight, CDC* pSrcDC, int xSrc, int ySrc, int nSrcWidth,
                    int nSrcHeight, DWORD dwRop);
    BOOL TransparentBlt(int xDest, int yDest, int nDestWidth, int nDestHeight, CDC* pSrcDC, int xSrc, int ySrc,
                        int nSrcWidth, int nSrcHeight, UINT clrTransparent);

    // Text.
    virtual BOOL TextOut(int x, int y, LPCTSTR lpszString, int nCount);
    BOOL TextOut(int x, int y, const CString& str);
    virtual BOOL ExtTextOut(int x, int y, UINT nOptions, LPCRECT lpRect, LPCTSTR lpszString, UINT nCount,
                            LPINT lpDxWidths);
    virtual int DrawText(LPCTSTR lpszString, int nCount, LPRECT lpRect, UINT nFormat);
    virtual int DrawText(const CString& str, LPRECT lpRect, UINT nFormat);
    CSize GetTextExtent(LPCTSTR lpszString, int nCount) const;
    CSize GetTextExtent(const CString& str) const;
    BOOL GetTextMetrics(LPTEXTMETRIC lpMetrics) const;
    int GetTextFace(CString& rString) const;

private:
    CGdiObject* SelectHandle(HGDIOBJ hObject);
};

// The device context of BeginPaint/EndPaint for the window's WM_PAINT.
class AFX_API CPaintDC : public CDC
{
    DECLARE_DYNAMIC(CPaintDC)

public:
    explicit CPaintDC(CWnd* pWnd);
    ~CPaintDC() override;

    PAINTSTRUCT m_ps;

protected:
    HWND m_hWnd;
};

// The client area's device context (GetDC/ReleaseDC).
class AFX_API CClientDC : public CDC
{
    DECLARE_DYNAMIC(CClientDC)

public:
    // NULL gives the whole screen.
    explicit CClientDC(CWnd* pWnd);
    ~CClientDC() override;

protected:
    HWND m_hWnd;
};

// The whole window's device context (GetWindowDC/ReleaseDC).
class AFX_API CWindowDC : public CDC
{
    DECLARE_DYNAMIC(CWindowDC)

public:
    explicit CWindowDC(CWnd* pWnd);
    ~CWindowDC() override;

protected:
    HWND m_hWnd;
};
