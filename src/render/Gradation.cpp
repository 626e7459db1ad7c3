// The gradation effect: a value t in [0, 1] per pixel, from the part's
// geometry, looked up in the color ramp (ColorRamp.h).
//
// | field            | in the picture                                                     |
// |------------------|--------------------------------------------------------------------|
// | type             | how t is made, table below; an unknown code paints as 0            |
// | colors           | the ramp's colors in order (ColorRamp.h); four corners: colors 1-4 |
// | mix, bias        | the ramp's blend and its shift toward one end (ColorRamp.h)        |
// | hueInterpolation | the ramp blends round the hue circle (ColorRamp.h)                 |
// | repeat           | the ramp runs that many times over t; contour lines: 8 x repeat    |
// |                  | terraces                                                           |
// | factor           | scales t before the ramp (ColorRamp.h)                             |
// | angle            | degrees, counter-clockwise about the box's centre: the axis of 0   |
// |                  | and 1, the ellipse, rectangle and four corners, the spiral's start |
// |                  | and the slopes' light; circle, outline and contour lines ignore it  |
// | spiralAngle      | the spiral's turn, in degrees, from the centre to the rim          |
//
// | type | t                                                                         |
// |------|---------------------------------------------------------------------------|
// | 0    | horizontal: 0 at the box's left edge, 1 at its right, along the turned axis |
// | 1    | vertical: 0 at the box's top, 1 at its bottom, along the turned axis      |
// | 3    | outline: the exact distance to the part's edge over the deepest pixel's:  |
// |      | 0 at the edge, 1 at the deepest point                                     |
// | 4    | circle: distance from the centre over the corners' distance               |
// | 5    | ellipse: the same at the box's aspect, turned, 1 at the farthest corner  |
// | 6    | rectangle: concentric rectangles of the box's aspect, 1 at the corners    |
// | 7    | four corners: colors 1, 2, 3, 4 at the top left, top right, bottom right  |
// |      | and bottom left, blended bilinearly in RGB (no ramp; missing colors repeat |
// |      | the last)                                                                 |
// | 8    | spiral: the angle round the centre in turns, plus spiralAngle / 360 turns |
// |      | from the centre to the corners, wrapped into [0, 1)                       |
// | 101  | contour lines: outline cut into 8 x repeat terraces, each the ramp's      |
// |      | color at its level, with hard edges                                       |
// | 104  | slope, horizontal: outline distance, smoothed over about 7 px, as a     |
// |      | height lit from the left: a face                                          |
// |      | toward the light 1, away 0, edge-on 0.5: t = (1 - grad . L) / 2           |
// | 105  | slope, vertical: the same lit from the top                                |
// | 106  | slope: the same lit from the upper left                                   |
// | 107  | slope round the circumference: the direction a face looks, in turns from  |
// |      | the light's (the left), so t runs once round every convex outline         |
// | 108  | change of slope: -4 x the Laplacian of the height, within 0..1: 0 on even |
// |      | slopes, 1 along the ridges where faces meet (the part's skeleton)         |
#include <algorithm>
#include <cmath>
#include <cstring>
#include <new>

#include "render/ColorRamp.h"
#include "render/DistanceField.h"
#include "render/RenderCore.h"

namespace vellrender {

namespace {

const float kTwoPi = 6.28318530718f;

// Writes a color given as floats 0..255 (blue, green, red), rounded or dithered.
inline void PutFloat(const float c[3], bool dither, int x, int y, unsigned char* out) {
    const float threshold = dither ? DitherThreshold(x, y) : 0.5f;
    for (int k = 0; k < 3; ++k)
        out[k] = static_cast<unsigned char>(std::min(c[k] + threshold, 255.0f));
}

struct Context {
    const Picture& picture;
    const Part& part;
    const Options& options;
    const ColorRamp& ramp;
    Frame frame;
};

// t linear across the row: t = a + b * x at pixel centre x.
int PaintLinear(const Context& c, float dirX, float dirY) {
    const Frame& f = c.frame;
    const float extent = std::fabs(f.width * dirX) + std::fabs(f.height * dirY);
    const float inv = extent > 0.0f ? 1.0f / extent : 0.0f;
    return PaintRows(
        c.picture, c.part, c.options.threads, [&](int y, int x0, int x1, unsigned char* out) {
            const float start = 0.5f + ((x0 + 0.5f - f.cx) * dirX + (y + 0.5f - f.cy) * dirY) * inv;
            const float step = dirX * inv;
            PutRampRow(c.ramp, c.options.dither, x0, y, x1 - x0, out,
                       [=](int i) { return start + i * step; });
        });
}

// t from a function of the frame's local coordinates.
template <class TOf>
int PaintLocal(const Context& c, TOf&& tOf) {
    const Frame& f = c.frame;
    return PaintRows(c.picture, c.part, c.options.threads,
                     [&](int y, int x0, int x1, unsigned char* out) {
                         PutRampRow(c.ramp, c.options.dither, x0, y, x1 - x0, out, [&](int i) {
                             float u, v;
                             f.Local(x0 + i + 0.5f, y + 0.5f, &u, &v);
                             return tOf(u, v);
                         });
                     });
}

int PaintCircle(const Context& c) {
    const Frame& f = c.frame;
    const float inv = 2.0f / std::sqrt(f.width * f.width + f.height * f.height);
    return PaintRows(c.picture, c.part, c.options.threads,
                     [&](int y, int x0, int x1, unsigned char* out) {
                         const float dy = y + 0.5f - f.cy, dy2 = dy * dy, dx0 = x0 + 0.5f - f.cx;
                         PutRampRow(c.ramp, c.options.dither, x0, y, x1 - x0, out, [=](int i) {
                             const float dx = dx0 + i;
                             return std::sqrt(dx * dx + dy2) * inv;
                         });
                     });
}

// The largest value of `norm` at the box's four corners, in local coordinates.
template <class Norm>
float CornerMax(const Frame& f, Norm&& norm) {
    float most = 0.0f;
    for (int sx = -1; sx <= 1; sx += 2) {
        for (int sy = -1; sy <= 1; sy += 2) {
            float u, v;
            f.Local(f.cx + sx * 0.5f * f.width, f.cy + sy * 0.5f * f.height, &u, &v);
            most = std::max(most, norm(u, v));
        }
    }
    return most > 0.0f ? most : 1.0f;
}

int PaintFourCorners(const Context& c, const KTEffectGradation& effect) {
    std::vector<ColorRGB> colors = EffectColors(effect.colors, effect.colorCount);
    while (colors.size() < 4) colors.push_back(colors.back());
    const Frame& f = c.frame;
    return PaintRows(
        c.picture, c.part, c.options.threads, [&](int y, int x0, int x1, unsigned char* out) {
            for (int x = x0; x < x1; ++x) {
                float u, v;
                f.Local(x + 0.5f, y + 0.5f, &u, &v);
                // 0 and 1 at the centres of the corner pixels.
                const float s =
                    Clamped(0.5f + u / std::max(f.width - 1.0f, 1.0f), 0.0f, 1.0f, 0.0f);
                const float p =
                    Clamped(0.5f - v / std::max(f.height - 1.0f, 1.0f), 0.0f, 1.0f, 0.0f);
                const ColorRGB* k = colors.data();
                const float w[4] = {(1 - s) * (1 - p), s * (1 - p), s * p, (1 - s) * p};
                const float mixed[3] = {
                    w[0] * k[0].blue + w[1] * k[1].blue + w[2] * k[2].blue + w[3] * k[3].blue,
                    w[0] * k[0].green + w[1] * k[1].green + w[2] * k[2].green + w[3] * k[3].green,
                    w[0] * k[0].red + w[1] * k[1].red + w[2] * k[2].red + w[3] * k[3].red};
                PutFloat(mixed, c.options.dither, x, y, out + 3 * (x - x0));
            }
        });
}

// The types that read the distance to the part's edge.
int PaintFromOutline(const Context& c, int type, int repeat) {
    DistanceField field;
    if (field.Compute(c.part, c.options.threads) != 0) return -2;
    const float deepest = DistanceField::EdgeDistance(field.MaxSquared());
    const float inv = deepest > 0.0f ? 1.0f / deepest : 0.0f;
    const Part& part = c.part;
    // The slopes read a height: the edge distance, smoothed (three box passes
    // of 7 px each way), so that a pixel-stepped outline gives even faces.
    // It reaches kPad pixels past the box, where the part is not.
    const int kPad = 3;
    const int hw = part.right - part.left + 2 * kPad, hh = part.top - part.bottom + 2 * kPad;
    std::vector<float> heights;
    if (type != 3 && type != 101) {
        try {
            heights.assign(static_cast<std::size_t>(hw) * hh, 0.0f);
        } catch (const std::bad_alloc&) {
            return -2;
        }
        for (int y = part.bottom; y < part.top; ++y) {
            float* row = &heights[static_cast<std::size_t>(y - part.bottom + kPad) * hw + kPad];
            for (int x = part.left; x < part.right; ++x)
                row[x - part.left] = DistanceField::EdgeDistance(field.Squared(x, y));
        }
        if (BoxBlur(heights.data(), hw, hh, 1, 3, 3, c.options.threads) != 0) return -2;
    }
    auto height = [&](int x, int y) {
        return heights[static_cast<std::size_t>(y - part.bottom + kPad) * hw + x - part.left +
                       kPad];
    };
    const float light = std::atan2(-c.frame.sinA, -c.frame.cosA);  // the left, turned
    float lightX = -c.frame.cosA, lightY = -c.frame.sinA;
    if (type == 105) {
        lightX = -c.frame.sinA;
        lightY = c.frame.cosA;
    } else if (type == 106) {
        lightX = (-c.frame.cosA - c.frame.sinA) * 0.70710678f;
        lightY = (c.frame.cosA - c.frame.sinA) * 0.70710678f;
    }
    const int terraces = 8 * std::max(1, std::min(repeat, ColorRamp::kMaxRepeat));
    if (type == 3) {
        return PaintRows(c.picture, c.part, c.options.threads,
                         [&](int y, int x0, int x1, unsigned char* out) {
                             const std::uint32_t* row = field.Row(y) + x0 - part.left;
                             PutRampRow(c.ramp, c.options.dither, x0, y, x1 - x0, out, [=](int i) {
                                 const float d = std::sqrt(static_cast<float>(row[i])) - 0.5f;
                                 return (d > 0.0f ? d : 0.0f) * inv;
                             });
                         });
    }
    return PaintRows(
        c.picture, c.part, c.options.threads, [&](int y, int x0, int x1, unsigned char* out) {
            const std::uint32_t* row = field.Row(y);
            for (int x = x0; x < x1; ++x) {
                float t;
                if (type == 101) {
                    t = DistanceField::EdgeDistance(row[x - part.left]) * inv;
                    const int level = std::min(static_cast<int>(t * terraces), terraces - 1);
                    t = terraces > 1 ? level / float(terraces - 1) : 0.0f;
                } else {
                    const float gx = 0.5f * (height(x + 1, y) - height(x - 1, y));
                    const float gy = 0.5f * (height(x, y + 1) - height(x, y - 1));
                    if (type == 107) {
                        const float facing = std::atan2(-gy, -gx) - light;
                        t = (gx == 0.0f && gy == 0.0f)
                                ? 0.0f
                                : facing / kTwoPi - std::floor(facing / kTwoPi);
                    } else if (type == 108) {
                        const float laplacian = height(x + 1, y) + height(x - 1, y) +
                                                height(x, y + 1) + height(x, y - 1) -
                                                4.0f * height(x, y);
                        // A ridge of the smoothed height bends by about 0.25 per pixel.
                        t = Clamped(-4.0f * laplacian, 0.0f, 1.0f, 0.0f);
                    } else {
                        t = 0.5f - 0.5f * (gx * lightX + gy * lightY);
                    }
                }
                PutRamp(c.ramp, c.ramp.Index(t), c.options.dither, x, y, out + 3 * (x - x0));
            }
        });
}

}  // namespace

int RenderGradation(const KTEffectGradation& effect, const Picture& picture, const Part& part,
                    const Options& options) {
    const int check = CheckTarget(picture, part);
    if (check != 0 || part.Empty()) return check;
    RampSettings settings;
    settings.colors = effect.colors;
    settings.count = effect.colorCount;
    settings.mix = effect.mix;
    settings.bias = effect.bias;
    settings.hue = effect.hueInterpolation != 0;
    settings.repeat = effect.type == 101 ? 1 : effect.repeat;
    settings.factor = effect.factor;
    ColorRamp ramp;
    if (ramp.Build(settings) != 0) return -2;
    const Context c{picture, part, options, ramp, Frame(part, effect.angle)};
    const Frame& f = c.frame;
    switch (effect.type) {
        case 1: return PaintLinear(c, f.sinA, -f.cosA);
        case 3:
        case 101:
        case 104:
        case 105:
        case 106:
        case 107:
        case 108: return PaintFromOutline(c, effect.type, effect.repeat);
        case 4: return PaintCircle(c);
        case 5: {
            const float a = 0.5f * f.width, b = 0.5f * f.height;
            auto norm = [a, b](float u, float v) {
                return std::sqrt(u * u / (a * a) + v * v / (b * b));
            };
            const float inv = 1.0f / CornerMax(f, norm);
            return PaintLocal(c, [&](float u, float v) { return norm(u, v) * inv; });
        }
        case 6: {
            const float a = 0.5f * f.width, b = 0.5f * f.height;
            auto norm = [a, b](float u, float v) {
                return std::max(std::fabs(u) / a, std::fabs(v) / b);
            };
            const float inv = 1.0f / CornerMax(f, norm);
            return PaintLocal(c, [&](float u, float v) { return norm(u, v) * inv; });
        }
        case 7: return PaintFourCorners(c, effect);
        case 8: {
            const float turns = Clamped(effect.spiralAngle, -1e6f, 1e6f, 360.0f) / 360.0f;
            const float inv = 2.0f / std::sqrt(f.width * f.width + f.height * f.height);
            return PaintLocal(c, [&](float u, float v) {
                const float s = std::atan2(v, u) / kTwoPi + turns * std::sqrt(u * u + v * v) * inv;
                return s - std::floor(s);
            });
        }
        default: return PaintLinear(c, f.cosA, f.sinA);
    }
}

}  // namespace vellrender
