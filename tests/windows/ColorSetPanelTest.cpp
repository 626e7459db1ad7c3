// The color set panel in the real DLL: counts per effect, the palette
// operations, registered sets and their settings file, the system color
// chooser and the color slider, and the colors a host reads back.
#include <windows.h>
#include <commctrl.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "RemoteControlTest.h"

namespace {

const UINT kSetPanelColor = WM_APP + 1000;
const UINT kGetPanelColor = WM_APP + 1001;
const int kCountSpin = 1012;
const int kSetList = 1038;

class ColorSetPanelTest : public RemoteControlTest {
  protected:
    void SetUp() override {
        RemoveSettings();
        Open();
    }
    void Open() {
        RemoteControlTest::Open();
        panel = ColorSetPanelOf(remote);
        ASSERT_NE(panel, nullptr);
    }
    void Reopen() {
        PXColor_Close();
        Open();
    }

    int Count() const {
        return static_cast<int>(SendDlgItemMessageW(panel, kCountSpin, UDM_GETPOS32, 0, 0));
    }
    // As the up-down's arrows would set it.
    void SetCount(int n) const { SendDlgItemMessageW(panel, kCountSpin, UDM_SETPOS32, 0, n); }
    void Range(int* min, int* max) const {
        SendDlgItemMessageW(panel, kCountSpin, UDM_GETRANGE32, reinterpret_cast<WPARAM>(min),
                            reinterpret_cast<LPARAM>(max));
    }
    void SetSlot(int i, int r, int g, int b) const {
        unsigned char bytes[3] = {static_cast<unsigned char>(r), static_cast<unsigned char>(g),
                                  static_cast<unsigned char>(b)};
        SendMessageW(panel, kSetPanelColor, i, reinterpret_cast<LPARAM>(bytes));
    }
    ColorRGB Slot(int i) const {
        const auto* p =
            reinterpret_cast<const unsigned char*>(SendMessageW(panel, kGetPanelColor, i, 0));
        return p == nullptr ? ColorRGB(1, 2, 3) : ColorRGB(p[0], p[1], p[2]);
    }
    void Palette(std::initializer_list<ColorRGB> colors) const {
        SetCount(static_cast<int>(colors.size()));
        int i = 0;
        for (const ColorRGB& c : colors) SetSlot(i++, c.red, c.green, c.blue);
    }
    int Entries() const {
        return static_cast<int>(SendDlgItemMessageW(panel, kSetList, CB_GETCOUNT, 0, 0));
    }
    void SelectEntry(int entry) const {
        SendDlgItemMessageW(panel, kSetList, CB_SETCURSEL, entry, 0);
        SendMessageW(panel, WM_COMMAND, MAKEWPARAM(kSetList, CBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(GetDlgItem(panel, kSetList)));
    }
    void ChooseMenuItem(int button, int position) const {
        PopupMenuPicker picker(position);
        Click(panel, button);
        ASSERT_TRUE(picker.seen());
    }

    HWND panel = nullptr;
};

TEST_F(ColorSetPanelTest, CountRangeFollowsTheChosenEffect) {
    struct {
        int radio, min;
    } cases[] = {{1010, 1}, {1006, 2}, {1009, 1}, {1003, 2}};
    for (const auto& c : cases) {
        Click(remote, c.radio);
        int min = 0, max = 0;
        Range(&min, &max);
        EXPECT_EQ(min, c.min) << c.radio;
        EXPECT_EQ(max, 7);
        EXPECT_TRUE(IsWindowVisible(panel));
    }
    Click(remote, 1007);  // image mapping takes no colors
    EXPECT_FALSE(IsWindowVisible(panel));

    // Stripe's single color comes back into range for tile.
    Click(remote, 1010);
    SetCount(1);
    Click(remote, 1006);
    EXPECT_EQ(Count(), 2);

    // The four-corner gradation asks for four colors, never more than seven.
    SendMessageW(remote, WM_APP + 1005, 0, 4);
    EXPECT_EQ(Count(), 4);
    SendMessageW(remote, WM_APP + 1005, 0, 12);
    EXPECT_EQ(Count(), 7);
    SendMessageW(remote, WM_APP + 1005, 1, 3);  // only wParam 0 counts
    EXPECT_EQ(Count(), 7);
}

TEST_F(ColorSetPanelTest, SlotsBeyondTheCountKeepTheirColorsButAreNotHandedOut) {
    Palette({ColorRGB(10, 0, 0), ColorRGB(20, 0, 0), ColorRGB(30, 0, 0), ColorRGB(40, 0, 0),
             ColorRGB(50, 0, 0)});
    SetCount(3);
    EXPECT_EQ(SendMessageW(panel, kGetPanelColor, 3, 0), 0);
    EXPECT_EQ(SendMessageW(panel, kGetPanelColor, -1, 0), 0);
    SetSlot(4, 99, 99, 99);  // refused: beyond the count
    SetCount(5);
    EXPECT_EQ(Slot(3), ColorRGB(40, 0, 0));
    EXPECT_EQ(Slot(4), ColorRGB(50, 0, 0));
}

TEST_F(ColorSetPanelTest, RotationReversalAndTheirEnabling) {
    Palette({ColorRGB(1, 0, 0), ColorRGB(2, 0, 0)});
    for (int id : {1021, 1022, 1024, 1026})
        EXPECT_FALSE(IsWindowEnabled(GetDlgItem(panel, id))) << id;
    Palette({ColorRGB(1, 0, 0), ColorRGB(2, 0, 0), ColorRGB(3, 0, 0), ColorRGB(4, 0, 0)});
    for (int id : {1021, 1022, 1024, 1026})
        EXPECT_TRUE(IsWindowEnabled(GetDlgItem(panel, id))) << id;

    Click(panel, 1021);
    EXPECT_EQ(Slot(0).red, 2);
    EXPECT_EQ(Slot(3).red, 1);
    Click(panel, 1022);
    Click(panel, 1022);
    EXPECT_EQ(Slot(0).red, 4);
    EXPECT_EQ(Slot(1).red, 1);
    Click(panel, 1018);
    EXPECT_EQ(Slot(0).red, 3);
    EXPECT_EQ(Slot(3).red, 4);
}

TEST_F(ColorSetPanelTest, RainbowTakesSevenColors) {
    Palette({ColorRGB(0, 0, 0), ColorRGB(0, 0, 0)});
    Click(panel, 1023);
    EXPECT_EQ(Count(), 7);
    EXPECT_EQ(Slot(0), ColorRGB(255, 0, 0));
    for (int i = 1; i < 7; ++i) {
        const ColorRGB c = Slot(i);
        EXPECT_EQ(std::max({c.red, c.green, c.blue}), 255) << i;
        EXPECT_EQ(std::min({c.red, c.green, c.blue}), 0) << i;
    }
}

TEST_F(ColorSetPanelTest, InterpolationInRGBAndInHueBothWaysRound) {
    Palette({ColorRGB(0, 0, 0), ColorRGB(7, 7, 7), ColorRGB(7, 7, 7), ColorRGB(255, 90, 30)});
    Click(panel, 1024);  // RGB is the starting mode
    EXPECT_EQ(Slot(1), ColorRGB(85, 30, 10));
    EXPECT_EQ(Slot(2), ColorRGB(170, 60, 20));

    {
        PopupMenuPicker picker(1);
        Click(panel, 1026);
        ASSERT_EQ(picker.items().size(), 2u);
        EXPECT_EQ(picker.items()[0].text, L"RGB補間");
        EXPECT_TRUE(picker.items()[0].checked);
        EXPECT_EQ(picker.items()[1].text, L"色相補間（順方向/逆方向）");
    }
    Palette({ColorRGB(255, 0, 0), ColorRGB(0, 0, 0), ColorRGB(0, 0, 255)});
    Click(panel, 1024);
    EXPECT_EQ(Slot(1), ColorRGB(0, 255, 0));  // rising through green
    Click(panel, 1024);
    EXPECT_EQ(Slot(1), ColorRGB(255, 0, 255));  // falling through magenta
}

TEST_F(ColorSetPanelTest, RandomModeMenuChoosesTheCategoryWithoutFilling) {
    Palette({ColorRGB(5, 6, 7), ColorRGB(8, 9, 10), ColorRGB(11, 12, 13)});
    {
        PopupMenuPicker picker(4);  // "灰色", after "全色", a separator, "原色", "ﾊﾟｽﾃﾙｶﾗｰ"
        Click(panel, 1025);
        ASSERT_TRUE(picker.seen());
        const wchar_t* texts[] = {L"全色", L"",     L"原色", L"ﾊﾟｽﾃﾙｶﾗｰ", L"灰色",
                                  L"明色", L"暗色", L"暖色", L"寒色",     L"近い色"};
        const UINT modes[] = {0, 0, 1, 2, 3, 5, 4, 7, 6, 20};
        ASSERT_EQ(picker.items().size(), 10u);
        for (int i = 0; i < 10; ++i) {
            EXPECT_EQ(picker.items()[i].text, texts[i]) << i;
            if (i != 1) {
                EXPECT_EQ(picker.items()[i].id, 0x83E8u + modes[i]) << i;
            }
        }
        EXPECT_TRUE(picker.items()[0].checked);
    }
    EXPECT_EQ(Slot(0), ColorRGB(5, 6, 7));
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
    EXPECT_TRUE(picker.items()[4].checked);
    EXPECT_FALSE(picker.items()[0].checked);
}

TEST_F(ColorSetPanelTest, RegisteringSelectingAndDeletingSets) {
    Palette({ColorRGB(1, 1, 1), ColorRGB(2, 2, 2)});
    Click(panel, 1019);
    Palette({ColorRGB(3, 3, 3), ColorRGB(4, 4, 4), ColorRGB(5, 5, 5)});
    Click(panel, 1019);
    Palette({ColorRGB(1, 1, 1), ColorRGB(2, 2, 2)});
    Click(panel, 1019);  // the same again: moves to the front
    ASSERT_EQ(Entries(), 2);

    SelectEntry(1);
    EXPECT_EQ(Count(), 3);
    EXPECT_EQ(Slot(2), ColorRGB(5, 5, 5));
    EXPECT_EQ(SendDlgItemMessageW(panel, kSetList, CB_GETCURSEL, 0, 0), 1);
    SelectEntry(0);
    EXPECT_EQ(Count(), 2);
    EXPECT_EQ(Slot(1), ColorRGB(2, 2, 2));

    SendDlgItemMessageW(panel, kSetList, CB_SETCURSEL, 0, 0);
    Click(panel, 1020);
    ASSERT_EQ(Entries(), 1);
    SelectEntry(0);
    EXPECT_EQ(Count(), 3);
}

TEST_F(ColorSetPanelTest, OneColorSetsAreOfferedOnlyWhileOneColorIsAllowed) {
    Click(remote, 1010);
    Palette({ColorRGB(9, 9, 9)});
    Click(panel, 1019);
    EXPECT_EQ(Entries(), 1);
    Click(remote, 1006);
    EXPECT_EQ(Entries(), 0);
    Click(remote, 1009);
    EXPECT_EQ(Entries(), 1);
}

TEST_F(ColorSetPanelTest, TheSixtyFifthSetIsRefusedWithTheMessage) {
    SetCount(2);
    for (int i = 0; i < 64; ++i) {
        SetSlot(0, i, 0, 0);
        Click(panel, 1019);
    }
    EXPECT_EQ(Entries(), 64);
    SystemDialogWatcher watcher;
    SetSlot(0, 200, 0, 0);
    Click(panel, 1019);
    ASSERT_EQ(watcher.seen().size(), 1u);
    EXPECT_EQ(watcher.seen()[0].text, L"登録数が最大の64を超えています。");
    // A child cannot own a message box: the system gives it to the remote control.
    EXPECT_EQ(watcher.seen()[0].owner, remote);
    EXPECT_EQ(watcher.seen()[0].caption, L"エラー");
    EXPECT_EQ(Entries(), 64);
}

TEST_F(ColorSetPanelTest, RegisteredSetsSurviveCloseAndReopen) {
    Palette({ColorRGB(255, 0, 0), ColorRGB(0, 255, 0), ColorRGB(0, 0, 255)});
    Click(panel, 1019);
    Palette({ColorRGB(10, 20, 30), ColorRGB(40, 50, 60)});
    Click(panel, 1019);
    PXColor_Close();
    const std::string saved = ReadSettings();
    EXPECT_NE(saved.find("ColorSet000=2 10 20 30 40 50 60"), std::string::npos) << saved;
    EXPECT_NE(saved.find("ColorSet001=3 255 0 0 0 255 0 0 0 255"), std::string::npos) << saved;

    Open();
    ASSERT_EQ(Entries(), 2);
    SelectEntry(1);
    EXPECT_EQ(Count(), 3);
    EXPECT_EQ(Slot(1), ColorRGB(0, 255, 0));

    // A deleted set stays deleted.
    SendDlgItemMessageW(panel, kSetList, CB_SETCURSEL, 0, 0);
    Click(panel, 1020);
    Reopen();
    EXPECT_EQ(Entries(), 1);
    EXPECT_EQ(ReadSettings().find("ColorSet001"), std::string::npos);
}

TEST_F(ColorSetPanelTest, HandWrittenSetsLoadAsWrittenAndNeverCrash) {
    PXColor_Close();
    WriteSettings(
        "[ColorTable]\r\n"
        "ColorSet005=2 1 2 3 4 5 6\r\n"
        "ColorSet007=9 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20 21 22 23 24 25 26 27\r\n"
        "ColorSet009=3 300 7\r\n"
        "ColorSet010=0 1 1 1\r\n"
        "ColorSet011=garbage\r\n"
        "ColorSet012=\r\n"
        "ColorSet099=2 9 9 9 9 9 9\r\n");
    Open();
    Click(remote, 1010);  // stripe lists every count
    ASSERT_EQ(Entries(), 3);
    SelectEntry(0);
    EXPECT_EQ(Count(), 2);
    EXPECT_EQ(Slot(1), ColorRGB(4, 5, 6));
    SelectEntry(1);
    EXPECT_EQ(Count(), 7);
    EXPECT_EQ(Slot(6), ColorRGB(19, 20, 21));
    SelectEntry(2);
    EXPECT_EQ(Count(), 3);
    // 300 is stored in 8 bits; missing channels keep the previous set's.
    EXPECT_EQ(Slot(0), ColorRGB(44, 7, 3));
    EXPECT_EQ(Slot(2), ColorRGB(7, 8, 9));
    PXColor_Close();
    const std::string saved = ReadSettings();
    EXPECT_NE(saved.find("ColorSet000=2 1 2 3 4 5 6"), std::string::npos) << saved;
    EXPECT_EQ(saved.find("ColorSet003"), std::string::npos) << saved;

    const std::string junk[] = {
        std::string("[ColorTable]\r\nColorSet000=") + std::string(3000, '7'),
        "[ColorTable]\r\nColorSet000=-2147483648 1 2 3\r\nColorSet001=7" + std::string(600, ' ') +
            "5",
        std::string("\xff\xfe[ColorTable]\r\nColorSet000=2 1\r\n")};
    for (const std::string& content : junk) {
        WriteSettings(content);
        Open();
        Click(remote, 1010);
        EXPECT_LE(Entries(), 2);
        PXColor_Close();
    }
    Open();
}

TEST_F(ColorSetPanelTest, SwatchOpensTheSystemColorChooser) {
    Palette({ColorRGB(0, 0, 0), ColorRGB(255, 255, 255), ColorRGB(9, 9, 9)});
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
        EXPECT_EQ(watcher.seen().size(), 1u);
    }
    EXPECT_EQ(Slot(2), ColorRGB(9, 9, 9));
    {
        SystemDialogWatcher watcher(IDCANCEL);
        Click(panel, 1033);  // beyond the count: nothing opens
        PumpMessages();
        EXPECT_TRUE(watcher.seen().empty());
    }
}

TEST_F(ColorSetPanelTest, RightClickOpensTheSliderThatEditsSlotsLive) {
    Palette({ColorRGB(1, 1, 1), ColorRGB(2, 2, 2), ColorRGB(200, 100, 50), ColorRGB(7, 8, 9)});
    ColorRGB whileOpen[3];
    int barsAtOpening[3] = {-1, -1, -1};
    std::wstring caption;
    SystemDialogWatcher watcher([&](HWND slider) {
        caption = WindowText(slider);
        for (int i = 0; i < 3; ++i)
            barsAtOpening[i] = GetScrollPos(GetDlgItem(slider, 1020 + i), SB_CTL);
        HWND red = GetDlgItem(slider, 1020);
        SendMessageW(slider, WM_HSCROLL, SB_LINERIGHT, reinterpret_cast<LPARAM>(red));
        whileOpen[0] = Slot(2);
        SendMessageW(slider, WM_HSCROLL, SB_PAGERIGHT, reinterpret_cast<LPARAM>(red));
        whileOpen[1] = Slot(2);
        // Step to slot 4: the bars follow it, and the next scroll edits it.
        SendDlgItemMessageW(slider, 1121, UDM_SETPOS32, 0, 4);
        HWND green = GetDlgItem(slider, 1021);
        SendMessageW(slider, WM_HSCROLL, MAKEWPARAM(SB_THUMBTRACK, 100),
                     reinterpret_cast<LPARAM>(green));
        whileOpen[2] = Slot(3);
        PressDialogButton(slider, IDOK);
    });
    PostMessageW(GetDlgItem(panel, 1030), WM_RBUTTONUP, 0, MAKELPARAM(5, 5));
    PumpUntil([&] { return !watcher.seen().empty(); });
    ASSERT_EQ(watcher.seen().size(), 1u);
    EXPECT_EQ(caption, L"色ｽﾗｲﾀﾞｰ");
    // The blue bar takes all three values in turn and ends at blue.
    EXPECT_EQ(barsAtOpening[0], 0);
    EXPECT_EQ(barsAtOpening[1], 0);
    EXPECT_EQ(barsAtOpening[2], 50);
    EXPECT_EQ(whileOpen[0], ColorRGB(1, 0, 50));
    EXPECT_EQ(whileOpen[1], ColorRGB(3, 0, 50));
    EXPECT_EQ(whileOpen[2], ColorRGB(7, 100, 9));
    EXPECT_EQ(Slot(2), ColorRGB(3, 0, 50));

    // A right click beyond the count opens nothing.
    SystemDialogWatcher none(IDOK);
    PostMessageW(GetDlgItem(panel, 1033), WM_RBUTTONUP, 0, MAKELPARAM(5, 5));
    EXPECT_FALSE(PumpUntil([&] { return !none.seen().empty(); }, 300));
}

TEST_F(ColorSetPanelTest, HostsReadThePanelsColorsThroughTheExports) {
    Click(remote, 1010);
    Palette({ColorRGB(250, 0, 0), ColorRGB(0, 250, 0), ColorRGB(0, 0, 250)});
    KTEffectStripe stripe;
    PXColor_GetStripe(stripe);
    ASSERT_EQ(stripe.colorCount, 3);
    EXPECT_EQ(stripe.colors[2], ColorRGB(0, 0, 250));

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

    // With fluctuation on, hosts get colors near the palette's; the palette
    // itself stays.
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
}

TEST_F(ColorSetPanelTest, SpaceBarInThePanelUpdatesOnce) {
    HWND swatch = GetDlgItem(panel, 1028);
    SetFocus(swatch);
    PostMessageW(swatch, WM_KEYDOWN, VK_SPACE, 0x00390001);
    PumpMessages();
    ASSERT_EQ(host.received().size(), 1u);
    EXPECT_EQ(host.received()[0].name, "gradation");
}

}  // namespace
