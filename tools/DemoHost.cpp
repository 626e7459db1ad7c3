// The demo host: a small Win32 program that loads VellColor.dll as a drawing
// program would, opens the remote control and lists every notification it
// receives. "--quit-after MS" closes it by itself and "--show EFFECT" picks
// an effect (for screenshots).
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <string>

#include "vellcolor/VellColor.h"

namespace {

const UINT kNotifyMessage = WM_APP + 0x200;
const UINT_PTR kQuitTimer = 1;
const int kListId = 100;

// Stands in for the host framework's window object: the library reads the
// window handle at offset 0x1C.
VellHostWindow g_hostWindow = {};
HWND g_list = nullptr;

void AddLine(const std::wstring& line) {
    const LRESULT index =
        SendMessageW(g_list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(line.c_str()));
    SendMessageW(g_list, LB_SETCURSEL, static_cast<WPARAM>(index), 0);
}

std::wstring Hex(const ColorRGB& c) {
    wchar_t text[16];
    std::swprintf(text, 16, L" #%02X%02X%02X", c.red, c.green, c.blue);
    return text;
}

ColorRGB AsBytes(const ColorRGB& c) {
    return c;
}
ColorRGB AsBytes(const ColorF& c) {
    return c.ToRGB();
}

template <typename Color>
std::wstring ColorList(int count, const Color* colors) {
    std::wstring text = L"    " + std::to_wstring(count) + L" colors:";
    for (int i = 0; i < count && colors != nullptr; ++i) text += Hex(AsBytes(colors[i]));
    return text;
}

// One line of "name value" pairs, printf style.
template <typename... Values>
void AddFields(const wchar_t* format, Values... values) {
    wchar_t line[256];
    std::swprintf(line, 256, format, values...);
    AddLine(line);
}

// What a drawing program does next: read the effect's parameters back.
void ShowParameters(const std::string& name) {
    if (name == "gradation") {
        KTEffectGradation g;
        PXColor_GetGradation(g);
        AddFields(L"    type %d  mix %.4g  bias %.4g  angle %.4g  repeat %d", g.type, g.mix, g.bias,
                  g.angle, g.repeat);
        AddFields(L"    spiral angle %.6g  hue interpolation %d  factor %.4g", g.spiralAngle,
                  g.hueInterpolation, g.factor);
        AddLine(ColorList(g.colorCount, g.colors));
    } else if (name == "tile") {
        KTEffectTile t;
        PXColor_GetTile(t);
        AddFields(L"    shape %d  size %.6g x %.6g  seam %.4g  angle %.4g  coloring %d", t.shape,
                  t.width, t.height, t.seamWidth, t.angle, t.coloring);
        AddFields(
            L"    row shift %.4g  round %d  corner cut %.4g  transparent seam %d  seam color%ls",
            t.rowShift, t.roundCorners, t.cornerCut, t.transparentSeam, Hex(t.seamColor).c_str());
        AddLine(ColorList(t.colorCount, t.colors));
    } else if (name == "stripe") {
        KTEffectStripe s;
        PXColor_GetStripe(s);
        AddFields(L"    interval %.4g  width %.4g  direction %d  texture %d  crossing %.4g",
                  s.interval, s.patternWidth, s.direction, s.texture, s.intersectionBrightness);
        AddFields(L"    background mode %d  background color%ls", s.backgroundMode,
                  Hex(s.backgroundColor).c_str());
        AddLine(ColorList(s.colorCount, s.colors));
    } else if (name == "density_pattern") {
        KTEffectDensityPattern pattern;
        PXColor_GetDensityPattern(pattern);
        AddLine(ColorList(pattern.colorCount, pattern.colors));
    } else if (name == "image_mapping") {
        KTMapping mapping;
        float stretchX = 1.0f, stretchY = 1.0f;
        PXColor_GetMapping(mapping, stretchX, stretchY);
        AddLine(mapping.image == nullptr ? L"    no image" : L"    an image");
    }
}

void OnNotification(WPARAM wParam, LPARAM lParam) {
    // The name is only valid during this call; copy it.
    const std::string name(reinterpret_cast<const char*>(lParam));
    wchar_t line[160];
    std::swprintf(line, 160, L"notification: \"%hs\"  (wParam %u)", name.c_str(),
                  static_cast<unsigned>(wParam));
    AddLine(line);
    ShowParameters(name);
}

LRESULT CALLBACK HostProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) {
    switch (msg) {
        case WM_CREATE:
            g_list =
                CreateWindowExW(WS_EX_CLIENTEDGE, L"LISTBOX", nullptr,
                                WS_CHILD | WS_VISIBLE | WS_VSCROLL | LBS_NOINTEGRALHEIGHT, 0, 0, 0,
                                0, hwnd, reinterpret_cast<HMENU>(kListId), nullptr, nullptr);
            SendMessageW(g_list, WM_SETFONT,
                         reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)), TRUE);
            return 0;
        case WM_SIZE: MoveWindow(g_list, 0, 0, LOWORD(lParam), HIWORD(lParam), TRUE); return 0;
        case WM_TIMER:
            if (wParam == kQuitTimer) DestroyWindow(hwnd);
            return 0;
        case WM_DESTROY:
            PXColor_Close();
            PostQuitMessage(0);
            return 0;
        default:
            if (msg == kNotifyMessage) {
                OnNotification(wParam, lParam);
                return 0;
            }
            return DefWindowProcW(hwnd, msg, wParam, lParam);
    }
}

// The value after `option` on the command line, or "".
std::wstring OptionValue(const wchar_t* option) {
    int argc = 0;
    LPWSTR* argv = CommandLineToArgvW(GetCommandLineW(), &argc);
    std::wstring value;
    for (int i = 1; argv != nullptr && i + 1 < argc; ++i) {
        if (std::wcscmp(argv[i], option) == 0) value = argv[i + 1];
    }
    LocalFree(argv);
    return value;
}

// "--show EFFECT" picks that effect in the remote control and presses its
// update button once, so a screenshot shows the panel and what the host
// read back.
void ShowEffect(const std::wstring& effect) {
    const struct {
        const wchar_t* name;
        int radio;
    } effects[] = {{L"gradation", 1003},
                   {L"tile", 1006},
                   {L"stripe", 1010},
                   {L"density_pattern", 1009},
                   {L"image_mapping", 1007}};
    HWND remote = FindWindowW(L"#32770", L"ｶﾗｰﾘﾝｸﾞ ﾘﾓｺﾝ");
    for (const auto& e : effects) {
        if (remote == nullptr || effect != e.name) continue;
        SendDlgItemMessageW(remote, e.radio, BM_CLICK, 0, 0);
        SendDlgItemMessageW(remote, 1000, BM_CLICK, 0, 0);
    }
}

}  // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, LPWSTR, int show) {
    WNDCLASSW wc = {};
    wc.lpfnWndProc = HostProc;
    wc.hInstance = instance;
    wc.hCursor = LoadCursor(nullptr, IDC_ARROW);
    wc.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
    wc.lpszClassName = L"VellDemoHost";
    RegisterClassW(&wc);

    HWND hwnd = CreateWindowW(L"VellDemoHost", L"VellColor demo host", WS_OVERLAPPEDWINDOW, 400, 40,
                              640, 420, nullptr, nullptr, instance, nullptr);
    if (hwnd == nullptr) return 1;
    g_hostWindow.m_hWnd = hwnd;
    ShowWindow(hwnd, show);

    if (!PXColor_Open(AsHostWindow(&g_hostWindow), kNotifyMessage)) {
        MessageBoxW(hwnd, L"The remote control could not be opened.", L"VellColor demo host",
                    MB_OK);
        DestroyWindow(hwnd);
    } else {
        PXColor_ShowWindow(SW_SHOWNORMAL);
        AddLine(L"Remote control open. Press 更新 or the space bar in it.");
    }
    ShowEffect(OptionValue(L"--show"));
    if (const int ms = _wtoi(OptionValue(L"--quit-after").c_str()))
        SetTimer(hwnd, kQuitTimer, ms, nullptr);

    MSG msg;
    while (GetMessageW(&msg, nullptr, 0, 0) > 0) {
        TranslateMessage(&msg);
        DispatchMessageW(&msg);
    }
    return 0;
}
