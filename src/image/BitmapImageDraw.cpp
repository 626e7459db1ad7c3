// The bitmap image's drawing operations: the Windows part of the image.
#include <windows.h>

#include <vector>

#include "framework/Gdi.h"
#include "vellcolor/BitmapImage.h"

namespace {

// Deletes a memory device context.
class MemoryDC {
  public:
    explicit MemoryDC(HDC like) : dc_(CreateCompatibleDC(like)) {}
    ~MemoryDC() {
        if (dc_ != nullptr) DeleteDC(dc_);
    }
    MemoryDC(const MemoryDC&) = delete;
    MemoryDC& operator=(const MemoryDC&) = delete;
    HDC get() const { return dc_; }

  private:
    HDC dc_;
};

void UseHalftone(HDC dc) {
    SetStretchBltMode(dc, HALFTONE);
    SetBrushOrgEx(dc, 0, 0, nullptr);  // as halftone stretching requires
}

}  // namespace

HBITMAP BitmapImage::CreateDeviceBitmap(HDC dc) const {
    if (pixels == nullptr || dc == nullptr) return nullptr;
    // The header names paletteCount colors but passes none of the image's:
    // the table is zeros, as long as the header says, so nothing past it is read.
    const int entries = paletteCount > 0 ? paletteCount : 1;
    std::vector<unsigned char> info(sizeof(BITMAPINFOHEADER) + entries * sizeof(RGBQUAD), 0);
    auto* header = reinterpret_cast<BITMAPINFOHEADER*>(info.data());
    header->biSize = sizeof(BITMAPINFOHEADER);
    header->biWidth = width;
    header->biHeight = height;
    header->biPlanes = 1;
    header->biBitCount = static_cast<WORD>(bytesPerPixel * 8);
    header->biCompression = BI_RGB;
    header->biClrUsed = static_cast<DWORD>(paletteCount);
    return CreateDIBitmap(dc, header, CBM_INIT, pixels,
                          reinterpret_cast<const BITMAPINFO*>(info.data()), DIB_RGB_COLORS);
}

void BitmapImage::DrawRegion(HDC dc, int x0, int y0, int x1, int y1) const {
    if (pixels == nullptr || dc == nullptr) return;
    GdiObject<HBITMAP> bitmap(CreateDeviceBitmap(dc));
    MemoryDC memory(dc);
    if (!bitmap || memory.get() == nullptr) return;
    SelectedObject selected(memory.get(), bitmap.get());
    UseHalftone(dc);
    const int top = height - 1 - y1;
    BitBlt(dc, x0, top, x1 - x0 + 1, y1 - y0 + 1, memory.get(), x0, top, SRCCOPY);
}

void BitmapImage::DrawFit(HDC dc, int boxWidth, int boxHeight) const {
    if (pixels == nullptr || dc == nullptr || width <= 0 || boxWidth <= 0) return;
    const float ratio = static_cast<float>(height) / static_cast<float>(width);
    const float boxRatio = static_cast<float>(boxHeight) / static_cast<float>(boxWidth);
    int x = 0, y = 0, w = boxWidth, h = boxHeight;
    if (boxRatio <= ratio) {
        w = static_cast<int>(boxHeight / ratio);
        x = (boxWidth - w) / 2;
    } else {
        h = static_cast<int>(boxWidth * ratio);
        y = (boxHeight - h) / 2;
    }
    GdiObject<HBITMAP> bitmap(CreateDeviceBitmap(dc));
    MemoryDC memory(dc);
    if (!bitmap || memory.get() == nullptr) return;
    SelectedObject selected(memory.get(), bitmap.get());
    UseHalftone(dc);
    StretchBlt(dc, x, y, w, h, memory.get(), 0, 0, width, height, SRCCOPY);
}
