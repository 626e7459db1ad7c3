// A picture and a part to render into, for the renderer's tests.
#pragma once

#include <functional>
#include <vector>

#include "vellcolor/BitmapImage.h"
#include "vellcolor/VellRender.h"

struct RenderCanvas {
    BitmapImage image;
    std::vector<unsigned char> mask;
    vellrender::Picture picture;
    vellrender::Part part;

    // A w x h picture of one color (grey 100 unless given), with a part where
    // `inside(x, y)` gives the coverage; the whole picture by default.
    RenderCanvas(
        int w, int h, std::function<int(int, int)> inside = [](int, int) { return 255; },
        ColorRGB fill = ColorRGB(100, 100, 100)) {
        image.Create(w, h, 3, 0);
        for (int i = 0; i < w * h; ++i)
            mask.push_back(static_cast<unsigned char>(inside(i % w, i / w)));
        Fill([=](int, int) { return fill; });
        picture = vellrender::Picture::Of(image);
        part = vellrender::Part::OfMask(mask.data(), w, h, w);
    }

    ColorRGB At(int x, int y) const {
        const unsigned char* p = image.PixelAt(x, y);
        return ColorRGB(p[2], p[1], p[0]);
    }
    // Every pixel color(x, y).
    RenderCanvas& Fill(const std::function<ColorRGB(int, int)>& color) {
        for (int i = 0; i < image.width * image.height; ++i) {
            const ColorRGB c = color(i % image.width, i / image.width);
            unsigned char* p = image.PixelAt(i % image.width, i / image.width);
            p[0] = c.blue, p[1] = c.green, p[2] = c.red;
        }
        return *this;
    }
    std::vector<unsigned char> Bytes() const {
        return {image.pixels, image.pixels + image.pixelBytes};
    }
};

// A disc of radius r about (cx, cy), hard-edged.
inline std::function<int(int, int)> Disc(float cx, float cy, float r) {
    return [=](int x, int y) {
        const float dx = x + 0.5f - cx, dy = y + 0.5f - cy;
        return dx * dx + dy * dy <= r * r ? 255 : 0;
    };
}
