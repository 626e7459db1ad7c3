// One color as three floats in 0..1: the working type of all color arithmetic.
#pragma once

#include "ColorRGB.h"

struct ColorF {
    float red;
    float green;
    float blue;

    ColorF() : red(0.0f), green(0.0f), blue(0.0f) {}
    ColorF(float r, float g, float b) : red(r), green(g), blue(b) {}

    void set(float r, float g, float b) {
        red = r;
        green = g;
        blue = b;
    }
    void get(float* r, float* g, float* b) const {
        *r = red;
        *g = green;
        *b = blue;
    }

    // Hue in degrees (0..360), lightness and saturation in 0..1.
    void setHLS(float h, float l, float s);
    void getHLS(float* h, float* l, float* s) const;

    // Random colors drawn from the module's generator.
    void randomRGB(float rlo, float rhi, float glo, float ghi, float blo, float bhi);
    void randomAll();
    void randomNear(float r, float g, float b, float width);
    void randomHLS(float hlo, float hhi, float llo, float lhi, float slo, float shi);

    // byte / 255 one way, value * 255 truncated toward zero the other.
    static ColorF FromRGB(const ColorRGB& c);
    ColorRGB ToRGB() const;
};

static_assert(sizeof(ColorF) == 12, "ColorF is three packed floats");
