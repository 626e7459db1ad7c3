// Every error code shows its own message; nothing else shows anything.
#include <gtest/gtest.h>

#include "WinTestSupport.h"
#include "framework/ShowErrorMessage.h"

namespace {

TEST(ErrorMessageTest, EachCodeShowsItsMessageInAnOkBoxOwnedByTheWindow) {
    HWND owner = CreateWindowW(L"STATIC", L"owner", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 100,
                               100, nullptr, nullptr, nullptr, nullptr);
    const wchar_t* expected[] = {
        L"何らかのｴﾗｰが起りました。",
        L"ﾒﾓﾘｰ不足です。",
        L"配列の範囲外にｱｸｾｽしました。",
        L"不適当なﾊﾟﾗﾒｰﾀｰです。",
        L"ﾌｧｲﾙを開けませんでした。",
        L"ﾌｧｲﾙからﾃﾞｰﾀを読み込めませんでした。",
        L"ﾌｧｲﾙにﾃﾞｰﾀを書き込めませんでした。",
        L"未対応のﾃﾞｰﾀ形式です。",
        L"ﾊﾞｰｼﾞｮﾝの異なるﾌｧｲﾙです。",
        L"最大値を超えています。",
        L"ﾃﾞｰﾀがありません。",
    };
    for (int code = -1; code >= -11; --code) {
        SystemDialogWatcher watcher;
        ShowErrorMessage(owner, code);
        ASSERT_EQ(watcher.seen().size(), 1u) << code;
        EXPECT_EQ(watcher.seen()[0].text, expected[-code - 1]) << code;
        EXPECT_EQ(watcher.seen()[0].owner, owner);
        EXPECT_EQ(watcher.seen()[0].caption, L"win_internal_tests");
    }
    // Unknown codes, success and a null owner show nothing.
    SystemDialogWatcher watcher;
    for (int code : {0, -12, 3, 1, -1000}) ShowErrorMessage(owner, code);
    for (int code = -11; code <= 0; ++code) ShowErrorMessage(nullptr, code);
    PumpMessages();
    EXPECT_TRUE(watcher.seen().empty());
    DestroyWindow(owner);
}

}  // namespace
