// Parameters of the gradation effect, filled by the remote control.
#pragma once

#include "ColorRGB.h"

class KTEffectGradation {
  public:
    KTEffectGradation();
    ~KTEffectGradation();
    KTEffectGradation(const KTEffectGradation&) = delete;
    KTEffectGradation& operator=(const KTEffectGradation&) = delete;

    void SetType(int value) { type = value; }
    int GetType() const { return type; }
    void SetHueInterpolation(int value) { hueInterpolation = value; }
    int GetHueInterpolation() const { return hueInterpolation; }
    void SetFactor(float value) { factor = value; }
    float GetFactor() const { return factor; }
    void SetBias(float value) { bias = value; }
    float GetBias() const { return bias; }
    void SetAngle(float degrees) { angle = degrees; }
    float GetAngle() const { return angle; }
    void SetRepeat(int value) { repeat = value < 1 ? 1 : value; }
    int GetRepeat() const { return repeat; }
    void SetMix(float value) { mix = value; }
    float GetMix() const { return mix; }
    void SetSpiralTurns(int turns) { spiralAngle = static_cast<float>(turns * 360); }
    float GetSpiralAngle() const { return spiralAngle; }

    // Copies `count` colors (at least 2); -4 for fewer, -2 when out of memory.
    int SetColors(int count, const ColorRGB* source);
    int GetColorCount() const { return colorCount; }
    void GetColors(int* count, ColorRGB* target) const;

    int type;              // gradation type code
    int hueInterpolation;  // nonzero: blend in hue
    float factor;
    float bias;
    float angle;
    int repeat;
    int colorCount;
    ColorRGB* colors;  // malloc'd, colorCount entries
    float mix;
    float spiralAngle;  // degrees, turns * 360
};
