#include "SampleScene.h"

#include <algorithm>
#include <cmath>

namespace vellscene {

namespace {

struct Rgb {
    float r, g, b;
};

Rgb Mix(Rgb a, Rgb b, float t) {
    return {a.r + (b.r - a.r) * t, a.g + (b.g - a.g) * t, a.b + (b.b - a.b) * t};
}

float Clamp01(float v) {
    return std::min(1.0f, std::max(0.0f, v));
}

void SetPixel(BitmapImage& image, int x, int y, Rgb c) {
    unsigned char* p = image.PixelAt(x, y);
    p[0] = static_cast<unsigned char>(std::lround(c.b));
    p[1] = static_cast<unsigned char>(std::lround(c.g));
    p[2] = static_cast<unsigned char>(std::lround(c.r));
}

// Coverage of the disc of radius r about (cx, cy), its edge anti-aliased.
float Disc(float x, float y, float cx, float cy, float r) {
    return Clamp01(r - std::hypot(x - cx, y - cy) + 0.5f);
}

// A rounded star of five lobes about the centre, one lobe up. The edge is
// anti-aliased with the distance to it, the radial gap over the gradient.
float Star(float x, float y, float w, float h) {
    const float kPi = 3.14159265f, big = 0.45f * std::min(w, h);
    const float dx = x - 0.5f * w, dy = y - 0.5f * h, rho = std::hypot(dx, dy);
    const float phase = 5.0f * (std::atan2(dy, dx) - 0.5f * kPi);
    const float edge = big * (0.78f + 0.22f * std::cos(phase));
    if (rho < 0.5f * edge) return 1.0f;
    const float slope = big * 0.22f * 5.0f * std::sin(phase) / rho;
    const float distance = (rho - edge) / std::sqrt(1.0f + slope * slope);
    return std::round(255.0f * Clamp01(0.5f - distance)) / 255.0f;
}

// A band 0.04 of the shorter side wide from (0, 0.78 h) to (w, 0.40 h).
float Band(float x, float y, float w, float h) {
    const float dx = w, dy = -0.38f * h, length = std::hypot(dx, dy);
    const float across = std::fabs((x * dy - (y - 0.78f * h) * dx) / length);
    return Clamp01(0.02f * std::min(w, h) - across + 0.5f);
}

// The discs: centres as fractions of the width and height, radii of the
// shorter side.
struct DiscShape {
    float x, y, r;
    Rgb color;
};
const DiscShape kDiscs[] = {{0.28f, 0.34f, 0.20f, {31, 111, 120}},
                            {0.70f, 0.64f, 0.15f, {228, 87, 46}},
                            {0.86f, 0.22f, 0.10f, {243, 167, 18}},
                            {0.12f, 0.82f, 0.08f, {106, 76, 147}}};
const int kDiscCount = 4;
const Rgb kLow{143, 184, 222}, kHigh{244, 211, 161}, kBand{41, 51, 92}, kStar{250, 250, 240};
const float kStarGlaze = 0.55f;

// The demo picture's colors and shapes, in its 128 x 96 pixels, y up.
const Rgb kSkyLow{250, 214, 165}, kSkyHigh{72, 142, 214}, kSun{255, 206, 40}, kCloud{248, 248, 252},
    kFarHill{96, 160, 88}, kNearHill{44, 110, 52}, kWall{236, 226, 200}, kRoof{192, 48, 40},
    kDoor{96, 60, 36}, kWindow{120, 190, 235};

// Coverage of the box left <= x < right, bottom <= y < top, edge anti-aliased.
float Box(float x, float y, float left, float bottom, float right, float top) {
    return Clamp01(std::min(std::min(x - left, right - x), std::min(y - bottom, top - y)) + 0.5f);
}

Rgb DemoPixel(float x, float y) {
    Rgb c = Mix(kSkyLow, kSkyHigh, Clamp01((y - 30.0f) / 66.0f));
    c = Mix(c, kSun, Disc(x, y, 26.0f, 74.0f, 11.0f));
    c = Mix(c, kCloud, std::max(Disc(x, y, 70.0f, 80.0f, 6.0f), Disc(x, y, 79.0f, 82.0f, 8.0f)));
    c = Mix(c, kFarHill, Clamp01(42.0f + 9.0f * std::sin(0.05f * x + 0.6f) - y + 0.5f));
    c = Mix(c, kNearHill, Clamp01(24.0f + 6.0f * std::sin(0.09f * x + 2.0f) - y + 0.5f));
    c = Mix(c, kWall, Box(x, y, 78.0f, 18.0f, 108.0f, 42.0f));
    // The roof: a gable from (74, 42) over (93, 60) to (112, 42).
    const float slope = (60.0f - y - 0.95f * std::fabs(x - 93.0f)) / 1.38f;
    c = Mix(c, kRoof, Clamp01(std::min(y - 42.0f, slope) + 0.5f));
    c = Mix(c, kDoor, Box(x, y, 84.0f, 18.0f, 92.0f, 32.0f));
    return Mix(c, kWindow, Box(x, y, 96.0f, 27.0f, 104.0f, 35.0f));
}

}  // namespace

int MakeSampleScene(int width, int height, BitmapImage* image, std::vector<ScenePart>* parts) {
    const int created = image->Create(width, height, 3, 0);
    if (created != 0) return created;
    const char* names[] = {"background", "disc 1", "disc 2", "disc 3", "disc 4", "band", "star"};
    const int count = 2 + kDiscCount + 1;
    parts->assign(count, ScenePart());
    for (int i = 0; i < count; ++i) {
        (*parts)[i].name = names[i];
        (*parts)[i].coverage.resize(static_cast<std::size_t>(width) * height);
    }
    const float w = static_cast<float>(width), h = static_cast<float>(height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const float px = x + 0.5f, py = y + 0.5f, side = std::min(w, h);
            // Each shape's coverage and color, from the back.
            float cover[count];
            Rgb colors[count];
            cover[0] = 1.0f;
            colors[0] = Mix(kLow, kHigh, 0.5f * (px / w + py / h));
            for (int d = 0; d < kDiscCount; ++d) {
                const DiscShape& s = kDiscs[d];
                cover[1 + d] = Disc(px, py, s.x * w, s.y * h, s.r * side);
                colors[1 + d] = s.color;
            }
            cover[count - 2] = Band(px, py, w, h);
            colors[count - 2] = kBand;
            cover[count - 1] = Star(px, py, w, h);
            colors[count - 1] = kStar;

            // The star is a glaze: the shapes behind it show through.
            Rgb c = colors[0];
            for (int i = 1; i < count; ++i) {
                c = Mix(c, colors[i], i == count - 1 ? kStarGlaze * cover[i] : cover[i]);
            }
            SetPixel(*image, x, y, c);
            // What shows of each shape: its coverage times what the shapes in
            // front leave.
            float left = 1.0f;
            for (int i = count - 1; i >= 0; --i) {
                const float shown = cover[i] * left;
                left -= shown;
                (*parts)[i].coverage[static_cast<std::size_t>(y) * width + x] =
                    static_cast<unsigned char>(std::lround(255.0f * shown));
            }
        }
    }
    return 0;
}

int MakeDemoPicture(BitmapImage* image) {
    const int width = 128, height = 96;
    const int created = image->Create(width, height, 3, 0);
    if (created != 0) return created;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) SetPixel(*image, x, y, DemoPixel(x + 0.5f, y + 0.5f));
    }
    return 0;
}

}  // namespace vellscene
