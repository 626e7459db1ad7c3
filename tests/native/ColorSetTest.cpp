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

TEST(ColorSetTest, RegisteringMovesAnEqualSetToTheFrontAndStopsAtSixtyFour) {
    ColorSetList list;
    ColorSetRecord again = Set(3, 1), other = Set(3, 1);
    ASSERT_TRUE(RegisterColorSet(list, again));
    // Equal means equal in the colors in use.
    again.colors[5] = other.colors[2] = ColorRGB(9, 9, 9);
    ASSERT_TRUE(RegisterColorSet(list, other));
    ASSERT_TRUE(RegisterColorSet(list, again));
    ASSERT_EQ(list.count(), 2);
    EXPECT_TRUE(*list.item(0) == again && *list.item(1) == other);
    for (int i = 2; i < ColorSetList::max; ++i) ASSERT_TRUE(RegisterColorSet(list, Set(7, i)));
    EXPECT_FALSE(RegisterColorSet(list, Set(4, 1)));
    // At the limit even a set already there is refused: the limit comes first.
    EXPECT_FALSE(RegisterColorSet(list, again));
    EXPECT_EQ(list.count(), 64);
    EXPECT_TRUE(*list.item(0) == Set(7, 63));
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
