// What the isoline pattern panel decides without looking at a window: the
// type code of a list text, which controls a type uses, and the random
// settings.
#pragma once

#include "vellcolor/RandomGenerator.h"

// The pattern list's texts, in the order the list shows them; the three
// image-based patterns come last.
extern const wchar_t* const kPatternListItems[11];
const int kPatternListCount = 11;
const int kImagePatternCount = 3;

// The type code of a list text, 0 for a text that names no pattern.
int PatternTypeOfName(const wchar_t* name);
// Types 13 to 15 take a picture instead of colors.
bool IsImagePattern(int type);

// The control groups a type uses.
enum PatternControls : unsigned {
    kUsesIsolineWidth = 1u << 0,
    kUsesRadialLines = 1u << 1,
    kUsesSwirl = 1u << 2,
    kUsesSwapColors = 1u << 3,
    kUsesBorderColor = 1u << 4,
    kUsesBorderWidth = 1u << 5,
    kUsesBlur = 1u << 6,
    kUsesImageSize = 1u << 7,
};
unsigned PatternControlsUsed(int type);

// Random settings, drawn in this order: the list item, then (once the
// caller knows the item's type) the values. Bars get positions out of
// 0..their maximum; blur is 0..3, counted from "no blur" in list order.
int DrawPatternItem(RandomGenerator& random, int itemCount, bool imageLoaded);

struct RandomPatternValues {
    int points;
    int isolineWidth;
    int radialLines;
    int swirl;
    bool swapColors;
    int borderWidth;
    int blur;
    int roughness;
};
RandomPatternValues DrawPatternValues(RandomGenerator& random, int type, int swirlMax,
                                      int borderWidthMax, int roughnessMax);
