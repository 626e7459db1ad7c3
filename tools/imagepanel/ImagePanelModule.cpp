// The picture-list module's entry point and its five exported functions.
// One chooser state per process: the folder to list and the last choice.
#include <windows.h>

#include <string>

#include "ImagePanelDialog.h"
#include "vellcolor/VellImagePanel.h"

namespace {

HINSTANCE g_instance = nullptr;
std::wstring g_directory;
std::wstring g_selected;

std::wstring FromAnsi(const char* text) {
    const int n = MultiByteToWideChar(CP_ACP, 0, text, -1, nullptr, 0);
    if (n <= 1) return std::wstring();
    std::wstring wide(static_cast<std::size_t>(n), L'\0');
    MultiByteToWideChar(CP_ACP, 0, text, -1, &wide[0], n);
    wide.resize(static_cast<std::size_t>(n - 1));
    return wide;
}

// Only a path that converts back unchanged names the chosen file: a
// best-fit or default character would name another one.
bool ToAnsi(const std::wstring& wide, std::string* ansi) {
    const int n = WideCharToMultiByte(CP_ACP, 0, wide.c_str(), -1, nullptr, 0, nullptr, nullptr);
    if (n <= 0) return false;
    std::string bytes(static_cast<std::size_t>(n), '\0');
    WideCharToMultiByte(CP_ACP, 0, wide.c_str(), -1, &bytes[0], n, nullptr, nullptr);
    if (FromAnsi(bytes.c_str()) != wide) return false;
    bytes.resize(static_cast<std::size_t>(n - 1));
    *ansi = bytes;
    return true;
}

void Forget() {
    g_directory.clear();
    g_selected.clear();
}

}  // namespace

BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH) g_instance = instance;
    return TRUE;
}

// No exception may cross into the caller.
extern "C" {

void __stdcall PXImagePanel_Open() {
    Forget();
}

void __stdcall PXImagePanel_Close() {
    Forget();
}

void __stdcall PXImagePanel_SetDirectory(const char* directory) {
    try {
        g_directory = directory != nullptr ? FromAnsi(directory) : std::wstring();
    } catch (...) {
        g_directory.clear();
    }
}

int __stdcall PXImagePanel_DoModal() {
    try {
        g_selected.clear();
        std::wstring chosen;
        if (!ChoosePicture(g_instance, GetActiveWindow(), g_directory, &chosen)) return 0;
        g_selected = chosen;
        return 1;
    } catch (...) {
        return 0;
    }
}

int __stdcall PXImagePanel_GetSelectedImage(char* buffer) {
    try {
        std::string path;
        if (buffer == nullptr || g_selected.empty() || !ToAnsi(g_selected, &path)) return 0;
        if (path.size() + 1 > MAX_PATH) return 0;
        path.copy(buffer, path.size());
        buffer[path.size()] = '\0';
        return 1;
    } catch (...) {
        return 0;
    }
}
}
