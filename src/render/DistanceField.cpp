#include "render/DistanceField.h"

#include <algorithm>
#include <new>

#include "render/RenderCore.h"

namespace vellrender {

namespace {

// Squared distance from x to the parabola of site i with column height g.
inline std::int64_t Reach(std::int64_t x, std::int64_t i, std::int64_t g) {
    return (x - i) * (x - i) + g * g;
}

// The first x at which site u lies nearer than site i (i < u).
inline std::int64_t Separation(std::int64_t i, std::int64_t u, std::int64_t gi, std::int64_t gu) {
    const std::int64_t num = u * u - i * i + gu * gu - gi * gi;
    const std::int64_t den = 2 * (u - i);
    return num >= 0 ? num / den : -((-num + den - 1) / den);
}

// One row: g holds the column distances of sites 0..n+1, where sites 0 and
// n + 1 are the outside pixels beside the box. out[0..n) gets the squared
// distances of sites 1..n. s and t are scratch of n + 2 entries.
void RowPass(const std::int64_t* g, int n, std::uint32_t* out, int* s, std::int64_t* t) {
    const int count = n + 2;
    int q = 0;
    s[0] = 0;
    t[0] = 0;
    for (int u = 1; u < count; ++u) {
        while (q >= 0 && Reach(t[q], s[q], g[s[q]]) > Reach(t[q], u, g[u])) --q;
        if (q < 0) {
            q = 0;
            s[0] = u;
        } else {
            const std::int64_t w = 1 + Separation(s[q], u, g[s[q]], g[u]);
            if (w < count) {
                ++q;
                s[q] = u;
                t[q] = w;
            }
        }
    }
    for (int u = count - 1; u >= 0; --u) {
        if (u >= 1 && u <= n) out[u - 1] = static_cast<std::uint32_t>(Reach(u, s[q], g[s[q]]));
        if (u == t[q]) --q;
    }
}

}  // namespace

int DistanceField::Compute(const Part& part, int threads) {
    left_ = part.left;
    bottom_ = part.bottom;
    width_ = part.right - part.left;
    const int height = part.top - part.bottom;
    max_ = 0;
    try {
        squared_.assign(static_cast<std::size_t>(width_) * height, 0);
    } catch (const std::bad_alloc&) {
        squared_.clear();
        return -2;
    }
    // Down the columns, in strips of whole columns: the distance to the
    // nearest outside pixel above or below, 0 outside.
    const int strip = 256;
    const int strips = (width_ + strip - 1) / strip;
    ParallelFor(ThreadCount(threads, strips), strips, [&](int index, int) {
        const int x0 = index * strip, x1 = std::min(width_, x0 + strip);
        for (int y = 0; y < height; ++y) {
            const unsigned char* coverage = CoverageAt(part, part.left, part.bottom + y);
            std::uint32_t* row = squared_.data() + static_cast<std::size_t>(y) * width_;
            const std::uint32_t* below = y > 0 ? row - width_ : nullptr;
            for (int x = x0; x < x1; ++x)
                row[x] = coverage[x] >= 128 ? (below ? below[x] + 1 : 1) : 0;
        }
        // The top row's inside pixels are 1 from the outside above the box.
        std::uint32_t* top = squared_.data() + static_cast<std::size_t>(height - 1) * width_;
        for (int x = x0; x < x1; ++x) top[x] = std::min(top[x], 1u);
        for (int y = height - 2; y >= 0; --y) {
            std::uint32_t* row = squared_.data() + static_cast<std::size_t>(y) * width_;
            const std::uint32_t* above = row + width_;
            for (int x = x0; x < x1; ++x) row[x] = std::min(row[x], above[x] + 1);
        }
    });
    // Along the rows, each on its own.
    const int rowsPerUnit = 16;
    const int units = (height + rowsPerUnit - 1) / rowsPerUnit;
    const int workers = ThreadCount(threads, units);
    std::vector<std::vector<std::int64_t>> g(workers), t(workers);
    std::vector<std::vector<int>> s(workers);
    std::vector<std::uint32_t> maxima(workers, 0);
    try {
        for (int w = 0; w < workers; ++w) {
            g[w].assign(width_ + 2, 0);
            t[w].assign(width_ + 2, 0);
            s[w].assign(width_ + 2, 0);
        }
    } catch (const std::bad_alloc&) {
        squared_.clear();
        return -2;
    }
    ParallelFor(workers, units, [&](int unit, int worker) {
        const int y1 = std::min(height, (unit + 1) * rowsPerUnit);
        std::int64_t* sites = g[worker].data();
        for (int y = unit * rowsPerUnit; y < y1; ++y) {
            std::uint32_t* row = squared_.data() + static_cast<std::size_t>(y) * width_;
            for (int x = 0; x < width_; ++x) sites[x + 1] = row[x];
            RowPass(sites, width_, row, s[worker].data(), t[worker].data());
            for (int x = 0; x < width_; ++x) maxima[worker] = std::max(maxima[worker], row[x]);
        }
    });
    max_ = *std::max_element(maxima.begin(), maxima.end());
    return 0;
}

}  // namespace vellrender
