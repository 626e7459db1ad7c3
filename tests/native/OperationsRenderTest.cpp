// The four one-shot operations.
#include <gtest/gtest.h>

#include <cmath>

#include "RenderCanvas.h"
#include "render/DistanceField.h"

using namespace vellrender;

namespace {

// Left half red, right half blue; the part a disc across both.
struct TwoHalves : RenderCanvas {
    TwoHalves() : RenderCanvas(60, 40, Disc(30, 20, 15)) {
        for (int y = 0; y < 40; ++y)
            for (int x = 0; x < 60; ++x)
                Set(x, y, x < 30 ? ColorRGB(200, 0, 0) : ColorRGB(0, 0, 200));
    }
};

TEST(OperationsRenderTest, UniformFillsAndInvertTwiceRestores) {
    TwoHalves canvas;
    const std::vector<unsigned char> before = canvas.Bytes();
    ASSERT_EQ(Invert(canvas.picture, canvas.part), 0);
    EXPECT_EQ(canvas.At(20, 20), ColorRGB(55, 255, 255));
    ASSERT_EQ(Invert(canvas.picture, canvas.part), 0);
    EXPECT_EQ(canvas.Bytes(), before);
    ASSERT_EQ(FillUniform(ColorRGB(1, 2, 3), canvas.picture, canvas.part), 0);
    EXPECT_EQ(canvas.At(30, 20), ColorRGB(1, 2, 3));
    EXPECT_EQ(canvas.At(2, 2), ColorRGB(200, 0, 0));
}

TEST(OperationsRenderTest, BlurMixesOnlyThePartsOwnPixels) {
    // Outside the disc the picture is green; none of it may bleed in.
    TwoHalves canvas;
    for (int y = 0; y < 40; ++y)
        for (int x = 0; x < 60; ++x)
            if (canvas.Coverage(x, y) == 0) canvas.Set(x, y, ColorRGB(0, 255, 0));
    ASSERT_EQ(Blur(6.0f, canvas.picture, canvas.part), 0);
    for (int y = 0; y < 40; ++y) {
        for (int x = 0; x < 60; ++x) {
            const ColorRGB c = canvas.At(x, y);
            if (canvas.Coverage(x, y) == 0) continue;
            EXPECT_EQ(c.green, 0) << x << "," << y;
            EXPECT_NEAR(c.red + c.blue, 200, 2) << x << "," << y;  // a mix of the two, no darker
        }
    }
    // Across the middle the halves now blend; far from it they stay.
    EXPECT_NEAR(canvas.At(29, 20).red, 100, 20);
    EXPECT_EQ(canvas.At(17, 20), ColorRGB(200, 0, 0));
    // A radius below half a pixel changes nothing; NaN neither.
    const std::vector<unsigned char> before = canvas.Bytes();
    EXPECT_EQ(Blur(0.2f, canvas.picture, canvas.part), 0);
    EXPECT_EQ(Blur(NAN, canvas.picture, canvas.part), 0);
    EXPECT_EQ(canvas.Bytes(), before);
}

TEST(OperationsRenderTest, EdgeIsALineOfTheGivenWidthInsideThePart) {
    TwoHalves canvas;
    DistanceField field;
    ASSERT_EQ(field.Compute(canvas.part, 1), 0);
    const TwoHalves original;
    ASSERT_EQ(DrawEdge(ColorRGB(0, 255, 0), 3.0f, canvas.picture, canvas.part), 0);
    for (int y = 0; y < 40; ++y) {
        for (int x = 0; x < 60; ++x) {
            if (canvas.Coverage(x, y) == 0) continue;
            const float d = DistanceField::EdgeDistance(field.Squared(x, y));
            // A pixel covers [d - 0.5, d + 0.5] across the line [0, 3].
            if (d <= 2.5f) {
                EXPECT_EQ(canvas.At(x, y), ColorRGB(0, 255, 0)) << x << "," << y;
            } else if (d >= 3.5f) {
                EXPECT_EQ(canvas.At(x, y), original.At(x, y)) << x << "," << y;
            }
        }
    }
}

}  // namespace
