// The isoline pattern panel: the pattern type list, the pattern's shape
// values, the border line and random settings. Besides its controls it
// keeps the border color.
#pragma once

#include <windows.h>

#include "framework/Dialog.h"
#include "vellcolor/ColorRGB.h"

class KTEffectDensityPattern;

class CDlgDensityPattern : public Dialog {
  public:
    CDlgDensityPattern();

    // Writes the controls and the border color into `pattern` in setter
    // order. With random settings checked, new values are drawn into the
    // controls first.
    void CollectParameters(KTEffectDensityPattern& pattern);
    // The type code of the selected list item; 0 when none is selected.
    int GetPatternType() const;

    BOOL PreTranslateMessage(MSG* msg) override;

  protected:
    BOOL OnInitDialog() override;
    bool OnMessage(UINT msg, WPARAM wParam, LPARAM lParam, LRESULT* result) override;

  private:
    HWND MainDialog() const { return GetParent(GetParent(hwnd())); }
    void OnTypeChanged() const;
    void OnBorderColor();
    void DrawRandomSettings();
    void UpdateEnabling() const;

    ColorRGB borderColor;
};
