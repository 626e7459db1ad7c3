#include "PatternChoices.h"

#include <cwchar>

const wchar_t* const kPatternListItems[kPatternListCount] = {
    L"ｸﾞﾗﾃﾞｰｼｮﾝ", L"等値線", L"放射線",  L"等値線と放射線", L"ﾁｪｯｸ",       L"水玉",
    L"ぎざぎざ",   L"ゆらぎ", L"画像-ｾﾙ", L"画像-ﾀｲﾙ",       L"画像-万華鏡",
};

namespace {

struct NamedType {
    const wchar_t* name;
    int type;
};
// Compared in this order; the first equal text gives the code. The list's
// order, this order and the codes differ on purpose.
const NamedType kTypeNames[] = {
    {L"ｸﾞﾗﾃﾞｰｼｮﾝ", 1}, {L"ゆらぎ", 10},    {L"ぎざぎざ", 11},   {L"等値線", 2},
    {L"放射線", 3},     {L"等値線と放射線", 4}, {L"ﾁｪｯｸ", 5},      {L"水玉", 6},
    {L"四角形縞模様", 7}, {L"円形縞模様", 8},   {L"ﾚﾝｶﾞ", 9},      {L"髪の毛", 12},
    {L"画像-ｾﾙ", 13},   {L"画像-ﾀｲﾙ", 14},   {L"画像-万華鏡", 15},
};

const unsigned kBorder = kUsesSwapColors | kUsesBorderColor | kUsesBorderWidth | kUsesBlur;
const unsigned kShape = kUsesIsolineWidth | kUsesRadialLines | kUsesSwirl;

// A negative draw counts as 0, which makes 0 the likeliest position.
int BarDraw(RandomGenerator& random, int max, float lo, float hi) {
    double v = random.Uniform(lo, hi);
    if (v < 0) v = 0;
    return static_cast<int>(max * v);
}

}  // namespace

int PatternTypeOfName(const wchar_t* name) {
    for (const NamedType& n : kTypeNames) {
        if (std::wcscmp(n.name, name) == 0) return n.type;
    }
    return 0;
}

bool IsImagePattern(int type) {
    return type >= 13 && type <= 15;
}

unsigned PatternControlsUsed(int type) {
    switch (type) {
        case 1:
        case 10: return kUsesIsolineWidth;
        case 11:
        case 13: return kShape;
        case 2: return kUsesIsolineWidth | kBorder;
        case 3: return kUsesRadialLines | kUsesSwirl | kBorder;
        case 4:
        case 6: return kShape | kBorder;
        case 5: return kShape | kUsesSwapColors | kUsesBorderColor;
        case 7:
        case 8: return kShape | kUsesBorderColor | kUsesBorderWidth;
        case 9: return kShape | kUsesSwapColors;
        // The image size is deliberately left to the tiles and the
        // kaleidoscope: the cells do not use it.
        case 14:
        case 15: return kUsesSwirl | kUsesImageSize;
        default: return kShape | kBorder | kUsesImageSize;
    }
}

int DrawPatternItem(RandomGenerator& random, int itemCount, bool imageLoaded) {
    // Without a picture the image-based items at the end are left out.
    return random.UniformInt(0, itemCount - (imageLoaded ? 1 : 1 + kImagePatternCount));
}

RandomPatternValues DrawPatternValues(RandomGenerator& random, int type, int swirlMax,
                                      int borderWidthMax, int roughnessMax) {
    RandomPatternValues v;
    v.points = random.UniformInt(1, 10);
    v.isolineWidth = random.UniformInt(6, 30);
    v.radialLines = random.UniformInt(12, 60);
    v.swirl = BarDraw(random, swirlMax, -2.0f, 1.0f);
    v.swapColors = type != 1 && random.Uniform(-2.0f, 1.0f) > 0;
    v.borderWidth = static_cast<int>(borderWidthMax * random.Uniform(0.1f, 0.8f));
    v.blur = random.UniformInt(0, 3);
    v.roughness = BarDraw(random, roughnessMax, -1.5f, 0.5f);
    return v;
}
