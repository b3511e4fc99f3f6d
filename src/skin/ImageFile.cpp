#include "skin/ImageFile.h"

#include <wincodec.h>

namespace {

/// Releases a COM pointer at the end of its scope.
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
    T** operator&() { return &p_; }
    T* operator->() const { return p_; }
    T* get() const { return p_; }

  private:
    T* p_ = nullptr;
};

IWICImagingFactory* Factory() {
    // One factory for the process, made on first use on the user-interface thread.
    static IWICImagingFactory* factory = [] {
        CoInitializeEx(nullptr, COINIT_MULTITHREADED);
        IWICImagingFactory* made = nullptr;
        if (FAILED(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                    IID_PPV_ARGS(&made)))) {
            return static_cast<IWICImagingFactory*>(nullptr);
        }
        return made;
    }();
    return factory;
}

HBITMAP ToDibSection(IWICBitmapSource* source, UINT width, UINT height) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
    info.bmiHeader.biWidth = static_cast<LONG>(width);
    info.bmiHeader.biHeight = -static_cast<LONG>(height);
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 24;
    info.bmiHeader.biCompression = BI_RGB;
    void* bits = nullptr;
    HBITMAP bitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    if (bitmap == nullptr)
        return nullptr;
    const UINT stride = (width * 3 + 3) & ~3u;
    if (FAILED(source->CopyPixels(nullptr, stride, stride * height, static_cast<BYTE*>(bits)))) {
        DeleteObject(bitmap);
        return nullptr;
    }
    return bitmap;
}

}  // namespace

HBITMAP DecodeImageFileToBitmap(const wchar_t* path) {
    IWICImagingFactory* factory = Factory();
    if (factory == nullptr || path == nullptr)
        return nullptr;
    if (GetFileAttributesW(path) == INVALID_FILE_ATTRIBUTES)
        return nullptr;
    ComPtr<IWICBitmapDecoder> decoder;
    if (FAILED(factory->CreateDecoderFromFilename(path, nullptr, GENERIC_READ,
                                                  WICDecodeMetadataCacheOnDemand, &decoder))) {
        return nullptr;
    }
    ComPtr<IWICBitmapFrameDecode> frame;
    if (FAILED(decoder->GetFrame(0, &frame)))
        return nullptr;
    UINT width = 0;
    UINT height = 0;
    if (FAILED(frame->GetSize(&width, &height)) || width == 0 || height == 0)
        return nullptr;
    ComPtr<IWICFormatConverter> converter;
    if (FAILED(factory->CreateFormatConverter(&converter)))
        return nullptr;
    if (FAILED(converter->Initialize(frame.get(), GUID_WICPixelFormat24bppBGR,
                                     WICBitmapDitherTypeNone, nullptr, 0.0,
                                     WICBitmapPaletteTypeCustom))) {
        return nullptr;
    }
    return ToDibSection(converter.get(), width, height);
}
