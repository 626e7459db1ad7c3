// The remote control's own template: every control where it belongs, with
// its text and kind, in the dialog's Japanese font.
#include <gtest/gtest.h>

#include "RemoteControlTest.h"

namespace {

struct ControlCase {
    int id;
    const wchar_t* className;
    const wchar_t* text;
    LONG kind;   // the style's low bits: button or static kind
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

using DialogTemplateTest = RemoteControlTest;

TEST_F(DialogTemplateTest, ControlsHaveTheirTextKindAndPlace) {
    for (const ControlCase& c : kControls) {
        SCOPED_TRACE(c.id);
        HWND control = GetDlgItem(remote, c.id);
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
        MapDialogRect(remote, &expected);
        expected.right += expected.left;
        expected.bottom += expected.top;
        RECT actual;
        GetWindowRect(control, &actual);
        MapWindowPoints(nullptr, remote, reinterpret_cast<POINT*>(&actual), 2);
        EXPECT_EQ(actual.left, expected.left);
        EXPECT_EQ(actual.top, expected.top);
        EXPECT_EQ(actual.right, expected.right);
        EXPECT_EQ(actual.bottom, expected.bottom);
    }
}

TEST_F(DialogTemplateTest, DialogIsACaptionedPopupInTheJapaneseFontWithGradationChosen) {
    EXPECT_EQ(WindowText(remote), L"ｶﾗｰﾘﾝｸﾞ ﾘﾓｺﾝ");
    const LONG style = GetWindowLongW(remote, GWL_STYLE);
    EXPECT_TRUE(style & WS_POPUP);
    EXPECT_TRUE((style & WS_CAPTION) == WS_CAPTION);
    EXPECT_TRUE(style & WS_SYSMENU);
    EXPECT_EQ(GetParent(remote), nullptr);

    RECT client;
    GetClientRect(remote, &client);
    RECT units = {0, 0, 167, 266};
    MapDialogRect(remote, &units);
    EXPECT_EQ(client.right, units.right);
    EXPECT_EQ(client.bottom, units.bottom);

    LOGFONTW font = {};
    GetObjectW(reinterpret_cast<HFONT>(SendMessageW(remote, WM_GETFONT, 0, 0)), sizeof font, &font);
    EXPECT_EQ(std::wstring(font.lfFaceName), L"ＭＳ Ｐゴシック");

    EXPECT_EQ(IsDlgButtonChecked(remote, 1003), BST_CHECKED);
    EXPECT_EQ(GetDlgItem(remote, IDOK), nullptr);
}

}  // namespace
