// A working day in one host process: the remote control opened, shown,
// asked for an update, read for every effect and closed, again and again,
// then its parameters read many times over. The process's memory and its GDI
// and USER objects end where they began. VELL_SOAK_CYCLES (default 50) and
// VELL_SOAK_READS (default 500) set the lengths; scripts/bench.sh runs the
// long version.
#include <windows.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <vector>

#include "WinTestSupport.h"

namespace {

int FromEnvironment(const char* name, int fallback) {
    const char* text = std::getenv(name);
    return text != nullptr && std::atoi(text) > 0 ? std::atoi(text) : fallback;
}

// Committed private memory, summed over the address space.
double PrivateMegabytes() {
    double total = 0;
    MEMORY_BASIC_INFORMATION info;
    for (const char* at = nullptr; VirtualQuery(at, &info, sizeof info) == sizeof info;
         at = static_cast<const char*>(info.BaseAddress) + info.RegionSize) {
        if (info.State == MEM_COMMIT && info.Type == MEM_PRIVATE) total += info.RegionSize;
    }
    return total / (1 << 20);
}

// How many more objects `create` makes before it fails; all are destroyed
// again. The limits are fixed, so fewer means more in use.
template <typename Handle>
int RoomFor(const std::function<Handle()>& create, const std::function<void(Handle)>& destroy) {
    std::vector<Handle> made;
    while (made.size() < (1u << 20)) {
        const Handle handle = create();
        if (handle == nullptr) break;
        made.push_back(handle);
    }
    for (Handle handle : made) destroy(handle);
    return static_cast<int>(made.size());
}

struct Usage {
    double privateMegabytes;
    int gdiRoom, userRoom;
};

Usage Measure() {
    return {PrivateMegabytes(),
            RoomFor<HBRUSH>([] { return CreateSolidBrush(RGB(1, 2, 3)); }, DeleteObject),
            RoomFor<HMENU>(CreatePopupMenu, DestroyMenu)};
}

// The effect radios, with the name the update sends for each.
const struct {
    int radio;
    const char* name;
} kEffects[] = {{1003, "gradation"},
                {1006, "tile"},
                {1010, "stripe"},
                {1009, "density_pattern"},
                {1007, "image_mapping"}};

// The remote control open and shown, holding a picture from the clipboard.
HWND OpenWithPicture(TestHost& host) {
    if (!PXColor_Open(host.window(), kNotifyMessage)) return nullptr;
    PXColor_ShowWindow(SW_SHOWNORMAL);
    HWND remote = RemoteControl();
    Click(remote, 1007);
    Click(PanelOf(remote, 1027, 1040), 1002);
    PumpMessages();
    return remote;
}

// What a host reads on an update: every effect, the picture too.
void ReadEveryEffect() {
    KTEffectGradation gradation;
    PXColor_GetGradation(gradation);
    KTEffectTile tile;
    PXColor_GetTile(tile);
    KTEffectStripe stripe;
    PXColor_GetStripe(stripe);
    KTEffectDensityPattern pattern;
    PXColor_GetDensityPattern(pattern);
    KTMapping mapping;
    float stretchX = 0, stretchY = 0;
    PXColor_GetMapping(mapping, stretchX, stretchY);
    EXPECT_NE(mapping.image, nullptr);
}

// One cycle: open, pick an effect, update by the button or the space bar,
// read every effect, close.
void Cycle(TestHost& host, int n) {
    HWND remote = OpenWithPicture(host);
    ASSERT_NE(remote, nullptr);
    const auto& effect = kEffects[n % 5];
    Click(remote, effect.radio);
    host.Clear();
    if (n % 2 == 0) {
        Click(remote, 1000);
    } else {
        PostMessageW(GetDlgItem(remote, 1000), WM_KEYDOWN, VK_SPACE, 0);
        PumpMessages();
    }
    ASSERT_EQ(host.received().size(), 1u) << n;
    EXPECT_EQ(host.received()[0].name, effect.name) << n;
    ReadEveryEffect();
    PXColor_Close();
    PumpMessages();
}

TEST(SoakTest, ManyCyclesAndReadsLeaveMemoryAndObjectsAsTheyWere) {
    const int cycles = FromEnvironment("VELL_SOAK_CYCLES", 50);
    const int reads = FromEnvironment("VELL_SOAK_READS", 500);
    RemoveSettings();
    ASSERT_TRUE(PutPictureOnClipboard(64, 48, [](int x, int y) { return RGB(x, y, 0); }));
    TestHost host;
    // What the first open sets up for good (classes, fonts, the picture
    // list's module) is in place before the first sample.
    for (int n = 0; n < 3; ++n) Cycle(host, n);
    const Usage before = Measure();

    const DWORD start = GetTickCount();
    for (int n = 0; n < cycles; ++n) {
        Cycle(host, n);
        if (HasFatalFailure()) return;
    }
    const DWORD cycled = GetTickCount();
    ASSERT_NE(OpenWithPicture(host), nullptr);
    for (int n = 0; n < reads; ++n) ReadEveryEffect();
    PXColor_Close();
    const DWORD read = GetTickCount();
    PumpMessages();
    RemoveSettings();
    const Usage after = Measure();

    // GetGuiResources answers 0 under Wine: the room left for new objects
    // is measured instead.
    std::printf("%d cycles (%lu s), %d reads of every effect (%lu s)\n", cycles,
                (cycled - start) / 1000, reads, (read - cycled) / 1000);
    std::printf("%-36s %10s %10s\n", "", "before", "after");
    std::printf("committed private memory (MB)       %10.2f %10.2f\n", before.privateMegabytes,
                after.privateMegabytes);
    std::printf("room for new GDI objects            %10d %10d\n", before.gdiRoom, after.gdiRoom);
    std::printf("room for new USER objects           %10d %10d\n", before.userRoom,
                after.userRoom);
    EXPECT_LE(before.gdiRoom - after.gdiRoom, 8);
    EXPECT_LE(before.userRoom - after.userRoom, 8);
    EXPECT_LT(after.privateMegabytes - before.privateMegabytes, 0.25);
}

}  // namespace
