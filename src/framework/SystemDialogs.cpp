#include "SystemDialogs.h"

#include <vector>

#include "WideText.h"
#include "params/FilePathParts.h"

namespace SystemDialogs {

std::string HostExecutablePath() {
    std::vector<wchar_t> buffer(MAX_PATH);
    for (;;) {
        const DWORD n = GetModuleFileNameW(nullptr, buffer.data(), static_cast<DWORD>(buffer.size()));
        if (n == 0) return std::string();
        if (n < buffer.size()) return NarrowToUtf8(std::wstring(buffer.data(), n));
        if (buffer.size() >= 32768) return std::string();
        buffer.resize(buffer.size() * 2);
    }
}

std::wstring HostProgramName() {
    std::string base;
    if (!FilePathParts(HostExecutablePath().c_str()).BaseName(&base)) return std::wstring();
    return Widen(base);
}

void ShowMessage(HWND owner, const std::string& utf8Text) {
    const std::wstring caption = HostProgramName();
    MessageBoxW(owner, Widen(utf8Text).c_str(), caption.empty() ? nullptr : caption.c_str(), MB_OK);
}

}  // namespace SystemDialogs
