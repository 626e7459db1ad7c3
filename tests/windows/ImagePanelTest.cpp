// The picture-list module as VellColor.dll uses it: folders of pictures made
// here, the real chooser, and real keyboard and mouse input sent from a
// second thread while the chooser's own modal loop runs.
#include <windows.h>
#include <commctrl.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "ImagePanelIds.h"
#include "WinTestSupport.h"
#include "vellcolor/VellImagePanel.h"

namespace {

std::string Ascii(const std::wstring& text) {
    return std::string(text.begin(), text.end());
}

// A folder in the temp directory, removed with the files put in it. The
// long-path prefix lets paths near MAX_PATH be made.
struct Folder {
    explicit Folder(const std::wstring& name) : path(TempFolder() + name) { Add(L"", {}); }
    ~Folder() {
        for (const std::wstring& file : files) {
            if (!DeleteFileW(file.c_str())) RemoveDirectoryW(file.c_str());
        }
    }
    // A file with `bytes`, or a folder for none.
    void Add(const std::wstring& name, const std::vector<std::uint8_t>& bytes) {
        files.insert(files.begin(), L"\\\\?\\" + path + (name.empty() ? L"" : L"\\" + name));
        if (bytes.empty()) CreateDirectoryW(files.front().c_str(), nullptr);
        if (!bytes.empty()) WriteBytes(files.front(), bytes);
    }
    std::wstring path;
    std::vector<std::wstring> files;
};

// Runs the chooser: `inspect` sees it once it shows and returns the input
// that ends it, which a second thread sends while the modal loop runs.
using Input = std::function<void()>;
int RunChooser(const std::function<Input(HWND chooser)>& inspect) {
    std::thread sender;
    SystemDialogWatcher watcher([&](HWND chooser) { sender = std::thread(inspect(chooser)); });
    const int result = PXImagePanel_DoModal();
    EXPECT_EQ(watcher.seen().size(), 1u) << "the chooser never showed";
    if (sender.joinable()) sender.join();
    return result;
}

Input Keys(std::vector<BYTE> keys) {
    return [keys] {
        for (BYTE key : keys) {
            keybd_event(key, 0, 0, 0);
            keybd_event(key, 0, KEYEVENTF_KEYUP, 0);
            Sleep(60);
        }
    };
}

// A double click at a point of the list, then `after`.
Input DoubleClick(
    HWND chooser, POINT point, Input after = [] {}) {
    ClientToScreen(GetDlgItem(chooser, IDC_PICTURE_LIST), &point);
    return [point, after] {
        SetCursorPos(point.x, point.y);
        for (DWORD button :
             {MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP, MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP}) {
            mouse_event(button, 0, 0, 0, 0);
            Sleep(30);
        }
        after();
    };
}

std::vector<std::wstring> ItemNames(HWND chooser) {
    HWND list = GetDlgItem(chooser, IDC_PICTURE_LIST);
    std::vector<std::wstring> names;
    for (int i = 0; i < ListView_GetItemCount(list); ++i) {
        wchar_t text[MAX_PATH] = {};
        ListView_GetItemText(list, i, 0, text, MAX_PATH);
        names.push_back(text);
    }
    return names;
}

// The centre of an item's thumbnail as the list shows it.
COLORREF ThumbnailCentre(HWND list, int item) {
    RECT r = {};
    ListView_GetItemRect(list, item, &r, LVIR_ICON);
    return ScreenPixel(list, (r.left + r.right) / 2, (r.top + r.bottom) / 2);
}

std::string SelectedImage() {
    char buffer[MAX_PATH];
    return PXImagePanel_GetSelectedImage(buffer) ? buffer : "(none)";
}

class ImagePanelTest : public ::testing::Test {
  protected:
    void SetUp() override { PXImagePanel_Open(); }
    void TearDown() override { PXImagePanel_Close(); }
};

TEST_F(ImagePanelTest, ListsTheBmpFilesWithTheirNamesAndThumbnails) {
    Folder folder(L"vell_listing");
    folder.Add(L"a.bmp", PictureFile(40, 20, RGB(255, 0, 0)));
    folder.Add(L"B.BMP", PictureFile(2, 2, RGB(0, 255, 0)));
    folder.Add(L"broken.bmp", {'B', 'M', 1, 2, 3});
    for (const wchar_t* other : {L"c.Bmp", L"notes.txt", L"a.bmp.txt"})
        folder.Add(other, PictureFile(2, 2, RGB(0, 0, 255)));
    folder.Add(L"folder.bmp", {});
    PXImagePanel_SetDirectory(Ascii(folder.path).c_str());
    std::vector<std::wstring> names;
    COLORREF centre = 0, broken = 0;
    EXPECT_EQ(RunChooser([&](HWND chooser) {
                  names = ItemNames(chooser);
                  HWND list = GetDlgItem(chooser, IDC_PICTURE_LIST);
                  EXPECT_EQ(WindowText(GetDlgItem(chooser, IDC_PICTURE_MESSAGE)), L"");
                  EXPECT_TRUE(Enabled(chooser, IDOK));
                  ListView_SetItemState(list, -1, 0, LVIS_SELECTED);
                  EXPECT_FALSE(Enabled(chooser, IDOK));
                  centre = ThumbnailCentre(list, 0);
                  broken = ThumbnailCentre(list, 2);
                  return Keys({VK_ESCAPE});
              }),
              0);
    EXPECT_EQ(names, (std::vector<std::wstring>{L"a.bmp", L"B.BMP", L"broken.bmp", L"c.Bmp"}));
    EXPECT_EQ(centre, RGB(255, 0, 0));
    EXPECT_TRUE(GetRValue(broken) == GetGValue(broken) && GetGValue(broken) == GetBValue(broken) &&
                broken != RGB(255, 255, 255))
        << "an undecodable picture shows a grey placeholder, got " << std::hex << broken;
}

TEST_F(ImagePanelTest, KeyboardAndMouseChooseAPicture) {
    Folder folder(L"vell_choice");
    for (const wchar_t* name : {L"a.bmp", L"b.bmp", L"c.bmp"})
        folder.Add(name, PictureFile(8, 8, RGB(0, 128, 255)));
    PXImagePanel_SetDirectory(Ascii(folder.path).c_str());
    const std::string base = Ascii(folder.path) + "\\";
    const auto middleOfItem = [](HWND c) {
        RECT r = {};
        ListView_GetItemRect(GetDlgItem(c, IDC_PICTURE_LIST), 2, &r, LVIR_ICON);
        return DoubleClick(c, {(r.left + r.right) / 2, (r.top + r.bottom) / 2});
    };
    const auto emptySpace = [](HWND c) {
        RECT r = {};
        GetClientRect(GetDlgItem(c, IDC_PICTURE_LIST), &r);
        return DoubleClick(c, {r.right - 20, r.bottom - 20}, Keys({VK_ESCAPE}));
    };
    const struct {
        std::function<Input(HWND)> script;
        int result;
        std::string chosen;
    } cases[] = {
        // In this order: the cancel after a choice must forget that choice.
        {[](HWND) { return Keys({VK_RETURN}); }, 1, base + "a.bmp"},
        {[](HWND) {
             return Keys({VK_RIGHT, VK_ESCAPE});
         },
         0, "(none)"},
        {middleOfItem, 1, base + "c.bmp"},
        {emptySpace, 0, "(none)"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(RunChooser(c.script), c.result) << c.chosen;
        EXPECT_EQ(SelectedImage(), c.chosen);
    }
}

TEST_F(ImagePanelTest, MissingOrEmptyFolderSaysSoAndOffersNothingToConfirm) {
    Folder empty(L"vell_no_pictures");
    empty.Add(L"notes.txt", PictureFile(2, 2, RGB(0, 0, 0)));
    const std::wstring missing = TempFolder() + L"vell_missing_folder";
    const std::pair<std::wstring, std::wstring> cases[] = {
        {missing, L"フォルダがありません: " + missing}, {empty.path, L"画像がありません"}};
    for (const auto& c : cases) {
        PXImagePanel_SetDirectory(Ascii(c.first).c_str());
        EXPECT_EQ(RunChooser([&](HWND chooser) {
                      EXPECT_EQ(WindowText(GetDlgItem(chooser, IDC_PICTURE_MESSAGE)), c.second);
                      EXPECT_TRUE(ItemNames(chooser).empty());
                      EXPECT_FALSE(Enabled(chooser, IDOK));
                      return Keys({VK_RETURN, VK_ESCAPE});  // Enter must not confirm nothing
                  }),
                  0);
        EXPECT_EQ(SelectedImage(), "(none)");
    }
}

TEST_F(ImagePanelTest, ChosenPathComesBackInTheAnsiCodePageOrNotAtAll) {
    struct Case {
        std::wstring folder;
        std::string folderAnsi;
        std::wstring file;
        const char* fileAnsi;  // none: the path cannot be handed out
    };
    std::vector<Case> cases = {
        // "表" ends in the byte of a backslash in code page 932.
        {L"vell_データ表", "vell_\x83\x66\x81\x5B\x83\x5E\x95\x5C", L"写真.bmp",
         "\x8E\xCA\x90\x5E.bmp"},
        {L"vell_plain", "vell_plain", L"café.bmp", nullptr},  // no "é" in code page 932
    };
    // Full paths of 259 and 260 bytes: the caller's buffer holds 260 with
    // the terminator. The temp folder, "vell_", the d's, "\" and "p.bmp".
    for (std::size_t length : {259, 260}) {
        const std::string name = "vell_" + std::string(length - TempFolder().size() - 11, 'd');
        cases.push_back({std::wstring(name.begin(), name.end()), name, L"p.bmp",
                         length < 260 ? "p.bmp" : nullptr});
    }
    for (const Case& c : cases) {
        SCOPED_TRACE(c.folderAnsi);
        Folder folder(c.folder);
        folder.Add(c.file, PictureFile(4, 4, RGB(200, 100, 0)));
        const std::string folderAnsi = Ascii(TempFolder()) + c.folderAnsi;
        PXImagePanel_SetDirectory(folderAnsi.c_str());
        std::vector<std::wstring> names;
        EXPECT_EQ(RunChooser([&](HWND chooser) {
                      names = ItemNames(chooser);
                      return Keys({VK_RETURN});
                  }),
                  1);
        EXPECT_EQ(names, std::vector<std::wstring>{c.file});
        EXPECT_EQ(SelectedImage(), c.fileAnsi ? folderAnsi + "\\" + c.fileAnsi : "(none)");
    }
}

}  // namespace
