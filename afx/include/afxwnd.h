// Windows: CWnd, the handle maps, the window procedure and the window
// creation hook.
//
// Handle maps: each thread keeps a permanent map (HWND -> the CWnd attached
// to it by Create, Attach or SubclassWindow) and a temporary map of CWnd
// objects that FromHandle makes for other windows. Temporary objects are
// deleted at idle time (AfxDeleteTempMap); do not keep their pointers.
//
// Window procedure: every window with a permanent object runs AfxWndProc,
// which hands each message to the object's WindowProc. Create subclasses the
// new window from a thread-local WH_CBT hook when it is created, so that the
// object sees WM_NCCREATE and WM_CREATE. The procedure found there is kept
// and chained with CallWindowProcA (DefWindowProc, Default).
//
// Reflection: a parent gives a control's WM_COMMAND and WM_NOTIFY to the
// control's object first (ON_CONTROL_REFLECT, ON_NOTIFY_REFLECT); the
// parent's own handler runs only when the control did not take it or used
// an _EX entry that returned FALSE. WM_CTLCOLORxxx, WM_DRAWITEM,
// WM_MEASUREITEM, WM_COMPAREITEM, WM_DELETEITEM and scroll messages reach the
// control's object from the parent's default handlers (CWnd::OnCtlColor, ...),
// so a parent that handles them itself without calling the base decides alone.
#pragma once

#include "afx.h"
#include "afxmsg.h"
#include "afxgdi.h"
#include "afxmenu.h"
#include "afxcmd.h"

class CScrollBar;
class CDataExchange;
class CCreateContext;

// CWnd::m_nFlags.
#define WF_MODALLOOP 0x0008
#define WF_CONTINUEMODAL 0x0010

// RunModalLoop flags.
#define MLF_NOIDLEMSG 0x0001
#define MLF_NOKICKIDLE 0x0002
#define MLF_SHOWONIDLE 0x0004

// A window: the object side of an HWND.
class AFX_API CWnd : public CCmdTarget
{
    DECLARE_DYNCREATE(CWnd)

public:
    CWnd();
    // Destroys the window if the object still owns one.
    ~CWnd() override;

    HWND m_hWnd;

    operator HWND() const { return m_hWnd; }
    BOOL operator==(const CWnd& wnd) const { return wnd.m_hWnd == m_hWnd; }
    BOOL operator!=(const CWnd& wnd) const { return wnd.m_hWnd != m_hWnd; }
    // m_hWnd, or NULL when called through a NULL pointer.
    HWND GetSafeHwnd() const;
    DWORD GetStyle() const;
    DWORD GetExStyle() const;
    // Changes style bits; with nFlags also SetWindowPos(nFlags) to apply
    // them. TRUE if the style changed.
    BOOL ModifyStyle(DWORD dwRemove, DWORD dwAdd, UINT nFlags = 0);
    BOOL ModifyStyleEx(DWORD dwRemove, DWORD dwAdd, UINT nFlags = 0);
    static BOOL PASCAL ModifyStyle(HWND hWnd, DWORD dwRemove, DWORD dwAdd, UINT nFlags);
    static BOOL PASCAL ModifyStyleEx(HWND hWnd, DWORD dwRemove, DWORD dwAdd, UINT nFlags);

    // Handle maps.
    static CWnd* PASCAL FromHandle(HWND hWnd);
    static CWnd* PASCAL FromHandlePermanent(HWND hWnd);
    // Deletes the calling thread's temporary objects: windows, device
    // contexts and GDI objects.
    static void PASCAL DeleteTempMap();
    BOOL Attach(HWND hWndNew);
    HWND Detach();

    // Creation.
    virtual BOOL Create(LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, const RECT& rect,
                        CWnd* pParentWnd, UINT nID, CCreateContext* pContext = NULL);
    virtual BOOL CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, int x, int y,
                          int nWidth, int nHeight, HWND hWndParent, HMENU nIDorHMenu, LPVOID lpParam = NULL);
    virtual BOOL CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle,
                          const RECT& rect, CWnd* pParentWnd, UINT nID, LPVOID lpParam = NULL);
    virtual BOOL DestroyWindow();
    // Called before the window is made; may change the creation values.
    // A NULL class becomes the framework's default window class.
    virtual BOOL PreCreateWindow(CREATESTRUCT& cs);

    // Subclassing.
    BOOL SubclassWindow(HWND hWnd);
    BOOL SubclassDlgItem(UINT nID, CWnd* pParent);
    // Puts the saved procedure back and detaches. A subclasser that came
    // after this object loses its place in the chain, as with any
    // subclassing undone out of order.
    HWND UnsubclassWindow();

    // Messages.
    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    BOOL PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    LRESULT SendDlgItemMessage(int nID, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    void SendMessageToDescendants(UINT message, WPARAM wParam = 0, LPARAM lParam = 0, BOOL bDeep = TRUE,
                                  BOOL bOnlyPerm = FALSE);
    // The message being processed by the calling thread's window procedure.
    static const MSG* PASCAL GetCurrentMessage();

    // Text.
    void SetWindowText(LPCTSTR lpszString);
    int GetWindowText(LPTSTR lpszStringBuf, int nMaxCount) const;
    void GetWindowText(CString& rString) const;
    int GetWindowTextLength() const;
    void SetFont(CFont* pFont, BOOL bRedraw = TRUE);
    CFont* GetFont() const;

    // Dialog items.
    CWnd* GetDlgItem(int nID) const;
    void GetDlgItem(int nID, HWND* phWnd) const;
    int GetDlgCtrlID() const;
    int SetDlgCtrlID(int nID);
    void SetDlgItemText(int nID, LPCTSTR lpszString);
    int GetDlgItemText(int nID, LPTSTR lpStr, int nMaxCount) const;
    int GetDlgItemText(int nID, CString& rString) const;
    void SetDlgItemInt(int nID, UINT nValue, BOOL bSigned = TRUE);
    UINT GetDlgItemInt(int nID, BOOL* lpTrans = NULL, BOOL bSigned = TRUE) const;
    void CheckDlgButton(int nIDButton, UINT nCheck);
    UINT IsDlgButtonChecked(int nIDButton) const;
    void CheckRadioButton(int nIDFirstButton, int nIDLastButton, int nIDCheckButton);
    int GetCheckedRadioButton(int nIDFirstButton, int nIDLastButton);
    CWnd* GetNextDlgTabItem(CWnd* pWndCtl, BOOL bPrevious = FALSE) const;
    CWnd* GetNextDlgGroupItem(CWnd* pWndCtl, BOOL bPrevious = FALSE) const;
    // The descendant with id nID (depth first), or NULL.
    CWnd* GetDescendantWindow(int nID, BOOL bOnlyPerm = FALSE) const;

    // Relations.
    CWnd* GetParent() const;
    CWnd* SetParent(CWnd* pWndNewParent);
    // The owner set with SetOwner, else the parent.
    CWnd* GetOwner() const;
    void SetOwner(CWnd* pOwnerWnd);
    // The first ancestor (through parents and owners) that is not a child.
    CWnd* GetTopLevelParent() const;
    CWnd* GetTopLevelOwner() const;
    CWnd* GetWindow(UINT nCmd) const;
    BOOL IsChild(const CWnd* pWnd) const;

    // State.
    BOOL ShowWindow(int nCmdShow);
    BOOL IsWindowVisible() const;
    BOOL EnableWindow(BOOL bEnable = TRUE);
    BOOL IsWindowEnabled() const;
    BOOL IsIconic() const;
    BOOL IsZoomed() const;
    void SetRedraw(BOOL bRedraw = TRUE);

    // Geometry.
    void MoveWindow(int x, int y, int nWidth, int nHeight, BOOL bRepaint = TRUE);
    void MoveWindow(LPCRECT lpRect, BOOL bRepaint = TRUE);
    BOOL SetWindowPos(const CWnd* pWndInsertAfter, int x, int y, int cx, int cy, UINT nFlags);
    void GetWindowRect(LPRECT lpRect) const;
    void GetClientRect(LPRECT lpRect) const;
    void ClientToScreen(LPPOINT lpPoint) const;
    void ClientToScreen(LPRECT lpRect) const;
    void ScreenToClient(LPPOINT lpPoint) const;
    void ScreenToClient(LPRECT lpRect) const;
    BOOL GetWindowPlacement(WINDOWPLACEMENT* lpwndpl) const;
    BOOL SetWindowPlacement(const WINDOWPLACEMENT* lpwndpl);
    // Centres over the owner (or pAlternateOwner), or over the work area
    // for a window without one, kept inside the work area.
    void CenterWindow(CWnd* pAlternateOwner = NULL);
    void BringWindowToTop();

    // The large (bBigIcon TRUE) or small icon of the caption and task
    // switcher; SetIcon returns the previous one.
    HICON SetIcon(HICON hIcon, BOOL bBigIcon);
    HICON GetIcon(BOOL bBigIcon) const;

    // Insert-after positions for SetWindowPos (&wndTopMost, ...).
    static const CWnd wndTop;
    static const CWnd wndBottom;
    static const CWnd wndTopMost;
    static const CWnd wndNoTopMost;

    // Menu bar and system menu (temporary objects unless permanent).
    BOOL SetMenu(CMenu* pMenu);
    CMenu* GetMenu() const;
    CMenu* GetSystemMenu(BOOL bRevert) const;
    void DrawMenuBar();

    // Painting.
    void Invalidate(BOOL bErase = TRUE);
    void InvalidateRect(LPCRECT lpRect, BOOL bErase = TRUE);
    void ValidateRect(LPCRECT lpRect);
    void UpdateWindow();
    BOOL RedrawWindow(LPCRECT lpRectUpdate = NULL, CRgn* prgnUpdate = NULL,
                      UINT flags = RDW_INVALIDATE | RDW_UPDATENOW | RDW_ERASE);
    CDC* GetDC();
    CDC* GetWindowDC();
    int ReleaseDC(CDC* pDC);

    // Focus, input and activation.
    CWnd* SetFocus();
    static CWnd* PASCAL GetFocus();
    static CWnd* PASCAL GetActiveWindow();
    static CWnd* PASCAL GetForegroundWindow();
    static CWnd* PASCAL GetDesktopWindow();
    static CWnd* PASCAL GetCapture();
    static CWnd* PASCAL FindWindow(LPCTSTR lpszClassName, LPCTSTR lpszWindowName);
    CWnd* SetActiveWindow();
    CWnd* SetCapture();
    BOOL SetForegroundWindow();

    // Timers.
    UINT_PTR SetTimer(UINT_PTR nIDEvent, UINT nElapse, void(CALLBACK* lpfnTimer)(HWND, UINT, UINT_PTR, DWORD) = NULL);
    BOOL KillTimer(UINT_PTR nIDEvent);

    // Message box owned by this window; a NULL caption is the application's name.
    int MessageBox(LPCTSTR lpszText, LPCTSTR lpszCaption = NULL, UINT nType = MB_OK);
    // Help for dwData through the application's WinHelp.
    virtual void WinHelp(DWORD_PTR dwData, UINT nCmd = HELP_CONTEXT);

    // Dialog data: runs DoDataExchange in a CDataExchange; FALSE when a
    // validation failed (the user has been told) or something threw.
    BOOL UpdateData(BOOL bSaveAndValidate = TRUE);
    // Lets pTarget update every child control's state through its
    // ON_UPDATE_COMMAND_UI handlers.
    void UpdateDialogControls(CCmdTarget* pTarget, BOOL bDisableIfNoHndler);

    // Pre-translation: from pMsg's window up through its parents to
    // hWndStop, each permanent object's PreTranslateMessage; TRUE when one
    // took the message.
    static BOOL PASCAL WalkPreTranslateTree(HWND hWndStop, MSG* pMsg);
    virtual BOOL PreTranslateMessage(MSG* pMsg);

    // Message processing.
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    virtual BOOL OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    // The current message through DefWindowProc.
    LRESULT Default();
    BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo) override;
    virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
    virtual BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    // Called by the parent for a message a control sent it; the default
    // reflects it to this object's map.
    virtual BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    BOOL ReflectChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    // Hands the current message to hWndChild's object; TRUE if it took it.
    static BOOL PASCAL ReflectLastMsg(HWND hWndChild, LRESULT* pResult = NULL);
    BOOL SendChildNotifyLastMsg(LRESULT* pResult = NULL);
    // Called after the window is gone; derived classes delete themselves here.
    virtual void PostNcDestroy();
    virtual WNDPROC* GetSuperWndProcAddr();
    virtual void DoDataExchange(CDataExchange* pDX);

    // Modal loop of a window (dialogs): pumps messages until EndModalLoop.
    virtual int RunModalLoop(DWORD dwFlags = 0);
    virtual BOOL ContinueModal();
    virtual void EndModalLoop(int nResult);

    // Message handlers; each default passes the message on (Default).
    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    afx_msg BOOL OnNcCreate(LPCREATESTRUCT lpCreateStruct);
    afx_msg void OnDestroy();
    // Passes on, detaches the window and calls PostNcDestroy.
    afx_msg void OnNcDestroy();
    afx_msg void OnClose();
    afx_msg void OnSize(UINT nType, int cx, int cy);
    afx_msg void OnSizing(UINT nSide, LPRECT lpRect);
    afx_msg void OnMoving(UINT nSide, LPRECT lpRect);
    afx_msg void OnMove(int x, int y);
    afx_msg void OnEnterSizeMove();
    afx_msg void OnExitSizeMove();
    afx_msg void OnPaint();
    afx_msg BOOL OnEraseBkgnd(CDC* pDC);
    afx_msg void OnTimer(UINT_PTR nIDEvent);
    afx_msg void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnKeyUp(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnChar(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnSysKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnSysKeyUp(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnSysChar(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnLButtonUp(UINT nFlags, CPoint point);
    afx_msg void OnLButtonDblClk(UINT nFlags, CPoint point);
    afx_msg void OnRButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnRButtonUp(UINT nFlags, CPoint point);
    afx_msg void OnRButtonDblClk(UINT nFlags, CPoint point);
    afx_msg void OnMButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnMButtonUp(UINT nFlags, CPoint point);
    afx_msg void OnMouseMove(UINT nFlags, CPoint point);
    afx_msg void OnMouseHover(UINT nFlags, CPoint point);
    afx_msg void OnMouseLeave();
    afx_msg BOOL OnMouseWheel(UINT nFlags, short zDelta, CPoint pt);
    afx_msg int OnMouseActivate(CWnd* pDesktopWnd, UINT nHitTest, UINT message);
    afx_msg BOOL OnSetCursor(CWnd* pWnd, UINT nHitTest, UINT message);
    afx_msg void OnSetFocus(CWnd* pOldWnd);
    afx_msg void OnKillFocus(CWnd* pNewWnd);
    afx_msg void OnEnable(BOOL bEnable);
    afx_msg UINT OnGetDlgCode();
    // Reflects to the control's object first; its brush wins.
    afx_msg HBRUSH OnCtlColor(CDC* pDC, CWnd* pWnd, UINT nCtlColor);
    // Owner-draw messages go to the control's object first (DrawItem, ...).
    afx_msg void OnDrawItem(int nIDCtl, LPDRAWITEMSTRUCT lpDrawItemStruct);
    afx_msg void OnMeasureItem(int nIDCtl, LPMEASUREITEMSTRUCT lpMeasureItemStruct);
    afx_msg int OnCompareItem(int nIDCtl, LPCOMPAREITEMSTRUCT lpCompareItemStruct);
    afx_msg void OnDeleteItem(int nIDCtl, LPDELETEITEMSTRUCT lpDeleteItemStruct);
    afx_msg LRESULT OnMenuChar(UINT nChar, UINT nFlags, CMenu* pMenu);
    afx_msg void OnInitMenu(CMenu* pMenu);
    // Passes on, then lets this window's ON_UPDATE_COMMAND_UI handlers set
    // the state of the pop-up's items (not of a system menu); items without
    // a handler keep their state.
    afx_msg void OnInitMenuPopup(CMenu* pPopupMenu, UINT nIndex, BOOL bSysMenu);
    afx_msg void OnMenuSelect(UINT nItemID, UINT nFlags, HMENU hSysMenu);
    afx_msg void OnEnterMenuLoop(BOOL bIsTrackPopupMenu);
    afx_msg void OnExitMenuLoop(BOOL bIsTrackPopupMenu);
    afx_msg void OnEnterIdle(UINT nWhy, CWnd* pWho);
    afx_msg void OnGetMinMaxInfo(MINMAXINFO* lpMMI);
    afx_msg BOOL OnHelpInfo(HELPINFO* pHelpInfo);
    afx_msg void OnContextMenu(CWnd* pWnd, CPoint pos);
    afx_msg void OnShowWindow(BOOL bShow, UINT nStatus);
    afx_msg void OnActivate(UINT nState, CWnd* pWndOther, BOOL bMinimized);
    afx_msg void OnActivateApp(BOOL bActive, DWORD dwThreadID);
    afx_msg BOOL OnNcActivate(BOOL bActive);
    afx_msg LRESULT OnNcHitTest(CPoint point);
    afx_msg void OnNcPaint();
    afx_msg void OnNcCalcSize(BOOL bCalcValidRects, NCCALCSIZE_PARAMS* lpncsp);
    afx_msg void OnNcLButtonDown(UINT nHitTest, CPoint point);
    afx_msg void OnNcLButtonUp(UINT nHitTest, CPoint point);
    afx_msg void OnNcLButtonDblClk(UINT nHitTest, CPoint point);
    afx_msg void OnNcRButtonDown(UINT nHitTest, CPoint point);
    afx_msg void OnNcMouseMove(UINT nHitTest, CPoint point);
    // Scroll messages of a scroll bar control go to its object first.
    afx_msg void OnHScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar);
    afx_msg void OnVScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar);
    afx_msg void OnSysCommand(UINT nID, LPARAM lParam);
    afx_msg void OnWindowPosChanged(WINDOWPOS* lpwndpos);
    afx_msg void OnWindowPosChanging(WINDOWPOS* lpwndpos);
    afx_msg void OnDropFiles(HDROP hDropInfo);
    afx_msg void OnCancelMode();
    afx_msg void OnCaptureChanged(CWnd* pWnd);
    afx_msg void OnSettingChange(UINT uFlags, LPCTSTR lpszSection);
    afx_msg void OnWinIniChange(LPCTSTR lpszSection);
    afx_msg void OnSysColorChange();
    // WM_CREATE and WM_DESTROY of a child go to the child's object first.
    afx_msg void OnParentNotify(UINT message, LPARAM lParam);
    afx_msg HCURSOR OnQueryDragIcon();
    afx_msg void OnMDIActivate(BOOL bActivate, CWnd* pActivateWnd, CWnd* pDeactivateWnd);

protected:
    // The insert-after positions: objects that only carry a special handle.
    explicit CWnd(HWND hWndInsertAfter);

    // Lets a derived class look at a window before it is subclassed.
    virtual void PreSubclassWindow();
    BOOL CreateDlgIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd, HINSTANCE hInst);

    WNDPROC m_pfnSuper;
    HWND m_hWndOwner;
    UINT m_nFlags;
    int m_nModalResult;

    friend LRESULT CALLBACK AfxWndProc(HWND, UINT, WPARAM, LPARAM);
    friend struct AfxWndAccess;

    DECLARE_MESSAGE_MAP()
};

// The window procedure of every window with a permanent CWnd.
AFX_API LRESULT CALLBACK AfxWndProc(HWND hWnd, UINT nMsg, WPARAM wParam, LPARAM lParam);
// A window class of the current instance with these attributes and
// DefWindowProc as procedure, registered on first use; the name is valid
// until the thread's next call.
AFX_API LPCTSTR AfxRegisterWndClass(UINT nClassStyle, HCURSOR hCursor = 0, HBRUSH hbrBackground = 0, HICON hIcon = 0);
// Makes pWnd the object of the next window the calling thread creates.
AFX_API void AfxHookWindowCreate(CWnd* pWnd);
// Ends AfxHookWindowCreate; FALSE if the hook never found the window.
AFX_API BOOL AfxUnhookWindowCreate();
// Deletes the calling thread's temporary window, device context and GDI
// objects, unless AfxLockTempMaps holds them.
AFX_API void AfxDeleteTempMap();
// Keeps temporary objects alive until the matching AfxUnlockTempMaps.
AFX_API void AfxLockTempMaps();
// Ends an AfxLockTempMaps; the last one deletes the temporary objects when
// bDeleteTemps is set. TRUE if they were deleted.
AFX_API BOOL AfxUnlockTempMaps(BOOL bDeleteTemps = TRUE);
// Diagnostics: how many temporary objects (windows, device contexts, GDI
// objects, menus, image lists) the calling thread holds.
AFX_API INT_PTR AfxGetTempObjectCount();
