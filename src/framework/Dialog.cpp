#include "Dialog.h"

#include "MessageFilter.h"
#include "ModuleInstance.h"

namespace {

// Messages whose answer a dialog procedure returns directly instead of
// through DWLP_MSGRESULT.
bool AnswersDirectly(UINT msg) {
    switch (msg) {
        case WM_CTLCOLORMSGBOX:
        case WM_CTLCOLOREDIT:
        case WM_CTLCOLORLISTBOX:
        case WM_CTLCOLORBTN:
        case WM_CTLCOLORDLG:
        case WM_CTLCOLORSCROLLBAR:
        case WM_CTLCOLORSTATIC:
        case WM_COMPAREITEM:
        case WM_VKEYTOITEM:
        case WM_CHARTOITEM:
        case WM_QUERYDRAGICON:
        case WM_INITDIALOG: return true;
        default: return false;
    }
}

}  // namespace

Dialog::Dialog(int templateId) : templateId_(templateId) {}

Dialog::~Dialog() {
    DestroyWindow();
}

bool Dialog::CreateModeless(HWND parent) {
    if (hwnd_ != nullptr) return false;
    modal_ = false;
    CreateDialogParamW(ModuleInstance(), MAKEINTRESOURCEW(templateId_), parent, DialogProc,
                       reinterpret_cast<LPARAM>(this));
    return hwnd_ != nullptr;
}

INT_PTR Dialog::RunModal(HWND parent) {
    if (hwnd_ != nullptr) return -1;
    modal_ = true;
    const INT_PTR result = DialogBoxParamW(ModuleInstance(), MAKEINTRESOURCEW(templateId_), parent,
                                           DialogProc, reinterpret_cast<LPARAM>(this));
    modal_ = false;
    return result;
}

bool Dialog::DestroyWindow() {
    if (hwnd_ == nullptr) return false;
    return ::DestroyWindow(hwnd_) != FALSE;
}

HWND Dialog::Item(int id) const {
    for (const auto& item : items_) {
        if (item.first == id) return item.second;
    }
    HWND control = GetDlgItem(hwnd_, id);
    // Only found controls are kept, so a miss never hides one made later.
    if (control != nullptr) items_.emplace_back(id, control);
    return control;
}

HWND Dialog::ItemOf(HWND dialog, int id) {
    if (const Dialog* self = FromWindow(dialog)) return self->Item(id);
    return GetDlgItem(dialog, id);
}

BOOL Dialog::PreTranslateMessage(MSG*) {
    return FALSE;
}

bool Dialog::OnMessage(UINT, WPARAM, LPARAM, LRESULT*) {
    return false;
}

Dialog* Dialog::FromWindow(HWND hwnd) {
    if (hwnd == nullptr) return nullptr;
    // Only windows run by our dialog procedure carry our object pointer.
    if (reinterpret_cast<DLGPROC>(GetWindowLongPtrW(hwnd, DWLP_DLGPROC)) != DialogProc) {
        return nullptr;
    }
    return reinterpret_cast<Dialog*>(GetWindowLongPtrW(hwnd, DWLP_USER));
}

INT_PTR CALLBACK Dialog::DialogProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) {
    Dialog* self = nullptr;
    if (msg == WM_INITDIALOG) {
        self = reinterpret_cast<Dialog*>(lParam);
        SetWindowLongPtrW(hwnd, DWLP_USER, reinterpret_cast<LONG_PTR>(self));
        self->hwnd_ = hwnd;
        self->items_.clear();
        MessageFilter::Attach();
    } else {
        self = reinterpret_cast<Dialog*>(GetWindowLongPtrW(hwnd, DWLP_USER));
    }
    if (self == nullptr) return FALSE;
    INT_PTR answer = FALSE;
    try {
        answer = self->Dispatch(msg, wParam, lParam);
    } catch (...) {
        // Nothing may unwind into the system's code; the message counts as
        // unhandled.
        answer = FALSE;
    }
    if (msg == WM_NCDESTROY) {
        SetWindowLongPtrW(hwnd, DWLP_USER, 0);
        self->hwnd_ = nullptr;
        self->items_.clear();
        MessageFilter::Detach();
    }
    return answer;
}

INT_PTR Dialog::Dispatch(UINT msg, WPARAM wParam, LPARAM lParam) {
    if (msg == WM_INITDIALOG) return OnInitDialog();
    LRESULT result = 0;
    if (!OnMessage(msg, wParam, lParam, &result)) return FALSE;
    if (AnswersDirectly(msg)) return static_cast<INT_PTR>(result);
    SetWindowLongPtrW(hwnd_, DWLP_MSGRESULT, result);
    return TRUE;
}
