// What CFile asks the operating system; file_win.cpp and, in the native
// build, file_posix.cpp answer. Errors are the system's codes (GetLastError
// or errno), 0 for none.
#pragma once

#include "afxfile.h"

// The error Open reports for a missing or empty file name.
LONG AfxFileBadPathError();

// Opens the file as nOpenFlags say: the handle, or CFile::hFileNull with the
// system's error in error.
HANDLE AfxFileOpen(LPCTSTR lpszFileName, UINT nOpenFlags, LONG& error);
// The full path of a file name that opened, or the name itself.
CString AfxFileFullPath(LPCTSTR lpszFileName);
// Closes the handle; the system's error, or 0.
LONG AfxFileClose(HANDLE hFile);

// The CFileException cause of a system error.
int AfxFileErrorCause(LONG error);
// Throws the CFileException of a system error; does nothing for 0.
void AfxFileThrowError(LONG error, LPCTSTR lpszFileName);

// Reads and writes nCount bytes (more than 0) at the file position; throw
// CFileException on failure.
UINT AfxFileRead(HANDLE hFile, void* lpBuf, UINT nCount, LPCTSTR lpszFileName);
void AfxFileWrite(HANDLE hFile, const void* lpBuf, UINT nCount, LPCTSTR lpszFileName);

// Creates the file, which must not exist yet; the system's error, or 0.
LONG AfxFileCreateNew(LPCTSTR lpszFileName);
// Whether an error of AfxFileCreateNew says that the file exists.
bool AfxFileExistsError(LONG error);
// Puts the complete file lpszTemp in lpszTarget's place in one step,
// replacing the target if it exists (keeping its attributes or permission
// bits); a read-only target is refused. The system's error, or 0; on an
// error the target is as it was and lpszTemp still exists.
LONG AfxFileReplace(LPCTSTR lpszTemp, LPCTSTR lpszTarget);
