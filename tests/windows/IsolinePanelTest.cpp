// The isoline pattern panel in the real DLL: the type list, what each type
// enables, the lower frame it asks for, random settings, and what a host
// reads back.
#include <windows.h>
#include <gtest/gtest.h>

#include <set>

#include "RemoteControlTest.h"

namespace {

// Controls of each group a type may use, labels included.
const std::vector<int> kIsolineWidth = {1090, 1080, 1081}, kRadialLines = {1091, 1083, 1084},
                       kSwirl = {1092, 1085}, kSwap = {1087}, kBorderColor = {1094, 1001},
                       kBorderWidth = {1095, 1073}, kBlur = {1096, 1074, 1075, 1076, 1077},
                       kImageSize = {1099, 1097, 1098};

class IsolinePanelTest : public RemoteControlTest {
  protected:
    void SetUp() override {
        RemoteControlTest::SetUp();
        Click(remote, 1009);
        panel = EffectPanelOf(remote, 1088);
        source = PanelOf(remote, 1027, 1040);
        ASSERT_NE(panel, nullptr);
        ASSERT_NE(source, nullptr);
    }
    struct Pattern : KTEffectDensityPattern {
        Pattern() { PXColor_GetDensityPattern(*this); }
    };
    // As a click on a list item does it.
    void Choose(int item) const {
        SendDlgItemMessageW(panel, 1088, LB_SETCURSEL, item, 0);
        SendMessageW(panel, WM_COMMAND, MAKEWPARAM(1088, LBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(GetDlgItem(panel, 1088)));
        PumpMessages();
    }
    bool Enabled(int id) const { return IsWindowEnabled(GetDlgItem(panel, id)) != 0; }
    bool ShowsPictures() const {
        return IsWindowVisible(source) && !IsWindowVisible(ColorSetPanelOf(remote));
    }
    void TakePicture() {
        Choose(8);
        ASSERT_TRUE(PutPictureOnClipboard(20, 10, [](int, int) { return RGB(0, 128, 255); }));
        Click(source, 1002);
    }

    HWND panel = nullptr;
    HWND source = nullptr;
};

TEST_F(IsolinePanelTest, AFreshOpenDeliversTheStartingValues) {
    const Pattern p;
    EXPECT_EQ((std::vector<float>{float(p.patternType), float(p.referencePoints), p.isolineWidth,
                                  float(p.radialLines), p.imageSize, p.borderWidth,
                                  float(p.blurDirection), p.roughness, p.swirl,
                                  float(p.removeJaggies), float(p.invertColors),
                                  float(p.colorCount)}),
              (std::vector<float>{1, 2, 12, 30, 50, 0.15f, 0, 0, 0, 1, 0, 2}));
    EXPECT_EQ(p.borderColor.ToRGB(), ColorRGB(0, 0, 0));
    EXPECT_EQ(p.image, nullptr);
    EXPECT_FALSE(ShowsPictures());
}

// The code comes from the item's text: list order, codes and the order the
// names are compared in all differ.
TEST_F(IsolinePanelTest, EachTypeGivesItsCodeEnablesWhatItUsesAndPicksTheLowerFrame) {
    const struct {
        int item, code;
        std::vector<std::vector<int>> used;
    } cases[] = {
        {0, 1, {kIsolineWidth}},
        {1, 2, {kIsolineWidth, kSwap, kBorderColor, kBorderWidth, kBlur}},
        {2, 3, {kRadialLines, kSwirl, kSwap, kBorderColor, kBorderWidth, kBlur}},
        {3, 4, {kIsolineWidth, kRadialLines, kSwirl, kSwap, kBorderColor, kBorderWidth, kBlur}},
        {4, 5, {kIsolineWidth, kRadialLines, kSwirl, kSwap, kBorderColor}},
        {5, 6, {kIsolineWidth, kRadialLines, kSwirl, kSwap, kBorderColor, kBorderWidth, kBlur}},
        {6, 11, {kIsolineWidth, kRadialLines, kSwirl}},
        {7, 10, {kIsolineWidth}},
        {8, 13, {kIsolineWidth, kRadialLines, kSwirl}},  // the cells have no image size
        {9, 14, {kSwirl, kImageSize}},
        {10, 15, {kSwirl, kImageSize}},
    };
    const std::vector<int>* groups[] = {&kIsolineWidth, &kRadialLines, &kSwirl,
                                        &kSwap,         &kBorderColor, &kBorderWidth,
                                        &kBlur,         &kImageSize};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.item);
        Choose(c.item);
        EXPECT_EQ(Pattern().patternType, c.code);
        for (const std::vector<int>* group : groups) {
            bool used = false;
            for (const auto& u : c.used) used = used || u == *group;
            for (int id : *group) EXPECT_EQ(Enabled(id), used) << id;
        }
        for (int always : {1078, 1079, 1082, 1086, 1089}) EXPECT_TRUE(Enabled(always));
        EXPECT_EQ(ShowsPictures(), c.code >= 13);
    }
    // Leaving the effect and coming back keeps the pictures for an image type.
    Click(remote, 1003);
    EXPECT_FALSE(ShowsPictures());
    Click(remote, 1009);
    EXPECT_TRUE(ShowsPictures());
}

// The setters' limits are the parameter objects' own; which control feeds
// which field shows in the starting values.
TEST_F(IsolinePanelTest, BlurRadiosAndBorderColor) {
    Choose(1);
    // The blur radios in the order they stand: none, both, inside, outside.
    const int blur[] = {0, 3, 1, 2};
    for (int i = 0; i < 4; ++i) {
        Click(panel, 1074 + i);
        EXPECT_EQ(Pattern().blurDirection, blur[i]);
    }

    SystemDialogWatcher chooser(TypeColorIntoChooser(10, 20, 30));
    Click(panel, 1001);
    EXPECT_EQ(Pattern().borderColor.ToRGB(), ColorRGB(10, 20, 30));
}

// Every collection with random settings on draws new values into the
// controls; without a picture the image-based types never come up.
TEST_F(IsolinePanelTest, RandomSettingsStayInRangeAndLeaveTheLowerFrameAlone) {
    Click(panel, 1089);
    std::set<int> types, swapped;
    for (int i = 0; i < 200; ++i) {
        const Pattern p;
        SCOPED_TRACE(p.patternType);
        types.insert(p.patternType);
        EXPECT_FALSE(p.patternType >= 13 && p.patternType <= 15);
        const float ranges[][3] = {{float(p.referencePoints), 1, 10}, {p.isolineWidth, 6, 30},
                                   {float(p.radialLines), 12, 60},    {p.swirl, 0, 1},
                                   {p.roughness, 0, 0.5f},            {p.borderWidth, 0.1f, 0.8f},
                                   {float(p.blurDirection), 0, 3}};
        for (const auto& r : ranges) EXPECT_TRUE(r[0] >= r[1] && r[0] <= r[2]) << r[0];
        if (p.patternType == 1) EXPECT_EQ(p.invertColors, 0);
        else swapped.insert(p.invertColors);
        // The drawn values stay in the controls.
        EXPECT_EQ(static_cast<int>(GetDlgItemInt(panel, 1078, nullptr, TRUE)), p.referencePoints);
        EXPECT_EQ(p.image, nullptr);
    }
    EXPECT_EQ(types.size(), 8u);
    EXPECT_EQ(swapped.size(), 2u);
    EXPECT_FALSE(ShowsPictures());

    // With a picture the image-based types come up too, and only they take it.
    Click(panel, 1089);
    TakePicture();
    Choose(0);
    Click(panel, 1089);
    bool sawImageType = false;
    for (int i = 0; i < 200 && !sawImageType; ++i) {
        const Pattern p;
        sawImageType = p.patternType >= 13;
        EXPECT_EQ(p.image != nullptr, sawImageType);
    }
    EXPECT_TRUE(sawImageType);
    EXPECT_FALSE(ShowsPictures());
}

// Real keys: the list follows the arrows and switches the lower frame, and
// the space bar is the focused control's here; from the main dialog's own
// controls it still means update.
TEST_F(IsolinePanelTest, TheKeyboardChoosesTypesAndSpaceIsNotForwarded) {
    TakePicture();
    Choose(0);
    TypeKeys(GetDlgItem(panel, 1088), {VK_END, VK_SPACE});
    EXPECT_EQ(Pattern().patternType, 15);
    EXPECT_TRUE(ShowsPictures());
    TypeKeys(GetDlgItem(panel, 1086), {VK_SPACE});
    EXPECT_EQ(Pattern().removeJaggies, 0);
    EXPECT_TRUE(host.received().empty());

    const Pattern picture;
    ASSERT_NE(picture.image, nullptr);
    EXPECT_EQ(picture.image->GetWidth(), 20);

    TypeKeys(GetDlgItem(panel, 1088), {VK_HOME});
    EXPECT_FALSE(ShowsPictures());
    TypeKeys(GetDlgItem(remote, 1009), {VK_SPACE});
    ASSERT_EQ(host.received().size(), 1u);
    EXPECT_EQ(host.received()[0].name, "density_pattern");
}

}  // namespace
