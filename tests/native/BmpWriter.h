// Builds BMP files in memory for tests, fuzz seeds and benchmarks.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

struct BmpLayout {
    BmpLayout(int w = 1, int h = 1, int bits = 24, std::uint32_t packing = 0,
              std::uint32_t header = 40)
        : width(w), height(h), bitCount(bits), compression(packing), headerSize(header) {}
    int width;
    int height;  // negative: top-down
    int bitCount;
    std::uint32_t compression;           // 0 plain, 3 bit fields, 1 RLE8...
    std::uint32_t headerSize;            // the size field; other fields are always an info header's
    std::vector<std::uint32_t> masks;    // written after the header when not empty
    std::vector<std::uint32_t> palette;  // 0x00RRGGBB entries
    std::uint32_t colorsUsed = 0;        // biClrUsed
    std::uint32_t sizeImage = 0;         // biSizeImage
    // The byte at (x, row, byte index within the pixel's bytes); rows in file
    // order. Pixels of fewer than 8 bits stay zero.
    std::function<std::uint8_t(int x, int row, int byte)> pixel;
};

// The whole file: 14-byte file header, DIB header, masks, color table, rows.
std::vector<std::uint8_t> MakeBmp(const BmpLayout& layout);

// The packed DIB that the loader builds from a file: everything after the
// file header, then 14 zero bytes.
std::vector<std::uint8_t> DibBlockOf(const std::vector<std::uint8_t>& file);

void WriteFile(const std::string& path, const std::vector<std::uint8_t>& bytes);
