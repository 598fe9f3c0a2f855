// Message maps: the tables through which a command target names the member
// that handles a window message, a command, a control notification or a
// reflected notification.
//
// Each entry holds a small thunk, made by the entry's macro inside the map's
// own member function, that unpacks wParam and lParam and calls the member
// through a pointer of the exact handler type. A handler with another
// signature does not compile. No member pointer is ever converted to a
// generic type.
//
// Entry macros that pass window or GDI objects (CWnd*, CDC*, CMenu*,
// CScrollBar*) hand over temporary objects of the calling thread, deleted
// at idle time. The menu macros (ON_WM_INITMENU, ON_WM_INITMENUPOPUP,
// ON_WM_MENUCHAR) need the complete CMenu class where the map is written.
#pragma once

#include "afx.h"

#include <type_traits>

class CCmdTarget;
class CCmdUI;
class CWnd;
class CDC;
class CMenu;
class CScrollBar;

// Marks a message handler in a class declaration.
#define afx_msg

// Reflected messages: a parent hands a control's notification back to the
// control's object as WM_REFLECT_BASE + message.
#define WM_REFLECT_BASE 0xBC00
// The framework's one message number for all WM_CTLCOLORxxx messages.
#ifndef WM_CTLCOLOR
#define WM_CTLCOLOR 0x0019
#endif

// Command codes of OnCmdMsg besides the control notification codes.
#define CN_COMMAND 0
#define CN_UPDATE_COMMAND_UI ((UINT)(-1))

// Kind of a message-map entry.
enum AfxSig : UINT
{
    AfxSig_end = 0,
    // A window message, a command or a notification.
    AfxSig_msg,
    // A registered message; the entry points to the variable holding its number.
    AfxSig_registered,
};

// Everything one message or command brings to a handler thunk, and the
// result the thunk leaves.
struct AFX_MSGCALL
{
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    // Commands and notifications: the control or command id, the code and
    // the extra data (CCmdUI*, AFX_NOTIFY*).
    UINT nID;
    UINT nCode;
    void* pExtra;
    LRESULT lResult;
};

// A handler thunk: calls the handler; FALSE when the handler declined the
// message (ON_COMMAND_EX, ON_NOTIFY_EX, reflected _EX entries, a reflected
// control colour that gave no brush), which lets routing go on.
typedef BOOL (*AFX_PMSGTHUNK)(CCmdTarget* pTarget, AFX_MSGCALL& call);

// One row of a message map.
struct AFX_MSGMAP_ENTRY
{
    UINT nMessage;
    UINT nCode;
    UINT nID;
    UINT nLastID;
    UINT nSig;
    const UINT* pnRegisteredMessage;
    AFX_PMSGTHUNK pfn;
};

// A class's message map and the way to its base class's map.
struct AFX_MSGMAP
{
    const AFX_MSGMAP*(PASCAL* pfnGetBaseMap)();
    const AFX_MSGMAP_ENTRY* lpEntries;
};

// The extra data of a WM_NOTIFY routed through OnCmdMsg.
struct AFX_NOTIFY
{
    LRESULT* pResult;
    NMHDR* pNMHDR;
};

// Filled by OnCmdMsg when it is only asked whether a handler exists.
struct AFX_CMDHANDLERINFO
{
    CCmdTarget* pTarget;
    AFX_PMSGTHUNK pfn;
};

// What a reflected control colour message carries.
struct AFX_CTLCOLOR
{
    HWND hWnd;
    HDC hDC;
    UINT nCtlType;
};

// The first entry of lpEntry for message nMsg, code nCode and an id range
// that holds nID; NULL if there is none.
AFX_API const AFX_MSGMAP_ENTRY* AfxFindMessageEntry(const AFX_MSGMAP_ENTRY* lpEntry, UINT nMsg, UINT nCode, UINT nID);

// A handler's return value as the message's result.
template <class R>
constexpr LRESULT AfxMsgResult(R value) noexcept
{
    if constexpr (std::is_pointer_v<R>)
        return reinterpret_cast<LRESULT>(value);
    else
        return static_cast<LRESULT>(value);
}

// The signed x and y coordinates packed into lParam.
#define AFX_GET_X_LPARAM(lp) ((int)(short)LOWORD(lp))
#define AFX_GET_Y_LPARAM(lp) ((int)(short)HIWORD(lp))
#define AFX_LPARAM_POINT(lp) CPoint(AFX_GET_X_LPARAM(lp), AFX_GET_Y_LPARAM(lp))

#define DECLARE_MESSAGE_MAP() \
protected: \
    static const AFX_MSGMAP* PASCAL GetThisMessageMap(); \
    virtual const AFX_MSGMAP* GetMessageMap() const;

#define BEGIN_MESSAGE_MAP(theClass, baseClass) \
    const AFX_MSGMAP* theClass::GetMessageMap() const \
    { \
        return GetThisMessageMap(); \
    } \
    const AFX_MSGMAP* PASCAL theClass::GetThisMessageMap() \
    { \
        [[maybe_unused]] typedef theClass ThisClass; \
        typedef baseClass TheBaseClass; \
        static const AFX_MSGMAP_ENTRY _messageEntries[] = {

#define END_MESSAGE_MAP() \
    { \
        0, 0, 0, 0, AfxSig_end, nullptr, nullptr \
    } \
    } \
    ; \
    static const AFX_MSGMAP messageMap = {&TheBaseClass::GetThisMessageMap, &_messageEntries[0]}; \
    return &messageMap; \
    }

// Thunk bodies. pmf is the handler: a member pointer expression such as
// &CMyDlg::OnX, or a bare member name (OnX), which this compiler accepts as
// a member pointer in a class's own scope, as the framework's compiler does.
// PARAMS is the parenthesised parameter list of the handler type, ARGS the
// parenthesised arguments built from wParam, lParam, message, nID, nCode
// and pExtra.
#define AFX_THUNK_BEGIN [](CCmdTarget* pTarget_, AFX_MSGCALL& call_) -> BOOL { \
        [[maybe_unused]] ThisClass* const pThis_ = static_cast<ThisClass*>(pTarget_); \
        [[maybe_unused]] const UINT message = call_.message; \
        [[maybe_unused]] const WPARAM wParam = call_.wParam; \
        [[maybe_unused]] const LPARAM lParam = call_.lParam; \
        [[maybe_unused]] const UINT nID = call_.nID; \
        [[maybe_unused]] void* const pExtra = call_.pExtra;

// Calls a void handler; the message's result is lResultValue.
#define AFX_THUNK_V(pmf, PARAMS, ARGS, lResultValue) \
    AFX_THUNK_BEGIN \
    void(ThisClass::*pmf_) PARAMS = pmf; \
    (pThis_->*pmf_) ARGS; \
    call_.lResult = (lResultValue); \
    return TRUE; \
    }

// Calls a handler whose return value is the message's result.
#define AFX_THUNK_R(R, pmf, PARAMS, ARGS) \
    AFX_THUNK_BEGIN \
    R(ThisClass::*pmf_) PARAMS = pmf; \
    call_.lResult = AfxMsgResult((pThis_->*pmf_) ARGS); \
    return TRUE; \
    }

// Calls a handler whose BOOL says whether it handled the message.
#define AFX_THUNK_EX(pmf, PARAMS, ARGS) \
    AFX_THUNK_BEGIN \
    BOOL(ThisClass::*pmf_) PARAMS = pmf; \
    return (pThis_->*pmf_) ARGS ? TRUE : FALSE; \
    }

#define AFX_MSG_ENTRY(msg, thunk) {(UINT)(msg), 0, 0, 0, AfxSig_msg, nullptr, thunk},
#define AFX_CMD_ENTRY(msg, code, id, idLast, thunk) \
    {(UINT)(msg), (UINT)(code), (UINT)(id), (UINT)(idLast), AfxSig_msg, nullptr, thunk},

// ---- General messages ----

// LRESULT memberFxn(WPARAM, LPARAM)
#define ON_MESSAGE(message_, memberFxn) \
    AFX_MSG_ENTRY(message_, AFX_THUNK_R(LRESULT, memberFxn, (WPARAM, LPARAM), (wParam, lParam)))
// LRESULT memberFxn(WPARAM, LPARAM); nMessageVariable holds a RegisterWindowMessage number.
#define ON_REGISTERED_MESSAGE(nMessageVariable, memberFxn) \
    {0xC000, \
     0, \
     0, \
     0, \
     AfxSig_registered, \
     &(nMessageVariable), \
     AFX_THUNK_R(LRESULT, memberFxn, (WPARAM, LPARAM), (wParam, lParam))},

// ---- Commands ----

// void memberFxn()
#define ON_COMMAND(id, memberFxn) AFX_CMD_ENTRY(WM_COMMAND, CN_COMMAND, id, id, AFX_THUNK_V(memberFxn, (), (), 0))
// BOOL memberFxn(UINT nID); FALSE routes the command on.
#define ON_COMMAND_EX(id, memberFxn) \
    AFX_CMD_ENTRY(WM_COMMAND, CN_COMMAND, id, id, AFX_THUNK_EX(memberFxn, (UINT), (nID)))
// void memberFxn(UINT nID)
#define ON_COMMAND_RANGE(id, idLast, memberFxn) \
    AFX_CMD_ENTRY(WM_COMMAND, CN_COMMAND, id, idLast, AFX_THUNK_V(memberFxn, (UINT), (nID), 0))
// BOOL memberFxn(UINT nID)
#define ON_COMMAND_EX_RANGE(id, idLast, memberFxn) \
    AFX_CMD_ENTRY(WM_COMMAND, CN_COMMAND, id, idLast, AFX_THUNK_EX(memberFxn, (UINT), (nID)))

// Calls an update handler; it handled the command unless it asked
// CCmdUI::ContinueRouting.
#define AFX_THUNK_UPDATE(pmf) \
    AFX_THUNK_BEGIN \
    void (ThisClass::*pmf_)(CCmdUI*) = pmf; \
    CCmdUI* const pCmdUI_ = static_cast<CCmdUI*>(pExtra); \
    pCmdUI_->m_bContinueRouting = FALSE; \
    (pThis_->*pmf_)(pCmdUI_); \
    const BOOL handled_ = !pCmdUI_->m_bContinueRouting; \
    pCmdUI_->m_bContinueRouting = FALSE; \
    return handled_; \
    }

// void memberFxn(CCmdUI*)
#define ON_UPDATE_COMMAND_UI(id, memberFxn) \
    AFX_CMD_ENTRY(WM_COMMAND, CN_UPDATE_COMMAND_UI, id, id, AFX_THUNK_UPDATE(memberFxn))
// void memberFxn(CCmdUI*); the CCmdUI's m_nID tells the command.
#define ON_UPDATE_COMMAND_UI_RANGE(id, idLast, memberFxn) \
    AFX_CMD_ENTRY(WM_COMMAND, CN_UPDATE_COMMAND_UI, id, idLast, AFX_THUNK_UPDATE(memberFxn))

// void memberFxn(CCmdUI*) in a control's class: updates the control itself
// before its parent's handlers are asked (UpdateDialogControls).
#define ON_UPDATE_COMMAND_UI_REFLECT(memberFxn) \
    AFX_CMD_ENTRY(WM_REFLECT_BASE + WM_COMMAND, (WORD)CN_UPDATE_COMMAND_UI, 0, 0, AFX_THUNK_UPDATE(memberFxn))

// ---- Control notifications (WM_COMMAND) ----

// void memberFxn()
#define ON_CONTROL(wNotifyCode, id, memberFxn) \
    AFX_CMD_ENTRY(WM_COMMAND, (WORD)(wNotifyCode), id, id, AFX_THUNK_V(memberFxn, (), (), 0))
// void memberFxn(UINT nID)
#define ON_CONTROL_RANGE(wNotifyCode, id, idLast, memberFxn) \
    AFX_CMD_ENTRY(WM_COMMAND, (WORD)(wNotifyCode), id, idLast, AFX_THUNK_V(memberFxn, (UINT), (nID), 0))

#define ON_BN_CLICKED(id, memberFxn) ON_CONTROL(BN_CLICKED, id, memberFxn)
#define ON_BN_DOUBLECLICKED(id, memberFxn) ON_CONTROL(BN_DOUBLECLICKED, id, memberFxn)
#define ON_BN_SETFOCUS(id, memberFxn) ON_CONTROL(BN_SETFOCUS, id, memberFxn)
#define ON_BN_KILLFOCUS(id, memberFxn) ON_CONTROL(BN_KILLFOCUS, id, memberFxn)
#define ON_EN_CHANGE(id, memberFxn) ON_CONTROL(EN_CHANGE, id, memberFxn)
#define ON_EN_UPDATE(id, memberFxn) ON_CONTROL(EN_UPDATE, id, memberFxn)
#define ON_EN_SETFOCUS(id, memberFxn) ON_CONTROL(EN_SETFOCUS, id, memberFxn)
#define ON_EN_KILLFOCUS(id, memberFxn) ON_CONTROL(EN_KILLFOCUS, id, memberFxn)
#define ON_EN_MAXTEXT(id, memberFxn) ON_CONTROL(EN_MAXTEXT, id, memberFxn)
#define ON_EN_ERRSPACE(id, memberFxn) ON_CONTROL(EN_ERRSPACE, id, memberFxn)
#define ON_EN_HSCROLL(id, memberFxn) ON_CONTROL(EN_HSCROLL, id, memberFxn)
#define ON_EN_VSCROLL(id, memberFxn) ON_CONTROL(EN_VSCROLL, id, memberFxn)
#define ON_CBN_SELCHANGE(id, memberFxn) ON_CONTROL(CBN_SELCHANGE, id, memberFxn)
#define ON_CBN_DBLCLK(id, memberFxn) ON_CONTROL(CBN_DBLCLK, id, memberFxn)
#define ON_CBN_SETFOCUS(id, memberFxn) ON_CONTROL(CBN_SETFOCUS, id, memberFxn)
#define ON_CBN_KILLFOCUS(id, memberFxn) ON_CONTROL(CBN_KILLFOCUS, id, memberFxn)
#define ON_CBN_EDITCHANGE(id, memberFxn) ON_CONTROL(CBN_EDITCHANGE, id, memberFxn)
#define ON_CBN_EDITUPDATE(id, memberFxn) ON_CONTROL(CBN_EDITUPDATE, id, memberFxn)
#define ON_CBN_DROPDOWN(id, memberFxn) ON_CONTROL(CBN_DROPDOWN, id, memberFxn)
#define ON_CBN_CLOSEUP(id, memberFxn) ON_CONTROL(CBN_CLOSEUP, id, memberFxn)
#define ON_CBN_SELENDOK(id, memberFxn) ON_CONTROL(CBN_SELENDOK, id, memberFxn)
#define ON_CBN_SELENDCANCEL(id, memberFxn) ON_CONTROL(CBN_SELENDCANCEL, id, memberFxn)
#define ON_LBN_SELCHANGE(id, memberFxn) ON_CONTROL(LBN_SELCHANGE, id, memberFxn)
#define ON_LBN_DBLCLK(id, memberFxn) ON_CONTROL(LBN_DBLCLK, id, memberFxn)
#define ON_LBN_SELCANCEL(id, memberFxn) ON_CONTROL(LBN_SELCANCEL, id, memberFxn)
#define ON_LBN_SETFOCUS(id, memberFxn) ON_CONTROL(LBN_SETFOCUS, id, memberFxn)
#define ON_LBN_KILLFOCUS(id, memberFxn) ON_CONTROL(LBN_KILLFOCUS, id, memberFxn)
#define ON_STN_CLICKED(id, memberFxn) ON_CONTROL(STN_CLICKED, id, memberFxn)
#define ON_STN_DBLCLK(id, memberFxn) ON_CONTROL(STN_DBLCLK, id, memberFxn)

// ---- Notifications (WM_NOTIFY) ----

#define AFX_NOTIFY_HDR(pExtra_) (static_cast<AFX_NOTIFY*>(pExtra_)->pNMHDR)
#define AFX_NOTIFY_RESULT(pExtra_) (static_cast<AFX_NOTIFY*>(pExtra_)->pResult)

// void memberFxn(NMHDR* pNotifyStruct, LRESULT* pResult)
#define ON_NOTIFY(wNotifyCode, id, memberFxn) \
    AFX_CMD_ENTRY(WM_NOTIFY, (WORD)(wNotifyCode), id, id, \
                  AFX_THUNK_V(memberFxn, (NMHDR*, LRESULT*), (AFX_NOTIFY_HDR(pExtra), AFX_NOTIFY_RESULT(pExtra)), 0))
// void memberFxn(UINT id, NMHDR* pNotifyStruct, LRESULT* pResult)
#define ON_NOTIFY_RANGE(wNotifyCode, id, idLast, memberFxn) \
    AFX_CMD_ENTRY( \
        WM_NOTIFY, (WORD)(wNotifyCode), id, idLast, \
        AFX_THUNK_V(memberFxn, (UINT, NMHDR*, LRESULT*), (nID, AFX_NOTIFY_HDR(pExtra), AFX_NOTIFY_RESULT(pExtra)), 0))
// BOOL memberFxn(UINT id, NMHDR* pNotifyStruct, LRESULT* pResult); FALSE routes on.
#define ON_NOTIFY_EX(wNotifyCode, id, memberFxn) \
    AFX_CMD_ENTRY( \
        WM_NOTIFY, (WORD)(wNotifyCode), id, id, \
        AFX_THUNK_EX(memberFxn, (UINT, NMHDR*, LRESULT*), (nID, AFX_NOTIFY_HDR(pExtra), AFX_NOTIFY_RESULT(pExtra))))
#define ON_NOTIFY_EX_RANGE(wNotifyCode, id, idLast, memberFxn) \
    AFX_CMD_ENTRY( \
        WM_NOTIFY, (WORD)(wNotifyCode), id, idLast, \
        AFX_THUNK_EX(memberFxn, (UINT, NMHDR*, LRESULT*), (nID, AFX_NOTIFY_HDR(pExtra), AFX_NOTIFY_RESULT(pExtra))))

// ---- Reflected notifications (entries of the control's own class) ----

// void memberFxn(NMHDR* pNotifyStruct, LRESULT* pResult); the parent's handler does not run.
#define ON_NOTIFY_REFLECT(wNotifyCode, memberFxn) \
    AFX_CMD_ENTRY(WM_REFLECT_BASE + WM_NOTIFY, (WORD)(wNotifyCode), 0, 0, \
                  AFX_THUNK_V(memberFxn, (NMHDR*, LRESULT*), (AFX_NOTIFY_HDR(pExtra), AFX_NOTIFY_RESULT(pExtra)), 0))
// BOOL memberFxn(NMHDR* pNotifyStruct, LRESULT* pResult); FALSE lets the parent handle it too.
#define ON_NOTIFY_REFLECT_EX(wNotifyCode, memberFxn) \
    AFX_CMD_ENTRY(WM_REFLECT_BASE + WM_NOTIFY, (WORD)(wNotifyCode), 0, 0, \
                  AFX_THUNK_EX(memberFxn, (NMHDR*, LRESULT*), (AFX_NOTIFY_HDR(pExtra), AFX_NOTIFY_RESULT(pExtra))))
// void memberFxn()
#define ON_CONTROL_REFLECT(wNotifyCode, memberFxn) \
    AFX_CMD_ENTRY(WM_REFLECT_BASE + WM_COMMAND, (WORD)(wNotifyCode), 0, 0, AFX_THUNK_V(memberFxn, (), (), 0))
// BOOL memberFxn(); FALSE lets the parent handle it too.
#define ON_CONTROL_REFLECT_EX(wNotifyCode, memberFxn) \
    AFX_CMD_ENTRY(WM_REFLECT_BASE + WM_COMMAND, (WORD)(wNotifyCode), 0, 0, AFX_THUNK_EX(memberFxn, (), ()))

// HBRUSH CtlColor(CDC* pDC, UINT nCtlColor); a NULL brush lets the parent colour the control.
#define ON_WM_CTLCOLOR_REFLECT() \
    AFX_MSG_ENTRY(WM_REFLECT_BASE + WM_CTLCOLOR, \
        AFX_THUNK_BEGIN \
            HBRUSH (ThisClass::*pmf_)(CDC*, UINT) = &ThisClass::CtlColor; \
            const AFX_CTLCOLOR* ctl_ = reinterpret_cast<const AFX_CTLCOLOR*>(lParam); \
            HBRUSH brush_ = (pThis_->*pmf_)(CDC::FromHandle(ctl_->hDC), ctl_->nCtlType); \
            call_.lResult = AfxMsgResult(brush_); \
            return brush_ != nullptr; \
    })
// void DrawItem(LPDRAWITEMSTRUCT)
#define ON_WM_DRAWITEM_REFLECT() \
    AFX_MSG_ENTRY(WM_REFLECT_BASE + WM_DRAWITEM, AFX_THUNK_V(&ThisClass::DrawItem, (LPDRAWITEMSTRUCT), \
                                                             (reinterpret_cast<LPDRAWITEMSTRUCT>(lParam)), TRUE))
// void MeasureItem(LPMEASUREITEMSTRUCT)
#define ON_WM_MEASUREITEM_REFLECT() \
    AFX_MSG_ENTRY(WM_REFLECT_BASE + WM_MEASUREITEM, \
                  AFX_THUNK_V(&ThisClass::MeasureItem, (LPMEASUREITEMSTRUCT), \
                              (reinterpret_cast<LPMEASUREITEMSTRUCT>(lParam)), TRUE))
// int CompareItem(LPCOMPAREITEMSTRUCT)
#define ON_WM_COMPAREITEM_REFLECT() \
    AFX_MSG_ENTRY(WM_REFLECT_BASE + WM_COMPAREITEM, AFX_THUNK_R(int, &ThisClass::CompareItem, (LPCOMPAREITEMSTRUCT), \
                                                                (reinterpret_cast<LPCOMPAREITEMSTRUCT>(lParam))))
// void DeleteItem(LPDELETEITEMSTRUCT)
#define ON_WM_DELETEITEM_REFLECT() \
    AFX_MSG_ENTRY(WM_REFLECT_BASE + WM_DELETEITEM, AFX_THUNK_V(&ThisClass::DeleteItem, (LPDELETEITEMSTRUCT), \
                                                               (reinterpret_cast<LPDELETEITEMSTRUCT>(lParam)), TRUE))
// void HScroll(UINT nSBCode, UINT nPos)
#define ON_WM_HSCROLL_REFLECT() \
    AFX_MSG_ENTRY(WM_REFLECT_BASE + WM_HSCROLL, AFX_THUNK_V(&ThisClass::HScroll, (UINT, UINT), \
                                                            ((UINT)LOWORD(wParam), (UINT)(short)HIWORD(wParam)), 0))
// void VScroll(UINT nSBCode, UINT nPos)
#define ON_WM_VSCROLL_REFLECT() \
    AFX_MSG_ENTRY(WM_REFLECT_BASE + WM_VSCROLL, AFX_THUNK_V(&ThisClass::VScroll, (UINT, UINT), \
                                                            ((UINT)LOWORD(wParam), (UINT)(short)HIWORD(wParam)), 0))
// void ParentNotify(UINT message, LPARAM lParam)
#define ON_WM_PARENTNOTIFY_REFLECT() \
    AFX_MSG_ENTRY(WM_REFLECT_BASE + WM_PARENTNOTIFY, \
                  AFX_THUNK_V(&ThisClass::ParentNotify, (UINT, LPARAM), ((UINT)wParam, lParam), 0))

// ---- Window messages ----

#define AFX_TEMP_WND(h) CWnd::FromHandle(reinterpret_cast<HWND>(h))
#define AFX_TEMP_DC(h) CDC::FromHandle(reinterpret_cast<HDC>(h))

#define ON_WM_CREATE() \
    AFX_MSG_ENTRY(WM_CREATE, AFX_THUNK_R(int, &ThisClass::OnCreate, (LPCREATESTRUCT), \
                                         (reinterpret_cast<LPCREATESTRUCT>(lParam))))
#define ON_WM_NCCREATE() \
    AFX_MSG_ENTRY(WM_NCCREATE, AFX_THUNK_R(BOOL, &ThisClass::OnNcCreate, (LPCREATESTRUCT), \
                                           (reinterpret_cast<LPCREATESTRUCT>(lParam))))
#define ON_WM_DESTROY() AFX_MSG_ENTRY(WM_DESTROY, AFX_THUNK_V(&ThisClass::OnDestroy, (), (), 0))
#define ON_WM_NCDESTROY() AFX_MSG_ENTRY(WM_NCDESTROY, AFX_THUNK_V(&ThisClass::OnNcDestroy, (), (), 0))
#define ON_WM_CLOSE() AFX_MSG_ENTRY(WM_CLOSE, AFX_THUNK_V(&ThisClass::OnClose, (), (), 0))
#define ON_WM_SIZE() \
    AFX_MSG_ENTRY( \
        WM_SIZE, AFX_THUNK_V(&ThisClass::OnSize, (UINT, int, int), ((UINT)wParam, LOWORD(lParam), HIWORD(lParam)), 0))
#define ON_WM_SIZING() \
    AFX_MSG_ENTRY(WM_SIZING, AFX_THUNK_V(&ThisClass::OnSizing, (UINT, LPRECT), \
                                         ((UINT)wParam, reinterpret_cast<LPRECT>(lParam)), TRUE))
#define ON_WM_MOVING() \
    AFX_MSG_ENTRY(WM_MOVING, AFX_THUNK_V(&ThisClass::OnMoving, (UINT, LPRECT), \
                                         ((UINT)wParam, reinterpret_cast<LPRECT>(lParam)), TRUE))
#define ON_WM_MOVE() \
    AFX_MSG_ENTRY( \
        WM_MOVE, AFX_THUNK_V(&ThisClass::OnMove, (int, int), (AFX_GET_X_LPARAM(lParam), AFX_GET_Y_LPARAM(lParam)), 0))
#define ON_WM_ENTERSIZEMOVE() AFX_MSG_ENTRY(WM_ENTERSIZEMOVE, AFX_THUNK_V(&ThisClass::OnEnterSizeMove, (), (), 0))
#define ON_WM_EXITSIZEMOVE() AFX_MSG_ENTRY(WM_EXITSIZEMOVE, AFX_THUNK_V(&ThisClass::OnExitSizeMove, (), (), 0))
#define ON_WM_PAINT() AFX_MSG_ENTRY(WM_PAINT, AFX_THUNK_V(&ThisClass::OnPaint, (), (), 0))
#define ON_WM_ERASEBKGND() \
    AFX_MSG_ENTRY(WM_ERASEBKGND, AFX_THUNK_R(BOOL, &ThisClass::OnEraseBkgnd, (CDC*), (AFX_TEMP_DC(wParam))))
#define ON_WM_TIMER() AFX_MSG_ENTRY(WM_TIMER, AFX_THUNK_V(&ThisClass::OnTimer, (UINT_PTR), ((UINT_PTR)wParam), 0))
#define ON_WM_KEYDOWN() \
    AFX_MSG_ENTRY(WM_KEYDOWN, AFX_THUNK_V(&ThisClass::OnKeyDown, (UINT, UINT, UINT), \
                                          ((UINT)wParam, LOWORD(lParam), HIWORD(lParam)), 0))
#define ON_WM_KEYUP() \
    AFX_MSG_ENTRY(WM_KEYUP, AFX_THUNK_V(&ThisClass::OnKeyUp, (UINT, UINT, UINT), \
                                        ((UINT)wParam, LOWORD(lParam), HIWORD(lParam)), 0))
#define ON_WM_CHAR() \
    AFX_MSG_ENTRY(WM_CHAR, AFX_THUNK_V(&ThisClass::OnChar, (UINT, UINT, UINT), \
                                       ((UINT)wParam, LOWORD(lParam), HIWORD(lParam)), 0))
#define ON_WM_SYSKEYDOWN() \
    AFX_MSG_ENTRY(WM_SYSKEYDOWN, AFX_THUNK_V(&ThisClass::OnSysKeyDown, (UINT, UINT, UINT), \
                                             ((UINT)wParam, LOWORD(lParam), HIWORD(lParam)), 0))
#define ON_WM_SYSKEYUP() \
    AFX_MSG_ENTRY(WM_SYSKEYUP, AFX_THUNK_V(&ThisClass::OnSysKeyUp, (UINT, UINT, UINT), \
                                           ((UINT)wParam, LOWORD(lParam), HIWORD(lParam)), 0))
#define ON_WM_SYSCHAR() \
    AFX_MSG_ENTRY(WM_SYSCHAR, AFX_THUNK_V(&ThisClass::OnSysChar, (UINT, UINT, UINT), \
                                          ((UINT)wParam, LOWORD(lParam), HIWORD(lParam)), 0))

#define AFX_MOUSE_ENTRY(msg, memberFxn) \
    AFX_MSG_ENTRY(msg, AFX_THUNK_V(&ThisClass::memberFxn, (UINT, CPoint), ((UINT)wParam, AFX_LPARAM_POINT(lParam)), 0))
#define ON_WM_LBUTTONDOWN() AFX_MOUSE_ENTRY(WM_LBUTTONDOWN, OnLButtonDown)
#define ON_WM_LBUTTONUP() AFX_MOUSE_ENTRY(WM_LBUTTONUP, OnLButtonUp)
#define ON_WM_LBUTTONDBLCLK() AFX_MOUSE_ENTRY(WM_LBUTTONDBLCLK, OnLButtonDblClk)
#define ON_WM_RBUTTONDOWN() AFX_MOUSE_ENTRY(WM_RBUTTONDOWN, OnRButtonDown)
#define ON_WM_RBUTTONUP() AFX_MOUSE_ENTRY(WM_RBUTTONUP, OnRButtonUp)
#define ON_WM_RBUTTONDBLCLK() AFX_MOUSE_ENTRY(WM_RBUTTONDBLCLK, OnRButtonDblClk)
#define ON_WM_MBUTTONDOWN() AFX_MOUSE_ENTRY(WM_MBUTTONDOWN, OnMButtonDown)
#define ON_WM_MBUTTONUP() AFX_MOUSE_ENTRY(WM_MBUTTONUP, OnMButtonUp)
#define ON_WM_MOUSEMOVE() AFX_MOUSE_ENTRY(WM_MOUSEMOVE, OnMouseMove)
#define ON_WM_MOUSEHOVER() AFX_MOUSE_ENTRY(WM_MOUSEHOVER, OnMouseHover)
#define ON_WM_MOUSELEAVE() AFX_MSG_ENTRY(WM_MOUSELEAVE, AFX_THUNK_V(&ThisClass::OnMouseLeave, (), (), 0))
#define ON_WM_MOUSEWHEEL() \
    AFX_MSG_ENTRY(WM_MOUSEWHEEL, AFX_THUNK_R(BOOL, &ThisClass::OnMouseWheel, (UINT, short, CPoint), \
                                             ((UINT)LOWORD(wParam), (short)HIWORD(wParam), AFX_LPARAM_POINT(lParam))))
#define ON_WM_MOUSEACTIVATE() \
    AFX_MSG_ENTRY(WM_MOUSEACTIVATE, AFX_THUNK_R(int, &ThisClass::OnMouseActivate, (CWnd*, UINT, UINT), \
                                                (AFX_TEMP_WND(wParam), LOWORD(lParam), HIWORD(lParam))))
#define ON_WM_SETCURSOR() \
    AFX_MSG_ENTRY(WM_SETCURSOR, AFX_THUNK_R(BOOL, &ThisClass::OnSetCursor, (CWnd*, UINT, UINT), \
                                            (AFX_TEMP_WND(wParam), LOWORD(lParam), HIWORD(lParam))))
#define ON_WM_SETFOCUS() \
    AFX_MSG_ENTRY(WM_SETFOCUS, AFX_THUNK_V(&ThisClass::OnSetFocus, (CWnd*), (AFX_TEMP_WND(wParam)), 0))
#define ON_WM_KILLFOCUS() \
    AFX_MSG_ENTRY(WM_KILLFOCUS, AFX_THUNK_V(&ThisClass::OnKillFocus, (CWnd*), (AFX_TEMP_WND(wParam)), 0))
#define ON_WM_ENABLE() AFX_MSG_ENTRY(WM_ENABLE, AFX_THUNK_V(&ThisClass::OnEnable, (BOOL), ((BOOL)wParam), 0))
#define ON_WM_GETDLGCODE() AFX_MSG_ENTRY(WM_GETDLGCODE, AFX_THUNK_R(UINT, &ThisClass::OnGetDlgCode, (), ()))

// WM_CTLCOLORMSGBOX..WM_CTLCOLORSTATIC; nCtlColor is CTLCOLOR_MSGBOX..CTLCOLOR_STATIC.
#define ON_WM_CTLCOLOR() \
    AFX_MSG_ENTRY(WM_CTLCOLOR, AFX_THUNK_R(HBRUSH, &ThisClass::OnCtlColor, (CDC*, CWnd*, UINT), \
                                           (AFX_TEMP_DC(wParam), AFX_TEMP_WND(lParam), message - WM_CTLCOLORMSGBOX)))
#define ON_WM_DRAWITEM() \
    AFX_MSG_ENTRY(WM_DRAWITEM, AFX_THUNK_V(&ThisClass::OnDrawItem, (int, LPDRAWITEMSTRUCT), \
                                           ((int)wParam, reinterpret_cast<LPDRAWITEMSTRUCT>(lParam)), TRUE))
#define ON_WM_MEASUREITEM() \
    AFX_MSG_ENTRY(WM_MEASUREITEM, AFX_THUNK_V(&ThisClass::OnMeasureItem, (int, LPMEASUREITEMSTRUCT), \
                                              ((int)wParam, reinterpret_cast<LPMEASUREITEMSTRUCT>(lParam)), TRUE))
#define ON_WM_COMPAREITEM() \
    AFX_MSG_ENTRY(WM_COMPAREITEM, AFX_THUNK_R(int, &ThisClass::OnCompareItem, (int, LPCOMPAREITEMSTRUCT), \
                                              ((int)wParam, reinterpret_cast<LPCOMPAREITEMSTRUCT>(lParam))))
#define ON_WM_DELETEITEM() \
    AFX_MSG_ENTRY(WM_DELETEITEM, AFX_THUNK_V(&ThisClass::OnDeleteItem, (int, LPDELETEITEMSTRUCT), \
                                             ((int)wParam, reinterpret_cast<LPDELETEITEMSTRUCT>(lParam)), TRUE))

// Need the complete CMenu class.
#define ON_WM_MENUCHAR() \
    AFX_MSG_ENTRY(WM_MENUCHAR, AFX_THUNK_R(LRESULT, &ThisClass::OnMenuChar, (UINT, UINT, CMenu*), \
                                           ((UINT)LOWORD(wParam), (UINT)HIWORD(wParam), \
                                            CMenu::FromHandle(reinterpret_cast<HMENU>(lParam)))))
#define ON_WM_INITMENU() \
    AFX_MSG_ENTRY(WM_INITMENU, AFX_THUNK_V(&ThisClass::OnInitMenu, (CMenu*), \
                                           (CMenu::FromHandle(reinterpret_cast<HMENU>(wParam))), 0))
#define ON_WM_INITMENUPOPUP() \
    AFX_MSG_ENTRY(WM_INITMENUPOPUP, AFX_THUNK_V(&ThisClass::OnInitMenuPopup, (CMenu*, UINT, BOOL), \
                                                (CMenu::FromHandle(reinterpret_cast<HMENU>(wParam)), \
                                                 (UINT)LOWORD(lParam), (BOOL)HIWORD(lParam)), \
                                                0))
#define ON_WM_MENUSELECT() \
    AFX_MSG_ENTRY(WM_MENUSELECT, \
                  AFX_THUNK_V(&ThisClass::OnMenuSelect, (UINT, UINT, HMENU), \
                              ((UINT)LOWORD(wParam), (UINT)HIWORD(wParam), reinterpret_cast<HMENU>(lParam)), 0))
#define ON_WM_ENTERMENULOOP() \
    AFX_MSG_ENTRY(WM_ENTERMENULOOP, AFX_THUNK_V(&ThisClass::OnEnterMenuLoop, (BOOL), ((BOOL)wParam), 0))
#define ON_WM_EXITMENULOOP() \
    AFX_MSG_ENTRY(WM_EXITMENULOOP, AFX_THUNK_V(&ThisClass::OnExitMenuLoop, (BOOL), ((BOOL)wParam), 0))
#define ON_WM_ENTERIDLE() \
    AFX_MSG_ENTRY(WM_ENTERIDLE, \
                  AFX_THUNK_V(&ThisClass::OnEnterIdle, (UINT, CWnd*), ((UINT)wParam, AFX_TEMP_WND(lParam)), 0))

#define ON_WM_GETMINMAXINFO() \
    AFX_MSG_ENTRY(WM_GETMINMAXINFO, \
                  AFX_THUNK_V(&ThisClass::OnGetMinMaxInfo, (MINMAXINFO*), (reinterpret_cast<MINMAXINFO*>(lParam)), 0))
#define ON_WM_HELPINFO() \
    AFX_MSG_ENTRY(WM_HELP, \
                  AFX_THUNK_R(BOOL, &ThisClass::OnHelpInfo, (HELPINFO*), (reinterpret_cast<HELPINFO*>(lParam))))
#define ON_WM_CONTEXTMENU() \
    AFX_MSG_ENTRY(WM_CONTEXTMENU, AFX_THUNK_V(&ThisClass::OnContextMenu, (CWnd*, CPoint), \
                                              (AFX_TEMP_WND(wParam), AFX_LPARAM_POINT(lParam)), 0))
#define ON_WM_SHOWWINDOW() \
    AFX_MSG_ENTRY(WM_SHOWWINDOW, AFX_THUNK_V(&ThisClass::OnShowWindow, (BOOL, UINT), ((BOOL)wParam, (UINT)lParam), 0))
#define ON_WM_ACTIVATE() \
    AFX_MSG_ENTRY(WM_ACTIVATE, AFX_THUNK_V(&ThisClass::OnActivate, (UINT, CWnd*, BOOL), \
                                           ((UINT)LOWORD(wParam), AFX_TEMP_WND(lParam), (BOOL)HIWORD(wParam)), 0))
#define ON_WM_ACTIVATEAPP() \
    AFX_MSG_ENTRY(WM_ACTIVATEAPP, \
                  AFX_THUNK_V(&ThisClass::OnActivateApp, (BOOL, DWORD), ((BOOL)wParam, (DWORD)lParam), 0))
#define ON_WM_NCACTIVATE() \
    AFX_MSG_ENTRY(WM_NCACTIVATE, AFX_THUNK_R(BOOL, &ThisClass::OnNcActivate, (BOOL), ((BOOL)wParam)))
#define ON_WM_NCHITTEST() \
    AFX_MSG_ENTRY(WM_NCHITTEST, AFX_THUNK_R(LRESULT, &ThisClass::OnNcHitTest, (CPoint), (AFX_LPARAM_POINT(lParam))))
#define ON_WM_NCPAINT() AFX_MSG_ENTRY(WM_NCPAINT, AFX_THUNK_V(&ThisClass::OnNcPaint, (), (), 0))
#define ON_WM_NCCALCSIZE() \
    AFX_MSG_ENTRY(WM_NCCALCSIZE, AFX_THUNK_V(&ThisClass::OnNcCalcSize, (BOOL, NCCALCSIZE_PARAMS*), \
                                             ((BOOL)wParam, reinterpret_cast<NCCALCSIZE_PARAMS*>(lParam)), 0))
#define AFX_NCMOUSE_ENTRY(msg, memberFxn) \
    AFX_MSG_ENTRY(msg, AFX_THUNK_V(&ThisClass::memberFxn, (UINT, CPoint), ((UINT)wParam, AFX_LPARAM_POINT(lParam)), 0))
#define ON_WM_NCLBUTTONDOWN() AFX_NCMOUSE_ENTRY(WM_NCLBUTTONDOWN, OnNcLButtonDown)
#define ON_WM_NCLBUTTONUP() AFX_NCMOUSE_ENTRY(WM_NCLBUTTONUP, OnNcLButtonUp)
#define ON_WM_NCLBUTTONDBLCLK() AFX_NCMOUSE_ENTRY(WM_NCLBUTTONDBLCLK, OnNcLButtonDblClk)
#define ON_WM_NCRBUTTONDOWN() AFX_NCMOUSE_ENTRY(WM_NCRBUTTONDOWN, OnNcRButtonDown)
#define ON_WM_NCMOUSEMOVE() AFX_NCMOUSE_ENTRY(WM_NCMOUSEMOVE, OnNcMouseMove)

// Need the complete CScrollBar class; a control's scroll bar comes as NULL.
#define AFX_TEMP_SCROLLBAR(h) \
    ((h) != 0 ? static_cast<CScrollBar*>(CWnd::FromHandle(reinterpret_cast<HWND>(h))) : nullptr)
#define ON_WM_HSCROLL() \
    AFX_MSG_ENTRY(WM_HSCROLL, \
                  AFX_THUNK_V(&ThisClass::OnHScroll, (UINT, UINT, CScrollBar*), \
                              ((UINT)LOWORD(wParam), (UINT)(short)HIWORD(wParam), AFX_TEMP_SCROLLBAR(lParam)), 0))
#define ON_WM_VSCROLL() \
    AFX_MSG_ENTRY(WM_VSCROLL, \
                  AFX_THUNK_V(&ThisClass::OnVScroll, (UINT, UINT, CScrollBar*), \
                              ((UINT)LOWORD(wParam), (UINT)(short)HIWORD(wParam), AFX_TEMP_SCROLLBAR(lParam)), 0))

#define ON_WM_SYSCOMMAND() \
    AFX_MSG_ENTRY(WM_SYSCOMMAND, AFX_THUNK_V(&ThisClass::OnSysCommand, (UINT, LPARAM), ((UINT)wParam, lParam), 0))
#define ON_WM_WINDOWPOSCHANGED() \
    AFX_MSG_ENTRY(WM_WINDOWPOSCHANGED, AFX_THUNK_V(&ThisClass::OnWindowPosChanged, (WINDOWPOS*), \
                                                   (reinterpret_cast<WINDOWPOS*>(lParam)), 0))
#define ON_WM_WINDOWPOSCHANGING() \
    AFX_MSG_ENTRY(WM_WINDOWPOSCHANGING, AFX_THUNK_V(&ThisClass::OnWindowPosChanging, (WINDOWPOS*), \
                                                    (reinterpret_cast<WINDOWPOS*>(lParam)), 0))
#define ON_WM_DROPFILES() \
    AFX_MSG_ENTRY(WM_DROPFILES, AFX_THUNK_V(&ThisClass::OnDropFiles, (HDROP), (reinterpret_cast<HDROP>(wParam)), 0))
#define ON_WM_CANCELMODE() AFX_MSG_ENTRY(WM_CANCELMODE, AFX_THUNK_V(&ThisClass::OnCancelMode, (), (), 0))
#define ON_WM_CAPTURECHANGED() \
    AFX_MSG_ENTRY(WM_CAPTURECHANGED, AFX_THUNK_V(&ThisClass::OnCaptureChanged, (CWnd*), (AFX_TEMP_WND(lParam)), 0))
#define ON_WM_SETTINGCHANGE() \
    AFX_MSG_ENTRY(WM_SETTINGCHANGE, AFX_THUNK_V(&ThisClass::OnSettingChange, (UINT, LPCTSTR), \
                                                ((UINT)wParam, reinterpret_cast<LPCTSTR>(lParam)), 0))
#define ON_WM_WININICHANGE() \
    AFX_MSG_ENTRY(WM_WININICHANGE, \
                  AFX_THUNK_V(&ThisClass::OnWinIniChange, (LPCTSTR), (reinterpret_cast<LPCTSTR>(lParam)), 0))
#define ON_WM_SYSCOLORCHANGE() AFX_MSG_ENTRY(WM_SYSCOLORCHANGE, AFX_THUNK_V(&ThisClass::OnSysColorChange, (), (), 0))
#define ON_WM_PARENTNOTIFY() \
    AFX_MSG_ENTRY(WM_PARENTNOTIFY, AFX_THUNK_V(&ThisClass::OnParentNotify, (UINT, LPARAM), ((UINT)wParam, lParam), 0))
#define ON_WM_QUERYDRAGICON() AFX_MSG_ENTRY(WM_QUERYDRAGICON, AFX_THUNK_R(HCURSOR, &ThisClass::OnQueryDragIcon, (), ()))
// The receiving child is being activated when lParam names it.
#define ON_WM_MDIACTIVATE() \
    AFX_MSG_ENTRY(WM_MDIACTIVATE, AFX_THUNK_V(&ThisClass::OnMDIActivate, (BOOL, CWnd*, CWnd*), \
                                              (reinterpret_cast<HWND>(lParam) == pThis_->m_hWnd, AFX_TEMP_WND(lParam), \
                                               AFX_TEMP_WND(wParam)), \
                                              0))
