// Writes the fuzzers' seed corpora: packed DIBs of every accepted depth and a few refused
// ones, as files and clipboard blocks hold them; odd paths; color set values, well formed
// and not; renderer inputs, among them every isoline pattern type and mapping placement.
#include <sys/stat.h>

#include <cstdint>
#include <string>
#include <vector>

#include "BmpWriter.h"

namespace {

void WriteTexts(const std::string& dir, const std::string& prefix,
                const std::vector<std::string>& texts) {
    mkdir(dir.c_str(), 0755);
    for (std::size_t i = 0; i < texts.size(); ++i)
        WriteFile(dir + "/" + prefix + std::to_string(i),
                  std::vector<std::uint8_t>(texts[i].begin(), texts[i].end()));
}

// A renderer input: a 40 x 30 picture with a disc as the part, seed `salt`, one thread,
// the effect's selector and its first fields. The target reads these from the end of
// its input, so they go last and backwards, after varied bytes for the other fields.
std::string RenderSeed(std::uint8_t effect, std::vector<std::uint8_t> fields, std::uint8_t salt) {
    // Size, padding, a disc of radius 15, its own box, seed, threads, dither.
    std::vector<std::uint8_t> read{39, 29, 0, 0, 4, 0x80, 0, 0, 0, 0, 0, 0, 0, salt, 0, 0, effect};
    read.insert(read.end(), fields.begin(), fields.end());
    std::string bytes;
    for (int i = 0; i < 200; ++i) bytes += static_cast<char>(i * 37 + salt * 11);
    bytes.append(read.rbegin(), read.rend());
    return bytes;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) return 2;
    const std::string root = argv[1], dibs = root + "/dib_reader";
    for (const std::string& dir : {root, dibs}) mkdir(dir.c_str(), 0755);

    const struct {
        const char* name;
        int height, bitCount;
        std::uint32_t compression, headerSize;
        bool block;  // as a clipboard block holds it, without the loader's zero tail
    } seeds[] = {
        {"rgb24", 3, 24, 0, 40, false},       {"rgb24-topdown", -3, 24, 0, 40, false},
        {"indexed8", 3, 8, 0, 40, false},     {"rgb555", 3, 16, 0, 40, false},
        {"rgb565", 3, 16, 3, 40, false},      {"bitfields32", 3, 32, 3, 40, false},
        {"rgb32", 3, 32, 0, 40, false},       {"refused4", 3, 4, 0, 40, false},
        {"core-header", 3, 24, 0, 12, false}, {"block-bitfields32", 3, 32, 3, 40, true},
        {"block-rgb32", 3, 32, 0, 40, true},
    };
    for (const auto& seed : seeds) {
        BmpLayout layout(5, seed.height, seed.bitCount, seed.compression, seed.headerSize);
        if (seed.compression == 3)
            layout.masks = seed.bitCount == 16 ? std::vector<std::uint32_t>{0xF800, 0x07E0, 0x001F}
                                               : std::vector<std::uint32_t>{0xFF0000, 0xFF00, 0xFF};
        layout.palette.assign(seed.bitCount == 8 ? 16 : 0, 0x123456);
        layout.colorsUsed = static_cast<std::uint32_t>(layout.palette.size());
        layout.pixel = [](int x, int row, int byte) { return x * 31 + row * 17 + byte; };
        std::vector<std::uint8_t> block = DibBlockOf(MakeBmp(layout));
        if (seed.block) block.resize(block.size() - 14);
        WriteFile(dibs + "/" + seed.name, block);
    }
    // A block whose header claims 100 x 100 pixels in 45 bytes.
    const std::vector<std::uint8_t> file = MakeBmp(BmpLayout(100, 100));
    WriteFile(dibs + "/block-claims-more",
              std::vector<std::uint8_t>(file.begin() + 14, file.begin() + 59));

    WriteTexts(root + "/path_splitter", "path",
               {"C:/pics/sky.bmp", "C:\\pics\\sky.BMP", "sky", "C:/pics/", "C:/pics/.bmp", "name.",
                "C:/data.old/image", "/sky.bmp", "\\\\server\\share\\a.b.c", ""});
    WriteTexts(root + "/color_set_text", "set",
               {"3 255 0 0 0 255 0 0 0 255", "1 0 0 0",
                "9 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20 21 22 23 24 25 26 27",
                "2 300 -1 256   7 x 99999999999", "4 10 20", "0 1 2 3", "-2 1 1 1", " 7", "",
                "+3 0x10 1e3 -0 255\t9 8"});
    // Any bytes make a renderer input; these start it on a few sizes and effects.
    std::vector<std::string> renders;
    for (int i = 0; i < 8; ++i) renders.push_back(std::string(24 + 40 * i, char(37 * i)));
    WriteTexts(root + "/render", "render", renders);
    // The isoline pattern, every known type with 6 points and 16 radial
    // lines (a known code, then its index; a count in range, then its value
    // less one); the mapping repeated or not, seamless or not.
    const int kPattern = 6, kMapping = 7;
    std::vector<std::string> effects;
    for (std::uint8_t type = 0; type <= 15; ++type)
        effects.push_back(RenderSeed(kPattern, {0, type, 2, 5, 2, 15}, type));
    for (std::uint8_t i = 0; i < 4; ++i)
        effects.push_back(
            RenderSeed(kMapping, {0, std::uint8_t(i / 2), 0, std::uint8_t(i % 2)}, i));
    WriteTexts(root + "/render", "effect", effects);
    return 0;
}
