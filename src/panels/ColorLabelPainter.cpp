#include "ColorLabelPainter.h"

#include "framework/Gdi.h"
#include "vellcolor/ColorF.h"

namespace {

float Unit(float v) {
    return v < 0.0f ? 0.0f : (v > 1.0f ? 1.0f : v);
}

}  // namespace

void ColorLabelPainter::SetColor(float red, float green, float blue) {
    red_ = Unit(red);
    green_ = Unit(green);
    blue_ = Unit(blue);
}

COLORREF ColorLabelPainter::CaptionColorFor(unsigned char r, unsigned char g, unsigned char b) {
    return r + g + b < 360 ? RGB(255, 255, 255) : RGB(0, 0, 0);
}

void ColorLabelPainter::Paint(HWND window) const {
    if (window == nullptr || !IsWindow(window)) return;
    GdiObject<HFONT> font(CreateFontW(fontHeight_, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE,
                                      SHIFTJIS_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS,
                                      DEFAULT_QUALITY, DEFAULT_PITCH, L"ＭＳ ゴシック"));
    WindowDC dc(window);
    if (!dc) return;
    RECT client;
    GetClientRect(window, &client);

    const ColorRGB fill = ColorF(red_, green_, blue_).ToRGB();
    const COLORREF fillColor = RGB(fill.red, fill.green, fill.blue);
    FillSolid(dc.get(), client, fillColor);
    // The caption's box takes the fill color, so only the text shows.
    const COLORREF oldBack = SetBkColor(dc.get(), fillColor);
    const COLORREF oldText =
        SetTextColor(dc.get(), CaptionColorFor(fill.red, fill.green, fill.blue));
    {
        SelectedObject selected(dc.get(), font.get());
        DrawTextW(dc.get(), caption_.c_str(), -1, &client, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
    }
    SetTextColor(dc.get(), oldText);
    SetBkColor(dc.get(), oldBack);
}
