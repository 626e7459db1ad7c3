// The seven panel dialogs are module-level objects, one of each, alive from
// load to unload; the main dialog creates and destroys their windows.
#pragma once

class Dialog;
class CDlgColorSet;
class CDlgGradation;
class CDlgTile;
class CDlgStripe;
class CDlgMapping;
class CDlgImageSource;

// The panel of a template, or null for a template that has no panel in
// this build.
Dialog* PanelByTemplate(int templateId);

CDlgColorSet& ColorSetPanel();
CDlgGradation& GradationPanel();
CDlgTile& TilePanel();
CDlgStripe& StripePanel();
CDlgMapping& MappingPanel();
CDlgImageSource& ImageSourcePanel();
