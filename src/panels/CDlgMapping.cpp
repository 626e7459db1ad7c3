#include "CDlgMapping.h"

#include <commctrl.h>

#include "PanelControls.h"
#include "ResourceIds.h"
#include "vellcolor/KTMapping.h"

using namespace PanelControls;

namespace {
const int kStretchSteps = 32;
const int kScaleStep = 5;  // percent per arrow click
}  // namespace

CDlgMapping::CDlgMapping() : Dialog(IDD_MAPPING) {}

BOOL CDlgMapping::OnInitDialog() {
    SetChecked(hwnd(), IDC_MAP_REPEAT, true);
    Enable(hwnd(), {IDC_MAP_FIT_WHOLE}, false);
    SetSpin(hwnd(), IDC_MAP_ANGLE_SPIN, -360, 360, 0);
    SetSpin(hwnd(), IDC_MAP_SCALE_SPIN, 1, 500, 100);
    SetBar(hwnd(), IDC_MAP_STRETCH, 0, kStretchSteps, 0);
    return TRUE;
}

void CDlgMapping::GetMapping(KTMapping& mapping, float& stretchX, float& stretchY) const {
    if (hwnd() == nullptr) return;
    const int scale = ReadInt(hwnd(), IDC_MAP_SCALE);
    const int angle = ReadInt(hwnd(), IDC_MAP_ANGLE);
    mapping.SetScale(static_cast<float>(scale * 0.01));
    mapping.SetAngle(static_cast<float>(angle));
    // Disabled boxes keep their state, and it is passed on as it is.
    mapping.SetRepeat(IsChecked(hwnd(), IDC_MAP_REPEAT) ? 1 : 0);
    mapping.SetSeamless(IsChecked(hwnd(), IDC_MAP_SEAMLESS) ? 1 : 0);
    mapping.SetFitWhole(IsChecked(hwnd(), IDC_MAP_FIT_WHOLE) ? 1 : 0);
    mapping.SetAssigned(1);
    stretchX = stretchY = static_cast<float>(BarPosition(hwnd(), IDC_MAP_STRETCH)) / kStretchSteps;
}

void CDlgMapping::OnRepeat() const {
    const bool repeat = IsChecked(hwnd(), IDC_MAP_REPEAT);
    Enable(hwnd(), {IDC_MAP_SEAMLESS}, repeat);
    Enable(hwnd(), {IDC_MAP_FIT_WHOLE}, !repeat);
    Enable(hwnd(), {IDC_MAP_SCALE, IDC_MAP_SCALE_SPIN},
           repeat || !IsChecked(hwnd(), IDC_MAP_FIT_WHOLE));
}

void CDlgMapping::OnFitWhole() const {
    Enable(hwnd(), {IDC_MAP_SCALE, IDC_MAP_SCALE_SPIN}, !IsChecked(hwnd(), IDC_MAP_FIT_WHOLE));
}

BOOL CDlgMapping::PreTranslateMessage(MSG* msg) {
    if (ForwardSpaceKey(hwnd(), msg)) return TRUE;
    return Dialog::PreTranslateMessage(msg);
}

bool CDlgMapping::OnMessage(UINT msg, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    switch (msg) {
        case WM_HSCROLL: OnBarScroll(wParam, lParam); return true;
        case WM_NOTIFY: {
            auto* header = reinterpret_cast<NMHDR*>(lParam);
            if (header->idFrom != IDC_MAP_SCALE_SPIN || header->code != UDN_DELTAPOS) return false;
            auto* change = reinterpret_cast<NMUPDOWN*>(lParam);
            change->iDelta = change->iDelta < 1 ? -kScaleStep : kScaleStep;
            *result = 0;  // allowed
            return true;
        }
        case WM_COMMAND: {
            const int id = LOWORD(wParam);
            const int code = HIWORD(wParam);
            if (id == IDC_MAP_SCALE && code == EN_CHANGE) {
                // Typing a scale means the user wants that scale, not a fit.
                SetChecked(hwnd(), IDC_MAP_FIT_WHOLE, false);
                return true;
            }
            if (code != BN_CLICKED) return false;
            if (id == IDC_MAP_REPEAT) OnRepeat();
            if (id == IDC_MAP_FIT_WHOLE) OnFitWhole();
            return id == IDC_MAP_REPEAT || id == IDC_MAP_FIT_WHOLE;
        }
        default: return false;
    }
}
