#include "ColorSetList.h"

bool ColorSetRecord::operator==(const ColorSetRecord& other) const {
    if (count != other.count) return false;
    for (int i = 0; i < count && i < kMaxColors; ++i) {
        if (colors[i] != other.colors[i]) return false;
    }
    return true;
}

const ColorSetRecord* ColorSetList::item(int index) const {
    if (index < 0 || index >= count()) return nullptr;
    return records_[index].get();
}

void ColorSetList::insertAfter(int index, const ColorSetRecord& record) {
    if (index < -1 || index >= count()) return;
    if (records_.size() == records_.capacity()) records_.reserve(records_.size() + 10);
    records_.insert(records_.begin() + (index + 1), std::make_unique<ColorSetRecord>(record));
}

void ColorSetList::remove(int index) {
    if (index < 0 || index >= count()) return;
    records_.erase(records_.begin() + index);
}

bool RegisterColorSet(ColorSetList& list, const ColorSetRecord& record) {
    if (list.count() >= ColorSetList::max) return false;
    for (int i = 0; i < list.count(); ++i) {
        if (*list.item(i) == record) {
            list.remove(i);
            break;
        }
    }
    list.insertAfter(-1, record);
    return true;
}
