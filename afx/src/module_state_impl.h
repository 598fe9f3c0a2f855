// What the module state shares with the other units of afx.dll: the lock of
// the resource chain and the order in which modules are searched.
#pragma once

#include "afxwin.h"

#include <algorithm>
#include <mutex>
#include <vector>

// Guards AFX_MODULE_STATE::m_pFirstDLL and the libraries' m_pNextDLL links.
std::mutex& AfxChainLock();

// The modules searched for a resource, in order and without repeats: the
// current resource handle, the chain's non-system libraries, its system
// libraries, the application's instance.
std::vector<HINSTANCE> AfxResourceSearchOrder();

// Makes pThread the calling thread's CWinThread (NULL removes it).
void AfxSetCurrentThread(CWinThread* pThread);
