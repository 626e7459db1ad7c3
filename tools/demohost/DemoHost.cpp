// The demo host: a small drawing program that loads VellColor.dll as any
// drawing program would. Click a part of the picture (or press Tab), choose
// an effect in the remote control beside it and press 更新: the part is
// painted with the reference renderer.
//
//   --script        paints a few effects by itself, through the remote control
//   --show EFFECT   picks one effect and presses update once
//   --quit-after MS closes by itself (unsaved changes are then dropped)
#include <windows.h>

#include <cwchar>
#include <string>

#include "DemoScript.h"
#include "HostWindow.h"

namespace {

const UINT_PTR kQuitTimer = 1;
const int kSceneWidth = 640, kSceneHeight = 480;

// The value after `option` on the command line, "" when it has none, or
// `absent` when the option is missing.
std::wstring OptionValue(const wchar_t* option, const wchar_t* absent = L"") {
    int argc = 0;
    LPWSTR* argv = CommandLineToArgvW(GetCommandLineW(), &argc);
    std::wstring value = absent;
    for (int i = 1; argv != nullptr && i < argc; ++i) {
        if (std::wcscmp(argv[i], option) == 0) value = i + 1 < argc ? argv[i + 1] : L"";
    }
    LocalFree(argv);
    return value;
}

void CALLBACK Quit(HWND hwnd, UINT, UINT_PTR, DWORD) {
    DestroyWindow(hwnd);  // no question: the run was asked to end
}

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, LPWSTR, int show) {
    demohost::MakeSamplePictures();
    demohost::MakeStarterSettings();
    demohost::HostWindow host;
    if (!host.Create(kSceneWidth, kSceneHeight, show, true)) {
        MessageBoxW(nullptr, L"The remote control could not be opened.", L"VellColor demo host",
                    MB_OK | MB_ICONERROR);
        return 1;
    }
    demohost::ShowEffect(host, OptionValue(L"--show"));
    if (OptionValue(L"--script", L"-") != L"-") demohost::StartScript(host, 400);
    if (const int ms = _wtoi(OptionValue(L"--quit-after").c_str()))
        SetTimer(host.hwnd(), kQuitTimer, ms, Quit);

    MSG msg;
    while (GetMessageW(&msg, nullptr, 0, 0) > 0) {
        TranslateMessage(&msg);
        DispatchMessageW(&msg);
    }
    return 0;
}
