#include "win/Imaging.h"

#include <shlwapi.h>

#include <cstring>
#include <vector>

#include "base/PhotoFit.h"
#include "win/ComRef.h"
#include "win/Gdi.h"

namespace {

int ScreenBitsPerPixel() {
    HDC screen = GetDC(nullptr);
    int bits = GetDeviceCaps(screen, BITSPIXEL) * GetDeviceCaps(screen, PLANES);
    ReleaseDC(nullptr, screen);
    return bits;
}

/// The section's depth: the screen's, at least 16, as one of the uncompressed RGB depths.
int SectionDepth(int bitsPerPixel) {
    if (bitsPerPixel <= 16)
        return 16;
    return bitsPerPixel <= 24 ? 24 : 32;
}

/// Writes one pixel of premultiplied BGRA over white into a section row at the section's depth.
void PutPixel(uint8_t* row, int x, int depth, const uint8_t* bgra) {
    uint8_t white = static_cast<uint8_t>(255 - bgra[3]);
    uint8_t b = static_cast<uint8_t>(bgra[0] + white);
    uint8_t g = static_cast<uint8_t>(bgra[1] + white);
    uint8_t r = static_cast<uint8_t>(bgra[2] + white);
    if (depth == 16) {
        uint16_t value = static_cast<uint16_t>(((r >> 3) << 10) | ((g >> 3) << 5) | (b >> 3));
        std::memcpy(row + 2 * x, &value, 2);
    } else {
        uint8_t* pixel = row + (depth / 8) * x;
        pixel[0] = b;
        pixel[1] = g;
        pixel[2] = r;
        if (depth == 32)
            pixel[3] = 0;
    }
}

/// Fills a bottom-up section with the image, transparent parts over white.
bool FillSection(IWICBitmapSource* image, UINT width, UINT height, int depth, uint8_t* bits) {
    IWICImagingFactory* factory = GetImagingFactory().Get();
    ComRef<IWICFormatConverter> converter;
    if (factory == nullptr || FAILED(factory->CreateFormatConverter(converter.Out())) ||
        FAILED(converter->Initialize(image, GUID_WICPixelFormat32bppPBGRA, WICBitmapDitherTypeNone,
                                     nullptr, 0.0, WICBitmapPaletteTypeCustom))) {
        return false;
    }
    UINT sourceStride = width * 4;
    std::vector<uint8_t> pixels(static_cast<size_t>(sourceStride) * height);
    if (FAILED(converter->CopyPixels(nullptr, sourceStride, static_cast<UINT>(pixels.size()),
                                     pixels.data()))) {
        return false;
    }
    size_t stride = ((static_cast<size_t>(width) * depth + 31) / 32) * 4;
    for (UINT y = 0; y < height; ++y) {
        uint8_t* row = bits + stride * (height - 1 - y);  // bottom-up: the last row comes first
        for (UINT x = 0; x < width; ++x) {
            PutPixel(row, static_cast<int>(x), depth, &pixels[y * sourceStride + 4 * x]);
        }
    }
    return true;
}

}  // namespace

ImagingFactory::ImagingFactory() {
    CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    if (FAILED(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                IID_PPV_ARGS(&factory_)))) {
        factory_ = nullptr;
    }
}

ImagingFactory& GetImagingFactory() {
    // Kept until the process ends: releasing it at exit could come after COM is gone.
    static ImagingFactory* holder = new ImagingFactory();
    return *holder;
}

IWICBitmapSource* DecodeImageBytes(ImagingFactory& factory, const uint8_t* bytes, size_t size,
                                   int mode, int boxWidth, int boxHeight) {
    if (factory.Get() == nullptr || bytes == nullptr || size == 0 || size > 0x7FFFFFFF)
        return nullptr;
    ComRef<IStream> memory;
    *memory.Out() = SHCreateMemStream(bytes, static_cast<UINT>(size));
    ComRef<IWICBitmapDecoder> decoder;
    ComRef<IWICBitmapFrameDecode> frame;
    UINT width = 0;
    UINT height = 0;
    if (!memory ||
        FAILED(factory.Get()->CreateDecoderFromStream(
            memory.Get(), nullptr, WICDecodeMetadataCacheOnDemand, decoder.Out())) ||
        FAILED(decoder->GetFrame(0, frame.Out())) || FAILED(frame->GetSize(&width, &height)) ||
        width == 0 || height == 0) {
        return nullptr;
    }
    if (mode == 0 || boxWidth <= 0 || boxHeight <= 0)
        return frame.Detach();
    int fittedWidth = static_cast<int>(width);
    int fittedHeight = static_cast<int>(height);
    FitSize(mode, boxWidth, boxHeight, fittedWidth, fittedHeight);
    ComRef<IWICBitmapScaler> scaler;
    if (fittedWidth <= 0 || fittedHeight <= 0 ||
        FAILED(factory.Get()->CreateBitmapScaler(scaler.Out())) ||
        FAILED(scaler->Initialize(frame.Get(), static_cast<UINT>(fittedWidth),
                                  static_cast<UINT>(fittedHeight),
                                  WICBitmapInterpolationModeFant))) {
        return nullptr;
    }
    return scaler.Detach();
}

HBITMAP ImageToBitmap(IWICBitmapSource* image, int bitsPerPixel) {
    UINT width = 0;
    UINT height = 0;
    if (image == nullptr || FAILED(image->GetSize(&width, &height)) || width == 0 || height == 0 ||
        width > 0x7FFF || height > 0x7FFF) {
        return nullptr;
    }
    int depth = SectionDepth(bitsPerPixel != 0 ? bitsPerPixel : ScreenBitsPerPixel());
    gdi::MemoryDc dc;
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
    info.bmiHeader.biWidth = static_cast<LONG>(width);
    info.bmiHeader.biHeight = static_cast<LONG>(height);  // positive: bottom-up rows
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = static_cast<WORD>(depth);
    info.bmiHeader.biCompression = BI_RGB;
    void* bits = nullptr;
    HBITMAP section = CreateDIBSection(dc.Get(), &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    if (section == nullptr)
        return nullptr;
    HGDIOBJ previous = SelectObject(dc.Get(), section);
    GdiFlush();
    bool drawn = FillSection(image, width, height, depth, static_cast<uint8_t*>(bits));
    SelectObject(dc.Get(), previous);
    if (!drawn) {
        DeleteObject(section);
        return nullptr;
    }
    return section;
}

HBITMAP DecodeImageFile(ImagingFactory& factory, const wchar_t* path) {
    if (factory.Get() == nullptr || path == nullptr)
        return nullptr;
    ComRef<IWICBitmapDecoder> decoder;
    ComRef<IWICBitmapFrameDecode> frame;
    UINT width = 0;
    UINT height = 0;
    if (FAILED(factory.Get()->CreateDecoderFromFilename(
            path, nullptr, GENERIC_READ, WICDecodeMetadataCacheOnDemand, decoder.Out())) ||
        FAILED(decoder->GetFrame(0, frame.Out())) || FAILED(frame->GetSize(&width, &height)) ||
        width == 0 || height == 0) {
        return nullptr;
    }
    return ImageToBitmap(frame.Get());
}
