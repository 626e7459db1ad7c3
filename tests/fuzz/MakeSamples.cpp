// Writes the fuzzers' seed corpora: packed DIBs of every accepted depth and
// a few refused ones, as files and clipboard blocks hold them, paths with
// the splitter's odd cases, and color set values as the settings file holds
// them, well formed and not.
#include <sys/stat.h>

#include <cstdint>
#include <string>
#include <vector>

#include "BmpWriter.h"

namespace {

void WriteTexts(const std::string& dir, const std::string& prefix,
                const std::vector<std::string>& texts) {
    mkdir(dir.c_str(), 0755);
    for (std::size_t i = 0; i < texts.size(); ++i) {
        WriteFile(dir + "/" + prefix + std::to_string(i),
                  std::vector<std::uint8_t>(texts[i].begin(), texts[i].end()));
    }
}

void Dib(const std::string& dir, const std::string& name, const BmpLayout& layout) {
    WriteFile(dir + "/" + name, DibBlockOf(MakeBmp(layout)));
}

std::uint8_t Pattern(int x, int row, int byte) {
    return static_cast<std::uint8_t>(x * 31 + row * 17 + byte);
}

// A DIB as a clipboard block holds it: the block ends where the DIB does,
// or sooner when `size` cuts it.
void BlockDib(const std::string& dir, const std::string& name, const BmpLayout& layout,
              std::size_t size = SIZE_MAX) {
    const std::vector<std::uint8_t> file = MakeBmp(layout);
    std::vector<std::uint8_t> dib(file.begin() + 14, file.end());
    if (size < dib.size()) dib.resize(size);
    WriteFile(dir + "/" + name, dib);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) return 2;
    const std::string root = argv[1];
    const std::string dibs = root + "/dib_reader";
    const std::string paths = root + "/path_splitter";
    mkdir(root.c_str(), 0755);
    mkdir(dibs.c_str(), 0755);

    BmpLayout layout;
    layout.width = 5;
    layout.height = 3;
    layout.pixel = Pattern;
    Dib(dibs, "rgb24", layout);
    layout.height = -3;
    Dib(dibs, "rgb24-topdown", layout);
    layout.height = 3;
    layout.bitCount = 8;
    layout.colorsUsed = 16;
    layout.palette.assign(16, 0x123456);
    Dib(dibs, "indexed8", layout);
    layout.palette.clear();
    layout.colorsUsed = 0;
    layout.bitCount = 16;
    Dib(dibs, "rgb555", layout);
    layout.compression = 3;
    layout.masks = {0xF800, 0x07E0, 0x001F};
    Dib(dibs, "rgb565", layout);
    layout.bitCount = 32;
    layout.masks = {0xFF0000, 0xFF00, 0xFF};
    Dib(dibs, "bitfields32", layout);
    layout.compression = 0;
    layout.masks.clear();
    Dib(dibs, "rgb32", layout);
    layout.bitCount = 4;
    Dib(dibs, "refused4", layout);
    layout.bitCount = 24;
    layout.headerSize = 12;
    Dib(dibs, "core-header", layout);
    layout.headerSize = 40;
    layout.bitCount = 32;
    layout.compression = 3;
    layout.masks = {0xFF0000, 0xFF00, 0xFF};
    BlockDib(dibs, "block-bitfields32", layout);
    layout.compression = 0;
    layout.masks.clear();
    BlockDib(dibs, "block-rgb32", layout);
    layout.bitCount = 24;
    layout.width = layout.height = 100;
    BlockDib(dibs, "block-claims-more", layout, 45);

    WriteTexts(paths, "path", {"C:/pics/sky.bmp",
                                              "C:\\pics\\sky.BMP",
                                              "sky",
                                              "C:/pics/",
                                              "C:/pics/.bmp",
                                              "name.",
                                              "C:/data.old/image",
                                              "/sky.bmp",
                                              "\\\\server\\share\\a.b.c",
                                              ""});
    WriteTexts(root + "/color_set_text", "set",
               {"3 255 0 0 0 255 0 0 0 255", "1 0 0 0",
                "9 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20 21 22 23 24 25 26 27",
                "2 300 -1 256   7 x 99999999999", "4 10 20", "0 1 2 3", "-2 1 1 1", " 7", "",
                "+3 0x10 1e3 -0 255\t9 8"});
    return 0;
}
