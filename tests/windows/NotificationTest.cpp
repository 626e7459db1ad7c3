// What the host hears: the update button, the space bar from anywhere in the
// dialog, the operation buttons, and the message box when nobody listens.
#include <gtest/gtest.h>

#include "RemoteControlTest.h"

namespace {

using NotificationTest = RemoteControlTest;
using Names = std::vector<std::string>;

TEST_F(NotificationTest, UpdateSendsTheCheckedEffectAndTheFrameShowsItsName) {
    const struct {
        int radio;
        const char* name;
        const wchar_t* caption;
    } cases[] = {
        {1006, "tile", L"ﾀｲﾙ"},
        {1010, "stripe", L"縞模様"},
        {1009, "density_pattern", L"等値線模様"},
        {1007, "image_mapping", L"画像貼り付け"},
        {1003, "gradation", L"ｸﾞﾗﾃﾞｰｼｮﾝ"},
        {0, "", L"ｸﾞﾗﾃﾞｰｼｮﾝ"},  // no effect checked: an empty name
    };
    for (const auto& c : cases) {
        host.Clear();
        if (c.radio != 0) {
            Click(remote, c.radio);
        } else {
            for (int radio : {1003, 1006, 1010, 1009, 1007}) CheckDlgButton(remote, radio, 0);
        }
        EXPECT_EQ(WindowText(GetDlgItem(remote, 1002)), c.caption);
        Click(remote, 1000);
        ASSERT_EQ(host.names(), Names{c.name});
        EXPECT_EQ(host.received()[0].wParam, strlen(c.name) + 1);
    }
}

TEST_F(NotificationTest, SpaceBarAnywhereInTheDialogUpdatesOnce) {
    Click(remote, 1009);
    // The default button among the controls must not also click.
    for (int target : {1009, 1003, 1000, 1005}) {
        host.Clear();
        PressSpace(GetDlgItem(remote, target));
        EXPECT_EQ(host.names(), Names{"density_pattern"}) << "control " << target;
    }
    EXPECT_EQ(IsDlgButtonChecked(remote, 1009), BST_CHECKED);
    // Panels ask for it with their key-down message.
    host.Clear();
    SendMessageW(remote, WM_APP + 1000, 0, VK_SPACE);
    EXPECT_EQ(host.names(), Names{"density_pattern"});
}

TEST_F(NotificationTest, TabMovesFromTheEffectsIntoTheEffectPanel) {
    SetFocus(GetDlgItem(remote, 1003));
    PostMessageW(GetFocus(), WM_KEYDOWN, VK_TAB, 0x000F0001);
    PumpMessages();
    EXPECT_TRUE(IsChild(GetDlgItem(remote, 1002), GetFocus()));
    EXPECT_TRUE(host.received().empty());
}

TEST_F(NotificationTest, OperationButtonsSendTheirNamesWhateverTheEffect) {
    Click(remote, 1010);
    for (int id : {1001, 1004, 1005}) Click(remote, id);
    // The edge button is never visible; its command still works.
    EXPECT_FALSE(IsWindowVisible(GetDlgItem(remote, 1008)));
    PressDialogButton(remote, 1008);
    PumpMessages();
    EXPECT_EQ(host.names(),
              (Names{"uniform_color", "color_bokashi", "reverse_color", "color_edge"}));
    EXPECT_EQ(host.received()[0].wParam, 14u);
}

TEST(NoRecipientTest, EveryButtonTellsTheUserAndSendsNothing) {
    RemoveSettings();
    ASSERT_TRUE(PXColor_Open(nullptr, kNotifyMessage));
    HWND remote = RemoteControl();
    PXColor_ShowWindow(SW_SHOWNORMAL);
    {
        SystemDialogWatcher watcher;
        for (int id : {1000, 1001, 1004, 1005}) Click(remote, id);
        SendMessageW(remote, WM_APP + 1000, 0, VK_SPACE);
        ASSERT_EQ(watcher.seen().size(), 5u);
        for (const auto& box : watcher.seen()) {
            EXPECT_EQ(box.text, L"送信相手がいない。");
            EXPECT_EQ(box.owner, remote);
            EXPECT_EQ(box.caption, L"win_notification_tests");
        }
    }
    PXColor_Close();
    RemoveSettings();
}

}  // namespace
