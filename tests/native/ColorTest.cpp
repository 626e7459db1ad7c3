#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <vector>

#include "params/ColorArithmetic.h"
#include "vellcolor/ColorF.h"
#include "vellcolor/RandomGenerator.h"

namespace {

ColorRGB Rgb(int r, int g, int b) {
    return ColorRGB(static_cast<unsigned char>(r), static_cast<unsigned char>(g),
                    static_cast<unsigned char>(b));
}

float Hue(const ColorRGB& c) {
    float h, l, s;
    ColorF::FromRGB(c).getHLS(&h, &l, &s);
    return h;
}

TEST(ColorTest, BytesAndFloatsConvertByDivisionAndTruncation) {
    EXPECT_EQ(ColorF::FromRGB(Rgb(255, 0, 51)).red, 1.0f);
    EXPECT_EQ(ColorF(0.5f, 0.999f, 0.0f).ToRGB(), Rgb(127, 254, 0));
    for (int v = 0; v < 256; ++v) EXPECT_EQ(ColorF::FromRGB(Rgb(v, v, v)).ToRGB(), Rgb(v, v, v));
    // Out-of-range floats stop at the ends instead of wrapping.
    EXPECT_EQ(ColorF(1.5f, -0.2f, 0.0f).ToRGB(), Rgb(255, 0, 0));
    EXPECT_EQ(Rgb(1, 2, 3).ToColorRef(), 0x030201ul);
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
    ColorF c;
    c.setHLS(500.0f, 0.5f, 1.0f);  // clamped to 360
    EXPECT_EQ(c.ToRGB(), Rgb(255, 0, 0));
    c.setHLS(60.0f, 0.5f, 1.0f);
    EXPECT_EQ(c.ToRGB(), Rgb(255, 255, 0));
    c.setHLS(200.0f, 0.3f, 0.0f);  // no saturation: a gray of the lightness
    EXPECT_EQ(c.red, 0.3f);
    EXPECT_EQ(c.blue, 0.3f);
    c.setHLS(120.0f, 2.0f, -1.0f);
    EXPECT_EQ(c.ToRGB(), Rgb(255, 255, 255));
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
        ColorRGB slots[3] = {Rgb(250, 128, 3), Rgb(0, 0, 0), Rgb(100, 100, 100)};
        FillRandom(slots, 2, kRandomNear);
        EXPECT_TRUE(slots[0].red >= 224 && std::abs(slots[0].green - 128) <= 25 &&
                    slots[0].blue <= 28 && slots[1].red <= 25);
        EXPECT_EQ(slots[2], Rgb(100, 100, 100));  // beyond the count: untouched
    }
    EXPECT_GT(warmWrapped, 0);
}

TEST(ColorTest, RainbowSpreadsSaturatedHues) {
    ColorRGB slots[7];
    FillRainbow(slots, 7);
    EXPECT_EQ(slots[0], Rgb(255, 0, 0));
    for (int i = 1; i < 7; ++i) {
        const ColorRGB& c = slots[i];
        EXPECT_EQ(std::max({c.red, c.green, c.blue}), 255);
        EXPECT_EQ(std::min({c.red, c.green, c.blue}), 0);
        EXPECT_NEAR(Hue(c), i * 360.0f / 7, 1.5f);
    }
}

TEST(ColorTest, RGBInterpolationChangesOnlyTheInnerSlotsByTruncation) {
    ColorRGB two[2] = {Rgb(0, 0, 0), Rgb(9, 9, 9)};
    InterpolateRGB(two, 2);
    EXPECT_EQ(two[1], Rgb(9, 9, 9));
    std::vector<ColorRGB> four = {Rgb(0, 255, 10), Rgb(9, 9, 9), Rgb(9, 9, 9), Rgb(255, 0, 20)};
    InterpolateRGB(four.data(), 4);
    EXPECT_EQ(four, (std::vector<ColorRGB>{Rgb(0, 255, 10), Rgb(85, 170, 13), Rgb(170, 85, 16),
                                           Rgb(255, 0, 20)}));
}

TEST(ColorTest, HueInterpolationAlternatesItsWayRoundTheCircle) {
    int direction = 0;
    ColorRGB slots[3] = {Rgb(255, 0, 0), Rgb(0, 0, 0), Rgb(0, 0, 255)};
    InterpolateHue(slots, 3, &direction);
    EXPECT_EQ(slots[1], Rgb(0, 255, 0));  // 360 -> 480 (120) -> 600: up through green
    EXPECT_EQ(direction, 1);
    InterpolateHue(slots, 3, &direction);
    EXPECT_EQ(slots[1], Rgb(255, 0, 255));  // down through magenta
    EXPECT_EQ(direction, 0);
    InterpolateHue(slots, 2, &direction);  // too few colors: not even the direction changes
    EXPECT_EQ(direction, 0);

    // Equal hues sweep the whole circle; grays stay gray on the way.
    ColorRGB circle[7] = {Rgb(255, 0, 0), {}, {}, {}, {}, {}, Rgb(255, 0, 0)};
    InterpolateHue(circle, 7, &direction);
    for (int i = 1; i < 6; ++i) EXPECT_NEAR(Hue(circle[i]), 60.0f * i, 1.5f) << i;
    InterpolateHue(circle, 7, &direction);
    for (int i = 1; i < 6; ++i) EXPECT_NEAR(Hue(circle[i]), 360.0f - 60.0f * i, 1.5f) << i;
    ColorRGB grays[4] = {Rgb(128, 128, 128), {}, {}, Rgb(128, 128, 128)};
    InterpolateHue(grays, 4, &direction);
    EXPECT_EQ(grays[1], Rgb(128, 128, 128));
}

}  // namespace
