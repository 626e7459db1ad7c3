#include "CDlgColor.h"

#include <commctrl.h>

#include <cstring>
#include <cwchar>
#include <string>
#include <vector>

#include "HostWindow.h"
#include "ResourceIds.h"
#include "SettingsFile.h"
#include "framework/PrivateMessages.h"
#include "framework/SystemDialogs.h"
#include "panels/CDlgColorSet.h"
#include "panels/CDlgDensityPattern.h"
#include "panels/CDlgGradation.h"
#include "panels/CDlgImageSource.h"
#include "panels/CDlgMapping.h"
#include "panels/CDlgStripe.h"
#include "panels/CDlgTile.h"
#include "panels/PanelControls.h"
#include "panels/Panels.h"
#include "panels/PatternChoices.h"
#include "params/ColorSetText.h"
#include "vellcolor/KTEffectDensityPattern.h"
#include "vellcolor/KTEffectGradation.h"
#include "vellcolor/KTEffectStripe.h"
#include "vellcolor/KTEffectTile.h"
#include "vellcolor/KTMapping.h"

namespace {

const char kNoRecipient[] = "送信相手がいない。";

// The effect radios in the order the update button asks them, with the
// name it sends for each.
struct EffectRadio {
    int id;
    const char* name;
};
const EffectRadio kEffectRadios[] = {
    {IDC_RADIO_GRADATION, "gradation"},
    {IDC_RADIO_TILE, "tile"},
    {IDC_RADIO_STRIPE, "stripe"},
    {IDC_RADIO_ISOLINE, "density_pattern"},
    {IDC_RADIO_IMAGE_MAPPING, "image_mapping"},
};

// Effect panels in the order they are created.
const int kEffectPanels[] = {IDD_TILE, IDD_GRADATION, IDD_STRIPE, IDD_ISOLINE_PATTERN, IDD_MAPPING};
// Every panel, as ChangeSubDlg hides them.
const int kAllPanels[] = {IDD_GRADATION, IDD_TILE,      IDD_STRIPE,      IDD_ISOLINE_PATTERN,
                          IDD_MAPPING,   IDD_COLOR_SET, IDD_IMAGE_SOURCE};

const wchar_t kWindowSection[] = L"Window";
const wchar_t kColorTableSection[] = L"ColorTable";

std::wstring ColorSetKey(int index) {
    wchar_t key[32];
    swprintf(key, 32, L"ColorSet%03d", index);
    return key;
}

// Hands the color set panel's colors, in order, to a parameter object's
// SetColors. Its result is not looked at: a refused list leaves the
// object's previous colors.
template <typename Parameters>
void CopyPanelColors(Parameters& parameters) {
    CDlgColorSet& panel = ColorSetPanel();
    const int count = panel.GetColorCount();
    std::vector<ColorRGB> colors(count > 0 ? count : 0);
    for (int i = 0; i < count; ++i)
        panel.GetColor(i, &colors[i].red, &colors[i].green, &colors[i].blue);
    parameters.SetColors(count, colors.data());
}

void ShowPanel(int templateId, int command) {
    if (Dialog* panel = PanelByTemplate(templateId)) {
        if (panel->hwnd() != nullptr) ShowWindow(panel->hwnd(), command);
    }
}

// Creates the panel inside `frame`, centred, no higher than `minTop`, hidden.
void PlacePanel(int templateId, HWND frame, int minTop) {
    Dialog* panel = PanelByTemplate(templateId);
    if (panel == nullptr || !panel->CreateModeless(frame)) return;
    // Tab and the arrow keys reach the panel's controls through the frame.
    const LONG style = GetWindowLongW(frame, GWL_EXSTYLE);
    if ((style & WS_EX_CONTROLPARENT) == 0)
        SetWindowLongW(frame, GWL_EXSTYLE, style | WS_EX_CONTROLPARENT);
    RECT area, own;
    GetClientRect(frame, &area);
    GetClientRect(panel->hwnd(), &own);
    const int x = (area.right - own.right) / 2;
    int y = (area.bottom - own.bottom) / 2;
    if (y < minTop) y = minTop;
    SetWindowPos(panel->hwnd(), HWND_TOP, x, y, 0, 0, SWP_NOSIZE | SWP_HIDEWINDOW);
}

}  // namespace

CDlgColor::CDlgColor(CWnd* pParent)
    : Dialog(IDD_REMOTE_CONTROL), m_pParent(pParent), m_pHostWnd(NULL), m_nNotifyMessage(0) {}

CDlgColor::CDlgColor(CWnd* pHostWnd, UINT nNotifyMessage)
    : Dialog(IDD_REMOTE_CONTROL),
      m_pParent(NULL),
      m_pHostWnd(pHostWnd),
      m_nNotifyMessage(nNotifyMessage) {}

CDlgColor::~CDlgColor() {
    // Destroy here rather than in the base destructor, so that OnDestroy
    // still runs and the settings are saved.
    DestroyWindow();
}

BOOL CDlgColor::Create() {
    INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_UPDOWN_CLASS | ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&controls);
    return CreateModeless(HostWindowHandle(m_pParent)) ? TRUE : FALSE;
}

BOOL CDlgColor::OnInitDialog() {
    Dialog::OnInitDialog();
    PlacePanels();
    PanelControls::SetChecked(hwnd(), IDC_RADIO_GRADATION, true);
    ChangeSubDlg(IDD_GRADATION);
    LoadParameter();
    if (HWND ok = Item(IDOK)) ShowWindow(ok, SW_HIDE);
    return TRUE;
}

void CDlgColor::PlacePanels() {
    HWND lower = Item(IDC_LOWER_FRAME);
    PlacePanel(IDD_COLOR_SET, lower, 0);
    ShowPanel(IDD_COLOR_SET, SW_SHOW);
    PlacePanel(IDD_IMAGE_SOURCE, lower, 0);
    ShowPanel(IDD_IMAGE_SOURCE, SW_SHOW);

    // Effect panels keep clear of the group box's caption.
    HWND effects = Item(IDC_EFFECT_FRAME);
    const int minTop = static_cast<int>(GetSystemMetrics(SM_CYCAPTION) * 0.75);
    for (int id : kEffectPanels) PlacePanel(id, effects, minTop);
}

void CDlgColor::ChangeSubDlg(int nPanelTemplateId) {
    for (int id : kAllPanels) ShowPanel(id, SW_HIDE);

    // Each effect's caption, and the color counts it can use (0: it takes
    // an image instead of colors).
    const wchar_t* caption = nullptr;
    int minColors = 2;
    switch (nPanelTemplateId) {
        case IDD_GRADATION: caption = L"ｸﾞﾗﾃﾞｰｼｮﾝ"; break;
        case IDD_TILE: caption = L"ﾀｲﾙ"; break;
        case IDD_STRIPE:
            caption = L"縞模様";
            minColors = 1;
            break;
        case IDD_ISOLINE_PATTERN:
            caption = L"等値線模様";
            minColors = IsImagePattern(DensityPatternPanel().GetPatternType()) ? 0 : 1;
            break;
        case IDD_MAPPING:
            caption = L"画像貼り付け";
            minColors = 0;
            break;
        default: break;
    }
    if (caption != nullptr) {
        ShowPanel(nPanelTemplateId, SW_SHOW);
        SetWindowTextW(Item(IDC_EFFECT_FRAME), caption);
        if (minColors == 0) {
            ShowPanel(IDD_IMAGE_SOURCE, SW_SHOW);
        } else if (nPanelTemplateId == IDD_GRADATION && GradationPanel().GetType() == 7) {
            // Four corners take four colors; the range stays as it was.
            ShowPanel(IDD_COLOR_SET, SW_SHOW);
            ColorSetPanel().SetColorCount(4);
        } else {
            ShowPanel(IDD_COLOR_SET, SW_SHOW);
            CDlgColorSet& colors = ColorSetPanel();
            colors.SetColorCountRange(minColors, colors.GetMaxColorCount());
        }
    }
    InvalidateRect(hwnd(), nullptr, TRUE);
}

// The effect's panel writes its values, then the colors come from the
// color set panel whatever the chosen effect.
void CDlgColor::GetEffect(KTEffectGradation& gradation) {
    GradationPanel().CollectParameters(gradation);
    CopyPanelColors(gradation);
}

void CDlgColor::GetEffect(KTEffectTile& tile) {
    TilePanel().CollectParameters(tile);
    CopyPanelColors(tile);
}

void CDlgColor::GetEffect(KTEffectStripe& stripe) {
    StripePanel().CollectParameters(stripe);
    CopyPanelColors(stripe);
}

// The image-based patterns also take the picture, when there is one; the
// others never touch the object's picture.
void CDlgColor::GetEffect(KTEffectDensityPattern& pattern) {
    DensityPatternPanel().CollectParameters(pattern);
    CopyPanelColors(pattern);
    if (!IsImagePattern(pattern.GetPatternType())) return;
    if (const BitmapImage* picture = ImageSourcePanel().GetImage()) pattern.SetImage(*picture);
}

void CDlgColor::GetMapping(KTMapping& mapping, float& stretchX, float& stretchY) {
    const BitmapImage* picture = ImageSourcePanel().GetImage();
    if (picture == nullptr) return;
    // A copy that fails leaves the mapping without a picture; it still takes
    // the panel's values.
    mapping.SetImage(*picture);
    MappingPanel().GetMapping(mapping, stretchX, stretchY);
}

BOOL CDlgColor::PreTranslateMessage(MSG* msg) {
    if (msg->message == WM_KEYDOWN && msg->wParam == VK_SPACE) {
        OnButtonUpdate();
        return TRUE;
    }
    return Dialog::PreTranslateMessage(msg);
}

bool CDlgColor::OnMessage(UINT msg, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    const UINT w = static_cast<UINT>(wParam);
    const LONG l = static_cast<LONG>(lParam);
    switch (msg) {
        case WM_COMMAND: return HIWORD(wParam) == BN_CLICKED && OnCommand(LOWORD(wParam));
        case WM_DESTROY: OnDestroy(); return true;
        case WM_CLOSE: OnClose(); return true;
        case WM_SUBDIALOG_KEYDOWN: *result = OnSubDialogKeyDown(w, l); return true;
        case WM_CHANGE_TO_COLOR_PANEL: *result = OnChangeToColorPanel(w, l); return true;
        case WM_CHANGE_TO_IMAGE_PANEL: *result = OnChangeToImagePanel(w, l); return true;
        case WM_QUERY_IS_IMAGE_SET: *result = OnQueryIsImageSet(w, l); return true;
        case WM_OPERATE_COLOR_PANEL: *result = OnOperateColorPanel(w, l); return true;
        default: return false;
    }
}

bool CDlgColor::OnCommand(int id) {
    switch (id) {
        case IDC_UPDATE: OnButtonUpdate(); return true;
        case IDC_RADIO_GRADATION: OnRadioGradation(); return true;
        case IDC_RADIO_TILE: OnRadioCheck(); return true;
        case IDC_UNIFORM_COLOR: OnButtonUniformColor(); return true;
        case IDC_RADIO_IMAGE_MAPPING: OnRadioImageMapping(); return true;
        case IDC_BLUR: OnButtonBokashi(); return true;
        case IDC_REVERSE_COLOR: OnButtonReverseColor(); return true;
        case IDC_COLOR_EDGE: OnButtonColorEdge(); return true;
        case IDC_RADIO_ISOLINE: OnRadioMetacirclePattern(); return true;
        case IDC_RADIO_STRIPE: OnRadioStripe(); return true;
        default: return false;
    }
}

void CDlgColor::SendToHost(const char* name) {
    if (m_pHostWnd == NULL) {
        SystemDialogs::ShowMessage(hwnd(), kNoRecipient);
        return;
    }
    // The host must copy the name before it returns: the buffer lives on
    // this stack only while the send is in progress.
    char buffer[64] = {};
    std::strncpy(buffer, name, sizeof buffer - 1);
    SendMessageA(HostWindowHandle(m_pHostWnd), m_nNotifyMessage, std::strlen(buffer) + 1,
                 reinterpret_cast<LPARAM>(buffer));
}

void CDlgColor::OnButtonUpdate() {
    const char* name = "";
    for (const EffectRadio& radio : kEffectRadios) {
        if (PanelControls::IsChecked(hwnd(), radio.id)) name = radio.name;
    }
    SendToHost(name);
}

void CDlgColor::OnButtonUniformColor() {
    SendToHost("uniform_color");
}
void CDlgColor::OnButtonBokashi() {
    SendToHost("color_bokashi");
}
void CDlgColor::OnButtonReverseColor() {
    SendToHost("reverse_color");
}
void CDlgColor::OnButtonColorEdge() {
    SendToHost("color_edge");
}

void CDlgColor::OnRadioGradation() {
    ChangeSubDlg(IDD_GRADATION);
}
void CDlgColor::OnRadioCheck() {
    ChangeSubDlg(IDD_TILE);
}
void CDlgColor::OnRadioStripe() {
    ChangeSubDlg(IDD_STRIPE);
}
void CDlgColor::OnRadioMetacirclePattern() {
    ChangeSubDlg(IDD_ISOLINE_PATTERN);
}
void CDlgColor::OnRadioImageMapping() {
    ChangeSubDlg(IDD_MAPPING);
}

void CDlgColor::OnClose() {
    // The close box never destroys the dialog; it leaves it minimized and
    // hidden, which the settings file records as not displayed.
    ShowWindow(hwnd(), SW_MINIMIZE);
    ShowWindow(hwnd(), SW_HIDE);
}

void CDlgColor::OnDestroy() {
    SaveParameter();
    const int order[] = {IDD_GRADATION,       IDD_TILE,    IDD_STRIPE,
                         IDD_ISOLINE_PATTERN, IDD_MAPPING, IDD_COLOR_SET};
    for (int id : order) {
        if (Dialog* panel = PanelByTemplate(id)) panel->DestroyWindow();
    }
}

LONG CDlgColor::OnSubDialogKeyDown(UINT, LONG lParam) {
    if (lParam == VK_SPACE) OnButtonUpdate();
    return 0;
}

LONG CDlgColor::OnOperateColorPanel(UINT wParam, LONG lParam) {
    if (wParam == 0) ColorSetPanel().SetColorCount(lParam < 7 ? lParam : 7);
    return 0;
}

LONG CDlgColor::OnChangeToColorPanel(UINT, LONG) {
    ShowPanel(IDD_IMAGE_SOURCE, SW_HIDE);
    ShowPanel(IDD_COLOR_SET, SW_SHOW);
    InvalidateRect(hwnd(), nullptr, TRUE);
    return 0;
}

LONG CDlgColor::OnChangeToImagePanel(UINT, LONG) {
    ShowPanel(IDD_COLOR_SET, SW_HIDE);
    ShowPanel(IDD_IMAGE_SOURCE, SW_SHOW);
    InvalidateRect(hwnd(), nullptr, TRUE);
    return 0;
}

LONG CDlgColor::OnQueryIsImageSet(UINT, LONG) {
    return ImageSourcePanel().GetImage() != nullptr ? 1 : 0;
}

void CDlgColor::LoadParameter() {
    const SettingsFile settings;
    const int top = settings.ReadInt(kWindowSection, L"Top", 0);
    const int left = settings.ReadInt(kWindowSection, L"Left", 0);
    const int display = settings.ReadInt(kWindowSection, L"Display", 0);

    // Keep the whole window on the screen; its size stays.
    RECT rect;
    GetWindowRect(hwnd(), &rect);
    const int width = rect.right - rect.left;
    const int height = rect.bottom - rect.top;
    const int screenWidth = GetSystemMetrics(SM_CXSCREEN);
    const int screenHeight = GetSystemMetrics(SM_CYSCREEN);
    int x = left < 0 ? 0 : left;
    if (x + width > screenWidth) x = screenWidth - width;
    int y = top < 0 ? 0 : top;
    if (y + height > screenHeight) y = screenHeight - height;
    MoveWindow(hwnd(), x, y, width, height, TRUE);

    if (display != 0) {
        ShowWindow(hwnd(), SW_SHOW);
    } else {
        // Hidden in the minimized state, as the close box leaves it.
        ShowWindow(hwnd(), SW_SHOWMINIMIZED);
        ShowWindow(hwnd(), SW_HIDE);
    }

    CDlgColorSet& colors = ColorSetPanel();
    ColorSetList* sets = colors.GetColorSetList();
    if (sets == nullptr) return;
    sets->removeAll();
    // Sets found are appended in key order, so gaps close on the next save.
    const SettingsFile::Section table = settings.ReadSection(kColorTableSection);
    ColorSetRecord working;
    for (int i = 0; i < colors.GetMaxColorSetCount(); ++i) {
        const std::string value = table.ReadString(ColorSetKey(i).c_str(), 512);
        if (!value.empty() && ParseColorSet(value, &working))
            sets->insertAfter(sets->count() - 1, working);
    }
    colors.RefillColorSetCombo(0);
}

void CDlgColor::SaveParameter() {
    const SettingsFile settings;
    settings.EmptyAndDelete();
    WINDOWPLACEMENT placement = {};
    placement.length = sizeof placement;
    GetWindowPlacement(hwnd(), &placement);
    settings.Write(kWindowSection, L"Top", std::to_string(placement.rcNormalPosition.top));
    settings.Write(kWindowSection, L"Left", std::to_string(placement.rcNormalPosition.left));
    settings.Write(kWindowSection, L"Display", placement.showCmd == SW_SHOWMINIMIZED ? "0" : "1");

    const ColorSetList* sets = ColorSetPanel().GetColorSetList();
    for (int i = 0; sets != nullptr && i < sets->count(); ++i) {
        settings.Write(kColorTableSection, ColorSetKey(i).c_str(), FormatColorSet(*sets->item(i)));
    }
}
