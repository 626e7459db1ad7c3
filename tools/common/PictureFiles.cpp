#include "PictureFiles.h"

#include <vector>

#define STB_IMAGE_WRITE_IMPLEMENTATION
#define STBI_WRITE_NO_STDIO
#include "stb_image_write.h"

namespace vellscene {

namespace {

void PutLittleEndian(std::string& out, unsigned int value, int bytes) {
    for (int i = 0; i < bytes; ++i) out += static_cast<char>((value >> (8 * i)) & 0xFF);
}

void Append(void* context, void* data, int size) {
    static_cast<std::string*>(context)->append(static_cast<const char*>(data), size);
}

}  // namespace

std::string EncodeBmp(const BitmapImage& image) {
    const unsigned int headers = 14 + 40;
    const unsigned int rows = static_cast<unsigned int>(image.stride) * image.height;
    std::string out;
    out.reserve(headers + rows);
    out += "BM";
    PutLittleEndian(out, headers + rows, 4);
    PutLittleEndian(out, 0, 4);
    PutLittleEndian(out, headers, 4);
    PutLittleEndian(out, 40, 4);  // the information header
    PutLittleEndian(out, image.width, 4);
    PutLittleEndian(out, image.height, 4);
    PutLittleEndian(out, 1, 2);   // planes
    PutLittleEndian(out, 24, 2);  // bits per pixel
    PutLittleEndian(out, 0, 4);   // uncompressed
    PutLittleEndian(out, rows, 4);
    PutLittleEndian(out, 2835, 4);  // 72 dots per inch, both ways
    PutLittleEndian(out, 2835, 4);
    PutLittleEndian(out, 0, 4);
    PutLittleEndian(out, 0, 4);
    out.append(reinterpret_cast<const char*>(image.pixels), rows);
    return out;
}

std::string EncodePng(const BitmapImage& image) {
    // PNG rows run top down in red, green, blue; the picture's bottom up in
    // blue, green, red.
    const int width = image.width, height = image.height;
    std::vector<unsigned char> rgb(static_cast<std::size_t>(width) * height * 3);
    for (int row = 0; row < height; ++row) {
        const unsigned char* in = image.PixelAt(0, height - 1 - row);
        unsigned char* out = &rgb[static_cast<std::size_t>(row) * width * 3];
        for (int x = 0; x < width; ++x, in += 3, out += 3) {
            out[0] = in[2];
            out[1] = in[1];
            out[2] = in[0];
        }
    }
    std::string png;
    if (stbi_write_png_to_func(Append, &png, width, height, 3, rgb.data(), width * 3) == 0) {
        return std::string();
    }
    return png;
}

}  // namespace vellscene
