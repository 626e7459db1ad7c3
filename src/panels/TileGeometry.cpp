#include "TileGeometry.h"

#include <cmath>

float TileHeight(int shape, bool brick, int block, int seam, int aspect) {
    if (brick) return static_cast<float>(block * (aspect / 20.0));
    const double sinA = std::sin(kTileAlpha);
    const double tanA = std::tan(kTileAlpha);
    if (shape == kTileTriangle) return static_cast<float>(tanA * block);
    if (shape == kTileHexagon) {
        // Each quotient, and the bracket over 3, in single precision.
        const float s = static_cast<float>(seam);
        const float overSin = static_cast<float>(s / sinA);
        const float overTan = static_cast<float>(s / 2.0f / tanA);
        const float third = (static_cast<float>(block) - overSin + overTan) / 3.0f;
        return static_cast<float>(4.0 * sinA * third + s);
    }
    return static_cast<float>(block);
}
