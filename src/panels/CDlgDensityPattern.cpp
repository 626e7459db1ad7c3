#include "CDlgDensityPattern.h"

#include <string>

#include "PanelControls.h"
#include "PatternChoices.h"
#include "ResourceIds.h"
#include "framework/PrivateMessages.h"
#include "vellcolor/ColorF.h"
#include "vellcolor/KTEffectDensityPattern.h"

using namespace PanelControls;

namespace {

const int kSwirlMax = 20;
const int kRoughnessMax = 10;
const int kBorderWidthMax = 20;

// Each group of controls a pattern type may use, labels included.
struct ControlGroup {
    unsigned use;
    int ids[5];
};
const ControlGroup kGroups[] = {
    {kUsesIsolineWidth,
     {IDC_PATTERN_ISOLINE_WIDTH_LABEL, IDC_PATTERN_ISOLINE_WIDTH, IDC_PATTERN_ISOLINE_WIDTH_SPIN}},
    {kUsesRadialLines,
     {IDC_PATTERN_RADIAL_LINES_LABEL, IDC_PATTERN_RADIAL_LINES, IDC_PATTERN_RADIAL_LINES_SPIN}},
    {kUsesSwirl, {IDC_PATTERN_SWIRL_LABEL, IDC_PATTERN_SWIRL}},
    {kUsesSwapColors, {IDC_PATTERN_SWAP_COLORS}},
    {kUsesBorderColor, {IDC_PATTERN_BORDER_COLOR_LABEL, IDC_PATTERN_BORDER_COLOR}},
    {kUsesBorderWidth, {IDC_PATTERN_BORDER_WIDTH_LABEL, IDC_PATTERN_BORDER_WIDTH}},
    {kUsesBlur,
     {IDC_PATTERN_BLUR_LABEL, IDC_PATTERN_NO_BLUR, IDC_PATTERN_BLUR_BOTH, IDC_PATTERN_BLUR_INSIDE,
      IDC_PATTERN_BLUR_OUTSIDE}},
    {kUsesImageSize,
     {IDC_PATTERN_IMAGE_SIZE_LABEL, IDC_PATTERN_IMAGE_SIZE, IDC_PATTERN_IMAGE_SIZE_SPIN}},
};

}  // namespace

CDlgDensityPattern::CDlgDensityPattern() : Dialog(IDD_ISOLINE_PATTERN) {}

BOOL CDlgDensityPattern::OnInitDialog() {
    for (const wchar_t* item : kPatternListItems) {
        SendMessageW(Item(IDC_PATTERN_TYPE), LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item));
    }
    SendMessageW(Item(IDC_PATTERN_TYPE), LB_SETCURSEL, 0, 0);
    SetSpin(hwnd(), IDC_PATTERN_POINTS_SPIN, 1, 10, 2);
    SetSpin(hwnd(), IDC_PATTERN_ISOLINE_WIDTH_SPIN, 2, 100, 12);
    SetSpin(hwnd(), IDC_PATTERN_RADIAL_LINES_SPIN, 2, 60, 30);
    SetSpin(hwnd(), IDC_PATTERN_IMAGE_SIZE_SPIN, 10, 200, 50);
    SetBar(hwnd(), IDC_PATTERN_SWIRL, 0, kSwirlMax, 0);
    SetBar(hwnd(), IDC_PATTERN_ROUGHNESS, 0, kRoughnessMax, 0);
    SetBar(hwnd(), IDC_PATTERN_BORDER_WIDTH, 0, kBorderWidthMax, 3);
    SetChecked(hwnd(), IDC_PATTERN_REMOVE_JAGGIES, true);
    SetChecked(hwnd(), IDC_PATTERN_NO_BLUR, true);
    borderColor = ColorRGB(0, 0, 0);
    UpdateEnabling();
    return TRUE;
}

int CDlgDensityPattern::GetPatternType() const {
    HWND list = Item(IDC_PATTERN_TYPE);
    const LRESULT index = SendMessageW(list, LB_GETCURSEL, 0, 0);
    if (index == LB_ERR) return 0;
    const LRESULT length = SendMessageW(list, LB_GETTEXTLEN, index, 0);
    if (length == LB_ERR) return 0;
    std::wstring text(static_cast<size_t>(length) + 1, L'\0');
    SendMessageW(list, LB_GETTEXT, index, reinterpret_cast<LPARAM>(&text[0]));
    return PatternTypeOfName(text.c_str());
}

void CDlgDensityPattern::CollectParameters(KTEffectDensityPattern& pattern) {
    if (hwnd() == nullptr) return;
    if (IsChecked(hwnd(), IDC_PATTERN_RANDOM)) DrawRandomSettings();
    pattern.SetPatternType(GetPatternType());
    pattern.SetReferencePoints(ReadInt(hwnd(), IDC_PATTERN_POINTS));
    pattern.SetIsolineWidth(static_cast<float>(ReadInt(hwnd(), IDC_PATTERN_ISOLINE_WIDTH)));
    pattern.SetRadialLines(ReadInt(hwnd(), IDC_PATTERN_RADIAL_LINES));
    pattern.SetImageSize(ReadInt(hwnd(), IDC_PATTERN_IMAGE_SIZE));
    pattern.SetBorderColor(ColorF::FromRGB(borderColor));
    pattern.SetBorderWidth(BarFraction(hwnd(), IDC_PATTERN_BORDER_WIDTH));
    int blur = 0;
    if (IsChecked(hwnd(), IDC_PATTERN_BLUR_BOTH)) {
        blur = 3;
    } else if (IsChecked(hwnd(), IDC_PATTERN_BLUR_INSIDE)) {
        blur = 1;
    } else if (IsChecked(hwnd(), IDC_PATTERN_BLUR_OUTSIDE)) {
        blur = 2;
    }
    pattern.SetBlurDirection(blur);
    pattern.SetRoughness(BarFraction(hwnd(), IDC_PATTERN_ROUGHNESS));
    pattern.SetSwirl(BarFraction(hwnd(), IDC_PATTERN_SWIRL));
    pattern.SetRemoveJaggies(IsChecked(hwnd(), IDC_PATTERN_REMOVE_JAGGIES) ? 1 : 0);
    pattern.SetInvertColors(IsChecked(hwnd(), IDC_PATTERN_SWAP_COLORS) ? 1 : 0);
}

void CDlgDensityPattern::DrawRandomSettings() {
    // The panel's own generator, seeded with the time when first needed.
    static RandomGenerator random;
    const bool imageLoaded = SendMessageW(MainDialog(), WM_QUERY_IS_IMAGE_SET, 0, 0) != 0;
    HWND list = Item(IDC_PATTERN_TYPE);
    const int count = static_cast<int>(SendMessageW(list, LB_GETCOUNT, 0, 0));
    // Set directly: the lower frame stays as it is.
    SendMessageW(list, LB_SETCURSEL, DrawPatternItem(random, count, imageLoaded), 0);

    const RandomPatternValues v =
        DrawPatternValues(random, GetPatternType(), kSwirlMax, kBorderWidthMax, kRoughnessMax);
    WriteInt(hwnd(), IDC_PATTERN_POINTS, v.points);
    WriteInt(hwnd(), IDC_PATTERN_ISOLINE_WIDTH, v.isolineWidth);
    WriteInt(hwnd(), IDC_PATTERN_RADIAL_LINES, v.radialLines);
    SetScrollPos(Item(IDC_PATTERN_SWIRL), SB_CTL, v.swirl, TRUE);
    SetChecked(hwnd(), IDC_PATTERN_SWAP_COLORS, v.swapColors);
    SetScrollPos(Item(IDC_PATTERN_BORDER_WIDTH), SB_CTL, v.borderWidth, TRUE);
    for (int id = IDC_PATTERN_NO_BLUR; id <= IDC_PATTERN_BLUR_OUTSIDE; ++id) {
        SetChecked(hwnd(), id, id == IDC_PATTERN_NO_BLUR + v.blur);
    }
    SetScrollPos(Item(IDC_PATTERN_ROUGHNESS), SB_CTL, v.roughness, TRUE);
    UpdateEnabling();
}

void CDlgDensityPattern::OnTypeChanged() const {
    SendMessageW(MainDialog(),
                 IsImagePattern(GetPatternType()) ? WM_CHANGE_TO_IMAGE_PANEL
                                                  : WM_CHANGE_TO_COLOR_PANEL,
                 0, 0);
}

void CDlgDensityPattern::OnBorderColor() {
    if (PickColor(hwnd(), &borderColor)) {
        InvalidateRect(Item(IDC_PATTERN_BORDER_COLOR), nullptr, TRUE);
    }
}

void CDlgDensityPattern::UpdateEnabling() const {
    const unsigned used = PatternControlsUsed(GetPatternType());
    for (const ControlGroup& group : kGroups) {
        for (int id : group.ids) {
            if (id != 0) Enable(hwnd(), {id}, (used & group.use) != 0);
        }
    }
}

BOOL CDlgDensityPattern::PreTranslateMessage(MSG* msg) {
    UpdateEnabling();
    // Unlike the other panels, the space bar stays with the focused control
    // here (a check box toggles, a button is pressed): the dialog manager
    // takes it now, before the main dialog could read it as update.
    if (msg->message == WM_KEYDOWN && msg->wParam == VK_SPACE)
        return IsDialogMessageW(MainDialog(), msg);
    return Dialog::PreTranslateMessage(msg);
}

bool CDlgDensityPattern::OnMessage(UINT msg, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    switch (msg) {
        case WM_HSCROLL: OnBarScroll(wParam, lParam); return true;
        case WM_DRAWITEM:
            if (wParam != IDC_PATTERN_BORDER_COLOR) return false;
            PaintColorButton(reinterpret_cast<const DRAWITEMSTRUCT*>(lParam)->hwndItem,
                             borderColor);
            *result = TRUE;
            return true;
        case WM_COMMAND:
            if (LOWORD(wParam) == IDC_PATTERN_TYPE && HIWORD(wParam) == LBN_SELCHANGE) {
                OnTypeChanged();
            } else if (LOWORD(wParam) == IDC_PATTERN_BORDER_COLOR &&
                       HIWORD(wParam) == BN_CLICKED) {
                OnBorderColor();
            } else {
                return false;
            }
            UpdateEnabling();
            return true;
        default: return false;
    }
}
