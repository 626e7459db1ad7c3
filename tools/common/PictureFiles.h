// A 24-bit picture as the bytes of a .bmp or a .png file. Portable; the
// caller writes the bytes where it likes.
#pragma once

#include <string>

#include "vellcolor/BitmapImage.h"

namespace vellscene {

// A bottom-up 24-bit .bmp, rows as the picture holds them.
std::string EncodeBmp(const BitmapImage& image);
// A PNG, or "" when the encoder fails.
std::string EncodePng(const BitmapImage& image);

}  // namespace vellscene
