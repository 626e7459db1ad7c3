#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "support/FilePathParts.h"

namespace {

struct Parts {
    const char* directory;  // null: absent
    const char* fileName;
    const char* baseName;
    const char* extension;
};

void ExpectParts(const char* path, const Parts& want) {
    SCOPED_TRACE(path);
    const FilePathParts parts(path);
    char buffer[256] = "untouched";
    const auto check = [&](int present, const char* expected) {
        EXPECT_EQ(present, expected != nullptr);
        // An absent part leaves the buffer alone.
        EXPECT_STREQ(buffer, expected != nullptr ? expected : "untouched");
        std::strcpy(buffer, "untouched");
    };
    check(parts.GetDirectory(buffer), want.directory);
    check(parts.GetFileName(buffer), want.fileName);
    check(parts.GetBaseName(buffer), want.baseName);
    check(parts.GetExtension(buffer), want.extension);
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
    EXPECT_EQ(parts.GetDirectory(buffer), 0);
    EXPECT_EQ(parts.GetExtension(buffer), 0);
    std::string base;
    EXPECT_TRUE(parts.BaseName(&base));
    EXPECT_EQ(base, "c");
    EXPECT_EQ(FilePathParts(nullptr).GetFullPath(buffer), 0);
}

}  // namespace
