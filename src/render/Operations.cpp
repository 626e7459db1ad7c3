// The four one-shot operations a host does on "uniform_color",
// "color_bokashi", "reverse_color" and "color_edge".
//
// | operation   | argument | in the picture                                              |
// |-------------|----------|-------------------------------------------------------------|
// | FillUniform | color    | every pixel of the part that color                          |
// | Blur        | radius   | three box passes each way, each radius / 2 (rounded, at     |
// |             |          | least 1) to either side: about a Gaussian of sigma radius/2; |
// |             |          | only the part's pixels, weighted by coverage, are averaged, |
// |             |          | so nothing outside bleeds in. Below 0.5 (or NaN) nothing    |
// |             |          | changes; above 10000 counts as 10000                         |
// | Invert      |          | every channel 255 minus itself                              |
// | DrawEdge    | color,   | the pixels within `width` of the part's edge (the exact     |
// |             | width    | distance of DistanceField.h), the last one anti-aliased;    |
// |             |          | NaN or below 0 paints nothing, above 10000 counts as 10000  |
#include <algorithm>
#include <cmath>
#include <cstring>
#include <new>

#include "render/DistanceField.h"
#include "render/RenderCore.h"

namespace vellrender {

int FillUniform(ColorRGB color, const Picture& picture, const Part& part, const Options& options) {
    const int check = CheckTarget(picture, part);
    if (check != 0 || part.Empty()) return check;
    const std::uint32_t packed = Packed(color);
    return PaintRows(picture, part, options.threads, [&](int, int x0, int x1, unsigned char* out) {
        for (int i = 0; i < x1 - x0; ++i) PutPacked(out + 3 * i, packed);
    });
}

int Invert(const Picture& picture, const Part& part, const Options& options) {
    const int check = CheckTarget(picture, part);
    if (check != 0 || part.Empty()) return check;
    return PaintRows(picture, part, options.threads,
                     [&](int y, int x0, int x1, unsigned char* out) {
                         const unsigned char* in = PixelAt(picture, x0, y);
                         for (int i = 0; i < 3 * (x1 - x0); ++i)
                             out[i] = static_cast<unsigned char>(255 - in[i]);
                     });
}

int Blur(float radius, const Picture& picture, const Part& part, const Options& options) {
    const int check = CheckTarget(picture, part);
    if (check != 0 || part.Empty()) return check;
    radius = Clamped(radius, 0.0f, 10000.0f, 0.0f);
    if (radius < 0.5f) return 0;
    const int r = std::max(1, static_cast<int>(std::lround(radius / 2.0f)));
    const int w = part.right - part.left, h = part.top - part.bottom;
    // Blue, green and red times coverage, and the coverage: blurred apart and
    // divided, so that only the part's own pixels are averaged.
    std::vector<float> planes;
    try {
        planes.assign(static_cast<std::size_t>(w) * h * 4, 0.0f);
    } catch (const std::bad_alloc&) {
        return -2;
    }
    auto at = [&](int x, int y) {
        return planes.data() + (static_cast<std::size_t>(y) * w + x) * 4;
    };
    for (int y = 0; y < h; ++y) {
        const unsigned char* in = PixelAt(picture, part.left, part.bottom + y);
        const unsigned char* coverage = CoverageAt(part, part.left, part.bottom + y);
        for (int x = 0; x < w; ++x) {
            const float a = coverage[x] / 255.0f;
            float* p = at(x, y);
            for (int c = 0; c < 3; ++c) p[c] = in[3 * x + c] * a;
            p[3] = a;
        }
    }
    if (BoxBlur(planes.data(), w, h, 4, r, 3, options.threads) != 0) return -2;
    return PaintRows(
        picture, part, options.threads, [&](int y, int x0, int x1, unsigned char* out) {
            for (int x = x0; x < x1; ++x) {
                const float* p = at(x - part.left, y - part.bottom);
                for (int c = 0; c < 3; ++c) {
                    const float v = p[3] > 0.0f ? p[c] / p[3] : 0.0f;
                    out[3 * (x - x0) + c] = static_cast<unsigned char>(std::min(v + 0.5f, 255.0f));
                }
            }
        });
}

int DrawEdge(ColorRGB color, float width, const Picture& picture, const Part& part,
             const Options& options) {
    const int check = CheckTarget(picture, part);
    if (check != 0 || part.Empty()) return check;
    width = Clamped(width, 0.0f, 10000.0f, 0.0f);
    if (width <= 0.0f) return 0;
    DistanceField field;
    if (field.Compute(part, options.threads) != 0) return -2;
    const unsigned char paint[3] = {color.blue, color.green, color.red};
    return PaintRows(
        picture, part, options.threads, [&](int y, int x0, int x1, unsigned char* out) {
            const unsigned char* in = PixelAt(picture, x0, y);
            for (int x = x0; x < x1; ++x) {
                const float d = DistanceField::EdgeDistance(field.Squared(x, y));
                const float a = Clamped(width + 0.5f - d, 0.0f, 1.0f, 0.0f);
                for (int c = 0; c < 3; ++c) {
                    const int i = 3 * (x - x0) + c;
                    out[i] = static_cast<unsigned char>(in[i] + (paint[c] - in[i]) * a + 0.5f);
                }
            }
        });
}

}  // namespace vellrender
