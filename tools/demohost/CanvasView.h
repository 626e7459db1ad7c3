// The child window that shows the document: the picture centred, scaled
// down to fit the window (never up), and the selected part's outline over
// it, drawn on the screen only. A click selects the part under the pointer;
// keys go through the host's accelerators.
#pragma once

#include <windows.h>

#include <vector>

#include "PaintDocument.h"

namespace demohost {

class CanvasView {
  public:
    // Sent to the parent as WM_COMMAND (MAKEWPARAM(id, kSelected), canvas)
    // after a click changed the selection.
    static const WORD kSelected = 1;

    CanvasView(PaintDocument* document, HACCEL accelerators)
        : document_(document), accelerators_(accelerators) {}
    CanvasView(const CanvasView&) = delete;
    CanvasView& operator=(const CanvasView&) = delete;

    HWND Create(HWND parent, int id);
    HWND hwnd() const { return hwnd_; }

    // The selection or the whole picture changed: outline and repaint.
    void SelectionChanged();
    void PictureChanged();
    // The pixels of `box` changed: repaints them before returning.
    void Repaint(const Box& box);

    // The picture pixel under a client point, false outside the picture.
    bool PixelAt(POINT client, int* x, int* y) const;
    // Where the picture pixel (x, y) lies in the client area (its centre).
    POINT ClientPointOf(int x, int y) const;
    // Percent of the picture's size it is shown at.
    int ZoomPercent() const;

  private:
    static LRESULT CALLBACK Proc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam);
    LRESULT Handle(UINT msg, WPARAM wParam, LPARAM lParam);
    void Layout();
    void Paint(HDC dc, const RECT& area);
    RECT ClientRectOf(const Box& box) const;

    PaintDocument* document_;
    HACCEL accelerators_;
    HWND hwnd_ = nullptr;
    int id_ = 0;
    // The picture's place in the client area: origin of its top-left
    // corner and the scale, in client pixels per picture pixel.
    int originX_ = 0, originY_ = 0;
    double scale_ = 1.0;
    std::vector<Segment> outline_;
};

}  // namespace demohost
