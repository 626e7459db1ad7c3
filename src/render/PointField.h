// The points an isoline pattern is laid out from, and the nearest point of
// every pixel, found row by row from the lower envelope of the points'
// distance parabolas: O(points) per row plus O(1) per pixel, so the cost
// over a picture barely grows with the number of points.
#pragma once

#include <cstdint>
#include <vector>

#include "vellcolor/VellRender.h"

namespace vellrender {

// A point and what its region draws with: a turn for the patterns laid on a
// grid, and bits for everything random in the region.
struct Site {
    float x, y;        // at a pixel centre
    float cosT, sinT;  // the region's turn
    std::uint32_t hash;
};

// `count` sites (at most one per pixel of the box, at most kMaxSites), drawn
// over the part by `seed`: each lands on a covered pixel when a few tries
// find one, and up to kSpreadSites sites keep the best of several candidates
// so they spread evenly. An empty part gives none.
const int kMaxSites = 4096;
const int kSpreadSites = 256;
std::vector<Site> ScatterSites(const Part& part, int count, std::uint32_t seed);

// The nearest site along rows. One per thread: it keeps the row's envelope.
class NearestSites {
  public:
    explicit NearestSites(const std::vector<Site>& sites);
    // nearest[i] = the index of the site nearest to the centre of pixel
    // (x0 + i, y), i < n; ties go to either.
    void Row(int y, int x0, int n, int* nearest);

  private:
    const std::vector<Site>& sites_;
    std::vector<int> byX_;        // site indices sorted by x
    std::vector<int> hull_;       // the envelope's sites, left to right
    std::vector<double> breaks_;  // breaks_[k]: where hull_[k] starts
};

}  // namespace vellrender
