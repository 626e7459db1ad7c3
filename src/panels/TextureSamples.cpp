#include "panels/TextureSamples.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <new>

#include "vellcolor/BitmapImage.h"
#include "vellcolor/ErrorCode.h"
#include "vellcolor/RandomGenerator.h"

namespace {

// Length of the cell span [c, c + 1] inside [lo, hi]; 0 or less when they
// only touch or miss each other.
float Overlap(int c, float lo, float hi) {
    return std::min(c + 1.0f, hi) - std::max(static_cast<float>(c), lo);
}

// Area-weighted mean of value(x, y) over the cells that the box of half side
// `half` centred on (px, py) overlaps, restricted to the grid and to the
// cells that `use` accepts. False when no such cell is overlapped.
template <class Use, class Value>
bool BoxMean(int width, int height, float px, float py, float half, Use use, Value value,
             float* mean) {
    const float left = px - half, right = px + half, top = py - half, bottom = py + half;
    const int x0 = std::max(0, static_cast<int>(std::floor(left)));
    const int x1 = std::min(width - 1, static_cast<int>(std::floor(right)));
    const int y0 = std::max(0, static_cast<int>(std::floor(top)));
    const int y1 = std::min(height - 1, static_cast<int>(std::floor(bottom)));
    float sum = 0.0f, area = 0.0f;
    for (int y = y0; y <= y1; ++y) {
        const float oy = Overlap(y, top, bottom);
        if (oy <= 0.0f) continue;
        for (int x = x0; x <= x1; ++x) {
            const float ox = Overlap(x, left, right);
            if (ox <= 0.0f || !use(x, y)) continue;
            sum += ox * oy * value(x, y);
            area += ox * oy;
        }
    }
    if (area <= 0.0f) return false;
    *mean = sum / area;
    return true;
}

}  // namespace

void GeneratorNoise::Fill(unsigned char* bytes, std::size_t count) {
    // Constructing the generator reseeds the module's one state.
    RandomGenerator random = fixedSeed_ ? RandomGenerator(seed_) : RandomGenerator();
    for (std::size_t i = 0; i < count; ++i)
        bytes[i] = static_cast<unsigned char>(random.UniformInt(0, 255));
}

int CoverageGrid::Create(int width, int height, NoiseSource& noise) {
    width_ = height_ = 0;
    cells_.clear();
    noise_.clear();
    if (width < 1 || height < 1) return kErrorInvalidParameter;
    const std::uint64_t count = static_cast<std::uint64_t>(width) * height;
    if (count > cells_.max_size()) return kErrorOutOfMemory;
    try {
        cells_.resize(static_cast<std::size_t>(count));
        noise_.resize(static_cast<std::size_t>(count));
    } catch (const std::bad_alloc&) {
        cells_.clear();
        noise_.clear();
        return kErrorOutOfMemory;
    }
    width_ = width;
    height_ = height;
    noise.Fill(noise_.data(), noise_.size());
    return kOk;
}

void CoverageGrid::DrawHorizontalBand(int centreY, float bandWidth, const float color[3]) {
    const float r = bandWidth / 2.0f;
    // Rows whose centre lies within r + 1 of the line; the rest get nothing.
    const int y0 = std::max(0, static_cast<int>(std::floor(centreY - r - 1.5f)));
    const int y1 = std::min(height_ - 1, static_cast<int>(std::ceil(centreY + r + 0.5f)));
    for (int y = y0; y <= y1; ++y) {
        const float d = std::fabs(y + 0.5f - centreY);
        if (d > r + 1.0f) continue;
        float coverage = 1.0f;
        if (d >= r - 1.0f) {
            // Near the edge: the share of the 3 x 3 sub-points inside the band.
            int inside = 0;
            for (int l = 0; l < 3; ++l) {
                for (int k = 0; k < 3; ++k) {
                    if (std::fabs(y + (l + 0.5f) / 3.0f - centreY) <= r) ++inside;
                }
            }
            coverage = inside / 9.0f;
        }
        if (coverage <= 0.0f) continue;
        for (int x = 0; x < width_; ++x) {
            Cell& cell = cells_[Index(x, y)];
            cell.coverage = coverage;
            std::copy(color, color + 3, cell.color);
            cell.t = d / r;
        }
    }
}

void CoverageGrid::DrawSampleBand() {
    const float red[3] = {1.0f, 0.0f, 0.0f};
    DrawHorizontalBand(height_ / 2, 0.6f * height_, red);
}

bool CoverageGrid::MeanT(float px, float py, float* t) const {
    return BoxMean(
        width_, height_, px, py, 0.5f,
        [this](int x, int y) { return cells_[Index(x, y)].t >= 0.0f; },
        [this](int x, int y) { return cells_[Index(x, y)].t; }, t);
}

float CoverageGrid::MeanNoise(float px, float py) const {
    float mean = 0.0f;
    BoxMean(
        width_, height_, px, py, 1.5f, [](int, int) { return true; },
        [this](int x, int y) { return static_cast<float>(noise_[Index(x, y)]); }, &mean);
    return mean;
}

void CoverageGrid::ApplyTexture(int texture) {
    // Textures 1 and 2 read the noise per cell, so one sub-point per cell does.
    const int n = (texture == 1 || texture == 2) ? 1 : 3;
    for (int y = 0; y < height_; ++y) {
        for (int x = 0; x < width_; ++x) {
            Cell& cell = cells_[Index(x, y)];
            if (cell.t < 0.0f) continue;
            float sum = 0.0f;
            int used = 0;
            for (int l = 0; l < n; ++l) {
                for (int k = 0; k < n; ++k) {
                    const float px = x + (k + 0.5f) / n, py = y + (l + 0.5f) / n;
                    float t;
                    if (!MeanT(px, py, &t)) continue;
                    sum += TextureFactor(texture, t, px, py);
                    ++used;
                }
            }
            const float factor = used == 0 ? 1.0f : sum / used;
            cell.coverage *= std::min(factor, 1.0f);
        }
    }
}

float CoverageGrid::TextureFactor(int texture, float t, float x, float y) const {
    float noise = 0.0f;
    if (TextureReadsBoxNoise(texture)) {
        noise = MeanNoise(x, y);
    } else if (TextureReadsNoise(texture)) {
        noise = NoiseAt(std::min(static_cast<int>(x), width_ - 1),
                        std::min(static_cast<int>(y), height_ - 1));
    }
    return StripeTextureFactor(texture, t, noise);
}

void CoverageGrid::WriteGrey(BitmapImage* image) const {
    if (image == nullptr || image->GetWidth() != width_ || image->GetHeight() != height_ ||
        image->GetBytesPerPixel() != 3)
        return;
    for (int y = 0; y < height_; ++y) {
        unsigned char* row = image->PixelAt(0, y);
        for (int x = 0; x < width_; ++x) {
            const float coverage = cells_[Index(x, y)].coverage;
            const auto grey =
                static_cast<unsigned char>(static_cast<int>(255.0f - 255.0f * coverage));
            row[3 * x] = row[3 * x + 1] = row[3 * x + 2] = grey;
        }
    }
}

int RenderTextureSample(int texture, int width, int height, NoiseSource& noise,
                        BitmapImage* image) {
    if (texture < 0 || texture >= kTextureCount || width < 1 || height < 1 || image == nullptr)
        return kErrorInvalidParameter;
    // The grid first, so that a failure leaves the image as it was.
    CoverageGrid grid;
    int result = grid.Create(width, height, noise);
    if (result != kOk) return result;
    result = image->Create(width, height, 3, 0);
    if (result != kOk) return result;
    grid.DrawSampleBand();
    grid.ApplyTexture(texture);
    grid.WriteGrey(image);
    return kOk;
}

int RenderTextureSamples(const int sizes[kTextureCount][2],
                         BitmapImage* const images[kTextureCount], NoiseSource& noise) {
    int first = kOk;
    for (int i = 0; i < kTextureCount; ++i) {
        const int* size = sizes[i == 4 ? 0 : i];
        const int result = RenderTextureSample(i, size[0], size[1], noise, images[i]);
        if (first == kOk) first = result;
    }
    return first;
}

int RenderTextureSamples(const int sizes[kTextureCount][2],
                         BitmapImage* const images[kTextureCount]) {
    GeneratorNoise clock;
    return RenderTextureSamples(sizes, images, clock);
}
