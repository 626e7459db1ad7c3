// The demo host's main window: a small drawing program around the remote
// control. The canvas shows the document; the remote control's notifications
// paint the selected part with the renderer; a panel lists every
// notification and the fields read; a status bar tells what happened. Undo,
// redo, opening and saving pictures, and the question before unsaved changes
// are lost, are what a drawing program has.
#pragma once

#include <windows.h>

#include <memory>
#include <string>
#include <vector>

#include "CanvasView.h"
#include "PaintDocument.h"
#include "vellcolor/VellColor.h"

namespace demohost {

// The message number the remote control notifies the host with.
const UINT kNotifyMessage = WM_APP + 0x200;

class HostWindow {
  public:
    enum StatusPart { kSelection, kAction, kPicture, kStatusParts };

    HostWindow();
    ~HostWindow();
    HostWindow(const HostWindow&) = delete;
    HostWindow& operator=(const HostWindow&) = delete;

    // The window on a new sample scene of that size, and the remote control
    // opened beside it (shown or hidden as it was last time). False when
    // either cannot be had. `quitOnClose` ends the thread's message loop
    // when the window goes.
    bool Create(int width, int height, int show, bool quitOnClose);
    HWND hwnd() const { return layout_.m_hWnd; }
    HWND remote() const { return remote_; }
    PaintDocument& document() { return document_; }
    CanvasView& canvas() { return *canvas_; }
    std::wstring StatusText(StatusPart part) const;
    // The options of the last paint (its seed counts paints).
    const vellrender::Options& lastOptions() const { return options_; }

    // What the menu's commands do once a file is named. Open shows the
    // reader's message when it refuses the file and changes nothing; both
    // return whether they succeeded.
    bool OpenFile(const std::wstring& path);
    bool SaveFile(const std::wstring& path);
    void SelectPart(int index);

  private:
    static LRESULT CALLBACK Proc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam);
    LRESULT Handle(UINT msg, WPARAM wParam, LPARAM lParam);
    void OnCreate();
    void OnCommand(int id);
    void OnNotification(const std::string& name);
    void Layout();
    void PlaceBesideRemote(int canvasWidth, int canvasHeight);
    // A line for the notification list and the outcome of a notification
    // for the status bar: both shown once the message loop runs again.
    void AddLine(const std::wstring& line);
    void Report(const std::wstring& outcome);
    void PostFlush();
    void Flush();
    void SetStatus(StatusPart part, const std::wstring& text);
    void ShowSelection();
    void ShowTitle();
    void ShowUndoState(const wchar_t* done, const Box& box);
    // False when the user cancels; saves first when asked to.
    bool ConfirmDiscard();
    bool Save(bool askForName);
    void Open();
    void ToggleNotifications();
    void ToggleRemote();

    VellHostWindow layout_ = {};  // the library reads the window handle here
    PaintDocument document_;
    HACCEL accelerators_ = nullptr;
    std::unique_ptr<CanvasView> canvas_;
    HWND list_ = nullptr, status_ = nullptr, remote_ = nullptr;
    HFONT listFont_ = nullptr;
    std::vector<std::wstring> pendingLines_;
    std::wstring pendingOutcome_;
    bool flushPosted_ = false;
    bool listShown_ = true, quitOnClose_ = false;
    std::wstring path_;  // where the picture was last opened or saved; "" for the scene
    vellrender::Options options_;
};

}  // namespace demohost
