// How the gradation panel shows a parameter object. Only its own opening
// uses this, so hosts never see it; the rounding is kept as it always was.
#include <windows.h>
#include <gtest/gtest.h>

#include "WinTestSupport.h"
#include "dialog/CDlgColor.h"
#include "panels/CDlgGradation.h"
#include "panels/Panels.h"
#include "vellcolor/KTEffectGradation.h"

namespace {

TEST(GradationDisplayTest, ShowsValuesTruncatedAndChecksOnlyTheFirstThreeTypes) {
    RemoveSettings();
    TestHost host;
    CDlgColor remote(host.window(), kNotifyMessage);
    ASSERT_TRUE(remote.Create());
    CDlgGradation& panel = GradationPanel();
    const HWND dialog = panel.hwnd();

    const struct {
        float bias, spiral, mix;
        int type;
        int biasPosition, turns, mixPosition, checkedRadio;
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
        panel.ShowParameters(g);
        EXPECT_EQ(GetScrollPos(GetDlgItem(dialog, 1020), SB_CTL), c.biasPosition) << c.bias;
        EXPECT_EQ(static_cast<int>(GetDlgItemInt(dialog, 1029, nullptr, TRUE)), c.turns);
        EXPECT_EQ(GetScrollPos(GetDlgItem(dialog, 1013), SB_CTL), c.mixPosition);
        for (int id : {1014, 1015, 1016, 1017}) {
            EXPECT_EQ(IsDlgButtonChecked(dialog, id) == BST_CHECKED, id == c.checkedRadio) << id;
        }
    }
    remote.DestroyWindow();
    RemoveSettings();
}

}  // namespace
