#include "vellcolor/KTEffectStripe.h"

#include "ColorBuffer.h"

KTEffectStripe::KTEffectStripe()
    : interval(20.0f),
      patternWidth(0.5f),
      direction(1),
      reserved1(0),
      intersectionBrightness(0.5f),
      texture(0),
      colorCount(0),
      colors(nullptr),
      backgroundMode(0),
      backgroundColor(255, 255, 255),
      reserved2(0) {
    const ColorRGB orange(255, 128, 0);
    SetColors(1, &orange);
}

KTEffectStripe::KTEffectStripe(const KTEffectStripe& other) : KTEffectStripe() {
    *this = other;
}

KTEffectStripe::~KTEffectStripe() {
    ReleaseColors();
}

void KTEffectStripe::ReleaseColors() {
    if (colorCount != 0) FreeColors(&colors);
    colorCount = 0;
    colors = nullptr;
}

int KTEffectStripe::SetColors(int count, const ColorRGB* source) {
    ReleaseColors();
    colorCount = count;
    return CopyColors(count, source, &colors);
}

KTEffectStripe& KTEffectStripe::operator=(const KTEffectStripe& other) {
    if (&other == this) return *this;
    ReleaseColors();
    interval = other.interval;
    patternWidth = other.patternWidth;
    direction = other.direction;
    reserved1 = other.reserved1;
    intersectionBrightness = other.intersectionBrightness;
    texture = other.texture;
    backgroundMode = other.backgroundMode;
    backgroundColor = other.backgroundColor;
    // The array decides, not the count: after a failed SetColors the count
    // is set but there are no colors to copy.
    if (other.colors != nullptr) SetColors(other.colorCount, other.colors);
    reserved2 = other.reserved2;
    return *this;
}
