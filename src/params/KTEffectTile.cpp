#include "vellcolor/KTEffectTile.h"

#include "ColorBuffer.h"
#include "vellcolor/ColorF.h"

KTEffectTile::KTEffectTile()
    : shape(0),
      width(10.0f),
      height(10.0f),
      rowShift(0.0f),
      seamWidth(0.0f),
      transparentSeam(0),
      roundCorners(0),
      cornerCut(0.0f),
      angle(0.0f),
      coloring(0),
      colorCount(0),
      colors(nullptr),
      seamColor(ColorF(0, 0, 0).ToRGB()) {}

KTEffectTile::~KTEffectTile() {
    FreeColors(&colors);
    colorCount = 0;
}

void KTEffectTile::SetTileSize(float w, float h) {
    width = w <= 0.0f ? 1.0f : w;
    height = h <= 0.0f ? 1.0f : h;
}

void KTEffectTile::SetCorner(int round, float cut) {
    roundCorners = round;
    cornerCut = cut < 0.0f ? 0.0f : (cut > 1.0f ? 1.0f : cut);
}

int KTEffectTile::SetColors(int count, const ColorRGB* source) {
    FreeColors(&colors);
    colorCount = 0;
    colorCount = count;
    return CopyColors(count, source, &colors);
}
