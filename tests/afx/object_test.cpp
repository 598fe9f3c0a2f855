// Run-time classes: kind checks, down casts, dynamic creation, the class
// registry and dumps.
#include "afx.h"

#include <gtest/gtest.h>

#include <string>

namespace {

class CShape : public CObject
{
    DECLARE_DYNAMIC(CShape)
};

class CCircle : public CShape
{
    DECLARE_DYNCREATE(CCircle)

public:
    int m_nRadius = 7;
};

class CSquare : public CShape
{
    DECLARE_SERIAL(CSquare)
};

class CUnrelated : public CObject
{
    DECLARE_DYNAMIC(CUnrelated)
};

class CFailingToCreate : public CObject
{
    DECLARE_DYNCREATE(CFailingToCreate)

public:
    CFailingToCreate() { AfxThrowUserException(); }
};

IMPLEMENT_DYNAMIC(CShape, CObject)
IMPLEMENT_DYNCREATE(CCircle, CShape)
IMPLEMENT_SERIAL(CSquare, CShape, 2)
IMPLEMENT_DYNAMIC(CUnrelated, CObject)
IMPLEMENT_DYNCREATE(CFailingToCreate, CObject)

std::string ContentOf(CMemFile& file)
{
    std::string text(static_cast<std::size_t>(file.GetLength()), '\0');
    file.SeekToBegin();
    file.Read(text.data(), static_cast<UINT>(text.size()));
    return text;
}

}  // namespace

TEST(RuntimeClass, IsKindOfFollowsTheBaseChain)
{
    CCircle circle;
    CSquare square;
    CUnrelated unrelated;
    struct
    {
        const CObject* object;
        CRuntimeClass* cls;
        bool kind;
        const char* what;
    } cases[] = {
        {&circle, RUNTIME_CLASS(CCircle), true, "circle is circle"},
        {&circle, RUNTIME_CLASS(CShape), true, "circle is shape"},
        {&circle, RUNTIME_CLASS(CObject), true, "circle is object"},
        {&circle, RUNTIME_CLASS(CSquare), false, "circle is no square"},
        {&circle, RUNTIME_CLASS(CUnrelated), false, "circle is not unrelated"},
        {&square, RUNTIME_CLASS(CShape), true, "square is shape"},
        {&square, RUNTIME_CLASS(CCircle), false, "square is no circle"},
        {&unrelated, RUNTIME_CLASS(CShape), false, "unrelated is no shape"},
        {&unrelated, RUNTIME_CLASS(CObject), true, "unrelated is object"},
        {&circle, nullptr, false, "nothing is of no class"},
    };
    for (auto& c : cases)
        EXPECT_EQ(c.object->IsKindOf(c.cls) != FALSE, c.kind) << c.what;

    EXPECT_EQ(RUNTIME_CLASS(CObject)->GetBaseClass(), nullptr);
    // Only IMPLEMENT_SERIAL gives a class a schema.
    EXPECT_FALSE(circle.IsSerializable());
    EXPECT_TRUE(square.IsSerializable());
}

TEST(RuntimeClass, DynamicDowncastGivesNullForUnrelatedClasses)
{
    CCircle circle;
    CUnrelated unrelated;
    CObject* pCircle = &circle;
    CObject* pUnrelated = &unrelated;
    CObject* pNull = nullptr;

    EXPECT_EQ(DYNAMIC_DOWNCAST(CCircle, pCircle), &circle);
    EXPECT_EQ(DYNAMIC_DOWNCAST(CShape, pCircle), static_cast<CShape*>(&circle));
    EXPECT_EQ(DYNAMIC_DOWNCAST(CSquare, pCircle), nullptr);
    EXPECT_EQ(DYNAMIC_DOWNCAST(CShape, pUnrelated), nullptr);
    EXPECT_EQ(DYNAMIC_DOWNCAST(CShape, pNull), nullptr);
}

TEST(RuntimeClass, CreateObjectOnlyForCreatableClasses)
{
    CObject* pCircle = RUNTIME_CLASS(CCircle)->CreateObject();
    ASSERT_NE(pCircle, nullptr);
    EXPECT_EQ(pCircle->GetRuntimeClass(), RUNTIME_CLASS(CCircle));
    EXPECT_EQ(static_cast<CCircle*>(pCircle)->m_nRadius, 7);
    delete pCircle;

    CObject* pSquare = RUNTIME_CLASS(CSquare)->CreateObject();
    EXPECT_NE(pSquare, nullptr) << "serial classes are creatable";
    delete pSquare;

    EXPECT_EQ(RUNTIME_CLASS(CShape)->CreateObject(), nullptr);
    EXPECT_EQ(RUNTIME_CLASS(CObject)->CreateObject(), nullptr);
    // The constructor's exception is deleted and reported as no object.
    EXPECT_EQ(RUNTIME_CLASS(CFailingToCreate)->CreateObject(), nullptr);
}

TEST(RuntimeClass, FromNameFindsRegisteredClasses)
{
    struct
    {
        const char* name;
        CRuntimeClass* expected;
    } cases[] = {
        {"CCircle", RUNTIME_CLASS(CCircle)},
        {"CShape", RUNTIME_CLASS(CShape)},
        {"CSquare", RUNTIME_CLASS(CSquare)},
        {"CObject", RUNTIME_CLASS(CObject)},
        {"CFileException", RUNTIME_CLASS(CFileException)},
        {"CMemFile", RUNTIME_CLASS(CMemFile)},
        {"ccircle", nullptr},
        {"CCircle ", nullptr},
        {"", nullptr},
        {"NoSuchClass", nullptr},
    };
    for (auto& c : cases)
        EXPECT_EQ(CRuntimeClass::FromName(c.name), c.expected) << c.name;
    EXPECT_EQ(CRuntimeClass::FromName(nullptr), nullptr);

    CObject* pByName = CRuntimeClass::CreateObject("CCircle");
    ASSERT_NE(pByName, nullptr);
    EXPECT_TRUE(pByName->IsKindOf(RUNTIME_CLASS(CCircle)));
    delete pByName;
    EXPECT_EQ(CRuntimeClass::CreateObject("CShape"), nullptr);
    EXPECT_EQ(CRuntimeClass::CreateObject("NoSuchClass"), nullptr);
}

TEST(RuntimeClass, RegistrarTakesTheClassOutWhenItsModuleGoes)
{
    CRuntimeClass record = {"CTransient", 0, AFX_NO_SCHEMA, nullptr, nullptr, nullptr};
    {
        AFX_CLASSINIT registrar(&record);
        EXPECT_EQ(CRuntimeClass::FromName("CTransient"), &record);
        EXPECT_EQ(CRuntimeClass::FromName("CCircle"), RUNTIME_CLASS(CCircle));
    }
    EXPECT_EQ(CRuntimeClass::FromName("CTransient"), nullptr);
    EXPECT_EQ(CRuntimeClass::FromName("CCircle"), RUNTIME_CLASS(CCircle));
}

TEST(DumpContext, WritesTextNumbersAndObjectDumps)
{
    CMemFile file;
    CDumpContext dc(&file);
    CCircle circle;
    dc << "n=" << 42 << " m=" << -7 << " u=" << 3000000000u << " big=" << -5000000000LL << " w=" << WORD(65535)
       << " d=" << 0.5 << "\n";
    dc << &circle;
    const CObject* pNull = nullptr;
    dc << pNull;

    const std::string text = ContentOf(file);
    const std::string firstLine = "n=42 m=-7 u=3000000000 big=-5000000000 w=65535 d=0.5\n";
    ASSERT_EQ(text.substr(0, firstLine.size()), firstLine);
    const std::string dump = text.substr(firstLine.size());
    EXPECT_EQ(dump.rfind("a CCircle at $", 0), 0u) << dump;
    EXPECT_EQ(dump.substr(dump.size() - 5), "\nNULL") << dump;
}
