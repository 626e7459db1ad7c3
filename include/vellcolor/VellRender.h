// The reference renderer: paints the remote control's effects into a part of
// a 24-bit picture, the way a drawing program does when the remote control
// asks it to. Portable C++17; a host links libvellrender.a and libvellcore.a.
//
// A host that receives "gradation" calls PXColor_GetGradation(effect) and then
// RenderGradation(effect, picture, part); "uniform_color" becomes
// FillUniform(first color, picture, part); and so on for every name.
//
// Coordinates: pixel (x, y) is BitmapImage's, row 0 the bottom row, so y runs
// up the picture and a positive angle turns counter-clockwise on the screen.
// Effects are laid out on the part's bounding box: its centre, its size, and
// `angle` turning about the centre. Every file in src/render/ opens with a
// table of what each field of its object does in the picture.
#pragma once

#include "BitmapImage.h"
#include "ColorRGB.h"
#include "KTEffectDensityPattern.h"
#include "KTEffectGradation.h"
#include "KTEffectStripe.h"
#include "KTEffectTile.h"
#include "KTMapping.h"

namespace vellrender {

// A 24-bit picture in BitmapImage's layout: blue, green, red per pixel, row 0
// at `pixels`, `stride` bytes from a row to the next one up.
struct Picture {
    unsigned char* pixels = nullptr;
    int width = 0;
    int height = 0;
    int stride = 0;

    // A view of a 24-bit image; an empty view of any other.
    static Picture Of(BitmapImage& image);
};

// The area to paint: one coverage byte per pixel of the picture (0 outside,
// 255 inside, between on anti-aliased edges), rows laid out as the picture's,
// and the box that holds every nonzero byte: left <= x < right,
// bottom <= y < top. Outside the part nothing changes; on its edge the effect
// is blended with the picture by coverage.
struct Part {
    const unsigned char* coverage = nullptr;
    int stride = 0;
    int left = 0;
    int bottom = 0;
    int right = 0;
    int top = 0;

    // The part of a width x height mask, its box found by scanning the mask.
    static Part OfMask(const unsigned char* coverage, int width, int height, int stride);
    bool Empty() const { return right <= left || top <= bottom; }
};

struct Options {
    // Everything random (tile colors, stripe grain) is hashed from this seed
    // and a tile's or pixel's index: the same seed gives the same pixels.
    unsigned int seed = 0;
    // Rows are shared among this many threads; 0 takes one per core. The
    // pixels never depend on it.
    int threads = 1;
    // Dithers the gradation's colors, so a slow blend between near colors
    // shows no bands of equal bytes. Off: every pixel is an exact ramp color.
    bool dither = false;
};

// Each returns 0, -4 (ErrorCode.h) for a picture or part that does not fit
// (nothing is painted), or -2 when working memory cannot be had (nothing is
// painted). An empty part paints nothing and returns 0. Field values outside
// what the remote control produces (NaN, negative sizes, huge repeats) are
// brought into range; see each effect's table.
int RenderGradation(const KTEffectGradation& effect, const Picture& picture, const Part& part,
                    const Options& options = Options());
int RenderTile(const KTEffectTile& effect, const Picture& picture, const Part& part,
               const Options& options = Options());
int RenderStripe(const KTEffectStripe& effect, const Picture& picture, const Part& part,
                 const Options& options = Options());
// The isoline pattern, laid out from effect.referencePoints points scattered
// over the part by options.seed (the effect's own generator is not used, so
// the same seed always gives the same picture).
int RenderDensityPattern(const KTEffectDensityPattern& effect, const Picture& picture,
                         const Part& part, const Options& options = Options());
// The mapping's image placed on the part; `stretch` is the 0..1 factor that
// PXColor_GetMapping writes into its two floats (both hold the same value).
int RenderMapping(const KTMapping& mapping, float stretch, const Picture& picture, const Part& part,
                  const Options& options = Options());

// The four one-shot operations ("uniform_color", "color_bokashi",
// "reverse_color", "color_edge"). A host takes `color` from the first color
// of the effect's colors.
const float kDefaultBlurRadius = 4.0f;
const float kDefaultEdgeWidth = 2.0f;

// The part filled with one color.
int FillUniform(ColorRGB color, const Picture& picture, const Part& part,
                const Options& options = Options());
// The part's own pixels blurred, only among themselves: nothing outside the
// part bleeds in. Three box passes each way, about a Gaussian of that radius;
// the cost does not grow with it.
int Blur(float radius, const Picture& picture, const Part& part,
         const Options& options = Options());
// Every channel of the part's pixels turned to 255 minus itself.
int Invert(const Picture& picture, const Part& part, const Options& options = Options());
// A line of `width` pixels along the inside of the part's edge.
int DrawEdge(ColorRGB color, float width, const Picture& picture, const Part& part,
             const Options& options = Options());

}  // namespace vellrender
