// Each gradation type's defining property on a simple part; threads and
// dithering.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>

#include "RenderCanvas.h"
#include "render/DistanceField.h"

using namespace vellrender;

namespace {

const ColorRGB kBlack(0, 0, 0), kWhite(255, 255, 255);

void SetColors(KTEffectGradation& g, std::vector<ColorRGB> colors) {
    g.SetColors(static_cast<int>(colors.size()), colors.data());
}

TEST(GradationRenderTest, HorizontalRunsLeftToRightAndIsConstantDownAColumn) {
    RenderCanvas canvas(40, 30);
    KTEffectGradation g;
    SetColors(g, {ColorRGB(255, 0, 0), ColorRGB(0, 255, 0), ColorRGB(0, 0, 255)});
    g.SetMix(1.0f);
    ASSERT_EQ(RenderGradation(g, canvas.picture, canvas.part), 0);
    for (int y = 0; y < 30; ++y) {
        EXPECT_GE(canvas.At(0, y).red, 240);
        EXPECT_GE(canvas.At(39, y).blue, 240);
        for (int x = 0; x < 40; ++x) EXPECT_EQ(canvas.At(x, y), canvas.At(x, 0));
    }
    // Turned a quarter, the same run goes bottom to top.
    g.SetAngle(90);
    ASSERT_EQ(RenderGradation(g, canvas.picture, canvas.part), 0);
    EXPECT_GE(canvas.At(20, 0).red, 240);
    EXPECT_GE(canvas.At(20, 29).blue, 240);
    EXPECT_EQ(canvas.At(0, 10), canvas.At(39, 10));
}

TEST(GradationRenderTest, VerticalRunsTopToBottom) {
    RenderCanvas canvas(20, 50);
    KTEffectGradation g;
    g.SetType(1);
    ASSERT_EQ(RenderGradation(g, canvas.picture, canvas.part), 0);
    EXPECT_EQ(canvas.At(5, 49), kBlack);  // the top row is the last stored
    EXPECT_EQ(canvas.At(5, 0), kWhite);
}

TEST(GradationRenderTest, CircleDependsOnlyOnTheDistanceFromTheCentre) {
    RenderCanvas canvas(61, 61);
    KTEffectGradation g;
    g.SetType(4);
    g.SetMix(1.0f);
    g.SetAngle(33);  // no effect on a circle
    ASSERT_EQ(RenderGradation(g, canvas.picture, canvas.part), 0);
    for (int y = 0; y < 61; ++y) {
        for (int x = 0; x < 61; ++x) {
            // The same distance in all eight octants.
            const int dx = x - 30, dy = y - 30;
            EXPECT_EQ(canvas.At(x, y), canvas.At(30 + dy, 30 - dx));
            EXPECT_EQ(canvas.At(x, y), canvas.At(30 - dx, 30 + dy));
        }
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
    for (int y = canvas.part.bottom; y < canvas.part.top; ++y) {
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
    }
    KTEffectGradation g;
    g.SetType(3);
    g.SetMix(1.0f);
    ASSERT_EQ(RenderGradation(g, canvas.picture, canvas.part), 0);
    for (int y = 0; y < 28; ++y) {
        for (int x = 0; x < 32; ++x) {
            if (!inside(x, y)) continue;
            const float d = DistanceField::EdgeDistance(field.Squared(x, y));
            EXPECT_NEAR(canvas.At(x, y).red, 255 * d / deepest, 1.0) << x << "," << y;
        }
    }
}

TEST(GradationRenderTest, FourCornersPutsEachColorInItsCorner) {
    RenderCanvas canvas(25, 17);
    KTEffectGradation g;
    g.SetType(7);
    const std::vector<ColorRGB> colors = {ColorRGB(255, 0, 0), ColorRGB(0, 255, 0),
                                          ColorRGB(0, 0, 255), ColorRGB(255, 255, 0)};
    SetColors(g, colors);
    ASSERT_EQ(RenderGradation(g, canvas.picture, canvas.part), 0);
    EXPECT_EQ(canvas.At(0, 16), colors[0]);   // top left
    EXPECT_EQ(canvas.At(24, 16), colors[1]);  // top right
    EXPECT_EQ(canvas.At(24, 0), colors[2]);   // bottom right
    EXPECT_EQ(canvas.At(0, 0), colors[3]);    // bottom left
    EXPECT_EQ(canvas.At(12, 8), ColorRGB(128, 128, 64));
}

TEST(GradationRenderTest, ThreadsAndDitherKeepThePixelsTheyShould) {
    KTEffectGradation g;
    g.SetType(106);
    g.SetMix(1.0f);
    g.SetAngle(20);
    SetColors(g, {ColorRGB(40, 40, 40), ColorRGB(60, 60, 60)});
    RenderCanvas one(300, 200, Disc(150, 100, 90)), two(300, 200, Disc(150, 100, 90));
    Options options;
    ASSERT_EQ(RenderGradation(g, one.picture, one.part, options), 0);
    options.threads = 2;
    ASSERT_EQ(RenderGradation(g, two.picture, two.part, options), 0);
    EXPECT_EQ(one.Bytes(), two.Bytes());
    // A slow blend dithered: neighbours differ by at most one step, and the
    // mean over a column band still follows the blend.
    g.SetType(0);
    g.SetAngle(0);
    RenderCanvas dithered(200, 40);
    options.dither = true;
    ASSERT_EQ(RenderGradation(g, dithered.picture, dithered.part, options), 0);
    for (int x = 0; x < 200; x += 20) {
        double mean = 0;
        std::set<int> levels;
        for (int y = 0; y < 40; ++y) {
            mean += dithered.At(x, y).red / 40.0;
            levels.insert(dithered.At(x, y).red);
        }
        EXPECT_NEAR(mean, 40 + 20 * (x + 0.5) / 200, 0.6) << x;
        EXPECT_LE(levels.size(), 2u);
    }
}

}  // namespace
