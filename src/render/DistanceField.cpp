#include "render/DistanceField.h"

#include <algorithm>
#include <new>

#include "render/RenderCore.h"

namespace vellrender {

namespace {

// One row, as the lower envelope of the parabolas (x - i)^2 + f[i]
// (Felzenszwalb and Huttenlocher, 2012): h[i] = f[i] + i^2 for sites
// 0..n+1, where f is the squared column distance and sites 0 and n + 1 are
// the outside pixels beside the box. out[0..n) gets the squared distances of
// sites 1..n. Where parabola k starts is kept as the fraction
// start[k] / span[k] and compared by cross-multiplying, so no division is
// needed and every comparison is exact. v, start and span are scratch of
// n + 2 entries.
void RowPass(const std::int64_t* h, int n, std::uint32_t* out, int* v, std::int64_t* start,
             std::int64_t* span) {
    int k = 0;
    v[0] = 0;
    for (int q = 1; q <= n + 1; ++q) {
        std::int64_t num, den;
        for (;;) {
            const int p = v[k];
            num = h[q] - h[p];
            den = 2 * static_cast<std::int64_t>(q - p);
            // Parabola q takes over from p at num / den; once that lies at or
            // before where p itself took over, p is hidden everywhere.
            if (k == 0 || num * span[k] > start[k] * den) break;
            --k;
        }
        ++k;
        v[k] = q;
        start[k] = num;
        span[k] = den;
    }
    const int last = k;
    k = 0;
    for (int q = 1; q <= n; ++q) {
        while (k < last && start[k + 1] < q * span[k + 1]) ++k;
        const std::int64_t p = v[k];
        out[q - 1] = static_cast<std::uint32_t>(h[p] - p * p + (q - p) * (q - p));
    }
}

// Distance up from the nearest outside pixel below: 0 outside, else one
// more than the pixel below.
void Upward(const unsigned char* __restrict coverage, const std::uint32_t* __restrict below,
            std::uint32_t* __restrict row, int n) {
    for (int x = 0; x < n; ++x) row[x] = coverage[x] >= 128 ? below[x] + 1 : 0;
}

// The nearer of that and one more than the pixel above.
void Downward(const std::uint32_t* __restrict above, std::uint32_t* __restrict row, int n) {
    for (int x = 0; x < n; ++x) row[x] = std::min(row[x], above[x] + 1);
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
    // nearest outside pixel above or below, 0 outside. Beyond the box is
    // outside: a row of zeros stands below the first row and above the last.
    const int strip = 256;
    const int strips = (width_ + strip - 1) / strip;
    const std::vector<std::uint32_t> zeros(strip, 0);
    ParallelFor(ThreadCount(threads, strips), strips, [&](int index, int) {
        const int x0 = index * strip, n = std::min(width_, x0 + strip) - x0;
        auto row = [&](int y) {
            return squared_.data() + static_cast<std::size_t>(y) * width_ + x0;
        };
        for (int y = 0; y < height; ++y)
            Upward(CoverageAt(part, part.left + x0, part.bottom + y),
                   y > 0 ? row(y - 1) : zeros.data(), row(y), n);
        for (int y = height - 1; y >= 0; --y)
            Downward(y + 1 < height ? row(y + 1) : zeros.data(), row(y), n);
    });
    // Along the rows, each on its own.
    const int rowsPerUnit = 16;
    const int units = (height + rowsPerUnit - 1) / rowsPerUnit;
    const int workers = ThreadCount(threads, units);
    std::vector<std::vector<std::int64_t>> h(workers), start(workers), span(workers);
    std::vector<std::vector<int>> v(workers);
    std::vector<std::uint32_t> maxima(workers, 0);
    try {
        for (int w = 0; w < workers; ++w) {
            h[w].assign(width_ + 2, 0);
            start[w].assign(width_ + 2, 0);
            span[w].assign(width_ + 2, 0);
            v[w].assign(width_ + 2, 0);
        }
    } catch (const std::bad_alloc&) {
        squared_.clear();
        return -2;
    }
    ParallelFor(workers, units, [&](int unit, int worker) {
        const int y1 = std::min(height, (unit + 1) * rowsPerUnit);
        std::int64_t* sites = h[worker].data();
        sites[width_ + 1] = static_cast<std::int64_t>(width_ + 1) * (width_ + 1);
        for (int y = unit * rowsPerUnit; y < y1; ++y) {
            std::uint32_t* row = squared_.data() + static_cast<std::size_t>(y) * width_;
            for (int x = 0; x < width_; ++x) {
                const std::int64_t g = row[x], i = x + 1;
                sites[i] = g * g + i * i;
            }
            RowPass(sites, width_, row, v[worker].data(), start[worker].data(),
                    span[worker].data());
            for (int x = 0; x < width_; ++x) maxima[worker] = std::max(maxima[worker], row[x]);
        }
    });
    max_ = *std::max_element(maxima.begin(), maxima.end());
    return 0;
}

}  // namespace vellrender
