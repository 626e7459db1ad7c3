// Shared by the parameter objects that own a picture.
#pragma once

#include "vellcolor/BitmapImage.h"

// Replaces *held by a fresh copy of `source`, converted to 3 bytes per
// pixel; -2 (with *held null) when no image can be had.
int HoldConvertedCopy(BitmapImage** held, const BitmapImage& source);
void ReleaseImage(BitmapImage** held);
