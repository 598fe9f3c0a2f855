// Per-thread state of the window layer that its units share: handle maps,
// the creation hook, the message being processed and the notification
// lock-out of UpdateData.
#pragma once

#include "afxwin.h"

#include <cstdint>
#include <unordered_map>

class CImageList;
struct _IMAGELIST;

// A pointer as an integer the optimiser cannot assume non-null: the
// framework allows GetSafeHandle and its kin through a NULL object pointer.
inline std::uintptr_t AfxOpaqueAddress(const void* p)
{
    std::uintptr_t value = reinterpret_cast<std::uintptr_t>(p);
    asm("" : "+r"(value));
    return value;
}

// One handle map: permanent objects (owned by the caller) and temporary ones
// (owned by the map).
template <class Handle, class Object>
struct AfxHandleMap
{
    std::unordered_map<Handle, Object*> permanent;
    std::unordered_map<Handle, Object*> temporary;

    Object* LookupPermanent(Handle h) const
    {
        auto it = permanent.find(h);
        return it != permanent.end() ? it->second : nullptr;
    }
    Object* LookupTemporary(Handle h) const
    {
        auto it = temporary.find(h);
        return it != temporary.end() ? it->second : nullptr;
    }
};

struct AfxWndThreadState
{
    AfxHandleMap<HWND, CWnd> windows;
    AfxHandleMap<HDC, CDC> dcs;
    AfxHandleMap<HGDIOBJ, CGdiObject> gdiObjects;
    AfxHandleMap<HMENU, CMenu> menus;
    AfxHandleMap<_IMAGELIST*, CImageList> imageLists;
    int nTempMapLock = 0;

    // Creation hook.
    HHOOK hHookCbt = nullptr;
    int nHookDepth = 0;
    CWnd* pWndInit = nullptr;
    // The class the hooked window must have (a name or an atom); NULL
    // takes the first window that is not one of the system's helpers.
    LPCSTR lpszInitClass = nullptr;

    // The message the thread's window procedure is processing.
    MSG lastSentMsg = {};
    // The window whose control notifications UpdateData holds back.
    HWND hLockoutNotifyWindow = nullptr;
};

// The calling thread's state, made on first use. It lives as long as the
// process: window objects may outlive the thread's other data at exit.
AfxWndThreadState& AfxGetWndThreadState();

// Hands a message to the object of hWnd, the window being pWnd's, through
// its WindowProc; whatever escapes a handler stops here and goes to
// AfxProcessEscapedException.
LRESULT AfxCallWndProc(CWnd* pWnd, HWND hWnd, UINT nMsg, WPARAM wParam, LPARAM lParam);

// Called inside a catch block where the system called into the framework:
// hands the exception in flight to the thread's ProcessWndProcException
// (framework exceptions as they are, std::bad_alloc as a CMemoryException,
// anything else as a CException whose message is what() or "Internal
// application error."), deletes it, and returns the result for pMsg.
// Never throws.
LRESULT AfxProcessEscapedException(const MSG* pMsg) noexcept;

// Hands a message to a child window's object (reflection); FALSE if the
// child has no permanent object or does not take it.
BOOL AfxReflectToChild(HWND hWndChild, UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);

// Whether a message is one of the WM_CTLCOLOR... family.
inline bool AfxIsCtlColorMessage(UINT message)
{
    return message >= WM_CTLCOLORMSGBOX && message <= WM_CTLCOLORSTATIC;
}

// AfxHookWindowCreate for a window that must be of class lpszClass (a name
// or an atom); other windows made meanwhile are left alone.
void AfxHookWindowCreateOfClass(CWnd* pWnd, LPCSTR lpszClass);

// Deletes the calling thread's temporary GDI and device context objects.
void AfxDeleteGdiTempMaps(AfxWndThreadState& state);
// Deletes the calling thread's temporary menu objects.
void AfxDeleteMenuTempMap(AfxWndThreadState& state);
// Deletes the calling thread's temporary image list objects.
void AfxDeleteImageListTempMap(AfxWndThreadState& state);

// The permanent menu object whose own items (not its pop-ups') include
// command nID, or NULL.
CMenu* AfxFindPermanentMenuOfItem(UINT nID);
