#include "clipboard.h"
#include "file_name.h"

#include <ole2.h>
#include <olectl.h>
#include <shlobj.h>

#include <cstdlib>
#include <cstring>
#include <utility>
#include <vector>

namespace {

// A block of global memory until the clipboard takes it over.
class GlobalBlock
{
public:
    GlobalBlock() = default;
    explicit GlobalBlock(size_t size) : m_handle(GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, size)) {}
    GlobalBlock(const void* data, size_t size) : GlobalBlock(size)
    {
        if (m_handle != nullptr) {
            void* target = GlobalLock(m_handle);
            memcpy(target, data, size);
            GlobalUnlock(m_handle);
        }
    }
    GlobalBlock(GlobalBlock&& other) noexcept : m_handle(std::exchange(other.m_handle, nullptr)) {}
    GlobalBlock& operator=(GlobalBlock&& other) noexcept
    {
        std::swap(m_handle, other.m_handle);
        return *this;
    }
    GlobalBlock(const GlobalBlock&) = delete;
    GlobalBlock& operator=(const GlobalBlock&) = delete;
    ~GlobalBlock()
    {
        if (m_handle != nullptr)
            GlobalFree(m_handle);
    }

    HGLOBAL Get() const { return m_handle; }
    HGLOBAL Release() { return std::exchange(m_handle, nullptr); }

private:
    HGLOBAL m_handle = nullptr;
};

// One clipboard format and its data, an HGLOBAL or (CF_BITMAP) a bitmap.
struct ClipboardItem
{
    UINT format;
    GlobalBlock block;
    HBITMAP bitmap = nullptr;
};

// The clipboard, open for a hidden helper window that owns the content
// while it is set, closed again at the end of the scope.
class OpenedClipboard
{
public:
    OpenedClipboard()
    {
        m_owner = CreateWindowExA(0, "STATIC", "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
        // Another program may hold the clipboard for a moment.
        for (int attempt = 0; attempt < 100; ++attempt) {
            if (OpenClipboard(m_owner)) {
                m_open = true;
                break;
            }
            Sleep(10);
        }
    }
    ~OpenedClipboard()
    {
        if (m_open)
            CloseClipboard();
        if (m_owner != nullptr)
            DestroyWindow(m_owner);
    }
    OpenedClipboard(const OpenedClipboard&) = delete;
    OpenedClipboard& operator=(const OpenedClipboard&) = delete;

    bool IsOpen() const { return m_open; }

private:
    HWND m_owner = nullptr;
    bool m_open = false;
};

// Replaces the clipboard's content with the items; every item is prepared
// beforehand, so a failure leaves the old content.
BOOL PutOnClipboard(std::vector<ClipboardItem>& items)
{
    for (const ClipboardItem& item : items) {
        if (item.block.Get() == nullptr && item.bitmap == nullptr)
            return FALSE;
    }
    OpenedClipboard clipboard;
    if (!clipboard.IsOpen() || !EmptyClipboard())
        return FALSE;
    BOOL all = TRUE;
    for (ClipboardItem& item : items) {
        HANDLE data = item.bitmap != nullptr ? static_cast<HANDLE>(item.bitmap) : item.block.Get();
        if (SetClipboardData(item.format, data) == nullptr) {
            all = FALSE;
            continue;
        }
        // The clipboard owns it now.
        item.block.Release();
        item.bitmap = nullptr;
    }
    return all;
}

std::vector<wchar_t> ToUtf16(const char* text, int length)
{
    const int count = MultiByteToWideChar(1252, 0, text, length, nullptr, 0);
    std::vector<wchar_t> wide(static_cast<size_t>(count) + 1, L'\0');
    if (count > 0)
        MultiByteToWideChar(1252, 0, text, length, wide.data(), count);
    return wide;
}

void AddText(std::vector<ClipboardItem>& items, const CString& text)
{
    items.push_back({CF_TEXT, GlobalBlock(text.GetString(), static_cast<size_t>(text.GetLength()) + 1)});
    const std::vector<wchar_t> wide = ToUtf16(text.GetString(), text.GetLength());
    items.push_back({CF_UNICODETEXT, GlobalBlock(wide.data(), wide.size() * sizeof(wchar_t))});
}

// A device context for drawing into a bitmap, released at the end of the scope.
class MemoryDC
{
public:
    MemoryDC() : m_dc(CreateCompatibleDC(nullptr)) {}
    ~MemoryDC()
    {
        if (m_old != nullptr)
            SelectObject(m_dc, m_old);
        if (m_dc != nullptr)
            DeleteDC(m_dc);
    }
    MemoryDC(const MemoryDC&) = delete;
    MemoryDC& operator=(const MemoryDC&) = delete;

    HDC Get() const { return m_dc; }
    void Select(HBITMAP bitmap)
    {
        HGDIOBJ old = SelectObject(m_dc, bitmap);
        if (m_old == nullptr)
            m_old = old;
    }

private:
    HDC m_dc;
    HGDIOBJ m_old = nullptr;
};

// A 24-bit bottom-up DIB section and its pixels.
struct Picture
{
    HBITMAP bitmap = nullptr;
    void* bits = nullptr;
    int width = 0;
    int height = 0;

    Picture() = default;
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;
    ~Picture()
    {
        if (bitmap != nullptr)
            DeleteObject(bitmap);
    }

    int Stride() const { return (width * 3 + 3) & ~3; }

    BITMAPINFOHEADER Header() const
    {
        BITMAPINFOHEADER header = {};
        header.biSize = sizeof header;
        header.biWidth = width;
        header.biHeight = height;
        header.biPlanes = 1;
        header.biBitCount = 24;
        header.biCompression = BI_RGB;
        header.biSizeImage = static_cast<DWORD>(Stride()) * static_cast<DWORD>(height);
        return header;
    }

    // Makes an empty white picture of the size.
    bool Create(int w, int h)
    {
        if (w <= 0 || h <= 0)
            return false;
        width = w;
        height = h;
        BITMAPINFO info = {};
        info.bmiHeader = Header();
        bitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        if (bitmap == nullptr)
            return false;
        memset(bits, 0xFF, info.bmiHeader.biSizeImage);
        return true;
    }
};

bool CopyBitmapInto(HBITMAP source, Picture& picture)
{
    BITMAP size = {};
    if (GetObjectA(source, sizeof size, &size) == 0 || !picture.Create(size.bmWidth, std::abs(size.bmHeight)))
        return false;
    MemoryDC from;
    MemoryDC to;
    from.Select(source);
    to.Select(picture.bitmap);
    const BOOL copied = BitBlt(to.Get(), 0, 0, picture.width, picture.height, from.Get(), 0, 0, SRCCOPY);
    GdiFlush();
    return copied != FALSE;
}

bool LoadBmp(const CString& path, Picture& picture)
{
    HBITMAP loaded =
        static_cast<HBITMAP>(LoadImageA(nullptr, path, IMAGE_BITMAP, 0, 0, LR_LOADFROMFILE | LR_CREATEDIBSECTION));
    if (loaded == nullptr)
        return false;
    const bool ok = CopyBitmapInto(loaded, picture);
    DeleteObject(loaded);
    return ok;
}

// Reads the whole file into a movable global block.
GlobalBlock ReadFileToGlobal(const CString& path, DWORD& size)
{
    HANDLE file = CreateFileA(path, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return GlobalBlock();
    LARGE_INTEGER length = {};
    GlobalBlock block;
    // Pictures beyond 1 GB are refused rather than half read.
    if (GetFileSizeEx(file, &length) && length.QuadPart > 0 && length.QuadPart < (1LL << 30)) {
        size = static_cast<DWORD>(length.QuadPart);
        GlobalBlock read(size);
        if (read.Get() != nullptr) {
            DWORD done = 0;
            void* target = GlobalLock(read.Get());
            const BOOL ok = ReadFile(file, target, size, &done, nullptr);
            GlobalUnlock(read.Get());
            if (ok && done == size)
                block = std::move(read);
        }
    }
    CloseHandle(file);
    return block;
}

bool LoadOlePicture(const CString& path, Picture& picture)
{
    DWORD size = 0;
    GlobalBlock block = ReadFileToGlobal(path, size);
    if (block.Get() == nullptr)
        return false;
    IStream* stream = nullptr;
    if (FAILED(CreateStreamOnHGlobal(block.Get(), TRUE, &stream)))
        return false;
    block.Release();  // the stream frees it
    IPicture* ole = nullptr;
    const HRESULT loaded =
        OleLoadPicture(stream, static_cast<LONG>(size), FALSE, IID_IPicture, reinterpret_cast<void**>(&ole));
    stream->Release();
    if (FAILED(loaded) || ole == nullptr)
        return false;

    bool ok = false;
    SHORT type = PICTYPE_UNINITIALIZED;
    ole->get_Type(&type);
    OLE_HANDLE handle = 0;
    if (type == PICTYPE_BITMAP && SUCCEEDED(ole->get_Handle(&handle)) && handle != 0) {
        ok = CopyBitmapInto(reinterpret_cast<HBITMAP>(static_cast<UINT_PTR>(handle)), picture);
    } else {
        OLE_XSIZE_HIMETRIC himetricWidth = 0;
        OLE_YSIZE_HIMETRIC himetricHeight = 0;
        ole->get_Width(&himetricWidth);
        ole->get_Height(&himetricHeight);
        HDC screen = GetDC(nullptr);
        const int width = MulDiv(himetricWidth, GetDeviceCaps(screen, LOGPIXELSX), 2540);
        const int height = MulDiv(himetricHeight, GetDeviceCaps(screen, LOGPIXELSY), 2540);
        ReleaseDC(nullptr, screen);
        if (picture.Create(width, height)) {
            MemoryDC to;
            to.Select(picture.bitmap);
            ok = SUCCEEDED(
                ole->Render(to.Get(), 0, 0, width, height, 0, himetricHeight, himetricWidth, -himetricHeight, nullptr));
            GdiFlush();
        }
    }
    ole->Release();
    return ok;
}

}  // namespace

BOOL CClipboardOperation::CopyTextToClipboard(const char* text)
{
    if (text == nullptr)
        return FALSE;
    std::vector<ClipboardItem> items;
    AddText(items, text);
    return PutOnClipboard(items);
}

BOOL CClipboardOperation::CopyFileNameToClipBoard(CString path)
{
    path.Trim();
    if (path.IsEmpty())
        return FALSE;
    char full[MAX_PATH * 4] = {};
    const DWORD length = GetFullPathNameA(path, sizeof full, full, nullptr);
    if (length == 0 || length >= sizeof full || GetFileAttributesA(full) == INVALID_FILE_ATTRIBUTES)
        return FALSE;

    // DROPFILES followed by the wide path and an empty one that ends the list.
    const std::vector<wchar_t> wide = ToUtf16(full, static_cast<int>(length));
    const size_t pathBytes = wide.size() * sizeof(wchar_t);
    std::vector<BYTE> drop(sizeof(DROPFILES) + pathBytes + sizeof(wchar_t), 0);
    DROPFILES header = {};
    header.pFiles = sizeof(DROPFILES);
    header.fWide = TRUE;
    memcpy(drop.data(), &header, sizeof header);
    memcpy(drop.data() + sizeof header, wide.data(), pathBytes);

    const DWORD effect = DROPEFFECT_COPY;
    std::vector<ClipboardItem> items;
    items.push_back({CF_HDROP, GlobalBlock(drop.data(), drop.size())});
    items.push_back({RegisterClipboardFormatA("Preferred DropEffect"), GlobalBlock(&effect, sizeof effect)});
    AddText(items, full);
    return PutOnClipboard(items);
}

BOOL CClipboardOperation::CopyPictureContentToClipBoard(CString path)
{
    path.Trim();
    if (path.IsEmpty() || GetFileAttributesA(path) == INVALID_FILE_ATTRIBUTES)
        return FALSE;
    const CFileName name(path);
    Picture picture;
    const bool bmp = name.GetExt().CompareNoCase(".bmp") == 0 || name.GetExt().CompareNoCase(".dib") == 0;
    if (!(bmp ? LoadBmp(path, picture) : LoadOlePicture(path, picture)))
        return FALSE;

    const BITMAPINFOHEADER header = picture.Header();
    std::vector<BYTE> dib(sizeof header + header.biSizeImage);
    memcpy(dib.data(), &header, sizeof header);
    memcpy(dib.data() + sizeof header, picture.bits, header.biSizeImage);

    HDC screen = GetDC(nullptr);
    HBITMAP device = CreateCompatibleBitmap(screen, picture.width, picture.height);
    ReleaseDC(nullptr, screen);
    if (device == nullptr)
        return FALSE;
    {
        MemoryDC from;
        MemoryDC to;
        from.Select(picture.bitmap);
        to.Select(device);
        BitBlt(to.Get(), 0, 0, picture.width, picture.height, from.Get(), 0, 0, SRCCOPY);
    }

    std::vector<ClipboardItem> items;
    items.push_back({CF_DIB, GlobalBlock(dib.data(), dib.size())});
    items.push_back({CF_BITMAP, GlobalBlock(), device});
    const BOOL put = PutOnClipboard(items);
    for (const ClipboardItem& item : items) {
        if (item.bitmap != nullptr)
            DeleteObject(item.bitmap);
    }
    return put;
}

BOOL CClipboardOperation::GetTextFromClipboard(CString& text)
{
    text.Empty();
    OpenedClipboard clipboard;
    if (!clipboard.IsOpen())
        return FALSE;
    if (HANDLE wide = GetClipboardData(CF_UNICODETEXT)) {
        const wchar_t* source = static_cast<const wchar_t*>(GlobalLock(wide));
        if (source == nullptr)
            return FALSE;
        const size_t limit = GlobalSize(wide) / sizeof(wchar_t);
        const int length = static_cast<int>(wcsnlen(source, limit));
        const int bytes = WideCharToMultiByte(1252, 0, source, length, nullptr, 0, nullptr, nullptr);
        if (bytes > 0) {
            WideCharToMultiByte(1252, 0, source, length, text.GetBuffer(bytes), bytes, "?", nullptr);
            text.ReleaseBuffer(bytes);
        }
        GlobalUnlock(wide);
        return TRUE;
    }
    if (HANDLE narrow = GetClipboardData(CF_TEXT)) {
        const char* source = static_cast<const char*>(GlobalLock(narrow));
        if (source == nullptr)
            return FALSE;
        text = CString(source, static_cast<int>(strnlen(source, GlobalSize(narrow))));
        GlobalUnlock(narrow);
        return TRUE;
    }
    return FALSE;
}
