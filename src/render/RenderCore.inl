// Templates of RenderCore.h.
#pragma once

#include <algorithm>
#include <atomic>
#include <new>
#include <system_error>
#include <thread>
#include <type_traits>

namespace vellrender {

template <class Body>
void ParallelFor(int threads, int count, Body&& body) {
    if (threads <= 1 || count <= 1) {
        for (int i = 0; i < count; ++i) body(i, 0);
        return;
    }
    // Units are taken in turn, so uneven rows (a disc's) still balance.
    std::atomic<int> next{0};
    auto run = [&](int worker) {
        for (int i = next++; i < count; i = next++) body(i, worker);
    };
    std::vector<std::thread> pool;
    try {
        for (int worker = 1; worker < threads; ++worker) pool.emplace_back(run, worker);
    } catch (const std::system_error&) {
        // Fewer threads than asked: the ones that started and this one share it all.
    }
    run(0);
    for (std::thread& t : pool) t.join();
}

const int kRowsPerUnit = 16;

inline int RowWorkers(const Part& part, int threads) {
    return ThreadCount(threads, (part.top - part.bottom + kRowsPerUnit - 1) / kRowsPerUnit);
}

template <class Shade>
int PaintRows(const Picture& picture, const Part& part, int threads, Shade&& shade) {
    const int rowsPerUnit = kRowsPerUnit;
    const int units = (part.top - part.bottom + rowsPerUnit - 1) / rowsPerUnit;
    threads = RowWorkers(part, threads);
    std::vector<std::vector<unsigned char>> buffers;
    try {
        buffers.assign(threads, std::vector<unsigned char>(3 * (part.right - part.left) + 8));
    } catch (const std::bad_alloc&) {
        return -2;
    }
    ParallelFor(threads, units, [&](int unit, int worker) {
        unsigned char* buffer = buffers[worker].data();
        const int y1 = std::min(part.top, part.bottom + (unit + 1) * rowsPerUnit);
        for (int y = part.bottom + unit * rowsPerUnit; y < y1; ++y) {
            // Only the row's covered span is shaded.
            const unsigned char* coverage = CoverageAt(part, 0, y);
            int x0 = part.left, x1 = part.right;
            while (x0 < x1 && coverage[x0] == 0) ++x0;
            while (x1 > x0 && coverage[x1 - 1] == 0) --x1;
            if (x0 == x1) continue;
            if constexpr (std::is_invocable_v<Shade, int, int, int, unsigned char*, int>) {
                shade(y, x0, x1, buffer, worker);
            } else {
                shade(y, x0, x1, buffer);
            }
            Composite(buffer, coverage + x0, PixelAt(picture, x0, y), x1 - x0);
        }
    });
    return 0;
}

}  // namespace vellrender
