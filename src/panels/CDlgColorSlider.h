// The modal color slider: three scroll bars edit a slot of the color set
// panel live, and the number box steps to another slot. It keeps no palette
// of its own; it reads and writes the panel's slots through messages.
#pragma once

#include <windows.h>

#include "framework/Dialog.h"
#include "vellcolor/ColorRGB.h"

class CDlgColorSlider : public Dialog {
  public:
    explicit CDlgColorSlider(HWND panel);

    // Edits `slot` of a panel that has `count` colors in use.
    void Setup(int slot, int count);

    BOOL PreTranslateMessage(MSG* msg) override;

  protected:
    BOOL OnInitDialog() override;
    bool OnMessage(UINT msg, WPARAM wParam, LPARAM lParam, LRESULT* result) override;

  private:
    bool FetchSlot(int slot);
    void SendColor() const;
    void PaintPreview() const;
    void OnScroll(HWND bar, int code, int thumb);
    void OnSlotNumberChanged();

    HWND panel_;
    int slot_ = 0;
    int count_ = 0;
    ColorRGB color_;
    bool initializing_ = false;
};
