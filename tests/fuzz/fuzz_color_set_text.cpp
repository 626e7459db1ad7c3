// libFuzzer target: the text of a registered color set, as the settings file holds it.
// Parsing either refuses it and leaves the working record alone, or yields a set that
// formats to a value the reader takes back whole and unchanged.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "params/ColorSetText.h"

namespace {

// The settings reader takes at most this many bytes of a value.
const std::size_t kReadLimit = 511;

bool SameSlotsFrom(int first, const ColorSetRecord& a, const ColorSetRecord& b) {
    return std::equal(a.colors + first, a.colors + ColorSetRecord::kMaxColors, b.colors + first);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // The working record carries earlier sets' colors into a short value;
    // start it from the input's first bytes.
    ColorSetRecord working;
    if (size > 0) std::memcpy(working.colors, data, std::min(size, sizeof working.colors));
    working.count = 5;
    const ColorSetRecord before = working;

    if (!ParseColorSet(std::string(reinterpret_cast<const char*>(data), size), &working)) {
        if (working.count != before.count || !SameSlotsFrom(0, working, before)) std::abort();
        return 0;
    }
    if (working.count < 1 || working.count > ColorSetRecord::kMaxColors) std::abort();
    // Slots beyond the count are carried, never written.
    if (!SameSlotsFrom(working.count, working, before)) std::abort();
    // It formats to a value the reader takes back whole and unchanged.
    const std::string text = FormatColorSet(working);
    ColorSetRecord back;
    if (text.size() > kReadLimit || !ParseColorSet(text, &back) || !(back == working) ||
        FormatColorSet(back) != text)
        std::abort();
    return 0;
}
