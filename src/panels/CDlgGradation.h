// The gradation panel: the type radios, mix and bias bars, angle, repeat
// and spiral turns. It keeps no parameter object: its controls are the
// state, read whenever the host asks for a gradation.
#pragma once

#include <windows.h>

#include "framework/Dialog.h"

class KTEffectGradation;

class CDlgGradation : public Dialog {
  public:
    CDlgGradation();

    // The code of the checked type radio; the last checked in test order wins.
    int GetType() const;
    // Writes the controls into `gradation` in setter order.
    void CollectParameters(KTEffectGradation& gradation) const;
    // Shows `gradation` in the controls, with the controls' lossy rounding.
    void ShowParameters(const KTEffectGradation& gradation);

    BOOL PreTranslateMessage(MSG* msg) override;

  protected:
    BOOL OnInitDialog() override;
    bool OnMessage(UINT msg, WPARAM wParam, LPARAM lParam, LRESULT* result) override;

  private:
    void UpdateEnabling() const;
};
