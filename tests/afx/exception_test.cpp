// The exception family: classes of thrown pointers, messages, Delete and the
// mapping of operating system errors.
#include "afx.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>
#include <functional>
#include <string>

namespace {

// Runs action and returns what it threw as CException*, or NULL.
CException* Caught(const std::function<void()>& action)
{
    try {
        action();
    } catch (CException* e) {
        return e;
    }
    return nullptr;
}

std::string MessageOf(const CException* e)
{
    char sz[256];
    e->GetErrorMessage(sz, sizeof sz);
    return sz;
}

}  // namespace

TEST(Exceptions, ThrowersThrowTheirClassWithItsMessage)
{
    struct
    {
        std::function<void()> thrower;
        CRuntimeClass* cls;
        const char* message;
    } cases[] = {
        {[] { AfxThrowMemoryException(); }, RUNTIME_CLASS(CMemoryException), "Out of memory."},
        {[] { AfxThrowNotSupportedException(); }, RUNTIME_CLASS(CNotSupportedException),
         "An unsupported operation was attempted."},
        {[] { AfxThrowInvalidArgException(); }, RUNTIME_CLASS(CInvalidArgException),
         "Encountered an improper argument."},
        {[] { AfxThrowUserException(); }, RUNTIME_CLASS(CUserException), ""},
        {[] { AfxThrowArchiveException(CArchiveException::endOfFile, "data.bin"); }, RUNTIME_CLASS(CArchiveException),
         "An unexpected end of file was encountered while reading data.bin."},
        {[] { AfxThrowFileException(CFileException::fileNotFound, 2, "c:\\x\\a.txt"); }, RUNTIME_CLASS(CFileException),
         "c:\\x\\a.txt was not found."},
    };
    for (auto& c : cases) {
        CException* e = Caught(c.thrower);
        ASSERT_NE(e, nullptr) << c.cls->m_lpszClassName;
        EXPECT_EQ(e->GetRuntimeClass(), c.cls);
        EXPECT_TRUE(e->IsKindOf(RUNTIME_CLASS(CException)));
        EXPECT_FALSE(e->IsKindOf(RUNTIME_CLASS(CFile)));
        EXPECT_EQ(MessageOf(e), c.message) << c.cls->m_lpszClassName;
        e->Delete();
    }
    EXPECT_TRUE(RUNTIME_CLASS(CMemoryException)->IsDerivedFrom(RUNTIME_CLASS(CSimpleException)));
    EXPECT_FALSE(RUNTIME_CLASS(CFileException)->IsDerivedFrom(RUNTIME_CLASS(CSimpleException)));
}

TEST(Exceptions, DerivedPointerTypeIsCaughtDirectly)
{
    CFileException* pCaught = nullptr;
    try {
        AfxThrowFileException(CFileException::accessDenied, 5, "f.txt");
    } catch (CArchiveException*) {
        FAIL() << "caught as an archive exception";
    } catch (CFileException* e) {
        pCaught = e;
    }
    ASSERT_NE(pCaught, nullptr);
    EXPECT_EQ(pCaught->m_cause, CFileException::accessDenied);
    EXPECT_EQ(pCaught->m_lOsError, 5);
    EXPECT_STREQ(static_cast<LPCTSTR>(pCaught->m_strFileName), "f.txt");
    pCaught->Delete();
}

// Counts its deletions; thrown by the TRY/CATCH test.
class CCountedException : public CException
{
public:
    ~CCountedException() override { ++s_deleted; }
    static int s_deleted;
};
int CCountedException::s_deleted = 0;

TEST(Exceptions, TryCatchMacrosDeleteWhatTheyCaughtUnlessRethrown)
{
    CException* seen = nullptr;
    TRY
    {
        THROW(new CCountedException);
    }
    CATCH(CFileException, e)
    {
        ADD_FAILURE() << "caught as a file exception";
    }
    AND_CATCH(CException, e)
    {
        seen = e;
        EXPECT_EQ(CCountedException::s_deleted, 0);
    }
    END_CATCH
    EXPECT_NE(seen, nullptr);
    EXPECT_EQ(CCountedException::s_deleted, 1);

    CException* rethrown = nullptr;
    TRY{TRY{THROW(new CCountedException);
}
CATCH_ALL(e)
{
    THROW_LAST();
}
END_CATCH_ALL
}
CATCH(CCountedException, e)
{
    rethrown = e;
    EXPECT_EQ(CCountedException::s_deleted, 1);
}
END_CATCH
EXPECT_NE(rethrown, nullptr);
EXPECT_EQ(CCountedException::s_deleted, 2);

// A handler left by return still deletes what it caught.
const auto leaveEarly = [] {
    TRY
    {
        THROW(new CCountedException);
    }
    CATCH_ALL(e)
    {
        return;
    }
    END_CATCH_ALL
};
leaveEarly();
EXPECT_EQ(CCountedException::s_deleted, 3);
}

TEST(Exceptions, StaticExceptionsAreSharedAndNotDeleted)
{
    using Thrower = void (*)();
    const Thrower throwers[] = {&AfxThrowMemoryException, &AfxThrowNotSupportedException, &AfxThrowInvalidArgException};
    for (Thrower thrower : throwers) {
        CException* first = Caught(thrower);
        ASSERT_NE(first, nullptr);
        EXPECT_FALSE(first->m_bAutoDelete);
        first->Delete();
        first->Delete();
        CException* second = Caught(thrower);
        EXPECT_EQ(first, second);
        second->Delete();
    }

    CException* pUser = Caught(&AfxThrowUserException);
    ASSERT_NE(pUser, nullptr);
    EXPECT_TRUE(pUser->m_bAutoDelete);
    pUser->Delete();

    CFileException onStack(CFileException::none);
    onStack.m_bAutoDelete = FALSE;
    onStack.Delete();
    EXPECT_EQ(onStack.m_cause, CFileException::none);
}

TEST(Exceptions, GetErrorMessageTruncatesIntoTheBuffer)
{
    CFileException e(CFileException::fileNotFound, 2, "abc");
    const std::string full = "abc was not found.";
    struct
    {
        UINT nMax;
        std::string expected;
    } cases[] = {
        {1, ""},
        {2, "a"},
        {5, "abc "},
        {UINT(full.size()), full.substr(0, full.size() - 1)},
        {UINT(full.size() + 1), full},
        {100, full},
    };
    for (auto& c : cases) {
        char buffer[128];
        std::memset(buffer, '#', sizeof buffer);
        UINT nHelp = 99;
        EXPECT_TRUE(e.GetErrorMessage(buffer, c.nMax, &nHelp));
        EXPECT_EQ(std::string(buffer), c.expected) << c.nMax;
        EXPECT_EQ(buffer[c.nMax], '#') << "wrote past nMax " << c.nMax;
        EXPECT_EQ(nHelp, 0u);
    }

    char untouched[4] = {'#', '#', '#', '#'};
    EXPECT_TRUE(e.GetErrorMessage(untouched, 0));
    EXPECT_EQ(untouched[0], '#');
    EXPECT_TRUE(e.GetErrorMessage(nullptr, 50));

    CUserException user;
    char sz[8] = "xyz";
    UINT nHelp = 5;
    EXPECT_FALSE(user.GetErrorMessage(sz, sizeof sz, &nHelp));
    EXPECT_STREQ(sz, "");
    EXPECT_EQ(nHelp, 0u);
}

// The archive exceptions are made on the heap: a message that Delete does
// not free shows under the leak checker of the native build.
TEST(Exceptions, MessagesNameTheFileOrAnUnnamedFile)
{
    struct
    {
        int cause;
        const char* file;
        const char* message;
    } archive[] = {
        {CArchiveException::readOnly, "a.dat", "Tried to write to a.dat while it was being read."},
        {CArchiveException::writeOnly, nullptr, "Tried to read from an unnamed file while it was being written."},
        {CArchiveException::badSchema, "s.dat", "s.dat contains an incorrect schema."},
        {CArchiveException::badClass, "s.dat", "s.dat contained an unexpected object."},
        {CArchiveException::badIndex, "x.bin", "x.bin has a bad format."},
        {CArchiveException::genericException, "s.dat", "Unexpected file format."},
        {1234, "s.dat", "Unexpected file format."},
    };
    for (auto& c : archive) {
        CException* e = new CArchiveException(c.cause, c.file);
        EXPECT_EQ(MessageOf(e), c.message) << c.cause;
        e->Delete();
    }

    struct
    {
        int cause;
        const char* file;
        const char* message;
    } file[] = {
        {CFileException::sharingViolation, "b.txt", "A sharing violation occurred while accessing b.txt."},
        {CFileException::diskFull, nullptr, "Disk full while accessing an unnamed file."},
        {CFileException::endOfFile, "b.txt", "An attempt was made to access b.txt past its end."},
        {-1, "b.txt", "An unexpected error occurred while accessing b.txt."},
    };
    for (auto& c : file) {
        CFileException e(c.cause, -1, c.file);
        EXPECT_EQ(MessageOf(&e), c.message) << c.cause;
    }
}

TEST(Exceptions, OsErrorsMapToCauses)
{
    struct
    {
        LONG error;
        int cause;
    } cases[] = {
        {0, CFileException::none},
        {2, CFileException::fileNotFound},
        {3, CFileException::badPath},
        {4, CFileException::tooManyOpenFiles},
        {5, CFileException::accessDenied},
        {6, CFileException::invalidFile},
        {16, CFileException::removeCurrentDir},
        {25, CFileException::badSeek},
        {32, CFileException::sharingViolation},
        {33, CFileException::lockViolation},
        {38, CFileException::endOfFile},
        {112, CFileException::diskFull},
        {123, CFileException::badPath},
        {99999, CFileException::genericException},
    };
    for (auto& c : cases)
        EXPECT_EQ(CFileException::OsErrorToException(c.error), c.cause) << c.error;
}

TEST(Exceptions, ErrnoValuesMapToCauses)
{
    struct
    {
        int error;
        int cause;
    } cases[] = {
        {0, CFileException::none},
        {ENOENT, CFileException::fileNotFound},
        {EACCES, CFileException::accessDenied},
        {EMFILE, CFileException::tooManyOpenFiles},
        {EBADF, CFileException::invalidFile},
        {ENOSPC, CFileException::diskFull},
        {ENOTDIR, CFileException::badPath},
        {ESPIPE, CFileException::badSeek},
        {1 << 20, CFileException::genericException},
    };
    for (auto& c : cases)
        EXPECT_EQ(CFileException::ErrnoToException(c.error), c.cause) << c.error;
}

TEST(Exceptions, ThrowHelpersCarryCauseErrorAndName)
{
    EXPECT_EQ(Caught([] { CFileException::ThrowOsError(0, "n"); }), nullptr);
    EXPECT_EQ(Caught([] { CFileException::ThrowErrno(0, "n"); }), nullptr);

    CException* e = Caught([] { CFileException::ThrowOsError(32, "locked.log"); });
    CFileException* pFile = DYNAMIC_DOWNCAST(CFileException, e);
    ASSERT_NE(pFile, nullptr);
    EXPECT_EQ(pFile->m_cause, CFileException::sharingViolation);
    EXPECT_EQ(pFile->m_lOsError, 32);
    EXPECT_STREQ(static_cast<LPCTSTR>(pFile->m_strFileName), "locked.log");
    e->Delete();

    e = Caught([] { CFileException::ThrowErrno(ENOENT, "gone.txt"); });
    pFile = DYNAMIC_DOWNCAST(CFileException, e);
    ASSERT_NE(pFile, nullptr);
    EXPECT_EQ(pFile->m_cause, CFileException::fileNotFound);
    EXPECT_EQ(pFile->m_lOsError, ENOENT);
    e->Delete();

    CFileException cleared(CFileException::diskFull, 112, "x");
    cleared.Clear();
    EXPECT_EQ(cleared.m_cause, CFileException::none);
    EXPECT_EQ(cleared.m_lOsError, -1);
    EXPECT_TRUE(cleared.m_strFileName.IsEmpty());
}
