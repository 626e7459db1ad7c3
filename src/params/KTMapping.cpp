#include "vellcolor/KTMapping.h"

#include "ImageHolder.h"

KTMapping::KTMapping()
    : image(nullptr), repeat(1), seamless(0), fitWhole(0), scale(1.0f), angle(0.0f), assigned(0) {}

KTMapping::~KTMapping() {
    ReleaseImage(&image);
}

int KTMapping::SetImage(const BitmapImage& source) {
    return HoldConvertedCopy(&image, source);
}
