// The demo host as a person uses it: a real click picks a part, the remote
// control's update paints it exactly as the renderer does and nothing else,
// Ctrl+Z and Ctrl+Y step through the history, a refused file leaves all as
// it was, and saving then opening gives the same picture.
#include <gtest/gtest.h>

#include <vector>

#include "HostWindow.h"
#include "WinTestSupport.h"

namespace {

using demohost::HostWindow;

std::vector<unsigned char> Pixels(const BitmapImage& image) {
    return std::vector<unsigned char>(image.pixels, image.pixels + image.pixelBytes);
}

int PartNamed(HostWindow& host, const char* name) {
    for (int i = 0; i < host.document().PartCount(); ++i) {
        if (host.document().Part(i).name == name) return i;
    }
    return -1;
}

// A real left click on the canvas at picture pixel (x, y), from a second thread.
void ClickCanvas(HostWindow& host, int x, int y) {
    POINT at = host.canvas().ClientPointOf(x, y);
    ClientToScreen(host.canvas().hwnd(), &at);
    SetForegroundWindow(host.hwnd());
    PumpMessages();
    FromSecondThread([&] {
        SetCursorPos(at.x, at.y);
        mouse_event(MOUSEEVENTF_LEFTDOWN, 0, 0, 0, 0);
        mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
    });
}

class DemoHostTest : public ::testing::Test {
  protected:
    void SetUp() override {
        RemoveSettings();
        ASSERT_TRUE(host.Create(240, 180, SW_SHOWNORMAL, false));
        PXColor_ShowWindow(SW_SHOWNORMAL);
        PumpMessages();
        scene = Pixels(host.document().image());
    }
    BitmapImage& picture() { return host.document().image(); }

    HostWindow host;
    std::vector<unsigned char> scene;
};

TEST_F(DemoHostTest, ClickedPartTakesTheRenderersGradationAndUndoRedoRestoreIt) {
    const int star = PartNamed(host, "star");
    ClickCanvas(host, 120, 150);  // in the star's upper lobe, off its centre
    ASSERT_EQ(host.document().selected(), star);
    EXPECT_EQ(host.StatusText(HostWindow::kSelection).rfind(L"star", 0), 0u);

    // The space bar on the remote control's update button, gradation chosen.
    Click(host.remote(), 1003);
    TypeKeys(GetDlgItem(host.remote(), 1000), {VK_SPACE});
    ASSERT_TRUE(host.document().CanUndo()) << "no paint";
    const std::vector<unsigned char> painted = Pixels(picture());

    // The same object, part and options through the renderer on the scene:
    // the part equals its output and every pixel outside is the scene's.
    BitmapImage expected;
    expected.Copy(picture());
    std::copy(scene.begin(), scene.end(), expected.pixels);
    KTEffectGradation gradation;
    PXColor_GetGradation(gradation);
    ASSERT_EQ(vellrender::RenderGradation(gradation, vellrender::Picture::Of(expected),
                                          host.document().RenderPart(star), host.lastOptions()),
              0);
    EXPECT_TRUE(Pixels(expected) == painted);
    EXPECT_FALSE(painted == scene);
    EXPECT_NE(host.StatusText(HostWindow::kAction).find(L"gradation into star"),
              std::wstring::npos);

    TypeChord(host.canvas().hwnd(), {VK_CONTROL, 'Z'});
    EXPECT_TRUE(Pixels(picture()) == scene);
    TypeChord(host.canvas().hwnd(), {VK_CONTROL, 'Y'});
    EXPECT_TRUE(Pixels(picture()) == painted);

    // Without a selected part an update says so and paints nothing.
    host.SelectPart(-1);
    Click(host.remote(), 1000);
    PumpMessages();
    EXPECT_TRUE(Pixels(picture()) == painted);
    EXPECT_NE(host.StatusText(HostWindow::kAction).find(L"No part"), std::wstring::npos);

    // Closing over the unsaved paint asks first; Cancel keeps the window.
    {
        SystemDialogWatcher cancel(IDCANCEL);
        SendMessageW(host.hwnd(), WM_CLOSE, 0, 0);
        EXPECT_EQ(cancel.seen().size(), 1u);
    }
    EXPECT_TRUE(IsWindow(host.hwnd()));
}

TEST_F(DemoHostTest, RefusedFileChangesNothingAndSavedPictureOpensTheSame) {
    host.SelectPart(PartNamed(host, "band"));
    Click(host.remote(), 1005);  // reverse color
    ASSERT_TRUE(host.document().CanUndo());
    const std::vector<unsigned char> painted = Pixels(picture());

    const std::wstring bad = TempFolder() + L"vell-demo-bad.bmp";
    const std::string text = "BM this is not a picture";
    WriteBytes(bad, {text.begin(), text.end()});
    {
        SystemDialogWatcher watcher;
        EXPECT_FALSE(host.OpenFile(bad));
        ASSERT_EQ(watcher.seen().size(), 1u);
        EXPECT_EQ(watcher.seen()[0].text, L"未対応のﾃﾞｰﾀ形式です。\n\n" + bad);
    }
    EXPECT_TRUE(Pixels(picture()) == painted);
    ASSERT_TRUE(host.document().CanUndo());
    host.document().Undo();
    EXPECT_TRUE(Pixels(picture()) == scene);
    host.document().Redo();

    const std::wstring saved = TempFolder() + L"vell-demo-saved.bmp";
    ASSERT_TRUE(host.SaveFile(saved));
    EXPECT_FALSE(host.document().Modified());
    ASSERT_TRUE(host.OpenFile(saved));
    EXPECT_TRUE(Pixels(picture()) == painted);
    EXPECT_FALSE(host.document().CanUndo());
}

}  // namespace
