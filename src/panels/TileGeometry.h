// The tile height the tile panel hands to the host for each shape.
#pragma once

enum TileShape { kTileSquare = 0, kTileCircle = 1, kTileTriangle = 2, kTileHexagon = 3 };

// The 60-degree angle the tile shapes have always been computed with; kept
// as it is (not the exact pi / 3) so heights stay what hosts expect.
const float kTileAlpha = 1.047253f;

// Height of a tile of `shape` for block size `block` and seam width `seam`.
// A brick row (`brick`) is block * aspect / 20 high whatever the shape.
float TileHeight(int shape, bool brick, int block, int seam, int aspect);
