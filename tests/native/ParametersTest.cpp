// Colors and their arithmetic, registered color sets (at most 64, newest first) and their
// text, and the parameter objects' limits, color counts, copies and the pictures they hold.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <vector>

#include "params/ColorArithmetic.h"
#include "params/ColorSetList.h"
#include "params/ColorSetText.h"
#include "vellcolor/ColorF.h"
#include "vellcolor/ErrorCode.h"
#include "vellcolor/KTEffectDensityPattern.h"
#include "vellcolor/KTEffectGradation.h"
#include "vellcolor/KTEffectStripe.h"
#include "vellcolor/KTEffectTile.h"
#include "vellcolor/KTMapping.h"
#include "vellcolor/RandomGenerator.h"

namespace {

float Hue(const ColorRGB& c) {
    float h, l, s;
    ColorF::FromRGB(c).getHLS(&h, &l, &s);
    return h;
}

TEST(ColorTest, BytesAndFloatsConvertByDivisionAndTruncation) {
    EXPECT_EQ(ColorF::FromRGB(ColorRGB(255, 0, 51)).red, 1.0f);
    EXPECT_EQ(ColorF(0.5f, 0.999f, 0.0f).ToRGB(), ColorRGB(127, 254, 0));
    for (int v = 0; v < 256; ++v)
        EXPECT_EQ(ColorF::FromRGB(ColorRGB(v, v, v)).ToRGB(), ColorRGB(v, v, v));
    // Out-of-range floats stop at the ends instead of wrapping.
    EXPECT_EQ(ColorF(1.5f, -0.2f, 0.0f).ToRGB(), ColorRGB(255, 0, 0));
    EXPECT_EQ(ColorRGB(1, 2, 3).ToColorRef(), 0x030201ul);
}

TEST(ColorTest, HueLightnessSaturationBothWays) {
    // Pure red keeps its hue at 360; grays have none.
    const struct {
        ColorF color;
        float h, l, s;
    } cases[] = {{{1, 0, 0}, 360, 0.5f, 1}, {{0.5f, 0.5f, 0.5f}, 0, 0.5f, 0},
                 {{0, 1, 0}, 120, 0.5f, 1}, {{0, 0, 1}, 240, 0.5f, 1},
                 {{1, 0, 1}, 300, 0.5f, 1}, {{1, 0.5f, 0.5f}, 360, 0.75f, 1}};
    for (const auto& c : cases) {
        float h, l, s;
        c.color.getHLS(&h, &l, &s);
        EXPECT_NEAR(h, c.h, 1e-3f);
        EXPECT_NEAR(l, c.l, 1e-5f);
        EXPECT_NEAR(s, c.s, 1e-5f);
        ColorF back;
        back.setHLS(h, l, s);
        EXPECT_EQ(back.ToRGB(), c.color.ToRGB()) << c.h;
    }
    // Hue, lightness and saturation are clamped; without saturation a gray of the lightness.
    const float sets[][3] = {{500, 0.5f, 1}, {60, 0.5f, 1}, {200, 0.3f, 0}, {120, 2, -1}};
    const ColorRGB want[] = {ColorRGB(255, 0, 0), ColorRGB(255, 255, 0), ColorRGB(76, 76, 76),
                             ColorRGB(255, 255, 255)};
    for (int i = 0; i < 4; ++i) {
        ColorF c;
        c.setHLS(sets[i][0], sets[i][1], sets[i][2]);
        EXPECT_EQ(c.ToRGB(), want[i]) << sets[i][0];
    }
}

TEST(ColorTest, RandomCategoriesDrawFromTheirRanges) {
    ModuleRandom().Seed(1234);
    int warmWrapped = 0;
    for (int i = 0; i < 500; ++i) {
        const ColorRGB gray = RandomColor(kRandomGray, ColorRGB()).ToRGB();
        EXPECT_TRUE(gray.red == gray.green && gray.green == gray.blue);
        const ColorRGB reddish = RandomColor(kRandomReddish, ColorRGB()).ToRGB();
        EXPECT_TRUE(reddish.red == 255 && reddish.green == reddish.blue && reddish.green <= 229);
        EXPECT_EQ(RandomColor(kRandomGreenish, ColorRGB()).ToRGB().green, 255);
        EXPECT_EQ(RandomColor(kRandomBluish, ColorRGB()).ToRGB().blue, 255);

        float h, l, s;
        RandomColor(kRandomCool, ColorRGB()).getHLS(&h, &l, &s);
        EXPECT_TRUE(h >= 150.0f - 1e-3f && h <= 320.0f + 1e-3f && l >= 0.5f - 1e-5f &&
                    l <= 0.9f + 1e-5f);
        RandomColor(kRandomPrimary, ColorRGB()).getHLS(&h, &l, &s);
        EXPECT_TRUE(std::fabs(l - 0.5f) <= 0.025f + 1e-5f && s >= 0.95f - 1e-4f);
        RandomColor(kRandomDark, ColorRGB()).getHLS(&h, &l, &s);
        EXPECT_LE(l, 0.25f + 1e-5f);
        // Warm hues wrap around red.
        RandomColor(kRandomWarm, ColorRGB()).getHLS(&h, &l, &s);
        EXPECT_TRUE(h <= 60.0f + 1e-3f || h >= 350.0f - 1e-3f) << h;
        warmWrapped += h >= 350.0f - 1e-3f;

        // Near colors stay near each slot's own color, one-sided at the edges.
        ColorRGB slots[3] = {ColorRGB(250, 128, 3), ColorRGB(0, 0, 0), ColorRGB(100, 100, 100)};
        FillRandom(slots, 2, kRandomNear);
        EXPECT_TRUE(slots[0].red >= 224 && std::abs(slots[0].green - 128) <= 25 &&
                    slots[0].blue <= 28 && slots[1].red <= 25);
        EXPECT_EQ(slots[2], ColorRGB(100, 100, 100));  // beyond the count: untouched
    }
    EXPECT_GT(warmWrapped, 0);
}

TEST(ColorTest, RainbowSpreadsSaturatedHues) {
    ColorRGB slots[7];
    FillRainbow(slots, 7);
    for (int i = 0; i < 7; ++i) {  // the first is pure red, whose hue is 360
        const ColorRGB& c = slots[i];
        EXPECT_TRUE(std::max({c.red, c.green, c.blue}) == 255 &&
                    std::min({c.red, c.green, c.blue}) == 0);
        EXPECT_NEAR(Hue(c), i == 0 ? 360 : i * 360.0f / 7, 1.5f) << i;
    }
}

TEST(ColorTest, RGBInterpolationChangesOnlyTheInnerSlotsByTruncation) {
    std::vector<ColorRGB> four = {ColorRGB(0, 255, 10), ColorRGB(9, 9, 9), ColorRGB(9, 9, 9),
                                  ColorRGB(255, 0, 20)};
    InterpolateRGB(four.data(), 4);
    EXPECT_EQ(four, (std::vector<ColorRGB>{ColorRGB(0, 255, 10), ColorRGB(85, 170, 13),
                                           ColorRGB(170, 85, 16), ColorRGB(255, 0, 20)}));
}

TEST(ColorTest, HueInterpolationAlternatesItsWayRoundTheCircle) {
    int direction = 0;
    ColorRGB slots[3] = {ColorRGB(255, 0, 0), ColorRGB(0, 0, 0), ColorRGB(0, 0, 255)};
    InterpolateHue(slots, 3, &direction);
    EXPECT_EQ(slots[1], ColorRGB(0, 255, 0));  // 360 -> 480 (120) -> 600: up through green
    EXPECT_EQ(direction, 1);
    InterpolateHue(slots, 3, &direction);
    EXPECT_EQ(slots[1], ColorRGB(255, 0, 255));  // down through magenta
    EXPECT_EQ(direction, 0);
    InterpolateHue(slots, 2, &direction);  // too few colors: not even the direction changes
    EXPECT_EQ(direction, 0);

    // Equal hues sweep the whole circle; grays stay gray on the way.
    ColorRGB circle[7] = {ColorRGB(255, 0, 0), {}, {}, {}, {}, {}, ColorRGB(255, 0, 0)};
    InterpolateHue(circle, 7, &direction);
    for (int i = 1; i < 6; ++i) EXPECT_NEAR(Hue(circle[i]), 60.0f * i, 1.5f) << i;
    InterpolateHue(circle, 7, &direction);
    for (int i = 1; i < 6; ++i) EXPECT_NEAR(Hue(circle[i]), 360.0f - 60.0f * i, 1.5f) << i;
    ColorRGB grays[4] = {ColorRGB(128, 128, 128), {}, {}, ColorRGB(128, 128, 128)};
    InterpolateHue(grays, 4, &direction);
    EXPECT_EQ(grays[1], ColorRGB(128, 128, 128));
}

ColorSetRecord Set(int count, int seed) {
    ColorSetRecord r;
    r.count = count;
    for (int i = 0; i < ColorSetRecord::kMaxColors; ++i)
        r.colors[i] = ColorRGB(static_cast<unsigned char>(seed), static_cast<unsigned char>(i), 0);
    return r;
}

TEST(ColorSetTest, RegisteringMovesAnEqualSetToTheFrontAndStopsAtSixtyFour) {
    ColorSetList list;
    ColorSetRecord again = Set(3, 1), other = Set(3, 1);
    ASSERT_TRUE(RegisterColorSet(list, again));
    // Equal means equal in the colors in use.
    again.colors[5] = other.colors[2] = ColorRGB(9, 9, 9);
    ASSERT_TRUE(RegisterColorSet(list, other));
    ASSERT_TRUE(RegisterColorSet(list, again));
    ASSERT_TRUE(list.count() == 2 && *list.item(0) == again && *list.item(1) == other);
    for (int i = 2; i < ColorSetList::max; ++i) ASSERT_TRUE(RegisterColorSet(list, Set(7, i)));
    EXPECT_FALSE(RegisterColorSet(list, Set(4, 1)));
    // At the limit even a set already there is refused: the limit comes first.
    EXPECT_FALSE(RegisterColorSet(list, again));
    EXPECT_EQ(list.count(), 64);
    EXPECT_TRUE(*list.item(0) == Set(7, 63));
}

TEST(ColorSetTest, TextIsTheCountThenEveryChannel) {
    ColorSetRecord r = Set(3, 255), back;
    EXPECT_EQ(FormatColorSet(r), "3 255 0 0 255 1 0 255 2 0");
    ASSERT_TRUE(ParseColorSet(FormatColorSet(r), &back));
    EXPECT_TRUE(back == r);
}

TEST(ColorSetTest, ParsingCutsCountsAndChannelsAndKeepsWhatIsMissing) {
    ColorSetRecord r;
    ASSERT_TRUE(ParseColorSet("9 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20 21 22", &r));
    EXPECT_EQ(r.count, 7);
    EXPECT_EQ(r.colors[6], ColorRGB(19, 20, 21));
    // "x" counts as 0; a huge number stops at the int limit; channels keep 8 bits.
    ASSERT_TRUE(ParseColorSet("2 300 -1 256   7 x 99999999999", &r));
    EXPECT_EQ(r.count, 2);
    EXPECT_EQ(r.colors[0], ColorRGB(44, 255, 0));
    EXPECT_EQ(r.colors[1], ColorRGB(7, 0, 255));
    // Missing tokens keep the working record's earlier values.
    ASSERT_TRUE(ParseColorSet("3 1 2 3 4", &r));
    EXPECT_EQ(r.colors[1], ColorRGB(4, 0, 255));
    EXPECT_EQ(r.colors[2], ColorRGB(7, 8, 9));
    for (const char* bad : {"", "   ", "0 1 2 3", "-2 1 1 1", "abc", "\t"})
        EXPECT_TRUE(!ParseColorSet(bad, &r) && r.count == 3) << bad;
}

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
    g.SetSpiralTurns(-2);  // turns are not limited
    EXPECT_EQ(g.spiralAngle, -720.0f);
}

TEST(ParametersTest, EachObjectTakesItsOwnColorCounts) {
    // A gradation starts black to white and needs two colors; a refusal keeps what it had.
    KTEffectGradation g;
    ColorRGB out[3];
    int count = 0;
    g.GetColors(&count, out);
    ASSERT_EQ(count, 2);
    EXPECT_TRUE(out[0] == ColorRGB(0, 0, 0) && out[1] == ColorRGB(255, 255, 255));
    EXPECT_EQ(g.spiralAngle, 360.0f);
    ASSERT_EQ(g.SetColors(3, kThree), kOk);
    for (int bad : {1, -4}) EXPECT_EQ(g.SetColors(bad, kThree), kErrorInvalidParameter) << bad;
    ASSERT_EQ(g.colorCount, 3);
    EXPECT_EQ(g.colors[2], ColorRGB(7, 8, 9));

    KTEffectTile t;  // takes any count, none included
    EXPECT_TRUE(t.SetColors(1, kThree) == kOk && t.colorCount == 1 && t.colors[0] == kThree[0]);
    EXPECT_TRUE(t.SetColors(0, kThree) == kOk && t.colorCount == 0);

    // Floats for the isoline pattern, which refuses an empty list. The refused call leaves its
    // converted copy behind by design; the leak checker is told to expect it.
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
    ASSERT_TRUE(a.colorCount == 3 && a.colors != b.colors);
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
            EXPECT_EQ(std::memcmp(image->PixelAt(1, 0), "\x32\x64\xC8", 3), 0);
        }
    }
    EXPECT_EQ(source.bytesPerPixel, 1);
}

}  // namespace
