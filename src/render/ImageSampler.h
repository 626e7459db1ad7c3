// A 24-bit image read at any point of a plane on which it is drawn at some
// scale: the image mapping's and the image-based isoline patterns' source.
#pragma once

#include <cstdint>
#include <vector>

#include "vellcolor/BitmapImage.h"

namespace vellrender {

// A 24-bit image prepared to be drawn at one scale: shrunk by area
// averaging along an axis whose scale is below 1 (no aliasing shimmer),
// kept as it is along an axis that is enlarged; then read bilinearly.
class ImageSampler {
  public:
    enum Wrap { kClamp, kRepeat, kMirror };
    // scaleX, scaleY: picture pixels per image pixel. -4 for a null or
    // empty image, one that is not 24-bit, or a scale that is not a
    // finite positive number; -2 when memory cannot be had. On failure the
    // sampler is empty: sizes 0, every color black.
    int Prepare(const BitmapImage* image, float scaleX, float scaleY);
    // The drawn size in picture pixels (image size times scale).
    float Width() const { return static_cast<float>(x_.drawn); }
    float Height() const { return static_cast<float>(y_.drawn); }
    // The color at (x, y) in picture pixels from the drawn image's
    // bottom-left corner (row 0 of a BitmapImage is its bottom row), read
    // bilinearly between pixel centres; outside [0, Width) x [0, Height)
    // the coordinates wrap by `wrap` (kMirror: every other copy mirrored).
    // out: blue, green, red, 0..255.
    void Sample(float x, float y, Wrap wrap, float out[3]) const;
    // The colors at (x + i dx, y + i dy) for i = 0..count-1, as Sample gives
    // them but in bytes, weights in 1/256 steps: out[3i..3i+2] is blue,
    // green, red; the byte after the last color may be written too.
    void SampleRow(double x, double y, double dx, double dy, int count, Wrap wrap,
                   unsigned char* out) const;

  private:
    struct Axis {
        int size = 0;           // prepared pixels
        double drawn = 0.0;     // picture pixels
        double perPixel = 0.0;  // prepared pixels per picture pixel
        // For each wrap, the byte offsets of the pixels at the positions a
        // coordinate's whole part takes (ImageSampler.cpp, Offsets).
        std::vector<std::uint32_t> offsets[3];
    };
    template <Wrap kWrap>
    void FixedRow(double u, double v, double du, double dv, int count, unsigned char* out) const;
    void SlowRow(double x, double y, double dx, double dy, int count, Wrap wrap,
                 unsigned char* out) const;
    void SampleAt(double x, double y, Wrap wrap, float out[3]) const;

    Axis x_, y_;
    // The prepared image: blue, green, red, x_.size pixels a row, no padding,
    // row 0 at the bottom.
    std::vector<unsigned char> pixels_;
};

}  // namespace vellrender
