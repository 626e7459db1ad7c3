// The malloc'd color arrays that parameter objects own. They come from the
// C runtime heap so a host sharing that runtime may free them.
#pragma once

#include <cstdlib>
#include <new>

#include "vellcolor/ErrorCode.h"

// Allocates `count` elements and copies them from `source`; -2 (with *out
// null) when the array cannot be had. A count of 0 gives no array.
template <typename T>
int CopyColors(int count, const T* source, T** out) {
    *out = nullptr;
    if (count < 0) return kErrorOutOfMemory;
    if (count == 0) return kOk;
    if (static_cast<unsigned long long>(count) * sizeof(T) > 0x7FFFFFFFull) {
        return kErrorOutOfMemory;
    }
    T* array = static_cast<T*>(std::malloc(static_cast<std::size_t>(count) * sizeof(T)));
    if (array == nullptr) return kErrorOutOfMemory;
    for (int i = 0; i < count; ++i) new (&array[i]) T(source[i]);
    *out = array;
    return kOk;
}

template <typename T>
void FreeColors(T** array) {
    std::free(*array);
    *array = nullptr;
}
