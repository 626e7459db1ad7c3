// The host hands us its framework window object; its window handle sits at
// byte offset 0x1C (vtable pointer and six 32-bit members of the
// command-target base, then m_hWnd).
#pragma once

#include <windows.h>

#include <cstddef>
#include <cstring>

class CWnd;

// 0x1C in the 32-bit DLL; a 64-bit test build keeps the same fields.
const std::size_t kHostWindowHandleOffset = sizeof(void*) + 6 * 4;

inline HWND HostWindowHandle(const CWnd* window) {
    if (window == nullptr) return nullptr;
    HWND handle;
    std::memcpy(&handle, reinterpret_cast<const char*>(window) + kHostWindowHandleOffset,
                sizeof handle);
    return handle;
}
