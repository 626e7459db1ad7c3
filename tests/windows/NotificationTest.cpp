// What the host hears: the update button, the space bar from anywhere in the
// dialog, the operation buttons, and the message box when nobody listens.
#include <gtest/gtest.h>

#include "RemoteControlTest.h"
#include "dialog/CDlgColor.h"

namespace {

using NotificationTest = RemoteControlTest;

struct EffectCase {
    int radio;
    const char* name;
    const wchar_t* caption;
};

TEST_F(NotificationTest, UpdateSendsTheCheckedEffectAndTheFrameShowsItsName) {
    const EffectCase cases[] = {
        {1006, "tile", L"ﾀｲﾙ"},
        {1010, "stripe", L"縞模様"},
        {1009, "density_pattern", L"等値線模様"},
        {1007, "image_mapping", L"画像貼り付け"},
        {1003, "gradation", L"ｸﾞﾗﾃﾞｰｼｮﾝ"},
    };
    EXPECT_EQ(WindowText(GetDlgItem(remote, 1002)), L"ｸﾞﾗﾃﾞｰｼｮﾝ");
    for (const EffectCase& c : cases) {
        host.Clear();
        Click(remote, c.radio);
        EXPECT_EQ(WindowText(GetDlgItem(remote, 1002)), c.caption);
        Click(remote, 1000);
        ASSERT_EQ(host.received().size(), 1u) << c.name;
        EXPECT_EQ(host.received()[0].name, c.name);
        EXPECT_EQ(host.received()[0].wParam, strlen(c.name) + 1);
    }
}

TEST_F(NotificationTest, UpdateWithNoEffectCheckedSendsAnEmptyName) {
    for (int radio : {1003, 1006, 1010, 1009, 1007}) CheckDlgButton(remote, radio, BST_UNCHECKED);
    Click(remote, 1000);
    ASSERT_EQ(host.received().size(), 1u);
    EXPECT_EQ(host.received()[0].name, "");
    EXPECT_EQ(host.received()[0].wParam, 1u);
}

TEST_F(NotificationTest, SpaceBarAnywhereInTheDialogUpdatesOnce) {
    Click(remote, 1009);
    // A key press as the keyboard would queue it, for several controls,
    // the default button among them (which must not also click).
    for (int target : {1009, 1003, 1000, 1005}) {
        host.Clear();
        SetFocus(GetDlgItem(remote, target));
        PostMessageW(GetDlgItem(remote, target), WM_KEYDOWN, VK_SPACE, 0x00390001);
        PostMessageW(GetDlgItem(remote, target), WM_KEYUP, VK_SPACE, 0xC0390001);
        PumpMessages();
        ASSERT_EQ(host.received().size(), 1u) << "control " << target;
        EXPECT_EQ(host.received()[0].name, "density_pattern");
        EXPECT_EQ(host.received()[0].wParam, 16u);
    }
    // The effect did not change on the way.
    EXPECT_EQ(IsDlgButtonChecked(remote, 1009), BST_CHECKED);
}

TEST_F(NotificationTest, TabMovesFromTheEffectsIntoTheEffectPanel) {
    SetFocus(GetDlgItem(remote, 1003));
    PostMessageW(GetFocus(), WM_KEYDOWN, VK_TAB, 0x000F0001);
    PumpMessages();
    EXPECT_TRUE(IsChild(GetDlgItem(remote, 1002), GetFocus()));
    EXPECT_TRUE(host.received().empty());
}

TEST_F(NotificationTest, PanelsAskForUpdateThroughTheKeyDownMessage) {
    SendMessageW(remote, WM_APP + 1000, 0, VK_SPACE);
    SendMessageW(remote, WM_APP + 1000, 0, 'A');
    ASSERT_EQ(host.received().size(), 1u);
    EXPECT_EQ(host.received()[0].name, "gradation");
}

TEST_F(NotificationTest, OperationButtonsSendTheirNamesWhateverTheEffect) {
    Click(remote, 1010);
    Click(remote, 1001);
    Click(remote, 1004);
    Click(remote, 1005);
    // The edge button is never visible; its command still works.
    EXPECT_FALSE(IsWindowVisible(GetDlgItem(remote, 1008)));
    SendMessageW(remote, WM_COMMAND, MAKEWPARAM(1008, BN_CLICKED),
                 reinterpret_cast<LPARAM>(GetDlgItem(remote, 1008)));
    ASSERT_EQ(host.received().size(), 4u);
    EXPECT_EQ(host.received()[0].name, "uniform_color");
    EXPECT_EQ(host.received()[1].name, "color_bokashi");
    EXPECT_EQ(host.received()[2].name, "reverse_color");
    EXPECT_EQ(host.received()[3].name, "color_edge");
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

TEST(NoRecipientTest, DialogMadeWithoutAHostAnswersWithTheMessage) {
    RemoveSettings();
    CDlgColor* remote = new CDlgColor();
    ASSERT_TRUE(remote->Create());
    ShowWindow(remote->hwnd(), SW_SHOWNORMAL);
    {
        SystemDialogWatcher watcher;
        Click(remote->hwnd(), 1000);
        ASSERT_EQ(watcher.seen().size(), 1u);
        EXPECT_EQ(watcher.seen()[0].text, L"送信相手がいない。");
    }
    delete remote;
    EXPECT_TRUE(RemoteControls().empty());
    RemoveSettings();
}

}  // namespace
