#include <gtest/gtest.h>

#include "params/ColorSetText.h"

namespace {

TEST(ColorSetTextTest, WritesTheCountThenEveryChannel) {
    ColorSetRecord r;
    r.count = 3;
    r.colors[0] = ColorRGB(255, 0, 0);
    r.colors[1] = ColorRGB(0, 255, 0);
    r.colors[2] = ColorRGB(0, 0, 255);
    r.colors[3] = ColorRGB(9, 9, 9);
    EXPECT_EQ(FormatColorSet(r), "3 255 0 0 0 255 0 0 0 255");
    ColorSetRecord back;
    ASSERT_TRUE(ParseColorSet(FormatColorSet(r), &back));
    EXPECT_TRUE(back == r);
}

TEST(ColorSetTextTest, CutsCountsToSevenAndChannelsToEightBits) {
    ColorSetRecord r;
    ASSERT_TRUE(ParseColorSet(
        "9 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20 21 22 23 24 25 26 27", &r));
    EXPECT_EQ(r.count, 7);
    EXPECT_EQ(r.colors[6], ColorRGB(19, 20, 21));
    ASSERT_TRUE(ParseColorSet("2 300 -1 256   7 x 99999999999", &r));
    EXPECT_EQ(r.count, 2);
    EXPECT_EQ(r.colors[0], ColorRGB(44, 255, 0));
    EXPECT_EQ(r.colors[1], ColorRGB(7, 0, 255));  // "x" counts as 0; huge stops at the int limit
}

TEST(ColorSetTextTest, MissingTokensKeepTheWorkingRecordsEarlierValues) {
    ColorSetRecord r;
    ASSERT_TRUE(ParseColorSet("3 10 20 30 40 50 60 70 80 90", &r));
    ASSERT_TRUE(ParseColorSet("3 1 2 3 4", &r));
    EXPECT_EQ(r.count, 3);
    EXPECT_EQ(r.colors[0], ColorRGB(1, 2, 3));
    EXPECT_EQ(r.colors[1], ColorRGB(4, 50, 60));
    EXPECT_EQ(r.colors[2], ColorRGB(70, 80, 90));
}

TEST(ColorSetTextTest, NoUsableCountMeansNoSet) {
    ColorSetRecord r;
    r.count = 5;
    for (const char* bad : {"", "   ", "0 1 2 3", "-2 1 1 1", "abc", "\t"}) {
        EXPECT_FALSE(ParseColorSet(bad, &r)) << bad;
        EXPECT_EQ(r.count, 5);
    }
}

}  // namespace
