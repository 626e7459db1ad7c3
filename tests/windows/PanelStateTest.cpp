// What only the panels themselves know: the color set panel's current slot,
// and how the gradation panel shows a parameter object (only its own opening
// uses that, so hosts never see it; the rounding is kept as it always was).
#include <windows.h>
#include <gtest/gtest.h>

#include "WinTestSupport.h"
#include "dialog/CDlgColor.h"
#include "panels/CDlgColorSet.h"
#include "panels/CDlgGradation.h"
#include "panels/Panels.h"

namespace {

class PanelStateTest : public ::testing::Test {
  protected:
    void SetUp() override {
        RemoveSettings();
        ASSERT_TRUE(remote.Create());
    }
    void TearDown() override {
        remote.DestroyWindow();
        RemoveSettings();
    }
    TestHost host;
    CDlgColor remote{host.window(), kNotifyMessage};
};

TEST_F(PanelStateTest, CurrentSlotFollowsClicksAndStaysBelowTheCount) {
    CDlgColorSet& panel = ColorSetPanel();
    EXPECT_EQ(panel.GetCurrentIndex(), 0);
    panel.SetColorCount(5);
    {
        SystemDialogWatcher watcher(IDCANCEL);  // the color chooser
        Click(panel.hwnd(), 1028 + 4);
        ASSERT_EQ(watcher.seen().size(), 1u);
    }
    EXPECT_EQ(panel.GetCurrentIndex(), 4);
    panel.SetColorCount(3);
    EXPECT_EQ(panel.GetCurrentIndex(), 2);
    panel.SetColorCount(5);
    EXPECT_EQ(panel.GetCurrentIndex(), 2);
    panel.SetColorCount(2);
    Click(panel.hwnd(), 1028 + 5);  // beyond the count: changes nothing
    EXPECT_EQ(panel.GetCurrentIndex(), 1);
}

TEST_F(PanelStateTest, GradationShowsValuesTruncatedAndChecksOnlyTheFirstThreeTypes) {
    const HWND dialog = GradationPanel().hwnd();
    const struct {
        float bias, spiral, mix;
        int type, biasPosition, turns, mixPosition, checkedRadio;
    } cases[] = {
        {2.5f, 720.0f, 0.99f, 1, 4, 2, 63, 1015},
        {-2.5f, -720.0f, 0.5f, 101, -4, -1, 32, 1016},
        {0.0f, 350.0f, 1.0f, 8, 0, 1, 64, 0},  // the spiral radio lies outside the range
    };
    for (const auto& c : cases) {
        KTEffectGradation g;
        g.SetBias(c.bias);
        g.spiralAngle = c.spiral;
        g.SetMix(c.mix);
        g.SetType(c.type);
        GradationPanel().ShowParameters(g);
        EXPECT_EQ(GetScrollPos(GetDlgItem(dialog, 1020), SB_CTL), c.biasPosition) << c.bias;
        EXPECT_EQ(static_cast<int>(GetDlgItemInt(dialog, 1029, nullptr, TRUE)), c.turns);
        EXPECT_EQ(GetScrollPos(GetDlgItem(dialog, 1013), SB_CTL), c.mixPosition);
        for (int id : {1014, 1015, 1016, 1017})
            EXPECT_EQ(IsDlgButtonChecked(dialog, id) == BST_CHECKED, id == c.checkedRadio) << id;
    }
}

}  // namespace
