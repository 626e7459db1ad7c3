#include "CDlgColorSlider.h"

#include <commctrl.h>

#include "PanelControls.h"
#include "ResourceIds.h"
#include "framework/Gdi.h"
#include "framework/PrivateMessages.h"
#include "framework/ScrollBars.h"

namespace {
const int kBars[3] = {IDC_SLIDER_RED, IDC_SLIDER_GREEN, IDC_SLIDER_BLUE};
}

CDlgColorSlider::CDlgColorSlider(HWND panel) : Dialog(IDD_COLOR_SLIDER), panel_(panel) {}

void CDlgColorSlider::Setup(int slot, int count) {
    slot_ = slot;
    count_ = count;
    FetchSlot(slot);
}

bool CDlgColorSlider::FetchSlot(int slot) {
    const auto* bytes = reinterpret_cast<const unsigned char*>(
        SendMessageW(panel_, WM_GET_PANEL_COLOR, static_cast<WPARAM>(slot), 0));
    // A slot the panel refuses leaves our color and slot as they were.
    if (bytes == nullptr) return false;
    color_ = ColorRGB(bytes[0], bytes[1], bytes[2]);
    slot_ = slot;
    return true;
}

BOOL CDlgColorSlider::OnInitDialog() {
    initializing_ = true;
    for (int id : kBars) SetScrollRange(Item(id), SB_CTL, 0, 255, TRUE);
    // All three positions land on the blue bar: it ends at the blue value
    // and red and green start at 0. The first scroll of any bar therefore
    // makes (0, 0, blue) plus that bar's value. Kept as it has always been.
    SetScrollPos(Item(IDC_SLIDER_BLUE), SB_CTL, color_.red, TRUE);
    SetScrollPos(Item(IDC_SLIDER_BLUE), SB_CTL, color_.green, TRUE);
    SetScrollPos(Item(IDC_SLIDER_BLUE), SB_CTL, color_.blue, TRUE);
    PanelControls::SetSpin(hwnd(), IDC_SLIDER_SLOT_SPIN, 1, count_, slot_ + 1);
    initializing_ = false;
    return TRUE;
}

BOOL CDlgColorSlider::PreTranslateMessage(MSG*) {
    // Keeps the preview painted without a paint handler of its own.
    PaintPreview();
    return FALSE;
}

bool CDlgColorSlider::OnMessage(UINT msg, WPARAM wParam, LPARAM lParam, LRESULT*) {
    switch (msg) {
        case WM_HSCROLL:
            OnScroll(reinterpret_cast<HWND>(lParam), LOWORD(wParam),
                     static_cast<short>(HIWORD(wParam)));
            return true;
        case WM_COMMAND:
            switch (LOWORD(wParam)) {
                case IDC_SLIDER_SLOT:
                    if (HIWORD(wParam) == EN_CHANGE) OnSlotNumberChanged();
                    return true;
                case 1000:  // no control carries it; it applies the color like a scroll
                    SendColor();
                    return true;
                case IDOK:
                case IDCANCEL: EndDialog(hwnd(), LOWORD(wParam)); return true;
                default: return false;
            }
        default: return false;
    }
}

void CDlgColorSlider::OnScroll(HWND bar, int code, int thumb) {
    if (bar == nullptr) return;
    ApplyScrollCode(bar, code, thumb);
    color_ = ColorRGB(static_cast<unsigned char>(GetScrollPos(Item(IDC_SLIDER_RED), SB_CTL)),
                      static_cast<unsigned char>(GetScrollPos(Item(IDC_SLIDER_GREEN), SB_CTL)),
                      static_cast<unsigned char>(GetScrollPos(Item(IDC_SLIDER_BLUE), SB_CTL)));
    SendColor();
    PaintPreview();
}

void CDlgColorSlider::OnSlotNumberChanged() {
    // The number set while the dialog opens is not a step to another slot.
    if (initializing_) return;
    const int slot = PanelControls::ReadInt(hwnd(), IDC_SLIDER_SLOT) - 1;
    if (slot < 0 || !FetchSlot(slot)) return;
    SetScrollPos(Item(IDC_SLIDER_RED), SB_CTL, color_.red, TRUE);
    SetScrollPos(Item(IDC_SLIDER_GREEN), SB_CTL, color_.green, TRUE);
    SetScrollPos(Item(IDC_SLIDER_BLUE), SB_CTL, color_.blue, TRUE);
    PaintPreview();
}

void CDlgColorSlider::SendColor() const {
    unsigned char bytes[3] = {color_.red, color_.green, color_.blue};
    SendMessageW(panel_, WM_SET_PANEL_COLOR, static_cast<WPARAM>(slot_),
                 reinterpret_cast<LPARAM>(bytes));
}

void CDlgColorSlider::PaintPreview() const {
    HWND preview = Item(IDC_SLIDER_PREVIEW);
    if (preview == nullptr) return;
    WindowDC dc(preview);
    if (!dc) return;
    RECT client;
    GetClientRect(preview, &client);
    FillSolid(dc.get(), client, color_.ToColorRef());
}
