// The bitmap reader on files the tests write: the depths, each refusal with its code, quirks.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <string>

#include "BmpWriter.h"
#include "vellcolor/BitmapImage.h"
#include "vellcolor/ErrorCode.h"

namespace {

int Load(BitmapImage* image, const std::vector<std::uint8_t>& file,
         const std::string& name = "image.bmp") {
    WriteFile(::testing::TempDir() + name, file);
    return image->LoadFile((::testing::TempDir() + name).c_str());
}

// A distinct byte for every pixel byte of a small picture.
std::uint8_t Pattern(int x, int row, int byte) {
    return static_cast<std::uint8_t>(x * 40 + row * 7 + byte);
}

BmpLayout Layout(int w, int h, int bitCount = 24) {
    BmpLayout layout(w, h, bitCount);
    layout.pixel = Pattern;
    return layout;
}

// Blue, green, red at (x, y), y counted from the bottom row.
std::vector<int> BGR(const BitmapImage& image, int x, int y) {
    const unsigned char* p = image.PixelAt(x, y);
    return {p[0], p[1], p[2]};
}

const std::vector<int> kBlack = {0, 0, 0};

std::vector<int> PatternAt(int x, int row) {
    return {Pattern(x, row, 0), Pattern(x, row, 1), Pattern(x, row, 2)};
}

TEST(BitmapImageTest, EightBitsKeepTheirPaletteAndConvertToBlueGreenRed) {
    BmpLayout layout = Layout(3, -2, 8);
    layout.colorsUsed = 4;
    layout.palette = {0x112233, 0xFF0000, 0x00FF00, 0x0000FF};
    layout.pixel = [](int x, int row, int) { return x == 2 ? 7 : x + row; };
    BitmapImage image;
    ASSERT_EQ(Load(&image, MakeBmp(layout)), kOk);
    ASSERT_EQ(image.paletteCount, 4);
    EXPECT_EQ(image.palette[0], 0x11);     // red, green, blue
    EXPECT_EQ(image.PixelAt(1, 1)[0], 1);  // the top row is stored last

    ASSERT_EQ(image.ConvertTo24Bit(), kOk);
    EXPECT_TRUE(image.paletteCount == 0 && image.stride == 12);  // rows padded to 4 bytes
    EXPECT_EQ(BGR(image, 0, 1), (std::vector<int>{0x33, 0x22, 0x11}));
    EXPECT_EQ(BGR(image, 1, 0), (std::vector<int>{0, 0xFF, 0}));
    EXPECT_EQ(BGR(image, 2, 0), kBlack);  // index 7 lies beyond the palette
    EXPECT_TRUE(image.ConvertTo24Bit() == kOk && image.bytesPerPixel == 3);  // nothing left to do
}

TEST(BitmapImageTest, SixteenBitsArePlainFiveFiveFiveOrOneOfTwoMaskLayouts) {
    const struct {
        std::vector<std::uint32_t> masks;  // empty: plain
        std::uint16_t word;
        std::vector<int> bgr;  // empty: refused
    } cases[] = {
        {{}, 0x7FFF, {248, 248, 248}},
        {{0xF800, 0x07E0, 0x001F}, 0xF800, {0, 0, 248}},
        {{0xF800, 0x07E0, 0x001F}, 0x07E0, {0, 252, 0}},
        {{0x7C00, 0x03E0, 0x001F}, 0x03E1, {8, 248, 0}},
        {{0x0F00, 0x00F0, 0x000F}, 0, {}},
    };
    for (const auto& c : cases) {
        BmpLayout layout = Layout(1, -1, 16);
        layout.compression = c.masks.empty() ? 0 : 3;
        layout.masks = c.masks;
        layout.pixel = [&](int, int, int byte) { return byte == 0 ? c.word & 0xFF : c.word >> 8; };
        BitmapImage image;
        ASSERT_EQ(Load(&image, MakeBmp(layout)), c.bgr.empty() ? kErrorUnsupportedFormat : kOk);
        EXPECT_TRUE(c.bgr.empty() || BGR(image, 0, 0) == c.bgr) << c.word;
    }
}

TEST(BitmapImageTest, RefusalsGiveTheirCodeAndKeepTheEarlierPicture) {
    BitmapImage image;
    const std::vector<std::uint8_t> good = MakeBmp(Layout(8, 8));
    ASSERT_EQ(Load(&image, good), kOk);
    std::vector<std::pair<std::vector<std::uint8_t>, int>> cases;
    // Bit count, compression, header size.
    const std::uint32_t formats[][3] = {{1, 0, 40},  {4, 0, 40},   {8, 1, 40},
                                        {4, 2, 40},  {24, 3, 40},  {8, 3, 40},
                                        {24, 0, 12}, {24, 0, 108}, {32, 4, 40}};
    for (const auto& f : formats)
        cases.push_back({MakeBmp(BmpLayout(4, 2, int(f[0]), f[1], f[2])), kErrorUnsupportedFormat});
    // Zero and absurd sizes are refused before allocating; so is a small
    // image size in the header with an 8000 x 8000 picture and no rows.
    const std::int32_t sizes[][3] = {{0, 4, 0},           {-3, 4, 0},         {4, 0, 0},
                                     {100000, 100000, 0}, {0x7FFFFFFF, 1, 0}, {1, INT32_MIN, 0},
                                     {8000, 8000, 1}};
    for (const auto& size : sizes) {
        std::vector<std::uint8_t> file = MakeBmp(BmpLayout());
        for (int i = 0; i < 12; ++i)  // width, height and image size, little-endian
            file[(i < 8 ? 18 : 26) + i] = static_cast<std::uint32_t>(size[i / 4]) >> (8 * (i % 4));
        cases.push_back({file, size[2] == 0 ? kErrorUnsupportedFormat : kErrorFileRead});
    }
    std::vector<std::uint8_t> notBmp = good;
    notBmp[0] = 'P';
    cases.push_back({notBmp, kErrorFileRead});
    // The loader's block carries 14 zero bytes past the file, so a file
    // short by more than that is missing pixel data.
    const std::size_t keeps[] = {0, 2, 13, 14, 20, 53, 100, 150, good.size() - 15};
    for (std::size_t keep : keeps)
        cases.push_back(
            {std::vector<std::uint8_t>(good.begin(), good.begin() + keep), kErrorFileRead});
    BmpLayout palette = Layout(1, 1, 8);  // a color table that runs past the file
    palette.colorsUsed = 1000000;
    cases.push_back({MakeBmp(palette), kErrorFileRead});

    for (std::size_t i = 0; i < cases.size(); ++i) {
        EXPECT_EQ(Load(&image, cases[i].first), cases[i].second) << "case " << i;
        ASSERT_EQ(image.width, 8) << "case " << i;
        EXPECT_EQ(BGR(image, 7, 7), PatternAt(7, 7));
    }
}

TEST(BitmapImageTest, ExtensionMustBeExactlyLowerOrUpperBmp) {
    BitmapImage image;
    for (const char* name : {"a.Bmp", "a.png", "a"})
        EXPECT_EQ(Load(&image, MakeBmp(BmpLayout()), name), kErrorUnsupportedFormat) << name;
    EXPECT_EQ(Load(&image, MakeBmp(BmpLayout()), "UPPER.BMP"), kOk);
    EXPECT_EQ(image.LoadFile((::testing::TempDir() + "missing.bmp").c_str()), kErrorFileOpen);
}

TEST(BitmapImageTest, QuirksOfWellFormedFiles) {
    // Plain 32-bit rows are read 12 bytes late, as if masks were there: row 0
    // starts at the second pixel of row 1, and what lies past the file is zero.
    BitmapImage image;
    ASSERT_EQ(Load(&image, MakeBmp(Layout(2, 2, 32))), kOk);
    EXPECT_EQ(BGR(image, 0, 0), PatternAt(1, 1));
    EXPECT_EQ(BGR(image, 1, 0), kBlack);
    EXPECT_EQ(BGR(image, 0, 1), kBlack);
    // The header's image size bounds the copy but never runs past the picture.
    BmpLayout layout = Layout(4, 2);
    layout.sizeImage = 0x7FFFFFF0;
    ASSERT_EQ(Load(&image, MakeBmp(layout)), kOk);
    EXPECT_EQ(BGR(image, 3, 1), PatternAt(3, 1));
    layout.sizeImage = 12;
    ASSERT_EQ(Load(&image, MakeBmp(layout)), kOk);
    EXPECT_EQ(BGR(image, 3, 0), PatternAt(3, 0));
    EXPECT_EQ(BGR(image, 0, 1), kBlack);
}

TEST(BitmapImageTest, CopyTakesTheNameAndRefusesNothingOfItsOwn) {
    BitmapImage image, copy;
    ASSERT_EQ(image.Create(3, 2, 3, 0), kOk);
    image.name = static_cast<char*>(std::malloc(6));
    std::memcpy(image.name, "sky.b", 6);
    ASSERT_EQ(copy.Copy(image), kOk);
    EXPECT_STREQ(copy.name, "sky.b");
    EXPECT_TRUE(copy.Copy(copy) == kOk && copy.width == 3);  // onto itself
    EXPECT_EQ(copy.Create(-1, 1, 3, 0), kErrorInvalidParameter);
    EXPECT_EQ(copy.pixels, nullptr);
}

TEST(BitmapImageTest, SetBitsExpandsSmallPixelsRowByRow) {
    BitmapImage image;
    ASSERT_EQ(image.Create(8, 2, 1, 0), kOk);
    const unsigned char bits[8] = {0xA5, 0, 0, 0, 0x0F, 0, 0, 0};
    image.SetBits(8, bits, 4, 1);
    // Each bit becomes a byte, most significant first; a source row narrower than
    // ours then loses its first (stride - source stride) bytes to zeros, as ever.
    EXPECT_EQ(std::vector<int>(image.pixels, image.pixels + 16),
              (std::vector<int>{0, 0, 0, 0, 0, 1, 0, 1, 0, 0, 0, 0, 1, 1, 1, 1}));
    const unsigned char nibbles[8] = {0x12, 0x34, 0x56, 0x78, 0x9A, 0xBC, 0xDE, 0xF0};
    image.SetBits(8, nibbles, 4, 4);
    EXPECT_EQ(std::vector<int>(image.pixels, image.pixels + 16),
              (std::vector<int>{0, 0, 0, 0, 5, 6, 7, 8, 0, 0, 0, 0, 0xD, 0xE, 0xF, 0}));
}

}  // namespace
