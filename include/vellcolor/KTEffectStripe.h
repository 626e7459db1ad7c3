// Parameters of the stripe effect, filled by the remote control.
#pragma once

#include "ColorRGB.h"
#include "EffectRendererState.h"

class KTEffectStripe {
  public:
    KTEffectStripe();
    ~KTEffectStripe();
    KTEffectStripe(const KTEffectStripe& other);
    KTEffectStripe& operator=(const KTEffectStripe& other);

    void SetInterval(float value) { interval = value; }
    float GetInterval() const { return interval; }
    void SetPatternWidth(float value) { patternWidth = value; }
    float GetPatternWidth() const { return patternWidth; }
    void SetDirection(int value) { direction = value; }
    int GetDirection() const { return direction; }
    KTEffectStripe& SetReserved1(int value) {
        reserved1 = value;
        return *this;
    }
    void SetIntersectionBrightness(float value) { intersectionBrightness = value; }
    void SetTexture(int value) { texture = value; }
    KTEffectStripe& SetBackgroundMode(int value) {
        backgroundMode = value;
        return *this;
    }
    void SetBackgroundColor(const ColorRGB& color) { backgroundColor = color; }

    // Copies `count` colors; -2 when out of memory (colorCount then keeps the
    // new count while colors is null).
    int SetColors(int count, const ColorRGB* source);
    void ReleaseColors();

    float interval;
    float patternWidth;
    int direction;  // 1..6
    int reserved1;
    float intersectionBrightness;
    int texture;  // 0..7
    int colorCount;
    ColorRGB* colors;  // malloc'd, colorCount entries
    int backgroundMode;
    ColorRGB backgroundColor;
    int reserved2;
    EffectRendererState renderState;
};
