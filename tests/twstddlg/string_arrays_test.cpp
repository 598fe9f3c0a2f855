#include "values/string_arrays.h"

#include "afxfile.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <vector>

namespace {

std::vector<std::string> Contents(const CStringArray& a)
{
    std::vector<std::string> v;
    for (INT_PTR i = 0; i < a.GetSize(); ++i)
        v.emplace_back(a[i].GetString());
    return v;
}

const char* Shown(const char* text)
{
    return text != nullptr ? text : "(null)";
}

}  // namespace

TEST(StringArrayFamily, ClassTreeAndRunTimeClassesAreTheFrameworkBases)
{
    static_assert(std::is_base_of_v<CStringArray, CSortedStringArray>);
    static_assert(std::is_base_of_v<CStringArray, CUniqueStringArray>);
    static_assert(std::is_base_of_v<CStringArray, CUniqueSortedStringArray>);
    static_assert(!std::is_base_of_v<CSortedStringArray, CUniqueSortedStringArray>);
    static_assert(!std::is_base_of_v<CUniqueStringArray, CUniqueSortedStringArray>);
    static_assert(std::is_base_of_v<CArray<_STRING_CHECK, _STRING_CHECK&>, CUniqueStringArrayCheck>);
    static_assert(std::is_base_of_v<CArray<_BILD_IDENT, _BILD_IDENT&>, CUniqueStringArrayPicture>);
    static_assert(std::has_virtual_destructor_v<CUniqueStringArrayCheck>);

    CUniqueStringArray unique;
    CUniqueSortedStringArray uniqueSorted;
    EXPECT_EQ(unique.GetRuntimeClass(), RUNTIME_CLASS(CStringArray));
    EXPECT_EQ(uniqueSorted.GetRuntimeClass(), RUNTIME_CLASS(CStringArray));
    CUniqueStringArrayCheck checks;
    CUniqueStringArrayPicture pictures;
    EXPECT_TRUE(unique.IsEmpty() && uniqueSorted.IsEmpty() && checks.IsEmpty() && pictures.IsEmpty());
}

TEST(CUniqueStringArray, AddRefusesATextThatIsThereIgnoringCase)
{
    struct
    {
        const char* text;
        INT_PTR index;
    } steps[] = {
        {"Apfel", 0},  {"Birne", 1},   {"APFEL", -1},  {"apfel", -1}, {"Äpfel", 2}, {"ÄPFEL", -1},
        {"Straße", 3}, {"STRASSE", 4}, {"STRAßE", -1}, {"Apfel ", 5}, {"", 6},      {nullptr, -1},
    };
    CUniqueStringArray a;
    for (const auto& s : steps)
        EXPECT_EQ(a.Add(s.text), s.index) << Shown(s.text);
    EXPECT_EQ(Contents(a), (std::vector<std::string>{"Apfel", "Birne", "Äpfel", "Straße", "STRASSE", "Apfel ", ""}));
    const CString text("BIRNE");
    EXPECT_EQ(a.Add(text), -1) << "a CString argument goes through the check too";
}

TEST(CUniqueStringArray, FindComparesWholeTextsIgnoringCase)
{
    CUniqueStringArray a;
    EXPECT_EQ(a.Find("x"), -1);
    a.Add("Kategorie");
    a.Add("Größe");
    struct
    {
        const char* text;
        INT_PTR index;
    } cases[] = {
        {"kategorie", 0}, {"KATEGORIE", 0},   {"GRÖßE", 1}, {"größe", 1},
        {"Kategori", -1}, {"Kategorie ", -1}, {"", -1},     {nullptr, -1},
    };
    for (const auto& c : cases)
        EXPECT_EQ(a.Find(c.text), c.index) << Shown(c.text);
}

TEST(CUniqueSortedStringArray, AddSortedKeepsOrderAndRefusesTextsThatAreThere)
{
    struct
    {
        const char* text;
        INT_PTR index;
    } steps[] = {
        {"mitte", 0},  {"zeile", 1}, {"anfang", 0}, {"MITTE", -1},  {"nase", 2},
        {"Zeile", -1}, {"aal", 0},   {"zz", 5},     {"Anfang", -1},
    };
    CUniqueSortedStringArray a;
    for (const auto& s : steps)
        EXPECT_EQ(a.AddSorted(s.text), s.index) << s.text;
    EXPECT_EQ(Contents(a), (std::vector<std::string>{"aal", "anfang", "mitte", "nase", "zeile", "zz"}));
    EXPECT_EQ(a.Find("NASE"), 3);
    EXPECT_EQ(a.Find("nas"), -1);
}

TEST(CUniqueSortedStringArray, AddIsAddSorted)
{
    CUniqueSortedStringArray a;
    EXPECT_EQ(a.Add("m"), 0);
    EXPECT_EQ(a.Add("b"), 0);
    EXPECT_EQ(a.Add("x"), 2);
    EXPECT_EQ(a.Add("B"), -1);
    EXPECT_EQ(a.AddSorted("c"), 1);
    EXPECT_EQ(Contents(a), (std::vector<std::string>{"b", "c", "m", "x"}));
}

TEST(CUniqueStringArrayCheck, AddRefusesATextThatIsThereWhateverItsCheckState)
{
    CUniqueStringArrayCheck a;
    EXPECT_EQ(a.Add("Eins", 1), 0);
    EXPECT_EQ(a.Add("EINS", 0), -1);
    EXPECT_EQ(a.Add(_STRING_CHECK{CString("eins"), 1}), -1);
    EXPECT_EQ(a.Add("Zwei"), 1);
    EXPECT_EQ(a.Add(_STRING_CHECK{CString("Drei"), -5}), 2);
    ASSERT_EQ(a.GetSize(), 3);
    struct
    {
        const char* text;
        int check;
    } expected[] = {{"Eins", 1}, {"Zwei", 0}, {"Drei", -5}};
    for (INT_PTR i = 0; i < 3; ++i) {
        EXPECT_STREQ(a[i].text.GetString(), expected[i].text);
        EXPECT_EQ(a[i].check, expected[i].check);
    }
    EXPECT_EQ(a.Find("drei"), 2);
    EXPECT_EQ(a.Find("Vier"), -1);
}

TEST(CUniqueStringArrayPicture, IdentitiesAreEqualOnlyWhenAllThreeStringsAreEqualIgnoringCase)
{
    CUniqueStringArrayPicture a;
    EXPECT_EQ(a.Add("C:\\Bilder", "urlaub.jpg", "Strand"), 0);
    struct
    {
        const char* folder;
        const char* file;
        const char* title;
        INT_PTR index;
    } steps[] = {
        {"c:\\bilder", "URLAUB.JPG", "strand", -1},
        {"C:\\Bilder", "urlaub.jpg", "Berg", 1},
        {"C:\\Bilder", "urlaub2.jpg", "Strand", 2},
        {"D:\\Bilder", "urlaub.jpg", "Strand", 3},
        {"", "", "", 4},
        {nullptr, nullptr, nullptr, -1},
    };
    for (const auto& s : steps)
        EXPECT_EQ(a.Add(s.folder, s.file, s.title), s.index) << Shown(s.file) << Shown(s.title);
    EXPECT_EQ(a.Add(_BILD_IDENT{CString("C:\\BILDER"), CString("Urlaub.jpg"), CString("BERG")}), -1);
    EXPECT_EQ(a.Find("d:\\bilder", "urlaub.JPG", "STRAND"), 3);
    EXPECT_EQ(a.Find("D:\\Bilder", "urlaub.jpg", ""), -1);
    EXPECT_STREQ(a[1].title.GetString(), "Berg");
}

TEST(StringArrayRecords, CopiesAssignEveryField)
{
    _STRING_CHECK check;
    EXPECT_EQ(check.check, 0);
    check = _STRING_CHECK{CString("Text"), 3};
    _STRING_CHECK checkCopy(check);
    check.text = "anders";
    EXPECT_STREQ(checkCopy.text.GetString(), "Text");
    EXPECT_EQ(checkCopy.check, 3);

    _BILD_IDENT ident{CString("a"), CString("b"), CString("c")};
    _BILD_IDENT identCopy;
    identCopy = ident;
    ident.file = "x";
    EXPECT_STREQ(identCopy.folder.GetString(), "a");
    EXPECT_STREQ(identCopy.file.GetString(), "b");
    EXPECT_STREQ(identCopy.title.GetString(), "c");
}

TEST(StringArrayRecords, RecordArraysHaveTheFrameworkArrayOperations)
{
    CUniqueStringArrayCheck a;
    a.Add("a", 1);
    a.Add("b", 2);
    _STRING_CHECK inserted{CString("x"), 9};
    a.InsertAt(1, inserted, 2);
    a.SetAtGrow(5, inserted);
    EXPECT_EQ(a.GetSize(), 6);
    EXPECT_TRUE(a[4].text.IsEmpty()) << "the grown gap is default records";
    EXPECT_EQ(a[4].check, 0);
    a.RemoveAt(1, 2);
    CUniqueStringArrayCheck b;
    b.Copy(a);
    EXPECT_EQ(b.Append(a), 4);
    ASSERT_EQ(b.GetSize(), 8);
    EXPECT_STREQ(b[5].text.GetString(), "b");
    EXPECT_EQ(b[7].check, 9);
    EXPECT_EQ(b.GetUpperBound(), 7);

    CUniqueStringArrayPicture p;
    p.Add("f", "d", "t");
    CUniqueStringArrayPicture q;
    q.InsertAt(0, &p);
    q.InsertAt(0, &p);
    EXPECT_EQ(q.GetCount(), 2);
    q.SetSize(0);
    q.FreeExtra();
    EXPECT_EQ(q.GetData(), nullptr);
}

TEST(StringArrayRecords, ArchiveKeepsTheCountButNotTheStrings)
{
    CUniqueStringArrayCheck a;
    a.Add("eins", 1);
    a.Add("zwei", 2);
    CMemFile file;
    {
        CArchive ar(&file, CArchive::store);
        a.Serialize(ar);
    }
    EXPECT_EQ(file.GetLength(), 2u + 2u * sizeof(_STRING_CHECK));
    file.SeekToBegin();
    CUniqueStringArrayCheck b;
    {
        CArchive ar(&file, CArchive::load);
        b.Serialize(ar);
    }
    ASSERT_EQ(b.GetSize(), 2);
    EXPECT_TRUE(b[0].text.IsEmpty());
    EXPECT_EQ(b.Find("eins"), -1);

    file.SetLength(file.GetLength() - 1);
    file.SeekToBegin();
    CUniqueStringArrayPicture c;
    int cause = -1;
    try {
        CArchive ar(&file, CArchive::load);
        c.Serialize(ar);
    } catch (CArchiveException* e) {
        cause = e->m_cause;
        e->Delete();
    }
    EXPECT_EQ(cause, CArchiveException::endOfFile);
}

#ifdef _WIN32
TEST(StringArraysAcrossTheLibrary, RecordsMadeByTheHostOutliveTheLibrarysCopies)
{
    CUniqueStringArrayCheck a;
    for (int i = 0; i < 500; ++i) {
        CString text;
        text.Format("Eintrag %d mit einem Text, der länger ist als ein kleiner Puffer", i);
        ASSERT_EQ(a.Add(text, i), i);
    }
    CUniqueStringArrayCheck b;
    b.Copy(a);
    a.RemoveAll();
    a.FreeExtra();
    EXPECT_EQ(b.Find("EINTRAG 499 MIT EINEM TEXT, DER LÄNGER IST ALS EIN KLEINER PUFFER"), 499);
    EXPECT_EQ(b[250].check, 250);
}
#endif
