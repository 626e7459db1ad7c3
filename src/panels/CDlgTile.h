// The tile panel: block size, seam width and color, angle, shape, coloring,
// brick aspect and corners. Besides its controls it keeps the seam color.
#pragma once

#include <windows.h>

#include "framework/Dialog.h"
#include "vellcolor/ColorRGB.h"

class KTEffectTile;

class CDlgTile : public Dialog {
  public:
    CDlgTile();

    // Writes the controls and the seam color into `tile` in setter order.
    void CollectParameters(KTEffectTile& tile) const;
    const ColorRGB& GetSeamColor() const { return seamColor; }

    BOOL PreTranslateMessage(MSG* msg) override;

  protected:
    BOOL OnInitDialog() override;
    bool OnMessage(UINT msg, WPARAM wParam, LPARAM lParam, LRESULT* result) override;

  private:
    void OnSeamColor();
    void UpdateEnabling() const;

    ColorRGB seamColor;
};
