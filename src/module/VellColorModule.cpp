// The module's entry point and its ten exported functions. They manage the
// one remote-control dialog, held in g_pDlgColor; every function but
// PXColor_Open does nothing while there is none.
#include <windows.h>

#include <new>

#include "dialog/CDlgColor.h"
#include "framework/ModuleInstance.h"
#include "vellcolor/VellColor.h"

CDlgColor* g_pDlgColor = NULL;

namespace {

// No exception may cross into the host.
template <typename Body>
void Guarded(Body body) {
    try {
        body();
    } catch (...) {
    }
}

// FreeLibrary while the remote control is open: close it as PXColor_Close
// would, settings saved, so that no window, hook or timer is left to call
// into the unmapped module. Only the dialog's own thread, the one the
// exported functions are for, can destroy it; from any other thread this
// leaves it alone, since destroying it would wait on that thread under the
// loader lock.
void CloseBeforeUnload() {
    if (g_pDlgColor == NULL) return;
    HWND hwnd = g_pDlgColor->hwnd();
    if (hwnd != nullptr && GetWindowThreadProcessId(hwnd, nullptr) != GetCurrentThreadId()) return;
    PXColor_Close();
}

}  // namespace

BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID reserved) {
    if (reason == DLL_PROCESS_ATTACH) SetModuleInstance(instance);
    // When the process ends (reserved is set) the system takes the windows
    // and the hook with it; other threads are gone and other modules may be
    // too, so nothing is touched, and nothing is saved.
    if (reason == DLL_PROCESS_DETACH && reserved == NULL) CloseBeforeUnload();
    return TRUE;
}

extern "C" {

BOOL __stdcall PXColor_Open(CWnd* pHostWnd, UINT nNotifyMessage) {
    BOOL created = FALSE;
    Guarded([&] {
        // Deleting the old dialog destroys its window, which saves its
        // settings for the new one to read.
        if (g_pDlgColor != NULL) delete g_pDlgColor;
        g_pDlgColor = new (std::nothrow) CDlgColor(pHostWnd, nNotifyMessage);
        if (g_pDlgColor != NULL) created = g_pDlgColor->Create();
    });
    return created;
}

void __stdcall PXColor_Close() {
    Guarded([] {
        if (g_pDlgColor == NULL) return;
        g_pDlgColor->DestroyWindow();
        delete g_pDlgColor;
        g_pDlgColor = NULL;
    });
}

void __stdcall PXColor_ShowWindow(int nCmdShow) {
    if (g_pDlgColor != NULL) ShowWindow(g_pDlgColor->hwnd(), nCmdShow);
}

int __stdcall PXColor_GetShow() {
    if (g_pDlgColor == NULL) return -1;
    WINDOWPLACEMENT placement = {};
    placement.length = sizeof placement;
    GetWindowPlacement(g_pDlgColor->hwnd(), &placement);
    return static_cast<int>(placement.showCmd);
}

void __stdcall PXColor_SetTitle(const char* pszTitle) {
    if (g_pDlgColor != NULL) SetWindowTextA(g_pDlgColor->hwnd(), pszTitle != NULL ? pszTitle : "");
}

void __stdcall PXColor_GetGradation(KTEffectGradation& gradation) {
    Guarded([&] {
        if (g_pDlgColor != NULL) g_pDlgColor->GetEffect(gradation);
    });
}

void __stdcall PXColor_GetTile(KTEffectTile& tile) {
    Guarded([&] {
        if (g_pDlgColor != NULL) g_pDlgColor->GetEffect(tile);
    });
}

void __stdcall PXColor_GetStripe(KTEffectStripe& stripe) {
    Guarded([&] {
        if (g_pDlgColor != NULL) g_pDlgColor->GetEffect(stripe);
    });
}

void __stdcall PXColor_GetDensityPattern(KTEffectDensityPattern& pattern) {
    Guarded([&] {
        if (g_pDlgColor != NULL) g_pDlgColor->GetEffect(pattern);
    });
}

void __stdcall PXColor_GetMapping(KTMapping& mapping, float& stretchX, float& stretchY) {
    Guarded([&] {
        if (g_pDlgColor != NULL) g_pDlgColor->GetMapping(mapping, stretchX, stretchY);
    });
}

}  // extern "C"
