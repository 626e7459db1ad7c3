// Rendering the stripe panel's eight texture samples, as the panel does when
// it opens, at the texture buttons' size (15 x 18 dialog units, 23 x 29
// pixels with the dialog font under Wine) and at 256 x 256, against a
// baseline from the same run: allocating and memset-filling the same eight
// images' pixel bytes.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "RatioReporter.h"
#include "panels/TextureSamples.h"
#include "vellcolor/BitmapImage.h"

namespace {

struct Size {
    const char* name;
    int width;
    int height;
};

const Size kSizes[] = {{"button", 23, 29}, {"256x256", 256, 256}};

std::size_t PixelBytes(const Size& size) {
    return static_cast<std::size_t>((size.width * 3 + 3) / 4 * 4) * size.height;
}

void Samples(benchmark::State& state, Size size) {
    int sizes[kTextureCount][2];
    for (auto& s : sizes) {
        s[0] = size.width;
        s[1] = size.height;
    }
    for (auto _ : state) {
        BitmapImage images[kTextureCount];
        BitmapImage* pointers[kTextureCount];
        for (int i = 0; i < kTextureCount; ++i) pointers[i] = &images[i];
        if (RenderTextureSamples(sizes, pointers) != 0) state.SkipWithError("refused");
        benchmark::DoNotOptimize(images[kTextureCount - 1].pixels);
    }
}

void Memset(benchmark::State& state, Size size) {
    const std::size_t bytes = PixelBytes(size);
    for (auto _ : state) {
        for (int i = 0; i < kTextureCount; ++i) {
            void* target = std::malloc(bytes);
            std::memset(target, 255, bytes);
            benchmark::DoNotOptimize(target);
            benchmark::ClobberMemory();
            std::free(target);
        }
    }
}

// One texture alone, to see which one dominates.
void OneTexture(benchmark::State& state, int texture, Size size) {
    GeneratorNoise noise(1);
    for (auto _ : state) {
        BitmapImage image;
        RenderTextureSample(texture, size.width, size.height, noise, &image);
        benchmark::DoNotOptimize(image.pixels);
    }
}

}  // namespace

int main(int argc, char** argv) {
    for (const Size& size : kSizes) {
        const std::string name = size.name;
        benchmark::RegisterBenchmark(("samples/" + name).c_str(), Samples, size)
            ->Unit(benchmark::kMicrosecond);
        benchmark::RegisterBenchmark(("memset/" + name).c_str(), Memset, size)
            ->Unit(benchmark::kMicrosecond);
    }
    for (int texture = 0; texture < kTextureCount; ++texture) {
        benchmark::RegisterBenchmark(("texture" + std::to_string(texture) + "/256x256").c_str(),
                                     OneTexture, texture, kSizes[1])
            ->Unit(benchmark::kMicrosecond);
    }

    benchmark::Initialize(&argc, argv);
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);

    std::printf("\n%-10s %14s %14s %12s\n", "size", "eight (us)", "memset (us)", "vs memset");
    for (const Size& size : kSizes) {
        const std::string name = size.name;
        const double ours = reporter.Time("samples/" + name);
        if (ours <= 0) continue;
        const double floor = reporter.Time("memset/" + name);
        std::printf("%-10s %14.1f %14.3f %11.0fx\n", size.name, ours, floor,
                    floor > 0 ? ours / floor : 0.0);
    }
    std::printf(
        "(eight: all eight samples rendered with fresh noise; vs memset: that time over "
        "allocating and filling the same eight images' pixel bytes)\n");
    return 0;
}
