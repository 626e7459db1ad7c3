// The bitmap image read from global memory blocks and from the real
// clipboard: the code each content gives, what the image holds afterwards,
// and that the clipboard is closed and its block left to it.
#include <windows.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <thread>
#include <vector>

#include "vellcolor/BitmapImage.h"
#include "vellcolor/ErrorCode.h"

namespace {

// A bottom-up packed DIB with an information header and patterned rows.
std::vector<BYTE> Dib(int w, int h, int bitCount) {
    const BITMAPINFOHEADER header = {
        sizeof header, w, h, 1, static_cast<WORD>(bitCount), BI_RGB, 0, 0, 0, 0, 0};
    std::vector<BYTE> dib(sizeof header + (w * bitCount + 31) / 32 * 4 * h);
    for (std::size_t i = sizeof header; i < dib.size(); ++i) dib[i] = static_cast<BYTE>(i * 7);
    std::memcpy(dib.data(), &header, sizeof header);
    return dib;
}

// A movable block of `size` bytes starting with `bytes` (zeros after them).
HGLOBAL Block(const std::vector<BYTE>& bytes, std::size_t size) {
    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, size);
    if (size > 0) {
        std::memcpy(GlobalLock(block), bytes.data(), std::min(size, bytes.size()));
        GlobalUnlock(block);
    }
    return block;
}

// Lets a failed read show whether it touched what the image held.
void Mark(BitmapImage& image) {
    ASSERT_EQ(image.Create(2, 2, 3, 0), kOk);
    std::memset(image.pixels, 0x5A, image.pixelBytes);
}

bool IsMarked(const BitmapImage& image) {
    return image.GetWidth() == 2 && image.pixels != nullptr && image.pixels[0] == 0x5A;
}

// Whether another thread may open the clipboard, i.e. nobody here left it open.
bool ClipboardIsFree() {
    bool opened = false;
    std::thread([&] {
        opened = OpenClipboard(nullptr) != FALSE;
        if (opened) CloseClipboard();
    }).join();
    return opened;
}

// A screen bitmap of 4 x 3 pixels: green, the top left corner red and the
// bottom right one blue.
HBITMAP PaintedBitmap() {
    const DWORD g = 0x00FF00, bits[] = {0xFF0000, g, g, g, g, g, g, g, g, g, g, 0x0000FF};
    BITMAPINFO info = {{sizeof(BITMAPINFOHEADER), 4, -3, 1, 32, BI_RGB, 0, 0, 0, 0, 0}, {}};
    HDC screen = GetDC(nullptr);
    HBITMAP bitmap = CreateDIBitmap(screen, &info.bmiHeader, CBM_INIT, bits, &info, DIB_RGB_COLORS);
    ReleaseDC(nullptr, screen);
    return bitmap;
}

class ClipboardTest : public ::testing::Test {
  protected:
    void TearDown() override {
        Put(0, nullptr);
        DestroyWindow(owner);
    }
    // Replaces the clipboard's content: `data` in `format`, or nothing for
    // format 0. Null data is a promise that the owner never keeps.
    void Put(UINT format, HANDLE data, bool close = true) {
        ASSERT_TRUE(OpenClipboard(owner));
        EmptyClipboard();
        if (format != 0) SetClipboardData(format, data);
        if (close) CloseClipboard();
    }
    HWND owner = CreateWindowW(L"STATIC", L"owner", WS_OVERLAPPED, 0, 0, 10, 10, nullptr, nullptr,
                               nullptr, nullptr);
};

TEST_F(ClipboardTest, DibIsReadAndStaysOnTheClipboard) {
    const std::vector<BYTE> dib = Dib(3, 2, 24);
    Put(CF_DIB, Block(dib, dib.size()));
    for (int read = 0; read < 2; ++read) {
        BitmapImage image;
        ASSERT_EQ(image.ReadClipboard(owner), kOk) << read;
        EXPECT_EQ(std::make_pair(image.GetWidth(), image.GetHeight()), std::make_pair(3, 2));
        ASSERT_EQ(image.pixelBytes, dib.size() - sizeof(BITMAPINFOHEADER));
        EXPECT_EQ(std::memcmp(image.pixels, dib.data() + sizeof(BITMAPINFOHEADER), 24), 0);
        EXPECT_TRUE(ClipboardIsFree());
    }
}

TEST_F(ClipboardTest, BitmapArrivesThroughTheDibMadeOfIt) {
    // Once its writer closes the clipboard, a bitmap is offered as a DIB too
    // (Wine makes a 32-bit one with bit-field masks), and that comes first.
    Put(CF_BITMAP, PaintedBitmap());
    ASSERT_TRUE(IsClipboardFormatAvailable(CF_DIB));
    BitmapImage image;
    ASSERT_EQ(image.ReadClipboard(owner), kOk);
    ASSERT_EQ(std::make_pair(image.GetWidth(), image.GetHeight()), std::make_pair(4, 3));
    const struct {
        int x, y;
        std::vector<int> bgr;
    } pixels[] = {{0, 2, {0, 0, 255}}, {3, 0, {255, 0, 0}}, {1, 1, {0, 255, 0}}};
    for (const auto& p : pixels) {
        const unsigned char* bgr = image.PixelAt(p.x, p.y);
        EXPECT_EQ(std::vector<int>(bgr, bgr + 3), p.bgr) << p.x;
    }
    EXPECT_TRUE(ClipboardIsFree());
}

TEST_F(ClipboardTest, OnlyADeviceDependentBitmapIsSuccessWithoutPixels) {
    // Until its writer closes the clipboard the bitmap is all there is, and
    // the writer may read it. The image keeps what it had.
    for (bool hadImage : {false, true}) {
        BitmapImage image;
        if (hadImage) Mark(image);
        Put(CF_BITMAP, PaintedBitmap(), false);
        ASSERT_FALSE(IsClipboardFormatAvailable(CF_DIB));
        EXPECT_EQ(image.ReadClipboard(owner), kOk);
        EXPECT_EQ(IsMarked(image), hadImage);
        EXPECT_TRUE(hadImage || image.pixels == nullptr);
        EXPECT_TRUE(ClipboardIsFree());
    }
}

TEST_F(ClipboardTest, FailuresKeepTheImageAndCloseTheClipboard) {
    const std::vector<BYTE> lying = Dib(100, 100, 24), text = {'a', 'b', 0};
    const struct {
        const char* what;
        UINT format;
        const std::vector<BYTE>* bytes;  // none: promised, never rendered
        std::size_t size;
        bool writerOpen;
        int code;
    } cases[] = {
        {"nothing", 0, nullptr, 0, false, kErrorNoData},
        {"text", CF_TEXT, &text, text.size(), false, kErrorNoData},
        {"a DIB promised, never rendered", CF_DIB, nullptr, 0, false, kErrorGeneral},
        {"a bitmap promised, never rendered", CF_BITMAP, nullptr, 0, true, kErrorGeneral},
        {"100 x 100 pixels in 45 bytes", CF_DIB, &lying, 45, false, kErrorFileRead},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        Put(c.format, c.bytes != nullptr ? Block(*c.bytes, c.size) : nullptr, !c.writerOpen);
        BitmapImage image;
        Mark(image);
        EXPECT_EQ(image.ReadClipboard(owner), c.code);
        EXPECT_TRUE(IsMarked(image));
        EXPECT_TRUE(ClipboardIsFree());
    }
}

TEST(SetFromDIBTest, ReadsNothingBeyondTheBlockAndFreesItUnlessKept) {
    const std::vector<BYTE> rgb = Dib(3, 2, 24);
    const struct {
        const char* what;
        const std::vector<BYTE>& dib;
        std::size_t size;
        int code;
    } cases[] = {
        {"exact", rgb, rgb.size(), kOk},
        {"one byte short", rgb, rgb.size() - 1, kErrorFileRead},
        {"discarded, cannot be locked", rgb, 0, kErrorOutOfMemory},
    };
    for (const auto& c : cases) {
        for (bool keep : {true, false}) {
            SCOPED_TRACE(testing::Message() << c.what << (keep ? ", kept" : ", given away"));
            HGLOBAL block = Block(c.dib, c.size);
            BitmapImage image;
            Mark(image);
            EXPECT_EQ(image.SetFromDIB(block, keep), c.code);
            EXPECT_TRUE(c.code == kOk ? image.GetWidth() == 3 : IsMarked(image));
            EXPECT_EQ(GlobalFlags(block) == GMEM_INVALID_HANDLE, !keep);
            if (keep) {
                EXPECT_EQ(GlobalFlags(block) & GMEM_LOCKCOUNT, 0u);
                GlobalFree(block);
            }
        }
    }
    BitmapImage image;
    for (bool keep : {true, false}) EXPECT_EQ(image.SetFromDIB(nullptr, keep), kErrorOutOfMemory);
}

}  // namespace
