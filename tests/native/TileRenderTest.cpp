// The tile effect's defining properties on small pictures: seams, the
// alternating colors of each shape, the mosaic's means and determinism.
#include <gtest/gtest.h>

#include <cmath>

#include "RenderCanvas.h"

using namespace vellrender;

namespace {

const ColorRGB kA(250, 20, 30), kB(10, 240, 60), kSeam(255, 255, 0);

// A picture whose every pixel differs.
ColorRGB Pattern(int x, int y) {
    return ColorRGB(x * 5 % 256, y * 7 % 256, (x * y) % 256);
}

void Fill(RenderCanvas& canvas, ColorRGB (*color)(int, int) = Pattern) {
    for (int y = 0; y < canvas.image.height; ++y)
        for (int x = 0; x < canvas.image.width; ++x) canvas.Set(x, y, color(x, y));
}

void Tiles(KTEffectTile& t, int shape, float w, float h, float seam, int coloring) {
    const ColorRGB colors[2] = {kA, kB};
    t.SetShape(shape);
    t.SetTileSize(w, h);
    t.SetSeamWidth(seam);
    t.SetSeamColor(kSeam);
    t.SetColoring(coloring);
    t.SetColors(2, colors);
}

// 10 px squares with their grid crossing at the centre of a 40 x 40 box: a
// seam of 2 takes the first and last column and row of every cell.
TEST(TileRenderTest, SeamsTakeTheSeamColorOrKeepThePartsOwnPixels) {
    for (int transparent : {0, 1}) {
        RenderCanvas canvas(40, 40);
        Fill(canvas);
        KTEffectTile t;
        Tiles(t, 0, 10, 10, 2, 0);
        t.SetColors(1, &kA);  // the second color repeats the first
        t.SetTransparentSeam(transparent);
        ASSERT_EQ(RenderTile(t, canvas.picture, canvas.part), 0);
        for (int y = 0; y < 40; ++y) {
            for (int x = 0; x < 40; ++x) {
                const bool seam = x % 10 == 0 || x % 10 == 9 || y % 10 == 0 || y % 10 == 9;
                const ColorRGB seamColor = transparent ? Pattern(x, y) : kSeam;
                ASSERT_EQ(canvas.At(x, y), seam ? seamColor : kA) << x << "," << y;
            }
        }
    }
    // A seam as wide as the cell leaves only seam.
    RenderCanvas canvas(30, 30);
    KTEffectTile t;
    Tiles(t, 3, 8, 9, 8, 0);
    ASSERT_EQ(RenderTile(t, canvas.picture, canvas.part), 0);
    for (int y = 0; y < 30; ++y)
        for (int x = 0; x < 30; ++x) ASSERT_EQ(canvas.At(x, y), kSeam);
}

// Points (u, v) from the box's centre where coloring 0 puts color 2.
TEST(TileRenderTest, AlternateColoringSetsNeighboursApart) {
    struct Case {
        int shape;
        float w, h;
        float u, v;
        bool second;
    };
    const float tri = 20 * std::sqrt(3.0f), hex = 40 / std::sqrt(3.0f);
    const Case cases[] = {
        {0, 20, 20, 10, 10, false},
        {0, 20, 20, -10, 10, true},
        {0, 20, 20, -10, -10, false},
        {1, 20, 20, 30, 10, true},
        {2, 20, tri, 0, tri / 3, false},       // up, on the centre's vertex
        {2, 20, tri, 20, tri / 3, true},       // down beside it
        {2, 20, tri, 20, tri * 4 / 3, false},  // up on that one
        {3, 20, hex, 0, 0, false},
        {3, 20, hex, 20, 0, false},
        {3, 20, hex, 10, hex * 0.75f, true},
    };
    for (int coloring : {0, 7}) {  // an unknown code paints as 0
        for (const Case& c : cases) {
            RenderCanvas canvas(121, 121);
            KTEffectTile t;
            Tiles(t, c.shape, c.w, c.h, 0, coloring);
            ASSERT_EQ(RenderTile(t, canvas.picture, canvas.part), 0);
            const int x = static_cast<int>(std::floor(60.5f + c.u));
            const int y = static_cast<int>(std::floor(60.5f + c.v));
            EXPECT_EQ(canvas.At(x, y), c.second ? kB : kA) << c.shape << " " << c.u << "," << c.v;
        }
    }
}

// Cells aligned with the halves of a picture whose halves differ, a few
// pixels left out of the part: each tile is the mean of its part's pixels.
TEST(TileRenderTest, MosaicTakesTheMeanOfThePartUnderEachTile) {
    auto inside = [](int x, int y) { return x % 10 == 3 && y % 10 == 4 ? 0 : 255; };
    auto halves = [](int x, int y) { return x < 20 ? ColorRGB(200, x * 9, y * 3) : Pattern(x, y); };
    RenderCanvas canvas(40, 20, inside);
    Fill(canvas, halves);
    KTEffectTile t;
    Tiles(t, 0, 10, 10, 0, 4);
    ASSERT_EQ(RenderTile(t, canvas.picture, canvas.part), 0);
    for (int cy = 0; cy < 20; cy += 10) {
        for (int cx = 0; cx < 40; cx += 10) {
            int sum[3] = {0, 0, 0}, n = 0;
            for (int y = cy; y < cy + 10; ++y) {
                for (int x = cx; x < cx + 10; ++x) {
                    if (!inside(x, y)) continue;
                    const ColorRGB c = halves(x, y);
                    sum[0] += c.red, sum[1] += c.green, sum[2] += c.blue, ++n;
                }
            }
            const ColorRGB mean((sum[0] + n / 2) / n, (sum[1] + n / 2) / n, (sum[2] + n / 2) / n);
            for (int y = cy; y < cy + 10; ++y)
                for (int x = cx; x < cx + 10; ++x)
                    ASSERT_EQ(canvas.At(x, y), inside(x, y) ? mean : halves(x, y)) << x << "," << y;
        }
    }
}

TEST(TileRenderTest, SeedDecidesTheRandomColorsAndThreadsDoNot) {
    KTEffectTile t;
    Tiles(t, 3, 9, 11, 1.5f, 1);
    t.SetAngle(20);
    t.SetCorner(1, 0.5f);
    const ColorRGB three[3] = {kA, kB, kSeam};
    t.SetColors(3, three);
    for (int coloring : {1, 2, 4}) {
        t.SetColoring(coloring);
        std::vector<unsigned char> bytes[3];
        for (int run = 0; run < 3; ++run) {
            RenderCanvas canvas(150, 100, Disc(75, 50, 45));
            Fill(canvas);
            Options options;
            options.threads = run == 1 ? 2 : 1;
            options.seed = run == 2 ? 8 : 7;
            ASSERT_EQ(RenderTile(t, canvas.picture, canvas.part, options), 0);
            bytes[run] = canvas.Bytes();
        }
        EXPECT_EQ(bytes[0], bytes[1]) << coloring;
        EXPECT_EQ(bytes[0] == bytes[2], coloring == 4) << coloring;
    }
}

}  // namespace
