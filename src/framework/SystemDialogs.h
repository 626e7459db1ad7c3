// Every piece of modal system UI the library shows goes through here.
#pragma once

#include <windows.h>

#include <string>

namespace SystemDialogs {

// An OK-only message box owned by `owner`, captioned with the host
// program's name as a framework application would be.
void ShowMessage(HWND owner, const std::string& utf8Text);

// The host program's name: its executable's base name.
std::wstring HostProgramName();

// The host executable's full path, UTF-8.
std::string HostExecutablePath();

}  // namespace SystemDialogs
