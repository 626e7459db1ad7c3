// Drawing a bitmap image into a memory device context: the right pixels at
// the right places, rows counted from the bottom as in the image. The image
// source panel's preview shows the rest on the screen.
#include <windows.h>
#include <gtest/gtest.h>

#include "vellcolor/BitmapImage.h"

namespace {

const COLORREF kBack = RGB(10, 20, 30), kRed = RGB(255, 0, 0), kWhite = RGB(255, 255, 255);

// A 32-bit top-down canvas filled with kBack.
class Canvas {
  public:
    Canvas(int w, int h) : width_(w) {
        BITMAPINFO info = {};
        info.bmiHeader = {sizeof info.bmiHeader, w, -h, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        bitmap_ = CreateDIBSection(dc_, &info, DIB_RGB_COLORS, reinterpret_cast<void**>(&bits_),
                                   nullptr, 0);
        old_ = SelectObject(dc_, bitmap_);
        for (int i = 0; i < w * h; ++i) bits_[i] = 0x0A141E;
    }
    ~Canvas() {
        SelectObject(dc_, old_);
        DeleteObject(bitmap_);
        DeleteDC(dc_);
    }
    HDC dc() const { return dc_; }
    COLORREF At(int x, int y) const {
        GdiFlush();
        const DWORD v = bits_[y * width_ + x];
        return RGB(v >> 16, (v >> 8) & 0xFF, v & 0xFF);
    }

  private:
    int width_;
    HDC dc_ = CreateCompatibleDC(nullptr);
    HBITMAP bitmap_;
    HGDIOBJ old_;
    DWORD* bits_ = nullptr;
};

// A w x h picture of `fill`, white in its bottom right corner.
void Paint(BitmapImage& image, int w, int h, COLORREF fill) {
    ASSERT_EQ(image.Create(w, h, 3, 0), 0);
    for (int y = 0; y < h; ++y) {
        for (int x = 0; x < w; ++x) {
            const COLORREF c = x == w - 1 && y == 0 ? kWhite : fill;
            unsigned char* p = image.PixelAt(x, y);
            p[0] = GetBValue(c);
            p[1] = GetGValue(c);
            p[2] = GetRValue(c);
        }
    }
}

TEST(BitmapDrawTest, DrawRegionCopiesTheRectangleToTheSamePlace) {
    BitmapImage image;
    Paint(image, 4, 3, kRed);
    // Image rows 0..1 from the bottom, columns 2..3: the lower right corner.
    Canvas part(6, 6);
    image.DrawRegion(part.dc(), 2, 0, 3, 1);
    const struct {
        int x, y;
        COLORREF color;
    } pixels[] = {{3, 2, kWhite}, {2, 1, kRed}, {3, 0, kBack}, {1, 2, kBack}, {4, 2, kBack}};
    for (const auto& p : pixels) EXPECT_EQ(part.At(p.x, p.y), p.color) << p.x << "," << p.y;
}

TEST(BitmapDrawTest, DrawFitKeepsTheProportionsAndCentres) {
    const struct {
        int w, h, boxW, boxH;
        RECT drawn;  // where the picture lands
    } cases[] = {
        {200, 100, 100, 100, {0, 25, 100, 75}},  // wide: full width, centred vertically
        {50, 200, 100, 100, {37, 0, 62, 100}},   // tall: full height, centred across
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.w);
        BitmapImage image;
        Paint(image, c.w, c.h, kRed);
        Canvas canvas(c.boxW, c.boxH);
        image.DrawFit(canvas.dc(), c.boxW, c.boxH);
        const RECT& r = c.drawn;
        EXPECT_EQ(canvas.At(r.left, r.top), kRed);
        EXPECT_NE(canvas.At(r.right - 1, r.bottom - 1), kBack);
        // Just outside the picture on one side and the other, the background.
        const bool wide = c.w > c.h;
        EXPECT_EQ(canvas.At(wide ? 50 : r.left - 1, wide ? r.top - 1 : 50), kBack);
        EXPECT_EQ(canvas.At(wide ? 50 : r.right, wide ? r.bottom : 50), kBack);
    }
    // Nothing to draw: the canvas stays.
    BitmapImage empty;
    Canvas canvas(4, 4);
    empty.DrawFit(canvas.dc(), 4, 4);
    empty.DrawRegion(canvas.dc(), 0, 0, 3, 3);
    EXPECT_EQ(canvas.At(1, 1), kBack);
}

}  // namespace
