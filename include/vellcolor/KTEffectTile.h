// Parameters of the tile effect, filled by the remote control.
#pragma once

#include "ColorRGB.h"

class KTEffectTile {
  public:
    KTEffectTile();
    ~KTEffectTile();
    KTEffectTile(const KTEffectTile&) = delete;
    KTEffectTile& operator=(const KTEffectTile&) = delete;

    void SetShape(int value) { shape = value; }
    int GetShape() const { return shape; }
    void SetTileSize(float w, float h);
    void GetTileSize(float* w, float* h) const {
        *w = width;
        *h = height;
    }
    void SetSeamWidth(float value) { seamWidth = value < 0.0f ? 0.0f : value; }
    void SetCorner(int round, float cut);
    void SetTransparentSeam(int value) { transparentSeam = value; }
    void SetRowShift(float value) { rowShift = value; }
    void SetAngle(float degrees) { angle = degrees; }
    float GetAngle() const { return angle; }
    void SetColoring(int value) { coloring = value; }
    void SetSeamColor(const ColorRGB& color) { seamColor = color; }

    // Copies `count` colors (any count); -2 when out of memory.
    int SetColors(int count, const ColorRGB* source);

    int shape;  // 0 square, 1 circle, 2 triangle, 3 hexagon
    float width;
    float height;
    float rowShift;
    float seamWidth;
    int transparentSeam;
    int roundCorners;
    float cornerCut;  // 0..1
    float angle;
    int coloring;  // coloring mode code
    int colorCount;
    ColorRGB* colors;  // malloc'd, colorCount entries
    ColorRGB seamColor;
};
