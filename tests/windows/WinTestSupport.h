// Helpers for the Windows tests: a real host window that records the
// notifications it receives, message pumping, the remote control's window,
// watchers that read and answer system dialogs and menus, and the settings file.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

#include "vellcolor/VellColor.h"

const UINT kNotifyMessage = WM_APP + 0x300;

class TestHost {
  public:
    struct Notification {
        std::string name;
        WPARAM wParam;
    };

    // Records the notifications that arrive with `message`.
    explicit TestHost(UINT message = kNotifyMessage);
    ~TestHost();
    TestHost(const TestHost&) = delete;
    TestHost& operator=(const TestHost&) = delete;

    CWnd* window() { return AsHostWindow(&layout_); }
    HWND hwnd() const { return layout_.m_hWnd; }
    const std::vector<Notification>& received() const { return received_; }
    std::vector<std::string> names() const;
    void Clear() { received_.clear(); }

  private:
    static LRESULT CALLBACK Proc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam);
    VellHostWindow layout_ = {};
    UINT message_;
    std::vector<Notification> received_;
};

// Dispatches every message already queued, and whatever they cause.
void PumpMessages();
// Dispatches messages, timers included, until `done` answers true or
// `milliseconds` have passed; returns `done`'s last answer.
bool PumpUntil(const std::function<bool()>& done, DWORD milliseconds = 3000);

// The remote control windows of this thread.
std::vector<HWND> RemoteControls();
HWND RemoteControl();
// The panel inside the remote control's `frame` that holds control `id`.
HWND PanelOf(HWND remote, int frame, int id);
HWND ColorSetPanelOf(HWND remote);
HWND EffectPanelOf(HWND remote, int id);

// BM_CLICK on control `id` of `dialog`.
void Click(HWND dialog, int id);
// A click posted as the button's own command would arrive.
void PressDialogButton(HWND dialog, int id);
// WM_HSCROLL from scroll bar `bar` of `dialog`.
void Scroll(HWND dialog, int bar, int code, int thumb = 0);
// A space key press queued for `control` as the keyboard would, then pumped.
void PressSpace(HWND control);
bool Enabled(HWND dialog, int id);
std::wstring WindowText(HWND hwnd);
// The pixel of `window`'s client area as painted on the screen.
COLORREF ScreenPixel(HWND window, int x, int y);

// While alive, answers every system dialog (message box, color chooser...)
// that this thread shows, from a thread timer inside the dialog's own loop:
// records its caption and text and presses `buttonId`, or runs `action`,
// which closes it.
class SystemDialogWatcher {
  public:
    struct Seen {
        std::wstring caption;
        std::wstring text;
        HWND owner;
    };

    explicit SystemDialogWatcher(int buttonId = IDOK);
    explicit SystemDialogWatcher(std::function<void(HWND)> action);
    ~SystemDialogWatcher();

    const std::vector<Seen>& seen() const { return seen_; }

  private:
    static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD);
    std::function<void(HWND)> action_;
    UINT_PTR timer_;
    std::vector<Seen> seen_;
    std::vector<HWND> answered_;
};

// While alive, answers the first popup menu this thread tracks: records its
// items, then picks the item at `position` (separators count) or dismisses
// the menu when `position` is -1.
class PopupMenuPicker {
  public:
    struct Item {
        std::wstring text;
        bool checked;
    };

    explicit PopupMenuPicker(int position);
    ~PopupMenuPicker();

    const std::vector<Item>& items() const { return items_; }
    bool seen() const { return seen_; }

  private:
    static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD);
    int position_;
    UINT_PTR timer_;
    bool seen_ = false;
    std::vector<Item> items_;
};

// A watcher action for the system color chooser: types the color into its
// red, green and blue boxes and presses OK.
std::function<void(HWND)> TypeColorIntoChooser(int red, int green, int blue);

// Real keyboard input: a second thread presses and releases each virtual
// key in turn with SendInput while this thread keeps pumping messages, as a
// host's own loop would. The keys go to `focus`, whose top-level window is
// brought to the foreground first.
void TypeKeys(HWND focus, const std::vector<WORD>& keys);

// Puts a 24-bit w x h picture on the clipboard as a packed DIB; `color`
// gives each pixel, y counted from the top.
bool PutPictureOnClipboard(int w, int h, const std::function<COLORREF(int x, int y)>& color);

// "PXColor.ini" beside the test program, as the library finds it.
std::wstring SettingsPath();
void RemoveSettings();
void WriteSettings(const std::string& content);
std::string ReadSettings();
