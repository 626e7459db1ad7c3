#include <gtest/gtest.h>

#include "vellcolor/ErrorCode.h"

namespace {

TEST(ErrorCodeTest, KnownCodesHaveTheirTextAndOthersNone) {
    EXPECT_STREQ(ErrorMessageText(kErrorFileOpen), "ﾌｧｲﾙを開けませんでした。");
    EXPECT_STREQ(ErrorMessageText(kErrorGeneral), "何らかのｴﾗｰが起りました。");
    EXPECT_STREQ(ErrorMessageText(kErrorNoData), "ﾃﾞｰﾀがありません。");
    EXPECT_STREQ(ErrorMessageText(kErrorOutOfMemory), "ﾒﾓﾘｰ不足です。");
    for (int code : {0, 1, 3, -12, -1000}) EXPECT_EQ(ErrorMessageText(code), nullptr) << code;
}

}  // namespace
