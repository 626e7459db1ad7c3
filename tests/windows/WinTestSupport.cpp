#include "WinTestSupport.h"

#include <cstdio>

namespace {

const wchar_t kHostClass[] = L"VellTestHost";
const UINT kPumpDone = WM_APP + 0x3FF;

SystemDialogWatcher* g_watcher = nullptr;

bool IsRemoteControl(HWND hwnd) {
    wchar_t cls[32] = {};
    GetClassNameW(hwnd, cls, 32);
    return std::wstring(cls) == L"#32770" && GetDlgItem(hwnd, 1027) != nullptr &&
           GetDlgItem(hwnd, 1003) != nullptr;
}

BOOL CALLBACK CollectRemoteControls(HWND hwnd, LPARAM param) {
    if (IsRemoteControl(hwnd)) reinterpret_cast<std::vector<HWND>*>(param)->push_back(hwnd);
    return TRUE;
}

BOOL CALLBACK CollectSystemDialogs(HWND hwnd, LPARAM param) {
    wchar_t cls[32] = {};
    GetClassNameW(hwnd, cls, 32);
    if (std::wstring(cls) == L"#32770" && IsWindowVisible(hwnd) && !IsRemoteControl(hwnd)) {
        reinterpret_cast<std::vector<HWND>*>(param)->push_back(hwnd);
    }
    return TRUE;
}

}  // namespace

TestHost::TestHost(UINT message) : message_(message) {
    static bool registered = false;
    if (!registered) {
        WNDCLASSW wc = {};
        wc.lpfnWndProc = Proc;
        wc.hInstance = GetModuleHandleW(nullptr);
        wc.lpszClassName = kHostClass;
        RegisterClassW(&wc);
        registered = true;
    }
    layout_.m_hWnd = CreateWindowW(kHostClass, L"test host", WS_OVERLAPPEDWINDOW, 600, 100, 200,
                                   100, nullptr, nullptr, GetModuleHandleW(nullptr), this);
}

TestHost::~TestHost() { DestroyWindow(layout_.m_hWnd); }

LRESULT CALLBACK TestHost::Proc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) {
    if (msg == WM_NCCREATE) {
        auto* create = reinterpret_cast<CREATESTRUCTW*>(lParam);
        SetWindowLongPtrW(hwnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(create->lpCreateParams));
    }
    auto* self = reinterpret_cast<TestHost*>(GetWindowLongPtrW(hwnd, GWLP_USERDATA));
    if (self != nullptr && msg == self->message_) {
        self->received_.push_back({reinterpret_cast<const char*>(lParam), wParam});
        return 0;
    }
    return DefWindowProcW(hwnd, msg, wParam, lParam);
}

void PumpMessages() {
    // Posted last, so everything queued before it has been dispatched when
    // it arrives.
    PostThreadMessageW(GetCurrentThreadId(), kPumpDone, 0, 0);
    MSG msg;
    while (GetMessageW(&msg, nullptr, 0, 0) > 0) {
        if (msg.hwnd == nullptr && msg.message == kPumpDone) break;
        TranslateMessage(&msg);
        DispatchMessageW(&msg);
    }
}

std::vector<HWND> RemoteControls() {
    std::vector<HWND> found;
    EnumThreadWindows(GetCurrentThreadId(), CollectRemoteControls, reinterpret_cast<LPARAM>(&found));
    return found;
}

HWND RemoteControl() {
    const std::vector<HWND> found = RemoteControls();
    return found.empty() ? nullptr : found.front();
}

void Click(HWND dialog, int id) { SendMessageW(GetDlgItem(dialog, id), BM_CLICK, 0, 0); }

std::wstring WindowText(HWND hwnd) {
    wchar_t text[512] = {};
    GetWindowTextW(hwnd, text, 512);
    return text;
}

SystemDialogWatcher::SystemDialogWatcher(int buttonId) : buttonId_(buttonId) {
    g_watcher = this;
    timer_ = SetTimer(nullptr, 0, 30, OnTimer);
}

SystemDialogWatcher::~SystemDialogWatcher() {
    KillTimer(nullptr, timer_);
    g_watcher = nullptr;
}

void CALLBACK SystemDialogWatcher::OnTimer(HWND, UINT, UINT_PTR, DWORD) {
    if (g_watcher == nullptr) return;
    std::vector<HWND> dialogs;
    EnumThreadWindows(GetCurrentThreadId(), CollectSystemDialogs,
                      reinterpret_cast<LPARAM>(&dialogs));
    for (HWND box : dialogs) {
        bool known = false;
        for (HWND answered : g_watcher->answered_) known = known || answered == box;
        if (known) continue;
        g_watcher->answered_.push_back(box);
        wchar_t text[512] = {};
        GetDlgItemTextW(box, 0xFFFF, text, 512);  // a message box's text
        g_watcher->seen_.push_back({WindowText(box), text, GetWindow(box, GW_OWNER)});
        PostMessageW(box, WM_COMMAND, MAKEWPARAM(g_watcher->buttonId_, BN_CLICKED),
                     reinterpret_cast<LPARAM>(GetDlgItem(box, g_watcher->buttonId_)));
    }
}

std::wstring SettingsPath() {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    std::wstring p(path);
    return p.substr(0, p.find_last_of(L"\\/")) + L"\\PXColor.ini";
}

void RemoveSettings() { DeleteFileW(SettingsPath().c_str()); }

void WriteSettings(const std::string& content) {
    FILE* f = _wfopen(SettingsPath().c_str(), L"wb");
    if (f == nullptr) return;
    std::fwrite(content.data(), 1, content.size(), f);
    std::fclose(f);
}

std::string ReadSettings() {
    FILE* f = _wfopen(SettingsPath().c_str(), L"rb");
    if (f == nullptr) return std::string();
    std::string content;
    char buffer[4096];
    size_t n;
    while ((n = std::fread(buffer, 1, sizeof buffer, f)) > 0) content.append(buffer, n);
    std::fclose(f);
    return content;
}
