#include "render/ImageSampler.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <new>

#include "render/RenderCore.h"

namespace vellrender {

namespace {

using Wrap = ImageSampler::Wrap;

// Fixed-point coordinates of the row paths: 1/2^32 of a prepared pixel.
const double kFixedOne = 4294967296.0;
// Beyond this many prepared pixels the row paths hand over to the slow one,
// so that no fixed-point sum can overflow.
const double kFixedReach = 1073741824.0;

bool Usable(const BitmapImage* image) {
    return image != nullptr && image->GetBytesPerPixel() == 3 && image->pixels != nullptr &&
           image->width > 0 && image->height > 0 && image->stride >= 3 * image->width &&
           image->pixelBytes >= static_cast<unsigned long long>(image->stride) * image->height;
}

bool FinitePositive(float scale) {
    return std::isfinite(scale) && scale > 0.0f;
}

// Shrunk to the drawn size when drawn smaller, never below one pixel; kept
// as it is when enlarged, which bilinear reading handles.
int PreparedSize(int n, double scale) {
    if (scale >= 1.0) return n;
    return std::max(1, static_cast<int>(std::lround(n * scale)));
}

// Area averaging of n pixels into m <= n: output i covers the source span
// [i n / m, (i + 1) n / m), each source pixel weighted by its share of it.
struct Spans {
    std::vector<int> first;  // output i's first source pixel
    std::vector<int> start;  // its weights are weights[start[i] .. start[i + 1])
    std::vector<float> weights;

    Spans(int n, int m) : first(m), start(m + 1) {
        const double ratio = static_cast<double>(n) / m;
        weights.reserve(static_cast<std::size_t>(n) + m);
        for (int i = 0; i < m; ++i) {
            const double lo = i * ratio, hi = i + 1 == m ? n : (i + 1) * ratio;
            first[i] = std::min(n - 1, static_cast<int>(lo));
            start[i] = static_cast<int>(weights.size());
            for (int c = first[i]; c < n && c < hi; ++c)
                weights.push_back(static_cast<float>(
                    (std::min(c + 1.0, hi) - std::max(static_cast<double>(c), lo)) / ratio));
        }
        start[m] = static_cast<int>(weights.size());
    }
};

void Put(const float c[3], unsigned char* out) {
    for (int k = 0; k < 3; ++k) out[k] = static_cast<unsigned char>(std::min(c[k] + 0.5f, 255.0f));
}

// Each output row sums its source rows into `sums` (3 floats a source
// pixel), then each output pixel its columns of that: one pass over the
// image, scratch of one row. An image kept as it is is only copied.
void Shrink(const BitmapImage& image, const Spans& xs, const Spans& ys, std::vector<float>& sums,
            unsigned char* out) {
    if (xs.first.size() == static_cast<std::size_t>(image.width) &&
        ys.first.size() == static_cast<std::size_t>(image.height)) {
        for (int y = 0; y < image.height; ++y, out += 3 * image.width)
            std::memcpy(out, image.PixelAt(0, y), 3 * static_cast<std::size_t>(image.width));
        return;
    }
    const int columns = static_cast<int>(xs.first.size()), rows = static_cast<int>(ys.first.size());
    for (int j = 0; j < rows; ++j) {
        std::fill(sums.begin(), sums.end(), 0.0f);
        for (int k = ys.start[j]; k < ys.start[j + 1]; ++k) {
            const unsigned char* src = image.PixelAt(0, ys.first[j] + k - ys.start[j]);
            const float weight = ys.weights[k];
            for (std::size_t c = 0; c < sums.size(); ++c) sums[c] += weight * src[c];
        }
        for (int i = 0; i < columns; ++i) {
            float mean[3] = {0.0f, 0.0f, 0.0f};
            for (int k = xs.start[i]; k < xs.start[i + 1]; ++k) {
                const float* s = &sums[3 * static_cast<std::size_t>(xs.first[i] + k - xs.start[i])];
                for (int c = 0; c < 3; ++c) mean[c] += xs.weights[k] * s[c];
            }
            Put(mean, out);
            out += 3;
        }
    }
}

// `value` brought into [0, period).
double Reduced(double value, double period) {
    const double r = value - std::floor(value / period) * period;
    return r >= 0.0 && r < period ? r : 0.0;
}

double Period(Wrap wrap, int n) {
    return wrap == ImageSampler::kMirror ? 2.0 * n : n;
}

// The byte offsets of the pixels at the positions of an axis of n pixels,
// `unit` bytes apart, for each wrap: kClamp, position k is pixel k - 1 held
// within the image (n + 2 positions, from -1 to n); kRepeat, pixel k mod n
// (n + 1); kMirror, the same with every other n mirrored (2n + 1). Position
// k + 1 is always there, so a bilinear read never wraps by itself.
std::vector<std::uint32_t> Offsets(Wrap wrap, int n, std::uint32_t unit) {
    const int count =
        wrap == ImageSampler::kMirror ? 2 * n + 1 : n + 1 + (wrap == ImageSampler::kClamp);
    std::vector<std::uint32_t> offsets(count);
    for (int k = 0; k < count; ++k) {
        int i = wrap == ImageSampler::kClamp ? std::min(std::max(k - 1, 0), n - 1)
                                             : k % static_cast<int>(Period(wrap, n));
        if (i >= n) i = 2 * n - 1 - i;
        offsets[k] = unit * static_cast<std::uint32_t>(i);
    }
    return offsets;
}

// The position of coordinate c (pixel centres at whole numbers) among an
// axis's offsets, and its fraction.
std::int64_t Position(Wrap wrap, int n, double c, double* fraction) {
    if (!std::isfinite(c)) c = 0.0;
    c = wrap == ImageSampler::kClamp ? std::min(std::max(c, -1.0), static_cast<double>(n))
                                     : Reduced(c, Period(wrap, n));
    const double whole = std::floor(c);
    *fraction = c - whole;
    const auto k = static_cast<std::int64_t>(whole);
    return wrap == ImageSampler::kClamp ? std::min<std::int64_t>(k, n - 1) + 1 : k;
}

// A pixel's channels in 16-bit lanes of their own, wide enough for a
// channel times a weight of up to 256: blue at bit 0, red at 16, green at 40.
// The fourth byte read belongs to the next pixel and is masked off.
inline std::uint64_t Lanes(const unsigned char* pixel) {
    std::uint32_t v;
    std::memcpy(&v, pixel, 4);
    return (v | static_cast<std::uint64_t>(v) << 32) & 0x0000FF0000FF00FF;
}

// Two colors in lanes mixed, f / 256 of b, each channel rounded.
inline std::uint64_t Mix(std::uint64_t a, std::uint64_t b, std::uint64_t f) {
    return ((a * (256 - f) + b * f + 0x0000800000800080) >> 8) & 0x0000FF0000FF00FF;
}

// How many steps s from f stay within [0, period): at least 1 when f does.
inline std::int64_t StepsWithin(std::int64_t f, std::int64_t s, std::int64_t period) {
    if (s > 0) return (period - 1 - f) / s + 1;
    if (s < 0) return f / -s + 1;
    return period;
}

// f, at most one period outside [0, period), brought back into it.
inline std::int64_t Wrapped(std::int64_t f, std::int64_t period) {
    return f >= period ? f - period : (f < 0 ? f + period : f);
}

Wrap Known(Wrap wrap) {
    return wrap == ImageSampler::kClamp || wrap == ImageSampler::kMirror ? wrap
                                                                         : ImageSampler::kRepeat;
}

}  // namespace

int ImageSampler::Prepare(const BitmapImage* image, float scaleX, float scaleY) {
    *this = ImageSampler();
    if (!Usable(image) || !FinitePositive(scaleX) || !FinitePositive(scaleY)) return -4;
    Axis x, y;
    x.size = PreparedSize(image->width, scaleX);
    y.size = PreparedSize(image->height, scaleY);
    x.drawn = static_cast<double>(image->width) * scaleX;
    y.drawn = static_cast<double>(image->height) * scaleY;
    x.perPixel = x.size / x.drawn;
    y.perPixel = y.size / y.drawn;
    try {
        // One spare byte, for the row path's 4-byte reads. The prepared image
        // is at most the image, so its offsets fit 32 bits.
        std::vector<unsigned char> pixels(3 * static_cast<std::size_t>(x.size) * y.size + 1);
        std::vector<float> sums(3 * static_cast<std::size_t>(image->width));
        Shrink(*image, Spans(image->width, x.size), Spans(image->height, y.size), sums,
               pixels.data());
        for (Wrap wrap : {kClamp, kRepeat, kMirror}) {
            x.offsets[wrap] = Offsets(wrap, x.size, 3);
            y.offsets[wrap] = Offsets(wrap, y.size, 3 * static_cast<std::uint32_t>(x.size));
        }
        pixels_.swap(pixels);
    } catch (const std::bad_alloc&) {
        return -2;
    }
    x_ = std::move(x);
    y_ = std::move(y);
    return 0;
}

void ImageSampler::Sample(float x, float y, Wrap wrap, float out[3]) const {
    SampleAt(x, y, Known(wrap), out);
}

void ImageSampler::SampleAt(double x, double y, Wrap wrap, float out[3]) const {
    std::fill(out, out + 3, 0.0f);
    if (pixels_.empty()) return;
    double fx, fy;
    const std::int64_t kx = Position(wrap, x_.size, x * x_.perPixel - 0.5, &fx);
    const std::int64_t ky = Position(wrap, y_.size, y * y_.perPixel - 0.5, &fy);
    const std::uint32_t* columns = &x_.offsets[wrap][kx];
    const std::uint32_t* rows = &y_.offsets[wrap][ky];
    for (int c = 0; c < 3; ++c) {
        auto at = [&](int row, int column) {
            return static_cast<double>(pixels_[rows[row] + columns[column] + c]);
        };
        const double bottom = at(0, 0) + (at(0, 1) - at(0, 0)) * fx;
        const double top = at(1, 0) + (at(1, 1) - at(1, 0)) * fx;
        out[c] = static_cast<float>(bottom + (top - bottom) * fy);
    }
}

void ImageSampler::SampleRow(double x, double y, double dx, double dy, int count, Wrap wrap,
                             unsigned char* out) const {
    if (count <= 0) return;
    wrap = Known(wrap);
    const double u = x * x_.perPixel - 0.5, v = y * y_.perPixel - 0.5;
    const double du = dx * x_.perPixel, dv = dy * y_.perPixel;
    bool fits = !pixels_.empty() && std::isfinite(u) && std::isfinite(v) && std::isfinite(du) &&
                std::isfinite(dv);
    if (wrap == kClamp) {
        for (double c : {u, v, u + count * du, v + count * dv})
            fits = fits && std::fabs(c) < kFixedReach;
    } else {
        fits = fits && Period(wrap, x_.size) < kFixedReach && Period(wrap, y_.size) < kFixedReach;
    }
    if (!fits) return SlowRow(x, y, dx, dy, count, wrap, out);
    switch (wrap) {
        case kClamp: return FixedRow<kClamp>(u, v, du, dv, count, out);
        case kMirror: return FixedRow<kMirror>(u, v, du, dv, count, out);
        default: return FixedRow<kRepeat>(u, v, du, dv, count, out);
    }
}

// u, v: prepared pixels, pixel centres at whole numbers, in 1/2^32 steps.
// Wrapped coordinates are kept within their period and step the short way
// round; between two wraps a run needs no checks at all.
template <ImageSampler::Wrap kWrap>
void ImageSampler::FixedRow(double u, double v, double du, double dv, int count,
                            unsigned char* out) const {
    std::int64_t periodU = 0, periodV = 0;
    if (kWrap != kClamp) {
        const double pu = Period(kWrap, x_.size), pv = Period(kWrap, y_.size);
        u = Reduced(u, pu);
        v = Reduced(v, pv);
        du = Reduced(du + 0.5 * pu, pu) - 0.5 * pu;
        dv = Reduced(dv + 0.5 * pv, pv) - 0.5 * pv;
        periodU = static_cast<std::int64_t>(pu) << 32;
        periodV = static_cast<std::int64_t>(pv) << 32;
    }
    auto fixed = [](double c) { return static_cast<std::int64_t>(c * kFixedOne); };
    std::int64_t fu = fixed(u), fv = fixed(v);
    const std::int64_t su = fixed(du), sv = fixed(dv);
    const std::int64_t lastU = x_.size - 1, lastV = y_.size - 1;
    const unsigned char* pixels = pixels_.data();
    const std::uint32_t* columns = x_.offsets[kWrap].data();
    const std::uint32_t* rows = y_.offsets[kWrap].data();
    for (int i = 0; i < count;) {
        std::int64_t run = count - i;
        if (kWrap != kClamp)
            run = std::min({run, StepsWithin(fu, su, periodU), StepsWithin(fv, sv, periodV)});
        for (const int end = i + static_cast<int>(run); i < end; ++i) {
            std::int64_t ku = fu >> 32, kv = fv >> 32;
            if (kWrap == kClamp) {
                ku = std::min(std::max(ku, std::int64_t{-1}), lastU) + 1;
                kv = std::min(std::max(kv, std::int64_t{-1}), lastV) + 1;
            }
            const std::uint64_t wu = static_cast<std::uint64_t>(fu >> 24) & 0xFF;
            const std::uint64_t wv = static_cast<std::uint64_t>(fv >> 24) & 0xFF;
            const unsigned char* r0 = pixels + rows[kv];
            const unsigned char* r1 = pixels + rows[kv + 1];
            const std::uint32_t c0 = columns[ku], c1 = columns[ku + 1];
            const std::uint64_t c = Mix(Mix(Lanes(r0 + c0), Lanes(r0 + c1), wu),
                                        Mix(Lanes(r1 + c0), Lanes(r1 + c1), wu), wv);
            PutPacked(out + 3 * i, static_cast<std::uint32_t>((c & 0xFF00FF) | (c >> 32 & 0xFF00)));
            fu += su;
            fv += sv;
        }
        if (kWrap != kClamp) {
            fu = Wrapped(fu, periodU);
            fv = Wrapped(fv, periodV);
        }
    }
}

void ImageSampler::SlowRow(double x, double y, double dx, double dy, int count, Wrap wrap,
                           unsigned char* out) const {
    for (int i = 0; i < count; ++i) {
        float color[3];
        SampleAt(x + i * dx, y + i * dy, wrap, color);
        for (int c = 0; c < 3; ++c)
            out[3 * i + c] = static_cast<unsigned char>(std::min(color[c] + 0.5f, 255.0f));
    }
}

}  // namespace vellrender
