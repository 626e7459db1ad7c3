// The bitmap reader on files the tests write themselves: every accepted
// depth, the row orders and paddings, each refusal with its code, and the
// quirks that well-formed files still go through.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>

#include "BmpWriter.h"
#include "vellcolor/BitmapImage.h"
#include "vellcolor/ErrorCode.h"

namespace {

std::string PathOf(const std::string& name) {
    return ::testing::TempDir() + name;
}

int LoadBytes(BitmapImage* image, const std::vector<std::uint8_t>& file,
              const std::string& name = "image.bmp") {
    WriteFile(PathOf(name), file);
    return image->LoadFile(PathOf(name).c_str());
}

// A distinct byte for every pixel byte of a small picture.
std::uint8_t Pattern(int x, int row, int byte) {
    return static_cast<std::uint8_t>(x * 40 + row * 7 + byte);
}

void ExpectBGR(const BitmapImage& image, int x, int y, int b, int g, int r) {
    const unsigned char* p = image.PixelAt(x, y);
    EXPECT_EQ(p[0], b) << "(" << x << "," << y << ")";
    EXPECT_EQ(p[1], g) << "(" << x << "," << y << ")";
    EXPECT_EQ(p[2], r) << "(" << x << "," << y << ")";
}

TEST(BitmapImageTest, TwentyFourBitsLoadWithTheFirstStoredRowAsRowZero) {
    BmpLayout layout;
    layout.width = 3;
    layout.height = 2;
    layout.pixel = Pattern;
    BitmapImage image;
    ASSERT_EQ(LoadBytes(&image, MakeBmp(layout)), kOk);
    EXPECT_EQ(image.width, 3);
    EXPECT_EQ(image.height, 2);
    EXPECT_EQ(image.bytesPerPixel, 3);
    EXPECT_EQ(image.stride, 12);
    EXPECT_EQ(image.pixelBytes, 24u);
    for (int y = 0; y < 2; ++y) {
        for (int x = 0; x < 3; ++x)
            ExpectBGR(image, x, y, Pattern(x, y, 0), Pattern(x, y, 1), Pattern(x, y, 2));
    }
}

TEST(BitmapImageTest, OddWidthsKeepTheirRowPadding) {
    BmpLayout layout;
    layout.width = 5;
    layout.height = 3;
    layout.pixel = Pattern;
    BitmapImage image;
    ASSERT_EQ(LoadBytes(&image, MakeBmp(layout)), kOk);
    EXPECT_EQ(image.stride, 16);
    ExpectBGR(image, 4, 2, Pattern(4, 2, 0), Pattern(4, 2, 1), Pattern(4, 2, 2));
    EXPECT_EQ(image.pixels[15], 0);

    layout.bitCount = 8;
    layout.palette.assign(256, 0);
    layout.pixel = [](int x, int row, int) { return static_cast<std::uint8_t>(x + 10 * row); };
    ASSERT_EQ(LoadBytes(&image, MakeBmp(layout)), kOk);
    EXPECT_EQ(image.stride, 8);
    EXPECT_EQ(image.PixelAt(4, 2)[0], 24);
}

TEST(BitmapImageTest, TopDownImagesLoadRightWayUp) {
    BmpLayout layout;
    layout.width = 2;
    layout.height = -3;
    layout.pixel = Pattern;
    BitmapImage image;
    ASSERT_EQ(LoadBytes(&image, MakeBmp(layout)), kOk);
    EXPECT_EQ(image.height, 3);
    // The first stored row is the top one, i.e. row 2 bottom-up.
    ExpectBGR(image, 1, 2, Pattern(1, 0, 0), Pattern(1, 0, 1), Pattern(1, 0, 2));
    ExpectBGR(image, 0, 0, Pattern(0, 2, 0), Pattern(0, 2, 1), Pattern(0, 2, 2));

    layout.bitCount = 16;
    layout.pixel = [](int, int row, int byte) {
        return static_cast<std::uint8_t>(byte == 1 ? 0x7C : row);
    };
    ASSERT_EQ(LoadBytes(&image, MakeBmp(layout)), kOk);
    ExpectBGR(image, 0, 2, 0, 0, 248);  // row 0 of the file: blue 0
    ExpectBGR(image, 0, 0, 2 << 3, 0, 248);
}

TEST(BitmapImageTest, EightBitsKeepTheirPaletteAndConvertToBlueGreenRed) {
    BmpLayout layout;
    layout.width = 3;
    layout.height = 1;
    layout.bitCount = 8;
    layout.colorsUsed = 4;
    layout.palette = {0x112233, 0xFF0000, 0x00FF00, 0x0000FF};
    layout.pixel = [](int x, int, int) { return static_cast<std::uint8_t>(x == 2 ? 7 : x); };
    BitmapImage image;
    ASSERT_EQ(LoadBytes(&image, MakeBmp(layout)), kOk);
    EXPECT_EQ(image.bytesPerPixel, 1);
    ASSERT_EQ(image.paletteCount, 4);
    EXPECT_EQ(image.palette[0], 0x11);  // red, green, blue
    EXPECT_EQ(image.palette[2], 0x33);
    EXPECT_EQ(image.PixelAt(1, 0)[0], 1);

    ASSERT_EQ(image.ConvertTo24Bit(), kOk);
    EXPECT_EQ(image.bytesPerPixel, 3);
    EXPECT_EQ(image.paletteCount, 0);
    EXPECT_EQ(image.stride, 12);
    ExpectBGR(image, 0, 0, 0x33, 0x22, 0x11);
    ExpectBGR(image, 1, 0, 0x00, 0x00, 0xFF);
    ExpectBGR(image, 2, 0, 0, 0, 0);         // index 7 lies beyond the palette
    EXPECT_EQ(image.ConvertTo24Bit(), kOk);  // nothing left to do
}

TEST(BitmapImageTest, SixteenBitsInBothBitFieldLayoutsAndPlain) {
    auto word = [](std::uint16_t v) {
        return [v](int, int, int byte) {
            return static_cast<std::uint8_t>(byte == 0 ? v & 0xFF : v >> 8);
        };
    };
    BmpLayout layout;
    layout.width = 1;
    layout.bitCount = 16;
    BitmapImage image;

    layout.pixel = word(0x7FFF);  // plain 16 bits are 5-5-5
    ASSERT_EQ(LoadBytes(&image, MakeBmp(layout)), kOk);
    ExpectBGR(image, 0, 0, 248, 248, 248);

    layout.compression = 3;
    layout.masks = {0xF800, 0x07E0, 0x001F};
    layout.pixel = word(0xF800);
    ASSERT_EQ(LoadBytes(&image, MakeBmp(layout)), kOk);
    ExpectBGR(image, 0, 0, 0, 0, 248);
    layout.pixel = word(0x07E0);
    ASSERT_EQ(LoadBytes(&image, MakeBmp(layout)), kOk);
    ExpectBGR(image, 0, 0, 0, 252, 0);

    layout.masks = {0x7C00, 0x03E0, 0x001F};
    layout.pixel = word(0x03E0 | 0x0001);
    ASSERT_EQ(LoadBytes(&image, MakeBmp(layout)), kOk);
    ExpectBGR(image, 0, 0, 8, 248, 0);

    layout.masks = {0x0F00, 0x00F0, 0x000F};  // 4-4-4: not a layout we know
    EXPECT_EQ(LoadBytes(&image, MakeBmp(layout)), kErrorUnsupportedFormat);
}

TEST(BitmapImageTest, ThirtyTwoBitsAreReadTwelveBytesAfterTheColorTable) {
    // With bit fields the masks take those 12 bytes and the pixels come out
    // exactly.
    BmpLayout layout;
    layout.width = 2;
    layout.height = 2;
    layout.bitCount = 32;
    layout.compression = 3;
    layout.masks = {0xFF0000, 0xFF00, 0xFF};
    layout.pixel = Pattern;
    BitmapImage image;
    ASSERT_EQ(LoadBytes(&image, MakeBmp(layout)), kOk);
    for (int y = 0; y < 2; ++y) {
        for (int x = 0; x < 2; ++x)
            ExpectBGR(image, x, y, Pattern(x, y, 0), Pattern(x, y, 1), Pattern(x, y, 2));
    }

    // Plain 32-bit files are read 12 bytes late as well: row 0 starts at the
    // second pixel of row 1, and what lies past the file is zero.
    layout.compression = 0;
    layout.masks.clear();
    ASSERT_EQ(LoadBytes(&image, MakeBmp(layout)), kOk);
    ExpectBGR(image, 0, 0, Pattern(1, 1, 0), Pattern(1, 1, 1), Pattern(1, 1, 2));
    ExpectBGR(image, 1, 0, 0, 0, 0);
    ExpectBGR(image, 0, 1, 0, 0, 0);
}

TEST(BitmapImageTest, UnsupportedFormatsAreRefused) {
    BitmapImage image;
    const struct {
        int bitCount;
        std::uint32_t compression;
        std::uint32_t headerSize;
    } refused[] = {{1, 0, 40}, {4, 0, 40},  {8, 1, 40},   {4, 2, 40}, {24, 3, 40},
                   {8, 3, 40}, {24, 0, 12}, {24, 0, 108}, {32, 4, 40}};
    for (const auto& r : refused) {
        BmpLayout layout;
        layout.width = 4;
        layout.height = 2;
        layout.bitCount = r.bitCount;
        layout.compression = r.compression;
        layout.headerSize = r.headerSize;
        EXPECT_EQ(LoadBytes(&image, MakeBmp(layout)), kErrorUnsupportedFormat)
            << r.bitCount << " bits, compression " << r.compression << ", header " << r.headerSize;
    }
}

TEST(BitmapImageTest, ZeroAndAbsurdSizesAreRefusedBeforeAllocating) {
    BitmapImage image;
    const int sizes[][2] = {{0, 4},           {-3, 4},         {4, 0},
                            {100000, 100000}, {0x7FFFFFFF, 1}, {1, -2147483647 - 1}};
    for (const auto& size : sizes) {
        BmpLayout layout;
        layout.width = 1;
        layout.height = 1;
        std::vector<std::uint8_t> file = MakeBmp(layout);
        for (int i = 0; i < 4; ++i) {
            file[18 + i] =
                static_cast<std::uint8_t>(static_cast<std::uint32_t>(size[0]) >> (8 * i));
            file[22 + i] =
                static_cast<std::uint8_t>(static_cast<std::uint32_t>(size[1]) >> (8 * i));
        }
        EXPECT_EQ(LoadBytes(&image, file), kErrorUnsupportedFormat) << size[0] << " x " << size[1];
        EXPECT_EQ(image.pixels, nullptr);
    }
}

TEST(BitmapImageTest, ShortOrForeignFilesCannotBeRead) {
    BmpLayout layout;
    layout.width = 8;
    layout.height = 8;
    layout.pixel = Pattern;
    const std::vector<std::uint8_t> good = MakeBmp(layout);
    BitmapImage image;

    std::vector<std::uint8_t> notBmp = good;
    notBmp[0] = 'P';
    EXPECT_EQ(LoadBytes(&image, notBmp), kErrorFileRead);

    // The loader's block carries 14 zero bytes past the file, so a file
    // short by more than that is missing pixel data.
    for (std::size_t cut : {15u, 100u, 150u}) {
        std::vector<std::uint8_t> shorter(good.begin(), good.end() - cut);
        EXPECT_EQ(LoadBytes(&image, shorter), kErrorFileRead) << cut;
    }
    for (std::size_t keep : {0u, 2u, 13u, 14u, 20u, 53u}) {
        std::vector<std::uint8_t> stub(good.begin(), good.begin() + keep);
        EXPECT_EQ(LoadBytes(&image, stub), kErrorFileRead) << keep;
    }
    // A small image size in the header does not excuse missing rows: a few
    // bytes never make us allocate a large picture.
    std::vector<std::uint8_t> tiny = MakeBmp(BmpLayout());
    const std::uint32_t side = 8000;
    for (int i = 0; i < 4; ++i) {
        tiny[18 + i] = tiny[22 + i] = static_cast<std::uint8_t>(side >> (8 * i));
        tiny[34 + i] = i == 0 ? 1 : 0;  // image size
    }
    EXPECT_EQ(LoadBytes(&image, tiny), kErrorFileRead);
    EXPECT_EQ(image.pixels, nullptr);
    // A color table that runs past the file.
    BmpLayout palette;
    palette.bitCount = 8;
    palette.colorsUsed = 1000000;
    EXPECT_EQ(LoadBytes(&image, MakeBmp(palette)), kErrorFileRead);
}

TEST(BitmapImageTest, ExtensionMustBeExactlyLowerOrUpperBmp) {
    BitmapImage image;
    EXPECT_EQ(image.LoadFile(PathOf("missing.Bmp").c_str()), kErrorUnsupportedFormat);
    EXPECT_EQ(image.LoadFile(PathOf("missing.png").c_str()), kErrorUnsupportedFormat);
    EXPECT_EQ(image.LoadFile(PathOf("missing").c_str()), kErrorUnsupportedFormat);
    EXPECT_EQ(image.LoadFile(PathOf("missing.bmp").c_str()), kErrorFileOpen);
    BmpLayout layout;
    EXPECT_EQ(LoadBytes(&image, MakeBmp(layout), "UPPER.BMP"), kOk);
    EXPECT_EQ(LoadBytes(&image, MakeBmp(layout), "named.Bmp"), kErrorUnsupportedFormat);
}

TEST(BitmapImageTest, AFailedLoadLeavesTheEarlierPicture) {
    BmpLayout layout;
    layout.width = 4;
    layout.height = 4;
    layout.pixel = Pattern;
    BitmapImage image;
    ASSERT_EQ(LoadBytes(&image, MakeBmp(layout)), kOk);
    layout.bitCount = 1;
    EXPECT_EQ(LoadBytes(&image, MakeBmp(layout)), kErrorUnsupportedFormat);
    EXPECT_EQ(image.width, 4);
    ExpectBGR(image, 3, 3, Pattern(3, 3, 0), Pattern(3, 3, 1), Pattern(3, 3, 2));
}

TEST(BitmapImageTest, DeclaredImageSizeNeverRunsPastTheBuffer) {
    BmpLayout layout;
    layout.width = 4;
    layout.height = 2;
    layout.pixel = Pattern;
    layout.sizeImage = 0x7FFFFFF0;
    std::vector<std::uint8_t> file = MakeBmp(layout);
    BitmapImage image;
    ASSERT_EQ(LoadBytes(&image, file), kOk);
    ExpectBGR(image, 3, 1, Pattern(3, 1, 0), Pattern(3, 1, 1), Pattern(3, 1, 2));

    // A smaller declared size copies only that much.
    layout.sizeImage = 12;
    ASSERT_EQ(LoadBytes(&image, MakeBmp(layout)), kOk);
    ExpectBGR(image, 3, 0, Pattern(3, 0, 0), Pattern(3, 0, 1), Pattern(3, 0, 2));
    ExpectBGR(image, 0, 1, 0, 0, 0);
}

TEST(BitmapImageTest, PackedDIBReaderStaysInsideItsRange) {
    BmpLayout layout;
    layout.width = 6;
    layout.height = 5;
    layout.bitCount = 24;
    layout.pixel = Pattern;
    const std::vector<std::uint8_t> block = DibBlockOf(MakeBmp(layout));
    BitmapImage image;
    // Every prefix of a good DIB either loads or says why not.
    for (std::size_t n = 0; n <= block.size(); ++n) {
        std::vector<std::uint8_t> exact(block.begin(), block.begin() + n);
        const int result = image.SetFromPackedDIB(exact.data(), exact.size());
        EXPECT_TRUE(result == kOk || result == kErrorFileRead) << n;
    }
    EXPECT_EQ(image.SetFromPackedDIB(nullptr, 100), kErrorFileRead);
}

TEST(BitmapImageTest, CreateCopyAndPaletteEntries) {
    BitmapImage image;
    ASSERT_EQ(image.Create(3, 2, 1, 2), kOk);
    EXPECT_EQ(image.stride, 4);
    image.SetPaletteEntry(1, 9, 8, 7);
    image.SetPaletteEntry(2, 1, 1, 1);  // at paletteCount: ignored
    image.SetPaletteEntry(-1, 1, 1, 1);
    EXPECT_EQ(image.palette[3], 9);
    image.PixelAt(2, 1)[0] = 1;
    image.name = static_cast<char*>(std::malloc(6));
    std::memcpy(image.name, "sky.b", 6);

    BitmapImage copy;
    ASSERT_EQ(copy.Copy(image), kOk);
    EXPECT_STREQ(copy.name, "sky.b");
    EXPECT_EQ(copy.paletteCount, 2);
    EXPECT_EQ(copy.palette[5], 7);
    EXPECT_EQ(copy.PixelAt(2, 1)[0], 1);
    EXPECT_EQ(copy.Copy(copy), kOk);
    EXPECT_EQ(copy.width, 3);

    copy.Clear();
    EXPECT_EQ(copy.pixels, nullptr);
    EXPECT_EQ(copy.width, 0);
    EXPECT_EQ(copy.name, nullptr);
    EXPECT_EQ(copy.Create(-1, 1, 3, 0), kErrorInvalidParameter);
}

TEST(BitmapImageTest, SetBitsExpandsSmallPixelsRowByRow) {
    BitmapImage image;
    ASSERT_EQ(image.Create(8, 2, 1, 0), kOk);
    const unsigned char bits[8] = {0xA5, 0, 0, 0, 0x0F, 0, 0, 0};
    image.SetBits(8, bits, 4, 1);
    // Each bit becomes a byte, most significant first; a source row
    // narrower than ours then loses its first (stride - source stride)
    // bytes to zeros, as this copy always has.
    const unsigned char row0[8] = {0, 0, 0, 0, 0, 1, 0, 1};
    const unsigned char row1[8] = {0, 0, 0, 0, 1, 1, 1, 1};
    EXPECT_EQ(std::memcmp(image.PixelAt(0, 0), row0, 8), 0);
    EXPECT_EQ(std::memcmp(image.PixelAt(0, 1), row1, 8), 0);
    const unsigned char nibbles[8] = {0x12, 0x34, 0x56, 0x78, 0x9A, 0xBC, 0xDE, 0xF0};
    image.SetBits(8, nibbles, 4, 4);
    EXPECT_EQ(image.PixelAt(4, 0)[0], 5);
    EXPECT_EQ(image.PixelAt(7, 0)[0], 8);
    EXPECT_EQ(image.PixelAt(5, 1)[0], 0xE);
    EXPECT_EQ(image.PixelAt(3, 1)[0], 0);
}

}  // namespace
