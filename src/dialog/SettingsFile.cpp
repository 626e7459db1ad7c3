#include "SettingsFile.h"

#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cwchar>
#include <vector>

#include "framework/SystemDialogs.h"
#include "framework/WideText.h"
#include "support/FilePathParts.h"

namespace {

const char kFileName[] = "PXColor.ini";
// Sections up to this many characters are taken whole; larger ones are read
// key by key.
const DWORD kMaxSectionChars = 1 << 24;

std::wstring CurrentDirectory() {
    const DWORD n = GetCurrentDirectoryW(0, nullptr);
    if (n == 0) return L".";
    std::wstring dir(n, L'\0');
    const DWORD written = GetCurrentDirectoryW(n, &dir[0]);
    dir.resize(written);
    return dir;
}

// The profile functions match key names without regard to case.
bool SameKey(const wchar_t* name, std::size_t length, const wchar_t* key) {
    if (length != std::wcslen(key)) return false;
    for (std::size_t i = 0; i < length; ++i) {
        const wchar_t a = name[i] >= L'A' && name[i] <= L'Z' ? name[i] + 32 : name[i];
        const wchar_t b = key[i] >= L'A' && key[i] <= L'Z' ? key[i] + 32 : key[i];
        if (a != b) return false;
    }
    return true;
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

SettingsFile::Section SettingsFile::ReadSection(const wchar_t* section) const {
    Section result(path_, section);
    // The answer is the buffer's size less two when the section did not fit.
    for (DWORD size = 1 << 15; size <= kMaxSectionChars && !result.whole_; size *= 2) {
        std::vector<wchar_t> buffer(size, L'\0');
        if (GetPrivateProfileSectionW(section, buffer.data(), size, path_.c_str()) >= size - 2)
            continue;
        for (const wchar_t* entry = buffer.data(); *entry != L'\0'; entry += std::wcslen(entry) + 1)
            result.entries_.push_back(entry);
        result.whole_ = true;
    }
    return result;
}

std::string SettingsFile::Section::ReadString(const wchar_t* key, int capacity) const {
    const SettingsFile file(path_);
    if (!whole_) return file.ReadString(name_.c_str(), key, capacity);
    // The first entry of that name counts, as in the file's own reads.
    for (const std::wstring& entry : entries_) {
        const std::size_t equals = entry.find(L'=');
        if (!SameKey(entry.c_str(), std::min(equals, entry.size()), key)) continue;
        if (equals == std::wstring::npos) return std::string();
        const std::wstring value = entry.substr(equals + 1);
        // Quotes are taken off, and a long value cut, by the file's own read.
        const bool quoted = !value.empty() && (value[0] == L'"' || value[0] == L'\'');
        if (quoted || value.size() >= static_cast<std::size_t>(capacity))
            return file.ReadString(name_.c_str(), key, capacity);
        return NarrowToUtf8(value);
    }
    return std::string();
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
