#include "file_name.h"
#include "string_helpers.h"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace {

constexpr std::string_view kShownPictures[] = {
    "bmp", "dib", "jpg", "jpeg", "jpe", "jfif", "gif", "png", "ico", "wmf", "emf",
};
constexpr std::string_view kOtherPictures[] = {
    "tif", "tiff", "webp", "heic", "heif", "jp2", "psd", "pcx", "tga", "svg", "cr2", "cr3", "crw",
    "nef", "nrw",  "arw",  "srf",  "sr2",  "dng", "orf", "rw2", "raf", "pef", "srw", "x3f", "raw",
};
constexpr std::string_view kMovies[] = {
    "avi", "mpg",  "mpeg", "mpe", "m1v", "m2v", "mp4",  "m4v", "mov", "qt",  "wmv",  "asf",
    "mkv", "webm", "flv",  "3gp", "3g2", "mts", "m2ts", "ts",  "vob", "ogv", "divx",
};
constexpr std::string_view kWebPages[] = {
    "htm", "html", "shtm", "shtml", "xht", "xhtml", "mht", "mhtml", "php", "asp", "aspx", "jsp", "url",
};
constexpr std::string_view kPrograms[] = {"exe", "com", "bat", "cmd", "pif", "scr"};

bool IsSeparator(char c)
{
    return c == '\\' || c == '/';
}

bool IsDriveLetter(char c)
{
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

// The end of `count` path components starting at `start` (the separator
// after the last one is not included).
int EndOfComponents(const char* s, int n, int start, int count)
{
    int i = start;
    for (int c = 0; c < count && i < n; ++c) {
        if (c > 0)
            ++i;  // the separator between two components
        while (i < n && !IsSeparator(s[i]))
            ++i;
    }
    return i;
}

// Length of the drive part: "X:", "\\server\share", "\\?\X:", "\\?\UNC\server\share",
// "\\?\Volume{...}".
int DriveLength(const CString& path)
{
    const char* s = path.GetString();
    const int n = path.GetLength();
    auto letterColon = [&](int i) { return i + 1 < n && IsDriveLetter(s[i]) && s[i + 1] == ':'; };
    if (letterColon(0))
        return 2;
    if (n < 2 || !IsSeparator(s[0]) || !IsSeparator(s[1]))
        return 0;
    if (n >= 4 && (s[2] == '?' || s[2] == '.') && IsSeparator(s[3])) {
        if (letterColon(4))
            return 6;
        if (n >= 8 && (s[4] == 'U' || s[4] == 'u') && (s[5] == 'N' || s[5] == 'n') && (s[6] == 'C' || s[6] == 'c') &&
            IsSeparator(s[7]))
            return EndOfComponents(s, n, 8, 2);
        return EndOfComponents(s, n, 4, 1);
    }
    return EndOfComponents(s, n, 2, 2);
}

bool ExtensionIn(const CString& ext, const std::string_view* table, size_t count)
{
    if (ext.GetLength() < 2)
        return false;
    CString lower = ext.Mid(1);
    lower.MakeLower();
    const std::string_view wanted(lower.GetString(), static_cast<size_t>(lower.GetLength()));
    return std::find(table, table + count, wanted) != table + count;
}

template <size_t N>
bool ExtensionIn(const CString& ext, const std::string_view (&table)[N])
{
    return ExtensionIn(ext, table, N);
}

}  // namespace

CFileName::CFileName() = default;

CFileName::CFileName(const CString& path)
{
    SetFilename(path);
}

void CFileName::SetFilename(const CString& path)
{
    CString text = path;
    text.Trim();
    if (text.GetLength() >= 2 && text[0] == '"' && text[text.GetLength() - 1] == '"') {
        text = text.Mid(1, text.GetLength() - 2);
        text.Trim();
    }

    const int driveLength = DriveLength(text);
    int lastSeparator = -1;
    for (int i = text.GetLength() - 1; i >= driveLength; --i) {
        if (IsSeparator(text[i])) {
            lastSeparator = i;
            break;
        }
    }
    const int fileStart = lastSeparator >= 0 ? lastSeparator + 1 : driveLength;
    const CString file = text.Mid(fileStart);
    const int dot = file.ReverseFind('.');

    m_sDrive = text.Left(driveLength);
    m_sDir = text.Mid(driveLength, fileStart - driveLength);
    m_sName = dot >= 0 ? file.Left(dot) : file;
    m_sExt = dot >= 0 ? file.Mid(dot) : CString();
}

CString CFileName::GetFilename() const
{
    return m_sName;
}

CString CFileName::GetNameExt() const
{
    return m_sName + m_sExt;
}

CString CFileName::GetPath() const
{
    return m_sDrive + m_sDir;
}

CString CFileName::GetFilenameFull() const
{
    return m_sDrive + m_sDir + m_sName + m_sExt;
}

CString CFileName::GetFilenameFullShorted(int maxLength) const
{
    const int limit = std::max(maxLength, 8);
    const CString full = GetFilenameFull();
    if (full.GetLength() <= limit)
        return full;

    const bool slashesOnly = full.Find('\\') < 0 && full.Find('/') >= 0;
    const char separator = slashesOnly ? '/' : '\\';
    const CString ellipsis = CString("...") + separator;
    const CString prefix = m_sDrive.IsEmpty() ? ellipsis : m_sDrive + separator + ellipsis;

    // Drop folders from the front, one separator at a time, until the rest fits.
    const int dirStart = m_sDrive.GetLength();
    for (int i = 0; i < m_sDir.GetLength(); ++i) {
        if (!IsSeparator(m_sDir[i]))
            continue;
        const CString candidate = prefix + full.Mid(dirStart + i + 1);
        if (candidate.GetLength() <= limit)
            return candidate;
    }

    const CString nameExt = GetNameExt();
    if (ellipsis.GetLength() + nameExt.GetLength() <= limit)
        return ellipsis + nameExt;
    if (nameExt.GetLength() <= limit)
        return nameExt;
    // The ellipsis takes the place of the extension's dot.
    const CString extension = m_sExt.Mid(1);
    const int room = limit - 3 - extension.GetLength();
    if (room >= 1)
        return m_sName.Left(room) + "..." + extension;
    return nameExt.Left(limit - 3) + "...";
}

BOOL CFileName::IsPicture(int allFormats) const
{
    if (ExtensionIn(m_sExt, kShownPictures))
        return TRUE;
    return allFormats != 0 && ExtensionIn(m_sExt, kOtherPictures);
}

BOOL CFileName::IsMovie() const
{
    return ExtensionIn(m_sExt, kMovies);
}

BOOL CFileName::IsWebPage() const
{
    return isLink(GetFilenameFull()) || ExtensionIn(m_sExt, kWebPages);
}

BOOL CFileName::IsExecutable() const
{
    return ExtensionIn(m_sExt, kPrograms);
}
