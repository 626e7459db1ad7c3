#include "FileBytes.h"

#include "vellcolor/ErrorCode.h"

int ReadWholeFile(const char* path, std::size_t zeroTail, std::vector<unsigned char>* bytes) {
    std::FILE* file = OpenSharedForReading(path);
    if (file == nullptr) return kErrorFileOpen;
    int result = kErrorFileRead;
    if (std::fseek(file, 0, SEEK_END) == 0) {
        const long length = std::ftell(file);
        if (length >= 0 && std::fseek(file, 0, SEEK_SET) == 0) {
            bytes->assign(static_cast<std::size_t>(length) + zeroTail, 0);
            const std::size_t want = static_cast<std::size_t>(length);
            if (want == 0 || std::fread(bytes->data(), 1, want, file) == want) result = kOk;
        }
    }
    std::fclose(file);
    return result;
}
