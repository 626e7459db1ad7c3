#include "DemoScript.h"

#include <cstdio>
#include <cstring>
#include <functional>
#include <vector>

#include "SampleScene.h"

namespace demohost {

namespace {

// The remote control's controls that the demo presses.
const int kUpdate = 1000, kUniformColor = 1001, kReverseColor = 1005;
const int kGradation = 1003, kTile = 1006, kStripe = 1010, kPattern = 1009, kMapping = 1007;
const int kEffectFrame = 1002, kImageFrame = 1027;
const int kPatternList = 1088, kImageFromFile = 1001, kImageFromClipboard = 1002;
const int kImageSourceMarker = 1040;  // a control only the image source panel has
const int kColorSetList = 1038;

// The starter color sets: a count, then red, green, blue of each color.
const char* const kStarterSets[] = {
    "5 255 94 58 255 149 0 255 214 90 140 70 150 40 30 90",
    "4 0 62 92 0 128 160 120 200 210 240 248 240",
    "4 34 70 40 90 140 60 200 190 110 250 240 200",
    "3 255 105 180 255 255 255 100 190 255",
    "6 230 60 60 240 160 40 240 220 60 80 180 90 60 120 220 140 80 190",
};

// A 24-bit bottom-up packed DIB (header, then rows) of w x h pixels colored
// by `color(x, y)`, y counted from the top.
std::string PackedDib(int w, int h, const std::function<COLORREF(int, int)>& color) {
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
void WriteBitmap(const std::wstring& path, int w, int h,
                 const std::function<COLORREF(int, int)>& color) {
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

// Puts a packed DIB on the clipboard, as a drawing program's copy would.
void CopyToClipboard(HWND owner, const std::string& dib) {
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

// The landscape that the scene tools hand to the effects placing a picture.
std::string LandscapeDib() {
    BitmapImage picture;
    vellscene::MakeDemoPicture(&picture);
    return PackedDib(picture.width, picture.height, [&](int x, int y) {
        const unsigned char* p = picture.PixelAt(x, picture.height - 1 - y);
        return RGB(p[2], p[1], p[0]);
    });
}

// The remote control's panel inside `frame` that holds control `id`.
HWND PanelHolding(HWND remote, int frame, int id) {
    for (HWND panel = GetWindow(GetDlgItem(remote, frame), GW_CHILD); panel != nullptr;
         panel = GetWindow(panel, GW_HWNDNEXT)) {
        if (GetDlgItem(panel, id) != nullptr) return panel;
    }
    return nullptr;
}

void Click(HWND dialog, int id) {
    SendDlgItemMessageW(dialog, id, BM_CLICK, 0, 0);
}

// Picks the isoline pattern list's item `index`, as a click on it would.
void PickPattern(HWND remote, int index) {
    HWND pattern = PanelHolding(remote, kEffectFrame, kPatternList);
    if (pattern == nullptr) return;
    SendDlgItemMessageW(pattern, kPatternList, LB_SETCURSEL, index, 0);
    SendMessageW(pattern, WM_COMMAND, MAKEWPARAM(kPatternList, LBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(GetDlgItem(pattern, kPatternList)));
}

// The remote control's image taken from the clipboard's picture.
void TakeClipboardPicture(HWND remote, const std::string& dib) {
    CopyToClipboard(remote, dib);
    if (HWND source = PanelHolding(remote, kImageFrame, kImageSourceMarker))
        Click(source, kImageFromClipboard);
}

// Picks the color set list's entry `index`, as a click on it would.
void PickColorSet(HWND remote, int index) {
    HWND panel = PanelHolding(remote, kImageFrame, kColorSetList);
    if (panel == nullptr) return;
    if (SendDlgItemMessageW(panel, kColorSetList, CB_SETCURSEL, index, 0) == CB_ERR) return;
    SendMessageW(panel, WM_COMMAND, MAKEWPARAM(kColorSetList, CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(GetDlgItem(panel, kColorSetList)));
}

std::wstring BesideProgram(const wchar_t* name) {
    wchar_t exe[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, exe, MAX_PATH);
    const std::wstring path(exe);
    return path.substr(0, path.find_last_of(L"\\/") + 1) + name;
}

int PartNamed(HostWindow& host, const char* name) {
    for (int i = 0; i < host.document().PartCount(); ++i) {
        if (host.document().Part(i).name == name) return i;
    }
    return -1;
}

// The script's steps, run one per timer tick.
std::vector<std::function<void()>> g_steps;
std::size_t g_next = 0;

void CALLBACK NextStep(HWND, UINT, UINT_PTR timer, DWORD) {
    if (g_next >= g_steps.size()) {
        KillTimer(nullptr, timer);
        return;
    }
    g_steps[g_next++]();
}

}  // namespace

void MakeStarterSettings() {
    const std::wstring path = BesideProgram(L"PXColor.ini");
    if (GetFileAttributesW(path.c_str()) == INVALID_FILE_ATTRIBUTES) {
        WritePrivateProfileStringW(L"Window", L"Display", L"1", path.c_str());
    }
    wchar_t first[8] = {};
    GetPrivateProfileStringW(L"ColorTable", L"ColorSet000", L"", first, 8, path.c_str());
    if (first[0] != L'\0') return;
    wchar_t key[16];
    for (int i = 0; i < static_cast<int>(sizeof kStarterSets / sizeof kStarterSets[0]); ++i) {
        std::swprintf(key, 16, L"ColorSet%03d", i);
        const std::string set(kStarterSets[i]);
        WritePrivateProfileStringW(L"ColorTable", key, std::wstring(set.begin(), set.end()).c_str(),
                                   path.c_str());
    }
}

void MakeSamplePictures() {
    const std::wstring folder = BesideProgram(L"Image");
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

void ShowEffect(HostWindow& host, const std::wstring& effect) {
    const struct {
        const wchar_t* name;
        int radio;
    } effects[] = {{L"gradation", kGradation},
                   {L"tile", kTile},
                   {L"stripe", kStripe},
                   {L"density_pattern", kPattern},
                   {L"image_mapping", kMapping}};
    HWND remote = host.remote();
    if (remote == nullptr) return;
    if (effect == L"picture_list") {
        // Image mapping, then the picture list's button, once the loop runs.
        Click(remote, kMapping);
        if (HWND source = PanelHolding(remote, kImageFrame, kImageSourceMarker))
            PostMessageW(GetDlgItem(source, kImageFromFile), BM_CLICK, 0, 0);
        return;
    }
    if (effect == L"picture_pattern") {
        Click(remote, kPattern);
        PickPattern(remote, 9);
        TakeClipboardPicture(remote, PackedDib(120, 80, [](int x, int y) {
                                 return RGB(x * 2, y * 3, 255 - x * 2);
                             }));
        Click(remote, kUpdate);
        return;
    }
    for (const auto& e : effects) {
        if (effect != e.name) continue;
        Click(remote, e.radio);
        Click(remote, kUpdate);
    }
}

void StartScript(HostWindow& host, unsigned stepMs) {
    HWND remote = host.remote();
    if (remote == nullptr) return;
    if (!IsWindowVisible(remote)) PXColor_ShowWindow(SW_SHOWNORMAL);
    // Each step picks a part as a click on the canvas would, then presses
    // the remote control's buttons.
    auto paint = [&host, remote](const char* part, int colors, std::function<void()> choose,
                                 int button) {
        return [&host, remote, part, colors, choose, button] {
            host.SelectPart(PartNamed(host, part));
            PickColorSet(remote, colors);
            choose();
            Click(remote, button);
        };
    };
    auto effect = [remote](int radio) { return [remote, radio] { Click(remote, radio); }; };
    g_steps = {
        paint("background", 1, effect(kTile), kUpdate),
        paint("star", 0, effect(kGradation), kUpdate),
        paint("band", 4, effect(kStripe), kUpdate),
        paint(
            "disc 1", 3,
            [remote] {
                Click(remote, kPattern);
                PickPattern(remote, 3);
            },
            kUpdate),
        paint(
            "disc 2", 0,
            [remote] {
                Click(remote, kMapping);
                TakeClipboardPicture(remote, LandscapeDib());
            },
            kUpdate),
        paint(
            "disc 3", 2, [] {}, kUniformColor),
        paint(
            "disc 4", 0, [] {}, kReverseColor),
        [&host] { host.SelectPart(PartNamed(host, "star")); },
    };
    g_next = 0;
    SetTimer(nullptr, 0, stepMs, NextStep);
}

}  // namespace demohost
