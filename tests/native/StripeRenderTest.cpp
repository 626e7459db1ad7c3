// The stripe's geometry, crossings, background, cross-section and grain.
#include <gtest/gtest.h>

#include <cmath>

#include "RenderCanvas.h"
#include "params/StripeTexture.h"

using namespace vellrender;

namespace {

// Bands of the default color, orange (255, 128, 0), on white.
KTEffectStripe Stripe(int direction, float interval, int texture = 0, float crossing = 0.5f) {
    KTEffectStripe s;
    s.SetDirection(direction);
    s.SetInterval(interval);
    s.SetTexture(texture);
    s.SetIntersectionBrightness(crossing);
    return s;
}

RenderCanvas& Paint(RenderCanvas& c, const KTEffectStripe& s, const Options& o = Options()) {
    EXPECT_EQ(RenderStripe(s, c.picture, c.part, o), 0);
    return c;
}

TEST(StripeRenderTest, BandsRepeatEveryIntervalFromTheBoxsCentreAndCrossingsShade) {
    // Direction, crossing brightness in quarters, the green at the centre, and one interval
    // across every family (dx, dy): half of that from the centre is between the bands.
    const int cases[][5] = {{1, 2, 128, 0, 12},  {2, 2, 128, 12, 0},  {3, 0, 0, 12, 12},
                            {3, 1, 64, 12, 12},  {3, 4, 255, 12, 12}, {4, 2, 128, 12, -12},
                            {5, 2, 128, 12, 12}, {6, 2, 128, 24, 0},  {6, 0, 0, 24, 0}};
    for (const int* k : cases) {
        RenderCanvas c(96, 96);
        Paint(c, Stripe(k[0], k[0] > 3 ? 12 * std::sqrt(2.0f) : 12, 0, k[1] / 4.0f));
        EXPECT_NEAR(c.At(48, 48).green, k[2], 1) << k[0] << "," << k[1];
        EXPECT_EQ(c.At(48 + k[3] / 2, 48 + k[4] / 2).green, 255) << k[0];
        for (int y = 20; y < 68; ++y)
            for (int x = 20; x < 68; ++x)
                ASSERT_NEAR(c.At(x + k[3], y + k[4]).green, c.At(x, y).green, 1) << k[0];
    }
}

TEST(StripeRenderTest, ModeOneKeepsThePartsPixelsWhereOthersPutTheColor) {
    const ColorRGB green(0, 90, 0);
    for (int i = 0; i < 8; ++i) {  // every way of painting
        RenderCanvas own(120, 80, Disc(60, 40, 38), green), chosen(120, 80, Disc(60, 40, 38));
        KTEffectStripe s = Stripe(1 + i / 2, 16, 2 * (i % 2));
        Paint(own, s.SetBackgroundMode(1));
        s.SetBackgroundColor(green);
        Paint(chosen, s.SetBackgroundMode(7));
        for (int p = 0; p < 120 * 80; ++p)
            ASSERT_TRUE(!own.mask[p] || own.At(p % 120, p / 120) == chosen.At(p % 120, p / 120));
    }
}

TEST(StripeRenderTest, CrossSectionFollowsTheTextureFactor) {
    // One band 200 px wide: 255 - (255 - 128) x factor, but for steps within a pixel.
    for (int texture : {0, 3, 4, 5, 6, 7, 9}) {
        RenderCanvas c(4, 200);
        Paint(c, Stripe(1, 400, texture));
        auto factor = [&](float t) { return StripeTextureFactor(texture % 9, t, 0); };
        for (int y = 0; y < 200; ++y) {
            const float t = std::fabs(y + 0.5f - 100) / 100;
            if (std::fabs(factor(t - 0.006f) - factor(t + 0.006f)) > 0.1f) continue;
            EXPECT_NEAR(c.At(1, y).green, 255 - 127 * factor(t), 1.0) << texture << "," << y;
        }
    }
}

TEST(StripeRenderTest, GrainDependsOnTheSeedAndNotOnThreads) {
    for (int i = 0; i < 4; ++i) {
        auto render = [i](unsigned int seed, int threads) {
            RenderCanvas c(300, 200, Disc(150, 100, 90));
            return Paint(c, Stripe(1 + 5 * (i / 2), 30, 1 + i % 2), Options{seed, threads}).Bytes();
        };
        EXPECT_EQ(render(7, 1), render(7, 2)) << i;
        EXPECT_NE(render(7, 1), render(8, 1)) << i;
    }
}

}  // namespace
