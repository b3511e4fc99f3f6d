#pragma once
// Small owners for GDI resources, so every object, selection and device context is released by
// the function or object that made it.

#include <windows.h>

namespace gdi {

/// Owns one GDI object (pen, brush, font, bitmap, region); deletes it on destruction.
template <typename Handle>
class Object {
  public:
    explicit Object(Handle handle = nullptr) : handle_(handle) {}
    ~Object() { Reset(); }
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;
    /// Ownership moves; the source is left empty, so one object never has two owners.
    Object(Object&& other) noexcept : handle_(other.Release()) {}
    Object& operator=(Object&& other) noexcept {
        if (this != &other)
            Reset(other.Release());
        return *this;
    }
    Handle get() const { return handle_; }
    /// Gives up ownership: the caller deletes the returned object.
    Handle Release() {
        Handle handle = handle_;
        handle_ = nullptr;
        return handle;
    }
    explicit operator bool() const { return handle_ != nullptr; }
    /// Deletes the held object and takes `handle` instead.
    void Reset(Handle handle = nullptr) {
        if (handle_ != nullptr)
            DeleteObject(handle_);
        handle_ = handle;
    }

  private:
    Handle handle_;
};

/// Owns a memory device context (CreateCompatibleDC) compatible with `target`, or with the
/// screen when target is null; Get() is null when none could be made.
class MemoryDc {
  public:
    explicit MemoryDc(HDC target = nullptr);
    ~MemoryDc();
    MemoryDc(const MemoryDc&) = delete;
    MemoryDc& operator=(const MemoryDc&) = delete;
    HDC Get() const { return dc_; }

  private:
    HDC dc_;
};

/// Selects an object into a device context for the scope and restores the previous one.
class Selection {
  public:
    Selection(HDC dc, HGDIOBJ object) : dc_(dc), previous_(SelectObject(dc, object)) {}
    ~Selection() { SelectObject(dc_, previous_); }
    Selection(const Selection&) = delete;
    Selection& operator=(const Selection&) = delete;

  private:
    HDC dc_;
    HGDIOBJ previous_;
};

/// An off-screen surface for one rectangle of a target device context: draw into Dc() in the
/// target's own coordinates, then Present() copies the rectangle to the target. When no surface
/// can be made, Dc() is the target itself and Present() does nothing.
class OffscreenBuffer {
  public:
    OffscreenBuffer(HDC target, const RECT& rect);
    ~OffscreenBuffer();
    OffscreenBuffer(const OffscreenBuffer&) = delete;
    OffscreenBuffer& operator=(const OffscreenBuffer&) = delete;
    HDC Dc() const { return dc_ != nullptr ? dc_ : target_; }
    void Present() const;

  private:
    HDC target_;
    RECT rect_;
    HDC dc_ = nullptr;
    HBITMAP bitmap_ = nullptr;
    HGDIOBJ previous_ = nullptr;
};

/// Answers WM_PAINT for `window` through one off-screen bitmap of its whole client area, so
/// nothing flickers: `paint(dc, dirty)` draws into the bitmap in client coordinates.
template <typename PaintFn>
void PaintBuffered(HWND window, PaintFn paint) {
    PAINTSTRUCT ps;
    HDC dc = BeginPaint(window, &ps);
    RECT client;
    GetClientRect(window, &client);
    {
        OffscreenBuffer buffer(dc, client);
        paint(buffer.Dc(), ps.rcPaint);
        buffer.Present();
    }
    EndPaint(window, &ps);
}

/// Fills rect with one colour (a colour reference: red in the low byte).
void FillSolid(HDC dc, const RECT& rect, COLORREF colour);

}  // namespace gdi
