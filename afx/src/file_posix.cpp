// CFile on POSIX file descriptors (native build). The descriptor is kept in
// m_hFile; share modes have no POSIX counterpart and are ignored.
#include "file_os.h"

#include <cerrno>
#include <climits>
#include <cstdint>
#include <cstdio>
#include <string>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr UINT kAccessMask = CFile::modeRead | CFile::modeWrite | CFile::modeReadWrite;
constexpr mode_t kCreateMode = 0666;

HANDLE HandleFromFd(int fd)
{
    return reinterpret_cast<HANDLE>(static_cast<std::intptr_t>(fd));
}

int FdFromHandle(HANDLE h)
{
    return static_cast<int>(reinterpret_cast<std::intptr_t>(h));
}

int OpenFlagsToPosix(UINT nOpenFlags)
{
    int flags = 0;
    switch (nOpenFlags & kAccessMask) {
    case CFile::modeWrite:
        flags = O_WRONLY;
        break;
    case CFile::modeReadWrite:
        flags = O_RDWR;
        break;
    default:
        flags = O_RDONLY;
        break;
    }
    if (nOpenFlags & CFile::modeCreate) {
        flags |= O_CREAT;
        if (!(nOpenFlags & CFile::modeNoTruncate))
            flags |= O_TRUNC;
    }
    if (nOpenFlags & CFile::modeNoInherit)
        flags |= O_CLOEXEC;
    return flags;
}

std::string FullPath(LPCTSTR lpszFileName)
{
    if (lpszFileName[0] == '/')
        return lpszFileName;
    char cwd[PATH_MAX];
    if (getcwd(cwd, sizeof cwd) == nullptr)
        return lpszFileName;
    return std::string(cwd) + "/" + lpszFileName;
}

}  // namespace

LONG AfxFileBadPathError()
{
    return ENOENT;
}

HANDLE AfxFileOpen(LPCTSTR lpszFileName, UINT nOpenFlags, LONG& error)
{
    const int fd = ::open(lpszFileName, OpenFlagsToPosix(nOpenFlags), kCreateMode);
    if (fd < 0) {
        error = errno;
        return CFile::hFileNull;
    }
    return HandleFromFd(fd);
}

CString AfxFileFullPath(LPCTSTR lpszFileName)
{
    return FullPath(lpszFileName).c_str();
}

LONG AfxFileClose(HANDLE hFile)
{
    return ::close(FdFromHandle(hFile)) != 0 ? errno : 0;
}

int AfxFileErrorCause(LONG error)
{
    return CFileException::ErrnoToException(static_cast<int>(error));
}

void AfxFileThrowError(LONG error, LPCTSTR lpszFileName)
{
    CFileException::ThrowErrno(static_cast<int>(error), lpszFileName);
}

UINT AfxFileRead(HANDLE hFile, void* lpBuf, UINT nCount, LPCTSTR lpszFileName)
{
    char* p = static_cast<char*>(lpBuf);
    UINT nRead = 0;
    while (nRead < nCount) {
        const ssize_t n = ::read(FdFromHandle(hFile), p + nRead, nCount - nRead);
        if (n < 0) {
            if (errno == EINTR)
                continue;
            CFileException::ThrowErrno(errno, lpszFileName);
        }
        if (n == 0)
            break;
        nRead += static_cast<UINT>(n);
    }
    return nRead;
}

void AfxFileWrite(HANDLE hFile, const void* lpBuf, UINT nCount, LPCTSTR lpszFileName)
{
    const char* p = static_cast<const char*>(lpBuf);
    UINT nWritten = 0;
    while (nWritten < nCount) {
        const ssize_t n = ::write(FdFromHandle(hFile), p + nWritten, nCount - nWritten);
        if (n < 0) {
            if (errno == EINTR)
                continue;
            CFileException::ThrowErrno(errno, lpszFileName);
        }
        if (n == 0)
            AfxThrowFileException(CFileException::diskFull, ENOSPC, lpszFileName);
        nWritten += static_cast<UINT>(n);
    }
}

ULONGLONG CFile::Seek(LONGLONG lOff, UINT nFrom)
{
    int whence = SEEK_SET;
    switch (nFrom) {
    case begin:
        whence = SEEK_SET;
        break;
    case current:
        whence = SEEK_CUR;
        break;
    case end:
        whence = SEEK_END;
        break;
    default:
        AfxThrowInvalidArgException();
    }
    const off_t pos = ::lseek(FdFromHandle(m_hFile), static_cast<off_t>(lOff), whence);
    if (pos < 0) {
        // A target before the file's start is a bad seek, as in the Windows build.
        const int error = errno;
        if (error == EINVAL)
            AfxThrowFileException(CFileException::badSeek, error, m_strFileName);
        CFileException::ThrowErrno(error, m_strFileName);
    }
    return static_cast<ULONGLONG>(pos);
}

ULONGLONG CFile::GetPosition() const
{
    const off_t pos = ::lseek(FdFromHandle(m_hFile), 0, SEEK_CUR);
    if (pos < 0)
        CFileException::ThrowErrno(errno, m_strFileName);
    return static_cast<ULONGLONG>(pos);
}

ULONGLONG CFile::GetLength() const
{
    struct stat st
    {};
    if (::fstat(FdFromHandle(m_hFile), &st) != 0)
        CFileException::ThrowErrno(errno, m_strFileName);
    return static_cast<ULONGLONG>(st.st_size);
}

void CFile::SetLength(ULONGLONG dwNewLen)
{
    if (::ftruncate(FdFromHandle(m_hFile), static_cast<off_t>(dwNewLen)) != 0)
        CFileException::ThrowErrno(errno, m_strFileName);
}

void CFile::Flush()
{
    if (m_hFile == hFileNull)
        return;
    if (::fsync(FdFromHandle(m_hFile)) != 0 && errno != EINVAL && errno != EROFS)
        CFileException::ThrowErrno(errno, m_strFileName);
}

void PASCAL CFile::Rename(LPCTSTR lpszOldName, LPCTSTR lpszNewName)
{
    if (::rename(lpszOldName, lpszNewName) != 0)
        CFileException::ThrowErrno(errno, lpszOldName);
}

void PASCAL CFile::Remove(LPCTSTR lpszFileName)
{
    if (::unlink(lpszFileName) != 0)
        CFileException::ThrowErrno(errno, lpszFileName);
}

LONG AfxFileCreateNew(LPCTSTR lpszFileName)
{
    const int fd = ::open(lpszFileName, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kCreateMode);
    if (fd < 0)
        return errno;
    return ::close(fd) != 0 ? errno : 0;
}

bool AfxFileExistsError(LONG error)
{
    return error == EEXIST;
}

LONG AfxFileReplace(LPCTSTR lpszTemp, LPCTSTR lpszTarget)
{
    struct stat st
    {};
    if (::stat(lpszTarget, &st) == 0) {
        // Read-only as the Windows build sees it: the owner may not write.
        // (access() would not do: it lets root write anything.)
        if ((st.st_mode & S_IWUSR) == 0 || S_ISDIR(st.st_mode))
            return EACCES;
        if (::chmod(lpszTemp, st.st_mode & 07777) != 0)
            return errno;
    } else if (errno != ENOENT) {
        return errno;
    }
    if (::rename(lpszTemp, lpszTarget) != 0)
        return errno;
    // The new name itself reaches the disk with the folder.
    const std::string target(lpszTarget);
    const std::size_t slash = target.rfind('/');
    const std::string folder = slash == std::string::npos ? "." : slash == 0 ? "/" : target.substr(0, slash);
    const int dir = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (dir >= 0) {
        ::fsync(dir);
        ::close(dir);
    }
    return 0;
}
