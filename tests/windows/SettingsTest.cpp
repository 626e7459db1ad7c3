// "PXColor.ini": the window's place and visibility survive closing and
// reopening; whatever the file holds, the dialog opens on the screen.
#include <gtest/gtest.h>

#include "WinTestSupport.h"

namespace {

class SettingsTest : public ::testing::Test {
  protected:
    void SetUp() override { RemoveSettings(); }
    void TearDown() override {
        PXColor_Close();
        RemoveSettings();
    }

    HWND Open() {
        EXPECT_TRUE(PXColor_Open(host.window(), kNotifyMessage));
        return RemoteControl();
    }

    TestHost host;
};

RECT WindowRect(HWND hwnd) {
    RECT r;
    GetWindowRect(hwnd, &r);
    return r;
}

RECT NormalRect(HWND hwnd) {
    WINDOWPLACEMENT p = {};
    p.length = sizeof p;
    GetWindowPlacement(hwnd, &p);
    return p.rcNormalPosition;
}

TEST_F(SettingsTest, PositionAndVisibilitySurviveCloseAndReopen) {
    HWND dialog = Open();
    PXColor_ShowWindow(SW_SHOWNORMAL);
    SetWindowPos(dialog, nullptr, 130, 90, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    PXColor_Close();

    const std::string saved = ReadSettings();
    EXPECT_NE(saved.find("Top=90"), std::string::npos) << saved;
    EXPECT_NE(saved.find("Left=130"), std::string::npos) << saved;
    EXPECT_NE(saved.find("Display=1"), std::string::npos) << saved;

    dialog = Open();
    EXPECT_TRUE(IsWindowVisible(dialog));
    EXPECT_EQ(PXColor_GetShow(), SW_SHOWNORMAL);
    EXPECT_EQ(WindowRect(dialog).left, 130);
    EXPECT_EQ(WindowRect(dialog).top, 90);
}

TEST_F(SettingsTest, DialogHiddenByTheCloseBoxReopensHiddenAtItsPlace) {
    HWND dialog = Open();
    PXColor_ShowWindow(SW_SHOWNORMAL);
    SetWindowPos(dialog, nullptr, 40, 60, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    SendMessageW(dialog, WM_CLOSE, 0, 0);
    PXColor_Close();
    EXPECT_NE(ReadSettings().find("Display=0"), std::string::npos);

    dialog = Open();
    EXPECT_FALSE(IsWindowVisible(dialog));
    EXPECT_EQ(PXColor_GetShow(), SW_SHOWMINIMIZED);
    EXPECT_EQ(NormalRect(dialog).left, 40);
    EXPECT_EQ(NormalRect(dialog).top, 60);
}

TEST_F(SettingsTest, ReopeningWhileOpenSavesTheOldDialogsPlace) {
    HWND dialog = Open();
    PXColor_ShowWindow(SW_SHOWNORMAL);
    SetWindowPos(dialog, nullptr, 70, 20, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    dialog = Open();
    EXPECT_EQ(WindowRect(dialog).left, 70);
    EXPECT_EQ(WindowRect(dialog).top, 20);
}

TEST_F(SettingsTest, PositionsOffTheScreenComeBackOntoIt) {
    const int screenW = GetSystemMetrics(SM_CXSCREEN);
    const int screenH = GetSystemMetrics(SM_CYSCREEN);

    WriteSettings("[Window]\r\nTop=40000\r\nLeft=50000\r\nDisplay=1\r\n");
    HWND dialog = Open();
    RECT r = WindowRect(dialog);
    EXPECT_EQ(r.right, screenW);
    EXPECT_EQ(r.bottom, screenH);
    EXPECT_TRUE(IsWindowVisible(dialog));
    PXColor_Close();

    WriteSettings("[Window]\r\nTop=-300\r\nLeft=-20\r\nDisplay=1\r\n");
    dialog = Open();
    r = WindowRect(dialog);
    EXPECT_EQ(r.left, 0);
    EXPECT_EQ(r.top, 0);
}

TEST_F(SettingsTest, MissingOrGarbageFileGivesTheDefaults) {
    const std::string garbage[] = {
        "",
        "this is not a settings file\r\n\x01\x02\xff\xfe",
        "[Window]\r\nTop=abc\r\nLeft=\r\nDisplay=yes\r\n",
        std::string(5000, '[') + "\r\n" + std::string(70000, 'x'),
        "[Window\r\nTop=5\r\n=\r\n[]\r\n",
    };
    for (const std::string& content : garbage) {
        WriteSettings(content);
        HWND dialog = Open();
        ASSERT_NE(dialog, nullptr);
        EXPECT_FALSE(IsWindowVisible(dialog));
        const RECT r = NormalRect(dialog);
        EXPECT_GE(r.left, 0);
        EXPECT_GE(r.top, 0);
        EXPECT_LE(r.right, GetSystemMetrics(SM_CXSCREEN));
        PXColor_Close();
    }
}

}  // namespace
