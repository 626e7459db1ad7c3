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

    // Presses a button the way its own click would arrive.
    void Press(int id) const {
        SendMessageW(panel, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED),
                     reinterpret_cast<LPARAM>(GetDlgItem(panel, id)));
    }
    // The button's pixel as painted on the screen.
    COLORREF PixelOf(int id, int x, int y) const {
        HWND button = GetDlgItem(panel, id);
        UpdateWindow(button);
        HDC dc = GetDC(button);
        const COLORREF c = GetPixel(dc, x, y);
        ReleaseDC(button, dc);
        return c;
    }
    SIZE SizeOf(int id) const {
        RECT r;
        GetClientRect(GetDlgItem(panel, id), &r);
        return SIZE{r.right, r.bottom};
    }

    HWND panel = nullptr;
};

TEST_F(StripePanelTest, AFreshPanelDeliversTheStartingValues) {
    const Stripe s;
    EXPECT_FLOAT_EQ(s.interval, 20.0f);
    EXPECT_FLOAT_EQ(s.patternWidth, 0.5f);
    EXPECT_EQ(s.direction, 1);
    EXPECT_EQ(s.texture, 0);
    EXPECT_FLOAT_EQ(s.intersectionBrightness, 0.5f);
    EXPECT_EQ(s.backgroundMode, 0);
    EXPECT_EQ(s.backgroundColor, ColorRGB(255, 255, 255));
    EXPECT_FALSE(IsWindowVisible(GetDlgItem(panel, 1001)));
    EXPECT_FALSE(IsWindowVisible(GetDlgItem(panel, 1002)));
}

TEST_F(StripePanelTest, ButtonsBarsAndArrowsSetWhatTheHostReads) {
    Press(1131);
    Press(1121);
    SendMessageW(panel, WM_HSCROLL, SB_PAGERIGHT,
                 reinterpret_cast<LPARAM>(GetDlgItem(panel, 1104)));
    SendMessageW(panel, WM_HSCROLL, MAKEWPARAM(SB_THUMBTRACK, 10),
                 reinterpret_cast<LPARAM>(GetDlgItem(panel, 1113)));
    SetDlgItemTextW(panel, 1102, L"64");
    Stripe s;
    EXPECT_EQ(s.direction, 6);
    EXPECT_EQ(s.texture, 3);
    EXPECT_FLOAT_EQ(s.patternWidth, 0.7f);
    EXPECT_FLOAT_EQ(s.intersectionBrightness, 1.0f);
    EXPECT_FLOAT_EQ(s.interval, 64.0f);

    // The hidden arrows step through the textures and stop at both ends.
    const struct {
        int button, texture;
        bool previousEnabled, nextEnabled;
    } steps[] = {{1118, 0, false, true}, {1001, 0, false, true}, {1002, 1, true, true},
                 {1125, 7, true, false}, {1002, 7, true, false}, {1001, 6, true, true}};
    for (const auto& step : steps) {
        Press(step.button);
        PostMessageW(panel, WM_NULL, 0, 0);
        PumpMessages();
        EXPECT_EQ(Stripe().texture, step.texture) << step.button;
        EXPECT_EQ(IsWindowEnabled(GetDlgItem(panel, 1001)) != 0, step.previousEnabled);
        EXPECT_EQ(IsWindowEnabled(GetDlgItem(panel, 1002)) != 0, step.nextEnabled);
    }
}

TEST_F(StripePanelTest, BackgroundColorOnlyWhenThePanelsOwnColorIsChosen) {
    {
        SystemDialogWatcher watcher(TypeColorIntoChooser(1, 2, 3));
        Click(panel, 1101);
        ASSERT_EQ(watcher.seen().size(), 1u);
    }
    EXPECT_EQ(Stripe().backgroundColor, ColorRGB(1, 2, 3));
    {
        SystemDialogWatcher watcher(IDCANCEL);
        Click(panel, 1101);
    }
    EXPECT_EQ(Stripe().backgroundColor, ColorRGB(1, 2, 3));

    Click(panel, 1115);
    KTEffectStripe s;
    s.SetBackgroundColor(ColorRGB(9, 9, 9));
    PXColor_GetStripe(s);
    EXPECT_EQ(s.backgroundMode, 1);
    EXPECT_EQ(s.backgroundColor, ColorRGB(9, 9, 9));
}

TEST_F(StripePanelTest, ButtonsShowTheirGlyphsAndSamples) {
    // Direction 1: two horizontal lines at a third and two thirds.
    const SIZE d = SizeOf(1126);
    EXPECT_EQ(PixelOf(1126, d.cx / 2, d.cy / 3), RGB(0, 0, 0));
    EXPECT_EQ(PixelOf(1126, d.cx / 2, d.cy / 2), RGB(255, 255, 255));
    EXPECT_EQ(PixelOf(1126, 0, d.cy / 2), RGB(0, 0, 0));           // selected: black frame
    EXPECT_EQ(PixelOf(1127, 0, d.cy / 2), RGB(0xDC, 0xDC, 0xDC));  // the others grey

    // Texture 0 covers the band fully: black across the middle, white
    // above and below it.
    const SIZE t = SizeOf(1118);
    EXPECT_EQ(PixelOf(1118, t.cx / 2, t.cy / 2), RGB(0, 0, 0));
    EXPECT_EQ(PixelOf(1118, t.cx / 2, 2), RGB(255, 255, 255));
    EXPECT_EQ(PixelOf(1118, t.cx / 2, t.cy - 3), RGB(255, 255, 255));
    // Texture 4 is lighter in the middle of the band than texture 0.
    EXPECT_GT(GetRValue(PixelOf(1122, t.cx / 2, t.cy / 2)), 60);
}

TEST_F(StripePanelTest, KeyboardChoosesATextureAndSpaceUpdates) {
    TypeKeys(GetDlgItem(panel, 1120), {VK_RETURN, VK_SPACE});
    ASSERT_EQ(host.received().size(), 1u);
    EXPECT_EQ(host.received()[0].name, "stripe");
    EXPECT_EQ(Stripe().texture, 2);

    host.Clear();
    HWND interval = GetDlgItem(panel, 1102);
    SetFocus(interval);
    PostMessageW(interval, WM_KEYDOWN, VK_SPACE, 0x00390001);
    PumpMessages();
    EXPECT_EQ(host.received().size(), 1u);
    EXPECT_EQ(WindowText(interval), L"20");
}

}  // namespace
