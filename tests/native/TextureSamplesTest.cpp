// Each texture's shade across the sample's band, its centre line and rim,
// and every size from 1 x 1 up (under the sanitizers, the bounds check).
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <vector>

#include "panels/TextureSamples.h"
#include "vellcolor/BitmapImage.h"
#include "vellcolor/ErrorCode.h"

namespace {

// Byte i of the noise map is byte(i), or the same for every i.
struct NoiseOf : NoiseSource {
    explicit NoiseOf(std::function<int(std::size_t)> f) : byte(std::move(f)) {}
    explicit NoiseOf(int value) : byte([value](std::size_t) { return value; }) {}
    void Fill(unsigned char* bytes, std::size_t count) override {
        for (std::size_t i = 0; i < count; ++i) bytes[i] = static_cast<unsigned char>(byte(i));
    }
    std::function<int(std::size_t)> byte;
};

// The picture's greys, top row first (the last stored row); every pixel grey.
template <class Noise>
std::vector<int> Render(int texture, int w, int h, Noise&& noise) {
    BitmapImage image;
    const int result = RenderTextureSample(texture, w, h, noise, &image);
    EXPECT_EQ(result, kOk) << "texture " << texture << " at " << w << "x" << h;
    if (result != kOk) return std::vector<int>(w * h);
    std::vector<int> greys;
    for (int i = 0; i < w * h; ++i) {
        const unsigned char* p = image.PixelAt(i % w, h - 1 - i / w);
        EXPECT_TRUE(p[0] == p[1] && p[1] == p[2]) << w << "x" << h;
        greys.push_back(p[0]);
    }
    return greys;
}

float Falloff(float t) {
    return 1 - 3 * t * t + 2 * t * t * t;
}

TEST(TextureSamplesTest, EachTextureShadesTheBandAcrossItsWidth) {
    // Each texture's factor at t, under a constant noise of 255 for the two
    // that read it and 0 for the others.
    const std::function<float(float)> shapes[kTextureCount] = {
        [](float) { return 1.0f; },
        [](float t) { return Falloff(t) < 0.02f ? 0 : std::min(Falloff(t) + 0.2f, 1.0f); },
        [](float t) { return 1 - 0.49f * (1 - Falloff(t)) * (1 - Falloff(t)); },
        [](float t) { return 1 - std::pow(0.9f - (t - 0.9f) * (t - 0.9f) / 0.9f, 2); },
        [](float t) { return 0.65f * t * t + 0.35f; },
        [](float t) { return t < 0.1f ? 0.0f : 1.0f; },
        [](float t) { return t >= 0.3f && t <= 0.4f ? 0.0f : 1.0f; },
        [](float t) { return t > 0.55f && t < 0.85f ? 0.0f : 1.0f; },
    };
    const int h = 400;  // r = 120, so neighbouring rows differ little in t
    const float r = 0.3f * h;
    for (int texture = 0; texture < kTextureCount; ++texture) {
        const auto& f = shapes[texture];
        const std::vector<int> greys =
            Render(texture, 1, h, NoiseOf(texture == 1 || texture == 2 ? 255 : 0));
        for (int y = 0; y < h; ++y) {
            const float t = std::fabs(y + 0.5f - h / 2) / r;
            const bool nearStep = std::fabs(f(t - 0.01f) - f(t + 0.01f)) > 0.1f;
            if (t < 1 - 1 / r && !nearStep) {
                EXPECT_NEAR(greys[y], 255 - 255 * f(t), 2) << texture << " t " << t;
            } else if (t > 1 + 1 / r) {
                EXPECT_EQ(greys[y], 255) << texture << " t " << t;
            }
        }
    }
}

TEST(TextureSamplesTest, BandCentreAndRimSubPoints) {
    // r = 2.4 around y = 4: rows 1 and 6 lie 2.5 off (t > 1) with one sub-row
    // of three inside, coverage 1/3. Only the sub-row nearer the line averages
    // t below 1 (the empty row beside does not count), so 1/9 stays.
    const std::vector<int> greys = Render(0, 1, 8, NoiseOf(0));
    EXPECT_EQ(greys[1], static_cast<int>(255 - 255 / 9.0f));
    EXPECT_EQ(greys[6], greys[1]);
    // The centre line lies at height / 2 in whole pixels counted from the
    // bottom row: for 5, between the second and third rows from the bottom.
    const std::vector<int> odd = Render(0, 1, 5, NoiseOf(0));
    EXPECT_EQ(odd, (std::vector<int>{255, odd[1], 0, 0, odd[1]}));
}

TEST(TextureSamplesTest, EverySizeRenders) {
    NoiseOf noise([](std::size_t i) { return static_cast<int>(i * 37 % 256); });
    for (int w : {1, 2, 3, 4, 7, 16, 23, 40})
        for (int h = 1; h <= 40; ++h)
            for (int texture = 0; texture < kTextureCount; ++texture) Render(texture, w, h, noise);
}

}  // namespace
