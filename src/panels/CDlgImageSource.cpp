#include "CDlgImageSource.h"

#include <vector>

#include "PanelControls.h"
#include "ResourceIds.h"
#include "framework/Gdi.h"
#include "framework/ShowErrorMessage.h"
#include "framework/SystemDialogs.h"
#include "framework/WideText.h"
#include "support/FilePathParts.h"
#include "vellcolor/BitmapImage.h"
#include "vellcolor/VellImagePanel.h"

using namespace PanelControls;

namespace {

const wchar_t kFileFilter[] = L"Bitmapﾌｧｲﾙ (*.bmp)|*.bmp|すべてのﾌｧｲﾙ (*.*)|*.*||";
const int kListPathSize = 260;

std::wstring CurrentDirectory() {
    std::vector<wchar_t> buffer(MAX_PATH * 4, L'\0');
    GetCurrentDirectoryW(static_cast<DWORD>(buffer.size()), buffer.data());
    return buffer.data();
}

}  // namespace

CDlgImageSource::CDlgImageSource() : Dialog(IDD_IMAGE_SOURCE), image(nullptr) {}

CDlgImageSource::~CDlgImageSource() {
    ReplaceImage(nullptr);
}

BOOL CDlgImageSource::OnInitDialog() {
    ReplaceImage(nullptr);
    SetChecked(hwnd(), IDC_SOURCE_WHOLE, true);
    PXImagePanel_Open();
    return TRUE;
}

void CDlgImageSource::ReplaceImage(BitmapImage* replacement) {
    if (image != nullptr) BitmapImage::Delete(image);
    image = replacement;
}

bool CDlgImageSource::LoadPicture(const std::string& utf8Path) {
    ReplaceImage(BitmapImage::NewEmpty());
    if (image == nullptr) return false;
    int code = image->LoadFile(utf8Path.c_str());
    if (code == 0) code = image->ConvertTo24Bit();
    if (code == 0) return true;
    ShowErrorMessage(hwnd(), code);
    return false;
}

void CDlgImageSource::OnImageList() {
    const std::wstring previousDirectory = CurrentDirectory();
    std::string hostDirectory;
    FilePathParts(SystemDialogs::HostExecutablePath().c_str()).Directory(&hostDirectory);
    // The picture list speaks the system's ANSI code page.
    const std::string folder = NarrowToAnsi(Widen(hostDirectory + "/Image"));
    PXImagePanel_SetDirectory(folder.c_str());

    char chosen[kListPathSize] = {};
    if (PXImagePanel_DoModal() == 1 && PXImagePanel_GetSelectedImage(chosen)) {
        // A picture that cannot be read stops here, as it always has: the
        // folder the list left current stays, and the preview is not redrawn.
        if (!LoadPicture(NarrowToUtf8(WidenAnsi(chosen)))) return;
    }
    SetCurrentDirectoryW(previousDirectory.c_str());
    PaintPreview();
}

void CDlgImageSource::OnImageFile() {
    // Whatever folder the dialog leaves current stays current.
    std::string path;
    if (!SystemDialogs::OpenFile(kFileFilter, L"bmp", &path)) return;
    if (LoadPicture(path)) PaintPreview();
}

void CDlgImageSource::OnClipboard() {
    BitmapImage clipboard;
    const int code = clipboard.ReadClipboard(hwnd());
    if (code != 0) {
        ShowErrorMessage(hwnd(), code);
        return;
    }
    ReplaceImage(BitmapImage::NewEmpty());
    if (image == nullptr) return;
    int converted = image->Copy(clipboard);
    if (converted == 0) converted = image->ConvertTo24Bit();
    if (converted != 0) {
        ShowErrorMessage(hwnd(), converted);
        return;
    }
    PaintPreview();
}

void CDlgImageSource::PaintPreview() const {
    HWND preview = Item(IDC_SOURCE_PREVIEW);
    WindowDC dc(preview);
    if (!dc) return;
    RECT area;
    GetClientRect(preview, &area);
    FillSolid(dc.get(), area, RGB(128, 128, 128));
    if (image != nullptr && image->GetWidth() > 0 && image->GetHeight() > 0) {
        if (IsChecked(hwnd(), IDC_SOURCE_WHOLE)) {
            image->DrawFit(dc.get(), area.right, area.bottom);
        } else {
            // Natural size from the top-left corner; the control clips it.
            image->DrawRegion(dc.get(), 0, 0, image->GetWidth() - 1, image->GetHeight() - 1);
        }
    }
    FrameSolid(dc.get(), area, RGB(0, 0, 0));
}

bool CDlgImageSource::OnMessage(UINT msg, WPARAM wParam, LPARAM, LRESULT*) {
    switch (msg) {
        case WM_PAINT: {
            PAINTSTRUCT paint;
            BeginPaint(hwnd(), &paint);
            EndPaint(hwnd(), &paint);
            // The frame control paints over its border only, so the picture
            // drawn here stays.
            UpdateWindow(Item(IDC_SOURCE_PREVIEW));
            PaintPreview();
            return true;
        }
        case WM_COMMAND:
            if (HIWORD(wParam) != BN_CLICKED) return false;
            switch (LOWORD(wParam)) {
                case IDC_SOURCE_LIST: OnImageList(); return true;
                case IDC_SOURCE_FILE: OnImageFile(); return true;
                case IDC_SOURCE_CLIPBOARD: OnClipboard(); return true;
                case IDC_SOURCE_WHOLE: PaintPreview(); return true;
                default: return false;
            }
        case WM_DESTROY:
            PXImagePanel_Close();
            ReplaceImage(nullptr);
            return false;
        default: return false;
    }
}
