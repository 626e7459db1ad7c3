// The bitmap image read from global memory blocks and from the real
// clipboard: the code each content gives, what the image holds afterwards,
// and that the clipboard is closed and its block left to it.
#include <windows.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <vector>

#include "vellcolor/BitmapImage.h"
#include "vellcolor/ErrorCode.h"

namespace {

// A bottom-up packed DIB with an information header and patterned rows.
std::vector<BYTE> Dib(int w, int h, int bitCount) {
    const int stride = (w * bitCount + 31) / 32 * 4;
    BITMAPINFOHEADER header = {};
    header.biSize = sizeof header;
    header.biWidth = w;
    header.biHeight = h;
    header.biPlanes = 1;
    header.biBitCount = static_cast<WORD>(bitCount);
    std::vector<BYTE> dib(sizeof header + stride * h);
    std::memcpy(dib.data(), &header, sizeof header);
    for (std::size_t i = sizeof header; i < dib.size(); ++i) dib[i] = static_cast<BYTE>(i * 7);
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
    return image.GetWidth() == 2 && image.GetHeight() == 2 && image.pixels != nullptr &&
           image.pixels[0] == 0x5A;
}

DWORD WINAPI TryToOpenClipboard(void*) {
    if (!OpenClipboard(nullptr)) return 0;
    CloseClipboard();
    return 1;
}

// Whether another thread may open the clipboard, i.e. nobody here left it open.
bool ClipboardIsFree() {
    HANDLE thread = CreateThread(nullptr, 0, TryToOpenClipboard, nullptr, 0, nullptr);
    WaitForSingleObject(thread, INFINITE);
    DWORD opened = 0;
    GetExitCodeThread(thread, &opened);
    CloseHandle(thread);
    return opened == 1;
}

// Another thread keeps the clipboard open while this lives.
class ClipboardHeldElsewhere {
  public:
    ClipboardHeldElsewhere() {
        thread_ = CreateThread(nullptr, 0, Hold, this, 0, nullptr);
        WaitForSingleObject(opened_, INFINITE);
    }
    ~ClipboardHeldElsewhere() {
        SetEvent(release_);
        WaitForSingleObject(thread_, INFINITE);
        CloseHandle(thread_);
        CloseHandle(opened_);
        CloseHandle(release_);
    }
    ClipboardHeldElsewhere(const ClipboardHeldElsewhere&) = delete;
    ClipboardHeldElsewhere& operator=(const ClipboardHeldElsewhere&) = delete;

  private:
    static DWORD WINAPI Hold(void* self) {
        auto* me = static_cast<ClipboardHeldElsewhere*>(self);
        const BOOL held = OpenClipboard(nullptr);
        SetEvent(me->opened_);
        WaitForSingleObject(me->release_, INFINITE);
        if (held) CloseClipboard();
        return 0;
    }
    HANDLE opened_ = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    HANDLE release_ = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    HANDLE thread_ = nullptr;
};

// A screen bitmap of 4 x 3 pixels: green, the top left corner red and the
// bottom right one blue.
HBITMAP PaintedBitmap() {
    HDC screen = GetDC(nullptr);
    HBITMAP bitmap = CreateCompatibleBitmap(screen, 4, 3);
    HDC dc = CreateCompatibleDC(screen);
    HGDIOBJ old = SelectObject(dc, bitmap);
    HBRUSH green = CreateSolidBrush(RGB(0, 255, 0));
    const RECT all = {0, 0, 4, 3};
    FillRect(dc, &all, green);
    DeleteObject(green);
    SetPixel(dc, 0, 0, RGB(255, 0, 0));
    SetPixel(dc, 3, 2, RGB(0, 0, 255));
    SelectObject(dc, old);
    DeleteDC(dc);
    ReleaseDC(nullptr, screen);
    return bitmap;
}

COLORREF ColorAt(const BitmapImage& image, int x, int y) {
    const unsigned char* p = image.PixelAt(x, y);
    return RGB(p[2], p[1], p[0]);
}

class ClipboardTest : public ::testing::Test {
  protected:
    void SetUp() override {
        owner = CreateWindowW(L"STATIC", L"owner", WS_OVERLAPPED, 0, 0, 10, 10, nullptr, nullptr,
                              nullptr, nullptr);
        ASSERT_NE(owner, nullptr);
    }
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
    HWND owner = nullptr;
};

TEST_F(ClipboardTest, DibIsReadAndStaysOnTheClipboard) {
    const std::vector<BYTE> dib = Dib(3, 2, 24);
    Put(CF_DIB, Block(dib, dib.size()));
    for (int read = 0; read < 2; ++read) {
        BitmapImage image;
        Mark(image);
        ASSERT_EQ(image.ReadClipboard(owner), kOk) << read;
        EXPECT_EQ(image.GetWidth(), 3);
        EXPECT_EQ(image.GetHeight(), 2);
        EXPECT_EQ(image.GetBytesPerPixel(), 3);
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
    ASSERT_EQ(image.GetWidth(), 4);
    ASSERT_EQ(image.GetHeight(), 3);
    ASSERT_EQ(image.GetBytesPerPixel(), 3);
    EXPECT_EQ(ColorAt(image, 0, 2), RGB(255, 0, 0));
    EXPECT_EQ(ColorAt(image, 3, 0), RGB(0, 0, 255));
    EXPECT_EQ(ColorAt(image, 1, 1), RGB(0, 255, 0));
    EXPECT_TRUE(ClipboardIsFree());
}

TEST_F(ClipboardTest, OnlyADeviceDependentBitmapIsSuccessWithoutPixels) {
    // Until its writer closes the clipboard the bitmap is all there is, and
    // the writer may read it.
    for (bool hadImage : {false, true}) {
        BitmapImage image;
        if (hadImage) Mark(image);
        Put(CF_BITMAP, PaintedBitmap(), false);
        ASSERT_FALSE(IsClipboardFormatAvailable(CF_DIB));
        EXPECT_EQ(image.ReadClipboard(owner), kOk);
        EXPECT_EQ(IsMarked(image), hadImage);
        if (!hadImage) {
            EXPECT_EQ(image.pixels, nullptr);
        }
        EXPECT_TRUE(ClipboardIsFree());
    }
    BitmapImage image;
    Mark(image);
    Put(CF_BITMAP, nullptr, false);
    EXPECT_EQ(image.ReadClipboard(owner), kErrorGeneral);
    EXPECT_TRUE(IsMarked(image));
    EXPECT_TRUE(ClipboardIsFree());
}

TEST_F(ClipboardTest, FailuresKeepTheImageAndCloseTheClipboard) {
    const std::vector<BYTE> dib = Dib(3, 2, 24);
    // 100 x 100 pixels in 45 bytes.
    const std::vector<BYTE> lying = Dib(100, 100, 24);
    const std::vector<BYTE> text = {'a', 'b', 0};
    const struct {
        const char* what;
        UINT format;
        const std::vector<BYTE>* bytes;  // none: promised, never rendered
        std::size_t size;
        bool heldElsewhere;
        int code;
    } cases[] = {
        {"nothing", 0, nullptr, 0, false, kErrorNoData},
        {"nothing, held elsewhere", 0, nullptr, 0, true, kErrorNoData},
        {"text", CF_TEXT, &text, text.size(), false, kErrorNoData},
        {"a DIB, held elsewhere", CF_DIB, &dib, dib.size(), true, kErrorGeneral},
        {"a DIB promised, never rendered", CF_DIB, nullptr, 0, false, kErrorGeneral},
        {"a DIB claiming more than its block", CF_DIB, &lying, 45, false, kErrorFileRead},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        Put(c.format, c.bytes != nullptr ? Block(*c.bytes, c.size) : nullptr);
        BitmapImage image;
        Mark(image);
        {
            std::unique_ptr<ClipboardHeldElsewhere> held;
            if (c.heldElsewhere) held.reset(new ClipboardHeldElsewhere);
            EXPECT_EQ(image.ReadClipboard(owner), c.code);
        }
        EXPECT_TRUE(IsMarked(image));
        EXPECT_TRUE(ClipboardIsFree());
    }
}

TEST(SetFromDIBTest, ReadsNothingBeyondTheBlock) {
    const std::vector<BYTE> rgb = Dib(3, 2, 24), bgrx = Dib(3, 2, 32);
    const struct {
        const char* what;
        const std::vector<BYTE>& dib;
        std::size_t size;
        int code;
    } cases[] = {
        {"exact", rgb, rgb.size(), kOk},
        {"with room to spare", rgb, rgb.size() + 100, kOk},
        {"one byte short", rgb, rgb.size() - 1, kErrorFileRead},
        {"header only", rgb, sizeof(BITMAPINFOHEADER), kErrorFileRead},
        {"size field only", rgb, 4, kErrorFileRead},
        // 32-bit rows are read 12 bytes late, so they need 12 bytes more.
        {"32-bit, exact", bgrx, bgrx.size(), kErrorFileRead},
        {"32-bit, 12 bytes more", bgrx, bgrx.size() + 12, kOk},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        HGLOBAL block = Block(c.dib, c.size);
        BitmapImage image;
        Mark(image);
        EXPECT_EQ(image.SetFromDIB(block, true), c.code);
        if (c.code == kOk) {
            EXPECT_EQ(image.GetWidth(), 3);
            EXPECT_EQ(image.GetHeight(), 2);
        } else {
            EXPECT_TRUE(IsMarked(image));
        }
        EXPECT_EQ(GlobalFlags(block) & (GMEM_LOCKCOUNT | GMEM_INVALID_HANDLE), 0u);
        GlobalFree(block);
    }
}

TEST(SetFromDIBTest, FreesTheBlockUnlessKeptOnEveryPath) {
    const std::vector<BYTE> dib = Dib(3, 2, 24);
    const struct {
        const char* what;
        std::size_t size;
        int code;
    } cases[] = {
        {"good", dib.size(), kOk},
        {"truncated", dib.size() - 1, kErrorFileRead},
        {"discarded, cannot be locked", 0, kErrorOutOfMemory},
    };
    for (const auto& c : cases) {
        for (bool keep : {true, false}) {
            SCOPED_TRACE(testing::Message() << c.what << (keep ? ", kept" : ", given away"));
            HGLOBAL block = Block(dib, c.size);
            BitmapImage image;
            EXPECT_EQ(image.SetFromDIB(block, keep), c.code);
            EXPECT_EQ(GlobalFlags(block) == GMEM_INVALID_HANDLE, !keep);
            if (keep) GlobalFree(block);
        }
    }
    BitmapImage image;
    EXPECT_EQ(image.SetFromDIB(nullptr, true), kErrorOutOfMemory);
    EXPECT_EQ(image.SetFromDIB(nullptr, false), kErrorOutOfMemory);
}

}  // namespace
