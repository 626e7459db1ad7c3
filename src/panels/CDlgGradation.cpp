#include "CDlgGradation.h"

#include <initializer_list>

#include "PanelControls.h"
#include "ResourceIds.h"
#include "framework/PrivateMessages.h"
#include "vellcolor/KTEffectGradation.h"

using namespace PanelControls;

namespace {

const int kFourCornersType = 7;

struct TypeRadio {
    int id;
    int code;
};
// In the order they are tested; the last checked one gives the type.
const TypeRadio kTypeRadios[] = {
    {IDC_GRAD_HORIZONTAL, 0},
    {IDC_GRAD_VERTICAL, 1},
    {IDC_GRAD_CONTOUR, 101},
    {IDC_GRAD_CIRCLE, 4},
    {IDC_GRAD_ELLIPSE, 5},
    {IDC_GRAD_RECTANGLE, 6},
    {IDC_GRAD_FOUR_CORNERS, kFourCornersType},
    {IDC_GRAD_OUTLINE, 3},
    {IDC_GRAD_SPIRAL, 8},
    {IDC_GRAD_SLOPE_HORIZONTAL, 104},
    {IDC_GRAD_SLOPE_VERTICAL, 105},
    {IDC_GRAD_SLOPE, 106},
    {IDC_GRAD_SLOPE_AROUND, 107},
    {IDC_GRAD_SLOPE_CHANGE, 108},
};

// Which of bias, angle, repeat and spiral turns a type uses; the first row
// with a checked radio applies, and the last row covers every other type.
struct EnablingRow {
    std::initializer_list<int> radios;
    bool bias, angle, repeat, turns;
};
const EnablingRow kEnabling[] = {
    {{IDC_GRAD_OUTLINE, IDC_GRAD_CIRCLE, IDC_GRAD_CONTOUR, IDC_GRAD_RECTANGLE},
     true,
     false,
     true,
     false},
    {{IDC_GRAD_FOUR_CORNERS}, false, false, false, false},
    {{IDC_GRAD_SPIRAL}, false, true, true, true},
    {{IDC_GRAD_SLOPE_HORIZONTAL, IDC_GRAD_SLOPE_VERTICAL}, true, false, true, false},
    {{IDC_GRAD_SLOPE_AROUND}, false, true, true, false},
    {{IDC_GRAD_SLOPE}, true, false, true, false},
    {{}, true, true, true, false},
};

}  // namespace

CDlgGradation::CDlgGradation() : Dialog(IDD_GRADATION) {}

BOOL CDlgGradation::OnInitDialog() {
    SetBar(hwnd(), IDC_GRAD_MIX, 0, 64, 0);
    SetBar(hwnd(), IDC_GRAD_BIAS, -10, 10, 0);
    SetSpin(hwnd(), IDC_GRAD_ANGLE_SPIN, -180, 180, 0);
    SetSpin(hwnd(), IDC_GRAD_REPEAT_SPIN, 1, 50, 1);
    SetSpin(hwnd(), IDC_GRAD_TURNS_SPIN, -30, 30, 1);
    KTEffectGradation start;
    start.SetFactor(1.0f);
    start.SetMix(0.5f);
    start.SetType(0);
    ShowParameters(start);
    UpdateEnabling();
    return TRUE;
}

int CDlgGradation::GetType() const {
    int type = 0;
    for (const TypeRadio& radio : kTypeRadios) {
        if (IsChecked(hwnd(), radio.id)) type = radio.code;
    }
    return type;
}

void CDlgGradation::CollectParameters(KTEffectGradation& gradation) const {
    if (hwnd() == nullptr) return;
    gradation.SetType(GetType());
    gradation.SetMix(BarPosition(hwnd(), IDC_GRAD_MIX) / 64.0f);
    gradation.SetBias(BarPosition(hwnd(), IDC_GRAD_BIAS) / 2.0f);
    gradation.SetAngle(static_cast<float>(ReadInt(hwnd(), IDC_GRAD_ANGLE)));
    gradation.SetRepeat(ReadInt(hwnd(), IDC_GRAD_REPEAT));
    gradation.SetSpiralTurns(ReadInt(hwnd(), IDC_GRAD_TURNS));
    gradation.SetHueInterpolation(IsChecked(hwnd(), IDC_GRAD_HUE) ? 1 : 0);
}

void CDlgGradation::ShowParameters(const KTEffectGradation& gradation) {
    // Only the first three radios take part, so a type whose radio lies
    // elsewhere clears them and checks nothing.
    int wanted = 0;
    for (const TypeRadio& radio : kTypeRadios) {
        if (radio.code == gradation.GetType()) wanted = radio.id;
    }
    for (int id = IDC_GRAD_HORIZONTAL; id <= IDC_GRAD_CONTOUR; ++id)
        SetChecked(hwnd(), id, id == wanted);

    // Truncating, as the bars have always shown them: a bias of 2.5 shows
    // as position 4.
    SetScrollPos(Item(IDC_GRAD_MIX), SB_CTL, static_cast<int>(gradation.GetMix() / 1.0f * 64.0f),
                 TRUE);
    SetScrollPos(Item(IDC_GRAD_BIAS), SB_CTL, static_cast<int>(gradation.GetBias()) * 2, TRUE);
    WriteInt(hwnd(), IDC_GRAD_ANGLE, static_cast<int>(gradation.GetAngle()));
    WriteInt(hwnd(), IDC_GRAD_REPEAT, gradation.GetRepeat());
    WriteInt(hwnd(), IDC_GRAD_TURNS,
             static_cast<int>((gradation.GetSpiralAngle() + 10.0f) / 360.0f));
    SetChecked(hwnd(), IDC_GRAD_HUE, gradation.GetHueInterpolation() != 0);
}

void CDlgGradation::UpdateEnabling() const {
    for (const EnablingRow& row : kEnabling) {
        bool applies = row.radios.size() == 0;
        for (int id : row.radios) applies = applies || IsChecked(hwnd(), id);
        if (!applies) continue;
        Enable(hwnd(), {IDC_GRAD_BIAS, IDC_GRAD_BIAS_LABEL}, row.bias);
        Enable(hwnd(), {IDC_GRAD_ANGLE, IDC_GRAD_ANGLE_LABEL}, row.angle);
        Enable(hwnd(), {IDC_GRAD_REPEAT, IDC_GRAD_REPEAT_LABEL}, row.repeat);
        Enable(hwnd(), {IDC_GRAD_TURNS, IDC_GRAD_TURNS_LABEL}, row.turns);
        return;
    }
}

BOOL CDlgGradation::PreTranslateMessage(MSG* msg) {
    if (ForwardSpaceKey(hwnd(), msg)) return TRUE;
    UpdateEnabling();
    return Dialog::PreTranslateMessage(msg);
}

bool CDlgGradation::OnMessage(UINT msg, WPARAM wParam, LPARAM lParam, LRESULT*) {
    switch (msg) {
        case WM_HSCROLL: OnBarScroll(wParam, lParam); return true;
        case WM_COMMAND:
            if (HIWORD(wParam) != BN_CLICKED) return false;
            if (LOWORD(wParam) == IDC_GRAD_FOUR_CORNERS) {
                SendMessageW(GetParent(GetParent(hwnd())), WM_OPERATE_COLOR_PANEL, 0, 4);
            }
            // A click changes the type at once, not only at the next message.
            UpdateEnabling();
            return true;
        default: return false;
    }
}
