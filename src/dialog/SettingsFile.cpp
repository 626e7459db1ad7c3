#include "SettingsFile.h"

#include <windows.h>

#include <cstdio>
#include <vector>

#include "framework/SystemDialogs.h"
#include "framework/WideText.h"
#include "params/FilePathParts.h"

namespace {

const char kFileName[] = "PXColor.ini";

std::wstring CurrentDirectory() {
    const DWORD n = GetCurrentDirectoryW(0, nullptr);
    if (n == 0) return L".";
    std::wstring dir(n, L'\0');
    const DWORD written = GetCurrentDirectoryW(n, &dir[0]);
    dir.resize(written);
    return dir;
}

}  // namespace

SettingsFile::SettingsFile() {
    std::string directory;
    if (FilePathParts(SystemDialogs::HostExecutablePath().c_str()).Directory(&directory)) {
        path_ = Widen(directory + "/" + kFileName);
    } else {
        // A bare name would send the profile functions to the Windows
        // directory; the current directory is the sensible place instead.
        path_ = CurrentDirectory() + L"/" + Widen(kFileName);
    }
}

int SettingsFile::ReadInt(const wchar_t* section, const wchar_t* key, int fallback) const {
    return static_cast<int>(GetPrivateProfileIntW(section, key, fallback, path_.c_str()));
}

std::string SettingsFile::ReadString(const wchar_t* section, const wchar_t* key,
                                     int capacity) const {
    std::vector<wchar_t> buffer(static_cast<std::size_t>(capacity), L'\0');
    const DWORD n = GetPrivateProfileStringW(section, key, L"", buffer.data(),
                                             static_cast<DWORD>(buffer.size()), path_.c_str());
    return NarrowToUtf8(std::wstring(buffer.data(), n));
}

void SettingsFile::Write(const wchar_t* section, const wchar_t* key,
                         const std::string& value) const {
    WritePrivateProfileStringW(section, key, Widen(value).c_str(), path_.c_str());
}

void SettingsFile::EmptyAndDelete() const {
    if (std::FILE* file = _wfopen(path_.c_str(), L"w")) {
        std::fclose(file);
        Sleep(50);
        // The bare name: this is the same file only when the current
        // directory is the host program's.
        DeleteFileW(Widen(kFileName).c_str());
    }
    Sleep(50);
}
