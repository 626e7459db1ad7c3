#include "BmpWriter.h"

#include <cstdio>
#include <cstdlib>

namespace {

void Put16(std::vector<std::uint8_t>& out, std::uint32_t v) {
    out.push_back(v & 0xFF);
    out.push_back((v >> 8) & 0xFF);
}

void Put32(std::vector<std::uint8_t>& out, std::uint32_t v) {
    Put16(out, v & 0xFFFF);
    Put16(out, v >> 16);
}

}  // namespace

std::vector<std::uint8_t> MakeBmp(const BmpLayout& layout) {
    std::vector<std::uint8_t> out;
    out.reserve(static_cast<std::size_t>(
        54 + (std::abs(layout.height) + 1) * ((layout.width * layout.bitCount + 31) / 32 * 4)));
    out.push_back('B');
    out.push_back('M');
    Put32(out, 0);  // file size, patched below
    Put32(out, 0);
    Put32(out, 0);  // offset to the pixels; the reader ignores it
    Put32(out, layout.headerSize);
    if (layout.headerSize == 12) {
        Put16(out, layout.width);
        Put16(out, layout.height);
        Put16(out, 1);
        Put16(out, layout.bitCount);
    } else {
        Put32(out, layout.width);
        Put32(out, static_cast<std::uint32_t>(layout.height));
        Put16(out, 1);
        Put16(out, layout.bitCount);
        Put32(out, layout.compression);
        Put32(out, layout.sizeImage);
        Put32(out, 2835);
        Put32(out, 2835);
        Put32(out, layout.colorsUsed);
        Put32(out, 0);
        while (out.size() < 14 + layout.headerSize) out.push_back(0);
    }
    for (std::uint32_t m : layout.masks) Put32(out, m);
    for (std::uint32_t c : layout.palette) {
        if (layout.headerSize == 12) {
            out.push_back(c & 0xFF);
            out.push_back((c >> 8) & 0xFF);
            out.push_back((c >> 16) & 0xFF);
        } else {
            Put32(out, c);
        }
    }
    const std::uint32_t offset = static_cast<std::uint32_t>(out.size());
    const int rowBytes = (layout.width * layout.bitCount + 31) / 32 * 4;
    const int bytesPerPixel = layout.bitCount >= 8 ? layout.bitCount / 8 : 1;
    const int pixelsPerByte = layout.bitCount < 8 ? 8 / layout.bitCount : 1;
    const int rows = std::abs(layout.height);
    for (int row = 0; row < rows; ++row) {
        std::vector<std::uint8_t> line(static_cast<std::size_t>(rowBytes), 0);
        if (layout.pixel) {
            if (layout.bitCount < 8) {
                for (int x = 0; x < layout.width; ++x) {
                    const int shift = 8 - layout.bitCount * (x % pixelsPerByte + 1);
                    line[x / pixelsPerByte] |= layout.pixel(x, row, 0) << shift;
                }
            } else {
                for (int x = 0; x < layout.width; ++x) {
                    for (int b = 0; b < bytesPerPixel; ++b) {
                        line[x * bytesPerPixel + b] = layout.pixel(x, row, b);
                    }
                }
            }
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
    std::FILE* f = std::fopen(path.c_str(), "wb");
    if (f == nullptr) return;
    if (!bytes.empty()) std::fwrite(bytes.data(), 1, bytes.size(), f);
    std::fclose(f);
}
