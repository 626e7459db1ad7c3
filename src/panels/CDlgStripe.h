// The stripe panel: interval, pattern width, direction, crossing brightness,
// background and one of eight textures, whose grey samples it renders for
// its buttons when they are first drawn.
#pragma once

#include <windows.h>

#include <memory>

#include "TextureSamples.h"
#include "framework/Dialog.h"
#include "vellcolor/BitmapImage.h"
#include "vellcolor/ColorRGB.h"

class KTEffectStripe;

class CDlgStripe : public Dialog {
  public:
    CDlgStripe();
    ~CDlgStripe() override;

    // Writes the controls into `stripe`; the background color only when the
    // panel's own color is chosen.
    void CollectParameters(KTEffectStripe& stripe) const;
    int GetDirection() const { return direction; }
    int GetTexture() const { return texture; }
    // The rendered sample of a texture, or null outside the panel's life;
    // the first call renders all of them.
    const BitmapImage* GetSample(int texture) const;

    BOOL PreTranslateMessage(MSG* msg) override;

  protected:
    BOOL OnInitDialog() override;
    bool OnMessage(UINT msg, WPARAM wParam, LPARAM lParam, LRESULT* result) override;

  private:
    void RenderSamples() const;
    void OnCommand(int id);
    void DrawItem(const DRAWITEMSTRUCT& item) const;
    void DrawDirection(const DRAWITEMSTRUCT& item, int code) const;
    void DrawTexture(const DRAWITEMSTRUCT& item, int texture) const;
    void SelectTexture(int texture);
    void UpdateArrows() const;

    ColorRGB backgroundColor;
    int direction;
    int texture;
    mutable std::unique_ptr<BitmapImage> samples[kTextureCount];
};
