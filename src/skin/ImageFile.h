#pragma once
// Decodes an image file (BMP, PNG, JPEG, GIF) into a device-independent bitmap at its own size,
// through the Windows Imaging Component. Skin bitmaps dropped into the skin folder come this way.

#include <windows.h>

/// The image at `path` as a new 24-bit top-down DIB section the caller deletes; null when the
/// file is missing or does not decode.
HBITMAP DecodeImageFileToBitmap(const wchar_t* path);
