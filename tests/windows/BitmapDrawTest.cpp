// Drawing a bitmap image into a memory device context: the right pixels
// at the right places, rows counted from the bottom as in the image.
#include <windows.h>
#include <gtest/gtest.h>

#include <cstring>

#include "vellcolor/BitmapImage.h"

namespace {

// A 32-bit top-down canvas filled with one color.
class Canvas {
  public:
    Canvas(int w, int h, COLORREF fill) : width_(w) {
        BITMAPINFO info = {};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = w;
        info.bmiHeader.biHeight = -h;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        dc_ = CreateCompatibleDC(nullptr);
        bitmap_ = CreateDIBSection(dc_, &info, DIB_RGB_COLORS, reinterpret_cast<void**>(&bits_),
                                   nullptr, 0);
        old_ = SelectObject(dc_, bitmap_);
        for (int i = 0; i < w * h; ++i)
            bits_[i] = GetRValue(fill) << 16 | GetGValue(fill) << 8 | GetBValue(fill);
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
        return RGB((v >> 16) & 0xFF, (v >> 8) & 0xFF, v & 0xFF);
    }

  private:
    int width_;
    HDC dc_;
    HBITMAP bitmap_;
    HGDIOBJ old_;
    DWORD* bits_ = nullptr;
};

void Put(BitmapImage& image, int x, int storageRow, COLORREF c) {
    unsigned char* p = image.PixelAt(x, storageRow);
    p[0] = GetBValue(c);
    p[1] = GetGValue(c);
    p[2] = GetRValue(c);
}

void Fill(BitmapImage& image, COLORREF c) {
    for (int y = 0; y < image.GetHeight(); ++y)
        for (int x = 0; x < image.GetWidth(); ++x) Put(image, x, y, c);
}

const COLORREF kBack = RGB(10, 20, 30);
const COLORREF kRed = RGB(255, 0, 0), kGreen = RGB(0, 255, 0), kBlue = RGB(0, 0, 255),
               kWhite = RGB(255, 255, 255), kGrey = RGB(128, 128, 128);

TEST(BitmapDrawTest, DrawRegionCopiesTheRectangleToTheSamePlace) {
    BitmapImage image;
    ASSERT_EQ(image.Create(4, 3, 3, 0), 0);
    Fill(image, kGrey);
    Put(image, 0, 2, kRed);    // top left (the last stored row)
    Put(image, 3, 2, kGreen);  // top right
    Put(image, 0, 0, kBlue);   // bottom left
    Put(image, 3, 0, kWhite);  // bottom right

    Canvas whole(6, 6, kBack);
    image.DrawRegion(whole.dc(), 0, 0, 3, 2);
    EXPECT_EQ(whole.At(0, 0), kRed);
    EXPECT_EQ(whole.At(3, 0), kGreen);
    EXPECT_EQ(whole.At(0, 2), kBlue);
    EXPECT_EQ(whole.At(3, 2), kWhite);
    EXPECT_EQ(whole.At(4, 0), kBack);
    EXPECT_EQ(whole.At(0, 3), kBack);

    // Image rows 0..1 from the bottom, columns 2..3: the lower right corner.
    Canvas part(6, 6, kBack);
    image.DrawRegion(part.dc(), 2, 0, 3, 1);
    EXPECT_EQ(part.At(3, 2), kWhite);
    EXPECT_EQ(part.At(2, 1), kGrey);
    EXPECT_EQ(part.At(3, 0), kBack);
    EXPECT_EQ(part.At(1, 2), kBack);
}

TEST(BitmapDrawTest, DrawFitKeepsTheProportionsAndCentres) {
    const struct {
        int w, h, boxW, boxH;
        RECT drawn;  // where the picture lands
    } cases[] = {
        {200, 100, 100, 100, {0, 25, 100, 75}},  // wide: full width, centred vertically
        {50, 200, 100, 100, {37, 0, 62, 100}},   // tall: full height, centred across
        {64, 64, 100, 50, {25, 0, 75, 50}},
    };
    for (const auto& c : cases) {
        BitmapImage image;
        ASSERT_EQ(image.Create(c.w, c.h, 3, 0), 0);
        Fill(image, kRed);
        Canvas canvas(c.boxW, c.boxH, kBack);
        image.DrawFit(canvas.dc(), c.boxW, c.boxH);
        const RECT& r = c.drawn;
        SCOPED_TRACE(c.w);
        EXPECT_EQ(canvas.At(r.left, r.top), kRed);
        EXPECT_EQ(canvas.At(r.right - 1, r.bottom - 1), kRed);
        // Just outside the picture, the background (where there is room).
        EXPECT_EQ(
            canvas.At(r.left > 0 ? r.left - 1 : r.left, r.top > 0 ? r.top - 1 : r.top) == kBack,
            r.left > 0 || r.top > 0);
        EXPECT_EQ(canvas.At(r.right < c.boxW ? r.right : r.right - 1,
                            r.bottom < c.boxH ? r.bottom : r.bottom - 1) == kBack,
                  r.right < c.boxW || r.bottom < c.boxH);
    }
    // Nothing to draw: the canvas stays.
    BitmapImage empty;
    Canvas canvas(4, 4, kBack);
    empty.DrawFit(canvas.dc(), 4, 4);
    empty.DrawRegion(canvas.dc(), 0, 0, 3, 3);
    EXPECT_EQ(canvas.At(1, 1), kBack);
}

}  // namespace
