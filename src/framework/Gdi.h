// Small owners of GDI handles: every handle is released on every path.
// Stock objects are never owned.
#pragma once

#include <windows.h>

// Owns a font, brush, pen or bitmap and deletes it.
template <typename Handle>
class GdiObject {
  public:
    explicit GdiObject(Handle handle) : handle_(handle) {}
    ~GdiObject() {
        if (handle_ != nullptr) DeleteObject(handle_);
    }
    GdiObject(const GdiObject&) = delete;
    GdiObject& operator=(const GdiObject&) = delete;

    Handle get() const { return handle_; }
    explicit operator bool() const { return handle_ != nullptr; }

  private:
    Handle handle_;
};

// A window's client-area device context from GetDC, released afterwards.
class WindowDC {
  public:
    explicit WindowDC(HWND hwnd) : hwnd_(hwnd), dc_(GetDC(hwnd)) {}
    ~WindowDC() {
        if (dc_ != nullptr) ReleaseDC(hwnd_, dc_);
    }
    WindowDC(const WindowDC&) = delete;
    WindowDC& operator=(const WindowDC&) = delete;

    HDC get() const { return dc_; }
    explicit operator bool() const { return dc_ != nullptr; }

  private:
    HWND hwnd_;
    HDC dc_;
};

// Selects an object into a device context and puts the previous one back.
class SelectedObject {
  public:
    SelectedObject(HDC dc, HGDIOBJ object) : dc_(dc), previous_(SelectObject(dc, object)) {}
    ~SelectedObject() {
        if (previous_ != nullptr) SelectObject(dc_, previous_);
    }
    SelectedObject(const SelectedObject&) = delete;
    SelectedObject& operator=(const SelectedObject&) = delete;

  private:
    HDC dc_;
    HGDIOBJ previous_;
};

// Fills `rect` with a solid color through a brush of its own.
inline void FillSolid(HDC dc, const RECT& rect, COLORREF color) {
    GdiObject<HBRUSH> brush(CreateSolidBrush(color));
    if (brush) FillRect(dc, &rect, brush.get());
}

inline void FrameSolid(HDC dc, const RECT& rect, COLORREF color) {
    GdiObject<HBRUSH> brush(CreateSolidBrush(color));
    if (brush) FrameRect(dc, &rect, brush.get());
}
