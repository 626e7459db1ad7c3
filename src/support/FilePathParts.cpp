#include "FilePathParts.h"

#include <cstring>

void FilePathParts::SetPath(const char* path) {
    fullPath_ = directory_ = fileName_ = baseName_ = extension_ = Part();
    if (path == nullptr) return;
    const std::string p(path);
    const long L = static_cast<long>(p.size());
    fullPath_ = {true, p};

    const std::string::size_type lastDot = p.rfind('.');
    const long dot = lastDot == std::string::npos ? L + 1 : static_cast<long>(lastDot);
    const std::string::size_type lastSep = p.find_last_of("/\\");
    const long sep = lastSep == std::string::npos ? -1 : static_cast<long>(lastSep);

    if (sep > 0) directory_ = {true, p.substr(0, sep)};
    if (L - 1 - sep > 0) fileName_ = {true, p.substr(sep + 1)};
    // Without a dot (dot = L + 1) the base name is the whole file name, which
    // may be empty: "C:/pics/" has a present but empty base name.
    if (dot - (sep + 1) > 0) {
        const long end = dot > L ? L : dot;
        baseName_ = {true, p.substr(sep + 1, end - (sep + 1))};
    }
    if (L - 1 - dot >= 1) extension_ = {true, p.substr(dot + 1)};
}

int FilePathParts::Get(const Part& part, char* buffer) {
    if (!part.present) return 0;
    std::memcpy(buffer, part.text.c_str(), part.text.size() + 1);
    return 1;
}

bool FilePathParts::Take(const Part& part, std::string* out) {
    if (!part.present) return false;
    *out = part.text;
    return true;
}
