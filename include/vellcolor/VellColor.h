// The host-facing interface of VellColor.dll: ten exported functions with
// undecorated __stdcall names. Link with libVellColor.dll.a.
#pragma once

#include <windows.h>

#include "KTEffectDensityPattern.h"
#include "KTEffectGradation.h"
#include "KTEffectStripe.h"
#include "KTEffectTile.h"
#include "KTMapping.h"

// The host framework's window object. The library only reads the window
// handle stored at byte offset 0x1C of it, at every notification.
class CWnd;

// The same layout for hosts written without that framework: pass the address
// of one of these (cast to CWnd*) and keep it alive while the dialog exists.
struct VellHostWindow {
    void* vtable;
    DWORD frameworkFields[6];
    HWND m_hWnd;
};

inline CWnd* AsHostWindow(VellHostWindow* window) {
    return reinterpret_cast<CWnd*>(window);
}

extern "C" {
BOOL __stdcall PXColor_Open(CWnd* pHostWnd, UINT nNotifyMessage);
void __stdcall PXColor_Close();
void __stdcall PXColor_ShowWindow(int nCmdShow);
int __stdcall PXColor_GetShow();
void __stdcall PXColor_SetTitle(const char* pszTitle);
void __stdcall PXColor_GetGradation(KTEffectGradation& gradation);
void __stdcall PXColor_GetTile(KTEffectTile& tile);
void __stdcall PXColor_GetStripe(KTEffectStripe& stripe);
void __stdcall PXColor_GetDensityPattern(KTEffectDensityPattern& pattern);
void __stdcall PXColor_GetMapping(KTMapping& mapping, float& stretchX, float& stretchY);
}
