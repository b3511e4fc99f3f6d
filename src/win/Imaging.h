#pragma once
// Images on the Windows Imaging Component, for contact photos and skin bitmaps alike: the
// process's one imaging factory, an encoded image decoded (optionally fitted into a box by the
// decoder's scaler), and an image drawn into a bottom-up DIB section. JPEG, PNG, GIF and BMP all
// decode. Every failure gives no image.

#include <wincodec.h>
#include <windows.h>

#include <cstddef>
#include <cstdint>

/// The process's imaging factory, created on first use after initialising COM for the thread;
/// Get() is null when it could not be created.
class ImagingFactory {
  public:
    IWICImagingFactory* Get() const { return factory_; }

  private:
    friend ImagingFactory& GetImagingFactory();
    ImagingFactory();
    IWICImagingFactory* factory_ = nullptr;
};

/// The process's factory holder (never destroyed before the process ends).
ImagingFactory& GetImagingFactory();

/// Decodes an encoded image held in memory. With a fit mode (base/PhotoFit.h) and a box, the
/// image is fitted into the box and the decoder scales it to exactly that size; otherwise it
/// keeps its own size. The bytes need only live for the call. Returns a new reference the caller
/// releases, or null.
IWICBitmapSource* DecodeImageBytes(ImagingFactory& factory, const uint8_t* bytes, size_t size,
                                   int mode, int boxWidth, int boxHeight);

/// Draws an image into a new bottom-up DIB section of its size, at `bitsPerPixel` (the screen's
/// depth when 0) but at least 16. The caller deletes the bitmap; null on failure.
HBITMAP ImageToBitmap(IWICBitmapSource* image, int bitsPerPixel = 0);

/// Decodes an image file at its own size into a bitmap (as ImageToBitmap); null on failure.
HBITMAP DecodeImageFile(ImagingFactory& factory, const wchar_t* path);
