#pragma once

#include <windows.h>

// Tells the user what an error code means, in a message box owned by
// `owner`. Nothing happens for a null owner, for 0 or for an unknown code.
void ShowErrorMessage(HWND owner, int code);
