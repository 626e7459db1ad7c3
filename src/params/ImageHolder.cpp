#include "ImageHolder.h"

#include "vellcolor/ErrorCode.h"

void ReleaseImage(BitmapImage** held) {
    BitmapImage::Delete(*held);
    *held = nullptr;
}

int HoldConvertedCopy(BitmapImage** held, const BitmapImage& source) {
    ReleaseImage(held);
    *held = BitmapImage::NewEmpty();
    if (*held == nullptr) return kErrorOutOfMemory;
    const int copied = (*held)->Copy(source);
    if (copied != kOk) return copied;
    return (*held)->ConvertTo24Bit();
}
