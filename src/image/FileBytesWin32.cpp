#include <windows.h>
#include <share.h>

#include "FileBytes.h"
#include "framework/WideText.h"

std::FILE* OpenSharedForReading(const char* path) {
    // Wide at the system boundary, so names outside the ANSI code page open.
    const std::wstring wide = Widen(path);
    if (wide.empty()) return nullptr;
    return _wfsopen(wide.c_str(), L"rb", _SH_DENYWR);
}
