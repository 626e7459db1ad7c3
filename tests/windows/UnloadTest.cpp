// A host that loads the library at run time and unloads it with the remote
// control still open. This program does not import the library, so
// FreeLibrary really unmaps it.
#include <gtest/gtest.h>

#include <cstdint>

#include "WinTestSupport.h"

namespace {

// Where the library was mapped, and how often something ran code there
// after it was unloaded. 64-bit Wine ignores an exception raised inside a
// hook or window procedure, so a first-chance handler counts them.
std::uintptr_t g_begin = 0, g_end = 0;
int g_callsIntoUnloaded = 0;

LONG CALLBACK CountCallsIntoUnloaded(EXCEPTION_POINTERS* exception) {
    const auto at = reinterpret_cast<std::uintptr_t>(exception->ExceptionRecord->ExceptionAddress);
    if (at >= g_begin && at < g_end) ++g_callsIntoUnloaded;
    return EXCEPTION_CONTINUE_SEARCH;
}

void NoteImageRange(HMODULE library) {
    const auto* base = reinterpret_cast<const unsigned char*>(library);
    const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto* nt = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
    g_begin = reinterpret_cast<std::uintptr_t>(base);
    g_end = g_begin + nt->OptionalHeader.SizeOfImage;
}

using OpenFunction = BOOL(__stdcall*)(CWnd*, UINT);

HWND OpenFrom(HMODULE library, TestHost& host) {
    auto open = reinterpret_cast<OpenFunction>(
        reinterpret_cast<void*>(GetProcAddress(library, "PXColor_Open")));
    if (open == nullptr || !open(host.window(), kNotifyMessage)) return nullptr;
    return RemoteControl();
}

TEST(UnloadTest, FreeLibraryWithTheRemoteControlOpenClosesItAsPXColorCloseWould) {
    RemoveSettings();
    TestHost host;
    HMODULE library = LoadLibraryW(L"VellColor.dll");
    ASSERT_NE(library, nullptr);
    HWND dialog = OpenFrom(library, host);
    ASSERT_NE(dialog, nullptr);
    ShowWindow(dialog, SW_SHOWNORMAL);
    SetWindowPos(dialog, nullptr, 77, 55, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    PumpMessages();
    // A right click on a swatch sets the color slider's timer; unload before
    // it fires.
    HWND swatch = GetDlgItem(ColorSetPanelOf(dialog), 1030);
    PostMessageW(swatch, WM_RBUTTONUP, 0, MAKELPARAM(5, 5));
    MSG msg;
    ASSERT_TRUE(PeekMessageW(&msg, swatch, WM_RBUTTONUP, WM_RBUTTONUP, PM_REMOVE));
    DispatchMessageW(&msg);

    NoteImageRange(library);
    PVOID watcher = AddVectoredExceptionHandler(1, CountCallsIntoUnloaded);
    FreeLibrary(library);
    EXPECT_EQ(GetModuleHandleW(L"VellColor.dll"), nullptr);
    EXPECT_EQ(GetModuleHandleW(L"VellImagePanel.dll"), nullptr);
    ASSERT_FALSE(IsWindow(dialog));
    ASSERT_TRUE(ThreadDialogs().empty());
    // A hook or a timer left behind would run unmapped code now.
    TypeKeys(host.hwnd(), {VK_SPACE, VK_TAB, 'A'});
    PumpUntil([] { return false; }, 300);
    RemoveVectoredExceptionHandler(watcher);
    EXPECT_EQ(g_callsIntoUnloaded, 0);

    // The settings were saved as on close: loaded again, the remote control
    // comes back shown, where it was.
    library = LoadLibraryW(L"VellColor.dll");
    dialog = OpenFrom(library, host);
    ASSERT_NE(dialog, nullptr);
    EXPECT_TRUE(IsWindowVisible(dialog));
    RECT r;
    GetWindowRect(dialog, &r);
    EXPECT_EQ(r.left, 77);
    EXPECT_EQ(r.top, 55);
    FreeLibrary(library);
    EXPECT_TRUE(ThreadDialogs().empty());
    RemoveSettings();
}

}  // namespace
