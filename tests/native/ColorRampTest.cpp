// The shared color ramp: bands, blends, runs, bias and hue.
#include <gtest/gtest.h>

#include <set>
#include <vector>

#include "render/ColorRamp.h"

using vellrender::ColorRamp;
using vellrender::RampSettings;

namespace {

const ColorRGB kRed(255, 0, 0), kBlue(0, 0, 255), kBlack(0, 0, 0), kWhite(255, 255, 255);

std::vector<ColorRGB> Sweep(const ColorRamp& ramp, int steps = 1000) {
    std::vector<ColorRGB> out;
    for (int i = 0; i <= steps; ++i) out.push_back(ramp.At(i / float(steps)));
    return out;
}

ColorRamp Build(std::vector<ColorRGB> colors, float mix, float bias = 0, int repeat = 1,
                bool hue = false) {
    RampSettings s;
    s.colors = colors.data();
    s.count = static_cast<int>(colors.size());
    s.mix = mix;
    s.bias = bias;
    s.repeat = repeat;
    s.hue = hue;
    ColorRamp ramp;
    EXPECT_EQ(ramp.Build(s), 0);
    return ramp;
}

int Channel(const ColorRGB& c) {
    return c.red + c.green + c.blue;
}

TEST(ColorRampTest, MixZeroGivesEqualBandsOfThePlainColors) {
    const std::vector<ColorRGB> colors = {kRed, ColorRGB(0, 200, 0), kBlue};
    const std::vector<ColorRGB> sweep = Sweep(Build(colors, 0.0f), 3000);
    int counts[3] = {0, 0, 0};
    for (const ColorRGB& c : sweep) {
        const int band = c == colors[0] ? 0 : c == colors[1] ? 1 : c == colors[2] ? 2 : -1;
        ASSERT_GE(band, 0);
        ++counts[band];
    }
    for (int n : counts) EXPECT_NEAR(n, 1000, 5);
    EXPECT_EQ(sweep.front(), kRed);
    EXPECT_EQ(sweep.back(), kBlue);
}

TEST(ColorRampTest, MixOneIsContinuousFromEndToEnd) {
    const std::vector<ColorRGB> sweep = Sweep(Build({kBlack, kWhite, kBlack}, 1.0f));
    EXPECT_EQ(sweep.front(), kBlack);
    EXPECT_EQ(sweep[500], kWhite);
    EXPECT_EQ(sweep.back(), kBlack);
    for (std::size_t i = 1; i < sweep.size(); ++i)
        EXPECT_LE(std::abs(Channel(sweep[i]) - Channel(sweep[i - 1])), 3 * 2) << i;
}

TEST(ColorRampTest, RepeatRunsTheColorsThatManyTimes) {
    for (int repeat : {1, 3, 7}) {
        const std::vector<ColorRGB> sweep = Sweep(Build({kBlack, kWhite}, 0.0f, 0, repeat), 7000);
        int runs = 1;
        for (std::size_t i = 1; i < sweep.size(); ++i)
            runs += sweep[i] == kBlack && sweep[i - 1] == kWhite;
        EXPECT_EQ(runs, repeat);
        EXPECT_EQ(sweep.back(), kWhite);
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
    EXPECT_NEAR(midpoint(0), 0.5f, 0.01f);
    float previous = 0;
    for (float bias : {-5.0f, -2.5f, 0.0f, 2.5f, 5.0f}) {
        EXPECT_GT(midpoint(bias), previous) << bias;  // positive: toward the last color's end
        previous = midpoint(bias);
    }
    EXPECT_GT(midpoint(5), 0.8f);
    EXPECT_LT(midpoint(-5), 0.2f);
}

TEST(ColorRampTest, HueBlendGoesRoundTheCircleNotThroughGrey) {
    const ColorRGB middle = Build({kRed, kBlue}, 1.0f, 0, 1, true).At(0.5f);
    EXPECT_EQ(middle, ColorRGB(255, 0, 255));  // magenta, the shorter way
    EXPECT_EQ(Build({kRed, kBlue}, 1.0f).At(0.5f), ColorRGB(127, 0, 128));  // in RGB: dark purple
    // A grey end keeps the other end's hue: red fades to white without a rainbow.
    for (const ColorRGB& c : Sweep(Build({kRed, kWhite}, 1.0f, 0, 1, true)))
        EXPECT_TRUE(c.green == c.blue && c.red >= c.green) << int(c.red) << " " << int(c.green);
}

}  // namespace
