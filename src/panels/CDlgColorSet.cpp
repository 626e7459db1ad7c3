#include "CDlgColorSet.h"

#include <commctrl.h>

#include <cstdio>
#include <string>

#include "CDlgColorSlider.h"
#include "ColorLabelPainter.h"
#include "PanelControls.h"
#include "ResourceIds.h"
#include "framework/Gdi.h"
#include "framework/PrivateMessages.h"
#include "framework/ScrollBars.h"
#include "framework/SystemDialogs.h"
#include "params/ColorArithmetic.h"

using namespace PanelControls;

namespace {

const UINT_PTR kSliderTimer = 1;
const UINT kMenuBase = 0x83E8;  // menu command = base + mode
const char kTooManySets[] = "登録数が最大の%dを超えています。";

// The random modes in menu order; 0 stands alone above a separator.
const struct {
    int mode;
    const wchar_t* text;
} kRandomMenu[] = {
    {kRandomAllColors, L"全色"},  {-1, nullptr},          {kRandomPrimary, L"原色"},
    {kRandomPastel, L"ﾊﾟｽﾃﾙｶﾗｰ"}, {kRandomGray, L"灰色"}, {kRandomLight, L"明色"},
    {kRandomDark, L"暗色"},       {kRandomWarm, L"暖色"}, {kRandomCool, L"寒色"},
    {kRandomNear, L"近い色"},
};

const int kThreeColorButtons[] = {IDC_SET_ROTATE_LEFT, IDC_SET_ROTATE_RIGHT, IDC_SET_INTERPOLATE,
                                  IDC_SET_INTERPOLATION_MENU};

POINT CenterOf(HWND control) {
    RECT r;
    GetWindowRect(control, &r);
    return POINT{(r.left + r.right) / 2, (r.top + r.bottom) / 2};
}

// Runs a popup menu of (command, text) items with `checked` ticked.
template <typename Items>
UINT RunMenu(HWND owner, const Items& items, UINT checked, POINT at) {
    HMENU menu = CreatePopupMenu();
    if (menu == nullptr) return 0;
    for (const auto& item : items) {
        if (item.text == nullptr) {
            AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
            continue;
        }
        const UINT id = kMenuBase + item.mode;
        AppendMenuW(menu, MF_STRING | (id == checked ? MF_CHECKED : 0), id, item.text);
    }
    const UINT chosen = SystemDialogs::TrackMenu(owner, menu, at);
    DestroyMenu(menu);
    return chosen;
}

}  // namespace

CDlgColorSet::CDlgColorSet() : Dialog(IDD_COLOR_SET) {}

CDlgColorSet::~CDlgColorSet() = default;

BOOL CDlgColorSet::OnInitDialog() {
    palette_[0] = ColorRGB(0, 0, 0);
    for (int i = 1; i < kSlots; ++i) palette_[i] = ColorRGB(255, 255, 255);
    current_ = 0;
    // A fresh list first: setting the count below refills the list box,
    // which would otherwise fill it with the previous dialog's sets.
    setList_.reset(new ColorSetList);
    SetSpin(hwnd(), IDC_SET_COUNT_SPIN, 2, 7, 2);
    // The swatches are drawn by us from here on. The panel is still hidden,
    // so nothing here needs a repaint.
    for (int i = 0; i < kSlots; ++i) {
        HWND swatch = Item(IDC_SET_SWATCH_FIRST + i);
        const LONG style = GetWindowLongW(swatch, GWL_STYLE);
        SetWindowLongW(swatch, GWL_STYLE, (style & ~BS_TYPEMASK) | BS_OWNERDRAW);
    }

    // The list drops down ten times as far as the closed box is high.
    HWND combo = Item(IDC_SET_LIST);
    RECT client, frame;
    GetClientRect(combo, &client);
    GetWindowRect(combo, &frame);
    MapWindowPoints(nullptr, hwnd(), reinterpret_cast<POINT*>(&frame), 2);
    MoveWindow(combo, frame.left, frame.top, frame.right - frame.left, client.bottom * 10, FALSE);
    RefillColorSetCombo(0);
    UpdateEnabledButtons();
    return TRUE;
}

void CDlgColorSet::CountRange(int* min, int* max) const {
    *min = *max = 0;
    SendMessageW(Item(IDC_SET_COUNT_SPIN), UDM_GETRANGE32, reinterpret_cast<WPARAM>(min),
                 reinterpret_cast<LPARAM>(max));
}

void CDlgColorSet::SetColorCountRange(int min, int max) {
    if (hwnd() == nullptr) return;
    if (min == 0) {
        ShowWindow(hwnd(), SW_HIDE);
        return;
    }
    ShowWindow(hwnd(), SW_SHOW);
    SendMessageW(Item(IDC_SET_COUNT_SPIN), UDM_SETRANGE32, min, max);
    if (min == max) {
        ShowWindow(Item(IDC_SET_COUNT_SPIN), SW_HIDE);
        SetColorCount(max);
    } else {
        ShowWindow(Item(IDC_SET_COUNT_SPIN), SW_SHOW);
        // A count the new effect cannot use comes into its range.
        const int count = GetColorCount();
        if (count < min || count > max) SetColorCount(count < min ? min : max);
    }
    RefillColorSetCombo(0);
}

int CDlgColorSet::GetColorCount() const {
    if (hwnd() == nullptr) return 0;
    return ReadInt(hwnd(), IDC_SET_COUNT);
}

void CDlgColorSet::SetColorCount(int count) {
    // The edit follows the up-down, and its change runs OnCountChanged.
    SendMessageW(Item(IDC_SET_COUNT_SPIN), UDM_SETPOS32, 0, count);
}

void CDlgColorSet::GetColor(int index, unsigned char* r, unsigned char* g, unsigned char* b) const {
    ColorRGB color;
    if (index >= 0 && index < kSlots) color = palette_[index];
    if (hwnd() != nullptr && IsChecked(hwnd(), IDC_SET_FLUCTUATION)) {
        color = Fluctuate(color);
    }
    *r = color.red;
    *g = color.green;
    *b = color.blue;
}

void CDlgColorSet::RefillColorSetCombo(int selection) {
    HWND combo = Item(IDC_SET_LIST);
    if (combo == nullptr) return;
    SendMessageW(combo, CB_RESETCONTENT, 0, 0);
    int min, max;
    CountRange(&min, &max);
    for (int i = 0; setList_ != nullptr && i < setList_->count(); ++i) {
        const int count = setList_->item(i)->count;
        if (count < min || count > max) continue;
        // Entries are drawn as color bars; the text is never shown.
        const std::wstring text = std::to_wstring(i);
        const LRESULT entry =
            SendMessageW(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
        SendMessageW(combo, CB_SETITEMDATA, static_cast<WPARAM>(entry), i);
    }
    const int entries = static_cast<int>(SendMessageW(combo, CB_GETCOUNT, 0, 0));
    if (selection >= entries) selection = entries - 1;
    if (selection < 0) selection = 0;
    SendMessageW(combo, CB_SETCURSEL, static_cast<WPARAM>(selection), 0);
}

BOOL CDlgColorSet::PreTranslateMessage(MSG* msg) {
    UpdateEnabledButtons();
    if (msg->message == WM_KEYDOWN && msg->wParam == VK_SPACE) {
        // The main dialog turns the space bar into an update.
        SendMessageW(GetParent(GetParent(hwnd())), WM_SUBDIALOG_KEYDOWN, 0, VK_SPACE);
        return TRUE;
    }
    if (msg->message == WM_RBUTTONUP) {
        const int index = SwatchIndexOf(msg->hwnd);
        if (index >= 0 && index < GetColorCount()) {
            MakeCurrent(index);
            // The slider opens once this mouse message has been handled.
            SetTimer(hwnd(), kSliderTimer, 10, nullptr);
        }
    }
    return FALSE;
}

bool CDlgColorSet::OnMessage(UINT msg, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    switch (msg) {
        case WM_COMMAND:
            return OnCommand(LOWORD(wParam), HIWORD(wParam), reinterpret_cast<HWND>(lParam));
        case WM_DRAWITEM: {
            const auto* item = reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
            if (item->CtlType == ODT_COMBOBOX) {
                DrawSetItem(*item);
            } else {
                PaintSwatch(static_cast<int>(item->CtlID) - IDC_SET_SWATCH_FIRST);
            }
            *result = TRUE;
            return true;
        }
        case WM_CONTEXTMENU: {
            POINT at = {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
            RECT random;
            GetWindowRect(Item(IDC_SET_RANDOM), &random);
            if (!PtInRect(&random, at)) return false;
            ChooseRandomMode(at);
            return true;
        }
        case WM_TIMER: OnTimer(wParam); return true;
        case WM_HSCROLL:
            if (lParam != 0) {
                ApplyScrollCode(reinterpret_cast<HWND>(lParam), LOWORD(wParam),
                                static_cast<short>(HIWORD(wParam)));
            }
            return true;
        case WM_SET_PANEL_COLOR: {
            const int index = static_cast<int>(wParam);
            const auto* bytes = reinterpret_cast<const unsigned char*>(lParam);
            if (index >= 0 && index < GetColorCount() && bytes != nullptr) {
                palette_[index] = ColorRGB(bytes[0], bytes[1], bytes[2]);
                PaintSwatch(index);
            }
            *result = 0;
            return true;
        }
        case WM_GET_PANEL_COLOR: {
            const int index = static_cast<int>(wParam);
            const bool inUse = index >= 0 && index < GetColorCount();
            *result = inUse ? reinterpret_cast<LRESULT>(&palette_[index].red) : 0;
            return true;
        }
        default: return false;
    }
}

bool CDlgColorSet::OnCommand(int id, int code, HWND) {
    if (id == IDC_SET_COUNT) {
        if (code == EN_CHANGE) OnCountChanged();
        return true;
    }
    if (id == IDC_SET_LIST) {
        if (code == CBN_SELCHANGE) OnSelectSet();
        return true;
    }
    if (code != BN_CLICKED) return false;
    const int count = GetColorCount();
    if (id >= IDC_SET_SWATCH_FIRST && id < IDC_SET_SWATCH_FIRST + kSlots) {
        OnSwatchClicked(id - IDC_SET_SWATCH_FIRST);
        return true;
    }
    switch (id) {
        case IDC_SET_ROTATE_LEFT: RotateLeft(palette_, count); break;
        case IDC_SET_ROTATE_RIGHT: RotateRight(palette_, count); break;
        case IDC_SET_REVERSE: Reverse(palette_, count); break;
        case IDC_SET_RANDOM: FillRandom(palette_, count, randomMode_); break;
        case IDC_SET_RANDOM_MENU:
            ChooseRandomMode(CenterOf(Item(IDC_SET_RANDOM_MENU)));
            return true;
        case IDC_SET_INTERPOLATION_MENU: ChooseInterpolationMode(); return true;
        case IDC_SET_RAINBOW: OnRainbow(); return true;
        case IDC_SET_INTERPOLATE: OnInterpolate(); return true;
        case IDC_SET_REGISTER: OnRegister(); return true;
        case IDC_SET_DELETE: OnDelete(); return true;
        case IDC_SET_FLUCTUATION: return true;
        default: return false;
    }
    PaintSwatches(0, count - 1);
    return true;
}

void CDlgColorSet::OnCountChanged() {
    const int count = GetColorCount();
    PaintSwatches(0, kSlots - 1);
    if (current_ >= count) current_ = count > 0 ? count - 1 : 0;
    HWND combo = Item(IDC_SET_LIST);
    RefillColorSetCombo(static_cast<int>(SendMessageW(combo, CB_GETCURSEL, 0, 0)));
    UpdateEnabledButtons();
    InvalidateRect(hwnd(), nullptr, TRUE);
}

void CDlgColorSet::OnSwatchClicked(int index) {
    if (index >= GetColorCount()) return;
    COLORREF chosen;
    if (SystemDialogs::PickColor(hwnd(), palette_[index].ToColorRef(), &chosen)) {
        palette_[index] = ColorRGB::FromColorRef(chosen);
        PaintSwatch(index);
    }
    MakeCurrent(index);
}

void CDlgColorSet::MakeCurrent(int index) {
    const int old = current_;
    current_ = index;
    PaintSwatch(old);
    PaintSwatch(index);
}

void CDlgColorSet::OnTimer(UINT_PTR id) {
    if (id != kSliderTimer) return;
    KillTimer(hwnd(), kSliderTimer);
    const int slot = current_;
    CDlgColorSlider slider(hwnd());
    slider.Setup(slot, GetColorCount());
    slider.RunModal(hwnd());
    MakeCurrent(slot);
}

void CDlgColorSet::OnRainbow() {
    SetColorCount(kSlots);
    FillRainbow(palette_, GetColorCount());
    PaintSwatches(0, kSlots - 1);
}

void CDlgColorSet::OnInterpolate() {
    const int count = GetColorCount();
    if (interpolationMode_ == kInterpolateHue) {
        InterpolateHue(palette_, count, &hueDirection_);
    } else {
        InterpolateRGB(palette_, count);
    }
    PaintSwatches(1, count - 2);
}

void CDlgColorSet::ChooseRandomMode(POINT at) {
    const UINT chosen = RunMenu(hwnd(), kRandomMenu, kMenuBase + randomMode_, at);
    if (chosen >= kMenuBase) randomMode_ = static_cast<int>(chosen - kMenuBase);
}

void CDlgColorSet::ChooseInterpolationMode() {
    const struct {
        int mode;
        const wchar_t* text;
    } items[] = {{kInterpolateRGB, L"RGB補間"}, {kInterpolateHue, L"色相補間（順方向/逆方向）"}};
    const UINT chosen = RunMenu(hwnd(), items, kMenuBase + interpolationMode_,
                                CenterOf(Item(IDC_SET_INTERPOLATION_MENU)));
    if (chosen >= kMenuBase) interpolationMode_ = static_cast<int>(chosen - kMenuBase);
}

void CDlgColorSet::OnRegister() {
    ColorSetRecord record;
    record.count = GetColorCount();
    for (int i = 0; i < kSlots; ++i) record.colors[i] = palette_[i];
    if (setList_ != nullptr && !RegisterColorSet(*setList_, record)) {
        char text[128];
        std::snprintf(text, sizeof text, kTooManySets, ColorSetList::max);
        SystemDialogs::ShowMessage(hwnd(), text, SystemDialogs::Caption::System);
    }
    RefillColorSetCombo(0);
}

void CDlgColorSet::OnDelete() {
    HWND combo = Item(IDC_SET_LIST);
    const LRESULT selection = SendMessageW(combo, CB_GETCURSEL, 0, 0);
    if (selection == CB_ERR || setList_ == nullptr) return;
    setList_->remove(static_cast<int>(SendMessageW(combo, CB_GETITEMDATA, selection, 0)));
    RefillColorSetCombo(static_cast<int>(selection));
}

void CDlgColorSet::OnSelectSet() {
    HWND combo = Item(IDC_SET_LIST);
    const LRESULT selection = SendMessageW(combo, CB_GETCURSEL, 0, 0);
    if (selection == CB_ERR || setList_ == nullptr) return;
    const ColorSetRecord* record =
        setList_->item(static_cast<int>(SendMessageW(combo, CB_GETITEMDATA, selection, 0)));
    if (record == nullptr) return;
    const ColorSetRecord chosen = *record;
    SetColorCount(chosen.count);
    for (int i = 0; i < chosen.count && i < kSlots; ++i) palette_[i] = chosen.colors[i];
    SendMessageW(combo, CB_SETCURSEL, static_cast<WPARAM>(selection), 0);
    PaintSwatches(0, kSlots - 1);
}

void CDlgColorSet::DrawSetItem(const DRAWITEMSTRUCT& item) const {
    if (item.itemID == static_cast<UINT>(-1) || setList_ == nullptr) return;
    const ColorSetRecord* record = setList_->item(static_cast<int>(item.itemData));
    if (record == nullptr || record->count < 1) return;
    const int count = record->count < kSlots ? record->count : kSlots;
    const RECT& area = item.rcItem;
    const int width = (area.right - area.left) / count;
    // Cells start half a pixel further on each time.
    double x = area.left;
    for (int i = 0; i < count; ++i) {
        const RECT cell = {static_cast<int>(x), area.top, static_cast<int>(x + width + 0.5),
                           area.bottom};
        FillSolid(item.hDC, cell, record->colors[i].ToColorRef());
        x += width + 0.5;
    }
    FrameSolid(item.hDC, area, (item.itemState & ODS_SELECTED) ? RGB(255, 255, 255) : RGB(0, 0, 0));
}

void CDlgColorSet::PaintSwatch(int index) const {
    // Slots beyond the count are left as they are.
    if (index < 0 || index >= kSlots || index >= GetColorCount()) return;
    const ColorF color = ColorF::FromRGB(palette_[index]);
    ColorLabelPainter painter;
    painter.SetColor(color.red, color.green, color.blue);
    painter.SetFontHeight(10);
    painter.SetCaption(std::to_wstring(index + 1));
    painter.Paint(Item(IDC_SET_SWATCH_FIRST + index));
}

void CDlgColorSet::PaintSwatches(int first, int last) const {
    for (int i = first; i <= last; ++i) PaintSwatch(i);
}

void CDlgColorSet::UpdateEnabledButtons() const {
    const BOOL enable = GetColorCount() >= 3;
    for (int id : kThreeColorButtons) {
        HWND button = Item(id);
        if (button != nullptr && (IsWindowEnabled(button) != FALSE) != (enable != FALSE)) {
            EnableWindow(button, enable);
        }
    }
}

int CDlgColorSet::SwatchIndexOf(HWND window) const {
    for (int i = 0; i < kSlots; ++i) {
        if (Item(IDC_SET_SWATCH_FIRST + i) == window) return i;
    }
    return -1;
}
