// The seven panel dialogs are module-level objects, one of each, alive from
// load to unload; the main dialog creates and destroys their windows. A
// panel is found by its template id.
#pragma once

class Dialog;

// Null for a template that has no panel in this build.
Dialog* PanelByTemplate(int templateId);
