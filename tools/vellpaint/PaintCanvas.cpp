#include "PaintCanvas.h"

#include <cstdio>
#include <new>

#include "PaintSettings.h"
#include "PictureFiles.h"
#include "SampleScene.h"

namespace vellpaint {

namespace {

// Creating a picture fails only for want of memory.
void Create(int created) {
    if (created != 0) throw std::bad_alloc();
}

std::string LoadMessage(int code) {
    switch (code) {
        case -5: return "cannot open it";
        case -6: return "cannot read it (short or damaged)";
        case -2: return "out of memory";
        default: return "not a .bmp picture vellpaint reads";
    }
}

void Load(const std::string& path, BitmapImage& image) {
    const int loaded = image.LoadFile(path.c_str());
    if (loaded != 0) throw InputError(path + ": " + LoadMessage(loaded));
    CheckSize(image.width, image.height, path);
    if (image.ConvertTo24Bit() != 0) throw std::bad_alloc();
}

}  // namespace

void CheckSize(int width, int height, const std::string& what) {
    const bool fits = width > 0 && height > 0 && width <= kMaxSide && height <= kMaxSide &&
                      static_cast<long long>(width) * height <= kMaxPixels;
    if (fits) return;
    throw InputError(what + ": " + std::to_string(width) + " x " + std::to_string(height) +
                     " is not a size vellpaint paints (each side 1.." + std::to_string(kMaxSide) +
                     ", at most " + std::to_string(kMaxPixels) + " pixels)");
}

void MakeScene(int width, int height, Canvas* canvas) {
    CheckSize(width, height, "--size");
    std::vector<vellscene::ScenePart> parts;
    Create(vellscene::MakeSampleScene(width, height, &canvas->image, &parts));
    canvas->coverage.swap(parts.back().coverage);  // the star, in front of everything
}

void LoadEffectImage(const std::string& path, BitmapImage* image) {
    Load(path, *image);
}

void MakeDemoPicture(BitmapImage* image) {
    Create(vellscene::MakeDemoPicture(image));
}

void LoadCanvas(const std::string& picturePath, const std::string& maskPath, Canvas* canvas) {
    Load(picturePath, canvas->image);
    const int width = canvas->image.width, height = canvas->image.height;
    canvas->coverage.assign(static_cast<std::size_t>(width) * height, 255);
    if (maskPath.empty()) return;
    BitmapImage mask;
    Load(maskPath, mask);
    if (mask.width != width || mask.height != height) {
        throw InputError(maskPath + ": the mask is " + std::to_string(mask.width) + " x " +
                         std::to_string(mask.height) + ", the picture " + std::to_string(width) +
                         " x " + std::to_string(height));
    }
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const unsigned char* p = mask.PixelAt(x, y);
            canvas->coverage[static_cast<std::size_t>(y) * width + x] =
                static_cast<unsigned char>((p[0] + p[1] + p[2] + 1) / 3);
        }
    }
}

void WritePng(const BitmapImage& image, const std::string& path) {
    const std::string png = vellscene::EncodePng(image);
    FILE* out = png.empty() ? nullptr : std::fopen(path.c_str(), "wb");
    bool written = out != nullptr && std::fwrite(png.data(), 1, png.size(), out) == png.size();
    if (out != nullptr && std::fclose(out) != 0) written = false;
    if (!written) throw InputError(path + ": cannot write it");
}

}  // namespace vellpaint
