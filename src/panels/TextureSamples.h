// The grey sample pictures on the stripe panel's eight texture buttons: one
// horizontal band drawn into a coverage grid, shaded by the texture's
// function and written out as a 24-bit image. Portable; the panel only
// draws the images.
#pragma once

#include <cstddef>
#include <vector>

#include "params/StripeTexture.h"

class BitmapImage;

// Fills a grid's noise map, row by row, with integers 0..255.
class NoiseSource {
  public:
    virtual ~NoiseSource() = default;
    virtual void Fill(unsigned char* bytes, std::size_t count) = 0;
};

// Draws from the module generator, reseeding it before every map: with the
// current time in seconds (as the panel does, so maps made within one second
// are equal) or with a fixed seed.
class GeneratorNoise : public NoiseSource {
  public:
    GeneratorNoise() = default;
    explicit GeneratorNoise(unsigned int seed) : fixedSeed_(true), seed_(seed) {}
    void Fill(unsigned char* bytes, std::size_t count) override;

  private:
    bool fixedSeed_ = false;
    unsigned int seed_ = 0;
};

// w x h cells, laid out as the picture's pixels: x runs right and y up, so
// row 0 is the bottom row and the noise map is filled from the bottom.
class CoverageGrid {
  public:
    struct Cell {
        float coverage = 0.0f;
        float color[3] = {0.0f, 0.0f, 0.0f};
        float t = -1.0f;  // place across the band: 0 on its centre line, 1 at its edge
    };

    // Empty cells and a fresh noise map. -4 for a size below 1x1, -2 when
    // the memory cannot be had; the grid is then empty.
    int Create(int width, int height, NoiseSource& noise);

    // The band along the horizontal line y = centreY across the whole grid,
    // drawn into empty cells; the samples need no compositing over a band.
    void DrawHorizontalBand(int centreY, float bandWidth, const float color[3]);
    // The sample's band: centre line at height / 2 (integer), width 0.6 x height, red.
    void DrawSampleBand();
    // Multiplies each covered cell's coverage by the texture's mean factor.
    void ApplyTexture(int texture);
    // Grey 255 - 255 x coverage of cell (x, y) into pixel (x, y). The image
    // must be width x height, 24-bit.
    void WriteGrey(BitmapImage* image) const;

    // T(i, t, x, y) at the point (x, y) of the grid.
    float TextureFactor(int texture, float t, float x, float y) const;

    const Cell& CellAt(int x, int y) const { return cells_[Index(x, y)]; }
    int NoiseAt(int x, int y) const { return noise_[Index(x, y)]; }

  private:
    std::size_t Index(int x, int y) const { return static_cast<std::size_t>(y) * width_ + x; }
    bool MeanT(float px, float py, float* t) const;
    float MeanNoise(float px, float py) const;

    int width_ = 0;
    int height_ = 0;
    std::vector<Cell> cells_;
    std::vector<unsigned char> noise_;
};

// Renders texture 0..7 as a width x height grey 24-bit image.
// -4 for a bad texture, a size below 1x1 or no image (the image is then left
// alone), -2 when memory runs out.
int RenderTextureSample(int texture, int width, int height, NoiseSource& noise, BitmapImage* image);

// All eight samples; sizes[i] is the client size (width, height) of texture
// i's button. Texture 4 deliberately takes sizes[0] (button 1118), not
// sizes[4]; all texture buttons are one size, so the picture is the same.
// Renders every image it can and returns the first error, else 0. The second
// form is the panel's: noise from the module generator seeded with the time.
int RenderTextureSamples(const int sizes[kTextureCount][2],
                         BitmapImage* const images[kTextureCount], NoiseSource& noise);
int RenderTextureSamples(const int sizes[kTextureCount][2],
                         BitmapImage* const images[kTextureCount]);
