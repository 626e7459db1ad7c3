// Registered color sets: the list of at most 64, newest first, and the text
// each set has in the settings file.
#include <gtest/gtest.h>

#include "params/ColorSetList.h"
#include "params/ColorSetText.h"

namespace {

ColorSetRecord Set(int count, int seed) {
    ColorSetRecord r;
    r.count = count;
    for (int i = 0; i < ColorSetRecord::kMaxColors; ++i)
        r.colors[i] = ColorRGB(static_cast<unsigned char>(seed), static_cast<unsigned char>(i), 0);
    return r;
}

TEST(ColorSetTest, RecordsCompareOnlyTheColorsInUse) {
    ColorSetRecord a = Set(3, 1), b = Set(3, 1);
    b.colors[5] = ColorRGB(200, 200, 200);
    EXPECT_TRUE(a == b);
    b.colors[2].blue ^= 1;
    EXPECT_FALSE(a == b);
    EXPECT_FALSE(Set(3, 1) == Set(4, 1));
}

TEST(ColorSetTest, InsertAfterTakesMinusOneToCountMinusOne) {
    ColorSetList list;
    list.insertAfter(0, Set(2, 1));  // nothing to insert after yet
    list.insertAfter(-1, Set(2, 1));
    list.insertAfter(0, Set(2, 3));   // appended
    list.insertAfter(-1, Set(2, 2));  // first
    list.insertAfter(5, Set(2, 9));   // out of range
    list.insertAfter(-2, Set(2, 9));
    list.remove(7);
    list.remove(-1);
    ASSERT_EQ(list.count(), 3);
    const int order[] = {2, 1, 3};
    for (int i = 0; i < 3; ++i) EXPECT_EQ(list.item(i)->colors[0].red, order[i]);
    EXPECT_EQ(list.item(3), nullptr);
    EXPECT_EQ(list.item(-1), nullptr);
    list.remove(1);
    ASSERT_EQ(list.count(), 2);
    EXPECT_EQ(list.item(1)->colors[0].red, 3);
}

TEST(ColorSetTest, RegisteringMovesAnEqualSetToTheFrontAndStopsAtSixtyFour) {
    ColorSetList list;
    for (int i = 0; i < ColorSetList::max; ++i) ASSERT_TRUE(RegisterColorSet(list, Set(7, i)));
    ASSERT_FALSE(RegisterColorSet(list, Set(4, 1)));
    list.remove(0);
    EXPECT_TRUE(RegisterColorSet(list, Set(7, 5)));
    EXPECT_EQ(list.count(), 63);
    EXPECT_TRUE(*list.item(0) == Set(7, 5));
    EXPECT_TRUE(*list.item(1) == Set(7, 62));
    // At the limit even a set already there is refused: the limit comes first.
    ASSERT_TRUE(RegisterColorSet(list, Set(7, 99)));
    EXPECT_FALSE(RegisterColorSet(list, Set(7, 5)));
    EXPECT_TRUE(*list.item(0) == Set(7, 99));
}

TEST(ColorSetTest, TextIsTheCountThenEveryChannel) {
    ColorSetRecord r = Set(3, 255), back;
    EXPECT_EQ(FormatColorSet(r), "3 255 0 0 255 1 0 255 2 0");
    ASSERT_TRUE(ParseColorSet(FormatColorSet(r), &back));
    EXPECT_TRUE(back == r);
}

TEST(ColorSetTest, ParsingCutsCountsAndChannelsAndKeepsWhatIsMissing) {
    ColorSetRecord r;
    ASSERT_TRUE(ParseColorSet(
        "9 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20 21 22 23 24 25 26 27", &r));
    EXPECT_EQ(r.count, 7);
    EXPECT_EQ(r.colors[6], ColorRGB(19, 20, 21));
    // "x" counts as 0; a huge number stops at the int limit; channels keep 8 bits.
    ASSERT_TRUE(ParseColorSet("2 300 -1 256   7 x 99999999999", &r));
    EXPECT_EQ(r.count, 2);
    EXPECT_EQ(r.colors[0], ColorRGB(44, 255, 0));
    EXPECT_EQ(r.colors[1], ColorRGB(7, 0, 255));
    // Missing tokens keep the working record's earlier values.
    ASSERT_TRUE(ParseColorSet("3 1 2 3 4", &r));
    EXPECT_EQ(r.colors[1], ColorRGB(4, 0, 255));
    EXPECT_EQ(r.colors[2], ColorRGB(7, 8, 9));
    for (const char* bad : {"", "   ", "0 1 2 3", "-2 1 1 1", "abc", "\t"}) {
        EXPECT_FALSE(ParseColorSet(bad, &r)) << bad;
        EXPECT_EQ(r.count, 3);
    }
}

}  // namespace
