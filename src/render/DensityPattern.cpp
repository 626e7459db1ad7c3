// The isoline pattern: regions around points scattered over the part (each
// pixel belongs to its nearest point, PointField.h), each drawn with one of
// fifteen patterns laid out from its point. w is isolineWidth, R radialLines,
// d a pixel's distance from its region's point and "turn" an angle that every
// region draws from the seed.
//
// | field           | in the picture                                                      |
// |-----------------|---------------------------------------------------------------------|
// | patternType     | the pattern, table below; an unknown code paints nothing            |
// | referencePoints | how many regions (1..4096, at most one per pixel of the box); the   |
// |                 | points are drawn by Options.seed, evenly spread, on covered pixels  |
// | colors          | the pattern colors in order (none: black and white)                 |
// | isolineWidth    | w, the width of bands, squares, dots' spacing (1..4096 px)          |
// | radialLines     | R, rays around each point (1..3600)                                 |
// | borderColor     | border lines of 2, 3, 4, 6; the second color of 5, 7, 8, 9          |
// | borderWidth     | 2, 3, 4, 6: the line's share of a band (0..1), centred on its edge; |
// |                 | 7, 8: the border color's share at the end of every stripe           |
// | blurDirection   | 2, 3, 4, 6: 1 the border fades across the band inside it (toward    |
// |                 | the point, or clockwise), 2 outside it (away, counter-clockwise),   |
// |                 | 3 halfway into both; 0 none                                         |
// | invertColors    | 2, 3, 4, 5, 6, 9: border color and pattern colors change places     |
// | swirl           | 0..1: the pattern turns about each point by swirl x 360 degrees for |
// |                 | every typical region radius of distance, so rays become spirals     |
// | roughness       | 0..1: every sample is moved by a smooth noise of up to 4 px, so    |
// |                 | lines and edges turn ragged; the noise has a seed of its own         |
// | removeJaggies   | nonzero: every edge anti-aliased (analytic across bands, 16 samples |
// |                 | on region borders); zero: hard pixel steps                          |
// | image           | 13, 14, 15: the picture drawn (none: those types paint nothing)     |
// | imageSize       | 14, 15: the picture's longer side in px (1..4096)                   |
//
// | type | pattern                                                                  |
// |------|--------------------------------------------------------------------------|
// | 1    | gradation: the colors as a smooth ramp over d, out over w px and back    |
// |      | over the next w, so rings blend into each other with no edge anywhere     |
// | 2    | isolines: rings of w px about each point, color k for ring k (cycled)    |
// | 3    | radial lines: R sectors about each point from its turn, color k for      |
// |      | sector k                                                                 |
// | 4    | both: rings cut by rays, cells colored like a checkerboard of n colors  |
// | 5    | check: squares of w in the region's turn, its color and the border color |
// | 6    | dots: dots of 0.7 w on a grid of w in the region's turn; the ground is   |
// |      | the first color, the dots the others in turn (one color: border only)   |
// | 7    | square stripes: concentric squares of w, turned, the region's colors in  |
// |      | turn, each ending in a stripe of the border color                        |
// | 8    | circular stripes: the same with circles                                  |
// | 9    | brick: w x w/2 bricks in half-offset rows, turned, each a color of the    |
// |      | list by the seed, in mortar of the border color (w / 8, at least 1 px)    |
// | 10   | fluctuation: type 1 with its rings swaying by a slow noise of w px       |
// | 11   | jagged: rings of w whose edges zigzag with R teeth round each point      |
// | 12   | hair: 6 R fine strands round each point, curling outward, each a tone    |
// |      | of the ramp by the seed, blended strand to strand                        |
// | 13   | image cells: the image centred on each point at the size of a typical    |
// |      | region, mirrored beyond its edges                                        |
// | 14   | image tiles: the image at imageSize, repeated from each point            |
// | 15   | image kaleidoscope: the image at imageSize folded into 12 mirrored       |
// |      | wedges round each point, symmetric about the horizontal through it       |
#include <algorithm>
#include <cmath>
#include <new>

#include "render/ColorRamp.h"
#include "render/ImageSampler.h"
#include "render/PointField.h"
#include "render/RenderCore.h"

namespace vellrender {

namespace {

const float kTwoPi = 6.28318530718f;

FloatColor OfColorF(const ColorF& c) {
    return {Clamped(c.blue, 0, 1, 0) * 255.0f, Clamped(c.green, 0, 1, 0) * 255.0f,
            Clamped(c.red, 0, 1, 0) * 255.0f};
}

int Wrap(int k, int n) {
    const int m = k % n;
    return m < 0 ? m + n : m;
}

// Smooth value noise in [0, 1): hashed lattice values blended by smoothstep.
float Noise(std::uint32_t seed, float x, float y) {
    const float fx = std::floor(x), fy = std::floor(y);
    const int ix = static_cast<int>(fx), iy = static_cast<int>(fy);
    float tx = x - fx, ty = y - fy;
    tx = tx * tx * (3 - 2 * tx);
    ty = ty * ty * (3 - 2 * ty);
    const float a = Unit(Hash(seed, ix, iy)), b = Unit(Hash(seed, ix + 1, iy));
    const float c = Unit(Hash(seed, ix, iy + 1)), d = Unit(Hash(seed, ix + 1, iy + 1));
    return (a + (b - a) * tx) + ((c + (d - c) * tx) - (a + (b - a) * tx)) * ty;
}

// Where a pixel sits among bands of a coordinate s (band k is [k, k + 1)),
// which changes by `gain` per pixel.
struct Band {
    int k;          // the band of the pixel's centre
    float f;        // 0..1 across it
    float width;    // the band's width in px
    float e;        // px to its nearer edge
    int across;     // the band beyond that edge
    float acrossF;  // the place in it next to the edge
};

Band BandOf(float s, float gain) {
    s = Clamped(s, -1e6f, 1e6f, 0.0f);
    const float fl = std::floor(s);
    Band band;
    band.k = static_cast<int>(fl);
    band.f = s - fl;
    band.width = 1.0f / std::max(gain, 1e-6f);
    const bool lower = band.f < 0.5f;
    band.e = (lower ? band.f : 1.0f - band.f) * band.width;
    band.across = lower ? band.k - 1 : band.k + 1;
    band.acrossF = lower ? 1.0f : 0.0f;
    return band;
}

struct Settings {
    int type = 0;
    float w = 12;
    int rays = 30;
    float borderShare = 0;
    int blur = 0;
    bool invert = false;
    bool smooth = true;
    float swirl = 0;  // radians of turn per px of distance
    float rough = 0;  // px of displacement
    float cell = 1;   // a typical region's radius
    std::uint32_t noiseSeed = 0;
    std::vector<FloatColor> colors;
    FloatColor border;
    ColorRamp ramp;
    ImageSampler image;

    const FloatColor& Color(int k) const {
        return colors[Wrap(k, static_cast<int>(colors.size()))];
    }
};

// The border's share of a pixel: its line over the band's edge, and the
// fade of the blur across the band.
float BorderAmount(const Settings& s, float f, float e, float width) {
    const float half = 0.5f * s.borderShare * width;
    float amount = s.smooth ? Overlap(e, -half, half) : (e < half ? 1.0f : 0.0f);
    switch (s.blur) {
        case 1: amount = std::max(amount, f); break;
        case 2: amount = std::max(amount, 1.0f - f); break;
        case 3: amount = std::max(amount, std::fabs(2.0f * f - 1.0f)); break;
        default: break;
    }
    return amount;
}

FloatColor WithBorder(const Settings& s, const FloatColor& pattern, float amount) {
    return s.invert ? Mix(s.border, pattern, amount) : Mix(pattern, s.border, amount);
}

// A bordered band: the pattern color of band k with the border over it, and
// across the nearer edge the same of the next band, anti-aliased.
template <class ColorOf>
FloatColor BorderedBand(const Settings& s, const Band& band, ColorOf&& colorOf) {
    const float amount = BorderAmount(s, band.f, band.e, band.width);
    const FloatColor own = WithBorder(s, colorOf(band.k), amount);
    if (!s.smooth || band.e >= 0.5f) return own;
    const FloatColor other =
        WithBorder(s, colorOf(band.across), BorderAmount(s, band.acrossF, band.e, band.width));
    return Mix(other, own, 0.5f + band.e);
}

// Two colors split at band edges, anti-aliased over the nearer edge.
template <class ColorOf>
FloatColor PlainBand(const Settings& s, const Band& band, ColorOf&& colorOf) {
    const FloatColor own = colorOf(band.k);
    if (!s.smooth || band.e >= 0.5f) return own;
    return Mix(colorOf(band.across), own, 0.5f + band.e);
}

float Triangle(float t) {
    const float h = t * 0.5f;
    return 1.0f - std::fabs(2.0f * (h - std::floor(h)) - 1.0f);
}

FloatColor RampColor(const Settings& s, float t) {
    return OfBytes(s.ramp.At(t));
}

// The angle coordinate of R sectors, 0..R, from the region's turn.
float SectorCoordinate(const Settings& s, const Site& site, float u, float v) {
    const float a = site.cosT * u + site.sinT * v, b = -site.sinT * u + site.cosT * v;
    return (std::atan2(b, a) / kTwoPi + 0.5f) * s.rays;
}

// Band of the sector coordinate; its edges are rays, so its width grows with d.
Band SectorBand(const Settings& s, const Site& site, float u, float v, float d) {
    Band band = BandOf(SectorCoordinate(s, site, u, v), s.rays / (kTwoPi * std::max(d, 1e-3f)));
    band.k = Wrap(band.k, s.rays);
    band.across = Wrap(band.across, s.rays);
    return band;
}

// Stripes of `width` px along coordinate q, each its color then a share of
// the border color at its end.
FloatColor StripeOf(const Settings& s, float q, int offset) {
    const Band band = BandOf(q / s.w, 1.0f / s.w);
    const float p = band.f * s.w, line = s.borderShare * s.w;
    float amount;
    if (s.smooth) {
        amount = Overlap(p, s.w - line, s.w) + Overlap(p, -line, 0.0f);
    } else {
        amount = p >= s.w - line ? 1.0f : 0.0f;
    }
    const FloatColor pattern = PlainBand(s, band, [&](int k) { return s.Color(k + offset); });
    return Mix(pattern, s.border, std::min(amount, 1.0f));
}

// The image at (u, v) from its centre.
FloatColor Sampled(const Settings& s, float u, float v, ImageSampler::Wrap wrap) {
    float out[3];
    s.image.Sample(u + 0.5f * s.image.Width(), v + 0.5f * s.image.Height(), wrap, out);
    return {out[0], out[1], out[2]};
}

FloatColor Shade(const Settings& s, const Site& site, float u, float v) {
    const float d = std::sqrt(u * u + v * v);
    if (s.type == 2)
        return BorderedBand(s, BandOf(d / s.w, 1.0f / s.w), [&](int k) { return s.Color(k); });
    // The region's turned axes, and its first color.
    const float a = site.cosT * u + site.sinT * v, b = -site.sinT * u + site.cosT * v;
    const int offset = static_cast<int>(site.hash >> 4);
    switch (s.type) {
        case 1: return RampColor(s, Triangle(d / s.w));
        case 3:
            return BorderedBand(s, SectorBand(s, site, u, v, d), [&](int k) { return s.Color(k); });
        case 4: {
            const Band ring = BandOf(d / s.w, 1.0f / s.w);
            const Band ray = SectorBand(s, site, u, v, d);
            // The nearer edge is drawn across; the other kind is the pixel's own.
            const bool ringNearer = ring.e < ray.e;
            const Band& near = ringNearer ? ring : ray;
            const Band& far = ringNearer ? ray : ring;
            const float other = BorderAmount(s, far.f, far.e, far.width);
            const int fixed = far.k;
            const float amount = std::max(other, BorderAmount(s, near.f, near.e, near.width));
            const FloatColor own = WithBorder(s, s.Color(near.k + fixed), amount);
            if (!s.smooth || near.e >= 0.5f) return own;
            const float acrossAmount =
                std::max(other, BorderAmount(s, near.acrossF, near.e, near.width));
            return Mix(WithBorder(s, s.Color(near.across + fixed), acrossAmount), own,
                       0.5f + near.e);
        }
        case 5: {
            const Band x = BandOf(a / s.w + 0.5f, 1.0f / s.w);
            const Band y = BandOf(b / s.w + 0.5f, 1.0f / s.w);
            const bool xNearer = x.e < y.e;
            const int fixed = xNearer ? y.k : x.k;
            const FloatColor& mine = s.Color(offset);
            return PlainBand(s, xNearer ? x : y, [&](int k) {
                const bool first = ((k + fixed) & 1) == 0;
                return first != s.invert ? mine : s.border;
            });
        }
        case 6: {
            // The nearest dot centre of the grid of w, and the distance to it.
            const float ga = a / s.w, gb = b / s.w;
            const float ca = std::floor(ga + 0.5f), cb = std::floor(gb + 0.5f);
            const float dd = s.w * std::hypot(ga - ca, gb - cb), radius = 0.35f * s.w;
            const int n = static_cast<int>(s.colors.size());
            const FloatColor& ground = s.colors[0];
            const FloatColor& dot =
                n < 2 ? ground
                      : s.colors[1 + Hash(site.hash, static_cast<int>(ca), static_cast<int>(cb)) %
                                         (n - 1)];
            // Inside the dot the band runs 0 at its centre to 1 at its edge;
            // outside, 0 at the edge to 1 halfway to the next dot.
            const float outside = std::max(0.5f * s.w - radius, 1e-3f);
            const bool in = dd < radius;
            const float e = std::fabs(dd - radius);
            const float fIn = in ? dd / radius : 1.0f, fOut = in ? 0.0f : e / outside;
            const float half = 0.5f * s.borderShare * radius;
            auto colorAt = [&](bool inside, float f) {
                float amount = s.smooth ? Overlap(e, -half, half) : (e < half ? 1.0f : 0.0f);
                if ((s.blur & 1) && inside) amount = std::max(amount, f);
                if ((s.blur & 2) && !inside) amount = std::max(amount, 1.0f - f);
                return WithBorder(s, inside ? dot : ground, amount);
            };
            const FloatColor own = colorAt(in, in ? fIn : fOut);
            if (!s.smooth || e >= 0.5f) return own;
            return Mix(colorAt(!in, in ? 0.0f : 1.0f), own, 0.5f + e);
        }
        case 7: return StripeOf(s, std::max(std::fabs(a), std::fabs(b)), offset);
        case 8: return StripeOf(s, d, offset);
        case 9: {
            const float h = 0.5f * s.w, mortar = std::max(1.0f, s.w / 8);
            const Band row = BandOf(b / h, 1.0f / h);
            const float shift = (row.k & 1) ? 0.5f : 0.0f;
            const Band col = BandOf(a / s.w + shift, 1.0f / s.w);
            const int n = static_cast<int>(s.colors.size());
            const FloatColor& brick = s.colors[Hash(site.hash, row.k, col.k) % n];
            // Mortar along the bottom of every row and the left of every brick.
            const float pb = row.f * h, pa = col.f * s.w;
            float amount;
            if (s.smooth) {
                amount =
                    std::min(1.0f, Overlap(pb, 0.0f, mortar) + Overlap(pb, h, h + mortar) +
                                       Overlap(pa, 0.0f, mortar) + Overlap(pa, s.w, s.w + mortar));
            } else {
                amount = pb < mortar || pa < mortar ? 1.0f : 0.0f;
            }
            return s.invert ? Mix(s.border, brick, amount) : Mix(brick, s.border, amount);
        }
        case 10: {
            // The sway follows the picture, not the region, so rings still
            // join across region borders.
            const float k = 1.0f / (4 * s.w);
            const float sway = Noise(s.noiseSeed ^ 0xF1u, (site.x + u) * k, (site.y + v) * k);
            return RampColor(s, Triangle(d / s.w + 3.0f * (sway - 0.5f)));
        }
        case 11: {
            const float teeth = Triangle(2.0f * SectorCoordinate(s, site, u, v));
            const Band band = BandOf((d + 0.5f * s.w * teeth) / s.w, 1.0f / s.w);
            return PlainBand(s, band, [&](int k) { return s.Color(k); });
        }
        case 12: {
            const float curl = d / s.cell * 0.6f;
            const float ca = std::cos(curl), sa = std::sin(curl);
            const float q = SectorCoordinate(s, site, ca * u - sa * v, sa * u + ca * v) * 6.0f;
            const float fq = std::floor(q), t = q - fq;
            const int j = static_cast<int>(fq), strands = 6 * s.rays;
            const float here = Unit(Hash(site.hash, Wrap(j, strands)));
            const float next = Unit(Hash(site.hash, Wrap(j + 1, strands)));
            const float blend = t * t * t * (t * (6 * t - 15) + 10);
            return RampColor(s, here + (next - here) * blend);
        }
        case 13:
        case 14:
            return Sampled(s, u, v, s.type == 13 ? ImageSampler::kMirror : ImageSampler::kRepeat);
        case 15: {
            // Folded into a 30-degree wedge, mirrored at both of its sides.
            const float wedge = kTwoPi / 12;
            float t = std::fmod(std::fabs(std::atan2(v, u)), 2 * wedge);
            if (t > wedge) t = 2 * wedge - t;
            return Sampled(s, d * std::cos(t), d * std::sin(t), ImageSampler::kMirror);
        }
        default: return FloatColor();
    }
}

// The sample at (x, y) of the region of `site`, its offset turned by the
// swirl and moved by the roughness.
FloatColor ShadeAt(const Settings& s, const Site& site, float x, float y) {
    float u = x - site.x, v = y - site.y;
    if (s.swirl != 0.0f) {
        const float turn = s.swirl * std::sqrt(u * u + v * v);
        const float c = std::cos(turn), sn = std::sin(turn);
        const float tu = c * u - sn * v;
        v = sn * u + c * v;
        u = tu;
    }
    if (s.rough != 0.0f) {
        const float kFeature = 1.0f / 5.0f;
        u += s.rough * (2.0f * Noise(s.noiseSeed, x * kFeature, y * kFeature) - 1.0f);
        v += s.rough * (2.0f * Noise(s.noiseSeed + 1, x * kFeature, y * kFeature) - 1.0f);
    }
    return Shade(s, site, u, v);
}

// A pixel on a border between regions, as the mean of 4 x 4 samples, each
// of the region nearest to it among those of the pixel and its neighbours.
FloatColor Supersample(const Settings& s, const std::vector<Site>& sites, const int* const rows[3],
                       int i, int x, int y) {
    int candidates[9], count = 0;
    for (int r = 0; r < 3; ++r) {
        for (int dx = -1; dx <= 1; ++dx) {
            const int label = rows[r][i + dx];
            if (std::find(candidates, candidates + count, label) == candidates + count)
                candidates[count++] = label;
        }
    }
    FloatColor sum;
    for (int sy = 0; sy < 4; ++sy) {
        for (int sx = 0; sx < 4; ++sx) {
            const float px = x + (sx + 0.5f) * 0.25f, py = y + (sy + 0.5f) * 0.25f;
            const Site* best = nullptr;
            float bestD = 0;
            for (int c = 0; c < count; ++c) {
                const Site& site = sites[candidates[c]];
                const float d = (px - site.x) * (px - site.x) + (py - site.y) * (py - site.y);
                if (best == nullptr || d < bestD) {
                    best = &site;
                    bestD = d;
                }
            }
            const FloatColor c = ShadeAt(s, *best, px, py);
            sum.b += c.b;
            sum.g += c.g;
            sum.r += c.r;
        }
    }
    return {sum.b / 16, sum.g / 16, sum.r / 16};
}

bool OnBorder(const int* const rows[3], int i) {
    const int label = rows[1][i];
    for (int r = 0; r < 3; ++r)
        for (int dx = -1; dx <= 1; ++dx)
            if (rows[r][i + dx] != label) return true;
    return false;
}

// A row of isolines (2) or the gradation (1) without roughness: a pixel
// whose color is one band's plain color, far from every edge, is written
// straight from a table; only pixels near an edge are shaded in full.
void RingRow(const Settings& s, const std::vector<Site>& sites,
             const std::vector<std::uint32_t>& plain, const int* labels, int x0, int y, int n,
             unsigned char* out) {
    const float invW = 1.0f / s.w;
    const float margin = 0.5f * s.borderShare * s.w + (s.smooth ? 0.5f : 0.0f);
    const bool flat = s.type == 2 && s.blur == 0;
    const float yc = y + 0.5f;
    for (int i = 0; i < n; ++i) {
        const Site& site = sites[labels[i]];
        const float du = x0 + i + 0.5f - site.x, dv = yc - site.y;
        const float d = std::sqrt(du * du + dv * dv);
        if (s.type == 1) {
            PutPacked(out + 3 * i, s.ramp.Packed(s.ramp.Index(Triangle(d * invW))));
            continue;
        }
        const float ring = d * invW;
        const int k = static_cast<int>(ring);
        const float f = ring - k;
        if (flat && std::min(f, 1.0f - f) * s.w >= margin && k < static_cast<int>(plain.size())) {
            PutPacked(out + 3 * i, plain[k]);
            continue;
        }
        const FloatColor c = Shade(s, site, du, dv);
        out[3 * i] = static_cast<unsigned char>(c.b + 0.5f);
        out[3 * i + 1] = static_cast<unsigned char>(c.g + 0.5f);
        out[3 * i + 2] = static_cast<unsigned char>(c.r + 0.5f);
    }
}

int Paint(const Settings& s, const std::vector<Site>& sites, const Picture& picture,
          const Part& part, int threads) {
    // Only where regions draw different things is a region border an edge.
    const bool edges = s.smooth && s.type != 1 && s.type != 2 && s.type != 10;
    struct Scratch {
        NearestSites nearest;
        std::vector<int> rows[3];
    };
    std::vector<Scratch> scratch;
    // Ring k's plain color, for every ring the box can hold.
    const bool rings = (s.type == 1 || s.type == 2) && s.rough == 0.0f;
    std::vector<std::uint32_t> plain;
    try {
        if (rings && s.type == 2) {
            const float diagonal = std::hypot(static_cast<float>(part.right - part.left),
                                              static_cast<float>(part.top - part.bottom));
            for (int k = 0; k <= diagonal / s.w + 1; ++k) {
                const FloatColor& c = s.invert ? s.border : s.Color(k);
                plain.push_back(Packed(ColorRGB(static_cast<unsigned char>(c.r + 0.5f),
                                                static_cast<unsigned char>(c.g + 0.5f),
                                                static_cast<unsigned char>(c.b + 0.5f))));
            }
        }
        const std::vector<int> row(part.right - part.left + 2);
        for (int w = RowWorkers(part, threads); w > 0; --w)
            scratch.push_back(Scratch{NearestSites(sites), {row, row, row}});
    } catch (const std::bad_alloc&) {
        return -2;
    }
    return PaintRows(
        picture, part, threads, [&](int y, int x0, int x1, unsigned char* out, int worker) {
            Scratch& own = scratch[worker];
            const int n = x1 - x0;
            // Entry i of a row is pixel x0 - 1 + i.
            const int* const rows[3] = {own.rows[0].data(), own.rows[1].data(), own.rows[2].data()};
            own.nearest.Row(y, x0 - 1, n + 2, own.rows[1].data());
            if (edges) {
                own.nearest.Row(y - 1, x0 - 1, n + 2, own.rows[0].data());
                own.nearest.Row(y + 1, x0 - 1, n + 2, own.rows[2].data());
            }
            if (rings) {
                RingRow(s, sites, plain, rows[1] + 1, x0, y, n, out);
                return;
            }
            for (int i = 0; i < n; ++i) {
                const int x = x0 + i;
                const FloatColor c = edges && OnBorder(rows, i + 1)
                                         ? Supersample(s, sites, rows, i + 1, x, y)
                                         : ShadeAt(s, sites[rows[1][i + 1]], x + 0.5f, y + 0.5f);
                out[3 * i] = static_cast<unsigned char>(c.b + 0.5f);
                out[3 * i + 1] = static_cast<unsigned char>(c.g + 0.5f);
                out[3 * i + 2] = static_cast<unsigned char>(c.r + 0.5f);
            }
        });
}

std::vector<FloatColor> PatternColors(const KTEffectDensityPattern& effect) {
    std::vector<FloatColor> colors;
    if (effect.colors != nullptr && effect.colorCount >= 1) {
        for (int i = 0; i < effect.colorCount; ++i) colors.push_back(OfColorF(effect.colors[i]));
    } else {
        colors = {FloatColor(), {255, 255, 255}};
    }
    return colors;
}

// The image at its size: a typical region's width for cells, else imageSize
// along its longer side.
int PrepareImage(Settings& s, const BitmapImage& image, float imageSize) {
    const float longer = static_cast<float>(std::max(image.width, image.height));
    const float size = s.type == 13 ? 2.0f * s.cell : Clamped(imageSize, 1, 4096, 50);
    const float scale = longer > 0 ? size / longer : 1.0f;
    return s.image.Prepare(&image, scale, scale);
}

bool UsesImage(int type) {
    return type >= 13 && type <= 15;
}

}  // namespace

int RenderDensityPattern(const KTEffectDensityPattern& effect, const Picture& picture,
                         const Part& part, const Options& options) {
    const int check = CheckTarget(picture, part);
    if (check != 0 || part.Empty()) return check;
    if (effect.patternType < 1 || effect.patternType > 15) return 0;
    if (UsesImage(effect.patternType) && effect.image == nullptr) return 0;
    try {
        Settings s;
        s.type = effect.patternType;
        s.w = Clamped(effect.isolineWidth, 1, 4096, 12);
        s.rays = std::min(std::max(effect.radialLines, 1), 3600);
        s.borderShare = Clamped(effect.borderWidth, 0, 1, 0);
        s.blur = effect.blurDirection >= 0 && effect.blurDirection <= 3 ? effect.blurDirection : 0;
        s.invert = effect.invertColors != 0;
        s.smooth = effect.removeJaggies != 0;
        s.colors = PatternColors(effect);
        s.border = OfColorF(effect.borderColor);
        s.noiseSeed = Hash(options.seed, 0x7A6E);
        const std::vector<Site> sites = ScatterSites(part, effect.referencePoints, options.seed);
        const float area =
            static_cast<float>(part.right - part.left) * static_cast<float>(part.top - part.bottom);
        s.cell = std::max(1.0f, std::sqrt(area / (3.14159265f * sites.size())));
        s.swirl = Clamped(effect.swirl, -1, 1, 0) * kTwoPi / s.cell;
        s.rough = Clamped(effect.roughness, 0, 1, 0) * 4.0f;
        if (s.type == 1 || s.type == 10 || s.type == 12) {
            std::vector<ColorRGB> ramp;
            for (const FloatColor& c : s.colors)
                ramp.push_back(ColorRGB(static_cast<unsigned char>(c.r + 0.5f),
                                        static_cast<unsigned char>(c.g + 0.5f),
                                        static_cast<unsigned char>(c.b + 0.5f)));
            RampSettings settings;
            settings.colors = ramp.data();
            settings.count = static_cast<int>(ramp.size());
            settings.mix = 1.0f;
            if (s.ramp.Build(settings) != 0) return -2;
        }
        if (UsesImage(s.type)) {
            const int prepared = PrepareImage(s, *effect.image, effect.imageSize);
            if (prepared != 0) return prepared == -2 ? -2 : 0;
        }
        return Paint(s, sites, picture, part, options.threads);
    } catch (const std::bad_alloc&) {
        return -2;
    }
}

}  // namespace vellrender
