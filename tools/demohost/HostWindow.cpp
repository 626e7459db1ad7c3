#include "HostWindow.h"

#include <commctrl.h>
#include <commdlg.h>

#include <algorithm>
#include <cstdio>
#include <cwctype>

#include "HostRequest.h"
#include "vellcolor/ErrorCode.h"

namespace demohost {

namespace {

const wchar_t kClassName[] = L"VellDemoHost";
const wchar_t kCaption[] = L"VellColor demo host";
const int kCanvasId = 100, kListId = 101, kStatusId = 102;
const int kListHeight = 150;
const int kMaxListLines = 2000;
// Posted to the host itself: the list lines and the outcome of a
// notification are shown once the canvas is repainted.
const UINT kFlushMessage = kNotifyMessage + 1;

enum Command {
    kOpen = 40001,
    kSave,
    kSaveAs,
    kExit,
    kUndo,
    kRedo,
    kNextPart,
    kPreviousPart,
    kNotifications,
    kRemote,
};

HMENU BuildMenu() {
    HMENU file = CreatePopupMenu();
    AppendMenuW(file, MF_STRING, kOpen, L"&Open picture...\tCtrl+O");
    AppendMenuW(file, MF_STRING, kSave, L"&Save\tCtrl+S");
    AppendMenuW(file, MF_STRING, kSaveAs, L"Save &as (.bmp or .png)...\tCtrl+Shift+S");
    AppendMenuW(file, MF_SEPARATOR, 0, nullptr);
    AppendMenuW(file, MF_STRING, kExit, L"E&xit");
    HMENU edit = CreatePopupMenu();
    AppendMenuW(edit, MF_STRING, kUndo, L"&Undo\tCtrl+Z");
    AppendMenuW(edit, MF_STRING, kRedo, L"&Redo\tCtrl+Y");
    AppendMenuW(edit, MF_SEPARATOR, 0, nullptr);
    AppendMenuW(edit, MF_STRING, kNextPart, L"&Next part\tTab");
    AppendMenuW(edit, MF_STRING, kPreviousPart, L"&Previous part\tShift+Tab");
    HMENU view = CreatePopupMenu();
    AppendMenuW(view, MF_STRING, kNotifications, L"&Notifications\tF2");
    AppendMenuW(view, MF_STRING, kRemote, L"&Remote control\tF3");
    HMENU bar = CreateMenu();
    AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(file), L"&File");
    AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(edit), L"&Edit");
    AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(view), L"&View");
    return bar;
}

HACCEL BuildAccelerators() {
    ACCEL keys[] = {{FCONTROL | FVIRTKEY, 'O', kOpen},
                    {FCONTROL | FVIRTKEY, 'S', kSave},
                    {FCONTROL | FSHIFT | FVIRTKEY, 'S', kSaveAs},
                    {FCONTROL | FVIRTKEY, 'Z', kUndo},
                    {FCONTROL | FVIRTKEY, 'Y', kRedo},
                    {FVIRTKEY, VK_TAB, kNextPart},
                    {FSHIFT | FVIRTKEY, VK_TAB, kPreviousPart},
                    {FVIRTKEY, VK_F2, kNotifications},
                    {FVIRTKEY, VK_F3, kRemote}};
    return CreateAcceleratorTableW(keys, sizeof keys / sizeof keys[0]);
}

std::wstring Widen(const std::string& text, UINT codePage) {
    const int length = MultiByteToWideChar(codePage, 0, text.c_str(), -1, nullptr, 0);
    std::wstring wide(length > 0 ? length : 1, L'\0');
    MultiByteToWideChar(codePage, 0, text.c_str(), -1, &wide[0], length);
    wide.resize(wide.size() - 1);
    return wide;
}

std::string ToUtf8(const std::wstring& text) {
    const int length =
        WideCharToMultiByte(CP_UTF8, 0, text.c_str(), -1, nullptr, 0, nullptr, nullptr);
    std::string utf8(length > 0 ? length : 1, '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.c_str(), -1, &utf8[0], length, nullptr, nullptr);
    utf8.resize(utf8.size() - 1);
    return utf8;
}

std::wstring FileName(const std::wstring& path) {
    const std::size_t slash = path.find_last_of(L"\\/");
    return slash == std::wstring::npos ? path : path.substr(slash + 1);
}

bool EndsWith(const std::wstring& path, const wchar_t* ending) {
    const std::wstring tail(ending);
    if (path.size() < tail.size()) return false;
    for (std::size_t i = 0; i < tail.size(); ++i) {
        if (std::towlower(path[path.size() - tail.size() + i]) != tail[i]) return false;
    }
    return true;
}

// The system file dialog's settings; `name` holds MAX_PATH characters.
OPENFILENAMEW FileDialog(HWND owner, const wchar_t* filter, wchar_t* name, DWORD flags) {
    OPENFILENAMEW dialog = {};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = owner;
    dialog.lpstrFilter = filter;
    dialog.lpstrFile = name;
    dialog.nMaxFile = MAX_PATH;
    dialog.Flags = flags | OFN_PATHMUSTEXIST;
    return dialog;
}

BOOL CALLBACK FindDialog(HWND hwnd, LPARAM found) {
    wchar_t name[16] = {};
    GetClassNameW(hwnd, name, 16);
    if (std::wstring(name) != L"#32770") return TRUE;
    *reinterpret_cast<HWND*>(found) = hwnd;
    return FALSE;
}

// The remote control: the dialog window the library made on this thread.
HWND FindRemote() {
    HWND found = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), FindDialog, reinterpret_cast<LPARAM>(&found));
    return found;
}

}  // namespace

HostWindow::HostWindow() : accelerators_(BuildAccelerators()) {
    options_.threads = 0;
}

HostWindow::~HostWindow() {
    if (IsWindow(hwnd())) DestroyWindow(hwnd());
    DestroyAcceleratorTable(accelerators_);
    DeleteObject(listFont_);
}

bool HostWindow::Create(int width, int height, int show, bool quitOnClose) {
    quitOnClose_ = quitOnClose;
    if (document_.NewScene(width, height) != 0) return false;
    INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_BAR_CLASSES};
    InitCommonControlsEx(&controls);
    HINSTANCE instance = GetModuleHandleW(nullptr);
    WNDCLASSW wc = {};
    if (!GetClassInfoW(instance, kClassName, &wc)) {
        wc.lpfnWndProc = Proc;
        wc.hInstance = instance;
        wc.hCursor = LoadCursor(nullptr, IDC_ARROW);
        wc.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
        wc.lpszClassName = kClassName;
        RegisterClassW(&wc);
    }
    canvas_.reset(new CanvasView(&document_, accelerators_));
    if (CreateWindowExW(0, kClassName, kCaption, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN,
                        CW_USEDEFAULT, CW_USEDEFAULT, 800, 600, nullptr, BuildMenu(), instance,
                        this) == nullptr) {
        return false;
    }
    if (!PXColor_Open(AsHostWindow(&layout_), kNotifyMessage)) {
        DestroyWindow(hwnd());
        return false;
    }
    remote_ = FindRemote();
    PlaceBesideRemote(width, height);
    ShowTitle();
    ShowSelection();
    SetStatus(kAction, L"Click a part or press Tab, then press 更新 in the remote control.");
    ShowWindow(hwnd(), show);
    SetFocus(canvas_->hwnd());
    AddLine(L"Remote control open. Its notifications and the fields read show here.");
    return true;
}

LRESULT CALLBACK HostWindow::Proc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) {
    if (msg == WM_NCCREATE) {
        auto* host =
            static_cast<HostWindow*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
        host->layout_.m_hWnd = hwnd;
        SetWindowLongPtrW(hwnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(host));
    }
    auto* host = reinterpret_cast<HostWindow*>(GetWindowLongPtrW(hwnd, GWLP_USERDATA));
    return host != nullptr ? host->Handle(msg, wParam, lParam)
                           : DefWindowProcW(hwnd, msg, wParam, lParam);
}

LRESULT HostWindow::Handle(UINT msg, WPARAM wParam, LPARAM lParam) {
    if (msg == kFlushMessage) {
        Flush();
        return 0;
    }
    if (msg == kNotifyMessage) {
        // The name lives only during this call.
        const std::string name(reinterpret_cast<const char*>(lParam));
        wchar_t line[160];
        std::swprintf(line, 160, L"notification: \"%hs\"  (wParam %u)", name.c_str(),
                      static_cast<unsigned>(wParam));
        AddLine(line);
        OnNotification(name);
        return 0;
    }
    switch (msg) {
        case WM_CREATE: OnCreate(); return 0;
        case WM_SIZE: Layout(); return 0;
        case WM_SETFOCUS: SetFocus(canvas_->hwnd()); return 0;
        case WM_COMMAND:
            if (LOWORD(wParam) == kCanvasId) {
                ShowSelection();
            } else if (lParam == 0) {
                OnCommand(LOWORD(wParam));
            }
            return 0;
        case WM_INITMENUPOPUP: {
            HMENU menu = reinterpret_cast<HMENU>(wParam);
            EnableMenuItem(menu, kUndo, document_.CanUndo() ? MF_ENABLED : MF_GRAYED);
            EnableMenuItem(menu, kRedo, document_.CanRedo() ? MF_ENABLED : MF_GRAYED);
            CheckMenuItem(menu, kNotifications, listShown_ ? MF_CHECKED : MF_UNCHECKED);
            CheckMenuItem(menu, kRemote, IsWindowVisible(remote_) ? MF_CHECKED : MF_UNCHECKED);
            return 0;
        }
        case WM_CLOSE:
            if (ConfirmDiscard()) DestroyWindow(hwnd());
            return 0;
        case WM_DESTROY:
            PXColor_Close();
            remote_ = nullptr;
            if (quitOnClose_) PostQuitMessage(0);
            return 0;
        case WM_NCDESTROY: {
            HWND window = hwnd();
            layout_.m_hWnd = nullptr;  // a stale handle would pass for a live one
            return DefWindowProcW(window, msg, wParam, lParam);
        }
        default: return DefWindowProcW(hwnd(), msg, wParam, lParam);
    }
}

void HostWindow::OnCreate() {
    HINSTANCE instance = GetModuleHandleW(nullptr);
    canvas_->Create(hwnd(), kCanvasId);
    list_ = CreateWindowExW(WS_EX_CLIENTEDGE, L"LISTBOX", nullptr,
                            WS_CHILD | WS_VISIBLE | WS_VSCROLL | LBS_NOINTEGRALHEIGHT, 0, 0, 0, 0,
                            hwnd(), reinterpret_cast<HMENU>(kListId), instance, nullptr);
    // A font whose underscores fit in the line, for the list and the status
    // bar: the notification names have them.
    listFont_ = CreateFontW(-14, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
                            OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY,
                            FF_MODERN | FIXED_PITCH, L"ＭＳ ゴシック");
    SendMessageW(list_, WM_SETFONT, reinterpret_cast<WPARAM>(listFont_), TRUE);
    status_ =
        CreateWindowExW(0, STATUSCLASSNAMEW, nullptr, WS_CHILD | WS_VISIBLE | SBARS_SIZEGRIP, 0, 0,
                        0, 0, hwnd(), reinterpret_cast<HMENU>(kStatusId), instance, nullptr);
    SendMessageW(status_, WM_SETFONT, reinterpret_cast<WPARAM>(listFont_), TRUE);
}

void HostWindow::Layout() {
    RECT client;
    GetClientRect(hwnd(), &client);
    SendMessageW(status_, WM_SIZE, 0, 0);
    RECT bar;
    GetWindowRect(status_, &bar);
    const int statusHeight = bar.bottom - bar.top;
    const int listHeight = listShown_ ? kListHeight : 0;
    const int canvasHeight = std::max(0L, client.bottom - statusHeight - listHeight);
    MoveWindow(canvas_->hwnd(), 0, 0, client.right, canvasHeight, TRUE);
    MoveWindow(list_, 0, canvasHeight, client.right, listHeight, TRUE);
    ShowWindow(list_, listShown_ ? SW_SHOW : SW_HIDE);
    const int edges[kStatusParts] = {180, std::max(180L, client.right - 130), -1};
    SendMessageW(status_, SB_SETPARTS, kStatusParts, reinterpret_cast<LPARAM>(edges));
    ShowSelection();  // the zoom follows the canvas's size
}

// The host beside the remote control, on the side with more room, sized to
// show the canvas whole where the screen allows.
void HostWindow::PlaceBesideRemote(int canvasWidth, int canvasHeight) {
    RECT work;
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    RECT bar;
    GetWindowRect(status_, &bar);
    RECT wanted = {0, 0, canvasWidth, canvasHeight + kListHeight + (bar.bottom - bar.top)};
    AdjustWindowRectEx(&wanted, GetWindowLongW(hwnd(), GWL_STYLE), TRUE,
                       GetWindowLongW(hwnd(), GWL_EXSTYLE));
    RECT remote = {work.left, work.top, work.left, work.top};
    if (remote_ != nullptr) GetWindowRect(remote_, &remote);
    const int gap = 4;
    const int right = work.right - remote.right - gap, left = remote.left - work.left - gap;
    const int room = std::max(right, left);
    const int width = std::min<int>(wanted.right - wanted.left, room > 320 ? room : work.right);
    const int height = std::min<int>(wanted.bottom - wanted.top, work.bottom - work.top);
    const int x = right >= left ? remote.right + gap : remote.left - gap - width;
    SetWindowPos(hwnd(), nullptr, room > 320 ? x : work.left, work.top, width, height,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

void HostWindow::OnCommand(int id) {
    switch (id) {
        case kOpen: Open(); break;
        case kSave: Save(false); break;
        case kSaveAs: Save(true); break;
        case kExit: PostMessageW(hwnd(), WM_CLOSE, 0, 0); break;
        case kUndo: ShowUndoState(L"Undone", document_.Undo()); break;
        case kRedo: ShowUndoState(L"Redone", document_.Redo()); break;
        case kNextPart:
        case kPreviousPart:
            document_.Step(id == kNextPart ? 1 : -1);
            canvas_->SelectionChanged();
            ShowSelection();
            break;
        case kNotifications: ToggleNotifications(); break;
        case kRemote: ToggleRemote(); break;
        default: break;
    }
}

void HostWindow::OnNotification(const std::string& name) {
    const HostRequest request = ReadRequest(name);
    for (const std::wstring& line : request.fields) AddLine(line);
    const std::wstring what = Widen(name, CP_ACP);
    if (!request.render) {
        Report(name.empty() ? L"No effect is chosen in the remote control."
                            : L"Nothing to paint for \"" + what + L"\".");
        return;
    }
    const int selected = document_.selected();
    if (selected < 0) {
        Report(L"No part is selected: click one or press Tab, then \"" + what + L"\" again.");
        return;
    }
    ++options_.seed;  // a new arrangement of every random choice each time
    LARGE_INTEGER frequency, start, end;
    QueryPerformanceFrequency(&frequency);
    const int result = document_.PaintSelected(
        [&](const vellrender::Picture& picture, const vellrender::Part& part) {
            QueryPerformanceCounter(&start);
            const int painted = request.render(picture, part, options_);
            QueryPerformanceCounter(&end);
            return painted;
        });
    if (result != 0) {
        const char* message = ErrorMessageText(result);
        Report(what + L" failed: " + Widen(message ? message : "", CP_UTF8));
        return;
    }
    canvas_->Repaint(document_.Part(selected).box);
    wchar_t text[160];
    std::swprintf(text, 160, L"%ls into %hs: %.1f ms", what.c_str(),
                  document_.Part(selected).name.c_str(),
                  1000.0 * (end.QuadPart - start.QuadPart) / frequency.QuadPart);
    Report(text);
}

void HostWindow::AddLine(const std::wstring& line) {
    pendingLines_.push_back(line);
    PostFlush();
}

void HostWindow::Report(const std::wstring& outcome) {
    pendingOutcome_ = outcome;
    PostFlush();
}

void HostWindow::PostFlush() {
    if (!flushPosted_) flushPosted_ = PostMessageW(hwnd(), kFlushMessage, 0, 0) != FALSE;
}

// The list redraws its scroll bar at every line added or scrolled to, which
// is slow; it is drawn once for all the lines waiting.
void HostWindow::Flush() {
    flushPosted_ = false;
    if (!pendingLines_.empty()) {
        SendMessageW(list_, WM_SETREDRAW, FALSE, 0);
        for (const std::wstring& line : pendingLines_)
            SendMessageW(list_, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(line.c_str()));
        pendingLines_.clear();
        LRESULT count = SendMessageW(list_, LB_GETCOUNT, 0, 0);
        for (; count > kMaxListLines; --count) SendMessageW(list_, LB_DELETESTRING, 0, 0);
        SendMessageW(list_, LB_SETCURSEL, static_cast<WPARAM>(count - 1), 0);
        SendMessageW(list_, WM_SETREDRAW, TRUE, 0);
        InvalidateRect(list_, nullptr, TRUE);
    }
    if (!pendingOutcome_.empty()) {
        SetStatus(kAction, pendingOutcome_);
        pendingOutcome_.clear();
        ShowTitle();
    }
}

void HostWindow::SetStatus(StatusPart part, const std::wstring& text) {
    SendMessageW(status_, SB_SETTEXTW, part, reinterpret_cast<LPARAM>(text.c_str()));
}

std::wstring HostWindow::StatusText(StatusPart part) const {
    const LRESULT length = SendMessageW(status_, SB_GETTEXTLENGTHW, part, 0);
    std::wstring text(LOWORD(length) + 1, L'\0');
    SendMessageW(status_, SB_GETTEXTW, part, reinterpret_cast<LPARAM>(&text[0]));
    text.resize(LOWORD(length));
    return text;
}

void HostWindow::SelectPart(int index) {
    document_.Select(index);
    canvas_->SelectionChanged();
    ShowSelection();
}

void HostWindow::ShowSelection() {
    const int selected = document_.selected();
    wchar_t text[120] = L"No part selected";
    if (selected >= 0) {
        const DocumentPart& part = document_.Part(selected);
        std::swprintf(text, 120, L"%hs: %d × %d px", part.name.c_str(),
                      part.box.right - part.box.left, part.box.top - part.box.bottom);
    }
    SetStatus(kSelection, text);
    std::swprintf(text, 120, L"%d × %d, %d %%", document_.image().width, document_.image().height,
                  canvas_->ZoomPercent());
    SetStatus(kPicture, text);
}

void HostWindow::ShowTitle() {
    const std::wstring name = path_.empty() ? L"sample scene" : FileName(path_);
    const std::wstring title = name + (document_.Modified() ? L" *" : L"") + L" - " + kCaption;
    SetWindowTextW(hwnd(), title.c_str());
}

void HostWindow::ShowUndoState(const wchar_t* done, const Box& box) {
    if (box.Empty()) {
        SetStatus(kAction, std::wstring(L"Nothing to ") + (done[0] == L'U' ? L"undo." : L"redo."));
        return;
    }
    canvas_->Repaint(box);
    SetStatus(kAction, std::wstring(done) + L".");
    ShowTitle();
}

bool HostWindow::ConfirmDiscard() {
    if (!document_.Modified()) return true;
    switch (MessageBoxW(hwnd(), L"The picture has changes that are not saved. Save them first?",
                        kCaption, MB_YESNOCANCEL | MB_ICONQUESTION)) {
        case IDYES: return Save(false);
        case IDNO: return true;
        default: return false;
    }
}

bool HostWindow::Save(bool askForName) {
    std::wstring path = path_;
    if (askForName || path.empty() || !(EndsWith(path, L".bmp") || EndsWith(path, L".png"))) {
        wchar_t name[MAX_PATH] = L"picture.bmp";
        OPENFILENAMEW dialog = FileDialog(hwnd(), L"Bitmap (*.bmp)\0*.bmp\0PNG (*.png)\0*.png\0",
                                          name, OFN_OVERWRITEPROMPT);
        dialog.lpstrDefExt = L"bmp";
        if (!GetSaveFileNameW(&dialog)) return false;
        path = name;
        if (dialog.nFilterIndex == 2 && !EndsWith(path, L".png")) path += L".png";
    }
    return SaveFile(path);
}

bool HostWindow::SaveFile(const std::wstring& path) {
    const std::string bytes = document_.Encode(EndsWith(path, L".png"));
    FILE* out = bytes.empty() ? nullptr : _wfopen(path.c_str(), L"wb");
    bool written =
        out != nullptr && std::fwrite(bytes.data(), 1, bytes.size(), out) == bytes.size();
    if (out != nullptr && std::fclose(out) != 0) written = false;
    if (!written) {
        MessageBoxW(hwnd(), (L"The picture could not be written to\n" + path).c_str(), kCaption,
                    MB_OK | MB_ICONWARNING);
        return false;
    }
    document_.MarkSaved();
    path_ = path;
    ShowTitle();
    SetStatus(kAction, L"Saved " + FileName(path) + L".");
    return true;
}

void HostWindow::Open() {
    if (!ConfirmDiscard()) return;
    wchar_t name[MAX_PATH] = L"";
    OPENFILENAMEW dialog =
        FileDialog(hwnd(), L"Bitmap (*.bmp)\0*.bmp\0All files\0*.*\0", name, OFN_FILEMUSTEXIST);
    if (GetOpenFileNameW(&dialog)) OpenFile(name);
}

bool HostWindow::OpenFile(const std::wstring& path) {
    const int result = document_.Open(ToUtf8(path).c_str());
    if (result != 0) {
        const char* message = ErrorMessageText(result);
        const std::wstring text = Widen(message ? message : "", CP_UTF8) + L"\n\n" + path;
        MessageBoxW(hwnd(), text.c_str(), kCaption, MB_OK | MB_ICONWARNING);
        return false;
    }
    path_ = path;
    canvas_->PictureChanged();
    ShowSelection();
    ShowTitle();
    SetStatus(kAction, L"Opened " + FileName(path) + L": the whole picture is one part.");
    return true;
}

void HostWindow::ToggleNotifications() {
    listShown_ = !listShown_;
    Layout();
}

void HostWindow::ToggleRemote() {
    PXColor_ShowWindow(IsWindowVisible(remote_) ? SW_HIDE : SW_SHOWNORMAL);
}

}  // namespace demohost
