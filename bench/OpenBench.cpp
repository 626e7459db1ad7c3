// Open latency under Wine: PXColor_Open, show, and pumping until the queue is
// empty (every paint done), against a floor from the same run: the DLL's own
// templates, the main one and every panel, created as bare dialogs with a
// procedure that does nothing, the same two panels visible, shown and pumped
// the same way. The settings file beside the program holds 64 color sets.
//
//   OpenBench.exe [rounds]                 times, and the open's steps
//   OpenBench.exe --requests LOG [rounds]  window server requests per open and
//                                          per floor, counted in LOG, the
//                                          trace of a wineserver started with
//                                          WINEDEBUG=+server (scripts/bench.sh)
//
// Run it on a quiet machine. Every round starts after a pause: each call into
// the window server is a round trip between two processes, and right after a
// burst of them the kernel spreads the two over both cores, where every round
// trip wakes a sleeping core. Without the pause whichever ran second paid for
// the first (an open right after the floor took 240 ms, alone 80 ms).
#include <windows.h>
#include <commctrl.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <string>
#include <vector>

#include "ResourceIds.h"
#include "WinBench.h"
#include "WinTestSupport.h"

namespace {

const int kWarmUp = 3;
const DWORD kPauseMs = 250;
const double kTarget = 1.3;

// Each template with a control that only it has, to tell its window.
struct Template {
    int id;
    int control;
    const char* name;
};
const Template kTemplates[] = {
    {IDD_GRADATION, IDC_GRAD_MIX, "gradation"},
    {IDD_TILE, IDC_TILE_BRICK, "tile"},
    {IDD_COLOR_SET, IDC_SET_LIST, "color set"},
    {IDD_MAPPING, IDC_MAP_FIT_WHOLE, "image mapping"},
    {IDD_IMAGE_SOURCE, IDC_SOURCE_PREVIEW, "image source"},
    {IDD_ISOLINE_PATTERN, IDC_PATTERN_TYPE, "isoline pattern"},
    {IDD_STRIPE, IDC_STRIPE_INTERVAL, "stripe"},
};

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

// What a round or a step costs: the clock, or the requests counted so far.
using Probe = double (*)();

INT_PTR CALLBACK TrivialProc(HWND, UINT msg, WPARAM, LPARAM) {
    return msg == WM_INITDIALOG;
}

// One open: PXColor_Open, show, pump; what `probe` counted meanwhile.
double OpenRemoteControl(TestHost& host, Probe probe) {
    const double start = probe();
    PXColor_Open(host.window(), kNotifyMessage);
    PXColor_ShowWindow(SW_SHOWNORMAL);
    PumpUntilIdle();
    const double cost = probe() - start;
    PXColor_Close();
    PumpUntilIdle();
    return cost;
}

// The floor, and in `bare` what each panel template's creation counted.
double OpenBareTemplates(HINSTANCE module, Probe probe, std::map<int, double>* bare) {
    const double start = probe();
    HWND main =
        CreateDialogParamW(module, MAKEINTRESOURCEW(IDD_REMOTE_CONTROL), nullptr, TrivialProc, 0);
    HWND effects = GetDlgItem(main, IDC_EFFECT_FRAME);
    HWND lower = GetDlgItem(main, IDC_LOWER_FRAME);
    for (const Template& panel : kTemplates) {
        const bool below = panel.id == IDD_COLOR_SET || panel.id == IDD_IMAGE_SOURCE;
        const double before = probe();
        HWND window = CreateDialogParamW(module, MAKEINTRESOURCEW(panel.id),
                                         below ? lower : effects, TrivialProc, 0);
        (*bare)[panel.id] = probe() - before;
        if (panel.id == IDD_GRADATION || panel.id == IDD_COLOR_SET) ShowWindow(window, SW_SHOW);
    }
    ShowWindow(main, SW_SHOWNORMAL);
    PumpUntilIdle();
    const double cost = probe() - start;
    DestroyWindow(main);
    PumpUntilIdle();
    return cost;
}

// --- The open's steps, seen from window creations and the activation ---

struct Event {
    double value;
    HWND window;
    HWND parent;
    bool activation;
};
std::vector<Event> g_events;
Probe g_probe = nullptr;
// Set while the creation hook is in: its own requests are not counted.
bool g_hooked = false;
HHOOK g_hook = nullptr;

LRESULT CALLBACK CreationHook(int code, WPARAM wParam, LPARAM lParam) {
    if (code == HCBT_CREATEWND) {
        const auto* create = reinterpret_cast<const CBT_CREATEWNDW*>(lParam);
        g_events.push_back(
            {g_probe(), reinterpret_cast<HWND>(wParam), create->lpcs->hwndParent, false});
    } else if (code == HCBT_ACTIVATE) {
        g_events.push_back({g_probe(), reinterpret_cast<HWND>(wParam), nullptr, true});
    }
    return CallNextHookEx(g_hook, code, wParam, lParam);
}

bool IsDialog(HWND window) {
    wchar_t name[16] = {};
    GetClassNameW(window, name, 16);
    return std::wcscmp(name, L"#32770") == 0;
}

const char* PanelName(HWND panel) {
    for (const Template& t : kTemplates) {
        if (GetDlgItem(panel, t.control) != nullptr) return t.name;
    }
    return "?";
}

using Steps = std::vector<std::pair<std::string, double>>;

// One hooked open, as named steps in order. A panel's controls run from its
// creation to the last window made inside it; what follows, up to the next
// panel, is its OnInitDialog and its placing.
Steps OpenSteps(TestHost& host, Probe probe) {
    g_events.clear();
    g_probe = probe;
    g_hook = SetWindowsHookExW(WH_CBT, CreationHook, nullptr, GetCurrentThreadId());
    g_hooked = true;
    const double start = probe();
    PXColor_Open(host.window(), kNotifyMessage);
    const double end = probe();
    g_hooked = false;
    UnhookWindowsHookEx(g_hook);
    PXColor_ShowWindow(SW_SHOWNORMAL);
    PumpUntilIdle();
    const double shown = probe();

    std::vector<std::size_t> panels;  // the panels' creations, in order
    std::size_t activation = g_events.size();
    for (std::size_t i = 0; i < g_events.size(); ++i) {
        if (g_events[i].parent != nullptr && IsDialog(g_events[i].window)) panels.push_back(i);
        if (g_events[i].activation) activation = i;
    }
    Steps steps;
    if (panels.empty() || activation < panels.back()) return steps;
    double last = start;
    auto step = [&](const std::string& name, double until) {
        steps.emplace_back(name, until - last);
        last = until;
    };
    step("main dialog: common controls, controls", g_events[panels[0]].value);
    for (std::size_t k = 0; k < panels.size(); ++k) {
        const std::size_t next = k + 1 < panels.size() ? panels[k + 1] : activation;
        HWND panel = g_events[panels[k]].window;
        std::size_t lastChild = panels[k];
        for (std::size_t i = panels[k]; i < next; ++i) {
            if (IsChild(panel, g_events[i].window)) lastChild = i;
        }
        const std::string name = PanelName(panel);
        step(name + ": controls", g_events[lastChild].value);
        step(name + (k + 1 < panels.size() ? ": OnInitDialog, placing"
                                           : ": OnInitDialog, placing; settings read"),
             g_events[next].value);
    }
    step("activated; color sets listed", end);
    step("show, pump (paint)", shown);
    return steps;
}

// Medians of each step over `rounds` hooked opens, in the order they came.
Steps MedianSteps(TestHost& host, Probe probe, int rounds) {
    std::map<std::string, std::vector<double>> values;
    std::vector<std::string> order;
    for (int i = 0; i < rounds; ++i) {
        Sleep(kPauseMs);
        for (const auto& step : OpenSteps(host, probe)) {
            if (values.count(step.first) == 0) order.push_back(step.first);
            values[step.first].push_back(step.second);
        }
        PXColor_Close();
        PumpUntilIdle();
    }
    Steps medians;
    for (const std::string& name : order) medians.emplace_back(name, Median(values[name]));
    return medians;
}

// --- Requests, counted in the wineserver's trace ---

// Reads the trace from where the last call stopped and counts the requests
// made by this thread: lines "%04x: name( ...", replies being "name() = ...".
class RequestCounter {
  public:
    explicit RequestCounter(const char* path) {
        file_ = CreateFileA(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                            OPEN_EXISTING, 0, nullptr);
        std::snprintf(prefix_, sizeof prefix_, "%04lx: ", GetCurrentThreadId());
    }
    ~RequestCounter() {
        if (ok()) CloseHandle(file_);
    }
    bool ok() const { return file_ != INVALID_HANDLE_VALUE; }
    // Requests since the counter was made.
    double Total() {
        char buffer[1 << 16];
        DWORD got = 0;
        while (ReadFile(file_, buffer, sizeof buffer, &got, nullptr) && got > 0) {
            for (DWORD i = 0; i < got; ++i) {
                if (buffer[i] != '\n') {
                    if (line_.size() < 200) line_ += buffer[i];
                    continue;
                }
                if (IsRequest(line_)) ++total_;
                line_.clear();
            }
        }
        return total_;
    }

  private:
    bool IsRequest(const std::string& line) const {
        if (line.compare(0, std::strlen(prefix_), prefix_) != 0) return false;
        const std::size_t open = line.find('(');
        if (open == std::string::npos || line.compare(open, 3, "() ") == 0) return false;
        return !g_hooked || line.find("hook_", std::strlen(prefix_)) >= open;
    }

    HANDLE file_ = INVALID_HANDLE_VALUE;
    char prefix_[16] = {};
    std::string line_;
    double total_ = 0;
};

RequestCounter* g_counter = nullptr;
double CountedRequests() {
    return g_counter->Total();
}

// --- Rounds and reports ---

struct Measures {
    std::vector<double> open, floor;
    std::map<int, std::vector<double>> bare;  // each template's creation
};

// Alternating, so that whatever drifts in the machine meets both alike.
Measures MeasureRounds(TestHost& host, HINSTANCE module, Probe probe, int rounds) {
    Measures m;
    std::map<int, double> bare;
    for (int i = 0; i < kWarmUp + rounds; ++i) {
        Sleep(kPauseMs);
        const double a = OpenRemoteControl(host, probe);
        Sleep(kPauseMs);
        const double b = OpenBareTemplates(module, probe, &bare);
        if (i < kWarmUp) continue;
        m.open.push_back(a);
        m.floor.push_back(b);
        for (const auto& entry : bare) m.bare[entry.first].push_back(entry.second);
    }
    return m;
}

void Report(const char* what, const char* unit, double scale, Measures& m, const Steps& steps,
            int rounds, int hooked) {
    std::printf("\n%s, medians of %d rounds, each after a %lu ms pause (64 color sets)\n", what,
                rounds, kPauseMs);
    const double open = Median(m.open) * scale, floor = Median(m.floor) * scale;
    std::printf("%-60s %8.1f %s\n", "PXColor_Open + show + pump", open, unit);
    std::printf("%-60s %8.1f %s\n", "bare templates + show + pump (floor)", floor, unit);
    std::printf("%-60s %8.2fx  (target %.1fx)\n", "open vs floor", open / floor, kTarget);

    std::printf("\nSteps of PXColor_Open (medians of %d opens with a creation hook), %s\n", hooked,
                unit);
    std::printf("%-60s %8s %8s\n", "", "open", "bare");
    double sum = 0;
    for (const auto& step : steps) {
        sum += step.second * scale;
        std::printf("%-60s %8.1f", step.first.c_str(), step.second * scale);
        for (const Template& t : kTemplates) {
            if (step.first == std::string(t.name) + ": controls")
                std::printf(" %8.1f", Median(m.bare[t.id]) * scale);
        }
        std::printf("\n");
    }
    std::printf("%-60s %8.1f\n", "sum", sum);
}

}  // namespace

int main(int argc, char** argv) {
    const bool requests = argc > 2 && std::strcmp(argv[1], "--requests") == 0;
    const char* roundsText =
        requests ? (argc > 3 ? argv[3] : nullptr) : (argc > 1 ? argv[1] : nullptr);
    const int rounds = roundsText != nullptr ? std::max(1, std::atoi(roundsText)) : 30;
    HINSTANCE module = GetModuleHandleW(L"VellColor.dll");
    INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_UPDOWN_CLASS | ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&controls);
    for (const Template& t : kTemplates) {
        if (FindResourceW(module, MAKEINTRESOURCEW(t.id), RT_DIALOG) == nullptr) {
            std::printf("template %d is missing\n", t.id);
            return 1;
        }
    }
    std::printf("Run this on a quiet machine: load inflates Wine's floor and hides real costs.\n");

    TestHost host;
    WriteColorSets();
    const int hooked = std::max(5, rounds / 3);
    if (requests) {
        RequestCounter counter(argv[2]);
        if (!counter.ok()) {
            std::printf("cannot read the server trace %s\n", argv[2]);
            RemoveSettings();
            return 1;
        }
        g_counter = &counter;
        Measures m = MeasureRounds(host, module, CountedRequests, rounds);
        const Steps steps = MedianSteps(host, CountedRequests, hooked);
        Report("Window server requests", "requests", 1, m, steps, rounds, hooked);
    } else {
        Measures m = MeasureRounds(host, module, Seconds, rounds);
        const Steps steps = MedianSteps(host, Seconds, hooked);
        Report("Open latency under Wine", "ms", 1000, m, steps, rounds, hooked);
        std::printf(
            "(the hook's own calls add to the steps; the bare column is each template\n"
            "created alone with a procedure that does nothing)\n");
    }
    RemoveSettings();
    return 0;
}
