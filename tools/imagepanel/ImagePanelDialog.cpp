#include "ImagePanelDialog.h"

#include <commctrl.h>

#include <algorithm>
#include <vector>

#include "ImagePanelIds.h"
#include "framework/Gdi.h"
#include "framework/WideText.h"
#include "vellcolor/BitmapImage.h"

namespace {

const int kThumbnailSize = 64;
const COLORREF kPlaceholderGrey = RGB(160, 160, 160);

struct Chooser {
    std::wstring directory;
    std::vector<std::wstring> paths;  // one per list item, in item order
    std::wstring* chosen;
};

bool HasBmpExtension(const std::wstring& name) {
    const std::size_t dot = name.find_last_of(L'.');
    return dot != std::wstring::npos && _wcsicmp(name.c_str() + dot + 1, L"bmp") == 0;
}

std::wstring JoinPath(const std::wstring& directory, const std::wstring& name) {
    if (!directory.empty() && (directory.back() == L'\\' || directory.back() == L'/')) {
        return directory + name;
    }
    return directory + L'\\' + name;
}

bool IsFolder(const std::wstring& path) {
    if (path.empty()) return false;
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

// Matches on the long name only: a "*.bmp" pattern would also match short
// 8.3 aliases of other names.
std::vector<std::wstring> PictureNames(const std::wstring& directory) {
    std::vector<std::wstring> names;
    WIN32_FIND_DATAW found;
    HANDLE search = FindFirstFileW(JoinPath(directory, L"*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return names;
    do {
        const bool isFolder = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        if (!isFolder && HasBmpExtension(found.cFileName)) names.push_back(found.cFileName);
    } while (FindNextFileW(search, &found));
    FindClose(search);
    // The file system's order is arbitrary; users look for names alphabetically.
    std::sort(names.begin(), names.end(), [](const std::wstring& a, const std::wstring& b) {
        return _wcsicmp(a.c_str(), b.c_str()) < 0;
    });
    return names;
}

void DrawThumbnail(HDC dc, const std::wstring& path) {
    const RECT box = {0, 0, kThumbnailSize, kThumbnailSize};
    BitmapImage image;
    const bool decoded = image.LoadFile(NarrowToUtf8(path).c_str()) == 0 &&
                         image.ConvertTo24Bit() == 0 && image.pixels != nullptr;
    // A file that does not decode still shows, so the user sees it is there.
    FillSolid(dc, box, decoded ? GetSysColor(COLOR_WINDOW) : kPlaceholderGrey);
    if (decoded) image.DrawFit(dc, kThumbnailSize, kThumbnailSize);
}

HBITMAP MakeThumbnail(HDC screen, const std::wstring& path) {
    HBITMAP thumbnail = CreateCompatibleBitmap(screen, kThumbnailSize, kThumbnailSize);
    HDC memory = CreateCompatibleDC(screen);
    if (thumbnail != nullptr && memory != nullptr) {
        SelectedObject selected(memory, thumbnail);
        DrawThumbnail(memory, path);
    }
    if (memory != nullptr) DeleteDC(memory);
    return thumbnail;
}

int SelectedItem(HWND dialog) {
    return ListView_GetNextItem(GetDlgItem(dialog, IDC_PICTURE_LIST), -1, LVNI_SELECTED);
}

void FillList(HWND dialog, Chooser* chooser, const std::vector<std::wstring>& names) {
    HWND list = GetDlgItem(dialog, IDC_PICTURE_LIST);
    // The list view owns the image list and destroys it with itself.
    HIMAGELIST images = ImageList_Create(kThumbnailSize, kThumbnailSize, ILC_COLOR24,
                                         static_cast<int>(names.size()), 4);
    ListView_SetImageList(list, images, LVSIL_NORMAL);
    ListView_SetIconSpacing(list, kThumbnailSize + 32, kThumbnailSize + 36);
    WindowDC screen(nullptr);
    for (std::size_t i = 0; i < names.size(); ++i) {
        chooser->paths.push_back(JoinPath(chooser->directory, names[i]));
        GdiObject<HBITMAP> thumbnail(MakeThumbnail(screen.get(), chooser->paths.back()));
        LVITEMW item = {};
        item.mask = LVIF_TEXT | LVIF_IMAGE;
        item.iItem = static_cast<int>(i);
        item.pszText = const_cast<wchar_t*>(names[i].c_str());
        item.iImage = thumbnail ? ImageList_Add(images, thumbnail.get(), nullptr) : -1;
        SendMessageW(list, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
    }
    // A starting point for the arrow keys, and Enter takes the first picture.
    ListView_SetItemState(list, 0, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
}

void OnInitDialog(HWND dialog, Chooser* chooser) {
    SetWindowLongPtrW(dialog, DWLP_USER, reinterpret_cast<LONG_PTR>(chooser));
    SetFocus(GetDlgItem(dialog, IDC_PICTURE_LIST));
    if (!IsFolder(chooser->directory)) {
        const std::wstring text = L"フォルダがありません: " + chooser->directory;
        SetDlgItemTextW(dialog, IDC_PICTURE_MESSAGE, text.c_str());
        return;
    }
    const std::vector<std::wstring> names = PictureNames(chooser->directory);
    if (names.empty()) {
        SetDlgItemTextW(dialog, IDC_PICTURE_MESSAGE, L"画像がありません");
        return;
    }
    FillList(dialog, chooser, names);
}

void OnOK(HWND dialog, Chooser* chooser) {
    const int index = SelectedItem(dialog);
    // A double click on empty space arrives here with nothing selected.
    if (index < 0 || index >= static_cast<int>(chooser->paths.size())) return;
    *chooser->chosen = chooser->paths[index];
    EndDialog(dialog, IDOK);
}

void OnListNotify(HWND dialog, Chooser* chooser, const NMHDR& header) {
    if (header.code == LVN_ITEMCHANGED) {
        EnableWindow(GetDlgItem(dialog, IDOK), SelectedItem(dialog) >= 0);
    } else if (header.code == NM_DBLCLK) {
        OnOK(dialog, chooser);
    }
}

INT_PTR HandleMessage(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        OnInitDialog(dialog, reinterpret_cast<Chooser*>(lParam));
        return FALSE;  // the focus is set
    }
    auto* chooser = reinterpret_cast<Chooser*>(GetWindowLongPtrW(dialog, DWLP_USER));
    if (chooser == nullptr) return FALSE;
    switch (message) {
        case WM_COMMAND:
            if (LOWORD(wParam) == IDOK) OnOK(dialog, chooser);
            if (LOWORD(wParam) == IDCANCEL) EndDialog(dialog, IDCANCEL);
            return TRUE;
        case WM_NOTIFY: {
            const auto* header = reinterpret_cast<const NMHDR*>(lParam);
            if (header->idFrom == IDC_PICTURE_LIST) OnListNotify(dialog, chooser, *header);
            return FALSE;
        }
    }
    return FALSE;
}

// No exception may reach user32.
INT_PTR CALLBACK ChooserProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    try {
        return HandleMessage(dialog, message, wParam, lParam);
    } catch (...) {
        return FALSE;
    }
}

}  // namespace

bool ChoosePicture(HINSTANCE instance, HWND owner, const std::wstring& directory,
                   std::wstring* chosen) {
    INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_LISTVIEW_CLASSES};
    InitCommonControlsEx(&controls);
    Chooser chooser{directory, {}, chosen};
    return DialogBoxParamW(instance, MAKEINTRESOURCEW(IDD_IMAGE_PANEL), owner, ChooserProc,
                           reinterpret_cast<LPARAM>(&chooser)) == IDOK;
}
