// What the Wine benchmarks share: a clock, a pump that drains the queue
// (paints included) and the median of a set of timings.
#pragma once

#include <windows.h>

#include <algorithm>
#include <vector>

inline double Seconds() {
    static LARGE_INTEGER frequency = {};
    if (frequency.QuadPart == 0) QueryPerformanceFrequency(&frequency);
    LARGE_INTEGER now;
    QueryPerformanceCounter(&now);
    return static_cast<double>(now.QuadPart) / frequency.QuadPart;
}

// Dispatches until nothing is left, paint messages included: PeekMessage
// hands those out only once nothing else is queued.
inline void PumpUntilIdle() {
    MSG msg;
    while (PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&msg);
        DispatchMessageW(&msg);
    }
}

inline double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    const std::size_t n = values.size();
    return n == 0 ? 0.0 : (n % 2 ? values[n / 2] : (values[n / 2 - 1] + values[n / 2]) / 2);
}
