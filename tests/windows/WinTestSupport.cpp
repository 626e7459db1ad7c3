#include "WinTestSupport.h"

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cstring>
#include <thread>

#include "BmpWriter.h"

namespace {

const wchar_t kHostClass[] = L"VellTestHost";
const UINT kPumpDone = WM_APP + 0x3FF;

SystemDialogWatcher* g_watcher = nullptr;
PopupMenuPicker* g_picker = nullptr;

std::wstring ClassOf(HWND hwnd) {
    wchar_t cls[32] = {};
    GetClassNameW(hwnd, cls, 32);
    return cls;
}

bool IsRemoteControl(HWND hwnd) {
    return ClassOf(hwnd) == L"#32770" && GetDlgItem(hwnd, 1027) != nullptr &&
           GetDlgItem(hwnd, 1003) != nullptr;
}

struct Search {
    bool (*wanted)(HWND);
    std::vector<HWND> found;
};

BOOL CALLBACK Collect(HWND hwnd, LPARAM param) {
    auto* search = reinterpret_cast<Search*>(param);
    if (search->wanted(hwnd)) search->found.push_back(hwnd);
    return TRUE;
}

// The top-level windows of this thread that `wanted` accepts.
std::vector<HWND> ThreadWindows(bool (*wanted)(HWND)) {
    Search search = {wanted, {}};
    EnumThreadWindows(GetCurrentThreadId(), Collect, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

bool IsSystemDialog(HWND hwnd) {
    return ClassOf(hwnd) == L"#32770" && IsWindowVisible(hwnd) && !IsRemoteControl(hwnd);
}

}  // namespace

TestHost::TestHost(UINT message) : message_(message) {
    static const ATOM registered = [] {
        WNDCLASSW wc = {};
        wc.lpfnWndProc = Proc;
        wc.hInstance = GetModuleHandleW(nullptr);
        wc.lpszClassName = kHostClass;
        return RegisterClassW(&wc);
    }();
    (void)registered;
    layout_.m_hWnd = CreateWindowW(kHostClass, L"test host", WS_OVERLAPPEDWINDOW, 600, 100, 200,
                                   100, nullptr, nullptr, GetModuleHandleW(nullptr), this);
}

TestHost::~TestHost() {
    DestroyWindow(layout_.m_hWnd);
}

std::vector<std::string> TestHost::names() const {
    std::vector<std::string> names;
    for (const Notification& n : received_) names.push_back(n.name);
    return names;
}

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
    // Posted last, so everything queued before it has been dispatched when it arrives.
    PostThreadMessageW(GetCurrentThreadId(), kPumpDone, 0, 0);
    MSG msg;
    while (GetMessageW(&msg, nullptr, 0, 0) > 0) {
        if (msg.hwnd == nullptr && msg.message == kPumpDone) break;
        TranslateMessage(&msg);
        DispatchMessageW(&msg);
    }
}

bool PumpUntil(const std::function<bool()>& done, DWORD milliseconds) {
    const DWORD start = GetTickCount();
    while (!done()) {
        if (GetTickCount() - start > milliseconds) return false;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
        MSG msg;
        while (PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&msg);
            DispatchMessageW(&msg);
        }
    }
    return true;
}

std::vector<HWND> ThreadDialogs() {
    return ThreadWindows([](HWND hwnd) { return ClassOf(hwnd) == L"#32770"; });
}

std::vector<HWND> RemoteControls() {
    return ThreadWindows(IsRemoteControl);
}

HWND RemoteControl() {
    const std::vector<HWND> found = RemoteControls();
    return found.empty() ? nullptr : found.front();
}

HWND PanelOf(HWND remote, int frame, int id) {
    for (HWND panel = GetWindow(GetDlgItem(remote, frame), GW_CHILD); panel != nullptr;
         panel = GetWindow(panel, GW_HWNDNEXT)) {
        if (GetDlgItem(panel, id) != nullptr) return panel;
    }
    return nullptr;
}

HWND ColorSetPanelOf(HWND remote) {
    return PanelOf(remote, 1027, 1011);
}

HWND EffectPanelOf(HWND remote, int id) {
    return PanelOf(remote, 1002, id);
}

void Click(HWND dialog, int id) {
    SendMessageW(GetDlgItem(dialog, id), BM_CLICK, 0, 0);
}

void PressDialogButton(HWND dialog, int id) {
    PostMessageW(dialog, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED),
                 reinterpret_cast<LPARAM>(GetDlgItem(dialog, id)));
}

void Scroll(HWND dialog, int bar, int code, int thumb) {
    SendMessageW(dialog, WM_HSCROLL, MAKEWPARAM(code, thumb),
                 reinterpret_cast<LPARAM>(GetDlgItem(dialog, bar)));
}

void PressSpace(HWND control) {
    SetFocus(control);
    PostMessageW(control, WM_KEYDOWN, VK_SPACE, 0x00390001);
    PostMessageW(control, WM_KEYUP, VK_SPACE, 0xC0390001);
    PumpMessages();
}

bool Enabled(HWND dialog, int id) {
    return IsWindowEnabled(GetDlgItem(dialog, id)) != FALSE;
}

std::wstring WindowText(HWND hwnd) {
    wchar_t text[512] = {};
    GetWindowTextW(hwnd, text, 512);
    return text;
}

COLORREF ScreenPixel(HWND window, int x, int y) {
    UpdateWindow(GetParent(window));
    UpdateWindow(window);
    HDC dc = GetDC(window);
    const COLORREF c = GetPixel(dc, x, y);
    ReleaseDC(window, dc);
    return c;
}

SystemDialogWatcher::SystemDialogWatcher(int buttonId)
    : SystemDialogWatcher([buttonId](HWND box) { PressDialogButton(box, buttonId); }) {}

SystemDialogWatcher::SystemDialogWatcher(std::function<void(HWND)> action)
    : action_(std::move(action)) {
    g_watcher = this;
    timer_ = SetTimer(nullptr, 0, 30, OnTimer);
}

SystemDialogWatcher::~SystemDialogWatcher() {
    KillTimer(nullptr, timer_);
    g_watcher = nullptr;
}

void CALLBACK SystemDialogWatcher::OnTimer(HWND, UINT, UINT_PTR, DWORD) {
    if (g_watcher == nullptr) return;
    for (HWND box : ThreadWindows(IsSystemDialog)) {
        std::vector<HWND>& answered = g_watcher->answered_;
        if (std::find(answered.begin(), answered.end(), box) != answered.end()) continue;
        answered.push_back(box);
        wchar_t text[512] = {};
        GetDlgItemTextW(box, 0xFFFF, text, 512);  // a message box's text
        g_watcher->seen_.push_back({WindowText(box), text, GetWindow(box, GW_OWNER)});
        g_watcher->action_(box);
    }
}

std::function<void(HWND)> TypeColorIntoChooser(int red, int green, int blue) {
    return [=](HWND chooser) {
        SetDlgItemInt(chooser, 706, red, FALSE);
        SetDlgItemInt(chooser, 707, green, FALSE);
        SetDlgItemInt(chooser, 708, blue, FALSE);
        PressDialogButton(chooser, IDOK);
    };
}

PopupMenuPicker::PopupMenuPicker(int position) : position_(position) {
    g_picker = this;
    timer_ = SetTimer(nullptr, 0, 30, OnTimer);
}

PopupMenuPicker::~PopupMenuPicker() {
    KillTimer(nullptr, timer_);
    g_picker = nullptr;
}

void CALLBACK PopupMenuPicker::OnTimer(HWND, UINT, UINT_PTR, DWORD) {
    if (g_picker == nullptr || g_picker->seen_) return;
    HWND menuWindow = FindWindowW(L"#32768", nullptr);
    if (menuWindow == nullptr || !IsWindowVisible(menuWindow)) return;
    HMENU menu = reinterpret_cast<HMENU>(SendMessageW(menuWindow, MN_GETHMENU, 0, 0));
    if (menu == nullptr) return;
    g_picker->seen_ = true;
    // Arrow keys skip separators: count only the items that can be chosen.
    int steps = 0;
    for (int i = 0; i < GetMenuItemCount(menu); ++i) {
        const UINT state = GetMenuState(menu, i, MF_BYPOSITION);
        if (state & MF_CHECKED) g_picker->checked_ = i;
        if (i <= g_picker->position_ && !(state & MF_SEPARATOR)) ++steps;
    }
    for (int i = 0; i < steps; ++i) PostMessageW(menuWindow, WM_KEYDOWN, VK_DOWN, 0);
    PostMessageW(menuWindow, WM_KEYDOWN, g_picker->position_ < 0 ? VK_ESCAPE : VK_RETURN, 0);
}

void FromSecondThread(const std::function<void()>& send) {
    std::atomic<bool> done{false};
    std::thread sender([&] {
        send();
        Sleep(100);
        done = true;
    });
    PumpUntil([&] { return done.load(); }, 10000);
    sender.join();
    PumpMessages();
}

namespace {

// Sends each group of key events, a pause after each; the keys go to `focus`.
void SendKeyGroups(HWND focus, const std::vector<std::vector<INPUT>>& groups) {
    SetForegroundWindow(GetAncestor(focus, GA_ROOT));
    PumpMessages();
    SetFocus(focus);
    FromSecondThread([&] {
        for (std::vector<INPUT> group : groups) {
            SendInput(static_cast<UINT>(group.size()), group.data(), sizeof(INPUT));
            Sleep(60);
        }
    });
}

INPUT Key(WORD key, DWORD flags) {
    INPUT input = {};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.dwFlags = flags;
    return input;
}

}  // namespace

void TypeKeys(HWND focus, const std::vector<WORD>& keys) {
    std::vector<std::vector<INPUT>> groups;
    for (WORD key : keys) groups.push_back({Key(key, 0), Key(key, KEYEVENTF_KEYUP)});
    SendKeyGroups(focus, groups);
}

void TypeChord(HWND focus, const std::vector<WORD>& keys) {
    std::vector<INPUT> chord;
    for (WORD key : keys) chord.push_back(Key(key, 0));
    for (auto key = keys.rbegin(); key != keys.rend(); ++key)
        chord.push_back(Key(*key, KEYEVENTF_KEYUP));
    SendKeyGroups(focus, {chord});
}

std::vector<std::uint8_t> PictureFile(int w, int h, COLORREF color) {
    BmpLayout layout(w, h);
    layout.pixel = [color](int, int, int byte) {
        return static_cast<std::uint8_t>(color >> (16 - 8 * byte));  // blue first
    };
    return MakeBmp(layout);
}

void WriteBytes(const std::wstring& path, const std::vector<std::uint8_t>& bytes) {
    if (FILE* f = _wfopen(path.c_str(), L"wb")) {
        std::fwrite(bytes.data(), 1, bytes.size(), f);
        std::fclose(f);
    }
}

bool PutPictureOnClipboard(int w, int h, const std::function<COLORREF(int x, int y)>& color) {
    BmpLayout layout(w, h);
    layout.pixel = [&](int x, int row, int byte) {  // rows bottom-up, blue first
        return static_cast<std::uint8_t>(color(x, h - 1 - row) >> (16 - 8 * byte));
    };
    const std::vector<std::uint8_t> dib = DibBlockOf(MakeBmp(layout));
    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, dib.size());
    std::memcpy(GlobalLock(block), dib.data(), dib.size());
    GlobalUnlock(block);
    if (!OpenClipboard(nullptr)) return false;
    EmptyClipboard();
    const bool put = SetClipboardData(CF_DIB, block) != nullptr;
    CloseClipboard();
    return put;
}

std::wstring TempFolder() {
    wchar_t folder[MAX_PATH] = {};
    GetTempPathW(MAX_PATH, folder);
    return folder;
}

std::wstring SettingsPath() {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    std::wstring p(path);
    return p.substr(0, p.find_last_of(L"\\/")) + L"\\PXColor.ini";
}

void RemoveSettings() {
    DeleteFileW(SettingsPath().c_str());
}

void WriteSettings(const std::string& content) {
    WriteBytes(SettingsPath(), {content.begin(), content.end()});
}

std::string ReadSettings() {
    std::string content;
    if (FILE* f = _wfopen(SettingsPath().c_str(), L"rb")) {
        char buffer[4096];
        for (size_t n; (n = std::fread(buffer, 1, sizeof buffer, f)) > 0;)
            content.append(buffer, n);
        std::fclose(f);
    }
    return content;
}
