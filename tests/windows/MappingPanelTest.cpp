// The mapping and image source panels in the real DLL: the picture taken
// from a file, the picture list or the clipboard, its preview, and the
// mapping a host reads back.
#include <windows.h>
#include <gtest/gtest.h>

#include <string>

#include "RemoteControlTest.h"

namespace {

const COLORREF kCorner = RGB(0, 0, 255), kBody = RGB(255, 0, 0), kGrey = RGB(128, 128, 128);

std::wstring BesideTest(const std::wstring& name) {
    const std::wstring settings = SettingsPath();
    return settings.substr(0, settings.find_last_of(L'\\') + 1) + name;
}

// Removes a folder of files (the demo host fills it again when it runs).
void RemoveFolder(const std::wstring& folder) {
    WIN32_FIND_DATAW found;
    HANDLE search = FindFirstFileW((folder + L"\\*").c_str(), &found);
    for (bool more = search != INVALID_HANDLE_VALUE; more; more = FindNextFileW(search, &found))
        DeleteFileW((folder + L"\\" + found.cFileName).c_str());
    if (search != INVALID_HANDLE_VALUE) FindClose(search);
    RemoveDirectoryW(folder.c_str());
}

class MappingPanelTest : public RemoteControlTest {
  protected:
    void SetUp() override {
        RemoteControlTest::SetUp();
        Click(remote, 1007);
        mapping = EffectPanelOf(remote, 1046);
        source = PanelOf(remote, 1027, 1040);
        ASSERT_TRUE(mapping != nullptr && source != nullptr);
        ASSERT_TRUE(IsWindowVisible(source));
    }
    // A 200 x 100 picture, blue in its top-left 10 x 10 corner, from the clipboard.
    void TakePicture() {
        ASSERT_TRUE(PutPictureOnClipboard(
            200, 100, [](int x, int y) { return x < 10 && y < 10 ? kCorner : kBody; }));
        SystemDialogWatcher none;
        Click(source, 1002);
        ASSERT_TRUE(none.seen().empty());
    }
    struct Mapping : KTMapping {
        float a = -1.0f, b = -1.0f;
        Mapping() { PXColor_GetMapping(*this, a, b); }
    };

    HWND mapping = nullptr;
    HWND source = nullptr;
};

TEST_F(MappingPanelTest, PictureFilesLoadByTheirExtensionsCase) {
    const struct {
        const wchar_t* name;
        int width;
        const wchar_t* message;  // null: loaded
    } cases[] = {{L"photo.bmp", 30, nullptr},
                 {L"photo.BMP", 31, nullptr},
                 {L"photo.Bmp", 0, L"未対応のﾃﾞｰﾀ形式です。"}};  // an empty picture stays
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const std::wstring path = BesideTest(c.name);
        WriteBytes(path, PictureFile(c.width > 0 ? c.width : 32, 20, kBody));
        {
            // Answers the file-open dialog (classic or Explorer style) with
            // the path, and a message box with OK.
            SystemDialogWatcher watcher([&](HWND box) {
                for (int id : {1152, 1148}) {
                    if (GetDlgItem(box, id) != nullptr) SetDlgItemTextW(box, id, path.c_str());
                }
                PressDialogButton(box, IDOK);
            });
            Click(source, 1003);
            ASSERT_EQ(watcher.seen().size(), c.message ? 2u : 1u);
            EXPECT_EQ(watcher.seen().back().text, c.message ? c.message : L"");
        }
        const Mapping m;
        ASSERT_NE(m.image, nullptr);
        EXPECT_EQ(m.image->GetWidth(), c.width);
        DeleteFileW(path.c_str());
    }
}

// The picture list opens on the Image folder beside the host program; the
// keyboard chooses a picture whose name needs the Japanese code page.
TEST_F(MappingPanelTest, PictureListChoosesFromTheImageFolder) {
    const std::wstring folder = BesideTest(L"Image"), picture = folder + L"\\写真.bmp";
    RemoveFolder(folder);
    CreateDirectoryW(folder.c_str(), nullptr);
    WriteBytes(picture, PictureFile(48, 24, kBody));
    const std::wstring before = BesideTest(L"");
    SetCurrentDirectoryW(before.c_str());
    {
        SystemDialogWatcher watcher([](HWND chooser) {
            SetForegroundWindow(chooser);
            keybd_event(VK_RETURN, 0, 0, 0);
            keybd_event(VK_RETURN, 0, KEYEVENTF_KEYUP, 0);
        });
        Click(source, 1001);
        ASSERT_EQ(watcher.seen().size(), 1u);
    }
    ASSERT_NE(Mapping().image, nullptr);
    EXPECT_EQ(Mapping().image->GetWidth(), 48);
    wchar_t now[MAX_PATH] = {};
    GetCurrentDirectoryW(MAX_PATH, now);
    EXPECT_EQ(std::wstring(now) + L"\\", before);
    RemoveFolder(folder);
}

TEST_F(MappingPanelTest, TheHostGetsAPictureWithTheValuesOrNothingAtAll) {
    // Without a picture the host's object and numbers are left alone.
    EXPECT_EQ(SendMessageW(remote, WM_APP + 1004, 0, 0), 0);
    KTMapping untouched;
    untouched.SetScale(7.0f);
    float a = 3.0f, b = 4.0f;
    PXColor_GetMapping(untouched, a, b);
    EXPECT_EQ(untouched.image, nullptr);
    EXPECT_EQ((std::vector<float>{untouched.scale, float(untouched.assigned), a, b}),
              (std::vector<float>{7, 0, 3, 4}));

    TakePicture();
    EXPECT_EQ(SendMessageW(remote, WM_APP + 1004, 0, 0), 1);
    const Mapping m;
    ASSERT_NE(m.image, nullptr);
    EXPECT_EQ(
        (std::vector<int>{m.image->GetWidth(), m.image->GetHeight(), m.image->GetBytesPerPixel()}),
        (std::vector<int>{200, 100, 3}));
    EXPECT_EQ((std::vector<float>{m.scale, m.angle, float(m.repeat), float(m.seamless),
                                  float(m.fitWhole), float(m.assigned), m.a, m.b}),
              (std::vector<float>{1, 0, 1, 0, 0, 1, 0, 0}));

    // An empty clipboard says so and keeps the picture.
    ASSERT_TRUE(OpenClipboard(nullptr));
    EmptyClipboard();
    CloseClipboard();
    {
        SystemDialogWatcher watcher;
        Click(source, 1002);
        ASSERT_EQ(watcher.seen().size(), 1u);
        EXPECT_EQ(watcher.seen()[0].text, L"ﾃﾞｰﾀがありません。");
    }
    EXPECT_EQ(Mapping().image->GetWidth(), 200);

    // The scale's up arrow, from the keyboard, steps by five; the space bar
    // updates without toggling the focused check box.
    TypeKeys(GetDlgItem(mapping, 1043), {VK_UP});
    SetDlgItemTextW(mapping, 1025, L"-400");
    Scroll(mapping, 1048, SB_THUMBTRACK, 32);
    Scroll(mapping, 1048, SB_PAGERIGHT);
    const Mapping changed;
    EXPECT_EQ((std::vector<float>{changed.scale, changed.angle, changed.a, changed.b}),
              (std::vector<float>{1.05f, -400, 1, 1}));
    SetDlgItemTextW(mapping, 1043, L"x");
    EXPECT_FLOAT_EQ(Mapping().scale, 0.0f);
    TypeKeys(GetDlgItem(mapping, 1046), {VK_SPACE});
    EXPECT_EQ(host.names(), std::vector<std::string>{"image_mapping"});
    EXPECT_EQ(IsDlgButtonChecked(mapping, 1046), BST_CHECKED);
}

TEST_F(MappingPanelTest, RepeatFitWholeAndScaleEnableEachOther) {
    const struct {
        int click;
        bool fitWhole, scale, seamless;
    } steps[] = {
        {0, false, true, true},      // repeat on
        {1046, true, true, false},   // repeat off
        {1045, true, false, false},  // fit whole on
        {1046, false, true, true},   // repeat on: scale back, fit whole kept but disabled
        {1046, true, false, false},
    };
    for (const auto& step : steps) {
        if (step.click != 0) Click(mapping, step.click);
        EXPECT_EQ((std::vector<bool>{Enabled(mapping, 1045), Enabled(mapping, 1043),
                                     Enabled(mapping, 1047)}),
                  (std::vector<bool>{step.fitWhole, step.scale, step.seamless}))
            << step.click;
    }
    EXPECT_EQ(IsDlgButtonChecked(mapping, 1045), BST_CHECKED);
    // Typing a scale clears fit whole and leaves the enabling as it is.
    SetDlgItemTextW(mapping, 1043, L"250");
    EXPECT_EQ(IsDlgButtonChecked(mapping, 1045), BST_UNCHECKED);
    EXPECT_FALSE(Enabled(mapping, 1043));
}

TEST_F(MappingPanelTest, PreviewFitsThePictureOrShowsItsCornerUnscaled) {
    HWND preview = GetDlgItem(source, 1040);
    RECT area;
    GetClientRect(preview, &area);
    EXPECT_EQ(ScreenPixel(preview, area.right / 2, area.bottom / 2), kGrey);
    TakePicture();
    // The preview is wider than twice its height: the picture takes the full
    // height, centred across, grey on both sides.
    ASSERT_GT(area.right, 2 * area.bottom);
    const int drawn = area.bottom * 2, left = (area.right - drawn) / 2, middle = area.bottom / 2;
    const struct {
        int x, y;
        COLORREF color;
    } fitted[] = {{0, 0, RGB(0, 0, 0)},
                  {left - 2, middle, kGrey},
                  {left + drawn / 2, middle, kBody},
                  {left + drawn + 1, middle, kGrey}},
      corner[] = {{5, 5, kCorner},
                  {12, 12, kBody},
                  {area.right - 2, area.bottom - 2, kBody},
                  {area.right - 1, area.bottom - 1, RGB(0, 0, 0)}};
    for (const auto& p : fitted) EXPECT_EQ(ScreenPixel(preview, p.x, p.y), p.color) << p.x;
    Click(source, 1041);  // "全体表示" off: the corner at natural size
    for (const auto& p : corner) EXPECT_EQ(ScreenPixel(preview, p.x, p.y), p.color) << p.x;
}

}  // namespace
