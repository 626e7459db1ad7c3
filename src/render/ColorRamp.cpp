#include "render/ColorRamp.h"

#include <cmath>
#include <new>

#include "render/RenderCore.h"
#include "vellcolor/ColorF.h"

namespace vellrender {

namespace {

FloatColor HueLerp(const ColorRGB& a, const ColorRGB& b, float w) {
    float h0, l0, s0, h1, l1, s1;
    ColorF::FromRGB(a).getHLS(&h0, &l0, &s0);
    ColorF::FromRGB(b).getHLS(&h1, &l1, &s1);
    // A grey has no hue of its own: it takes the other end's.
    if (s0 == 0.0f) h0 = h1;
    if (s1 == 0.0f) h1 = h0;
    if (h1 - h0 > 180.0f) h0 += 360.0f;
    if (h0 - h1 > 180.0f) h1 += 360.0f;
    float h = h0 + (h1 - h0) * w;
    if (h >= 360.0f) h -= 360.0f;
    ColorF c;
    c.setHLS(h, l0 + (l1 - l0) * w, s0 + (s1 - s0) * w);
    return {c.blue * 255.0f, c.green * 255.0f, c.red * 255.0f};
}

}  // namespace

int ColorRamp::Build(const RampSettings& s) {
    const std::vector<ColorRGB> colors = EffectColors(s.colors, s.count);
    const int n = static_cast<int>(colors.size());
    const float mix = Clamped(s.mix, 0.0f, 1.0f, 0.0f);
    const float gamma = std::exp2(Clamped(s.bias, -5.0f, 5.0f, 0.0f) / 2.5f);
    const int repeat = s.repeat < 1 ? 1 : (s.repeat > kMaxRepeat ? kMaxRepeat : s.repeat);
    const float factor = Clamped(s.factor, -1e6f, 1e6f, 1.0f);
    try {
        packed_.assign(kSize, 0);
        fine_.assign(4 * kSize, 0);
    } catch (const std::bad_alloc&) {
        return -2;
    }
    // N flat bands of width (1 - mix) and N - 1 blends of width mix, in
    // units of one step; the whole run is N - mix steps long.
    const float steps = n - mix;
    for (int i = 0; i < kSize; ++i) {
        const float t = std::pow(i / float(kSize - 1), gamma);
        const float q = t * steps;
        int band = static_cast<int>(q);
        if (band > n - 1) band = n - 1;
        const float into = q - band - (1.0f - mix);
        FloatColor c = OfBytes(colors[band]);
        if (into > 0.0f && band + 1 < n) {
            const float w = into / mix;
            c = s.hue ? HueLerp(colors[band], colors[band + 1], w)
                      : Mix(c, OfBytes(colors[band + 1]), w);
        }
        const float channels[3] = {c.b, c.g, c.r};
        std::uint32_t packed = 0;
        for (int k = 0; k < 3; ++k) {
            const float v = Clamped(channels[k], 0.0f, 255.0f, 0.0f);
            packed |= static_cast<std::uint32_t>(std::lround(v)) << (8 * k);
            fine_[4 * i + k] = static_cast<std::uint16_t>(
                std::lround(v * 256.0f) > 65535 ? 65535 : std::lround(v * 256.0f));
        }
        packed_[i] = packed;
    }
    // Table positions run 0 .. repeat x kSize - 1 over t in [0, 1]; the last
    // one is the last entry of the last run.
    scale_ = factor * static_cast<float>(repeat) * kSize;
    last_ = static_cast<float>(repeat) * kSize - 1.0f;
    return 0;
}

ColorRGB ColorRamp::At(float t) const {
    const std::uint32_t v = packed_[Index(t)];
    return ColorRGB(static_cast<unsigned char>(v >> 16), static_cast<unsigned char>(v >> 8),
                    static_cast<unsigned char>(v));
}

}  // namespace vellrender
