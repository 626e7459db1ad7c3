// Paints a button as a color swatch with a centred caption, white on dark
// colors and black on light ones. Shared by every panel that shows a color
// on a button.
#pragma once

#include <windows.h>

#include <string>

class ColorLabelPainter {
  public:
    // Each component is kept within 0..1.
    void SetColor(float red, float green, float blue);
    // Values below 1 become 1.
    void SetFontHeight(int height) { fontHeight_ = height < 1 ? 1 : height; }
    void SetCaption(const std::wstring& caption) { caption_ = caption; }

    // Nothing happens for an absent window.
    void Paint(HWND window) const;

    // The caption color the brightness rule picks for a fill color.
    static COLORREF CaptionColorFor(unsigned char r, unsigned char g, unsigned char b);

  private:
    float red_ = 1.0f;
    float green_ = 1.0f;
    float blue_ = 1.0f;
    int fontHeight_ = 11;
    std::wstring caption_;
};
