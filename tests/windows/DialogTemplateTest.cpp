// The remote control's own template: every control where it belongs, with
// its text and kind, in the dialog's Japanese font.
#include <gtest/gtest.h>

#include "WinTestSupport.h"

namespace {

struct ControlCase {
    int id;
    const wchar_t* className;
    const wchar_t* text;
    LONG kind;  // the style's low bits: button or static kind
    RECT units;  // x, y, width, height in dialog units
    bool visible;
};

const ControlCase kControls[] = {
    {1003, L"Button", L"ｸﾞﾗﾃﾞｰｼｮﾝ", BS_AUTORADIOBUTTON, {10, 6, 42, 8}, true},
    {1006, L"Button", L"ﾀｲﾙ", BS_AUTORADIOBUTTON, {66, 6, 24, 8}, true},
    {1010, L"Button", L"縞模様", BS_AUTORADIOBUTTON, {116, 6, 33, 8}, true},
    {1009, L"Button", L"等値線模様", BS_AUTORADIOBUTTON, {11, 18, 45, 8}, true},
    {1007, L"Button", L"画像貼り付け", BS_AUTORADIOBUTTON, {66, 18, 51, 8}, true},
    {1002, L"Button", L"ｸﾞﾗﾃﾞｰｼｮﾝ", BS_GROUPBOX, {3, 32, 162, 145}, true},
    {1027, L"Static", L"", SS_ETCHEDFRAME, {3, 180, 162, 60}, true},
    {1000, L"Button", L"更新", BS_DEFPUSHBUTTON, {3, 243, 36, 18}, true},
    {1005, L"Button", L"色反転", BS_PUSHBUTTON, {76, 243, 27, 18}, true},
    {1004, L"Button", L"ぼかし", BS_PUSHBUTTON, {106, 243, 27, 18}, true},
    {1001, L"Button", L"単一色", BS_PUSHBUTTON, {137, 243, 27, 18}, true},
    {1008, L"Button", L"ｴｯｼﾞ", BS_PUSHBUTTON, {96, 205, 27, 18}, false},
};

class DialogTemplateTest : public ::testing::Test {
protected:
    void SetUp() override {
        RemoveSettings();
        ASSERT_TRUE(PXColor_Open(host.window(), kNotifyMessage));
        PXColor_ShowWindow(SW_SHOWNORMAL);
        dialog = RemoteControl();
    }
    void TearDown() override {
        PXColor_Close();
        RemoveSettings();
    }
    TestHost host;
    HWND dialog = nullptr;
};

TEST_F(DialogTemplateTest, ControlsHaveTheirTextKindAndPlace) {
    for (const ControlCase& c : kControls) {
        SCOPED_TRACE(c.id);
        HWND control = GetDlgItem(dialog, c.id);
        ASSERT_NE(control, nullptr);
        wchar_t cls[32] = {};
        GetClassNameW(control, cls, 32);
        EXPECT_EQ(_wcsicmp(cls, c.className), 0) << cls;
        EXPECT_EQ(WindowText(control), c.text);
        const LONG style = GetWindowLongW(control, GWL_STYLE);
        const LONG mask = std::wstring(c.className) == L"Static" ? SS_TYPEMASK : BS_TYPEMASK;
        EXPECT_EQ(style & mask, c.kind);
        EXPECT_EQ(IsWindowVisible(control) != FALSE, c.visible);

        // The dialog manager converts position and size separately.
        RECT expected = c.units;
        MapDialogRect(dialog, &expected);
        expected.right += expected.left;
        expected.bottom += expected.top;
        RECT actual;
        GetWindowRect(control, &actual);
        MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&actual), 2);
        EXPECT_EQ(actual.left, expected.left);
        EXPECT_EQ(actual.top, expected.top);
        EXPECT_EQ(actual.right, expected.right);
        EXPECT_EQ(actual.bottom, expected.bottom);
    }
}

TEST_F(DialogTemplateTest, DialogIsACaptionedPopupInTheJapaneseFontWithGradationChosen) {
    EXPECT_EQ(WindowText(dialog), L"ｶﾗｰﾘﾝｸﾞ ﾘﾓｺﾝ");
    const LONG style = GetWindowLongW(dialog, GWL_STYLE);
    EXPECT_TRUE(style & WS_POPUP);
    EXPECT_TRUE((style & WS_CAPTION) == WS_CAPTION);
    EXPECT_TRUE(style & WS_SYSMENU);
    EXPECT_EQ(GetParent(dialog), nullptr);

    RECT client;
    GetClientRect(dialog, &client);
    RECT units = {0, 0, 167, 266};
    MapDialogRect(dialog, &units);
    EXPECT_EQ(client.right, units.right);
    EXPECT_EQ(client.bottom, units.bottom);

    LOGFONTW font = {};
    GetObjectW(reinterpret_cast<HFONT>(SendMessageW(dialog, WM_GETFONT, 0, 0)), sizeof font,
               &font);
    EXPECT_EQ(std::wstring(font.lfFaceName), L"ＭＳ Ｐゴシック");

    EXPECT_EQ(IsDlgButtonChecked(dialog, 1003), BST_CHECKED);
    EXPECT_EQ(GetDlgItem(dialog, IDOK), nullptr);
}

}  // namespace
