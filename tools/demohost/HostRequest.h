// What a drawing program does with a notification from the remote control:
// read the effect's parameters back with the matching PXColor_Get...
// function, and paint them with the renderer.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "vellcolor/VellRender.h"

namespace demohost {

struct HostRequest {
    // Paints the request into a part; empty when there is nothing to paint
    // (an unknown or empty name, a mapping without a picture).
    std::function<int(const vellrender::Picture&, const vellrender::Part&,
                      const vellrender::Options&)>
        render;
    // Every field read, a line each, for the host's notification list.
    std::vector<std::wstring> fields;
};

// Reads what the notification `name` asks for from the open remote control.
// The four operations take their color from the first color of the color set.
HostRequest ReadRequest(const std::string& name);

}  // namespace demohost
