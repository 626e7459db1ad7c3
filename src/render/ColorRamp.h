// The color ramp that every effect running through colors shares: the colors
// in order over t in [0, 1].
//
// | field            | in the ramp                                                        |
// |------------------|--------------------------------------------------------------------|
// | colors           | the colors in order; with N colors the run is N flat bands joined   |
// |                  | by N - 1 blends                                                    |
// | mix              | share of each step from one color to the next that is a blend:     |
// |                  | 0 hard bands of equal width (only the plain colors), 1 a blend over |
// |                  | the whole step (stops at both ends, as a plain gradient); NaN is 0 |
// | bias             | -5..+5 (clamped): t^(2^(bias / 2.5)) inside each run, so a positive |
// |                  | bias moves every blend toward the last color's end, a negative one  |
// |                  | toward the first color's; 0 leaves t alone                          |
// | hueInterpolation | nonzero: blends go round the hue circle, the shorter way, with     |
// |                  | lightness and saturation in step (a grey end takes the other's hue) |
// | repeat           | the run is repeated that many times over t (1..10000)              |
// | factor           | scales t first; what passes 1 stays at the last color (NaN is 1)   |
//
// The ramp is a table of kSize entries per run, so a pixel costs a t and a lookup.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <vector>

#include "render/RenderCore.h"
#include "vellcolor/ColorRGB.h"

namespace vellrender {

struct RampSettings {
    const ColorRGB* colors = nullptr;
    int count = 0;
    float mix = 0.0f;
    float bias = 0.0f;
    bool hue = false;
    int repeat = 1;
    float factor = 1.0f;
};

class ColorRamp {
  public:
    static constexpr int kSize = 4096;
    static constexpr int kMaxRepeat = 10000;

    // -2 when the table cannot be had. Fewer than one color gives black and white.
    int Build(const RampSettings& settings);

    // The table position of t; t outside [0, 1] counts as the nearer end.
    int Index(float t) const {
        float u = t * scale_;
        u = u > 0.0f ? u : 0.0f;  // NaN too
        u = u < last_ ? u : last_;
        return static_cast<int>(u) & (kSize - 1);
    }
    // The position times `scale_`, for loops that step it themselves.
    float Scale() const { return scale_; }
    float Last() const { return last_; }

    // Entry i as blue, green, red and a zero byte (one 32-bit store per pixel).
    std::uint32_t Packed(int i) const { return packed_[i]; }
    const std::uint32_t* PackedTable() const { return packed_.data(); }
    // Entry i's channel c (0 blue, 1 green, 2 red) times 256, for dithering.
    const std::uint16_t* Fine(int i) const { return &fine_[4 * i]; }
    ColorRGB At(float t) const;

  private:
    std::vector<std::uint32_t> packed_;
    std::vector<std::uint16_t> fine_;
    float scale_ = 0.0f;  // t to table position across all repeats
    float last_ = 0.0f;   // the last position of the last run
};

// The dithering threshold of pixel (x, y), in [0, 1): interleaved gradient
// noise, a pattern without visible structure.
inline float DitherThreshold(int x, int y) {
    const float g = 52.9829189f * (0.06711056f * x + 0.00583715f * y);
    return g - std::floor(g);
}

// Writes ramp entry i to out (blue, green, red); with dithering, the fine
// value plus the pixel's threshold is truncated.
inline void PutRamp(const ColorRamp& ramp, int i, bool dither, int x, int y, unsigned char* out) {
    if (!dither) {
        const std::uint32_t v = ramp.Packed(i);
        out[0] = static_cast<unsigned char>(v);
        out[1] = static_cast<unsigned char>(v >> 8);
        out[2] = static_cast<unsigned char>(v >> 16);
        return;
    }
    const unsigned int threshold = static_cast<unsigned int>(DitherThreshold(x, y) * 256.0f);
    const std::uint16_t* fine = ramp.Fine(i);
    for (int c = 0; c < 3; ++c) {
        const unsigned int v = (fine[c] + threshold) >> 8;
        out[c] = static_cast<unsigned char>(v > 255 ? 255 : v);
    }
}

// Writes the ramp's colors of pixels x0 .. x0 + n - 1 of row y, where t(i)
// is pixel x0 + i's t. The t's go through the table in chunks, each made by
// a plain loop that the compiler can vectorize.
template <class T>
void PutRampRow(const ColorRamp& ramp, bool dither, int x0, int y, int n, unsigned char* out,
                T&& t) {
    const int kChunk = 64;
    float position[kChunk];
    const float scale = ramp.Scale(), last = ramp.Last();
    const std::uint32_t* table = ramp.PackedTable();
    for (int base = 0; base < n; base += kChunk) {
        const int m = std::min(kChunk, n - base);
        for (int i = 0; i < m; ++i) {
            const float u = t(base + i) * scale;
            const float above = u > 0.0f ? u : 0.0f;  // NaN too
            position[i] = above < last ? above : last;
        }
        unsigned char* o = out + 3 * base;
        for (int i = 0; i < m; ++i) {
            const int index = static_cast<int>(position[i]) & (ColorRamp::kSize - 1);
            if (dither) {
                PutRamp(ramp, index, true, x0 + base + i, y, o + 3 * i);
            } else {
                PutPacked(o + 3 * i, table[index]);
            }
        }
    }
}

}  // namespace vellrender
