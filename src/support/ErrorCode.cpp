#include "vellcolor/ErrorCode.h"

namespace {

// Indexed by code + 11.
const char* const kMessages[] = {
    "ﾃﾞｰﾀがありません。",
    "最大値を超えています。",
    "ﾊﾞｰｼﾞｮﾝの異なるﾌｧｲﾙです。",
    "未対応のﾃﾞｰﾀ形式です。",
    "ﾌｧｲﾙにﾃﾞｰﾀを書き込めませんでした。",
    "ﾌｧｲﾙからﾃﾞｰﾀを読み込めませんでした。",
    "ﾌｧｲﾙを開けませんでした。",
    "不適当なﾊﾟﾗﾒｰﾀｰです。",
    "配列の範囲外にｱｸｾｽしました。",
    "ﾒﾓﾘｰ不足です。",
    "何らかのｴﾗｰが起りました。",
};

}  // namespace

const char* ErrorMessageText(int code) {
    if (code < kErrorNoData || code > kErrorGeneral) return nullptr;
    return kMessages[code - kErrorNoData];
}
