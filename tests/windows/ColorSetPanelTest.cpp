// The color set panel in the real DLL: counts per effect, the palette
// operations, registered sets and their settings file, the system color
// chooser and the color slider, and the colors a host reads back.
#include <windows.h>
#include <commctrl.h>
#include <gtest/gtest.h>

#include <string>

#include "RemoteControlTest.h"

namespace {

const int kCountSpin = 1012, kSetList = 1038;

class ColorSetPanelTest : public RemoteControlTest {
  protected:
    void SetUp() override {
        RemoteControlTest::SetUp();
        panel = ColorSetPanelOf(remote);
        ASSERT_NE(panel, nullptr);
    }
    // Closes, replaces the settings file with `settings` when given, and opens again.
    void Reopen(const std::string& settings = "") {
        PXColor_Close();
        if (!settings.empty()) WriteSettings(settings);
        Open();
        panel = ColorSetPanelOf(remote);
    }
    int Count() const {
        return static_cast<int>(SendDlgItemMessageW(panel, kCountSpin, UDM_GETPOS32, 0, 0));
    }
    // As the up-down's arrows would set it.
    void SetCount(int n) const { SendDlgItemMessageW(panel, kCountSpin, UDM_SETPOS32, 0, n); }
    void SetSlot(int i, const ColorRGB& c) const {
        SendMessageW(panel, WM_APP + 1000, i, reinterpret_cast<LPARAM>(&c.red));
    }
    ColorRGB Slot(int i) const {
        const auto* p =
            reinterpret_cast<const unsigned char*>(SendMessageW(panel, WM_APP + 1001, i, 0));
        return p == nullptr ? ColorRGB(1, 2, 3) : ColorRGB(p[0], p[1], p[2]);
    }
    // Sets the count and the slots; each color's red is given, the rest zero.
    void Palette(std::initializer_list<int> reds) const {
        SetCount(static_cast<int>(reds.size()));
        int i = 0;
        for (int red : reds) SetSlot(i++, ColorRGB(static_cast<unsigned char>(red), 0, 0));
    }
    std::vector<int> Reds() const {
        std::vector<int> reds;
        for (int i = 0; i < Count(); ++i) reds.push_back(Slot(i).red);
        return reds;
    }
    int Entries() const {
        return static_cast<int>(SendDlgItemMessageW(panel, kSetList, CB_GETCOUNT, 0, 0));
    }
    void SelectEntry(int entry) const {
        SendDlgItemMessageW(panel, kSetList, CB_SETCURSEL, entry, 0);
        SendMessageW(panel, WM_COMMAND, MAKEWPARAM(kSetList, CBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(GetDlgItem(panel, kSetList)));
    }

    HWND panel = nullptr;
};

TEST_F(ColorSetPanelTest, CountRangeFollowsTheChosenEffect) {
    const int minimums[][2] = {{1010, 1}, {1006, 2}, {1009, 1}, {1003, 2}};
    for (const auto& m : minimums) {
        Click(remote, m[0]);
        int min = 0, max = 0;
        SendDlgItemMessageW(panel, kCountSpin, UDM_GETRANGE32, reinterpret_cast<WPARAM>(&min),
                            reinterpret_cast<LPARAM>(&max));
        EXPECT_EQ(std::make_pair(min, max), std::make_pair(m[1], 7)) << m[0];
        EXPECT_TRUE(IsWindowVisible(panel));
    }
    Click(remote, 1007);  // image mapping takes no colors
    EXPECT_FALSE(IsWindowVisible(panel));
    // Stripe's single color comes back into range for tile.
    Click(remote, 1010);
    SetCount(1);
    Click(remote, 1006);
    EXPECT_EQ(Count(), 2);

    // Slots beyond the count are neither handed out nor set, and keep their colors.
    Palette({10, 20, 30, 40, 50});
    SetCount(3);
    EXPECT_EQ(SendMessageW(panel, WM_APP + 1001, 3, 0), 0);
    SetSlot(4, ColorRGB(99, 99, 99));
    SetCount(5);
    EXPECT_EQ(Reds(), (std::vector<int>{10, 20, 30, 40, 50}));
}

TEST_F(ColorSetPanelTest, PaletteOperations) {
    Palette({1, 2});
    for (int id : {1021, 1022, 1024, 1026}) EXPECT_FALSE(Enabled(panel, id)) << id;
    Palette({1, 2, 3, 4});
    for (int id : {1021, 1022, 1024, 1026}) EXPECT_TRUE(Enabled(panel, id)) << id;
    const struct {
        int button;
        std::vector<int> reds;
    } steps[] = {{1021, {2, 3, 4, 1}}, {1022, {1, 2, 3, 4}}, {1018, {4, 3, 2, 1}}};
    for (const auto& step : steps) {
        Click(panel, step.button);
        EXPECT_EQ(Reds(), step.reds) << step.button;
    }
    Palette({0, 7, 7, 255});
    Click(panel, 1024);  // RGB is the starting mode
    EXPECT_EQ(Reds(), (std::vector<int>{0, 85, 170, 255}));
    {
        PopupMenuPicker picker(1);  // hue
        Click(panel, 1026);
    }
    Palette({255, 0, 0});
    SetSlot(2, ColorRGB(0, 0, 255));
    Click(panel, 1024);
    EXPECT_EQ(Slot(1), ColorRGB(0, 255, 0));  // rising through green

    Click(panel, 1023);
    EXPECT_EQ(Count(), 7);
    EXPECT_EQ(Slot(0), ColorRGB(255, 0, 0));
}

TEST_F(ColorSetPanelTest, RandomModeMenuChoosesTheCategoryWithoutFilling) {
    Palette({5, 8, 11});
    {
        PopupMenuPicker picker(4);  // gray; the separator counts
        Click(panel, 1025);
    }
    EXPECT_EQ(Reds(), (std::vector<int>{5, 8, 11}));
    Click(panel, 1017);
    for (int i = 0; i < 3; ++i) {
        const ColorRGB c = Slot(i);
        EXPECT_TRUE(c.red == c.green && c.green == c.blue) << i;
    }
    // A right click on "ﾗﾝﾀﾞﾑ" offers the same menu, now with gray ticked.
    PopupMenuPicker picker(-1);
    RECT r;
    GetWindowRect(GetDlgItem(panel, 1017), &r);
    SendMessageW(panel, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(GetDlgItem(panel, 1017)),
                 MAKELPARAM(r.left + 3, r.top + 3));
    ASSERT_TRUE(picker.seen());
    EXPECT_EQ(picker.checked(), 4);
}

TEST_F(ColorSetPanelTest, RegisteringSelectingAndDeletingSets) {
    Palette({1, 2});
    Click(panel, 1019);
    Palette({3, 4, 5});
    Click(panel, 1019);
    ASSERT_EQ(Entries(), 2);
    SelectEntry(1);
    EXPECT_EQ(Reds(), (std::vector<int>{1, 2}));
    SelectEntry(0);
    EXPECT_EQ(Reds(), (std::vector<int>{3, 4, 5}));
    Click(panel, 1020);  // deletes the selected entry
    ASSERT_EQ(Entries(), 1);
    SelectEntry(0);
    EXPECT_EQ(Reds(), (std::vector<int>{1, 2}));

    // One-color sets are offered only while one color is allowed.
    Click(remote, 1010);
    Palette({9});
    Click(panel, 1019);
    EXPECT_EQ(Entries(), 2);
    Click(remote, 1006);
    EXPECT_EQ(Entries(), 1);

    for (int i = 0; i < 62; ++i) {  // 64 sets in all
        SetSlot(0, ColorRGB(static_cast<unsigned char>(i), 9, 9));
        Click(panel, 1019);
    }
    EXPECT_EQ(Entries(), 63);  // the one-color set is not listed for tile
    SystemDialogWatcher watcher;
    SetSlot(0, ColorRGB(200, 0, 0));
    Click(panel, 1019);
    ASSERT_EQ(watcher.seen().size(), 1u);
    EXPECT_EQ(watcher.seen()[0].caption + L":" + watcher.seen()[0].text,
              L"エラー:登録数が最大の64を超えています。");
    EXPECT_EQ(watcher.seen()[0].owner, remote);  // a child cannot own a message box
    EXPECT_EQ(Entries(), 63);
}

TEST_F(ColorSetPanelTest, RegisteredSetsLiveInTheSettingsFile) {
    Palette({255, 0, 0});
    SetSlot(1, ColorRGB(0, 255, 0));
    Click(panel, 1019);
    Palette({10, 40});
    SetSlot(0, ColorRGB(10, 20, 30));
    SetSlot(1, ColorRGB(40, 50, 60));
    Click(panel, 1019);
    PXColor_Close();
    std::string saved = ReadSettings();
    EXPECT_NE(saved.find("ColorSet000=2 10 20 30 40 50 60"), std::string::npos) << saved;
    EXPECT_NE(saved.find("ColorSet001=3 255 0 0 0 255 0 0 0 0"), std::string::npos) << saved;

    // Hand-written sets load in file order, numbers need not follow on, and
    // unusable or out-of-range entries are dropped on the next save.
    Reopen(
        "[ColorTable]\r\nColorSet005=2 1 2 3 4 5 6\r\nColorSet009=3 300 7\r\n"
        "ColorSet010=0 1 1 1\r\nColorSet011=garbage\r\nColorSet099=2 9 9 9 9 9 9\r\n");
    ASSERT_EQ(Entries(), 2);
    SelectEntry(0);
    EXPECT_EQ(Slot(1), ColorRGB(4, 5, 6));
    SelectEntry(1);
    EXPECT_EQ(Slot(0), ColorRGB(44, 7, 3));  // missing channels keep the previous set's
    Click(panel, 1020);
    PXColor_Close();
    saved = ReadSettings();
    EXPECT_NE(saved.find("ColorSet000=2 1 2 3 4 5 6\r\n"), std::string::npos) << saved;
    EXPECT_EQ(saved.find("ColorSet001"), std::string::npos) << saved;

    // A value longer than the reader takes is cut, never trusted.
    Reopen("[ColorTable]\r\nColorSet000=" + std::string(3000, '7'));
    Click(remote, 1010);
    EXPECT_LE(Entries(), 1);
}

TEST_F(ColorSetPanelTest, SwatchOpensTheSystemColorChooserAndRightClickTheSlider) {
    Palette({0, 255, 9});
    {
        SystemDialogWatcher watcher(TypeColorIntoChooser(10, 20, 30));
        Click(panel, 1029);
        ASSERT_EQ(watcher.seen().size(), 1u);
        EXPECT_EQ(watcher.seen()[0].owner, remote);
    }
    EXPECT_EQ(Slot(1), ColorRGB(10, 20, 30));
    {
        SystemDialogWatcher watcher(IDCANCEL);
        Click(panel, 1030);
        Click(panel, 1031);  // beyond the count: nothing opens
        PostMessageW(GetDlgItem(panel, 1031), WM_RBUTTONUP, 0, MAKELPARAM(5, 5));
        EXPECT_FALSE(PumpUntil([&] { return watcher.seen().size() > 1; }, 300));
        EXPECT_EQ(watcher.seen().size(), 1u);
    }
    EXPECT_EQ(Slot(2), ColorRGB(9, 0, 0));

    // A right click opens the color slider on that slot; its first bar changes it.
    Palette({1, 2, 200, 7});
    SetSlot(2, ColorRGB(200, 100, 50));
    SystemDialogWatcher watcher([&](HWND slider) {
        Scroll(slider, 1020, SB_PAGERIGHT);
        PressDialogButton(slider, IDOK);
    });
    PostMessageW(GetDlgItem(panel, 1030), WM_RBUTTONUP, 0, MAKELPARAM(5, 5));
    ASSERT_TRUE(PumpUntil([&] { return !watcher.seen().empty(); }));
    EXPECT_EQ(Slot(2), ColorRGB(2, 0, 50));
}

TEST_F(ColorSetPanelTest, HostsReadThePanelsColorsThroughTheExports) {
    Click(remote, 1010);
    Palette({250, 0, 0});
    SetSlot(1, ColorRGB(0, 250, 0));
    KTEffectStripe stripe;
    PXColor_GetStripe(stripe);
    ASSERT_EQ(stripe.colorCount, 3);
    EXPECT_EQ(stripe.colors[1], ColorRGB(0, 250, 0));
    KTEffectTile tile;
    PXColor_GetTile(tile);
    EXPECT_EQ(tile.colorCount, 3);
    KTEffectDensityPattern pattern;
    PXColor_GetDensityPattern(pattern);
    ASSERT_EQ(pattern.colorCount, 3);
    EXPECT_FLOAT_EQ(pattern.colors[1].green, 250.0f / 255.0f);
    // One color is too few for a gradation: it keeps what it had.
    SetCount(1);
    KTEffectGradation gradation;
    PXColor_GetGradation(gradation);
    EXPECT_EQ(gradation.colorCount, 2);
    EXPECT_EQ(gradation.colors[1], ColorRGB(255, 255, 255));

    // With fluctuation on, hosts get colors near the palette's; the palette stays.
    SetCount(3);
    CheckDlgButton(panel, 1097, BST_CHECKED);
    bool moved = false;
    for (int i = 0; i < 20; ++i) {
        PXColor_GetStripe(stripe);
        EXPECT_NEAR(stripe.colors[0].red, 250, 43);
        moved = moved || !(stripe.colors[0] == ColorRGB(250, 0, 0));
    }
    EXPECT_TRUE(moved);
    EXPECT_EQ(Slot(0), ColorRGB(250, 0, 0));

    PressSpace(GetDlgItem(panel, 1028));  // the space bar updates from this panel too
    EXPECT_EQ(host.names(), std::vector<std::string>{"stripe"});
}

}  // namespace
