// Every piece of modal system UI the library shows goes through here.
#pragma once

#include <windows.h>

#include <string>

namespace SystemDialogs {

enum class Caption {
    HostProgram,  // the host program's name, as a framework application's own boxes have
    System,       // none of our own: the system's default
};

// An OK-only message box owned by `owner`.
void ShowMessage(HWND owner, const std::string& utf8Text, Caption caption = Caption::HostProgram);

// The system color chooser, fully open, starting at `initial`; false when
// the user cancels.
bool PickColor(HWND owner, COLORREF initial, COLORREF* chosen);

// The system's file-open dialog without an owner, for an existing file;
// false when the user cancels. `filter` separates its parts with '|'.
bool OpenFile(const wchar_t* filter, const wchar_t* defaultExtension, std::string* utf8Path);

// A popup menu at a screen point; the chosen command id, or 0 when the
// menu is dismissed.
UINT TrackMenu(HWND owner, HMENU menu, POINT screen);

// The host program's name: its executable's base name.
std::wstring HostProgramName();

// The host executable's full path, UTF-8.
std::string HostExecutablePath();

}  // namespace SystemDialogs
