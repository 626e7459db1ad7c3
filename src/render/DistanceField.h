// The exact Euclidean distance from every pixel of a part's box to the
// nearest pixel outside the part (coverage below 128, or beyond the box), in
// linear time: a pass down the columns, then the lower envelope of parabolas
// along each row (Meijster, Roerdink and Hesselink, 2000).
#pragma once

#include <cmath>
#include <cstdint>
#include <vector>

#include "vellcolor/VellRender.h"

namespace vellrender {

class DistanceField {
  public:
    // -2 when the field cannot be had.
    int Compute(const Part& part, int threads);

    // Squared distance, between pixel centres, of pixel (x, y) of the box.
    std::uint32_t Squared(int x, int y) const { return Row(y)[x - left_]; }
    // Row y of the box; entry 0 is pixel (left, y).
    const std::uint32_t* Row(int y) const {
        return squared_.data() + static_cast<std::size_t>(y - bottom_) * width_;
    }
    // Distance of a pixel centre to the part's edge, which runs between the
    // pixels: a pixel next to the outside is 0.5 from it, one outside is 0.
    static float EdgeDistance(std::uint32_t squared) {
        return squared == 0 ? 0.0f : std::sqrt(static_cast<float>(squared)) - 0.5f;
    }
    // The deepest pixel's squared distance.
    std::uint32_t MaxSquared() const { return max_; }

  private:
    std::vector<std::uint32_t> squared_;
    int left_ = 0, bottom_ = 0, width_ = 0;
    std::uint32_t max_ = 0;
};

}  // namespace vellrender
