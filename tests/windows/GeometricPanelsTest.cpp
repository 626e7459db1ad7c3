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
        ASSERT_NE(gradation, nullptr);
        ASSERT_NE(tile, nullptr);
    }

    // What a host gets when it asks now.
    struct Gradation : KTEffectGradation {
        Gradation() { PXColor_GetGradation(*this); }
    };
    struct Tile : KTEffectTile {
        Tile() { PXColor_GetTile(*this); }
    };

    void Scroll(HWND panel, int bar, int code, int thumb = 0) const {
        SendMessageW(panel, WM_HSCROLL, MAKEWPARAM(code, thumb),
                     reinterpret_cast<LPARAM>(GetDlgItem(panel, bar)));
    }
    bool Enabled(HWND panel, int id) const { return IsWindowEnabled(GetDlgItem(panel, id)) != 0; }
    // Enabling follows the messages that pass the panel's filter.
    void Settle(HWND panel) const {
        PostMessageW(panel, WM_NULL, 0, 0);
        PumpMessages();
    }
    int ColorCount() const {
        return static_cast<int>(GetDlgItemInt(ColorSetPanelOf(remote), 1011, nullptr, TRUE));
    }

    HWND gradation = nullptr;
    HWND tile = nullptr;
};

TEST_F(GeometricPanelsTest, AFreshOpenDeliversTheStartingValues) {
    EXPECT_EQ(IsDlgButtonChecked(gradation, 1014), BST_CHECKED);
    const Gradation g;
    EXPECT_EQ(g.type, 0);
    EXPECT_FLOAT_EQ(g.mix, 0.5f);
    EXPECT_FLOAT_EQ(g.bias, 0.0f);
    EXPECT_FLOAT_EQ(g.angle, 0.0f);
    EXPECT_EQ(g.repeat, 1);
    EXPECT_FLOAT_EQ(g.spiralAngle, 360.0f);
    EXPECT_EQ(g.hueInterpolation, 0);
    EXPECT_EQ(g.colorCount, 2);

    const Tile t;
    EXPECT_EQ(t.shape, 0);
    EXPECT_FLOAT_EQ(t.width, 10.0f);
    EXPECT_FLOAT_EQ(t.height, 10.0f);
    EXPECT_FLOAT_EQ(t.seamWidth, 1.0f);
    EXPECT_FLOAT_EQ(t.angle, 0.0f);
    EXPECT_EQ(t.coloring, 0);
    EXPECT_EQ(t.seamColor, ColorRGB(255, 255, 255));
    EXPECT_EQ(t.roundCorners, 0);
    EXPECT_FLOAT_EQ(t.cornerCut, 0.0f);
    EXPECT_EQ(t.transparentSeam, 0);
    EXPECT_FLOAT_EQ(t.rowShift, 0.0f);
    // Hidden in the template, and nothing shows them.
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
        Settle(gradation);
        EXPECT_EQ(Gradation().type, c.code);
        EXPECT_EQ(Enabled(gradation, 1020), c.bias);
        EXPECT_EQ(Enabled(gradation, 1054), c.bias);
        EXPECT_EQ(Enabled(gradation, 1025), c.angle);
        EXPECT_EQ(Enabled(gradation, 1055), c.angle);
        EXPECT_EQ(Enabled(gradation, 1027), c.repeat);
        EXPECT_EQ(Enabled(gradation, 1066), c.repeat);
        EXPECT_EQ(Enabled(gradation, 1029), c.turns);
        EXPECT_EQ(Enabled(gradation, 1056), c.turns);
        for (int always : {1013, 1026, 1028, 1030}) EXPECT_TRUE(Enabled(gradation, always));
    }
    // The hidden slope radios form a group of their own and win the test order.
    Click(gradation, 1014);
    CheckDlgButton(gradation, 1032, BST_CHECKED);
    Settle(gradation);
    EXPECT_EQ(Gradation().type, 107);
    EXPECT_FALSE(Enabled(gradation, 1020));
    EXPECT_TRUE(Enabled(gradation, 1025));
    CheckDlgButton(gradation, 1031, BST_CHECKED);
    EXPECT_EQ(Gradation().type, 108);
}

TEST_F(GeometricPanelsTest, FourCornersAskForFourColorsAndKeepThemAcrossEffects) {
    Click(gradation, 1034);
    EXPECT_EQ(ColorCount(), 4);
    EXPECT_EQ(Gradation().colorCount, 4);
    Click(remote, 1006);
    SendDlgItemMessageW(ColorSetPanelOf(remote), 1012, UDM_SETPOS32, 0, 2);
    Click(remote, 1003);  // the effect radios leave the panel's radios alone
    EXPECT_EQ(ColorCount(), 4);
}

TEST_F(GeometricPanelsTest, BarsAndEditsReachTheHostAsTheyAreShown) {
    Scroll(gradation, 1013, SB_PAGERIGHT);
    EXPECT_FLOAT_EQ(Gradation().mix, 34 / 64.0f);
    Scroll(gradation, 1013, SB_THUMBTRACK, 64);
    Scroll(gradation, 1013, SB_LINERIGHT);  // the bar keeps its range
    EXPECT_FLOAT_EQ(Gradation().mix, 1.0f);
    Scroll(gradation, 1013, SB_THUMBPOSITION, 0);
    EXPECT_FLOAT_EQ(Gradation().mix, 0.0f);
    Scroll(gradation, 1020, SB_THUMBTRACK, -10);
    EXPECT_FLOAT_EQ(Gradation().bias, -5.0f);
    Scroll(gradation, 1020, SB_THUMBTRACK, 2);
    Scroll(gradation, 1020, SB_LINERIGHT);
    Scroll(gradation, 1020, SB_ENDSCROLL);
    EXPECT_FLOAT_EQ(Gradation().bias, 1.5f);

    // Text is read without checks; the setters' limits apply.
    const struct {
        int edit;
        const wchar_t* text;
        float angle, spiral;
        int repeat;
    } edits[] = {{1025, L"", 0, 360, 1},        {1025, L"-45", -45, 360, 1},
                 {1027, L"0", -45, 360, 1},     {1027, L"12", -45, 360, 12},
                 {1029, L"-3", -45, -1080, 12}, {1025, L"abc", 0, -1080, 12}};
    for (const auto& e : edits) {
        SetDlgItemTextW(gradation, e.edit, e.text);
        const Gradation g;
        EXPECT_FLOAT_EQ(g.angle, e.angle) << e.text;
        EXPECT_FLOAT_EQ(g.spiralAngle, e.spiral) << e.text;
        EXPECT_EQ(g.repeat, e.repeat) << e.text;
    }

    Scroll(tile, 1060, SB_THUMBTRACK, 3);
    EXPECT_FLOAT_EQ(Tile().cornerCut, 0.3f);
    Scroll(tile, 1060, SB_PAGERIGHT, 0);
    Scroll(tile, 1060, SB_THUMBTRACK, 10);
    CheckDlgButton(tile, 1063, BST_CHECKED);
    SetDlgItemTextW(tile, 1023, L"");
    SetDlgItemTextW(tile, 1025, L"-90");
    const Tile t;
    EXPECT_FLOAT_EQ(t.cornerCut, 1.0f);
    EXPECT_EQ(t.roundCorners, 1);
    EXPECT_FLOAT_EQ(t.width, 1.0f);  // an empty block size is 0, then the setter's 1
    EXPECT_FLOAT_EQ(t.angle, -90.0f);
}

TEST_F(GeometricPanelsTest, TileHeightsFollowTheShape) {
    const struct {
        int radio, block, seam, aspect, shape, coloringRadio, coloring;
        float height, rowShift;
    } cases[] = {
        {1059, 20, 1, 10, 2, 1055, 1, 34.645454f, 0.0f},  // tan(1.047253) * 20
        {1062, 20, 1, 10, 3, 1054, 2, 23.094721f, 0.0f},  // single-precision steps
        {1058, 20, 1, 10, 0, 1056, 3, 10.0f, 0.5f},       // brick, aspect 10 of 20
        {1058, 20, 1, 20, 0, 1066, 4, 20.0f, 0.5f},      {1052, 20, 1, 20, 1, 1053, 0, 20.0f, 0.0f},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.radio);
        Click(tile, c.radio);
        Click(tile, c.coloringRadio);
        SetDlgItemInt(tile, 1023, c.block, TRUE);
        SetDlgItemInt(tile, 1027, c.seam, TRUE);
        Scroll(tile, 1057, SB_THUMBTRACK, c.aspect);
        const Tile t;
        EXPECT_EQ(t.shape, c.shape);
        EXPECT_FLOAT_EQ(t.width, static_cast<float>(c.block));
        EXPECT_FLOAT_EQ(t.height, c.height);
        EXPECT_FLOAT_EQ(t.rowShift, c.rowShift);
        EXPECT_EQ(t.coloring, c.coloring);
    }
}

TEST_F(GeometricPanelsTest, SeamColorComesFromTheSystemChooserUnlessTheSeamIsTransparent) {
    {
        SystemDialogWatcher watcher(TypeColorIntoChooser(10, 20, 30));
        Click(tile, 1001);
        ASSERT_EQ(watcher.seen().size(), 1u);
    }
    EXPECT_EQ(Tile().seamColor, ColorRGB(10, 20, 30));
    {
        SystemDialogWatcher watcher(IDCANCEL);
        Click(tile, 1001);
        ASSERT_EQ(watcher.seen().size(), 1u);
    }
    EXPECT_EQ(Tile().seamColor, ColorRGB(10, 20, 30));

    CheckDlgButton(tile, 1065, BST_CHECKED);
    Settle(tile);
    EXPECT_FALSE(Enabled(tile, 1064));
    EXPECT_FALSE(Enabled(tile, 1001));
    EXPECT_EQ(Tile().transparentSeam, 1);
    CheckDlgButton(tile, 1065, BST_UNCHECKED);
    Settle(tile);
    EXPECT_TRUE(Enabled(tile, 1001));
}

TEST_F(GeometricPanelsTest, SpaceInAPanelUpdatesAndNeverReachesTheControl) {
    const struct {
        int effect;
        HWND panel;
        int edit;
        const char* name;
    } cases[] = {{1003, gradation, 1027, "gradation"}, {1006, tile, 1023, "tile"}};
    for (const auto& c : cases) {
        host.Clear();
        Click(remote, c.effect);
        HWND edit = GetDlgItem(c.panel, c.edit);
        SetFocus(edit);
        SendMessageW(edit, EM_SETSEL, 0, -1);
        PostMessageW(edit, WM_KEYDOWN, VK_SPACE, 0x00390001);
        PumpMessages();
        ASSERT_EQ(host.received().size(), 1u) << c.name;
        EXPECT_EQ(host.received()[0].name, c.name);
        EXPECT_EQ(WindowText(edit).find(L' '), std::wstring::npos);
    }
}

// Real keystrokes from a second thread while this thread pumps as a host
// does: arrows on a focused bar, typing into an edit, Tab across the panel,
// and the space bar as update.
TEST_F(GeometricPanelsTest, TheKeyboardDrivesBothPanels) {
    TypeKeys(GetDlgItem(gradation, 1013), {VK_RIGHT, VK_RIGHT, VK_RIGHT, VK_SPACE});
    ASSERT_EQ(host.received().size(), 1u);
    EXPECT_EQ(host.received()[0].name, "gradation");
    EXPECT_FLOAT_EQ(Gradation().mix, 35 / 64.0f);

    // Down arrow in the type group moves to and checks the next radio.
    TypeKeys(GetDlgItem(gradation, 1014), {VK_DOWN});
    EXPECT_EQ(Gradation().type, 1);

    Click(remote, 1006);
    host.Clear();
    HWND block = GetDlgItem(tile, 1023);
    SendMessageW(block, EM_SETSEL, 0, -1);
    TypeKeys(block, {'2', '5', VK_TAB, VK_UP, VK_SPACE});
    ASSERT_EQ(host.received().size(), 1u);
    EXPECT_EQ(host.received()[0].name, "tile");
    const Tile t;
    EXPECT_FLOAT_EQ(t.width, 25.0f);
    EXPECT_FLOAT_EQ(t.seamWidth, 2.0f);  // Tab to the seam edit, its up-down by one
}

}  // namespace
