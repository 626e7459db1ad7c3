// The mapping panel: how the chosen picture is placed on the host's parts
// (repeated or fitted, seamless, scale, rotation, stretch). Its controls are
// its state.
#pragma once

#include <windows.h>

#include "framework/Dialog.h"

class KTMapping;

class CDlgMapping : public Dialog {
  public:
    CDlgMapping();

    // Writes the controls into `mapping` and the stretch into both factors.
    void GetMapping(KTMapping& mapping, float& stretchX, float& stretchY) const;

    BOOL PreTranslateMessage(MSG* msg) override;

  protected:
    BOOL OnInitDialog() override;
    bool OnMessage(UINT msg, WPARAM wParam, LPARAM lParam, LRESULT* result) override;

  private:
    void OnRepeat() const;
    void OnFitWhole() const;
};
