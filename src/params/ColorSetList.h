// Registered color sets: up to 64 records, newest first.
#pragma once

#include <memory>
#include <vector>

#include "vellcolor/ColorRGB.h"

struct ColorSetRecord {
    static const int kMaxColors = 7;

    int count = 0;
    ColorRGB colors[kMaxColors];

    // Equal when the counts match and the first `count` colors match.
    bool operator==(const ColorSetRecord& other) const;
};

class ColorSetList {
  public:
    static const int max = 64;

    int count() const { return static_cast<int>(records_.size()); }
    // Null for an index outside the list.
    const ColorSetRecord* item(int index) const;
    // Inserts a copy after `index`: -1 puts it first, count() - 1 last; any
    // other index does nothing.
    void insertAfter(int index, const ColorSetRecord& record);
    void remove(int index);
    void removeAll() { records_.clear(); }

  private:
    std::vector<std::unique_ptr<ColorSetRecord>> records_;
};

// Moves an equal set to the front, or puts a new one there. Returns false,
// registering nothing, when the list already holds `ColorSetList::max` sets.
bool RegisterColorSet(ColorSetList& list, const ColorSetRecord& record);
