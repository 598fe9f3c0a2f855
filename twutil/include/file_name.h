// A file name split into drive, directory, name and extension, and the
// kind of file its extension names.
#pragma once

#include "twutil_api.h"
#include "afxstr.h"

// A path split into its four parts, so that drive + directory + name +
// extension gives the path back:
// - Backslash and slash both separate folders; they are kept as written.
// - Blanks around the path and one pair of double quotes around it are
//   removed first ("\"C:\a b\c.txt\"" is C:\a b\c.txt).
// - Drive: "X:" for a drive letter; "\\server\share" for a network path;
//   "\\?\X:" and "\\?\UNC\server\share" for the long-path forms. Empty
//   otherwise (relative paths, URLs such as http://host/page.html).
// - Directory: the rest up to and including the last separator, so it ends
//   with a separator or is empty ("C:\a\b.txt": "\a\").
// - Extension: from the last dot of the file part on, dot included
//   ("archiv.tar.gz": ".gz"); empty when the file part has no dot. As the
//   Windows shell does, ".profile" is an extension with an empty name.
// - Name: the file part before the extension.
// All comparisons of extensions ignore case (code page 1252).
class TWUTIL_API CFileName
{
public:
    CFileName();
    CFileName(const CString& path);

    // Splits path into the parts; a null or empty path empties them.
    void SetFilename(const CString& path);

    const CString& GetDrive() const { return m_sDrive; }
    const CString& GetDir() const { return m_sDir; }
    const CString& GetName() const { return m_sName; }
    // The extension with its dot (".jpg"), or empty.
    const CString& GetExt() const { return m_sExt; }

    // The name without directory and extension ("Strand" for
    // C:\Bilder\Strand.jpg).
    CString GetFilename() const;
    // The name with its extension ("Strand.jpg").
    CString GetNameExt() const;
    // Drive and directory: the folder, with its trailing separator.
    CString GetPath() const;
    // The whole path: drive, directory, name and extension.
    CString GetFilenameFull() const;

    // The whole path shortened for display to at most maxLength characters
    // (values below 8 count as 8). A path that fits is returned unchanged.
    // Otherwise the middle folders are replaced by "...", keeping the drive
    // and as many of the last folders as fit: "C:\...\Urlaub\Strand.jpg".
    // Without a drive it starts with "...\". When not even that fits, the
    // name with its extension alone; when that is too long too, the name is
    // cut and the "..." replaces the extension's dot ("Sehr_lang...jpg"), or,
    // when the extension leaves no room for a character of the name, the
    // name with its extension is cut and ends in "..." ("Datei.seh...").
    // The separator inserted is the path's own ('/' only when the path has
    // slashes and no backslash).
    CString GetFilenameFullShorted(int maxLength = 60) const;

    // Non-zero if the extension is a picture type. allFormats 0: only the
    // types the library displays itself (bmp, dib, jpg, jpeg, jpe, jfif, gif,
    // png, ico, wmf, emf); non-zero: also the picture types that need
    // another program (tif, tiff, webp, heic, heif, jp2, psd, pcx, tga, svg,
    // and the camera raw formats cr2, cr3, crw, nef, nrw, arw, srf, sr2, dng,
    // orf, rw2, raf, pef, srw, x3f, raw).
    BOOL IsPicture(int allFormats = 0) const;
    // Non-zero if the extension is a video type: avi, mpg, mpeg, mpe, m1v,
    // m2v, mp4, m4v, mov, qt, wmv, asf, mkv, webm, flv, 3gp, 3g2, mts, m2ts,
    // ts, vob, ogv, divx.
    BOOL IsMovie() const;
    // Non-zero if the name denotes a web page: an Internet address (isLink
    // of string_helpers.h: http://, https://, ftp://, mailto:, www.), or an
    // extension htm, html, shtm, shtml, xht, xhtml, mht, mhtml, php, asp,
    // aspx, jsp or url (an Internet shortcut). A link is a web page whatever
    // it ends with; "http://host/page.php?x=1" counts as well.
    BOOL IsWebPage() const;
    // Non-zero if the file is a program: exe, com, bat, cmd, pif or scr.
    // Shortcuts (lnk) and installer packages (msi) are not, as they may
    // lead to anything.
    BOOL IsExecutable() const;

#ifdef _WIN32
    // The file name without directory and extension of a loaded module
    // ("twdemo" for the host's instance handle); null means the executable.
    // Empty when the module is unknown.
    static CString GetFilename(HMODULE module);
#endif

private:
    CString m_sDrive;
    CString m_sDir;
    CString m_sName;
    CString m_sExt;
};
