#include "BmpWriter.h"

#include <cstdio>
#include <cstdlib>

namespace {

void Put(std::vector<std::uint8_t>& out, std::uint32_t v) {
    for (int i = 0; i < 4; ++i) out.push_back((v >> (8 * i)) & 0xFF);
}

}  // namespace

std::vector<std::uint8_t> MakeBmp(const BmpLayout& layout) {
    // File size and offset to the pixels, patched below; then one plane.
    std::vector<std::uint8_t> out = {'B', 'M'};
    for (std::uint32_t v :
         {0u, 0u, 0u, layout.headerSize, std::uint32_t(layout.width), std::uint32_t(layout.height),
          1u | std::uint32_t(layout.bitCount) << 16, layout.compression, layout.sizeImage, 2835u,
          2835u, layout.colorsUsed, 0u})
        Put(out, v);
    while (out.size() < 14 + layout.headerSize) out.push_back(0);
    for (std::uint32_t m : layout.masks) Put(out, m);
    for (std::uint32_t c : layout.palette) Put(out, c);
    const std::uint32_t offset = static_cast<std::uint32_t>(out.size());
    const int rowBytes = (layout.width * layout.bitCount + 31) / 32 * 4;
    const int bytesPerPixel = layout.bitCount / 8;
    for (int row = 0; row < std::abs(layout.height); ++row) {
        std::vector<std::uint8_t> line(static_cast<std::size_t>(rowBytes), 0);
        for (int i = 0; layout.pixel && i < layout.width * bytesPerPixel; ++i)
            line[i] = layout.pixel(i / bytesPerPixel, row, i % bytesPerPixel);
        out.insert(out.end(), line.begin(), line.end());
    }
    const std::uint32_t size = static_cast<std::uint32_t>(out.size());
    for (int i = 0; i < 4; ++i) {
        out[2 + i] = (size >> (8 * i)) & 0xFF;
        out[10 + i] = (offset >> (8 * i)) & 0xFF;
    }
    return out;
}

std::vector<std::uint8_t> DibBlockOf(const std::vector<std::uint8_t>& file) {
    std::vector<std::uint8_t> block(file.begin() + 14, file.end());
    block.resize(block.size() + 14, 0);
    return block;
}

void WriteFile(const std::string& path, const std::vector<std::uint8_t>& bytes) {
    if (std::FILE* f = std::fopen(path.c_str(), "wb")) {
        if (!bytes.empty()) std::fwrite(bytes.data(), 1, bytes.size(), f);
        std::fclose(f);
    }
}
