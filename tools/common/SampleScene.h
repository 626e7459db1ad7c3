// The sample scene that vellpaint and the demo host paint on: a soft diagonal
// blend with discs, a band and a rounded star, each shape a part in its own
// color (the star a pale glaze that the shapes behind show through); and the small landscape both
// hand to the effects that place a picture. Portable.
#pragma once

#include <string>
#include <vector>

#include "vellcolor/BitmapImage.h"

namespace vellscene {

// What of the picture a part owns: one byte per pixel, rows as the picture's
// (row 0 at the bottom), 255 where the part is in front and nothing covers
// it, less where a shape above it or its own anti-aliased edge takes a share.
// The parts of a scene add up to 255 at every pixel, give or take rounding.
struct ScenePart {
    std::string name;
    std::vector<unsigned char> coverage;
};

// Paints the scene into `image` as a new 24-bit width x height picture and
// lists its parts from the back: "background", "disc 1".."disc 4", "band",
// "star". Returns BitmapImage::Create's error when the picture cannot be had.
int MakeSampleScene(int width, int height, BitmapImage* image, std::vector<ScenePart>* parts);

// 128 x 96: sky, sun on the left, clouds, hills and a house on the right, so
// that mirroring and turning show.
int MakeDemoPicture(BitmapImage* image);

}  // namespace vellscene
