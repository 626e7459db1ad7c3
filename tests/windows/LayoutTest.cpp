// The layouts a separately compiled host depends on, for i686. The
// static_asserts fail the i686 build; the 64-bit test build (for machines
// without 32-bit execution) checks only what holds on both.
#include <gtest/gtest.h>

#include <cstddef>
#include <type_traits>

#include "vellcolor/VellColor.h"

#if defined(__i386__)
#define CHECK_FIELD(T, field, offset) \
    static_assert(offsetof(T, field) == (offset), #T "::" #field " has moved")

CHECK_FIELD(VellHostWindow, m_hWnd, 0x1C);

CHECK_FIELD(KTEffectGradation, type, 0);
CHECK_FIELD(KTEffectGradation, hueInterpolation, 4);
CHECK_FIELD(KTEffectGradation, factor, 8);
CHECK_FIELD(KTEffectGradation, bias, 12);
CHECK_FIELD(KTEffectGradation, angle, 16);
CHECK_FIELD(KTEffectGradation, repeat, 20);
CHECK_FIELD(KTEffectGradation, colorCount, 24);
CHECK_FIELD(KTEffectGradation, colors, 28);
CHECK_FIELD(KTEffectGradation, mix, 32);
CHECK_FIELD(KTEffectGradation, spiralAngle, 36);
static_assert(sizeof(KTEffectGradation) == 40, "KTEffectGradation size");

CHECK_FIELD(KTEffectTile, shape, 0);
CHECK_FIELD(KTEffectTile, width, 4);
CHECK_FIELD(KTEffectTile, height, 8);
CHECK_FIELD(KTEffectTile, rowShift, 12);
CHECK_FIELD(KTEffectTile, seamWidth, 16);
CHECK_FIELD(KTEffectTile, transparentSeam, 20);
CHECK_FIELD(KTEffectTile, roundCorners, 24);
CHECK_FIELD(KTEffectTile, cornerCut, 28);
CHECK_FIELD(KTEffectTile, angle, 32);
CHECK_FIELD(KTEffectTile, coloring, 36);
CHECK_FIELD(KTEffectTile, colorCount, 40);
CHECK_FIELD(KTEffectTile, colors, 44);
CHECK_FIELD(KTEffectTile, seamColor, 48);
static_assert(sizeof(KTEffectTile) == 52, "KTEffectTile size");

CHECK_FIELD(KTEffectStripe, interval, 0);
CHECK_FIELD(KTEffectStripe, patternWidth, 4);
CHECK_FIELD(KTEffectStripe, direction, 8);
CHECK_FIELD(KTEffectStripe, reserved1, 12);
CHECK_FIELD(KTEffectStripe, intersectionBrightness, 16);
CHECK_FIELD(KTEffectStripe, texture, 20);
CHECK_FIELD(KTEffectStripe, colorCount, 24);
CHECK_FIELD(KTEffectStripe, colors, 28);
CHECK_FIELD(KTEffectStripe, backgroundMode, 32);
CHECK_FIELD(KTEffectStripe, backgroundColor, 36);
CHECK_FIELD(KTEffectStripe, reserved2, 40);
CHECK_FIELD(KTEffectStripe, renderState, 44);
static_assert(sizeof(KTEffectStripe) == 48, "KTEffectStripe size");

CHECK_FIELD(KTEffectDensityPattern, random, 0);
CHECK_FIELD(KTEffectDensityPattern, renderState, 1);
CHECK_FIELD(KTEffectDensityPattern, removeJaggies, 8);
CHECK_FIELD(KTEffectDensityPattern, reserved1, 12);
CHECK_FIELD(KTEffectDensityPattern, patternType, 16);
CHECK_FIELD(KTEffectDensityPattern, referencePoints, 20);
CHECK_FIELD(KTEffectDensityPattern, colorCount, 24);
CHECK_FIELD(KTEffectDensityPattern, colors, 28);
CHECK_FIELD(KTEffectDensityPattern, reserved2, 32);
CHECK_FIELD(KTEffectDensityPattern, invertColors, 36);
CHECK_FIELD(KTEffectDensityPattern, borderColor, 40);
CHECK_FIELD(KTEffectDensityPattern, borderWidth, 52);
CHECK_FIELD(KTEffectDensityPattern, blurDirection, 56);
CHECK_FIELD(KTEffectDensityPattern, isolineWidth, 60);
CHECK_FIELD(KTEffectDensityPattern, reserved3, 64);
CHECK_FIELD(KTEffectDensityPattern, radialLines, 68);
CHECK_FIELD(KTEffectDensityPattern, swirl, 72);
CHECK_FIELD(KTEffectDensityPattern, roughness, 76);
CHECK_FIELD(KTEffectDensityPattern, image, 80);
CHECK_FIELD(KTEffectDensityPattern, reserved4, 84);
CHECK_FIELD(KTEffectDensityPattern, imageSize, 88);
static_assert(sizeof(KTEffectDensityPattern) == 92, "KTEffectDensityPattern size");

CHECK_FIELD(KTMapping, image, 0);
CHECK_FIELD(KTMapping, repeat, 4);
CHECK_FIELD(KTMapping, seamless, 8);
CHECK_FIELD(KTMapping, fitWhole, 12);
CHECK_FIELD(KTMapping, scale, 16);
CHECK_FIELD(KTMapping, angle, 20);
CHECK_FIELD(KTMapping, assigned, 24);
static_assert(sizeof(KTMapping) == 28, "KTMapping size");

CHECK_FIELD(BitmapImage, name, 0);
CHECK_FIELD(BitmapImage, width, 4);
CHECK_FIELD(BitmapImage, height, 8);
CHECK_FIELD(BitmapImage, bytesPerPixel, 12);
CHECK_FIELD(BitmapImage, stride, 16);
CHECK_FIELD(BitmapImage, paletteCount, 20);
CHECK_FIELD(BitmapImage, palette, 24);
CHECK_FIELD(BitmapImage, pixelBytes, 28);
CHECK_FIELD(BitmapImage, pixels, 32);
static_assert(sizeof(BitmapImage) == 36, "BitmapImage size");
#endif

static_assert(sizeof(ColorRGB) == 3 && sizeof(ColorF) == 12, "color sizes");

namespace {

template <typename T>
constexpr bool kHostReadable = std::is_standard_layout<T>::value;

TEST(LayoutTest, HostVisibleClassesAreStandardLayout) {
    EXPECT_TRUE(kHostReadable<KTEffectGradation>);
    EXPECT_TRUE(kHostReadable<KTEffectTile>);
    EXPECT_TRUE(kHostReadable<KTEffectStripe>);
    EXPECT_TRUE(kHostReadable<KTEffectDensityPattern>);
    EXPECT_TRUE(kHostReadable<KTMapping>);
    EXPECT_TRUE(kHostReadable<BitmapImage>);
    EXPECT_TRUE(kHostReadable<VellHostWindow>);
}

TEST(LayoutTest, ColorArraysComeFromTheSharedRuntimeHeap) {
    // A host that shares msvcrt.dll frees what the object allocated.
    KTEffectGradation gradation;
    ColorRGB* colors = gradation.colors;
    ASSERT_NE(colors, nullptr);
    gradation.colors = nullptr;
    gradation.colorCount = 0;
    free(colors);
}

}  // namespace
