// What every effect panel does with its controls. The controls are the
// panels' state: values are read from them whenever parameters are wanted.
#pragma once

#include <windows.h>

#include <initializer_list>

#include "vellcolor/ColorRGB.h"

namespace PanelControls {

// The edit's text as a signed integer, without an error check: empty or
// non-numeric text gives 0.
int ReadInt(HWND dialog, int id);
int ReadInt(HWND edit);
void WriteInt(HWND dialog, int id, int value);

bool IsChecked(HWND dialog, int id);
void SetChecked(HWND dialog, int id, bool checked);

// An up-down control's range and position.
void SetSpin(HWND dialog, int id, int min, int max, int position);

// A slider-like scroll bar: its range, then its position, redrawn when the
// bar shows.
void SetBar(HWND dialog, int id, int min, int max, int position);
int BarPosition(HWND dialog, int id);
// Position divided by the range's maximum.
float BarFraction(HWND dialog, int id);
// WM_HSCROLL from one of the panel's bars: the common stepping rule.
void OnBarScroll(WPARAM wParam, LPARAM lParam);

// Enables or disables the controls, touching only those that change, so
// running this for every message does not make them flicker.
void Enable(HWND dialog, std::initializer_list<int> ids, bool enable);

// The space bar belongs to the main dialog (the panel's parent's parent):
// it is sent there as an update request and the key-down is consumed.
bool ForwardSpaceKey(HWND panel, const MSG* msg);

// A color button: the color filled, no caption.
void PaintColorButton(HWND button, const ColorRGB& color);
// The system color chooser, fully open, starting at *color; false (and
// *color unchanged) when the user cancels.
bool PickColor(HWND owner, ColorRGB* color);

}  // namespace PanelControls
