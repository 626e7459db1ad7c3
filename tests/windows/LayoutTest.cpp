// The layouts a separately compiled host depends on. The i686 build checks
// every field's offset and each size at compile time; the 64-bit test build
// (for machines without 32-bit execution) checks only what holds on both.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdlib>
#include <initializer_list>

#include "vellcolor/VellColor.h"

namespace {

// Whether the offsets are `want`, or 0, 4, 8... in 32-bit steps when `want` is empty.
constexpr bool At(std::initializer_list<std::size_t> got,
                  std::initializer_list<std::size_t> want = {}) {
    std::size_t i = 0;
    for (std::size_t offset : got) {
        if (offset != (want.size() == 0 ? 4 * i : want.begin()[i])) return false;
        ++i;
    }
    return true;
}

#if defined(__i386__)
#define O(field) offsetof(T, field)
[[maybe_unused]] void CheckLayouts() {
    {
        using T = KTEffectGradation;
        static_assert(At({O(type), O(hueInterpolation), O(factor), O(bias), O(angle), O(repeat),
                          O(colorCount), O(colors), O(mix), O(spiralAngle)}) &&
                          sizeof(T) == 40,
                      "KTEffectGradation has moved");
    }
    {
        using T = KTEffectTile;
        static_assert(At({O(shape), O(width), O(height), O(rowShift), O(seamWidth),
                          O(transparentSeam), O(roundCorners), O(cornerCut), O(angle), O(coloring),
                          O(colorCount), O(colors), O(seamColor)}) &&
                          sizeof(T) == 52,
                      "KTEffectTile has moved");
    }
    {
        using T = KTEffectStripe;
        static_assert(At({O(interval), O(patternWidth), O(direction), O(reserved1),
                          O(intersectionBrightness), O(texture), O(colorCount), O(colors),
                          O(backgroundMode), O(backgroundColor), O(reserved2), O(renderState)}) &&
                          sizeof(T) == 48,
                      "KTEffectStripe has moved");
    }
    {
        using T = KTEffectDensityPattern;
        static_assert(
            At({O(random),        O(renderState),     O(removeJaggies), O(reserved1),
                O(patternType),   O(referencePoints), O(colorCount),    O(colors),
                O(reserved2),     O(invertColors),    O(borderColor),   O(borderWidth),
                O(blurDirection), O(isolineWidth),    O(reserved3),     O(radialLines),
                O(swirl),         O(roughness),       O(image),         O(reserved4),
                O(imageSize)},
               {0, 1, 8, 12, 16, 20, 24, 28, 32, 36, 40, 52, 56, 60, 64, 68, 72, 76, 80, 84, 88}) &&
                sizeof(T) == 92,
            "KTEffectDensityPattern has moved");
    }
    {
        using T = KTMapping;
        static_assert(
            At({O(image), O(repeat), O(seamless), O(fitWhole), O(scale), O(angle), O(assigned)}) &&
                sizeof(T) == 28,
            "KTMapping has moved");
    }
    {
        using T = BitmapImage;
        static_assert(At({O(name), O(width), O(height), O(bytesPerPixel), O(stride),
                          O(paletteCount), O(palette), O(pixelBytes), O(pixels)}) &&
                          sizeof(T) == 36,
                      "BitmapImage has moved");
    }
    static_assert(offsetof(VellHostWindow, m_hWnd) == 0x1C, "VellHostWindow has moved");
}
#endif

static_assert(sizeof(ColorRGB) == 3 && sizeof(ColorF) == 12, "color sizes");

}  // namespace
