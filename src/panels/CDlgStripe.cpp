#include "CDlgStripe.h"

#include "PanelControls.h"
#include "ResourceIds.h"
#include "framework/Gdi.h"
#include "vellcolor/KTEffectStripe.h"

using namespace PanelControls;

namespace {

const int kDirections = 6;
const COLORREF kSelectedFrame = RGB(0, 0, 0);
const COLORREF kOtherFrame = RGB(0xDC, 0xDC, 0xDC);

int DirectionOf(int id) {
    const int code = id - IDC_STRIPE_DIRECTION_FIRST + 1;
    return code >= 1 && code <= kDirections ? code : 0;
}

int TextureOf(int id) {
    const int index = id - IDC_STRIPE_TEXTURE_FIRST;
    return index >= 0 && index < kTextureCount ? index : -1;
}

void Line(HDC dc, int x0, int y0, int x1, int y1) {
    const POINT points[2] = {{x0, y0}, {x1, y1}};
    Polyline(dc, points, 2);
}

// The glyph of a direction code in a w x h button: pairs of lines across it.
void DrawGlyph(HDC dc, int code, int w, int h) {
    const bool horizontal = code == 1 || code == 3;
    const bool vertical = code == 2 || code == 3;
    const bool rising = code == 4 || code == 6;
    const bool falling = code == 5 || code == 6;
    if (horizontal) {
        Line(dc, 0, h / 3, w - 1, h / 3);
        Line(dc, 0, 2 * h / 3, w - 1, 2 * h / 3);
    }
    if (vertical) {
        Line(dc, w / 3, 0, w / 3, h - 1);
        Line(dc, 2 * w / 3, 0, 2 * w / 3, h - 1);
    }
    if (rising) {
        Line(dc, 0, 2 * h / 3 + 1, 2 * w / 3 + 2, 0);
        Line(dc, w / 3 - 1, h - 1, w - 1, h / 3 - 1);
    }
    if (falling) {
        Line(dc, 2 * w / 3 + 1, h - 1, 0, h / 3 - 1);
        Line(dc, w - 1, 2 * h / 3 + 1, w / 3 - 2, 0);
    }
}

// The choice buttons' frame, and a focus mark for keyboard users.
void FrameChoice(const DRAWITEMSTRUCT& item, bool selected) {
    FrameSolid(item.hDC, item.rcItem, selected ? kSelectedFrame : kOtherFrame);
    if (item.itemState & ODS_FOCUS) {
        RECT inner = item.rcItem;
        InflateRect(&inner, -2, -2);
        DrawFocusRect(item.hDC, &inner);
    }
}

}  // namespace

CDlgStripe::CDlgStripe()
    : Dialog(IDD_STRIPE), backgroundColor(255, 255, 255), direction(1), texture(0) {}

CDlgStripe::~CDlgStripe() = default;

BOOL CDlgStripe::OnInitDialog() {
    SetSpin(hwnd(), IDC_STRIPE_INTERVAL_SPIN, 4, 100, 20);
    SetBar(hwnd(), IDC_STRIPE_WIDTH, 1, 10, 5);
    SetBar(hwnd(), IDC_STRIPE_CROSSING, 0, 10, 5);
    backgroundColor = ColorRGB(255, 255, 255);
    direction = 1;
    SetChecked(hwnd(), IDC_STRIPE_GIVEN_COLOR, true);
    texture = 0;
    UpdateArrows();
    return TRUE;
}

void CDlgStripe::RenderSamples() const {
    int sizes[kTextureCount][2];
    BitmapImage* images[kTextureCount];
    for (int i = 0; i < kTextureCount; ++i) {
        RECT client = {};
        GetClientRect(Item(IDC_STRIPE_TEXTURE_FIRST + i), &client);
        sizes[i][0] = client.right;
        sizes[i][1] = client.bottom;
        samples[i].reset(new BitmapImage);
        images[i] = samples[i].get();
    }
    // A sample that could not be rendered stays empty and draws nothing.
    RenderTextureSamples(sizes, images);
}

const BitmapImage* CDlgStripe::GetSample(int index) const {
    if (index < 0 || index >= kTextureCount || hwnd() == nullptr) return nullptr;
    if (samples[0] == nullptr) RenderSamples();
    return samples[index].get();
}

void CDlgStripe::CollectParameters(KTEffectStripe& stripe) const {
    if (hwnd() == nullptr) return;
    stripe.SetInterval(static_cast<float>(ReadInt(hwnd(), IDC_STRIPE_INTERVAL)));
    stripe.SetPatternWidth(BarFraction(hwnd(), IDC_STRIPE_WIDTH));
    stripe.SetDirection(direction);
    stripe.SetTexture(texture);
    stripe.SetIntersectionBrightness(BarFraction(hwnd(), IDC_STRIPE_CROSSING));
    const int mode = IsChecked(hwnd(), IDC_STRIPE_GIVEN_COLOR) ? 0 : 1;
    stripe.SetBackgroundMode(mode);
    if (mode == 0) stripe.SetBackgroundColor(backgroundColor);
}

void CDlgStripe::SelectTexture(int index) {
    texture = index;
    for (int i = 0; i < kTextureCount; ++i)
        InvalidateRect(Item(IDC_STRIPE_TEXTURE_FIRST + i), nullptr, FALSE);
    UpdateArrows();
}

void CDlgStripe::OnCommand(int id) {
    if (const int code = DirectionOf(id)) {
        direction = code;
        for (int i = 0; i < kDirections; ++i)
            InvalidateRect(Item(IDC_STRIPE_DIRECTION_FIRST + i), nullptr, FALSE);
    } else if (TextureOf(id) >= 0) {
        SelectTexture(TextureOf(id));
    } else if (id == IDC_STRIPE_PREVIOUS || id == IDC_STRIPE_NEXT) {
        const int step = id == IDC_STRIPE_NEXT ? 1 : -1;
        const int next = texture + step;
        if (next >= 0 && next < kTextureCount) texture = next;
        UpdateArrows();
        InvalidateRect(hwnd(), nullptr, TRUE);
    } else if (id == IDC_STRIPE_BACKGROUND) {
        if (PickColor(hwnd(), &backgroundColor)) InvalidateRect(Item(id), nullptr, FALSE);
    }
}

void CDlgStripe::DrawDirection(const DRAWITEMSTRUCT& item, int code) const {
    FillSolid(item.hDC, item.rcItem, RGB(255, 255, 255));
    {
        GdiObject<HPEN> pen(CreatePen(PS_SOLID, 2, RGB(0, 0, 0)));
        SelectedObject selected(item.hDC, pen.get());
        DrawGlyph(item.hDC, code, item.rcItem.right - item.rcItem.left,
                  item.rcItem.bottom - item.rcItem.top);
    }
    FrameChoice(item, code == direction);
}

void CDlgStripe::DrawTexture(const DRAWITEMSTRUCT& item, int index) const {
    const BitmapImage* sample = GetSample(index);
    if (sample != nullptr)
        sample->DrawRegion(item.hDC, 0, 0, sample->GetWidth() - 1, sample->GetHeight() - 1);
    FrameChoice(item, index == texture);
}

void CDlgStripe::DrawItem(const DRAWITEMSTRUCT& item) const {
    const int id = static_cast<int>(item.CtlID);
    if (id == IDC_STRIPE_BACKGROUND) {
        PaintColorButton(item.hwndItem, backgroundColor);
    } else if (const int code = DirectionOf(id)) {
        DrawDirection(item, code);
    } else if (TextureOf(id) >= 0) {
        DrawTexture(item, TextureOf(id));
    }
}

void CDlgStripe::UpdateArrows() const {
    Enable(hwnd(), {IDC_STRIPE_PREVIOUS}, texture != 0);
    Enable(hwnd(), {IDC_STRIPE_NEXT}, texture != kTextureCount - 1);
}

BOOL CDlgStripe::PreTranslateMessage(MSG* msg) {
    if (ForwardSpaceKey(hwnd(), msg)) return TRUE;
    // Enter chooses the focused direction or texture button; the space bar
    // is the update key everywhere.
    if (msg->message == WM_KEYDOWN && msg->wParam == VK_RETURN && IsChild(hwnd(), msg->hwnd)) {
        const int id = GetDlgCtrlID(msg->hwnd);
        if (DirectionOf(id) || TextureOf(id) >= 0) {
            OnCommand(id);
            return TRUE;
        }
    }
    UpdateArrows();
    return Dialog::PreTranslateMessage(msg);
}

bool CDlgStripe::OnMessage(UINT msg, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    switch (msg) {
        case WM_HSCROLL: OnBarScroll(wParam, lParam); return true;
        case WM_DRAWITEM:
            DrawItem(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
            *result = TRUE;
            return true;
        case WM_COMMAND:
            if (HIWORD(wParam) != BN_CLICKED) return false;
            OnCommand(LOWORD(wParam));
            return true;
        case WM_NCDESTROY:
            // The window is gone; the samples go with it.
            for (auto& sample : samples) sample.reset();
            return false;
        default: return false;
    }
}
