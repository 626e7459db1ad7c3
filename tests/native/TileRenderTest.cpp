// The tile effect: seams, each shape's alternating colors, the mosaic's means, determinism.
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
        canvas.Fill(Pattern);
        KTEffectTile t;
        Tiles(t, 0, 10, 10, 2, 0);
        t.SetColors(1, &kA);  // the second color repeats the first
        t.SetTransparentSeam(transparent);
        ASSERT_EQ(RenderTile(t, canvas.picture, canvas.part), 0);
        for (int i = 0; i < 40 * 40; ++i) {
            const int x = i % 40, y = i / 40;
            const bool seam = x % 10 == 0 || x % 10 == 9 || y % 10 == 0 || y % 10 == 9;
            const ColorRGB seamColor = transparent ? Pattern(x, y) : kSeam;
            ASSERT_EQ(canvas.At(x, y), seam ? seamColor : kA) << x << "," << y;
        }
    }
    // A seam as wide as the cell leaves only seam.
    RenderCanvas canvas(30, 30);
    KTEffectTile t;
    Tiles(t, 3, 8, 9, 8, 0);
    ASSERT_EQ(RenderTile(t, canvas.picture, canvas.part), 0);
    for (int i = 0; i < 30 * 30; ++i) ASSERT_EQ(canvas.At(i % 30, i / 30), kSeam) << i;
}

TEST(TileRenderTest, AlternateColoringSetsNeighboursApart) {
    // Shape, width, height, a point (u, v) from the box's centre and 1 where coloring 0 puts
    // color 2 there. Triangles: up on the centre's vertex, down beside it, up on that one.
    const float tri = 20 * std::sqrt(3.0f), hex = 40 / std::sqrt(3.0f);
    const float cases[][6] = {{0, 20, 20, 10, 10, 0},           {0, 20, 20, -10, 10, 1},
                              {0, 20, 20, -10, -10, 0},         {1, 20, 20, 30, 10, 1},
                              {2, 20, tri, 0, tri / 3, 0},      {2, 20, tri, 20, tri / 3, 1},
                              {2, 20, tri, 20, tri * 4 / 3, 0}, {3, 20, hex, 0, 0, 0},
                              {3, 20, hex, 20, 0, 0},           {3, 20, hex, 10, hex * 0.75f, 1}};
    for (int coloring : {0, 7}) {  // an unknown code paints as 0
        for (const float* c : cases) {
            RenderCanvas canvas(121, 121);
            KTEffectTile t;
            Tiles(t, static_cast<int>(c[0]), c[1], c[2], 0, coloring);
            ASSERT_EQ(RenderTile(t, canvas.picture, canvas.part), 0);
            const int x = int(std::floor(60.5f + c[3])), y = int(std::floor(60.5f + c[4]));
            EXPECT_EQ(canvas.At(x, y), c[5] ? kB : kA) << c[0] << " " << c[3] << "," << c[4];
        }
    }
}

// Cells aligned with the halves of a picture whose halves differ, a few
// pixels left out of the part: each tile is the mean of its part's pixels.
TEST(TileRenderTest, MosaicTakesTheMeanOfThePartUnderEachTile) {
    auto inside = [](int x, int y) { return x % 10 == 3 && y % 10 == 4 ? 0 : 255; };
    auto halves = [](int x, int y) { return x < 20 ? ColorRGB(200, x * 9, y * 3) : Pattern(x, y); };
    RenderCanvas canvas(40, 20, inside);
    canvas.Fill(halves);
    KTEffectTile t;
    Tiles(t, 0, 10, 10, 0, 4);
    ASSERT_EQ(RenderTile(t, canvas.picture, canvas.part), 0);
    for (int cell = 0; cell < 8; ++cell) {
        // Pixel i of the cell's 10 x 10.
        auto x = [&](int i) { return cell % 4 * 10 + i % 10; };
        auto y = [&](int i) { return cell / 4 * 10 + i / 10; };
        int sum[3] = {0, 0, 0}, n = 0;
        for (int i = 0; i < 100; ++i) {
            if (!inside(x(i), y(i))) continue;
            const ColorRGB c = halves(x(i), y(i));
            sum[0] += c.red, sum[1] += c.green, sum[2] += c.blue, ++n;
        }
        const ColorRGB mean((sum[0] + n / 2) / n, (sum[1] + n / 2) / n, (sum[2] + n / 2) / n);
        for (int i = 0; i < 100; ++i)
            ASSERT_EQ(canvas.At(x(i), y(i)), inside(x(i), y(i)) ? mean : halves(x(i), y(i))) << i;
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
            canvas.Fill(Pattern);
            const Options options{run == 2 ? 8u : 7u, run == 1 ? 2 : 1};
            ASSERT_EQ(RenderTile(t, canvas.picture, canvas.part, options), 0);
            bytes[run] = canvas.Bytes();
        }
        EXPECT_EQ(bytes[0], bytes[1]) << coloring;
        EXPECT_EQ(bytes[0] == bytes[2], coloring == 4) << coloring;
    }
}

}  // namespace
