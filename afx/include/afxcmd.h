// Command targets and the command user interface: the objects that receive
// commands through a message map, and the state an ON_UPDATE_COMMAND_UI
// handler sets on a menu item or control.
#pragma once

#include "afx.h"
#include "afxmsg.h"

class CMenu;
class CWnd;

// The base of everything that receives commands through a message map.
class AFX_API CCmdTarget : public CObject
{
    DECLARE_DYNAMIC(CCmdTarget)

public:
    CCmdTarget();
    ~CCmdTarget() override;

    // Routes a command, an update request (CN_UPDATE_COMMAND_UI), a control
    // notification or a WM_NOTIFY (nCode MAKELONG(code, WM_NOTIFY), pExtra
    // AFX_NOTIFY*) to this object's message map; TRUE if a handler took it.
    // With pHandlerInfo only reports whether a handler exists.
    virtual BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo);

    void BeginWaitCursor();
    void EndWaitCursor();
    void RestoreWaitCursor();

    DECLARE_MESSAGE_MAP()
};

// The state of one command's user interface (menu item, control) that an
// ON_UPDATE_COMMAND_UI handler sets.
class AFX_API CCmdUI
{
public:
    CCmdUI();
    virtual ~CCmdUI() = default;

    UINT m_nID;
    UINT m_nIndex;
    CMenu* m_pMenu;
    CMenu* m_pSubMenu;
    CMenu* m_pParentMenu;
    CWnd* m_pOther;
    UINT m_nIndexMax;
    BOOL m_bEnableChanged;
    BOOL m_bContinueRouting;

    virtual void Enable(BOOL bOn = TRUE);
    // 0 unchecked, 1 checked, 2 indeterminate.
    virtual void SetCheck(int nCheck = 1);
    virtual void SetRadio(BOOL bOn = TRUE);
    virtual void SetText(LPCTSTR lpszText);
    // Lets the command's update request go on to the next target.
    void ContinueRouting();
    // Asks pTarget to update this user interface item; with
    // bDisableIfNoHndler an item whose command has no handler is disabled.
    BOOL DoUpdate(CCmdTarget* pTarget, BOOL bDisableIfNoHndler);
};
