// The library's own module handle, saved when it is loaded. Resources come
// from here, never from GetModuleHandle(NULL), which is the host's.
#pragma once

#include <windows.h>

HINSTANCE ModuleInstance();
void SetModuleInstance(HINSTANCE instance);
