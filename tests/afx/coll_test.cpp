#include "afxcoll.h"
#include "afxfile.h"

#include "archive_test_support.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace {

using archive_test::FileBytes;
using archive_test::Load;
using archive_test::Store;
using archive_test::ThrowsInvalidArg;

std::vector<std::string> Texts(const CStringArray& a)
{
    std::vector<std::string> v;
    for (INT_PTR i = 0; i < a.GetSize(); ++i)
        v.push_back(static_cast<LPCTSTR>(a[i]));
    return v;
}

void* Key(INT_PTR i)
{
    return reinterpret_cast<void*>(i);
}

// Every pair of the map as the iteration yields it, failing on a repeat.
std::map<void*, void*> Pairs(const CMapPtrToPtr& m)
{
    std::map<void*, void*> pairs;
    POSITION pos = m.GetStartPosition();
    while (pos != NULL) {
        void* key = NULL;
        void* value = NULL;
        m.GetNextAssoc(pos, key, value);
        EXPECT_TRUE(pairs.emplace(key, value).second) << "visited twice: " << key;
    }
    return pairs;
}

}  // namespace

TEST(CStringArray, TextArgumentsAndStringArgumentsBothWork)
{
    CStringArray a;
    EXPECT_EQ(a.Add("one"), 0);
    EXPECT_EQ(a.Add(CString("two")), 1);
    a.SetAt(0, "uno");
    a.SetAtGrow(3, "four");
    a.InsertAt(1, "x", 2);
    a.InsertAt(0, CString("zero"));
    EXPECT_EQ(Texts(a), (std::vector<std::string>{"zero", "uno", "x", "x", "two", "", "four"}));

    const LPCTSTR own = a[6];
    a.Add(own);
    EXPECT_EQ(a[7], "four") << "a text pointing into the array itself";

    CStringArray b;
    b.Add("b");
    a.InsertAt(1, &b);
    EXPECT_EQ(a[1], "b");
    EXPECT_EQ(a.Append(b), 9);
    b.Copy(a);
    EXPECT_EQ(Texts(b), Texts(a));
    a.RemoveAt(0, a.GetSize());
    EXPECT_TRUE(a.IsEmpty());
    EXPECT_EQ(b.GetSize(), 10);

    EXPECT_TRUE(ThrowsInvalidArg([&] { b.GetAt(10); }));
    EXPECT_TRUE(ThrowsInvalidArg([&] { b.SetAt(-1, "no"); }));
    EXPECT_TRUE(b.IsKindOf(RUNTIME_CLASS(CStringArray)));
    EXPECT_TRUE(b.IsSerializable());
}

TEST(CStringArray, SerializeWritesCountAndEachString)
{
    CStringArray a;
    a.Add("ab");
    a.Add("");
    CMemFile file;
    Store(file, a);
    EXPECT_EQ(FileBytes(file), (std::vector<BYTE>{2, 0, 2, 'a', 'b', 0}));

    a.Add(CString('z', 300));
    a.Add("last");
    CMemFile file2;
    Store(file2, a);
    CStringArray b;
    b.Add("stale");
    Load(file2, b);
    EXPECT_EQ(Texts(b), Texts(a));
}

TEST(CollectionArrays, ValueArraysSerializeAsRawLittleEndianElements)
{
    CByteArray bytes;
    bytes.Add(1);
    bytes.Add(0xFF);
    CWordArray words;
    words.Add(0x1234);
    CDWordArray dwords;
    dwords.Add(0xA1B2C3D4);
    CUIntArray uints;
    uints.Add(7);
    struct
    {
        CObject* array;
        std::vector<BYTE> expected;
    } cases[] = {
        {&bytes, {2, 0, 1, 0xFF}},
        {&words, {1, 0, 0x34, 0x12}},
        {&dwords, {1, 0, 0xD4, 0xC3, 0xB2, 0xA1}},
        {&uints, {1, 0, 7, 0, 0, 0}},
    };
    for (auto& c : cases) {
        CMemFile file;
        Store(file, *c.array);
        EXPECT_EQ(FileBytes(file), c.expected) << c.array->GetRuntimeClass()->m_lpszClassName;
    }

    CMemFile file;
    Store(file, dwords);
    CDWordArray back;
    Load(file, back);
    ASSERT_EQ(back.GetSize(), 1);
    EXPECT_EQ(back[0], 0xA1B2C3D4u);

    EXPECT_TRUE(bytes.IsKindOf(RUNTIME_CLASS(CByteArray)));
    EXPECT_FALSE(bytes.IsKindOf(RUNTIME_CLASS(CWordArray)));
    EXPECT_TRUE(uints.IsKindOf(RUNTIME_CLASS(CUIntArray)));
    EXPECT_FALSE(uints.IsSerializable());
}

TEST(CollectionArrays, PtrArrayStoresNothingAndObArrayStoresObjects)
{
    int x = 0;
    CPtrArray ptrs;
    ptrs.Add(&x);
    CMemFile empty;
    Store(empty, ptrs);
    EXPECT_EQ(empty.GetLength(), 0u);
    EXPECT_EQ(ptrs[0], &x);

    CStringArray inner;
    inner.Add("inside");
    CObArray obs;
    obs.Add(&inner);
    obs.Add(NULL);
    obs.Add(&inner);
    CMemFile file;
    Store(file, obs);

    CObArray back;
    Load(file, back);
    ASSERT_EQ(back.GetSize(), 3);
    EXPECT_TRUE(back[1] == NULL);
    EXPECT_EQ(back[0], back[2]) << "one object written twice loads as one";
    auto* loaded = DYNAMIC_DOWNCAST(CStringArray, back[0]);
    ASSERT_TRUE(loaded != NULL);
    EXPECT_EQ(Texts(*loaded), (std::vector<std::string>{"inside"}));
    delete loaded;
}

TEST(CMapPtrToPtr, ManyKeysInsertLookupRemoveAndIterate)
{
    CMapPtrToPtr m;
    EXPECT_EQ(m.GetHashTableSize(), 17u);
    EXPECT_TRUE(m.GetStartPosition() == NULL);
    void* v = Key(1);
    EXPECT_FALSE(m.Lookup(Key(5), v));
    EXPECT_FALSE(m.RemoveKey(Key(5)));

    const INT_PTR n = 5000;
    for (INT_PTR i = 0; i < n; ++i) {
        if (i % 2 == 0)
            m.SetAt(Key(i * 8), Key(i));
        else
            m[Key(i * 8)] = Key(i);
    }
    EXPECT_EQ(m.GetCount(), n);
    EXPECT_EQ(m.GetSize(), n);
    m.SetAt(Key(0), Key(-1));
    m[Key(8)] = Key(-2);
    EXPECT_EQ(m.GetCount(), n) << "existing keys are overwritten, not added";

    for (INT_PTR i = 0; i < n; i += 3)
        EXPECT_TRUE(m.RemoveKey(Key(i * 8))) << i;
    EXPECT_FALSE(m.RemoveKey(Key(0)));
    const INT_PTR left = n - (n + 2) / 3;
    EXPECT_EQ(m.GetCount(), left);

    for (INT_PTR i = 0; i < n; ++i) {
        void* value = NULL;
        const BOOL found = m.Lookup(Key(i * 8), value);
        EXPECT_EQ(found != FALSE, i % 3 != 0) << i;
        if (found) {
            EXPECT_EQ(value, i == 1 ? Key(-2) : Key(i)) << i;
        }
    }

    const std::map<void*, void*> pairs = Pairs(m);
    EXPECT_EQ(static_cast<INT_PTR>(pairs.size()), left);
    for (auto& [key, value] : pairs)
        EXPECT_NE(reinterpret_cast<INT_PTR>(key) % 24, 0) << key;

    m.RemoveAll();
    EXPECT_TRUE(m.IsEmpty());
    EXPECT_TRUE(m.GetStartPosition() == NULL);
    EXPECT_FALSE(m.Lookup(Key(8), v));
    m[Key(3)] = Key(4);
    EXPECT_EQ(Pairs(m), (std::map<void*, void*>{{Key(3), Key(4)}}));
}

TEST(CMapPtrToPtr, InitHashTableSetsTheBucketCountAndKeepsPairs)
{
    CMapPtrToPtr m;
    m.InitHashTable(101);
    EXPECT_EQ(m.GetHashTableSize(), 101u);
    for (INT_PTR i = 1; i <= 300; ++i)
        m[Key(i)] = Key(i * 2);
    m.InitHashTable(7, FALSE);
    EXPECT_EQ(m.GetHashTableSize(), 7u);
    EXPECT_EQ(m.GetCount(), 300);
    EXPECT_EQ(Pairs(m).size(), 300u);
    void* value = NULL;
    EXPECT_TRUE(m.Lookup(Key(150), value));
    EXPECT_EQ(value, Key(300));

    m.RemoveAll();
    EXPECT_EQ(m.GetHashTableSize(), 7u);
    EXPECT_TRUE(ThrowsInvalidArg([&] { m.InitHashTable(0); }));

    CMapPtrToPtr lazy;
    lazy.InitHashTable(3, FALSE);
    lazy[NULL] = Key(1);
    EXPECT_TRUE(lazy.Lookup(NULL, value));
    EXPECT_EQ(value, Key(1));

    POSITION none = NULL;
    void* k = NULL;
    EXPECT_TRUE(ThrowsInvalidArg([&] { lazy.GetNextAssoc(none, k, value); }));
    EXPECT_EQ(m.HashKey(Key(0x100)), m.HashKey(Key(0x100)));
    EXPECT_TRUE(m.IsKindOf(RUNTIME_CLASS(CMapPtrToPtr)));
}

TEST(CMapStringTo, KeysAreCaseSensitiveTextsAndSerializeRoundTrips)
{
    CMapStringToString m;
    m.SetAt("Key", "upper");
    m["key"] = "lower";
    m.SetAt("Key", "Upper");
    EXPECT_EQ(m.GetCount(), 2);
    CString value;
    EXPECT_TRUE(m.Lookup("Key", value));
    EXPECT_EQ(value, "Upper");
    EXPECT_FALSE(m.Lookup("KEY", value));
    LPCTSTR stored = NULL;
    char probe[] = "key";
    EXPECT_TRUE(m.LookupKey(probe, stored));
    EXPECT_STREQ(stored, "key");
    EXPECT_NE(stored, probe) << "the map's own copy";
    m[""] = "empty key";
    EXPECT_TRUE(m.Lookup("", value));
    EXPECT_EQ(value, "empty key");

    CMemFile file;
    Store(file, m);
    CMapStringToString back;
    Load(file, back);
    EXPECT_EQ(back.GetCount(), 3);
    for (LPCTSTR key : {"Key", "key", ""}) {
        CString a, b;
        EXPECT_TRUE(m.Lookup(key, a));
        EXPECT_TRUE(back.Lookup(key, b)) << key;
        EXPECT_EQ(a, b) << key;
    }

    CMapStringToPtr p;
    int target = 0;
    for (int i = 0; i < 200; ++i)
        p.SetAt(CString('k', i + 1), &target + (i % 2));
    EXPECT_EQ(p.GetCount(), 200);
    void* found = NULL;
    EXPECT_TRUE(p.Lookup(CString('k', 2), found));
    EXPECT_EQ(found, &target + 1);
    EXPECT_TRUE(p.RemoveKey(CString('k', 2)));
    EXPECT_FALSE(p.Lookup(CString('k', 2), found));
    INT_PTR visited = 0;
    for (POSITION pos = p.GetStartPosition(); pos != NULL; ++visited) {
        CString key;
        void* v = NULL;
        p.GetNextAssoc(pos, key, v);
        EXPECT_EQ(v, &target + ((key.GetLength() - 1) % 2)) << key.GetLength();
    }
    EXPECT_EQ(visited, 199);
}
