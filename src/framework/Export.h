// Classes the library exports with this compiler's C++ ABI. The ten C
// functions are the binary contract; these are extra.
#pragma once

#if defined(VELLCOLOR_BUILDING_DLL)
#define VELLCOLOR_CLASS __declspec(dllexport)
#elif defined(VELLCOLOR_STATIC)
#define VELLCOLOR_CLASS
#else
#define VELLCOLOR_CLASS __declspec(dllimport)
#endif
