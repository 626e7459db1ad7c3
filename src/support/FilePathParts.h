// A path split once into directory, file name, base name and extension. The
// split works on single bytes and takes the last "." wherever it stands.
#pragma once

#include <string>

class FilePathParts {
  public:
    FilePathParts() = default;
    explicit FilePathParts(const char* path) { SetPath(path); }

    void SetPath(const char* path);

    // Each copies its part into `buffer` and returns 1, or leaves the buffer
    // alone and returns 0 when the part is absent. The buffer must be large
    // enough for the part.
    int GetFullPath(char* buffer) const { return Get(fullPath_, buffer); }
    int GetDirectory(char* buffer) const { return Get(directory_, buffer); }
    int GetFileName(char* buffer) const { return Get(fileName_, buffer); }
    int GetBaseName(char* buffer) const { return Get(baseName_, buffer); }
    int GetExtension(char* buffer) const { return Get(extension_, buffer); }

    // The same parts as strings; false when absent.
    bool Directory(std::string* out) const { return Take(directory_, out); }
    bool FileName(std::string* out) const { return Take(fileName_, out); }
    bool BaseName(std::string* out) const { return Take(baseName_, out); }
    bool Extension(std::string* out) const { return Take(extension_, out); }

  private:
    struct Part {
        bool present = false;
        std::string text;
    };
    static int Get(const Part& part, char* buffer);
    static bool Take(const Part& part, std::string* out);

    Part fullPath_, directory_, fileName_, baseName_, extension_;
};
