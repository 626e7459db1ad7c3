#include "FileBytes.h"

std::FILE* OpenSharedForReading(const char* path) {
    return std::fopen(path, "rb");
}
