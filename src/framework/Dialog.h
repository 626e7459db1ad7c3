// A dialog object that owns its window. The template comes from the
// library's resources; the object pointer travels in the create parameter
// and is kept in DWLP_USER. Messages reach OnMessage, one switch per class.
#pragma once

#include <windows.h>

#include <utility>
#include <vector>

#include "Export.h"

class VELLCOLOR_CLASS Dialog {
  public:
    explicit Dialog(int templateId);
    virtual ~Dialog();
    Dialog(const Dialog&) = delete;
    Dialog& operator=(const Dialog&) = delete;

    // Modeless; false when the window could not be made.
    bool CreateModeless(HWND parent);
    // Modal; returns the EndDialog result, or -1 on failure.
    INT_PTR RunModal(HWND parent);
    bool DestroyWindow();

    HWND hwnd() const { return hwnd_; }
    int templateId() const { return templateId_; }
    bool IsModal() const { return modal_; }
    // A control by id. Handles are looked up once and kept while the window
    // lives: under Wine every GetDlgItem asks the window server for the
    // whole list of children.
    HWND Item(int id) const;
    // The same for a window that may be ours; plain GetDlgItem otherwise.
    static HWND ItemOf(HWND dialog, int id);

    // Sees every message taken from the queue for this dialog or any window
    // inside it before it is dispatched; true consumes the message.
    virtual BOOL PreTranslateMessage(MSG* msg);

    // The dialog object behind a window of ours, or null.
    static Dialog* FromWindow(HWND hwnd);

  protected:
    virtual BOOL OnInitDialog() { return TRUE; }
    // True when handled; *result is what the message answers.
    virtual bool OnMessage(UINT msg, WPARAM wParam, LPARAM lParam, LRESULT* result);

  private:
    static INT_PTR CALLBACK DialogProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam);
    INT_PTR Dispatch(UINT msg, WPARAM wParam, LPARAM lParam);

    int templateId_;
    HWND hwnd_ = nullptr;
    mutable std::vector<std::pair<int, HWND>> items_;
    bool modal_ = false;
};
