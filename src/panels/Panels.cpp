#include "Panels.h"

#include "CDlgColorSet.h"
#include "ResourceIds.h"

namespace {
CDlgColorSet g_dlgColorSet;
}

CDlgColorSet& ColorSetPanel() {
    return g_dlgColorSet;
}

Dialog* PanelByTemplate(int templateId) {
    switch (templateId) {
        case IDD_COLOR_SET: return &g_dlgColorSet;
        default: return nullptr;  // the effect panels and the image source are not built yet
    }
}
