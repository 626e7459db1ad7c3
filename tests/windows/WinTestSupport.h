// Helpers for the Windows tests: a host window that records notifications,
// message pumping, the remote control's windows, watchers that answer system
// dialogs and menus, real input, pictures in files and on the clipboard, and
// the settings file.
#pragma once

#include <windows.h>

#include <cstdint>
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

// Dispatches what is queued, and what that causes.
void PumpMessages();
// Dispatches messages until `done` answers true or time is up; returns its answer.
bool PumpUntil(const std::function<bool()>& done, DWORD milliseconds = 3000);

// Top-level dialogs of this thread, shown or not.
std::vector<HWND> ThreadDialogs();
std::vector<HWND> RemoteControls();
HWND RemoteControl();
// The panel inside the remote control's `frame` that holds control `id`.
HWND PanelOf(HWND remote, int frame, int id);
HWND ColorSetPanelOf(HWND remote);
HWND EffectPanelOf(HWND remote, int id);

void Click(HWND dialog, int id);              // BM_CLICK
void PressDialogButton(HWND dialog, int id);  // its command, posted
void Scroll(HWND dialog, int bar, int code, int thumb = 0);
// A space key press queued for `control` as the keyboard would, then pumped.
void PressSpace(HWND control);
bool Enabled(HWND dialog, int id);
std::wstring WindowText(HWND hwnd);
// A pixel of `window`'s client area as painted on the screen.
COLORREF ScreenPixel(HWND window, int x, int y);

// While alive, answers every dialog (message box, color chooser...) this
// thread shows, from a timer inside the dialog's own loop: records its caption
// and text and presses `buttonId`, or runs `action`, which closes it.
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

// While alive, answers the first popup menu this thread tracks: notes which
// item is ticked and picks the one at `position` (separators count), or -1: none.
class PopupMenuPicker {
  public:
    explicit PopupMenuPicker(int position);
    ~PopupMenuPicker();

    bool seen() const { return seen_; }
    int checked() const { return checked_; }

  private:
    static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD);
    int position_;
    UINT_PTR timer_;
    bool seen_ = false;
    int checked_ = -1;
};

// A watcher action that types the color into the system color chooser.
std::function<void(HWND)> TypeColorIntoChooser(int red, int green, int blue);

// Real input: `send` runs on a second thread while this thread pumps messages
// as a host's loop would, then what it caused is dispatched.
void FromSecondThread(const std::function<void()>& send);
// Each key sent with SendInput from a second thread; the keys go to `focus`.
void TypeKeys(HWND focus, const std::vector<WORD>& keys);
// The keys pressed together, as Ctrl+Z: down in order, up in reverse.
void TypeChord(HWND focus, const std::vector<WORD>& keys);

// A w x h 24-bit BMP file of one color.
std::vector<std::uint8_t> PictureFile(int w, int h, COLORREF color);
// Replaces the file at `path` with `bytes`.
void WriteBytes(const std::wstring& path, const std::vector<std::uint8_t>& bytes);
// Puts a 24-bit w x h picture on the clipboard; y counts from the top.
bool PutPictureOnClipboard(int w, int h, const std::function<COLORREF(int x, int y)>& color);

// The temporary files' folder, with a backslash at the end.
std::wstring TempFolder();

// "PXColor.ini" beside the test program, as the library finds it.
std::wstring SettingsPath();
void RemoveSettings();
void WriteSettings(const std::string& content);
std::string ReadSettings();
