// The host hands us its framework window object; its window handle sits at
// byte offset 0x1C (vtable pointer and six 32-bit members of the
// command-target base, then m_hWnd).
#pragma once

#include <windows.h>

#include <cstring>

class CWnd;

inline HWND HostWindowHandle(const CWnd* window) {
    if (window == nullptr) return nullptr;
    HWND handle;
    std::memcpy(&handle, reinterpret_cast<const char*>(window) + 0x1C, sizeof handle);
    return handle;
}
