#include "render/PointField.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "render/RenderCore.h"

namespace vellrender {

namespace {

// A covered pixel of the box drawn from the hash stream (seed, index, try).
void DrawPixel(const Part& part, std::uint32_t seed, int index, float* x, float* y) {
    const int w = part.right - part.left, h = part.top - part.bottom;
    for (int attempt = 0; attempt < 16; ++attempt) {
        const std::uint32_t a = Hash(seed, index, attempt, 1);
        const std::uint32_t b = Hash(seed, index, attempt, 2);
        const int px = part.left + static_cast<int>(a % static_cast<std::uint32_t>(w));
        const int py = part.bottom + static_cast<int>(b % static_cast<std::uint32_t>(h));
        *x = px + 0.5f;
        *y = py + 0.5f;
        if (*CoverageAt(part, px, py) >= 128) return;
    }
}

}  // namespace

std::vector<Site> ScatterSites(const Part& part, int count, std::uint32_t seed) {
    std::vector<Site> sites;
    if (part.Empty()) return sites;
    const long long area =
        static_cast<long long>(part.right - part.left) * (part.top - part.bottom);
    count = static_cast<int>(std::max(1LL, std::min<long long>({count, kMaxSites, area})));
    sites.reserve(count);
    const int candidates = count <= kSpreadSites ? 6 : 1;
    for (int i = 0; i < count; ++i) {
        Site best{};
        float bestGap = -1.0f;
        for (int c = 0; c < candidates; ++c) {
            Site s{};
            DrawPixel(part, seed, i * candidates + c, &s.x, &s.y);
            float gap = std::numeric_limits<float>::max();
            for (const Site& o : sites)
                gap = std::min(gap, (s.x - o.x) * (s.x - o.x) + (s.y - o.y) * (s.y - o.y));
            if (gap > bestGap) {
                bestGap = gap;
                best = s;
            }
        }
        best.hash = Hash(seed, i, 0x51735);
        const float turn = Unit(best.hash) * 6.28318530718f;
        best.cosT = std::cos(turn);
        best.sinT = std::sin(turn);
        sites.push_back(best);
    }
    return sites;
}

NearestSites::NearestSites(const std::vector<Site>& sites)
    // The envelope is written for every row and read for every pixel: the
    // spare entries keep it off the cache lines of another thread's scratch.
    : sites_(sites), byX_(sites.size()), hull_(sites.size() + 32), breaks_(sites.size() + 32) {
    for (std::size_t i = 0; i < sites.size(); ++i) byX_[i] = static_cast<int>(i);
    std::stable_sort(byX_.begin(), byX_.end(),
                     [&](int a, int b) { return sites[a].x < sites[b].x; });
}

void NearestSites::Row(int y, int x0, int n, int* nearest) {
    if (sites_.empty()) return;
    // Along the row, site i's squared distance is (x - xi)^2 + fi: a
    // parabola. The envelope keeps the lowest ones left to right, each from
    // where it undercuts the one before (Felzenszwalb and Huttenlocher).
    const double yc = y + 0.5;
    auto f = [&](int i) {
        const double dy = yc - sites_[i].y;
        return dy * dy;
    };
    const double inf = std::numeric_limits<double>::infinity();
    int k = -1;
    for (int q : byX_) {
        const double xq = sites_[q].x, fq = f(q);
        double s = -inf;
        while (k >= 0) {
            const int v = hull_[k];
            const double xv = sites_[v].x;
            if (xq == xv) {
                // One column: the nearer of the two is all that counts.
                if (fq >= f(v)) break;
                --k;
                continue;
            }
            s = ((fq + xq * xq) - (f(v) + xv * xv)) / (2.0 * (xq - xv));
            if (s > breaks_[k]) break;
            --k;
        }
        if (k >= 0 && xq == sites_[hull_[k]].x) continue;  // the kept one is nearer
        ++k;
        hull_[k] = q;
        breaks_[k] = k == 0 ? -inf : s;
    }
    breaks_[k + 1] = inf;
    int j = 0;
    for (int i = 0; i < n; ++i) {
        const double xc = x0 + i + 0.5;
        while (breaks_[j + 1] <= xc) ++j;
        nearest[i] = hull_[j];
    }
}

}  // namespace vellrender
