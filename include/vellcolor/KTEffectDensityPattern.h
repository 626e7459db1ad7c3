// Parameters of the isoline pattern effect, filled by the remote control.
#pragma once

#include "BitmapImage.h"
#include "ColorF.h"
#include "ColorRGB.h"
#include "EffectRendererState.h"
#include "RandomGenerator.h"

class KTEffectDensityPattern {
  public:
    KTEffectDensityPattern();
    ~KTEffectDensityPattern();
    KTEffectDensityPattern(const KTEffectDensityPattern&) = delete;
    KTEffectDensityPattern& operator=(const KTEffectDensityPattern&) = delete;

    void SetRemoveJaggies(int value) { removeJaggies = value; }
    void SetReserved1(int value) { reserved1 = value < 2 ? 2 : value; }
    void SetPatternType(int value) { patternType = value; }
    int GetPatternType() const { return patternType; }
    void SetReferencePoints(int value) { referencePoints = value < 1 ? 1 : value; }
    int GetReferencePoints() const { return referencePoints; }
    KTEffectDensityPattern& SetReserved2(int value) {
        reserved2 = value;
        return *this;
    }
    void SetInvertColors(int value) { invertColors = value; }
    void SetBorderColor(const ColorF& color) {
        borderColor.red = color.red;
        borderColor.green = color.green;
        borderColor.blue = color.blue;
    }
    void SetBorderWidth(float value);
    void SetBlurDirection(int value) { blurDirection = value; }
    void SetIsolineWidth(float value);
    KTEffectDensityPattern& SetReserved3(int value) {
        reserved3 = value;
        return *this;
    }
    void SetRadialLines(int value) { radialLines = value < 1 ? 1 : value; }
    void SetSwirl(float value) { swirl = value; }
    void SetRoughness(float value) { roughness = value; }
    void SetImageSize(int value) { imageSize = static_cast<float>(value); }

    int GetColorCount() const { return colorCount; }
    void GetColors(int* count, ColorF* target) const;
    // At least one color; -4 for fewer, -2 when out of memory.
    int SetColors(int count, const ColorF* source);
    int SetColors(int count, const ColorRGB* source);
    // Holds a 24-bit copy of `source`.
    int SetImage(const BitmapImage& source);

    RandomGenerator random;              // reseeded from the tick count at construction
    EffectRendererState renderState[4];  // the host renderer's, untouched here
    int removeJaggies;
    int reserved1;
    int patternType;  // 0..15; 13..15 use the image
    int referencePoints;
    int colorCount;
    ColorF* colors;  // malloc'd, colorCount entries
    int reserved2;
    int invertColors;
    ColorF borderColor;
    float borderWidth;
    int blurDirection;  // 0 none, 1 inside, 2 outside, 3 both
    float isolineWidth;
    int reserved3;
    int radialLines;
    float swirl;
    float roughness;
    BitmapImage* image;  // owned, from BitmapImage::NewEmpty
    int reserved4;
    float imageSize;
};
