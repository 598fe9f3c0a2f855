#include "afxtempl.h"
#include "afxfile.h"

#include "archive_test_support.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

// A colour entry as host DLLs declare it: a CString member, no operator==.
struct CColorLike
{
    CString name;
    COLORREF rgb = 0;
};

namespace {

using archive_test::ArchiveCause;
using archive_test::FileBytes;
using archive_test::Load;
using archive_test::Store;
using archive_test::ThrowsInvalidArg;

// Reads the protected capacity fields.
template <class T, class A = const T&>
class Probe : public CArray<T, A>
{
public:
    INT_PTR Capacity() const { return this->m_nMaxSize; }
    INT_PTR GrowBy() const { return this->m_nGrowBy; }
};

template <class T, class A>
std::vector<T> Contents(const CArray<T, A>& a)
{
    return std::vector<T>(a.GetData(), a.GetData() + a.GetSize());
}

void Fill(CArray<int>& a, std::initializer_list<int> values)
{
    a.RemoveAll();
    for (int v : values)
        a.Add(v);
}

// Long enough to live on the heap, so a dangling reference shows under ASan.
std::string Long(char c)
{
    return std::string(40, c);
}

// Counts live objects and checks that each sits where it was constructed.
struct Tracked
{
    static int live;
    Tracked* self;
    int value;
    Tracked() : self(this), value(0) { ++live; }
    Tracked(const Tracked& o) : self(this), value(o.value) { ++live; }
    Tracked& operator=(const Tracked& o)
    {
        value = o.value;
        return *this;
    }
    ~Tracked()
    {
        EXPECT_EQ(self, this) << "destroyed at a different address";
        --live;
    }
};
int Tracked::live = 0;

// Plain values whose memory image is their whole state.
struct PlainPair
{
    int a;
    short b;
};

// A record that specialises SerializeElements to write its text.
struct Labelled
{
    CString label;
    int n = 0;
};

}  // namespace

template <>
void AFXAPI SerializeElements<Labelled>(CArchive& ar, Labelled* p, INT_PTR n)
{
    for (INT_PTR i = 0; i < n; ++i) {
        if (ar.IsStoring())
            ar << p[i].label << p[i].n;
        else
            ar >> p[i].label >> p[i].n;
    }
}

#ifdef _WIN32
template class __declspec(dllexport) CArray<CColorLike, CColorLike&>;
#else
template class CArray<CColorLike, CColorLike&>;
#endif

TEST(CArray, FirstAllocationTakesTheLargerOfSizeAndGrowBy)
{
    struct
    {
        INT_PTR growBy, size, capacity;
    } cases[] = {
        {-1, 5, 5}, {0, 5, 5}, {10, 3, 10}, {2, 7, 7}, {16, 16, 16}, {100, 0, 0},
    };
    for (auto& c : cases) {
        Probe<int> a;
        a.SetSize(c.size, c.growBy);
        EXPECT_EQ(a.GetSize(), c.size) << c.growBy << "/" << c.size;
        EXPECT_EQ(a.Capacity(), c.capacity) << c.growBy << "/" << c.size;
        EXPECT_EQ(a.GrowBy(), c.growBy < 0 ? 0 : c.growBy);
        EXPECT_EQ(a.GetData() == NULL, c.capacity == 0);
    }
}

TEST(CArray, GrowthStepIsGrowByOrAnEighthOfTheSizeBetween4And1024)
{
    struct
    {
        INT_PTR size, growBy, newSize, capacity;
    } cases[] = {
        {1, 0, 2, 5},              // 1/8 = 0, raised to 4
        {40, 0, 41, 45},           // 5
        {80, 0, 81, 90},           // 10
        {8000, 0, 8001, 9000},     // 1000
        {8199, 0, 8200, 9223},     // 1024 exactly
        {16000, 0, 16001, 17024},  // 2000, lowered to 1024
        {10, 3, 11, 13},
        {10, 1, 11, 11},
        {8, 0, 100, 100},  // a bigger request wins over the step
        {8, 50, 20, 58},
    };
    for (auto& c : cases) {
        Probe<int> a;
        a.SetSize(c.size, 0);
        ASSERT_EQ(a.Capacity(), c.size);
        a.SetSize(c.newSize, c.growBy);
        EXPECT_EQ(a.Capacity(), c.capacity) << c.size << " +" << c.growBy << " -> " << c.newSize;
        EXPECT_EQ(a.GetSize(), c.newSize);
    }

    Probe<int> added;
    for (int i = 0; i < 5; ++i)
        added.Add(i);
    EXPECT_EQ(added.Capacity(), 5) << "Add grows from 1 by 4";
}

TEST(CArray, ShrinkingKeepsTheBufferUntilFreeExtra)
{
    Probe<int> a;
    a.SetSize(100);
    for (int i = 0; i < 100; ++i)
        a[i] = 7;
    a.SetSize(3);
    EXPECT_EQ(a.Capacity(), 100);
    a.SetSize(6);
    EXPECT_EQ(Contents(a), (std::vector<int>{7, 7, 7, 0, 0, 0})) << "regrown slots are zeroed";
    a.FreeExtra();
    EXPECT_EQ(a.Capacity(), 6);
    EXPECT_EQ(Contents(a), (std::vector<int>{7, 7, 7, 0, 0, 0}));
    a.FreeExtra();
    EXPECT_EQ(a.Capacity(), 6);
    a.RemoveAll();
    EXPECT_EQ(a.Capacity(), 0);
    EXPECT_TRUE(a.GetData() == NULL);
    EXPECT_TRUE(a.IsEmpty());
    EXPECT_EQ(a.GetUpperBound(), -1);

    Probe<int> b;
    b.SetSize(0, 8);
    b.Add(1);
    b.RemoveAt(0);
    b.FreeExtra();
    EXPECT_EQ(b.Capacity(), 0) << "FreeExtra of an empty array frees it";
}

TEST(CArray, InsertAndRemoveAtBothEndsAndInTheMiddle)
{
    CArray<int> a, other;
    Fill(a, {1, 2, 3});
    Fill(other, {40, 50});
    struct
    {
        std::function<void()> step;
        std::vector<int> after;
    } steps[] = {
        {[&] { a.InsertAt(0, 9); }, {9, 1, 2, 3}},
        {[&] { a.InsertAt(4, 8); }, {9, 1, 2, 3, 8}},
        {[&] { a.InsertAt(2, 7, 3); }, {9, 1, 7, 7, 7, 2, 3, 8}},
        {[&] { a.InsertAt(10, 5, 2); }, {9, 1, 7, 7, 7, 2, 3, 8, 0, 0, 5, 5}},
        {[&] { a.RemoveAt(0); }, {1, 7, 7, 7, 2, 3, 8, 0, 0, 5, 5}},
        {[&] { a.RemoveAt(9, 2); }, {1, 7, 7, 7, 2, 3, 8, 0, 0}},
        {[&] { a.RemoveAt(1, 3); }, {1, 2, 3, 8, 0, 0}},
        {[&] { a.RemoveAt(6, 0); }, {1, 2, 3, 8, 0, 0}},
        {[&] { a.InsertAt(1, &other); }, {1, 40, 50, 2, 3, 8, 0, 0}},
        {[&] { a.InsertAt(8, &other); }, {1, 40, 50, 2, 3, 8, 0, 0, 40, 50}},
        {[&] { a.InsertAt(12, &other); }, {1, 40, 50, 2, 3, 8, 0, 0, 40, 50, 0, 0, 40, 50}},
        {[&] { a.RemoveAt(0, 14); }, {}},
        {[&] { a.SetAtGrow(2, 6); }, {0, 0, 6}},
        {[&] { a.SetAtGrow(0, 4); }, {4, 0, 6}},
    };
    int n = 0;
    for (auto& s : steps) {
        s.step();
        EXPECT_EQ(Contents(a), s.after) << "step " << n;
        ++n;
    }
    EXPECT_EQ(Contents(other), (std::vector<int>{40, 50}));
}

TEST(CArray, EveryAccessorRejectsBadIndices)
{
    CArray<int> a, other;
    Fill(a, {1, 2, 3});
    Fill(other, {9});
    const CArray<int>& ca = a;
    struct
    {
        const char* what;
        std::function<void()> call;
    } cases[] = {
        {"GetAt(-1)", [&] { a.GetAt(-1); }},
        {"GetAt(size)", [&] { a.GetAt(3); }},
        {"const GetAt(size)", [&] { ca.GetAt(3); }},
        {"SetAt(size)", [&] { a.SetAt(3, 0); }},
        {"SetAt(-1)", [&] { a.SetAt(-1, 0); }},
        {"ElementAt(-1)", [&] { a.ElementAt(-1); }},
        {"const ElementAt(size)", [&] { ca.ElementAt(3); }},
        {"operator[](size)", [&] { a[3]; }},
        {"const operator[](-1)", [&] { ca[-1]; }},
        {"SetAtGrow(-1)", [&] { a.SetAtGrow(-1, 0); }},
        {"InsertAt(-1)", [&] { a.InsertAt(-1, 0); }},
        {"InsertAt count 0", [&] { a.InsertAt(0, 0, 0); }},
        {"InsertAt count -1", [&] { a.InsertAt(1, 0, -1); }},
        {"InsertAt(-1, array)", [&] { a.InsertAt(-1, &other); }},
        {"InsertAt(0, NULL array)", [&] { a.InsertAt(0, static_cast<CArray<int>*>(NULL)); }},
        {"RemoveAt(-1)", [&] { a.RemoveAt(-1); }},
        {"RemoveAt(size)", [&] { a.RemoveAt(3); }},
        {"RemoveAt(1, 3)", [&] { a.RemoveAt(1, 3); }},
        {"RemoveAt(0, -1)", [&] { a.RemoveAt(0, -1); }},
        {"RemoveAt(4, 0)", [&] { a.RemoveAt(4, 0); }},
        {"SetSize(-1)", [&] { a.SetSize(-1); }},
        {"Append(self)", [&] { a.Append(a); }},
    };
    for (auto& c : cases) {
        EXPECT_TRUE(ThrowsInvalidArg(c.call)) << c.what;
        EXPECT_EQ(Contents(a), (std::vector<int>{1, 2, 3})) << c.what << " changed the array";
    }

    EXPECT_FALSE(ThrowsInvalidArg([&] {
        EXPECT_EQ(a.GetAt(0), 1);
        EXPECT_EQ(ca[2], 3);
        a.RemoveAt(3, 0);
    }));
}

TEST(CArray, SizesBeyondTheAddressSpaceThrowMemoryException)
{
    CArray<int> a;
    Fill(a, {1, 2, 3});
    constexpr INT_PTR kHuge = INTPTR_MAX - 1;
    const std::function<void()> calls[] = {
        [&] { a.SetSize(kHuge); },
        [&] { a.SetAtGrow(kHuge, 0); },
        [&] { a.InsertAt(1, 0, kHuge); },
    };
    for (const auto& call : calls) {
        bool memory = false;
        try {
            call();
        } catch (CException* e) {
            memory = e->IsKindOf(RUNTIME_CLASS(CMemoryException)) != FALSE;
            e->Delete();
        }
        EXPECT_TRUE(memory);
        EXPECT_EQ(Contents(a), (std::vector<int>{1, 2, 3}));
    }
}

TEST(CArray, AppendAndCopyIncludingSelf)
{
    CArray<int> a, b;
    Fill(a, {1, 2});
    Fill(b, {3, 4, 5});
    EXPECT_EQ(a.Append(b), 2);
    EXPECT_EQ(Contents(a), (std::vector<int>{1, 2, 3, 4, 5}));
    CArray<int> empty;
    EXPECT_EQ(a.Append(empty), 5);
    EXPECT_EQ(a.GetSize(), 5);

    a.Copy(b);
    EXPECT_EQ(Contents(a), (std::vector<int>{3, 4, 5}));
    a.Copy(a);
    EXPECT_EQ(Contents(a), (std::vector<int>{3, 4, 5}));
    a.Copy(empty);
    EXPECT_TRUE(a.IsEmpty());

    CArray<std::string> s, t;
    s.Add(Long('a'));
    t.Add(Long('b'));
    t.Add(Long('c'));
    s.Append(t);
    t.RemoveAll();
    EXPECT_EQ(Contents(s), (std::vector<std::string>{Long('a'), Long('b'), Long('c')}));
}

TEST(CArray, ArgumentThatIsAnElementOfTheSameArraySurvives)
{
    Probe<std::string> a;
    auto reset = [&] {
        a.RemoveAll();
        a.SetSize(3, 0);
        a[0] = Long('a');
        a[1] = Long('b');
        a[2] = Long('c');
        ASSERT_EQ(a.Capacity(), 3);
    };

    reset();
    a.Add(a[0]);
    EXPECT_EQ(a[3], Long('a')) << "Add with reallocation";

    reset();
    a.SetAtGrow(10, a[1]);
    EXPECT_EQ(a[10], Long('b')) << "SetAtGrow with reallocation";
    a.SetAtGrow(5, a[10]);
    EXPECT_EQ(a[5], Long('b')) << "SetAtGrow in place";

    reset();
    a.InsertAt(0, a[2], 3);
    EXPECT_EQ(Contents(a),
              (std::vector<std::string>{Long('c'), Long('c'), Long('c'), Long('a'), Long('b'), Long('c')}));

    reset();
    a.SetSize(3, 10);
    a.Add(Long('d'));
    ASSERT_GT(a.Capacity(), a.GetSize());
    a.InsertAt(1, a[2]);
    EXPECT_EQ(Contents(a), (std::vector<std::string>{Long('a'), Long('c'), Long('b'), Long('c'), Long('d')}))
        << "InsertAt shifting without reallocation";

    reset();
    a.InsertAt(1, &a);
    EXPECT_EQ(Contents(a), (std::vector<std::string>{Long('a'), Long('a'), Long('b'), Long('c'), Long('b'), Long('c')}))
        << "inserting the array into itself";
}

TEST(CArray, ElementsLiveExactlyWhileInTheArrayAndMoveWithTheBuffer)
{
    Tracked::live = 0;
    {
        CArray<Tracked> a;
        a.SetSize(3);
        EXPECT_EQ(Tracked::live, 3);
        for (int i = 0; i < 3; ++i)
            a[i].value = i + 1;
        Tracked extra;
        extra.value = 99;
        for (int i = 0; i < 50; ++i)
            a.Add(extra);
        EXPECT_EQ(Tracked::live, 54);
        for (INT_PTR i = 0; i < a.GetSize(); ++i)
            EXPECT_EQ(a[i].self, &a[i]) << i;
        EXPECT_EQ(a[2].value, 3);
        EXPECT_EQ(a[52].value, 99);

        a.RemoveAt(1, 10);
        EXPECT_EQ(Tracked::live, 44);
        EXPECT_EQ(a[1].value, 99);
        a.SetSize(5);
        EXPECT_EQ(Tracked::live, 6);
        a.FreeExtra();
        EXPECT_EQ(Tracked::live, 6);
        a.InsertAt(0, extra, 4);
        EXPECT_EQ(Tracked::live, 10);
        a.RemoveAll();
        EXPECT_EQ(Tracked::live, 1);
        a.SetSize(7);
    }
    EXPECT_EQ(Tracked::live, 0) << "the destructor destroys the elements";
}

TEST(CArray, SerializeRoundTripsPlainValues)
{
    CArray<int> a;
    Fill(a, {1, -2, 0x12345678});
    CMemFile file;
    Store(file, a);
    const std::vector<BYTE> expected = {3, 0, 1, 0, 0, 0, 0xFE, 0xFF, 0xFF, 0xFF, 0x78, 0x56, 0x34, 0x12};
    EXPECT_EQ(FileBytes(file), expected);

    CArray<int> b;
    Fill(b, {9, 9, 9, 9, 9, 9});
    Load(file, b);
    EXPECT_EQ(Contents(b), Contents(a));

    CArray<PlainPair> p, q;
    p.Add(PlainPair{7, -3});
    p.Add(PlainPair{-1, 300});
    CMemFile pfile;
    Store(pfile, p);
    Load(pfile, q);
    ASSERT_EQ(q.GetSize(), 2);
    EXPECT_EQ(q[1].a, -1);
    EXPECT_EQ(q[1].b, 300);

    CArray<int> none, loaded;
    Fill(loaded, {1});
    CMemFile efile;
    Store(efile, none);
    EXPECT_EQ(FileBytes(efile), (std::vector<BYTE>{0, 0}));
    Load(efile, loaded);
    EXPECT_TRUE(loaded.IsEmpty());
}

TEST(CArray, SerializeCountUsesTheLongFormFrom0xFFFF)
{
    struct
    {
        INT_PTR count;
        std::vector<BYTE> head;
    } cases[] = {
        {0xFFFE, {0xFE, 0xFF}},
        {0xFFFF, {0xFF, 0xFF, 0xFF, 0xFF, 0x00, 0x00}},
        {0x10000, {0xFF, 0xFF, 0x00, 0x00, 0x01, 0x00}},
    };
    for (auto& c : cases) {
        CArray<BYTE, BYTE> a;
        a.SetSize(c.count);
        a[c.count - 1] = 0xAB;
        CMemFile file;
        Store(file, a);
        const std::vector<BYTE> bytes = FileBytes(file);
        ASSERT_EQ(bytes.size(), c.head.size() + static_cast<size_t>(c.count)) << c.count;
        EXPECT_EQ(std::vector<BYTE>(bytes.begin(), bytes.begin() + c.head.size()), c.head);
        EXPECT_EQ(bytes.back(), 0xAB);

        CArray<BYTE, BYTE> b;
        Load(file, b);
        EXPECT_EQ(b.GetSize(), c.count);
        EXPECT_EQ(b[c.count - 1], 0xAB);
    }
}

TEST(CArray, ShortReadThrowsEndOfFile)
{
    CMemFile file;
    {
        CArchive ar(&file, CArchive::store);
        ar.WriteCount(10);
        ar << 1 << 2 << 3;
    }
    file.SeekToBegin();
    CArray<int> a;
    EXPECT_EQ(ArchiveCause([&] {
                  CArchive ar(&file, CArchive::load);
                  a.Serialize(ar);
              }),
              CArchiveException::endOfFile);

    file.SeekToBegin();
    CArray<CColorLike, CColorLike&> colours;
    EXPECT_EQ(ArchiveCause([&] {
                  CArchive ar(&file, CArchive::load);
                  colours.Serialize(ar);
              }),
              CArchiveException::endOfFile)
        << "also for elements that are read and discarded";
}

TEST(CArray, NonTriviallyCopyableElementsLoadDefaultConstructed)
{
    CArray<CColorLike, CColorLike&> a;
    CColorLike red;
    red.name = "red";
    red.rgb = RGB(255, 0, 0);
    a.Add(red);
    a.Add(red);
    CMemFile file;
    {
        CArchive ar(&file, CArchive::store);
        a.Serialize(ar);
        ar << 4711;
    }
    EXPECT_EQ(file.GetLength(), 2 + 2 * sizeof(CColorLike) + 4);
    file.SeekToBegin();

    CArray<CColorLike, CColorLike&> b;
    CColorLike stale;
    stale.name = "stale";
    stale.rgb = 5;
    b.Add(stale);
    int after = 0;
    {
        CArchive ar(&file, CArchive::load);
        b.Serialize(ar);
        ar >> after;
    }
    ASSERT_EQ(b.GetSize(), 2);
    for (INT_PTR i = 0; i < 2; ++i) {
        EXPECT_TRUE(b[i].name.IsEmpty()) << i;
        EXPECT_EQ(b[i].rgb, 0u) << i;
    }
    EXPECT_EQ(after, 4711) << "the element bytes were consumed";
    b[0].name = "still a working string";
    EXPECT_EQ(b[0].name, "still a working string");
}

TEST(CArray, SpecialisedSerializeElementsRoundTripsText)
{
    CArray<Labelled> a, b;
    Labelled one;
    one.label = "first";
    one.n = 1;
    a.Add(one);
    one.label = "second";
    one.n = 2;
    a.Add(one);
    CMemFile file;
    Store(file, a);
    EXPECT_EQ(file.GetLength(), 2u + (1 + 5 + 4) + (1 + 6 + 4));
    Load(file, b);
    ASSERT_EQ(b.GetSize(), 2);
    EXPECT_EQ(b[0].label, "first");
    EXPECT_EQ(b[1].label, "second");
    EXPECT_EQ(b[1].n, 2);
}

TEST(CArray, ExplicitInstantiationWithNonConstReferenceArguments)
{
    CArray<CColorLike, CColorLike&> a;
    CColorLike c;
    c.name = "teal";
    c.rgb = RGB(0, 128, 128);
    EXPECT_EQ(a.Add(c), 0);
    a.SetAtGrow(3, c);
    a.InsertAt(1, a[0], 2);
    EXPECT_EQ(a.GetSize(), 6);
    EXPECT_EQ(a[2].name, "teal");
    EXPECT_TRUE(a[4].name.IsEmpty());
    EXPECT_EQ(a[5].rgb, RGB(0, 128, 128));
}
