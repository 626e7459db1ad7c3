// The mapping's copies: exact, tiled, mirrored, fitted, averaged; bad values.
#include <gtest/gtest.h>

#include <cmath>

#include "RenderCanvas.h"

using namespace vellrender;

namespace {

const ColorRGB kGrey(100, 100, 100);

// Red names the image column, green the row.
const auto kCoded = [](int x, int y) { return ColorRGB(30 * x, 40 * y, 9); };

TEST(MappingRenderTest, FullScaleShowsTheImagesPixelsTiledMirroredOrAlone) {
    KTMapping m;
    m.SetImage(RenderCanvas(7, 5).Fill(kCoded).image);
    for (int mode = 0; mode < 3; ++mode) {  // tiled, tiled mirrored, alone
        m.SetRepeat(mode < 2);
        m.SetSeamless(mode == 1);
        RenderCanvas canvas(30, 20);
        ASSERT_EQ(RenderMapping(m, 0.0f, canvas.picture, canvas.part), 0);
        int painted = 0;
        for (int i = 0; i < 30 * 20; ++i) {
            const int x = i % 30;
            const ColorRGB c = canvas.At(x, i / 30), next = canvas.At(std::min(x + 1, 29), i / 30);
            if (c == kGrey) continue;
            ++painted;
            EXPECT_TRUE(c.blue == 9 && c.red % 30 == 0 && c.green % 40 == 0) << i;
            const int a = c.red / 30, b = next.red / 30;
            if (x == 29 || next == kGrey) continue;
            const bool joined = mode == 0   ? b == (a + 1) % 7
                                : mode == 1 ? std::abs(b - a) == 1 || (a == b && a % 6 == 0)
                                            : b == a + 1;
            EXPECT_TRUE(joined) << mode << ": " << a << " then " << b;
        }
        EXPECT_EQ(painted, mode == 2 ? 35 : 600);
        // Centred: (15, 10) less half the image, to the nearest pixel.
        EXPECT_TRUE(canvas.At(12, 8) == kCoded(0, 0) && canvas.At(18, 12) == kCoded(6, 4)) << mode;
    }
}

TEST(MappingRenderTest, FitWholeMapsTheImagesCornersToTheBoxs) {
    KTMapping m;
    m.SetImage(RenderCanvas(2, 2).Fill(kCoded).image);
    m.SetRepeat(0);
    m.SetFitWhole(1);
    m.SetScale(0.3f);  // fit whole wins over scale and stretch
    RenderCanvas canvas(40, 30,
                        [](int x, int y) { return x > 4 && x < 33 && y > 3 && y < 21 ? 255 : 0; });
    ASSERT_EQ(RenderMapping(m, 1.0f, canvas.picture, canvas.part), 0);
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(canvas.At(i & 1 ? 32 : 5, i & 2 ? 20 : 4), kCoded(i & 1, i >> 1)) << i;
}

TEST(MappingRenderTest, ATenthOfAFineCheckerIsItsEvenGrey) {
    KTMapping m;
    m.SetImage(
        RenderCanvas(256, 256)
            .Fill([](int x, int y) { return (x + y) % 2 ? ColorRGB(255, 255, 255) : ColorRGB(); })
            .image);
    m.SetScale(0.1f);
    m.SetAngle(17.0f);
    RenderCanvas canvas(64, 48);
    ASSERT_EQ(RenderMapping(m, 0.0f, canvas.picture, canvas.part), 0);
    for (int i = 0; i < 64 * 48; ++i) EXPECT_NEAR(canvas.At(i % 64, i / 64).green, 127.5, 3) << i;
}

}  // namespace
