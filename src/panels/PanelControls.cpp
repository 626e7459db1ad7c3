#include "PanelControls.h"

#include <commctrl.h>

#include "ColorLabelPainter.h"
#include "framework/PrivateMessages.h"
#include "framework/ScrollBars.h"
#include "framework/SystemDialogs.h"
#include "vellcolor/ColorF.h"

namespace PanelControls {

int ReadInt(HWND dialog, int id) {
    BOOL ok = FALSE;
    return static_cast<int>(GetDlgItemInt(dialog, id, &ok, TRUE));
}

void WriteInt(HWND dialog, int id, int value) {
    SetDlgItemInt(dialog, id, static_cast<UINT>(value), TRUE);
}

bool IsChecked(HWND dialog, int id) {
    return IsDlgButtonChecked(dialog, id) == BST_CHECKED;
}

void SetChecked(HWND dialog, int id, bool checked) {
    CheckDlgButton(dialog, id, checked ? BST_CHECKED : BST_UNCHECKED);
}

void SetSpin(HWND dialog, int id, int min, int max, int position) {
    SendDlgItemMessageW(dialog, id, UDM_SETRANGE32, min, max);
    SendDlgItemMessageW(dialog, id, UDM_SETPOS32, 0, position);
}

void SetBar(HWND dialog, int id, int min, int max, int position) {
    HWND bar = GetDlgItem(dialog, id);
    SetScrollRange(bar, SB_CTL, min, max, TRUE);
    SetScrollPos(bar, SB_CTL, position, TRUE);
}

int BarPosition(HWND dialog, int id) {
    return GetScrollPos(GetDlgItem(dialog, id), SB_CTL);
}

float BarFraction(HWND dialog, int id) {
    int min = 0, max = 0;
    GetScrollRange(GetDlgItem(dialog, id), SB_CTL, &min, &max);
    return max == 0 ? 0.0f : static_cast<float>(BarPosition(dialog, id)) / max;
}

void OnBarScroll(WPARAM wParam, LPARAM lParam) {
    if (lParam == 0) return;  // the window's own bars: panels have none
    ApplyScrollCode(reinterpret_cast<HWND>(lParam), LOWORD(wParam),
                    static_cast<short>(HIWORD(wParam)));
}

void Enable(HWND dialog, std::initializer_list<int> ids, bool enable) {
    for (int id : ids) {
        HWND control = GetDlgItem(dialog, id);
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
