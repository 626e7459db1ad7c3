// Private window messages between the panels and the main dialog. Each
// receiver reads its own numbers, so one number can mean different things to
// different windows.
#pragma once

#include <windows.h>

// To the main dialog
const UINT WM_SUBDIALOG_KEYDOWN = WM_APP + 1000;  // 0, virtual key
const UINT WM_CHANGE_TO_COLOR_PANEL = WM_APP + 1002;
const UINT WM_CHANGE_TO_IMAGE_PANEL = WM_APP + 1003;
const UINT WM_QUERY_IS_IMAGE_SET = WM_APP + 1004;   // answers 1 when an image is loaded
const UINT WM_OPERATE_COLOR_PANEL = WM_APP + 1005;  // 0, color count

// To the color set panel
const UINT WM_SET_PANEL_COLOR = WM_APP + 1000;  // slot, pointer to red, green, blue
const UINT WM_GET_PANEL_COLOR = WM_APP + 1001;  // slot; answers a pointer or 0
