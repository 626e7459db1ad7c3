#include "Panels.h"

#include "CDlgColorSet.h"
#include "CDlgDensityPattern.h"
#include "CDlgGradation.h"
#include "CDlgImageSource.h"
#include "CDlgMapping.h"
#include "CDlgStripe.h"
#include "CDlgTile.h"
#include "ResourceIds.h"

namespace {
CDlgColorSet g_dlgColorSet;
CDlgGradation g_dlgGradation;
CDlgTile g_dlgTile;
CDlgStripe g_dlgStripe;
CDlgDensityPattern g_dlgDensityPattern;
CDlgMapping g_dlgMapping;
CDlgImageSource g_dlgImageSource;
}  // namespace

CDlgColorSet& ColorSetPanel() {
    return g_dlgColorSet;
}

CDlgGradation& GradationPanel() {
    return g_dlgGradation;
}

CDlgTile& TilePanel() {
    return g_dlgTile;
}

CDlgStripe& StripePanel() {
    return g_dlgStripe;
}

CDlgDensityPattern& DensityPatternPanel() {
    return g_dlgDensityPattern;
}

CDlgMapping& MappingPanel() {
    return g_dlgMapping;
}

CDlgImageSource& ImageSourcePanel() {
    return g_dlgImageSource;
}

Dialog* PanelByTemplate(int templateId) {
    switch (templateId) {
        case IDD_COLOR_SET: return &g_dlgColorSet;
        case IDD_GRADATION: return &g_dlgGradation;
        case IDD_TILE: return &g_dlgTile;
        case IDD_STRIPE: return &g_dlgStripe;
        case IDD_ISOLINE_PATTERN: return &g_dlgDensityPattern;
        case IDD_MAPPING: return &g_dlgMapping;
        case IDD_IMAGE_SOURCE: return &g_dlgImageSource;
        default: return nullptr;
    }
}
