// The image mapping effect: the mapping's picture drawn onto the part, once
// or tiled, scaled, stretched and turned.
//
// | field    | in the picture                                                              |
// |----------|-----------------------------------------------------------------------------|
// | image    | what is drawn; none, an empty one or one that is not 24-bit paints nothing  |
// |          | (0 is returned)                                                             |
// | scale    | picture pixels per image pixel (1 is 100 %), held within 1e-6..1e6, NaN 1.  |
// |          | A copy drawn smaller is first shrunk by area averaging, so fine detail      |
// |          | turns to its mean instead of shimmering; a larger one is read bilinearly    |
// | stretch  | (the float beside the object) 0 to 1, NaN 0: the copy's aspect ratio moves  |
// |          | from the image's own (0) to the part's box's (1), geometrically, its area   |
// |          | kept: width x k and height / k, k = (box aspect / image aspect)^(stretch/2) |
// | fitWhole | nonzero: the copy is the box's size, whatever scale and stretch say; repeat |
// |          | and seamless still apply, and show only where angle turns the copy off the  |
// |          | box's corners                                                               |
// | repeat   | nonzero: copies tile the plane, one centred on the box, the others whole    |
// |          | copy sizes from it. 0: that copy alone; the picture keeps its own pixels    |
// |          | outside it, and a pixel on its edge blends the two by its share inside      |
// |          | (along each of the copy's axes)                                             |
// | seamless | with repeat, every other copy is mirrored across the edge it shares, so     |
// |          | neighbours join without seams; without repeat it does nothing               |
// | angle    | degrees, counter-clockwise: the copies turned about the box's centre; NaN 0 |
// | assigned | nothing                                                                     |
//
// The centred copy's bottom-left corner, before turning, sits on the whole
// pixel nearest to exact centring, so that at 100 % and no angle the image's
// pixels land on pixels unblurred. Each pixel reads the copy at its centre,
// bilinearly in 1/256 steps (ImageSampler.h).
#include <algorithm>
#include <cmath>
#include <cstring>

#include "render/ImageSampler.h"
#include "render/RenderCore.h"

namespace vellrender {

namespace {

const float kMinScale = 1e-6f, kMaxScale = 1e6f;

// Picture pixels per image pixel along each of the image's axes.
void CopyScales(const KTMapping& mapping, float stretch, const Frame& f, float* scaleX,
                float* scaleY) {
    const double w = mapping.image->width, h = mapping.image->height;
    if (mapping.fitWhole) {
        *scaleX = static_cast<float>(f.width / w);
        *scaleY = static_cast<float>(f.height / h);
        return;
    }
    const double scale = Clamped(mapping.scale, kMinScale, kMaxScale, 1.0f);
    const double k =
        std::pow((f.width / f.height) / (w / h), 0.5 * Clamped(stretch, 0.0f, 1.0f, 0.0f));
    *scaleX = static_cast<float>(scale * k);
    *scaleY = static_cast<float>(scale / k);
}

// Narrows [lo, hi) to the steps i at which p + i dp lies within
// (-0.5, size + 0.5): the pixels whose footprint can reach the copy.
void Narrow(double p, double dp, double size, double* lo, double* hi) {
    const double a = -0.5, b = size + 0.5;
    if (dp == 0.0) {
        if (!(p > a && p < b)) *hi = *lo;
        return;
    }
    const double i0 = (a - p) / dp, i1 = (b - p) / dp;
    *lo = std::max(*lo, std::min(i0, i1));
    *hi = std::min(*hi, std::max(i0, i1));
}

// A row of the copy alone, (s, t) being its first pixel's place on the copy
// and (ds, dt) the step: the pixels that miss the copy keep `original`,
// those on its edge blend the two.
void ShadeAlone(const ImageSampler& sampler, const unsigned char* original, double s, double t,
                double ds, double dt, int count, unsigned char* out) {
    const double w = sampler.Width(), h = sampler.Height();
    double lo = 0.0, hi = count;
    Narrow(s, ds, w, &lo, &hi);
    Narrow(t, dt, h, &lo, &hi);
    const int first = lo < hi ? static_cast<int>(std::floor(lo)) : 0;
    const int last = lo < hi ? static_cast<int>(std::ceil(hi)) : 0;
    // Sampled first: the byte it may write past its run is then restored.
    if (last > first)
        sampler.SampleRow(s + first * ds, t + first * dt, ds, dt, last - first,
                          ImageSampler::kClamp, out + 3 * first);
    std::memcpy(out, original, 3 * static_cast<std::size_t>(first));
    std::memcpy(out + 3 * last, original + 3 * last, 3 * static_cast<std::size_t>(count - last));
    for (int i = first; i < last; ++i) {
        const double share = Overlap(s + i * ds, 0.0, w) * Overlap(t + i * dt, 0.0, h);
        if (share >= 1.0) continue;
        const unsigned int a = static_cast<unsigned int>(share * 256.0 + 0.5);
        for (int c = 3 * i; c < 3 * i + 3; ++c)
            out[c] = static_cast<unsigned char>((out[c] * a + original[c] * (256 - a) + 128) >> 8);
    }
}

}  // namespace

int RenderMapping(const KTMapping& mapping, float stretch, const Picture& picture, const Part& part,
                  const Options& options) {
    const int check = CheckTarget(picture, part);
    if (check != 0 || part.Empty()) return check;
    const BitmapImage* image = mapping.image;
    if (image == nullptr || image->width <= 0 || image->height <= 0) return 0;
    const Frame f(part, mapping.angle);
    float scaleX, scaleY;
    CopyScales(mapping, stretch, f, &scaleX, &scaleY);
    ImageSampler sampler;
    const int prepared = sampler.Prepare(image, scaleX, scaleY);
    if (prepared != 0) return prepared == -2 ? -2 : 0;
    // The copy's bottom-left corner in the turned frame, origin at the centre.
    const double left = std::floor(f.cx - 0.5 * sampler.Width() + 0.5) - f.cx;
    const double bottom = std::floor(f.cy - 0.5 * sampler.Height() + 0.5) - f.cy;
    const double cosA = f.cosA, sinA = f.sinA;
    const bool alone = mapping.repeat == 0;
    const ImageSampler::Wrap wrap =
        mapping.seamless != 0 ? ImageSampler::kMirror : ImageSampler::kRepeat;
    return PaintRows(
        picture, part, options.threads, [&](int y, int x0, int x1, unsigned char* out) {
            const double dx = x0 + 0.5 - f.cx, dy = y + 0.5 - f.cy;
            const double s = cosA * dx + sinA * dy - left;
            const double t = -sinA * dx + cosA * dy - bottom;
            if (alone)
                ShadeAlone(sampler, PixelAt(picture, x0, y), s, t, cosA, -sinA, x1 - x0, out);
            else
                sampler.SampleRow(s, t, cosA, -sinA, x1 - x0, wrap, out);
        });
}

}  // namespace vellrender
