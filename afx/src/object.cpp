// CRuntimeClass, the class registry, CObject and CDumpContext.
#include "afxobject.h"
#include "afxexcept.h"
#include "afxfile.h"
#include "afxarchive.h"

#include <atomic>
#include <cassert>
#include <cstdio>
#include <cstring>

namespace {

// The registry is a list threaded through m_pNextClass. A spin lock guards it
// because it must work before and after every static constructor and
// destructor of the process: it needs neither.
constinit CRuntimeClass* g_pFirstClass = nullptr;
constinit std::atomic_flag g_registryLock = ATOMIC_FLAG_INIT;

class RegistryLock
{
public:
    RegistryLock()
    {
        while (g_registryLock.test_and_set(std::memory_order_acquire)) {
        }
    }
    ~RegistryLock() { g_registryLock.clear(std::memory_order_release); }
    RegistryLock(const RegistryLock&) = delete;
    RegistryLock& operator=(const RegistryLock&) = delete;
};

CRuntimeClass* PASCAL NoBaseClass()
{
    return nullptr;
}

// A class name in the persistent object format is at most this long.
constexpr UINT kMaxClassNameLength = 64;

}  // namespace

CObject* CRuntimeClass::CreateObject()
{
    if (m_pfnCreateObject == nullptr)
        return nullptr;
    try {
        return (*m_pfnCreateObject)();
    } catch (CException* e) {
        e->Delete();
        return nullptr;
    }
}

CRuntimeClass* CRuntimeClass::GetBaseClass() const
{
    return m_pfnGetBaseClass != nullptr ? (*m_pfnGetBaseClass)() : nullptr;
}

BOOL CRuntimeClass::IsDerivedFrom(const CRuntimeClass* pBaseClass) const
{
    if (pBaseClass == nullptr)
        return FALSE;
    for (const CRuntimeClass* p = this; p != nullptr; p = p->GetBaseClass()) {
        if (p == pBaseClass)
            return TRUE;
    }
    return FALSE;
}

CRuntimeClass* PASCAL CRuntimeClass::FromName(LPCSTR lpszClassName)
{
    if (lpszClassName == nullptr)
        return nullptr;
    RegistryLock lock;
    for (CRuntimeClass* p = g_pFirstClass; p != nullptr; p = p->m_pNextClass) {
        if (std::strcmp(p->m_lpszClassName, lpszClassName) == 0)
            return p;
    }
    return nullptr;
}

CObject* PASCAL CRuntimeClass::CreateObject(LPCSTR lpszClassName)
{
    CRuntimeClass* pClass = FromName(lpszClassName);
    return pClass != nullptr ? pClass->CreateObject() : nullptr;
}

void CRuntimeClass::Store(CArchive& ar) const
{
    const WORD nLen = static_cast<WORD>(std::strlen(m_lpszClassName));
    ar << static_cast<WORD>(m_wSchema) << nLen;
    ar.Write(m_lpszClassName, nLen);
}

CRuntimeClass* PASCAL CRuntimeClass::Load(CArchive& ar, UINT* pwSchemaNum)
{
    WORD wSchema = 0;
    WORD nLen = 0;
    ar >> wSchema >> nLen;
    if (pwSchemaNum != nullptr)
        *pwSchemaNum = wSchema;
    if (nLen >= kMaxClassNameLength)
        return nullptr;
    char szName[kMaxClassNameLength];
    ar.EnsureRead(szName, nLen);
    szName[nLen] = '\0';
    return FromName(szName);
}

AFX_CLASSINIT::AFX_CLASSINIT(CRuntimeClass* pNewClass) : m_pClass(pNewClass)
{
    RegistryLock lock;
    pNewClass->m_pNextClass = g_pFirstClass;
    g_pFirstClass = pNewClass;
}

AFX_CLASSINIT::~AFX_CLASSINIT()
{
    RegistryLock lock;
    for (CRuntimeClass** pp = &g_pFirstClass; *pp != nullptr; pp = &(*pp)->m_pNextClass) {
        if (*pp == m_pClass) {
            *pp = m_pClass->m_pNextClass;
            m_pClass->m_pNextClass = nullptr;
            break;
        }
    }
}

CRuntimeClass CObject::classCObject = {"CObject", int(sizeof(CObject)), AFX_NO_SCHEMA, nullptr, &NoBaseClass, nullptr};
static const AFX_CLASSINIT _init_CObject(&CObject::classCObject);

CRuntimeClass* PASCAL CObject::GetThisClass()
{
    return &classCObject;
}

CRuntimeClass* CObject::GetRuntimeClass() const
{
    return &classCObject;
}

BOOL CObject::IsKindOf(const CRuntimeClass* pClass) const
{
    return GetRuntimeClass()->IsDerivedFrom(pClass);
}

BOOL CObject::IsSerializable() const
{
    return GetRuntimeClass()->m_wSchema != AFX_NO_SCHEMA;
}

void CObject::Serialize(CArchive&) {}

void CObject::AssertValid() const {}

void CObject::Dump(CDumpContext& dc) const
{
    dc << "a " << GetRuntimeClass()->m_lpszClassName << " at " << static_cast<const void*>(this) << "\n";
}

CObject* AfxDynamicDownCast(CRuntimeClass* pClass, CObject* pObject)
{
    return pObject != nullptr && pObject->IsKindOf(pClass) ? pObject : nullptr;
}

CObject* AfxStaticDownCast(CRuntimeClass* pClass, CObject* pObject)
{
    assert(pObject == nullptr || pObject->IsKindOf(pClass));
    (void)pClass;
    return pObject;
}

CDumpContext afxDump;

CDumpContext::CDumpContext(CFile* pFile) : m_pFile(pFile), m_nDepth(0) {}

int CDumpContext::GetDepth() const
{
    return m_nDepth;
}

void CDumpContext::SetDepth(int nNewDepth)
{
    m_nDepth = nNewDepth;
}

void CDumpContext::Flush()
{
    if (m_pFile != nullptr)
        m_pFile->Flush();
    else
        std::fflush(stderr);
}

void CDumpContext::OutputString(LPCSTR lpsz)
{
    if (lpsz == nullptr)
        lpsz = "(NULL)";
    if (m_pFile != nullptr) {
        m_pFile->Write(lpsz, static_cast<UINT>(std::strlen(lpsz)));
        return;
    }
#ifdef _WIN32
    OutputDebugStringA(lpsz);
#endif
    std::fputs(lpsz, stderr);
}

CDumpContext& CDumpContext::operator<<(LPCSTR lpsz)
{
    OutputString(lpsz);
    return *this;
}

CDumpContext& CDumpContext::operator<<(const void* lp)
{
    char sz[32];
    std::snprintf(sz, sizeof sz, "$%llX", static_cast<unsigned long long>(reinterpret_cast<std::uintptr_t>(lp)));
    OutputString(sz);
    return *this;
}

CDumpContext& CDumpContext::operator<<(const CObject* pOb)
{
    if (pOb == nullptr)
        OutputString("NULL");
    else
        pOb->Dump(*this);
    return *this;
}

CDumpContext& CDumpContext::operator<<(const CObject& ob)
{
    return *this << &ob;
}

CDumpContext& CDumpContext::operator<<(BYTE by)
{
    return *this << static_cast<UINT>(by);
}

CDumpContext& CDumpContext::operator<<(WORD w)
{
    return *this << static_cast<UINT>(w);
}

CDumpContext& CDumpContext::operator<<(int n)
{
    return *this << static_cast<LONGLONG>(n);
}

CDumpContext& CDumpContext::operator<<(UINT u)
{
    return *this << static_cast<ULONGLONG>(u);
}

#ifdef _WIN32
CDumpContext& CDumpContext::operator<<(LONG l)
{
    return *this << static_cast<LONGLONG>(l);
}

CDumpContext& CDumpContext::operator<<(DWORD dw)
{
    return *this << static_cast<ULONGLONG>(dw);
}
#endif

CDumpContext& CDumpContext::operator<<(LONGLONG n)
{
    char sz[32];
    std::snprintf(sz, sizeof sz, "%lld", n);
    OutputString(sz);
    return *this;
}

CDumpContext& CDumpContext::operator<<(ULONGLONG n)
{
    char sz[32];
    std::snprintf(sz, sizeof sz, "%llu", n);
    OutputString(sz);
    return *this;
}

CDumpContext& CDumpContext::operator<<(double d)
{
    char sz[64];
    std::snprintf(sz, sizeof sz, "%g", d);
    OutputString(sz);
    return *this;
}
