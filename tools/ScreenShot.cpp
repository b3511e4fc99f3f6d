#include "ScreenShot.h"

#include <objbase.h>
#include <wincodec.h>

namespace shot {
namespace {

// Releases a COM interface at the end of the scope.
template <typename T>
class ComPtr {
  public:
    ComPtr() = default;
    ~ComPtr() {
        if (p_ != nullptr)
            p_->Release();
    }
    ComPtr(const ComPtr&) = delete;
    ComPtr& operator=(const ComPtr&) = delete;
    T* operator->() const { return p_; }
    T* get() const { return p_; }
    T** out() { return &p_; }

  private:
    T* p_ = nullptr;
};

// Initialises COM for the scope when the thread has not done so.
class ComScope {
  public:
    ComScope() : initialised_(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {}
    ~ComScope() {
        if (initialised_)
            CoUninitialize();
    }
    ComScope(const ComScope&) = delete;
    ComScope& operator=(const ComScope&) = delete;

  private:
    bool initialised_;
};

bool Encode(IWICImagingFactory* factory, const Image& image, const wchar_t* path) {
    ComPtr<IWICStream> stream;
    ComPtr<IWICBitmapEncoder> encoder;
    ComPtr<IWICBitmapFrameEncode> frame;
    if (FAILED(factory->CreateStream(stream.out())) ||
        FAILED(stream->InitializeFromFilename(path, GENERIC_WRITE)) ||
        FAILED(factory->CreateEncoder(GUID_ContainerFormatPng, nullptr, encoder.out())) ||
        FAILED(encoder->Initialize(stream.get(), WICBitmapEncoderNoCache)) ||
        FAILED(encoder->CreateNewFrame(frame.out(), nullptr)) ||
        FAILED(frame->Initialize(nullptr)) ||
        FAILED(frame->SetSize(static_cast<UINT>(image.width), static_cast<UINT>(image.height)))) {
        return false;
    }
    WICPixelFormatGUID format = GUID_WICPixelFormat32bppBGR;
    if (FAILED(frame->SetPixelFormat(&format)))
        return false;
    UINT stride = static_cast<UINT>(image.width) * 4;
    UINT bytes = stride * static_cast<UINT>(image.height);
    auto* data = reinterpret_cast<BYTE*>(const_cast<uint32_t*>(image.pixels.data()));
    if (!IsEqualGUID(format, GUID_WICPixelFormat32bppBGR)) {
        ComPtr<IWICBitmap> bitmap;
        ComPtr<IWICFormatConverter> converter;
        if (FAILED(factory->CreateBitmapFromMemory(
                static_cast<UINT>(image.width), static_cast<UINT>(image.height),
                GUID_WICPixelFormat32bppBGR, stride, bytes, data, bitmap.out())) ||
            FAILED(factory->CreateFormatConverter(converter.out())) ||
            FAILED(converter->Initialize(bitmap.get(), format, WICBitmapDitherTypeNone, nullptr,
                                         0.0, WICBitmapPaletteTypeCustom)) ||
            FAILED(frame->WriteSource(converter.get(), nullptr))) {
            return false;
        }
    } else if (FAILED(frame->WritePixels(static_cast<UINT>(image.height), stride, bytes, data))) {
        return false;
    }
    return SUCCEEDED(frame->Commit()) && SUCCEEDED(encoder->Commit());
}

}  // namespace

COLORREF Image::At(int x, int y) const {
    if (x < 0 || y < 0 || x >= width || y >= height)
        return 0xFFFFFFFF;
    uint32_t bgr = pixels[static_cast<size_t>(y) * static_cast<size_t>(width) + x];
    return RGB((bgr >> 16) & 0xFF, (bgr >> 8) & 0xFF, bgr & 0xFF);
}

RECT ClientOnScreen(HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&client), 2);
    return client;
}

Canvas::Canvas(int width, int height) : width_(width), height_(height) {
    if (width <= 0 || height <= 0)
        return;
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    bitmap_ = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits_, nullptr, 0);
    if (bitmap_ == nullptr)
        return;
    dc_ = CreateCompatibleDC(nullptr);
    if (dc_ != nullptr)
        previous_ = SelectObject(dc_, bitmap_);
}

Canvas::~Canvas() {
    if (dc_ != nullptr) {
        SelectObject(dc_, previous_);
        DeleteDC(dc_);
    }
    if (bitmap_ != nullptr)
        DeleteObject(bitmap_);
}

Image Canvas::Snapshot() const {
    Image image;
    if (dc_ == nullptr)
        return image;
    GdiFlush();
    const auto* first = static_cast<const uint32_t*>(bits_);
    image.width = width_;
    image.height = height_;
    image.pixels.assign(first, first + static_cast<size_t>(width_) * static_cast<size_t>(height_));
    return image;
}

bool CaptureScreen(const RECT& area, Image& out) {
    const int width = area.right - area.left;
    const int height = area.bottom - area.top;
    Canvas canvas(width, height);
    HDC screen = GetDC(nullptr);
    if (screen == nullptr)
        return false;
    const bool copied = canvas.Dc() != nullptr && BitBlt(canvas.Dc(), 0, 0, width, height, screen,
                                                         area.left, area.top, SRCCOPY) != 0;
    ReleaseDC(nullptr, screen);
    if (copied)
        out = canvas.Snapshot();
    return copied;
}

bool CaptureClient(HWND window, Image& out) {
    return CaptureScreen(ClientOnScreen(window), out);
}

bool SavePng(const Image& image, const wchar_t* path) {
    if (image.width <= 0 || image.height <= 0)
        return false;
    ComScope com;
    ComPtr<IWICImagingFactory> factory;
    if (FAILED(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                IID_PPV_ARGS(factory.out())))) {
        return false;
    }
    return Encode(factory.get(), image, path);
}

}  // namespace shot
