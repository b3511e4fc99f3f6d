#include "contacts/Photos.h"

#include <vector>

#include "base/PhotoFit.h"

namespace {

/// Reads the whole stream into memory (a decoder reads its stream long after this call).
bool ReadStream(ContactsStream& stream, std::vector<uint8_t>& bytes) {
    uint64_t size = 0;
    if (!stream.Seek(0, ContactsStream::kSeekEnd, &size) ||
        !stream.Seek(0, ContactsStream::kSeekSet, nullptr) || size == 0 || size > 0x7FFFFFFF) {
        return false;
    }
    bytes.resize(static_cast<size_t>(size));
    uint32_t got = 0;
    return stream.Read(bytes.data(), static_cast<uint32_t>(size), &got) && got == size;
}

}  // namespace

IWICBitmapSource* DecodePictureStream(ImagingFactory& factory, ContactsStream* stream, int mode,
                                      int boxWidth, int boxHeight) {
    std::vector<uint8_t> bytes;
    if (factory.Get() == nullptr || stream == nullptr || !ReadStream(*stream, bytes))
        return nullptr;
    return DecodeImageBytes(factory, bytes.data(), bytes.size(), mode, boxWidth, boxHeight);
}

HBITMAP DecodePictureToBitmap(ContactsStream& stream, int width, int height) {
    IWICBitmapSource* image =
        DecodePictureStream(GetImagingFactory(), &stream, kFitCover, width, height);
    if (image == nullptr)
        return nullptr;
    HBITMAP bitmap = ImageToBitmap(image);
    image->Release();
    return bitmap;
}
