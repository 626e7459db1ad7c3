// Helpers for the Windows tests: a real host window that records the
// notifications it receives, message pumping, the remote control's window,
// a watcher that reads and answers system dialogs, and the settings file.
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
    void Clear() { received_.clear(); }

  private:
    static LRESULT CALLBACK Proc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam);
    VellHostWindow layout_ = {};
    UINT message_;
    std::vector<Notification> received_;
};

// Runs an ordinary GetMessage/TranslateMessage/DispatchMessage loop until
// every message already queued (and whatever they cause) has been handled.
void PumpMessages();

// Keeps dispatching messages, timers included, until `done` answers true or
// `milliseconds` have passed; returns `done`'s last answer.
bool PumpUntil(const std::function<bool()>& done, DWORD milliseconds = 3000);

// The remote control windows of this thread.
std::vector<HWND> RemoteControls();
HWND RemoteControl();

// BM_CLICK on control `id` of `dialog`.
void Click(HWND dialog, int id);

std::wstring WindowText(HWND hwnd);

// While alive, answers every system dialog (message box, color chooser...)
// that this thread shows: records its caption and text and presses
// `buttonId`. It runs from a thread timer, inside the dialog's own loop.
class SystemDialogWatcher {
  public:
    struct Seen {
        std::wstring caption;
        std::wstring text;
        HWND owner;
    };

    explicit SystemDialogWatcher(int buttonId = IDOK);
    // Runs `action` on each new dialog instead; the action closes it.
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
// items and which one is checked, then picks the item at `position`
// (counting separators too), or dismisses the menu when `position` is -1.
class PopupMenuPicker {
  public:
    struct Item {
        std::wstring text;
        UINT id;
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

// Clicks a button of a dialog the way its own command would arrive.
void PressDialogButton(HWND dialog, int id);

// The color set panel inside a remote control.
HWND ColorSetPanelOf(HWND remote);
// The panel inside the remote control's `frame` that holds control `id`.
HWND PanelOf(HWND remote, int frame, int id);
// The effect panel inside a remote control that holds control `id`.
HWND EffectPanelOf(HWND remote, int id);

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
