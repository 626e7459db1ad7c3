// The isoline pattern: nearest points, its shapes' periods, its images (bad values: fuzz_render).
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <memory>
#include <set>

#include "RenderCanvas.h"
#include "render/PointField.h"

using namespace vellrender;

namespace {

const ColorRGB kTwo[2] = {ColorRGB(200, 30, 30), ColorRGB(30, 30, 200)};
const ColorRGB kRed(255, 0, 0), kBlue(0, 0, 255);

struct Pattern : KTEffectDensityPattern {
    Pattern(int type, int points = 1) {
        SetPatternType(type);
        SetReferencePoints(points);
        SetColors(2, kTwo);
        SetBorderWidth(0);
        SetRemoveJaggies(0);
        SetRadialLines(8);
        // Left half red, right half blue.
        SetImage(RenderCanvas(16, 16).Fill([](int x, int) { return x < 8 ? kRed : kBlue; }).image);
        SetImageSize(40);
    }
};

std::unique_ptr<RenderCanvas> Painted(const KTEffectDensityPattern& p, unsigned seed = 3) {
    auto c = std::make_unique<RenderCanvas>(96, 96);
    EXPECT_EQ(RenderDensityPattern(p, c->picture, c->part, Options{seed}), 0);
    return c;
}

// The pixel nearest to the site's point plus (a, b) along its turned axes.
ColorRGB Along(const RenderCanvas& c, const Site& s, float a, float b) {
    const float x = s.x + s.cosT * a - s.sinT * b, y = s.y + s.sinT * a + s.cosT * b;
    return c.At(static_cast<int>(std::floor(x)), static_cast<int>(std::floor(y)));
}

}  // namespace

TEST(DensityPatternRenderTest, EveryPixelsNearestPointAgreesWithASearchOfAllPoints) {
    RenderCanvas c(61, 47);
    for (int count : {1, 2, 7, 40, 300}) {
        const std::vector<Site> sites = ScatterSites(c.part, count, count);
        NearestSites nearest(sites);
        std::vector<int> row(61);
        for (int y = 0; y < 47; ++y) {
            nearest.Row(y, 0, 61, row.data());
            for (int x = 0; x < 61; ++x) {
                auto d = [&](const Site& s) { return std::hypot(x + 0.5 - s.x, y + 0.5 - s.y); };
                double best = 1e30;
                for (const Site& s : sites) best = std::min(best, d(s));
                ASSERT_DOUBLE_EQ(d(sites[row[x]]), best) << count << " at " << x << "," << y;
            }
        }
    }
}

TEST(DensityPatternRenderTest, RingsRepeatEveryWidthAndRaysCountAroundAPoint) {
    Pattern rings(2);
    rings.SetIsolineWidth(7);
    const auto c = Painted(rings);
    const Site s = ScatterSites(c->part, 1, 3)[0];
    const int x0 = static_cast<int>(s.x), y0 = static_cast<int>(s.y);
    const int dir = x0 < 48 ? 1 : -1;
    for (int d = 1; d < 40; ++d)  // a new ring every 7 pixels
        EXPECT_EQ(c->At(x0 + dir * d, y0) == c->At(x0 + dir * (d - 1), y0), d % 7 != 0) << d;

    // 32 samples round a circle, none near a ray: one change per ray.
    const auto r = Painted(Pattern(3));
    const float radius = std::min({20.0f, s.x - 1, 95 - s.x, s.y - 1, 95 - s.y});
    ASSERT_GE(radius, 12);
    int changes = 0;
    for (int i = 0; i < 32; ++i) {
        const float t = (i + 0.5f) * 3.14159265f / 16, t1 = t + 3.14159265f / 16;
        changes += Along(*r, s, radius * std::cos(t), radius * std::sin(t)) !=
                   Along(*r, s, radius * std::cos(t1), radius * std::sin(t1));
    }
    EXPECT_EQ(changes, 8);
}

TEST(DensityPatternRenderTest, CheckDotsAndBricksRepeatAlongTheRegionsTurn) {
    // Type, width, three offsets (a, b) of one color a period apart, and one of another.
    const float cases[][10] = {{5, 10, 0, 0, 20, 0, 0, -20, 10, 0},
                               {6, 10, 0, 0, 10, 10, -20, 0, 5, 0},
                               {9, 16, 4, 4, 20, 12, -12, -4, 8, 1}};
    for (const float* k : cases) {
        Pattern p(static_cast<int>(k[0]));
        p.SetIsolineWidth(k[1]);
        p.SetColors(k[0] == 6 ? 2 : 1, kTwo);  // against the border color, black
        const auto c = Painted(p);
        const Site s = ScatterSites(c->part, 1, 3)[0];
        const ColorRGB first = Along(*c, s, k[2], k[3]);
        EXPECT_TRUE(first == Along(*c, s, k[4], k[5]) && first == Along(*c, s, k[6], k[7]) &&
                    first != Along(*c, s, k[8], k[9]))
            << k[0];
    }
}

TEST(DensityPatternRenderTest, EveryTypeDiffersFromTheOthersAndFromItselfOnAnotherSeed) {
    std::set<std::vector<unsigned char>> seen;
    for (int type = 1; type <= 15; ++type) {
        Pattern p(type, 5);
        p.SetBorderWidth(0.2f);
        const std::vector<unsigned char> one = Painted(p, 1)->Bytes();
        EXPECT_TRUE(seen.insert(one).second) << type;
        EXPECT_NE(one, Painted(p, 2)->Bytes()) << type;
    }
}

TEST(DensityPatternRenderTest, ImageTypesShowOnlyTheImagesColorsAndTheKaleidoscopeIsSymmetric) {
    for (int type : {13, 14, 15}) {
        const auto c = Painted(Pattern(type));
        for (int i = 0; i < 96 * 96; ++i) {
            // Red and blue and their blends only, whatever the sampling.
            const ColorRGB v = c->At(i % 96, i / 96);
            ASSERT_TRUE(v.green == 0 && std::abs(v.red + v.blue - 255) <= 1) << type << " at " << i;
        }
    }
    const auto k = Painted(Pattern(15));
    const Site s = ScatterSites(k->part, 1, 3)[0];
    const int row = static_cast<int>(s.y);
    for (int d = 1; row - d >= 0 && row + d < 96; ++d)
        for (int x = 0; x < 96; ++x) ASSERT_EQ(k->At(x, row + d), k->At(x, row - d)) << d;
}
