#include "vellcolor/BitmapImage.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <new>
#include <string>
#include <vector>

#include "FileBytes.h"
#include "support/FilePathParts.h"
#include "vellcolor/ErrorCode.h"

namespace {

// Larger pictures are refused before anything is allocated.
const std::uint64_t kMaxPixelBytes = 1ull << 30;
const std::size_t kInfoHeaderSize = 40;
const std::size_t kBitFieldMasksSize = 12;
const std::size_t kFileHeaderSize = 14;

std::uint32_t ReadU32(const unsigned char* p) {
    return static_cast<std::uint32_t>(p[0]) | static_cast<std::uint32_t>(p[1]) << 8 |
           static_cast<std::uint32_t>(p[2]) << 16 | static_cast<std::uint32_t>(p[3]) << 24;
}

std::uint16_t ReadU16(const unsigned char* p) {
    return static_cast<std::uint16_t>(p[0] | p[1] << 8);
}

std::int32_t ReadI32(const unsigned char* p) {
    const std::uint32_t u = ReadU32(p);
    std::int32_t v;
    std::memcpy(&v, &u, sizeof v);
    return v;
}

std::uint64_t RowBytes(std::uint64_t width, std::uint64_t bitsPerPixel) {
    return (width * bitsPerPixel + 31) / 32 * 4;
}

char* DuplicateString(const char* s) {
    const std::size_t n = std::strlen(s) + 1;
    char* copy = static_cast<char*>(std::malloc(n));
    if (copy != nullptr) std::memcpy(copy, s, n);
    return copy;
}

// The fields of a DIB information header that the reader uses.
struct DibInfo {
    std::int32_t width;
    std::int32_t height;
    std::uint16_t bitCount;
    std::uint32_t compression;
    std::uint32_t sizeImage;
    std::uint64_t colorCount;
    std::uint64_t pixelOffset;  // header plus color table
    std::uint64_t rows;         // |height|
    std::uint64_t sourceStride;
    bool topDown;
};

DibInfo ReadInfo(const unsigned char* dib) {
    DibInfo info;
    info.width = ReadI32(dib + 4);
    info.height = ReadI32(dib + 8);
    info.bitCount = ReadU16(dib + 14);
    info.compression = ReadU32(dib + 16);
    info.sizeImage = ReadU32(dib + 20);
    const std::uint32_t used = ReadU32(dib + 32);
    switch (info.bitCount) {
        case 1: info.colorCount = 2; break;
        case 4: info.colorCount = 16; break;
        case 8: info.colorCount = 256; break;
        default: info.colorCount = 0; break;
    }
    if (used != 0) info.colorCount = used;
    info.pixelOffset = kInfoHeaderSize + info.colorCount * 4;
    info.topDown = info.height < 0;
    info.rows = info.topDown ? -static_cast<std::int64_t>(info.height) : info.height;
    info.sourceStride = RowBytes(info.width > 0 ? info.width : 0, info.bitCount);
    return info;
}

bool IsAcceptedFormat(const DibInfo& info) {
    if (info.compression == 0) {
        return info.bitCount == 8 || info.bitCount == 16 || info.bitCount == 24 ||
               info.bitCount == 32;
    }
    return info.compression == 3 && (info.bitCount == 16 || info.bitCount == 32);
}

bool IsAbsurdSize(const DibInfo& info) {
    if (info.width <= 0 || info.rows == 0) return true;
    const std::uint64_t target = RowBytes(info.width, 24) * info.rows;
    const std::uint64_t source = info.sourceStride * info.rows;
    return target > kMaxPixelBytes || source > kMaxPixelBytes;
}

struct BitFields {
    std::uint32_t redMask, greenMask, blueMask;
    int redBits, greenBits, blueBits;
};

// 5-5-5 for plain 16-bit images; bit-field images say 5-5-5 or 5-6-5 in the
// three masks after the header. Any other layout is refused.
bool ReadBitFields(const unsigned char* dib, const DibInfo& info, BitFields* fields) {
    *fields = {0x7C00, 0x03E0, 0x001F, 5, 5, 5};
    if (info.compression != 3) return true;
    const std::uint32_t r = ReadU32(dib + 40) & 0xFFFF;
    const std::uint32_t g = ReadU32(dib + 44) & 0xFFFF;
    const std::uint32_t b = ReadU32(dib + 48) & 0xFFFF;
    if (r == 0x7C00 && g == 0x03E0 && b == 0x001F) return true;
    if (r == 0xF800 && g == 0x07E0 && b == 0x001F) {
        *fields = {0xF800, 0x07E0, 0x001F, 5, 6, 5};
        return true;
    }
    return false;
}

}  // namespace

BitmapImage::BitmapImage()
    : name(nullptr),
      width(0),
      height(0),
      bytesPerPixel(0),
      stride(0),
      paletteCount(0),
      palette(nullptr),
      pixelBytes(0),
      pixels(nullptr) {}

BitmapImage::~BitmapImage() {
    Clear();
}

BitmapImage* BitmapImage::NewEmpty() {
    void* memory = std::malloc(sizeof(BitmapImage));
    return memory == nullptr ? nullptr : new (memory) BitmapImage();
}

void BitmapImage::Delete(BitmapImage* image) {
    if (image == nullptr) return;
    image->~BitmapImage();
    std::free(image);
}

void BitmapImage::Clear() {
    std::free(name);
    std::free(palette);
    std::free(pixels);
    name = nullptr;
    palette = nullptr;
    pixels = nullptr;
    width = height = bytesPerPixel = stride = paletteCount = 0;
    pixelBytes = 0;
}

int BitmapImage::Create(int w, int h, int bpp, int colors) {
    return Allocate(w, h, bpp, colors, true);
}

int BitmapImage::Allocate(int w, int h, int bpp, int colors, bool zeroPixels) {
    Clear();
    if (w < 0 || h < 0 || bpp < 0 || colors < 0) return kErrorInvalidParameter;
    const std::uint64_t rowBytes = (static_cast<std::uint64_t>(w) * bpp + 3) / 4 * 4;
    const std::uint64_t total = rowBytes * static_cast<std::uint64_t>(h);
    if (rowBytes > 0x7FFFFFFF || total > 0xFFFFFFFFull) return kErrorOutOfMemory;
    if (total > 0) {
        const std::size_t bytes = static_cast<std::size_t>(total);
        pixels =
            static_cast<unsigned char*>(zeroPixels ? std::calloc(bytes, 1) : std::malloc(bytes));
        if (pixels == nullptr) return kErrorOutOfMemory;
    }
    if (colors > 0) {
        palette = static_cast<unsigned char*>(std::calloc(static_cast<std::size_t>(colors), 3));
        if (palette == nullptr) {
            Clear();
            return kErrorOutOfMemory;
        }
    }
    width = w;
    height = h;
    bytesPerPixel = bpp;
    stride = static_cast<int>(rowBytes);
    paletteCount = colors;
    pixelBytes = static_cast<unsigned int>(total);
    return kOk;
}

void BitmapImage::SetPaletteEntry(int index, unsigned char r, unsigned char g, unsigned char b) {
    if (palette == nullptr || index < 0 || index >= paletteCount) return;
    unsigned char* entry = palette + 3 * index;
    entry[0] = r;
    entry[1] = g;
    entry[2] = b;
}

void BitmapImage::SetBits(unsigned int byteCount, const unsigned char* rows, int sourceStride,
                          int sourceBitsPerPixel) {
    if (pixels == nullptr || rows == nullptr) return;
    if (sourceBitsPerPixel % 8 == 0 && sourceStride == stride) {
        std::memcpy(pixels, rows, std::min(byteCount, pixelBytes));
        return;
    }
    const int copyBytes = std::min(sourceStride, stride);
    for (int y = 0; y < height; ++y) {
        unsigned char* target = pixels + static_cast<std::size_t>(y) * stride;
        const unsigned char* source = rows + static_cast<std::size_t>(y) * sourceStride;
        if (sourceBitsPerPixel == 1) {
            for (int x = 0; x < width && x < stride; ++x) {
                target[x] = (source[x >> 3] >> (7 - (x & 7))) & 1;
            }
        } else if (sourceBitsPerPixel == 4) {
            for (int x = 0; x < width && x < stride; ++x) {
                target[x] = (x & 1) ? (source[x >> 1] & 0x0F) : (source[x >> 1] >> 4);
            }
        } else if (sourceBitsPerPixel == 8 || sourceBitsPerPixel == 24) {
            std::memcpy(target, source, copyBytes);
        }
        // Rows narrower than ours lose their first bytes to zeros; no loader
        // comes here, but the row copy has always done this.
        if (stride > sourceStride) std::memset(target, 0, stride - sourceStride);
    }
}

int BitmapImage::Copy(const BitmapImage& source) {
    if (&source == this) return kOk;
    const int created =
        Create(source.width, source.height, source.bytesPerPixel, source.paletteCount);
    if (created != kOk) return created;
    if (source.name != nullptr) name = DuplicateString(source.name);
    SetBits(source.pixelBytes, source.pixels, source.stride, source.bytesPerPixel * 8);
    if (palette != nullptr && source.palette != nullptr) {
        std::memcpy(palette, source.palette, static_cast<std::size_t>(paletteCount) * 3);
    }
    return kOk;
}

int BitmapImage::ConvertTo24Bit() {
    if (bytesPerPixel != 1) return kOk;
    // Take the old buffers over instead of copying them: the picture is
    // rebuilt from them and they are freed afterwards.
    unsigned char* indexes = pixels;
    unsigned char* colors = palette;
    const int colorCount = paletteCount;
    const int indexStride = stride;
    pixels = nullptr;
    palette = nullptr;
    // Every byte is written below, padding included: no need to zero first.
    const int created = Allocate(width, height, 3, 0, false);
    if (created == kOk) {
        // Palette entries are red, green, blue; pixels want blue, green, red.
        // Indexes beyond the palette come out black.
        unsigned char lookup[256][3] = {};
        for (int i = 0; i < 256 && i < colorCount; ++i) {
            lookup[i][0] = colors[3 * i + 2];
            lookup[i][1] = colors[3 * i + 1];
            lookup[i][2] = colors[3 * i + 0];
        }
        const std::size_t rowBytes = static_cast<std::size_t>(width) * 3;
        for (int y = 0; y < height; ++y) {
            const unsigned char* source = indexes + static_cast<std::size_t>(y) * indexStride;
            unsigned char* target = pixels + static_cast<std::size_t>(y) * stride;
            for (int x = 0; x < width; ++x, target += 3) std::memcpy(target, lookup[source[x]], 3);
            std::memset(target, 0, stride - rowBytes);
        }
    }
    std::free(indexes);
    std::free(colors);
    return created;
}

int BitmapImage::LoadFile(const char* path) {
    std::string extension;
    if (!FilePathParts(path).Extension(&extension) || (extension != "bmp" && extension != "BMP")) {
        return kErrorUnsupportedFormat;
    }
    // The DIB is read from a block as long as the whole file: what follows
    // the 14-byte file header, then 14 zero bytes. The header's offset to
    // the pixels is not used; they always follow the color table.
    std::vector<unsigned char> file;
    const int read = ReadWholeFile(path, kFileHeaderSize, &file);
    if (read != kOk) return read;
    const std::size_t length = file.size() - kFileHeaderSize;
    if (length < kFileHeaderSize || file[0] != 'B' || file[1] != 'M') return kErrorFileRead;
    // Not even the DIB header's size field is in the file.
    if (length < kFileHeaderSize + 4) return kErrorFileRead;
    return SetFromPackedDIB(file.data() + kFileHeaderSize, length);
}

int BitmapImage::SetFromPackedDIB(const unsigned char* dib, std::size_t size) {
    if (dib == nullptr || size < 4) return kErrorFileRead;
    if (ReadU32(dib) != kInfoHeaderSize) return kErrorUnsupportedFormat;
    if (size < kInfoHeaderSize) return kErrorFileRead;
    const DibInfo info = ReadInfo(dib);
    if (!IsAcceptedFormat(info) || IsAbsurdSize(info)) return kErrorUnsupportedFormat;

    BitFields fields;
    if (info.bitCount == 16 && info.compression == 3) {
        if (size < kInfoHeaderSize + kBitFieldMasksSize) return kErrorFileRead;
        if (!ReadBitFields(dib, info, &fields)) return kErrorUnsupportedFormat;
    } else if (info.bitCount == 16) {
        ReadBitFields(dib, info, &fields);
    }

    // Bit-field images (and, as always, every 32-bit one) have their rows 12
    // bytes after the color table, where the three masks would end.
    const bool skipMasks = info.bitCount == 32 || info.compression == 3;
    const std::uint64_t rowsStart = info.pixelOffset + (skipMasks ? kBitFieldMasksSize : 0);
    const std::uint64_t wholeRows = info.sourceStride * info.rows;
    // Every row must be there, whatever the header claims, so that a few
    // bytes can never ask for a large picture.
    const std::uint64_t needed = rowsStart + wholeRows;
    std::uint64_t copyBytes = wholeRows;
    if (info.bitCount == 8 || info.bitCount == 24) {
        // These are copied in one piece of the header's image size, which is
        // never allowed to run past our own pixel buffer.
        const std::uint64_t declared = info.sizeImage != 0 ? info.sizeImage : wholeRows;
        copyBytes = std::min(declared, wholeRows);
    }
    if (needed > size) return kErrorFileRead;

    const unsigned char* source = dib + rowsStart;
    const int w = info.width;
    const int h = static_cast<int>(info.rows);
    const int created = Create(w, h, info.bitCount == 8 ? 1 : 3,
                               info.bitCount == 8 ? static_cast<int>(info.colorCount) : 0);
    if (created != kOk) return created;
    if (info.bitCount == 8) {
        const unsigned char* table = dib + kInfoHeaderSize;
        for (int i = 0; i < paletteCount; ++i) {
            SetPaletteEntry(i, table[4 * i + 2], table[4 * i + 1], table[4 * i]);
        }
    }

    const std::size_t srcStride = static_cast<std::size_t>(info.sourceStride);
    auto targetRow = [&](std::uint64_t sourceRow) {
        const std::uint64_t y = info.topDown ? info.rows - 1 - sourceRow : sourceRow;
        return pixels + y * static_cast<std::size_t>(stride);
    };

    if (info.bitCount == 8 || info.bitCount == 24) {
        if (!info.topDown) {
            SetBits(static_cast<unsigned int>(copyBytes), source, static_cast<int>(srcStride),
                    info.bitCount);
            return kOk;
        }
        std::uint64_t left = copyBytes;
        for (std::uint64_t r = 0; r < info.rows && left > 0; ++r) {
            const std::size_t n =
                static_cast<std::size_t>(std::min<std::uint64_t>(left, srcStride));
            std::memcpy(targetRow(r), source + r * srcStride, n);
            left -= n;
        }
        return kOk;
    }

    for (std::uint64_t r = 0; r < info.rows; ++r) {
        const unsigned char* in = source + r * srcStride;
        unsigned char* out = targetRow(r);
        if (info.bitCount == 32) {
            for (int x = 0; x < w; ++x, in += 4, out += 3) {
                out[0] = in[0];
                out[1] = in[1];
                out[2] = in[2];
            }
            continue;
        }
        const int nb = fields.blueBits, ng = fields.greenBits, nr = fields.redBits;
        for (int x = 0; x < w; ++x, in += 2, out += 3) {
            const std::uint32_t p = ReadU16(in);
            out[0] = static_cast<unsigned char>((p & fields.blueMask) << (8 - nb));
            out[1] = static_cast<unsigned char>(((p & fields.greenMask) >> nb) << (8 - ng));
            out[2] = static_cast<unsigned char>(((p & fields.redMask) >> (nb + ng)) << (8 - nr));
        }
    }
    return kOk;
}
