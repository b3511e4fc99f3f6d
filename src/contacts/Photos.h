#pragma once
// Contact photos: a contact's picture stream decoded by the imaging layer at its fitted size.
// Every failure gives no bitmap.

#include "contacts/ContactsStore.h"
#include "win/Imaging.h"

/// Decodes a picture stream. With a fit mode (base/PhotoFit.h) and a box, the image is fitted into
/// the box and the decoder scales it to exactly that size; otherwise it keeps its own size.
/// Returns a new reference the caller releases, or null.
IWICBitmapSource* DecodePictureStream(ImagingFactory& factory, ContactsStream* stream, int mode,
                                      int boxWidth, int boxHeight);

/// A contact's picture stream decoded to a bitmap covering width x height; null on failure.
HBITMAP DecodePictureToBitmap(ContactsStream& stream, int width, int height);
