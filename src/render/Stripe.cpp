// The stripe effect: straight bands of the effect's colors, one every
// `interval` px across them, each shaded across its width by a texture
// (StripeTexture.h, the functions the panel's sample buttons draw with).
//
// | field                  | in the picture                                                   |
// |------------------------|------------------------------------------------------------------|
// | interval               | px from one band's centre line to the next, across the bands;    |
// |                        | band k's centre line lies k x interval from the box's centre, k  |
// |                        | growing to the right (upward for horizontal bands); 1 to 1e6,    |
// |                        | NaN 20                                                           |
// | patternWidth           | the band's share of the interval: half-width                     |
// |                        | r = patternWidth x interval / 2; 0.01 to 1, NaN 0.5              |
// | direction              | 1 horizontal bands, 2 vertical, 3 both (a grid), 4 rising        |
// |                        | diagonal (lower left to upper right), 5 falling diagonal, 6 both |
// |                        | diagonals; an unknown code paints as 1                           |
// | colors                 | band k has colors[k mod N], k negative too; none: black, white   |
// | texture                | a band shows with weight coverage x                              |
// |                        | StripeTextureFactor(texture, d / r, grain), limited to 1, where  |
// |                        | d is the distance from its centre line:                          |
// |                        | color = background + (band - background) x weight;               |
// |                        | an unknown code paints as 0                                      |
// | intersectionBrightness | where bands of the two families cross (3 and 6; the second,     |
// |                        | vertical or falling, lies over the first): 0.5 leaves the        |
// |                        | crossing as it is, 0 makes it black, 1 white, between in         |
// |                        | proportion, with strength wa x wb; 0 to 1, NaN 0.5               |
// | backgroundMode         | 0 fills between the bands with backgroundColor, 1 keeps the      |
// |                        | part's own pixels there; any other value counts as 0             |
// | backgroundColor        | the background of mode 0                                         |
// | reserved1, reserved2   | nothing                                                          |
//
// Coverage is the share of the pixel's footprint across the bands (one px
// wide) inside the band, so band edges are smooth; for the noise-free
// textures the factor is the mean over sub-samples of that footprint, so
// the inner steps of textures 5-7 are smooth too. The grain of textures 1
// and 2 is a 256 x 256 tile of bytes hashed from options.seed, repeated over
// the picture: pixel (x, y) reads (x & 255, y & 255); texture 2 reads the
// tile's 3 x 3 box mean there, wrapping round the tile.
#include <algorithm>
#include <cmath>
#include <cstring>
#include <new>

#include "params/StripeTexture.h"
#include "render/RenderCore.h"

namespace vellrender {

namespace {

const int kNoiseSize = 256;  // a power of two, so a coordinate wraps with a mask
const int kNoiseMask = kNoiseSize - 1;
const float kEntriesPerPixel = 32.0f;
const int kMaxEntries = 4096;  // whatever the interval
const int kSubSamples = 8;

// The grain: byte (i, j) at j * kNoiseSize + i, four bytes from each hash.
std::vector<unsigned char> NoiseTile(unsigned int seed, bool boxMean) {
    std::vector<unsigned char> tile(kNoiseSize * kNoiseSize);
    for (int j = 0; j < kNoiseSize; ++j) {
        for (int i = 0; i < kNoiseSize; i += 4) {
            const std::uint32_t h = Hash(seed, i, j);
            for (int b = 0; b < 4; ++b) tile[j * kNoiseSize + i + b] = (h >> 8 * b) & 255;
        }
    }
    if (!boxMean) return tile;
    // Sums of three along the rows, then of three of those along the columns.
    std::vector<int> rows(tile.size());
    for (int j = 0; j < kNoiseSize; ++j) {
        const unsigned char* row = &tile[j * kNoiseSize];
        for (int i = 0; i < kNoiseSize; ++i)
            rows[j * kNoiseSize + i] =
                row[(i - 1) & kNoiseMask] + row[i] + row[(i + 1) & kNoiseMask];
    }
    for (int j = 0; j < kNoiseSize; ++j) {
        const int* below = &rows[((j - 1) & kNoiseMask) * kNoiseSize];
        const int* above = &rows[((j + 1) & kNoiseMask) * kNoiseSize];
        for (int i = 0; i < kNoiseSize; ++i) {
            const int sum = below[i] + rows[j * kNoiseSize + i] + above[i];
            tile[j * kNoiseSize + i] = static_cast<unsigned char>((sum + 4) / 9);
        }
    }
    return tile;
}

// How a pixel lies among a family's bands: the nearest band and the
// neighbour on the pixel's side, with their color indices and weights. For
// the noisy textures the weights are coverages still to be multiplied by
// the texture at t and tn, which depend on the grain.
struct Mark {
    float w, wn;
    float t, tn;
    int band, neighbour;
};

// How the bands show across their width and which colors they have; both
// families of a grid share it.
class Profile {
  public:
    explicit Profile(const KTEffectStripe& effect)
        : interval_(Clamped(effect.interval, 1.0f, 1e6f, 20.0f)),
          r_(0.5f * interval_ * Clamped(effect.patternWidth, 0.01f, 1.0f, 0.5f)),
          texture_(effect.texture >= 0 && effect.texture < kTextureCount ? effect.texture : 0),
          noisy_(TextureReadsNoise(texture_)) {
        const std::vector<ColorRGB> colors = EffectColors(effect.colors, effect.colorCount);
        count_ = static_cast<int>(colors.size());
        colors_.push_back(Bgr(colors.back()));
        for (const ColorRGB& c : colors) colors_.push_back(Bgr(c));
        colors_.push_back(Bgr(colors.front()));
        if (!noisy_) BuildFactors();
    }

    bool Noisy() const { return noisy_; }
    int Texture() const { return texture_; }

    // The mark of the points at s across the bands from the box's centre.
    Mark At(double s) const {
        const double k = std::floor(s / interval_ + 0.5);
        const double offset = s - k * interval_;
        long long index = static_cast<long long>(k) % count_;
        if (index < 0) index += count_;
        Mark m;
        m.band = static_cast<int>(index) + 1;
        m.neighbour = offset < 0.0 ? m.band - 1 : m.band + 1;
        const float d = static_cast<float>(std::fabs(offset));
        // A wide band's neighbour may reach into the pixel from its side.
        const float far = interval_ - d;
        m.w = Coverage(d);
        m.wn = Coverage(far);
        m.t = std::min(d / r_, 1.0f);
        m.tn = std::min(far / r_, 1.0f);
        if (!noisy_) {
            m.w *= Factor(d);
            m.wn *= Factor(far);
        }
        return m;
    }

    // Lays the bands of mark m over the color c (blue, green, red), with the
    // grain g there. Returns the weight they show with.
    float Over(const Mark& m, int g, float c[3]) const {
        float w = m.w, wn = m.wn;
        if (w + wn == 0.0f) return 0.0f;
        if (noisy_) {
            w = w > 0.0f ? std::min(w * StripeTextureFactor(texture_, m.t, g), 1.0f) : 0.0f;
            wn = wn > 0.0f ? std::min(wn * StripeTextureFactor(texture_, m.tn, g), 1.0f) : 0.0f;
        }
        const float* a = colors_[m.band].bgr;
        const float* b = colors_[m.neighbour].bgr;
        for (int i = 0; i < 3; ++i) c[i] += (a[i] - c[i]) * w + (b[i] - c[i]) * wn;
        return w + wn;
    }

  private:
    struct Color {
        float bgr[3];
    };
    static Color Bgr(const ColorRGB& c) { return {{float(c.blue), float(c.green), float(c.red)}}; }

    // The share of the footprint [d - 0.5, d + 0.5] inside the band [-r, r].
    float Coverage(float d) const {
        return std::max(std::min(d + 0.5f, r_) - std::max(d - 0.5f, -r_), 0.0f);
    }

    float Factor(float d) const {
        const int entry = static_cast<int>(std::min(d * scale_ + 0.5f, float(kMaxEntries)));
        return factors_[std::min(entry, static_cast<int>(factors_.size()) - 1)];
    }

    // The mean factor over the footprint's sub-samples inside the band, by d
    // from 0 to where the footprint leaves the band.
    void BuildFactors() {
        const float reach = r_ + 0.5f;
        scale_ = std::min(kEntriesPerPixel, (kMaxEntries - 2) / reach);
        factors_.resize(static_cast<std::size_t>(reach * scale_) + 2);
        for (std::size_t j = 0; j < factors_.size(); ++j) {
            const float d = j / scale_;
            float sum = 0.0f;
            int inside = 0;
            for (int m = 0; m < kSubSamples; ++m) {
                const float s = std::fabs(d - 0.5f + (m + 0.5f) / kSubSamples);
                if (s > r_) continue;
                sum += StripeTextureFactor(texture_, s / r_, 0.0f);
                ++inside;
            }
            const float factor =
                inside > 0 ? sum / inside : StripeTextureFactor(texture_, 1.0f, 0.0f);
            factors_[j] = std::min(factor, 1.0f);
        }
    }

    float interval_, r_;
    int texture_;
    bool noisy_;
    float scale_ = 0.0f;  // table entries per px of d
    std::vector<float> factors_;
    int count_ = 0;
    std::vector<Color> colors_;  // colors 1..count_, the last before them, the first after
};

// One family of bands. Its pixels lie alike among the bands along lines
// u = x * ux + y * uy: rows, columns or diagonals, each a px apart across
// the bands (a diagonal's 1 / sqrt 2), so a mark per line does for all.
class Family {
  public:
    Family(int ux, int uy, const Profile& profile, const Part& part) : ux_(ux), uy_(uy) {
        lo_ = std::min(ux * part.left, ux * (part.right - 1)) +
              std::min(uy * part.bottom, uy * (part.top - 1));
        const int hi = std::max(ux * part.left, ux * (part.right - 1)) +
                       std::max(uy * part.bottom, uy * (part.top - 1));
        const Frame frame(part, 0.0f);
        // Pixel centres are at half-integers; the box's centre is s = 0.
        const double origin = 0.5 * (ux + uy) - (ux * frame.cx + uy * frame.cy);
        const double scale = ux != 0 && uy != 0 ? std::sqrt(0.5) : 1.0;
        marks_.resize(static_cast<std::size_t>(hi - lo_) + 1);
        for (int u = lo_; u <= hi; ++u) marks_[u - lo_] = profile.At((u + origin) * scale);
    }

    // The line of (x, y) as an index into the marks; it grows by ux along a row.
    int Line(int x, int y) const { return x * ux_ + y * uy_ - lo_; }
    int Step() const { return ux_; }
    const std::vector<Mark>& Marks() const { return marks_; }

  private:
    int ux_, uy_, lo_;
    std::vector<Mark> marks_;
};

struct Setup {
    const Picture& picture;
    const Part& part;
    const Options& options;
    const Profile& profile;
    const std::vector<unsigned char>& noise;  // empty unless the texture reads it
    float background[3];
};

// A channel 0..255, which it is but for rounding.
inline std::uint32_t Byte(float c) {
    return static_cast<std::uint32_t>(std::min(std::max(static_cast<int>(c + 0.5f), 0), 255));
}

// Blue, green, red in the low three bytes, to be written four at a time.
inline std::uint32_t Pack(const float c[3]) {
    return Byte(c[0]) | Byte(c[1]) << 8 | Byte(c[2]) << 16;
}

// Repeats the first `have` bytes of out until `total` bytes are filled.
void Repeat(unsigned char* out, std::size_t have, std::size_t total) {
    while (have < total) {
        const std::size_t n = std::min(have, total - have);
        std::memcpy(out + have, out, n);
        have += n;
    }
}

// One family over a filled background, noise-free: a pixel's color is its
// line's, so each line's color is made once and the rows look them up (a
// row runs along one line or across them, one a pixel).
int PaintLines(const Setup& c, const Family& family) {
    std::vector<std::uint32_t> colors;
    colors.reserve(family.Marks().size());
    for (const Mark& m : family.Marks()) {
        float color[3] = {c.background[0], c.background[1], c.background[2]};
        c.profile.Over(m, 0, color);
        colors.push_back(Pack(color));
    }
    const int step = family.Step();
    return PaintRows(c.picture, c.part, c.options.threads,
                     [&](int y, int x0, int x1, unsigned char* out) {
                         const std::uint32_t* line = colors.data() + family.Line(x0, y);
                         if (step == 0) {
                             PutPacked(out, line[0]);
                             Repeat(out, 3, 3 * static_cast<std::size_t>(x1 - x0));
                             return;
                         }
                         for (int i = 0; i < x1 - x0; ++i) PutPacked(out + 3 * i, line[i]);
                     });
}

// Horizontal bands with grain over a filled background: a row's colors
// depend only on the grain, which repeats every kNoiseSize px, so a tile's
// width is shaded from a table by grain and copied along.
int PaintGrainRows(const Setup& c, const Family& rows) {
    return PaintRows(
        c.picture, c.part, c.options.threads, [&](int y, int x0, int x1, unsigned char* out) {
            const Mark& m = rows.Marks()[rows.Line(x0, y)];
            const std::size_t bytes = 3 * static_cast<std::size_t>(x1 - x0);
            float color[3] = {c.background[0], c.background[1], c.background[2]};
            if (m.w + m.wn == 0.0f) {
                PutPacked(out, Pack(color));
                Repeat(out, 3, bytes);
                return;
            }
            std::uint32_t byGrain[256];
            for (int g = 0; g < 256; ++g) {
                std::copy(c.background, c.background + 3, color);
                c.profile.Over(m, g, color);
                byGrain[g] = Pack(color);
            }
            const unsigned char* grain = c.noise.data() + (y & kNoiseMask) * kNoiseSize;
            const int first = std::min(x1 - x0, kNoiseSize);
            for (int i = 0; i < first; ++i)
                PutPacked(out + 3 * i, byGrain[grain[(x0 + i) & kNoiseMask]]);
            Repeat(out, 3 * static_cast<std::size_t>(first), bytes);
        });
}

// Anything: one family or two, grain, the part's own background.
int PaintPixels(const Setup& c, const Family& first, const Family* second, float brightness,
                bool keepBackground) {
    // Toward black below 0.5, toward white above.
    const float target = brightness > 0.5f ? 255.0f : 0.0f;
    const float crossing = 2.0f * std::fabs(brightness - 0.5f);
    return PaintRows(
        c.picture, c.part, c.options.threads, [&](int y, int x0, int x1, unsigned char* out) {
            const unsigned char* grain =
                c.noise.empty() ? nullptr : c.noise.data() + (y & kNoiseMask) * kNoiseSize;
            const Mark* a = first.Marks().data() + first.Line(x0, y);
            const Mark* b = second ? second->Marks().data() + second->Line(x0, y) : nullptr;
            for (int i = 0; i < x1 - x0; ++i) {
                float color[3] = {c.background[0], c.background[1], c.background[2]};
                if (keepBackground) {
                    const unsigned char* p = PixelAt(c.picture, x0 + i, y);
                    for (int k = 0; k < 3; ++k) color[k] = p[k];
                }
                const int g = grain ? grain[(x0 + i) & kNoiseMask] : 0;
                const float wa = c.profile.Over(a[i * first.Step()], g, color);
                if (b != nullptr) {
                    const float wb = c.profile.Over(b[i * second->Step()], g, color);
                    const float strength = crossing * wa * wb;
                    if (strength > 0.0f) {
                        for (int k = 0; k < 3; ++k) color[k] += (target - color[k]) * strength;
                    }
                }
                PutPacked(out + 3 * i, Pack(color));
            }
        });
}

int Paint(const KTEffectStripe& effect, const Picture& picture, const Part& part,
          const Options& options) {
    const Profile profile(effect);
    std::vector<unsigned char> noise;
    if (profile.Noisy()) noise = NoiseTile(options.seed, TextureReadsBoxNoise(profile.Texture()));
    const ColorRGB& bg = effect.backgroundColor;
    const Setup c{picture, part,  options,
                  profile, noise, {float(bg.blue), float(bg.green), float(bg.red)}};
    const bool keepBackground = effect.backgroundMode == 1;
    const float brightness = Clamped(effect.intersectionBrightness, 0.0f, 1.0f, 0.5f);
    // By direction, (ux, uy) of the first family's lines and of a grid's second:
    // u = y for horizontal bands, x for vertical, x - y rising, x + y falling.
    const int lines[7][4] = {{}, {0, 1}, {1, 0}, {0, 1, 1, 0}, {1, -1}, {1, 1}, {1, -1, 1, 1}};
    const int direction = effect.direction >= 1 && effect.direction <= 6 ? effect.direction : 1;
    const int* u = lines[direction];
    const Family first(u[0], u[1], profile, part);
    if (direction == 3 || direction == 6) {
        const Family second(u[2], u[3], profile, part);
        return PaintPixels(c, first, &second, brightness, keepBackground);
    }
    if (keepBackground) return PaintPixels(c, first, nullptr, brightness, true);
    if (!profile.Noisy()) return PaintLines(c, first);
    if (first.Step() == 0) return PaintGrainRows(c, first);
    return PaintPixels(c, first, nullptr, brightness, false);
}

}  // namespace

int RenderStripe(const KTEffectStripe& effect, const Picture& picture, const Part& part,
                 const Options& options) {
    const int check = CheckTarget(picture, part);
    if (check != 0 || part.Empty()) return check;
    try {
        return Paint(effect, picture, part, options);
    } catch (const std::bad_alloc&) {
        return -2;
    }
}

}  // namespace vellrender
