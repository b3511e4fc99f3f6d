#pragma once
// Screenshots of windows for the run command and the end-to-end tests: what a person would see
// of a window, captured from the screen and saved as PNG.

#include <windows.h>

#include <cstdint>
#include <vector>

namespace shot {

/// A captured image: top-down rows of 32-bit pixels (blue, green, red, unused).
struct Image {
    int width = 0;
    int height = 0;
    std::vector<uint32_t> pixels;
    /// The pixel at (x, y) as a colour reference (red in the low byte); 0xFFFFFFFF outside.
    COLORREF At(int x, int y) const;
};

/// A 32-bit top-down bitmap selected into its own memory device context: draw into Dc(), then
/// read the pixels back. When no bitmap can be made, Dc() is null and Snapshot() is empty.
class Canvas {
  public:
    Canvas(int width, int height);
    ~Canvas();
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;
    HDC Dc() const { return dc_; }
    /// The pixels drawn so far.
    Image Snapshot() const;

  private:
    int width_;
    int height_;
    HDC dc_ = nullptr;
    HBITMAP bitmap_ = nullptr;
    HGDIOBJ previous_ = nullptr;
    void* bits_ = nullptr;
};

/// The window's client area in screen coordinates.
RECT ClientOnScreen(HWND window);
/// Captures a screen rectangle; false when the screen cannot be read.
bool CaptureScreen(const RECT& area, Image& out);
/// Captures the window's client area as it shows on screen.
bool CaptureClient(HWND window, Image& out);
/// Saves the image as a PNG file (Windows Imaging Component); false on any failure.
bool SavePng(const Image& image, const wchar_t* path);

}  // namespace shot
