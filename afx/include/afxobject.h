// Run-time class information, dynamic creation and the root class CObject.
//
// Each class record (CRuntimeClass) reaches its base class through a function
// pointer, never through the base record's address, so that a record is a
// constant initialiser even when the base lives in another DLL: no data is
// imported at load time. IMPLEMENT_DYNAMIC, IMPLEMENT_DYNCREATE and
// IMPLEMENT_SERIAL also place a static registrar beside the record, which
// enters the class in the process-wide list that CRuntimeClass::FromName
// searches and takes it out again when its module unloads.
#pragma once

#include "afxplatform.h"

class CObject;
class CArchive;
class CDumpContext;
class CFile;

// Schema number of a class that cannot be serialized.
#define AFX_NO_SCHEMA 0xFFFF
// Flag in a serializable class's schema: objects of older schemas load too.
#define VERSIONABLE_SCHEMA (0x80000000)

// The run-time description of one CObject-derived class.
struct AFX_API CRuntimeClass
{
    LPCSTR m_lpszClassName;
    int m_nObjectSize;
    UINT m_wSchema;
    CObject*(PASCAL* m_pfnCreateObject)();
    CRuntimeClass*(PASCAL* m_pfnGetBaseClass)();
    CRuntimeClass* m_pNextClass;

    // A new object of this class, or NULL if the class is not dynamically
    // creatable or its construction failed.
    CObject* CreateObject();
    // Whether this class is pBaseClass or derives from it.
    BOOL IsDerivedFrom(const CRuntimeClass* pBaseClass) const;
    // The base class record, or NULL for CObject.
    CRuntimeClass* GetBaseClass() const;

    // The registered class of this name (case-sensitive), or NULL.
    static CRuntimeClass* PASCAL FromName(LPCSTR lpszClassName);
    // A new object of the registered class of this name, or NULL.
    static CObject* PASCAL CreateObject(LPCSTR lpszClassName);

    // Writes the class reference of the persistent object format: schema
    // WORD, name length WORD, name bytes.
    void Store(CArchive& ar) const;
    // Reads a class reference; NULL if no class of that name is registered.
    static CRuntimeClass* PASCAL Load(CArchive& ar, UINT* pwSchemaNum);
};

// Static registrar that IMPLEMENT_* places beside a class record.
struct AFX_API AFX_CLASSINIT
{
    explicit AFX_CLASSINIT(CRuntimeClass* pNewClass);
    ~AFX_CLASSINIT();
    AFX_CLASSINIT(const AFX_CLASSINIT&) = delete;
    AFX_CLASSINIT& operator=(const AFX_CLASSINIT&) = delete;

private:
    CRuntimeClass* m_pClass;
};

// The root of the framework's class hierarchy: run-time type checks,
// serialization and diagnostic dumps.
class AFX_API CObject
{
public:
    static CRuntimeClass classCObject;
    static CRuntimeClass* PASCAL GetThisClass();
    virtual CRuntimeClass* GetRuntimeClass() const;

    virtual ~CObject() = default;

    // Whether this object's class is pClass or derives from it.
    BOOL IsKindOf(const CRuntimeClass* pClass) const;
    // Whether the class was declared with DECLARE_SERIAL.
    BOOL IsSerializable() const;

    // Reads or writes the object's data; CObject has none.
    virtual void Serialize(CArchive& ar);
    // Checks the object's invariants; CObject has none.
    virtual void AssertValid() const;
    // Writes "a <class name> at $<address>" and a line end.
    virtual void Dump(CDumpContext& dc) const;

protected:
    CObject() = default;

private:
    CObject(const CObject&) = delete;
    CObject& operator=(const CObject&) = delete;
};

// pObject as an object of pClass, or NULL if it is NULL or of another class.
AFX_API CObject* AfxDynamicDownCast(CRuntimeClass* pClass, CObject* pObject);
// pObject unchanged; in debug builds, a wrong class aborts.
AFX_API CObject* AfxStaticDownCast(CRuntimeClass* pClass, CObject* pObject);

// Reads an object of class pClassRef (or derived) from a loading archive.
AFX_API CObject* AfxReadObject(CArchive& ar, const CRuntimeClass* pClassRef);

#define RUNTIME_CLASS(class_name) (class_name::GetThisClass())

#define DYNAMIC_DOWNCAST(class_name, object) \
    (static_cast<class_name*>(AfxDynamicDownCast(RUNTIME_CLASS(class_name), (object))))
#define STATIC_DOWNCAST(class_name, object) \
    (static_cast<class_name*>(AfxStaticDownCast(RUNTIME_CLASS(class_name), (object))))

#define DECLARE_DYNAMIC(class_name) \
protected: \
    static CRuntimeClass* PASCAL _GetBaseClass(); \
\
public: \
    static CRuntimeClass class##class_name; \
    static CRuntimeClass* PASCAL GetThisClass(); \
    CRuntimeClass* GetRuntimeClass() const override;

#define DECLARE_DYNCREATE(class_name) \
    DECLARE_DYNAMIC(class_name) \
    static CObject* PASCAL CreateObject();

#define DECLARE_SERIAL(class_name) \
    DECLARE_DYNCREATE(class_name) \
    friend CArchive& operator>>(CArchive& ar, class_name*& pOb) \
    { \
        pOb = static_cast<class_name*>(AfxReadObject(ar, RUNTIME_CLASS(class_name))); \
        return ar; \
    }

#define _AFX_IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, wSchema, pfnNew) \
    CRuntimeClass* PASCAL class_name::_GetBaseClass() \
    { \
        return RUNTIME_CLASS(base_class_name); \
    } \
    CRuntimeClass class_name::class##class_name = {#class_name, int(sizeof(class class_name)), UINT(wSchema), \
                                                   pfnNew,      &class_name::_GetBaseClass,    nullptr}; \
    CRuntimeClass* PASCAL class_name::GetThisClass() \
    { \
        return &class_name::class##class_name; \
    } \
    CRuntimeClass* class_name::GetRuntimeClass() const \
    { \
        return &class_name::class##class_name; \
    } \
    static const AFX_CLASSINIT _init_##class_name(&class_name::class##class_name);

#define IMPLEMENT_DYNAMIC(class_name, base_class_name) \
    _AFX_IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, 0xFFFF, nullptr)

#define IMPLEMENT_DYNCREATE(class_name, base_class_name) \
    CObject* PASCAL class_name::CreateObject() \
    { \
        return new class_name; \
    } \
    _AFX_IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, 0xFFFF, &class_name::CreateObject)

#define IMPLEMENT_SERIAL(class_name, base_class_name, wSchema) \
    CObject* PASCAL class_name::CreateObject() \
    { \
        return new class_name; \
    } \
    _AFX_IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, wSchema, &class_name::CreateObject)

// Diagnostic text output: to a file if one is given, else to stderr (and to
// the debugger in the Windows build).
class AFX_API CDumpContext
{
public:
    explicit CDumpContext(CFile* pFile = NULL);
    CDumpContext(const CDumpContext&) = delete;
    CDumpContext& operator=(const CDumpContext&) = delete;

    // Depth > 0 asks Dump functions to dump contained objects too.
    int GetDepth() const;
    void SetDepth(int nNewDepth);
    void Flush();

    CDumpContext& operator<<(LPCSTR lpsz);
    CDumpContext& operator<<(const void* lp);
    CDumpContext& operator<<(const CObject* pOb);
    CDumpContext& operator<<(const CObject& ob);
    CDumpContext& operator<<(BYTE by);
    CDumpContext& operator<<(WORD w);
    CDumpContext& operator<<(int n);
    CDumpContext& operator<<(UINT u);
#ifdef _WIN32
    CDumpContext& operator<<(LONG l);
    CDumpContext& operator<<(DWORD dw);
#endif
    CDumpContext& operator<<(LONGLONG n);
    CDumpContext& operator<<(ULONGLONG n);
    CDumpContext& operator<<(double d);

private:
    void OutputString(LPCSTR lpsz);

    CFile* m_pFile;
    int m_nDepth;
};

// The process's diagnostic output.
extern AFX_API CDumpContext afxDump;
