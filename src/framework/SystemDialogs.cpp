#include "SystemDialogs.h"

#include <commdlg.h>

#include <vector>

#include "WideText.h"
#include "support/FilePathParts.h"

namespace SystemDialogs {

std::string HostExecutablePath() {
    std::vector<wchar_t> buffer(MAX_PATH);
    for (;;) {
        const DWORD n =
            GetModuleFileNameW(nullptr, buffer.data(), static_cast<DWORD>(buffer.size()));
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

void ShowMessage(HWND owner, const std::string& utf8Text, Caption caption) {
    const std::wstring name = caption == Caption::HostProgram ? HostProgramName() : std::wstring();
    MessageBoxW(owner, Widen(utf8Text).c_str(), name.empty() ? nullptr : name.c_str(), MB_OK);
}

bool PickColor(HWND owner, COLORREF initial, COLORREF* chosen) {
    // The chooser's sixteen custom colors last as long as the library.
    static COLORREF customColors[16] = {};
    CHOOSECOLORW choose = {};
    choose.lStructSize = sizeof choose;
    choose.hwndOwner = owner;
    choose.rgbResult = initial;
    choose.lpCustColors = customColors;
    choose.Flags = CC_FULLOPEN | CC_RGBINIT;
    if (!ChooseColorW(&choose)) return false;
    *chosen = choose.rgbResult;
    return true;
}

bool OpenFile(const wchar_t* filter, const wchar_t* defaultExtension, std::string* utf8Path) {
    std::wstring filters(filter);
    for (wchar_t& c : filters) {
        if (c == L'|') c = L'\0';
    }
    std::vector<wchar_t> path(MAX_PATH * 4, L'\0');
    OPENFILENAMEW open = {};
    open.lStructSize = sizeof open;
    open.lpstrFilter = filters.c_str();
    open.lpstrFile = path.data();
    open.nMaxFile = static_cast<DWORD>(path.size());
    open.lpstrDefExt = defaultExtension;
    open.Flags = OFN_HIDEREADONLY | OFN_FILEMUSTEXIST;
    if (!GetOpenFileNameW(&open)) return false;
    *utf8Path = NarrowToUtf8(path.data());
    return true;
}

UINT TrackMenu(HWND owner, HMENU menu, POINT screen) {
    return static_cast<UINT>(TrackPopupMenu(menu, TPM_RIGHTBUTTON | TPM_RETURNCMD, screen.x,
                                            screen.y, 0, owner, nullptr));
}

}  // namespace SystemDialogs
