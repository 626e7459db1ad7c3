// The one rule every slider-like scroll bar of the library follows.
#pragma once

#include <windows.h>

// Moves a scroll bar control by a WM_HSCROLL code: a line is 1, a page 2,
// and the thumb is followed while dragged. Returns the new position (the
// control keeps it within its range).
int ApplyScrollCode(HWND bar, int code, int thumbPosition);
