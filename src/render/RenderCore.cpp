#include "render/RenderCore.h"

#include <cstdint>
#include <new>
#include <thread>
#include <type_traits>

namespace vellrender {

Picture Picture::Of(BitmapImage& image) {
    Picture picture;
    if (image.GetBytesPerPixel() != 3 || image.pixels == nullptr) return picture;
    picture.pixels = image.pixels;
    picture.width = image.width;
    picture.height = image.height;
    picture.stride = image.stride;
    return picture;
}

Part Part::OfMask(const unsigned char* coverage, int width, int height, int stride) {
    Part part;
    part.coverage = coverage;
    part.stride = stride;
    if (coverage == nullptr || width <= 0 || height <= 0 || stride < width) return part;
    int left = width, right = 0, bottom = height, top = 0;
    for (int y = 0; y < height; ++y) {
        const unsigned char* row = coverage + static_cast<std::ptrdiff_t>(y) * stride;
        int x0 = 0, x1 = width;
        while (x0 < x1 && row[x0] == 0) ++x0;
        if (x0 == x1) continue;
        while (row[x1 - 1] == 0) --x1;
        left = std::min(left, x0);
        right = std::max(right, x1);
        bottom = std::min(bottom, y);
        top = y + 1;
    }
    if (right > left) {
        part.left = left;
        part.right = right;
        part.bottom = bottom;
        part.top = top;
    }
    return part;
}

int CheckTarget(const Picture& picture, const Part& part) {
    const bool pictureFits = picture.pixels != nullptr && picture.width > 0 && picture.height > 0 &&
                             picture.width <= (1 << 28) / 3 && picture.stride >= 3 * picture.width;
    if (!pictureFits) return -4;
    if (part.Empty()) return 0;
    const bool partFits = part.coverage != nullptr && part.stride >= part.right && part.left >= 0 &&
                          part.bottom >= 0 && part.right <= picture.width &&
                          part.top <= picture.height;
    return partFits ? 0 : -4;
}

Frame::Frame(const Part& part, float angleDegrees)
    : cx(0.5f * (part.left + part.right)),
      cy(0.5f * (part.bottom + part.top)),
      width(static_cast<float>(part.right - part.left)),
      height(static_cast<float>(part.top - part.bottom)) {
    // Whole turns are dropped first so that huge angles keep their precision.
    const double a =
        std::fmod(Clamped(angleDegrees, -1e9f, 1e9f, 0.0f), 360.0) * 3.14159265358979323846 / 180.0;
    cosA = static_cast<float>(std::cos(a));
    sinA = static_cast<float>(std::sin(a));
}

int ThreadCount(int requested, int work) {
    int threads = requested;
    if (threads <= 0) threads = static_cast<int>(std::thread::hardware_concurrency());
    return std::max(1, std::min({threads, work, 64}));
}

void Composite(const unsigned char* src, const unsigned char* coverage, unsigned char* dst,
               int count) {
    int x = 0;
    while (x < count) {
        // A run of full coverage is copied whole.
        int run = x;
        std::uint64_t word;
        while (run + 8 <= count && (std::memcpy(&word, coverage + run, 8), word == ~0ull)) run += 8;
        while (run < count && coverage[run] == 255) ++run;
        if (run > x) {
            std::memcpy(dst + 3 * x, src + 3 * x, 3 * static_cast<std::size_t>(run - x));
            x = run;
            continue;
        }
        const unsigned int a = coverage[x];
        if (a != 0) {
            for (int c = 0; c < 3; ++c) {
                unsigned char& d = dst[3 * x + c];
                d = static_cast<unsigned char>((src[3 * x + c] * a + d * (255 - a) + 127) / 255);
            }
        }
        ++x;
    }
}

namespace {

// Box means of half-width r along n elements of `lanes` floats each (element
// i at in + i x lanes) into out, every lane at once; beyond the ends counts
// as 0. `sums` is scratch for `lanes` floats. Lanes is an int, or an
// std::integral_constant for the few planes of a row, whose loops then unroll.
template <class Lanes>
void BoxRun(const float* __restrict in, float* __restrict out, int n, Lanes lanes, int r,
            float* __restrict sums) {
    const float scale = 1.0f / (2 * r + 1);
    std::fill(sums, sums + lanes, 0.0f);
    for (int i = 0; i < std::min(r, n); ++i)
        for (int l = 0; l < lanes; ++l) sums[l] += in[i * lanes + l];
    for (int i = 0; i < n; ++i) {
        if (i + r < n)
            for (int l = 0; l < lanes; ++l) sums[l] += in[(i + r) * lanes + l];
        for (int l = 0; l < lanes; ++l) out[i * lanes + l] = sums[l] * scale;
        if (i - r >= 0)
            for (int l = 0; l < lanes; ++l) sums[l] -= in[(i - r) * lanes + l];
    }
}

}  // namespace

int BoxBlur(float* values, int w, int h, int planes, int r, int passes, int threads) {
    // Rows one at a time; columns in strips copied out whole, so that their
    // passes run in cache over every column of the strip at once.
    const int strip = 16;
    const int strips = (w + strip - 1) / strip;
    const std::size_t rowLength = static_cast<std::size_t>(w) * planes;
    const std::size_t blockLength = static_cast<std::size_t>(h) * strip * planes;
    threads = ThreadCount(threads, std::max(h, strips));
    std::vector<std::vector<float>> scratch;
    try {
        scratch.assign(threads,
                       std::vector<float>(2 * std::max(blockLength, rowLength) + strip * planes));
    } catch (const std::bad_alloc&) {
        return -2;
    }
    // Passes go back and forth between a and b, the last one into b.
    auto run = [&](float* a, float* b, int n, auto lanes, float* sums) {
        for (int pass = 0; pass < passes; ++pass) {
            if (pass > 0) std::swap(a, b);
            BoxRun(a, b, n, lanes, r, sums);
        }
        return b;
    };
    ParallelFor(threads, h, [&](int y, int worker) {
        float* row = values + y * rowLength;
        float* a = scratch[worker].data();
        float* b = a + rowLength;
        std::memcpy(a, row, rowLength * 4);
        float* sums = b + rowLength;
        const float* done = planes == 1   ? run(a, b, w, std::integral_constant<int, 1>(), sums)
                            : planes == 4 ? run(a, b, w, std::integral_constant<int, 4>(), sums)
                                          : run(a, b, w, planes, sums);
        std::memcpy(row, done, rowLength * 4);
    });
    ParallelFor(threads, strips, [&](int index, int worker) {
        const int x0 = index * strip, lanes = std::min(strip, w - x0) * planes;
        float* a = scratch[worker].data();
        float* b = a + blockLength;
        for (int y = 0; y < h; ++y)
            std::memcpy(a + y * lanes, values + y * rowLength + x0 * planes, lanes * 4);
        const float* done = run(a, b, h, lanes, b + blockLength);
        for (int y = 0; y < h; ++y)
            std::memcpy(values + y * rowLength + x0 * planes, done + y * lanes, lanes * 4);
    });
    return 0;
}

std::vector<ColorRGB> EffectColors(const ColorRGB* colors, int count) {
    if (colors == nullptr || count < 1) return {ColorRGB(0, 0, 0), ColorRGB(255, 255, 255)};
    return std::vector<ColorRGB>(colors, colors + count);
}

}  // namespace vellrender
