// The color set panel: seven numbered swatches of which the first N are in
// use, the palette operations, single-color editing through the system
// color chooser or the color slider, and the drop-down of registered sets.
#pragma once

#include <windows.h>

#include <memory>

#include "framework/Dialog.h"
#include "params/ColorSetList.h"
#include "vellcolor/ColorRGB.h"

class CDlgColorSet : public Dialog {
  public:
    static const int kSlots = 7;

    CDlgColorSet();
    ~CDlgColorSet() override;

    // Min 0 hides the panel; otherwise it is shown with the count limited to
    // min..max (the up-down itself hidden when they are equal).
    void SetColorCountRange(int min, int max);
    int GetMaxColorCount() const { return kSlots; }
    int GetMaxColorSetCount() const { return ColorSetList::max; }
    int GetColorCount() const;
    void SetColorCount(int count);
    // Slot i's channels; with fluctuation on, a random color near it.
    void GetColor(int index, unsigned char* r, unsigned char* g, unsigned char* b) const;
    // Null until the panel's window exists.
    ColorSetList* GetColorSetList() { return setList_.get(); }
    void RefillColorSetCombo(int selection);

    int GetCurrentIndex() const { return current_; }

    BOOL PreTranslateMessage(MSG* msg) override;

  protected:
    BOOL OnInitDialog() override;
    bool OnMessage(UINT msg, WPARAM wParam, LPARAM lParam, LRESULT* result) override;

  private:
    bool OnCommand(int id, int code, HWND control);
    void OnCountChanged();
    void OnSwatchClicked(int index);
    void OnSelectSet();
    void OnRegister();
    void OnDelete();
    void OnRainbow();
    void OnInterpolate();
    void ChooseRandomMode(POINT screen);
    void ChooseInterpolationMode();
    void OnTimer(UINT_PTR id);
    void DrawSetItem(const DRAWITEMSTRUCT& item) const;
    void PaintSwatch(int index) const;
    void PaintSwatches(int first, int last) const;
    void MakeCurrent(int index);
    void UpdateEnabledButtons() const;
    int SwatchIndexOf(HWND window) const;
    void CountRange(int* min, int* max) const;

    ColorRGB palette_[kSlots];
    int current_ = 0;
    std::unique_ptr<ColorSetList> setList_;
    int randomMode_ = 0;
    int interpolationMode_ = 101;
    int hueDirection_ = 0;
};
