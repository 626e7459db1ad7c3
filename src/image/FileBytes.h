// Whole-file reading for the bitmap loader.
#pragma once

#include <cstddef>
#include <cstdio>
#include <vector>

// Reads the file at the UTF-8 `path` (others may read it meanwhile, not
// write) and appends `zeroTail` zero bytes. Returns 0, -5 when the file
// cannot be opened, or -6 when its bytes cannot be read.
int ReadWholeFile(const char* path, std::size_t zeroTail, std::vector<unsigned char>* bytes);

// Opens the UTF-8 `path` for binary reading, denying others write access
// where the platform can; one implementation per platform.
std::FILE* OpenSharedForReading(const char* path);
