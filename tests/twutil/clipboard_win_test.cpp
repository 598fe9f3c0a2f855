#ifdef _WIN32
#include "clipboard.h"
#include "files_test_support.h"
#include "picture_test_support.h"

#include <gtest/gtest.h>
#include <shlobj.h>

#include <cstdlib>
#include <string>
#include <vector>

using files_test::TempFolder;
using files_test::WriteBytes;

namespace {

// The clipboard, opened for reading for one scope.
class ReadClipboard
{
public:
    ReadClipboard() : m_open(OpenClipboard(nullptr) != FALSE) {}
    ~ReadClipboard()
    {
        if (m_open)
            CloseClipboard();
    }
    bool IsOpen() const { return m_open; }

private:
    bool m_open;
};

std::wstring UnicodeText()
{
    ReadClipboard clipboard;
    HANDLE data = clipboard.IsOpen() ? GetClipboardData(CF_UNICODETEXT) : nullptr;
    if (data == nullptr)
        return L"<none>";
    std::wstring text = static_cast<const wchar_t*>(GlobalLock(data));
    GlobalUnlock(data);
    return text;
}

std::string AnsiText()
{
    ReadClipboard clipboard;
    HANDLE data = clipboard.IsOpen() ? GetClipboardData(CF_TEXT) : nullptr;
    if (data == nullptr)
        return "<none>";
    std::string text = static_cast<const char*>(GlobalLock(data));
    GlobalUnlock(data);
    return text;
}

// The CF_DIB content: header and pixel rows as stored.
struct DibCopy
{
    BITMAPINFOHEADER header = {};
    std::vector<BYTE> bits;

    // Blue, green and red of pixel (x, y), y counted from the top.
    COLORREF Pixel(int x, int y) const
    {
        const int stride = (header.biWidth * 3 + 3) & ~3;
        const int row = header.biHeight > 0 ? header.biHeight - 1 - y : y;
        const BYTE* p = bits.data() + row * stride + x * 3;
        return RGB(p[2], p[1], p[0]);
    }
};

bool ReadDib(DibCopy& dib)
{
    ReadClipboard clipboard;
    HANDLE data = clipboard.IsOpen() ? GetClipboardData(CF_DIB) : nullptr;
    if (data == nullptr)
        return false;
    const BYTE* p = static_cast<const BYTE*>(GlobalLock(data));
    const size_t size = GlobalSize(data);
    memcpy(&dib.header, p, sizeof dib.header);
    dib.bits.assign(p + dib.header.biSize, p + size);
    GlobalUnlock(data);
    return true;
}

bool BitmapSize(SIZE& size)
{
    ReadClipboard clipboard;
    HBITMAP bitmap = clipboard.IsOpen() ? static_cast<HBITMAP>(GetClipboardData(CF_BITMAP)) : nullptr;
    BITMAP info = {};
    if (bitmap == nullptr || GetObjectA(bitmap, sizeof info, &info) == 0)
        return false;
    size = {info.bmWidth, info.bmHeight};
    return true;
}

bool Near(COLORREF a, COLORREF b, int tolerance)
{
    return std::abs(GetRValue(a) - GetRValue(b)) <= tolerance && std::abs(GetGValue(a) - GetGValue(b)) <= tolerance &&
           std::abs(GetBValue(a) - GetBValue(b)) <= tolerance;
}

// A 24-bit BMP file of 3 x 2 pixels: red, green, blue on top; black, white,
// grey below.
std::vector<BYTE> SmallBmp()
{
    const BYTE rows[2][12] = {
        {0, 0, 0, 255, 255, 255, 128, 128, 128, 0, 0, 0},  // bottom row first
        {0, 0, 255, 0, 255, 0, 255, 0, 0, 0, 0, 0},
    };
    BITMAPFILEHEADER file = {};
    BITMAPINFOHEADER info = {};
    info.biSize = sizeof info;
    info.biWidth = 3;
    info.biHeight = 2;
    info.biPlanes = 1;
    info.biBitCount = 24;
    info.biSizeImage = sizeof rows;
    file.bfType = 0x4D42;
    file.bfOffBits = sizeof file + sizeof info;
    file.bfSize = file.bfOffBits + sizeof rows;
    std::vector<BYTE> bytes(reinterpret_cast<const BYTE*>(&file), reinterpret_cast<const BYTE*>(&file) + sizeof file);
    bytes.insert(bytes.end(), reinterpret_cast<const BYTE*>(&info), reinterpret_cast<const BYTE*>(&info) + sizeof info);
    bytes.insert(bytes.end(), &rows[0][0], &rows[0][0] + sizeof rows);
    return bytes;
}

// A PNG of 2 x 2 pixels: red, green on top; blue, white below.
const std::vector<BYTE> kSmallPng = {
    0x89, 0x50, 0x4E, 0x47, 0x0D, 0x0A, 0x1A, 0x0A, 0x00, 0x00, 0x00, 0x0D, 0x49, 0x48, 0x44, 0x52, 0x00, 0x00, 0x00,
    0x02, 0x00, 0x00, 0x00, 0x02, 0x08, 0x02, 0x00, 0x00, 0x00, 0xFD, 0xD4, 0x9A, 0x73, 0x00, 0x00, 0x00, 0x12, 0x49,
    0x44, 0x41, 0x54, 0x78, 0x9C, 0x63, 0xF8, 0xCF, 0xC0, 0xC0, 0x00, 0xC2, 0x0C, 0xFF, 0x81, 0x00, 0x00, 0x1F, 0xEE,
    0x05, 0xFB, 0x0B, 0xD9, 0x68, 0x8B, 0x00, 0x00, 0x00, 0x00, 0x49, 0x45, 0x4E, 0x44, 0xAE, 0x42, 0x60, 0x82};

// A GIF of one red pixel.
const std::vector<BYTE> kRedGif = {0x47, 0x49, 0x46, 0x38, 0x39, 0x61, 0x01, 0x00, 0x01, 0x00, 0x80, 0x00,
                                   0x00, 0xFF, 0x00, 0x00, 0x00, 0x00, 0x00, 0x2C, 0x00, 0x00, 0x00, 0x00,
                                   0x01, 0x00, 0x01, 0x00, 0x00, 0x02, 0x02, 0x44, 0x01, 0x00, 0x3B};

}  // namespace

TEST(ClipboardText, CodePage1252TextReadsTheSameInUnicode)
{
    ASSERT_TRUE(CClipboardOperation::CopyTextToClipboard("weiß, grün\r\nÖffnen €"));
    EXPECT_EQ(UnicodeText(), L"wei\u00DF, gr\u00FCn\r\n\u00D6ffnen \u20AC");
    EXPECT_EQ(AnsiText(), "weiß, grün\r\nÖffnen €");

    CString back;
    EXPECT_TRUE(CClipboardOperation::GetTextFromClipboard(back));
    EXPECT_STREQ(back, "weiß, grün\r\nÖffnen €");

    ASSERT_TRUE(CClipboardOperation::CopyTextToClipboard(""));
    EXPECT_EQ(UnicodeText(), L"");
    EXPECT_TRUE(CClipboardOperation::GetTextFromClipboard(back));
    EXPECT_STREQ(back, "");

    EXPECT_FALSE(CClipboardOperation::CopyTextToClipboard(nullptr));
    EXPECT_EQ(UnicodeText(), L"") << "a null text leaves the clipboard alone";
}

TEST(ClipboardText, ReadingGivesCodePage1252AndFailsWithoutText)
{
    {
        ASSERT_TRUE(OpenClipboard(nullptr));
        EmptyClipboard();
        const wchar_t text[] = L"\u00C4rger \u0416";  // Ä fits the code page, Zhe does not
        HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, sizeof text);
        memcpy(GlobalLock(block), text, sizeof text);
        GlobalUnlock(block);
        EXPECT_NE(SetClipboardData(CF_UNICODETEXT, block), nullptr);
        CloseClipboard();
    }
    CString back;
    EXPECT_TRUE(CClipboardOperation::GetTextFromClipboard(back));
    EXPECT_STREQ(back, "Ärger ?");

    ASSERT_TRUE(OpenClipboard(nullptr));
    EmptyClipboard();
    CloseClipboard();
    back = "alt";
    EXPECT_FALSE(CClipboardOperation::GetTextFromClipboard(back));
    EXPECT_STREQ(back, "");
}

TEST(ClipboardFileName, ExplorerGetsTheFullPathToCopy)
{
    TempFolder folder;
    const CString path = folder / "Strand 2023.jpg";
    ASSERT_TRUE(files_test::WriteText(path, "x"));

    ASSERT_TRUE(CClipboardOperation::CopyFileNameToClipBoard(path));
    {
        ReadClipboard clipboard;
        ASSERT_TRUE(clipboard.IsOpen());
        HDROP drop = static_cast<HDROP>(GetClipboardData(CF_HDROP));
        ASSERT_NE(drop, nullptr);
        EXPECT_EQ(DragQueryFileA(drop, 0xFFFFFFFF, nullptr, 0), 1u);
        char name[MAX_PATH] = {};
        DragQueryFileA(drop, 0, name, MAX_PATH);
        EXPECT_STREQ(name, path);

        HANDLE effect = GetClipboardData(RegisterClipboardFormatA("Preferred DropEffect"));
        ASSERT_NE(effect, nullptr);
        EXPECT_EQ(*static_cast<const DWORD*>(GlobalLock(effect)), static_cast<DWORD>(DROPEFFECT_COPY));
        GlobalUnlock(effect);
    }
    CString text;
    EXPECT_TRUE(CClipboardOperation::GetTextFromClipboard(text));
    EXPECT_STREQ(text, path);
}

TEST(ClipboardFileName, RelativeNamesBecomeFullAndMissingOnesAreRefused)
{
    TempFolder folder;
    ASSERT_TRUE(files_test::WriteText(folder / "rel.txt", "x"));
    char previous[MAX_PATH] = {};
    GetCurrentDirectoryA(MAX_PATH, previous);
    ASSERT_TRUE(SetCurrentDirectoryA(folder.Path()));
    const BOOL copied = CClipboardOperation::CopyFileNameToClipBoard("  rel.txt ");
    SetCurrentDirectoryA(previous);
    ASSERT_TRUE(copied);
    CString text;
    EXPECT_TRUE(CClipboardOperation::GetTextFromClipboard(text));
    EXPECT_STREQ(text, folder / "rel.txt");

    ASSERT_TRUE(CClipboardOperation::CopyTextToClipboard("bleibt"));
    EXPECT_FALSE(CClipboardOperation::CopyFileNameToClipBoard(folder / "fehlt.txt"));
    EXPECT_FALSE(CClipboardOperation::CopyFileNameToClipBoard(""));
    EXPECT_EQ(UnicodeText(), L"bleibt");
}

TEST(ClipboardPicture, PixelsArriveAsA24BitDibAndABitmap)
{
    TempFolder folder;
    struct
    {
        const char* name;
        std::vector<BYTE> bytes;
        int width;
        int height;
        COLORREF topLeft;
        COLORREF bottomRight;
    } cases[] = {
        {"klein.bmp", SmallBmp(), 3, 2, RGB(255, 0, 0), RGB(128, 128, 128)},
        {"grau.jpg", picture_test::kGrey8Jpeg, 8, 8, RGB(128, 128, 128), RGB(128, 128, 128)},
        {"bunt.png", kSmallPng, 2, 2, RGB(255, 0, 0), RGB(255, 255, 255)},
        {"rot.gif", kRedGif, 1, 1, RGB(255, 0, 0), RGB(255, 0, 0)},
        {"png mit falscher endung.jpg", kSmallPng, 2, 2, RGB(255, 0, 0), RGB(255, 255, 255)},
    };
    for (auto& c : cases) {
        const CString path = folder / c.name;
        ASSERT_TRUE(WriteBytes(path, c.bytes));
        ASSERT_TRUE(CClipboardOperation::CopyPictureContentToClipBoard(path)) << c.name;
        DibCopy dib;
        ASSERT_TRUE(ReadDib(dib)) << c.name;
        EXPECT_EQ(dib.header.biWidth, c.width) << c.name;
        EXPECT_EQ(dib.header.biHeight, c.height) << c.name;
        EXPECT_EQ(dib.header.biBitCount, 24) << c.name;
        EXPECT_TRUE(Near(dib.Pixel(0, 0), c.topLeft, 2)) << c.name << " " << std::hex << dib.Pixel(0, 0);
        EXPECT_TRUE(Near(dib.Pixel(c.width - 1, c.height - 1), c.bottomRight, 2)) << c.name;
        SIZE size = {};
        EXPECT_TRUE(BitmapSize(size)) << c.name;
        EXPECT_EQ(size.cx, c.width) << c.name;
        EXPECT_EQ(size.cy, c.height) << c.name;
    }
}

TEST(ClipboardPicture, MissingOrBrokenPicturesLeaveTheClipboardAlone)
{
    TempFolder folder;
    ASSERT_TRUE(files_test::WriteText(folder / "kaputt.jpg", "kein Bild"));
    const std::vector<BYTE> bmp = SmallBmp();
    ASSERT_TRUE(WriteBytes(folder / "kaputt.bmp", std::vector<BYTE>(bmp.begin(), bmp.begin() + 20)));
    ASSERT_TRUE(WriteBytes(folder / "leer.png", {}));
    ASSERT_TRUE(CClipboardOperation::CopyTextToClipboard("bleibt"));

    const CString names[] = {folder / "fehlt.jpg", folder / "kaputt.jpg", folder / "kaputt.bmp",
                             folder / "leer.png",  folder.Path(),         CString()};
    for (const CString& name : names)
        EXPECT_FALSE(CClipboardOperation::CopyPictureContentToClipBoard(name)) << name.GetString();
    EXPECT_EQ(UnicodeText(), L"bleibt");
}
#endif
