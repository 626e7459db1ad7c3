// The gradation and tile panels in the real DLL: what a host reads back
// through the exports after the user sets the controls.
#include <windows.h>
#include <commctrl.h>
#include <gtest/gtest.h>

#include "RemoteControlTest.h"

namespace {

class GeometricPanelsTest : public RemoteControlTest {
  protected:
    void SetUp() override {
        RemoteControlTest::SetUp();
        gradation = EffectPanelOf(remote, 1014);
        tile = EffectPanelOf(remote, 1051);
        ASSERT_TRUE(gradation != nullptr && tile != nullptr);
    }
    // What a host gets when it asks now.
    struct Gradation : KTEffectGradation {
        Gradation() { PXColor_GetGradation(*this); }
    };
    struct Tile : KTEffectTile {
        Tile() { PXColor_GetTile(*this); }
    };
    HWND gradation = nullptr;
    HWND tile = nullptr;
};

TEST_F(GeometricPanelsTest, AFreshOpenDeliversTheStartingValues) {
    const Gradation g;
    EXPECT_EQ((std::vector<float>{float(g.type), g.mix, g.bias, g.angle, float(g.repeat),
                                  g.spiralAngle, float(g.colorCount)}),
              (std::vector<float>{0, 0.5f, 0, 0, 1, 360, 2}));
    const Tile t;
    EXPECT_EQ((std::vector<float>{float(t.shape), t.width, t.height, t.seamWidth, t.angle,
                                  float(t.coloring), float(t.roundCorners), t.cornerCut,
                                  float(t.transparentSeam), t.rowShift}),
              (std::vector<float>{0, 10, 10, 1, 0, 0, 0, 0, 0, 0}));
    EXPECT_EQ(t.seamColor, ColorRGB(255, 255, 255));
    // Hidden in the templates, and nothing shows them.
    for (int id : {1031, 1032, 1067}) EXPECT_FALSE(IsWindowVisible(GetDlgItem(gradation, id)));
    EXPECT_FALSE(IsWindowVisible(GetDlgItem(tile, 1065)));
}

TEST_F(GeometricPanelsTest, EachGradationTypeGivesItsCodeAndEnablesWhatItUses) {
    const struct {
        int radio, code;
        bool bias, angle, repeat, turns;
    } cases[] = {
        {1014, 0, true, true, true, false},    {1015, 1, true, true, true, false},
        {1018, 4, true, false, true, false},   {1019, 5, true, true, true, false},
        {1033, 6, true, false, true, false},   {1034, 7, false, false, false, false},
        {1017, 8, false, true, true, true},    {1021, 3, true, false, true, false},
        {1016, 101, true, false, true, false}, {1022, 106, true, false, true, false},
        {1023, 104, true, false, true, false}, {1024, 105, true, false, true, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.radio);
        Click(gradation, c.radio);
        PostMessageW(gradation, WM_NULL, 0, 0);  // enabling follows the panel's messages
        PumpMessages();
        EXPECT_EQ(Gradation().type, c.code);
        // Each setting's bar or edit and its label; the mix bar and the rest always.
        const std::pair<int, bool> controls[] = {
            {1020, c.bias},   {1054, c.bias},   {1025, c.angle}, {1055, c.angle},
            {1027, c.repeat}, {1066, c.repeat}, {1029, c.turns}, {1056, c.turns},
            {1013, true},     {1026, true},     {1028, true},    {1030, true}};
        for (const auto& control : controls)
            EXPECT_EQ(Enabled(gradation, control.first), control.second) << control.first;
    }
}

TEST_F(GeometricPanelsTest, FourCornersAskForFourColorsAndKeepThemAcrossEffects) {
    Click(gradation, 1034);
    HWND colors = ColorSetPanelOf(remote);
    EXPECT_EQ(GetDlgItemInt(colors, 1011, nullptr, TRUE), 4u);
    EXPECT_EQ(Gradation().colorCount, 4);
    Click(remote, 1006);
    SendDlgItemMessageW(colors, 1012, UDM_SETPOS32, 0, 2);
    Click(remote, 1003);  // the effect radios leave the panel's radios alone
    EXPECT_EQ(GetDlgItemInt(colors, 1011, nullptr, TRUE), 4u);
}

TEST_F(GeometricPanelsTest, BarsAndEditsReachTheHostAsTheyAreShown) {
    // Bars step 2 a page and keep their range; edits are read without
    // checks, and the setters' limits apply.
    Scroll(gradation, 1013, SB_PAGERIGHT);
    EXPECT_FLOAT_EQ(Gradation().mix, 34 / 64.0f);
    Scroll(gradation, 1013, SB_THUMBTRACK, 64);
    Scroll(gradation, 1013, SB_LINERIGHT);
    EXPECT_FLOAT_EQ(Gradation().mix, 1.0f);
    Scroll(gradation, 1020, SB_THUMBTRACK, -10);
    EXPECT_FLOAT_EQ(Gradation().bias, -5.0f);
    Scroll(gradation, 1020, SB_THUMBTRACK, 2);
    Scroll(gradation, 1020, SB_LINERIGHT);
    Scroll(gradation, 1020, SB_ENDSCROLL);
    EXPECT_FLOAT_EQ(Gradation().bias, 1.5f);
    const struct {
        int edit;
        const wchar_t* text;
        float angle, spiral;
        int repeat;
    } edits[] = {{1025, L"-45", -45, 360, 1},
                 {1027, L"0", -45, 360, 1},
                 {1027, L"12", -45, 360, 12},
                 {1029, L"-3", -45, -1080, 12},
                 {1025, L"abc", 0, -1080, 12}};
    for (const auto& e : edits) {
        SetDlgItemTextW(gradation, e.edit, e.text);
        const Gradation g;
        EXPECT_EQ((std::vector<float>{g.angle, g.spiralAngle, float(g.repeat)}),
                  (std::vector<float>{e.angle, e.spiral, float(e.repeat)}))
            << e.text;
    }
    Scroll(tile, 1060, SB_THUMBTRACK, 3);
    EXPECT_FLOAT_EQ(Tile().cornerCut, 0.3f);
    Scroll(tile, 1060, SB_THUMBTRACK, 10);
    CheckDlgButton(tile, 1063, BST_CHECKED);
    SetDlgItemTextW(tile, 1023, L"");
    SetDlgItemTextW(tile, 1025, L"-90");
    const Tile t;
    EXPECT_EQ((std::vector<float>{t.cornerCut, float(t.roundCorners), t.width, t.angle}),
              (std::vector<float>{1, 1, 1, -90}));  // an empty block size is 0, then the setter's 1
}

TEST_F(GeometricPanelsTest, TileShapesColoringsAndHeights) {
    const struct {
        int radio, aspect, shape, coloringRadio, coloring;
        float height, rowShift;
    } cases[] = {
        {1059, 10, 2, 1055, 1, 34.645454f, 0.0f},  // tan(1.047253) * 20
        {1062, 10, 3, 1054, 2, 23.094721f, 0.0f},  // single-precision steps
        {1058, 10, 0, 1056, 3, 10.0f, 0.5f},       // brick, aspect 10 of 20
        {1058, 20, 0, 1066, 4, 20.0f, 0.5f},      {1052, 20, 1, 1053, 0, 20.0f, 0.0f},
    };
    SetDlgItemInt(tile, 1023, 20, TRUE);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.radio);
        Click(tile, c.radio);
        Click(tile, c.coloringRadio);
        Scroll(tile, 1057, SB_THUMBTRACK, c.aspect);
        const Tile t;
        EXPECT_EQ((std::vector<float>{float(t.shape), t.width, t.rowShift, float(t.coloring)}),
                  (std::vector<float>{float(c.shape), 20, c.rowShift, float(c.coloring)}));
        EXPECT_FLOAT_EQ(t.height, c.height);
    }
}

TEST_F(GeometricPanelsTest, SeamColorComesFromTheSystemChooser) {
    for (int answer : {IDOK, IDCANCEL}) {  // a cancel keeps the color
        SystemDialogWatcher watcher(answer == IDOK ? TypeColorIntoChooser(10, 20, 30) : [](HWND c) {
            PressDialogButton(c, IDCANCEL);
        });
        Click(tile, 1001);
        ASSERT_EQ(watcher.seen().size(), 1u);
        EXPECT_EQ(Tile().seamColor, ColorRGB(10, 20, 30));
    }
}

// Real keystrokes from a second thread while this thread pumps as a host
// does: arrows on a focused bar, typing into an edit, Tab across the panel,
// and the space bar as update, which never reaches the edit.
TEST_F(GeometricPanelsTest, TheKeyboardDrivesBothPanels) {
    TypeKeys(GetDlgItem(gradation, 1013), {VK_RIGHT, VK_RIGHT, VK_RIGHT, VK_SPACE});
    EXPECT_EQ(host.names(), std::vector<std::string>{"gradation"});
    EXPECT_FLOAT_EQ(Gradation().mix, 35 / 64.0f);
    // Down arrow in the type group moves to and checks the next radio.
    TypeKeys(GetDlgItem(gradation, 1014), {VK_DOWN});
    EXPECT_EQ(Gradation().type, 1);

    Click(remote, 1006);
    host.Clear();
    HWND block = GetDlgItem(tile, 1023);
    SendMessageW(block, EM_SETSEL, 0, -1);
    TypeKeys(block, {'2', '5', VK_SPACE, VK_TAB, VK_UP, VK_SPACE});
    EXPECT_EQ(host.names(), (std::vector<std::string>{"tile", "tile"}));
    EXPECT_EQ(WindowText(block), L"25");
    const Tile t;
    EXPECT_FLOAT_EQ(t.width, 25.0f);
    EXPECT_FLOAT_EQ(t.seamWidth, 2.0f);  // Tab to the seam edit, its up-down by one
}

}  // namespace
