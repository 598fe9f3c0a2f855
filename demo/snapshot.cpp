#include "snapshot.h"

#include <wincodec.h>

#include <cstring>
#include <string>
#include <vector>

namespace {

// Releases a COM interface at the end of a scope.
template <class T>
struct ComPtr
{
    T* p = nullptr;
    ~ComPtr()
    {
        if (p)
            p->Release();
    }
    T** operator&() { return &p; }
    T* operator->() const { return p; }
};

// Copies the window's screen image into top-down 24-bit BGR rows.
bool captureWindow(HWND wnd, int& width, int& height, std::vector<BYTE>& rows, UINT& stride)
{
    RECT rc;
    if (!IsWindowVisible(wnd) || !GetWindowRect(wnd, &rc))
        return false;
    width = rc.right - rc.left;
    height = rc.bottom - rc.top;
    if (width <= 0 || height <= 0)
        return false;

    RedrawWindow(wnd, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME | RDW_ERASE | RDW_UPDATENOW | RDW_ALLCHILDREN);

    BITMAPINFO bi = {};
    bi.bmiHeader.biSize = sizeof(bi.bmiHeader);
    bi.bmiHeader.biWidth = width;
    bi.bmiHeader.biHeight = -height;  // top-down
    bi.bmiHeader.biPlanes = 1;
    bi.bmiHeader.biBitCount = 24;
    bi.bmiHeader.biCompression = BI_RGB;
    void* bits = nullptr;
    HDC windowDc = GetWindowDC(wnd);
    HDC memDc = CreateCompatibleDC(windowDc);
    HBITMAP dib = CreateDIBSection(windowDc, &bi, DIB_RGB_COLORS, &bits, nullptr, 0);
    bool ok = false;
    if (memDc && dib && bits) {
        HGDIOBJ old = SelectObject(memDc, dib);
        ok = BitBlt(memDc, 0, 0, width, height, windowDc, 0, 0, SRCCOPY) != FALSE;
        GdiFlush();
        SelectObject(memDc, old);
        stride = static_cast<UINT>((width * 3 + 3) & ~3);
        rows.assign(static_cast<const BYTE*>(bits),
                    static_cast<const BYTE*>(bits) + static_cast<size_t>(stride) * height);
    }
    if (dib)
        DeleteObject(dib);
    if (memDc)
        DeleteDC(memDc);
    ReleaseDC(wnd, windowDc);
    return ok;
}

std::wstring widen(const char* text)
{
    const int n = MultiByteToWideChar(CP_ACP, 0, text, -1, nullptr, 0);
    std::wstring w(n > 0 ? n - 1 : 0, L'\0');
    if (n > 1)
        MultiByteToWideChar(CP_ACP, 0, text, -1, w.data(), n);
    return w;
}

// A capture of one colour only means the window was not on screen.
bool isUniform(const std::vector<BYTE>& rows, int width, int height, UINT stride)
{
    const BYTE* first = rows.data();
    for (int y = 0; y < height; ++y) {
        const BYTE* row = rows.data() + static_cast<size_t>(y) * stride;
        for (int x = 0; x < width; ++x)
            if (std::memcmp(row + 3 * x, first, 3) != 0)
                return false;
    }
    return true;
}

}  // namespace

bool SnapshotWindowToPng(HWND wnd, const char* path)
{
    int width = 0, height = 0;
    UINT stride = 0;
    std::vector<BYTE> rows;
    if (!captureWindow(wnd, width, height, rows, stride) || isUniform(rows, width, height, stride))
        return false;

    const HRESULT init = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    bool ok = false;
    {
        ComPtr<IWICImagingFactory> factory;
        ComPtr<IWICStream> stream;
        ComPtr<IWICBitmapEncoder> encoder;
        ComPtr<IWICBitmapFrameEncode> frame;
        WICPixelFormatGUID format = GUID_WICPixelFormat24bppBGR;
        ok = SUCCEEDED(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, IID_IWICImagingFactory,
                                        reinterpret_cast<void**>(&factory))) &&
             SUCCEEDED(factory->CreateStream(&stream)) &&
             SUCCEEDED(stream->InitializeFromFilename(widen(path).c_str(), GENERIC_WRITE)) &&
             SUCCEEDED(factory->CreateEncoder(GUID_ContainerFormatPng, nullptr, &encoder)) &&
             SUCCEEDED(encoder->Initialize(stream.p, WICBitmapEncoderNoCache)) &&
             SUCCEEDED(encoder->CreateNewFrame(&frame, nullptr)) && SUCCEEDED(frame->Initialize(nullptr)) &&
             SUCCEEDED(frame->SetSize(width, height)) && SUCCEEDED(frame->SetPixelFormat(&format)) &&
             IsEqualGUID(format, GUID_WICPixelFormat24bppBGR) &&
             SUCCEEDED(frame->WritePixels(height, stride, static_cast<UINT>(rows.size()), rows.data())) &&
             SUCCEEDED(frame->Commit()) && SUCCEEDED(encoder->Commit());
    }
    if (SUCCEEDED(init))
        CoUninitialize();
    return ok;
}
