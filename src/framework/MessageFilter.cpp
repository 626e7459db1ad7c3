#include "MessageFilter.h"

#include "Dialog.h"

namespace {

HHOOK g_hook = nullptr;
int g_users = 0;

LRESULT CALLBACK GetMessageHook(int code, WPARAM wParam, LPARAM lParam) {
    MSG* msg = reinterpret_cast<MSG*>(lParam);
    // Paint messages skip the filters. They arrive only once nothing else is
    // queued, so the messages before them have already brought the panels'
    // enabling up to date, and walking each of the many paints of a fresh
    // dialog through the filters cost more than all of its painting.
    if (code == HC_ACTION && wParam == PM_REMOVE && msg->message != WM_PAINT) {
        try {
            if (MessageFilter::Filter(msg)) {
                msg->message = WM_NULL;
                msg->wParam = 0;
                msg->lParam = 0;
            }
        } catch (...) {
            // Let the message through untouched rather than unwind into user32.
        }
    }
    return CallNextHookEx(g_hook, code, wParam, lParam);
}

}  // namespace

namespace MessageFilter {

void Attach() {
    if (g_users++ == 0) {
        g_hook = SetWindowsHookExW(WH_GETMESSAGE, GetMessageHook, nullptr, GetCurrentThreadId());
    }
}

void Detach() {
    if (g_users == 0) return;
    if (--g_users == 0 && g_hook != nullptr) {
        UnhookWindowsHookEx(g_hook);
        g_hook = nullptr;
    }
}

bool Filter(MSG* msg) {
    Dialog* top = nullptr;
    for (HWND h = msg->hwnd; h != nullptr;) {
        if (Dialog* dialog = Dialog::FromWindow(h)) {
            if (dialog->PreTranslateMessage(msg)) return true;
            top = dialog;
        }
        if ((GetWindowLongW(h, GWL_STYLE) & WS_CHILD) == 0) break;
        h = GetParent(h);
    }
    // Only keyboard messages need the dialog manager. Anything else it would
    // dispatch here, inside the hook, and a scroll bar thumb or a drop-down
    // would then run its own loop from within it. Modal dialogs run the
    // system's loop, which does this already.
    const bool keyboard = msg->message >= WM_KEYFIRST && msg->message <= WM_KEYLAST;
    if (keyboard && top != nullptr && !top->IsModal() && IsDialogMessageW(top->hwnd(), msg))
        return true;
    return false;
}

}  // namespace MessageFilter
