#include "WideText.h"

#include <windows.h>

namespace {

std::wstring ToWide(UINT codePage, const std::string& text) {
    if (text.empty()) return std::wstring();
    const int n =
        MultiByteToWideChar(codePage, 0, text.data(), static_cast<int>(text.size()), nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(n > 0 ? n : 0), L'\0');
    if (n > 0) {
        MultiByteToWideChar(codePage, 0, text.data(), static_cast<int>(text.size()), &wide[0], n);
    }
    return wide;
}

std::string FromWide(UINT codePage, const std::wstring& wide) {
    if (wide.empty()) return std::string();
    const int n = WideCharToMultiByte(codePage, 0, wide.data(), static_cast<int>(wide.size()),
                                      nullptr, 0, nullptr, nullptr);
    std::string text(static_cast<std::size_t>(n > 0 ? n : 0), '\0');
    if (n > 0) {
        WideCharToMultiByte(codePage, 0, wide.data(), static_cast<int>(wide.size()), &text[0], n,
                            nullptr, nullptr);
    }
    return text;
}

}  // namespace

std::wstring Widen(const std::string& utf8) {
    return ToWide(CP_UTF8, utf8);
}

std::string NarrowToUtf8(const std::wstring& wide) {
    return FromWide(CP_UTF8, wide);
}

std::wstring WidenAnsi(const std::string& ansi) {
    return ToWide(CP_ACP, ansi);
}

std::string NarrowToAnsi(const std::wstring& wide) {
    return FromWide(CP_ACP, wide);
}
