// The stripe panel in the real DLL: its values as a host reads them, the
// choice buttons, and what the rendered buttons show.
#include <windows.h>
#include <gtest/gtest.h>

#include "RemoteControlTest.h"

namespace {

class StripePanelTest : public RemoteControlTest {
  protected:
    void SetUp() override {
        RemoteControlTest::SetUp();
        Click(remote, 1010);
        panel = EffectPanelOf(remote, 1102);
        ASSERT_NE(panel, nullptr);
        ASSERT_TRUE(IsWindowVisible(panel));
    }
    struct Stripe : KTEffectStripe {
        Stripe() { PXColor_GetStripe(*this); }
    };
    HWND panel = nullptr;
};

TEST_F(StripePanelTest, ButtonsAndBarsSetWhatTheHostReads) {
    Stripe s;
    EXPECT_FLOAT_EQ(s.interval, 20.0f);
    EXPECT_FLOAT_EQ(s.patternWidth, 0.5f);
    EXPECT_EQ(s.direction, 1);
    EXPECT_FLOAT_EQ(s.intersectionBrightness, 0.5f);
    EXPECT_EQ(s.backgroundMode, 0);
    PressDialogButton(panel, 1131);
    PressDialogButton(panel, 1121);
    PumpMessages();
    Scroll(panel, 1104, SB_PAGERIGHT);
    Scroll(panel, 1113, SB_THUMBTRACK, 10);
    SetDlgItemTextW(panel, 1102, L"64");
    s = Stripe();
    EXPECT_EQ(s.direction, 6);
    EXPECT_EQ(s.texture, 3);
    EXPECT_FLOAT_EQ(s.patternWidth, 0.7f);
    EXPECT_FLOAT_EQ(s.intersectionBrightness, 1.0f);
    EXPECT_FLOAT_EQ(s.interval, 64.0f);

    // Nothing shows the texture arrows.
    EXPECT_FALSE(IsWindowVisible(GetDlgItem(panel, 1001)) ||
                 IsWindowVisible(GetDlgItem(panel, 1002)));
}

TEST_F(StripePanelTest, BackgroundColorOnlyWhenThePanelsOwnColorIsChosen) {
    for (int answer : {IDOK, IDCANCEL}) {  // a cancel keeps the color
        SystemDialogWatcher watcher(answer == IDOK ? TypeColorIntoChooser(1, 2, 3) : [](HWND c) {
            PressDialogButton(c, IDCANCEL);
        });
        Click(panel, 1101);
        ASSERT_EQ(watcher.seen().size(), 1u);
        EXPECT_EQ(Stripe().backgroundColor, ColorRGB(1, 2, 3));
    }
    Click(panel, 1115);
    KTEffectStripe s;
    s.SetBackgroundColor(ColorRGB(9, 9, 9));
    PXColor_GetStripe(s);
    EXPECT_EQ(s.backgroundMode, 1);
    EXPECT_EQ(s.backgroundColor, ColorRGB(9, 9, 9));
}

TEST_F(StripePanelTest, ButtonsShowTheirGlyphsAndSamples) {
    RECT d, t;
    GetClientRect(GetDlgItem(panel, 1126), &d);
    GetClientRect(GetDlgItem(panel, 1118), &t);
    const struct {
        int button, x, y;
        COLORREF color;
    } pixels[] = {
        // Direction 1: two horizontal lines at a third and two thirds; the
        // selected one framed black, the others grey.
        {1126, d.right / 2, d.bottom / 3, RGB(0, 0, 0)},
        {1126, d.right / 2, d.bottom / 2, RGB(255, 255, 255)},
        {1126, 0, d.bottom / 2, RGB(0, 0, 0)},
        {1127, 0, d.bottom / 2, RGB(0xDC, 0xDC, 0xDC)},
        // Texture 0 covers the band fully: black across the middle, white
        // above and below it.
        {1118, t.right / 2, t.bottom / 2, RGB(0, 0, 0)},
        {1118, t.right / 2, 2, RGB(255, 255, 255)},
        {1118, t.right / 2, t.bottom - 3, RGB(255, 255, 255)},
        // The background button is filled with its color, white at first.
        {1101, 2, 2, RGB(255, 255, 255)},
    };
    for (const auto& p : pixels)
        EXPECT_EQ(ScreenPixel(GetDlgItem(panel, p.button), p.x, p.y), p.color) << p.button;
    // Texture 4 is lighter in the middle of the band than texture 0.
    EXPECT_GT(GetRValue(ScreenPixel(GetDlgItem(panel, 1122), t.right / 2, t.bottom / 2)), 60);
}

TEST_F(StripePanelTest, KeyboardChoosesATextureAndSpaceUpdates) {
    TypeKeys(GetDlgItem(panel, 1120), {VK_RETURN, VK_SPACE});
    EXPECT_EQ(host.names(), std::vector<std::string>{"stripe"});
    EXPECT_EQ(Stripe().texture, 2);
    host.Clear();
    PressSpace(GetDlgItem(panel, 1102));
    EXPECT_EQ(host.received().size(), 1u);
    EXPECT_EQ(WindowText(GetDlgItem(panel, 1102)), L"20");
}

}  // namespace
