// The support code: random numbers, path parts and error texts.
#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <set>
#include <string>

#include "support/FilePathParts.h"
#include "vellcolor/ErrorCode.h"
#include "vellcolor/RandomGenerator.h"

namespace {

TEST(RandomGeneratorTest, MatchesTheReferenceGeneratorAndSharesOneState) {
    // The 10000th output of the default seed, a published check value.
    RandomGenerator random(5489);
    unsigned int v = 0;
    for (int i = 0; i < 10000; ++i) v = random.GenerateInt32();
    EXPECT_EQ(v, 4123659995u);
    // Every generator draws from one state, which a new one reseeds.
    const RandomGenerator other(19650218u);
    EXPECT_EQ(random.GenerateInt32(), 2325592414u);  // init_genrand(19650218)'s first output
}

TEST(RandomGeneratorTest, RangesAreClosedAndEvenlyHit) {
    RandomGenerator random(7);
    EXPECT_EQ(random.Uniform(2.0f, 2.0f), 2.0);
    EXPECT_EQ(random.UniformInt(3, 3), 3);
    int counts[7] = {};
    std::set<int> bytes;
    for (int i = 0; i < 70000; ++i) {
        const int v = random.UniformInt(-3, 3);
        ASSERT_TRUE(v >= -3 && v <= 3) << v;
        ++counts[v + 3];
        bytes.insert(random.UniformInt(0, 255));
    }
    for (int c : counts) EXPECT_NEAR(c, 10000, 800);  // the end points included
    EXPECT_EQ(bytes.size(), 256u);
}

// Directory, file name, base name and extension; null: absent.
void ExpectParts(const char* path, std::array<const char*, 4> want) {
    SCOPED_TRACE(path);
    const FilePathParts parts(path);
    char buffer[256] = "untouched";
    const auto check = [&](int present, const char* expected) {
        EXPECT_EQ(present, expected != nullptr);
        // An absent part leaves the buffer alone.
        EXPECT_STREQ(buffer, expected != nullptr ? expected : "untouched");
        std::strcpy(buffer, "untouched");
    };
    check(parts.GetDirectory(buffer), want[0]);
    check(parts.GetFileName(buffer), want[1]);
    check(parts.GetBaseName(buffer), want[2]);
    check(parts.GetExtension(buffer), want[3]);
    check(parts.GetFullPath(buffer), path);
}

TEST(FilePathPartsTest, SplitsAtTheLastSeparatorAndTheLastDot) {
    ExpectParts("C:/pics/sky.bmp", {"C:/pics", "sky.bmp", "sky", "bmp"});
    ExpectParts("C:\\pics/mixed\\a.b.c", {"C:\\pics/mixed", "a.b.c", "a.b", "c"});
    ExpectParts("sky", {nullptr, "sky", "sky", nullptr});
    ExpectParts("C:/pics/", {"C:/pics", nullptr, "", nullptr});
    ExpectParts("C:/pics/.bmp", {"C:/pics", ".bmp", nullptr, "bmp"});
    ExpectParts("name.", {nullptr, "name.", "name", nullptr});
    ExpectParts("", {nullptr, nullptr, "", nullptr});
    // The last dot counts even before the last separator.
    ExpectParts("C:/data.old/image", {"C:/data.old", "image", nullptr, "old/image"});
    // A path that begins with its only separator has no directory.
    ExpectParts("/sky.bmp", {nullptr, "sky.bmp", "sky", "bmp"});
    ExpectParts("\\", {nullptr, nullptr, "", nullptr});
    // Multibyte names are split byte by byte; UTF-8 never hides a separator.
    ExpectParts("C:/写真/空.bmp", {"C:/写真", "空.bmp", "空", "bmp"});
}

TEST(FilePathPartsTest, SetPathReplacesEveryPart) {
    FilePathParts parts("C:/a/b.txt");
    parts.SetPath("c");
    char buffer[32];
    EXPECT_TRUE(parts.GetDirectory(buffer) == 0 && parts.GetExtension(buffer) == 0);
    std::string base;
    EXPECT_TRUE(parts.BaseName(&base));
    EXPECT_EQ(base, "c");
    EXPECT_EQ(FilePathParts(nullptr).GetFullPath(buffer), 0);
}

TEST(ErrorCodeTest, EveryCodeHasItsTextAndNoOtherValueHasOne) {
    EXPECT_STREQ(ErrorMessageText(kErrorGeneral), "何らかのｴﾗｰが起りました。");
    EXPECT_STREQ(ErrorMessageText(kErrorNoData), "ﾃﾞｰﾀがありません。");
    for (int code : {0, 1, -12}) EXPECT_EQ(ErrorMessageText(code), nullptr) << code;
}

}  // namespace
