#include "vellcolor/KTEffectGradation.h"

#include "ColorBuffer.h"
#include "vellcolor/ColorF.h"
#include "vellcolor/ErrorCode.h"

KTEffectGradation::KTEffectGradation()
    : type(0),
      hueInterpolation(0),
      factor(1.0f),
      bias(0.0f),
      angle(0.0f),
      repeat(1),
      colorCount(0),
      colors(nullptr),
      mix(0.0f),
      spiralAngle(0.0f) {
    const ColorRGB blackAndWhite[2] = {ColorF(0, 0, 0).ToRGB(), ColorF(1, 1, 1).ToRGB()};
    SetColors(2, blackAndWhite);
    spiralAngle = 360.0f;
}

KTEffectGradation::~KTEffectGradation() {
    FreeColors(&colors);
}

int KTEffectGradation::SetColors(int count, const ColorRGB* source) {
    if (count < 2) return kErrorInvalidParameter;
    colorCount = count;
    FreeColors(&colors);
    // On failure colorCount keeps the new count with no array.
    return CopyColors(count, source, &colors);
}

void KTEffectGradation::GetColors(int* count, ColorRGB* target) const {
    *count = colorCount;
    for (int i = 0; i < colorCount && colors != nullptr; ++i) target[i] = colors[i];
}
