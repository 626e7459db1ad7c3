// One color as three bytes, red, green, blue. Arrays of ColorRGB are packed
// (three bytes per color) because hosts read them that way.
#pragma once

struct ColorRGB {
    unsigned char red;
    unsigned char green;
    unsigned char blue;

    ColorRGB() : red(0), green(0), blue(0) {}
    ColorRGB(unsigned char r, unsigned char g, unsigned char b) : red(r), green(g), blue(b) {}

    // Windows color value: red | green << 8 | blue << 16.
    unsigned long ToColorRef() const {
        return static_cast<unsigned long>(red) | static_cast<unsigned long>(green) << 8 |
               static_cast<unsigned long>(blue) << 16;
    }
    static ColorRGB FromColorRef(unsigned long ref) {
        return ColorRGB(static_cast<unsigned char>(ref & 0xFF),
                        static_cast<unsigned char>((ref >> 8) & 0xFF),
                        static_cast<unsigned char>((ref >> 16) & 0xFF));
    }
    bool operator==(const ColorRGB& o) const {
        return red == o.red && green == o.green && blue == o.blue;
    }
    bool operator!=(const ColorRGB& o) const { return !(*this == o); }
};

static_assert(sizeof(ColorRGB) == 3, "ColorRGB arrays must be packed three bytes per color");
