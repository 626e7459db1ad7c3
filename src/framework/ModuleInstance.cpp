#include "ModuleInstance.h"

namespace {
HINSTANCE g_instance = nullptr;
}

HINSTANCE ModuleInstance() {
    // A test program that links the layer statically has no DLL handle; its
    // own image holds the resources then.
    return g_instance != nullptr ? g_instance : GetModuleHandleW(nullptr);
}

void SetModuleInstance(HINSTANCE instance) {
    g_instance = instance;
}
