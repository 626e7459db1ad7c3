#include "vellcolor/ColorF.h"

#include <algorithm>

#include "vellcolor/RandomGenerator.h"

namespace {

float Clamp(float v, float lo, float hi) {
    return v < lo ? lo : (v > hi ? hi : v);
}

float HueValue(float m1, float m2, float x) {
    if (x > 360.0f) x -= 360.0f;
    if (x < 0.0f) x += 360.0f;
    if (x < 60.0f) return m1 + (m2 - m1) * x / 60.0f;
    if (x < 180.0f) return m2;
    if (x < 240.0f) return m1 + (m2 - m1) * (240.0f - x) / 60.0f;
    return m1;
}

float Draw(float lo, float hi) {
    return static_cast<float>(ModuleRandom().Uniform(std::max(lo, 0.0f), std::min(hi, 1.0f)));
}

// Truncation toward zero; values outside 0..1 stop at the ends instead of
// overflowing the conversion.
unsigned char ToByte(float v) {
    const float x = v * 255.0f;
    if (!(x > 0.0f)) return 0;
    if (x >= 255.0f) return 255;
    return static_cast<unsigned char>(static_cast<int>(x));
}

}  // namespace

void ColorF::setHLS(float h, float l, float s) {
    h = Clamp(h, 0.0f, 360.0f);
    l = Clamp(l, 0.0f, 1.0f);
    s = Clamp(s, 0.0f, 1.0f);
    if (s == 0.0f) {
        set(l, l, l);
        return;
    }
    const float m2 = l <= 0.5f ? l * (1.0f + s) : l + s - l * s;
    const float m1 = 2.0f * l - m2;
    set(HueValue(m1, m2, h + 120.0f), HueValue(m1, m2, h), HueValue(m1, m2, h - 120.0f));
}

void ColorF::getHLS(float* h, float* l, float* s) const {
    const float r = Clamp(red, 0.0f, 1.0f);
    const float g = Clamp(green, 0.0f, 1.0f);
    const float b = Clamp(blue, 0.0f, 1.0f);
    const float mx = std::max(r, std::max(g, b));
    const float mn = std::min(r, std::min(g, b));
    *l = (mx + mn) / 2.0f;
    if (mx == mn) {
        *h = 0.0f;
        *s = 0.0f;
        return;
    }
    const float d = mx - mn;
    *s = *l < 0.5f ? d / (mx + mn) : d / (2.0f - mx - mn);
    const float rc = (mx - r) / d;
    const float gc = (mx - g) / d;
    const float bc = (mx - b) / d;
    if (r == mx) {
        *h = (bc + 6.0f - gc) * 60.0f;
    } else if (g == mx) {
        *h = (rc + 2.0f - bc) * 60.0f;
    } else {
        *h = (gc + 4.0f - rc) * 60.0f;
    }
    // Only a hue above 360 wraps: pure red comes out as 360, not 0.
    if (*h > 360.0f) *h -= 360.0f;
}

void ColorF::randomRGB(float rlo, float rhi, float glo, float ghi, float blo, float bhi) {
    red = Draw(rlo, rhi);
    green = Draw(glo, ghi);
    blue = Draw(blo, bhi);
}

void ColorF::randomAll() {
    randomRGB(0.0f, 1.0f, 0.0f, 1.0f, 0.0f, 1.0f);
}

void ColorF::randomNear(float r, float g, float b, float width) {
    const float half = width / 2.0f;
    randomRGB(r - half, r + half, g - half, g + half, b - half, b + half);
}

void ColorF::randomHLS(float hlo, float hhi, float llo, float lhi, float slo, float shi) {
    float h = static_cast<float>(ModuleRandom().Uniform(hlo, hhi));
    if (h < 0.0f) {
        h += 360.0f;
    } else if (h > 360.0f) {
        h -= 360.0f;
    }
    const float l = Draw(llo, lhi);
    const float s = Draw(slo, shi);
    setHLS(h, l, s);
}

ColorF ColorF::FromRGB(const ColorRGB& c) {
    return ColorF(c.red / 255.0f, c.green / 255.0f, c.blue / 255.0f);
}

ColorRGB ColorF::ToRGB() const {
    return ColorRGB(ToByte(red), ToByte(green), ToByte(blue));
}
