#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

#include "params/ColorArithmetic.h"
#include "vellcolor/ColorF.h"
#include "vellcolor/RandomGenerator.h"

namespace {

ColorRGB Rgb(int r, int g, int b) {
    return ColorRGB(static_cast<unsigned char>(r), static_cast<unsigned char>(g),
                    static_cast<unsigned char>(b));
}

void ExpectHLS(const ColorF& c, float h, float l, float s) {
    float hh, ll, ss;
    c.getHLS(&hh, &ll, &ss);
    EXPECT_NEAR(hh, h, 1e-3f);
    EXPECT_NEAR(ll, l, 1e-5f);
    EXPECT_NEAR(ss, s, 1e-5f);
}

float Hue(const ColorRGB& c) {
    float h, l, s;
    ColorF::FromRGB(c).getHLS(&h, &l, &s);
    return h;
}

TEST(ColorTest, BytesAndFloatsConvertByDivisionAndTruncation) {
    EXPECT_EQ(ColorF::FromRGB(Rgb(255, 0, 51)).red, 1.0f);
    EXPECT_EQ(ColorF::FromRGB(Rgb(255, 255, 255)).ToRGB(), Rgb(255, 255, 255));
    EXPECT_EQ(ColorF(0.5f, 0.999f, 0.0f).ToRGB(), Rgb(127, 254, 0));
    for (int v = 0; v < 256; ++v) EXPECT_EQ(ColorF::FromRGB(Rgb(v, v, v)).ToRGB(), Rgb(v, v, v));
    // Out-of-range floats stop at the ends instead of wrapping.
    EXPECT_EQ(ColorF(1.5f, -0.2f, 0.0f).ToRGB(), Rgb(255, 0, 0));
    EXPECT_EQ(Rgb(1, 2, 3).ToColorRef(), 0x030201ul);
}

TEST(ColorTest, HueOfPureRedIsKeptAt360AndGraysHaveNoHue) {
    ExpectHLS(ColorF(1, 0, 0), 360.0f, 0.5f, 1.0f);
    ExpectHLS(ColorF(0.5f, 0.5f, 0.5f), 0.0f, 0.5f, 0.0f);
    ExpectHLS(ColorF(0, 1, 0), 120.0f, 0.5f, 1.0f);
    ExpectHLS(ColorF(0, 0, 1), 240.0f, 0.5f, 1.0f);
    ExpectHLS(ColorF(1, 0, 1), 300.0f, 0.5f, 1.0f);
    ExpectHLS(ColorF(1, 0.5f, 0.5f), 360.0f, 0.75f, 1.0f);
}

TEST(ColorTest, HLSToRGBClampsAndRoundTrips) {
    ColorF c;
    c.setHLS(360.0f, 0.5f, 1.0f);
    EXPECT_EQ(c.ToRGB(), Rgb(255, 0, 0));
    c.setHLS(500.0f, 0.5f, 1.0f);  // clamped to 360
    EXPECT_EQ(c.ToRGB(), Rgb(255, 0, 0));
    c.setHLS(60.0f, 0.5f, 1.0f);
    EXPECT_EQ(c.ToRGB(), Rgb(255, 255, 0));
    c.setHLS(200.0f, 0.3f, 0.0f);  // no saturation: a gray of the lightness
    EXPECT_EQ(c.red, 0.3f);
    EXPECT_EQ(c.blue, 0.3f);
    c.setHLS(120.0f, 2.0f, -1.0f);
    EXPECT_EQ(c.ToRGB(), Rgb(255, 255, 255));

    const ColorF samples[] = {{0.2f, 0.4f, 0.6f}, {0.9f, 0.1f, 0.3f}, {0.25f, 0.75f, 0.7f}};
    for (const ColorF& original : samples) {
        float h, l, s;
        original.getHLS(&h, &l, &s);
        ColorF back;
        back.setHLS(h, l, s);
        EXPECT_NEAR(back.red, original.red, 1e-5f);
        EXPECT_NEAR(back.green, original.green, 1e-5f);
        EXPECT_NEAR(back.blue, original.blue, 1e-5f);
    }
}

TEST(ColorTest, RandomCategoriesDrawFromTheirRanges) {
    ModuleRandom().Seed(1234);
    for (int i = 0; i < 500; ++i) {
        const ColorRGB gray = RandomColor(kRandomGray, ColorRGB()).ToRGB();
        EXPECT_TRUE(gray.red == gray.green && gray.green == gray.blue);

        const ColorRGB reddish = RandomColor(kRandomReddish, ColorRGB()).ToRGB();
        EXPECT_EQ(reddish.red, 255);
        EXPECT_EQ(reddish.green, reddish.blue);
        EXPECT_LE(reddish.green, 229);
        EXPECT_EQ(RandomColor(kRandomGreenish, ColorRGB()).ToRGB().green, 255);
        EXPECT_EQ(RandomColor(kRandomBluish, ColorRGB()).ToRGB().blue, 255);

        float h, l, s;
        RandomColor(kRandomCool, ColorRGB()).getHLS(&h, &l, &s);
        EXPECT_GE(h, 150.0f - 1e-3f);
        EXPECT_LE(h, 320.0f + 1e-3f);
        EXPECT_GE(l, 0.5f - 1e-5f);
        EXPECT_LE(l, 0.9f + 1e-5f);

        RandomColor(kRandomPrimary, ColorRGB()).getHLS(&h, &l, &s);
        EXPECT_NEAR(l, 0.5f, 0.025f + 1e-5f);
        EXPECT_GE(s, 0.95f - 1e-4f);

        RandomColor(kRandomDark, ColorRGB()).getHLS(&h, &l, &s);
        EXPECT_LE(l, 0.25f + 1e-5f);

        const ColorRGB near = RandomColor(kRandomNear, Rgb(250, 128, 3)).ToRGB();
        EXPECT_GE(near.red, 224);  // one-sided at the top edge
        EXPECT_NEAR(near.green, 128, 25);
        EXPECT_LE(near.blue, 28);
    }
}

TEST(ColorTest, WarmHuesWrapAroundRed) {
    ModuleRandom().Seed(99);
    int wrapped = 0;
    for (int i = 0; i < 2000; ++i) {
        float h, l, s;
        RandomColor(kRandomWarm, ColorRGB()).getHLS(&h, &l, &s);
        EXPECT_TRUE(h <= 60.0f + 1e-3f || h >= 350.0f - 1e-3f) << h;
        if (h >= 350.0f - 1e-3f) ++wrapped;
    }
    EXPECT_GT(wrapped, 0);
}

TEST(ColorTest, FillRandomUsesEachSlotsOwnColorForNearColors) {
    ColorRGB slots[3] = {Rgb(0, 0, 0), Rgb(255, 255, 255), Rgb(100, 100, 100)};
    FillRandom(slots, 2, kRandomNear);
    EXPECT_LE(slots[0].red, 25);
    EXPECT_GE(slots[1].red, 230);
    EXPECT_EQ(slots[2], Rgb(100, 100, 100));  // beyond the count: untouched
}

TEST(ColorTest, RainbowSpreadsSevenSaturatedHues) {
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
    ColorRGB two[2] = {Rgb(0, 0, 0), Rgb(255, 255, 255)};
    InterpolateRGB(two, 2);
    EXPECT_EQ(two[0], Rgb(0, 0, 0));
    EXPECT_EQ(two[1], Rgb(255, 255, 255));

    ColorRGB four[4] = {Rgb(0, 255, 10), Rgb(9, 9, 9), Rgb(9, 9, 9), Rgb(255, 0, 20)};
    InterpolateRGB(four, 4);
    EXPECT_EQ(four[1], Rgb(85, 170, 13));
    EXPECT_EQ(four[2], Rgb(170, 85, 16));
    EXPECT_EQ(four[3], Rgb(255, 0, 20));

    ColorRGB three[3] = {Rgb(0, 0, 0), Rgb(1, 2, 3), Rgb(255, 255, 255)};
    InterpolateRGB(three, 3);
    EXPECT_EQ(three[1], Rgb(127, 127, 127));
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

    // Too few colors: nothing changes, not even the direction.
    ColorRGB two[2] = {Rgb(255, 0, 0), Rgb(0, 0, 255)};
    InterpolateHue(two, 2, &direction);
    EXPECT_EQ(direction, 0);
}

TEST(ColorTest, HueInterpolationBetweenEqualHuesSweepsTheWholeCircle) {
    int direction = 0;
    ColorRGB slots[7] = {Rgb(255, 0, 0), {}, {}, {}, {}, {}, Rgb(255, 0, 0)};
    InterpolateHue(slots, 7, &direction);
    for (int i = 1; i < 6; ++i) EXPECT_NEAR(Hue(slots[i]), 60.0f * i, 1.5f) << i;
    InterpolateHue(slots, 7, &direction);
    for (int i = 1; i < 6; ++i) EXPECT_NEAR(Hue(slots[i]), 360.0f - 60.0f * i, 1.5f) << i;

    // Two grays: the hue still goes all the way round, but without
    // saturation every step stays gray.
    ColorRGB grays[4] = {Rgb(128, 128, 128), {}, {}, Rgb(128, 128, 128)};
    InterpolateHue(grays, 4, &direction);
    EXPECT_EQ(grays[1], Rgb(128, 128, 128));
}

TEST(ColorTest, FluctuationStaysNearTheStoredColor) {
    ModuleRandom().Seed(5);
    bool moved = false;
    for (int i = 0; i < 300; ++i) {
        const ColorRGB c = Fluctuate(Rgb(100, 0, 255));
        EXPECT_NEAR(c.red, 100, 43);
        EXPECT_LE(c.green, 43);
        EXPECT_GE(c.blue, 212);
        moved = moved || c != Rgb(100, 0, 255);
    }
    EXPECT_TRUE(moved);
}

TEST(ColorTest, RotationAndReversalOfTheInUseSlots) {
    ColorRGB s[5] = {Rgb(1, 0, 0), Rgb(2, 0, 0), Rgb(3, 0, 0), Rgb(4, 0, 0), Rgb(9, 9, 9)};
    RotateLeft(s, 4);
    EXPECT_EQ(s[0].red, 2);
    EXPECT_EQ(s[3].red, 1);
    RotateRight(s, 4);
    EXPECT_EQ(s[0].red, 1);
    EXPECT_EQ(s[3].red, 4);
    Reverse(s, 4);
    EXPECT_EQ(s[0].red, 4);
    EXPECT_EQ(s[3].red, 1);
    EXPECT_EQ(s[4], Rgb(9, 9, 9));
}

}  // namespace
