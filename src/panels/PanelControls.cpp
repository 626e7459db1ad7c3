#include "PanelControls.h"

#include <commctrl.h>

#include <cerrno>
#include <climits>
#include <cwchar>
#include <string>

#include "ColorLabelPainter.h"
#include "framework/Dialog.h"
#include "framework/PrivateMessages.h"
#include "framework/ScrollBars.h"
#include "framework/SystemDialogs.h"
#include "vellcolor/ColorF.h"

namespace PanelControls {

int ReadInt(HWND dialog, int id) {
    return ReadInt(Dialog::ItemOf(dialog, id));
}

// Read as GetDlgItemInt reads a signed value: leading blanks, a sign and
// digits, the rest ignored.
int ReadInt(HWND edit) {
    wchar_t text[32] = {};
    if (edit == nullptr || GetWindowTextW(edit, text, 32) == 0) return 0;
    wchar_t* end = nullptr;
    errno = 0;
    const long value = std::wcstol(text, &end, 10);
    if (end == text) return 0;
    if ((value == LONG_MIN || value == LONG_MAX) && errno == ERANGE) return 0;
    return static_cast<int>(value);
}

void WriteInt(HWND dialog, int id, int value) {
    SetWindowTextW(Dialog::ItemOf(dialog, id), std::to_wstring(value).c_str());
}

bool IsChecked(HWND dialog, int id) {
    return SendMessageW(Dialog::ItemOf(dialog, id), BM_GETCHECK, 0, 0) == BST_CHECKED;
}

void SetChecked(HWND dialog, int id, bool checked) {
    SendMessageW(Dialog::ItemOf(dialog, id), BM_SETCHECK, checked ? BST_CHECKED : BST_UNCHECKED, 0);
}

void SetSpin(HWND dialog, int id, int min, int max, int position) {
    HWND spin = Dialog::ItemOf(dialog, id);
    SendMessageW(spin, UDM_SETRANGE32, min, max);
    SendMessageW(spin, UDM_SETPOS32, 0, position);
}

void SetBar(HWND dialog, int id, int min, int max, int position) {
    HWND bar = Dialog::ItemOf(dialog, id);
    // A hidden bar is drawn whole when it is shown.
    const BOOL redraw = IsWindowVisible(bar);
    SetScrollRange(bar, SB_CTL, min, max, redraw);
    SetScrollPos(bar, SB_CTL, position, redraw);
}

int BarPosition(HWND dialog, int id) {
    return GetScrollPos(Dialog::ItemOf(dialog, id), SB_CTL);
}

float BarFraction(HWND dialog, int id) {
    int min = 0, max = 0;
    HWND bar = Dialog::ItemOf(dialog, id);
    GetScrollRange(bar, SB_CTL, &min, &max);
    return max == 0 ? 0.0f : static_cast<float>(GetScrollPos(bar, SB_CTL)) / max;
}

void OnBarScroll(WPARAM wParam, LPARAM lParam) {
    if (lParam == 0) return;  // the window's own bars: panels have none
    ApplyScrollCode(reinterpret_cast<HWND>(lParam), LOWORD(wParam),
                    static_cast<short>(HIWORD(wParam)));
}

void Enable(HWND dialog, std::initializer_list<int> ids, bool enable) {
    for (int id : ids) {
        HWND control = Dialog::ItemOf(dialog, id);
        if (control != nullptr && (IsWindowEnabled(control) != FALSE) != enable) {
            EnableWindow(control, enable ? TRUE : FALSE);
        }
    }
}

bool ForwardSpaceKey(HWND panel, const MSG* msg) {
    if (msg->message != WM_KEYDOWN || msg->wParam != VK_SPACE) return false;
    SendMessageW(GetParent(GetParent(panel)), WM_SUBDIALOG_KEYDOWN, 0, VK_SPACE);
    return true;
}

void PaintColorButton(HWND button, const ColorRGB& color) {
    const ColorF unit = ColorF::FromRGB(color);
    ColorLabelPainter painter;
    painter.SetColor(unit.red, unit.green, unit.blue);
    painter.SetFontHeight(11);
    painter.Paint(button);
}

bool PickColor(HWND owner, ColorRGB* color) {
    COLORREF chosen;
    if (!SystemDialogs::PickColor(owner, color->ToColorRef(), &chosen)) return false;
    *color = ColorRGB::FromColorRef(chosen);
    return true;
}

}  // namespace PanelControls
