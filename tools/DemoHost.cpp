// The demo host: a small Win32 program that loads VellColor.dll as a drawing
// program would, opens the remote control and lists every notification it
// receives. "--quit-after MS" closes it by itself and "--show EFFECT" picks
// an effect (for screenshots).
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
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
        const KTEffectDensityPattern& p = pattern;
        AddFields(L"    type %d  reference points %d  isoline width %.4g  radial lines %d",
                  p.patternType, p.referencePoints, p.isolineWidth, p.radialLines);
        AddFields(L"    swirl %.4g  roughness %.4g  remove jaggies %d  swap colors %d", p.swirl,
                  p.roughness, p.removeJaggies, p.invertColors);
        AddFields(L"    border color%ls  border width %.4g  blur direction %d",
                  Hex(p.borderColor.ToRGB()).c_str(), p.borderWidth, p.blurDirection);
        if (p.image != nullptr) {
            AddFields(L"    picture %d x %d  image size %.4g", p.image->GetWidth(),
                      p.image->GetHeight(), p.imageSize);
        } else {
            AddFields(L"    no picture  image size %.4g", p.imageSize);
        }
        AddLine(ColorList(p.colorCount, p.colors));
    } else if (name == "image_mapping") {
        KTMapping m;
        float stretchX = 1.0f, stretchY = 1.0f;
        PXColor_GetMapping(m, stretchX, stretchY);
        if (m.image == nullptr) {
            AddLine(L"    no picture: nothing was filled in");
            return;
        }
        AddFields(L"    picture %d x %d  repeat %d  seamless %d  fit whole %d", m.image->GetWidth(),
                  m.image->GetHeight(), m.repeat, m.seamless, m.fitWhole);
        AddFields(L"    scale %.4g  angle %.4g  assigned %d  stretch %.4g, %.4g", m.scale, m.angle,
                  m.assigned, stretchX, stretchY);
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

// A 24-bit bottom-up packed DIB (header, then rows) of w x h pixels colored
// by `color(x, y)`, y counted from the top.
template <typename Color>
std::string PackedDib(int w, int h, Color color) {
    const int stride = (w * 3 + 3) / 4 * 4;
    BITMAPINFOHEADER header = {};
    header.biSize = sizeof header;
    header.biWidth = w;
    header.biHeight = h;
    header.biPlanes = 1;
    header.biBitCount = 24;
    std::string dib(sizeof header + stride * h, '\0');
    std::memcpy(&dib[0], &header, sizeof header);
    for (int y = 0; y < h; ++y) {
        for (int x = 0; x < w; ++x) {
            const COLORREF c = color(x, h - 1 - y);
            char* p = &dib[sizeof header + y * stride + x * 3];
            p[0] = static_cast<char>(GetBValue(c));
            p[1] = static_cast<char>(GetGValue(c));
            p[2] = static_cast<char>(GetRValue(c));
        }
    }
    return dib;
}

// The picture as a .bmp file: a file header before the packed DIB.
template <typename Color>
void WriteBitmap(const std::wstring& path, int w, int h, Color color) {
    const std::string dib = PackedDib(w, h, color);
    BITMAPFILEHEADER header = {};
    header.bfType = 0x4D42;  // "BM"
    header.bfSize = static_cast<DWORD>(sizeof header + dib.size());
    header.bfOffBits = sizeof header + sizeof(BITMAPINFOHEADER);
    FILE* out = _wfopen(path.c_str(), L"wb");
    if (out == nullptr) return;
    std::fwrite(&header, sizeof header, 1, out);
    std::fwrite(dib.data(), 1, dib.size(), out);
    std::fclose(out);
}

// The picture list shows the "Image" folder beside the host program; the
// demo makes a few pictures of its own there the first time it runs.
void MakeSamplePictures() {
    wchar_t exe[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, exe, MAX_PATH);
    std::wstring folder(exe);
    folder = folder.substr(0, folder.find_last_of(L"\\/")) + L"\\Image";
    if (GetFileAttributesW(folder.c_str()) != INVALID_FILE_ATTRIBUTES) return;
    CreateDirectoryW(folder.c_str(), nullptr);
    WriteBitmap(folder + L"\\gradient.bmp", 160, 120,
                [](int x, int y) { return RGB(x * 255 / 159, y * 255 / 119, 128); });
    WriteBitmap(folder + L"\\checker.bmp", 128, 128, [](int x, int y) {
        return ((x / 16 + y / 16) % 2) ? RGB(30, 30, 30) : RGB(240, 220, 120);
    });
    WriteBitmap(folder + L"\\rings.bmp", 120, 120, [](int x, int y) {
        const int d2 = (x - 60) * (x - 60) + (y - 60) * (y - 60);
        return (d2 / 150) % 2 ? RGB(40, 90, 200) : RGB(250, 250, 250);
    });
    WriteBitmap(folder + L"\\夕焼け.bmp", 200, 100,
                [](int, int y) { return RGB(255, 120 + y, 40 + y); });
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

// Puts a 24-bit picture on the clipboard, as a drawing program's copy would.
void CopySamplePicture(HWND owner) {
    const std::string dib = PackedDib(120, 80, [](int x, int y) {
        return RGB(x * 2, y * 3, 255 - x * 2);
    });
    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, dib.size());
    if (block == nullptr) return;
    std::memcpy(GlobalLock(block), dib.data(), dib.size());
    GlobalUnlock(block);
    if (OpenClipboard(owner)) {
        EmptyClipboard();
        if (SetClipboardData(CF_DIB, block) != nullptr) block = nullptr;
        CloseClipboard();
    }
    if (block != nullptr) GlobalFree(block);
}

// The remote control's panel inside `frame` that holds control `id`.
HWND PanelHolding(HWND remote, int frame, int id) {
    for (HWND panel = GetWindow(GetDlgItem(remote, frame), GW_CHILD); panel != nullptr;
         panel = GetWindow(panel, GW_HWNDNEXT)) {
        if (GetDlgItem(panel, id) != nullptr) return panel;
    }
    return nullptr;
}

// "--show EFFECT" picks that effect in the remote control and presses its
// update button once, so a screenshot shows the panel and what the host
// read back. "--show picture_list" opens the picture list instead, and
// "--show picture_pattern" picks the image-tile pattern with a picture
// taken from the clipboard.
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
    if (remote != nullptr && effect == L"picture_list") {
        // Image mapping, then the picture list's button, once our loop runs.
        SendDlgItemMessageW(remote, 1007, BM_CLICK, 0, 0);
        if (HWND source = PanelHolding(remote, 1027, 1040))
            PostMessageW(GetDlgItem(source, 1001), BM_CLICK, 0, 0);
        return;
    }
    if (remote != nullptr && effect == L"picture_pattern") {
        SendDlgItemMessageW(remote, 1009, BM_CLICK, 0, 0);
        if (HWND pattern = PanelHolding(remote, 1002, 1088)) {
            SendDlgItemMessageW(pattern, 1088, LB_SETCURSEL, 9, 0);
            SendMessageW(pattern, WM_COMMAND, MAKEWPARAM(1088, LBN_SELCHANGE),
                         reinterpret_cast<LPARAM>(GetDlgItem(pattern, 1088)));
        }
        CopySamplePicture(remote);
        if (HWND source = PanelHolding(remote, 1027, 1040))
            SendDlgItemMessageW(source, 1002, BM_CLICK, 0, 0);
        SendDlgItemMessageW(remote, 1000, BM_CLICK, 0, 0);
        return;
    }
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
    MakeSamplePictures();

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
