#include "ShowErrorMessage.h"

#include "framework/SystemDialogs.h"
#include "vellcolor/ErrorCode.h"

void ShowErrorMessage(HWND owner, int code) {
    if (owner == nullptr || code == 0) return;
    const char* text = ErrorMessageText(code);
    if (text == nullptr) return;
    SystemDialogs::ShowMessage(owner, text);
}
