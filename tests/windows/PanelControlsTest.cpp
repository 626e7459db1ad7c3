// The panels read their edits without GetDlgItemInt's lookup of the control;
// the number must come out as GetDlgItemInt gives it.
#include <windows.h>
#include <gtest/gtest.h>

#include "panels/PanelControls.h"

TEST(PanelControls, ReadIntAgreesWithGetDlgItemInt) {
    HWND parent = CreateWindowW(L"STATIC", L"", 0, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);
    HWND edit = CreateWindowW(L"EDIT", L"", WS_CHILD, 0, 0, 9, 9, parent,
                              reinterpret_cast<HMENU>(7), nullptr, nullptr);
    for (const wchar_t* text : {L"", L"12", L" -34", L"+5", L"56ab", L"ab", L"-", L"2147483647",
                                L"-2147483648", L"99999999999", L"-99999999999"}) {
        SetWindowTextW(edit, text);
        BOOL ok = FALSE;
        EXPECT_EQ(static_cast<int>(GetDlgItemInt(parent, 7, &ok, TRUE)),
                  PanelControls::ReadInt(edit))
            << "text \"" << text << '"';
    }
    DestroyWindow(parent);
}
