// Paint latency in the demo host under Wine, on an 800 x 600 sample scene
// with a part made of its left half selected: one "gradation" notification sent to
// the host until it returns with the canvas repainted, against the renderer
// alone painting the same part of a copy of the picture with the same
// options. What is left is the host's own share (reading the effect back, the
// undo snapshot, the repaint; the list and status lines wait until after); the
// target keeps it within one blit of the whole canvas. Then each piece of
// that share on its own, to tell where the time goes. The remote control
// starts from its defaults: the settings file beside the program is set
// aside for the run and put back after.
//
//   HostPaintBench.exe [rounds]     (default 30; the first three are not counted)
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include "HostRequest.h"
#include "HostWindow.h"
#include "WinBench.h"
#include "WinTestSupport.h"
#include "vellcolor/VellColor.h"

namespace {

const int kWarmUp = 3;
const int kWidth = 800, kHeight = 600;
const double kTarget = 1.0;
const char kEffect[] = "gradation";
const char kPart[] = "left half";

// Seconds that `work` takes, the GDI batch flushed inside the time.
double Time(const std::function<void()>& work) {
    const double start = Seconds();
    work();
    GdiFlush();
    return Seconds() - start;
}

double MedianMs(const std::vector<double>& seconds) {
    return Median(seconds) * 1000;
}

struct Timings {
    Timings(const char* what) : label(what) {}
    const char* label;
    std::vector<double> seconds;
};

// A memory DC holding a DIB section with the picture's pixels, for the blit
// that the host's share is held against.
class CanvasCopy {
  public:
    explicit CanvasCopy(const BitmapImage& image) {
        BITMAPINFO info = {};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = image.width;
        info.bmiHeader.biHeight = image.height;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 24;
        info.bmiHeader.biCompression = BI_RGB;
        void* bits = nullptr;
        dc_ = CreateCompatibleDC(nullptr);
        bitmap_ = CreateDIBSection(dc_, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        if (bits != nullptr) {
            // Both are bottom-up with rows padded to 4 bytes.
            std::memcpy(bits, image.pixels, static_cast<std::size_t>(image.stride) * image.height);
        }
        old_ = SelectObject(dc_, bitmap_);
    }
    ~CanvasCopy() {
        SelectObject(dc_, old_);
        DeleteObject(bitmap_);
        DeleteDC(dc_);
    }
    CanvasCopy(const CanvasCopy&) = delete;
    CanvasCopy& operator=(const CanvasCopy&) = delete;
    HDC dc() const { return dc_; }

  private:
    HDC dc_ = nullptr;
    HBITMAP bitmap_ = nullptr;
    HGDIOBJ old_ = nullptr;
};

int Run(int rounds) {
    demohost::HostWindow host;
    if (!host.Create(kWidth, kHeight, SW_SHOWNORMAL, false)) {
        std::printf("The host window or the remote control could not be opened.\n");
        return 1;
    }
    demohost::PaintDocument& document = host.document();
    std::vector<unsigned char> half(static_cast<std::size_t>(kWidth) * kHeight, 0);
    for (int y = 0; y < kHeight; ++y) std::fill_n(&half[std::size_t(y) * kWidth], kWidth / 2, 255);
    const int index = document.AddPart(kPart, std::move(half));
    host.SelectPart(index);
    PumpUntilIdle();

    const demohost::DocumentPart& part = document.Part(index);
    const demohost::Box box = part.box;
    const BitmapImage& image = document.image();
    double covered = 0;
    for (unsigned char c : part.coverage) covered += c / 255.0;
    HWND canvas = host.canvas().hwnd();
    RECT client;
    GetClientRect(canvas, &client);
    std::printf(
        "Picture %d x %d; part \"%s\": box %d x %d, covers %.1f %% of the picture,"
        " outline %u segments\n",
        image.width, image.height, kPart, box.right - box.left, box.top - box.bottom,
        100 * covered / (static_cast<double>(image.width) * image.height),
        static_cast<unsigned>(demohost::OutlineOf(part, image.width, image.height).size()));
    std::printf("Canvas window %ld x %ld, picture shown at %d %%\n", client.right, client.bottom,
                host.canvas().ZoomPercent());

    // The renderer's own picture: a copy, so that the host's stays as painted.
    std::vector<unsigned char> pixels(
        image.pixels, image.pixels + static_cast<std::size_t>(image.stride) * image.height);
    vellrender::Picture copy = document.Picture();
    copy.pixels = pixels.data();
    const vellrender::Part renderPart = document.RenderPart(index);

    CanvasCopy blitSource(image);
    HDC canvasDc = GetDC(canvas);
    const std::string name = kEffect;
    const WPARAM length = name.size() + 1;
    const LPARAM text = reinterpret_cast<LPARAM>(name.c_str());

    Timings notify("notification -> repainted window");
    Timings render("renderer alone (RenderGradation)");
    Timings blit("one BitBlt of the whole canvas");
    std::vector<double> shares;
    enum { kRead, kSnapshot, kRepaint, kRepaintBare, kAfter, kPieces };
    Timings pieces[kPieces] = {
        "PXColor_GetGradation",
        "undo snapshot (PaintSelected, no paint)",
        "canvas repaint of the part's box",
        "  the same, no outline (nothing selected)",
        "list lines and status, drawn after it returns",
    };

    // Interleaved, so that whatever drifts in the machine meets all alike.
    for (int i = 0; i < kWarmUp + rounds; ++i) {
        const bool counted = i >= kWarmUp;
        auto keep = [&](Timings& t, double seconds) {
            if (counted) t.seconds.push_back(seconds);
        };
        PumpUntilIdle();
        const double n =
            Time([&] { SendMessageW(host.hwnd(), demohost::kNotifyMessage, length, text); });
        keep(notify, n);
        keep(pieces[kAfter], Time(PumpUntilIdle));

        vellrender::Options options = host.lastOptions();
        options.threads = 0;
        KTEffectGradation gradation;
        PXColor_GetGradation(gradation);
        const double r =
            Time([&] { vellrender::RenderGradation(gradation, copy, renderPart, options); });
        keep(render, r);
        if (counted) shares.push_back(n - r);

        keep(blit, Time([&] {
                 BitBlt(canvasDc, 0, 0, kWidth, kHeight, blitSource.dc(), 0, 0, SRCCOPY);
             }));

        // The share, piece by piece, each done as the host does it.
        keep(pieces[kRead], Time([] {
                 KTEffectGradation g;
                 PXColor_GetGradation(g);
             }));
        keep(pieces[kSnapshot], Time([&] {
                 document.PaintSelected(
                     [](const vellrender::Picture&, const vellrender::Part&) { return 0; });
             }));
        keep(pieces[kRepaint], Time([&] { host.canvas().Repaint(box); }));
        host.SelectPart(-1);
        PumpUntilIdle();
        keep(pieces[kRepaintBare], Time([&] { host.canvas().Repaint(box); }));
        host.SelectPart(index);
        PumpUntilIdle();
    }
    ReleaseDC(canvas, canvasDc);

    const double notifyMs = MedianMs(notify.seconds);
    const double renderMs = MedianMs(render.seconds);
    const double blitMs = MedianMs(blit.seconds);
    const double shareMs = notifyMs - renderMs;
    std::printf("\nMedians of %d rounds, %s into \"%s\", renderer threads: one per core\n", rounds,
                kEffect, kPart);
    for (const Timings* t : {&notify, &render, &blit})
        std::printf("%-45s %8.2f ms\n", t->label, MedianMs(t->seconds));
    std::printf("%-45s %8.2f ms  (median of each round's own: %.2f ms)\n",
                "host's own share (notification - renderer)", shareMs, MedianMs(shares));
    std::printf("%-45s %8.2fx  (target at most %.1fx: %s)\n", "share vs one BitBlt",
                shareMs / blitMs, kTarget, shareMs / blitMs <= kTarget ? "met" : "not met");
    std::printf("\nPieces of the share on their own (the last one is not in it), medians:\n");
    for (const Timings& t : pieces) std::printf("  %-43s %8.2f ms\n", t.label, MedianMs(t.seconds));
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    const int rounds = argc > 1 ? std::max(1, std::atoi(argv[1])) : 30;
    std::printf(
        "Paint latency in the demo host under Wine. Run it on a quiet machine: the target\n"
        "compares a few milliseconds, and any other load on the cores moves them.\n\n");
    const bool existed = GetFileAttributesW(SettingsPath().c_str()) != INVALID_FILE_ATTRIBUTES;
    const std::string kept = ReadSettings();
    RemoveSettings();
    const int result = Run(rounds);  // the remote control writes its settings on closing
    RemoveSettings();
    if (existed) WriteSettings(kept);
    return result;
}
