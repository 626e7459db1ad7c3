// The remote control's own template: every control where it belongs, with
// its text and kind, in the dialog's Japanese font.
#include <gtest/gtest.h>

#include "RemoteControlTest.h"

namespace {

using DialogTemplateTest = RemoteControlTest;

// Left, top, right, bottom of `r` as a list, for comparing.
std::vector<LONG> Edges(const RECT& r) {
    return {r.left, r.top, r.right, r.bottom};
}

TEST_F(DialogTemplateTest, ControlsHaveTheirTextKindAndPlace) {
    const struct {
        int id;
        const wchar_t* text;
        LONG kind;   // the style's low bits: button or static kind
        RECT units;  // x, y, width, height in dialog units
    } controls[] = {
        {1003, L"ｸﾞﾗﾃﾞｰｼｮﾝ", BS_AUTORADIOBUTTON, {10, 6, 42, 8}},
        {1006, L"ﾀｲﾙ", BS_AUTORADIOBUTTON, {66, 6, 24, 8}},
        {1010, L"縞模様", BS_AUTORADIOBUTTON, {116, 6, 33, 8}},
        {1009, L"等値線模様", BS_AUTORADIOBUTTON, {11, 18, 45, 8}},
        {1007, L"画像貼り付け", BS_AUTORADIOBUTTON, {66, 18, 51, 8}},
        {1002, L"ｸﾞﾗﾃﾞｰｼｮﾝ", BS_GROUPBOX, {3, 32, 162, 145}},
        {1027, L"", SS_ETCHEDFRAME, {3, 180, 162, 60}},
        {1000, L"更新", BS_DEFPUSHBUTTON, {3, 243, 36, 18}},
        {1005, L"色反転", BS_PUSHBUTTON, {76, 243, 27, 18}},
        {1004, L"ぼかし", BS_PUSHBUTTON, {106, 243, 27, 18}},
        {1001, L"単一色", BS_PUSHBUTTON, {137, 243, 27, 18}},
        {1008, L"ｴｯｼﾞ", BS_PUSHBUTTON, {96, 205, 27, 18}},  // never shown
    };
    for (const auto& c : controls) {
        SCOPED_TRACE(c.id);
        HWND control = GetDlgItem(remote, c.id);
        ASSERT_NE(control, nullptr);
        EXPECT_EQ(WindowText(control), c.text);
        EXPECT_EQ(GetWindowLongW(control, GWL_STYLE) & (c.id == 1027 ? SS_TYPEMASK : BS_TYPEMASK),
                  c.kind);
        EXPECT_EQ(IsWindowVisible(control) != FALSE, c.id != 1008);
        // The dialog manager converts position and size separately.
        RECT expected = c.units, actual;
        MapDialogRect(remote, &expected);
        expected.right += expected.left;
        expected.bottom += expected.top;
        GetWindowRect(control, &actual);
        MapWindowPoints(nullptr, remote, reinterpret_cast<POINT*>(&actual), 2);
        EXPECT_EQ(Edges(actual), Edges(expected));
    }
}

TEST_F(DialogTemplateTest, DialogIsACaptionedPopupInTheJapaneseFontWithGradationChosen) {
    EXPECT_EQ(WindowText(remote), L"ｶﾗｰﾘﾝｸﾞ ﾘﾓｺﾝ");
    const LONG style = GetWindowLongW(remote, GWL_STYLE);
    EXPECT_EQ(style & (WS_POPUP | WS_CAPTION | WS_SYSMENU), WS_POPUP | WS_CAPTION | WS_SYSMENU);
    EXPECT_EQ(GetParent(remote), nullptr);
    RECT client, units = {0, 0, 167, 266};
    GetClientRect(remote, &client);
    MapDialogRect(remote, &units);
    EXPECT_EQ(Edges(client), Edges(units));
    LOGFONTW font = {};
    GetObjectW(reinterpret_cast<HFONT>(SendMessageW(remote, WM_GETFONT, 0, 0)), sizeof font, &font);
    EXPECT_EQ(std::wstring(font.lfFaceName), L"ＭＳ Ｐゴシック");
    EXPECT_EQ(IsDlgButtonChecked(remote, 1003), BST_CHECKED);
    EXPECT_EQ(GetDlgItem(remote, IDOK), nullptr);
}

}  // namespace
