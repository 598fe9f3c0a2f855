// Extension DLLs: their records and their links in the resource chain.
#include "afxwin.h"
#include "module_state_impl.h"

#include <vector>

IMPLEMENT_DYNAMIC(CDynLinkLibrary, CCmdTarget)

BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE hModule)
{
    if (state.bInitialized)
        return TRUE;
    state.hModule = hModule;
    state.hResource = hModule;
    state.pFirstSharedClass = nullptr;
    state.pFirstSharedFactory = nullptr;
    state.bInitialized = TRUE;
    return TRUE;
}

void AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL bAll)
{
    if (!state.bInitialized)
        return;
    std::vector<CDynLinkLibrary*> doomed;
    {
        const std::lock_guard<std::mutex> lock(AfxChainLock());
        for (CDynLinkLibrary* dll = AfxGetModuleState()->m_pFirstDLL; dll != nullptr; dll = dll->m_pNextDLL) {
            if (bAll || dll->m_hModule == state.hModule)
                doomed.push_back(dll);
        }
    }
    // Each destructor unlinks its library.
    for (CDynLinkLibrary* dll : doomed)
        delete dll;
}

CDynLinkLibrary::CDynLinkLibrary(AFX_EXTENSION_MODULE& state, BOOL bSystem)
    : m_hModule(state.hModule), m_hResource(state.hResource), m_bSystem(bSystem), m_pNextDLL(nullptr)
{
    Link();
}

CDynLinkLibrary::CDynLinkLibrary(HINSTANCE hModule, HINSTANCE hResource)
    : m_hModule(hModule), m_hResource(hResource), m_bSystem(FALSE), m_pNextDLL(nullptr)
{
    Link();
}

CDynLinkLibrary::~CDynLinkLibrary()
{
    const std::lock_guard<std::mutex> lock(AfxChainLock());
    for (CDynLinkLibrary** link = &AfxGetModuleState()->m_pFirstDLL; *link != nullptr; link = &(*link)->m_pNextDLL) {
        if (*link == this) {
            *link = m_pNextDLL;
            break;
        }
    }
    m_pNextDLL = nullptr;
}

void CDynLinkLibrary::Link()
{
    const std::lock_guard<std::mutex> lock(AfxChainLock());
    AFX_MODULE_STATE* state = AfxGetModuleState();
    m_pNextDLL = state->m_pFirstDLL;
    state->m_pFirstDLL = this;
}
