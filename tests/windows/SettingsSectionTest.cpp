// A section read whole answers every key as a read of that key alone does,
// whatever the file holds.
#include <gtest/gtest.h>

#include <string>

#include "WinTestSupport.h"
#include "dialog/SettingsFile.h"

namespace {

TEST(SettingsSectionTest, AnswersEveryKeyAsASingleRead) {
    const std::string longValue(700, '7');
    const std::string quotedNearTheCut = "\"" + std::string(510, '1') + "\"";
    const std::string contents[] = {
        "",
        "[ColorTable]\r\nColorSet000=2 1 2 3 4 5 6\r\nColorSet003=3 9 9 9\r\n",
        // Case, blanks, repeats (the first counts), a key alone, comments.
        "[colortable]\r\n  colorSET001 =  4 1 1 1 \r\nColorSet001=5\r\nColorSet002\r\n"
        ";ColorSet004=1\r\nColorSet005=\r\n=7\r\n",
        // Quotes, matched or not, and values at and beyond the cut.
        "[ColorTable]\r\nColorSet000=\"3 1 2 3\"\r\nColorSet001='2 5'\r\nColorSet002=\"2 5\r\n"
        "ColorSet003=" + longValue + "\r\nColorSet004=" + quotedNearTheCut + "\r\n"
        "ColorSet005=" + std::string(511, '2') + "\r\nColorSet006=\"\"\r\n",
        // A second section of the name, other sections, garbage lines.
        "[Window]\r\nColorSet000=1 1 1 1\r\n[ColorTable]\r\nColorSet001=2 2 2 2\r\n\x01\xff\xfe=\r\n"
        "[ColorTable]\r\nColorSet000=3 3 3 3\r\n[ColorTable ]\r\nColorSet002=1\r\n",
    };
    for (const std::string& content : contents) {
        WriteSettings(content);
        const SettingsFile file(SettingsPath());
        const SettingsFile::Section table = file.ReadSection(L"ColorTable");
        for (int i = 0; i < 8; ++i) {
            wchar_t key[16];
            swprintf(key, 16, L"ColorSet%03d", i);
            EXPECT_EQ(table.ReadString(key, 512), file.ReadString(L"ColorTable", key, 512))
                << content << " " << i;
        }
    }
    RemoveSettings();
}

}  // namespace
