// "PXColor.ini" beside the host program: the window's place and visibility,
// and the registered color sets.
#pragma once

#include <string>
#include <vector>

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

    // A whole section taken from the file in one read, for reading many of
    // its keys: each read through the file opens and checks the file anew.
    class Section {
      public:
        // What the file's ReadString gives for `key` (an ASCII name).
        std::string ReadString(const wchar_t* key, int capacity) const;

      private:
        friend class SettingsFile;
        Section(const std::wstring& path, const wchar_t* name) : path_(path), name_(name) {}
        std::wstring path_;
        std::wstring name_;
        bool whole_ = false;  // false: too large to take at once; read key by key
        std::vector<std::wstring> entries_;  // "key=value", or a key alone
    };
    Section ReadSection(const wchar_t* section) const;

    // Empties the file, then deletes "PXColor.ini" in the current directory,
    // with the short waits in between that the rewrite has always had.
    void EmptyAndDelete() const;

  private:
    std::wstring path_;
};
