#include <gtest/gtest.h>

#include "params/ColorSetList.h"

namespace {

ColorSetRecord Set(int count, int seed) {
    ColorSetRecord r;
    r.count = count;
    for (int i = 0; i < ColorSetRecord::kMaxColors; ++i) {
        r.colors[i] = ColorRGB(static_cast<unsigned char>(seed), static_cast<unsigned char>(i),
                               static_cast<unsigned char>(seed >> 8));
    }
    return r;
}

TEST(ColorSetListTest, RecordsCompareOnlyTheColorsInUse) {
    ColorSetRecord a = Set(3, 1), b = Set(3, 1);
    b.colors[5] = ColorRGB(200, 200, 200);
    EXPECT_TRUE(a == b);
    b.colors[2].blue ^= 1;
    EXPECT_FALSE(a == b);
    EXPECT_FALSE(Set(3, 1) == Set(4, 1));
}

TEST(ColorSetListTest, InsertAfterTakesMinusOneToCountMinusOne) {
    ColorSetList list;
    list.insertAfter(0, Set(2, 1));  // nothing to insert after yet
    EXPECT_EQ(list.count(), 0);
    list.insertAfter(-1, Set(2, 1));
    list.insertAfter(0, Set(2, 3));   // appended
    list.insertAfter(-1, Set(2, 2));  // first
    list.insertAfter(5, Set(2, 9));   // out of range
    list.insertAfter(-2, Set(2, 9));
    ASSERT_EQ(list.count(), 3);
    EXPECT_EQ(list.item(0)->colors[0].red, 2);
    EXPECT_EQ(list.item(1)->colors[0].red, 1);
    EXPECT_EQ(list.item(2)->colors[0].red, 3);
    EXPECT_EQ(list.item(3), nullptr);
    EXPECT_EQ(list.item(-1), nullptr);

    list.remove(7);
    list.remove(-1);
    EXPECT_EQ(list.count(), 3);
    list.remove(1);
    ASSERT_EQ(list.count(), 2);
    EXPECT_EQ(list.item(1)->colors[0].red, 3);
    list.removeAll();
    EXPECT_EQ(list.count(), 0);
}

TEST(ColorSetListTest, RegisteringMovesAnEqualSetToTheFront) {
    ColorSetList list;
    EXPECT_TRUE(RegisterColorSet(list, Set(3, 1)));
    EXPECT_TRUE(RegisterColorSet(list, Set(3, 2)));
    EXPECT_TRUE(RegisterColorSet(list, Set(3, 1)));
    ASSERT_EQ(list.count(), 2);
    EXPECT_TRUE(*list.item(0) == Set(3, 1));
    EXPECT_TRUE(*list.item(1) == Set(3, 2));
}

TEST(ColorSetListTest, TheSixtyFifthSetIsRefused) {
    ColorSetList list;
    for (int i = 0; i < ColorSetList::max; ++i) ASSERT_TRUE(RegisterColorSet(list, Set(7, i)));
    EXPECT_FALSE(RegisterColorSet(list, Set(7, 1000)));
    // Refused even when it is already there: the limit is checked first.
    EXPECT_FALSE(RegisterColorSet(list, Set(7, 5)));
    EXPECT_EQ(list.count(), 64);
    EXPECT_TRUE(*list.item(0) == Set(7, 63));
}

}  // namespace
