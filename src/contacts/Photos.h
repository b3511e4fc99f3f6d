#pragma once
// Contact photos and image files on the Windows Imaging Component: the process's one imaging
// factory, a picture stream decoded at its fitted size, and an image turned into a bottom-up DIB
// section. JPEG, PNG, GIF and BMP all decode. Every failure gives no bitmap.

#include <wincodec.h>
#include <windows.h>

#include "contacts/ContactsStore.h"

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

/// Decodes a picture stream. With a fit mode (PhotoFit.h) and a box, the image is fitted into
/// the box and the decoder scales it to exactly that size; otherwise it keeps its own size.
/// Returns a new reference the caller releases, or null.
IWICBitmapSource* DecodePictureStream(ImagingFactory& factory, ContactsStream* stream, int mode,
                                      int boxWidth, int boxHeight);

/// Draws an image into a new bottom-up DIB section of its size, at `bitsPerPixel` (the screen's
/// depth when 0) but at least 16. The caller deletes the bitmap; null on failure.
HBITMAP ImageToBitmap(IWICBitmapSource* image, int bitsPerPixel = 0);

/// Decodes an image file at its own size into a bitmap (as ImageToBitmap); null on failure.
HBITMAP DecodeImageFile(ImagingFactory& factory, const wchar_t* path);

/// A contact's picture stream decoded to a bitmap covering width x height; null on failure.
HBITMAP DecodePictureToBitmap(ContactsStream& stream, int width, int height);
