// Decoding 4096 x 4096 bitmaps from memory in every accepted depth, and the
// conversion of an 8-bit one to 24 bits, against two baselines measured in
// the same run: one memcpy of the same pixel bytes into fresh memory (the
// physical floor) and stb_image decoding the same file from memory.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <string>
#include <vector>

#include "BmpWriter.h"
#include "RatioReporter.h"
#include "vellcolor/BitmapImage.h"

#define STB_IMAGE_IMPLEMENTATION
#define STBI_ONLY_BMP
#include "stb_image.h"

namespace {

const int kSide = 4096;

struct Case {
    const char* name;
    int bitCount;
    std::uint32_t compression;
    std::vector<std::uint32_t> masks;
};

const std::vector<Case>& Cases() {
    static const std::vector<Case> cases = {
        {"8bit", 8, 0, {}},
        {"16bit-555", 16, 0, {}},
        {"16bit-565", 16, 3, {0xF800, 0x07E0, 0x001F}},
        {"24bit", 24, 0, {}},
        {"32bit", 32, 0, {}},
        {"32bit-bitfields", 32, 3, {0xFF0000, 0xFF00, 0xFF}},
    };
    return cases;
}

struct Sample {
    std::vector<std::uint8_t> file;   // the .bmp as stored
    std::vector<std::uint8_t> block;  // what the loader reads: DIB plus zero tail
    std::size_t pixelBytes = 0;
};

const Sample& SampleFor(const Case& c) {
    static std::map<std::string, Sample> samples;
    Sample& s = samples[c.name];
    if (s.file.empty()) {
        BmpLayout layout;
        layout.width = kSide;
        layout.height = kSide;
        layout.bitCount = c.bitCount;
        layout.compression = c.compression;
        layout.masks = c.masks;
        if (c.bitCount == 8) {
            for (std::uint32_t i = 0; i < 256; ++i) layout.palette.push_back(i * 0x010203u);
        }
        layout.pixel = [](int x, int row, int byte) {
            return static_cast<std::uint8_t>(x * 7 + row * 13 + byte * 29);
        };
        s.file = MakeBmp(layout);
        s.block = DibBlockOf(s.file);
        s.pixelBytes = static_cast<std::size_t>((kSide * c.bitCount + 31) / 32 * 4) * kSide;
    }
    return s;
}

void Decode(benchmark::State& state, const Case& c) {
    const Sample& s = SampleFor(c);
    for (auto _ : state) {
        BitmapImage image;
        if (image.SetFromPackedDIB(s.block.data(), s.block.size()) != 0)
            state.SkipWithError("refused");
        benchmark::DoNotOptimize(image.pixels);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * s.pixelBytes));
}

void Memcpy(benchmark::State& state, std::size_t bytes, const std::uint8_t* source) {
    for (auto _ : state) {
        void* target = std::malloc(bytes);
        std::memcpy(target, source, bytes);
        benchmark::DoNotOptimize(target);
        benchmark::ClobberMemory();
        std::free(target);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * bytes));
}

void StbDecode(benchmark::State& state, const Case& c) {
    const Sample& s = SampleFor(c);
    for (auto _ : state) {
        int w, h, n;
        stbi_uc* pixels =
            stbi_load_from_memory(s.file.data(), static_cast<int>(s.file.size()), &w, &h, &n, 0);
        if (pixels == nullptr) state.SkipWithError("stb refused");
        benchmark::DoNotOptimize(pixels);
        stbi_image_free(pixels);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * s.pixelBytes));
}

void ConvertTo24(benchmark::State& state) {
    const Sample& s = SampleFor(Cases()[0]);
    for (auto _ : state) {
        state.PauseTiming();
        BitmapImage image;
        image.SetFromPackedDIB(s.block.data(), s.block.size());
        state.ResumeTiming();
        image.ConvertTo24Bit();
        benchmark::DoNotOptimize(image.pixels);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * kSide * kSide * 3));
}

void DecodeAndConvert(benchmark::State& state) {
    const Sample& s = SampleFor(Cases()[0]);
    for (auto _ : state) {
        BitmapImage image;
        image.SetFromPackedDIB(s.block.data(), s.block.size());
        image.ConvertTo24Bit();
        benchmark::DoNotOptimize(image.pixels);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * s.pixelBytes));
}

}  // namespace

int main(int argc, char** argv) {
    static std::vector<std::uint8_t> converted(static_cast<std::size_t>(kSide) * kSide * 3, 1);
    for (const Case& c : Cases()) {
        const std::string name = c.name;
        const Sample& s = SampleFor(c);
        benchmark::RegisterBenchmark(("decode/" + name).c_str(), Decode, c)
            ->Unit(benchmark::kMillisecond);
        benchmark::RegisterBenchmark(("memcpy/" + name).c_str(), Memcpy, s.pixelBytes,
                                     s.block.data())
            ->Unit(benchmark::kMillisecond);
        benchmark::RegisterBenchmark(("stb/" + name).c_str(), StbDecode, c)
            ->Unit(benchmark::kMillisecond);
    }
    benchmark::RegisterBenchmark("convert24/8bit", ConvertTo24)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("memcpy/convert24", Memcpy, converted.size(), converted.data())
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("decode+convert24/8bit", DecodeAndConvert)
        ->Unit(benchmark::kMillisecond);

    benchmark::Initialize(&argc, argv);
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);

    std::printf("\n%-18s %10s %12s %12s\n", "depth", "MB/s", "vs memcpy", "stb / ours");
    for (const Case& c : Cases()) {
        const std::string name = c.name;
        const double ours = reporter.Time("decode/" + name);
        if (ours <= 0) continue;
        const double mb = SampleFor(c).pixelBytes / 1e6;
        std::printf("%-18s %10.0f %11.2fx %11.2fx\n", c.name, mb / (ours / 1e3),
                    ours / reporter.Time("memcpy/" + name), reporter.Time("stb/" + name) / ours);
    }
    const double convert = reporter.Time("convert24/8bit");
    if (convert > 0) {
        std::printf(
            "%-18s %10.0f %11.2fx %11.2fx  (stb: decode of the 8-bit file to RGB, vs our decode + "
            "convert)\n",
            "convert24 of 8bit", converted.size() / 1e6 / (convert / 1e3),
            convert / reporter.Time("memcpy/convert24"),
            reporter.Time("stb/8bit") / reporter.Time("decode+convert24/8bit"));
    }
    std::printf(
        "(vs memcpy: our time over one memcpy of the same pixel bytes; stb / ours: above 1 means "
        "faster than stb_image)\n");
    return 0;
}
