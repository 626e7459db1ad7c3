// What the demo host does by itself for screenshots and for a first look:
// sample pictures for the picture list, one effect shown, and a scripted
// sequence of paints through the real remote control.
#pragma once

#include <string>

#include "HostWindow.h"

namespace demohost {

// The picture list shows the "Image" folder beside the host program; the
// demo makes a few pictures of its own there the first time it runs.
void MakeSamplePictures();

// Registered color sets for a first run: when the settings file beside the
// program has none, a few are added (and the remote control is shown, when
// there was no file at all). What a user registered is never touched.
void MakeStarterSettings();

// Picks `effect` (a notification name) in the remote control and presses its
// update button once. "picture_list" opens the image mapping's picture list
// instead, and "picture_pattern" picks an image-tile pattern with a picture
// taken from the clipboard.
void ShowEffect(HostWindow& host, const std::wstring& effect);

// Paints a gradation, a tile, a stripe, an isoline pattern, an image mapping
// and two operations into different parts, a step every `stepMs`, by
// clicking the remote control's buttons as a user would; then selects the
// star. Runs from timers on the calling thread's message loop.
void StartScript(HostWindow& host, unsigned stepMs);

}  // namespace demohost
