// The seven panel dialogs are module-level objects, one of each, alive from
// load to unload; the main dialog creates and destroys their windows.
#pragma once

class Dialog;
class CDlgColorSet;
class CDlgGradation;
class CDlgTile;
class CDlgStripe;
class CDlgDensityPattern;
class CDlgMapping;
class CDlgImageSource;

// The panel of a template, or null for an id that is not a panel's.
Dialog* PanelByTemplate(int templateId);

CDlgColorSet& ColorSetPanel();
CDlgGradation& GradationPanel();
CDlgTile& TilePanel();
CDlgStripe& StripePanel();
CDlgDensityPattern& DensityPatternPanel();
CDlgMapping& MappingPanel();
CDlgImageSource& ImageSourcePanel();
