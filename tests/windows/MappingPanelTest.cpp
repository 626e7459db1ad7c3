// The mapping and image source panels in the real DLL: the picture taken
// from the clipboard, its preview, and the mapping a host reads back.
#include <windows.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "BmpWriter.h"
#include "RemoteControlTest.h"

namespace {

const COLORREF kCorner = RGB(0, 0, 255), kBody = RGB(255, 0, 0);

class MappingPanelTest : public RemoteControlTest {
  protected:
    void SetUp() override {
        RemoteControlTest::SetUp();
        Click(remote, 1007);
        mapping = EffectPanelOf(remote, 1046);
        source = PanelOf(remote, 1027, 1040);
        ASSERT_NE(mapping, nullptr);
        ASSERT_NE(source, nullptr);
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
    bool Enabled(int id) const { return IsWindowEnabled(GetDlgItem(mapping, id)) != 0; }
    COLORREF PreviewAt(int x, int y) const {
        HWND preview = GetDlgItem(source, 1040);
        UpdateWindow(source);
        HDC dc = GetDC(preview);
        const COLORREF c = GetPixel(dc, x, y);
        ReleaseDC(preview, dc);
        return c;
    }

    struct Mapping : KTMapping {
        float a = -1.0f, b = -1.0f;
        Mapping() { PXColor_GetMapping(*this, a, b); }
    };

    HWND mapping = nullptr;
    HWND source = nullptr;
};

std::wstring BesideTest(const std::wstring& name) {
    wchar_t exe[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, exe, MAX_PATH);
    const std::wstring path(exe);
    return path.substr(0, path.find_last_of(L"\\/") + 1) + name;
}

// Removes a folder of files (the demo host fills it again when it runs).
void RemoveFolder(const std::wstring& folder) {
    WIN32_FIND_DATAW found;
    HANDLE search = FindFirstFileW((folder + L"\\*").c_str(), &found);
    while (search != INVALID_HANDLE_VALUE) {
        DeleteFileW((folder + L"\\" + found.cFileName).c_str());
        if (!FindNextFileW(search, &found)) break;
    }
    if (search != INVALID_HANDLE_VALUE) FindClose(search);
    RemoveDirectoryW(folder.c_str());
}

// A red w x h 24-bit picture file.
void WritePicture(const std::wstring& path, int w, int h) {
    BmpLayout layout;
    layout.width = w;
    layout.height = h;
    layout.pixel = [](int, int, int byte) { return byte == 2 ? 255 : 0; };
    const std::vector<std::uint8_t> bytes = MakeBmp(layout);
    FILE* f = _wfopen(path.c_str(), L"wb");
    ASSERT_NE(f, nullptr);
    std::fwrite(bytes.data(), 1, bytes.size(), f);
    std::fclose(f);
}

// Answers the file-open dialog with `path` and any message box with OK,
// recording the message boxes' texts.
struct FileDialogAnswer {
    explicit FileDialogAnswer(const std::wstring& path)
        : watcher([this, path](HWND box) {
              // The file name box of the classic and of the Explorer-style dialog.
              for (int id : {1152, 1148}) {
                  if (GetDlgItem(box, id) != nullptr) {
                      SetDlgItemTextW(box, id, path.c_str());
                      PressDialogButton(box, IDOK);
                      return;
                  }
              }
              wchar_t text[256] = {};
              GetDlgItemTextW(box, 0xFFFF, text, 256);
              messages.push_back(text);
              PressDialogButton(box, IDOK);
          }) {}
    std::vector<std::wstring> messages;
    SystemDialogWatcher watcher;
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
        WritePicture(path, c.width > 0 ? c.width : 32, 20);
        {
            FileDialogAnswer answer(path);
            Click(source, 1003);
            ASSERT_EQ(answer.messages.size(), c.message == nullptr ? 0u : 1u);
            if (c.message != nullptr) EXPECT_EQ(answer.messages[0], c.message);
        }
        const Mapping m;
        ASSERT_NE(m.image, nullptr);
        EXPECT_EQ(m.image->GetWidth(), c.width);
        DeleteFileW(path.c_str());
    }
}

TEST_F(MappingPanelTest, ClipboardWithoutAPictureKeepsThePreviousOne) {
    TakePicture();
    ASSERT_TRUE(OpenClipboard(nullptr));
    EmptyClipboard();
    CloseClipboard();
    SystemDialogWatcher watcher;
    Click(source, 1002);
    ASSERT_EQ(watcher.seen().size(), 1u);
    EXPECT_EQ(watcher.seen()[0].text, L"ﾃﾞｰﾀがありません。");
    EXPECT_EQ(Mapping().image->GetWidth(), 200);
}

// The picture list opens on the Image folder beside the host program; the
// keyboard chooses a picture whose name needs the Japanese code page.
TEST_F(MappingPanelTest, PictureListChoosesFromTheImageFolder) {
    const std::wstring folder = BesideTest(L"Image");
    const std::wstring picture = folder + L"\\写真.bmp";
    RemoveFolder(folder);
    CreateDirectoryW(folder.c_str(), nullptr);
    WritePicture(picture, 48, 24);
    const std::wstring before = BesideTest(L"");
    SetCurrentDirectoryW(before.c_str());
    {
        SystemDialogWatcher watcher([](HWND chooser) {
            SetForegroundWindow(chooser);
            INPUT keys[2] = {};
            keys[0].type = keys[1].type = INPUT_KEYBOARD;
            keys[0].ki.wVk = keys[1].ki.wVk = VK_RETURN;
            keys[1].ki.dwFlags = KEYEVENTF_KEYUP;
            SendInput(2, keys, sizeof(INPUT));
        });
        Click(source, 1001);
        ASSERT_EQ(watcher.seen().size(), 1u);
    }
    const Mapping m;
    ASSERT_NE(m.image, nullptr);
    EXPECT_EQ(m.image->GetWidth(), 48);
    wchar_t now[MAX_PATH] = {};
    GetCurrentDirectoryW(MAX_PATH, now);
    EXPECT_EQ(std::wstring(now) + L"\\", before);
    RemoveFolder(folder);
}

TEST_F(MappingPanelTest, WithoutAPictureTheHostsObjectIsLeftAlone) {
    EXPECT_EQ(SendMessageW(remote, WM_APP + 1004, 0, 0), 0);
    KTMapping m;
    m.SetScale(7.0f);
    float a = 3.0f, b = 4.0f;
    PXColor_GetMapping(m, a, b);
    EXPECT_EQ(m.image, nullptr);
    EXPECT_FLOAT_EQ(m.scale, 7.0f);
    EXPECT_EQ(m.assigned, 0);
    EXPECT_FLOAT_EQ(a, 3.0f);
    EXPECT_FLOAT_EQ(b, 4.0f);
}

TEST_F(MappingPanelTest, APictureComesWithTheStartingValues) {
    TakePicture();
    EXPECT_EQ(SendMessageW(remote, WM_APP + 1004, 0, 0), 1);
    const Mapping m;
    ASSERT_NE(m.image, nullptr);
    EXPECT_EQ(m.image->GetWidth(), 200);
    EXPECT_EQ(m.image->GetHeight(), 100);
    EXPECT_EQ(m.image->GetBytesPerPixel(), 3);
    EXPECT_FLOAT_EQ(m.scale, 1.0f);
    EXPECT_FLOAT_EQ(m.angle, 0.0f);
    EXPECT_EQ(m.repeat, 1);
    EXPECT_EQ(m.seamless, 0);
    EXPECT_EQ(m.fitWhole, 0);
    EXPECT_EQ(m.assigned, 1);
    EXPECT_FLOAT_EQ(m.a, 0.0f);
    EXPECT_FLOAT_EQ(m.b, 0.0f);
}

TEST_F(MappingPanelTest, RepeatFitWholeAndScaleEnableEachOther) {
    EXPECT_FALSE(Enabled(1045));
    Click(mapping, 1046);  // repeat off
    EXPECT_TRUE(Enabled(1045));
    EXPECT_FALSE(Enabled(1047));
    Click(mapping, 1045);  // fit whole on
    EXPECT_FALSE(Enabled(1043));
    EXPECT_FALSE(Enabled(1044));
    Click(mapping, 1046);  // repeat on: scale back, fit whole kept but disabled
    EXPECT_TRUE(Enabled(1043));
    EXPECT_FALSE(Enabled(1045));
    EXPECT_EQ(IsDlgButtonChecked(mapping, 1045), BST_CHECKED);
    Click(mapping, 1046);
    EXPECT_FALSE(Enabled(1043));

    // Typing a scale clears fit whole and leaves the enabling as it is.
    SetDlgItemTextW(mapping, 1043, L"250");
    EXPECT_EQ(IsDlgButtonChecked(mapping, 1045), BST_UNCHECKED);
    EXPECT_FALSE(Enabled(1043));
}

TEST_F(MappingPanelTest, ScaleAngleAndStretchReachTheHost) {
    TakePicture();
    // The scale's up arrow, from the keyboard, steps by five.
    TypeKeys(GetDlgItem(mapping, 1043), {VK_UP});
    SetDlgItemTextW(mapping, 1025, L"-400");
    SendMessageW(mapping, WM_HSCROLL, MAKEWPARAM(SB_THUMBTRACK, 32),
                 reinterpret_cast<LPARAM>(GetDlgItem(mapping, 1048)));
    SendMessageW(mapping, WM_HSCROLL, SB_PAGERIGHT,
                 reinterpret_cast<LPARAM>(GetDlgItem(mapping, 1048)));
    const Mapping m;
    EXPECT_FLOAT_EQ(m.scale, 1.05f);
    EXPECT_FLOAT_EQ(m.angle, -400.0f);
    EXPECT_FLOAT_EQ(m.a, 1.0f);
    EXPECT_FLOAT_EQ(m.b, 1.0f);

    SetDlgItemTextW(mapping, 1043, L"x");
    EXPECT_FLOAT_EQ(Mapping().scale, 0.0f);

    host.Clear();
    TypeKeys(GetDlgItem(mapping, 1046), {VK_SPACE});
    ASSERT_EQ(host.received().size(), 1u);
    EXPECT_EQ(host.received()[0].name, "image_mapping");
    EXPECT_EQ(IsDlgButtonChecked(mapping, 1046), BST_CHECKED);  // the space did not toggle it
}

TEST_F(MappingPanelTest, PreviewFitsThePictureOrShowsItsCornerUnscaled) {
    RECT area;
    GetClientRect(GetDlgItem(source, 1040), &area);
    EXPECT_EQ(PreviewAt(area.right / 2, area.bottom / 2), RGB(128, 128, 128));
    TakePicture();
    // The preview is wider than twice its height: the picture takes the full
    // height, centred across, grey on both sides.
    ASSERT_GT(area.right, 2 * area.bottom);
    const int drawnWidth = static_cast<int>(area.bottom / 0.5f);
    const int left = (area.right - drawnWidth) / 2;
    EXPECT_EQ(PreviewAt(0, 0), RGB(0, 0, 0));
    EXPECT_EQ(PreviewAt(left - 2, area.bottom / 2), RGB(128, 128, 128));
    EXPECT_EQ(PreviewAt(left + drawnWidth / 2, area.bottom / 2), kBody);
    EXPECT_EQ(PreviewAt(left + drawnWidth + 1, area.bottom / 2), RGB(128, 128, 128));

    Click(source, 1041);  // "全体表示" off: the corner at natural size
    EXPECT_EQ(PreviewAt(5, 5), kCorner);
    EXPECT_EQ(PreviewAt(12, 12), kBody);
    EXPECT_EQ(PreviewAt(area.right - 2, area.bottom - 2), kBody);
    EXPECT_EQ(PreviewAt(area.right - 1, area.bottom - 1), RGB(0, 0, 0));
}

}  // namespace
