#include "CanvasView.h"

#include <algorithm>
#include <cmath>

namespace demohost {

namespace {

const wchar_t kClassName[] = L"VellDemoCanvas";

BITMAPINFOHEADER HeaderOf(const BitmapImage& image) {
    BITMAPINFOHEADER header = {};
    header.biSize = sizeof header;
    header.biWidth = image.width;
    header.biHeight = image.height;  // bottom-up, as the picture's rows
    header.biPlanes = 1;
    header.biBitCount = 24;
    header.biCompression = BI_RGB;
    return header;
}

}  // namespace

HWND CanvasView::Create(HWND parent, int id) {
    WNDCLASSW wc = {};
    if (!GetClassInfoW(GetModuleHandleW(nullptr), kClassName, &wc)) {
        wc.lpfnWndProc = Proc;
        wc.hInstance = GetModuleHandleW(nullptr);
        wc.hCursor = LoadCursor(nullptr, IDC_CROSS);
        wc.lpszClassName = kClassName;
        RegisterClassW(&wc);
    }
    id_ = id;
    hwnd_ = CreateWindowExW(0, kClassName, nullptr, WS_CHILD | WS_VISIBLE | WS_TABSTOP, 0, 0, 0, 0,
                            parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                            GetModuleHandleW(nullptr), this);
    return hwnd_;
}

LRESULT CALLBACK CanvasView::Proc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) {
    if (msg == WM_NCCREATE) {
        auto* view =
            static_cast<CanvasView*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
        view->hwnd_ = hwnd;
        SetWindowLongPtrW(hwnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(view));
    }
    auto* view = reinterpret_cast<CanvasView*>(GetWindowLongPtrW(hwnd, GWLP_USERDATA));
    return view != nullptr ? view->Handle(msg, wParam, lParam)
                           : DefWindowProcW(hwnd, msg, wParam, lParam);
}

LRESULT CanvasView::Handle(UINT msg, WPARAM wParam, LPARAM lParam) {
    switch (msg) {
        case WM_SIZE: PictureChanged(); return 0;
        case WM_ERASEBKGND: return 1;  // WM_PAINT covers every pixel
        case WM_PAINT: {
            PAINTSTRUCT ps;
            HDC dc = BeginPaint(hwnd_, &ps);
            Paint(dc, ps.rcPaint);
            EndPaint(hwnd_, &ps);
            return 0;
        }
        case WM_LBUTTONDOWN: {
            SetFocus(hwnd_);
            int x = 0, y = 0;
            const POINT at = {static_cast<short>(LOWORD(lParam)),
                              static_cast<short>(HIWORD(lParam))};
            document_->Select(PixelAt(at, &x, &y) ? document_->PartAt(x, y) : -1);
            SelectionChanged();
            SendMessageW(GetParent(hwnd_), WM_COMMAND, MAKEWPARAM(id_, kSelected),
                         reinterpret_cast<LPARAM>(hwnd_));
            return 0;
        }
        case WM_KEYDOWN:
        case WM_SYSKEYDOWN: {
            MSG key = {hwnd_, msg, wParam, lParam, 0, {0, 0}};
            if (TranslateAcceleratorW(GetParent(hwnd_), accelerators_, &key)) return 0;
            break;
        }
        default: break;
    }
    return DefWindowProcW(hwnd_, msg, wParam, lParam);
}

void CanvasView::Layout() {
    RECT client;
    GetClientRect(hwnd_, &client);
    const BitmapImage& image = document_->image();
    scale_ = 1.0;
    if (image.width > 0 && image.height > 0) {
        scale_ = std::min({1.0, static_cast<double>(client.right) / image.width,
                           static_cast<double>(client.bottom) / image.height});
    }
    const int shownWidth = static_cast<int>(std::lround(image.width * scale_));
    const int shownHeight = static_cast<int>(std::lround(image.height * scale_));
    originX_ = std::max(0, static_cast<int>(client.right) - shownWidth) / 2;
    originY_ = std::max(0, static_cast<int>(client.bottom) - shownHeight) / 2;
}

void CanvasView::PictureChanged() {
    Layout();
    SelectionChanged();
}

void CanvasView::SelectionChanged() {
    outline_.clear();
    const int selected = document_->selected();
    if (selected >= 0) {
        const BitmapImage& image = document_->image();
        outline_ = OutlineOf(document_->Part(selected), image.width, image.height);
    }
    InvalidateRect(hwnd_, nullptr, FALSE);
}

void CanvasView::Repaint(const Box& box) {
    if (box.Empty()) return;
    RECT area = ClientRectOf(box);
    InflateRect(&area, 1, 1);  // the outline's pen
    InvalidateRect(hwnd_, &area, FALSE);
    UpdateWindow(hwnd_);
}

RECT CanvasView::ClientRectOf(const Box& box) const {
    const int height = document_->image().height;
    RECT r;
    r.left = originX_ + static_cast<int>(std::floor(box.left * scale_));
    r.right = originX_ + static_cast<int>(std::ceil(box.right * scale_));
    r.top = originY_ + static_cast<int>(std::floor((height - box.top) * scale_));
    r.bottom = originY_ + static_cast<int>(std::ceil((height - box.bottom) * scale_));
    return r;
}

bool CanvasView::PixelAt(POINT client, int* x, int* y) const {
    const BitmapImage& image = document_->image();
    const int column = static_cast<int>(std::floor((client.x - originX_) / scale_));
    const int row = static_cast<int>(std::floor((client.y - originY_) / scale_));
    if (column < 0 || row < 0 || column >= image.width || row >= image.height) return false;
    *x = column;
    *y = image.height - 1 - row;
    return true;
}

POINT CanvasView::ClientPointOf(int x, int y) const {
    const int height = document_->image().height;
    return {originX_ + static_cast<int>((x + 0.5) * scale_),
            originY_ + static_cast<int>((height - y - 0.5) * scale_)};
}

int CanvasView::ZoomPercent() const {
    return static_cast<int>(std::lround(scale_ * 100));
}

void CanvasView::Paint(HDC dc, const RECT& area) {
    const BitmapImage& image = document_->image();
    Box all;
    all.right = image.width;
    all.top = image.height;
    const RECT shown = ClientRectOf(all);

    // The margins round the picture.
    const int saved = SaveDC(dc);
    ExcludeClipRect(dc, shown.left, shown.top, shown.right, shown.bottom);
    FillRect(dc, &area, GetSysColorBrush(COLOR_APPWORKSPACE));
    RestoreDC(dc, saved);

    BITMAPINFOHEADER header = HeaderOf(image);
    const BITMAPINFO* info = reinterpret_cast<const BITMAPINFO*>(&header);
    RECT part;
    if (scale_ == 1.0 && IntersectRect(&part, &area, &shown)) {
        // Only the rows and columns asked for; a bottom-up picture counts
        // its source rows from the bottom.
        const int width = part.right - part.left, height = part.bottom - part.top;
        StretchDIBits(dc, part.left, part.top, width, height, part.left - originX_,
                      image.height - (part.bottom - originY_), width, height, image.pixels, info,
                      DIB_RGB_COLORS, SRCCOPY);
    } else if (scale_ != 1.0) {
        SetStretchBltMode(dc, HALFTONE);
        SetBrushOrgEx(dc, 0, 0, nullptr);
        StretchDIBits(dc, shown.left, shown.top, shown.right - shown.left, shown.bottom - shown.top,
                      0, 0, image.width, image.height, image.pixels, info, DIB_RGB_COLORS, SRCCOPY);
    }

    if (outline_.empty()) return;
    // Marching ants: black dots with white between them.
    std::vector<POINT> points;
    points.reserve(outline_.size() * 2);
    for (const Segment& s : outline_) {
        points.push_back({originX_ + static_cast<int>(s.x0 * scale_),
                          originY_ + static_cast<int>((image.height - s.y0) * scale_)});
        points.push_back({originX_ + static_cast<int>(s.x1 * scale_),
                          originY_ + static_cast<int>((image.height - s.y1) * scale_)});
    }
    const std::vector<DWORD> counts(outline_.size(), 2);
    HPEN pen = CreatePen(PS_DOT, 1, RGB(0, 0, 0));
    HGDIOBJ old = SelectObject(dc, pen);
    SetBkMode(dc, OPAQUE);
    SetBkColor(dc, RGB(255, 255, 255));
    PolyPolyline(dc, points.data(), counts.data(), static_cast<DWORD>(counts.size()));
    SelectObject(dc, old);
    DeleteObject(pen);
}

}  // namespace demohost
