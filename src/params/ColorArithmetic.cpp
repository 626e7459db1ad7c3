#include "ColorArithmetic.h"

#include <algorithm>

#include "vellcolor/RandomGenerator.h"

namespace {

const float kNearWidth = 0.19607843f;         // 50 / 255
const float kFluctuationWidth = 0.33333334f;  // 85 / 255

ColorF Gray(float v) {
    return ColorF(v, v, v);
}

float Draw(float lo, float hi) {
    return static_cast<float>(ModuleRandom().Uniform(lo, hi));
}

}  // namespace

ColorF RandomColor(int mode, const ColorRGB& current) {
    ColorF c;
    switch (mode) {
        case kRandomAllColors: c.randomAll(); break;
        case kRandomPrimary: c.randomHLS(-30.0f, 390.0f, 0.475f, 0.525f, 0.95f, 1.0f); break;
        case kRandomPastel: c.randomHLS(-20.0f, 380.0f, 0.7f, 0.8f, 0.45f, 0.55f); break;
        case kRandomGray: c = Gray(Draw(0.0f, 1.0f)); break;
        case kRandomDark: c.randomHLS(-20.0f, 380.0f, 0.0f, 0.25f, 0.0f, 1.0f); break;
        case kRandomLight: c.randomHLS(-20.0f, 380.0f, 0.75f, 0.95f, 0.5f, 1.0f); break;
        case kRandomCool: c.randomHLS(150.0f, 320.0f, 0.5f, 0.9f, 0.5f, 1.0f); break;
        case kRandomWarm: c.randomHLS(-10.0f, 60.0f, 0.4f, 0.7f, 0.75f, 1.0f); break;
        case kRandomReddish: {
            const float v = Draw(0.0f, 0.9f);
            c.set(1.0f, v, v);
            break;
        }
        case kRandomGreenish: {
            const float v = Draw(0.0f, 0.9f);
            c.set(v, 1.0f, v);
            break;
        }
        case kRandomBluish: {
            const float v = Draw(0.0f, 0.9f);
            c.set(v, v, 1.0f);
            break;
        }
        case kRandomNear: {
            const ColorF center = ColorF::FromRGB(current);
            c.randomNear(center.red, center.green, center.blue, kNearWidth);
            break;
        }
        default: break;  // unknown modes leave black
    }
    return c;
}

void FillRandom(ColorRGB* slots, int count, int mode) {
    for (int i = 0; i < count; ++i) slots[i] = RandomColor(mode, slots[i]).ToRGB();
}

void FillRainbow(ColorRGB* slots, int count) {
    if (count < 1) return;
    const float step = 360.0f / static_cast<float>(count);
    for (int i = 0; i < count; ++i) {
        ColorF c;
        c.setHLS(static_cast<float>(i) * step, 0.5f, 1.0f);
        slots[i] = c.ToRGB();
    }
}

void InterpolateRGB(ColorRGB* slots, int count) {
    if (count < 3) return;
    const ColorRGB first = slots[0];
    const ColorRGB last = slots[count - 1];
    const float steps = static_cast<float>(count - 1);
    const float dr = (static_cast<float>(last.red) - first.red) / steps;
    const float dg = (static_cast<float>(last.green) - first.green) / steps;
    const float db = (static_cast<float>(last.blue) - first.blue) / steps;
    for (int i = 1; i < count - 1; ++i) {
        slots[i].red = static_cast<unsigned char>(static_cast<int>(first.red + i * dr));
        slots[i].green = static_cast<unsigned char>(static_cast<int>(first.green + i * dg));
        slots[i].blue = static_cast<unsigned char>(static_cast<int>(first.blue + i * db));
    }
}

void InterpolateHue(ColorRGB* slots, int count, int* direction) {
    if (count < 3) return;
    float h0, l0, s0, h1, l1, s1;
    ColorF::FromRGB(slots[0]).getHLS(&h0, &l0, &s0);
    ColorF::FromRGB(slots[count - 1]).getHLS(&h1, &l1, &s1);
    const float steps = static_cast<float>(count - 1);
    // "<=" on purpose: equal hues sweep the whole circle.
    if (*direction == 0) {
        if (h1 <= h0) h1 += 360.0f;
    } else {
        if (h0 <= h1) h0 += 360.0f;
    }
    const float hstep = (h1 - h0) / steps;
    const float lstep = (l1 - l0) / steps;
    const float sstep = (s1 - s0) / steps;
    for (int i = 1; i < count - 1; ++i) {
        float h = h0 + i * hstep;
        if (h < 0.0f) {
            h += 360.0f;
        } else if (h >= 360.0f) {
            h -= 360.0f;
        }
        ColorF c;
        c.setHLS(h, l0 + i * lstep, s0 + i * sstep);
        slots[i] = c.ToRGB();
    }
    *direction = *direction == 0 ? 1 : 0;
}

ColorRGB Fluctuate(const ColorRGB& color) {
    const ColorF center = ColorF::FromRGB(color);
    ColorF c;
    c.randomNear(center.red, center.green, center.blue, kFluctuationWidth);
    return c.ToRGB();
}

void RotateLeft(ColorRGB* slots, int count) {
    if (count > 1) std::rotate(slots, slots + 1, slots + count);
}

void RotateRight(ColorRGB* slots, int count) {
    if (count > 1) std::rotate(slots, slots + count - 1, slots + count);
}

void Reverse(ColorRGB* slots, int count) {
    if (count > 1) std::reverse(slots, slots + count);
}
