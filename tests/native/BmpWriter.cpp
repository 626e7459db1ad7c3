#include "BmpWriter.h"

#include <cstdio>
#include <cstdlib>

namespace {

void Put(std::vector<std::uint8_t>& out, std::uint32_t v, int bytes = 4) {
    for (int i = 0; i < bytes; ++i) out.push_back((v >> (8 * i)) & 0xFF);
}

}  // namespace

std::vector<std::uint8_t> MakeBmp(const BmpLayout& layout) {
    std::vector<std::uint8_t> out = {'B', 'M'};
    Put(out, 0);  // file size, patched below
    Put(out, 0);
    Put(out, 0);  // offset to the pixels, patched below
    for (std::uint32_t v :
         {layout.headerSize, std::uint32_t(layout.width), std::uint32_t(layout.height)})
        Put(out, v);
    Put(out, 1, 2);
    Put(out, layout.bitCount, 2);
    for (std::uint32_t v :
         {layout.compression, layout.sizeImage, 2835u, 2835u, layout.colorsUsed, 0u})
        Put(out, v);
    while (out.size() < 14 + layout.headerSize) out.push_back(0);
    for (std::uint32_t m : layout.masks) Put(out, m);
    for (std::uint32_t c : layout.palette) Put(out, c);
    const std::uint32_t offset = static_cast<std::uint32_t>(out.size());
    const int rowBytes = (layout.width * layout.bitCount + 31) / 32 * 4;
    const int bytesPerPixel = layout.bitCount / 8;
    for (int row = 0; row < std::abs(layout.height); ++row) {
        std::vector<std::uint8_t> line(static_cast<std::size_t>(rowBytes), 0);
        for (int x = 0; layout.pixel && x < layout.width; ++x) {
            for (int b = 0; b < bytesPerPixel; ++b)
                line[x * bytesPerPixel + b] = layout.pixel(x, row, b);
        }
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
