// The modeless coloring remote control: five effect radios, the effect
// panel's frame, the lower frame for the color set or image source panel,
// the update button and three one-shot operations.
#pragma once

#include <windows.h>

#include "framework/Dialog.h"
#include "framework/Export.h"

class CWnd;
class KTEffectGradation;
class KTEffectTile;
class KTEffectStripe;
class KTEffectDensityPattern;
class KTMapping;

class VELLCOLOR_CLASS CDlgColor : public Dialog {
  public:
    // Template 1000 with `pParent` as parent; no host to notify.
    explicit CDlgColor(CWnd* pParent = NULL);
    // Notifies `pHostWnd` with `nNotifyMessage`; created without a parent.
    CDlgColor(CWnd* pHostWnd, UINT nNotifyMessage);
    ~CDlgColor() override;

    BOOL Create();

    void GetEffect(KTEffectGradation& gradation);
    void GetEffect(KTEffectTile& tile);
    void GetEffect(KTEffectStripe& stripe);
    void GetEffect(KTEffectDensityPattern& pattern);
    void GetMapping(KTMapping& mapping, float& stretchX, float& stretchY);

    BOOL PreTranslateMessage(MSG* msg) override;

  protected:
    BOOL OnInitDialog() override;
    bool OnMessage(UINT msg, WPARAM wParam, LPARAM lParam, LRESULT* result) override;

    void ChangeSubDlg(int nPanelTemplateId);
    void LoadParameter();
    void SaveParameter();

    void OnButtonUpdate();
    void OnButtonUniformColor();
    void OnButtonBokashi();
    void OnButtonReverseColor();
    void OnButtonColorEdge();

    void OnRadioGradation();
    void OnRadioCheck();
    void OnRadioStripe();
    void OnRadioMetacirclePattern();
    void OnRadioImageMapping();

    void OnClose();
    void OnDestroy();

    LONG OnSubDialogKeyDown(UINT wParam, LONG lParam);
    LONG OnOperateColorPanel(UINT wParam, LONG lParam);
    LONG OnChangeToColorPanel(UINT wParam, LONG lParam);
    LONG OnChangeToImagePanel(UINT wParam, LONG lParam);
    LONG OnQueryIsImageSet(UINT wParam, LONG lParam);

  private:
    bool OnCommand(int id);
    void SendToHost(const char* name);
    void PlacePanels();

    CWnd* m_pParent;
    CWnd* m_pHostWnd;
    UINT m_nNotifyMessage;
};
