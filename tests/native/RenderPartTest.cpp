// What every effect and operation shares: it paints the part and nothing
// else, blending the part's anti-aliased edge by coverage; it refuses
// targets that do not fit and paints nothing into an empty part.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <string>

#include "RenderCanvas.h"

using namespace vellrender;

namespace {

const ColorRGB kFill(10, 200, 30), kWhite(255, 255, 255);

struct Painter {
    std::string name;
    std::function<int(const Picture&, const Part&)> paint;
    ColorRGB inside;  // what a fully covered pixel becomes on a picture of kFill
};

std::vector<Painter> Painters() {
    static const ColorRGB white[2] = {kWhite, kWhite};
    std::vector<Painter> painters;
    for (int type : {0, 1, 3, 4, 5, 6, 7, 8, 101, 104, 105, 106, 107, 108, 55}) {
        painters.push_back({"gradation " + std::to_string(type),
                            [=](const Picture& p, const Part& part) {
                                KTEffectGradation g;
                                g.SetType(type);
                                g.SetAngle(30);
                                g.SetColors(2, white);
                                return RenderGradation(g, p, part);
                            },
                            kWhite});
    }
    for (int shape = 0; shape < 5; ++shape) {
        painters.push_back({"tile " + std::to_string(shape),
                            [=](const Picture& p, const Part& part) {
                                KTEffectTile t;
                                t.SetShape(shape);
                                t.SetTileSize(7.0f, 5.0f);
                                t.SetSeamWidth(1.0f);
                                t.SetSeamColor(kWhite);
                                t.SetCorner(1, 0.5f);
                                t.SetAngle(20.0f);
                                t.SetColors(2, white);
                                return RenderTile(t, p, part);
                            },
                            kWhite});
    }
    for (int direction = 1; direction <= 7; ++direction) {
        painters.push_back({"stripe " + std::to_string(direction),
                            [=](const Picture& p, const Part& part) {
                                KTEffectStripe s;
                                s.SetDirection(direction);
                                s.SetInterval(6.0f);
                                s.SetColors(2, white);
                                return RenderStripe(s, p, part);
                            },
                            kWhite});
    }
    using P = const Picture&;
    using A = const Part&;
    painters.push_back({"uniform", [](P p, A a) { return FillUniform(kWhite, p, a); }, kWhite});
    painters.push_back({"blur", [](P p, A a) { return Blur(5.0f, p, a); }, kFill});
    painters.push_back({"invert", [](P p, A a) { return Invert(p, a); }, ColorRGB(245, 55, 225)});
    painters.push_back({"edge", [](P p, A a) { return DrawEdge(kWhite, 99.0f, p, a); }, kWhite});
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
        const ColorRGB e = painter.inside;
        // (e x 128 + fill x 127 + 127) / 255 per channel.
        auto half = [](int e, int f) { return (e * 128 + f * 127 + 127) / 255; };
        const ColorRGB rim(half(e.red, kFill.red), half(e.green, kFill.green),
                           half(e.blue, kFill.blue));
        for (int y = 0; y < 48; ++y) {
            for (int x = 0; x < 64; ++x) {
                const int a = canvas.Coverage(x, y);
                ASSERT_EQ(canvas.At(x, y), a == 0     ? kFill
                                           : a == 255 ? e
                                                      : rim)
                    << painter.name << " at " << x << "," << y;
            }
        }
    }
}

TEST(RenderPartTest, BadTargetsAreRefusedAndEmptyOrTinyPartsAreFine) {
    RenderCanvas canvas(8, 8), one(1, 1);
    Part outside = canvas.part;
    outside.right = 9;
    Part empty;
    for (const Painter& painter : Painters()) {
        EXPECT_EQ(painter.paint(canvas.picture, outside), -4) << painter.name;
        EXPECT_EQ(painter.paint(Picture(), canvas.part), -4) << painter.name;
        EXPECT_EQ(painter.paint(canvas.picture, empty), 0) << painter.name;
        EXPECT_EQ(painter.paint(one.picture, one.part), 0) << painter.name;
    }
    EXPECT_EQ(canvas.At(3, 3), ColorRGB(100, 100, 100));
}

}  // namespace
