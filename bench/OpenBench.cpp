// Open latency under Wine: PXColor_Open, show, and pumping until the queue is
// empty (every paint done), against a floor from the same run: the DLL's own
// templates, the main one and every panel, created as bare dialogs with a
// procedure that does nothing, the same two panels visible, shown and pumped
// the same way. The settings file beside the program holds 64 color sets.
//
//   OpenBench.exe [rounds]     (default 30; the first three are not counted)
#include <windows.h>
#include <commctrl.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "ResourceIds.h"
#include "WinBench.h"
#include "WinTestSupport.h"

namespace {

const int kWarmUp = 3;
const double kTarget = 1.3;

// 64 sets of 2 to 7 colors, all shown by the gradation's count range.
void WriteColorSets() {
    std::string text = "[Window]\r\nTop=40\r\nLeft=40\r\nDisplay=1\r\n[ColorTable]\r\n";
    for (int i = 0; i < 64; ++i) {
        const int count = 2 + i % 6;
        char line[128];
        int n = std::snprintf(line, sizeof line, "ColorSet%03d=%d", i, count);
        for (int c = 0; c < count; ++c) {
            n += std::snprintf(line + n, sizeof line - n, " %d %d %d", (i * 37 + c * 50) % 256,
                               (i * 11 + c * 90) % 256, (i * 5 + c * 20) % 256);
        }
        text += std::string(line) + "\r\n";
    }
    WriteSettings(text);
}

INT_PTR CALLBACK TrivialProc(HWND, UINT msg, WPARAM, LPARAM) {
    return msg == WM_INITDIALOG;
}

bool HasTemplate(HINSTANCE module, int id) {
    return FindResourceW(module, MAKEINTRESOURCEW(id), RT_DIALOG) != nullptr;
}

double OpenRemoteControl(TestHost& host) {
    const double start = Seconds();
    PXColor_Open(host.window(), kNotifyMessage);
    PXColor_ShowWindow(SW_SHOWNORMAL);
    PumpUntilIdle();
    const double elapsed = Seconds() - start;
    PXColor_Close();
    PumpUntilIdle();
    return elapsed;
}

double OpenBareTemplates(HINSTANCE module, const std::vector<int>& panels) {
    const double start = Seconds();
    HWND main =
        CreateDialogParamW(module, MAKEINTRESOURCEW(IDD_REMOTE_CONTROL), nullptr, TrivialProc, 0);
    HWND effects = GetDlgItem(main, IDC_EFFECT_FRAME);
    HWND lower = GetDlgItem(main, IDC_LOWER_FRAME);
    for (int id : panels) {
        const bool below = id == IDD_COLOR_SET || id == IDD_IMAGE_SOURCE;
        HWND panel = CreateDialogParamW(module, MAKEINTRESOURCEW(id), below ? lower : effects,
                                        TrivialProc, 0);
        if (id == IDD_GRADATION || id == IDD_COLOR_SET) ShowWindow(panel, SW_SHOW);
    }
    ShowWindow(main, SW_SHOWNORMAL);
    PumpUntilIdle();
    const double elapsed = Seconds() - start;
    DestroyWindow(main);
    PumpUntilIdle();
    return elapsed;
}

}  // namespace

int main(int argc, char** argv) {
    const int rounds = argc > 1 ? std::max(1, std::atoi(argv[1])) : 30;
    HINSTANCE module = GetModuleHandleW(L"VellColor.dll");
    INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_UPDOWN_CLASS | ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&controls);

    std::vector<int> panels;
    std::string missing;
    for (int id = IDD_GRADATION; id <= IDD_STRIPE; ++id) {
        if (HasTemplate(module, id)) {
            panels.push_back(id);
        } else {
            missing += " " + std::to_string(id);
        }
    }

    TestHost host;
    WriteColorSets();

    // Alternating, so that whatever drifts in the machine meets both alike.
    std::vector<double> open, floor, ratios;
    for (int i = 0; i < kWarmUp + rounds; ++i) {
        const double a = OpenRemoteControl(host);
        const double b = OpenBareTemplates(module, panels);
        if (i < kWarmUp) continue;
        open.push_back(a);
        floor.push_back(b);
        ratios.push_back(a / b);
    }
    RemoveSettings();

    const double openMs = Median(open) * 1000;
    const double floorMs = Median(floor) * 1000;
    const double ratio = openMs / floorMs;
    std::printf(
        "\nOpen latency under Wine, medians of %d rounds (64 color sets; %d panel templates"
        " in the floor%s%s)\n",
        rounds, static_cast<int>(panels.size()),
        missing.empty() ? "" : ", missing:", missing.c_str());
    std::printf("%-40s %8.1f ms\n", "PXColor_Open + show + pump", openMs);
    std::printf("%-40s %8.1f ms\n", "bare templates + show + pump (floor)", floorMs);
    std::printf("%-40s %8.2fx  (median of each round's own ratio %.2fx; target %.1fx)\n",
                "open vs floor", ratio, Median(ratios), kTarget);
    return 0;
}
