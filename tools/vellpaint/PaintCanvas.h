// The picture vellpaint paints on and the part it paints: the sample scene,
// or a user's .bmp and mask; and the PNG it writes at the end.
#pragma once

#include <string>
#include <vector>

#include "vellcolor/BitmapImage.h"
#include "vellcolor/VellRender.h"

namespace vellpaint {

// Larger pictures are refused before anything is allocated.
const int kMaxSide = 16384;
const long long kMaxPixels = 1LL << 26;

struct Canvas {
    BitmapImage image;                    // 24-bit
    std::vector<unsigned char> coverage;  // one byte per pixel, rows as the image's

    vellrender::Picture Picture() { return vellrender::Picture::Of(image); }
    vellrender::Part Part() const {
        return vellrender::Part::OfMask(coverage.data(), image.width, image.height, image.width);
    }
};

// Throws InputError unless a width x height picture is within the limits;
// `what` names the picture in the message.
void CheckSize(int width, int height, const std::string& what);

// The sample scene, its star as the part.
void MakeScene(int width, int height, Canvas* canvas);

// The picture from a .bmp; the part from a mask .bmp of the same size whose
// grey is the coverage, or the whole picture without a mask.
void LoadCanvas(const std::string& picturePath, const std::string& maskPath, Canvas* canvas);

// A 24-bit picture from a .bmp; throws InputError naming the file.
void LoadEffectImage(const std::string& path, BitmapImage* image);

// The picture the mapping and the pattern's image types take without
// --image: 128 x 96, a landscape with a sun on the left and a house on the
// right, so that mirroring and turning show.
void MakeDemoPicture(BitmapImage* image);

// Throws InputError when the file cannot be written.
void WritePng(const BitmapImage& image, const std::string& path);

}  // namespace vellpaint
