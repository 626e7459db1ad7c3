// libFuzzer target: the reference renderer on small random pictures and parts, every field of
// its object drawn from the bytes (NaN, infinities, huge, negative and zero values, unknown
// codes, 0 to 9 colors; no image, a 1 x 1 one or a small random one). Whatever it is given,
// it returns 0 (or -2 without memory) and no byte outside the part changes, padding included.
#include <fuzzer/FuzzedDataProvider.h>

#include <climits>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <vector>

#include "vellcolor/VellRender.h"

using namespace vellrender;

namespace {

float AnyFloat(FuzzedDataProvider& data) {
    const float inf = std::numeric_limits<float>::infinity();
    const float specials[] = {std::nanf(""), inf, -inf, 0.0f, -1.0f, 1e30f, -1e30f, 1e-30f};
    switch (data.ConsumeIntegralInRange(0, 3)) {
        case 0: return data.PickValueInArray(specials);
        case 1: return data.ConsumeFloatingPoint<float>();
        default: return data.ConsumeFloatingPointInRange(-100.0f, 100.0f);
    }
}

// One of the known codes, or half the time any integer.
int AnyCode(FuzzedDataProvider& data, std::initializer_list<const int> known) {
    return data.ConsumeBool() ? data.ConsumeIntegral<int>() : data.PickValueInArray(known);
}

ColorRGB AnyColor(FuzzedDataProvider& data) {
    return ColorRGB::FromColorRef(data.ConsumeIntegral<std::uint32_t>());
}

// Channels anywhere, NaN and infinities included, not only 0..1; braces keep the draws in order.
ColorF AnyColorF(FuzzedDataProvider& data) {
    return ColorF{AnyFloat(data), AnyFloat(data), AnyFloat(data)};
}

// 0 to 9 colors in a malloc'd array, as the objects own them; sometimes a
// count without an array, as a failed SetColors leaves it.
template <class Effect, class Color>
void SetAnyColors(FuzzedDataProvider& data, Effect& effect, Color (*any)(FuzzedDataProvider&)) {
    std::free(effect.colors);
    effect.colors = nullptr;
    effect.colorCount = data.ConsumeIntegralInRange(0, 9);
    if (effect.colorCount == 0 || data.ConsumeIntegralInRange(0, 15) == 0) return;
    effect.colors = static_cast<Color*>(std::malloc(sizeof(Color) * effect.colorCount));
    for (int i = 0; i < effect.colorCount; ++i) effect.colors[i] = any(data);
}

// A count as the panel gives it, or zero, negative or huge.
int AnyCount(FuzzedDataProvider& data) {
    const int odd[] = {0, -1, INT_MIN, INT_MAX, 1000, 1 << 20};
    switch (data.ConsumeIntegralInRange(0, 3)) {
        case 0: return data.PickValueInArray(odd);
        case 1: return data.ConsumeIntegral<int>();
        default: return data.ConsumeIntegralInRange(1, 64);
    }
}

// No image, a 1 x 1 one, or up to 16 x 16 of the fuzzer's bytes, 24-bit as the objects hold them.
BitmapImage* AnyImage(FuzzedDataProvider& data) {
    const int kind = data.ConsumeIntegralInRange(0, 2);
    if (kind == 0) return nullptr;
    const int w = kind == 1 ? 1 : data.ConsumeIntegralInRange(1, 16);
    const int h = kind == 1 ? 1 : data.ConsumeIntegralInRange(1, 16);
    BitmapImage* image = BitmapImage::NewEmpty();
    if (image == nullptr || image->Create(w, h, 3, 0) != 0) std::abort();
    for (unsigned i = 0; i < image->pixelBytes; ++i)
        image->pixels[i] = data.ConsumeIntegral<unsigned char>();
    return image;
}

// Fields are set directly, past what the setters let through.
int RenderAny(FuzzedDataProvider& data, const Picture& p, const Part& part, const Options& o) {
    switch (data.ConsumeIntegralInRange(0, 8)) {
        case 0: {
            KTEffectGradation g;
            g.type = AnyCode(data, {0, 1, 3, 4, 5, 6, 7, 8, 101, 104, 105, 106, 107, 108});
            g.hueInterpolation = data.ConsumeIntegralInRange(-1, 1);
            g.repeat = data.ConsumeBool() ? data.ConsumeIntegralInRange(1, 8)
                                          : data.ConsumeIntegral<int>();
            for (float* f : {&g.factor, &g.bias, &g.angle, &g.mix, &g.spiralAngle})
                *f = AnyFloat(data);
            SetAnyColors(data, g, AnyColor);
            return RenderGradation(g, p, part, o);
        }
        case 1: {
            KTEffectTile t;
            t.shape = AnyCode(data, {0, 1, 2, 3});
            for (float* f :
                 {&t.width, &t.height, &t.rowShift, &t.seamWidth, &t.cornerCut, &t.angle})
                *f = AnyFloat(data);
            t.transparentSeam = data.ConsumeIntegralInRange(-1, 1);
            t.roundCorners = data.ConsumeIntegralInRange(-1, 1);
            t.coloring = AnyCode(data, {0, 1, 2, 3, 4});
            t.seamColor = AnyColor(data);
            SetAnyColors(data, t, AnyColor);
            return RenderTile(t, p, part, o);
        }
        case 2: {
            KTEffectStripe s;
            for (float* f : {&s.interval, &s.patternWidth, &s.intersectionBrightness})
                *f = AnyFloat(data);
            s.direction = AnyCode(data, {1, 2, 3, 4, 5, 6});
            s.texture = AnyCode(data, {0, 1, 2, 3, 4, 5, 6, 7});
            s.backgroundMode = AnyCode(data, {0, 1});
            s.backgroundColor = AnyColor(data);
            SetAnyColors(data, s, AnyColor);
            return RenderStripe(s, p, part, o);
        }
        case 3: return FillUniform(AnyColor(data), p, part, o);
        case 4: return Blur(AnyFloat(data), p, part, o);
        case 5: return Invert(p, part, o);
        case 6: {
            KTEffectDensityPattern e;
            e.patternType = AnyCode(data, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15});
            e.referencePoints = AnyCount(data);
            e.radialLines = AnyCount(data);
            for (int* code : {&e.removeJaggies, &e.invertColors}) *code = AnyCode(data, {0, 1});
            e.borderColor = AnyColorF(data);
            e.blurDirection = AnyCode(data, {0, 1, 2, 3});
            for (float* f : {&e.borderWidth, &e.isolineWidth, &e.swirl, &e.roughness, &e.imageSize})
                *f = AnyFloat(data);
            SetAnyColors(data, e, AnyColorF);
            e.image = AnyImage(data);
            return RenderDensityPattern(e, p, part, o);
        }
        case 7: {
            KTMapping m;
            for (int* code : {&m.repeat, &m.seamless, &m.fitWhole, &m.assigned})
                *code = AnyCode(data, {0, 1});
            for (float* f : {&m.scale, &m.angle}) *f = AnyFloat(data);
            m.image = AnyImage(data);
            const float stretch = AnyFloat(data);
            return RenderMapping(m, stretch, p, part, o);
        }
        default: {
            const ColorRGB color = AnyColor(data);
            return DrawEdge(color, AnyFloat(data), p, part, o);
        }
    }
}

// Coverage of one pixel: empty, full, hashed noise, the fuzzer's own bytes,
// or a disc about (radius, radius) with an anti-aliased edge.
unsigned char Coverage(int kind, int x, int y, float radius, FuzzedDataProvider& data) {
    switch (kind) {
        case 0: return 0;
        case 1: return 255;
        case 2: return static_cast<unsigned char>(std::uint32_t(x + 64 * y) * 2654435761u >> 24);
        case 3: return data.ConsumeIntegral<unsigned char>();
        default: {
            const float d = std::hypot(x + 0.5f - radius, y + 0.5f - radius);
            return static_cast<unsigned char>(255.0f *
                                              std::fmin(1.0f, std::fmax(0.0f, radius - d)));
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    FuzzedDataProvider data(bytes, size);
    const int w = data.ConsumeIntegralInRange(1, 48), h = data.ConsumeIntegralInRange(1, 48);
    const int pictureStride = 3 * w + data.ConsumeIntegralInRange(0, 5);
    const int maskStride = w + data.ConsumeIntegralInRange(0, 3);
    std::vector<unsigned char> pixels(static_cast<std::size_t>(pictureStride) * h);
    for (std::size_t i = 0; i < pixels.size(); ++i)
        pixels[i] = static_cast<unsigned char>((i * 2654435761u) >> 13);
    std::vector<unsigned char> mask(static_cast<std::size_t>(maskStride) * h, 0);
    const int kind = data.ConsumeIntegralInRange(0, 4);
    const float radius = data.ConsumeFloatingPointInRange(0.0f, 30.0f);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) mask[y * maskStride + x] = Coverage(kind, x, y, radius, data);

    const Picture picture{pixels.data(), w, h, pictureStride};
    Part part = Part::OfMask(mask.data(), w, h, maskStride);
    // A box wider than the coverage is allowed too, even around no coverage
    // at all: its zero bytes stay outside.
    if (data.ConsumeBool()) part = Part{mask.data(), maskStride, 0, 0, w, h};
    // Seed, threads and dither; braces keep the draws in order.
    const Options options{data.ConsumeIntegral<std::uint32_t>(), data.ConsumeIntegralInRange(1, 2),
                          data.ConsumeBool()};

    const std::vector<unsigned char> before = pixels;
    const int result = RenderAny(data, picture, part, options);
    if (result != 0 && result != -2) std::abort();
    for (std::size_t i = 0; i < pixels.size(); ++i) {
        const int y = static_cast<int>(i / pictureStride),
                  x = static_cast<int>(i % pictureStride) / 3;
        if (pixels[i] != before[i] && (x >= w || mask[y * maskStride + x] == 0)) std::abort();
    }
    return 0;
}
