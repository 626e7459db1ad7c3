#include "ScrollBars.h"

int ApplyScrollCode(HWND bar, int code, int thumbPosition) {
    int position = GetScrollPos(bar, SB_CTL);
    switch (code) {
        case SB_LINELEFT: position -= 1; break;
        case SB_LINERIGHT: position += 1; break;
        case SB_PAGELEFT: position -= 2; break;
        case SB_PAGERIGHT: position += 2; break;
        case SB_THUMBPOSITION:
        case SB_THUMBTRACK: position = thumbPosition; break;
        default: break;
    }
    SetScrollPos(bar, SB_CTL, position, TRUE);
    return GetScrollPos(bar, SB_CTL);
}
