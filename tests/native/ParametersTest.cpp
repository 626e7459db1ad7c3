// The parameter objects a host receives: their limits, the color counts each
// takes, copies, and the pictures they hold.
#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <vector>

#include "vellcolor/ErrorCode.h"
#include "vellcolor/KTEffectDensityPattern.h"
#include "vellcolor/KTEffectGradation.h"
#include "vellcolor/KTEffectStripe.h"
#include "vellcolor/KTEffectTile.h"
#include "vellcolor/KTMapping.h"

namespace {

const ColorRGB kThree[3] = {ColorRGB(1, 2, 3), ColorRGB(4, 5, 6), ColorRGB(7, 8, 9)};

TEST(ParametersTest, SettersClampToTheirLimits) {
    KTEffectGradation g;
    KTEffectTile t;
    KTEffectDensityPattern p;
    const auto limited = [&] {
        return std::vector<float>{
            float(g.repeat),      t.width,           t.height,       t.seamWidth,
            t.cornerCut,          p.borderWidth,     p.isolineWidth, float(p.referencePoints),
            float(p.radialLines), float(p.reserved1)};
    };
    g.SetRepeat(0);
    t.SetTileSize(0.0f, -3.0f);
    t.SetSeamWidth(-1.0f);
    t.SetCorner(1, 1.7f);
    p.SetBorderWidth(1.5f);
    p.SetIsolineWidth(0.5f);
    p.SetReferencePoints(0);
    p.SetRadialLines(-3);
    p.SetReserved1(1);
    EXPECT_EQ(limited(), (std::vector<float>{1, 1, 1, 0, 1, 1, 1, 1, 1, 2}));
    const float nan = std::numeric_limits<float>::quiet_NaN();
    t.SetCorner(0, -0.2f);
    p.SetBorderWidth(nan);
    p.SetIsolineWidth(nan);
    EXPECT_EQ(limited(), (std::vector<float>{1, 1, 1, 0, 0, 0, 1, 1, 1, 2}));
    p.SetBorderWidth(-0.3f);
    EXPECT_EQ(p.borderWidth, 0.0f);
    g.SetSpiralTurns(-2);
    EXPECT_EQ(g.spiralAngle, -720.0f);
}

TEST(ParametersTest, EachObjectTakesItsOwnColorCounts) {
    // A gradation starts black to white and needs two colors; a refusal keeps
    // what it had.
    KTEffectGradation g;
    ColorRGB out[3];
    int count = 0;
    g.GetColors(&count, out);
    ASSERT_EQ(count, 2);
    EXPECT_TRUE(out[0] == ColorRGB(0, 0, 0) && out[1] == ColorRGB(255, 255, 255));
    EXPECT_EQ(g.spiralAngle, 360.0f);
    ASSERT_EQ(g.SetColors(3, kThree), kOk);
    EXPECT_EQ(g.SetColors(1, kThree), kErrorInvalidParameter);
    EXPECT_EQ(g.SetColors(-4, kThree), kErrorInvalidParameter);
    ASSERT_EQ(g.colorCount, 3);
    EXPECT_EQ(g.colors[2], ColorRGB(7, 8, 9));

    KTEffectTile t;
    ASSERT_EQ(t.SetColors(1, kThree), kOk);
    EXPECT_EQ(t.colors[0], ColorRGB(1, 2, 3));
    ASSERT_EQ(t.SetColors(0, kThree), kOk);
    EXPECT_EQ(t.colorCount, 0);

    // Floats for the isoline pattern, which refuses an empty list. The
    // refused call leaves its converted copy behind by design; the leak
    // checker is told to expect it.
    KTEffectDensityPattern p;
    EXPECT_TRUE(p.colorCount == 2 && p.colors == nullptr);  // announced, none held
    ASSERT_EQ(p.SetColors(3, kThree), kOk);
    EXPECT_EQ(p.SetColors(0, kThree), kErrorInvalidParameter);
    ColorF floats[3];
    p.GetColors(&count, floats);
    ASSERT_EQ(count, 3);
    EXPECT_FLOAT_EQ(floats[2].blue, 9.0f / 255.0f);
}

TEST(ParametersTest, StripeCopiesOwnTheirColors) {
    KTEffectStripe a, b;
    b.SetInterval(-4.0f);
    b.SetReserved1(77).SetBackgroundMode(1);
    b.reserved2 = 5;
    ASSERT_EQ(b.SetColors(3, kThree), kOk);
    a = b;
    EXPECT_TRUE(a.interval == -4.0f && a.reserved1 == 77 && a.reserved2 == 5 &&
                a.backgroundMode == 1);
    ASSERT_EQ(a.colorCount, 3);
    EXPECT_NE(a.colors, b.colors);
    EXPECT_EQ(a.colors[1], ColorRGB(4, 5, 6));
    a = a;
    EXPECT_EQ(a.colors[2], ColorRGB(7, 8, 9));
    EXPECT_EQ(KTEffectStripe(b).colors[0], ColorRGB(1, 2, 3));
    // After a failed SetColors the count is set but there is no array; the
    // assigned object then has no colors at all.
    KTEffectStripe failed;
    failed.ReleaseColors();
    failed.colorCount = 4;
    a = failed;
    EXPECT_TRUE(a.colorCount == 0 && a.colors == nullptr);
    failed.colorCount = 0;
}

TEST(ParametersTest, PicturesAreHeldAsTwentyFourBitCopies) {
    BitmapImage source;
    ASSERT_EQ(source.Create(2, 1, 1, 2), kOk);
    source.SetPaletteEntry(1, 200, 100, 50);
    source.PixelAt(1, 0)[0] = 1;
    KTMapping m;
    KTEffectDensityPattern p;
    for (int twice = 0; twice < 2; ++twice) {  // the sanitizer run sees the first copy freed
        ASSERT_EQ(m.SetImage(source), kOk);
        ASSERT_EQ(p.SetImage(source), kOk);
        for (BitmapImage* image : {m.image, p.image}) {
            ASSERT_NE(image, nullptr);
            EXPECT_EQ(image->bytesPerPixel, 3);
            EXPECT_EQ(std::memcmp(image->PixelAt(1, 0), "\x32\x64\xC8", 3), 0);
        }
    }
    EXPECT_EQ(source.bytesPerPixel, 1);
}

}  // namespace
