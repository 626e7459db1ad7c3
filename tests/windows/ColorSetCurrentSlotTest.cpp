// The color set panel's current slot, which only the panel itself knows:
// it follows clicks and a shrinking count.
#include <windows.h>
#include <commctrl.h>
#include <gtest/gtest.h>

#include "WinTestSupport.h"
#include "dialog/CDlgColor.h"
#include "panels/CDlgColorSet.h"
#include "panels/Panels.h"

namespace {

TEST(ColorSetCurrentSlotTest, FollowsClicksAndStaysBelowTheCount) {
    RemoveSettings();
    TestHost host;
    CDlgColor remote(host.window(), kNotifyMessage);
    ASSERT_TRUE(remote.Create());
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

    // Clicking a swatch beyond the count changes nothing.
    panel.SetColorCount(2);
    Click(panel.hwnd(), 1028 + 5);
    EXPECT_EQ(panel.GetCurrentIndex(), 1);
    remote.DestroyWindow();
    RemoveSettings();
}

}  // namespace
