// Parameters of the image mapping effect, filled by the remote control.
#pragma once

#include "BitmapImage.h"

class KTMapping {
  public:
    KTMapping();
    ~KTMapping();
    KTMapping(const KTMapping&) = delete;
    KTMapping& operator=(const KTMapping&) = delete;

    // Holds a 24-bit copy of `source`.
    int SetImage(const BitmapImage& source);
    void SetRepeat(int value) { repeat = value; }
    void SetSeamless(int value) { seamless = value; }
    void SetFitWhole(int value) { fitWhole = value; }
    void SetScale(float value) { scale = value; }
    void SetAngle(float degrees) { angle = degrees; }
    void SetAssigned(int value) { assigned = value; }

    BitmapImage* image;  // owned, from BitmapImage::NewEmpty
    int repeat;
    int seamless;
    int fitWhole;
    float scale;
    float angle;
    int assigned;
};
