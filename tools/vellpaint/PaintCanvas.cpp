#include "PaintCanvas.h"

#include <algorithm>
#include <cmath>
#include <new>

#include "PaintSettings.h"

#define STB_IMAGE_WRITE_IMPLEMENTATION
#include "stb_image_write.h"

namespace vellpaint {

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

// Shapes with detail for blur, invert and the see-through effects to show:
// centres as fractions of the width and height, radii of the shorter side.
struct Disc {
    float x, y, r;
    Rgb color;
};
const Disc kDiscs[] = {{0.28f, 0.34f, 0.20f, {31, 111, 120}},
                       {0.70f, 0.64f, 0.15f, {228, 87, 46}},
                       {0.86f, 0.22f, 0.10f, {243, 167, 18}},
                       {0.12f, 0.82f, 0.08f, {106, 76, 147}}};
const Rgb kLow{143, 184, 222}, kHigh{244, 211, 161}, kBand{41, 51, 92};

Rgb ScenePixel(float x, float y, float w, float h) {
    const float side = std::min(w, h);
    Rgb c = Mix(kLow, kHigh, 0.5f * (x / w + y / h));
    for (const Disc& d : kDiscs) {
        const float distance = std::hypot(x - d.x * w, y - d.y * h);
        c = Mix(c, d.color, Clamp01(d.r * side - distance + 0.5f));
    }
    // A band from (0, 0.78 h) to (w, 0.40 h).
    const float dx = w, dy = -0.38f * h, length = std::hypot(dx, dy);
    const float across = std::fabs((x * dy - (y - 0.78f * h) * dx) / length);
    return Mix(c, kBand, Clamp01(0.02f * side - across + 0.5f));
}

// A rounded star of five lobes about the centre, one lobe up. The edge is
// anti-aliased with the distance to it, the radial gap over the gradient.
unsigned char StarCoverage(float x, float y, float w, float h) {
    const float kPi = 3.14159265f, big = 0.45f * std::min(w, h);
    const float dx = x - 0.5f * w, dy = y - 0.5f * h, rho = std::hypot(dx, dy);
    const float phase = 5.0f * (std::atan2(dy, dx) - 0.5f * kPi);
    const float edge = big * (0.78f + 0.22f * std::cos(phase));
    if (rho < 0.5f * edge) return 255;
    const float slope = big * 0.22f * 5.0f * std::sin(phase) / rho;
    const float distance = (rho - edge) / std::sqrt(1.0f + slope * slope);
    return static_cast<unsigned char>(std::lround(255.0f * Clamp01(0.5f - distance)));
}

// The demo picture's colors and shapes, in its 128 x 96 pixels, y up.
const Rgb kSkyLow{250, 214, 165}, kSkyHigh{72, 142, 214}, kSun{255, 206, 40}, kCloud{248, 248, 252},
    kFarHill{96, 160, 88}, kNearHill{44, 110, 52}, kWall{236, 226, 200}, kRoof{192, 48, 40},
    kDoor{96, 60, 36}, kWindow{120, 190, 235};

// Coverage of the box left <= x < right, bottom <= y < top, edge anti-aliased.
float Box(float x, float y, float left, float bottom, float right, float top) {
    return Clamp01(std::min(std::min(x - left, right - x), std::min(y - bottom, top - y)) + 0.5f);
}

float Disc(float x, float y, float cx, float cy, float r) {
    return Clamp01(r - std::hypot(x - cx, y - cy) + 0.5f);
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

void Create(BitmapImage& image, int width, int height) {
    if (image.Create(width, height, 3, 0) != 0) throw std::bad_alloc();
}

std::string LoadMessage(int code) {
    switch (code) {
        case -5: return "cannot open it";
        case -6: return "cannot read it (short or damaged)";
        case -2: return "out of memory";
        default: return "not a .bmp picture vellpaint reads";
    }
}

void Load(const std::string& path, BitmapImage& image) {
    const int loaded = image.LoadFile(path.c_str());
    if (loaded != 0) throw InputError(path + ": " + LoadMessage(loaded));
    CheckSize(image.width, image.height, path);
    if (image.ConvertTo24Bit() != 0) throw std::bad_alloc();
}

void SetPixel(BitmapImage& image, int x, int y, Rgb c) {
    unsigned char* p = image.PixelAt(x, y);
    p[0] = static_cast<unsigned char>(std::lround(c.b));
    p[1] = static_cast<unsigned char>(std::lround(c.g));
    p[2] = static_cast<unsigned char>(std::lround(c.r));
}

}  // namespace

void CheckSize(int width, int height, const std::string& what) {
    const bool fits = width > 0 && height > 0 && width <= kMaxSide && height <= kMaxSide &&
                      static_cast<long long>(width) * height <= kMaxPixels;
    if (fits) return;
    throw InputError(what + ": " + std::to_string(width) + " x " + std::to_string(height) +
                     " is not a size vellpaint paints (each side 1.." + std::to_string(kMaxSide) +
                     ", at most " + std::to_string(kMaxPixels) + " pixels)");
}

void MakeScene(int width, int height, Canvas* canvas) {
    CheckSize(width, height, "--size");
    Create(canvas->image, width, height);
    canvas->coverage.assign(static_cast<std::size_t>(width) * height, 0);
    const float w = static_cast<float>(width), h = static_cast<float>(height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            SetPixel(canvas->image, x, y, ScenePixel(x + 0.5f, y + 0.5f, w, h));
            canvas->coverage[static_cast<std::size_t>(y) * width + x] =
                StarCoverage(x + 0.5f, y + 0.5f, w, h);
        }
    }
}

void LoadEffectImage(const std::string& path, BitmapImage* image) {
    Load(path, *image);
}

void MakeDemoPicture(BitmapImage* image) {
    const int width = 128, height = 96;
    Create(*image, width, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) SetPixel(*image, x, y, DemoPixel(x + 0.5f, y + 0.5f));
    }
}

void LoadCanvas(const std::string& picturePath, const std::string& maskPath, Canvas* canvas) {
    Load(picturePath, canvas->image);
    const int width = canvas->image.width, height = canvas->image.height;
    canvas->coverage.assign(static_cast<std::size_t>(width) * height, 255);
    if (maskPath.empty()) return;
    BitmapImage mask;
    Load(maskPath, mask);
    if (mask.width != width || mask.height != height) {
        throw InputError(maskPath + ": the mask is " + std::to_string(mask.width) + " x " +
                         std::to_string(mask.height) + ", the picture " + std::to_string(width) +
                         " x " + std::to_string(height));
    }
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const unsigned char* p = mask.PixelAt(x, y);
            canvas->coverage[static_cast<std::size_t>(y) * width + x] =
                static_cast<unsigned char>((p[0] + p[1] + p[2] + 1) / 3);
        }
    }
}

void WritePng(const BitmapImage& image, const std::string& path) {
    // PNG rows run top down in red, green, blue; the picture's bottom up in
    // blue, green, red.
    const int width = image.width, height = image.height;
    std::vector<unsigned char> rgb(static_cast<std::size_t>(width) * height * 3);
    for (int row = 0; row < height; ++row) {
        const unsigned char* in = image.PixelAt(0, height - 1 - row);
        unsigned char* out = &rgb[static_cast<std::size_t>(row) * width * 3];
        for (int x = 0; x < width; ++x, in += 3, out += 3) {
            out[0] = in[2];
            out[1] = in[1];
            out[2] = in[0];
        }
    }
    if (stbi_write_png(path.c_str(), width, height, 3, rgb.data(), width * 3) == 0) {
        throw InputError(path + ": cannot write it");
    }
}

}  // namespace vellpaint
