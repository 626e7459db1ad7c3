// The color ramp (bands, runs, bias, hue), each gradation type's defining property, dithering.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>

#include "RenderCanvas.h"
#include "render/ColorRamp.h"
#include "render/DistanceField.h"

using namespace vellrender;

namespace {

const ColorRGB kBlack(0, 0, 0), kWhite(255, 255, 255), kRed(255, 0, 0), kBlue(0, 0, 255);

ColorRamp Build(std::vector<ColorRGB> colors, float mix, float bias = 0, int repeat = 1,
                bool hue = false) {
    ColorRamp ramp;
    EXPECT_EQ(ramp.Build({colors.data(), int(colors.size()), mix, bias, hue, repeat}), 0);
    return ramp;
}

std::vector<ColorRGB> Sweep(const ColorRamp& ramp, int steps = 1000) {
    std::vector<ColorRGB> out;
    for (int i = 0; i <= steps; ++i) out.push_back(ramp.At(i / float(steps)));
    return out;
}

TEST(ColorRampTest, MixZeroRunsEqualBandsOfThePlainColorsRepeatTimes) {
    const std::vector<ColorRGB> colors = {kRed, ColorRGB(0, 200, 0), kBlue};
    for (int repeat : {1, 3, 7}) {
        const std::vector<ColorRGB> sweep = Sweep(Build(colors, 0.0f, 0, repeat), 8400);
        int counts[3] = {}, runs = 0;
        for (std::size_t i = 0; i < sweep.size(); ++i) {
            const auto band = std::find(colors.begin(), colors.end(), sweep[i]) - colors.begin();
            ASSERT_LT(band, 3) << i;
            ++counts[band];
            runs += sweep[i] == kRed && (i == 0 || sweep[i - 1] == kBlue);
        }
        for (int n : counts) EXPECT_NEAR(n, 2800, 2 * repeat);
        EXPECT_EQ(runs, repeat);
        EXPECT_EQ(sweep.back(), kBlue);
    }
}

TEST(ColorRampTest, BiasMovesTheMidpointTowardTheStatedEnd) {
    // Where a black-to-white blend passes half grey.
    auto midpoint = [](float bias) {
        const std::vector<ColorRGB> sweep = Sweep(Build({kBlack, kWhite}, 1.0f, bias));
        for (std::size_t i = 0; i < sweep.size(); ++i)
            if (sweep[i].red >= 128) return i / 1000.0f;
        return 1.0f;
    };
    // t^(2^(bias / 2.5)) is 0.5 at t = 0.5^(2^(-bias / 2.5)): a positive bias moves the
    // blend toward the last color's end.
    for (float bias : {-5.0f, -2.5f, 0.0f, 2.5f, 5.0f})
        EXPECT_NEAR(midpoint(bias), std::pow(0.5f, std::exp2(-bias / 2.5f)), 0.01f) << bias;
}

TEST(ColorRampTest, HueBlendGoesRoundTheCircleNotThroughGrey) {
    EXPECT_EQ(Build({kRed, kBlue}, 1.0f, 0, 1, true).At(0.5f), ColorRGB(255, 0, 255));  // magenta
    EXPECT_EQ(Build({kRed, kBlue}, 1.0f).At(0.5f), ColorRGB(127, 0, 128));  // in RGB: dark purple
    // A grey end keeps the other end's hue: red fades to white without a rainbow.
    for (const ColorRGB& c : Sweep(Build({kRed, kWhite}, 1.0f, 0, 1, true)))
        EXPECT_TRUE(c.green == c.blue && c.red >= c.green) << int(c.red) << " " << int(c.green);
}

TEST(GradationRenderTest, LinearTypesRunAlongTheirTurnedAxis) {
    // Type, angle, the black and the white end, and whether each row (1) or column is one color.
    const int cases[][7] = {{0, 0, 0, 15, 39, 15, 0},
                            {0, 90, 20, 0, 20, 29, 1},
                            {1, 0, 20, 29, 20, 0, 1},
                            {1, 90, 0, 15, 39, 15, 0}};
    for (const int* k : cases) {
        RenderCanvas c(40, 30);
        KTEffectGradation g;
        g.SetType(k[0]);
        g.SetAngle(k[1]);
        ASSERT_EQ(RenderGradation(g, c.picture, c.part), 0);
        EXPECT_TRUE(c.At(k[2], k[3]) == kBlack && c.At(k[4], k[5]) == kWhite)
            << k[0] << "," << k[1];
        for (int i = 0; i < 40 * 30; ++i)
            ASSERT_EQ(c.At(i % 40, i / 40), c.At(k[6] ? 0 : i % 40, k[6] ? i / 40 : 0)) << k[1];
    }
}

TEST(GradationRenderTest, CircleDependsOnlyOnTheDistanceFromTheCentre) {
    RenderCanvas canvas(61, 61);
    KTEffectGradation g;
    g.SetType(4);
    g.SetMix(1.0f);
    g.SetAngle(33);  // no effect on a circle
    ASSERT_EQ(RenderGradation(g, canvas.picture, canvas.part), 0);
    for (int i = 0; i < 61 * 61; ++i) {
        // The same distance in all eight octants.
        const int dx = i % 61 - 30, dy = i / 61 - 30;
        EXPECT_EQ(canvas.At(30 + dx, 30 + dy), canvas.At(30 + dy, 30 - dx));
        EXPECT_EQ(canvas.At(30 + dx, 30 + dy), canvas.At(30 - dx, 30 + dy));
    }
    EXPECT_LE(canvas.At(30, 30).red, 10);
    EXPECT_GE(canvas.At(0, 0).red, 245);
}

TEST(GradationRenderTest, OutlineIsTheExactDistanceToTheEdge) {
    // An L shape with a notch; the brute force distance is taken between pixel
    // centres to the nearest outside pixel, the picture's border included.
    auto inside = [](int x, int y) {
        const bool l =
            (x >= 2 && x < 30 && y >= 2 && y < 10) || (x >= 2 && x < 12 && y < 27 && y >= 2);
        return l && !(x == 20 && y == 5) ? 255 : 0;
    };
    RenderCanvas canvas(32, 28, inside);
    DistanceField field;
    ASSERT_EQ(field.Compute(canvas.part, 2), 0);
    float deepest = 0;
    for (int y = canvas.part.bottom; y < canvas.part.top; ++y)
        for (int x = canvas.part.left; x < canvas.part.right; ++x) {
            std::uint32_t best = inside(x, y) ? ~0u : 0;
            for (int oy = -1; oy <= 28 && best; ++oy)
                for (int ox = -1; ox <= 32; ++ox)
                    if (ox < 0 || oy < 0 || ox >= 32 || oy >= 28 || !inside(ox, oy))
                        best = std::min<std::uint32_t>(best,
                                                       (ox - x) * (ox - x) + (oy - y) * (oy - y));
            ASSERT_EQ(field.Squared(x, y), best) << x << "," << y;
            deepest = std::max(deepest, DistanceField::EdgeDistance(best));
        }
    KTEffectGradation g;
    g.SetType(3);
    g.SetMix(1.0f);
    ASSERT_EQ(RenderGradation(g, canvas.picture, canvas.part), 0);
    for (int i = 0; i < 32 * 28; ++i) {
        const int x = i % 32, y = i / 32;
        if (!inside(x, y)) continue;
        const float d = DistanceField::EdgeDistance(field.Squared(x, y));
        EXPECT_NEAR(canvas.At(x, y).red, 255 * d / deepest, 1.0) << x << "," << y;
    }
}

TEST(GradationRenderTest, FourCornersPutsEachColorInItsCorner) {
    RenderCanvas canvas(25, 17);
    KTEffectGradation g;
    g.SetType(7);
    const std::vector<ColorRGB> colors = {ColorRGB(255, 0, 0), ColorRGB(0, 255, 0),
                                          ColorRGB(0, 0, 255), ColorRGB(255, 255, 0)};
    g.SetColors(4, colors.data());
    ASSERT_EQ(RenderGradation(g, canvas.picture, canvas.part), 0);
    const int corners[4][2] = {{0, 16}, {24, 16}, {24, 0}, {0, 0}};  // clockwise from top left
    for (int i = 0; i < 4; ++i) EXPECT_EQ(canvas.At(corners[i][0], corners[i][1]), colors[i]) << i;
    EXPECT_EQ(canvas.At(12, 8), ColorRGB(128, 128, 64));
}

TEST(GradationRenderTest, DitherFollowsASlowBlendCloserThanRounding) {
    // Each column takes at most two neighbouring levels, whose mean follows
    // the blend closer than rounding could.
    KTEffectGradation g;
    g.SetMix(1.0f);
    const ColorRGB greys[2] = {ColorRGB(40, 40, 40), ColorRGB(60, 60, 60)};
    g.SetColors(2, greys);
    RenderCanvas dithered(200, 40);
    ASSERT_EQ(RenderGradation(g, dithered.picture, dithered.part, Options{0, 1, true}), 0);
    for (int x = 0; x < 200; x += 7) {
        double mean = 0;
        std::set<int> levels;
        for (int y = 0; y < 40; ++y) {
            mean += dithered.At(x, y).red / 40.0;
            levels.insert(dithered.At(x, y).red);
        }
        EXPECT_NEAR(mean, 40 + 20 * (x + 0.5) / 200, 0.2) << x;
        EXPECT_LE(levels.size(), 2u);
    }
}

}  // namespace
