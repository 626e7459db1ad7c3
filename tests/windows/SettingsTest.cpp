// "PXColor.ini": the window's place and visibility survive closing and
// reopening; whatever the file holds, the dialog opens on the screen.
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "WinTestSupport.h"

namespace {

class SettingsTest : public ::testing::Test {
  protected:
    void SetUp() override { RemoveDamage(); }
    void TearDown() override {
        PXColor_Close();
        RemoveDamage();
    }

    // The settings file, read-only or not, or a directory in its place.
    static void RemoveDamage() {
        SetFileAttributesW(SettingsPath().c_str(), FILE_ATTRIBUTE_NORMAL);
        RemoveDirectoryW(SettingsPath().c_str());
        RemoveSettings();
    }

    HWND Open() {
        EXPECT_TRUE(PXColor_Open(host.window(), kNotifyMessage));
        return RemoteControl();
    }
    // Opens the dialog shown, at (x, y).
    HWND OpenAt(int x, int y) {
        HWND dialog = Open();
        PXColor_ShowWindow(SW_SHOWNORMAL);
        SetWindowPos(dialog, nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        return dialog;
    }

    TestHost host;
};

RECT WindowRect(HWND hwnd) {
    RECT r;
    GetWindowRect(hwnd, &r);
    return r;
}

std::pair<int, int> TopLeft(const RECT& r) {
    return {r.left, r.top};
}

RECT NormalRect(HWND hwnd) {
    WINDOWPLACEMENT p = {};
    p.length = sizeof p;
    GetWindowPlacement(hwnd, &p);
    return p.rcNormalPosition;
}

TEST_F(SettingsTest, PositionAndVisibilitySurviveCloseAndReopen) {
    OpenAt(130, 90);
    // Opening again while open saves the old dialog's place first.
    EXPECT_EQ(TopLeft(WindowRect(Open())), std::make_pair(130, 90));
    PXColor_Close();
    const std::string saved = ReadSettings();
    for (const char* line : {"Top=90", "Left=130", "Display=1"})
        EXPECT_NE(saved.find(line), std::string::npos) << saved;

    HWND dialog = Open();
    EXPECT_TRUE(IsWindowVisible(dialog));
    EXPECT_EQ(PXColor_GetShow(), SW_SHOWNORMAL);
    EXPECT_EQ(TopLeft(WindowRect(dialog)), std::make_pair(130, 90));
}

TEST_F(SettingsTest, DialogHiddenByTheCloseBoxReopensHiddenAtItsPlace) {
    SendMessageW(OpenAt(40, 60), WM_CLOSE, 0, 0);
    PXColor_Close();
    EXPECT_NE(ReadSettings().find("Display=0"), std::string::npos);

    HWND dialog = Open();
    EXPECT_FALSE(IsWindowVisible(dialog));
    EXPECT_EQ(PXColor_GetShow(), SW_SHOWMINIMIZED);
    EXPECT_EQ(TopLeft(NormalRect(dialog)), std::make_pair(40, 60));
}

TEST_F(SettingsTest, PositionsOffTheScreenComeBackOntoIt) {
    WriteSettings("[Window]\r\nTop=40000\r\nLeft=50000\r\nDisplay=1\r\n");
    HWND dialog = Open();
    const RECT r = WindowRect(dialog);
    EXPECT_EQ(std::make_pair(int(r.right), int(r.bottom)),
              std::make_pair(GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)));
    EXPECT_TRUE(IsWindowVisible(dialog));
    PXColor_Close();

    WriteSettings("[Window]\r\nTop=-300\r\nLeft=-20\r\nDisplay=1\r\n");
    EXPECT_EQ(TopLeft(WindowRect(Open())), std::make_pair(0, 0));
}

// The "ColorSetNNN=..." lines of a settings file, in file order.
std::vector<std::string> SavedSets(const std::string& content) {
    std::vector<std::string> sets;
    std::istringstream lines(content);
    for (std::string line; std::getline(lines, line);) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        if (line.rfind("ColorSet", 0) == 0) sets.push_back(line);
    }
    return sets;
}

std::string Garbage(std::size_t size) {
    std::string bytes(size, '\0');
    unsigned int x = 12345;
    for (char& c : bytes) c = static_cast<char>((x = x * 1103515245u + 12345u) >> 23);
    return bytes;
}

// Whatever the file holds, or whatever stands in its place, the dialog opens
// on the screen, hidden, and closing it writes back every set that could be
// read, renumbered from 000. Only the first section and the first key of a
// name count.
TEST_F(SettingsTest, DamagedFilesOpenWithDefaultsAndKeepTheirReadableSets) {
    enum Damage { kContent, kReadOnly, kDirectory };
    struct DamagedFile {
        const char* what;
        Damage damage;
        std::string content;
        std::vector<std::string> kept;
    };
    const std::string table = "\r\n[ColorTable]\r\n";
    const DamagedFile files[] = {
        {"empty", kContent, "", {}},
        {"binary garbage",
         kContent,
         Garbage(30000) + table + "ColorSet000=2 1 2 3 4 5 6\r\nColorSet001=1 9 9 9\r\n" +
             Garbage(30000),
         {"ColorSet000=2 1 2 3 4 5 6", "ColorSet001=1 9 9 9"}},
        {"a 10 MB line",
         kContent,
         table + "ColorSet000=3 1 1 1 2 2 2 3 3 3 " + std::string(10 << 20, '9') +
             "\r\nColorSet001=1 5 5 5\r\n",
         {"ColorSet000=3 1 1 1 2 2 2 3 3 3", "ColorSet001=1 5 5 5"}},
        {"duplicated keys",
         kContent,
         table + "ColorSet000=1 1 1 1\r\nColorSet000=1 2 2 2\r\n[Window]\r\nTop=5\r\n" + table +
             "ColorSet001=1 3 3 3\r\n",
         {"ColorSet000=1 1 1 1"}},
        {"bad window values",
         kContent,
         "[Window]\r\nTop=abc\r\nLeft=\r\nDisplay=yes\r\n[]\r\n=\r\n",
         {}},
        // The save cannot rewrite a read-only file and fails quietly; the file
        // keeps its sets. (Wine run as root writes it anyway, with the same sets.)
        // A directory in the file's place is neither read nor replaced.
        {"read-only file", kReadOnly, table + "ColorSet000=1 4 4 4\r\n", {"ColorSet000=1 4 4 4"}},
        {"a directory", kDirectory, "", {}},
    };
    for (const DamagedFile& file : files) {
        SCOPED_TRACE(file.what);
        if (file.damage == kDirectory) {
            CreateDirectoryW(SettingsPath().c_str(), nullptr);
        } else {
            WriteSettings(file.content);
            if (file.damage == kReadOnly)
                SetFileAttributesW(SettingsPath().c_str(), FILE_ATTRIBUTE_READONLY);
        }
        HWND dialog = Open();
        ASSERT_NE(dialog, nullptr);
        EXPECT_FALSE(IsWindowVisible(dialog));
        const RECT r = NormalRect(dialog);
        EXPECT_TRUE(r.left >= 0 && r.top >= 0 && r.right <= GetSystemMetrics(SM_CXSCREEN));
        PXColor_Close();

        if (file.damage == kDirectory) {
            EXPECT_NE(GetFileAttributesW(SettingsPath().c_str()) & FILE_ATTRIBUTE_DIRECTORY, 0u);
        } else {
            EXPECT_EQ(SavedSets(ReadSettings()), file.kept);
        }
        RemoveDamage();
    }
}

}  // namespace
