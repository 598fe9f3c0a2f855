// The process's module state, resource handles and the search along the
// resource chain.
#include "afxwin.h"
#include "module_state_impl.h"

#include <vector>

namespace {

std::mutex g_chainLock;

AFX_MODULE_STATE& TheModuleState()
{
    static AFX_MODULE_STATE state;
    return state;
}

bool HasResource(HINSTANCE module, LPCTSTR lpszName, LPCTSTR lpszType)
{
    return module != nullptr && FindResourceA(module, lpszName, lpszType) != nullptr;
}

}  // namespace

std::mutex& AfxChainLock()
{
    return g_chainLock;
}

AFX_MODULE_STATE::AFX_MODULE_STATE()
    : m_pCurrentWinApp(nullptr), m_hCurrentInstanceHandle(GetModuleHandleA(nullptr)),
      m_hCurrentResourceHandle(m_hCurrentInstanceHandle), m_lpszCurrentAppName(nullptr), m_bDLL(FALSE),
      m_bSystem(FALSE), m_pFirstDLL(nullptr)
{}

AFX_MODULE_STATE* AfxGetModuleState()
{
    return &TheModuleState();
}

AFX_MODULE_STATE* AfxGetAppModuleState()
{
    return &TheModuleState();
}

AFX_MODULE_STATE* AfxGetStaticModuleState()
{
    return &TheModuleState();
}

HINSTANCE AfxGetResourceHandle()
{
    return TheModuleState().m_hCurrentResourceHandle;
}

void AfxSetResourceHandle(HINSTANCE hInstResource)
{
    TheModuleState().m_hCurrentResourceHandle = hInstResource;
}

HINSTANCE AfxGetInstanceHandle()
{
    return TheModuleState().m_hCurrentInstanceHandle;
}

std::vector<HINSTANCE> AfxResourceSearchOrder()
{
    const AFX_MODULE_STATE& state = TheModuleState();
    std::vector<HINSTANCE> order;
    auto add = [&order](HINSTANCE module) {
        if (module != nullptr && std::find(order.begin(), order.end(), module) == order.end())
            order.push_back(module);
    };
    add(state.m_hCurrentResourceHandle);
    {
        const std::lock_guard<std::mutex> lock(g_chainLock);
        for (const CDynLinkLibrary* dll = state.m_pFirstDLL; dll != nullptr; dll = dll->m_pNextDLL) {
            if (!dll->m_bSystem)
                add(dll->m_hResource);
        }
        for (const CDynLinkLibrary* dll = state.m_pFirstDLL; dll != nullptr; dll = dll->m_pNextDLL) {
            if (dll->m_bSystem)
                add(dll->m_hResource);
        }
    }
    add(state.m_hCurrentInstanceHandle);
    return order;
}

HINSTANCE AfxFindResourceHandle(LPCTSTR lpszName, LPCTSTR lpszType)
{
    // The search runs on a copy of the chain, so that no lock is held while
    // the loader looks into a module.
    for (HINSTANCE module : AfxResourceSearchOrder()) {
        if (HasResource(module, lpszName, lpszType))
            return module;
    }
    // Not found: the framework answers the current resource handle, so that
    // the caller's load fails there as it would without a chain.
    return AfxGetResourceHandle();
}
