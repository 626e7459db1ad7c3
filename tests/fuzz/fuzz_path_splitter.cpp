// libFuzzer target: the path splitter over arbitrary byte strings.
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "support/FilePathParts.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string path(reinterpret_cast<const char*>(data), size);
    const FilePathParts parts(path.c_str());
    // Every part fits in a buffer as long as the path.
    std::vector<char> buffer(std::strlen(path.c_str()) + 1);
    parts.GetFullPath(buffer.data());
    parts.GetDirectory(buffer.data());
    parts.GetFileName(buffer.data());
    parts.GetBaseName(buffer.data());
    parts.GetExtension(buffer.data());
    return 0;
}
