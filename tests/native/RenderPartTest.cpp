// Every effect and operation paints only the part, blending its anti-aliased edge by coverage;
// it refuses targets that do not fit and paints nothing into an empty part. Then blur and edge.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <functional>
#include <string>

#include "RenderCanvas.h"
#include "render/DistanceField.h"

using namespace vellrender;

namespace {

const ColorRGB kFill(10, 200, 30), kWhite(255, 255, 255);
const ColorRGB kTwoWhite[2] = {kWhite, kWhite};

using P = const Picture&;
using A = const Part&;
using Paint = std::function<int(P, A)>;
struct Painter {
    std::string name;
    ColorRGB inside;  // what a fully covered pixel becomes on a picture of kFill
    Paint paint;
};

std::vector<Painter> Painters() {
    std::vector<Painter> painters;
    auto add = [&](std::string name, ColorRGB inside, Paint paint) {
        painters.push_back({name, inside, paint});
    };
    for (int type : {0, 1, 3, 4, 5, 6, 7, 8, 101, 104, 105, 106, 107, 108, 55}) {
        add("gradation " + std::to_string(type), kWhite, [=](P p, A part) {
            KTEffectGradation g;
            g.SetType(type);
            g.SetAngle(30);
            g.SetColors(2, kTwoWhite);
            return RenderGradation(g, p, part);
        });
    }
    for (int shape = 0; shape < 5; ++shape) {
        add("tile " + std::to_string(shape), kWhite, [=](P p, A part) {
            KTEffectTile t;
            t.SetShape(shape);
            t.SetTileSize(7.0f, 5.0f);
            t.SetSeamWidth(1.0f);
            t.SetSeamColor(kWhite);
            t.SetCorner(1, 0.5f);
            t.SetAngle(20.0f);
            t.SetColors(2, kTwoWhite);
            return RenderTile(t, p, part);
        });
    }
    for (int direction = 1; direction <= 7; ++direction) {
        add("stripe " + std::to_string(direction), kWhite, [=](P p, A part) {
            KTEffectStripe s;
            s.SetDirection(direction);
            s.SetInterval(6.0f);
            s.SetColors(2, kTwoWhite);
            return RenderStripe(s, p, part);
        });
    }
    add("uniform", ColorRGB(1, 2, 3), [](P p, A a) { return FillUniform({1, 2, 3}, p, a); });
    add("blur", kFill, [](P p, A a) { return Blur(5.0f, p, a); });
    add("invert", ColorRGB(245, 55, 225), [](P p, A a) { return Invert(p, a); });
    add("edge", kWhite, [](P p, A a) { return DrawEdge(kWhite, 99.0f, p, a); });
    return painters;
}

TEST(RenderPartTest, EveryEffectPaintsOnlyThePartAndBlendsItsEdge) {
    // A ring with a half-covered outer rim.
    auto ring = [](int x, int y) {
        const float r = std::hypot(x + 0.5f - 30, y + 0.5f - 22);
        return r < 8 || r > 18 ? 0 : (r > 17 ? 128 : 255);
    };
    for (const Painter& painter : Painters()) {
        RenderCanvas canvas(64, 48, ring, kFill);
        ASSERT_EQ(painter.paint(canvas.picture, canvas.part), 0) << painter.name;
        // (inside x 128 + fill x 127 + 127) / 255 per channel.
        const ColorRGB e = painter.inside;
        auto half = [](int e, int f) { return (e * 128 + f * 127 + 127) / 255; };
        const ColorRGB rim(half(e.red, kFill.red), half(e.green, kFill.green),
                           half(e.blue, kFill.blue));
        for (int i = 0; i < 64 * 48; ++i) {
            const int a = canvas.mask[i];
            ASSERT_EQ(canvas.At(i % 64, i / 64), a == 0 ? kFill : (a == 255 ? e : rim))
                << painter.name << " at " << i % 64 << "," << i / 64;
        }
    }
}

TEST(RenderPartTest, BadTargetsAreRefusedAndEmptyOrTinyPartsAreFine) {
    RenderCanvas canvas(8, 8), one(1, 1);
    Part outside = canvas.part;
    outside.right = 9;
    for (const Painter& painter : Painters()) {
        EXPECT_EQ(painter.paint(canvas.picture, outside), -4) << painter.name;
        EXPECT_EQ(painter.paint(Picture(), canvas.part), -4) << painter.name;
        EXPECT_EQ(painter.paint(canvas.picture, Part()), 0) << painter.name;
        EXPECT_EQ(painter.paint(one.picture, one.part), 0) << painter.name;
    }
    EXPECT_EQ(canvas.At(3, 3), ColorRGB(100, 100, 100));
}

const ColorRGB kGreen(0, 255, 0);

// Left half red, right half blue; the part a disc across both.
struct TwoHalves : RenderCanvas {
    TwoHalves() : RenderCanvas(60, 40, Disc(30, 20, 15)) {
        Fill([](int x, int) { return x < 30 ? ColorRGB(200, 0, 0) : ColorRGB(0, 0, 200); });
    }
};

TEST(OperationsRenderTest, BlurMixesOnlyThePartsOwnPixels) {
    // Outside the disc the picture is green; none of it may bleed in.
    TwoHalves canvas;
    canvas.Fill([&](int x, int y) { return canvas.mask[y * 60 + x] ? canvas.At(x, y) : kGreen; });
    ASSERT_EQ(Blur(6.0f, canvas.picture, canvas.part, Options{0, 2}), 0);
    for (int i = 0; i < 60 * 40; ++i) {
        // A mix of the two, no darker.
        const ColorRGB c = canvas.At(i % 60, i / 60);
        EXPECT_TRUE(!canvas.mask[i] || (c.green == 0 && std::abs(c.red + c.blue - 200) <= 2)) << i;
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
    ASSERT_EQ(DrawEdge(kGreen, 3.0f, canvas.picture, canvas.part), 0);
    for (int i = 0; i < 60 * 40; ++i) {
        const int x = i % 60, y = i / 60;
        if (canvas.mask[i] == 0) continue;
        // A pixel covers [d - 0.5, d + 0.5] across the line [0, 3].
        const float d = DistanceField::EdgeDistance(field.Squared(x, y));
        EXPECT_TRUE(d > 2.5f || canvas.At(x, y) == kGreen) << x << "," << y;
        EXPECT_TRUE(d < 3.5f || canvas.At(x, y) == original.At(x, y)) << x << "," << y;
    }
}

}  // namespace
