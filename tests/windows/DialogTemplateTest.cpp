// The remote control's own template: its controls' texts and kinds, in the
// dialog's Japanese font.
#include <gtest/gtest.h>

#include "RemoteControlTest.h"

namespace {

using DialogTemplateTest = RemoteControlTest;

TEST_F(DialogTemplateTest, ACaptionedPopupInTheJapaneseFontWithGradationChosen) {
    EXPECT_EQ(WindowText(remote), L"ｶﾗｰﾘﾝｸﾞ ﾘﾓｺﾝ");
    const LONG style = GetWindowLongW(remote, GWL_STYLE);
    EXPECT_EQ(style & (WS_POPUP | WS_CAPTION | WS_SYSMENU), WS_POPUP | WS_CAPTION | WS_SYSMENU);
    EXPECT_EQ(GetParent(remote), nullptr);
    LOGFONTW font = {};
    GetObjectW(reinterpret_cast<HFONT>(SendMessageW(remote, WM_GETFONT, 0, 0)), sizeof font, &font);
    EXPECT_EQ(std::wstring(font.lfFaceName), L"ＭＳ Ｐゴシック");
    EXPECT_EQ(IsDlgButtonChecked(remote, 1003), BST_CHECKED);
    EXPECT_EQ(GetDlgItem(remote, IDOK), nullptr);

    const struct {
        int id;
        const wchar_t* text;
        LONG kind;  // the style's low bits: button or static kind
    } controls[] = {
        {1003, L"ｸﾞﾗﾃﾞｰｼｮﾝ", BS_AUTORADIOBUTTON},
        {1006, L"ﾀｲﾙ", BS_AUTORADIOBUTTON},
        {1010, L"縞模様", BS_AUTORADIOBUTTON},
        {1009, L"等値線模様", BS_AUTORADIOBUTTON},
        {1007, L"画像貼り付け", BS_AUTORADIOBUTTON},
        {1002, L"ｸﾞﾗﾃﾞｰｼｮﾝ", BS_GROUPBOX},
        {1027, L"", SS_ETCHEDFRAME},
        {1000, L"更新", BS_DEFPUSHBUTTON},
        {1005, L"色反転", BS_PUSHBUTTON},
        {1004, L"ぼかし", BS_PUSHBUTTON},
        {1001, L"単一色", BS_PUSHBUTTON},
        {1008, L"ｴｯｼﾞ", BS_PUSHBUTTON},
    };
    for (const auto& c : controls) {
        HWND control = GetDlgItem(remote, c.id);
        ASSERT_NE(control, nullptr) << c.id;
        EXPECT_EQ(WindowText(control), c.text) << c.id;
        EXPECT_EQ(GetWindowLongW(control, GWL_STYLE) & (c.id == 1027 ? SS_TYPEMASK : BS_TYPEMASK),
                  c.kind)
            << c.id;
    }
}

}  // namespace
