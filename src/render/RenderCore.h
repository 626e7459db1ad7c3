// What every effect shares: checking the picture and part, the part's frame,
// values brought into range, hashing, and painting rows on several threads
// with the result blended into the picture by coverage.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <vector>

#include "vellcolor/ColorRGB.h"
#include "vellcolor/VellRender.h"

namespace vellrender {

// -4 unless the picture and part fit each other, else 0.
int CheckTarget(const Picture& picture, const Part& part);

// A finite value within [lo, hi]; NaN gives `fallback`.
inline float Clamped(float value, float lo, float hi, float fallback) {
    if (std::isnan(value)) return fallback;
    return value < lo ? lo : (value > hi ? hi : value);
}

// The part's bounding box as the frame of an effect: its centre, its size and
// a rotation. Pixel centres sit at half-integers.
struct Frame {
    float cx, cy;         // centre
    float width, height;  // box size
    float cosA, sinA;     // rotation, counter-clockwise

    Frame(const Part& part, float angleDegrees);
    // The point (x, y) of the picture in the rotated frame, origin at the centre.
    void Local(float x, float y, float* u, float* v) const {
        const float dx = x - cx, dy = y - cy;
        *u = cosA * dx + sinA * dy;
        *v = -sinA * dx + cosA * dy;
    }
};

// Mixes a seed with up to three indices into 32 well-spread bits.
inline std::uint32_t Hash(std::uint32_t seed, std::int32_t a, std::int32_t b = 0,
                          std::int32_t c = 0) {
    std::uint32_t h = seed ^ 0x9E3779B9u;
    for (std::uint32_t v : {static_cast<std::uint32_t>(a), static_cast<std::uint32_t>(b),
                            static_cast<std::uint32_t>(c)}) {
        h ^= v + 0x7F4A7C15u + (h << 6) + (h >> 2);
        h ^= h >> 16;
        h *= 0x7FEB352Du;
        h ^= h >> 15;
        h *= 0x846CA68Bu;
        h ^= h >> 16;
    }
    return h;
}
// The hash as a real in [0, 1).
inline float Unit(std::uint32_t h) {
    return (h >> 8) * (1.0f / 16777216.0f);
}

// Threads to use for `work` units of work: `requested`, 0 for one per core,
// never more than the units or 64.
int ThreadCount(int requested, int work);

// Runs body(index, worker) for index 0..count-1 on `threads` threads; worker
// is 0..threads-1 and no two bodies of one worker run at once. Falls back to
// the calling thread alone when no thread can be started.
template <class Body>
void ParallelFor(int threads, int count, Body&& body);

// Row shader: shade(y, x0, x1, out), or shade(y, x0, x1, out, worker) with
// worker in 0 .. RowWorkers(part, threads) - 1 for scratch of its own, writes the effect's colors
// of pixels x0..x1-1 of row y to out[0..3*(x1-x0)) (blue, green, red) and may write one byte past
// them. The picture still holds its original pixels then. PaintRows composites each row into the
// picture by the part's coverage. Returns -2 when the row buffers cannot be had.
int RowWorkers(const Part& part, int threads);
template <class Shade>
int PaintRows(const Picture& picture, const Part& part, int threads, Shade&& shade);

// Blends `count` pixels of `src` into `dst` by coverage: 255 copies, 0 keeps.
void Composite(const unsigned char* src, const unsigned char* coverage, unsigned char* dst,
               int count);

// Blurs a w x h grid of `planes` interleaved floats in place: `passes` box
// passes of half-width r along the rows, then as many along the columns;
// beyond the grid counts as 0. -2 when scratch memory cannot be had.
int BoxBlur(float* values, int w, int h, int planes, int r, int passes, int threads);

inline unsigned char* PixelAt(const Picture& picture, int x, int y) {
    return picture.pixels + static_cast<std::ptrdiff_t>(y) * picture.stride + 3 * x;
}
inline const unsigned char* CoverageAt(const Part& part, int x, int y) {
    return part.coverage + static_cast<std::ptrdiff_t>(y) * part.stride + x;
}

// The colors of an effect object as a list of at least one: a missing array
// or a count below 1 gives black and white.
std::vector<ColorRGB> EffectColors(const ColorRGB* colors, int count);

// A color as floats 0..255, for blending without rounding between steps.
struct FloatColor {
    float b = 0, g = 0, r = 0;  // blue, green, red, in the picture's order
};
inline FloatColor OfBytes(const ColorRGB& c) {
    return {static_cast<float>(c.blue), static_cast<float>(c.green), static_cast<float>(c.red)};
}
inline FloatColor Mix(const FloatColor& a, const FloatColor& b, float t) {
    return {a.b + (b.b - a.b) * t, a.g + (b.g - a.g) * t, a.r + (b.r - a.r) * t};
}

// The share of the pixel [p - 0.5, p + 0.5] that lies in [lo, hi]: a box
// filter's coverage along one axis.
template <class T>
T Overlap(T p, T lo, T hi) {
    return std::max(T(0), std::min(p + T(0.5), hi) - std::max(p - T(0.5), lo));
}

// A color as one 32-bit value: blue, green, red from the low byte, then 0.
inline std::uint32_t Packed(const ColorRGB& c) {
    return c.blue | static_cast<std::uint32_t>(c.green) << 8 |
           static_cast<std::uint32_t>(c.red) << 16;
}
// Writes a packed color as one 32-bit store: its fourth byte lands on the
// next pixel, or on the spare byte that row buffers keep past their end.
inline void PutPacked(unsigned char* out, std::uint32_t v) {
    std::memcpy(out, &v, 4);
}

}  // namespace vellrender

#include "render/RenderCore.inl"
