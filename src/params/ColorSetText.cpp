#include "ColorSetText.h"

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <sstream>
#include <vector>

namespace {

// Blank-separated tokens; runs of blanks count as one.
std::vector<std::string> Tokens(const std::string& value) {
    std::vector<std::string> tokens;
    std::string::size_type start = 0;
    while (start < value.size()) {
        const std::string::size_type end = value.find(' ', start);
        const std::string::size_type stop = end == std::string::npos ? value.size() : end;
        if (stop > start) tokens.push_back(value.substr(start, stop - start));
        start = stop + 1;
    }
    return tokens;
}

// A decimal number as atoi reads it (leading blanks, sign, digits, then
// anything), held within the int range instead of overflowing.
int ToInt(const std::string& token) {
    errno = 0;
    const long long v = std::strtoll(token.c_str(), nullptr, 10);
    if (v > INT_MAX) return INT_MAX;
    if (v < INT_MIN) return INT_MIN;
    return static_cast<int>(v);
}

unsigned char Low8Bits(int v) {
    return static_cast<unsigned char>(static_cast<unsigned int>(v) & 0xFF);
}

}  // namespace

std::string FormatColorSet(const ColorSetRecord& record) {
    const int count =
        record.count > ColorSetRecord::kMaxColors ? ColorSetRecord::kMaxColors : record.count;
    std::ostringstream out;
    out << count;
    for (int i = 0; i < count; ++i) {
        const ColorRGB& c = record.colors[i];
        out << ' ' << int(c.red) << ' ' << int(c.green) << ' ' << int(c.blue);
    }
    return out.str();
}

bool ParseColorSet(const std::string& value, ColorSetRecord* working) {
    const std::vector<std::string> tokens = Tokens(value);
    if (tokens.empty()) return false;
    int count = ToInt(tokens[0]);
    if (count > ColorSetRecord::kMaxColors) count = ColorSetRecord::kMaxColors;
    if (count <= 0) return false;
    std::size_t next = 1;
    for (int i = 0; i < count; ++i) {
        unsigned char* channels[3] = {&working->colors[i].red, &working->colors[i].green,
                                      &working->colors[i].blue};
        for (unsigned char* channel : channels) {
            if (next < tokens.size()) *channel = Low8Bits(ToInt(tokens[next++]));
        }
    }
    working->count = count;
    return true;
}
