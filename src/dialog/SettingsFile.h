// "PXColor.ini" beside the host program: the window's place and visibility,
// and the registered color sets.
#pragma once

#include <string>

class SettingsFile {
  public:
    // The file in the host executable's directory (the current directory
    // when that cannot be told).
    SettingsFile();
    explicit SettingsFile(const std::wstring& path) : path_(path) {}

    const std::wstring& path() const { return path_; }

    int ReadInt(const wchar_t* section, const wchar_t* key, int fallback) const;
    // At most `capacity` - 1 bytes of the value; empty when missing.
    std::string ReadString(const wchar_t* section, const wchar_t* key, int capacity) const;
    void Write(const wchar_t* section, const wchar_t* key, const std::string& value) const;

    // Empties the file, then deletes "PXColor.ini" in the current directory,
    // with the short waits in between that the rewrite has always had.
    void EmptyAndDelete() const;

  private:
    std::wstring path_;
};
