// The bitmap image read from global memory blocks and the clipboard: the
// Windows part of the reader. The bytes themselves go through the portable
// packed-DIB reader, bounded by the block's own size.
#include <windows.h>

#include "vellcolor/BitmapImage.h"
#include "vellcolor/ErrorCode.h"

namespace {

// The clipboard, open for as long as this lives; closed on every path.
class OpenedClipboard {
  public:
    explicit OpenedClipboard(HWND owner) : open_(OpenClipboard(owner) != FALSE) {}
    ~OpenedClipboard() {
        if (open_) CloseClipboard();
    }
    OpenedClipboard(const OpenedClipboard&) = delete;
    OpenedClipboard& operator=(const OpenedClipboard&) = delete;
    bool IsOpen() const { return open_; }

  private:
    bool open_;
};

}  // namespace

int BitmapImage::SetFromDIB(void* block, bool keepBlock) {
    int result = kErrorOutOfMemory;
    if (const void* dib = GlobalLock(block)) {
        // The reader's own checks do the rest: it reads nothing past the
        // block, however large the header says the picture is.
        result = SetFromPackedDIB(static_cast<const unsigned char*>(dib), GlobalSize(block));
        GlobalUnlock(block);
    }
    // A block handed over is freed even when it could not be locked, so
    // that no caller has to tell the two failures apart.
    if (!keepBlock) GlobalFree(block);
    return result;
}

int BitmapImage::ReadClipboard(HWND owner) {
    // A DIB is tried first: where the system makes one from a bitmap, the
    // bitmap's pixels arrive through it.
    if (IsClipboardFormatAvailable(CF_DIB)) {
        OpenedClipboard clipboard(owner);
        if (!clipboard.IsOpen()) return kErrorGeneral;
        HANDLE dib = GetClipboardData(CF_DIB);
        if (dib == nullptr) return kErrorGeneral;
        // The block stays the clipboard's.
        return SetFromDIB(dib, true);
    }
    if (IsClipboardFormatAvailable(CF_BITMAP)) {
        // Only a device-dependent bitmap: it counts as read, but the image
        // keeps what it had. A bitmap handle is no memory block, so there is
        // nothing to lock; fetching it tells whether the data is there.
        OpenedClipboard clipboard(owner);
        if (!clipboard.IsOpen()) return kErrorGeneral;
        return GetClipboardData(CF_BITMAP) != nullptr ? kOk : kErrorGeneral;
    }
    return kErrorNoData;
}
