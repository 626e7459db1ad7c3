// The palette operations behind the color set panel's buttons, free of any
// window: random colors by category, rainbow, interpolation and fluctuation.
#pragma once

#include "vellcolor/ColorF.h"
#include "vellcolor/ColorRGB.h"

enum RandomColorMode {
    kRandomAllColors = 0,
    kRandomPrimary = 1,
    kRandomPastel = 2,
    kRandomGray = 3,
    kRandomDark = 4,
    kRandomLight = 5,
    kRandomCool = 6,
    kRandomWarm = 7,
    kRandomReddish = 8,
    kRandomGreenish = 9,
    kRandomBluish = 10,
    kRandomNear = 20,
};

enum InterpolationMode {
    kInterpolateRGB = 101,
    kInterpolateHue = 102,
};

// One color of the given category; `current` is the center for kRandomNear.
ColorF RandomColor(int mode, const ColorRGB& current);

// Each of slots[0..count-1] gets a color of the category, in order.
void FillRandom(ColorRGB* slots, int count, int mode);

// Hues evenly spread over the circle, full saturation, lightness 0.5.
void FillRainbow(ColorRGB* slots, int count);

// Slots 1..count-2 are blended between slot 0 and slot count-1; fewer than
// three colors change nothing.
void InterpolateRGB(ColorRGB* slots, int count);

// The same in hue, lightness and saturation. With *direction 0 the hue rises
// from first to last, with 1 it falls; the flag flips after every call that
// blends, so a second call goes round the other way.
void InterpolateHue(ColorRGB* slots, int count, int* direction);

// The color handed out while fluctuation is on: a random color near it.
ColorRGB Fluctuate(const ColorRGB& color);

// Rotations and reversal of the first `count` slots.
void RotateLeft(ColorRGB* slots, int count);
void RotateRight(ColorRGB* slots, int count);
void Reverse(ColorRGB* slots, int count);
