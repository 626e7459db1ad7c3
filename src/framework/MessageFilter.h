// The host's message loop is not ours and never calls our
// PreTranslateMessage. While any of our dialogs exists, a thread
// WH_GETMESSAGE hook does it instead: a message for one of our windows goes
// through the filter of the dialog it is for and then its ancestors, then
// IsDialogMessage of the top modeless dialog for keyboard navigation (keyboard
// messages only). A consumed message becomes WM_NULL.
#pragma once

#include <windows.h>

namespace MessageFilter {

// Counted: the hook is installed by the first Attach and removed by the
// matching last Detach.
void Attach();
void Detach();

// What the hook does with one message; true when it was consumed.
bool Filter(MSG* msg);

}  // namespace MessageFilter
